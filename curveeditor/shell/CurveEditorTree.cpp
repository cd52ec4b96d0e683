// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/ReleasedAction.h>
#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/CurveRow.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/PlainToolBar.h>

#include <QMenu>
#include <QPixmap>
#include <QPointer>
#include <QSignalBlocker>
#include <QTreeWidgetItem>

#include <algorithm>
#include <utility>

using namespace curveeditor;

namespace {

QString variableName(QString name)
{
    return name.replace(QLatin1Char(' '), QLatin1Char('_'));
}

bool isBelowGroup(const QTreeWidgetItem* item)
{
    return item && item->parent();
}

template <typename Record, typename Test>
Record* firstRecord(const std::vector<std::unique_ptr<Record>>& list, Test test)
{
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const auto& record) { return test(*record); });
    return found == list.end() ? nullptr : found->get();
}

} // namespace

CurveEditor::MainNodeStruct::~MainNodeStruct()
{
    if (!menu)
        return;
    menu->parentWidget()->removeAction(menu->menuAction());
    menu->deleteLater();
}

CurveEditor::NodeStruct::~NodeStruct()
{
    if (action)
        releaseAction(action);
    delete editingItem;
}

void CurveEditor::addCurve(const QString& nodeName, const QString& curveName, const QColor& color,
                           float defaultValue, SplineBase* spline, FunctionFloatBase** function,
                           float minValue, float maxValue)
{
    if (!spline || !function)
        return;
    d_->addNewMainNode(nodeName);
    d_->addNewNode(nodeName, curveName, color, defaultValue, spline, function, minValue, maxValue);
}

void CurveEditor::Private::addNewMainNode(const QString& name)
{
    if (editor.searchMainNode(name))
        return;
    auto group = std::make_unique<MainNodeStruct>();
    group->name = name;
    group->menu = new QMenu(name, dVarMenu);
    group->menu->setFont(dVarMenu->font());
    group->menuId = nextVariableId++;
    dVarMenu->addMenu(group->menu)->setData(group->menuId);
    group->menu->setObjectName(name);
    mainNodeList.push_back(std::move(group));
}

void CurveEditor::Private::addNewNode(const QString& nodeName, const QString& curveName, const QColor& color,
                                      float defaultValue, SplineBase* spline, FunctionFloatBase** function,
                                      float minValue, float maxValue)
{
    addNewNode(editor.searchMainNode(nodeName), fullName(nodeName, curveName), color, defaultValue, spline,
               function, minValue, maxValue);
}

void CurveEditor::Private::addNewNode(MainNodeStruct* group, const QString& name, const QColor& color,
                                      float defaultValue, SplineBase* spline, FunctionFloatBase** function,
                                      float minValue, float maxValue)
{
    if (!group || editor.searchAllNodeList(name))
        return;
    auto record = std::make_unique<NodeStruct>();
    record->spline = spline;
    record->function = function;
    record->editingItem = new CurveRow;
    EditingList::setCurveName(record->editingItem, name);
    record->action = new QAction(variableName(name), editor.expressionTool);
    record->action->setObjectName(variableName(name));
    record->action->setData(nextVariableId++);
    group->menu->addAction(record->action);
    record->color = color;
    functionEdit->canvas.colors().add(color);
    showSquare(*record);
    record->defaultValue = defaultValue;
    record->minValue = minValue;
    record->maxValue = maxValue;
    record->name = name;
    record->nodeName = group->name;
    record->curveName = name.mid(group->name.length() + 1);
    nodeOfName.insert(name, record.get());
    nodeList.push_back(std::move(record));
}

void CurveEditor::removeCurve(const QString& nodeName, const QString& curveName)
{
    d_->functionEdit->canvas.settle();
    NodeStruct* const record = searchAllNodeList(fullName(nodeName, curveName));
    if (record && searchMainNode(nodeName))
        d_->eraseRecords({record});
}

void CurveEditor::removeNode(const QString& nodeName)
{
    d_->functionEdit->canvas.settle();
    const auto group = std::find_if(d_->mainNodeList.begin(), d_->mainNodeList.end(),
                                    [&](const auto& other) { return other->name == nodeName; });
    if (group == d_->mainNodeList.end())
        return;
    const std::unique_ptr<MainNodeStruct> erased = std::move(*group);
    d_->mainNodeList.erase(group);
    d_->eraseRecords(d_->nodesOfGroup(nodeName));
}

// To be called when all is settled. The records are gone before anybody is told, be it by the undo stack, so who
// hears of it can't bring their curves back.
void CurveEditor::Private::eraseRecords(const std::vector<NodeStruct*>& records)
{
    QStringList names;
    std::vector<std::pair<QString, QString>> closed;
    for (NodeStruct* const record : records) {
        names.append(record->name);
        if (functionEdit->canvas.findCurve(record->name))
            closed.emplace_back(record->nodeName, record->curveName);
        takeOffCanvas(*record);
        functionEdit->canvas.colors().remove(record->color);
        if (editingMenu->menuItem() == record->editingItem)
            editingMenu->setMenuItem(nullptr);
        nodeOfName.remove(record->name);
        unfinishedTexts.remove(record->name);
        std::erase_if(nodeList, [record](const auto& other) { return other.get() == record; });
    }
    functionEdit->canvas.door().history().forget(names);
    const HostCalls::Call call(hostCalls());
    for (const auto& [nodeName, curveName] : closed)
        Q_EMIT editor.curveClosed(nodeName, curveName);
    tellCurrentCurve();
    tellSeen();
}

void CurveEditor::renameCurve(const QString& nodeName, const QString& curveName, const QString& newCurveName)
{
    const QString newName = fullName(nodeName, newCurveName);
    if (!searchMainNode(nodeName) || searchAllNodeList(newName))
        return;
    NodeStruct* const record = searchAllNodeList(fullName(nodeName, curveName));
    if (!record)
        return;
    d_->renameRecord(*record, nodeName, newCurveName);
    checkListsEditing->sortRows();
}

void CurveEditor::renameNode(const QString& nodeName, const QString& newNodeName)
{
    MainNodeStruct* const group = searchMainNode(nodeName);
    if (!group)
        return;
    const std::vector<NodeStruct*> records = d_->nodesOfGroup(nodeName);
    const auto newName = [&](const NodeStruct* record) {
        return newNodeName + record->name.mid(nodeName.length());
    };
    if (std::any_of(records.begin(), records.end(),
                    [&](const NodeStruct* record) { return searchAllNodeList(newName(record)); }))
        return;
    for (NodeStruct* const record : records)
        d_->renameRecord(*record, newNodeName, newName(record).mid(newNodeName.length() + 1));
    checkListsEditing->sortRows();
    group->name = newNodeName;
    group->menu->setObjectName(newNodeName);
    group->menu->setTitle(newNodeName);
}

void CurveEditor::Private::renameRecord(NodeStruct& record, const QString& nodeName, const QString& curveName)
{
    const QString oldName = std::exchange(record.name, fullName(nodeName, curveName));
    nodeOfName.remove(oldName);
    nodeOfName.insert(record.name, &record);
    record.nodeName = nodeName;
    record.curveName = curveName;
    record.action->setText(variableName(record.name));
    for (QString* const remembered : {&toldCurrent, &lineCurve}) {
        if (*remembered == oldName)
            *remembered = record.name;
    }
    if (unfinishedTexts.contains(oldName))
        unfinishedTexts.insert(record.name, unfinishedTexts.take(oldName));
    functionEdit->canvas.renameCurve(oldName, record.name);
    functionEdit->canvas.door().history().rename(oldName, record.name);
    EditingList::setCurveName(record.editingItem, record.name, optionsOf(record.name).toolTip);
}

void CurveEditor::setHoldOffered(bool on)
{
    d_->functionEdit->canvas.door().history().settings().offersHold = on;
    d_->functionEdit->showSelection(false);
}

void CurveEditor::setCurveOptions(const QString& group, const QString& curve, const CurveOptions& options)
{
    if (!PointLimits::areSound(options))
        return;
    const QString name = fullName(group, curve);
    if ((options.locked || options.hidden) && !d_->endHandsAt(name))
        return;
    const NodeStruct* const record = d_->nodeOfName.value(name);
    if (!record)
        return;
    CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    const std::shared_ptr<EditedCurve> content = d_->contentOf(name);
    const bool wasLocked = content->isLocked();
    const bool wasHidden = std::exchange(content->options, options).hidden;
    EditingList::setCurveName(record->editingItem, name, options.toolTip);
    d_->showMarks(*record);
    if (content->isLocked() != wasLocked)
        canvas.setCurveColor(name, record->color);
    if (options.hidden != wasHidden)
        return canvas.followMarks();
    canvas.paint();
    d_->functionEdit->showSelection(false);
}

CurveOptions CurveEditor::curveOptions(const QString& group, const QString& curve) const
{
    return d_->optionsOf(fullName(group, curve));
}

void CurveEditor::setCurveColor(const QString& group, const QString& curve, const QColor& color)
{
    d_->setColor(d_->nodeOfName.value(fullName(group, curve)), color);
}

void CurveEditor::setMainNodePixmap(const QString& nodeName, const QPixmap& pixmap)
{
    const MainNodeStruct* const group = searchMainNode(nodeName);
    if (group && group->item)
        group->item->setIcon(0, QIcon(pixmap));
}

CurveEditor::MainNodeStruct* CurveEditor::searchMainNode(const QString& name)
{
    return firstRecord(d_->mainNodeList, [&](const MainNodeStruct& group) { return group.name == name; });
}

CurveEditor::NodeStruct* CurveEditor::searchAllNodeList(const QString& name)
{
    return d_->nodeOfName.value(name);
}

CurveEditor::NodeStruct* CurveEditor::searchAllNodeListCurveName(const QString& name)
{
    return firstRecord(d_->nodeList, [&](const NodeStruct& record) {
        return DependencyCheck::lowerVariableName(record.name) == name;
    });
}

CurveEditor::NodeStruct* CurveEditor::Private::searchCheckList(const QTreeWidgetItem* item)
{
    return firstRecord(nodeList, [&](const NodeStruct& record) { return record.checkItem == item; });
}

CurveEditor::NodeStruct* CurveEditor::Private::searchAllNodeEditingList(const QTreeWidgetItem* item)
{
    return firstRecord(nodeList, [&](const NodeStruct& record) { return record.editingItem == item; });
}

std::vector<CurveEditor::NodeStruct*> CurveEditor::Private::nodesOfGroup(const QString& nodeName) const
{
    std::vector<NodeStruct*> records;
    for (const auto& record : nodeList) {
        if (record->name.startsWith(nodeName + QLatin1Char('.')))
            records.push_back(record.get());
    }
    return records;
}

void CurveEditor::setDefaultSelected(const QString& nodeName, const QString& curveName)
{
    setEditingNode(fullName(nodeName, curveName));
}

void CurveEditor::setAllNodeListUnselected()
{
    const QSignalBlocker silence(checkListsEditing);
    checkListsEditing->clearSelection();
}

QColor CurveEditor::Private::getColorFromNode(const QTreeWidgetItem* item)
{
    const NodeStruct* const record = searchCheckList(item);
    return record ? record->color : QColor(Qt::black);
}

QColor CurveEditor::Private::getColorFromEditingNode(const QTreeWidgetItem* item)
{
    const NodeStruct* const record = searchAllNodeEditingList(item);
    return record ? record->color : QColor(Qt::black);
}

void CurveEditor::Private::setColorToNode(const QTreeWidgetItem* item, const QColor& color)
{
    setColor(searchCheckList(item), color);
}

void CurveEditor::Private::setColorToEditingNode(const QTreeWidgetItem* item, const QColor& color)
{
    setColor(searchAllNodeEditingList(item), color);
}

void CurveEditor::Private::setColor(NodeStruct* record, const QColor& color)
{
    if (!record || !color.isValid() || record->color == color)
        return;
    functionEdit->canvas.colors().add(color);
    functionEdit->canvas.colors().remove(std::exchange(record->color, color));
    const QString group = record->nodeName,
                  curve = record->curveName; // whoever hears of it may remove the record
    showSquare(*record);
    functionEdit->setCurveColor(record->name, color);
    const HostCalls::Call call(hostCalls());
    Q_EMIT editor.curveColorChanged(group, curve, QColor(color));
}

/// The square in the list has the colour in which the curve is drawn.
void CurveEditor::Private::showSquare(const NodeStruct& record)
{
    EditingList::setCurveColor(record.editingItem, functionEdit->canvas.colors().lineOf(record.color));
}

void CurveEditor::pressedItem(QTreeWidgetItem* /*who*/) {}

void CurveEditor::pressedSpaceItem(QTreeWidgetItem* /*who*/) {}

void CurveEditor::rightButtonPressedItem(QTreeWidgetItem* who, const QPoint& /*point*/, int /*column*/)
{
    if (!isBelowGroup(who))
        return;
    const QColor color = askForColor(d_->getColorFromNode(who), this);
    if (color.isValid())
        d_->setColorToNode(who, color);
}

void CurveEditor::doubleClickedItem(QTreeWidgetItem* who, const QPoint& /*point*/, int /*column*/)
{
    if (isBelowGroup(who))
        setEditingNode(who->text(0));
}
