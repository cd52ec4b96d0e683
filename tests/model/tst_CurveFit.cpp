// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveFit.h>
#include <support/Test.h>

#include <future>

using CurveFit::Options;
using CurveFit::Result;
using CurveFit::Status;
using Numbers = std::vector<double>;

constexpr double huge = std::numeric_limits<double>::max();

Numbers wholeTimes(std::size_t count)
{
    Numbers times(count);
    std::iota(times.begin(), times.end(), 0.0);
    return times;
}

Numbers sampled(const std::function<double(double)>& function, std::size_t count)
{
    Numbers values = wholeTimes(count);
    std::transform(values.begin(), values.end(), values.begin(), function);
    return values;
}

double bell(double x, double middle, double left, double right)
{
    return std::exp(-0.5 * std::pow((x - middle) / (x < middle ? left : right), 2.0));
}

Numbers noise(std::size_t count)
{
    std::mt19937 random(1);
    return sampled([&](double) { return double(random() % 1000); }, count);
}

class tst_CurveFit : public QObject
{
    Q_OBJECT

    using Fits =
        Rows<Numbers, Numbers, double, int, int>; // times, values, tolerance, the most points of either type

private Q_SLOTS:
    void isNearAllSamplesWithFewPoints_data()
    {
        const Numbers wave = sampled([](double t) { return std::sin(t / 50.0); }, 1000);
        const Numbers bells = sampled(
            [](double t) { return 1.217 * bell(t, 77.0, 11.8, 36.0) + 0.681 * bell(t, 99.0, 26.0, 13.8); },
            471);
        const Numbers triangle = sampled([](double t) { return std::abs(std::remainder(t, 200.0)); }, 1001);
        const Numbers square = sampled([](double t) { return double(std::fmod(t, 200.0) < 100.0); }, 1000);
        const Fits row;
        row("one sample", {4.0}, {5.0}, 0.0, 1, 1);
        row("two samples", {4.0, 6.0}, {5.0, -5.0}, 0.0, 2, 2);
        row("line", wholeTimes(500), sampled([](double t) { return 3.0 - 0.1 * t; }, 500), 1e-12, 2, 2);
        row("standing still", wholeTimes(500), Numbers(500, 0.1), 0.0, 2, 2);
        row("wave", wholeTimes(1000), wave, 0.001, 23, 185);
        row("short times", sampled([](double t) { return 1e-200 * t; }, 1000), wave, 0.001, 23, 185);
        row("huge values", wholeTimes(1000),
            sampled([](double t) { return huge * std::sin(t / 50.0); }, 1000), 1.0, 1000, 1000);
        row("bells", wholeTimes(471), bells, 0.00178, 14, 63);
        row("any distance", wholeTimes(1000), wave, infinity, 2, 2);
        row("each value", wholeTimes(1000), wave, 0.0, 1000, 1000);
        row("corners", wholeTimes(1001), triangle, 0.1, 11, 11);
        row("steps", wholeTimes(1000), square, 0.001, 20, 20);
        row("noise", wholeTimes(2000), noise(2000), 1.0, 2000, 2000);
        row("within the noise", wholeTimes(2000), noise(2000), 600.0, 40, 40);
        row("time step", {0.0, 1.0, 2.0, 2.0, 2.0, 3.0, 4.0}, {0.0, 1.0, 2.0, 9.0, 5.0, 4.0, 3.0}, 1e-9, 4,
            4);
        row("steps at both ends", {1.0, 1.0, 2.0, 2.0}, {0.0, 1.0, 1.0, 3.0}, 0.0, 4, 4);
        row("gaps", {0.0, notANumber, 1.0, infinity, 2.0}, {0.0, 7.0, notANumber, 7.0, 2.0}, 0.0, 2, 2);
        row("huge numbers", {-huge, 0.0, 1.0, 2.0, huge}, {-huge, huge, -huge, huge, 1.0}, 1.0, 5, 5);
        row("tiny numbers", {0.0, 5e-324, 1e-323, 1.0}, {0.0, 5e-324, 1e-300, 5e-324}, 0.0, 4, 4);
        row("uneven times", {0.0, 1e-9, 1e-3, 1.0, 1e6, 1e9}, {0.0, 1.0, 2.0, 1.0, 5.0, 4.0}, 0.0, 6, 6);
    }
    void isNearAllSamplesWithFewPoints()
    {
        const auto [times, values, tolerance, mostPoints, mostLinear] = Fits::present();
        for (const Options& options :
             {Options{tolerance, false}, {tolerance, true}, {tolerance, true, SplineBase::Linear}}) {
            const Result result = CurveFit::fit(times, values, options);
            QVERIFY(result.isDone());
            const auto& points = result.spline.points;
            const bool isLinear = options.type == SplineBase::Linear;
            QVERIFY2(double(points.size()) <=
                         (isLinear ? mostLinear : mostPoints * (options.monotone ? 1.25 : 1.0)),
                     qPrintable(QString::number(points.size())));
            QVERIFY(std::all_of(points.begin(), points.end(),
                                [&](const auto& point) { return point.type == options.type; }));
            SplineBase spline;
            QVERIFY(spline.assign(result.spline));
            double greatest = 0.0;
            for (std::size_t i = 0; i < times.size(); ++i) {
                const bool isStep = i + 1 < times.size() && times[i] == times[i + 1];
                if (std::isfinite(times[i]) && std::isfinite(values[i]) && !isStep)
                    greatest = std::max(greatest, std::abs(spline(times[i]) - values[i]));
            }
            QVERIFY2(greatest <= tolerance, qPrintable(QString::number(greatest)));
            QCOMPARE(result.deviation, greatest);
        }
    }

    void samplesThatCannotBeFittedAreRefused()
    {
        const auto fault = [](const Numbers& times, const Numbers& values, double tolerance,
                              SplineBase::NodeType type = SplineBase::Linear) {
            const Result result = CurveFit::fit(times, values, {tolerance, false, type});
            return CurveFit::message(result.spline.points.empty() ? result.status : Status::Done);
        };
        QCOMPARE(fault({}, {}, 1.0), "there are no samples, or none is finite");
        QCOMPARE(fault({notANumber, 1.0}, {1.0, infinity}, 1.0), "there are no samples, or none is finite");
        QCOMPARE(fault({1.0, 2.0}, {1.0}, 1.0), "there are not as many values as times");
        QCOMPARE(fault({1.0, 3.0, 2.0}, {1.0, 1.0, 1.0}, 1.0), "a time is earlier than the one before it");
        for (const double tolerance : {-1.0, notANumber})
            QCOMPARE(fault({1.0}, {1.0}, tolerance), "the tolerance is negative, or not a number");
        QCOMPARE(fault({1.0}, {1.0}, 0.0, SplineBase::Tcb), "the points of a fit are Bezier or Linear");
    }

    void turnsThatStandOutAreKept()
    {
        const Numbers values = sampled(
            [](double t) { return std::sin(t / 20.0) + 0.3 * std::sin(t / 3.0) + 0.001 * std::cos(7.0 * t); },
            400);
        const Result result = CurveFit::fit(wholeTimes(400), values, {0.15, false});
        const auto& points = result.spline.points;
        const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
        for (const auto turn : {least, greatest}) {
            const double time = double(turn - values.begin());
            const auto point = std::find_if(points.begin(), points.end(),
                                            [time](const auto& one) { return one.time == time; });
            QVERIFY(point != points.end() && point->pos == *turn && point->tanLeft == 0.0);
        }
        for (const SplineBase::PointInfo& point : points)
            QVERIFY(point.tanLeft == point.tanRight || &point == &points.front() || &point == &points.back());
        QVERIFY(points.front().pos == values.front() && points.back().pos == values.back());
    }

    void monotoneSamplesStayMonotone()
    {
        const Numbers steps = noise(400);
        for (const double direction : {1.0, -1.0}) {
            Numbers values = {0.0};
            for (std::size_t i = 1; i < 400; ++i)
                values.push_back(values.back() + (steps[i] < 200.0 ? direction : 0.0));
            for (const double tolerance : {0.0, 0.5, 2.0}) {
                const Result result = CurveFit::fit(wholeTimes(400), values, {tolerance, true});
                QVERIFY(tolerance < 2.0 || result.spline.points.size() < 60);
                SplineBase spline;
                QVERIFY(spline.assign(result.spline));
                for (double time = 0.0; time < 399.0; time += 1.0 / 16)
                    QVERIFY(direction * (spline(time + 1.0 / 16) - spline(time)) >= -1e-12);
            }
        }
    }

    void curveDoesNotSwingOutBetweenUnevenSamples()
    {
        Numbers times, values = noise(300);
        for (std::size_t i = 0; i < values.size(); ++i)
            times.push_back(double(i / 2) + (i % 2 == 1 ? 1e-4 : 0.0));
        for (const double tolerance : {0.0, 50.0}) {
            SplineBase spline;
            QVERIFY(spline.assign(CurveFit::fit(times, values, {tolerance, false}).spline));
            for (double time = 0.0; time < 149.0; time += 1.0 / 16)
                QVERIFY(std::abs(spline(time) - 500.0) < 1050.0);
        }
    }

    void splineIsSimplified()
    {
        SplineBase spline, simple;
        for (int i = 1; i <= 1000; ++i)
            spline.addPoint(0.01 * i, std::sin(0.01 * i));
        spline.addPoint(10.0, 3.0);
        spline.modify(1000u)->type = SplineBase::Linear;
        spline.lastType = SplineBase::Loop;
        spline.setDefaultValue(4.0);
        const Result result = CurveFit::simplify(spline, {0.001, false});
        QVERIFY(result.isDone() && simple.assign(result.spline) && simple.getControlPointsNumber() < 14);
        QVERIFY(simple.getFirst()->serial != 0 && simple.getFirst()->serial != simple.getLast()->serial);
        for (double time = 0.0; time < 25.0; time += 1.0 / 128)
            QVERIFY(std::abs(simple(time) - spline(time)) < 0.0011);
        QCOMPARE(simple.getDefaultValue(), 4.0);
        SplineBase level;
        for (int i = 1; i < 9; ++i) {
            level.addPoint(i, 0.0);
            level.modify(unsigned(i))->type = SplineBase::Hold;
        }
        QCOMPARE(CurveFit::simplify(level, {0.1, false}).spline.points.size(), 2U);
        SplineBase twoPoints;
        twoPoints.addPoint(5e-324, 1.0);
        QVERIFY(CurveFit::simplify(twoPoints, {0.0, false}).spline == twoPoints.state());
    }

    void curveOutsideASimplifiedSpanKeepsItsShape()
    {
        for (const auto type : {SplineBase::Linear, SplineBase::Bezier, SplineBase::Tcb}) {
            SplineBase spline, simple;
            for (int i = 1; i <= 60; ++i)
                spline.addPoint(i, std::sin(0.2 * i));
            for (SplineBase::PointInfo* const point : spline.getControlPoints()) {
                point->type = type;
                point->tanLeft = point->tanRight = 0.1;
                point->easeFrom = type == SplineBase::Linear ? 0.5 : 0.0;
            }
            spline.firstType = SplineBase::Zero;
            const Result result = CurveFit::simplify(spline, 20, 40, {0.1, false});
            QVERIFY(result.isDone() && simple.assign(result.spline));
            QVERIFY(simple(-1.0) == 0.0 && result.deviation <= 0.1 && simple.getControlPointsNumber() < 50);
            for (double time = 0.0; time < 60.0; time += 1.0 / 64)
                QVERIFY(std::abs(simple(time) - spline(time)) < (time < 20 || time > 40 ? 1e-12 : 0.1));
            QCOMPARE(simple.findIndex(spline[20]->serial, 20.0), 20);
            QCOMPARE(simple.getLast()->serial, spline.getLast()->serial);
        }
        SplineBase onePoint;
        QVERIFY(CurveFit::simplify(onePoint, {0.0, false}).spline == onePoint.state());
        QCOMPARE(CurveFit::simplify(onePoint, 0, 0, {0.0, false}).status, Status::NoSamples);
        QVERIFY(CurveFit::simplify(onePoint, {-1.0, false}).spline.points.empty());
    }

    void wildSplineIsNowhereFurtherThanTheTolerance()
    {
        std::mt19937 random(1);
        const auto below = [&random](double bound) {
            return (double(random() % 2001) / 1000.0 - 1.0) * bound;
        };
        constexpr double tolerance = 5.0;
        int simplified = 0;
        for (int round = 0; round < 60; ++round) {
            SplineState state;
            for (int i = 0; i < 20; ++i)
                state.points.push_back({std::pow(10.0, below(3.0)), below(9.0), below(100.0), below(100.0),
                                        below(2.0), below(2.0), below(2.0), below(1.0), below(1.0),
                                        int(random() % 3)});
            std::stable_sort(state.points.begin(), state.points.end(), isEarlierPoint);
            SplineBase spline, simple;
            QVERIFY(spline.assign(state));
            const Result result = CurveFit::simplify(spline, {tolerance, false});
            QVERIFY(simple.assign(result.spline) && result.deviation <= tolerance);
            simplified += simple.getControlPointsNumber() < 20;
            for (std::size_t i = 1; i < state.points.size(); ++i) {
                for (double place = 0.005; place < 1.0; place += 0.01) {
                    const double time = std::lerp(state.points[i - 1].time, state.points[i].time, place);
                    QVERIFY(std::abs(simple(time) - spline(time)) <= result.deviation + 1e-9);
                }
            }
        }
        QVERIFY2(simplified > 19, qPrintable(QString::number(simplified)));
    }

    void splineThatIsNotWholeIsRefused()
    {
        for (const unsigned index : {0u, 1u, 2u}) {
            for (const double number : {notANumber, infinity}) {
                for (double SplineBase::PointInfo::*const field :
                     {&SplineBase::PointInfo::time, &SplineBase::PointInfo::pos}) {
                    SplineBase spline;
                    spline.addPoint(1.0, 1.0);
                    spline.addPoint(2.0, 1.0);
                    spline.modify(index)->*field = number;
                    QCOMPARE(CurveFit::simplify(spline, {0.1, false}).status, Status::NotWhole);
                    QCOMPARE(CurveFit::message(CurveFit::simplify(spline, 0, 1, {0.1, false}).status),
                             "the spline has times that descend, or a time or value that is not finite");
                }
            }
        }
    }

    void boundsOfSpansAndSteps()
    {
        SplineBase spline;
        spline.addPoint(1.0, 1.0);
        for (const auto& [first, last] : {std::pair(1u, 1u), {1u, 0u}, {0u, 2u}})
            QCOMPARE(CurveFit::simplify(spline, first, last, {0.1, false}).status, Status::NoSamples);
        const auto bake = [](double first, double last, double step) {
            const Result result =
                CurveFit::bake([](double t) { return 2.0 * t; }, {first, last, step, {}}, SplineBase::Linear);
            return result.isDone() ? QString::number(result.spline.points.size()) + ' ' +
                                         QString::number(result.spline.points.back().time)
                                   : CurveFit::message(result.status);
        };
        QCOMPARE(bake(1.0, 1.0, 2.0), "1 1");
        QCOMPARE(bake(0.0, 1.0, 0.4), "4 1");
        QCOMPARE(bake(0.0, 1.2, 0.4), "4 1.2");
        for (const QString& refusal : {bake(1.0, 0.9, 0.1), bake(0.0, 1.0, 0.0), bake(0.0, 1.0, -1.0),
                                       bake(0.0, 1.0, infinity), bake(0.0, infinity, 1.0)})
            QCOMPARE(refusal, "the step is not above 0, or the range is not finite or ends before it begins");
        QCOMPARE(bake(0.0, double(CurveFit::stepLimit), 1.0), "these are more than a million steps");
    }

    void smoothSlopeIsThatOfTheNeighbours()
    {
        using Point = SplineBase::PointInfo;
        const auto slope = [](const Point& previous, const Point& next) {
            return CurveFit::smoothSlope(&previous, {1.0, 1.0}, &next);
        };
        QCOMPARE(slope({0.0, 0.0}, {3.0, 5.0}), (1.0 * 2.0 + 2.0 * 1.0) / 3.0); // of a parabola
        QVERIFY(slope({0.0, 0.0}, {2.0, 100.0}) == 3.0 && slope({0.0, 2.0}, {2.0, -99.0}) == -3.0);
        QVERIFY(slope({0.0, 0.0}, {2.0, 0.0}) == 0.0 && slope({0.0, 1.0}, {2.0, 5.0}) == 0.0);
        QVERIFY(slope({1.0, 0.0}, {2.0, 3.0}) == 2.0 && slope({0.0, -4.0}, {1.0, 9.0}) == 5.0);
        QVERIFY(slope({1.0, 0.0}, {1.0, 9.0}) == 0.0 && slope({1.0 - 1e-9, huge}, {1.0, 0.0}) == 0.0);
        QCOMPARE(CurveFit::smoothSlope(nullptr, {1.0, 1.0}, nullptr), 0.0);
        SplineBase spline; // at once, a hold, a hold of the same value, two alike and three at one time
        spline.assign({{{0, 1}, {0, 2}, {1, 3}, {2, 3}, {2, 3}, {3, 9}, {3, 1}, {3, 7}}});
        spline.modify(2)->type = spline.modify(3)->type = SplineBase::Hold;
        QString jumps;
        for (const CurveFit::Jump& jump : CurveFit::jumpsOf(spline))
            jumps += QStringLiteral("%1: %2 %3; ").arg(jump.time).arg(jump.before).arg(jump.value);
        QCOMPARE(jumps, "0: 1 2; 1: 2 3; 3: 9 7; ");
    }

    void jumpIsBakedAsTwoPoints()
    {
        SplineBase spline, baked; // jumps to 1 at 4.5, and from 2 to 5 at 6
        spline.assign({{{}, {.time = 4.5, .pos = 1.0, .type = 3}, {6.0, 2.0}, {6.0, 5.0}}});
        const auto function = std::cref(spline);
        const CurveFit::Steps steps{0.0, 8.0, 1.0, CurveFit::jumpsOf(spline)};
        for (const int type : {0, 1, 2, 3, 4}) {
            const Result result = type < 4 ? CurveFit::bake(function, steps, SplineBase::NodeType(type))
                                           : CurveFit::bake(function, steps, Options{0.01, false});
            QVERIFY(baked.assign(result.spline) && result.samples == 12 && baked(4.5) == 1.0);
            QVERIFY(std::abs(baked(4.2)) + std::abs(baked(4.4999)) < 1e-9);
            QVERIFY(baked(6.0) == 5.0 && baked(5.9999) < 2.1);
        }
    }

    void threadsReadOneSplineAtOnce()
    {
        SplineBase spline;
        for (int i = 1; i < 300; ++i) {
            spline.addPoint(i, std::cos(7 * i));
            spline.modify(i)->type = i / 5 % 4;
        }
        const auto read = [&spline] {
            Numbers values = sampled([](double t) { return 3.7 * t - 9.0; }, 200);
            spline.evaluate(values.data(), values.data(), values.size());
            double length = 0.0;
            for (unsigned i = 0; i < 300; ++i)
                values.insert(values.end(), {spline(i * 1.3), spline.getTangentLeftAtNode(i, length)});
            values.push_back(CurveFit::simplify(spline, {0.1, true}).deviation);
            return values;
        };
        const Numbers values = read();
        auto first = std::async(std::launch::async, read), second = std::async(std::launch::async, read);
        QVERIFY(first.get() == values && second.get() == values);
    }
};

QTEST_GUILESS_MAIN(tst_CurveFit)
#include "tst_CurveFit.moc"
