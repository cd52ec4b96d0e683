// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/OwnPoints.h>
#include <curveeditor/edit/PlaneTransform.h>
#include <curveeditor/model/SplineState.h>

#include <optional>
#include <unordered_map>
#include <vector>

namespace curveeditor {

/// Scales, mirrors and moves points of one curve together with its shape between them: with factors a of the times and b
/// of the values, the slope of a handle is multiplied by b / a, and in a segment with both ends among the points the
/// curve c(t) becomes b c(t / a).
///
/// Mirrored in time, the points change their order: types go one segment on and around, the sides of tangents and eases
/// swap, biases change their signs. `Hold` stays, so it jumps at the other end of its segment. The slopes of a `Tcb`
/// segment beside a point that stays would change; without ease it becomes `Bezier`, with ease it stays and may bend. So it
/// does where points are merely moved, which changes no type.
///
/// All is computed from where the points were at first, so nothing accumulates. It names points by their serials and
/// holds no pointer: between two steps the host may do anything. A value.
class PointTransform
{
public:
    /// Notes those of the points that `spline` holds. Unless `makesBezier`, as where no point may become so, `Tcb` segments
    /// beside a point that stays do, and may bend.
    PointTransform(const SplineBase& spline, const std::vector<PointSerial>& points, bool makesBezier = true);

    struct Result
    {
        SplineState state;
        bool mayBend = false;
    };
    /// What becomes of `spline`, the one that was given first or what the host has made of it since: points that are gone
    /// stay away, all others stay as they are. Points that come to another time stand behind those that are there. None where a
    /// number would not be finite, as slopes for a factor of 0 in time.
    std::optional<Result> applied(const SplineBase& spline, const PlaneTransform& transform) const;

    std::vector<PointSerial> points() const;

private:
    using PointInfo = SplineBase::PointInfo;

    /// The segment that ended at a point; its slopes are of use where both ends are among the points.
    struct Segment
    {
        bool isWhole = false;       ///< both ends are among the points
        bool isBesideOther = false; ///< a point beside it is not
        bool isEased = false;
        std::int32_t type = SplineBase::Linear;
        double leaving = 0.0;
        double arriving = 0.0;
    };

    std::vector<PointInfo> changed(const PlaneTransform& transform) const;
    std::vector<PointInfo> inOrder(const SplineBase& spline, const std::vector<PointInfo>& changed,
                                   bool isReversed) const;
    bool keepShapes(std::vector<PointInfo>& points, const PlaneTransform& transform) const;
    /// The place of a point among those noted, -1 for others.
    int noted(PointSerial point) const;

    OwnPoints own_;
    bool makesBezier_;
    std::vector<Segment> segments_; ///< for each of them
    std::unordered_map<PointSerial, int> places_;
};

} // namespace curveeditor
