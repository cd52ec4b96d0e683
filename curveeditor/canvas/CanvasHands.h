// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/edit/CurveEdit.h>
#include <curveeditor/edit/DragGuide.h>

#include <QCoreApplication>

#include <utility>

class CanvasFunctionBase;
class CurveNodeBase;
class QKeyEvent;
class QMouseEvent;
class QPoint;
class ViewPort;

namespace curveeditor {

class CanvasCurves;
struct MouseState;

/// What mouse and keys do to the curves of a canvas: selecting, dragging, bands, and the edits that need no menu. What
/// the hand is at stands in the `Gesture` of the viewport. Canvas and curves are others' and outlive it.
///
/// Whatever ends an edit or makes another curve current may run foreign code that takes curves away.
class CanvasHands
{
    Q_DECLARE_TR_FUNCTIONS(CanvasHands)

public:
    CanvasHands(CanvasFunctionBase& canvas, CanvasCurves& curves);

    /// Snapping, and where it leads; acts from the next step of a drag on.
    DragGuide guide;
    /// A drag of one handle turns the other one too, so that both are in line; acts from the next drag on.
    bool alignsHandles = false;
    /// Gives `guide` what there is to snap to now, but for the points that are dragged.
    void prepareSnap();

    /// The events of the widget. Without a viewport they do nothing.
    bool press(const QMouseEvent& event);
    void doubleClick(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void key(const QKeyEvent& event, bool isFocused);

    /// See `CanvasFunctionBase`.
    CurveEdit::Curves settle();
    bool cancel();
    bool hasPointAt(const QPoint& pixel) const;

    /// What a press of the left button does.
    enum class Deed {
        Nothing, ///< but a rubber band, or what the view has to do
        Select,  ///< a point, or a curve
        Move,    ///< a point, a handle or the selection
        Add      ///< a point
    };
    struct Aim
    {
        Deed deed = Deed::Nothing;
        CurveNodeBase* curve = nullptr; ///< of the point, or the one that is picked
        CanvasSpline::Hit hit;

        bool operator==(const Aim& other) const = default;
    };
    /// What one would do at that pixel with those keys held, by the pictures of the last frame.
    Aim aimAt(const QPoint& pixel, Qt::KeyboardModifiers held) const;

private:
    ViewPort* viewport() const;
    CurveEdit::Curves keepStroke();
    CanvasSpline::Hit hitIn(CurveNodeBase& curve, const QPoint& pixel) const;
    std::pair<CurveNodeBase*, CanvasSpline::Hit> pointAt(const QPoint& pixel) const;
    CurveNodeBase* otherCurveAt(const QPoint& pixel) const;
    bool isHandFree() const;
    bool canMoveSelection() const;
    bool keepsSelection(double time, bool shift) const;
    CanvasSpline::Hit hitPoint(const QPoint& pixel);
    bool pressOnHit(const QMouseEvent& event, const CanvasSpline::Hit& hit);
    void updateSelection(PointSerial point, bool shift);
    bool pressOnSelection(const QMouseEvent& event);
    bool pressOnEmptyCanvas(const QMouseEvent& event);
    bool pickCurve(const QPoint& pixel);
    void beginDrag(bool withCtrl);
    void dragSelection(const Gesture::Place& mouse, const MouseState& held);
    bool areDraggedThere() const;
    bool isClick(const QMouseEvent& release) const;
    void selectInBand();
    void stepSelection(bool forward);

    CanvasFunctionBase& canvas_;
    CanvasCurves& curves_;
};

} // namespace curveeditor
