// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/panel/NodePageWidgets.h>

#include <QObject>
#include <QPointer>

class ViewPort;

using namespace curveeditor;

/// Keeps the node page in step with the one point that is selected on the canvas. It copies the point's
/// fields into the widgets of the page, and hands each edit of a widget to the door for edits. The widgets
/// belong to the dialog, the point to its spline.
///
/// The form is on (its widgets enabled, but for numbers and type of a locked curve) or off. It holds no point: every
/// slot asks the selection it last showed for the point that is selected now, and does nothing when the form is off,
/// the curve is gone or not exactly one point of it is selected. What stands in the fields is never a point that is
/// selected no more.
///
/// All typing in one field until it is left, Return or another edit, and a whole drag on a field, are one edit.
/// A text that is what the form shows for the point's number means that very number, not its three decimals; one
/// that is no number leaves the point alone.
class TcbEditorForm : public QObject
{
    Q_OBJECT

public:
    /// Connects the widgets and switches them off. Times are shown in the unit of `view`. Both must outlive the form.
    TcbEditorForm(const NodePageWidgets& widgets, const ViewPort& view);

    /// To be called after each event on the canvas. With exactly one point of `control` selected it shows the
    /// point, and `enable` switches the form on first. Otherwise (null included) it switches the form off.
    void updateForm(ControlSplineNode* control, bool enable);

    /// Copies the selected point of `control` into the widgets, on or off. Does nothing unless exactly one is
    /// selected. Emits nothing.
    void showPoint(ControlSplineNode* control);

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

    /// Gives the selected point the type of that entry of the combo box, see `PointType::entry`.
    void changeNodeType(int entry);

    /// Writes `value`, as `sender` shows it, into the point's field of that widget. A time that is no finite
    /// number of time units, as any frame number is at 0 frames per time unit, leaves the point where it is.
    void valueChanged(const double& value, CustomEditLine* sender);

    /// `sender` got the focus, which Escape leads back to.
    void noteFocus(CustomEditLine* sender);
    /// Takes what was edited in `sender` back, gives the point the number that it had when `sender` got the focus,
    /// and shows the point as it is then.
    void cancelEdit(CustomEditLine* sender);
    /// What was edited in `sender` is done.
    void finishEdit(CustomEditLine* sender);
    /// A drag on a field ends where it is: the point may be about to go back.
    void stopDrags();

Q_SIGNALS:
    /// The user edited a point of that selection or stepped to another one. Null if its curve is gone by now.
    void nodeTcbChanged(ControlSplineNode* control);

private:
    struct Row;

    int singleIndex(const ControlSplineNode* control) const;
    int editableIndex() const;
    bool isEditing() const;
    bool endOtherEdit();
    bool beginEdit(CustomEditLine* sender, const SplineBase::PointInfo& point);
    void writeNumber(CustomEditLine* sender, const Row& row, double number);
    double editedNumber(double value, const CustomEditLine& sender, const Row& row,
                        const SplineBase::PointInfo& point) const;
    double shownNumber(const SplineBase::PointInfo& point, const Row& row) const;
    void showCurrentPoint(ControlSplineNode& control, int index);
    void selectPoint(ControlSplineNode& control, int index);
    void offerTypes(const EditedCurve& curve);
    void clearFields();
    void clearLostPoint(const ControlSplineNode* control);
    void setFieldsEnabled(bool enabled);
    void showNodeIndex(int index);
    void showPreview(const SplineBase::PointInfo& point);

    bool formActive_ = false;
    NodePageWidgets widgets_;
    const ViewPort& view_;
    int shownIndex_ = 0;
    PointSerial shownPoint_ = 0;
    /// The selection of the curve that was shown last, null once that curve has left the canvas.
    QPointer<ControlSplineNode> currentControl_;

    CustomEditLine* editedField_ = nullptr;
    CurveEdit::Id edit_ = 0;
    QPointer<CurveEdit> door_;     ///< of that edit
    double written_ = 0.0;         ///< the number that was written last in it
    SplineBase::PointInfo focus_;  ///< the point when the field that has the focus got it
    SplineBase::PointInfo before_; ///< the point when the edit of the field began
};
