// SPDX-License-Identifier: MIT
#include "Nodes.h"

#include <curveeditor/model/CurveFit.h>

#include <algorithm>
#include <cmath>

namespace {

using Point = SplineBase::PointInfo;

std::int64_t frameOf(const Point& point)
{
    return std::llround(point.time * framesPerSecond);
}

void setFrame(Point& point, std::int64_t frame)
{
    point.time = double(frame) / framesPerSecond;
}

void placeOnFrames(std::vector<Point>& points)
{
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::int64_t frame = frameOf(points[i]);
        setFrame(points[i], i > 0 ? std::max(frame, frameOf(points[i - 1]) + leastDistance) : frame);
    }
}

/// A held value has no say in the slopes at its ends.
void setSlopes(std::vector<Point>& points)
{
    const auto isJoined = [&points](std::size_t index) {
        return index > 0 && index < points.size() && points[index].type != SplineBase::Hold;
    };
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i].tanLeft = points[i].tanRight = CurveFit::smoothSlope(
            isJoined(i) ? &points[i - 1] : nullptr, points[i], isJoined(i + 1) ? &points[i + 1] : nullptr);
    }
}

SplineBase::NodeType typeOf(Node::Shape shape)
{
    switch (shape) {
    case Node::Shape::Hold:
        return SplineBase::Hold;
    case Node::Shape::Following:
        return SplineBase::Bezier;
    default:
        return SplineBase::Linear;
    }
}

Node::Shape shapeOf(std::int32_t type)
{
    switch (type) {
    case SplineBase::Hold:
        return Node::Shape::Hold;
    case SplineBase::Bezier:
        return Node::Shape::Following;
    default:
        return Node::Shape::Linear;
    }
}

} // namespace

std::vector<Point> pointsOf(const std::vector<Node>& nodes)
{
    std::vector<Point> points;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        Point point;
        point.pos = nodes[i].value;
        point.type = i > 0 ? typeOf(nodes[i - 1].shape) : SplineBase::Linear;
        setFrame(point, nodes[i].frame);
        points.push_back(point);
    }
    setSlopes(points);
    return points;
}

std::vector<Node> nodesOf(const SplineBase& spline)
{
    std::vector<Node> nodes;
    for (const Point* const point : spline.getControlPoints()) {
        if (!nodes.empty())
            nodes.back().shape = shapeOf(point->type);
        nodes.push_back({frameOf(*point), point->pos});
    }
    return nodes;
}

void tidy(SplineBase& spline)
{
    SplineState state = spline.state();
    placeOnFrames(state.points);
    setSlopes(state.points);
    spline.assign(state);
}

void toggleHold(SplineBase& spline, double time)
{
    for (unsigned i = 1; i < unsigned(spline.getControlPointsNumber()); ++i) {
        Point* const next = spline.modify(i);
        if (spline[i - 1]->time <= time && time < next->time)
            next->type = next->type == SplineBase::Hold ? SplineBase::Linear : SplineBase::Hold;
    }
}
