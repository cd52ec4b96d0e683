// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ViewGestures.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QInputDevice>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace curveeditor {

namespace {

constexpr double notch = 120.0; // of a wheel, in the unit of its events
constexpr double zoomOfNotch = 1.25;
constexpr double mostNotches = 20.0; // of one event
constexpr double pixelsOfNotch = 60.0;
constexpr double strongestPinch = 4.0;

bool isOfTouchPad(const QWheelEvent& event)
{
    return event.deviceType() == QInputDevice::DeviceType::TouchPad || event.phase() != Qt::NoScrollPhase;
}

} // namespace

ViewGestures::ViewGestures(QWidget* widget, CanvasFunctionBase& canvas, ViewPort& view)
    : widget_(widget), canvas_(canvas), view_(view)
{
    widget->installEventFilter(this);
}

void ViewGestures::setEnabled(bool on)
{
    isEnabled_ = on;
    endPan();
    releaseKeys();
}

bool ViewGestures::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != widget_ || !isEnabled_)
        return false;
    switch (event->type()) {
    case QEvent::Wheel:
        return takeWheel(*static_cast<QWheelEvent*>(event));
    case QEvent::NativeGesture:
        return takePinch(*static_cast<QNativeGestureEvent*>(event));
    case QEvent::ShortcutOverride:
        return takeOverride(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return takeKey(*static_cast<QKeyEvent*>(event), event->type() == QEvent::KeyPress);
    case QEvent::FocusOut:
        releaseKeys();
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return takePress(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        return takeMove(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return takeRelease(*static_cast<QMouseEvent*>(event));
    default:
        return false;
    }
}

/// That which drags the view.
Qt::MouseButton ViewGestures::dragButton() const
{
    return view_.gesture.viewDrag.button;
}

bool ViewGestures::takeWheel(const QWheelEvent& event)
{
    const Qt::KeyboardModifiers keys = event.modifiers() & ~Qt::KeypadModifier;
    const bool onlyTimes = keys == Qt::ControlModifier;
    const bool onlyValues = keys == Qt::ShiftModifier;
    if (isOfTouchPad(event) && keys == Qt::NoModifier) {
        pan(event.pixelDelta().isNull() ? QPointF(event.angleDelta()) / notch * pixelsOfNotch
                                        : QPointF(event.pixelDelta()));
        return true;
    }
    const int delta = event.angleDelta().y() != 0 ? event.angleDelta().y() : event.angleDelta().x();
    if (delta == 0 || (keys != Qt::NoModifier && !onlyTimes && !onlyValues))
        return false;
    const double factor = std::pow(zoomOfNotch, -std::clamp(delta / notch, -mostNotches, mostNotches));
    zoom(event.position(), onlyValues ? 1.0 : factor, onlyTimes ? 1.0 : factor);
    return true;
}

void ViewGestures::zoomByNotches(int notches)
{
    const double factor = std::pow(zoomOfNotch, -notches);
    zoom(QRectF(widget_->rect()).center(), factor, factor);
}

bool ViewGestures::takePinch(const QNativeGestureEvent& event)
{
    if (event.gestureType() != Qt::ZoomNativeGesture)
        return false;
    const double factor = std::clamp(1.0 - event.value(), 1.0 / strongestPinch, strongestPinch);
    zoom(event.position(), factor, factor);
    return true;
}

/// A host in whose window the widget is may have the same keys.
bool ViewGestures::takeOverride(QKeyEvent& event) const
{
    const bool isAxis = event.key() == Qt::Key_X || event.key() == Qt::Key_Y;
    const bool isHeld =
        isAxis || event.key() == Qt::Key_B || event.key() == Qt::Key_D || event.key() == Qt::Key_Space;
    const bool isOurs =
        isHeld && (event.modifiers() == Qt::NoModifier || (isAxis && view_.gesture.isAtPoints()));
    if (isOurs)
        event.accept();
    return isOurs;
}

bool ViewGestures::takeKey(const QKeyEvent& event, bool isPress)
{
    if (event.key() == Qt::Key_X || event.key() == Qt::Key_Y)
        return takeAxisKey(event, isPress);
    if (event.key() == Qt::Key_B && !event.isAutoRepeat())
        view_.gesture.keys.band = isPress && event.modifiers() == Qt::NoModifier;
    if (event.key() == Qt::Key_D && !event.isAutoRepeat()) {
        view_.gesture.keys.draw = isPress && event.modifiers() == Qt::NoModifier;
        showCursor();
    }
    if (event.key() != Qt::Key_Space || (isPress && event.modifiers() != Qt::NoModifier))
        return false;
    if (!event.isAutoRepeat() && (!isPress || widget_->hasFocus()))
        holdSpace(isPress);
    return true;
}

/// X keeps the values still, and Y the times. In a drag Ctrl toggles snapping and makes no command of them.
bool ViewGestures::takeAxisKey(const QKeyEvent& event, bool isPress)
{
    const bool isDragged = view_.gesture.isAtPoints();
    const bool isCommand = isPress && event.modifiers() != Qt::NoModifier && !isDragged;
    if (!event.isAutoRepeat() && !isCommand) {
        const Gesture::Axis held = event.key() == Qt::Key_X ? Gesture::Axis::Time : Gesture::Axis::Value;
        view_.gesture.keys.axis = isPress ? held : Gesture::Axis::Both;
    }
    return isDragged;
}

bool ViewGestures::takePress(const QMouseEvent& event)
{
    const bool bySpace = view_.gesture.keys.space && event.button() == Qt::LeftButton;
    const bool byMiddle = event.button() == Qt::MiddleButton && event.modifiers() == Qt::NoModifier &&
                          !canvas_.hasSelectedPoint() &&
                          !canvas_.hands().hasPointAt(event.position().toPoint());
    if (dragButton() != Qt::NoButton || (!bySpace && !byMiddle) || !view_.canShow())
        return false;
    canvas_.settle();
    widget_->setFocus();
    view_.gesture.beginAtView(Gesture::Kind::Pan, view_.mapping());
    view_.gesture.viewDrag = {event.button(), event.position()};
    canvas_.cursor.ask(CanvasCursor::Asker::View, Qt::ClosedHandCursor);
    return true;
}

bool ViewGestures::takeMove(const QMouseEvent& event)
{
    if (!event.buttons().testFlag(dragButton()))
        endPan(); // its release went astray
    if (dragButton() == Qt::NoButton)
        return false;
    const QPointF way = event.position() - std::exchange(view_.gesture.viewDrag.last, event.position());
    if (view_.gesture.kind() == Gesture::Kind::Pan)
        pan(way);
    return true;
}

bool ViewGestures::takeRelease(const QMouseEvent& event)
{
    if (dragButton() == Qt::NoButton || event.button() != dragButton())
        return dragButton() != Qt::NoButton;
    endPan();
    return true;
}

void ViewGestures::endPan()
{
    if (dragButton() == Qt::NoButton)
        return;
    view_.gesture.viewDrag = {};
    view_.gesture.end();
    holdSpace(view_.gesture.keys.space);
}

void ViewGestures::zoom(const QPointF& pixel, double timeFactor, double valueFactor)
{
    view_.showView(ViewStep::zoomed(view_.mapping(), view_.limits(), pixel, timeFactor, valueFactor));
    canvas_.paint();
}

void ViewGestures::pan(const QPointF& distance)
{
    view_.showView(ViewStep::panned(view_.mapping(), view_.limits(), distance));
    canvas_.paint();
}

void ViewGestures::releaseKeys()
{
    view_.gesture.keys = {};
    showCursor();
}

void ViewGestures::holdSpace(bool on)
{
    view_.gesture.keys.space = on;
    showCursor();
}

void ViewGestures::showCursor()
{
    if (dragButton() != Qt::NoButton)
        return;
    std::optional<Qt::CursorShape> shape;
    if (view_.gesture.keys.space)
        shape = Qt::OpenHandCursor;
    else if (view_.gesture.keys.draw)
        shape = Qt::CrossCursor;
    canvas_.cursor.ask(CanvasCursor::Asker::View, shape);
}

} // namespace curveeditor

#include "moc_ViewGestures.cpp"
