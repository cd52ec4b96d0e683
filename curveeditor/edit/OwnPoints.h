// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/Selection.h>
#include <curveeditor/model/PlacedPoint.h>

#include <vector>

namespace curveeditor {

/// Some points of a spline as they were at one moment, to be seen among those that are there later. A value.
class OwnPoints
{
public:
    using Pointers = std::vector<const SplineBase::PointInfo*>;

    /// Notes those of the points that the spline holds, into the memory that is there.
    void note(const SplineBase& spline, const std::vector<PointSerial>& points);
    /// In the order of the spline, with their indices.
    const std::vector<PlacedPoint>& points() const { return points_; }

    /// The points of the spline as it is now, with those that were noted as they were; what is not there any more
    /// stays away. They are `spline`'s and this object's.
    Pointers backIn(const SplineBase& spline) const;

private:
    bool areInOrder(const Pointers& all) const;

    std::vector<PlacedPoint> points_;
    std::size_t pointCount_ = 0; ///< of the spline
};

} // namespace curveeditor
