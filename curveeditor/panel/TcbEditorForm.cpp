// SPDX-License-Identifier: MIT
#include <curveeditor/panel/TcbEditorForm.h>

#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/model/PointTypes.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/TcbCurveFrame.h>

#include <QComboBox>
#include <QListView>
#include <QPushButton>
#include <QStackedWidget>
#include <QStandardItemModel>

#include <algorithm>
#include <cmath>

using namespace curveeditor;

/// One numeric field of the page.
struct TcbEditorForm::Row
{
    CustomEditLine* NodePageWidgets::*widget;
    SplineEdits::Field field;
    double bound; ///< 0.0 for the bounds that the widget has by itself

    static const Row* find(const NodePageWidgets& widgets, const CustomEditLine* widget);
    static const std::initializer_list<Row> all;
};

namespace {

using Field = SplineEdits::Field;

enum StackPage { TcbPage = 0, TangentPage = 1 };

} // namespace

const std::initializer_list<TcbEditorForm::Row> TcbEditorForm::Row::all = {
    {&NodePageWidgets::posX, Field::Time, 0.0},
    {&NodePageWidgets::posY, Field::Value, 0.0},
    {&NodePageWidgets::tension, Field::Tension, SplineEdits::parameterBound},
    {&NodePageWidgets::continuity, Field::Continuity, SplineEdits::parameterBound},
    {&NodePageWidgets::bias, Field::Bias, SplineEdits::parameterBound},
    {&NodePageWidgets::incoming, Field::TangentLeft, 0.0},
    {&NodePageWidgets::outgoing, Field::TangentRight, 0.0},
    {&NodePageWidgets::easeFrom, Field::EaseFrom, SplineEdits::easeBound},
    {&NodePageWidgets::easeTo, Field::EaseTo, SplineEdits::easeBound},
};

const TcbEditorForm::Row* TcbEditorForm::Row::find(const NodePageWidgets& widgets,
                                                   const CustomEditLine* widget)
{
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Row& row) { return widgets.*row.widget == widget; });
    return found == all.end() ? nullptr : found;
}

TcbEditorForm::TcbEditorForm(const NodePageWidgets& widgets, const ViewPort& view)
    : widgets_(widgets), view_(view)
{
    widgets_.nodeTypeCombo->setCurrentIndex(0);
    disableFields();
    connect(widgets_.prevNode, &QPushButton::clicked, this, &TcbEditorForm::clickedPrev);
    connect(widgets_.nextNode, &QPushButton::clicked, this, &TcbEditorForm::clickedNext);
    connect(widgets_.nodeTypeCombo, &QComboBox::activated, this, &TcbEditorForm::changeNodeType);
    for (const Row& row : Row::all) {
        const CustomEditLine* const widget = widgets_.*row.widget;
        connect(widget, &CustomEditLine::newValueSet, this, &TcbEditorForm::valueChanged);
        connect(widget, &CustomEditLine::editBegun, this, &TcbEditorForm::noteFocus);
        connect(widget, &CustomEditLine::editCancelled, this, &TcbEditorForm::cancelEdit);
        connect(widget, &CustomEditLine::editFinished, this, &TcbEditorForm::finishEdit);
    }
}

// The point is mostly where it was shown last, which saves a drag in a long spline the search.
int TcbEditorForm::singleIndex(const ControlSplineNode* control) const
{
    return control && control->hasSingleSelection() ? control->currentIndex(shownIndex_) : -1;
}

int TcbEditorForm::editableIndex() const
{
    return formActive_ ? singleIndex(currentControl_) : -1;
}

void TcbEditorForm::updateForm(ControlSplineNode* control, bool enable)
{
    const int index = singleIndex(control);
    if (index >= 0) {
        if (!formActive_ && enable)
            enableFields();
        showCurrentPoint(*control, index);
        return;
    }
    if (formActive_)
        disableFields();
    clearLostPoint(control);
}

void TcbEditorForm::showPoint(ControlSplineNode* control)
{
    const int index = singleIndex(control);
    if (index >= 0)
        showCurrentPoint(*control, index);
}

void TcbEditorForm::showCurrentPoint(ControlSplineNode& control, int index)
{
    currentControl_ = &control;
    const SplineBase::PointInfo& point = *control.pointAt(index);
    shownPoint_ = point.serial;
    showNodeIndex(index);
    for (const Row& row : Row::all) {
        CustomEditLine& widget = *(widgets_.*row.widget);
        widget.setValue(shownNumber(point, row));
        if (row.bound != 0.0)
            widget.setBounds(-row.bound, row.bound);
    }
    widgets_.nodeTypeWidgetStack->setCurrentIndex(point.type == SplineBase::Bezier ? TangentPage : TcbPage);
    offerTypes(*control.curve());
    widgets_.nodeTypeCombo->setCurrentIndex(PointTypes::of(point.type).entry);
    showPreview(point);
    const bool canEdit = formActive_ && !control.curve()->isLocked();
    widgets_.nodeTypeCombo->setEnabled(canEdit);
    for (const Row& row : Row::all)
        (widgets_.*row.widget)->setEnabled(canEdit);
}

/// The other entries are passed by keys and wheel too.
void TcbEditorForm::offerTypes(const EditedCurve& curve)
{
    auto* const list = qobject_cast<QListView*>(widgets_.nodeTypeCombo->view());
    const auto* const entries = qobject_cast<QStandardItemModel*>(widgets_.nodeTypeCombo->model());
    for (const PointType& type : PointTypes::all()) {
        const bool isOffered = curve.offers(type.number);
        list->setRowHidden(type.entry, !isOffered);
        entries->item(type.entry)->setEnabled(isOffered);
    }
}

void TcbEditorForm::clearLostPoint(const ControlSplineNode* control)
{
    const bool isOneOfMany = control && control == currentControl_ && !control->hasSingleSelection() &&
                             control->selection().contains(shownPoint_);
    if (isOneOfMany)
        return;
    if (shownPoint_ != 0)
        clearFields();
    widgets_.tcbCurve->setMissing(control ? TcbCurveFrame::Missing::Point : TcbCurveFrame::Missing::Curve);
}

void TcbEditorForm::clearFields()
{
    shownPoint_ = 0;
    widgets_.node->setText(QString());
    for (const Row& row : Row::all)
        (widgets_.*row.widget)->setText(QString());
    showPreview(SplineBase::PointInfo());
}

void TcbEditorForm::enableFields()
{
    setFieldsEnabled(true);
}

void TcbEditorForm::disableFields()
{
    setFieldsEnabled(false);
}

bool TcbEditorForm::isActive() const
{
    return formActive_;
}

void TcbEditorForm::setTimeBounds(double low, double high)
{
    widgets_.posX->setBounds(std::min(low, high), std::max(low, high));
}

void TcbEditorForm::clickedNext()
{
    const int index = editableIndex();
    if (index >= 0)
        selectPoint(*currentControl_, index + 1 < currentControl_->pointCount() ? index + 1 : 0);
}

void TcbEditorForm::clickedPrev()
{
    const int index = editableIndex();
    if (index >= 0)
        selectPoint(*currentControl_, index > 0 ? index - 1 : currentControl_->pointCount() - 1);
}

void TcbEditorForm::changeNodeType(int entry)
{
    const QPointer<ControlSplineNode> control(currentControl_);
    const auto types = PointTypes::all();
    const auto chosen = std::find_if(types.begin(), types.end(),
                                     [entry](const PointType& type) { return type.entry == entry; });
    if (editableIndex() < 0 || chosen == types.end())
        return;
    control->setSelectedType(chosen->number);
    if (control == currentControl_)
        showPoint(control);
    Q_EMIT nodeTcbChanged(control);
}

void TcbEditorForm::valueChanged(const double& value, CustomEditLine* sender)
{
    const Row* const row = Row::find(widgets_, sender);
    const int index = editableIndex();
    if (index < 0 || !row || !std::isfinite(value))
        return;
    const QPointer<ControlSplineNode> control(currentControl_);
    const SplineBase::PointInfo& point = *control->pointAt(index);
    const double number = editedNumber(value, *sender, *row, point);
    if (std::isfinite(number) && number != SplineEdits::read(point, row->field))
        writeNumber(sender, *row, number);
    if (const int shown = control == currentControl_ ? editableIndex() : -1; shown >= 0) {
        if (row->field == Field::Time)
            showNodeIndex(shown);
        showPreview(*control->pointAt(shown));
    }
    Q_EMIT nodeTcbChanged(control);
}

void TcbEditorForm::writeNumber(CustomEditLine* sender, const Row& row, double number)
{
    const SplineBase::PointInfo point = *currentControl_->pointAt(editableIndex());
    if (!beginEdit(sender, point))
        return;
    door_->beginStep(*currentControl_->curve());
    SplineEdits::write(*currentControl_->openSpline(), point.serial, row.field, number);
    written_ = number;
    door_->checkpoint();
}

double TcbEditorForm::editedNumber(double value, const CustomEditLine& sender, const Row& row,
                                   const SplineBase::PointInfo& point) const
{
    const auto isShownFor = [&](const SplineBase::PointInfo& candidate) {
        return sender.shows(shownNumber(candidate, row));
    };
    if (!sender.isNumber() || isShownFor(point))
        return SplineEdits::read(point, row.field);
    if (isEditing() && editedField_ == &sender && isShownFor(before_))
        return SplineEdits::read(before_, row.field);
    return row.field == Field::Time ? view_.timeOfShown(value) : value;
}

double TcbEditorForm::shownNumber(const SplineBase::PointInfo& point, const Row& row) const
{
    const double number = SplineEdits::read(point, row.field);
    return row.field == Field::Time ? view_.shownTime(number) : number;
}

bool TcbEditorForm::isEditing() const
{
    return editedField_ && door_ && door_->isOpen(edit_);
}

// An edit that is open elsewhere is told when it is committed, and who hears of it may take the curve away.
bool TcbEditorForm::endOtherEdit()
{
    const ControlSplineNode* const before = currentControl_;
    currentControl_->door().commit();
    return currentControl_ && currentControl_ == before;
}

bool TcbEditorForm::beginEdit(CustomEditLine* sender, const SplineBase::PointInfo& point)
{
    if (isEditing() && editedField_ == sender && before_.serial == point.serial)
        return true;
    const int index = endOtherEdit() ? editableIndex() : -1;
    if (index < 0 || currentControl_->pointAt(index)->serial != point.serial)
        return false;
    const std::shared_ptr<EditedCurve>& curve = currentControl_->curve();
    before_ = *currentControl_->pointAt(index);
    door_ = &currentControl_->door();
    edit_ = door_->begin(tr("Change a number of a point of %1").arg(curve->name), {{curve, {point.serial}}});
    editedField_ = sender;
    return door_->isOpen(*curve);
}

void TcbEditorForm::noteFocus(CustomEditLine* /*sender*/)
{
    const int index = editableIndex();
    focus_ = index >= 0 ? *currentControl_->pointAt(index) : SplineBase::PointInfo();
}

void TcbEditorForm::cancelEdit(CustomEditLine* sender)
{
    if (isEditing() && editedField_ == sender)
        door_->cancel();
    editedField_ = nullptr;
    const Row* const row = Row::find(widgets_, sender);
    const int index = editableIndex();
    if (index < 0 || !row)
        return;
    const SplineBase::PointInfo& point = *currentControl_->pointAt(index);
    const double number = SplineEdits::read(focus_, row->field);
    if (sender->hasFocus() && point.serial == focus_.serial &&
        number != SplineEdits::read(point, row->field)) {
        writeNumber(sender, *row, number);
        finishEdit(sender);
    }
    sender->setModified(false);
    showPoint(currentControl_);
}

void TcbEditorForm::finishEdit(CustomEditLine* sender)
{
    const bool wasEdited = isEditing() && editedField_ == sender;
    if (wasEdited)
        door_->commit();
    editedField_ = nullptr;
    const Row* const row = Row::find(widgets_, sender);
    const int index = editableIndex();
    if (!wasEdited || !row || index < 0)
        return;
    const SplineBase::PointInfo& point = *currentControl_->pointAt(index);
    if (SplineEdits::read(point, row->field) != written_) // the options of the curve ask for another one
        sender->setValue(shownNumber(point, *row));
}

void TcbEditorForm::stopDrags()
{
    for (const Row& row : Row::all)
        (widgets_.*row.widget)->stopDrag();
}

void TcbEditorForm::selectPoint(ControlSplineNode& control, int index)
{
    control.selectOnly(control.pointAt(index));
    showCurrentPoint(control, index);
    Q_EMIT nodeTcbChanged(&control);
}

void TcbEditorForm::setFieldsEnabled(bool enabled)
{
    formActive_ = enabled;
    for (QWidget* widget : std::initializer_list<QWidget*>{widgets_.nextNode, widgets_.prevNode,
                                                           widgets_.node, widgets_.nodeTypeCombo})
        widget->setDisabled(!enabled);
    for (const Row& row : Row::all)
        (widgets_.*row.widget)->setDisabled(!enabled);
}

void TcbEditorForm::showNodeIndex(int index)
{
    shownIndex_ = index;
    widgets_.node->setText(QString::asprintf("%i", index));
}

void TcbEditorForm::showPreview(const SplineBase::PointInfo& point)
{
    widgets_.tcbCurve->setFromPoint(&point);
    widgets_.tcbCurve->setMissing(TcbCurveFrame::Missing::Nothing);
}

#include "moc_TcbEditorForm.cpp"
