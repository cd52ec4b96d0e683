// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/ColumnRuns.h>

#include <QPolygon>
#include <QRect>

#include <utility>
#include <vector>

class QColor;
class QImage;
class QPainter;

/// Points of a curve in device pixels, from left to right.
struct DeviceLine
{
    QPolygon points;
    /// Indices in `points`, ascending and at most their number: where one stands, the point of that index is
    /// not joined to the one before.
    std::vector<int> gaps;

    bool operator==(const DeviceLine& other) const = default;
};

/// Draws the lines of curves, one logical pixel wide: as many device pixels as the pixel ratio says, rounded.
///
/// Qt draws solid lines of more than one pixel up to a hundred times slower, so they are written as runs of
/// pixels in each column. Dotted and translucent lines are Qt's.
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

    void drawSolid(const DeviceLine& line, const QColor& color);
    void drawDotted(const DeviceLine& line, const QColor& color);

private:
    void drawWithQt(const DeviceLine& line, const QColor& color, Qt::PenStyle style);
    std::pair<int, int> pointsNear(const QPoint* points, int count) const;
    void fillRects(const QColor& color);
    void fillImage(const QColor& color);

    QPainter* painter_;
    double pixelRatio_;
    QImage* image_ = nullptr;
    QRect part_;
    int width_;
    std::vector<ColumnRun> runs_;
};
