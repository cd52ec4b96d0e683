// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <algorithm>
#include <vector>

namespace curveeditor {

/// A point, and its index among the points of its spline.
struct PlacedPoint
{
    std::size_t index = 0;
    SplineBase::PointInfo info;
};

/// `items`, of which there is one for each point of a spline, without those at the indices of `removed`, and with
/// `itemOf` each of `inserted` at its index in the result. Both have ascending indices; those of `inserted` must leave no
/// gap.
template <typename Item, typename ItemOf>
std::vector<Item> replaced(const std::vector<Item>& items, const std::vector<PlacedPoint>& removed,
                           const std::vector<PlacedPoint>& inserted, const ItemOf& itemOf)
{
    std::vector<Item> result;
    result.reserve(items.size() - removed.size() + inserted.size());
    auto from = items.begin();
    auto gone = removed.begin();
    const auto copyUntil = [&](std::size_t size) {
        while (from != items.end()) {
            const auto stop =
                gone == removed.end() ? items.end() : items.begin() + std::ptrdiff_t(gone->index);
            const auto count = std::min<std::ptrdiff_t>(stop - from, std::ptrdiff_t(size - result.size()));
            result.insert(result.end(), from, from + count);
            from += count;
            if (from != stop || gone == removed.end())
                return;
            ++from;
            ++gone;
        }
    };
    for (const PlacedPoint& point : inserted) {
        copyUntil(point.index);
        result.push_back(itemOf(point));
    }
    copyUntil(result.capacity());
    return result;
}

} // namespace curveeditor
