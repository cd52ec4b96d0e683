// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPen>
#include <QPolygon>

#include <vector>

class QPainter;

/// The picture of one expression curve: its samples in logical pixels, held until the curve or the view
/// changes, and the pens to draw them. It stores and paints only; the curve that owns it does the sampling.
class CanvasExpression
{
public:
    bool selected = false; ///< This curve is the current one; written by the canvas.
    QPen selectedPen = QPen(Qt::red, 1, Qt::SolidLine);
    QPen unselectedPen;
    QPolygon curveLine; ///< All samples from left to right.
    /// The indices in `curveLine`, ascending, of samples that are not joined to the one before: the
    /// expression has no finite value between the two.
    std::vector<int> lineStarts;

    /// `pen` draws the curve when it is current; a pen of the mean colour of `pen` and `background` else.
    void setColors(const QPen& pen, const QColor& background);
    /// Takes over the samples, and the places where the line is broken.
    void setLine(const QPolygon& points, const std::vector<int>& starts = {});
    /// Draws the stored line. Evaluates nothing.
    void draw(QPainter* painter) const;
};
