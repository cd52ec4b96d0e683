// SPDX-License-Identifier: MIT
#include <curveeditor/edit/Gesture.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

void Gesture::beginAtPoints(std::vector<PointDrag> drags)
{
    end();
    kind_ = drags.size() == 1 && drags.front().isAtTangent() ? Kind::Tangent : Kind::Points;
    drags_ = std::move(drags);
}

void Gesture::beginAtView(Kind kind, const PlaneMapping& start)
{
    end();
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

Gesture::Place Gesture::grabbed(const Place& anchor, const PlaneMapping& view) const
{
    Place nearest = anchor;
    double least = std::numeric_limits<double>::infinity();
    for (const PointDrag& drag : drags_) {
        for (const Place& start : drag.starts()) {
            const double distance = std::abs(view.column(start.time) - view.column(anchor.time)) +
                                    std::abs(view.row(start.value) - view.row(anchor.value));
            if (distance < least)
                nearest = start;
            least = std::min(least, distance);
        }
    }
    return nearest;
}
