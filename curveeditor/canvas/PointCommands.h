// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

#include <functional>
#include <vector>

class CanvasFunctionBase;
class ControlSplineNode;
class SplineBase;

/// What menus and keys do to the points of the current curve, beyond what mouse and bare keys do. Each edit is one
/// step of the undo stack and is reported as any other. Without a current spline, or where nothing is selected that
/// could be edited, they do nothing. The canvas outlives it.
class PointCommands
{
    Q_DECLARE_TR_FUNCTIONS(PointCommands)

public:
    explicit PointCommands(CanvasFunctionBase& canvas);

    /// The current curve is a spline.
    bool canSelect() const;
    /// A point of it is selected.
    bool canEdit() const;

    void selectAll();
    void selectNone();
    void selectOthers();
    /// Adds the point behind the last selected one, or before the first; with nothing selected the first or the
    /// last point of all.
    void extendSelection(bool forward);

    /// Moves the selected points by frames and by tenths of the grid's step in value.
    void nudge(double frames, double tenthsOfGridStep);

private:
    ControlSplineNode* control() const;
    void select(const std::vector<bool>& marks);

    CanvasFunctionBase& canvas_;
};
