// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveFit.h>

#include <curveeditor/model/HermiteFit.h>
#include <curveeditor/model/KeptSlopes.h>
#include <curveeditor/model/LinearFit.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

using namespace curveeditor;

namespace {

using CurveFit::Options;
using CurveFit::Result;
using CurveFit::Status;
using CurveFit::Steps;
using PointInfo = SplineBase::PointInfo;

/// Of a segment, which follows a cubic ease of time where it is `Tcb`.
constexpr std::size_t greatestDegree = 9;
constexpr std::size_t mostZeros = 1200;

/// What lies between the samples can be further away; a closer fit to them mostly helps.
constexpr int mostFits = 8;
constexpr double nextTolerance = 0.7;

PointInfo pointAt(double time, double value, SplineBase::NodeType type)
{
    PointInfo point;
    point.time = time;
    point.pos = value;
    point.type = type;
    return point;
}

bool isTolerance(double number)
{
    return number >= 0.0;
}

Result refusal(Status status)
{
    Result result;
    result.status = status;
    return result;
}

/// Those of the samples that are finite, without what lies between the first and the last at one time.
FitSamples usable(const std::vector<double>& times, const std::vector<double>& values)
{
    FitSamples samples;
    for (std::size_t i = 0; i < times.size(); ++i) {
        if (!std::isfinite(times[i]) || !std::isfinite(values[i]))
            continue;
        const std::size_t count = samples.times.size();
        if (count >= 2 && samples.times[count - 2] == times[i]) {
            samples.values.back() = values[i];
        } else {
            samples.times.push_back(times[i]);
            samples.values.push_back(values[i]);
        }
    }
    return samples;
}

void appendPiece(std::vector<PointInfo>& points, const FitSamples& samples, const Options& options)
{
    if (options.type == SplineBase::Linear) {
        for (const std::size_t knot : linearKnots(samples, options.tolerance))
            points.push_back(pointAt(samples.times[knot], samples.values[knot], options.type));
        return;
    }
    for (const FitKnot& knot : HermiteFit(samples, options.tolerance, options.monotone).knots()) {
        points.push_back(pointAt(samples.times[knot.sample], knot.value, options.type));
        points.back().tanLeft = knot.left;
        points.back().tanRight = knot.right;
    }
}

/// The points of the pieces between the steps.
std::vector<PointInfo> fittedPoints(const FitSamples& samples, const Options& options)
{
    std::vector<PointInfo> points;
    FitSamples piece;
    for (std::size_t i = 0; i < samples.times.size(); ++i) {
        if (!piece.times.empty() && piece.times.back() == samples.times[i]) {
            appendPiece(points, piece, options);
            piece = FitSamples();
        }
        piece.times.push_back(samples.times[i]);
        piece.values.push_back(samples.values[i]);
    }
    appendPiece(points, piece, options);
    return points;
}

/// A point for each sample. The slopes of a `Tcb` point at a jump are those of the chords beside it.
std::vector<PointInfo> allPoints(const FitSamples& samples, SplineBase::NodeType type)
{
    std::vector<PointInfo> points;
    for (std::size_t i = 0; i < samples.times.size(); ++i)
        points.push_back(pointAt(samples.times[i], samples.values[i], type));
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i].tanLeft = points[i].tanRight = CurveFit::smoothSlope(
            i > 0 ? &points[i - 1] : nullptr, points[i], i + 1 < points.size() ? &points[i + 1] : nullptr);
        if (type == SplineBase::Tcb && i > 0 && points[i - 1].time == points[i].time) {
            points[i].tension = points[i - 1].tension = 0.5;
            points[i].continuity = points[i - 1].continuity = -1.0;
        }
    }
    return points;
}

/// Of the real curve. The first of two samples at one time is a point, and so is never away from it.
double deviationFrom(const FitSamples& samples, const SplineState& state)
{
    SplineBase spline;
    spline.assign(state);
    std::vector<double> values(samples.times.size());
    spline.evaluate(samples.times.data(), values.data(), values.size());
    double greatest = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool isArrival = i + 1 < values.size() && samples.times[i] == samples.times[i + 1];
        if (!isArrival)
            greatest = std::max(greatest, std::abs(values[i] - samples.values[i]));
    }
    return greatest;
}

/// Of the points from one index to another, and of the curve between them.
FitSamples samplesOf(const SplineBase& spline, std::size_t first, std::size_t last)
{
    const auto& points = spline.getControlPoints();
    FitSamples samples;
    for (std::size_t i = first; i <= last; ++i) {
        const double start = points[i]->time;
        samples.times.push_back(start);
        samples.values.push_back(points[i]->pos);
        if (i == last)
            continue;
        const double end = points[i + 1]->time;
        for (std::size_t k = 1; k < CurveFit::samplesInSegment; ++k) {
            const double time = std::lerp(start, end, double(k) / double(CurveFit::samplesInSegment));
            if (samples.times.back() < time && time < end) {
                samples.times.push_back(time);
                samples.values.push_back(spline(time));
            }
        }
        const bool jumps =
            points[i + 1]->type == SplineBase::Hold && start < end && points[i]->pos != points[i + 1]->pos;
        if (jumps) {
            samples.times.push_back(end);
            samples.values.push_back(points[i]->pos);
        }
    }
    return samples;
}

/// The spline with other points, two at least, from one index to another.
SplineState withSpan(const SplineBase& spline, std::size_t first, std::size_t last,
                     const std::vector<PointInfo>& span)
{
    SplineState state = spline.state();
    std::vector<PointInfo>& points = state.points;
    keepSlopes(spline, first, points);
    keepSlopes(spline, last + 1, points);
    points[first].tanRight = span.front().tanRight;
    points[last].tanLeft = span.back().tanLeft;
    points[last].type = span.back().type;
    const auto between = points.begin() + std::ptrdiff_t(first) + 1;
    const auto end = points.erase(between, points.begin() + std::ptrdiff_t(last));
    points.insert(end, span.begin() + 1, span.end() - 1);
    return state;
}

/// No less than the distance of two curves between two times, where both are polynomials, and hardly more unless it is
/// above the tolerance.
///
/// Ehlich and Zeller, "Schwankung von Polynomen zwischen Gitterpunkten" (1964): a polynomial of degree n is nowhere
/// above its greatest value at the m zeros of a Chebyshev polynomial, divided by cos(n pi / 2 m).
double distanceWithin(const SplineBase& left, const SplineBase& right, double first, double last,
                      double tolerance)
{
    double bound = 0.0;
    std::vector<double> times, leftValues, rightValues;
    for (std::size_t count = 4 * greatestDegree; count <= mostZeros; count *= 2) {
        times.clear();
        for (std::size_t i = count; i-- > 0;) {
            const double angle = (double(i) + 0.5) * std::numbers::pi / double(count);
            const double time = std::lerp(first, last, 0.5 + 0.5 * std::cos(angle));
            if (first < time && time < last)
                times.push_back(time);
        }
        leftValues.resize(times.size());
        rightValues.resize(times.size());
        left.evaluate(times.data(), leftValues.data(), times.size());
        right.evaluate(times.data(), rightValues.data(), times.size());
        double found = 0.0;
        for (std::size_t i = 0; i < times.size(); ++i)
            found = std::max(found, std::abs(leftValues[i] - rightValues[i]));
        bound = found / std::cos(double(greatestDegree) * std::numbers::pi / double(2 * count));
        if (found > tolerance || bound <= tolerance)
            break;
    }
    return bound;
}

/// The same from one point of a spline to another, where the second curve has points of its own.
double distanceWithin(const SplineBase& spline, const SplineState& state, std::size_t first, std::size_t last,
                      double tolerance)
{
    SplineBase other;
    if (!other.assign(state))
        return std::numeric_limits<double>::infinity();
    std::vector<double> times;
    for (std::size_t i = first; i <= last; ++i)
        times.push_back(spline.getControlPoints()[i]->time);
    for (const PointInfo* const point : other.getControlPoints()) {
        if (times.front() < point->time && point->time < spline.getControlPoints()[last]->time)
            times.push_back(point->time);
    }
    std::sort(times.begin(), times.end());
    double greatest = 0.0;
    for (std::size_t i = 1; i < times.size() && greatest <= tolerance; ++i)
        greatest = std::max(greatest, distanceWithin(spline, other, times[i - 1], times[i], tolerance));
    return greatest;
}

/// The times of the steps; none if they are refused.
std::vector<double> timesOf(const Steps& steps, Status& status)
{
    const double span = steps.last - steps.first;
    status = Status::BadRange;
    if (!std::isfinite(span) || !std::isfinite(steps.step) || !(span >= 0.0) || !(steps.step > 0.0))
        return {};
    const double count = std::floor(span / steps.step);
    status = Status::TooManyPoints;
    if (!(count < double(CurveFit::stepLimit)))
        return {};
    status = Status::Done;
    std::vector<double> times;
    for (std::size_t i = 0; i <= std::size_t(count); ++i)
        times.push_back(std::min(steps.first + double(i) * steps.step, steps.last));
    if (times.back() < steps.last)
        times.push_back(steps.last);
    return times;
}

/// Of the steps and the jumps among them, unless they are refused.
FitSamples samplesOf(const std::function<double(double)>& function, const Steps& steps, Status& status)
{
    const std::vector<double> times = timesOf(steps, status);
    const double nearness = 1e-6 * steps.step; // more than rounding makes of it
    auto jump = std::find_if(steps.jumps.begin(), steps.jumps.end(),
                             [&](const CurveFit::Jump& each) { return each.time >= steps.first - nearness; });
    FitSamples samples;
    for (const double time : times) {
        bool isJump = false;
        for (; jump != steps.jumps.end() && jump->time <= time + nearness; ++jump) {
            isJump = jump->time >= time - nearness;
            samples.times.insert(samples.times.end(), 2, isJump ? time : jump->time);
            samples.values.insert(samples.values.end(), {jump->before, jump->value});
        }
        if (!isJump) {
            samples.times.push_back(time);
            samples.values.push_back(function(time));
        }
    }
    if (samples.times.size() > std::max(times.size(), CurveFit::stepLimit))
        status = Status::TooManyPoints;
    return samples;
}

} // namespace

Result CurveFit::fit(const std::vector<double>& times, const std::vector<double>& values,
                     const Options& options)
{
    if (!isTolerance(options.tolerance))
        return refusal(Status::BadTolerance);
    if (options.type != SplineBase::Bezier && options.type != SplineBase::Linear)
        return refusal(Status::BadType);
    if (times.size() != values.size())
        return refusal(Status::SizesDiffer);
    const FitSamples samples = usable(times, values);
    if (!std::is_sorted(samples.times.begin(), samples.times.end()))
        return refusal(Status::TimesDescend);
    if (samples.times.empty())
        return refusal(Status::NoSamples);
    Result result;
    result.status = Status::Done;
    result.samples = samples.times.size();
    result.spline.points = fittedPoints(samples, options);
    result.deviation = deviationFrom(samples, result.spline);
    if (result.deviation > options.tolerance) {
        result.spline.points = allPoints(samples, options.type);
        result.deviation = deviationFrom(samples, result.spline);
    }
    return result;
}

Result CurveFit::simplify(const SplineBase& spline, const Options& options)
{
    if (!spline.state().isWhole())
        return refusal(Status::NotWhole);
    const std::size_t last = spline.getControlPointsNumber() - 1;
    if (last > 0)
        return simplify(spline, 0, last, options);
    Result result = fit({spline.getFirst()->time}, {spline.getFirst()->pos}, options);
    if (result.isDone())
        result.spline = spline.state();
    return result;
}

Result CurveFit::simplify(const SplineBase& spline, std::size_t first, std::size_t last,
                          const Options& options)
{
    if (first >= last || last >= spline.getControlPointsNumber())
        return refusal(Status::NoSamples);
    if (!spline.state().isWhole())
        return refusal(Status::NotWhole);
    const FitSamples samples = samplesOf(spline, first, last);
    Options closer = options;
    for (int i = 0; i < mostFits; ++i) {
        Result result = fit(samples.times, samples.values, closer);
        if (!result.isDone())
            return result;
        if (result.spline.points.size() > last - first)
            break;
        result.spline = withSpan(spline, first, last, result.spline.points);
        result.deviation =
            std::max(result.deviation, distanceWithin(spline, result.spline, first, last, options.tolerance));
        if (result.deviation <= options.tolerance)
            return result;
        closer.tolerance *= nextTolerance;
    }
    Result unchanged;
    unchanged.status = Status::Done;
    unchanged.spline = spline.state();
    return unchanged;
}

std::vector<CurveFit::Jump> CurveFit::jumpsOf(const SplineBase& spline)
{
    std::vector<Jump> jumps;
    const auto& points = spline.getControlPoints();
    for (std::size_t i = 1; i < points.size(); ++i) {
        const PointInfo &from = *points[i - 1], &to = *points[i];
        if (!jumps.empty() && jumps.back().time == to.time)
            jumps.back().value = to.pos; // of more than two points there
        else if (to.type == SplineBase::Hold || from.time == to.time)
            jumps.push_back({to.time, from.pos, to.pos});
    }
    std::erase_if(jumps, [](const Jump& jump) { return jump.before == jump.value; });
    return jumps;
}

Result CurveFit::bake(const std::function<double(double)>& function, const Steps& steps,
                      SplineBase::NodeType type)
{
    Status status = Status::Done;
    const FitSamples samples = samplesOf(function, steps, status);
    if (status != Status::Done)
        return refusal(status);
    Result result;
    result.spline.points = allPoints(usable(samples.times, samples.values), type);
    result.samples = result.spline.points.size();
    result.status = result.spline.points.empty() ? Status::NoSamples : Status::Done;
    return result;
}

Result CurveFit::bake(const std::function<double(double)>& function, const Steps& steps,
                      const Options& options)
{
    Status status = Status::Done;
    const FitSamples samples = samplesOf(function, steps, status);
    if (status != Status::Done)
        return refusal(status);
    return fit(samples.times, samples.values, options);
}

double CurveFit::smoothSlope(const PointInfo* previous, const PointInfo& point, const PointInfo* next)
{
    const double before = previous ? point.time - previous->time : 0.0;
    const double behind = next ? next->time - point.time : 0.0;
    const double arriving = before > 0.0 ? (point.pos - previous->pos) / before : 0.0;
    const double leaving = behind > 0.0 ? (next->pos - point.pos) / behind : 0.0;
    double slope = 0.0;
    if (!(before > 0.0) || !(behind > 0.0)) {
        slope = arriving + leaving;
    } else if ((arriving > 0.0) == (leaving > 0.0)) {
        const double least = std::min(std::abs(arriving), std::abs(leaving));
        const double parabola = (arriving * behind + leaving * before) / (before + behind);
        slope = std::copysign(std::min(std::abs(parabola), 3.0 * least), arriving);
    }
    return std::isfinite(slope) ? slope : 0.0;
}
