// SPDX-License-Identifier: MIT
#include <curveeditor/edit/DragGuide.h>

namespace curveeditor {

void DragGuide::begin(const Gesture::Place& grabbed, const Gesture::Place& anchor, bool goesToMouse,
                      bool toggled)
{
    grabbed_ = grabbed;
    offset_ = {};
    if (!goesToMouse)
        offset_ = {grabbed.time - anchor.time, grabbed.value - anchor.value};
    hit_ = {};
    ignoresToggle_ = toggled;
    isFilled = false;
}

Gesture::Place DragGuide::guided(const Gesture::Place& mouse, const PlaneMapping& view, Gesture::Axis axis,
                                 bool toggled)
{
    const Gesture::Place target{mouse.time + offset_.time, mouse.value + offset_.value};
    ignoresToggle_ = ignoresToggle_ && toggled;
    hit_ = snaps(toggled) ? snap.snapped(target, view) : Snap::Result{target};
    if (axis == Gesture::Axis::Time) {
        hit_.place.value = grabbed_.value;
        hit_.valueKinds = Snap::Nothing;
    } else if (axis == Gesture::Axis::Value) {
        hit_.place.time = grabbed_.time;
        hit_.timeKinds = Snap::Nothing;
    }
    // Where nothing guides, the mouse leads to the last bit.
    return {hit_.place.time == target.time ? mouse.time : hit_.place.time - offset_.time,
            hit_.place.value == target.value ? mouse.value : hit_.place.value - offset_.value};
}

} // namespace curveeditor
