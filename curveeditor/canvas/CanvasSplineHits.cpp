// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasSpline.h>

#include <curveeditor/canvas/CurveEditorTheme.h>

#include <cstdlib>

using namespace curveeditor;

namespace {

qint64 dotProduct(const QPoint& left, const QPoint& right)
{
    return qint64(left.x()) * right.x() + qint64(left.y()) * right.y();
}

bool isNear(const QPoint& distance, const CurveEditorTheme& theme)
{
    return distance.manhattanLength() < theme.grabDistance;
}

bool isBetween(const QPoint& right, const QPoint& left, const QPoint& center, int grabDistance)
{
    const qint64 dotRight = dotProduct(right, center);
    const qint64 dotLeft = dotProduct(left, center);
    const QPoint across = (right - left).transposed();
    return ((dotRight < 0 && dotLeft > 0) || (dotRight > 0 && dotLeft < 0)) &&
           std::abs(dotProduct(across, center)) < qint64(grabDistance) * across.manhattanLength();
}

} // namespace

CanvasSpline::Hit CanvasSpline::hitTest(const QPoint& pixel, const Selection& selection) const
{
    const Hit hit = hitCurrent(pixel, selection);
    if (hit.point != 0)
        return hit;
    for (int index = 0; index < shownPoints(); ++index) {
        if (isNear(nodePixels[index] - pixel, theme_))
            return {spline_->getControlPoints()[std::size_t(index)]->serial, SplineEdits::Part::Point};
    }
    return {};
}

QPolygon CanvasSpline::pixelsOf(const Hit& hit) const
{
    using SplineEdits::Part;
    const int index = spline_ ? indicesOf({hit.point}, *spline_).front() : -1;
    if (index < 0 || index >= shownPoints())
        return {};
    const QPoint node = nodePixels[index];
    if (hit.part == Part::Point)
        return {node};
    const int lastIndex = pointCount() - 1;
    QPolygon handles;
    if (hit.part != Part::LeftTangent && index < lastIndex)
        handles << rightHandle(node, unsigned(index), index == 0);
    if (hit.part != Part::RightTangent && index > 0)
        handles << leftHandle(node, unsigned(index), index == lastIndex);
    return handles;
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
    if (isNear(center, theme_))
        return {point, Part::Point};
    // The handle of a segment that does not exist ends on the point itself.
    const QPoint right = index < lastIndex ? rightHandle(node, unsigned(index), index == 0) - pixel : center;
    const QPoint left = index > 0 ? leftHandle(node, unsigned(index), index == lastIndex) - pixel : center;
    if (isNear(right, theme_))
        return {point, Part::RightTangent};
    if (isNear(left, theme_))
        return {point, Part::LeftTangent};
    return isBetween(right, left, center, theme_.handleGrabDistance) ? Hit{point, Part::BothTangents} : Hit{};
}
