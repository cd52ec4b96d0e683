// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/ControlMenu.h>
#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/canvas/PointMenu.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QAction>
#include <QMenu>

using namespace curveeditor;

/// Before a host adds its own, which may bear the same names. Separators have none.
void CurveEditor::Private::nameActions(const QMenu& menu)
{
    for (QAction* const entry : menu.actions()) {
        if (!entry->objectName().isEmpty())
            namedActions.insert(entry->objectName(), entry);
        if (entry->menu())
            nameActions(*entry->menu());
    }
}

QAction* CurveEditor::action(const QString& objectName) const
{
    if (objectName.isEmpty())
        return nullptr;
    QAction* const found = d_->namedActions.value(objectName);
    return found ? found
                 : ControlSplineNode::menu()->findChild<QAction*>(objectName, Qt::FindDirectChildrenOnly);
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
