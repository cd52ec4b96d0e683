// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveDiff.h>
#include <support/Test.h>

#include <set>

using PointInfo = SplineBase::PointInfo;

struct Curve
{
    SplineBase spline;
    CurveKind kind = CurveKind::Spline;
    std::string formula;

    CurveState state() const { return {spline.state(), kind, formula}; }
};

/// Whether both give the same bits at all times that `touched` does not cover.
bool isSameOutside(const TimeInterval& touched, const SplineBase& left, const SplineBase& right)
{
    for (double time = -4.0; time < 14.0; time += 1.0 / 32) {
        const bool isCovered = touched.first <= time && time <= touched.last;
        if (!isCovered && std::bit_cast<quint64>(left(time)) != std::bit_cast<quint64>(right(time)))
            return false;
    }
    return true;
}

class tst_CurveDiff : public QObject
{
    Q_OBJECT

private:
    /// Applies and reverts what `edit` does to `curve`, to states and to the spline itself.
    static CurveDiff verified(Curve& curve, const std::function<void()>& edit)
    {
        const CurveState before = curve.state();
        edit();
        const CurveState after = curve.state();
        const CurveDiff diff = CurveDiff::between(before, curve.spline, curve.kind, curve.formula);
        CurveState state = before;
        [&] {
            QVERIFY(diff.apply(state) && state == after);
            QVERIFY(diff.revert(state) && state == before);
            QCOMPARE(diff.isEmpty(), before == after);
            QCOMPARE(diff.toString().empty(), before == after);
            QCOMPARE(diff.toString(), CurveDiff::between(before, after).toString());
            SplineBase old;
            QVERIFY(old.assign(before.spline) && old.state() == before.spline);
            QVERIFY2(isSameOutside(diff.touched(), old, curve.spline), diff.toString().c_str());
            const auto living = curve.spline.getControlPoints();
            QVERIFY(diff.revert(curve.spline) && curve.spline.state() == before.spline);
            QVERIFY(diff.pointsBefore().empty() ||
                    (!diff.revert(curve.spline) && curve.spline.state() == before.spline));
            QVERIFY(diff.apply(curve.spline) && curve.spline.state() == after.spline);
            QCOMPARE(fingerprintOf(curve.spline), after.spline.fingerprint());
            QVERIFY(curve.spline.assign(before.spline) && curve.spline.state() == before.spline);
            const auto afterwards = curve.spline.getControlPoints();
            for (std::size_t i = 0; i < living.size(); ++i) {
                const PointInfo& was = after.spline.points[i];
                const std::int32_t index = curve.spline.findIndex(was.serial, was.time);
                QVERIFY(index < 0 || afterwards[std::size_t(index)] == living[i]);
            }
            QVERIFY(curve.spline.assign(after.spline) && curve.spline.state() == after.spline);
        }();
        return diff;
    }

private Q_SLOTS:
    void everyEditGoesForthAndBack()
    {
        Curve curve;
        SplineBase& spline = curve.spline;
        for (int i = 1; i < 6; ++i)
            spline.addPoint(2.0 * i, i % 3);
        const std::vector<std::tuple<std::function<void()>, const char*, double, double>> rows = {
            {[] {}, "", INFINITY, -INFINITY},
            {[&] { spline.addPoint(5.0, 7.0); }, "+ 3: 5 7 Tcb\n", 2.0, 8.0},
            {[&] { spline.setTime(spline.modify(3), 9.0); }, "- 3: 5 7 Tcb\n+ 5: 9 7 Tcb\n", 2.0, 10.0},
            {[&] { spline.remove(spline[5]); }, "- 5: 9 7 Tcb\n", 6.0, 10.0},
            {[&] { spline.modify(2)->type = SplineBase::Bezier; }, "- 2: 4 2 Tcb\n+ 2: 4 2 Bezier\n", 0.0,
             8.0},
            {[&] { spline.addPoint(4.0, 3.0); }, "+ 3: 4 3 Tcb\n", 4.0, 8.0},
            {[&] { spline.firstType = SplineBase::Zero; }, "first 1 -> 0\n", -INFINITY, 0.0},
            {[&] { spline.lastType = SplineBase::Loop; }, "last 1 -> 2\n", 10.0, INFINITY},
            {[&] { spline.setDefaultValue(-0.0); }, "default 0 -> -0\n", INFINITY, -INFINITY},
            {[&] { spline.setDefaultValue(NAN); }, "default -0 -> nan\n", INFINITY, -INFINITY},
            {[&] { spline.setDefaultValue(2.5); }, "default nan -> 2.5\n", INFINITY, -INFINITY},
            {[&] { curve.formula = std::string("t"); }, "formula \"\" -> \"t\"\n", -INFINITY, INFINITY},
            {[&] { curve.kind = CurveKind::Expression; }, "kind 0 -> 1\n", -INFINITY, INFINITY}};
        for (const auto& [edit, text, first, last] : rows) {
            const CurveDiff diff = verified(curve, edit);
            QCOMPARE(diff.toString(), std::string(text));
            QVERIFY2(diff.touched().first == first && diff.touched().last == last, text);
        }
    }

    void aFirstSpanMakesTheCurveFollowItsTangent()
    {
        Curve curve;
        curve.spline.addPoint(0.0, 1.0);
        curve.spline.addPoint(0.0, 2.0);
        *curve.spline.modify(2) = {0.0, 2.0, 1.0, 0, 0, 0, 0, 0, 0, SplineBase::Bezier};
        curve.spline.mend();
        curve.spline.lastType = SplineBase::FollowTangent;
        verified(curve, [&] { curve.spline.setTime(curve.spline.modify(0), -1.0); });
    }

    void randomEditsGoForthAndBack()
    {
        std::mt19937 random(1);
        const auto below = [&random](std::size_t count) {
            return int(random() % count);
        };
        for (int round = 0; round < 2000 && !QTest::currentTestFailed(); ++round) {
            Curve curve;
            SplineBase& spline = curve.spline;
            PointInfo* point = nullptr;
            double number = 0.0;
            const std::function<void()> edits[] = {
                [&] { spline.addPoint(number, below(5)); },
                [&] { spline.remove(point); },
                [&] { spline.setTime(point, number); },
                [&] { spline.setPos(point, number); },
                [&] { point->type = below(3); },
                [&] { point->tanLeft = point->tension = point->easeTo = number / 10.0; },
                [&] { spline.lastType = below(5); },
                [&] { spline.firstType = below(2); },
                [&] {
                    point->time = number;
                    spline.mend();
                },
            };
            const auto edit = [&] {
                point = spline.modify(below(spline.getControlPointsNumber()));
                number = below(11);
                edits[below(std::size(edits))]();
            };
            for (int i = below(30); i > 0; --i)
                edit();
            verified(curve, [&] {
                for (int i = below(4); i >= 0; --i)
                    edit();
            });
        }
    }

    void badStatesAndStrangersChangeNothing()
    {
        SplineBase spline;
        spline.addPoint(1.0, 2.0);
        const SplineState good = spline.state();
        std::vector<SplineState> bad(4, good);
        bad[0].points.clear();
        bad[1].points[1].time = -1.0;
        bad[2].points[0].time = NAN;
        bad[3].points[1].pos = INFINITY;
        for (const SplineState& state : bad)
            QVERIFY(!spline.assign(state) && spline.state() == good);
        spline.setPos(spline.modify(1), 3.0);
        const CurveDiff diff = CurveDiff::between({good, {}, {}}, spline, {}, {});
        CurveState stranger{bad[0], {}, {}};
        QVERIFY(!diff.apply(stranger) && !diff.revert(stranger) && stranger.spline == bad[0]);
    }

    void directWritesAreMendedOrEditedOver()
    {
        SplineBase spline;
        for (int i = 1; i < 4; ++i)
            spline.addPoint(i, i);
        PointInfo* const point = spline.modify(1);
        point->time = 2.5;
        spline.setTime(point, 2.5);
        QVERIFY(spline[2] == point && spline.getNext(2.0) == point && spline(2.5) == 1.0);
        point->time = NAN;
        spline.setTime(point, 2.5);
        QCOMPARE(point->time, 2.5);
        *point = {0.5, 9.0};
        spline.modify(3)->pos = NAN;
        spline.mend();
        QVERIFY(spline[1] == point && point->serial != 0 && spline(0.5) == 9.0 && spline[3]->pos == 0.0);
        *point = *spline[2];
        *spline.modify(3) = *spline[2];
        const SplineState copies = spline.state();
        const SplineState state = SplineBase().state();
        QVERIFY(spline.assign(state) && spline.state() == state);
        QVERIFY(spline.assign(copies) && spline[1]->serial != spline[2]->serial);
        QVERIFY(spline[2]->serial != spline[3]->serial && spline[3]->serial != spline[1]->serial);
    }

    void pointsWithoutASerialAreThoseThatEqualThem()
    {
        SplineBase spline;
        for (int i = 1; i < 4; ++i)
            spline.addPoint(i, i);
        const SplineState before = spline.state();
        SplineState stored = before;
        for (PointInfo& point : stored.points)
            point.serial = 0;
        QVERIFY(spline.assign(stored) && spline.state() == before);
        stored.points[1].pos = 9.0;
        stored.points[3].serial = before.points[2].serial;
        QVERIFY(spline.assign(stored));
        QCOMPARE(spline[0]->serial, before.points[0].serial);
        QCOMPARE(spline[2]->serial, before.points[2].serial);
        for (const unsigned changed : {1u, 3u})
            QVERIFY(spline[changed]->serial > before.points[3].serial);
    }

    void aPointThatIsCopiedOverItsNeighboursMakesNewOnes()
    {
        SplineBase spline;
        spline.addPoint(1.0, 1.0);
        spline.addPoint(2.0, 2.0);
        const auto original = spline[1]->serial;
        *spline.modify(0) = *spline.modify(2) = *spline[1]; // the sum of the serials stays
        spline.mend();
        QVERIFY(spline[0]->serial == original && spline[1]->serial != original);
        QVERIFY(spline[2]->serial != original && spline[2]->serial != spline[1]->serial);
    }

    /// Comes last, as the process has no new serials afterwards.
    void serialsOfAStoredStateAreNotGivenAgain()
    {
        SplineBase spline, other;
        SplineState stored;
        for (const std::uint32_t ahead : {2u, 3u})
            stored.points.push_back({.time = double(ahead), .serial = spline[0]->serial + ahead});
        QVERIFY(spline.assign(stored) && spline.state() == stored);
        const auto areDistinct = [](const SplineBase& curve) {
            std::set<std::uint32_t> serials = {0};
            for (const PointInfo* const point : curve.getControlPoints())
                serials.insert(point->serial);
            return serials.size() == curve.getControlPointsNumber() + 1;
        };
        for (int i = 0; i < 5; ++i)
            spline.addPoint(i, i);
        QVERIFY(areDistinct(spline));
        const std::uint32_t last = std::numeric_limits<std::uint32_t>::max();
        *other.modify(0) = {.serial = last - 3};
        other.mend();
        for (int i = 0; i < 10'000; ++i)
            other.addPoint(i, i);
        QVERIFY(areDistinct(other));
        stored.points = {
            {.serial = last}, {.time = 1.0, .serial = 5}, {.time = 2.0, .serial = 5}, {.time = 3.0}};
        for (SplineBase* const curve : {&spline, &other}) {
            QVERIFY(curve->assign(stored));
            for (int i = 0; i < 100; ++i)
                curve->addPoint(i, i);
            QVERIFY(areDistinct(*curve));
        }
    }
};

QTEST_APPLESS_MAIN(tst_CurveDiff)
#include "tst_CurveDiff.moc"
