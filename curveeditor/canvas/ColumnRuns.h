// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

#include <vector>

namespace curveeditor {

/// Pixels one above the other, from `top` to `bottom`, both included.
struct ColumnRun
{
    int column;
    int top;
    int bottom;
};

/// Appends the pixels of the polyline through `count` points, whose columns never fall, as runs from left to
/// right: the pixels that `QPainter` gives a line of width 1, but for single ones where steep lines meet.
/// Fewer than two points give nothing. Rows and columns are less than 2^29 away from 0.
void appendColumnRuns(std::vector<ColumnRun>& runs, const QPoint* points, int count);

} // namespace curveeditor
