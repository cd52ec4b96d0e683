// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QMenu>
#include <QSignalBlocker>

void CurveEditor::setEditingNode(const QString& name)
{
    setCurveEditableOn(searchAllNodeList(name));
}

void CurveEditor::takeDroppedName(const QString& name)
{
    if (searchAllNodeList(name))
        return setEditingNode(name);
    constexpr qsizetype longest = 100;
    const QString shown = name.size() > longest ? name.left(longest) + QChar(0x2026) : name;
    showWarning(this, tr("Edit a curve"), tr("There is no curve of the name \"%1\".").arg(shown));
}

// What is under way is told first, and who hears of it may take curves away.
void CurveEditor::setCurveEditableOn(NodeStruct* record)
{
    if (!record)
        return;
    const QString name = record->name;
    d_->functionEdit->canvas.settle();
    record = searchAllNodeList(name);
    if (!record)
        return;
    const bool isNew = !record->editingItem->treeWidget();
    const QString nodeName = record->nodeName;
    const QString curveName = record->curveName;
    putOnCanvas(*record);
    const HostCalls::Call call(hostCalls());
    if (isNew)
        Q_EMIT curveOpened(nodeName, curveName);
    tellCurrentCurve();
}

void CurveEditor::putOnCanvas(NodeStruct& record)
{
    const FunctionEditor::PaintPause pause(d_->functionEdit);
    ++d_->setChanges;
    CurveNodeBase* const curve = d_->functionEdit->setCurveEditableOn(
        d_->curvesMenu, record.name, record.color, record.defaultValue, record.spline, record.function,
        record.minValue, record.maxValue);
    if (!record.editingItem->treeWidget()) {
        const QSignalBlocker silence(checkListsEditing);
        checkListsEditing->addRow(record.editingItem);
    }
    showSelectedRow(record);
    d_->functionEdit->canvas.setCurrentCurve(record.name);
    connect(curve, &CurveNodeBase::curveHasChanged, this, &CurveEditor::emitSignalCurveHasChanged);
    --d_->setChanges;
}

void CurveEditor::setCurveEditableOff(NodeStruct* record)
{
    if (!record)
        return;
    const QString name = record->name;
    d_->functionEdit->canvas.settle();
    record = searchAllNodeList(name);
    if (!record || !d_->functionEdit->canvas.findCurve(name))
        return;
    const QString nodeName = record->nodeName;
    const QString curveName = record->curveName;
    takeOffCanvas(*record);
    const HostCalls::Call call(hostCalls());
    Q_EMIT curveClosed(nodeName, curveName);
    tellCurrentCurve();
}

/// Tells nobody.
void CurveEditor::takeOffCanvas(NodeStruct& record)
{
    const FunctionEditor::PaintPause pause(d_->functionEdit);
    ++d_->setChanges;
    if (CurveNodeBase* const curve = d_->functionEdit->canvas.findCurve(record.name))
        disconnect(curve, &CurveNodeBase::curveHasChanged, this, &CurveEditor::emitSignalCurveHasChanged);
    d_->functionEdit->setCurveEditableOff(record.name);
    const QSignalBlocker silence(checkListsEditing);
    const int row = checkListsEditing->indexOfTopLevelItem(record.editingItem);
    if (row >= 0)
        checkListsEditing->takeTopLevelItem(row);
    --d_->setChanges;
}

void CurveEditor::showSelectedRow(NodeStruct& record)
{
    QTreeWidgetItem* const row = record.editingItem;
    if (checkListsEditing->selectedItem() == row && checkListsEditing->currentItem() == row)
        return;
    setAllNodeListUnselected();
    if (!row->treeWidget())
        return;
    const QSignalBlocker silence(checkListsEditing);
    checkListsEditing->setCurrentItem(row);
}

void CurveEditor::cleanSelecteds()
{
    const FunctionEditor::PaintPause pause(d_->functionEdit);
    QStringList names;
    for (const auto& record : d_->nodeList)
        names.append(record->name);
    for (const QString& name : names)
        setCurveEditableOff(searchAllNodeList(name));
}

// A click or a blank with Ctrl takes the selection away; it always shows the current curve.
void CurveEditor::selectionChangedEditingItem(QTreeWidgetItem* who)
{
    NodeStruct* const current = searchAllNodeList(d_->functionEdit->canvas.getCurrentCurveName());
    if (who && who->isSelected())
        d_->functionEdit->canvas.setCurrentCurve(who->text(0));
    else if (current && checkListsEditing->selectedItems().isEmpty())
        showSelectedRow(*current);
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
    const QColor color = askForColor(getColorFromEditingNode(d_->editingMenu->menuItem()), this);
    if (color.isValid())
        setColorToEditingNode(d_->editingMenu->menuItem(),
                              color); // the host may have removed the row meanwhile
}

void CurveEditor::slotMenuEditingNodeRemove()
{
    slotRemoveFromEditing(d_->editingMenu->menuItem());
}

void CurveEditor::slotRemoveFromEditing(QTreeWidgetItem* item)
{
    setCurveEditableOff(searchAllNodeEditingList(item));
}

void CurveEditor::emitSignalCurveHasChanged(QString& nodeName, QString& curveName)
{
    const HostCalls::Call call(hostCalls());
    Q_EMIT curveHasChanged(nodeName, curveName);
}
