// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/HoverLight.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/CurvePainter.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

namespace curveeditor {

namespace {

constexpr int roomInRing = 3;
constexpr double ringWidth = 1.5;
constexpr double widerLine = 1.0;

std::optional<Qt::CursorShape> shapeFor(CanvasHands::Deed deed)
{
    using Deed = CanvasHands::Deed;
    switch (deed) {
    case Deed::Move:
        return Qt::SizeAllCursor;
    case Deed::Select:
        return Qt::PointingHandCursor;
    case Deed::Add:
        return Qt::DragCopyCursor;
    case Deed::Nothing:
        break;
    }
    return std::nullopt;
}

} // namespace

HoverLight::HoverLight(QWidget* widget, CanvasFunctionBase& canvas) : widget_(widget), canvas_(canvas)
{
    widget->installEventFilter(this);
}

bool HoverLight::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != widget_)
        return false;
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto& move = *static_cast<QMouseEvent*>(event);
        const bool isFree = move.buttons() == Qt::NoButton;
        look(isFree ? std::optional(move.position().toPoint()) : std::nullopt, move.modifiers());
        break;
    }
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        look(pixel_, static_cast<QKeyEvent*>(event)->modifiers());
        break;
    case QEvent::MouseButtonPress:
        look({}, {});
        break;
    case QEvent::Leave:
        look({}, {});
        canvas_.cursor.ask(CanvasCursor::Asker::Curves, {});
        break;
    default:
        break;
    }
    return false;
}

void HoverLight::look(std::optional<QPoint> pixel, Qt::KeyboardModifiers held)
{
    pixel_ = pixel;
    held_ = held;
    const CanvasHands::Aim last = aim_;
    aim();
    if (aim_ != last)
        widget_->update();
}

/// With a button held the cursor stays as it was at the press.
void HoverLight::aim()
{
    const bool isOurs = pixel_ && !canvas_.cursor.isTaken(CanvasCursor::Asker::Curves);
    aim_ = isOurs ? canvas_.hands().aimAt(*pixel_, held_) : CanvasHands::Aim();
    if (pixel_)
        canvas_.cursor.ask(CanvasCursor::Asker::Curves, shapeFor(aim_.deed));
}

void HoverLight::draw(QPainter& painter)
{
    aim();
    if (!aim_.curve || !canvas_.theme().smooth)
        return;
    if (aim_.hit.point != 0)
        return drawPoint(painter);
    CurvePainter curves(&painter, widget_->devicePixelRatioF());
    aim_.curve->drawLine(curves, canvas_.theme().curveWidth + widerLine);
}

void HoverLight::drawPoint(QPainter& painter) const
{
    const CurveEditorTheme& theme = canvas_.theme();
    const bool isPoint = aim_.hit.part == SplineEdits::Part::Point;
    const int radius = (isPoint ? theme.selectedPointSize : theme.handleSize) / 2 + roomInRing;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.labels, ringWidth));
    painter.setBrush(Qt::NoBrush);
    for (const QPoint& pixel : aim_.curve->getCanvasSpline()->pixelsOf(aim_.hit))
        painter.drawEllipse(QPointF(pixel) + QPointF(0.5, 0.5), radius, radius);
}

} // namespace curveeditor

#include "moc_HoverLight.cpp"
