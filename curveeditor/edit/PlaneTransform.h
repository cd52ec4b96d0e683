// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/PointDrag.h>
#include <curveeditor/edit/ViewStep.h>

namespace curveeditor {

/// Scaling about a pivot and a shift, along one axis. A value.
struct AxisTransform
{
    double factor = 1.0; ///< below 0 it mirrors
    double pivot = 0.0;
    double shift = 0.0;

    bool isIdentity() const { return factor == 1.0 && shift == 0.0; }
    /// Where a coordinate comes to lie; to the bit where it was if nothing is to be done.
    double operator()(double coordinate) const;
};

/// The same along both axes.
struct PlaneTransform
{
    AxisTransform time;
    AxisTransform value;

    bool isIdentity() const { return time.isIdentity() && value.isIdentity(); }
    /// Whether it does no more than moving.
    bool keepsSize() const { return time.factor == 1.0 && value.factor == 1.0; }
    bool mirrorsTime() const { return time.factor < 0.0; }
    /// Whether it leaves nothing of the times' distances, but for what rounding makes of it.
    bool collapsesTime() const;
    /// By what slopes are multiplied.
    double slopeFactor() const { return value.factor / time.factor; }
};

/// A frame about points. What of it is pulled is named by sides: of each axis the low one (-1), the high one (1) or
/// none (0); with none of both it is moved. A value.
struct PlaneFrame
{
    AxisRange time = AxisRange::nothing();
    AxisRange value = AxisRange::nothing();

    struct Grip
    {
        int time = 0;
        int value = 0;

        bool moves() const { return time == 0 && value == 0; }
    };

    /// What pulling a grip by that distance does: the side that is pulled follows, the opposite one, or else the middle,
    /// stays.
    PlaneTransform pulled(const Grip& grip, const PointDrag::Place& distance, bool aboutMiddle) const;
};

} // namespace curveeditor
