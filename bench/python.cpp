// SPDX-License-Identifier: MIT
// A million values of a spline in C++, and the same from Python into an array that is there.
#include <curveeditor/model/SplineBase.h>

#include <benchmark/benchmark.h>
#include <pybind11/embed.h>
#include <pybind11/numpy.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace py = pybind11;

namespace {

constexpr std::size_t valueCount = 1'000'000;
constexpr int pointCount = 100;

std::vector<double> risingTimes()
{
    std::vector<double> times(valueCount);
    for (std::size_t i = 0; i < valueCount; ++i)
        times[i] = double(i) * pointCount / valueCount;
    return times;
}

void inCpp(benchmark::State& state)
{
    SplineBase spline;
    for (int i = 1; i < pointCount; ++i)
        spline.addPoint(i, std::sin(i));
    const std::vector<double> times = risingTimes();
    std::vector<double> values(valueCount);
    for (auto _ : state) {
        spline.evaluate(times.data(), values.data(), valueCount);
        benchmark::DoNotOptimize(values.data());
    }
}
BENCHMARK(inCpp)->Unit(benchmark::kMillisecond);

void fromPython(benchmark::State& state)
{
    const py::object spline = py::module_::import("curveeditor").attr("Spline")();
    for (int i = 1; i < pointCount; ++i)
        spline.attr("add")(i, std::sin(i));
    const py::array_t<double> times(py::ssize_t(valueCount), risingTimes().data());
    const py::array_t<double> values{py::ssize_t(valueCount)};
    for (auto _ : state)
        spline(times, values);
}
BENCHMARK(fromPython)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    const py::scoped_interpreter interpreter;
    py::module_::import("sys").attr("path").attr("insert")(0, CURVEEDITOR_PYTHON_PACKAGES);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
