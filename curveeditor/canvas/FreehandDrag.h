// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveTrial.h>
#include <curveeditor/edit/Stroke.h>

#include <QObject>
#include <QPointer>

#include <optional>

class CanvasFunctionBase;
class CurveNodeBase;
class QKeyEvent;
class QMouseEvent;
class QWidget;
class ViewPort;

namespace curveeditor {

/// Lets the user draw into the current spline: while D is held, a drag with the left button is a stroke, and as few points
/// as keep to it within two pixels take the place of those of its span. Each step shows; Escape takes all back. It is
/// an event filter, so that the widget's own handlers do not know of it.
///
/// Held by the widget; canvas and view outlive it.
class FreehandDrag : public QObject
{
    Q_OBJECT

public:
    FreehandDrag(QWidget* widget, CanvasFunctionBase& canvas, ViewPort& view);

    /// The next drag draws, as one with D held; Escape forgets it.
    void drawNext();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isAwaited() const;
    bool isDrawing() const;
    bool takePress(const QMouseEvent& event);
    bool takeMove(const QMouseEvent& event);
    bool takeRelease(const QMouseEvent& event);
    bool takeOverride(QKeyEvent& event) const;
    bool takeEscape();
    bool canDraw(const CurveNodeBase* curve);
    Stroke::Place placeAt(const QMouseEvent& event) const;
    void draw(const Stroke::Place& place);
    void keep();
    void end();

    QWidget* widget_;
    CanvasFunctionBase& canvas_;
    ViewPort& view_;
    QPointer<CurveNodeBase> curve_; ///< that is drawn into
    std::optional<Stroke> stroke_;
    std::optional<CurveTrial> trial_;
    bool drawsNext_ = false;
    bool isAtWork_ = false; ///< a step is shown and told
};

} // namespace curveeditor
