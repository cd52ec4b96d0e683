// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveMark.h>

#include <QTreeWidget>

#include <optional>

using namespace curveeditor;

/// The list of the curves that are on the canvas: one column of full names in ascending order, of which one
/// is selected, each with a square in the colour of its curve. A name that is longer than the list is wide is
/// shortened in the middle. Whoever fills the list owns what its rows stand for; the list only turns a dropped name,
/// clicks on marks, and the keys Delete and Insert into signals.
class EditingList : public QTreeWidget
{
    Q_OBJECT

public:
    explicit EditingList(QWidget* parent = nullptr, const QString& name = QString());

    /// The selected row, null if there is none.
    QTreeWidgetItem* selectedItem() const;

    /// Takes a row in where its name belongs.
    void addRow(QTreeWidgetItem* row);
    /// Selects the row alone; it comes into sight with the next events.
    void selectRow(QTreeWidgetItem* row);
    /// Puts the rows in order again, after names have changed.
    void sortRows();

    /// The width in which the name of that row is not shortened beside its marks, frame and bar included.
    int widthFor(const QTreeWidgetItem* row) const;

    /// Gives a row the full name of its curve, which its tool tip shows whole, and below it `tip`, a plain text.
    static void setCurveName(QTreeWidgetItem* row, const QString& name, const QString& tip = {});
    /// The row of a locked curve has a padlock for its square, and letters that are slanted and paler.
    /// That of a hidden one has paler letters. The marks show at the right end.
    static void setCurveMark(QTreeWidgetItem* row, CurveMark mark, const MarkState& state);
    static void setCurveSeen(QTreeWidgetItem* row, bool isSeen);
    /// The square of a formula has an "f" in it.
    static void setCurveKind(QTreeWidgetItem* row, bool isFormula);
    static void setCurveColor(QTreeWidgetItem* row, const QColor& color);

public Q_SLOTS:
    /// Hides the rows whose names do not contain `part`, whatever the case of its letters; an empty text shows all.
    /// The selected row is always in sight. Rows that come, change or are selected later are treated alike, but none
    /// is hidden because it is no longer selected: rows don't move while they are clicked.
    void setFilter(const QString& part);

Q_SIGNALS:
    /// The user asks to take the curve of this row off the canvas. Null if no row is selected.
    void supressFromEditing(QTreeWidgetItem* item);

    /// The user dropped a text, which should be the full name of a curve.
    void setNodeForEdit(const QString& name);

    /// The user asks for that mark at a row, or asks to take it away.
    void markClicked(QTreeWidgetItem* row, CurveMark mark);

    /// The user asks for curves that are not here.
    void curvesWanted();

protected:
    /// Keeps Insert from shortcuts of the window in which the dialog is docked.
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    /// Without a curve it says how one comes here.
    void paintEvent(QPaintEvent* event) override;
    void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;

private:
    std::optional<CurveMark> markAt(const QPoint& place) const;
    static void describe(QTreeWidgetItem* row);
    static QString tipOf(CurveMark mark, const MarkState& state);
    void filterRows(int first, int last);
    void fitSquares();

    QString filter_;
    bool isSelecting_ = false;
    bool willScroll_ = false; ///< to the selected row
};
