// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/PointDrag.h>

#include <vector>

namespace curveeditor {

/// A line drawn by hand, as a function of time: where it goes back, what is drawn later counts. A value.
class Stroke
{
public:
    using Place = PointDrag::Place;

    explicit Stroke(const Place& start) : places_{start}, last_(start) {}

    /// Draws straight on to a place. On the way places are kept about a `step` of time apart, which is greater than 0.
    void drawTo(const Place& place, double step);
    /// It is at one place yet.
    bool isDot() const { return isDot_; }

    /// Points of that type, `Bezier` or `Linear`, that keep to it within the tolerance; none where its numbers are not
    /// finite.
    std::vector<SplineBase::PointInfo> points(double tolerance, SplineBase::NodeType type) const;

private:
    std::vector<Place> places_; ///< ascending in time
    Place last_;
    bool isDot_ = true;
};

} // namespace curveeditor
