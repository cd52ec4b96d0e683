// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasExpression.h>

#include <curveeditor/canvas/LineWithGaps.h>

#include <QPainter>

void CanvasExpression::setColors(const QPen& pen, const QColor& background)
{
    selectedPen = pen;
    unselectedPen = pen;
    const QColor color = pen.color();
    unselectedPen.setColor(QColor((color.red() + background.red()) / 2,
                                  (color.green() + background.green()) / 2,
                                  (color.blue() + background.blue()) / 2));
}

void CanvasExpression::setLine(const QPolygon& points, const std::vector<int>& starts)
{
    curveLine = points;
    lineStarts = starts;
}

void CanvasExpression::draw(QPainter* painter) const
{
    painter->setPen(selected ? selectedPen : unselectedPen);
    drawLineWithGaps(painter, curveLine, lineStarts);
}
