// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "CurveText.h"
#include "Fault.h"
#include "Sampling.h"
#include "TextFiles.h"
#include "TextNumber.h"

#include <curveeditor/model/CurveFit.h>

#include <algorithm>
#include <ostream>

namespace {

constexpr std::size_t longWork = 100'000; // samples

CurveFit::Result simplified(const Source& source, const SampleTable& table, const Arguments& arguments)
{
    CurveFit::Options options;
    options.monotone = arguments.has("monotone");
    if (!source.isTable()) {
        const auto [lowest, highest] = rangeOf(source.getCurve().spline);
        options.tolerance = Commands::toleranceFor(arguments, lowest, highest);
        return CurveFit::simplify(source.getCurve().spline, options);
    }
    const std::vector<double>& values = table.curves[0].values;
    const auto [lowest, highest] = std::minmax_element(values.begin(), values.end());
    options.tolerance = Commands::toleranceFor(arguments, *lowest, *highest);
    return CurveFit::fit(table.times, values, options);
}

void run(const Arguments& arguments, const Streams& streams)
{
    const std::optional<std::string> output = arguments.getText("output");
    if (!output)
        throw UsageFault("-o is missing: where to write the curve");
    Commands::toleranceFor(arguments, 0.0, 0.0);
    const Source source = Commands::read(arguments, streams);
    if (!source.isTable() && source.getCurve().kind == CurveFile::Expression)
        source.fail("a formula has no points; \"convert --step X --tolerance Y\" makes a spline of it");

    const SampleTable table =
        source.isTable() ? source.getTableOf(arguments.getText("curve")) : SampleTable();
    const SplineState before = source.isTable() ? straightLines(table.times, table.curves[0].values)
                                                : source.getCurve().spline.state();
    if (streams.isTerminal && before.points.size() * CurveFit::samplesInSegment > longWork)
        streams.messages << "simplifying " << before.points.size() << " points...\n" << std::flush;
    const CurveFit::Result result = simplified(source, table, arguments);
    if (!result.isDone())
        source.fail("the points can't be simplified");

    CurveFile curve;
    curve.color = source.isTable() ? CurveFile::Color{255, 255, 255} : source.getCurve().color;
    const bool isShorter = result.spline.points.size() < before.points.size();
    curve.spline.assign(isShorter ? result.spline : before);
    TextFiles::write(*output, writeCurveText(curve), streams.out);
    if (isShorter) {
        streams.messages << before.points.size() << " points become " << result.spline.points.size()
                         << ", at most " << toShortLimit(result.deviation) << " away\n";
    } else {
        streams.messages << before.points.size() << " points stay; fewer would be too far away\n";
    }
}

} // namespace

Command Commands::simplify()
{
    return {"simplify",
            "FILE",
            "Write a curve of fewer points that is at most the tolerance away from the old one.",
            {{"output", "OUT", "the new curve file (-o OUT)"},
             toleranceOption,
             percentOption,
             monotoneOption,
             curveOption,
             formatOption,
             decimalOption,
             helpOption},
            run};
}
