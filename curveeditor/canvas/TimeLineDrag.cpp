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

TimeLineDrag::TimeLineDrag(QWidget* widget, CanvasFunctionBase& canvas, ViewPort& view)
    : widget_(widget), canvas_(canvas), view_(view)
{
    widget->installEventFilter(this);
}

void TimeLineDrag::setEnabled(bool on)
{
    isEnabled_ = on;
    start_.reset();
    showCursor(false);
    canvas_.setOffersTimeLine(on);
    canvas_.paint();
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

bool TimeLineDrag::isAtFoot(const QPoint& pixel) const
{
    return view_.canShow() && pixel.y() >= view_.pixelHeight - footHeight &&
           std::abs(view_.timeToPixel(view_.timeLine) - pixel.x()) <= footReach;
}

bool TimeLineDrag::takePress(const QMouseEvent& event)
{
    const bool begins = event.button() == Qt::LeftButton && event.modifiers() == Qt::NoModifier &&
                        view_.gesture.kind() == Gesture::Kind::Idle && isAtFoot(event.position().toPoint());
    if (start_ || !begins)
        return start_.has_value();
    canvas_.settle();
    canvas_.prepareSnap();
    widget_->setFocus();
    start_ = view_.timeLine;
    return true;
}

bool TimeLineDrag::takeMove(const QMouseEvent& event)
{
    if (!start_) {
        showCursor(event.buttons() == Qt::NoButton && isAtFoot(event.position().toPoint()));
        return false;
    }
    const QPoint pixel = event.position().toPoint();
    Gesture::Place place{view_.pixelToTime(pixel.x()), view_.pixelToValue(pixel.y())};
    if (canvas_.guide.isSnapping != event.modifiers().testFlag(Qt::ControlModifier)) {
        Snap snap = canvas_.guide.snap;
        snap.kinds &= ~unsigned(Snap::TimeLine);
        place = snap.snapped(place, view_.mapping()).place;
    }
    if (event.buttons().testFlag(Qt::LeftButton))
        moveTo(place.time);
    else
        start_.reset(); // its release went astray
    return true;
}

bool TimeLineDrag::takeRelease(const QMouseEvent& event)
{
    const bool wasDragged = start_.has_value();
    if (event.button() == Qt::LeftButton)
        start_.reset();
    return wasDragged;
}

/// A host in whose window the widget is may use Escape.
bool TimeLineDrag::takeOverride(QKeyEvent& event) const
{
    const bool isOurs = start_ && event.key() == Qt::Key_Escape;
    if (isOurs)
        event.accept();
    return isOurs;
}

bool TimeLineDrag::takeEscape()
{
    if (!start_)
        return false;
    const double time = *start_;
    start_.reset();
    moveTo(time);
    return true;
}

void TimeLineDrag::showCursor(bool isAtFoot)
{
    if (isAtFoot == isCursorShown_)
        return;
    isCursorShown_ = isAtFoot;
    if (isAtFoot)
        widget_->setCursor(Qt::SizeHorCursor);
    else
        widget_->unsetCursor();
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
