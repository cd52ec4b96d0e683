// SPDX-License-Identifier: MIT
#include <curveeditor/panel/ControlMenu2.h>

#include <QAction>
#include <QFont>

namespace {

enum Entry { Remove = 1, Color = 2 };

} // namespace

ControlMenu2::ControlMenu2()
{
    setFont(QFont(QStringLiteral("Arial Narrow"), 8, -1, false));
    addAction(QStringLiteral("Remove from editing list"))->setData(Remove);
    addAction(QStringLiteral("Change color"))->setData(Color);
    connect(this, &QMenu::triggered, this, [this](QAction* action) { handleMenu(action->data().toInt()); });
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
    exec(globalPosition, actions().value(indexAtPoint));
}

void ControlMenu2::handleMenu(int id)
{
    if (id == Remove)
        Q_EMIT setRemoveItem();
    if (id == Color)
        Q_EMIT setColorChange();
    Q_EMIT nodeChanged();
}
