// SPDX-License-Identifier: MIT
// Splines beside what else could do the job. The counters per_value, per_point and per_move are times, to be
// compared within one run.
#include <curveeditor/model/CurveSnapshot.h>
#include <curveeditor/model/SplineBase.h>
#include <curveeditor/model/SplineState.h>
#include <specimens/SplineSpecimens.h>

#include <benchmark/benchmark.h>
#include <boost/math/interpolators/cubic_hermite.hpp>
#include <gsl/gsl_spline.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <new>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

namespace {

using PointInfo = SplineBase::PointInfo;

std::size_t requestedBytes = 0;

} // namespace

// Counts what is requested and not given back; the size stands in front of each piece.
void* operator new(std::size_t size)
{
    constexpr std::size_t header = alignof(std::max_align_t);
    void* const piece = std::malloc(size + header);
    if (!piece)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(piece) = size;
    requestedBytes += size;
    return static_cast<char*>(piece) + header;
}

void operator delete(void* content) noexcept
{
    if (!content)
        return;
    void* const piece = static_cast<char*>(content) - alignof(std::max_align_t);
    requestedBytes -= *static_cast<std::size_t*>(piece);
    std::free(piece);
}

void operator delete(void* content, std::size_t) noexcept
{
    operator delete(content);
}

namespace {

struct Knots
{
    std::vector<double> times, values, slopes;
};

/// Knots at uneven distances around 1.
Knots makeKnots(std::int64_t count)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> distance(0.5, 1.5);
    Knots knots;
    double time = 0.0;
    for (std::int64_t i = 0; i < count; ++i) {
        knots.times.push_back(time += distance(random));
        knots.values.push_back(std::sin(time));
        knots.slopes.push_back(std::cos(time));
    }
    return knots;
}

void fill(SplineBase& spline, const Knots& knots, std::int32_t type)
{
    SplineSpecimen specimen;
    for (std::size_t i = 0; i < knots.times.size(); ++i)
        specimen.points.push_back(
            {knots.times[i], knots.values[i], knots.slopes[i], knots.slopes[i], 0, 0, 0, 0, 0, type});
    specimen.fill(spline);
}

std::vector<double> randomTimes(double first, double last)
{
    std::mt19937 random(2);
    std::uniform_real_distribution<double> anywhere(first, last);
    std::vector<double> times(1 << 16);
    std::generate(times.begin(), times.end(), [&] { return anywhere(random); });
    return times;
}

/// As many as a canvas samples in the width of its view.
std::vector<double> risingTimes(double first, double last)
{
    std::vector<double> times(1001);
    for (std::size_t i = 0; i < times.size(); ++i)
        times[i] = first + (last - first) * (double(i) / 1000.0);
    return times;
}

void reportTime(benchmark::State& state, const char* name, std::size_t perRound)
{
    state.counters[name] = benchmark::Counter(
        double(perRound), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Values at random times

double hermite(const Knots& knots, double time)
{
    const auto place = std::upper_bound(knots.times.begin(), knots.times.end(), time) - knots.times.begin();
    const std::size_t to = std::clamp<std::size_t>(std::size_t(place), 1, knots.times.size() - 1);
    const std::size_t from = to - 1;
    const double length = knots.times[to] - knots.times[from];
    const double u = (time - knots.times[from]) / length;
    const double m0 = knots.slopes[from] * length, m1 = knots.slopes[to] * length;
    const double rise = knots.values[to] - knots.values[from];
    return knots.values[from] + u * (m0 + u * (3 * rise - 2 * m0 - m1 + u * (m0 + m1 - 2 * rise)));
}

void randomUpperBoundAndHermite(benchmark::State& state)
{
    const Knots knots = makeKnots(state.range(0));
    const std::vector<double> times = randomTimes(knots.times.front(), knots.times.back());
    for (auto _ : state) {
        for (const double time : times)
            benchmark::DoNotOptimize(hermite(knots, time));
    }
    reportTime(state, "per_value", times.size());
}

void evaluateAt(benchmark::State& state, const SplineBase& spline, const std::vector<double>& times)
{
    for (auto _ : state) {
        for (const double time : times)
            benchmark::DoNotOptimize(spline(time));
    }
    reportTime(state, "per_value", times.size());
}

void randomSpline(benchmark::State& state, std::int32_t type)
{
    const Knots knots = makeKnots(state.range(0));
    SplineBase spline;
    fill(spline, knots, type);
    evaluateAt(state, spline, randomTimes(knots.times.front(), knots.times.back()));
}

/// Times that lie as far from even as can be: each knot is as far from the first as all before it together.
void randomSplineOfCrowdedKnots(benchmark::State& state)
{
    SplineBase spline;
    for (int i = 0; i < state.range(0); ++i)
        spline.addPoint(std::exp2(i), std::sin(i));
    std::vector<double> times = randomTimes(0.0, double(state.range(0)));
    std::transform(times.begin(), times.end(), times.begin(),
                   [](double exponent) { return std::exp2(exponent); });
    evaluateAt(state, spline, times);
}

/// Times before, in and behind a specimen.
void randomSpecimen(benchmark::State& state, const char* name)
{
    const auto& all = splineSpecimens();
    const auto specimen =
        std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.name == name; });
    SplineBase spline;
    specimen->fill(spline);
    evaluateAt(state, spline, randomTimes(-1.0, 11.0));
}

// Values at a block of rising times

void blockGsl(benchmark::State& state)
{
    const Knots knots = makeKnots(state.range(0));
    const std::vector<double> times = risingTimes(knots.times.front(), knots.times.back());
    std::vector<double> values(times.size());
    const std::unique_ptr<gsl_spline, decltype(&gsl_spline_free)> spline(
        gsl_spline_alloc(gsl_interp_cspline, knots.times.size()), gsl_spline_free);
    const std::unique_ptr<gsl_interp_accel, decltype(&gsl_interp_accel_free)> accelerator(
        gsl_interp_accel_alloc(), gsl_interp_accel_free);
    gsl_spline_init(spline.get(), knots.times.data(), knots.values.data(), knots.times.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < times.size(); ++i)
            values[i] = gsl_spline_eval(spline.get(), times[i], accelerator.get());
        benchmark::ClobberMemory();
    }
    reportTime(state, "per_value", times.size());
}

/// The cubic of given slopes, as a Bezier segment is.
void blockBoost(benchmark::State& state)
{
    Knots knots = makeKnots(state.range(0));
    const std::vector<double> times = risingTimes(knots.times.front(), knots.times.back());
    std::vector<double> values(times.size());
    const boost::math::interpolators::cubic_hermite<std::vector<double>> spline(
        std::move(knots.times), std::move(knots.values), std::move(knots.slopes));
    for (auto _ : state) {
        std::transform(times.begin(), times.end(), values.begin(), spline);
        benchmark::ClobberMemory();
    }
    reportTime(state, "per_value", times.size());
}

void evaluateBlock(benchmark::State& state, const SplineBase& spline, const std::vector<double>& times)
{
    std::vector<double> values(times.size());
    for (auto _ : state) {
        spline.evaluate(times.data(), values.data(), times.size());
        benchmark::ClobberMemory();
    }
    reportTime(state, "per_value", times.size());
}

void blockSpline(benchmark::State& state, std::int32_t type)
{
    const Knots knots = makeKnots(state.range(0));
    SplineBase spline;
    fill(spline, knots, type);
    evaluateBlock(state, spline, risingTimes(knots.times.front(), knots.times.back()));
}

void blockBehindTheLastPoint(benchmark::State& state, std::int32_t lastType)
{
    const Knots knots = makeKnots(state.range(0));
    SplineBase spline;
    fill(spline, knots, SplineBase::Tcb);
    spline.lastType = lastType;
    evaluateBlock(state, spline, risingTimes(knots.times.back(), 4.0 * knots.times.back()));
}

void blockOfEqualTimes(benchmark::State& state)
{
    SplineBase spline;
    for (int i = 1; i < state.range(0); ++i)
        spline.addPoint(0.0, double(i));
    evaluateBlock(state, spline, risingTimes(-1.0, 1.0));
}

// Editing

void addPointers(benchmark::State& state)
{
    for (auto _ : state) {
        std::vector<std::unique_ptr<PointInfo>> points;
        for (std::int64_t i = 0; i < state.range(0); ++i)
            points.push_back(std::make_unique<PointInfo>());
    }
    reportTime(state, "per_point", std::size_t(state.range(0)));
}

void addPoints(benchmark::State& state)
{
    for (auto _ : state) {
        SplineBase spline;
        for (std::int64_t i = 0; i < state.range(0); ++i)
            spline.addPoint(double(i), 1.0);
    }
    reportTime(state, "per_point", std::size_t(state.range(0)));
}

void movePointer(benchmark::State& state)
{
    std::vector<PointInfo*> points(std::size_t(state.range(0)));
    for (auto _ : state) {
        std::rotate(points.begin(), points.begin() + 1, points.end());
        benchmark::ClobberMemory();
        std::rotate(points.begin(), points.end() - 1, points.end());
        benchmark::ClobberMemory();
    }
    reportTime(state, "per_move", 2);
}

void movePointFromEndToEnd(benchmark::State& state)
{
    SplineBase spline;
    for (std::int64_t i = 1; i < state.range(0); ++i)
        spline.addPoint(double(i), 1.0);
    PointInfo* const point = spline.modify(0);
    for (auto _ : state) {
        spline.setTime(point, 1e9);
        spline.setTime(point, -1.0);
    }
    reportTime(state, "per_move", 2);
}

void movePointPastOneNeighbour(benchmark::State& state)
{
    SplineBase spline;
    for (std::int64_t i = 1; i < state.range(0); ++i)
        spline.addPoint(double(i), 1.0);
    PointInfo* const point = spline.modify(unsigned(state.range(0) / 2));
    const double time = point->time;
    for (auto _ : state) {
        spline.setTime(point, time + 1.5);
        spline.setTime(point, time);
    }
    reportTime(state, "per_move", 2);
}

// Snapshots

/// Into memory that is there.
void copyOfAllPoints(benchmark::State& state)
{
    SplineBase spline;
    for (std::int64_t i = 1; i < state.range(0); ++i)
        spline.addPoint(double(i), 1.0);
    SplineState copy = spline.state();
    for (auto _ : state) {
        spline.copyTo(copy);
        benchmark::ClobberMemory();
    }
}

void nextSnapshot(benchmark::State& state)
{
    SplineBase spline;
    for (std::int64_t i = 1; i < state.range(0); ++i)
        spline.addPoint(double(i), 1.0);
    PointInfo* const point = spline.modify(unsigned(state.range(0) / 2));
    std::shared_ptr<const CurveSnapshot> snapshot = CurveSnapshot::of(spline);
    for (auto _ : state) {
        point->pos += 1.0;
        snapshot = CurveSnapshot::of(spline, snapshot);
    }
}

void firstSnapshot(benchmark::State& state)
{
    SplineBase spline;
    for (std::int64_t i = 1; i < state.range(0); ++i)
        spline.addPoint(double(i), 1.0);
    for (auto _ : state)
        benchmark::DoNotOptimize(CurveSnapshot::of(spline));
}

/// The reserve that a growing vector keeps is largest right behind a power of two and gone at one.
void memory(benchmark::State& state)
{
    for (auto _ : state) {
        const std::size_t before = requestedBytes;
        SplineBase spline;
        for (std::int64_t i = 1; i < state.range(0); ++i)
            spline.addPoint(double(i), 1.0);
        state.counters["bytes_per_point"] = double(requestedBytes - before) / double(state.range(0));
    }
    state.counters["point_and_two_pointers"] = sizeof(PointInfo) + 2 * sizeof(void*);
}

BENCHMARK(randomUpperBoundAndHermite)->Arg(1000)->Arg(1000000);
BENCHMARK_CAPTURE(randomSpline, bezier, SplineBase::Bezier)->Arg(1000)->Arg(1000000);
BENCHMARK_CAPTURE(randomSpline, tcb, SplineBase::Tcb)->Arg(10)->Arg(1000)->Arg(1000000);
BENCHMARK(randomSplineOfCrowdedKnots)->Arg(1000);
BENCHMARK_CAPTURE(randomSpecimen, two_points, "two points");
BENCHMARK_CAPTURE(randomSpecimen, no_span, "no span");
BENCHMARK_CAPTURE(randomSpecimen, mixed_types, "mixed types");
BENCHMARK(blockGsl)->Arg(10)->Arg(100)->Arg(1000)->Arg(100000);
BENCHMARK(blockBoost)->Arg(10)->Arg(100)->Arg(1000)->Arg(100000);
BENCHMARK_CAPTURE(blockSpline, bezier, SplineBase::Bezier)->Arg(10)->Arg(100)->Arg(1000)->Arg(100000);
BENCHMARK_CAPTURE(blockSpline, tcb, SplineBase::Tcb)->Arg(10)->Arg(100)->Arg(1000)->Arg(100000);
BENCHMARK_CAPTURE(blockBehindTheLastPoint, loop, SplineBase::Loop)->Arg(100);
BENCHMARK_CAPTURE(blockBehindTheLastPoint, loop_offset, SplineBase::LoopOffset)->Arg(100);
BENCHMARK(blockOfEqualTimes)->Arg(1000);
BENCHMARK(addPointers)->Arg(100000);
BENCHMARK(addPoints)->Arg(100000);
BENCHMARK(movePointer)->Arg(1000000);
BENCHMARK(movePointFromEndToEnd)->Arg(1000000);
BENCHMARK(movePointPastOneNeighbour)->Arg(1000000);
BENCHMARK(copyOfAllPoints)->Arg(100000);
BENCHMARK(nextSnapshot)->Arg(100000);
BENCHMARK(firstSnapshot)->Arg(100000);
BENCHMARK(memory)->Arg(1 << 17)->Arg(100000)->Iterations(1);

} // namespace
