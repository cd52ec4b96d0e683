// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PointDrag.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace curveeditor {

namespace {

constexpr double scalePerView = 5.0;
/// From one point of so many on it is faster to look at all points than to find the place of each.
constexpr std::size_t shareMovedAtOnce = 64;

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
        points_.push_back({serials[i], {point.time, point.pos}, point.time, indices[i]});
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
    else if (points_.size() <= spline.getControlPointsNumber() / shareMovedAtOnce ||
             !moveInPlace(spline, place))
        moveEach(spline, place);
    touched.unite(influence(spline));
    return touched;
}

void PointDrag::moveEach(SplineBase& spline, const Place& place)
{
    for (Point& point : points_) {
        const std::int32_t index = indexOf(point, spline);
        if (index < 0)
            continue;
        const Place goal = target(point, place, view_);
        SplineBase::PointInfo* const moved = spline.modify(static_cast<unsigned>(index));
        spline.setTime(moved, goal.time);
        spline.setPos(moved, goal.value);
        point.near = moved->time;
    }
}

/// Whether no point passes another one that stays, nor comes to lie on one behind it, so that all keep their indices.
bool PointDrag::keepOrder(const SplineBase& spline, const std::vector<Place>& goals) const
{
    const auto& held = spline.getControlPoints();
    for (std::size_t i = 0; i < goals.size(); ++i) {
        const std::size_t index = std::size_t(points_[i].index);
        const bool followsMoved = i > 0 && index == std::size_t(points_[i - 1].index) + 1;
        const bool precedesMoved = i + 1 < goals.size() && index + 1 == std::size_t(points_[i + 1].index);
        if ((i > 0 && points_[i - 1].index >= points_[i].index) || !std::isfinite(goals[i].time) ||
            (followsMoved ? goals[i].time < goals[i - 1].time
                          : index > 0 && goals[i].time < held[index - 1]->time) ||
            (!precedesMoved && index + 1 < held.size() && goals[i].time >= held[index + 1]->time))
            return false;
    }
    return true;
}

/// Moves all points at once, if that is the same as moving one after the other.
bool PointDrag::moveInPlace(SplineBase& spline, const Place& place)
{
    std::vector<Place> goals;
    for (Point& point : points_) {
        point.index = indexOf(point, spline);
        if (point.index < 0)
            return false;
        goals.push_back(target(point, place, view_));
    }
    if (!keepOrder(spline, goals))
        return false;
    for (std::size_t i = 0; i < goals.size(); ++i) {
        SplineBase::PointInfo& moved = *spline.modify(points_[i].index);
        moved.time = points_[i].near = goals[i].time;
        spline.setPos(&moved, goals[i].value);
    }
    spline.mend();
    return true;
}

std::vector<PointSerial> PointDrag::points() const
{
    std::vector<PointSerial> serials;
    for (const Point& point : points_)
        serials.push_back(point.serial);
    return serials;
}

std::vector<std::int32_t> PointDrag::indices(const SplineBase& spline) const
{
    std::vector<std::int32_t> found;
    for (const Point& point : points_) {
        const std::int32_t index = indexOf(point, spline);
        if (index >= 0)
            found.push_back(index);
    }
    return found;
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
    const SplineBase::PointInfo* const there = spline.getControlPoints().size() > std::size_t(point.index)
                                                   ? spline.getControlPoints()[std::size_t(point.index)]
                                                   : nullptr;
    if (there && there->serial == point.serial)
        return point.index;
    return spline.findIndex(point.serial, point.near);
}

/// Of two points the later one reaches as far to the right, and the earlier one to the left.
TimeInterval PointDrag::influence(const SplineBase& spline) const
{
    std::int32_t first = std::numeric_limits<std::int32_t>::max();
    std::int32_t last = -1;
    for (const Point& point : points_) {
        const std::int32_t index = indexOf(point, spline);
        first = index < 0 ? first : std::min(first, index);
        last = std::max(last, index);
    }
    if (last < 0)
        return {};
    TimeInterval interval = influenceOf(spline, std::size_t(first));
    interval.unite(influenceOf(spline, std::size_t(last)));
    return interval;
}

void PointDrag::aim(SplineBase& spline, const Place& place) const
{
    for (const Point& point : points_)
        SplineEdits::aimTangent(spline, point.serial, part_, place.time, place.value);
}

} // namespace curveeditor
