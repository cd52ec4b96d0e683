// SPDX-License-Identifier: MIT
#include <curveeditor/edit/SplineEdits.h>

#include <curveeditor/model/CurveFit.h>
#include <curveeditor/model/KeptSlopes.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numeric>
#include <unordered_set>

namespace curveeditor {

namespace {

using PointInfo = SplineBase::PointInfo;

constexpr double tangentShortening = 0.001;

PointInfo* find(SplineBase& spline, PointSerial serial)
{
    return spline.modify(static_cast<unsigned>(indicesOf({serial}, spline).front()));
}

/// The points themselves, in the order of `serials`.
std::vector<PointInfo*> find(SplineBase& spline, const std::vector<PointSerial>& serials)
{
    std::vector<PointInfo*> points;
    for (const std::int32_t index : indicesOf(serials, spline)) {
        if (index >= 0)
            points.push_back(spline.modify(static_cast<unsigned>(index)));
    }
    return points;
}

double PointInfo::*member(SplineEdits::Field field)
{
    using SplineEdits::Field;
    switch (field) {
    case Field::Time:
        return &PointInfo::time;
    case Field::Value:
        return &PointInfo::pos;
    case Field::Tension:
        return &PointInfo::tension;
    case Field::Continuity:
        return &PointInfo::continuity;
    case Field::Bias:
        return &PointInfo::bias;
    case Field::TangentLeft:
        return &PointInfo::tanLeft;
    case Field::TangentRight:
        return &PointInfo::tanRight;
    case Field::EaseFrom:
        return &PointInfo::easeFrom;
    case Field::EaseTo:
        break;
    }
    return &PointInfo::easeTo;
}

struct Place
{
    double time;
    double value;
};

/// Moves each point to where `target` says, all at once: one after the other, many points would pass many.
template <typename Target>
void moveAll(SplineBase& spline, const std::vector<PointSerial>& points, Target target)
{
    const std::unordered_set<PointSerial> moving(points.begin(), points.end());
    SplineState state = spline.state();
    std::vector<PointInfo> resting, moved;
    for (PointInfo point : state.points) {
        const Place place = moving.count(point.serial) > 0 ? target(point) : Place{point.time, point.pos};
        const bool rests = place.time == point.time || !std::isfinite(place.time);
        if (!rests)
            point.time = place.time;
        if (std::isfinite(place.value))
            point.pos = place.value;
        (rests ? resting : moved).push_back(point);
    }
    std::stable_sort(moved.begin(), moved.end(), isEarlierPoint);
    state.points.clear();
    std::merge(resting.begin(), resting.end(), moved.begin(), moved.end(), std::back_inserter(state.points),
               isEarlierPoint);
    spline.assign(state);
}

/// A point among its neighbours, which are null at the ends of the spline.
struct Neighbourhood
{
    Neighbourhood(const SplineBase& spline, unsigned index)
        : previous(index > 0 ? spline[index - 1] : nullptr), point(*spline[index]), next(spline[index + 1])
    {
    }
    bool hasBezierLeft() const { return previous && point.type == SplineBase::Bezier; }
    bool hasBezierRight() const { return next && next->type == SplineBase::Bezier; }

    const PointInfo* previous;
    const PointInfo& point;
    const PointInfo* next;
};

/// Gives both tangents of each point the slope that `slopeOf` finds from its neighbourhood.
template <typename SlopeOf>
void setTangents(SplineBase& spline, const std::vector<PointSerial>& points, SlopeOf slopeOf)
{
    for (const std::int32_t index : indicesOf(points, spline)) {
        if (index < 0)
            continue;
        const Neighbourhood around(spline, unsigned(index));
        if (!around.hasBezierLeft() && !around.hasBezierRight())
            continue;
        const double slope = slopeOf(around);
        spline.setTanLeft(spline.modify(index), slope);
        spline.setTanRight(spline.modify(index), slope);
    }
}

/// The index of the last of the points at `time`, -1 if there is none.
std::int32_t lastAt(const SplineBase& spline, double time)
{
    const auto& points = spline.getControlPoints();
    const auto behind =
        std::upper_bound(points.begin(), points.end(), time,
                         [](double earlier, const PointInfo* point) { return earlier < point->time; });
    return behind != points.begin() && behind[-1]->time == time ? std::int32_t(behind - points.begin()) - 1
                                                                : -1;
}

/// A `Bezier` segment that was not there before becomes a straight line. Both points keep their other tangent.
void straighten(PointInfo& from, PointInfo& to)
{
    const double slope = (to.pos - from.pos) / (to.time - from.time);
    if (to.type == SplineBase::Bezier && std::isfinite(slope))
        from.tanRight = to.tanLeft = slope;
}

} // namespace

double SplineEdits::read(const PointInfo& point, Field field)
{
    return point.*member(field);
}

void SplineEdits::write(SplineBase& spline, PointSerial serial, Field field, double number)
{
    PointInfo* const point = find(spline, serial);
    if (!point || !std::isfinite(number))
        return;
    if (field == Field::Time)
        spline.setTime(point, number);
    else
        point->*member(field) = number;
}

void SplineEdits::write(SplineBase& spline, const std::vector<PointSerial>& points, Field field,
                        double number)
{
    if (!std::isfinite(number))
        return;
    if (field != Field::Time) {
        for (PointInfo* const point : find(spline, points))
            point->*member(field) = number;
        return;
    }
    SplineState state = spline.state();
    const std::unordered_set<PointSerial> moving(points.begin(), points.end());
    const auto rest =
        std::stable_partition(state.points.begin(), state.points.end(),
                              [&](const PointInfo& point) { return moving.count(point.serial) == 0; });
    std::for_each(rest, state.points.end(), [number](PointInfo& point) { point.time = number; });
    std::inplace_merge(state.points.begin(), rest, state.points.end(), isEarlierPoint);
    spline.assign(state);
}

void SplineEdits::setFirstType(SplineBase& spline, int type)
{
    spline.firstType = type;
}

void SplineEdits::setLastType(SplineBase& spline, int type)
{
    spline.lastType = type;
}

PointSerial SplineEdits::addPoint(SplineBase& spline, double time, double value)
{
    if (!std::isfinite(time) || !std::isfinite(value))
        return 0;
    spline.addPoint(time, value);
    return spline.modify(lastAt(spline, time))->serial;
}

std::vector<PointSerial> SplineEdits::addPoints(SplineBase& spline, std::vector<SplineBase::PointInfo> points)
{
    std::erase_if(points, [](const SplineBase::PointInfo& point) {
        return !std::isfinite(point.time) || !std::isfinite(point.pos);
    });
    std::stable_sort(points.begin(), points.end(), isEarlierPoint);
    for (SplineBase::PointInfo& point : points)
        point.serial = 0;
    SplineState state = spline.state();
    SplineState both = state;
    both.points.clear();
    std::merge(state.points.begin(), state.points.end(), points.begin(), points.end(),
               std::back_inserter(both.points), isEarlierPoint);
    if (points.empty() || !spline.assign(both))
        return {};
    spline.mend();
    std::vector<PointSerial> serials;
    for (std::size_t i = 0; i < both.points.size(); ++i) {
        if (both.points[i].serial == 0)
            serials.push_back(spline.getControlPoints()[i]->serial);
    }
    return serials;
}

SplineState SplineEdits::withSpan(const SplineBase& spline, std::vector<SplineBase::PointInfo> span,
                                  bool keepsShape)
{
    SplineState state = spline.state();
    if (span.empty())
        return state;
    std::vector<PointInfo>& points = state.points;
    const auto isBehind = [](double time, const PointInfo& point) {
        return time < point.time;
    };
    const auto first =
        std::lower_bound(points.begin(), points.end(), span.front(), isEarlierPoint) - points.begin();
    const auto behind =
        std::upper_bound(points.begin(), points.end(), span.back().time, isBehind) - points.begin();
    if (keepsShape) {
        keepSlopes(spline, std::size_t(first) - 1, points);
        keepSlopes(spline, std::size_t(behind) + 1, points);
    }
    if (first > 0)
        straighten(points[std::size_t(first) - 1], span.front());
    if (std::size_t(behind) < points.size())
        straighten(span.back(), points[std::size_t(behind)]);
    const auto end = points.erase(points.begin() + first, points.begin() + behind);
    points.insert(end, span.begin(), span.end());
    return state;
}

std::vector<PointSerial> SplineEdits::pointsWithin(const SplineBase& spline, double first, double last)
{
    std::vector<PointSerial> within;
    for (const PointInfo* const point : spline.getControlPoints()) {
        if (point->time >= first && point->time <= last)
            within.push_back(point->serial);
    }
    return within;
}

std::vector<SplineBase::PointInfo> SplineEdits::copyOf(const SplineBase& spline,
                                                       const std::vector<PointSerial>& points)
{
    std::vector<std::int32_t> indices = indicesOf(points, spline);
    std::erase_if(indices, [](std::int32_t index) { return index < 0; });
    std::sort(indices.begin(), indices.end());
    std::vector<SplineBase::PointInfo> copies;
    copies.reserve(indices.size());
    for (const std::int32_t index : indices)
        copies.push_back(*spline.getControlPoints()[std::size_t(index)]);
    return copies;
}

PointSerial SplineEdits::insertOnCurve(SplineBase& spline, double time)
{
    if (!std::isfinite(time))
        return 0;
    std::int32_t index = lastAt(spline, time);
    if (index >= 0)
        return spline.modify(index)->serial;
    spline.addPoint(time, spline(time));
    index = lastAt(spline, time);
    if (index < 0)
        return 0;
    const std::int32_t last = std::int32_t(spline.getControlPointsNumber()) - 1;
    if (index == 0)
        straighten(*spline.modify(0), *spline.modify(1));
    else if (index == last)
        straighten(*spline.modify(last - 1), *spline.modify(last));
    return spline.modify(index)->serial;
}

void SplineEdits::removePoints(SplineBase& spline, const std::vector<PointSerial>& points)
{
    if (points.empty())
        return;
    const std::unordered_set<PointSerial> gone(points.begin(), points.end());
    SplineState state = spline.state();
    const auto isGone = [&gone](const PointInfo& point) {
        return gone.count(point.serial) > 0;
    };
    if (std::all_of(state.points.begin(), state.points.end(), isGone)) {
        const PointSerial last = points.back();
        std::erase_if(state.points, [last](const PointInfo& point) { return point.serial != last; });
    } else {
        std::erase_if(state.points, isGone);
    }
    spline.assign(state);
}

void SplineEdits::setType(SplineBase& spline, const std::vector<PointSerial>& points, int type)
{
    const std::vector<std::int32_t> indices = indicesOf(points, spline);
    for (const std::int32_t index : indices) {
        PointInfo* const point = spline.modify(static_cast<unsigned>(index));
        if (!point || type != SplineBase::Bezier)
            continue;
        double length = 0.0;
        if (unsigned(index) + 1 < spline.getControlPointsNumber())
            spline.setTanRight(point, spline.getTangentRightAtNode(unsigned(index) + 1, length));
        if (index > 0)
            spline.setTanLeft(point, spline.getTangentLeftAtNode(unsigned(index), length));
    }
    for (const std::int32_t index : indices) {
        if (PointInfo* const point = spline.modify(static_cast<unsigned>(index)))
            point->type = type;
    }
}

void SplineEdits::flattenTangents(SplineBase& spline, const std::vector<PointSerial>& points)
{
    setTangents(spline, points, [](const Neighbourhood&) { return 0.0; });
}

void SplineEdits::alignTangents(SplineBase& spline, const std::vector<PointSerial>& points)
{
    setTangents(spline, points, [](const Neighbourhood& around) {
        const double left = around.point.tanLeft, right = around.point.tanRight;
        if (!around.hasBezierLeft())
            return right;
        return around.hasBezierRight() ? std::midpoint(left, right) : left;
    });
}

void SplineEdits::smoothTangents(SplineBase& spline, const std::vector<PointSerial>& points)
{
    setTangents(spline, points, [](const Neighbourhood& around) {
        return CurveFit::smoothSlope(around.previous, around.point, around.next);
    });
}

void SplineEdits::aimTangent(SplineBase& spline, PointSerial serial, Part part, double time, double value)
{
    PointInfo* const point = find(spline, serial);
    if (!point || part == Part::Point)
        return;
    const double valueDistance = value - point->pos;
    const double timeDistance = time - point->time;
    const double shortening = std::hypot(valueDistance, timeDistance) * tangentShortening;
    const double slope = valueDistance / (timeDistance + (timeDistance >= 0.0 ? shortening : -shortening));
    if (part != Part::RightTangent)
        spline.setTanLeft(point, slope);
    if (part != Part::LeftTangent)
        spline.setTanRight(point, slope);
}

void SplineEdits::scalePoints(SplineBase& spline, const std::vector<PointSerial>& points, double timeFactor,
                              double valueFactor, double pivotTime, double pivotValue)
{
    moveAll(spline, points, [=](const PointInfo& point) {
        return Place{pivotTime + (point.time - pivotTime) * timeFactor,
                     pivotValue + (point.pos - pivotValue) * valueFactor};
    });
}

void SplineEdits::panPoints(SplineBase& spline, const std::vector<PointSerial>& points, double timeOffset,
                            double valueOffset)
{
    moveAll(spline, points, [=](const PointInfo& point) {
        return Place{point.time + timeOffset, point.pos + valueOffset};
    });
}

} // namespace curveeditor
