// SPDX-License-Identifier: MIT
#include <curveeditor/edit/ViewStep.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace curveeditor {

namespace {

constexpr double shortestSide = 1e-9;
constexpr double shortestShareOfPosition = 0.0002;
constexpr double timeMargin = 0.05; // shares of the span
constexpr double valueMargin = 0.1;

using ViewStep::shortestSpanAt;

AxisRange united(const AxisRange& left, const AxisRange& right)
{
    return {std::min(left.low, right.low), std::max(left.high, right.high)};
}

/// `wanted` as far as the limits let it: shorter, then moved.
AxisRange within(const AxisRange& wanted, const AxisRange& present, const AxisRange& limits)
{
    const AxisRange bounds = united(present, limits);
    if (wanted.span() >= bounds.span())
        return bounds;
    if (wanted.low < bounds.low)
        return {bounds.low, bounds.low + wanted.span()};
    if (wanted.high > bounds.high)
        return {bounds.high - wanted.span(), bounds.high};
    return wanted;
}

AxisRange zoomedAxis(const AxisRange& present, const AxisRange& limits, double share, double factor)
{
    const double anchor = present.low + share * present.span();
    const double shortest = std::min(shortestSpanAt(anchor), present.span());
    const double span = std::max(present.span() * factor, shortest);
    return within({anchor - share * span, anchor + (1.0 - share) * span}, present, limits);
}

AxisRange movedAxis(const AxisRange& present, const AxisRange& limits, double distance)
{
    const AxisRange bounds = united(present, limits);
    const double bounded = std::clamp(distance, bounds.low - present.low, bounds.high - present.high);
    return {present.low + bounded, present.high + bounded};
}

/// With at least the shortest span about its middle.
AxisRange widened(const AxisRange& range, double emptySpan)
{
    const double middle = range.low + range.span() / 2.0;
    const double span = range.span() > 0.0 ? std::max(range.span(), shortestSpanAt(middle)) : emptySpan;
    return {middle - span / 2.0, middle + span / 2.0};
}

AxisRange timesOf(const PlaneMapping& view)
{
    return {view.timeMin, view.timeMax};
}

AxisRange valuesOf(const PlaneMapping& view)
{
    return {view.valueMin, view.valueMax};
}

/// As long as it must be, where it may be.
AxisRange placedAxis(const AxisRange& wanted, const AxisRange& present, const AxisRange& limits)
{
    const double middle = wanted.low + wanted.span() / 2.0;
    const double missing = std::max(shortestSpanAt(middle) - wanted.span(), 0.0);
    return within({wanted.low - missing / 2.0, wanted.high + missing / 2.0}, present, limits);
}

bool hasSpan(const AxisRange& range)
{
    return std::isfinite(range.span()) && range.span() > 0.0;
}

PlaneMapping viewOf(const PlaneMapping& before, const AxisRange& times, const AxisRange& values)
{
    const PlaneMapping view(times.low, times.high, values.low, values.high, before.pixelWidth,
                            before.pixelHeight);
    return view.canShow() ? view : before;
}

AxisRange withMargin(const AxisRange& range, double usualSpan, double share)
{
    const AxisRange shown = widened(range, usualSpan);
    const double margin = range.span() > 0.0 ? shown.span() * share : 0.0;
    return {shown.low - margin, shown.high + margin};
}

} // namespace

double ViewStep::shortestSpanAt(double position)
{
    return std::max(shortestSide, std::abs(position) * shortestShareOfPosition);
}

AxisRange AxisRange::nothing()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return {infinity, -infinity};
}

void AxisRange::include(double number)
{
    if (number < low)
        low = number;
    if (number > high)
        high = number;
}

PlaneMapping ViewStep::zoomed(const PlaneMapping& view, const Limits& limits, const QPointF& pixel,
                              double timeFactor, double valueFactor)
{
    if (!view.canShow() || !(timeFactor > 0.0) || !(valueFactor > 0.0))
        return view;
    const double fromLeft = view.shareOfWidth(pixel.x());
    const double fromBottom = 1.0 - view.shareOfHeight(pixel.y());
    return viewOf(view, zoomedAxis(timesOf(view), limits.time, fromLeft, timeFactor),
                  zoomedAxis(valuesOf(view), limits.value, fromBottom, valueFactor));
}

PlaneMapping ViewStep::panned(const PlaneMapping& view, const Limits& limits, const QPointF& distance)
{
    if (!view.canShow())
        return view;
    const double time = -view.timeOfPixels(distance.x());
    const double value = view.valueOfPixels(distance.y());
    return viewOf(view, movedAxis(timesOf(view), limits.time, time),
                  movedAxis(valuesOf(view), limits.value, value));
}

PlaneMapping ViewStep::showing(const PlaneMapping& view, const Limits& limits, const AxisRange& times,
                               const AxisRange& values)
{
    if (!view.canShow())
        return view;
    const AxisRange shownTimes = withMargin(times, view.timeSpan(), timeMargin);
    const AxisRange shownValues = withMargin(values, view.valueSpan(), valueMargin);
    return viewOf(view, within(shownTimes, limits.time, limits.time),
                  within(shownValues, limits.value, limits.value));
}

PlaneMapping ViewStep::placed(const PlaneMapping& view, const Limits& limits, const AxisRange& times,
                              const AxisRange& values)
{
    if (!hasSpan(times) || !hasSpan(values))
        return view;
    const AxisRange shownTimes = placedAxis(times, timesOf(view), limits.time);
    const AxisRange shownValues = placedAxis(values, valuesOf(view), limits.value);
    if (!hasSpan(shownTimes) || !hasSpan(shownValues))
        return view;
    return {shownTimes.low,   shownTimes.high, shownValues.low,
            shownValues.high, view.pixelWidth, view.pixelHeight};
}

} // namespace curveeditor
