// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/PlaneTransform.h>

#include <QRectF>

#include <optional>

class QPainter;
struct CurveEditorTheme;

namespace curveeditor {

/// A frame about points as it lies on a canvas, a little larger than what it is about, with its grips: edges and corners,
/// but for those of an axis in which the points have no extent. A value; a canvas that can show nothing has none.
class FrameGrips
{
public:
    static constexpr int margin = 5; ///< pixels between the points and the frame
    static constexpr int reach = 7;  ///< pixels to both sides of the frame at which it is grabbed

    FrameGrips(const PlaneFrame& frame, const PlaneMapping& view);

    /// What lies there, in logical pixels; none outside.
    std::optional<PlaneFrame::Grip> at(const QPointF& pixel) const;
    static Qt::CursorShape cursorOf(const PlaneFrame::Grip& grip);
    void draw(QPainter& painter, const CurveEditorTheme& theme) const;

private:
    QRectF canvas_; ///< the canvas, empty if it shows nothing
    QRectF rect_;
    bool scalesTime_;
    bool scalesValue_;
};

} // namespace curveeditor
