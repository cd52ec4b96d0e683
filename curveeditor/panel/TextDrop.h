// SPDX-License-Identifier: MIT
#pragma once

#include <QDropEvent>

namespace curveeditor {

/// Lets a drag or a drop in or refuses it. It is taken as a copy where its source offers that, whatever was
/// proposed, so that the source keeps what was dragged.
inline void answerDrag(QDropEvent* event, bool wanted)
{
    if (wanted)
        event->setDropAction(Qt::CopyAction);
    event->setAccepted(wanted);
}

} // namespace curveeditor
