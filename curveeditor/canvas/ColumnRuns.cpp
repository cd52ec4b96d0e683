// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ColumnRuns.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace curveeditor {

namespace {

// As in Qt's painter, slopes are multiples of 2^-16, cut off toward zero.
constexpr std::int64_t one = 1 << 16;

bool isNearAnAxis(std::int64_t slope)
{
    return std::abs(slope) < one / 4;
}

class RunWriter
{
public:
    RunWriter(std::vector<ColumnRun>& runs, const QPoint& start)
        : runs_(runs), run_{start.x(), start.y(), start.y()}
    {
    }

    void addLine(const QPoint& from, const QPoint& to)
    {
        const int width = to.x() - from.x();
        const bool isFlat = width > 0 && std::abs(to.y() - from.y()) <= width;
        if (isFlat)
            addFlatLine(from, to);
        else if (width > 0 && to.y() > from.y())
            addFallingLine(from, to);
        else if (width > 0)
            addRisingLine(from, to);
        if (to != from)
            isBehindFlatLine_ = isFlat;
        widen(to.y());
    }

    void finish() { runs_.push_back(run_); }

private:
    void widen(int row)
    {
        run_.top = std::min(run_.top, row);
        run_.bottom = std::max(run_.bottom, row);
    }

    void nextColumn(int row)
    {
        runs_.push_back(run_);
        run_ = {run_.column + 1, row, row};
    }

    /// In each column at most one row further.
    void addFlatLine(const QPoint& from, const QPoint& to)
    {
        flatSlope_ = (to.y() - from.y()) * one / (to.x() - from.x());
        std::int64_t row = from.y() * one + (flatSlope_ > 0 ? flatSlope_ / 2 : 0);
        rowBeforeEnd_ = from.y();
        while (run_.column < to.x() - 1) {
            row += flatSlope_;
            rowBeforeEnd_ = int(row >> 16);
            nextColumn(rowBeforeEnd_);
        }
        nextColumn(to.y());
    }

    // In a steep line each row belongs to one column. They are counted from its upper end.

    void addFallingLine(const QPoint& from, const QPoint& to)
    {
        const std::int64_t height = to.y() - from.y();
        const std::int64_t slope = (to.x() - from.x()) * one / height;
        for (std::int64_t column = one; run_.column < to.x(); column += one) {
            const std::int64_t first = (column - slope / 2 + slope - 1) / slope;
            const int row = from.y() + int(std::min(first, height));
            widen(row - 1);
            nextColumn(row);
        }
    }

    void addRisingLine(const QPoint& from, const QPoint& to)
    {
        const std::int64_t height = from.y() - to.y();
        const std::int64_t slope = (to.x() - from.x()) * one / height;
        if (leavesCornerOut(from, slope))
            run_.top = run_.bottom = from.y() - 1;
        while (run_.column < to.x()) {
            const std::int64_t last = (to.x() - run_.column - 1) * one / slope;
            const int row = to.y() + int(std::min(last, height));
            widen(std::min(row + 1, run_.bottom));
            nextColumn(row);
        }
    }

    /// Where a flat line meets a rising one, two pixels that touch at their corners are joined well enough.
    bool leavesCornerOut(const QPoint& corner, std::int64_t slope) const
    {
        return isBehindFlatLine_ && run_.top == run_.bottom && rowBeforeEnd_ <= corner.y() &&
               !(isNearAnAxis(slope) && isNearAnAxis(flatSlope_) && rowBeforeEnd_ != corner.y() - 1);
    }

    std::vector<ColumnRun>& runs_;
    ColumnRun run_;
    bool isBehindFlatLine_ = false;
    std::int64_t flatSlope_ = 0;
    int rowBeforeEnd_ = 0;
};

} // namespace

void appendColumnRuns(std::vector<ColumnRun>& runs, const QPoint* points, int count)
{
    if (count < 2)
        return;
    RunWriter writer(runs, points[0]);
    for (int i = 1; i < count; ++i)
        writer.addLine(points[i - 1], points[i]);
    writer.finish();
}

} // namespace curveeditor
