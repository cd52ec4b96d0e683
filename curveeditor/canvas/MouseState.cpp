// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/MouseState.h>

#include <QMouseEvent>

namespace curveeditor {

MouseState stateBefore(const QMouseEvent& event)
{
    const Qt::KeyboardModifiers counted =
        Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    MouseState state{event.buttons(), event.modifiers() & counted};
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        state.buttons.setFlag(event.button(), false);
        break;
    case QEvent::MouseButtonRelease:
        state.buttons.setFlag(event.button());
        break;
    default:
        break;
    }
    return state;
}

} // namespace curveeditor
