// SPDX-License-Identifier: MIT
#pragma once

#include <QDropEvent>

/// Accepts a drag or a drop as a copy, whatever was proposed, so that its source keeps what was dragged.
inline void acceptAsCopy(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
}
