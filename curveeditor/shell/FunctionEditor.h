// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/FreehandDrag.h>
#include <curveeditor/canvas/HoverLight.h>
#include <curveeditor/canvas/TimeLineDrag.h>
#include <curveeditor/canvas/TransformBox.h>
#include <curveeditor/canvas/ViewGestures.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/panel/TcbEditorForm.h>

#include <QWidget>

class DependencyCheck;

using namespace curveeditor;

/// The widget on which the curves are seen and touched. It draws and edits nothing by itself: each event
/// goes, in a fixed order, to the view gestures of its `ViewPort` base, to `canvas` and to `nodeForm`.
///
/// The dialog creates it in its frame `functionView`, which owns it. Positions of events are logical pixels.
class FunctionEditor : public QWidget, public ViewPort
{
    Q_OBJECT

public:
    /// `parent` is the frame that the widget fills; the canvas reaches the dialog through `check`, and the form works in
    /// `page`. No pointer may be null.
    FunctionEditor(QWidget* parent, DependencyCheck* check, const NodePageWidgets& page);
    ~FunctionEditor() override;

    CanvasFunctionBase canvas; ///< the curves on the canvas
    TcbEditorForm nodeForm;    ///< the page that shows the selected point
    HoverLight hoverLight;
    ViewGestures viewGestures; ///< wheel, touch pad, Space and middle button
    TimeLineDrag timeLineDrag;
    FreehandDrag freehandDrag;
    TransformBox transformBox; ///< sees what happens to the canvas before the others do

    /// Puts a curve on the canvas, see `CanvasFunctionBase::addCurve`.
    CurveNodeBase* setCurveEditableOn(QWidget* menu, const QString& name, const QColor& color,
                                      float defaultValue, SplineBase* spline, FunctionFloatBase** expression,
                                      float minValue, float maxValue);
    /// Takes a curve off the canvas; the form lets go of its points.
    void setCurveEditableOff(const QString& name);
    void setCurveColor(const QString& name, const QColor& color);

    /// Makes the current curve a spline curve; with `dropExpression` its expression is deleted.
    void setCurrentToSpline(const bool& dropExpression);
    /// Makes the current curve an expression curve and closes the form.
    void setCurrentToExpression();
    /// Deletes the expression of the current curve and reports it.
    void deleteExpression();

    /// Disables the form if it is open.
    void closeNodeForm();
    /// Shows the selected point in the form, which opens only if `enable` is true and closes if there is not
    /// exactly one.
    void showSelection(bool enable);

    void resetAllCurves();
    void resetCurrentCurve();

    /// Fit the visible range to the points of the current spline: its times, its values with a tenth of their
    /// span on each side, or both. They do not paint.
    void completeViewportH();
    void completeViewportV();
    void completeViewport();

    /// What it has in an editor that nobody made smaller.
    QSize sizeHint() const override { return {550, 300}; }

    /// Public, as the dialog hands on each key that reaches it.
    void keyPressEvent(QKeyEvent* event) override;

Q_SIGNALS:
    /// The place of the mouse in the plane. Silent while a single point of a spline that shows is selected.
    void setPosInfo(const double& valueX, const double& valueY);
    /// The place of the mouse in the plane, and the value of the current curve at that time: 0.0 without one.
    void setFuncPosInfo(const double& valueX, const double& valueY, const double& val);
    /// The selection may be another one, or be empty now.
    void selectionShown();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    bool isOwnKey(const QKeyEvent& event) const;
    bool isAtLastPress(const QMouseEvent& event) const;
    bool isCurrentSpline() const;
    void paintFocusFrame();
    void reportPosition(const QMouseEvent& event);
    void loadBand();
};
