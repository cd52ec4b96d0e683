// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointer>

class CanvasFunctionBase;
class QAction;
class QPoint;

namespace curveeditor {

/// The way of one canvas to the menu over points, which all canvases share: it opens the menu, and a choice reaches
/// the canvas. A canvas that goes does not leave the menu open. The canvas owns it.
class PointMenu
{
public:
    explicit PointMenu(CanvasFunctionBase& canvas);
    ~PointMenu();

    PointMenu(const PointMenu&) = delete;
    PointMenu& operator=(const PointMenu&) = delete;

    /// Opens it at a position of the screen, and marks the place of the last press where nothing is selected. There
    /// must be a current curve. Returns when the menu has closed, and canvas and menu may be gone then.
    void open(const QPoint& globalPosition);
    /// The same at the selected point, or else in the middle of the canvas; for a current spline alone.
    void openByKey();
    /// Shows an action of the host below the entries, over this canvas alone. Null, and one that is there, change nothing.
    void addAction(QAction* action);
    /// This canvas was pressed: what is chosen elsewhere than in the menu is meant for it.
    void follow();
    /// It is open over another canvas, or, closed, meant for another.
    bool isElsewhere() const;

private:
    CanvasFunctionBase& canvas_;
    QList<QPointer<QAction>> others_;
};

} // namespace curveeditor
