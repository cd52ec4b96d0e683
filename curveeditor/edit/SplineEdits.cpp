// SPDX-License-Identifier: MIT
#include <curveeditor/edit/SplineEdits.h>

#include <curveeditor/model/SplineState.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>

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

void move(SplineBase& spline, PointInfo* point, double time, double value)
{
    spline.setTime(point, time);
    spline.setPos(point, value);
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
    std::inplace_merge(state.points.begin(), rest, state.points.end(),
                       [](const PointInfo& left, const PointInfo& right) { return left.time < right.time; });
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

void SplineEdits::addPoint(SplineBase& spline, double time, double value)
{
    spline.addPoint(time, value);
}

std::vector<PointSerial> SplineEdits::addPoints(SplineBase& spline, std::vector<SplineBase::PointInfo> points)
{
    const auto isEarlier = [](const SplineBase::PointInfo& left, const SplineBase::PointInfo& right) {
        return left.time < right.time;
    };
    std::erase_if(points, [](const SplineBase::PointInfo& point) {
        return !std::isfinite(point.time) || !std::isfinite(point.pos);
    });
    std::stable_sort(points.begin(), points.end(), isEarlier);
    for (SplineBase::PointInfo& point : points)
        point.serial = 0;
    SplineState state = spline.state();
    SplineState both = state;
    both.points.clear();
    std::merge(state.points.begin(), state.points.end(), points.begin(), points.end(),
               std::back_inserter(both.points), isEarlier);
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

std::vector<SplineBase::PointInfo> SplineEdits::copyOf(const SplineBase& spline,
                                                       const std::vector<PointSerial>& points)
{
    std::vector<std::int32_t> indices = indicesOf(points, spline);
    std::erase_if(indices, [](std::int32_t index) { return index < 0; });
    std::sort(indices.begin(), indices.end());
    std::vector<SplineBase::PointInfo> copies;
    for (const std::int32_t index : indices)
        copies.push_back(*spline.getControlPoints()[std::size_t(index)]);
    return copies;
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

void SplineEdits::place(SplineBase& spline, PointSerial serial, double time, double value)
{
    if (PointInfo* const point = find(spline, serial))
        move(spline, point, time, value);
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
                              double valueFactor)
{
    for (PointInfo* const point : find(spline, points))
        move(spline, point, point->time * timeFactor, point->pos * valueFactor);
}

void SplineEdits::panPoints(SplineBase& spline, const std::vector<PointSerial>& points, double timeOffset,
                            double valueOffset)
{
    for (PointInfo* const point : find(spline, points))
        move(spline, point, point->time + timeOffset, point->pos + valueOffset);
}
