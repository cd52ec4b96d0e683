// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ReleasedAction.h>

#include <QAction>
#include <QWidget>

namespace curveeditor {

void releaseAction(QAction* action)
{
    const QList<QObject*> places = action->associatedObjects();
    for (QObject* const place : places) {
        auto* const widget = qobject_cast<QWidget*>(place);
        if (!widget)
            continue;
        widget->removeAction(action);
        if (!action->parent())
            action->setParent(widget);
    }
    if (action->parent())
        action->deleteLater();
    else
        delete action;
}

} // namespace curveeditor
