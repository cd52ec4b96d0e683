// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRect>
#include <QString>

class QPainter;

namespace curveeditor {

/// In the middle of the place, or as the flags of `QPainter::drawText` say, with an outline by which it is read on a line of its own colour. Leaves the painter its
/// pen.
void drawOutlined(QPainter& painter, const QRect& place, const QString& text, const QColor& color,
                  const QColor& outline, int flags = Qt::AlignCenter);

} // namespace curveeditor
