// SPDX-License-Identifier: MIT
// Reading a curve file beside what its numbers alone take. Ratios within one run count, not times.
#include <curveeditor/files/CurveFile.h>

#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace {

/// A curve file in the folder for temporary files, for as long as it lives.
class File
{
public:
    explicit File(std::int64_t points)
    {
        CurveFile file;
        for (std::int64_t i = 1; i < points; ++i)
            file.spline.addPoint(double(i), std::sin(double(i)));
        std::ofstream out(path_);
        file.write(out);
    }
    ~File() { std::filesystem::remove(path_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::ifstream open() const { return std::ifstream(path_); }

private:
    const std::filesystem::path path_ = std::filesystem::temp_directory_path() / "curve_editor_bench.crv";
};

void loadCurve(benchmark::State& state)
{
    const File file(state.range(0));
    for (auto _ : state) {
        auto curve = std::make_unique<CurveFile>();
        std::ifstream in = file.open();
        if (!curve->read(in))
            state.SkipWithError("the file was not read");
        state.PauseTiming();
        curve.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(loadCurve)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// What a stream makes of each word, which is a number but for the first and the last.
void loadNumbersByStream(benchmark::State& state)
{
    const File file(state.range(0));
    for (auto _ : state) {
        std::ifstream in = file.open();
        std::string word;
        for (int i = 0; i < 5; ++i)
            in >> word;
        for (double number = 0.0; in >> number;)
            benchmark::DoNotOptimize(number);
    }
}
BENCHMARK(loadNumbersByStream)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// The numbers of a text that lies in memory: the least that any reader does.
void convertNumbers(benchmark::State& state)
{
    const File file(state.range(0));
    std::ifstream in = file.open();
    const std::string text(std::istreambuf_iterator<char>(in), {});
    for (auto _ : state) {
        const char* const end = text.data() + text.size();
        for (const char* place = text.data(); place < end; ++place) {
            double number = 0.0;
            place = std::from_chars(place, end, number).ptr;
            benchmark::DoNotOptimize(number);
        }
    }
}
BENCHMARK(convertNumbers)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace
