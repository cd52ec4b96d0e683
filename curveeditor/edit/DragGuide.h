// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/Snap.h>

namespace curveeditor {

/// What guides a drag of points besides the mouse: an axis along which alone they move, and snapping. A value; the hands
/// of a canvas hold one and ask it at each step of a drag.
class DragGuide
{
public:
    DragGuide() { snap.kinds = Snap::Frames | Snap::GridLines | Snap::Points | Snap::TimeLine; }

    Snap snap;               ///< its kinds are what the user wants to snap to, all at first
    bool isSnapping = false; ///< unless it is toggled in the drag
    bool isFilled = false;   ///< whether `snap` has been given, in this drag, what there is to snap to

    /// To be called when a drag begins. `grabbed` is where the point is that follows the mouse, which was pressed at
    /// `anchor`; `goesToMouse` if it jumps there instead of keeping its distance. A key that was `toggled` then meant
    /// the press, and toggles only once it has been let go.
    void begin(const Gesture::Place& grabbed, const Gesture::Place& anchor, bool goesToMouse, bool toggled);
    /// Whether the next step snaps.
    bool snaps(bool toggled) const { return isSnapping != (toggled && !ignoresToggle_); }
    /// Where the mouse would be if it led the point to where it shall go, along `axis` alone.
    Gesture::Place guided(const Gesture::Place& mouse, const PlaneMapping& view, Gesture::Axis axis,
                          bool toggled);
    void end() { hit_ = {}; }

    /// What the point has snapped to in the last step; its kinds are `Snap::Nothing` where it has not.
    const Snap::Result& hit() const { return hit_; }

private:
    Gesture::Place grabbed_;
    Gesture::Place offset_; ///< from the mouse to the point
    Snap::Result hit_;
    bool ignoresToggle_ = false;
};

} // namespace curveeditor
