// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/edit/EditHistory.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QAction>
#include <QPointer>
#include <QUndoStack>

using namespace curveeditor;

QUndoStack* CurveEditor::undoStack() const
{
    return d_->functionEdit->canvas.door().history().stack();
}

void CurveEditor::setUndoStack(QUndoStack* stack)
{
    const QPointer<QUndoStack> present(stack);
    if (d_->endHands())
        d_->functionEdit->canvas.door().history().setStack(present);
}

void CurveEditor::setKeepsHistory(bool on)
{
    if (d_->endHands())
        d_->functionEdit->canvas.door().history().setKeepsEntries(on);
}

void CurveEditor::undo()
{
    CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    if (canvas.door().isShut())
        return;
    if (canvas.cancelGesture())
        canvas.paint();
    else if (!d_->handsStepsOn(&CurveEditor::undoRequested))
        canvas.door().history().undo();
}

void CurveEditor::redo()
{
    CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    if (!canvas.door().isShut() && !d_->functionEdit->gesture.holdsEdit() &&
        !d_->handsStepsOn(&CurveEditor::redoRequested))
        canvas.door().history().redo();
}

/// Where no entries are kept the host is asked for the step.
bool CurveEditor::Private::handsStepsOn(void (CurveEditor::*request)())
{
    if (functionEdit->canvas.door().history().keepsEntries())
        return false;
    const QPointer<CurveEditor> guard(&editor);
    const HostCalls::Call call(hostCalls());
    functionEdit->nodeForm.stopDrags();
    functionEdit->canvas.settle();
    if (guard)
        Q_EMIT(editor.*request)();
    return true;
}

void CurveEditor::Private::showStepTexts()
{
    if (!functionEdit)
        return;
    const QUndoStack& stack = *editor.undoStack();
    QAction* const undo = actionOf(&CurveEditor::undo);
    QAction* const redo = actionOf(&CurveEditor::redo);
    const bool isHosts = !functionEdit->canvas.door().history().keepsEntries();
    undo->setText(isHosts || stack.undoText().isEmpty() ? CurveEditor::tr("Undo")
                                                        : CurveEditor::tr("Undo %1").arg(stack.undoText()));
    redo->setText(isHosts || stack.redoText().isEmpty() ? CurveEditor::tr("Redo")
                                                        : CurveEditor::tr("Redo %1").arg(stack.redoText()));
    undo->setEnabled(isHosts || stack.canUndo());
    redo->setEnabled(isHosts || stack.canRedo());
}

void CurveEditor::Private::tellEdit(const EditReport& report)
{
    dropUnfinishedText(*report.curve);
    if (report.cause != EditReport::Cause::Edit)
        showContent();
    const NodeStruct* const record = editor.searchAllNodeList(report.curve->name);
    if (!record || !report.curve->spline())
        return;
    EditingList::setCurveKind(record->editingItem, report.curve->kind() == CurveKind::Expression);
    CurveChange change;
    change.group = record->nodeName;
    change.curve = record->curveName;
    change.timeFirst = report.touched.first;
    change.timeLast = report.touched.last;
    change.phase = report.phase;
    change.cause = report.cause;
    change.diff = report.diff;
    change.text = report.text;
    change.merge = report.merge;
    const bool isByHand =
        change.cause == CurveChange::Cause::Edit || change.cause == CurveChange::Cause::Cancel;
    const QPointer<CurveEditor> guard(&editor);
    const std::shared_ptr<EditedCurve> curve = report.curve;
    const HostCalls::Call call(hostCalls());
    Q_EMIT editor.curveEdited(change);
    if (isByHand || !guard || !editor.searchAllNodeList(curve->name))
        return;
    auto [nodeName, curveName] = CurveNodeBase::reportedNames(curve->name);
    Q_EMIT editor.curveHasChanged(nodeName, curveName);
}

void CurveEditor::Private::tellCurrentCurve()
{
    const CanvasFunctionBase& canvas = functionEdit->canvas;
    const QString current = canvas.noCurrentCurve() ? QString() : canvas.getCurrentCurveName();
    if (setChanges > 0 || current == toldCurrent)
        return;
    toldCurrent = current;
    const NodeStruct* const record = editor.searchAllNodeList(current);
    const QString nodeName = record ? record->nodeName : QString();
    const QString curveName = record ? record->curveName : QString();
    const HostCalls::Call call(hostCalls());
    Q_EMIT editor.currentCurveChanged(nodeName, curveName);
}
