// SPDX-License-Identifier: MIT
#include <curveeditor/panel/TcbCurveFrame.h>

#include <curveeditor/edit/Truncate.h>
#include <curveeditor/panel/EmptyText.h>

#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

using namespace curveeditor;

namespace {

constexpr unsigned topOfHump = 2; // behind the point of a new spline and the one added at the same time
constexpr int crosses = 30;
constexpr int middleCross = 15;
constexpr int armLength = 2;
constexpr int borderPixels = 5;
constexpr double heightShare = double(0.7f);
constexpr QColor backgroundColor(192, 192, 192);
constexpr QSize smallestPicture(36, 48);

void drawCross(QPainter& painter, const QPoint& center, int thickness, const QColor& color)
{
    const int arm = armLength * thickness;
    const int length = 2 * arm + thickness;
    painter.fillRect(center.x() - arm, center.y(), length, thickness, color);
    painter.fillRect(center.x(), center.y() - arm, thickness, length, color);
}

} // namespace

TcbCurveFrame::TcbCurveFrame(QWidget* parent, const QString& name) : QFrame(parent)
{
    setObjectName(name);
    setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    setCursor(Qt::CrossCursor);
    setMinimumSize(smallestPicture);
    setAutoFillBackground(true);
    setColors(backgroundColor, Qt::black, Qt::darkRed);
    previewSpline_.addPoint(0.0, 0.0);
    previewSpline_.addPoint(0.5, 1.0);
    previewSpline_.addPoint(1.0, 0.0);
}

void TcbCurveFrame::setColors(const QColor& background, const QColor& curve, const QColor& middle)
{
    QPalette colors;
    colors.setColor(QPalette::Window, background);
    setPalette(colors);
    curveColor_ = curve;
    middleColor_ = middle;
    update();
}

void TcbCurveFrame::setFromPoint(const SplineBase::PointInfo* point)
{
    SplineBase::PointInfo* top = previewSpline_.modify(topOfHump);
    const double time = top->time;
    const double pos = top->pos;
    *top = *point;
    top->time = time;
    top->pos = pos;
}

void TcbCurveFrame::setLine(double width)
{
    lineWidth_ = width;
    update();
}

void TcbCurveFrame::setMissing(Missing what)
{
    missing_ = what;
    update();
}

/// Where the hump is at that time, of 0 to 1.
QPointF TcbCurveFrame::place(double time) const
{
    return {(width() - borderPixels) * time,
            (height() - borderPixels) * (1.0 / heightShare - previewSpline_(time)) * heightShare};
}

void TcbCurveFrame::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    if (missing_ != Missing::Nothing && lineWidth_ > 0.0)
        return drawEmptyText(*this,
                             missing_ == Missing::Point ? tr("Select one point to edit its numbers")
                                                        : tr("Open a curve with points to edit them here"),
                             curveColor_);
    QPainter painter(this);
    if (lineWidth_ > 0.0)
        drawLine(painter);
    else
        drawCrosses(painter);
}

void TcbCurveFrame::drawLine(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(contentsRect());
    QPolygonF line;
    for (int column = 0; column <= width(); ++column)
        line << place(double(column) / width());
    painter.setPen(QPen(curveColor_, lineWidth_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(line);
    painter.setPen(Qt::NoPen);
    painter.setBrush(middleColor_);
    painter.drawEllipse(place(0.5), 2.0 * lineWidth_, 2.0 * lineWidth_);
}

// Works in device pixels, where each cross falls on whole pixels whatever their ratio to logical ones.
void TcbCurveFrame::drawCrosses(QPainter& painter) const
{
    const double ratio = devicePixelRatioF();
    const int thickness = std::max(1, qRound(ratio));
    painter.scale(1.0 / ratio, 1.0 / ratio);
    const double step = 1.0 / crosses;
    int count = 1;
    for (double time = step; time < 1.0; time += step, ++count) {
        const double x = std::trunc(place(time).x());
        const double visibleY =
            std::clamp(std::trunc(place(time).y()), -double(borderPixels), double(height() + borderPixels));
        drawCross(painter, {truncateToInt(x * ratio), truncateToInt(visibleY * ratio)}, thickness,
                  count == middleCross ? middleColor_ : curveColor_);
    }
}
