// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveKeys.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <utility>

namespace {

using PointInfo = SplineBase::PointInfo;

constexpr double shortestPart = 0x1p-14;   // of a segment
constexpr double steepPart = 0x1p-5;       // that may lose its slope
constexpr double finestTolerance = 1e-9;   // of what a segment's values span
constexpr double measuringMargin = 1.01;   // of what is measured between samples
constexpr double smallestReach = 1e-9;     // of a handle that points straight up or down
constexpr double steepest = 3.0;           // chords that a cubic curve without a turn can be
constexpr std::size_t measuredPlaces = 32; // of each piece

/// A number no further from 0.0 than the greatest one; 0.0 for what is none.
double inRange(double number)
{
    constexpr double greatest = std::numeric_limits<double>::max();
    return std::isnan(number) ? 0.0 : std::clamp(number, -greatest, greatest);
}

double slopeBetween(double fromTime, double fromValue, double toTime, double toValue)
{
    return inRange((toValue - fromValue) / (toTime - fromTime));
}

/// Where a path is at some place, and how steep.
struct Stop
{
    double time, value, slope;
};

/// A segment by places from 0.0 to 1.0, along which its time does not fall.
using Path = std::function<Stop(double place)>;

/// A segment of keys.
class KeyPath
{
public:
    KeyPath(const CurveKeys::Key& from, const CurveKeys::Key& to)
        : fromSlope_(from.leaving.slope), toSlope_(to.arriving.slope)
    {
        const double length = to.time - from.time;
        const double out = from.leaving.reach * length, in = to.arriving.reach * length;
        times_ = {from.time, from.time + out, to.time - in, to.time};
        values_ = {from.value, inRange(from.value + out * fromSlope_), inRange(to.value - in * toSlope_),
                   to.value};
    }

    Stop operator()(double place) const
    {
        if (place == 0.0)
            return {times_[0], values_[0], endSlope(0, 1, fromSlope_)};
        if (place == 1.0)
            return {times_[3], values_[3], endSlope(3, -1, toSlope_)};
        Four times = times_, values = values_;
        for (std::size_t count = 3; count > 1; --count) {
            for (std::size_t i = 0; i < count; ++i) {
                times[i] = std::lerp(times[i], times[i + 1], place);
                values[i] = std::lerp(values[i], values[i + 1], place);
            }
        }
        return {std::lerp(times[0], times[1], place), std::lerp(values[0], values[1], place),
                slopeBetween(times[0], values[0], times[1], values[1])};
    }
    double span() const
    {
        const auto [lowest, highest] = std::minmax_element(values_.begin(), values_.end());
        return *highest - *lowest;
    }

private:
    using Four = std::array<double, 4>;

    /// That of the handle or, where it is the key itself, toward the next of the four that is apart from the end.
    double endSlope(std::size_t end, int step, double handleSlope) const
    {
        std::size_t other = end + std::size_t(step);
        if (times_[other] != times_[end])
            return handleSlope;
        while (times_[other] == times_[end])
            other += std::size_t(step);
        return slopeBetween(times_[end], values_[end], times_[other], values_[other]);
    }

    Four times_{}, values_{};
    double fromSlope_, toSlope_;
};

/// One cubic piece in the place of a part of a path.
struct Piece
{
    Stop from, to;

    /// The same, not so steep at its ends that it would turn.
    Piece limited() const
    {
        const double chord = steepest * slopeBetween(from.time, from.value, to.time, to.value);
        const auto limit = [&](const Stop& stop) {
            return Stop{stop.time, stop.value,
                        std::clamp(stop.slope, std::min(chord, 0.0), std::max(chord, 0.0))};
        };
        return {limit(from), limit(to)};
    }
    SplineState state() const
    {
        PointInfo first{from.time, from.value}, last{to.time, to.value};
        first.tanRight = from.slope;
        last.tanLeft = to.slope;
        last.type = SplineBase::Bezier;
        return {{first, last}};
    }
};

/// How far the piece is from the stops of the path between its ends. The peaks between three stops are those of a parabola.
double deviationOf(const Piece& piece, const std::array<Stop, measuredPlaces + 1>& stops)
{
    SplineBase curve;
    curve.assign(piece.state());
    std::array<double, measuredPlaces + 1> errors{};
    for (std::size_t i = 1; i < measuredPlaces; ++i)
        errors[i] = std::abs(curve(stops[i].time) - stops[i].value);
    double worst = 0.0;
    for (std::size_t i = 1; i < measuredPlaces; ++i) {
        const double left = errors[i - 1], peak = errors[i], right = errors[i + 1];
        const double bend = 2.0 * peak - left - right;
        const bool isPeak = peak >= left && peak >= right && bend > 0.0;
        worst = std::max(worst, isPeak ? peak + (left - right) / bend * (left - right) / 8.0 : peak);
    }
    return worst * measuringMargin;
}

/// Makes the points of a curve, segment by segment.
class PointList
{
public:
    PointList(double tolerance, std::size_t size) : tolerance_(tolerance) { points_.reserve(size); }

    /// A point that ends a segment as it is.
    void add(const PointInfo& point) { points_.push_back(point); }
    /// One that ends a segment that has to be fitted; what else it has, besides its arriving slope, stays.
    void addFitted(const PointInfo& point, const Path& path, double span)
    {
        divide(path, std::max(tolerance_, span * finestTolerance), 0.0, 1.0);
        const double slope = points_.back().tanLeft;
        points_.back() = point;
        points_.back().tanLeft = slope;
        points_.back().type = SplineBase::Bezier;
    }

    PointInfo& last() { return points_.back(); }
    bool isFull() const { return points_.size() > CurveKeys::pointLimit; }
    std::vector<PointInfo>& points() { return points_; }
    double deviation() const { return deviation_; }

private:
    void divide(const Path& path, double tolerance, double from, double to)
    {
        std::array<Stop, measuredPlaces + 1> stops{};
        for (std::size_t i = 0; i < stops.size(); ++i)
            stops[i] = path(std::lerp(from, to, double(i) / measuredPlaces));
        Piece piece{stops.front(), stops.back()};
        double deviation = deviationOf(piece, stops);
        if (deviation > tolerance && to - from <= steepPart) {
            const Piece other = piece.limited();
            const double otherDeviation = deviationOf(other, stops);
            if (otherDeviation < deviation) {
                piece = other;
                deviation = otherDeviation;
            }
        }
        const Stop& middle = stops[measuredPlaces / 2];
        const bool isDivisible =
            to - from > shortestPart && middle.time > stops.front().time && middle.time < stops.back().time;
        if (deviation > tolerance && isDivisible && !isFull()) {
            divide(path, tolerance, from, (from + to) / 2.0);
            divide(path, tolerance, (from + to) / 2.0, to);
            return;
        }
        deviation_ = std::max(deviation_, deviation);
        append(piece);
    }
    void append(const Piece& piece)
    {
        points_.back().tanRight = piece.from.slope;
        points_.push_back(piece.state().points.back());
    }

    double tolerance_;
    double deviation_ = 0.0;
    std::vector<PointInfo> points_;
};

bool isSide(const CurveKeys::Side& side)
{
    return std::isfinite(side.slope) && side.reach >= 0.0 && side.reach <= 1.0;
}

bool isKey(const CurveKeys::Key& key)
{
    return std::isfinite(key.time) && std::isfinite(key.value) && isSide(key.arriving) && isSide(key.leaving);
}

std::int32_t typeOf(CurveKeys::Shape shape)
{
    return shape == CurveKeys::Shape::Hold     ? SplineBase::Hold
           : shape == CurveKeys::Shape::Linear ? SplineBase::Linear
                                               : SplineBase::Bezier;
}

CurveKeys::Shape shapeOf(std::int32_t type)
{
    return type == SplineBase::Hold     ? CurveKeys::Shape::Hold
           : type == SplineBase::Bezier ? CurveKeys::Shape::Bezier
                                        : CurveKeys::Shape::Linear;
}

PointInfo pointOf(const CurveKeys::Key& key, CurveKeys::Shape shape)
{
    PointInfo point{key.time, key.value};
    point.tanLeft = key.arriving.slope;
    point.tanRight = key.leaving.slope;
    point.type = typeOf(shape);
    return point;
}

bool isExact(const CurveKeys::Key& from, const CurveKeys::Key& to)
{
    using namespace CurveKeys;
    return from.shape != Shape::Bezier || !(from.time < to.time) ||
           (from.leaving.reach == usualReach && to.arriving.reach == usualReach);
}

bool isEased(const SplineBase& spline, unsigned end)
{
    return spline[end - 1]->easeFrom != 0.0 || spline[end]->easeTo != 0.0;
}

/// Whether the segment is a cubic curve, but not yet one by handles.
bool isComputed(const SplineBase& spline, unsigned end)
{
    const std::int32_t type = spline[end]->type;
    return type == SplineBase::Tcb ||
           (type != SplineBase::Bezier && type != SplineBase::Hold && isEased(spline, end));
}

/// Adds the point at `end` without anything but what keys have.
void addPlain(const SplineBase& spline, unsigned end, PointList& list)
{
    const PointInfo& from = *spline[end - 1];
    const PointInfo& point = *spline[end];
    PointInfo plain =
        pointOf({point.time, point.pos, {point.tanLeft}, {point.tanRight}}, shapeOf(point.type));
    if (!isComputed(spline, end) || !(from.time < point.time))
        return list.add(plain);
    double length = 0.0;
    const double leaving = spline.getTangentRightAtNode(end, length);
    const double arriving = spline.getTangentLeftAtNode(end, length);
    if (point.type == SplineBase::Tcb && isEased(spline, end)) {
        const Path path = [&](double place) {
            if (place == 0.0)
                return Stop{from.time, from.pos, leaving};
            if (place == 1.0)
                return Stop{point.time, point.pos, arriving};
            const double time = std::lerp(from.time, point.time, place);
            return Stop{time, spline(time), spline.slope(time)};
        };
        return list.addFitted(plain, path, std::abs(point.pos - from.pos));
    }
    list.last().tanRight = leaving;
    plain.tanLeft = arriving;
    plain.type = SplineBase::Bezier;
    list.add(plain);
}

bool isFinite(const PointInfo& point)
{
    return std::isfinite(point.tanLeft) && std::isfinite(point.tanRight);
}

} // namespace

bool CurveKeys::isWhole(const Curve& curve)
{
    const auto& keys = curve.keys;
    return !keys.empty() && std::isfinite(curve.defaultValue) &&
           std::all_of(keys.begin(), keys.end(), isKey) &&
           std::is_sorted(keys.begin(), keys.end(),
                          [](const Key& left, const Key& right) { return left.time < right.time; });
}

CurveKeys::Points CurveKeys::toSpline(const Curve& curve, double tolerance)
{
    if (!isWhole(curve) || !(tolerance >= 0.0))
        return {};
    PointList list(tolerance, curve.keys.size());
    list.add(pointOf(curve.keys.front(), curve.keys.front().shape));
    for (std::size_t i = 1; i < curve.keys.size() && !list.isFull(); ++i) {
        const Key& from = curve.keys[i - 1];
        const Key& to = curve.keys[i];
        const PointInfo point = pointOf(to, from.shape);
        if (isExact(from, to)) {
            list.add(point);
        } else {
            const KeyPath path(from, to);
            list.addFitted(point, path, path.span());
        }
    }
    if (list.isFull())
        return {};
    return {{std::move(list.points()), curve.firstType, curve.lastType, curve.defaultValue},
            list.deviation()};
}

CurveKeys::Keys CurveKeys::fromSpline(const SplineBase& spline, double tolerance)
{
    const SplineState state = spline.state();
    if (!state.isWhole() || !std::all_of(state.points.begin(), state.points.end(), isFinite) ||
        !(tolerance >= 0.0))
        return {};
    PointList list(tolerance, state.points.size());
    list.add(state.points.front());
    for (unsigned end = 1; end < state.points.size() && !list.isFull(); ++end)
        addPlain(spline, end, list);
    if (list.isFull())
        return {};
    Keys result{{{}, state.firstType, state.lastType, state.defaultValue}, list.deviation()};
    const std::vector<PointInfo>& points = list.points();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::int32_t type = points[std::min(i + 1, points.size() - 1)].type;
        result.curve.keys.push_back(
            {points[i].time, points[i].pos, {points[i].tanLeft}, {points[i].tanRight}, shapeOf(type)});
    }
    return result;
}

void CurveKeys::setEase(Key& from, Key& to, double x1, double y1, double x2, double y2)
{
    const double slope = slopeBetween(from.time, from.value, to.time, to.value);
    const auto side = [slope](double reach, double rise) {
        const double inside = rise == 0.0 ? reach : std::max(reach, smallestReach);
        return Side{inside > 0.0 ? inRange(slope * (rise / inside)) : 0.0, inside};
    };
    from.shape = Shape::Bezier;
    from.leaving = side(x1, y1);
    to.arriving = side(1.0 - x2, 1.0 - y2);
}
