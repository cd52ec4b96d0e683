// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/StepKey.h>

#include <QKeyEvent>

namespace curveeditor {

StepKey stepKeyOf(const QKeyEvent& event)
{
    const bool isCtrlY = event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier;
    if (event.matches(QKeySequence::Redo) || isCtrlY)
        return StepKey::Redo;
    return event.matches(QKeySequence::Undo) ? StepKey::Undo : StepKey::None;
}

bool isDeleteKey(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
}

} // namespace curveeditor
