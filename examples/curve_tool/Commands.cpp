// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "Fault.h"
#include "Sampling.h"
#include "TextNumber.h"

#include <curveeditor/files/TextFields.h>

#include <cmath>
#include <utility>

namespace {

constexpr double usualFramesPerTimeUnit = 10.0; // what a new editor has
constexpr double usualCount = 101.0;
constexpr double usualShareOfKeys = 1e-4; // of the span of their values

std::pair<double, double> endsOf(const Arguments& arguments, const Source& source)
{
    const std::optional<double> from = arguments.getNumber("from");
    const std::optional<double> to = arguments.getNumber("to");
    if (from && to)
        return {*from, *to};
    if (!source.isTable() && source.getCurve().kind == CurveFile::Expression)
        throw UsageFault("a formula has no ends; give --from and --to");
    const bool isTable = source.isTable();
    const double first =
        isTable ? source.getTable().times.front() : source.getCurve().spline.getFirst()->time;
    const double last = isTable ? source.getTable().times.back() : source.getCurve().spline.getLast()->time;
    return {from.value_or(first), to.value_or(last)};
}

TableReader::Decimal decimalOf(const Arguments& arguments)
{
    const std::optional<std::string> name = arguments.getText("decimal");
    if (name && *name != "comma" && *name != "point")
        throw UsageFault("--decimal: " + TextFields::inQuotes(*name) + " is neither comma nor point");
    return !name              ? TableReader::Decimal::FromText
           : *name == "comma" ? TableReader::Decimal::Comma
                              : TableReader::Decimal::Point;
}

} // namespace

Source Commands::read(const Arguments& arguments, const Streams& streams, const KeysTolerance& tolerance)
{
    const std::optional<std::string> name = arguments.getText("format");
    const std::optional<Format> format = name ? formatNamed(*name) : std::nullopt;
    if (name && !format)
        throw UsageFault("--format: " + TextFields::inQuotes(*name) +
                         " is none of crv, table, sensor, cgats, sp and json");
    return Source(arguments.getOperands().front(), {format, decimalOf(arguments), tolerance}, streams);
}

double Commands::usualKeysTolerance(double lowest, double highest)
{
    return usualShareOfKeys * highest - usualShareOfKeys * lowest;
}

double Commands::framesPerTimeUnit(const Arguments& arguments)
{
    return arguments.getPositive("fps").value_or(usualFramesPerTimeUnit);
}

bool Commands::hasSteps(const Arguments& arguments)
{
    return arguments.has("from") || arguments.has("to") || arguments.has("step") || arguments.has("count");
}

TimeSteps Commands::stepsFor(const Arguments& arguments, const Source& source)
{
    const std::optional<double> step = arguments.getPositive("step");
    const std::optional<double> count = arguments.getPositive("count");
    if (step && count)
        throw UsageFault("--step and --count exclude each other");
    if (count && *count != std::floor(*count))
        throw UsageFault("--count takes a whole number");
    const auto [from, to] = endsOf(arguments, source);
    if (from > to)
        throw UsageFault("the times end at " + toText(to) + ", before they begin at " + toText(from));
    if (step)
        return TimeSteps::byStep(from, to, *step);
    return TimeSteps::byCount(from, to, count.value_or(from < to ? usualCount : 1.0));
}

SampleTable Commands::sample(const Source& source, const SampleTable& table, const TimeSteps& steps,
                             double frames)
{
    if (!source.isTable())
        return source.valuesOf(frames).sample(steps, source.getStem());
    if (steps.size() > SampleTable::mostValues / table.curves.size())
        throw UsageFault("these are more than " + std::to_string(SampleTable::mostValues) + " samples");
    SampleTable sampled;
    sampled.timeName = table.timeName;
    for (const SampleTable::Curve& curve : table.curves) {
        CurveFile lines;
        lines.spline.assign(straightLines(table.times, curve.values));
        SampleTable one = CurveValues(lines, frames).sample(steps, curve.name);
        sampled.times = std::move(one.times);
        sampled.curves.push_back(std::move(one.curves[0]));
    }
    return sampled;
}

double Commands::toleranceFor(const Arguments& arguments, double lowest, double highest)
{
    const std::optional<double> tolerance = arguments.getNumber("tolerance");
    if (!tolerance)
        throw UsageFault("--tolerance is missing");
    if (!(*tolerance >= 0.0))
        throw UsageFault("--tolerance has to be 0 or more");
    if (!arguments.has("percent"))
        return *tolerance;
    const double share = *tolerance / 100.0;
    return share * highest - share * lowest;
}
