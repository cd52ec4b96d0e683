// SPDX-License-Identifier: MIT
#include <curveeditor/edit/Selection.h>

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace curveeditor {

namespace {

constexpr std::size_t fewPoints = 4; // are found by looking at all points of a spline for each

/// The index of the point, -1 for none. Hands ask for the same point again and again, so the last one is tried first.
std::int32_t indexOf(PointSerial point, const SplineBase& spline)
{
    thread_local std::size_t last = 0;
    const auto& held = spline.getControlPoints();
    if (point == 0)
        return -1;
    if (last < held.size() && held[last]->serial == point)
        return std::int32_t(last);
    const auto place =
        std::find_if(held.begin(), held.end(), [point](const auto* other) { return other->serial == point; });
    if (place == held.end())
        return -1;
    last = std::size_t(place - held.begin());
    return std::int32_t(last);
}

/// Many points mostly stand in the order of the spline. Returns false if they do not, or one is missing.
bool findInOrder(const std::vector<PointSerial>& points, const SplineBase& spline,
                 std::vector<std::int32_t>& indices)
{
    const auto& held = spline.getControlPoints();
    std::size_t index = 0;
    for (std::size_t i = 0; i < points.size(); ++i, ++index) {
        while (index < held.size() && held[index]->serial != points[i])
            ++index;
        if (index == held.size())
            return false;
        indices[i] = std::int32_t(index);
    }
    return true;
}

} // namespace

std::vector<std::int32_t> indicesOf(const std::vector<PointSerial>& points, const SplineBase& spline)
{
    const auto& held = spline.getControlPoints();
    std::vector<std::int32_t> indices(points.size(), -1);
    if (points.size() <= fewPoints) {
        std::transform(points.begin(), points.end(), indices.begin(),
                       [&spline](PointSerial point) { return indexOf(point, spline); });
        return indices;
    }
    if (findInOrder(points, spline, indices))
        return indices;
    std::fill(indices.begin(), indices.end(), -1);
    std::unordered_map<PointSerial, std::size_t> places;
    for (std::size_t i = 0; i < points.size(); ++i)
        places.emplace(points[i], i);
    for (std::size_t index = 0; index < held.size(); ++index) {
        const auto place = places.find(held[index]->serial);
        if (place != places.end())
            indices[place->second] = std::int32_t(index);
    }
    return indices;
}

bool Selection::contains(PointSerial point) const
{
    return point != 0 &&
           (point == current_ || std::find(listed_.begin(), listed_.end(), point) != listed_.end());
}

std::vector<PointSerial> Selection::edited() const
{
    if (hasMultiple())
        return listed_;
    return current_ != 0 ? std::vector{current_} : std::vector<PointSerial>();
}

void Selection::selectOnly(PointSerial point)
{
    current_ = point;
    listed_.clear();
}

void Selection::selectAll(std::vector<PointSerial> points)
{
    current_ = points.empty() ? 0 : points.back();
    listed_ = std::move(points);
}

void Selection::giveUpListOfOne()
{
    if (hasSingle())
        selectOnly(current_);
}

void Selection::toggle(PointSerial point, const SplineBase& spline)
{
    const auto place = std::find(listed_.begin(), listed_.end(), point);
    if (point == 0)
        return;
    if (place != listed_.end()) {
        listed_.erase(place);
        return;
    }
    if (point == current_)
        return selectOnly(0);
    if (listed_.empty() && current_ == 0) {
        current_ = point;
        return;
    }
    // The second point stands behind the first where they share a time, a later one in front of the others.
    const bool isSecond = listed_.empty();
    if (isSecond)
        listed_.push_back(current_);
    current_ = 0;
    listed_.push_back(point);
    dropLost(spline);
    if (listed_.empty() || listed_.back() != point)
        return;
    const std::vector<double> times = listedTimes(spline);
    const auto later = std::find_if(times.begin(), times.end() - 1, [&](double time) {
        return isSecond ? time > times.back() : time >= times.back();
    });
    std::rotate(listed_.begin() + (later - times.begin()), listed_.end() - 1, listed_.end());
}

void Selection::dropLost(const SplineBase& spline)
{
    if (indicesOf({current_}, spline).front() < 0)
        current_ = 0;
    const std::vector<std::int32_t> indices = indicesOf(listed_, spline);
    std::vector<PointSerial> held;
    for (std::size_t i = 0; i < indices.size(); ++i) {
        if (indices[i] >= 0)
            held.push_back(listed_[i]);
    }
    listed_.swap(held);
}

std::vector<std::int32_t> Selection::indices(const SplineBase& spline) const
{
    std::vector<std::int32_t> indices = indicesOf(listed_, spline);
    indices.push_back(indexOf(current_, spline));
    std::erase(indices, -1);
    if (!std::is_sorted(indices.begin(), indices.end()))
        std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    return indices;
}

std::vector<PointSerial> Selection::points() const
{
    std::vector<PointSerial> points = listed_;
    if (current_ != 0)
        points.push_back(current_);
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

std::vector<bool> Selection::marks(const SplineBase& spline) const
{
    if (isEmpty())
        return {};
    std::vector<bool> marks(spline.getControlPointsNumber(), false);
    for (const std::int32_t index : indices(spline))
        marks[std::size_t(index)] = true;
    return marks;
}

std::vector<double> Selection::listedTimes(const SplineBase& spline) const
{
    std::vector<double> times;
    for (const std::int32_t index : indicesOf(listed_, spline)) {
        if (index >= 0)
            times.push_back(spline.getControlPoints()[std::size_t(index)]->time);
    }
    return times;
}

} // namespace curveeditor
