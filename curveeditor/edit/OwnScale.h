// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/PointDrag.h>
#include <curveeditor/edit/ViewStep.h>

namespace curveeditor {

/// Gives each curve a scale of its own, while it is on: the values that are the scale of one curve lie at the same heights
/// as those that are the scale of any other. A view then shows values of one curve, the current one, and each other curve is
/// seen in a plane of its own. A value.
class OwnScale
{
public:
    /// The scale of a curve that has these values: a tenth of them is free above and below. A level curve has its bounds
    /// instead, or where these have no span below 1e9 a unit about it; one without a finite value has 0.0 to 1.0.
    static AxisRange of(const AxisRange& values, const AxisRange& bounds);

    bool isOn() const { return isOn_; }
    /// Whether a hand is at work, so that scales stay as they are.
    bool isFrozen = false;

    /// To be called with what one scale for all shows. Scales are seen whole from then on.
    void switchOn(const PlaneMapping& view);
    /// Gives what that was, with the times of now.
    PlaneMapping switchedOff(const PlaneMapping& view);

    /// How a curve of that scale is seen where `view` shows the current one; `view` itself where all share one scale.
    PlaneMapping planeOf(const AxisRange& scale, const PlaneMapping& view) const;
    /// The curve of that scale is the current one from now on. Gives the view that shows it as it was seen before.
    PlaneMapping followed(const AxisRange& scale, const PlaneMapping& view);

    /// Which part of the scale of the current curve the view shows; 0.0 to 1.0 is the whole of it.
    AxisRange heightsIn(const PlaneMapping& view) const;
    /// Its values at these heights.
    AxisRange valuesAt(const AxisRange& heights) const;

private:
    bool isOn_ = false;
    AxisRange shared_;  ///< values that were seen before it was switched on
    AxisRange scale_;   ///< of the current curve
    AxisRange values_;  ///< of that curve that the view showed last ...
    AxisRange heights_; ///< ... and which part of its scale they are; 0.0 to 1.0 is the whole of it
};

/// Where `place` of one plane is seen in another one of the same size and times; `place` itself where both are the same.
PointDrag::Place placeIn(const PlaneMapping& plane, const PointDrag::Place& place, const PlaneMapping& from);

} // namespace curveeditor
