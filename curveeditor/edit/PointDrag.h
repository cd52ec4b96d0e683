// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/edit/SplineEdits.h>

#include <vector>

namespace curveeditor {

/// A drag of points of one curve, or of a handle of a point. It computes each step from where the points were at its
/// beginning, so nothing accumulates. It names points by their serials and holds no pointer: between two steps the
/// host may do anything. A value.
class PointDrag
{
public:
    /// A place in the plane.
    struct Place
    {
        double time = 0.0;
        double value = 0.0;
    };

    /// A drag of what is selected, pressed at `anchor` in `view`. If `keepsDistance`, the points keep their distances
    /// to the mouse; else the single point goes to where the mouse is, or `part` of its tangents is aimed there.
    PointDrag(const SplineBase& spline, const Selection& selection, SplineEdits::Part part,
              const Place& anchor, const PlaneMapping& view, bool keepsDistance);

    /// Moves the points to where the mouse at `place` takes them, and gives the times at which the curve may
    /// have changed by that. While `scaling`, points that keep their distance are multiplied about the origin of the
    /// plane, by 5 for a drag across all of `view`. A change of `scaling`, and of `view` while it scales, begins a new leg
    /// from where the points are.
    TimeInterval step(SplineBase& spline, const Place& place, bool scaling, const PlaneMapping& view);

    bool isAtTangent() const { return part_ != SplineEdits::Part::Point; }

    /// The plane in which the mouse was seen last.
    const PlaneMapping& view() const { return view_; }

    /// The points that the drag moves.
    std::vector<PointSerial> points() const;
    /// Where they are in `spline`, of which they are; those that are gone are left out.
    std::vector<std::int32_t> indices(const SplineBase& spline) const;
    /// Where they were when the leg began.
    std::vector<Place> starts() const;

private:
    struct Point
    {
        PointSerial serial = 0;
        Place start;            ///< at the begin of the leg
        double near = 0.0;      ///< the time at which it was seen last ...
        std::int32_t index = 0; ///< ... and its index then
    };

    Place movedWith(const PlaneMapping& view) const;
    void beginLeg(const SplineBase& spline, const Place& anchor);
    Place target(const Point& point, const Place& place, const PlaneMapping& view) const;
    void moveEach(SplineBase& spline, const Place& place);
    bool moveInPlace(SplineBase& spline, const Place& place);
    bool keepOrder(const SplineBase& spline, const std::vector<Place>& goals) const;
    static std::int32_t indexOf(const Point& point, const SplineBase& spline);
    TimeInterval influence(const SplineBase& spline) const;
    void aim(SplineBase& spline, const Place& place) const;

    SplineEdits::Part part_;
    bool keepsDistance_;
    bool isScaling_ = false;
    Place anchor_;
    Place last_;
    PlaneMapping view_; ///< in which `last_` was under the mouse
    std::vector<Point> points_;
};

} // namespace curveeditor
