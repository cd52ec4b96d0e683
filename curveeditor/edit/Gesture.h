// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/edit/PointDrag.h>

#include <vector>

/// What the hand does between a press of the mouse and its release: one state for the gestures at points and
/// those at the view. A value.
class Gesture
{
public:
    using Place = PointDrag::Place;
    enum class Kind {
        Idle,
        Points,   ///< selected points move with the mouse, or are scaled by it
        Tangent,  ///< a handle of a point follows the mouse
        Band,     ///< a rubber band grows
        Pan,      ///< the view moves
        Zoom,     ///< the view is scaled
        Cancelled ///< taken back: what is left until the release does nothing
    };

    Kind kind() const { return kind_; }
    bool isAtPoints() const { return kind_ == Kind::Points || kind_ == Kind::Tangent; }
    bool isAtView() const { return kind_ == Kind::Band || kind_ == Kind::Pan || kind_ == Kind::Zoom; }

    /// Begins a drag of points, with one entry for each curve.
    void beginAtPoints(std::vector<PointDrag> drags);
    /// Begins a gesture at the view, which shows `start` now.
    void beginAtView(Kind kind, const PlaneMapping& start);
    void end();
    void cancel();

    /// The view at the begin of a gesture at it.
    const PlaneMapping& start() const { return start_; }

    std::vector<PointDrag>& drags() { return drags_; }
    /// Where the dragged point that is nearest to `anchor`, the place of the press, was then.
    Place grabbed(const Place& anchor, const PlaneMapping& view) const;

private:
    Kind kind_ = Kind::Idle;
    PlaneMapping start_;
    std::vector<PointDrag> drags_;
};
