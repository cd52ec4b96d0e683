// SPDX-License-Identifier: MIT

// Expressions, each task beside its peer muParser and beside the same formula written in C++. Ratios within
// one run count, not times.

#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>

#include <benchmark/benchmark.h>
#include <muParser.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace {

const std::string formula =
    "1/14 cos(t)+3*exp(-(t-520)^2/2000)+8*exp(-(t-600)^2/2000)+2*exp(-(t-700)^2/4000)";

// muParser knows no product without an operator.
const std::string formulaWithOperators =
    "1/14*cos(t)+3*exp(-(t-520)^2/2000)+8*exp(-(t-600)^2/2000)+2*exp(-(t-700)^2/4000)";

constexpr std::size_t sampleCount = 5000;
constexpr double framesPerTimeUnit = 25.0;

std::vector<double> sampleTimes()
{
    std::vector<double> times(sampleCount);
    for (std::size_t i = 0; i < sampleCount; ++i)
        times[i] = 380.0 + double(i) * (400.0 / double(sampleCount));
    return times;
}

std::unique_ptr<FunctionFloatBase> parse(const std::string& text)
{
    ParseMessage message;
    return std::unique_ptr<FunctionFloatBase>(FunctionParserBase::instance()->parseString(text, message));
}

double bell(double t, double middle, double width)
{
    const double distance = t - middle;
    return std::exp(-(distance * distance) / width);
}

double handWritten(double t)
{
    return 1.0 / 14.0 * std::cos(t) + 3.0 * bell(t, 520.0, 2000.0) + 8.0 * bell(t, 600.0, 2000.0) +
           2.0 * bell(t, 700.0, 4000.0);
}

struct MuParser
{
    double t = 0.0;
    double f = 0.0;
    mu::Parser parser;

    explicit MuParser(const std::string& text)
    {
        parser.DefineVar("t", &t);
        parser.DefineVar("f", &f);
        parser.SetExpr(text);
    }
};

void countValues(benchmark::State& state, std::size_t valuesPerIteration)
{
    state.SetItemsProcessed(state.iterations() * std::int64_t(valuesPerIteration));
}

void oneByOne(benchmark::State& state)
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    FunctionParserBase::keyStruct* const t = parser->getKey("t");
    FunctionParserBase::keyStruct* const f = parser->getKey("f");
    const auto expression = parse(formula);
    const std::vector<double> times = sampleTimes();
    for (auto _ : state) {
        for (const double time : times) {
            t->setValue(time);
            f->setValue(time * framesPerTimeUnit);
            benchmark::DoNotOptimize(expression->evaluate());
        }
    }
    countValues(state, times.size());
}
BENCHMARK(oneByOne);

void oneByOneMuParser(benchmark::State& state)
{
    MuParser peer(formulaWithOperators);
    const std::vector<double> times = sampleTimes();
    for (auto _ : state) {
        for (const double time : times) {
            peer.t = time;
            peer.f = time * framesPerTimeUnit;
            benchmark::DoNotOptimize(peer.parser.Eval());
        }
    }
    countValues(state, times.size());
}
BENCHMARK(oneByOneMuParser);

void oneByOneHandWritten(benchmark::State& state)
{
    const std::vector<double> times = sampleTimes();
    for (auto _ : state) {
        for (double time : times) {
            benchmark::DoNotOptimize(time);
            benchmark::DoNotOptimize(handWritten(time));
        }
    }
    countValues(state, times.size());
}
BENCHMARK(oneByOneHandWritten);

void block(benchmark::State& state)
{
    const auto expression = parse(formula);
    const std::vector<double> times = sampleTimes();
    std::vector<double> values(times.size());
    for (auto _ : state) {
        expression->evaluateBlock(times.data(), framesPerTimeUnit, values.data(), times.size());
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
    countValues(state, times.size());
}
BENCHMARK(block);

void blockHandWritten(benchmark::State& state)
{
    const std::vector<double> times = sampleTimes();
    std::vector<double> values(times.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < times.size(); ++i)
            values[i] = handWritten(times[i]);
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
    countValues(state, times.size());
}
BENCHMARK(blockHandWritten);

// Parsing ends with the first value, since muParser reads the text only then, and with freeing what was made.
void parsing(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(parse(formula)->evaluate());
}
BENCHMARK(parsing);

void parsingMuParser(benchmark::State& state)
{
    MuParser peer(formulaWithOperators);
    for (auto _ : state) {
        peer.parser.SetExpr(formulaWithOperators);
        benchmark::DoNotOptimize(peer.parser.Eval());
    }
}
BENCHMARK(parsingMuParser);

} // namespace
