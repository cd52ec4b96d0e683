// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QWidget>

namespace curveeditor {

/// Says in the middle of a part without content what to do there; nothing where there is no room for the whole text.
inline void drawEmptyText(QWidget& part, const QString& text, const QColor& color)
{
    constexpr int margin = 6;
    constexpr int flags = int(Qt::AlignCenter) | int(Qt::TextWordWrap);
    QPainter painter(&part);
    const QRect room = part.rect().adjusted(margin, margin, -margin, -margin);
    painter.setPen(color);
    if (room.contains(painter.boundingRect(room, flags, text)))
        painter.drawText(room, flags, text);
}

} // namespace curveeditor
