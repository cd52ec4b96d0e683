// SPDX-License-Identifier: MIT
#include "TableCurves.h"

#include "CurveStore.h"
#include "DistinctColor.h"
#include "Table.h"

#include <curveeditor/model/CurveFit.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double valueMargin = 0.1;      // of the values' span, above and below
constexpr double smallestHalfSide = 0.5; // of a range whose numbers are all equal
constexpr double farthestLimit = 4e307;  // keeps the side of a range finite

// Makes first ... last a range that has a side, wherever it lies.
void makeRange(double& first, double& last, double margin)
{
    double widening = (last - first) * margin;
    if (!(last > first))
        widening = std::max(smallestHalfSide, std::abs(first) * valueMargin);
    first -= widening;
    last += widening;
}

PlaneRange rangeOf(const Table& table)
{
    const auto limited = [](double number) {
        return std::clamp(number, -farthestLimit, farthestLimit);
    };
    PlaneRange range{limited(table.times.front()), limited(table.times.back()),
                     std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    for (const Table::Column& column : table.columns) {
        const auto [lowest, highest] = std::minmax_element(column.values.begin(), column.values.end());
        range.valueMin = std::min(range.valueMin, limited(*lowest));
        range.valueMax = std::max(range.valueMax, limited(*highest));
    }
    makeRange(range.timeMin, range.timeMax, 0.0);
    makeRange(range.valueMin, range.valueMax, valueMargin);
    return range;
}

/// Fits a curve to the rows, which leaves more freedom than the straight lines between them. Returns false if it has
/// no fewer points than there are rows.
bool fitSpline(SplineBase& spline, const std::vector<double>& times, const std::vector<double>& values,
               double percent)
{
    const auto [lowest, highest] = std::minmax_element(values.begin(), values.end());
    const CurveFit::Result result =
        CurveFit::fit(times, values, {(*highest - *lowest) * percent / 100.0, false});
    return result.isDone() && result.spline.points.size() < times.size() && spline.assign(result.spline);
}

void fillSpline(SplineBase& spline, const std::vector<double>& times, const std::vector<double>& values)
{
    spline.setTime(spline.modify(0), times.front());
    spline.setPos(spline.modify(0), values.front());
    for (std::size_t row = 1; row < times.size(); ++row)
        spline.addPoint(times[row], values[row]);
    for (SplineBase::PointInfo* point : spline.getControlPoints())
        point->type = SplineBase::Linear;
}

} // namespace

void addTableCurves(CurveStore& store, const Table& table, std::optional<double> tolerance)
{
    constexpr float widest = std::numeric_limits<float>::max();
    const PlaneRange range = rangeOf(table);
    for (const Table::Column& column : table.columns) {
        Curve* curve = store.add(column.group, column.curve);
        curve->color = distinctColor(store.getCurves().size());
        curve->range = range;
        curve->minValue = -widest;
        curve->maxValue = widest;
        curve->defaultValue = float(std::clamp(column.values.front(), -double(widest), double(widest)));
        if (!tolerance || !fitSpline(curve->spline, table.times, column.values, *tolerance))
            fillSpline(curve->spline, table.times, column.values);
    }
}
