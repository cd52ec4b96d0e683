// SPDX-License-Identifier: MIT
#include <curveeditor/panel/ControlMenu2.h>

#include <QAction>
#include <QEvent>
#include <QFont>
#include <QPointer>

namespace {

enum Entry { Remove = 1, Color = 2 };

} // namespace

ControlMenu2::ControlMenu2()
{
    setFont(QFont(QStringLiteral("Arial Narrow"), 8, -1, false));
    add(Remove, QStringLiteral("removeFromEditingAction"));
    add(Color, QStringLiteral("changeColorAction"));
    translate();
}

void ControlMenu2::add(int id, const QString& name)
{
    QAction* const entry = addAction(QString());
    entry->setObjectName(name);
    entry->setData(id);
    connect(entry, &QAction::triggered, this, [this, id] {
        if (isOpen_)
            return;
        Q_EMIT aboutToAct();
        handleMenu(id);
    });
}

void ControlMenu2::setMenuItem(QTreeWidgetItem* item)
{
    menuItem_ = item;
}

QTreeWidgetItem* ControlMenu2::menuItem() const
{
    return menuItem_;
}

void ControlMenu2::showMenu(const QPoint& globalPosition, int indexAtPoint)
{
    const QPointer<ControlMenu2> guard(this);
    isOpen_ = true;
    const QAction* const chosen = exec(globalPosition, actions().value(indexAtPoint));
    if (!guard)
        return;
    isOpen_ = false;
    if (chosen && chosen->parent() == this)
        handleMenu(chosen->data().toInt());
}

void ControlMenu2::translate()
{
    findChild<QAction*>(QStringLiteral("removeFromEditingAction"))->setText(tr("Remove from editing list"));
    findChild<QAction*>(QStringLiteral("changeColorAction"))->setText(tr("Change color"));
}

void ControlMenu2::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMenu::changeEvent(event);
}

void ControlMenu2::handleMenu(int id)
{
    const QPointer<ControlMenu2> guard(this); // it may go while a colour is chosen
    if (id == Remove)
        Q_EMIT setRemoveItem();
    if (id == Color)
        Q_EMIT setColorChange();
    if (guard)
        Q_EMIT nodeChanged();
}

#include "moc_ControlMenu2.cpp"
