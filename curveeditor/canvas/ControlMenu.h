// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/EditedCurve.h>

#include <QList>
#include <QMenu>
#include <QPointer>

/// The pop-up menu over a spline on the canvas. It turns a choice into a signal and decides nothing itself:
/// the edit comes first, then `nodeChanged()` as the report.
///
/// One menu serves the whole process, see `ControlSplineNode::menu`. Each entry carries its id in
/// `QAction::data()`.
class ControlMenu : public QMenu
{
    Q_OBJECT

public:
    /// Ids of the entries below those of `PointTypes`.
    enum Entry { CreateKey = 4, DeleteKey };

    ControlMenu();

    /// Opens the menu at a position of the screen, the action of that index (separators count) under it, and
    /// returns when the menu has closed. An index out of range opens the menu with its corner at the
    /// position.
    void showMenu(const QPoint& globalPosition, int indexAtPoint);

    /// Enables the entries for selected points, or those for none. Of the types those show that the options allow.
    void enableEntries(bool hasSelection, const curveeditor::EditedCurve& curve);
    /// Puts these actions below the entries, instead of those of the last call. They stay their owners'.
    void showOthers(const QList<QPointer<QAction>>& others);

public Q_SLOTS:
    /// Sends the signal of the entry `id`, and then `nodeChanged()`.
    void handleMenu(int id);

Q_SIGNALS:
    /// One of the types of `PointTypes` is chosen. Three of them have a signal of their own too.
    void setSelectedType(int type);
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
    void add(int id, const QString& name);
    void chooseType(int type);
    void translate();

    QList<QAction*> entries_;
};
