// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ControlMenu.h>

#include <QAction>
#include <QEvent>

ControlMenu::ControlMenu()
{
    setSeparatorsCollapsible(false);
    addSeparator();
    for (const Entry id : {SelectionToLinear, SelectionToBezier, SelectionToTcb})
        addAction(QString())->setData(id);
    addSeparator();
    for (const Entry id : {CreateKey, DeleteKey})
        addAction(QString())->setData(id);
    addSeparator();
    translate();
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

void ControlMenu::translate()
{
    const QString texts[] = {
        QString(),        tr("Selection to Linear"), tr("Selection to Bezier"), tr("Selection to Tcb"),
        tr("Create key"), tr("Delete key")};
    const QList<QAction*> entries = actions();
    for (QAction* const action : entries)
        action->setText(texts[action->data().toInt()]);
}

void ControlMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMenu::changeEvent(event);
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
