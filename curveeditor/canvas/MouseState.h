// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QMouseEvent;

namespace curveeditor {

/// The buttons and modifier keys that are held down. A plain value.
struct MouseState
{
    Qt::MouseButtons buttons;
    Qt::KeyboardModifiers modifiers;

    /// True if nothing is held.
    bool isEmpty() const { return !buttons && !modifiers; }
    bool has(Qt::MouseButton button) const { return buttons.testFlag(button); }
    bool has(Qt::KeyboardModifier modifier) const { return modifiers.testFlag(modifier); }
};

/// What was held just before `event`: a press and a double click leave their own button out, a release
/// includes it, a move has every button that is down. Of the modifiers only Shift, Control, Alt and Meta
/// count.
MouseState stateBefore(const QMouseEvent& event);

} // namespace curveeditor
