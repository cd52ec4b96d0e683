// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/FrameGrips.h>

#include <curveeditor/canvas/CurveEditorTheme.h>

#include <QPainter>

#include <algorithm>
#include <array>

namespace curveeditor {

namespace {

constexpr int gripSize = 6;
constexpr std::array gripSides = {-1, 0, 1};

/// Which side of a frame lies there, none for a place outside. A narrow frame keeps an inside.
std::optional<int> sideAt(double place, double low, double high, bool hasExtent)
{
    constexpr double shareInside = 0.25;
    const double inward = std::min(double(FrameGrips::reach), (high - low) * shareInside);
    if (place < low - FrameGrips::reach || place > high + FrameGrips::reach)
        return std::nullopt;
    if (hasExtent && place <= low + inward)
        return -1;
    return hasExtent && place >= high - inward ? 1 : 0;
}

} // namespace

FrameGrips::FrameGrips(const PlaneFrame& frame, const PlaneMapping& view)
    : scalesTime_(frame.time.span() > 0.0), scalesValue_(frame.value.span() > 0.0)
{
    if (!view.canShow() || frame.time.isNothing())
        return;
    canvas_ = QRectF(0.0, 0.0, view.pixelWidth, view.pixelHeight);
    const QPointF corner(view.column(frame.time.low), view.row(frame.value.high));
    const QPointF opposite(view.column(frame.time.high), view.row(frame.value.low));
    rect_ = QRectF(corner, opposite).adjusted(-margin, -margin, margin, margin);
}

std::optional<PlaneFrame::Grip> FrameGrips::at(const QPointF& pixel) const
{
    const auto time = sideAt(pixel.x(), rect_.left(), rect_.right(), scalesTime_);
    const auto row = sideAt(pixel.y(), rect_.top(), rect_.bottom(), scalesValue_);
    if (!time || !row || canvas_.isEmpty())
        return std::nullopt;
    return PlaneFrame::Grip{*time, -*row};
}

Qt::CursorShape FrameGrips::cursorOf(const PlaneFrame::Grip& grip)
{
    if (grip.moves())
        return Qt::SizeAllCursor;
    if (grip.value == 0)
        return Qt::SizeHorCursor;
    if (grip.time == 0)
        return Qt::SizeVerCursor;
    return grip.time == grip.value ? Qt::SizeBDiagCursor : Qt::SizeFDiagCursor;
}

/// What lies beyond the canvas ends just outside, as painters take no huge numbers.
void FrameGrips::draw(QPainter& painter, const CurveEditorTheme& theme) const
{
    const QRectF rect = rect_ & canvas_.adjusted(-gripSize, -gripSize, gripSize, gripSize);
    if (canvas_.isEmpty() || rect.isEmpty())
        return;
    painter.setPen(QPen(theme.labels, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
    painter.setBrush(theme.canvas);
    for (const int time : gripSides) {
        for (const int row : gripSides) {
            const bool isThere = (time == 0 || scalesTime_) && (row == 0 || scalesValue_);
            QRectF grip(0.0, 0.0, gripSize, gripSize);
            grip.moveCenter(rect.center() + QPointF(time * rect.width(), row * rect.height()) / 2.0);
            if (isThere && (time != 0 || row != 0))
                painter.drawRect(grip);
        }
    }
}

} // namespace curveeditor
