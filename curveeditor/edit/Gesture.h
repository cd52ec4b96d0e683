// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/edit/SplineEdits.h>

#include <vector>

/// What the hand does between a press of the mouse and its release: one state for the gestures at points and
/// those at the view.
///
/// A drag at points computes each step from where the points were at its beginning, so nothing accumulates. It
/// names points by their serials and holds no pointer: between two steps the host may do anything.
class Gesture
{
public:
    enum class Kind {
        Idle,
        Points,   ///< selected points move with the mouse, or are scaled by it
        Tangent,  ///< a handle of a point follows the mouse
        Band,     ///< a rubber band grows
        Pan,      ///< the view moves
        Zoom,     ///< the view is scaled
        Cancelled ///< taken back: what is left until the release does nothing
    };

    /// A place in the plane.
    struct Place
    {
        double time = 0.0;
        double value = 0.0;
    };

    Kind kind() const { return kind_; }
    bool isAtPoints() const { return kind_ == Kind::Points || kind_ == Kind::Tangent; }
    bool isAtView() const { return kind_ == Kind::Band || kind_ == Kind::Pan || kind_ == Kind::Zoom; }

    /// Begins a drag of what is selected, pressed at `anchor`. A single point goes to where the mouse is, or
    /// `part` of its tangents is aimed there; several keep their distances.
    void beginAtPoints(const SplineBase& spline, const Selection& selection, SplineEdits::Part part,
                       const Place& anchor);
    /// Begins a gesture at the view, which shows `start` now.
    void beginAtView(Kind kind, const PlaneMapping& start);
    void end();
    void cancel();

    /// The view at the begin of a gesture at it.
    const PlaneMapping& start() const { return start_; }

    /// Moves the points to where the mouse at `place` takes them, and gives the times at which the curve may
    /// have changed by that. While `scaling`, several points are multiplied about the origin of the plane, by 5
    /// for a drag across all of `view`; a change of `scaling` begins a new leg from where the points are.
    TimeInterval step(SplineBase& spline, const Place& place, bool scaling, const PlaneMapping& view);

    /// Where the point that is nearest to the press was, and whether several are dragged.
    Place grabbed(const PlaneMapping& view) const;
    bool isMultiple() const { return isMultiple_; }

    /// The points that the drag moves.
    std::vector<PointSerial> points() const;

private:
    struct Point
    {
        PointSerial serial = 0;
        Place start;       ///< at the begin of the leg
        double near = 0.0; ///< the time at which it was seen last
    };

    void beginLeg(const SplineBase& spline, const Place& anchor, bool scaling);
    Place target(const Point& point, const Place& place, const PlaneMapping& view) const;
    static std::int32_t indexOf(const Point& point, const SplineBase& spline);
    TimeInterval influence(const SplineBase& spline) const;
    void aim(SplineBase& spline, const Place& place) const;

    Kind kind_ = Kind::Idle;
    PlaneMapping start_;
    SplineEdits::Part part_ = SplineEdits::Part::Point;
    bool isMultiple_ = false;
    bool isScaling_ = false;
    Place anchor_;
    Place last_;
    std::vector<Point> points_;
};
