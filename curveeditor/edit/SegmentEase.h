// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveOptions.h>
#include <curveeditor/edit/Ease.h>
#include <curveeditor/edit/Selection.h>

#include <vector>

namespace curveeditor {

/// Lets segments of a spline follow an `Ease`: those of which both ends are among some points, or both segments of a
/// single point. A segment without length in time, or steeper than numbers go, is none.
namespace SegmentEase {

/// What came of it. Values of several splines can be united.
struct Outcome
{
    int segments = 0; ///< that follow it now
    int steps = 0;    ///< those of them that are not level
    /// How far they are from the ease at most; 1.0 is the difference of the values of both ends.
    double deviation = 0.0;
    bool bendsOthers = false; ///< a segment beside them
    std::vector<PointSerial> added;

    void unite(const Outcome& other);
};

/// Whether there is any segment to be eased.
bool isPossible(const SplineBase& spline, const std::vector<PointSerial>& points);

/// The segments become `Bezier`, with as many points in them as the ease has. What lies outside keeps its shape: a
/// `Tcb` segment beside an added point becomes `Bezier` for that; only one that has an ease of its own bends. All
/// values keep to `options`, which must allow `Bezier` points.
Outcome apply(SplineBase& spline, const std::vector<PointSerial>& points, const Ease& ease,
              const CurveOptions& options);

} // namespace SegmentEase

} // namespace curveeditor
