// SPDX-License-Identifier: MIT
#pragma once

#include "Arguments.h"
#include "CurveTool.h"
#include "Source.h"

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

class TimeSteps;

/// One command of the tool. `run` throws a `Fault` or a `UsageFault` where it can't do its work.
struct Command
{
    std::string_view name;
    std::string_view operands;
    std::string_view summary;
    std::vector<Option> options;
    void (*run)(const Arguments& arguments, const Streams& streams);
};

namespace Commands {

Command info();
Command sample();
Command simplify();
Command convert();

/// @name What commands share
/// @{
constexpr Option helpOption{"help", "", "show this help"};
constexpr Option curveOption{"curve", "NAME_OR_NUMBER", "which curve of a table; the only one"};
constexpr Option formatOption{"format", "FORMAT",
                              "of the input: crv, table, sensor, cgats, sp or json; recognised"};
constexpr Option decimalOption{"decimal", "comma|point", "the decimal sign of a table; told by the table"};
constexpr Option fromOption{"from", "TIME", "first time; where the curve begins"};
constexpr Option toOption{"to", "TIME", "last time; where the curve ends"};
constexpr Option stepOption{"step", "TIME", "from one sample to the next"};
constexpr Option countOption{"count", "N", "how many samples, both ends among them; 101"};
constexpr Option fpsOption{"fps", "N", "frames per time unit, for formulas that read f; 10"};
constexpr Option toleranceOption{"tolerance", "X", "how far the new curve may be away from the old values"};
constexpr Option percentOption{"percent", "", "the tolerance is in percent of the span of the values"};
constexpr Option monotoneOption{"monotone", "", "keep the curve rising, and falling, where the old one is"};

/// By the least and the greatest value of a curve, in value units.
using KeysTolerance = std::function<double(double lowest, double highest)>;
/// How exact keys are taken where nobody says it.
double usualKeysTolerance(double lowest, double highest);
Source read(const Arguments& arguments, const Streams& streams,
            const KeysTolerance& tolerance = usualKeysTolerance);
double framesPerTimeUnit(const Arguments& arguments);
/// True if the times of samples are asked for.
bool hasSteps(const Arguments& arguments);
/// What the options say, the ends of the source where they say nothing.
TimeSteps stepsFor(const Arguments& arguments, const Source& source);
/// The curve, or each curve of `table`, which is that of `source`, at these times.
SampleTable sample(const Source& source, const SampleTable& table, const TimeSteps& steps, double frames);
/// The tolerance in value units.
double toleranceFor(const Arguments& arguments, double lowest, double highest);
/// @}

} // namespace Commands
