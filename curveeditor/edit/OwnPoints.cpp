// SPDX-License-Identifier: MIT
#include <curveeditor/edit/OwnPoints.h>

#include <curveeditor/model/SplineState.h>

#include <algorithm>

namespace curveeditor {

void OwnPoints::note(const SplineBase& spline, const std::vector<PointSerial>& points)
{
    points_.clear();
    const auto& present = spline.getControlPoints();
    pointCount_ = present.size();
    for (const std::int32_t index : indicesOf(points, spline)) {
        if (index >= 0)
            points_.push_back({std::size_t(index), *present[std::size_t(index)]});
    }
    const auto isBefore = [](const PlacedPoint& left, const PlacedPoint& right) {
        return left.index < right.index;
    };
    if (!std::is_sorted(points_.begin(), points_.end(), isBefore))
        std::sort(points_.begin(), points_.end(), isBefore);
}

OwnPoints::Pointers OwnPoints::backIn(const SplineBase& spline) const
{
    std::vector<PointSerial> serials;
    for (const PlacedPoint& point : points_)
        serials.push_back(point.info.serial);
    const std::vector<std::int32_t> indices = indicesOf(serials, spline);
    const auto& present = spline.getControlPoints();
    Pointers others(present.begin(), present.end());
    for (const std::int32_t index : indices) {
        if (index >= 0)
            others[std::size_t(index)] = nullptr;
    }
    std::erase(others, nullptr);
    if (present.size() == pointCount_ && others.size() + points_.size() == pointCount_) {
        Pointers all = replaced(others, {}, points_, [](const PlacedPoint& point) { return &point.info; });
        if (areInOrder(all))
            return all;
    }
    for (std::size_t i = 0; i < points_.size(); ++i) {
        if (indices[i] >= 0)
            others.push_back(&points_[i].info);
    }
    std::stable_sort(others.begin(), others.end(),
                     [](const auto* left, const auto* right) { return isEarlierPoint(*left, *right); });
    return others;
}

/// Whether the noted points stand among `all` in the order of time. They do not where others were moved.
bool OwnPoints::areInOrder(const Pointers& all) const
{
    return std::all_of(points_.begin(), points_.end(), [&all](const PlacedPoint& point) {
        const std::size_t next = point.index + 1;
        return (point.index == 0 || all[point.index - 1]->time <= point.info.time) &&
               (next == all.size() || point.info.time <= all[next]->time);
    });
}

} // namespace curveeditor
