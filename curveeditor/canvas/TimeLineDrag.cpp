// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/TimeLineDrag.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace curveeditor {

TimeLineDrag::TimeLineDrag(QWidget* widget, CanvasFunctionBase& canvas, ViewPort& view)
    : widget_(widget), canvas_(canvas), view_(view)
{
    widget->installEventFilter(this);
}

void TimeLineDrag::setEnabled(bool on)
{
    isEnabled_ = on;
    endDrag();
    showCursor(false);
    canvas_.grid().offersTimeLine = on;
    canvas_.paint();
    Q_EMIT enabledChanged();
}

void TimeLineDrag::moveByFrames(int frames)
{
    const double step = frames / view_.fps;
    if (isEnabled_ && std::isfinite(step))
        moveTo(view_.timeLine + step);
}

bool TimeLineDrag::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != widget_ || !isEnabled_)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return takePress(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        return takeMove(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return takeRelease(*static_cast<QMouseEvent*>(event));
    case QEvent::ShortcutOverride:
        return takeOverride(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyPress:
        return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && takeEscape();
    case QEvent::Leave:
        showCursor(false);
        return false;
    default:
        return false;
    }
}

bool TimeLineDrag::isDragged() const
{
    return view_.gesture.kind() == Gesture::Kind::TimeLine;
}

void TimeLineDrag::endDrag()
{
    if (isDragged())
        view_.gesture.end();
}

bool TimeLineDrag::isAtFoot(const QPoint& pixel) const
{
    return view_.canShow() && pixel.y() >= view_.pixelHeight - footHeight &&
           std::abs(view_.timeToPixel(view_.timeLine) - pixel.x()) <= footReach;
}

bool TimeLineDrag::takePress(const QMouseEvent& event)
{
    const bool begins = event.button() == Qt::LeftButton && event.modifiers() == Qt::NoModifier &&
                        view_.gesture.kind() == Gesture::Kind::Idle && isAtFoot(event.position().toPoint());
    if (isDragged() || !begins)
        return isDragged();
    canvas_.settle();
    canvas_.hands().prepareSnap();
    widget_->setFocus();
    view_.gesture.beginAtTimeLine(view_.timeLine);
    return true;
}

bool TimeLineDrag::takeMove(const QMouseEvent& event)
{
    if (!isDragged()) {
        showCursor(event.buttons() == Qt::NoButton && isAtFoot(event.position().toPoint()));
        return false;
    }
    const QPoint pixel = event.position().toPoint();
    Gesture::Place place{view_.pixelToTime(pixel.x()), view_.pixelToValue(pixel.y())};
    const DragGuide& guide = canvas_.hands().guide;
    if (guide.isSnapping != event.modifiers().testFlag(Qt::ControlModifier)) {
        Snap snap = guide.snap;
        snap.kinds &= ~unsigned(Snap::TimeLine);
        place = snap.snapped(place, view_.mapping()).place;
    }
    if (event.buttons().testFlag(Qt::LeftButton))
        moveTo(place.time);
    else
        endDrag(); // its release went astray
    return true;
}

bool TimeLineDrag::takeRelease(const QMouseEvent& event)
{
    const bool wasDragged = isDragged();
    if (event.button() == Qt::LeftButton)
        endDrag();
    return wasDragged;
}

/// A host in whose window the widget is may use Escape.
bool TimeLineDrag::takeOverride(QKeyEvent& event) const
{
    const bool isOurs = isDragged() && event.key() == Qt::Key_Escape;
    if (isOurs)
        event.accept();
    return isOurs;
}

bool TimeLineDrag::takeEscape()
{
    if (!isDragged())
        return false;
    const double time = view_.gesture.timeLine();
    endDrag();
    moveTo(time);
    return true;
}

void TimeLineDrag::showCursor(bool isAtFoot)
{
    canvas_.cursor.ask(CanvasCursor::Asker::TimeLine,
                       isAtFoot ? std::optional(Qt::SizeHorCursor) : std::nullopt);
}

void TimeLineDrag::moveTo(double time)
{
    const ViewStep::Limits limits = view_.limits();
    const double within = std::max(limits.time.low, std::min(time, limits.time.high));
    if (within == view_.timeLine || !std::isfinite(within))
        return;
    view_.setTimeLine(within);
    canvas_.paint();
    Q_EMIT dragged(within);
}

} // namespace curveeditor

#include "moc_TimeLineDrag.cpp"
