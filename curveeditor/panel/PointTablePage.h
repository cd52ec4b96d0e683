// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/PointCommands.h>
#include <curveeditor/panel/PointTableModel.h>

#include <QPointer>
#include <QWidget>

class QTableView;

namespace curveeditor {

/// The page "Points": the points of the current curve in a table, whose selected rows are the points that are
/// selected on the canvas. What is typed into a cell of a selected row goes to all selected rows. The keys to copy,
/// cut and paste act on whole points, which are pasted where they were.
///
/// While it is hidden it only notes which curve it has to show.
class PointTablePage : public QWidget
{
    Q_OBJECT

public:
    /// `canvas`, which has its view, must outlive the page.
    explicit PointTablePage(CanvasFunctionBase& canvas, QWidget* parent = nullptr);

    /// To be called when the current curve, its points, its selection or the unit of times may be others now;
    /// `control` is null if there is no spline to show.
    void show(ControlSplineNode* control);

Q_SIGNALS:
    /// The user changed points of the curve of that selection. Null if it is gone by now.
    void edited(ControlSplineNode* control);
    /// The user selected other points.
    void selectionPicked();

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void fitToFont();
    void fitToTitles();
    void selectRows();
    void pickSelection();

    PointTableModel model_;
    PointCommands commands_;
    QTableView* view_;
    QPointer<ControlSplineNode> control_;
    Selection shown_; ///< what the rows selected last stand for
    bool isShowing_ = false;
};

} // namespace curveeditor
