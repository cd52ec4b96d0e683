// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/CurveRow.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QMenu>
#include <QPointer>
#include <QSet>
#include <QSignalBlocker>

using namespace curveeditor;

void CurveEditor::setEditingNode(const QString& name)
{
    d_->setCurveEditableOn(searchAllNodeList(name));
}

void CurveEditor::Private::takeDroppedName(const QString& name)
{
    if (editor.searchAllNodeList(name))
        return editor.setEditingNode(name);
    constexpr qsizetype longest = 100;
    const QString shown = name.size() > longest ? name.left(longest) + QChar(0x2026) : name;
    showWarning(&editor, CurveEditor::tr("Edit a curve"),
                CurveEditor::tr("There is no curve of the name \"%1\".").arg(shown));
}

/// Those that may be put on the canvas, in order.
QStringList CurveEditor::Private::closedCurves() const
{
    const QSet<QString> hidden = functionEdit->canvas.door().history().hiddenCurves();
    QStringList names;
    for (const auto& record : nodeList) {
        if (!record->editingItem->treeWidget() && !hidden.contains(record->name))
            names.append(record->name);
    }
    std::sort(names.begin(), names.end(), CurveRow::comesBefore);
    return names;
}

/// Who hears of one may take others away, and the editor too.
void CurveEditor::Private::openCurves(const QStringList& names)
{
    const QPointer<CurveEditor> guard(&editor);
    for (const QString& name : names) {
        if (guard)
            guard->setEditingNode(name);
    }
}

// What is under way is told first, and who hears of it may take curves away.
void CurveEditor::Private::setCurveEditableOn(NodeStruct* record)
{
    if (!record)
        return;
    const QString name = record->name;
    functionEdit->canvas.settle();
    record = editor.searchAllNodeList(name);
    if (!record)
        return;
    const bool isNew = !record->editingItem->treeWidget();
    const QString nodeName = record->nodeName;
    const QString curveName = record->curveName;
    putOnCanvas(*record);
    const HostCalls::Call call(hostCalls());
    if (isNew)
        Q_EMIT editor.curveOpened(nodeName, curveName);
    tellCurrentCurve();
}

void CurveEditor::Private::putOnCanvas(NodeStruct& record)
{
    ++setChanges;
    CurveNodeBase* const curve =
        functionEdit->setCurveEditableOn(curvesMenu, record.name, record.color, record.defaultValue,
                                         record.spline, record.function, record.minValue, record.maxValue);
    if (!record.editingItem->treeWidget()) {
        const QSignalBlocker silence(editor.checkListsEditing);
        editor.checkListsEditing->addRow(record.editingItem);
    }
    showMarks(record);
    editor.fitListTo(record.editingItem);
    showSelectedRow(record);
    functionEdit->canvas.setCurrentCurve(curve);
    QObject::connect(curve, &CurveNodeBase::curveHasChanged, &editor,
                     &CurveEditor::emitSignalCurveHasChanged);
    --setChanges;
}

void CurveEditor::Private::setCurveEditableOff(NodeStruct* record)
{
    if (!record)
        return;
    const QString name = record->name;
    functionEdit->canvas.settle();
    record = editor.searchAllNodeList(name);
    if (!record || !functionEdit->canvas.findCurve(name))
        return;
    const QString nodeName = record->nodeName;
    const QString curveName = record->curveName;
    takeOffCanvas(*record);
    const HostCalls::Call call(hostCalls());
    Q_EMIT editor.curveClosed(nodeName, curveName);
    tellCurrentCurve();
    tellSeen();
}

/// Tells nobody.
void CurveEditor::Private::takeOffCanvas(NodeStruct& record)
{
    ++setChanges;
    if (CurveNodeBase* const curve = functionEdit->canvas.findCurve(record.name))
        QObject::disconnect(curve, &CurveNodeBase::curveHasChanged, &editor,
                            &CurveEditor::emitSignalCurveHasChanged);
    functionEdit->setCurveEditableOff(record.name);
    const QSignalBlocker silence(editor.checkListsEditing);
    const int row = editor.checkListsEditing->indexOfTopLevelItem(record.editingItem);
    if (row >= 0)
        editor.checkListsEditing->takeTopLevelItem(row);
    --setChanges;
}

void CurveEditor::Private::showSelectedRow(NodeStruct& record)
{
    QTreeWidgetItem* const row = record.editingItem;
    if (editor.checkListsEditing->selectedItem() == row && editor.checkListsEditing->currentItem() == row)
        return;
    editor.setAllNodeListUnselected();
    if (!row->treeWidget())
        return;
    const QSignalBlocker silence(editor.checkListsEditing);
    editor.checkListsEditing->selectRow(row);
}

/// A curve that is not on the canvas has no row to be seen.
void CurveEditor::Private::showMarks(const NodeStruct& record)
{
    const CurveNodeBase* const curve = functionEdit->canvas.findCurve(record.name);
    if (!curve)
        return;
    for (const CurveMark mark : allCurveMarks)
        EditingList::setCurveMark(record.editingItem, mark, curve->mark(mark));
    EditingList::setCurveSeen(record.editingItem, curve->isShown());
    EditingList::setCurveKind(record.editingItem, !curve->isSpline());
}

void CurveEditor::Private::toggleMark(const QTreeWidgetItem* row, CurveMark mark)
{
    const NodeStruct* const record = searchAllNodeEditingList(row);
    CurveNodeBase* const curve = record ? functionEdit->canvas.findCurve(record->name) : nullptr;
    if (curve)
        functionEdit->canvas.setMark(curve, mark, !curve->mark(mark).isOn);
}

void CurveEditor::cleanSelecteds()
{
    QStringList names;
    for (const auto& record : d_->nodeList)
        names.append(record->name);
    for (const QString& name : names)
        d_->setCurveEditableOff(searchAllNodeList(name));
}

// A click or a blank with Ctrl takes the selection away; it always shows the current curve.
void CurveEditor::selectionChangedEditingItem(QTreeWidgetItem* who)
{
    NodeStruct* const current = searchAllNodeList(d_->functionEdit->canvas.getCurrentCurveName());
    if (who && who->isSelected())
        d_->functionEdit->canvas.setCurrentCurve(who->text(0));
    else if (current && checkListsEditing->selectedItems().isEmpty())
        d_->showSelectedRow(*current);
}

void CurveEditor::pressedEditingItem(QTreeWidgetItem* /*who*/) {}

void CurveEditor::rightButtonPressedEditingItem(QTreeWidgetItem* who, const QPoint& point, int /*column*/)
{
    if (!who)
        return;
    d_->editingMenu->setMenuItem(who);
    d_->editingMenu->showMenu(point, 0);
}

void CurveEditor::slotMenuEditingNodeColor()
{
    const QColor color = askForColor(d_->getColorFromEditingNode(d_->editingMenu->menuItem()), this);
    if (color.isValid())
        d_->setColorToEditingNode(d_->editingMenu->menuItem(),
                                  color); // the host may have removed the row meanwhile
}

void CurveEditor::slotMenuEditingNodeRemove()
{
    slotRemoveFromEditing(d_->editingMenu->menuItem());
}

void CurveEditor::slotRemoveFromEditing(QTreeWidgetItem* item)
{
    d_->setCurveEditableOff(d_->searchAllNodeEditingList(item));
}

void CurveEditor::emitSignalCurveHasChanged(QString& nodeName, QString& curveName)
{
    const HostCalls::Call call(d_->hostCalls());
    Q_EMIT curveHasChanged(nodeName, curveName);
}
