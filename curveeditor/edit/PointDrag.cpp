// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PointDrag.h>

#include <cmath>

namespace curveeditor {

namespace {

constexpr double scalePerView = 5.0;

} // namespace

PointDrag::PointDrag(const SplineBase& spline, const Selection& selection, SplineEdits::Part part,
                     const Place& anchor, const PlaneMapping& view, bool keepsDistance)
    : part_(keepsDistance ? SplineEdits::Part::Point : part), keepsDistance_(keepsDistance), anchor_(anchor),
      last_(anchor), view_(view)
{
    const std::vector<PointSerial> serials = selection.edited();
    const std::vector<std::int32_t> indices = indicesOf(serials, spline);
    for (std::size_t i = 0; i < serials.size(); ++i) {
        if (indices[i] < 0)
            continue;
        const SplineBase::PointInfo& point = *spline.getControlPoints()[std::size_t(indices[i])];
        points_.push_back({serials[i], {point.time, point.pos}, point.time});
    }
}

TimeInterval PointDrag::step(SplineBase& spline, const Place& place, bool scaling, const PlaneMapping& view)
{
    if (scaling != isScaling_ || (scaling && view != view_))
        beginLeg(spline, movedWith(view));
    isScaling_ = scaling;
    last_ = place;
    view_ = view;
    TimeInterval touched = influence(spline);
    if (isAtTangent())
        aim(spline, place);
    for (Point& point : points_) {
        const std::int32_t index = indexOf(point, spline);
        if (isAtTangent() || index < 0)
            continue;
        const Place goal = target(point, place, view);
        SplineBase::PointInfo* const moved = spline.modify(static_cast<unsigned>(index));
        spline.setTime(moved, goal.time);
        spline.setPos(moved, goal.value);
        point.near = moved->time;
    }
    touched.unite(influence(spline));
    return touched;
}

std::vector<PointSerial> PointDrag::points() const
{
    std::vector<PointSerial> serials;
    for (const Point& point : points_)
        serials.push_back(point.serial);
    return serials;
}

std::vector<PointDrag::Place> PointDrag::starts() const
{
    std::vector<Place> places;
    for (const Point& point : points_)
        places.push_back(point.start);
    return places;
}

/// Where the mouse is in `view`, if it has only been the view that moved.
PointDrag::Place PointDrag::movedWith(const PlaneMapping& view) const
{
    if (view == view_)
        return last_;
    return {view.timeAt(view_.column(last_.time)), view.valueAt(view_.row(last_.value))};
}

void PointDrag::beginLeg(const SplineBase& spline, const Place& anchor)
{
    anchor_ = anchor;
    for (Point& point : points_) {
        const std::int32_t index = indexOf(point, spline);
        if (index >= 0) {
            const SplineBase::PointInfo& present = *spline.getControlPoints()[std::size_t(index)];
            point.start = {present.time, present.pos};
        }
    }
}

PointDrag::Place PointDrag::target(const Point& point, const Place& place, const PlaneMapping& view) const
{
    if (!keepsDistance_)
        return place;
    const double time = place.time - anchor_.time;
    const double value = place.value - anchor_.value;
    if (!isScaling_)
        return {point.start.time + time, point.start.value + value};
    return {point.start.time * std::pow(scalePerView, time / view.timeSpan()),
            point.start.value * std::pow(scalePerView, value / view.valueSpan())};
}

std::int32_t PointDrag::indexOf(const Point& point, const SplineBase& spline)
{
    return spline.findIndex(point.serial, point.near);
}

TimeInterval PointDrag::influence(const SplineBase& spline) const
{
    TimeInterval interval;
    for (const Point& point : points_) {
        const std::int32_t index = indexOf(point, spline);
        if (index >= 0)
            interval.unite(influenceOf(spline, std::size_t(index)));
    }
    return interval;
}

void PointDrag::aim(SplineBase& spline, const Place& place) const
{
    for (const Point& point : points_)
        SplineEdits::aimTangent(spline, point.serial, part_, place.time, place.value);
}

} // namespace curveeditor
