// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidget>

/// The list of the curves that are on the canvas: one column of full names in ascending order, of which one
/// is selected. Whoever fills the list owns what its rows stand for; the list only turns a dropped name and
/// the Delete key into signals.
class EditingList : public QTreeWidget
{
    Q_OBJECT

public:
    explicit EditingList(QWidget* parent = nullptr, const QString& name = QString());

    /// The selected row, null if there is none.
    QTreeWidgetItem* selectedItem() const;

Q_SIGNALS:
    /// The user asks to take the curve of this row off the canvas. Null if no row is selected.
    void supressFromEditing(QTreeWidgetItem* item);

    /// The user dropped a text, which should be the full name of a curve.
    void setNodeForEdit(const QString& name);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};
