// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>

/// Where places of the plane lie on a canvas: a value made of the visible range and the size in logical pixels.
///
/// Times run right and values up; `valueMax` lies at row 0. Nothing is clamped to the range. Where the canvas or
/// the range has no size, what would be a division by zero gives 0.
class PlaneMapping
{
public:
    /// Nothing can be shown.
    PlaneMapping() = default;
    PlaneMapping(double timeLow, double timeHigh, double valueLow, double valueHigh, int width, int height);

    bool operator==(const PlaneMapping& other) const = default;

    double timeMin = 0.0;
    double timeMax = 0.0;
    double valueMin = 0.0;
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
    /// The same truncated toward zero, and bounded as `truncateToPixel` does.
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
