// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasHands.h>

#include <QObject>
#include <QPoint>

#include <optional>

class CanvasFunctionBase;
class QPainter;
class QWidget;

namespace curveeditor {

/// Lights the point, handle or curve that a press of the mouse would take, and lets the cursor tell what it would do. A
/// theme that is not smooth has no light.
///
/// It is an event filter that takes nothing. Held by the widget; the canvas outlives it.
class HoverLight : public QObject
{
    Q_OBJECT

public:
    HoverLight(QWidget* widget, CanvasFunctionBase& canvas);

    /// To be called within the widget's paint event, when the curves are drawn. Curves and view may have changed below
    /// the mouse.
    void draw(QPainter& painter);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void look(std::optional<QPoint> pixel, Qt::KeyboardModifiers held);
    void aim();
    void drawPoint(QPainter& painter) const;

    QWidget* widget_;
    CanvasFunctionBase& canvas_;
    std::optional<QPoint> pixel_; ///< where the mouse is, without a button
    Qt::KeyboardModifiers held_;
    CanvasHands::Aim aim_; ///< of the last look
};

} // namespace curveeditor
