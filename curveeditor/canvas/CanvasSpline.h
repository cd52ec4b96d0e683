// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CurvePainter.h>
#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/edit/SplineEdits.h>
#include <curveeditor/edit/ViewStep.h>

#include <QColor>
#include <QPolygon>

#include <vector>

class QPainter;
class ViewPort;
struct CurveEditorTheme;

namespace curveeditor {
class HandleBatch;
class MarkerStamp;
} // namespace curveeditor

using namespace curveeditor;

/// The picture of one spline: the pixels of its control points and up to three polylines, held until the
/// curve or the view changes. Draws them, and tells which point or tangent handle lies under the mouse.
///
/// Owned by the curve on the canvas. The selection stands beside it; spline and viewport belong to others and
/// must outlive it. Lines are device pixels, all else logical ones. Between a change by the host and the next `rebuild` the picture is that of before, and reads
/// of the spline only points that are there.
class CanvasSpline
{
public:
    /// The picture of `spline`, empty until the first `rebuild`. `theme` outlives it.
    CanvasSpline(const SplineBase* spline, const CurveEditorTheme& theme);

    /// `color` is that of the curve when it is current, and is dimmed toward `background` otherwise; the theme may
    /// adapt both to the canvas.
    void setColors(const QColor& color, const QColor& background);
    QColor getColor() const { return selectedColor; }

    /// The lower bound goes first; not-a-number stays.
    static double clamped(double value, double minValue, double maxValue);
    /// Samples the spline anew, at most 1001 times for the span of its points and 1001 times behind it.
    /// `minValue` and `maxValue` clamp the values. With a view that can't be shown the picture is empty. The pixels of the points are placed only where these show.
    /// In the view of the last `rebuild` only the points at the times `touched` are placed anew.
    void rebuild(ViewPort* newViewport, float minValue, float maxValue,
                 const TimeInterval& touched = TimeInterval::everything());
    /// Places the pixels of the points if the last `rebuild` did not: for a curve that became the current one.
    void placePoints();
    /// Draws the picture and the points, if they show; of the current curve also the handles of the selected ones,
    /// those of the dragged part highlighted. Evaluates nothing. The painter has an opaque background of the canvas
    /// colour, which fills the gaps of dotted lines.
    void draw(CurvePainter& curves, const Selection& selection, SplineEdits::Part dragged) const;

    /// The end of the outgoing handle of the point `index` that stands at `pixel`: on the slope as the view
    /// shows it, to the right, `handleLength` away if `plain`, else 0.333 + length times as far with the length
    /// that `SplineBase::getTangentRightAtNode` gives. Needs a picture, as does `leftHandle`.
    QPoint rightHandle(const QPoint& pixel, unsigned index, bool plain) const;
    /// The same for the incoming handle, to the left.
    QPoint leftHandle(const QPoint& pixel, unsigned index, bool plain) const;

    /// What lies at a pixel: a point, 0 for none, and what a drag of it edits.
    struct Hit
    {
        PointSerial point = 0;
        SplineEdits::Part part = SplineEdits::Part::Point;

        bool operator==(const Hit& other) const = default;
    };
    /// The first control point less than `grabDistance` (manhattan) from `pixel`. A single current `Bezier` point goes
    /// before the others, with its handles and the line between them; the first point has no left and the last
    /// no right handle.
    Hit hitTest(const QPoint& pixel, const Selection& selection) const;
    /// Where it is seen: the point, or its handles.
    QPolygon pixelsOf(const Hit& hit) const;

    bool selected = false;    ///< This curve is the current one; written by the canvas.
    bool showsPoints = false; ///< Its points are drawn, and can be hit, though it is not; likewise.
    AxisRange scale;          ///< Of the curve, where each has its own; likewise.
    QColor unselectedColor;
    QColor selectedColor;
    ViewPort* viewport = nullptr; ///< The view of the last `rebuild`.
    QPolygon nodePixels;          ///< The pixel of each control point, at most 100 pixels off the canvas.
    DeviceLine curveLine;         ///< The curve within the span of its points, clamped.
    DeviceLine postLine; ///< The curve behind the last point where it is more than a level line, clamped.
    DeviceLine rawLine;  ///< The samples of `curveLine`, not clamped.

private:
    PlaneMapping planeIn(const PlaneMapping& view) const;
    void placeEnds();
    void drawLines(CurvePainter& curves) const;
    using Indices = std::vector<std::int32_t>;
    void drawSmooth(CurvePainter& curves, const Indices& marked, SplineEdits::Part dragged) const;

    void placePoints(const TimeInterval& times);
    void drawMarkers(CurvePainter& curves, const Indices& marked) const;
    /// The points that are selected, or the others, each pixel once: those that have room, and those that would hide
    /// the line between them.
    struct Markers
    {
        Indices apart;
        Indices crowded;
    };
    Markers markers(const Indices& marked, bool chosen) const;
    MarkerStamp stamp(const QPainter& painter, bool chosen, bool crowded) const;
    void put(QPainter* painter, const MarkerStamp& stamp, const Indices& points) const;
    void drawHandles(QPainter* painter, const Indices& marked, SplineEdits::Part dragged) const;
    template <typename Visit> void visit(const Indices& marked, bool chosen, const Visit& point) const;
    void addHandles(HandleBatch& batch, int index, SplineEdits::Part dragged) const;
    QPoint handleEnd(const QPoint& pixel, double slope, double length, int side) const;
    int pointCount() const;
    int shownPoints() const;
    Hit hitCurrent(const QPoint& pixel, const Selection& selection) const;

    const SplineBase* spline_;
    const CurveEditorTheme& theme_;
    PlaneMapping view_; ///< In logical pixels.
    bool isShown_ = false;
    DeviceLine startLine_; ///< From the curve's start to the left edge.
    DeviceLine endLine_;
    DeviceLine outsideLine_; ///< What of `rawLine` is drawn.
};
