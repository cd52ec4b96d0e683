// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

class QTreeWidgetItem;

/// The pop-up menu over a row of the editing list. It turns a choice into a signal and decides nothing
/// itself.
class ControlMenu2 : public QMenu
{
    Q_OBJECT

public:
    ControlMenu2();

    /// The row that the menu is opened on, not owned. Whoever frees a row while the menu may be open sets it
    /// to null.
    void setMenuItem(QTreeWidgetItem* item);
    QTreeWidgetItem* menuItem() const;

    /// Opens the menu with the entry of that index at `globalPosition` (screen pixels), and returns when it
    /// has closed and the choice is done. The menu may be deleted meanwhile.
    void showMenu(const QPoint& globalPosition, int indexAtPoint);

public Q_SLOTS:
    /// Emits what entry `id` stands for (1 remove, 2 colour), then `nodeChanged()` whatever the id.
    void handleMenu(int id);

Q_SIGNALS:
    void setRemoveItem();
    void setColorChange();
    /// Follows the signal of the choice, so its receivers see the finished change.
    void nodeChanged();
    /// An action of the menu was triggered by others while the menu is closed: the moment to set the row.
    void aboutToAct();

protected:
    void changeEvent(QEvent* event) override;

private:
    void add(int id, const QString& name);
    void translate();

    QTreeWidgetItem* menuItem_ = nullptr;
    bool isOpen_ = false;
};
