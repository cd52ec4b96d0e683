// SPDX-License-Identifier: MIT
#include <curveeditor/edit/DragGuide.h>
#include <curveeditor/edit/PointText.h>
#include <support/Test.h>

using SplineEdits::Part;

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

const PlaneMapping view(0.0, 10.0, -5.0, 5.0, 1000, 500);
const ViewStep::Limits limits{{-20.0, 20.0}, {-10.0, 10.0}};

QString text(const PlaneMapping& shown)
{
    return QString::asprintf("%g %g %g %g", shown.timeMin, shown.timeMax, shown.valueMin, shown.valueMax);
}

using Points = std::vector<SplineBase::PointInfo>;

class tst_Selection : public QObject
{
    Q_OBJECT

    /// Type of the points, type behind the last, time, and whether the whole curve keeps its shape.
    using Insertions = Rows<int, int, double, bool>;
    using Snaps = Rows<unsigned, Gesture::Place, Snap::Result>;

private Q_SLOTS:
    void toggledPointsAreListedInTheOrderOfTimeAndOneAloneIsNotEdited()
    {
        Fixture f;
        QVERIFY(f.listedAfterToggling({2, 2}).isEmpty() && f.selection.isEmpty());
        QCOMPARE(Fixture().listedAfterToggling({3, 2}), (QList<int>{3, 2}));
        QCOMPARE(Fixture().listedAfterToggling({0, 3, 2}), (QList<int>{0, 2, 3}));
        QCOMPARE(f.listedAfterToggling({4, 1}), (QList<int>{1, 4}));
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

    void tangentsOfBezierPointsAreShaped()
    {
        using Shape = std::function<void(SplineBase&, const std::vector<PointSerial>&)>;
        using Slopes = std::vector<QPointF>;
        const auto shaped = [](const Shape& shape) {
            SplineBase spline; // the last segment but one and the one before it are Bezier
            SplineState state;
            for (const auto& [time, value] :
                 {std::pair(0.0, 0.0), {1.0, 1.0}, {3.0, 5.0}, {5.0, 33.0}, {6.0, 8.0}})
                state.points.push_back({.time = time, .pos = value, .tanLeft = 6.0, .tanRight = 2.0});
            state.points[0].type = state.points[2].type = state.points[3].type = SplineBase::Bezier;
            spline.assign(state);
            std::vector<PointSerial> all = SplineEdits::pointsWithin(spline, 0.0, 6.0);
            all.push_back(0);
            shape(spline, all);
            Slopes slopes;
            for (const auto* point : spline.getControlPoints())
                slopes.emplace_back(point->tanLeft, point->tanRight);
            return slopes;
        };
        const QPointF old(6.0, 2.0);
        const auto both = [](double slope) {
            return QPointF(slope, slope);
        };
        QCOMPARE(shaped(SplineEdits::flattenTangents), Slopes({old, both(0.0), both(0.0), both(0.0), old}));
        QCOMPARE(shaped(SplineEdits::alignTangents), Slopes({old, both(2.0), both(4.0), both(6.0), old}));
        QCOMPARE(shaped(SplineEdits::smoothTangents),
                 Slopes({old, both(4.0 / 3.0), both(6.0), both(0.0), old}));
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
        SplineState state;
        for (int i = 0; i < 100'000; ++i)
            state.points.push_back({.time = double(i / 2), .pos = double(i)});
        f.spline.assign(state);
        SplineEdits::panPoints(f.spline, SplineEdits::pointsWithin(f.spline, 0.0, 1e6), 1e6, 0.0);
        for (int i = 0; i < 100'000; i += 33'333)
            QCOMPARE(QPointF(f.spline[unsigned(i)]->time, f.spline[unsigned(i)]->pos),
                     QPointF(1e6 + i / 2, i));
    }

    void pointInsertedOnTheCurveKeepsItsShape_data()
    {
        const Insertions row;
        row("Bezier", SplineBase::Bezier, SplineBase::Loop, 1.75, true);
        row("Linear", SplineBase::Linear, SplineBase::Loop, 1.75, true);
        row("Tcb", SplineBase::Tcb, SplineBase::Loop, 1.75, false);
        row("before", SplineBase::Bezier, SplineBase::Zero, -1.0, true);
        row("behind", SplineBase::Bezier, SplineBase::FollowTangent, 9.0, true);
        row("next round", SplineBase::Linear, SplineBase::LoopOffset, 9.0, false);
    }
    void pointInsertedOnTheCurveKeepsItsShape()
    {
        const auto [type, lastType, time, keepsAll] = Insertions::present();
        Fixture f;
        for (auto* const point : f.spline.getControlPoints()) {
            point->type = type;
            point->tanLeft = 0.5 - point->pos;
            point->tanRight = point->time;
        }
        f.spline.lastType = lastType;
        SplineBase before;
        before.assign(f.spline.state());
        const PointSerial point = SplineEdits::insertOnCurve(f.spline, time);
        QCOMPARE(f.spline.getControlPointsNumber(), before.getControlPointsNumber() + 1);
        QCOMPARE(f.spline[unsigned(f.spline.findIndex(point, time))]->time, time);
        QCOMPARE(f.spline(time), before(time));
        for (double other = -2.0; keepsAll && other < 12.0; other += 0.125)
            QVERIFY(std::abs(f.spline(other) - before(other)) < 1e-12);
        QCOMPARE(SplineEdits::insertOnCurve(f.spline, time), point);
        QCOMPARE(SplineEdits::insertOnCurve(f.spline, HUGE_VAL), 0u);
        QCOMPARE(f.spline.getControlPointsNumber(), before.getControlPointsNumber() + 1);
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

    /// A pixel is 0.1 wide and 0.2 high, so that what attracts lies within 0.8 and 1.6.
    void placeSnapsToTheNearest_data()
    {
        const Snaps row;
        const unsigned all = Snap::Frames | Snap::GridLines | Snap::Points | Snap::TimeLine;
        row("nothing is on", 0u, {12.4, 9.9}, {{12.4, 9.9}, 0u, 0u});
        row("frame", Snap::Frames, {3.9, 3.1}, {{4.0, 3.1}, Snap::Frames, 0u});
        row("frame too far", Snap::Frames, {3.1, 3.1}, {{3.1, 3.1}, 0u, 0u});
        row("grid lines", Snap::GridLines, {10.1, 19.5}, {{10.0, 20.0}, Snap::GridLines, Snap::GridLines});
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
            const auto led = guide.guided({10.1, 10.1}, {0.0, 100.0, 0.0, 50.0, 1000, 500}, axis, false);
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

    void tableReadsBackToTheSameBits()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        Points points;
        for (int index = 0; index < 10'000; ++index) {
            const double number = (index + 1) / 3.0;
            points.push_back({number, -0.0, 1e300, -number, 0.1, number * 1e-300, 3, -1, 1, index % 3});
        }
        const QString text = PointText::write(points);
        QVERIFY(std::ranges::equal(PointText::read(text).points, points, isSamePoint));
        const QString head =
            "time\tvalue\ttype\tincoming\toutgoing\ttension\tcontinuity\tbias\teaseTo\teaseFrom\n";
        QVERIFY(text.startsWith(head + "0.3333333333333333\t-0\tLinear\t1e+300\t"));
        QVERIFY(PointText::write({{.type = 7}}).contains("\tLinear\t"));
    }

    void signOfDecimalsIsAskedForWhereItCannotBeTold()
    {
        for (const char* const text : {"1,234\t5", "1,5\n2,5"}) {
            const PointText::Result result = PointText::read(text);
            QVERIFY(result.isAmbiguous && result.points.empty() && result.message.endsWith(" in two ways."));
        }
        QCOMPARE(PointText::read("1,234\t5", TableReader::Decimal::Comma).points.at(0).time, 1.234);
        QCOMPARE(PointText::read("1,5\n2,5", TableReader::Decimal::Point).points.at(1).pos, 5.0);
        const PointText::Result column = PointText::read("1,5\n2,5", TableReader::Decimal::Comma);
        QCOMPARE(column.message, "Line 1: Numbers expected: 2, found: 1.");
        QCOMPARE(PointText::read("0, 1\n0.5, 2").points.size(), std::size_t(2)); // behind a whole number
    }

    /// In each of the texts the points are (0.5, -2) and (1.5, 3000), if not said otherwise.
    void tablesOfOthersAreRead()
    {
        for (const QString text :
             {"0,5\t-2\r\n1,5\t3e3\r\n", "Seconds (s);Height\n0,5 ; -2\n\n1,5;+3000\n",
              "time,value\r0.5,-2\r1.5,3000", "0.5, -2\n1.5, 3000", "  0,5   -2,0\n1,5 3000",
              "\uFEFF1.5 3000\n0.5 -2", "Type;VALUE;Time\nbezier;-2;0.5\nTcb;3000;1.5"}) {
            const PointText::Result result = PointText::read(text);
            QCOMPARE(result.message, QString());
            const int type = text.contains("bezier") ? SplineBase::Bezier : SplineBase::Tcb;
            const Points expected = {{.time = 0.5, .pos = -2.0, .type = type}, {.time = 1.5, .pos = 3000.0}};
            QVERIFY2(std::ranges::equal(result.points, expected, isSamePoint), qPrintable(text));
        }
    }

    void faultIsToldWithItsLine_data()
    {
        const Rows<QString, QString> row;
        row("NUL", QString::fromLatin1("\0\1 7\n", 5), "Line 1: \"??\" is no number that a point can have.");
        row("endless line", "1 2\n" + QString(20 << 20, '7'), "Line 2: The line is too long.");
        row("too many", QStringLiteral("1 2\n").repeated(PointText::maximumRows + 1),
            "Line 1000001: More than 1000000 points.");
    }
    void faultIsToldWithItsLine()
    {
        const auto [text, message] = Rows<QString, QString>::present();
        const PointText::Result result = PointText::read(text);
        QVERIFY(result.message == message && result.points.empty());
    }
};

QTEST_MAIN(tst_Selection)
#include "tst_Selection.moc"
