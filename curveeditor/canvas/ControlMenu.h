// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

/// The pop-up menu over a spline on the canvas. It turns a choice into a signal and decides nothing itself:
/// the edit comes first, then `nodeChanged()` as the report.
///
/// One menu serves the whole process, see `ControlSplineNode::menu`. Each entry carries its id in
/// `QAction::data()`.
class ControlMenu : public QMenu
{
    Q_OBJECT

public:
    /// The ids of the entries, in menu order.
    enum Entry { SelectionToLinear = 1, SelectionToBezier, SelectionToTcb, CreateKey, DeleteKey };

    ControlMenu();

    /// Opens the menu at a position of the screen, the action of that index (separators count) under it, and
    /// returns when the menu has closed. An index out of range opens the menu with its corner at the
    /// position.
    void showMenu(const QPoint& globalPosition, int indexAtPoint);

    /// Enables or disables the entry of that id; an id that no entry has is ignored.
    void setEntryEnabled(int id, bool enabled);

public Q_SLOTS:
    /// Sends the signal of the entry `id`, and then `nodeChanged()`.
    void handleMenu(int id);

Q_SIGNALS:
    void setSelectedLinear();
    void setSelectedBezier();
    void setSelectedTcb();
    void createNodeAtCursor();
    void deleteSelectedNodes();
    /// Follows the signal of each entry, when its slots have done their work.
    void nodeChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
};
