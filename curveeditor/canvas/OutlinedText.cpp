// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/OutlinedText.h>

#include <QPainter>

namespace curveeditor {

void drawOutlined(QPainter& painter, const QRect& place, const QString& text, const QColor& color,
                  const QColor& outline, int flags)
{
    const QPen pen = painter.pen();
    painter.setPen(outline);
    for (const QPoint& shift : {QPoint(-1, -1), QPoint(0, -1), QPoint(1, -1), QPoint(-1, 0), QPoint(1, 0),
                                QPoint(-1, 1), QPoint(0, 1), QPoint(1, 1)})
        painter.drawText(place.translated(shift), flags, text);
    painter.setPen(color);
    painter.drawText(place, flags, text);
    painter.setPen(pen);
}

} // namespace curveeditor
