// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CurvePainter.h>

#include <QPen>

class QColor;
struct CurveEditorTheme;

using namespace curveeditor;

/// The picture of one expression curve: its samples in device pixels, held until the curve or the view
/// changes, and the pens to draw them. It stores and paints only; the curve that owns it does the sampling.
class CanvasExpression
{
public:
    /// `theme` outlives it.
    explicit CanvasExpression(const CurveEditorTheme& theme) : theme_(theme) {}

    bool selected = false; ///< This curve is the current one; written by the canvas.
    QPen selectedPen = QPen(Qt::red, 1, Qt::SolidLine);
    QPen unselectedPen;
    DeviceLine curveLine; ///< All samples from left to right, with a gap where there is no finite value.

    /// `pen` draws the curve when it is current; else a pen like it, dimmed toward `background`. The theme may adapt
    /// both colours to the canvas.
    void setColors(const QPen& pen, const QColor& background);
    /// Draws the stored line. Evaluates nothing.
    void draw(CurvePainter& curves) const;

private:
    const CurveEditorTheme& theme_;
};
