// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/ColumnRuns.h>
#include <curveeditor/canvas/SmoothStroke.h>
#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/edit/Truncate.h>

#include <QPolygon>
#include <QRect>
#include <QRgb>

#include <algorithm>
#include <utility>
#include <vector>

class QColor;
class QImage;
class QPainter;
class QPen;
struct CurveEditorTheme;

namespace curveeditor {

/// Points of a curve from left to right.
struct DeviceLine
{
    QPolygon points;
    int scale = 1; ///< of them are a device pixel; more than one for lines that are drawn smooth
    /// Indices in `points`, ascending and at most their number: where one stands, the point of that index is
    /// not joined to the one before.
    std::vector<int> gaps;
    int widest = 1;    ///< device pixels of the widest pen that the line is drawn with, if it is not smooth
    int dotPixels = 1; ///< of the pen of its dotted parts

    /// An empty line in that look.
    static DeviceLine in(const CurveEditorTheme& theme, double pixelRatio);

    bool operator==(const DeviceLine& other) const = default;

    /// The scale of smooth lines.
    static constexpr int fine = 64;
    /// The row of a value. Above and below the canvas a line runs along the edge, just out of sight; a smooth one goes
    /// on as far again, so that it leaves under its own slope.
    int rowOf(double value, const PlaneMapping& view) const
    {
        const double above = scale > 1 ? view.pixelHeight : widest;
        const double below = scale > 1 ? view.pixelHeight : widest - 1;
        return truncateToInt(std::clamp(view.row(value), -above, view.pixelHeight + below));
    }
};

/// Draws the lines of curves. Widths are logical pixels, of a line that is not smooth rounded to device pixels.
///
/// Qt draws lines of more than one pixel, and wide dots, up to a hundred times slower, so they are written as runs of
/// pixels in each column, smooth ones with their coverage. Qt draws dots of a single pixel, solid translucent lines that
/// are not smooth, and smooth ones without an image to write into.
class CurvePainter
{
public:
    /// `painter` draws in logical pixels and outlives this.
    CurvePainter(QPainter* painter, double pixelRatio);

    /// Solid lines are written into `image` from now on, which is faster. It is opaque, of 32 bits, and what the
    /// painter draws on from its corner on. Only what lies in `part`, in device pixels, is drawn.
    void writeInto(QImage* image, const QRect& part);

    /// For all that is no line of a curve.
    QPainter* painter() const { return painter_; }

    void drawSolid(const DeviceLine& line, const QColor& color, double width);
    /// Dots as long as the line is wide, two of which would fit into each gap. The gaps get the painter's background if
    /// its mode is opaque.
    void drawDotted(const DeviceLine& line, const QColor& color, double width);
    /// A rectangle of logical pixels.
    void fillRect(const QRect& rect, const QColor& color);

private:
    void drawSmooth(const DeviceLine& line, const QColor& color, double width);
    void drawWithQt(const DeviceLine& line, const QPen& pen, bool isSmooth);
    std::pair<int, int> pointsNear(const QPoint* points, int count, int margin, int scale) const;
    void takeRuns(const QPoint* points, int count, int scale, int step);
    void keepDots(int width);
    void fill(const QColor& color, int width);
    void fillRects(const QColor& color, int width);
    void fillImage(const QColor& color, int width);
    void fillPixels(const QRect& rect, QRgb color);

    QPainter* painter_;
    double pixelRatio_;
    QRgb* pixels_ = nullptr; ///< of the image, if there is one
    qsizetype pitch_ = 0;    ///< from row to row
    QRect part_;
    std::vector<ColumnRun> runs_;
    std::vector<ColumnRun> dots_;
    std::vector<QPoint> path_;
    SmoothStroke stroke_;
};

} // namespace curveeditor
