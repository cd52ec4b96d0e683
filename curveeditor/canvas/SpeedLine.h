// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <QPolygonF>

#include <vector>

class CurveNodeBase;
class QPainter;
class ViewPort;

namespace curveeditor {

/// The slope of one curve over the times in sight, as a line with a scale of its own: 0.0 lies in the middle of the
/// canvas, and where the curve is steepest the line comes near an edge.
class SpeedLine
{
public:
    /// Makes the line anew where the curve has another picture, which it has in another view.
    void update(const CurveNodeBase& curve, const ViewPort& viewport);
    /// In the pen of the painter.
    void draw(QPainter& painter) const;

private:
    quint64 picture_ = 0;
    std::vector<QPolygonF> parts_; ///< between the times without a slope
};

} // namespace curveeditor
