// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>

#include <utility>
#include <vector>

class QColor;
class QImage;

namespace curveeditor {

/// Draws polylines antialiased into an opaque image of 32 bits. It is for the lines of curves, whose columns never
/// fall: above and below each place such a line of any width covers one stretch, from the highest to the lowest point
/// that half the width reaches. A pixel is covered by the stretches of four strips of its column, which are exact in
/// height. Ends and joints are round.
class SmoothStroke
{
public:
    /// Only what lies in `part` is drawn; a part gets the pixels that it has in the whole.
    void setTarget(QImage* image, const QRect& part);
    /// Fewer than two points give nothing. `scale` units of the points are a pixel, the row and column 0 of which begin at 0. `width` is in pixels.
    void draw(const QPoint* points, int count, int scale, double width, const QColor& color);

private:
    void resample(const QPoint* points, int count, int scale);
    void widen(double radius);
    void roundTurns(double radius);
    void fill(const QColor& color);
    void addStretch(float top, float bottom);

    QImage* image_ = nullptr;
    QRect part_;
    int firstStrip_ = 0;
    std::vector<std::pair<double, float>> turns_; ///< strip and row
    // For each strip: where the line is highest and lowest in it, and what it covers.
    std::vector<float> highest_;
    std::vector<float> lowest_;
    std::vector<float> top_;
    std::vector<float> bottom_;
    std::vector<float> changes_; ///< of the coverage of a column, from row to row; 0 between columns
};

} // namespace curveeditor
