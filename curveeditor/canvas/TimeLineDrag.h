// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class CanvasFunctionBase;
class QKeyEvent;
class QMouseEvent;
class QPoint;
class QWidget;
class ViewPort;

namespace curveeditor {

/// Lets the user move the time line of a canvas: by its foot, the lowest `footHeight` pixels, and by commands. It is
/// an event filter, so that the widget's own handlers do not know of it. A drag snaps as one of points does; Escape
/// takes it back. Off until a host allows it.
///
/// Held by the widget; canvas and view outlive it.
class TimeLineDrag : public QObject
{
    Q_OBJECT

public:
    static constexpr int footHeight = 16;
    static constexpr int footReach = 8; ///< to the left and to the right of the line

    TimeLineDrag(QWidget* widget, CanvasFunctionBase& canvas, ViewPort& view);

    void setEnabled(bool on);
    bool isEnabled() const { return isEnabled_; }

    /// Moves the line by that many frames, within the limits of the view; nothing without frames.
    void moveByFrames(int frames);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The line stands at another time now, in time units.
    void dragged(double time);
    void enabledChanged();

private:
    bool isDragged() const;
    void endDrag();
    bool isAtFoot(const QPoint& pixel) const;
    bool takePress(const QMouseEvent& event);
    bool takeMove(const QMouseEvent& event);
    bool takeRelease(const QMouseEvent& event);
    bool takeOverride(QKeyEvent& event) const;
    bool takeEscape();
    void showCursor(bool isAtFoot);
    void moveTo(double time);

    QWidget* widget_;
    CanvasFunctionBase& canvas_;
    ViewPort& view_;
    bool isEnabled_ = false;
};

} // namespace curveeditor
