// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PointTransform.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace curveeditor {

namespace {

using PointInfo = SplineBase::PointInfo;

bool hasFinitePlace(const PointInfo& point)
{
    return std::isfinite(point.time) && std::isfinite(point.pos);
}

bool hasFiniteSlopes(const PointInfo& point)
{
    return std::isfinite(point.tanLeft) && std::isfinite(point.tanRight);
}

/// Without -0.0, which would show.
double scaled(double slope, double factor)
{
    return slope * factor + 0.0;
}

void mirror(PointInfo& point)
{
    std::swap(point.tanLeft, point.tanRight);
    std::swap(point.easeTo, point.easeFrom);
    point.bias = 0.0 - point.bias;
}

} // namespace

PointTransform::PointTransform(const SplineBase& spline, const std::vector<PointSerial>& points,
                               bool makesBezier)
    : makesBezier_(makesBezier)
{
    own_.note(spline, points);
    std::vector<bool> isOwn(spline.getControlPointsNumber() + 2, false); // one more at each end
    for (const PlacedPoint& point : own_.points()) {
        places_.emplace(point.info.serial, int(places_.size()));
        isOwn[point.index + 1] = true;
    }
    const auto isOther = [&](std::size_t index) {
        return index > 0 && index + 1 < isOwn.size() && !isOwn[index];
    };
    for (const PlacedPoint& point : own_.points()) {
        const std::size_t end = point.index + 1;
        Segment segment;
        segment.type = point.info.type;
        segment.isWhole = isOwn[end - 1];
        if (segment.isWhole) {
            segment.isBesideOther = (end > 1 && isOther(end - 2)) || isOther(end + 1);
            segment.isEased = spline[unsigned(point.index) - 1]->easeFrom != 0.0 || point.info.easeTo != 0.0;
            double length = 0.0;
            segment.leaving = spline.getTangentRightAtNode(unsigned(point.index), length);
            segment.arriving = spline.getTangentLeftAtNode(unsigned(point.index), length);
        }
        segments_.push_back(segment);
    }
}

std::optional<PointTransform::Result> PointTransform::applied(const SplineBase& spline,
                                                              const PlaneTransform& transform) const
{
    Result result;
    spline.copyTo(result.state);
    const std::vector<PointInfo> points = changed(transform);
    const bool arePoints = std::all_of(points.begin(), points.end(), [&](const PointInfo& point) {
        return hasFinitePlace(point) && (transform.keepsSize() || hasFiniteSlopes(point));
    });
    if (!arePoints || transform.collapsesTime())
        return std::nullopt;
    result.state.points = inOrder(spline, points, transform.mirrorsTime());
    if (!transform.isIdentity())
        result.mayBend = keepShapes(result.state.points, transform);
    return result;
}

std::vector<PointSerial> PointTransform::points() const
{
    std::vector<PointSerial> serials;
    for (const PlacedPoint& point : own_.points())
        serials.push_back(point.info.serial);
    return serials;
}

int PointTransform::noted(PointSerial point) const
{
    const auto place = places_.find(point);
    return place == places_.end() ? -1 : place->second;
}

/// The noted points, each as it is to be, in their old order.
std::vector<PointInfo> PointTransform::changed(const PlaneTransform& transform) const
{
    std::vector<PointInfo> points;
    points.reserve(own_.points().size());
    for (const PlacedPoint& placed : own_.points()) {
        PointInfo point = placed.info;
        point.time = transform.time(point.time);
        point.pos = transform.value(point.pos);
        if (!transform.keepsSize()) {
            point.tanLeft = scaled(point.tanLeft, transform.slopeFactor());
            point.tanRight = scaled(point.tanRight, transform.slopeFactor());
        }
        points.push_back(point);
    }
    if (!transform.mirrorsTime())
        return points;
    for (std::size_t i = 0; i < points.size(); ++i) {
        mirror(points[i]);
        points[i].type = segments_[(i + 1) % points.size()].type;
    }
    return points;
}

/// All points of `spline`, with the noted ones as `changed`. Those that keep their time keep their place too.
std::vector<PointInfo> PointTransform::inOrder(const SplineBase& spline,
                                               const std::vector<PointInfo>& changed, bool isReversed) const
{
    std::vector<PointInfo> resting, moved;
    for (const PointInfo* const point : own_.backIn(spline)) {
        const int place = noted(point->serial);
        const PointInfo& present = place < 0 ? *point : changed[std::size_t(place)];
        const bool rests = place < 0 || (!isReversed && present.time == point->time);
        (rests ? resting : moved).push_back(present);
    }
    if (isReversed)
        std::reverse(moved.begin(), moved.end());
    std::stable_sort(moved.begin(), moved.end(), isEarlierPoint);
    std::vector<PointInfo> all;
    all.reserve(resting.size() + moved.size());
    std::merge(resting.begin(), resting.end(), moved.begin(), moved.end(), std::back_inserter(all),
               isEarlierPoint);
    return all;
}

/// Lets `Tcb` segments that lie, or have lain, beside a point that stays be `Bezier`; a mere move, as any of points, changes
/// no type. Returns whether one may bend.
bool PointTransform::keepShapes(std::vector<PointInfo>& points, const PlaneTransform& transform) const
{
    const auto isOther = [&](std::size_t index) {
        return index < points.size() && noted(points[index].serial) < 0;
    };
    bool mayBend = false;
    int toPlace = noted(points.front().serial);
    for (std::size_t end = 1; end < points.size(); ++end) {
        PointInfo& from = points[end - 1];
        PointInfo& to = points[end];
        const int fromPlace = std::exchange(toPlace, noted(to.serial));
        if (fromPlace < 0 || toPlace < 0 || std::abs(fromPlace - toPlace) != 1)
            continue;
        const Segment& segment = segments_[std::size_t(std::max(fromPlace, toPlace))];
        if (!segment.isWhole || segment.type != SplineBase::Tcb ||
            !(segment.isBesideOther || isOther(end - 2) || isOther(end + 1)))
            continue;
        const double first = transform.mirrorsTime() ? segment.arriving : segment.leaving;
        const double last = transform.mirrorsTime() ? segment.leaving : segment.arriving;
        const double leaving = scaled(first, transform.slopeFactor());
        const double arriving = scaled(last, transform.slopeFactor());
        if (transform.keepsSize() || !makesBezier_ || segment.isEased || !std::isfinite(leaving) ||
            !std::isfinite(arriving)) {
            mayBend = true;
            continue;
        }
        from.tanRight = leaving;
        to.tanLeft = arriving;
        to.type = SplineBase::Bezier;
    }
    return mayBend;
}

} // namespace curveeditor
