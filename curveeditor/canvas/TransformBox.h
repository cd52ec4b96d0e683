// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/FrameGrips.h>
#include <curveeditor/edit/CurveEdit.h>
#include <curveeditor/edit/Gesture.h>

#include <QObject>

#include <optional>
#include <utility>
#include <vector>

class CanvasFunctionBase;
class CurveNodeBase;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWidget;
class ViewPort;

namespace curveeditor {

/// A frame about the selected points of all curves in reach, off until it is asked for. Its edges and corners scale the
/// points and the curves between them about the opposite side, with Shift about the middle; its inside moves them. An
/// axis in which the points have no extent has no grips. Return, Escape and a press outside end it, and so does
/// whatever changes the selection, the current curve or what of them can be edited.
///
/// It is an event filter, so that the widget's own handlers do not know of it. A drag is one step of the undo stack, snaps
/// as one of points does, and is computed in the plane, so the view may move meanwhile. Held by the widget; canvas and
/// view outlive it.
class TransformBox : public QObject
{
    Q_OBJECT

public:
    TransformBox(QWidget* widget, CanvasFunctionBase& canvas, ViewPort& view);

    /// Shows the frame, or ends it where it shows. Where that is not possible the canvas says why.
    void toggle();
    bool isShown() const;
    /// To be called within the widget's paint event, when the curves are drawn.
    void draw(QPainter& painter);

    /// What is said where a transform leads nowhere, or may bend a curve.
    static QString refusalText();
    static QString bendText();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Nodes = std::vector<CurveNodeBase*>;
    /// The current curve, and the curves with the points that are framed.
    struct Content
    {
        const CurveNodeBase* current = nullptr;
        std::vector<std::pair<std::shared_ptr<EditedCurve>, Selection>> points;
    };
    /// The frame that was measured when the curves had these pictures.
    struct Measured
    {
        std::vector<quint64> pictures;
        PlaneFrame frame;
    };
    using Results = std::optional<std::vector<PointTransform::Result>>;

    Nodes framed() const;
    Content content() const;
    PlaneFrame frame() const;
    FrameGrips grips();
    Gesture::Place placeAt(const QMouseEvent& event) const;
    bool isDragged() const;
    void end();
    bool takePress(const QMouseEvent& event);
    void begin(const PlaneFrame::Grip& grip, const QMouseEvent& event);
    bool takeMove(const QMouseEvent& event);
    bool takeRelease(const QMouseEvent& event);
    bool takeOverride(QKeyEvent& event) const;
    bool takeKey(const QKeyEvent& event);
    PlaneTransform pulledTo(const QMouseEvent& event);
    void step(const PlaneTransform& transform);
    Results results(const PlaneTransform& transform);
    bool areDraggedThere() const;
    void showCursor(const std::optional<PlaneFrame::Grip>& grip);

    QWidget* widget_;
    CanvasFunctionBase& canvas_;
    ViewPort& view_;
    std::optional<Content> content_; ///< when it was shown
    Measured measured_;
};

} // namespace curveeditor
