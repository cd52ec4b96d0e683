// SPDX-License-Identifier: MIT
#include "CanvasFixture.h"

#include <curveeditor/canvas/CanvasExpression.h>

#include <sstream>

namespace {

double variable(const char* name)
{
    return FunctionParserBase::instance()->getKey(name)->getValue();
}

void drawOn(CanvasWidget& widget, CurveNodeBase& curve)
{
    QImage image(widget.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    curve.draw(&widget, &painter);
}

} // namespace

class tst_CurveNodeBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newCurveIsCurrentAndOfTheKindOfItsHolder()
    {
        CanvasWidget::Curve spline, formula;
        CanvasWidget widget;
        CurveNodeBase* const first = widget.add(spline, "a.x");
        CurveNodeBase* const second = widget.add(formula, "a.y", "2*t");
        QCOMPARE(first->getKind(), 0);
        QCOMPARE(second->getKind(), 1);
        QCOMPARE(widget.canvas.getCurrentCurve(), second);

        second->setSplineMode(false);
        QCOMPARE(second->getValue(7.0), 0.0);
        second->setExpressionMode();
        QCOMPARE(second->getClampedValue(1.0), 2.0);
        QCOMPARE(widget.canvas.getCurrentExpressionText(), QString("2*t"));
    }

    void eachMenuKeepsOneOfItsCurvesChecked()
    {
        CanvasWidget::Curve curves[3];
        for (int round = 0; round < 2; ++round) {
            CanvasWidget widget, other;
            other.add(curves[2], "a.x");
            widget.add(curves[0], "a.x");
            widget.add(curves[1], "a.y");
            QCOMPARE(widget.menu.actions().size(), 2);
            widget.menu.actions()[0]->trigger();
            QCOMPARE(widget.canvas.getCurrentCurveName(), QString("a.x"));
            QVERIFY(widget.menu.actions()[0]->isChecked() && !widget.menu.actions()[1]->isChecked());
            QVERIFY(other.menu.actions()[0]->isChecked());
            widget.canvas.renameCurve("a.x", "b.z");
            QCOMPARE(widget.menu.actions()[0]->text(), QString("b.z"));
            widget.canvas.removeCurve("b.z");
            QCOMPARE(widget.menu.actions().size(), 1);
        }
    }

    void reportsGroupAndCurve_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<QString>("curve");
        QTest::newRow("a.x") << "a"
                             << "x";
        QTest::newRow("a.b.x") << "a"
                               << "x";
        QTest::newRow("..a..x.") << "a"
                                 << "x";
        QTest::newRow("plain") << "plain"
                               << "plain";
        QTest::newRow("...") << "..."
                             << "...";
    }
    void reportsGroupAndCurve()
    {
        CanvasWidget::Curve curve;
        CanvasWidget widget;
        CurveNodeBase* const node = widget.add(curve, QTest::currentDataTag());
        QStringList heard;
        connect(node, &CurveNodeBase::curveHasChanged, [&](QString& group, QString& name) {
            heard << group << name;
            widget.canvas.removeCurve(node);
        });
        node->emitCurveChanged();
        QFETCH(const QString, group);
        QTEST(heard.value(1), "curve");
        QCOMPARE(heard, QStringList({group, heard.value(1)}));
    }

    void valuesAreClampedAndVariablesComeBack()
    {
        const FunctionParserBase::keyStruct& frame = *FunctionParserBase::instance()->getKey("f");
        FunctionParserBase::instance()->getKey("t")->setValue(77.0);
        CanvasWidget::Curve formula, empty, reversed;
        CanvasWidget widget;
        CurveNodeBase* const node = widget.add(formula, "a.x", "f");
        QCOMPARE(node->getClampedValue(0.25), 2.5);
        QCOMPARE(node->getClampedValue(0.3), 3.0);
        QCOMPARE(node->getClampedValue(-9.0), -3.0);
        QCOMPARE(node->getValue(5.0), frame.getValue());
        QCOMPARE(variable("t"), 77.0);

        CurveNodeBase* const without = widget.add(empty, "a.y");
        without->setExpressionMode();
        QCOMPARE(without->getValue(1.0), 0.0);
        QCOMPARE(without->getClampedValue(1.0), 0.0);
        widget.minimum = 4.0f;
        QCOMPARE(widget.add(reversed, "a.z")->getClampedValue(5.0), 4.0);
    }

    void expressionIsDrawnWithinItsRangeAndTheCanvas_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("points");
        QTest::addColumn<int>("breaks");
        QTest::addColumn<QPoint>("last");
        QTest::newRow("above its range") << "4" << 5000 << 0 << QPoint(199, 20);
        QTest::newRow("above the view") << "100*(t-19)" << 5000 << 0 << QPoint(199, 20);
        QTest::newRow("one step short of the end") << "t-20" << 5000 << 0 << QPoint(199, 50);
        QTest::newRow("nowhere finite") << "log(0)" << 0 << 0 << QPoint();
        QTest::newRow("not from the start") << "sqrt(t-10)-9" << 2500 << 1 << QPoint(199, 80);
        QTest::newRow("a gap") << "if((t>5)*(t<10), 0/0, 0)" << 3751 << 1 << QPoint(199, 50);
    }
    void expressionIsDrawnWithinItsRangeAndTheCanvas()
    {
        QFETCH(const QString, text);
        QFETCH(const int, points);
        QFETCH(const int, breaks);
        QFETCH(const QPoint, last);
        CanvasWidget::Curve curve;
        CanvasWidget widget;
        CurveNodeBase* const node = widget.add(curve, "a.x", text.toStdString());
        drawOn(widget, *node);
        const CanvasExpression& picture = *node->getCanvasExpression();
        QCOMPARE(int(picture.curveLine.size()), points);
        QCOMPARE(int(picture.lineStarts.size()), breaks);
        QCOMPARE(picture.curveLine.value(points - 1), last);
        QCOMPARE(node->changed, false);
    }

    void lineNeverLeavesTheCanvasByMoreThanARow()
    {
        CanvasWidget::Curve high, low;
        CanvasWidget widget;
        widget.minimum = -std::numeric_limits<float>::infinity();
        widget.maximum = std::numeric_limits<float>::infinity();
        CurveNodeBase* const above = widget.add(high, "a.x", "1e300");
        CurveNodeBase* const below = widget.add(low, "a.y", "-1e300");
        drawOn(widget, *above);
        drawOn(widget, *below);
        QCOMPARE(above->getCanvasExpression()->curveLine.first(), QPoint(0, -1));
        QCOMPARE(below->getCanvasExpression()->curveLine.first(), QPoint(0, 100));
        QCOMPARE(below->getCanvasExpression()->unselectedPen.color(), QColor(127, 0, 0));
    }

    void resetLeavesOnePointAndNoExpression()
    {
        CanvasWidget::Curve curve;
        CanvasWidget widget;
        CurveNodeBase* const node = widget.add(curve, "a.x", "t");
        widget.control().selectOnly(curve.spline.modify(2u));
        const QSignalSpy reported(node, &CurveNodeBase::curveHasChanged);
        node->resetCurve();
        QVERIFY(!curve.expression && node->getKind() == 0 && !widget.control().hasSelection());
        QCOMPARE(curve.spline.getControlPointsNumber(), 1u);
        QCOMPARE(curve.spline.getFirst()->pos, 1.5);
        QCOMPARE(reported.size(), 1);
    }

    void cycleIsToldAndMarkedWhereverItsNameStands()
    {
        CanvasWidget::Curve curve;
        CanvasWidget widget;
        CurveNodeBase* const node = widget.add(curve, "a.x", "t");
        widget.cycleThrough = "B B";
        ParseMessage message;
        FunctionFloatBase* const refused = FunctionParserBase::instance()->parseString("2", message);
        message.text = "b b b+2*b_b";
        QString told;
        inMessageBox([&](const QString& text) { told = text; });
        node->assignExpression(refused, message);
        QCOMPARE(told, QString("Cyclical dependency:Cyclical dependency has been found for d-var B B "));
        QCOMPARE(message.code, std::int32_t(ParseMessage::CyclicDependency));
        QVERIFY((message.errors == decltype(message.errors){{0, 3}, {2, 3}, {8, 3}}));
        QCOMPARE(curve.expression, refused);
    }

    void readingTakesAllOrNothing_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<bool>("good");
        QTest::addColumn<double>("valueAt2");
        QTest::newRow("expression") << "1\nf/10\n" << true << 2.0;
        QTest::newRow("other character") << "x t/2" << true << 1.0;
        QTest::newRow("faulty expression") << "1\nsin(\n" << false << 0.0;
        QTest::newRow("unknown variable") << "1\nno.such\n" << false << 0.0;
        QTest::newRow("no body") << "1\n" << false << 0.0;
        QTest::newRow("no spline") << "0\n1 2 3" << false << 0.0;
    }
    void readingTakesAllOrNothing()
    {
        QFETCH(const QString, content);
        QFETCH(const bool, good);
        CanvasWidget::Curve curve;
        CanvasWidget widget;
        CurveNodeBase* const node = widget.add(curve, "a.x", "t-2");
        const FunctionFloatBase* const before = curve.expression;
        std::istringstream in(content.toStdString());
        QCOMPARE(node->read(in, FunctionParserBase::instance()), good);
        QCOMPARE(curve.expression == before, !good);
        QTEST(node->getClampedValue(2.0), "valueAt2");
        QCOMPARE(curve.spline.getControlPointsNumber(), 3u);
    }

    void splineReadOntoAnExpressionKeepsIt()
    {
        CanvasWidget::Curve from, to;
        CanvasWidget widget;
        std::stringstream file;
        QVERIFY(widget.add(from, "a.x")->write(file));
        CurveNodeBase* const node = widget.add(to, "a.y", "t");
        to.spline.reset();
        widget.control().selectOnly(to.spline.modify(0u));
        QVERIFY(node->read(file, FunctionParserBase::instance()));
        QCOMPARE(to.spline.getControlPointsNumber(), 3u);
        QVERIFY(to.expression && node->getKind() == 0 && !widget.control().hasSelection());

        node->setSplineMode(true);
        node->setExpressionMode();
        QVERIFY(!node->write(file));
    }
};

QTEST_MAIN(tst_CurveNodeBase)
#include "tst_CurveNodeBase.moc"
