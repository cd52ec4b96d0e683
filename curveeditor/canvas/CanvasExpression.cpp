// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasExpression.h>

#include <curveeditor/canvas/ColorContrast.h>
#include <curveeditor/canvas/CurveEditorTheme.h>

using namespace curveeditor;

void CanvasExpression::setColors(const QPen& pen, const QColor& background)
{
    const auto [current, other] = curveColors(pen.color(), background, theme_);
    selectedPen = unselectedPen = pen;
    selectedPen.setColor(current);
    unselectedPen.setColor(other);
}

void CanvasExpression::draw(CurvePainter& curves) const
{
    curves.drawSolid(curveLine, (selected ? selectedPen : unselectedPen).color(),
                     selected ? theme_.curveWidth : theme_.otherCurveWidth);
}
