// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditor.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QColorDialog>
#include <QMenu>
#include <QSignalBlocker>

void CurveEditor::setEditingNode(const QString& name)
{
    setCurveEditableOn(searchAllNodeList(name));
}

void CurveEditor::setCurveEditableOn(NodeStruct* record)
{
    if (!record)
        return;
    const FunctionEditor::PaintPause pause(functionEdit);
    CurveNodeBase* const curve = functionEdit->setCurveEditableOn(
        curvesMenu, record->name, record->color, record->defaultValue, record->spline, record->function,
        record->minValue, record->maxValue);
    if (!record->editingItem->treeWidget()) {
        const QSignalBlocker silence(checkListsEditing);
        checkListsEditing->addTopLevelItem(record->editingItem);
    }
    showSelectedRow(*record);
    functionEdit->canvas.setCurrentCurve(record->name);
    connect(curve, &CurveNodeBase::curveHasChanged, this, &CurveEditor::emitSignalCurveHasChanged);
}

void CurveEditor::setCurveEditableOff(NodeStruct* record)
{
    if (!record)
        return;
    const FunctionEditor::PaintPause pause(functionEdit);
    if (CurveNodeBase* const curve = functionEdit->canvas.findCurve(record->name))
        disconnect(curve, &CurveNodeBase::curveHasChanged, this, &CurveEditor::emitSignalCurveHasChanged);
    functionEdit->setCurveEditableOff(record->name);
    const int row = checkListsEditing->indexOfTopLevelItem(record->editingItem);
    if (row >= 0) {
        const QSignalBlocker silence(checkListsEditing);
        checkListsEditing->takeTopLevelItem(row);
    }
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
    const FunctionEditor::PaintPause pause(functionEdit);
    for (const auto& record : nodeList)
        setCurveEditableOff(record.get());
}

void CurveEditor::selectionChangedEditingItem(QTreeWidgetItem* who)
{
    if (who && who->isSelected())
        functionEdit->canvas.setCurrentCurve(who->text(0));
}

void CurveEditor::pressedEditingItem(QTreeWidgetItem* /*who*/) {}

void CurveEditor::rightButtonPressedEditingItem(QTreeWidgetItem* who, const QPoint& point, int /*column*/)
{
    if (!who)
        return;
    editingMenu->setMenuItem(who);
    editingMenu->showMenu(point, 0);
}

void CurveEditor::slotMenuEditingNodeColor()
{
    const QColor color = QColorDialog::getColor(getColorFromEditingNode(editingMenu->menuItem()), this);
    setColorToEditingNode(editingMenu->menuItem(), color); // the host may have removed the row meanwhile
}

void CurveEditor::slotMenuEditingNodeRemove()
{
    slotRemoveFromEditing(editingMenu->menuItem());
}

void CurveEditor::slotRemoveFromEditing(QTreeWidgetItem* item)
{
    setCurveEditableOff(searchAllNodeEditingList(item));
}

void CurveEditor::emitSignalCurveHasChanged(QString& nodeName, QString& curveName)
{
    Q_EMIT curveHasChanged(nodeName, curveName);
}
