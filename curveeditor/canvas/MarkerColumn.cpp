// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/MarkerColumn.h>

#include <curveeditor/canvas/CurvePainter.h>
#include <curveeditor/canvas/HandleBatch.h>

#include <algorithm>
#include <utility>

namespace curveeditor {

MarkerColumn::MarkerColumn(CurvePainter& curves, const QSize& canvas, int size, const QColor& color)
    : curves_(curves), canvas_(canvas), size_(size), color_(color), lowest_(canvas.height() + 2 * size),
      rows_(std::size_t(lowest_) + 1, 0)
{
}

void MarkerColumn::add(const QPoint& center)
{
    const int row = center.y() + size_;
    if (center.x() < -size_ || center.x() > canvas_.width() + size_ || row < 0 || row >= int(rows_.size()))
        return;
    if (center.x() != column_)
        flush();
    column_ = center.x();
    rows_[std::size_t(row)] = 1;
    lowest_ = std::min(lowest_, row);
    highest_ = std::max(highest_, row);
}

void MarkerColumn::flush()
{
    int first = lowest_; // of squares that touch
    int last = lowest_;
    const auto fill = [&] {
        QRect square = markerSquare(QPoint(column_, first - size_), size_);
        square.setHeight(size_ + last - first);
        curves_.fillRect(square, color_);
    };
    for (int row = lowest_; row <= highest_; ++row) {
        if (!std::exchange(rows_[std::size_t(row)], 0))
            continue;
        if (row > last + size_) {
            fill();
            first = row;
        }
        last = row;
    }
    if (lowest_ <= highest_)
        fill();
    lowest_ = int(rows_.size()) - 1;
    highest_ = 0;
}

} // namespace curveeditor
