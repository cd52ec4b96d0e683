// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <cstdint>
#include <vector>

/// A node of this application's own curves, as its engine and its files have them.
struct Node
{
    /// What the curve does until the next node.
    enum class Shape { Hold, Linear, Following };

    std::int64_t frame = 0; ///< a whole sample frame, at least `leastDistance` behind that of the node before
    double value = 0.0;
    Shape shape = Shape::Linear;

    bool operator==(const Node& other) const
    {
        return frame == other.frame && value == other.value && shape == other.shape;
    }
};

constexpr double framesPerSecond = 48000.0;
constexpr std::int64_t leastDistance = 3200; ///< frames

/// The nodes, one at least, as points for a new spline. The type of a point is that of what leads to it: `Hold`, `Linear`,
/// or `Bezier` with slopes that follow from the neighbours.
std::vector<SplineBase::PointInfo> pointsOf(const std::vector<Node>& nodes);
/// The nodes that a tidy spline shows.
std::vector<Node> nodesOf(const SplineBase& spline);

/// Makes a spline that a hand has changed show nodes again: whole frames, least distances, following slopes. One that is
/// tidy stays as it is.
void tidy(SplineBase& spline);
/// Holds the value of the last node that is not behind `time` until the next one, or ends that.
void toggleHold(SplineBase& spline, double time);
