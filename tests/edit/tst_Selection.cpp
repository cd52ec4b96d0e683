// SPDX-License-Identifier: MIT
#include <curveeditor/edit/Selection.h>
#include <curveeditor/edit/SplineEdits.h>

#include <QTest>

#include <cmath>

using SplineEdits::Part;

namespace {

struct Fixture
{
    Fixture()
    {
        for (const double time : {1.0, 2.0, 2.0, 3.0, 4.0})
            spline.addPoint(time, time * time);
    }
    PointSerial serial(unsigned index) const { return spline[index]->serial; }
    QList<int> listedAfterToggling(const QList<unsigned>& indices)
    {
        for (const unsigned index : indices)
            selection.toggle(serial(index), spline);
        const std::vector<std::int32_t> listed = indicesOf(selection.listed(), spline);
        return {listed.begin(), listed.end()};
    }

    SplineBase spline;
    Selection selection;
};

} // namespace

class tst_Selection : public QObject
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
        QCOMPARE(f.listedAfterToggling({1}), QList<int>{4});
        QVERIFY(f.selection.contains(f.serial(4)) && f.selection.marks(f.spline)[4]);
        QVERIFY(!f.selection.isEmpty() && f.selection.edited().empty());
    }

    void newPointAtAnOldAddressIsAnotherOne()
    {
        for (const unsigned count : {1u, 2u, 5u}) {
            Fixture f;
            for (unsigned index = 1; index <= count; ++index)
                f.listedAfterToggling({index});
            f.spline.remove(f.spline[1]);
            f.spline.addPoint(1.0, 1.0); // mostly where the other was in memory
            QVERIFY(!f.selection.marks(f.spline)[1]);
            f.selection.dropLost(f.spline);
            QCOMPARE(f.selection.isEmpty(), count == 1);
            QCOMPARE(f.selection.listedTimes(f.spline).size(), count == 1 ? 0u : count - 1);
        }
    }

    void copiedPointBecomesAPointOfItsOwn()
    {
        Fixture f;
        const PointSerial original = f.serial(1);
        *f.spline.modify(4) = *f.spline[1];
        f.spline.modify(4)->time = 8.0;
        f.spline.mend();
        QCOMPARE(f.spline.getLast()->time, 8.0);
        QVERIFY(f.serial(1) == original && f.spline.getLast()->serial != original);
        SplineEdits::removePoints(f.spline, {original});
        QCOMPARE(f.spline.getControlPointsNumber(), 5u);
    }

    void aimedTangentsTakeTheSlopeOfTheMouse()
    {
        const double slope = 2.0 / (1.0 + std::sqrt(5.0) * 0.001);
        Fixture f;
        const auto tangents = [&](Part part, double time, double value) {
            SplineEdits::aimTangent(f.spline, f.serial(0), part, time, value);
            return QPointF(f.spline[0]->tanLeft, f.spline[0]->tanRight);
        };
        QCOMPARE(tangents(Part::BothTangents, 0.0, 2.0), QPointF(1000.0, 1000.0));
        QCOMPARE(tangents(Part::BothTangents, 0.0, -2.0), QPointF(-1000.0, -1000.0));
        QCOMPARE(tangents(Part::BothTangents, 0.0, 0.0), QPointF(-1000.0, -1000.0));
        QCOMPARE(tangents(Part::LeftTangent, 1e300, 2e300), QPointF(slope, -1000.0));
        QCOMPARE(tangents(Part::RightTangent, -1.0, 2.0), QPointF(slope, -slope));
    }

    void pointsAreScaledAndPanned()
    {
        Fixture f;
        const PointSerial point = f.serial(1);
        const auto place = [&] {
            return QPointF(f.spline[1]->time, f.spline[1]->pos);
        };
        SplineEdits::scalePoints(f.spline, {point, 0}, 1.5, -3.0);
        QCOMPARE(place(), QPointF(1.5, -3.0));
        SplineEdits::panPoints(f.spline, {point}, -1.0, 0.5);
        QCOMPARE(place(), QPointF(0.5, -2.5));
        SplineEdits::panPoints(f.spline, {point}, HUGE_VAL, std::nan(""));
        QCOMPARE(place(), QPointF(0.5, -2.5));
    }

    void pointsThatBecomeBezierKeepTheCurve()
    {
        Fixture f, untouched;
        f.spline.modify(0u)->tanLeft = f.spline.modify(5u)->tanRight = 7.0;
        std::vector<PointSerial> all;
        for (const auto* point : f.spline.getControlPoints())
            all.insert(all.begin(), point->serial);
        SplineEdits::setType(f.spline, all, SplineBase::Bezier);
        for (double time = 0.0; time < 4.0; time += 0.125)
            QVERIFY(std::abs(f.spline(time) - untouched.spline(time)) < 1e-9);
        QCOMPARE(f.spline[3]->type, int(SplineBase::Bezier));
        QVERIFY(f.spline[0]->tanLeft == 7.0 && f.spline[5]->tanRight == 7.0);
    }
};

QTEST_MAIN(tst_Selection)
#include "tst_Selection.moc"
