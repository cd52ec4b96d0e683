// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/PlaneMapping.h>

#include <QPointF>

namespace curveeditor {

/// A range of times or values.
struct AxisRange
{
    double low = 0.0;
    double high = 0.0;

    /// What includes no number yet.
    static AxisRange nothing();
    bool isNothing() const { return low > high; }
    bool contains(double number) const { return number >= low && number <= high; }

    bool operator==(const AxisRange& other) const = default;

    double span() const { return high - low; }
    /// Makes it large enough to hold `number`; not-a-number changes nothing.
    void include(double number);
};

/// Steps of the view: each gives the view that follows on another one. Limits hold, yet a step is never refused: it
/// goes as far as they let it. A view that lies outside its limits is not torn back, but can't go further out. No
/// side gets shorter than 1e-9, nor than 0.0002 of its distance from zero. A view that can't be shown, and steps
/// that are not finite, leave all as it is.
namespace ViewStep {

/// The shortest span of a view about that place.
double shortestSpanAt(double position);

/// What the limits of a view are.
struct Limits
{
    AxisRange time;
    AxisRange value;
};

/// Multiplies the visible spans; the place under `pixel` stays where it is.
PlaneMapping zoomed(const PlaneMapping& view, const Limits& limits, const QPointF& pixel, double timeFactor,
                    double valueFactor);
/// Moves the content of the view by a distance in pixels.
PlaneMapping panned(const PlaneMapping& view, const Limits& limits, const QPointF& distance);
/// Shows these ranges, with a tenth of the values' span free above and below, and a twentieth of that of the times
/// at both sides. A range without span shows what
/// stands there in the middle of the span that is visible now.
PlaneMapping showing(const PlaneMapping& view, const Limits& limits, const AxisRange& times,
                     const AxisRange& values);

/// Shows these ranges as they are, also where the canvas has no size yet. Ranges without span leave all as it is.
PlaneMapping placed(const PlaneMapping& view, const Limits& limits, const AxisRange& times,
                    const AxisRange& values);

} // namespace ViewStep

} // namespace curveeditor
