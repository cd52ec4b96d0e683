// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasExpression.h>

#include <QColor>

void CanvasExpression::setColors(const QPen& pen, const QColor& background)
{
    selectedPen = pen;
    unselectedPen = pen;
    const QColor color = pen.color();
    unselectedPen.setColor(QColor((color.red() + background.red()) / 2,
                                  (color.green() + background.green()) / 2,
                                  (color.blue() + background.blue()) / 2));
}

void CanvasExpression::draw(CurvePainter& curves) const
{
    curves.drawSolid(curveLine, (selected ? selectedPen : unselectedPen).color());
}
