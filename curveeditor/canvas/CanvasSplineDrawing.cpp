// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasSpline.h>

#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/DevicePixels.h>
#include <curveeditor/canvas/HandleBatch.h>
#include <curveeditor/canvas/MarkerColumn.h>
#include <curveeditor/canvas/MarkerStamp.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPainter>

#include <algorithm>
#include <array>
#include <cstddef>

using namespace curveeditor;

namespace {

constexpr int mostHandlesInColumn = 16;
constexpr int roomOfMarker = 4; ///< logical pixels to the next one

bool meetsCanvas(const QRect& marker, const ViewPort& view)
{
    return marker.right() > 0 && marker.left() < view.pixelWidth && marker.bottom() > 0 &&
           marker.top() < view.pixelHeight;
}

} // namespace

void CanvasSpline::draw(CurvePainter& curves, const Selection& selection, SplineEdits::Part dragged) const
{
    if (!isShown_)
        return;
    if (!selected && !showsPoints)
        return drawLines(curves);
    const Indices marked = selection.indices(*spline_);
    if (theme_.smooth)
        return drawSmooth(curves, marked, dragged);
    drawLines(curves);
    drawMarkers(curves, marked);
    if (selected && !marked.empty())
        drawHandles(curves.painter(), marked, dragged);
}

void CanvasSpline::drawSmooth(CurvePainter& curves, const Indices& marked, SplineEdits::Part dragged) const
{
    QPainter* const painter = curves.painter();
    const std::array groups = {markers(marked, false), markers(marked, true)};
    for (const bool chosen : {false, true})
        put(painter, stamp(*painter, chosen, true), groups[chosen].crowded);
    drawLines(curves);
    if (selected && !groups[true].apart.empty())
        drawHandles(painter, groups[true].apart, dragged);
    for (const bool chosen : {false, true})
        put(painter, stamp(*painter, chosen, false), groups[chosen].apart);
}

void CanvasSpline::drawLines(CurvePainter& curves) const
{
    const QColor lead = selected ? selectedColor : unselectedColor;
    curves.drawDotted(startLine_, lead, theme_.dottedWidth);
    curves.drawDotted(endLine_, lead, theme_.dottedWidth);
    curves.drawDotted(outsideLine_, unselectedColor, theme_.dottedWidth);
    curves.drawSolid(curveLine, lead, selected ? theme_.curveWidth : theme_.otherCurveWidth);
}

/// Calls `point` with the index of each shown point that is among `marked`, or else of each other one.
template <typename Visit>
void CanvasSpline::visit(const Indices& marked, bool chosen, const Visit& point) const
{
    auto next = marked.begin();
    if (chosen) {
        for (; next != marked.end() && *next < shownPoints(); ++next)
            point(*next);
        return;
    }
    for (int index = 0; index < shownPoints(); ++index) {
        if (next != marked.end() && *next == index)
            ++next;
        else
            point(index);
    }
}

void CanvasSpline::drawMarkers(CurvePainter& curves, const Indices& marked) const
{
    for (const bool chosen : {false, true}) {
        MarkerColumn column(curves, {viewport->pixelWidth, viewport->pixelHeight},
                            chosen ? theme_.selectedPointSize : theme_.pointSize,
                            chosen ? theme_.controlPointSelected : theme_.controlPoint);
        visit(marked, chosen, [&](int index) { column.add(nodePixels[index]); });
    }
}

CanvasSpline::Markers CanvasSpline::markers(const Indices& marked, bool chosen) const
{
    Indices points;
    visit(marked, chosen, [&](int index) {
        if (points.empty() || nodePixels[points.back()] != nodePixels[index])
            points.push_back(index);
    });
    const auto step = [&](std::size_t from, std::size_t to) {
        return from < points.size() && to < points.size() ? nodePixels[points[to]] - nodePixels[points[from]]
                                                          : QPoint(roomOfMarker, roomOfMarker);
    };
    Markers markers;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const QPoint before = step(i - 1, i);
        const QPoint behind = step(i, i + 1);
        const bool isCrowded = std::min(before.manhattanLength(), behind.manhattanLength()) < roomOfMarker ||
                               std::max(before.x(), behind.x()) < roomOfMarker;
        (isCrowded ? markers.crowded : markers.apart).push_back(points[i]);
    }
    return markers;
}

MarkerStamp CanvasSpline::stamp(const QPainter& painter, bool chosen, bool crowded) const
{
    const int size = chosen ? theme_.selectedPointSize : theme_.pointSize;
    return MarkerStamp(painter, chosen ? theme_.selectedPointShape : theme_.pointShape,
                       crowded ? (2 * size + 2) / 3 : size,
                       chosen ? theme_.controlPointSelected : theme_.controlPoint,
                       crowded ? QColor() : theme_.controlPointOutline);
}

void CanvasSpline::put(QPainter* painter, const MarkerStamp& stamp, const Indices& points) const
{
    const DevicePixels devicePixels(painter, stamp.ratio());
    for (const int index : points)
        stamp.draw(painter, nodePixels[index]);
}

/// Points in one column share the dotted line through it: the last one draws it. Of very many there not all show
/// their handles.
void CanvasSpline::drawHandles(QPainter* painter, const Indices& marked, SplineEdits::Part dragged) const
{
    std::vector<int> shown;
    visit(marked, true, [&](int index) {
        if (meetsCanvas(markerSquare(nodePixels[index], theme_.selectedPointSize), *viewport))
            shown.push_back(index);
    });
    HandleBatch batch(painter, theme_);
    int inColumn = 0;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const QPoint pixel = nodePixels[shown[i]];
        const bool isLastInColumn = i + 1 == shown.size() || nodePixels[shown[i + 1]].x() != pixel.x();
        if (isLastInColumn) {
            batch.flush();
            painter->setPen(
                QPen(theme_.guide.isValid() ? theme_.guide : theme_.controlPointSelected, 1, Qt::DotLine));
            painter->drawLine(pixel, QPoint(pixel.x(), 0));
            painter->drawLine(pixel, QPoint(pixel.x(), viewport->pixelHeight));
        }
        if (++inColumn <= mostHandlesInColumn || isLastInColumn)
            addHandles(batch, shown[i], dragged);
        if (isLastInColumn)
            inColumn = 0;
    }
}

void CanvasSpline::addHandles(HandleBatch& batch, int index, SplineEdits::Part dragged) const
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
    const auto add = [&](const QPoint& end, Part part) {
        const bool isDragged = !fixed && (dragged == Part::BothTangents || dragged == part);
        batch.add(pixel, end, isDragged ? theme_.controllerSelected : theme_.controller, fixed);
    };
    if (index < last && endsCurvedSegment(index + 1))
        add(rightHandle(pixel, unsigned(index), index == 0), Part::RightTangent);
    if (index > 0 && endsCurvedSegment(index))
        add(leftHandle(pixel, unsigned(index), index == last), Part::LeftTangent);
}
