// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <QObject>

#include <vector>

class CanvasSpline;
class ControlMenu;
class QPoint;

/// Which control points of one spline are selected, what a drag of the selected point edits, and the
/// operations on them. It knows no mouse events: which gesture does what is decided by the canvas.
///
/// A point is selected if it is `current` or stands in `selection`. A single selected point is held in
/// `current` alone, a multiple selection in `selection`. Points and spline belong to the host. Where there is
/// nothing to act on, an operation does nothing. Times are in time units, values in value units.
class ControlSplineNode : public QObject
{
    Q_OBJECT

public:
    /// What `owner` draws is what this object edits. Connects the shared menu, which the first instance
    /// makes.
    explicit ControlSplineNode(CanvasSpline* owner);

    /// The menu that all instances share: one choice reaches each of them, and each acts on its own
    /// selection. Made at the first call, without a parent, and never deleted by this library. Needs a
    /// `QApplication`.
    static ControlMenu* menu();

    CanvasSpline* getOwner() const { return owner; }
    /// Stores the spline; null is allowed and has no points. The selection stays: it is for the caller to
    /// empty it.
    void setSpline(SplineBase* newSpline) { spline = newSpline; }
    SplineBase* getSpline() const { return spline; }

    /// The single selected point; null if there is none.
    SplineBase::PointInfo* getCurrent() const { return current; }
    /// Writes `current` only; null is allowed.
    void setCurrent(SplineBase::PointInfo* point) { current = point; }
    /// Makes `point` the only selected point; with null nothing is selected.
    void selectOnly(SplineBase::PointInfo* point);
    /// Adds `point` to the selection, or takes it out; null changes nothing. A selection built this way is
    /// ascending in time.
    void toggleSelected(SplineBase::PointInfo* point);
    /// Takes out of the selection each point that the spline does not hold any more, as after a change by the
    /// host. Points are told by address alone, so those that are gone are not read.
    void dropLostPoints();

    bool hasSelection() const { return current || !selection.empty(); }
    bool hasSingleSelection() const { return current && selection.size() <= 1; }
    bool hasMultipleSelection() const { return selection.size() > 1; }
    /// Looks through the whole selection; for all points of a spline at once use `selectedPoints`.
    bool isSelected(const SplineBase::PointInfo* point) const;
    /// For each point of the spline, in its order, whether it is selected.
    std::vector<bool> selectedPoints() const;

    /// The index of `current` in the spline; -1 if there is none.
    int currentIndex() const;
    /// The point of that index; null if the index is out of range.
    SplineBase::PointInfo* pointAt(const int& index) const;
    int pointCount() const;
    /// The current point for writing; null if there is none.
    SplineBase::PointInfo* modifyCurrent();
    /// The points of a multiple selection, for an edit of all of them.
    std::vector<SplineBase::PointInfo*>& selectionList() { return selection; }
    /// The times of the first and the last entry of `selection`; an empty one leaves both as they are.
    void getSelectionSpan(double& first, double& last) const;
    /// Whether `time` lies at or outside either end of a multiple selection; false without one.
    bool isOutsideSelection(const double& time) const;

    /// What a drag of `current` edits: the point itself, or the slopes of both, the left or the right
    /// tangent.
    void setActiveNone() { activePart = 0; }
    void setActiveBoth() { activePart = 1; }
    void setActiveLeft() { activePart = 2; }
    void setActiveRight() { activePart = 3; }
    bool isActiveNone() const { return activePart == 0; }
    bool isActiveBoth() const { return activePart == 1; }
    bool isActiveLeft() const { return activePart == 2; }
    bool isActiveRight() const { return activePart == 3; }

    /// Moves the single `current` point to a place of the plane; or, with an active tangent, gives it the
    /// slope of the line from the point to that place, which is never steeper than 1000 value units per time
    /// unit. A place without a slope, the point itself, leaves the tangents as they are. Numbers that are not
    /// finite are not stored.
    void movePoint(const double& time, const double& value);
    /// Multiplies time and value of the single `current` point.
    void scalePoint(const double& timeFactor, const double& valueFactor);
    /// Adds to time and value of the single `current` point.
    void panPoint(const double& timeOffset, const double& valueOffset);

    /// Shows the shared menu at a position of the screen, with the entries that the selection allows, and
    /// returns when it has closed.
    void popupMenu(const QPoint& globalPosition);

public Q_SLOTS:
    /// The selected points become `Linear`, `Bezier` or `Tcb`. A new `Bezier` point keeps the slopes that it
    /// showed. One point that is listed, but not current, is not touched.
    void setSelectedLinear();
    void setSelectedBezier();
    void setSelectedTcb();
    /// Removes the selected points from the spline and empties the selection.
    void deleteSelectedNodes();

Q_SIGNALS:
    /// One of the slots has touched points of this spline. A menu choice also reaches curves that are not
    /// current, so whoever holds a picture of the spline has to mark it as stale here.
    void pointsChanged();

private:
    std::vector<SplineBase::PointInfo*> editedPoints();
    bool holdsSinglePoint();
    void setSelectedType(int type);
    void placeCurrent(double time, double value);

    CanvasSpline* owner;
    int activePart = 0;
    SplineBase::PointInfo* current = nullptr;
    std::vector<SplineBase::PointInfo*> selection;
    SplineBase* spline = nullptr;
};
