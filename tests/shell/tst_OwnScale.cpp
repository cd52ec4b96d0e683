// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/shell/RetimeDialog.h>

namespace {

/// The curves "a.x" between -1 and 1 and, in front of none of it, "a.y" between -2,000 and 0; points of all can be hit.
struct ScaledScene : Scene
{
    ScaledScene()
    {
        y.setPos(y.modify(1), -2000.0);
        key(Qt::Key_A, shift);
        editor.updateCurves();
        editor.action("ownScaleAction")->trigger();
        QCoreApplication::processEvents();
    }
    /// Where a point of that curve is seen.
    QPoint seen(const QString& curve, unsigned index)
    {
        canvas.canvas.updateCurves();
        const PlaneMapping plane = canvas.canvas.findCurve(curve)->mapping();
        const SplineBase& spline = curves[curve].spline;
        return {plane.pixelColumn(spline[index]->time), plane.pixelRow(spline[index]->pos)};
    }
    double share(const QString& curve, unsigned index)
    {
        return double(seen(curve, index).y()) / canvas.height();
    }
    void dragBy(const QPoint& from, const QPoint& distance)
    {
        pressAt(from).mouse(QEvent::MouseMove, from + distance / 2).mouse(QEvent::MouseMove, from + distance);
    }

    SplineBase& y = curves["a.y"].spline;
};

bool isNear(double left, double right, double tolerance = 1e-9)
{
    return std::abs(left - right) <= tolerance;
}

} // namespace

class tst_OwnScale : public QObject
{
    Q_OBJECT

    using Scales = Rows<AxisRange, AxisRange, AxisRange>; // values, bounds, scale
    using Curves = Rows<Deed>;

private Q_SLOTS:
    void scaleLeavesATenthFree_data()
    {
        const AxisRange none{-1e308, 1e308}, bounds{-4.0, 6.0};
        const Scales row;
        row("values", {10.0, 20.0}, bounds, {9.0, 21.0});
        row("level", {5.0, 5.0}, none, {4.5, 5.5});
        row("level within bounds", {5.0, 5.0}, bounds, {-5.0, 7.0});
        row("level above its bounds", {16.0, 16.0}, bounds, {-6.0, 18.0});
        row("level, bounds without span", {5.0, 5.0}, {5.0, 5.0}, {4.5, 5.5});
        row("as good as level", {0.0, 1e-12}, bounds, {-5.0, 7.0});
        row("nothing", AxisRange::nothing(), bounds, {0.0, 1.0});
        row("too large", {-1.7e308, 1.7e308}, none, {-1.2e300, 1.2e300});
        row("level and large", {1e15, 1e15}, none, {1e15 - 2e11, 1e15 + 2e11});
    }
    void scaleLeavesATenthFree()
    {
        const auto [values, bounds, expected] = Scales::present();
        const AxisRange scale = OwnScale::of(values, bounds);
        QCOMPARE(scale.low, expected.low);
        QCOMPARE(scale.high, expected.high);
    }

    void limitsOfValuesBindNoCurveAndEachIsScaledInItsUnits()
    {
        ScaledScene s;
        s.editor.setMinValue(-10.0);
        s.editor.setMaxValue(10.0);
        s.dragBy(s.seen("a.y", 1), {20, 0});
        s.mouse(QEvent::MouseButtonRelease, {});
        QVERIFY(isNear(s.y[1]->pos, -2000.0, 50.0) && s.y[1]->time > 5.1);
        s.key(Qt::Key_Home).shown();
        QVERIFY(isNear(s.share("a.y", 1), 11.0 / 12.0, 0.01));
        s.turnTo("a.x").key(Qt::Key_A, ctrl).trigger("retimeAction");
        auto* const found = s.editor.findChild<RetimeDialog*>();
        found->findChild<QComboBox*>("pivot")->setCurrentIndex(2);
        found->findChild<QLineEdit*>("valueFactor")->setText("2");
        found->accept();
        QVERIFY(isNear(s.x[1]->pos, 2.0, 0.02) && isNear(s.x[2]->pos, -2.0, 0.02));
        QVERIFY(isNear(s.y[1]->pos, -3000.0, 100.0) && isNear(s.y[0]->pos, 1000.0, 100.0));
    }

    void eachCurveFillsTheCanvasAndKeepsItsValues()
    {
        Scene s;
        s.curves["a.y"].spline.setPos(s.curves["a.y"].spline.modify(1), -2000.0);
        s.updateCurves();
        const auto before = s.states();
        const QImage shown = s.shown();
        const QRectF view = s.editor.view();
        const QByteArray state = s.editor.saveState();
        QAction& action = *s.editor.action("ownScaleAction");
        action.trigger();
        QVERIFY(s.shown() != shown && s.showsWhatIsDrawnFromScratch());
        const double height = s.canvas.height();
        for (const auto& [name, value, row] : {std::tuple("a.x", 1.0, 1.0),
                                               {"a.x", -1.0, 11.0},
                                               {"a.y", 0.0, 1.0},
                                               {"a.y", -2000.0, 11.0},
                                               {"a.z", 2.0, 1.0}})
            QVERIFY(isNear(s.canvas.canvas.findCurve(name)->mapping().row(value), height * row / 12.0, 0.5));
        QVERIFY(isNear(s.editor.view().y(), -1.2) && isNear(s.editor.view().height(), 2.4));

        QSignalSpy told(&s.editor, &CurveEditor::viewChanged);
        s.turnTo("a.y"), s.shown();
        QVERIFY(isNear(s.editor.view().y(), -2200.0) &&
                isNear(s.editor.toCanvas({0.0, -2200.0}).y(), height));
        QVERIFY(!told.isEmpty());
        s.key(Qt::Key_Plus).turnTo("a.x");
        QVERIFY(isNear(s.editor.view().center().y(), 0.0) && s.editor.view().height() < 2.4);
        s.editor.resetViewport();
        QVERIFY(isNear(s.editor.view().y(), -1.2) && isNear(s.editor.view().height(), 2.4));
        s.key(Qt::Key_Plus).key(Qt::Key_Home);
        QVERIFY(isNear(s.editor.view().y(), -1.2) && isNear(s.editor.view().height(), 2.4));
        const QByteArray scaled = s.editor.saveState();
        s.editor.setView({0.0, -0.5, 4.0, 1.0});
        s.turnTo("a.y").editor.restoreState(scaled);
        QVERIFY(isNear(s.editor.view().height(), 2400.0));
        s.turnTo("a.x").shown();
        QVERIFY(action.isChecked() && isNear(s.editor.view().height(), 2.4));
        s.editor.restoreState(state);
        QVERIFY(!action.isChecked() && s.editor.view() == view && s.shown() == shown && s.states() == before);
    }

    void dragMovesEachCurveByTheSamePixels_data()
    {
        const Rows<bool> row;
        row("points", false);
        row("transform box", true);
    }
    void dragMovesEachCurveByTheSamePixels()
    {
        const auto [isBox] = Rows<bool>::present();
        ScaledScene s;
        const QPoint x = s.seen("a.x", 1), y = s.seen("a.y", 1), distance(0, 40);
        const AxisRange scale = s.canvas.canvas.findCurve("a.y")->scale();
        s.key(Qt::Key_A, ctrl);
        if (isBox)
            s.key(Qt::Key_T, ctrl);
        const QPoint start = isBox ? QPoint(x.x() + 40, s.canvas.height() / 2) : x;
        s.dragBy(start, distance);
        QVERIFY(s.canvas.canvas.findCurve("a.y")->scale() == scale); // frozen
        QVERIFY(std::abs(s.seen("a.x", 1).y() - x.y() - 40) <= 1 &&
                std::abs(s.seen("a.y", 1).y() - y.y() - 40) <= 1);
        QVERIFY(s.x[1]->pos < 1.0 && isNear(s.y[1]->pos, -2000.0 - 40.0 * 2400.0 / s.canvas.height(), 1e-6));
        s.mouse(QEvent::MouseButtonRelease, start + distance).shown();
        QVERIFY(s.canvas.canvas.findCurve("a.y")->scale() != scale &&
                isNear(s.share("a.y", 1), 11.0 / 12.0, 0.01));
        QVERIFY(s.showsWhatIsDrawnFromScratch() && s.entries() == 1);
        if (isBox)
            s.key(Qt::Key_Escape);
        s.key(Qt::Key_Up, alt); // as high at both
        const double moved = s.y[1]->pos;
        s.undo();
        QVERIFY(moved - s.y[1]->pos > 1.0);
    }

    void handsFindCurvesWhereTheyAreSeen()
    {
        ScaledScene s;
        const QPoint y = s.seen("a.y", 1);
        s.pressAt(y).mouse(QEvent::MouseMove, y + QPoint(0, -30));
        s.mouse(QEvent::MouseButtonRelease, y + QPoint(0, -30));
        QCOMPARE(s.current(), "a.y");
        QVERIFY(isNear(s.y[1]->pos, -2000.0 + 30.0 * 2400.0 / s.canvas.height(), 2400.0 / s.canvas.height()));
        s.key(Qt::Key_A, ctrl | shift);

        const QPoint middle = s.seen("a.y", 0) + QPoint(5, -15); // a band about the lowest points
        for (const QString current : {"a.y", "a.x"}) {
            s.turnTo(current);
            s.dragBy({middle.x(), s.canvas.height() - 2},
                     {s.canvas.width() - middle.x() - 2, 80 - s.canvas.height() / 3});
            s.mouse(QEvent::MouseButtonRelease, {s.canvas.width() - 2, s.canvas.height() * 2 / 3 + 80});
            QCOMPARE(s.editor.selectedPoints("a", "x"), std::vector<int>{2});
            QCOMPARE(s.editor.selectedPoints("a", "y"), std::vector<int>{1});
        }

        s.key(Qt::Key_A, shift);
        const PlaneMapping plane = s.canvas.canvas.findCurve("a.y")->mapping();
        const QPoint line(plane.pixelColumn(3.0), plane.pixelRow(s.y(3.0)));
        s.pressAt(line).mouse(QEvent::MouseButtonRelease, line);
        QCOMPARE(s.current(), "a.y");
        QVERIFY(isNear(s.canvas.pixelToValue(line.y()), s.y(3.0), 2400.0 / s.canvas.height()));
    }

    void pointsSnapToThoseThatAreSeenBesideThem()
    {
        ScaledScene s;
        s.canvas.canvas.hands().guide.isSnapping = true;
        s.canvas.canvas.hands().guide.snap.kinds = Snap::Points;
        const QPoint x = s.seen("a.x", 1), lowest = s.seen("a.y", 1);
        s.dragBy(x, {60, lowest.y() - 5 - x.y()});
        QVERIFY(isNear(s.x[1]->pos, -1.0, 1e-6)); // as high as the lowest of both
        s.y.setPos(s.y.modify(0), -700.0);
        s.mouse(QEvent::MouseButtonRelease, x + QPoint(60, lowest.y() - 5 - x.y())).undo().updateCurves();
        const QPoint first = s.seen("a.y", 0), again = s.seen("a.x", 1);
        s.dragBy(again, {60, first.y() + 5 - again.y()});
        QCOMPARE(s.canvas.canvas.hands().guide.hit().valueKinds, unsigned(Snap::Points));
        QCOMPARE(s.seen("a.x", 1).y(), s.seen("a.y", 0).y());
        s.mouse(QEvent::MouseButtonRelease, {}).hide("y").undo();
        s.dragBy(s.seen("a.x", 1), {60, first.y() + 5 - again.y()});
        QVERIFY(s.x[1]->time > 5.1 && s.canvas.canvas.hands().guide.hit().valueKinds == 0);
    }

    void curvesWithoutUsualValuesDoNoHarm_data()
    {
        const Curves row;
        row("one point", [](Scene& s) { s.x.assign(SplineState{}), s.x.addPoint(1.0, 3.0); });
        row("level", [](Scene& s) { s.x.setPos(s.x.modify(1), 0.0), s.x.setPos(s.x.modify(2), 0.0); });
        row("infinite", [](Scene& s) { s.x.setPos(s.x.modify(1), infinity); });
        row("no number", [](Scene& s) { s.x.setPos(s.x.modify(0), notANumber); });
        row("huge", [](Scene& s) { s.x.setPos(s.x.modify(0), -1e308), s.x.setPos(s.x.modify(1), 1e308); });
        row("formula", [](Scene& s) { s.enter("0/0"); });
        row("steep formula", [](Scene& s) { s.enter("1/(t-2)"); });
        row("no curve", [](Scene& s) { s.editor.cleanSelecteds(); });
    }
    void curvesWithoutUsualValuesDoNoHarm()
    {
        const auto [deed] = Curves::present();
        ScaledScene s;
        deed(s);
        s.updateCurves().shown();
        for (const QString current : {"a.y", "a.x"}) {
            s.turnTo(current).key(Qt::Key_Home).key(Qt::Key_F).key(Qt::Key_Plus);
            QVERIFY(s.canvas.mapping().canShow() && s.showsWhatIsDrawnFromScratch());
        }
        s.drag(1.0, 0.5, 4.0, 0.0).trigger("ownScaleAction");
        QVERIFY(s.canvas.mapping().canShow() && s.showsWhatIsDrawnFromScratch());
    }
};

QTEST_MAIN(tst_OwnScale)
#include "tst_OwnScale.moc"
