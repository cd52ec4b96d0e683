// SPDX-License-Identifier: MIT
#include <curveeditor/edit/OwnScale.h>

#include <algorithm>
#include <cmath>

namespace curveeditor {

namespace {

constexpr double freeShare = 0.1;
constexpr double widestBounds = 1e9;
constexpr double largestBound = 1e300; // so that margins and spans are finite
constexpr AxisRange unitScale{0.0, 1.0};

AxisRange valuesSeenIn(const PlaneMapping& view)
{
    return {view.valueMin, view.valueMax};
}

PlaneMapping planeWith(const AxisRange& values, const PlaneMapping& view)
{
    return {view.timeMin, view.timeMax, values.low, values.high, view.pixelWidth, view.pixelHeight};
}

/// The values at these heights of a scale.
AxisRange partOf(const AxisRange& scale, const AxisRange& heights)
{
    return {scale.low + heights.low * scale.span(), scale.low + heights.high * scale.span()};
}

} // namespace

AxisRange OwnScale::of(const AxisRange& values, const AxisRange& bounds)
{
    if (values.isNothing())
        return unitScale;
    AxisRange scale{std::clamp(values.low, -largestBound, largestBound),
                    std::clamp(values.high, -largestBound, largestBound)};
    const double shortest = ViewStep::shortestSpanAt(scale.low + scale.span() / 2.0);
    if (scale.span() < shortest) {
        const bool isBounded = bounds.span() > shortest && bounds.span() < widestBounds;
        const double room = std::max(0.5, shortest);
        const AxisRange around = isBounded ? bounds : AxisRange{scale.low - room, scale.low + room};
        scale.include(around.low);
        scale.include(around.high);
        if (!isBounded)
            return scale;
    }
    const double margin = scale.span() * freeShare;
    return {scale.low - margin, scale.high + margin};
}

void OwnScale::switchOn(const PlaneMapping& view)
{
    isOn_ = true;
    shared_ = values_ = valuesSeenIn(view);
    scale_ = AxisRange::nothing();
    heights_ = unitScale;
}

PlaneMapping OwnScale::switchedOff(const PlaneMapping& view)
{
    isOn_ = false;
    return planeWith(shared_, view);
}

/// The same to the last bit until the view shows other values.
AxisRange OwnScale::heightsIn(const PlaneMapping& view) const
{
    if (valuesSeenIn(view) == values_)
        return heights_;
    return {(view.valueMin - scale_.low) / scale_.span(), (view.valueMax - scale_.low) / scale_.span()};
}

AxisRange OwnScale::valuesAt(const AxisRange& heights) const
{
    return partOf(scale_.isNothing() ? unitScale : scale_, heights);
}

PlaneMapping OwnScale::planeOf(const AxisRange& scale, const PlaneMapping& view) const
{
    return !isOn_ || scale == scale_ ? view : planeWith(partOf(scale, heightsIn(view)), view);
}

PlaneMapping OwnScale::followed(const AxisRange& scale, const PlaneMapping& view)
{
    if (!isOn_ || scale == scale_)
        return view;
    heights_ = heightsIn(view);
    if (!(heights_.span() > 0.0) || !std::isfinite(heights_.span()))
        heights_ = unitScale;
    const PlaneMapping plane = planeWith(partOf(scale, heights_), view);
    scale_ = scale;
    values_ = valuesSeenIn(plane);
    return plane;
}

PointDrag::Place placeIn(const PlaneMapping& plane, const PointDrag::Place& place, const PlaneMapping& from)
{
    return plane == from ? place : PointDrag::Place{place.time, plane.valueAt(from.row(place.value))};
}

} // namespace curveeditor
