// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ControlMenu.h>

#include <QAction>

ControlMenu::ControlMenu()
{
    const auto addEntry = [this](const QString& text, Entry id) {
        addAction(text)->setData(id);
    };
    setSeparatorsCollapsible(false);
    addSeparator();
    addEntry(QStringLiteral("Selection to Linear"), SelectionToLinear);
    addEntry(QStringLiteral("Selection to Bezier"), SelectionToBezier);
    addEntry(QStringLiteral("Selection to Tcb"), SelectionToTcb);
    addSeparator();
    addEntry(QStringLiteral("Create key"), CreateKey);
    addEntry(QStringLiteral("Delete key"), DeleteKey);
    addSeparator();
    connect(this, &QMenu::triggered, this, [this](QAction* action) { handleMenu(action->data().toInt()); });
}

void ControlMenu::showMenu(const QPoint& globalPosition, int indexAtPoint)
{
    exec(globalPosition, actions().value(indexAtPoint));
}

void ControlMenu::setEntryEnabled(int id, bool enabled)
{
    const QList<QAction*> entries = actions();
    for (QAction* action : entries) {
        if (action->data().toInt() == id)
            action->setEnabled(enabled);
    }
}

void ControlMenu::handleMenu(int id)
{
    switch (id) {
    case SelectionToLinear:
        Q_EMIT setSelectedLinear();
        break;
    case SelectionToBezier:
        Q_EMIT setSelectedBezier();
        break;
    case SelectionToTcb:
        Q_EMIT setSelectedTcb();
        break;
    case CreateKey:
        Q_EMIT createNodeAtCursor();
        break;
    case DeleteKey:
        Q_EMIT deleteSelectedNodes();
        break;
    }
    Q_EMIT nodeChanged();
}
