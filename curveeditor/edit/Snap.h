// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/Gesture.h>
#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/edit/Selection.h>

#include <functional>
#include <optional>
#include <vector>

namespace curveeditor {

/// What a place of the plane snaps to in a drag: frames, grid lines, the times and values of other points, and the
/// time line. A value; it is filled when a drag first needs it and asked at each step.
///
/// Time and value snap independently, each to the nearest of the kinds that are on, the first kind of two that
/// are equally near.
/// A frame and the time line are times alone. Numbers that are not finite attract nothing.
class Snap
{
public:
    enum Kind : unsigned { Nothing = 0, Frames = 1, GridLines = 2, Points = 4, TimeLine = 8 };

    struct Result
    {
        Gesture::Place place;
        unsigned timeKinds = Nothing; ///< the `Kind`s, or-ed, that lie where the time has snapped to
        unsigned valueKinds = Nothing;
    };

    /// The `Kind`s that are on, or-ed; none at first.
    unsigned kinds = Nothing;
    /// How near a place must come to be attracted, in pixels of each axis.
    double reach = 8.0;
    /// Frames in one time unit; there are none unless it is finite and positive.
    double fps = 0.0;
    std::optional<double> timeLine = std::nullopt;

    void setGridLines(std::vector<double> times, std::vector<double> values);
    /// A spline, which may be null, and the points of it that move.
    struct Source
    {
        const SplineBase* spline;
        std::vector<PointSerial> moving = {};
        /// Where a value of it is seen in the plane of the places that snap; null if it is one of that plane.
        std::function<double(double)> seenAt = nullptr;
    };
    /// The points of the splines, but those that move.
    void setPoints(const std::vector<Source>& sources);

    /// Where `place` comes to lie. On a canvas that can show nothing it stays.
    Result snapped(const Gesture::Place& place, const PlaneMapping& mapping) const;

private:
    class Nearest;

    void attractTime(Nearest& nearest) const;

    std::vector<double> gridTimes_; ///< these four are finite
    std::vector<double> gridValues_;
    std::vector<double> pointTimes_;
    std::vector<double> pointValues_;
};

} // namespace curveeditor
