// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CurveEditorTheme.h>

#include <QImage>

class QPainter;

namespace curveeditor {

/// A picture of one marker, to be put down many times: Qt draws each antialiased form a hundred times slower. Sizes are
/// logical pixels.
class MarkerStamp
{
public:
    /// For what `painter` draws on. Without a valid `outline` there is none.
    MarkerStamp(const QPainter& painter, CurveEditorTheme::Shape shape, int size, const QColor& color,
                const QColor& outline);

    /// In the middle of a logical pixel; `painter` draws in device pixels.
    void draw(QPainter* painter, const QPoint& pixel) const;
    double ratio() const { return ratio_; }

private:
    double ratio_;
    QImage image_;
};

} // namespace curveeditor
