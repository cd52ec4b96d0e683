// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/ControlMenu.h>
#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/canvas/PointMenu.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QAction>
#include <QMenu>

using namespace curveeditor;

namespace {

/// Null if none bears the name. An empty name is that of separators.
QAction* actionIn(const QMenu& menu, const QString& name)
{
    for (QAction* const entry : menu.actions()) {
        if (entry->objectName() == name)
            return entry;
        if (QAction* const inner = entry->menu() ? actionIn(*entry->menu(), name) : nullptr)
            return inner;
    }
    return nullptr;
}

} // namespace

QAction* CurveEditor::action(const QString& objectName) const
{
    if (objectName.isEmpty())
        return nullptr;
    for (const QMenu* const menu : std::initializer_list<const QMenu*>{
             d_->fileMenu, d_->optionsMenu, d_->editMenu, d_->editingMenu.get(), ControlSplineNode::menu()}) {
        if (QAction* const found = actionIn(*menu, objectName))
            return found;
    }
    return nullptr;
}

void CurveEditor::addPointAction(QAction* action)
{
    d_->functionEdit->canvas.pointMenu().addAction(action);
    d_->keys->addAction(action);
}

void CurveEditor::addEditAction(QAction* action)
{
    d_->addHostAction(*d_->editMenu, action);
}

void CurveEditor::addListAction(QAction* action)
{
    d_->addHostAction(*d_->editingMenu, action);
}

void CurveEditor::Private::addHostAction(QMenu& menu, QAction* action)
{
    if (!action || menu.actions().contains(action))
        return;
    if (const QAction* const last = menu.actions().constLast();
        last->parent() == &menu && !last->isSeparator())
        menu.addSeparator();
    menu.addAction(action);
    keys->addAction(action);
}
