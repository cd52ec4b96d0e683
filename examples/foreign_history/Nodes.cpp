// SPDX-License-Identifier: MIT
#include "Nodes.h"

#include <curveeditor/model/CurveFit.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace {

using Point = SplineBase::PointInfo;

/// Nodes in the order of time, and the corners by the serials of the nodes that they hold.
struct Track
{
    std::vector<Point> nodes;
    std::map<double, Point> corners;

    bool isHeld(std::size_t index) const { return corners.count(nodes[index].serial) > 0; }
};

std::int64_t frameOf(const Point& point)
{
    return std::llround(point.time * framesPerSecond);
}

void setFrame(Point& point, std::int64_t frame)
{
    point.time = double(frame) / framesPerSecond;
}

/// A corner whose node is gone, as after a paste, is a node like others.
Track trackOf(const SplineBase& spline)
{
    std::map<double, bool> isNode;
    for (const Point* const point : spline.getControlPoints())
        isNode[point->serial] = point->tension == 0.0;
    Track track;
    for (const Point* const point : spline.getControlPoints()) {
        const auto held = isNode.find(point->tension);
        if (held != isNode.end() && held->second) {
            track.corners.emplace(point->tension, *point);
        } else {
            track.nodes.push_back(*point);
            track.nodes.back().tension = 0.0;
        }
    }
    return track;
}

void placeOnFrames(std::vector<Point>& nodes)
{
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const std::int64_t frame = frameOf(nodes[i]);
        setFrame(nodes[i], i > 0 ? std::max(frame, frameOf(nodes[i - 1]) + leastDistance) : frame);
    }
}

void setSlopes(Track& track)
{
    for (std::size_t i = 0; i < track.nodes.size(); ++i) {
        const Point* const previous = i > 0 && !track.isHeld(i - 1) ? &track.nodes[i - 1] : nullptr;
        const Point* const next =
            i + 1 < track.nodes.size() && !track.isHeld(i) ? &track.nodes[i + 1] : nullptr;
        Point& node = track.nodes[i];
        node.tanLeft = node.tanRight = CurveFit::smoothSlope(previous, node, next);
    }
}

std::vector<Point> pointsOf(const Track& track)
{
    std::vector<Point> points;
    for (std::size_t i = 0; i < track.nodes.size(); ++i) {
        points.push_back(track.nodes[i]);
        if (i == 0 || !track.isHeld(i - 1))
            continue;
        Point corner;
        corner.serial =
            track.corners.at(track.nodes[i - 1].serial).serial; // so that it is the same point as before
        corner.time = track.nodes[i].time;
        corner.pos = track.nodes[i - 1].pos;
        corner.tension = track.nodes[i - 1].serial;
        corner.type = points.back().type = SplineBase::Linear;
        points.insert(points.end() - 1, corner);
    }
    return points;
}

void setTrack(SplineBase& spline, const Track& track)
{
    SplineState state = spline.state();
    state.points = pointsOf(track);
    spline.assign(state);
}

} // namespace

std::vector<Point> pointsOf(const std::vector<Node>& nodes)
{
    Track track;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const bool follows = i > 0 && nodes[i - 1].shape == Node::Shape::Following;
        Point point;
        point.serial = std::uint32_t(i) + 1;
        point.pos = nodes[i].value;
        point.type = follows ? SplineBase::Bezier : SplineBase::Linear;
        setFrame(point, nodes[i].frame);
        track.nodes.push_back(point);
        if (nodes[i].shape == Node::Shape::Hold)
            track.corners.emplace(point.serial, Point());
    }
    setSlopes(track);
    return pointsOf(track);
}

std::vector<Node> nodesOf(const SplineBase& spline)
{
    const Track track = trackOf(spline);
    std::vector<Node> nodes;
    for (std::size_t i = 0; i < track.nodes.size(); ++i) {
        nodes.push_back({frameOf(track.nodes[i]), track.nodes[i].pos});
        if (track.isHeld(i))
            nodes[i].shape = Node::Shape::Hold;
        else if (i + 1 < track.nodes.size() && track.nodes[i + 1].type == SplineBase::Bezier)
            nodes[i].shape = Node::Shape::Following;
    }
    return nodes;
}

void tidy(SplineBase& spline)
{
    Track track = trackOf(spline);
    placeOnFrames(track.nodes);
    setSlopes(track);
    setTrack(spline, track);
}

void toggleHold(SplineBase& spline, double time)
{
    Track track = trackOf(spline);
    const auto behind = std::find_if(track.nodes.begin(), track.nodes.end(),
                                     [time](const Point& node) { return node.time > time; });
    if (behind == track.nodes.begin())
        return;
    const double held = behind[-1].serial;
    if (track.corners.erase(held) == 0)
        track.corners.emplace(held, Point());
    setTrack(spline, track);
}
