// SPDX-License-Identifier: MIT
#include "EditorHost.h"

#include "CurveStore.h"

#include <curveeditor/shell/CurveEditor.h>

#include <QTreeWidgetItem>

namespace {

constexpr double framesPerTimeUnit = 24.0;
constexpr QSize editorSize(1040, 700);

} // namespace

EditorHost::EditorHost(CurveStore& store, QWidget* parent)
    : store_(store), editor_(std::make_unique<CurveEditor>(parent))
{
    editor_->setFps(framesPerTimeUnit);
    editor_->setShowTime();
    editor_->setTimeLineDraggable(true);
    editor_->setHoldOffered(true);
    editor_->setTheme(CurveEditorTheme::fromPalette(editor_->palette()));
    editor_->resize(editorSize);
    for (const auto& curve : store_.getCurves()) {
        editor_->addCurve(curve->group, curve->name, curve->color, curve->defaultValue, &curve->spline,
                          &curve->expression, curve->minValue, curve->maxValue);
    }
}

EditorHost::~EditorHost() = default;

void EditorHost::open(Curve& curve)
{
    showRange(curve);
    if (!isOpen(curve)) {
        editor_->setDefaultSelected(curve.group, curve.name);
        return;
    }
    QTreeWidgetItem* row = editor_->searchAllNodeList(curve.fullName())->editingItem;
    row->setSelected(true);
    editor_->selectionChangedEditingItem(row);
}

bool EditorHost::isOpen(const Curve& curve) const
{
    const CurveEditor::NodeStruct* node = editor_->searchAllNodeList(curve.fullName());
    return node && node->editingItem->treeWidget();
}

void EditorHost::showRange(const Curve& curve)
{
    if (curve.range == range_)
        return;
    range_ = curve.range;
    editor_->setTimeRange(range_.timeMin, range_.timeMax);
    editor_->setMinValue(range_.valueMin);
    editor_->setMaxValue(range_.valueMax);
    Q_EMIT rangeChanged();
}

bool EditorHost::rename(Curve& curve, const QString& newName)
{
    const QString oldName = curve.name;
    if (!store_.rename(curve, newName))
        return false;
    editor_->renameCurve(curve.group, oldName, newName);
    editor_->updateCurves();
    return true;
}

void EditorHost::remove(Curve& curve)
{
    editor_->removeCurve(curve.group, curve.name);
    store_.remove(curve);
    editor_->updateCurves();
}

#include "moc_EditorHost.cpp"
