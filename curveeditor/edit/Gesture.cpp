// SPDX-License-Identifier: MIT
#include <curveeditor/edit/Gesture.h>

#include <curveeditor/edit/EditedCurve.h>
#include <curveeditor/edit/OwnScale.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace curveeditor {

void Gesture::beginAtPoints(std::uint64_t edit, std::vector<Drag> drags)
{
    end();
    kind_ = drags.size() == 1 && drags.front().points.isAtTangent() ? Kind::Tangent : Kind::Points;
    edit_ = edit;
    drags_ = std::move(drags);
}

void Gesture::beginAtBox(std::uint64_t edit, BoxDrag box)
{
    end();
    kind_ = Kind::Box;
    edit_ = edit;
    box_ = std::move(box);
}

void Gesture::beginAtView(Kind kind, const PlaneMapping& start)
{
    end();
    kind_ = kind;
    start_ = start;
}

void Gesture::beginAtTimeLine(double start)
{
    end();
    kind_ = Kind::TimeLine;
    timeLine_ = start;
}

void Gesture::beginStroke(std::uint64_t edit)
{
    end();
    kind_ = Kind::Stroke;
    edit_ = edit;
}

void Gesture::end()
{
    kind_ = Kind::Idle;
    edit_ = 0;
    drags_.clear();
    box_ = {};
}

void Gesture::cancel()
{
    end();
    kind_ = Kind::Cancelled;
}

std::vector<std::shared_ptr<EditedCurve>> Gesture::curves() const
{
    std::vector<std::shared_ptr<EditedCurve>> curves;
    for (const Drag& drag : drags_)
        curves.push_back(drag.curve);
    for (const BoxDrag::Part& part : box_.parts)
        curves.push_back(part.curve);
    return curves;
}

std::vector<PointSerial> Gesture::moving(const SplineBase* spline) const
{
    for (const Drag& drag : drags_) {
        if (drag.curve->spline() == spline)
            return drag.points.points();
    }
    for (const BoxDrag::Part& part : box_.parts) {
        if (part.curve->spline() == spline)
            return part.points.points();
    }
    return {};
}

Gesture::Place Gesture::grabbed(const Place& anchor, const PlaneMapping& view) const
{
    Place nearest = anchor;
    double least = std::numeric_limits<double>::infinity();
    for (const Drag& drag : drags_) {
        for (const Place& start : drag.points.starts()) {
            const Place seen = placeIn(view, start, drag.points.view());
            const double distance = std::abs(view.column(seen.time) - view.column(anchor.time)) +
                                    std::abs(view.row(seen.value) - view.row(anchor.value));
            if (distance < least)
                nearest = seen;
            least = std::min(least, distance);
        }
    }
    return nearest;
}

} // namespace curveeditor
