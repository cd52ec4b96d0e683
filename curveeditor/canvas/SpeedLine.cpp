// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/SpeedLine.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace curveeditor {

namespace {

constexpr double heightShare = 0.45; // of the steepest place, from the middle

} // namespace

void SpeedLine::update(const CurveNodeBase& curve, const ViewPort& viewport)
{
    if (picture_ == curve.pictureNumber())
        return;
    picture_ = curve.pictureNumber();
    const PlaneMapping plane = viewport.mapping();
    std::vector<double> slopes;
    double steepest = 0.0;
    for (int column = 0; column < plane.pixelWidth; ++column) {
        slopes.push_back(curve.slope(plane.timeAt(column), plane.timeOfPixels(1.0)));
        if (std::isfinite(slopes.back()))
            steepest = std::max(steepest, std::abs(slopes.back()));
    }
    parts_.clear();
    bool isJoined = false;
    for (int column = 0; column < plane.pixelWidth; ++column) {
        const double share =
            steepest > 0.0 ? slopes[std::size_t(column)] / steepest : slopes[std::size_t(column)];
        if (std::isfinite(share) && !isJoined)
            parts_.emplace_back();
        isJoined = std::isfinite(share);
        if (isJoined)
            parts_.back().append(QPointF(column, plane.pixelHeight * (0.5 - heightShare * share)));
    }
}

void SpeedLine::draw(QPainter& painter) const
{
    for (const QPolygonF& part : parts_)
        painter.drawPolyline(part);
}

} // namespace curveeditor
