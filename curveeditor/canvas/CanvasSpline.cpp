// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasSpline.h>

#include <curveeditor/canvas/ColorContrast.h>
#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/Truncate.h>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

using namespace curveeditor;

namespace {

constexpr double splineSamplesPerView = 1000.0;
constexpr double nodeMargin = 100.0;
constexpr double shortestHandle = double(0.333f);
constexpr double longestHandle = 1e6;
constexpr double steepestSlope = 1e18;

QPoint nodePixel(const PlaneMapping& view, const SplineBase::PointInfo& point)
{
    const double right = view.pixelWidth + nodeMargin;
    const double bottom = view.pixelHeight + nodeMargin;
    return QPoint(truncateToPixel(std::clamp(view.column(point.time), -nodeMargin, right)),
                  truncateToPixel(std::clamp(view.row(point.pos), -nodeMargin, bottom)));
}

bool goesOnBehindLast(int lastType)
{
    return lastType == SplineBase::Loop || lastType == SplineBase::LoopOffset ||
           lastType == SplineBase::FollowTangent;
}

struct Samples
{
    std::vector<double> times;
    std::vector<double> values;
};

/// Both ends of the jumps at points of the type Hold, so that they stand upright. Where there are more points than
/// samples they do so anyway.
void addJumps(const SplineBase& spline, double left, double right, Samples& samples)
{
    const auto& points = spline.getControlPoints();
    const auto first = std::partition_point(points.begin() + 1, points.end(),
                                            [left](const auto* point) { return point->time < left; });
    const auto last = std::partition_point(first, points.end(),
                                           [right](const auto* point) { return point->time <= right; });
    if (last - first > std::ptrdiff_t(samples.times.size()))
        return;
    Samples all;
    std::size_t done = 0;
    const auto copyUntil = [&](std::size_t end) {
        all.times.insert(all.times.end(), samples.times.begin() + std::ptrdiff_t(done),
                         samples.times.begin() + std::ptrdiff_t(end));
        all.values.insert(all.values.end(), samples.values.begin() + std::ptrdiff_t(done),
                          samples.values.begin() + std::ptrdiff_t(end));
        done = end;
    };
    for (auto point = first; point != last; ++point) {
        if ((*point)->type != SplineBase::Hold)
            continue;
        const auto behind = std::lower_bound(samples.times.begin(), samples.times.end(), (*point)->time);
        copyUntil(std::size_t(behind - samples.times.begin()));
        all.times.insert(all.times.end(), 2, (*point)->time);
        all.values.insert(all.values.end(), {point[-1]->pos, (*point)->pos});
    }
    if (all.times.empty())
        return;
    copyUntil(samples.times.size());
    samples = std::move(all);
}

/// The last sample stands up to a step short of `right`, unless `reachesEnd`.
Samples samplesBetween(const SplineBase& spline, double left, double right, double viewSpan, bool reachesEnd)
{
    const double share =
        right > left ? std::min((right - left) * splineSamplesPerView / viewSpan, splineSamplesPerView) : 0.0;
    const double step = share > 0.0 ? (right - left) / share : 0.0;
    Samples samples;
    samples.times.resize(std::size_t(share) + 1);
    for (std::size_t i = 0; i < samples.times.size(); ++i)
        samples.times[i] = double(i) * step + left;
    if (reachesEnd && samples.times.back() < right)
        samples.times.push_back(right);
    samples.values.resize(samples.times.size());
    spline.evaluate(samples.times.data(), samples.values.data(), samples.times.size());
    addJumps(spline, left, right, samples);
    return samples;
}

/// A gap stands for each stretch of samples that have no finite value.
template <typename Clamp>
DeviceLine lineThrough(const Samples& samples, const PlaneMapping& view, DeviceLine line, const Clamp& clamp)
{
    line.points.resize(qsizetype(samples.times.size()));
    QPoint* const begin = line.points.data();
    QPoint* end = begin;
    for (std::size_t i = 0; i < samples.times.size(); ++i) {
        const double value = samples.values[i];
        if (std::isfinite(value))
            *end++ = QPoint(truncateToPixel(view.column(samples.times[i])), line.rowOf(clamp(value), view));
        else if (line.gaps.empty() || line.gaps.back() != end - begin)
            line.gaps.push_back(int(end - begin));
    }
    line.points.resize(end - begin);
    return line;
}

/// What of `line` another one with as many points does not cover, with a point more on each side.
DeviceLine uncovered(const DeviceLine& line, const DeviceLine& cover)
{
    DeviceLine parts = line;
    parts.points.clear();
    parts.gaps.clear();
    const auto isCovered = [&](qsizetype i) {
        return i < 0 || i >= line.points.size() || line.points[i] == cover.points[i];
    };
    bool isJoined = true;
    auto gap = line.gaps.begin();
    for (qsizetype i = 0; i < line.points.size(); ++i) {
        for (; gap != line.gaps.end() && *gap <= i; ++gap)
            isJoined = false;
        const bool isHidden = isCovered(i - 1) && isCovered(i) && isCovered(i + 1);
        if (!isHidden && !isJoined)
            parts.gaps.push_back(int(parts.points.size()));
        if (!isHidden)
            parts.points.append(line.points[i]);
        isJoined = !isHidden;
    }
    return parts;
}

} // namespace

CanvasSpline::CanvasSpline(const SplineBase* spline, const CurveEditorTheme& theme)
    : spline_(spline), theme_(theme)
{
    setColors(Qt::white, Qt::black);
}

void CanvasSpline::setColors(const QColor& color, const QColor& background)
{
    std::tie(selectedColor, unselectedColor) = curveColors(color, background, theme_);
}

double CanvasSpline::clamped(double value, double minValue, double maxValue)
{
    if (minValue > value)
        return minValue;
    return maxValue < value ? maxValue : value;
}

PlaneMapping CanvasSpline::planeIn(const PlaneMapping& view) const
{
    return viewport->ownScale.planeOf(scale, view);
}

void CanvasSpline::rebuild(ViewPort* newViewport, float minValue, float maxValue, const TimeInterval& touched)
{
    viewport = newViewport;
    if (std::exchange(view_, planeIn(viewport->mapping())) != view_ || nodePixels.size() != pointCount())
        nodePixels.clear();
    curveLine = rawLine = postLine = startLine_ = endLine_ = outsideLine_ = {};
    isShown_ = pointCount() > 0 && view_.canShow();
    if (!isShown_)
        return nodePixels.clear();
    if (selected || showsPoints)
        placePoints(touched);
    else
        nodePixels.clear();

    const SplineBase& spline = *spline_;
    const DeviceLine empty = DeviceLine::in(theme_, viewport->pixelRatio);
    startLine_ = endLine_ = empty;
    const PlaneMapping view = planeIn(viewport->deviceMapping(empty.scale));
    const auto bounded = [minValue, maxValue](double value) {
        return clamped(value, minValue, maxValue);
    };
    const double viewSpan = viewport->timeMax - viewport->timeMin;
    const double left = std::max(viewport->timeMin, spline.getFirst()->time);
    const double right = std::min(viewport->timeMax, spline.getLast()->time);
    const Samples samples = samplesBetween(spline, left, right, viewSpan, theme_.smooth);
    curveLine = lineThrough(samples, view, empty, bounded);
    const bool clampBites = std::any_of(samples.values.begin(), samples.values.end(),
                                        [&](double value) { return bounded(value) != value; });
    rawLine = clampBites ? lineThrough(samples, view, empty, [](double value) { return value; }) : curveLine;
    // The solid line would cover an equal dotted one pixel for pixel, and dots are slow. Those of a single pixel are
    // counted from the line's beginning.
    if (rawLine != curveLine)
        outsideLine_ = empty.dotPixels > 1 ? uncovered(rawLine, curveLine) : rawLine;
    if (goesOnBehindLast(spline.lastType) && right < viewport->timeMax) {
        const double start = std::max(viewport->timeMin, right);
        postLine = lineThrough(samplesBetween(spline, start, viewport->timeMax, viewSpan, theme_.smooth),
                               view, empty, bounded);
    }
    placeEnds();
}

void CanvasSpline::placePoints()
{
    if (isShown_ && nodePixels.isEmpty())
        placePoints(TimeInterval::everything());
}

/// Those that lie at these times; all where none is placed.
void CanvasSpline::placePoints(const TimeInterval& times)
{
    const auto& points = spline_->getControlPoints();
    auto first = points.begin(), end = points.end();
    if (!nodePixels.isEmpty()) {
        first =
            std::partition_point(first, end, [&](const auto* point) { return point->time < times.first; });
        end = std::partition_point(first, end, [&](const auto* point) { return point->time <= times.last; });
    }
    nodePixels.resize(pointCount());
    std::transform(first, end, nodePixels.begin() + (first - points.begin()),
                   [this](const auto* point) { return nodePixel(view_, *point); });
}

/// The level lines before the curve and behind it.
void CanvasSpline::placeEnds()
{
    const SplineBase& spline = *spline_;
    const PlaneMapping view = planeIn(viewport->deviceMapping(curveLine.scale));
    const QPolygon& points = curveLine.points;
    const std::vector<int>& gaps = curveLine.gaps;
    const bool startIsMissing = !gaps.empty() && gaps.front() == 0;
    const bool endIsMissing = !gaps.empty() && gaps.back() == points.size();
    QPoint first = startIsMissing ? nodePixel(view, *spline.getFirst()) : points.first();
    QPoint last = endIsMissing ? nodePixel(view, *spline.getLast()) : points.last();
    const int rowOfZero = view.pixelRow(viewport->withinLimits(0.0));
    if (spline.firstType == SplineBase::Zero)
        first.setY(rowOfZero);
    if (spline.lastType == SplineBase::Zero)
        last.setY(rowOfZero);
    if (first.x() > 0)
        startLine_.points << first << QPoint(0, first.y());
    if (last.x() >= view.pixelWidth)
        return;
    if (goesOnBehindLast(spline.lastType))
        endLine_ = postLine;
    else
        endLine_.points << last << QPoint(view.pixelWidth, last.y());
}

QPoint CanvasSpline::rightHandle(const QPoint& pixel, unsigned index, bool plain) const
{
    double length = 0.0;
    const double slope = spline_->getTangentRightAtNode(index + 1, length);
    return handleEnd(pixel, slope, theme_.handleLength * (plain ? 1.0 : shortestHandle + length), 1);
}

QPoint CanvasSpline::leftHandle(const QPoint& pixel, unsigned index, bool plain) const
{
    double length = 0.0;
    const double slope = spline_->getTangentLeftAtNode(index, length);
    return handleEnd(pixel, slope, theme_.handleLength * (plain ? 1.0 : shortestHandle + length), -1);
}

QPoint CanvasSpline::handleEnd(const QPoint& pixel, double slope, double length, int side) const
{
    const double pixelSlope = std::clamp(view_.pixelSlope(slope), -steepestSlope, steepestSlope);
    const double across = side / std::sqrt(double(float(1.0 + pixelSlope * pixelSlope)));
    const double reach = std::clamp(length, -longestHandle, longestHandle);
    return QPoint(truncateToPixel(pixel.x() + reach * across),
                  truncateToPixel(pixel.y() - reach * (across * pixelSlope)));
}

int CanvasSpline::pointCount() const
{
    return spline_ ? int(spline_->getControlPointsNumber()) : 0;
}

int CanvasSpline::shownPoints() const
{
    return std::min(int(nodePixels.size()), pointCount());
}
