// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/HandleBatch.h>

#include <curveeditor/canvas/CurveEditorTheme.h>

#include <QPainter>

namespace curveeditor {

void HandleBatch::add(const QPoint& from, const QPoint& to, const QColor& color, bool endsInSquare)
{
    if (color != color_)
        flush();
    color_ = color;
    lines_.emplace_back(from, to);
    if (endsInSquare)
        squares_.push_back(markerSquare(to, theme_.fixedHandleSize));
    else
        circles_.push_back(markerSquare(to, theme_.handleSize));
}

void HandleBatch::flush()
{
    painter_->setRenderHint(QPainter::Antialiasing, theme_.smooth);
    painter_->setPen(QPen(color_, theme_.handleWidth));
    // Qt draws smooth lines between the corners of pixels, and others between their middles.
    const double middle = theme_.smooth ? 0.5 : 0.0;
    painter_->translate(middle, middle);
    painter_->drawLines(lines_.data(), int(lines_.size()));
    painter_->translate(-middle, -middle);
    // An outline would make the circle a pixel wider.
    painter_->setPen(Qt::NoPen);
    painter_->setBrush(color_);
    painter_->drawRects(squares_.data(), int(squares_.size()));
    for (const QRect& circle : circles_)
        painter_->drawEllipse(circle);
    painter_->setRenderHint(QPainter::Antialiasing, false);
    lines_.clear();
    squares_.clear();
    circles_.clear();
}

} // namespace curveeditor
