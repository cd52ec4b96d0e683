// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointF>

class CanvasFunctionBase;
class QKeyEvent;
class QMouseEvent;
class QNativeGestureEvent;
class QWheelEvent;
class QWidget;
class ViewPort;

namespace curveeditor {

/// Wheel, touch pad, Space and the middle button at the view of a canvas, as an event filter, so that the widget's own
/// handlers do not know of them: the wheel zooms about the mouse, with Ctrl the times only, with Shift the values
/// only; two fingers on a touch pad move the view and a pinch zooms it; a drag with Space held moves it, and so does
/// one with the middle button where nothing is selected and no point lies. Escape takes a drag back. While X or Y is
/// held a drag of points moves along that axis alone; while B is held a drag adds a band to what is selected, and while D is held it draws, see `FreehandDrag`.
///
/// Held by the widget; canvas and view outlive it.
class ViewGestures : public QObject
{
    Q_OBJECT

public:
    ViewGestures(QWidget* widget, CanvasFunctionBase& canvas, ViewPort& view);

    /// Switched off, all these events are the widget's.
    void setEnabled(bool on);
    bool isEnabled() const { return isEnabled_; }

    /// As notches of the wheel in the middle of the canvas; positive ones zoom in.
    void zoomByNotches(int notches);
    /// As if all keys were released; to be called when nobody would tell of it.
    void releaseKeys();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Qt::MouseButton dragButton() const;
    bool takeWheel(const QWheelEvent& event);
    bool takePinch(const QNativeGestureEvent& event);
    bool takeOverride(QKeyEvent& event) const;
    bool takeKey(const QKeyEvent& event, bool isPress);
    bool takeAxisKey(const QKeyEvent& event, bool isPress);
    bool takePress(const QMouseEvent& event);
    bool takeMove(const QMouseEvent& event);
    bool takeRelease(const QMouseEvent& event);
    void zoom(const QPointF& pixel, double timeFactor, double valueFactor);
    void pan(const QPointF& distance);
    void endPan();
    void holdSpace(bool on);
    void showCursor();

    QWidget* widget_;
    CanvasFunctionBase& canvas_;
    ViewPort& view_;
    bool isEnabled_ = true;
};

} // namespace curveeditor
