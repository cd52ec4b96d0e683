// SPDX-License-Identifier: MIT
#include "CanvasFixture.h"

#include <curveeditor/canvas/ControlMenu.h>

#include <functional>
#include <sstream>

using Values = QList<double>;

namespace {

Values timesOf(const SplineBase& spline)
{
    Values times;
    for (const auto* point : spline.getControlPoints())
        times.append(point->time);
    return times;
}

/// An expression of the host's own that counts how often it is evaluated.
struct Counting : FunctionFloatBase
{
    explicit Counting(int& counter) : count(counter) {}
    double evaluate() override { return ++count, 0.0; }
    int& count;
};

/// Two curves in view: "a.x" along value 0 from 5 to 15, and the expression "a.y" at value 2. "a.x" is
/// current.
struct Scene
{
    explicit Scene(const std::string& text = "2") : second(widget.add(formula, "a.y", text))
    {
        first = widget.add(spline, "a.x");
        QObject::connect(first, &CurveNodeBase::curveHasChanged, [this] { ++reports; });
        widget.show();
        widget.canvas.paint();
    }
    SplineBase::PointInfo* point(unsigned index) { return spline.spline.modify(index); }
    void selectAll()
    {
        for (unsigned i = 0; i < spline.spline.getControlPointsNumber(); ++i)
            widget.control().toggleSelected(point(i));
    }

    CanvasWidget::Curve spline, formula;
    CanvasWidget widget;
    CurveNodeBase* second;
    CurveNodeBase* first;
    int reports = 0;
};

} // namespace

class tst_CanvasFunctionBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listFollowsNamesAndCurrentCurve()
    {
        Scene s;
        CanvasFunctionBase& canvas = s.widget.canvas;
        canvas.setCurrentCurve("a.y");
        QCOMPARE(s.widget.add(s.spline, "a.x"), s.first);
        QCOMPARE(canvas.getCurrentCurve(), s.second);
        const QSignalSpy told(&canvas, &CanvasFunctionBase::changeCommandLine);
        canvas.removeCurve("A.Y");
        QCOMPARE(told.size(), 0);
        canvas.removeCurve(s.second);
        QCOMPARE(canvas.getCurrentCurveName(), QString("a.x"));
        QVERIFY(s.first->getCanvasSpline()->selected);
        canvas.removeCurve("a.x");
        QCOMPARE(canvas.getCurrentCurveName(), QString("None"));
        QCOMPARE(told.size(), 2);
        double value = 7.0;
        QVERIFY(!canvas.getCurrentValue(1.0, value) && value == 7.0 && !canvas.currentSpline());
    }

    void pressPicksACurveWithinThreePixels_data()
    {
        QTest::addColumn<QPoint>("at");
        QTest::addColumn<bool>("picked");
        QTest::newRow("three above") << QPoint(20, 27) << true;
        QTest::newRow("four above") << QPoint(20, 26) << false;
        QTest::newRow("four below") << QPoint(20, 34) << false;
        QTest::newRow("beside its begin") << QPoint(9, 30) << true;
        QTest::newRow("two before its begin") << QPoint(8, 30) << false;
        QTest::newRow("not a number, at the top") << QPoint(5, 1) << false;
        QTest::newRow("the current curve itself") << QPoint(80, 50) << false;
    }
    void pressPicksACurveWithinThreePixels()
    {
        QFETCH(const QPoint, at);
        QFETCH(const bool, picked);
        Scene s("2+0*sqrt(t-1)");
        QTest::mousePress(&s.widget, Qt::LeftButton, {}, at);
        QCOMPARE(s.widget.taken, picked);
        QCOMPARE(s.widget.canvas.getCurrentCurve(), picked ? s.second : s.first);
        QCOMPARE(s.widget.bandDrag, !picked);
    }

    void dragMovesThePointAndReportsOnRelease()
    {
        Scene s;
        QTest::mousePress(&s.widget, Qt::LeftButton, {}, QPoint(101, 50));
        QVERIFY(s.widget.taken);
        QMouseEvent move(QEvent::MouseMove, QPoint(170, 30), QPoint(), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&s.widget, &move);
        QCOMPARE(timesOf(s.spline.spline), (Values{5.0, 15.0, 17.0}));
        QCOMPARE(s.reports, 0);
        QTest::mouseRelease(&s.widget, Qt::LeftButton, {}, QPoint(170, 30));
        QCOMPARE(s.reports, 1);
        QCOMPARE(s.spline.spline.getLast()->pos, 2.0);
        QVERIFY(s.widget.canvas.hasSinglePoint());
    }

    void dragOfSeveralPointsMovesOrScales_data()
    {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<Qt::KeyboardModifiers>("keys");
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<Values>("times");
        const Values scaled{25.0, 50.0, 75.0};
        const Qt::KeyboardModifiers none, shift = Qt::ShiftModifier;
        QTest::newRow("move") << Qt::LeftButton << none << QPoint(70, 80) << QPoint(80, 80)
                              << Values{6.0, 11.0, 16.0};
        QTest::newRow("move far") << Qt::LeftButton << none << QPoint(70, 80) << QPoint(200, 80)
                                  << Values{18.0, 23.0, 28.0};
        QTest::newRow("scale, Shift")
            << Qt::LeftButton << shift << QPoint(60, 80) << QPoint(260, 80) << scaled;
        QTest::newRow("scale, middle")
            << Qt::MiddleButton << none << QPoint(60, 80) << QPoint(260, 80) << scaled;
    }
    void dragOfSeveralPointsMovesOrScales()
    {
        QFETCH(const Qt::MouseButton, button);
        QFETCH(const Qt::KeyboardModifiers, keys);
        QFETCH(const QPoint, from);
        QFETCH(const QPoint, to);
        Scene s;
        s.selectAll();
        s.widget.drag(from, to, button, keys);
        QTEST(timesOf(s.spline.spline), "times");
        QCOMPARE(s.widget.control().getCurrent(), s.point(2));
        QCOMPARE(int(s.widget.control().selectionList().size()), 3);
    }

    void pressBesideASelectionReplacesIt()
    {
        Scene s;
        s.selectAll();
        QTest::mouseClick(&s.widget, Qt::LeftButton, Qt::ShiftModifier, QPoint(180, 80));
        QVERIFY(s.widget.control().hasMultipleSelection());
        QTest::mouseClick(&s.widget, Qt::LeftButton, {}, QPoint(180, 80));
        QVERIFY(!s.widget.control().hasSelection());
        s.widget.control().selectOnly(s.point(0));
        QTest::mouseClick(&s.widget, Qt::LeftButton, Qt::ShiftModifier, QPoint(180, 80));
        QVERIFY(!s.widget.control().hasSelection());
    }

    void bandSelectsThePointsInIt()
    {
        Scene s;
        s.widget.drag(QPoint(80, 90), QPoint(190, 40));
        QCOMPARE(int(s.widget.control().selectionList().size()), 2);
        QCOMPARE(s.reports, 1);
        s.widget.drag(QPoint(20, 90), QPoint(40, 40));
        QVERIFY(!s.widget.control().hasSelection() && !s.widget.bandActive);
        QCOMPARE(s.reports, 1);
        s.widget.canvas.setCurrentCurve(s.second);
        s.widget.drag(QPoint(80, 90), QPoint(190, 40));
        QVERIFY(!s.widget.bandActive && !s.widget.bandValid);
    }

    void gesturesAddPointsWhereTheyShould()
    {
        Scene s;
        QTest::mouseDClick(&s.widget, Qt::LeftButton, {}, QPoint(70, 10));
        QCOMPARE(timesOf(s.spline.spline), (Values{5.0, 7.0, 10.0, 15.0}));
        QTest::mouseDClick(&s.widget, Qt::LeftButton, Qt::ControlModifier, QPoint(90, 10));
        s.widget.control().selectOnly(nullptr);
        s.reports = 0;
        QTest::mousePress(&s.widget, Qt::LeftButton, Qt::ControlModifier, QPoint(180, 90));
        QCOMPARE(s.spline.spline.getLast()->time, 18.0);
        QCOMPARE(s.spline.spline.getLast()->pos, -4.0);
        QVERIFY(s.widget.taken && !s.widget.control().hasSelection());
        QCOMPARE(s.reports, 1);
        QTest::mousePress(&s.widget, Qt::LeftButton, Qt::ShiftModifier, QPoint(180, 90));
        QCOMPARE(s.reports, 2);
        QVERIFY(s.widget.canvas.hasSinglePoint());
        QTest::mousePress(&s.widget, Qt::LeftButton, Qt::AltModifier, QPoint(20, 90));
        QVERIFY(!s.widget.taken && s.widget.canvas.hasSinglePoint());
    }

    void keysDeleteAndStep()
    {
        Scene s;
        s.widget.control().selectOnly(s.point(1));
        QTest::keyClick(&s.widget, Qt::Key_Right);
        QTest::keyClick(&s.widget, Qt::Key_Right);
        QCOMPARE(s.widget.control().getCurrent(), s.point(2));
        QTest::keyClick(&s.widget, Qt::Key_Left);
        s.widget.canvas.setCurrentToExpression();
        QTest::keyClick(&s.widget, Qt::Key_Delete);
        QTest::keyClick(&s.widget, Qt::Key_Delete);
        QCOMPARE(timesOf(s.spline.spline), (Values{5.0, 15.0}));
        QCOMPARE(s.reports, 2);
        s.selectAll();
        QTest::keyClick(&s.widget, Qt::Key_Right);
        QVERIFY(s.widget.control().hasMultipleSelection());
    }

    void menuCreatesAKeyOnTheCanvasUnderIt()
    {
        Scene other, s;
        QTimer::singleShot(0, &s.widget, [] {
            auto* const menu = qobject_cast<ControlMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu);
            menu->setActiveAction(menu->actions()[5]);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QTest::mousePress(&s.widget, Qt::RightButton, {}, QPoint(30, 80));
        QCOMPARE(timesOf(s.spline.spline), (Values{3.0, 5.0, 10.0, 15.0}));
        QCOMPARE(s.spline.spline.getFirst()->pos, -3.0);
        QCOMPARE(s.reports, 2);
        QVERIFY(!s.widget.taken && s.widget.zoomDrag == false);
        QCOMPARE(timesOf(other.spline.spline), (Values{5.0, 10.0, 15.0}));
    }

    void hostMayTakeTheCurveAwayWheneverItHears_data()
    {
        using Gesture = std::function<void(Scene&)>;
        QTest::addColumn<Gesture>("gesture");
        const auto row = [](const char* name, Gesture gesture) {
            QTest::newRow(name) << gesture;
        };
        row("Ctrl press", [](Scene& s) {
            QTest::mousePress(&s.widget, Qt::LeftButton, Qt::ControlModifier, QPoint(180, 90));
        });
        row("Shift press", [](Scene& s) {
            QTest::mousePress(&s.widget, Qt::LeftButton, Qt::ShiftModifier, QPoint(100, 50));
        });
        row("double click",
            [](Scene& s) { QTest::mouseDClick(&s.widget, Qt::LeftButton, {}, QPoint(70, 10)); });
        row("drag", [](Scene& s) { s.widget.drag(QPoint(100, 50), QPoint(120, 20)); });
        row("Delete", [](Scene& s) { QTest::keyClick(&s.widget, Qt::Key_Delete); });
        row("reset", [](Scene& s) { s.widget.canvas.resetAllCurves(); });
        row("node form", [](Scene& s) { s.widget.canvas.currentNodeHasChanged(); });
        row("expression", [](Scene& s) {
            ParseMessage message;
            s.widget.canvas.parseExpression("t", message);
        });
        row("menu", [](Scene& s) {
            QTimer::singleShot(0, [&s] {
                s.first->emitCurveChanged();
                QApplication::activePopupWidget()->close();
            });
            QTest::mousePress(&s.widget, Qt::RightButton, {}, QPoint(30, 80));
        });
        row("message box", [](Scene& s) {
            inMessageBox([&s](const QString&) { s.first->emitCurveChanged(); });
            ParseMessage message;
            s.widget.canvas.parseExpression("sin(", message);
        });
    }
    void hostMayTakeTheCurveAwayWheneverItHears()
    {
        QFETCH(const std::function<void(Scene&)>, gesture);
        Scene s;
        connect(s.first, &CurveNodeBase::curveHasChanged,
                [&s] { s.widget.canvas.removeCurve(s.widget.canvas.getCurrentCurve()); });
        gesture(s);
        QCOMPARE(s.widget.canvas.getCurrentCurve(), s.second);
        s.widget.canvas.paint();
    }

    void pointsThatTheHostRemovedAreLetGo()
    {
        Scene s;
        s.selectAll();
        s.spline.spline.reset();
        s.widget.canvas.scaleSelection(2.0, 2.0);
        s.widget.drag(QPoint(70, 80), QPoint(80, 80));
        QTest::keyClick(&s.widget, Qt::Key_Left);
        QCOMPARE(timesOf(s.spline.spline), Values{0.0});
        QVERIFY(!s.widget.control().hasSelection());
    }

    void selectionIsScaledAndPannedAboutTheOrigin()
    {
        Scene s;
        s.widget.canvas.panSelection(1.0, 1.0);
        s.selectAll();
        s.widget.canvas.panSelection(1.0, 2.0);
        s.widget.canvas.scaleSelection(0.5, -3.0);
        s.widget.canvas.scaleSelection(notANumber, notANumber);
        QCOMPARE(timesOf(s.spline.spline), (Values{3.0, 5.5, 8.0}));
        QCOMPARE(s.point(1)->pos, -6.0);
        QCOMPARE(s.reports, 0);
        double first = 0.0, last = 0.0, lowest = 0.0, highest = 0.0;
        s.widget.canvas.getExtent(first, last, lowest, highest);
        QCOMPARE((Values{first, last, lowest, highest}), (Values{3.0, 8.0, -6.0, -6.0}));
        s.widget.canvas.setCurrentCurve(s.second);
        s.widget.canvas.getExtent(last, first, lowest, lowest);
        QCOMPARE(last, 8.0);
    }

    void stableViewEvaluatesNothing()
    {
        Scene s;
        int count = 0;
        delete std::exchange(s.formula.expression, new Counting(count));
        s.second->changed = true;
        s.widget.picture();
        QVERIFY(count > 0);
        count = 0;
        s.widget.drag(QPoint(100, 50), QPoint(120, 20));
        s.widget.picture();
        QCOMPARE(count, 0);
        QVERIFY(!s.widget.dirty && !s.first->changed);
    }

    void pictureHasItsLayers()
    {
        Scene s;
        s.widget.canvas.setCanvasColor(Qt::green);
        s.widget.canvas.setSelectionColor(Qt::blue);
        s.widget.canvas.setFrameLinesColor(Qt::transparent);
        const QRgb canvasColor = s.widget.shown(QPoint(70, 80));
        QCOMPARE(canvasColor, QColor(Qt::green).rgb());
        QCOMPARE(s.widget.shown(QPoint(70, 50)), QColor(Qt::red).rgb());
        s.selectAll();
        QCOMPARE(s.widget.shown(QPoint(70, 80)), QColor(Qt::blue).rgb());
        QCOMPARE(s.widget.shown(QPoint(180, 80)), canvasColor);
        s.widget.beginBand(60, 60);
        s.widget.extendBand(90, 90);
        QCOMPARE(s.widget.shown(QPoint(70, 80)), QColor(Qt::blue).rgb());
        QCOMPARE(s.widget.shown(QPoint(120, 80)), canvasColor);
        s.widget.extendBand(62, 90);
        QCOMPARE(s.widget.shown(QPoint(61, 80)), canvasColor);
        s.widget.canvas.loadImage("no such file");
        QCOMPARE(s.widget.shown(QPoint(180, 80)), canvasColor);
    }

    void viewThatCannotBeShownIsOnlyErased_data()
    {
        QTest::addColumn<double>("low");
        QTest::addColumn<double>("high");
        QTest::newRow("no span") << 3.0 << 3.0;
        QTest::newRow("reversed") << 3.0 << -3.0;
        QTest::newRow("no number") << notANumber << 3.0;
        QTest::newRow("span beyond all numbers") << -1.7e308 << 1.7e308;
    }
    void viewThatCannotBeShownIsOnlyErased()
    {
        QFETCH(const double, low);
        QFETCH(const double, high);
        Scene s;
        s.selectAll();
        s.widget.setLimitTimeMin(low);
        s.widget.setLimitTimeMax(high);
        s.widget.dirty = true;
        QImage empty(s.widget.size(), QImage::Format_RGB32);
        empty.fill(Qt::black);
        QCOMPARE(s.widget.picture(), empty);
        s.widget.drag(QPoint(70, 80), QPoint(90, 20));
        s.widget.resize(0, 0);
        s.widget.setSize(0, 0);
        s.widget.picture();
    }

    void parsedExpressionReachesCurveAndHost_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("told");
        QTest::newRow("good") << "t*2" << QString();
        QTest::newRow("unknown") << "t+cam.x"
                                 << "Syntax error:Variable cam.x not found";
        QTest::newRow("parenthesis") << "sin(t"
                                     << "Syntax error:Unmatched parenthesis";
        QTest::newRow("other") << "2 2"
                               << "Syntax error:Unknown";
    }
    void parsedExpressionReachesCurveAndHost()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, told);
        Scene s;
        QString box;
        if (!told.isEmpty())
            inMessageBox([&](const QString& shown) { box = shown; });
        ParseMessage message;
        s.widget.canvas.parseExpression(text, message);
        QCOMPARE(box, told);
        QCOMPARE(message.errors.empty(), told.isEmpty());
        QCOMPARE(s.spline.expression != nullptr, told.isEmpty());
        QCOMPARE(s.reports, told.isEmpty() ? 1 : 0);
        QCOMPARE(s.first->getKind(), 0);
    }

    void savedCurveIsLoadedIntoTheCurrentOne()
    {
        Scene s;
        std::stringstream file;
        QVERIFY(s.widget.canvas.saveCurve(file));
        QVERIFY(file.str().rfind("255\n0\n0\n0\n", 0) == 0);
        s.spline.spline.reset();
        QVERIFY(s.widget.canvas.loadCurve(file));
        QCOMPARE(timesOf(s.spline.spline), (Values{5.0, 10.0, 15.0}));
        QCOMPARE(s.reports, 1);
        std::istringstream broken("255\n0\n0\n0\n");
        QVERIFY(!s.widget.canvas.loadCurve(broken));
        QCOMPARE(s.reports, 1);
        s.widget.canvas.removeAllCurves();
        QVERIFY(!s.widget.canvas.saveCurve(file) && !s.widget.canvas.loadCurve(file));
    }

    void sensorTableHasARowForEachWholeTime_data()
    {
        QTest::addColumn<double>("low");
        QTest::addColumn<double>("high");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("truncated") << -0.5 << 2.5
                                   << QStringList{"num_lambdas \t 3",           "",
                                                  "0,\t0.000000,\t7.000000,\t", "1,\t1.000000,\t7.000000,\t",
                                                  "2,\t4.000000,\t7.000000,\t", ""};
        QTest::newRow("reversed") << 2.0 << 0.0 << QStringList{"num_lambdas \t -1", "", ""};
        QTest::newRow("too many") << -1e300 << 1e300 << QStringList();
    }
    void sensorTableHasARowForEachWholeTime()
    {
        QFETCH(const double, low);
        QFETCH(const double, high);
        QFETCH(const QStringList, lines);
        Scene s("t*t");
        s.spline.spline.reset();
        s.spline.spline.setPos(s.point(0), 7.0);
        s.widget.setLimitTimeMin(low);
        s.widget.setLimitTimeMax(high);
        FunctionParserBase::instance()->getKey("t")->setValue(42.0);
        QString text;
        QTextStream out(&text);
        QCOMPARE(s.widget.canvas.exportSensorData(out), !lines.isEmpty());
        QCOMPARE(text.split('\n').mid(6), lines);
        QCOMPARE(FunctionParserBase::instance()->getKey("t")->getValue(), 42.0);
    }
};

QTEST_MAIN(tst_CanvasFunctionBase)
#include "tst_CanvasFunctionBase.moc"
