// SPDX-License-Identifier: MIT
#include <curveeditor/panel/TcbEditorForm.h>

#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/TcbCurveFrame.h>

#include <QComboBox>
#include <QPushButton>
#include <QStackedWidget>

#include <algorithm>
#include <cmath>

namespace {

constexpr double parameterBound = 10.0;
constexpr double easeBound = 1.0;

enum StackPage { TcbPage = 0, TangentPage = 1 };
enum TypeEntry { TcbEntry = 0, BezierEntry = 1, LinearEntry = 2 };

TypeEntry entryOfType(int type)
{
    switch (type) {
    case SplineBase::Tcb:
        return TcbEntry;
    case SplineBase::Bezier:
        return BezierEntry;
    default:
        return LinearEntry;
    }
}

} // namespace

TcbEditorForm::TcbEditorForm(NodePage* nodePage) : editor(nodePage), widgets_(nodePage->nodePageWidgets())
{
    preview = widgets_.tcbCurve;
    widgets_.nodeTypeCombo->setCurrentIndex(TcbEntry);
    disableFields();
    connect(widgets_.prevNode, &QPushButton::clicked, this, &TcbEditorForm::clickedPrev);
    connect(widgets_.nextNode, &QPushButton::clicked, this, &TcbEditorForm::clickedNext);
    connect(widgets_.nodeTypeCombo, &QComboBox::activated, this, &TcbEditorForm::changeNodeType);
    for (CustomEditLine* field :
         {widgets_.posX, widgets_.posY, widgets_.tension, widgets_.continuity, widgets_.bias,
          widgets_.incoming, widgets_.outgoing, widgets_.easeFrom, widgets_.easeTo})
        connect(field, &CustomEditLine::newValueSet, this, &TcbEditorForm::valueChanged);
}

// The point is mostly where it was shown last, which saves a drag in a long spline the search.
int TcbEditorForm::singleIndex(const ControlSplineNode* control) const
{
    if (!control || !control->hasSingleSelection())
        return -1;
    return control->pointAt(shownIndex_) == control->getCurrent() ? shownIndex_ : control->currentIndex();
}

int TcbEditorForm::editableIndex() const
{
    return formActive ? singleIndex(currentControl_) : -1;
}

void TcbEditorForm::updateForm(CanvasSpline* spline, bool enable)
{
    const int index = spline ? singleIndex(&spline->control) : -1;
    if (index < 0) {
        if (formActive)
            disableFields();
        return;
    }
    if (!formActive && enable)
        enableFields();
    showCurrentPoint(spline->control, index);
}

void TcbEditorForm::showPoint(CanvasSpline* spline)
{
    const int index = spline ? singleIndex(&spline->control) : -1;
    if (index >= 0)
        showCurrentPoint(spline->control, index);
}

void TcbEditorForm::showCurrentPoint(ControlSplineNode& control, int index)
{
    currentControl_ = &control;
    const SplineBase::PointInfo* point = control.pointAt(index);
    showNodeIndex(index);
    editor->setPosInfo(point->time, point->pos);
    widgets_.tension->setValue(point->tension);
    widgets_.continuity->setValue(point->continuity);
    widgets_.bias->setValue(point->bias);
    widgets_.incoming->setValue(point->tanLeft);
    widgets_.outgoing->setValue(point->tanRight);
    widgets_.easeFrom->setValue(point->easeFrom);
    widgets_.easeTo->setValue(point->easeTo);
    for (CustomEditLine* field : {widgets_.tension, widgets_.continuity, widgets_.bias})
        field->setBounds(-parameterBound, parameterBound);
    for (CustomEditLine* field : {widgets_.easeFrom, widgets_.easeTo})
        field->setBounds(-easeBound, easeBound);
    widgets_.nodeTypeWidgetStack->setCurrentIndex(point->type == SplineBase::Bezier ? TangentPage : TcbPage);
    widgets_.nodeTypeCombo->setCurrentIndex(entryOfType(point->type));
    showPreview(point);
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
    return formActive;
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
    const int index = editableIndex();
    if (index < 0)
        return;
    switch (entry) {
    case TcbEntry:
        currentControl_->setSelectedTcb();
        break;
    case BezierEntry:
        currentControl_->setSelectedBezier();
        break;
    case LinearEntry:
        currentControl_->setSelectedLinear();
        break;
    default:
        return;
    }
    showCurrentPoint(*currentControl_, index);
    Q_EMIT nodeTcbChanged();
}

void TcbEditorForm::valueChanged(const double& value, CustomEditLine* sender)
{
    const int index = editableIndex();
    if (index < 0 || !std::isfinite(value))
        return;
    SplineBase* spline = currentControl_->getSpline();
    SplineBase::PointInfo* point = currentControl_->pointAt(index);
    if (sender == widgets_.posX) {
        spline->setTime(point, editor->isModeFrames() ? value / editor->getFps() : value);
        showNodeIndex(currentControl_->currentIndex());
    }
    if (sender == widgets_.posY)
        spline->setPos(point, value);
    if (sender == widgets_.tension)
        point->tension = value;
    if (sender == widgets_.continuity)
        point->continuity = value;
    if (sender == widgets_.bias)
        point->bias = value;
    if (sender == widgets_.incoming)
        point->tanLeft = value;
    if (sender == widgets_.outgoing)
        point->tanRight = value;
    if (sender == widgets_.easeFrom)
        point->easeFrom = value;
    if (sender == widgets_.easeTo)
        point->easeTo = value;
    showPreview(point);
    Q_EMIT nodeTcbChanged();
}

void TcbEditorForm::selectPoint(ControlSplineNode& control, int index)
{
    control.selectOnly(control.pointAt(index));
    showCurrentPoint(control, index);
    Q_EMIT nodeTcbChanged();
}

void TcbEditorForm::setFieldsEnabled(bool enabled)
{
    for (QWidget* widget : std::initializer_list<QWidget*>{
             widgets_.nextNode, widgets_.prevNode, widgets_.node, widgets_.posX, widgets_.posY,
             widgets_.tension, widgets_.continuity, widgets_.bias, widgets_.incoming, widgets_.outgoing,
             widgets_.easeFrom, widgets_.easeTo, widgets_.nodeTypeCombo})
        widget->setDisabled(!enabled);
    formActive = enabled;
}

void TcbEditorForm::showNodeIndex(int index)
{
    shownIndex_ = index;
    widgets_.node->setText(QString::asprintf("%i", index));
}

void TcbEditorForm::showPreview(const SplineBase::PointInfo* point)
{
    preview->setFromPoint(point);
    preview->repaint();
}
