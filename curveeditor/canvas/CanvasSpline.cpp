// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasSpline.h>

#include <curveeditor/canvas/LineWithGaps.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/Truncate.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double samplesPerView = 1000.0;
constexpr double nodeMargin = 100.0;
constexpr double handleUnit = 45.0;
constexpr double shortestHandle = double(0.333f);
constexpr double longestHandle = 1e6;
constexpr double steepestSlope = 1e18;
constexpr int grabDistance = 6;
constexpr int grabDistanceOfLine = 10;
constexpr int nodeSize = 5;
constexpr int fixedHandleSize = 3;

QPoint nodePixel(const PlaneMapping& view, const SplineBase::PointInfo& point)
{
    const double right = view.pixelWidth + nodeMargin;
    const double bottom = view.pixelHeight + nodeMargin;
    return QPoint(truncateToPixel(std::clamp(view.column(point.time), -nodeMargin, right)),
                  truncateToPixel(std::clamp(view.row(point.pos), -nodeMargin, bottom)));
}

QPoint samplePixel(const PlaneMapping& view, double time, double value)
{
    return QPoint(view.pixelColumn(time),
                  truncateToPixel(std::clamp(view.row(value), -1.0, double(view.pixelHeight))));
}

double clampValue(double value, double minValue, double maxValue)
{
    if (minValue > value)
        return minValue;
    return maxValue < value ? maxValue : value;
}

bool goesOnBehindLast(int lastType)
{
    return lastType == SplineBase::Loop || lastType == SplineBase::LoopOffset ||
           lastType == SplineBase::FollowTangent;
}

struct Sample
{
    double time;
    double value;
};

std::vector<Sample> samplesBetween(const SplineBase& spline, double left, double right, double viewSpan)
{
    const double share =
        right > left ? std::min((right - left) * samplesPerView / viewSpan, samplesPerView) : 0.0;
    const double step = share > 0.0 ? (right - left) / share : 0.0;
    std::vector<double> times(std::size_t(share) + 1);
    for (std::size_t i = 0; i < times.size(); ++i)
        times[i] = double(i) * step + left;
    std::vector<double> values(times.size());
    spline.evaluate(times.data(), values.data(), times.size());

    std::vector<Sample> samples;
    samples.reserve(times.size());
    for (std::size_t i = 0; i < times.size(); ++i)
        samples.push_back({times[i], values[i]});
    return samples;
}

void addGap(std::vector<int>& gaps, qsizetype index)
{
    if (gaps.empty() || gaps.back() != int(index))
        gaps.push_back(int(index));
}

bool meetsCanvas(const QRect& marker, const ViewPort& view)
{
    return marker.right() > 0 && marker.left() < view.pixelWidth && marker.bottom() > 0 &&
           marker.top() < view.pixelHeight;
}

QRect square(const QPoint& center, int size)
{
    return QRect(center.x() - size / 2, center.y() - size / 2, size, size);
}

qint64 dotProduct(const QPoint& left, const QPoint& right)
{
    return qint64(left.x()) * right.x() + qint64(left.y()) * right.y();
}

bool isNear(const QPoint& distance)
{
    return distance.manhattanLength() < grabDistance;
}

bool isBetween(const QPoint& right, const QPoint& left, const QPoint& center)
{
    const qint64 dotRight = dotProduct(right, center);
    const qint64 dotLeft = dotProduct(left, center);
    const QPoint across = (right - left).transposed();
    return ((dotRight < 0 && dotLeft > 0) || (dotRight > 0 && dotLeft < 0)) &&
           std::abs(dotProduct(across, center)) < qint64(grabDistanceOfLine) * across.manhattanLength();
}

QPen linePen(const QColor& color, Qt::PenStyle style)
{
    QPen pen(color, 1, style);
    pen.setCosmetic(true);
    return pen;
}

} // namespace

CanvasSpline::CanvasSpline(const SplineBase* spline) : spline_(spline)
{
    setColors(Qt::white, Qt::black);
}

void CanvasSpline::setColors(const QColor& color, const QColor& background)
{
    selectedColor = color;
    unselectedColor.setRgb((color.red() + background.red()) / 2, (color.green() + background.green()) / 2,
                           (color.blue() + background.blue()) / 2);
}

void CanvasSpline::rebuild(ViewPort* newViewport, float minValue, float maxValue)
{
    viewport = newViewport;
    nodePixels.clear();
    curveLine.clear();
    rawLine.clear();
    postLine.clear();
    curveGaps.clear();
    postGaps.clear();
    if (pointCount() == 0 || !viewport->canShow())
        return;

    const SplineBase& spline = *spline_;
    const PlaneMapping view = viewport->mapping();
    for (const SplineBase::PointInfo* point : spline.getControlPoints())
        nodePixels.append(nodePixel(view, *point));

    const double viewSpan = viewport->timeMax - viewport->timeMin;
    const double left = std::max(viewport->timeMin, spline.getFirst()->time);
    const double right = std::min(viewport->timeMax, spline.getLast()->time);
    for (const auto& [time, value] : samplesBetween(spline, left, right, viewSpan)) {
        if (std::isfinite(value)) {
            curveLine.append(samplePixel(view, time, clampValue(value, minValue, maxValue)));
            rawLine.append(samplePixel(view, time, value));
        } else {
            addGap(curveGaps, curveLine.size());
        }
    }
    if (goesOnBehindLast(spline.lastType) && right < viewport->timeMax) {
        const double start = std::max(viewport->timeMin, right);
        for (const auto& [time, value] : samplesBetween(spline, start, viewport->timeMax, viewSpan)) {
            if (std::isfinite(value))
                postLine.append(samplePixel(view, time, clampValue(value, minValue, maxValue)));
            else
                addGap(postGaps, postLine.size());
        }
    }
}

void CanvasSpline::draw(QPainter* painter, const Selection& selection, SplineEdits::Part dragged) const
{
    if (nodePixels.isEmpty())
        return;
    drawLines(painter);
    if (!selected)
        return;
    const std::vector<bool> marked = selection.marks(*spline_);
    drawMarkers(painter, marked);
    for (int index = 0; index < shownPoints(); ++index) {
        if (marked[std::size_t(index)] && meetsCanvas(square(nodePixels[index], nodeSize), *viewport))
            drawHandles(painter, index, dragged);
    }
}

QPoint CanvasSpline::rightHandle(const QPoint& pixel, unsigned index, bool plain) const
{
    double length = 0.0;
    const double slope = spline_->getTangentRightAtNode(index + 1, length);
    return handleEnd(pixel, slope, plain ? handleUnit : (shortestHandle + length) * handleUnit, 1);
}

QPoint CanvasSpline::leftHandle(const QPoint& pixel, unsigned index, bool plain) const
{
    double length = 0.0;
    const double slope = spline_->getTangentLeftAtNode(index, length);
    return handleEnd(pixel, slope, plain ? handleUnit : (shortestHandle + length) * handleUnit, -1);
}

CanvasSpline::Hit CanvasSpline::hitTest(const QPoint& pixel, const Selection& selection) const
{
    const Hit hit = hitCurrent(pixel, selection);
    if (hit.point != 0)
        return hit;
    for (int index = 0; index < shownPoints(); ++index) {
        if (isNear(nodePixels[index] - pixel))
            return {spline_->getControlPoints()[std::size_t(index)]->serial, SplineEdits::Part::Point};
    }
    return {};
}

void CanvasSpline::drawLines(QPainter* painter) const
{
    const QColor lead = selected ? selectedColor : unselectedColor;
    const SplineBase& spline = *spline_;
    const bool startIsMissing = !curveGaps.empty() && curveGaps.front() == 0;
    const bool endIsMissing = !curveGaps.empty() && curveGaps.back() == curveLine.size();
    QPoint first = startIsMissing ? nodePixels.first() : curveLine.first();
    QPoint last = endIsMissing ? nodePixels.last() : curveLine.last();
    if (spline.firstType == SplineBase::Zero)
        first.setY(viewport->valueToPixel(0.0));
    if (spline.lastType == SplineBase::Zero)
        last.setY(viewport->valueToPixel(0.0));

    painter->setPen(linePen(lead, Qt::DotLine));
    if (first.x() > 0)
        painter->drawLine(first, QPoint(0, first.y()));
    if (last.x() < viewport->pixelWidth) {
        if (goesOnBehindLast(spline.lastType))
            drawLineWithGaps(painter, postLine, postGaps);
        else
            painter->drawLine(last, QPoint(viewport->pixelWidth, last.y()));
    }
    // The solid line would cover an equal dotted one pixel for pixel, and dots are slow.
    if (rawLine != curveLine) {
        painter->setPen(linePen(unselectedColor, Qt::DotLine));
        drawLineWithGaps(painter, rawLine, curveGaps);
    }
    painter->setPen(linePen(lead, Qt::SolidLine));
    drawLineWithGaps(painter, curveLine, curveGaps);
}

void CanvasSpline::drawMarkers(QPainter* painter, const std::vector<bool>& marked) const
{
    for (const bool chosen : {false, true}) {
        const QColor& color = chosen ? controlPointSelectedColor : controlPointColor;
        for (int index = 0; index < shownPoints(); ++index) {
            if (marked[std::size_t(index)] == chosen)
                painter->fillRect(square(nodePixels[index], nodeSize), color);
        }
    }
}

void CanvasSpline::drawHandles(QPainter* painter, int index, SplineEdits::Part dragged) const
{
    using SplineEdits::Part;
    const int last = pointCount() - 1;
    const QPoint pixel = nodePixels[index];
    const auto typeOf = [this](int point) {
        return spline_->getControlPoints()[std::size_t(point)]->type;
    };
    const bool fixed = typeOf(index) == SplineBase::Tcb;
    const auto endsCurvedSegment = [&typeOf](int end) {
        return typeOf(end) == SplineBase::Bezier || typeOf(end) == SplineBase::Tcb;
    };

    painter->setPen(linePen(controlPointSelectedColor, Qt::DotLine));
    painter->drawLine(pixel, QPoint(pixel.x(), 0));
    painter->drawLine(pixel, QPoint(pixel.x(), viewport->pixelHeight));
    if (index < last && endsCurvedSegment(index + 1)) {
        const bool isDragged = dragged == Part::BothTangents || dragged == Part::RightTangent;
        drawHandle(painter, pixel, rightHandle(pixel, unsigned(index), index == 0), isDragged, fixed);
    }
    if (index > 0 && endsCurvedSegment(index)) {
        const bool isDragged = dragged == Part::BothTangents || dragged == Part::LeftTangent;
        drawHandle(painter, pixel, leftHandle(pixel, unsigned(index), index == last), isDragged, fixed);
    }
}

void CanvasSpline::drawHandle(QPainter* painter, const QPoint& from, const QPoint& to, bool dragged,
                              bool fixed) const
{
    const QColor& color = dragged && !fixed ? controllerSelectedColor : controllerColor;
    painter->setPen(linePen(color, Qt::SolidLine));
    painter->drawLine(from, to);
    if (fixed) {
        painter->fillRect(square(to, fixedHandleSize), color);
        return;
    }
    // An outline would make the circle a pixel wider.
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawEllipse(square(to, nodeSize));
}

QPoint CanvasSpline::handleEnd(const QPoint& pixel, double slope, double length, int side) const
{
    const double pixelSlope =
        std::clamp(viewport->mapping().pixelSlope(slope), -steepestSlope, steepestSlope);
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

CanvasSpline::Hit CanvasSpline::hitCurrent(const QPoint& pixel, const Selection& selection) const
{
    using SplineEdits::Part;
    if (selection.current() == 0 || selection.hasMultiple() || !spline_)
        return {};
    const int index = indicesOf({selection.current()}, *spline_).front();
    if (index < 0 || index >= shownPoints() || (*spline_)[unsigned(index)]->type != SplineBase::Bezier)
        return {};
    const PointSerial point = selection.current();
    const int lastIndex = pointCount() - 1;
    const QPoint node = nodePixels[index];
    const QPoint center = node - pixel;
    if (isNear(center))
        return {point, Part::Point};
    // The handle of a segment that does not exist ends on the point itself.
    const QPoint right = index < lastIndex ? rightHandle(node, unsigned(index), index == 0) - pixel : center;
    const QPoint left = index > 0 ? leftHandle(node, unsigned(index), index == lastIndex) - pixel : center;
    if (isNear(right))
        return {point, Part::RightTangent};
    if (isNear(left))
        return {point, Part::LeftTangent};
    return isBetween(right, left, center) ? Hit{point, Part::BothTangents} : Hit{};
}
