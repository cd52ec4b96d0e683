// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "Fault.h"
#include "Progress.h"
#include "Sampling.h"
#include "TextNumber.h"

#include <algorithm>
#include <ostream>

namespace {

constexpr std::size_t blockSize = 4096;

void print(const std::vector<double>& times, const std::vector<double>& values, std::ostream& out)
{
    std::string rows;
    for (std::size_t i = 0; i < times.size(); ++i)
        rows += toText(times[i]) + '\t' + toText(values[i]) + '\n';
    out << rows;
}

void printSteps(const CurveValues& curve, const TimeSteps& steps, const Streams& streams)
{
    Progress progress(streams.terminal(), "sampling");
    for (std::size_t first = 0; first < steps.size() && streams.out; first += blockSize) {
        std::vector<double> times(std::min(blockSize, steps.size() - first));
        for (std::size_t i = 0; i < times.size(); ++i)
            times[i] = steps.at(first + i);
        std::vector<double> values(times.size());
        curve.evaluate(times.data(), values.data(), times.size());
        print(times, values, streams.out);
        progress.at(first, steps.size());
    }
}

void run(const Arguments& arguments, const Streams& streams)
{
    const Source source = Commands::read(arguments, streams);
    const double frames = Commands::framesPerTimeUnit(arguments);
    if (!source.isTable()) {
        const TimeSteps steps = Commands::stepsFor(arguments, source);
        return printSteps(source.valuesOf(frames), steps, streams);
    }
    const SampleTable table = source.getTableOf(arguments.getText("curve"));
    if (!Commands::hasSteps(arguments))
        return print(table.times, table.curves[0].values, streams.out);
    CurveFile lines;
    lines.spline.assign(straightLines(table.times, table.curves[0].values));
    printSteps(CurveValues(lines, frames), Commands::stepsFor(arguments, source), streams);
}

} // namespace

Command Commands::sample()
{
    return {"sample",
            "FILE",
            "Print times and values of a curve, a row for each; \"nan\" where a formula has no value.",
            {fromOption, toOption, stepOption, countOption, fpsOption, curveOption, formatOption,
             decimalOption, helpOption},
            run};
}
