// SPDX-License-Identifier: MIT

// Expressions, each task beside its peers muParser and fparser and beside the same formula written in C++. Ratios within
// one run count, not times.

#include "FParserPeer.h"

#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>

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

const std::string polynomial = "if(t>500,(t-500)*(t-500)*0.01-t,3*t^2+2*t-1)";

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

void oneByOne(benchmark::State& state, const std::string& text)
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    FunctionParserBase::keyStruct* const t = parser->getKey("t");
    FunctionParserBase::keyStruct* const f = parser->getKey("f");
    const auto expression = parse(text);
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
BENCHMARK_CAPTURE(oneByOne, formula, formula);
BENCHMARK_CAPTURE(oneByOne, polynomial, polynomial);

void oneByOneFParser(benchmark::State& state, const std::string& text)
{
    FParserPeer peer(text);
    const std::vector<double> times = sampleTimes();
    for (auto _ : state) {
        for (const double time : times)
            benchmark::DoNotOptimize(peer.evaluate(time, time * framesPerTimeUnit));
    }
    countValues(state, times.size());
}
BENCHMARK_CAPTURE(oneByOneFParser, formula, formulaWithOperators);
BENCHMARK_CAPTURE(oneByOneFParser, polynomial, polynomial);

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

void parsingFParser(benchmark::State& state)
{
    for (auto _ : state) {
        FParserPeer peer(formulaWithOperators);
        benchmark::DoNotOptimize(peer.evaluate(500.0, 0.0));
    }
}
BENCHMARK(parsingFParser);

void parsingMuParser(benchmark::State& state)
{
    MuParser peer(formulaWithOperators);
    for (auto _ : state) {
        peer.parser.SetExpr(formulaWithOperators);
        benchmark::DoNotOptimize(peer.parser.Eval());
    }
}
BENCHMARK(parsingMuParser);

// A redraw of the last of 30 curves, each of which reads the one before; the first is a spline.
void blockOfChain(benchmark::State& state)
{
    constexpr std::size_t length = 30;
    std::array<FunctionFloatBase*, length> holders{};
    std::vector<std::unique_ptr<FunctionFloatBase>> chain;
    SplineBase spline;
    for (int i = 1; i < 10; ++i)
        spline.addPoint(380.0 + 40.0 * i, i % 3);
    CurveVariables variables;
    FunctionParserBase::instance()->setVarMapper(&variables);
    variables.add("c.0", &spline, &holders[0]);
    for (std::size_t i = 1; i < length; ++i) {
        chain.push_back(parse("c." + std::to_string(i - 1) + "*0.9+t/1000"));
        holders[i] = chain.back().get();
        variables.add("c." + std::to_string(i), nullptr, &holders[i]);
    }
    const std::vector<double> times = sampleTimes();
    std::vector<double> values(times.size());
    for (auto _ : state) {
        holders.back()->evaluateBlock(times.data(), framesPerTimeUnit, values.data(), times.size());
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
    countValues(state, times.size());
}
BENCHMARK(blockOfChain);

} // namespace
