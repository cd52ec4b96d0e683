// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveFit.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

namespace {

constexpr double shareOfSpan = 0.001;

struct Samples
{
    std::vector<double> times, values;

    double span() const
    {
        const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
        return *greatest - *least;
    }
};

Samples sampled(const std::function<double(double)>& function, double first, double last, std::int64_t count)
{
    Samples samples;
    for (std::int64_t i = 0; i < count; ++i) {
        samples.times.push_back(first + (last - first) * double(i) / double(count - 1));
        samples.values.push_back(function(samples.times.back()));
    }
    return samples;
}

void fit(benchmark::State& state, const Samples& samples, const CurveFit::Options& options)
{
    CurveFit::Result result;
    for (auto _ : state)
        result = CurveFit::fit(samples.times, samples.values, options);
    state.counters["points"] = double(result.spline.points.size());
    state.counters["deviation"] = result.deviation / samples.span();
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(samples.times.size()));
}

/// Slow and fast swings that fade, as of a spring.
void smoothSamples(benchmark::State& state)
{
    const Samples samples =
        sampled([](double t) { return std::exp(-t / 4.0) * std::sin(6.0 * t) + 0.2 * std::sin(t); }, 0.0,
                10.0, state.range(0));
    fit(state, samples, {shareOfSpan * samples.span(), state.range(1) != 0});
}

void triangleWave(benchmark::State& state)
{
    const Samples samples =
        sampled([](double t) { return std::abs(std::remainder(t, 2.0)); }, 0.0, 20.0, state.range(0));
    fit(state, samples, {shareOfSpan * samples.span(), false});
}

/// The worst case: hardly a point can be spared.
void noise(benchmark::State& state)
{
    std::mt19937 random(1);
    const Samples samples = sampled([&](double) { return double(random()) / double(std::mt19937::max()); },
                                    0.0, 1.0, state.range(0));
    fit(state, samples, {shareOfSpan, false});
}

double bell(double x, double middle, double left, double right)
{
    const double distance = (x - middle) / (x < middle ? left : right);
    return std::exp(-0.5 * distance * distance);
}

/// The CIE 1931 colour matching functions in steps of a nanometre, by the sums of Wyman, Sloan and Shirley (2013).
void colourMatching(benchmark::State& state)
{
    const std::function<double(double)> functions[] = {
        [](double t) {
            return 1.056 * bell(t, 599.8, 37.9, 31.0) + 0.362 * bell(t, 442.0, 16.0, 26.7) -
                   0.065 * bell(t, 501.1, 20.4, 26.2);
        },
        [](double t) { return 0.821 * bell(t, 568.8, 46.9, 40.5) + 0.286 * bell(t, 530.9, 16.3, 31.1); },
        [](double t) {
            return 1.217 * bell(t, 437.0, 11.8, 36.0) + 0.681 * bell(t, 459.0, 26.0, 13.8);
        }};
    const Samples samples = sampled(functions[state.range(0)], 360.0, 830.0, 471);
    const double greatest = *std::max_element(samples.values.begin(), samples.values.end());
    fit(state, samples, {shareOfSpan * greatest, false});
}

} // namespace

BENCHMARK(smoothSamples)
    ->Args({1000, 0})
    ->Args({10000, 0})
    ->Args({10000, 1})
    ->Args({1000000, 0})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(triangleWave)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(noise)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(colourMatching)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
