// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets>

/// Drags the text, or nothing if it is null, over the widget and drops it there to be moved; returns what the widget
/// makes of that, and no action if it does not let it drop.
inline Qt::DropAction dropOn(QWidget& widget, const QString& text)
{
    const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
    QMimeData data;
    if (!text.isNull())
        data.setText(text);
    QDragEnterEvent enter(QPoint(5, 5), actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &enter);
    QDragMoveEvent move(QPoint(6, 6), actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &move);
    if (!enter.isAccepted() || !move.isAccepted())
        return Qt::IgnoreAction;
    QDropEvent drop(QPointF(6, 6), actions, &data, Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&widget, &drop);
    return drop.dropAction();
}
