// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <QPoint>
#include <QRect>

#include <functional>

class QPainter;

/// Where places of the plane, times and values, lie on a canvas: a value made of the visible range and the size in logical
/// pixels. Hosts get one with each painter that they draw with, see `CanvasPainter`.
///
/// Times run right and values up, in time and value units; columns and rows count from the upper left corner, where
/// `valueMax` lies at row 0. Nothing is clamped to the range. Where the canvas or the range has no size, what would be a
/// division by zero gives 0. Not-a-number gives not-a-number, and 0 where the result is an integer.
class CURVEEDITOR_EXPORT PlaneMapping
{
public:
    /// Nothing can be shown.
    PlaneMapping() = default;
    /// Where the lowest number of a range is not below the highest one nothing can be shown.
    PlaneMapping(double timeLow, double timeHigh, double valueLow, double valueHigh, int width, int height);

    bool operator==(const PlaneMapping& other) const;
    bool operator!=(const PlaneMapping& other) const { return !(*this == other); }

    // To be read: another view is another mapping.
    double timeMin = 0.0; ///< left edge
    double timeMax = 0.0;
    double valueMin = 0.0; ///< lower edge
    double valueMax = 0.0;
    int pixelWidth = 0;
    int pixelHeight = 0;

    double timeSpan() const { return timeMax - timeMin; }
    double valueSpan() const { return valueMax - valueMin; }
    /// True if there are width, height and spans, and all of them are finite.
    bool canShow() const;

    /// A number of pixels as a share of the canvas, and as a span of the plane, both with its sign.
    double shareOfWidth(double columns) const;
    double shareOfHeight(double rows) const;
    double timeOfPixels(double columns) const;
    double valueOfPixels(double rows) const;
    double timeAt(double column) const { return timeOfPixels(column) + timeMin; }
    double valueAt(double row) const { return valueMax - valueOfPixels(row); }

    /// The column and the row of a place, not rounded.
    double column(double time) const { return (time - timeMin) * timeScale_; }
    double row(double value) const { return (valueMax - value) * valueScale_; }
    /// The same truncated toward zero, and at most 2^29 away from 0.
    int pixelColumn(double time) const;
    int pixelRow(double value) const;

    /// The rectangle between two corners of the plane, truncated and bounded in the same way.
    QRect pixelRect(double timeA, double valueA, double timeB, double valueB) const;

    /// A slope in value per time as one in pixels per pixel, upward.
    double pixelSlope(double slope) const;

private:
    double timeScale_ = 0.0;
    double valueScale_ = 0.0;
};

/// Draws something of a host's on the canvas, see `CurveEditor::setUnderlay` and `setOverlay`.
using CanvasPainter = std::function<void(QPainter& painter, const PlaneMapping& plane)>;
