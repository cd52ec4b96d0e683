// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPoint>
#include <QSize>

#include <vector>

namespace curveeditor {

class CurvePainter;

/// Fills the squares that stand for points, column by column and each pixel of a column once, however many points stand
/// there. Logical pixels. The painter outlives it.
class MarkerColumn
{
public:
    MarkerColumn(CurvePainter& curves, const QSize& canvas, int size, const QColor& color);
    ~MarkerColumn() { flush(); }
    Q_DISABLE_COPY_MOVE(MarkerColumn)

    /// The columns must not descend. A square beyond the canvas is left out.
    void add(const QPoint& center);

private:
    void flush();

    CurvePainter& curves_;
    QSize canvas_;
    int size_;
    QColor color_;
    int column_ = 0;
    int lowest_; ///< of the rows that are set
    int highest_ = 0;
    std::vector<char> rows_; ///< of the column: whether a point stands there, from `-size_` on
};

} // namespace curveeditor
