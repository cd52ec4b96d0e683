// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>
#include <curveeditor/panel/NodePage.h>

#include <QObject>
#include <QPointer>

class CanvasSpline;
class ControlSplineNode;

/// Keeps the node page in step with the one point that is selected on the canvas. It copies the point's
/// fields into the widgets of the page, and writes each edit of a widget back into the point. The widgets
/// belong to the dialog, the point to its spline.
///
/// The form is on (its widgets enabled) or off. It holds no point: every slot asks the spline it last showed
/// for the point that is selected now, and does nothing when the form is off, the spline is gone or not
/// exactly one point of it is selected.
class TcbEditorForm : public QObject
{
    Q_OBJECT

public:
    /// Connects the widgets of `editor` and switches them off. `editor` must outlive the form.
    explicit TcbEditorForm(NodePage* editor);

    /// To be called after each event on the canvas. With exactly one point of `spline` selected it shows the
    /// point, and `enable` switches the form on first. Otherwise (null included) it switches the form off.
    void updateForm(CanvasSpline* spline, bool enable);

    /// Copies the selected point of `spline` into the widgets, on or off. Does nothing unless exactly one is
    /// selected. Emits nothing.
    void showPoint(CanvasSpline* spline);

    void enableFields();
    void disableFields();
    bool isActive() const;

    /// Bounds of the time field, in the unit that it shows, in either order.
    void setTimeBounds(double low, double high);

public Q_SLOTS:
    /// Selects the following point, the first after the last one, and shows it.
    void clickedNext();

    /// Selects the preceding point, the last after the first one, and shows it.
    void clickedPrev();

    /// Gives the selected point the type of that entry of the combo box: 0 Tcb, 1 Bezier, 2 Linear.
    void changeNodeType(int entry);

    /// Writes `value`, as `sender` shows it, into the point's field of that widget. A time that is no finite
    /// number of time units, as any frame number is at 0 frames per time unit, leaves the point where it is.
    void valueChanged(const double& value, CustomEditLine* sender);

Q_SIGNALS:
    /// The user edited the point or stepped to another one.
    void nodeTcbChanged();

private:
    int singleIndex(const ControlSplineNode* control) const;
    int editableIndex() const;
    void showCurrentPoint(ControlSplineNode& control, int index);
    void selectPoint(ControlSplineNode& control, int index);
    void setFieldsEnabled(bool enabled);
    void showNodeIndex(int index);
    void showPreview(const SplineBase::PointInfo* point);

    bool formActive = false;
    TcbCurveFrame* preview = nullptr;
    NodePage* editor = nullptr;
    NodePageWidgets widgets_;
    int shownIndex_ = 0;
    /// The selection of the spline that was shown last, null once that spline is gone.
    QPointer<ControlSplineNode> currentControl_;
};
