// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <cstdint>
#include <vector>

namespace curveeditor {

/// Who a point is, see `SplineBase::PointInfo::serial`; 0 is no point.
using PointSerial = std::uint32_t;

/// Which points of one curve are selected. Points are named by their serials, so nothing here can dangle: a
/// point that the host takes away is merely not found any more, and one that takes its place in memory is
/// another one.
///
/// A single point is held as `current`, several in a list; see `hasSingle` and `hasMultiple`. A value.
class Selection
{
public:
    bool operator==(const Selection& other) const = default;

    PointSerial current() const { return current_; }
    /// The points of a multiple selection, in the order in which they were listed.
    const std::vector<PointSerial>& listed() const { return listed_; }

    bool isEmpty() const { return current_ == 0 && listed_.empty(); }
    bool hasSingle() const { return current_ != 0 && listed_.size() <= 1; }
    bool hasMultiple() const { return listed_.size() > 1; }
    bool contains(PointSerial point) const;
    /// What an edit of the selection acts on: the list if it has several points, else the current point. One
    /// listed point alone is not edited.
    std::vector<PointSerial> edited() const;

    /// Selects that point alone; 0 selects nothing.
    void selectOnly(PointSerial point);
    void setCurrent(PointSerial point) { current_ = point; }
    /// Selects these points; the last becomes the current one too.
    void selectAll(std::vector<PointSerial> points);
    /// For after an edit: a point that was edited alone is selected alone, and not listed.
    void giveUpListOfOne();
    /// Adds the point to the selection or takes it out. The list stays ascending in the time that the points
    /// have in `spline`.
    void toggle(PointSerial point, const SplineBase& spline);

    /// Takes out what `spline` does not hold.
    void dropLost(const SplineBase& spline);

    /// The indices of the selected points that `spline` holds, ascending.
    std::vector<std::int32_t> indices(const SplineBase& spline) const;
    /// The selected points, ascending by their serials.
    std::vector<PointSerial> points() const;
    /// For each point of the spline, in its order, whether it is selected; empty if none is.
    std::vector<bool> marks(const SplineBase& spline) const;
    /// The times of the listed points that `spline` holds, in the order of the list.
    std::vector<double> listedTimes(const SplineBase& spline) const;

private:
    PointSerial current_ = 0;
    std::vector<PointSerial> listed_;
};

/// The index in `spline` of each of the points, -1 for one that it does not hold. One pass over the spline.
std::vector<std::int32_t> indicesOf(const std::vector<PointSerial>& points, const SplineBase& spline);

} // namespace curveeditor
