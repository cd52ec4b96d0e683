// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <limits>

namespace {

constexpr AxisRange nothing{std::numeric_limits<double>::infinity(),
                            -std::numeric_limits<double>::infinity()};

bool isNothing(const AxisRange& range)
{
    return range.low > range.high;
}

} // namespace

void CanvasFunctionBase::showAllCurves()
{
    std::vector<const CurveNodeBase*> all;
    for (const auto& curve : curves_)
        all.push_back(curve.get());
    showCurves(all);
}

void CanvasFunctionBase::showSelection()
{
    if (!viewport_ || !current_)
        return;
    if (!hasSelectedPoint())
        return showCurves({current_});
    AxisRange times = nothing;
    AxisRange values = nothing;
    for (const CurveNodeBase* const curve : selectedCurves()) {
        const SplineBase& spline = *curve->getSpline();
        for (const std::int32_t index : indicesOf(curve->control().selection().edited(), spline)) {
            if (index < 0)
                continue;
            times.include(spline[unsigned(index)]->time);
            values.include(spline[unsigned(index)]->pos);
        }
    }
    showRanges(times, values);
}

/// Formulas have no end: they are shown at the times of the splines, or at those that are visible now.
void CanvasFunctionBase::showCurves(const std::vector<const CurveNodeBase*>& curves)
{
    if (!viewport_ || curves.empty())
        return;
    AxisRange times = nothing;
    for (const CurveNodeBase* const curve : curves) {
        if (!curve->isSpline() || !curve->getSpline())
            continue;
        times.include(curve->getSpline()->getFirst()->time);
        times.include(curve->getSpline()->getLast()->time);
    }
    if (isNothing(times))
        times = {viewport_->timeMin, viewport_->timeMax};
    AxisRange values = nothing;
    for (const CurveNodeBase* const curve : curves)
        curve->includeValues(times, values);
    showRanges(times, values);
}

void CanvasFunctionBase::showRanges(const AxisRange& times, const AxisRange& values)
{
    if (isNothing(times))
        return;
    const AxisRange present{viewport_->valueMin, viewport_->valueMax};
    viewport_->showView(ViewStep::showing(viewport_->mapping(), viewport_->limits(), times,
                                          isNothing(values) ? present : values));
    paint();
}
