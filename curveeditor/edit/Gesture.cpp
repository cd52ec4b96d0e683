// SPDX-License-Identifier: MIT
#include <curveeditor/edit/Gesture.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double scalePerView = 5.0;

} // namespace

void Gesture::beginAtPoints(const SplineBase& spline, const Selection& selection, SplineEdits::Part part,
                            const Place& anchor)
{
    *this = Gesture();
    const std::vector<PointSerial> serials = selection.edited();
    const std::vector<std::int32_t> indices = indicesOf(serials, spline);
    for (std::size_t i = 0; i < serials.size(); ++i) {
        if (indices[i] < 0)
            continue;
        const SplineBase::PointInfo& point = *spline.getControlPoints()[std::size_t(indices[i])];
        points_.push_back({serials[i], {point.time, point.pos}, point.time});
    }
    isMultiple_ = selection.hasMultiple();
    part_ = isMultiple_ ? SplineEdits::Part::Point : part;
    kind_ = part_ == SplineEdits::Part::Point ? Kind::Points : Kind::Tangent;
    anchor_ = last_ = anchor;
}

void Gesture::beginAtView(Kind kind, const PlaneMapping& start)
{
    *this = Gesture();
    kind_ = kind;
    start_ = start;
}

void Gesture::end()
{
    *this = Gesture();
}

void Gesture::cancel()
{
    end();
    kind_ = Kind::Cancelled;
}

TimeInterval Gesture::step(SplineBase& spline, const Place& place, bool scaling, const PlaneMapping& view)
{
    if (scaling != isScaling_)
        beginLeg(spline, last_, scaling);
    last_ = place;
    TimeInterval touched = influence(spline);
    if (kind_ == Kind::Tangent)
        aim(spline, place);
    for (Point& point : points_) {
        const std::int32_t index = indexOf(point, spline);
        if (kind_ != Kind::Points || index < 0)
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

Gesture::Place Gesture::grabbed(const PlaneMapping& view) const
{
    const auto distance = [&](const Point& point) {
        return std::abs(view.column(point.start.time) - view.column(anchor_.time)) +
               std::abs(view.row(point.start.value) - view.row(anchor_.value));
    };
    const auto nearest =
        std::min_element(points_.begin(), points_.end(), [&](const Point& left, const Point& right) {
            return distance(left) < distance(right);
        });
    return nearest == points_.end() ? anchor_ : nearest->start;
}

std::vector<PointSerial> Gesture::points() const
{
    std::vector<PointSerial> serials;
    for (const Point& point : points_)
        serials.push_back(point.serial);
    return serials;
}

void Gesture::beginLeg(const SplineBase& spline, const Place& anchor, bool scaling)
{
    isScaling_ = scaling;
    anchor_ = anchor;
    for (Point& point : points_) {
        const std::int32_t index = indexOf(point, spline);
        if (index >= 0) {
            const SplineBase::PointInfo& present = *spline.getControlPoints()[std::size_t(index)];
            point.start = {present.time, present.pos};
        }
    }
}

Gesture::Place Gesture::target(const Point& point, const Place& place, const PlaneMapping& view) const
{
    if (!isMultiple_)
        return place;
    const double time = place.time - anchor_.time;
    const double value = place.value - anchor_.value;
    if (!isScaling_)
        return {point.start.time + time, point.start.value + value};
    return {point.start.time * std::pow(scalePerView, time / view.timeSpan()),
            point.start.value * std::pow(scalePerView, value / view.valueSpan())};
}

std::int32_t Gesture::indexOf(const Point& point, const SplineBase& spline)
{
    return spline.findIndex(point.serial, point.near);
}

TimeInterval Gesture::influence(const SplineBase& spline) const
{
    TimeInterval interval;
    for (const Point& point : points_) {
        const std::int32_t index = indexOf(point, spline);
        if (index >= 0)
            interval.unite(influenceOf(spline, std::size_t(index)));
    }
    return interval;
}

void Gesture::aim(SplineBase& spline, const Place& place) const
{
    for (const Point& point : points_)
        SplineEdits::aimTangent(spline, point.serial, part_, place.time, place.value);
}
