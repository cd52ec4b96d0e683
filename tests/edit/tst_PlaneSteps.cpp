// SPDX-License-Identifier: MIT
#include <curveeditor/edit/DragGuide.h>
#include <curveeditor/edit/ViewStep.h>
#include <support/Test.h>

using namespace curveeditor;

namespace {

const PlaneMapping view(0.0, 10.0, -5.0, 5.0, 1000, 500);
const ViewStep::Limits limits{{-20.0, 20.0}, {-10.0, 10.0}};

QString text(const PlaneMapping& shown)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(shown.timeMin)
        .arg(shown.timeMax)
        .arg(shown.valueMin)
        .arg(shown.valueMax);
}

} // namespace

class tst_PlaneSteps : public QObject
{
    Q_OBJECT

    using Snaps = Rows<unsigned, Gesture::Place, Snap::Result>;

private Q_SLOTS:
    /// A pixel is 0.1 wide and 0.2 high, so that what attracts lies within 0.8 and 1.6.
    void placeSnapsToTheNearest_data()
    {
        const Snaps row;
        const unsigned all = Snap::Frames | Snap::GridLines | Snap::Points | Snap::TimeLine;
        row("nothing is on", 0u, {12.4, 9.9}, {{12.4, 9.9}, 0u, 0u});
        row("frame", Snap::Frames, {3.9, 3.1}, {{4.0, 3.1}, Snap::Frames, 0u});
        row("frame too far", Snap::Frames, {3.1, 3.1}, {{3.1, 3.1}, 0u, 0u});
        row("grid below and above", Snap::GridLines, {10.1, 19.5},
            {{10.0, 20.0}, Snap::GridLines, Snap::GridLines});
        row("value alone", Snap::GridLines, {15.0, 11.2}, {{15.0, 10.0}, 0u, Snap::GridLines});
        row("points", Snap::Points, {5.4, 7.2}, {{5.5, 7.0}, Snap::Points, Snap::Points});
        row("moving point", Snap::Points, {30.1, 31.9}, {{30.1, 31.9}, 0u, 0u});
        row("its twin", Snap::Points, {60.1, 31.9}, {{60.0, 31.9}, Snap::Points, 0u});
        row("time line", Snap::TimeLine, {12.6, 12.6}, {{12.5, 12.6}, Snap::TimeLine, 0u});
        row("nearest is the last", all, {12.4, 12.0}, {{12.5, 12.0}, Snap::TimeLine, 0u});
        row("nearest is the first", all, {12.2, 12.0}, {{12.0, 12.0}, Snap::Frames, 0u});
        row("equally near", all, {12.25, 12.0}, {{12.0, 12.0}, Snap::Frames, 0u});
        row("several at one place", all, {10.1, 10.0},
            {{10.0, 10.0}, Snap::Frames | Snap::GridLines, Snap::GridLines});
        row("last", all, {105.0, 105.0}, {{105.0, 105.0}, 0u, 0u});
        row("not finite", all, {qQNaN(), infinity}, {{qQNaN(), infinity}, 0u, 0u});
    }
    void placeSnapsToTheNearest()
    {
        SplineBase spline;
        spline.addPoint(5.5, 7.0);
        spline.addPoint(30.0, 30.0);
        Snap snap;
        snap.fps = 0.5;
        snap.timeLine = 12.5;
        snap.setGridLines({20.0, 0.0, infinity, 10.0}, {10.0, qQNaN(), qQNaN(), 20.0});
        SplineBase twin; // its point is another one, though of the same serial
        QVERIFY(twin.assign({{*spline.getLast()}}));
        twin.setTime(twin.modify(0), 60.0);
        snap.setPoints({{&spline, {spline.getLast()->serial}}, {nullptr}, {&twin}});
        const auto [kinds, place, expected] = Snaps::present();
        snap.kinds = kinds;
        const Snap::Result result = snap.snapped(place, {0.0, 100.0, 0.0, 50.0, 1000, 250});
        QCOMPARE(result.place.time, expected.place.time);
        QCOMPARE(result.place.value, expected.place.value);
        QCOMPARE(result.timeKinds, expected.timeKinds);
        QCOMPARE(result.valueKinds, expected.valueKinds);
    }

    void whatIsHeldStillSnapsToNothing()
    {
        DragGuide guide;
        guide.isSnapping = true;
        guide.snap.setGridLines({10.0}, {10.0});
        guide.begin({5.0, 5.0}, {5.0, 5.0}, false, false);
        for (const auto axis : {Gesture::Axis::Both, Gesture::Axis::Time, Gesture::Axis::Value}) {
            const Gesture::Place led =
                guide.guided({10.1, 10.1}, {0.0, 100.0, 0.0, 50.0, 1000, 500}, axis, false);
            QCOMPARE(led.time == 10.0, axis != Gesture::Axis::Value);
            QCOMPARE(led.value == 10.0, axis != Gesture::Axis::Time);
            QCOMPARE(guide.hit().timeKinds != Snap::Nothing, led.time == 10.0);
            QCOMPARE(guide.hit().valueKinds != Snap::Nothing, led.value == 10.0);
        }
    }

    void withoutFramesOrCanvasNothingMoves()
    {
        Snap snap;
        snap.kinds = Snap::Frames;
        const PlaneMapping mapping(0.0, 100.0, 0.0, 50.0, 1000, 500);
        for (const double fps : {0.0, -1.0, infinity, qQNaN(), 1e308}) {
            snap.fps = fps;
            QCOMPARE(snap.snapped({2.1, 3.1}, mapping).timeKinds, 0u);
        }
        snap.fps = 1.0;
        QCOMPARE(snap.snapped({2.1, 3.1}, mapping).place.time, 2.0);
        for (const PlaneMapping& empty : {PlaneMapping(), PlaneMapping(-1e308, 1e308, 0.0, 50.0, 1000, 500)})
            QCOMPARE(snap.snapped({2.1, 3.1}, empty).place.time, 2.1);
    }

    void stepsGoAsFarAsTheLimitsLet()
    {
        using namespace ViewStep;
        const PlaneMapping outside(15.0, 35.0, -5.0, 5.0, 1000, 500);
        const AxisRange point{3.0, 3.0};
        const QPointF corner(1000.0, 500.0);
        const std::pair<PlaneMapping, const char*> steps[] = {
            {zoomed(view, limits, {200.0, 0.0}, 0.5, 0.5), "1 6 0 5"},
            {zoomed(view, limits, {500.0, 250.0}, 2.0, 1.0), "-5 15 -5 5"},
            {zoomed(view, limits, {0.0, 500.0}, 3.0, 1.5), "-10 20 -5 10"},
            {zoomed(view, limits, corner, 1e300, 1e300), "-20 20 -10 10"},
            {zoomed(view, limits, {0.0, 250.0}, 1e-300, 1.0), "0 1e-09 -5 5"},
            {zoomed(view, limits, corner, 1e-300, 1e-300), "9.998 10 -5 -4.999"},
            {zoomed(outside, limits, corner, 10.0, 1.0), "-20 35 -5 5"},
            {zoomed(view, limits, corner, std::nan(""), 1.0), "0 10 -5 5"},
            {zoomed(view, limits, corner, 0.0, -1.0), "0 10 -5 5"},
            {panned(view, limits, {100.0, 50.0}), "-1 9 -4 6"},
            {panned(view, limits, {-1e300, 1e300}), "10 20 0 10"},
            {panned(outside, limits, {-100.0, 0.0}), "15 35 -5 5"},
            {panned(outside, limits, {100.0, 0.0}), "13 33 -5 5"},
            {panned(view, limits, {std::nan(""), 0.0}), "0 10 -5 5"},
            {showing(view, limits, {1.0, 3.0}, {0.0, 2.0}), "0.9 3.1 -0.2 2.2"},
            {showing(view, limits, {1.0, 30.0}, {-99.0, 99.0}), "-11.9 20 -10 10"},
            {showing(view, limits, point, point), "-2 8 -2 8"},
            {showing(view, limits, {-HUGE_VAL, HUGE_VAL}, point), "0 10 -5 5"},
        };
        for (const auto& [result, expected] : steps)
            QCOMPARE(text(result), QLatin1String(expected));
        QVERIFY(!zoomed(PlaneMapping(), limits, corner, 2.0, 2.0).canShow());
    }
};

QTEST_APPLESS_MAIN(tst_PlaneSteps)
#include "tst_PlaneSteps.moc"
