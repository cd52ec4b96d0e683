// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/ControlMenu.h>

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

struct Fixture
{
    Fixture()
    {
        for (const double time : {1.0, 2.0, 2.0, 3.0, 4.0})
            spline.addPoint(time, time * time);
    }
    QList<int> listedAfterToggling(const QList<int>& indices)
    {
        for (const int index : indices)
            control.toggleSelected(control.pointAt(index));
        QList<int> listed;
        for (const auto* point : control.selectionList())
            listed.append(spline.findIndex(point));
        return listed;
    }

    SplineBase spline;
    CanvasSpline picture{&spline};
    ControlSplineNode& control = picture.control;
    QSignalSpy changed{&control, &ControlSplineNode::pointsChanged};
};

} // namespace

class tst_ControlSplineNode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toggledPointsAreListedInTheOrderOfTime()
    {
        QCOMPARE(Fixture().listedAfterToggling({2, 2}), QList<int>{});
        QCOMPARE(Fixture().listedAfterToggling({4, 1}), (QList<int>{1, 4}));
        QCOMPARE(Fixture().listedAfterToggling({3, 2}), (QList<int>{3, 2}));
        QCOMPARE(Fixture().listedAfterToggling({0, 3, 2}), (QList<int>{0, 2, 3}));
    }

    void listedPointAloneIsSelectedButNotEdited()
    {
        Fixture f;
        f.listedAfterToggling({1, 4});
        QVERIFY(f.control.isOutsideSelection(3.0) && !f.control.isOutsideSelection(2.5));
        QCOMPARE(f.listedAfterToggling({1}), QList<int>{4});
        QVERIFY(f.control.isSelected(f.control.pointAt(4)) && f.control.selectedPoints()[4]);
        f.control.deleteSelectedNodes();
        QVERIFY(!f.control.hasSelection() && f.control.pointCount() == 6 && f.changed.isEmpty());
    }

    void draggedTangentsTakeTheSlopeOfTheMouse()
    {
        const double slope = 2.0 / (1.0 + std::sqrt(5.0) * 0.001);
        Fixture f;
        f.control.selectOnly(f.control.pointAt(0));
        const auto tangents = [&](double time, double value) {
            f.control.movePoint(time, value);
            return QPointF(f.control.getCurrent()->tanLeft, f.control.getCurrent()->tanRight);
        };
        f.control.setActiveBoth();
        QCOMPARE(tangents(0.0, 2.0), QPointF(1000.0, 1000.0));
        QCOMPARE(tangents(0.0, -2.0), QPointF(-1000.0, -1000.0));
        QCOMPARE(tangents(0.0, 0.0), QPointF(-1000.0, -1000.0));
        f.control.setActiveLeft();
        QCOMPARE(tangents(1e300, 2e300), QPointF(slope, -1000.0));
        f.control.setActiveRight();
        QCOMPARE(tangents(-1.0, 2.0), QPointF(slope, -slope));
    }

    void singlePointIsScaledAndPanned()
    {
        Fixture f;
        f.control.selectOnly(f.control.pointAt(1));
        const auto edited = [&](auto edit, double time, double value) {
            (f.control.*edit)(time, value);
            return QPointF(f.control.getCurrent()->time, f.control.getCurrent()->pos);
        };
        QCOMPARE(edited(&ControlSplineNode::scalePoint, 2.5, -3.0), QPointF(2.5, -3.0));
        QCOMPARE(edited(&ControlSplineNode::panPoint, -1.0, 0.5), QPointF(1.5, -2.5));
        f.control.selectionList() = {f.control.pointAt(0), f.control.pointAt(1)};
        QCOMPARE(edited(&ControlSplineNode::scalePoint, 2.0, 2.0), QPointF(1.5, -2.5));
        QCOMPARE(edited(&ControlSplineNode::panPoint, 2.0, 2.0), QPointF(1.5, -2.5));
    }

    void pointsThatBecomeBezierKeepTheCurve()
    {
        Fixture f, untouched;
        f.control.pointAt(0)->tanLeft = f.control.pointAt(5)->tanRight = 7.0;
        for (int index = 5; index >= 0; --index)
            f.control.selectionList().push_back(f.control.pointAt(index));
        f.control.setSelectedBezier();
        for (double time = 0.0; time < 4.0; time += 0.125)
            QVERIFY(std::abs(f.spline(time) - untouched.spline(time)) < 1e-9);
        QCOMPARE(f.control.pointAt(3)->type, int(SplineBase::Bezier));
        QVERIFY(f.control.pointAt(0)->tanLeft == 7.0 && f.control.pointAt(5)->tanRight == 7.0);
    }

    void menuChoiceReachesEverySelectionBeforeItIsReported()
    {
        Fixture shown, other, unselected;
        shown.listedAfterToggling({1, 4});
        other.listedAfterToggling({0});
        auto* menu = ControlSplineNode::menu();
        QList<int> countsWhenReported;
        connect(menu, &ControlMenu::nodeChanged, &shown.control,
                [&] { countsWhenReported << shown.control.pointCount() << other.control.pointCount(); });
        QTimer::singleShot(0, menu, [menu] {
            QVERIFY(menu->isVisible() && !menu->actions().at(5)->isEnabled());
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(6)).center());
        });
        shown.control.popupMenu(QPoint(50, 50));
        QCOMPARE(countsWhenReported, (QList<int>{4, 5}));
        QVERIFY(shown.changed.size() == 1 && other.changed.size() == 1 && unselected.changed.isEmpty());
    }
};

QTEST_MAIN(tst_ControlSplineNode)
#include "tst_ControlSplineNode.moc"
