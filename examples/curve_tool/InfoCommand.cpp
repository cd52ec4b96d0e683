// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "Sampling.h"
#include "TextFiles.h"
#include "TextNumber.h"

#include "Fault.h"

#include <curveeditor/files/TextFields.h>

#include <algorithm>
#include <array>
#include <ostream>

namespace {

std::string span(double first, double last)
{
    return toText(first) + " to " + toText(last);
}

std::string nameOf(std::int32_t behaviour)
{
    constexpr std::array names{"Zero", "Constant", "Loop", "Loop offset", "Follow Tangent"};
    return names.at(std::size_t(behaviour));
}

void tellSpline(const SplineBase& spline, std::ostream& out)
{
    const auto [lowest, highest] = rangeOf(spline);
    out << "points: " << spline.getControlPointsNumber() << '\n'
        << "time: " << span(spline.getFirst()->time, spline.getLast()->time) << '\n'
        << "values: " << span(lowest, highest) << '\n'
        << "before: " << nameOf(spline.firstType) << '\n'
        << "after: " << nameOf(spline.lastType) << '\n'
        << "default value: " << toText(spline.getDefaultValue()) << '\n';
}

void tellFormula(const std::string& formula, std::ostream& out)
{
    out << "formula: " << TextFields::printable(formula) << '\n';
    std::string names;
    for (const std::string& name : CurveValues::variablesOf(formula))
        names += ' ' + name;
    out << "reads:" << (names.empty() ? " nothing" : names) << '\n';
}

void tellCurve(const Source& source, std::ostream& out)
{
    const CurveFile& curve = source.getCurve();
    const bool isSpline = curve.kind == CurveFile::Spline;
    out << "kind: " << (isSpline ? "spline" : "formula") << '\n'
        << "colour: " << curve.color.red << ' ' << curve.color.green << ' ' << curve.color.blue << '\n';
    if (isSpline)
        return tellSpline(curve.spline, out);
    try {
        tellFormula(curve.expression, out);
    } catch (const Fault& fault) {
        source.failAtFormula(fault.what());
    }
}

void tellTable(const SampleTable& table, std::ostream& out)
{
    out << "curves: " << table.curves.size() << '\n'
        << "samples: " << table.times.size() << " in each\n"
        << "time: " << span(table.times.front(), table.times.back()) << '\n';
    for (std::size_t i = 0; i < table.curves.size(); ++i) {
        const auto& [name, values] = table.curves[i];
        const auto [lowest, highest] = std::minmax_element(values.begin(), values.end());
        out << "curve " << i + 1 << ": " << TextFields::inQuotes(name) << ' ' << span(*lowest, *highest)
            << '\n';
    }
}

void run(const Arguments& arguments, const Streams& streams)
{
    const Source source = Commands::read(arguments, streams);
    streams.out << "file: " << TextFiles::shownName(arguments.getOperands()[0]) << '\n'
                << "format: " << describe(source.getFormat()) << '\n';
    if (source.getNorm())
        streams.out << "norm: " << toText(*source.getNorm()) << '\n';
    const std::optional<std::string> choice = arguments.getText("curve");
    if (!source.isTable()) {
        tellCurve(source, streams.out);
    } else {
        tellTable(choice ? source.getTableOf(choice) : source.getTable(), streams.out);
    }
}

} // namespace

Command Commands::info()
{
    return {"info",
            "FILE",
            "Tell what a file holds.",
            {{curveOption.name, curveOption.value, "only this curve of a table"},
             formatOption,
             decimalOption,
             helpOption},
            run};
}
