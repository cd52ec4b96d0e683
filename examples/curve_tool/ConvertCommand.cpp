// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "CurveText.h"
#include "Fault.h"
#include "KeysText.h"
#include "Progress.h"
#include "Sampling.h"
#include "TableText.h"
#include "TextFiles.h"
#include "TextNumber.h"

#include <curveeditor/files/SensorTable.h>
#include <curveeditor/files/TextFields.h>
#include <curveeditor/model/CurveFit.h>
#include <curveeditor/model/CurveKeys.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <map>
#include <ostream>
#include <set>
#include <system_error>

namespace {

constexpr std::size_t longestName = 100; // bytes

bool hasValue(const SampleTable& table, std::size_t row)
{
    return std::all_of(table.curves.begin(), table.curves.end(),
                       [row](const SampleTable::Curve& curve) { return std::isfinite(curve.values[row]); });
}

// A formula has no value at some times; what is left of the table rises still.
void leaveOutGaps(const Source& source, SampleTable& table, const Streams& streams)
{
    std::size_t kept = 0;
    for (std::size_t row = 0; row < table.times.size(); ++row) {
        if (!hasValue(table, row))
            continue;
        table.times[kept] = table.times[row];
        for (SampleTable::Curve& curve : table.curves)
            curve.values[kept] = curve.values[row];
        ++kept;
    }
    if (kept == 0)
        source.fail("the curve has no value at any of these times");
    if (kept < table.times.size())
        streams.messages << table.times.size() - kept << " of " << table.times.size()
                         << " times have no value and are left out\n";
    table.times.resize(kept);
    for (SampleTable::Curve& curve : table.curves)
        curve.values.resize(kept);
}

/// A curve may jump between two samples. Then it has both values at that time.
void addJumps(const SplineBase& spline, SampleTable& table)
{
    std::vector<double>& times = table.times;
    std::vector<double>& values = table.curves[0].values;
    for (const CurveFit::Jump& jump : CurveFit::jumpsOf(spline)) {
        if (jump.time < times.front() || jump.time > times.back())
            continue;
        auto at = std::lower_bound(times.begin(), times.end(), jump.time) - times.begin();
        if (times[std::size_t(at)] != jump.time) {
            times.insert(times.begin() + at, jump.time);
            values.insert(values.begin() + at, jump.value);
        }
        times.insert(times.begin() + at, jump.time);
        values.insert(values.begin() + at, jump.before);
    }
}

SplineState splineOf(const std::vector<double>& times, const std::vector<double>& values,
                     const Arguments& arguments)
{
    if (!arguments.has("tolerance"))
        return straightLines(times, values);
    const auto [lowest, highest] = std::minmax_element(values.begin(), values.end());
    CurveFit::Options options;
    options.tolerance = Commands::toleranceFor(arguments, *lowest, *highest);
    options.monotone = arguments.has("monotone");
    return CurveFit::fit(times, values, options).spline;
}

/// Where the curve is to be copied, how far it may be away from what it was.
Commands::KeysTolerance keysTolerance(const Arguments& arguments)
{
    if (!arguments.has("tolerance") || Commands::hasSteps(arguments))
        return Commands::usualKeysTolerance;
    return [&arguments](double lowest, double highest) {
        return Commands::toleranceFor(arguments, lowest, highest);
    };
}

std::string keysText(const CurveFile& curve, const Arguments& arguments, const Streams& streams)
{
    KeysText text;
    text.color = curve.color;
    if (curve.kind == CurveFile::Expression) {
        text.formula = curve.expression;
        return text.write();
    }
    const auto [lowest, highest] = rangeOf(curve.spline);
    CurveKeys::Keys keys = CurveKeys::fromSpline(curve.spline, keysTolerance(arguments)(lowest, highest));
    if (keys.curve.keys.empty())
        throw Fault("the curve takes more than " + std::to_string(CurveKeys::pointLimit) + " keys");
    KeysText::tellDeviation(keys.deviation, streams.messages);
    text.curve = std::move(keys.curve);
    return text.write();
}

std::string textOf(const CurveFile& curve, Format output, const Arguments& arguments, const Streams& streams)
{
    return output == Format::Keys ? keysText(curve, arguments, streams) : writeCurveText(curve);
}

std::string curveText(const Source& source, const SampleTable& table, std::size_t index, Format output,
                      const Arguments& arguments, const Streams& streams)
{
    CurveFile curve;
    curve.color = source.isTable() ? CurveFile::Color{255, 255, 255} : source.getCurve().color;
    curve.spline.assign(splineOf(table.times, table.curves[index].values, arguments));
    return textOf(curve, output, arguments, streams);
}

std::string plainName(const std::string& curve)
{
    std::string name = TextFields::printable(TextFields::shortened(curve, longestName), '_');
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '/' || c == '\\' || c == ':'; }, '_');
    return name.empty() || name.front() == '.' ? '_' + name : name;
}

/// Names that no other curve of the folder has, capitals aside, and that can't leave the folder.
class FileNames
{
public:
    std::string nameFor(const std::string& curve, Format output)
    {
        const std::string name = plainName(curve);
        int& number = numbers_[toUpper(name)];
        std::string unique = number == 0 ? name : name + '-' + std::to_string(number);
        while (!taken_.insert(toUpper(unique)).second)
            unique = name + '-' + std::to_string(++number);
        number = std::max(number, 1) + 1;
        return unique + (output == Format::Keys ? ".json" : ".crv");
    }

private:
    std::set<std::string> taken_;
    std::map<std::string, int> numbers_; // the next one for a name that is there already
};

void writeAll(const Source& source, const SampleTable& table, Format output, const Arguments& arguments,
              const Streams& streams)
{
    const std::filesystem::path folder = TextFiles::toPath(*arguments.getText("all"));
    std::error_code error;
    std::filesystem::create_directory(folder, error);
    if (!std::filesystem::is_directory(folder))
        throw Fault(*arguments.getText("all") + ": " + (error ? error.message() : "is no directory"));
    Progress progress(streams.terminal(), "writing");
    FileNames names;
    for (std::size_t i = 0; i < table.curves.size(); ++i) {
        const std::filesystem::path file =
            folder / TextFiles::toPath(names.nameFor(table.curves[i].name, output));
        TextFiles::write(TextFiles::toName(file), curveText(source, table, i, output, arguments, streams),
                         streams.out);
        progress.at(i, table.curves.size());
    }
}

std::string outputPath(const Arguments& arguments)
{
    return arguments.has("output") ? *arguments.getText("output") : arguments.getOperands()[1];
}

bool isOneCurve(Format format)
{
    return format == Format::Curve || format == Format::Keys;
}

Format outputFormat(const Arguments& arguments, const Source& source)
{
    const std::optional<std::string> name = arguments.getText("output-format");
    if (name == "crv")
        return Format::Curve;
    if (name == "table")
        return Format::Table;
    if (name == "sensor")
        return Format::Sensor;
    if (name == "json")
        return Format::Keys;
    if (name)
        throw UsageFault("--output-format: " + TextFields::inQuotes(*name) +
                         " is none of crv, table, sensor and json");
    if (arguments.has("all"))
        return Format::Curve;
    const std::optional<Format> format = formatByEnding(outputPath(arguments));
    if (format == Format::Spectra)
        throw UsageFault("spectra can be read, but not written");
    return format.value_or(source.isTable() ? Format::Curve : Format::Table);
}

TimeSteps wholeNumbers(const Arguments& arguments, const Source& source)
{
    constexpr double limit = std::numeric_limits<int>::max();
    if (arguments.has("step") || arguments.has("count"))
        throw UsageFault(
            "a sensor table has a row for each whole number; --step and --count can't change it");
    const TimeSteps ends = Commands::stepsFor(arguments, source);
    const double first = std::ceil(ends.at(0));
    const double last = std::floor(ends.at(ends.size() - 1));
    if (!(first >= -limit && last <= limit && last - first < double(SensorTable::maximumRows)))
        throw UsageFault("a sensor table has at most " + std::to_string(SensorTable::maximumRows) +
                         " rows, for whole numbers of 32 bits");
    if (first > last)
        throw UsageFault("there is no whole number among these times");
    return TimeSteps::byStep(first, last, 1.0);
}

SampleTable samplesFor(Format output, const Arguments& arguments, const Source& source)
{
    const std::optional<std::string> choice = arguments.getText("curve");
    const bool isOne = choice || (isOneCurve(output) && !arguments.has("all"));
    SampleTable table;
    if (source.isTable())
        table = isOne ? source.getTableOf(choice) : source.getTable();
    const double frames = Commands::framesPerTimeUnit(arguments);
    if (output == Format::Sensor)
        return Commands::sample(source, table, wholeNumbers(arguments, source), frames);
    if (source.isTable() && !Commands::hasSteps(arguments))
        return table;
    return Commands::sample(source, table, Commands::stepsFor(arguments, source), frames);
}

void checkArguments(const Arguments& arguments)
{
    if (arguments.has("all") + arguments.has("output") + (arguments.getOperands().size() == 2) != 1)
        throw UsageFault("give either -o OUT or --all DIR");
    if (arguments.has("all") && arguments.has("curve"))
        throw UsageFault("--all and --curve exclude each other");
    if (arguments.has("tolerance"))
        Commands::toleranceFor(arguments, 0.0, 0.0);
}

void run(const Arguments& arguments, const Streams& streams)
{
    checkArguments(arguments);
    const Source source = Commands::read(arguments, streams, keysTolerance(arguments));
    const Format output = outputFormat(arguments, source);
    if (arguments.has("all") && !isOneCurve(output))
        throw UsageFault("--all writes curve files and keys only");
    if (arguments.has("tolerance") && !isOneCurve(output))
        throw UsageFault("--tolerance is for curve files and keys only");

    const bool copies = isOneCurve(output) && !source.isTable() && !Commands::hasSteps(arguments);
    const bool fitsKeys = source.getFormat() == Format::Keys || output == Format::Keys;
    if (copies && arguments.has("tolerance") && !fitsKeys)
        throw UsageFault("--tolerance fits samples, so give --step or --count too; or see \"simplify\"");
    if (copies && arguments.has("all"))
        throw UsageFault("--all is for tables");
    const std::string path = arguments.has("all") ? std::string() : outputPath(arguments);
    if (copies)
        return TextFiles::write(path, textOf(source.getCurve(), output, arguments, streams), streams.out);

    SampleTable table = samplesFor(output, arguments, source);
    if (output != Format::Sensor)
        leaveOutGaps(source, table, streams);
    if (isOneCurve(output) && !source.isTable() && source.getCurve().kind == CurveFile::Spline)
        addJumps(source.getCurve().spline, table);
    if (arguments.has("all"))
        return writeAll(source, table, output, arguments, streams);
    const std::size_t dot = path.rfind('.');
    const bool isCsv = dot != path.npos && toUpper(path.substr(dot)) == ".CSV";
    TextFiles::write(path,
                     isOneCurve(output)         ? curveText(source, table, 0, output, arguments, streams)
                     : output == Format::Sensor ? TableText::writeSensor(table)
                                                : TableText::write(table, isCsv ? ',' : '\t'),
                     streams.out);
}

} // namespace

Command Commands::convert()
{
    return {
        "convert",
        "IN OUT",
        "Turn curves into tables or keys, and tables, spectra or keys into curves.",
        {{"output-format", "FORMAT",
          "of the output: crv, table, sensor or json; by the ending of OUT: .crv, .csv, .txt, .tsv, .json"},
         {"output", "OUT", "the new file (-o OUT), if it does not stand behind IN"},
         {"all", "DIR", "instead of OUT: write each curve of a table into a file of this folder"},
         curveOption,
         formatOption,
         decimalOption,
         fromOption,
         toOption,
         stepOption,
         countOption,
         fpsOption,
         {"tolerance", "X",
          "fit few points to the samples, at most this far away; else a point for each. Of keys: how far off "
          "a curve "
          "may be that has to be fitted; 0.01 percent"},
         percentOption,
         monotoneOption,
         helpOption},
        run};
}
