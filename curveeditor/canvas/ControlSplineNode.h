// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveEdit.h>
#include <curveeditor/edit/SplineEdits.h>

#include <QObject>

#include <functional>
#include <memory>

class ControlMenu;
class QPoint;

using namespace curveeditor;

/// Which control points of one curve on the canvas are selected, what a drag of the selected point edits, and the
/// commands on them that menu and node page share. It knows no mouse events: which gesture does what is decided
/// by the canvas.
///
/// Points are named by their serials, see `Selection`; the pointers that come and go here are those of the
/// moment and must not be kept. The curve belongs to whoever made it, its spline to the host.
class ControlSplineNode : public QObject
{
    Q_OBJECT

public:
    /// Edits go through `door`, which must outlive this object.
    ControlSplineNode(CurveEdit& door, std::shared_ptr<EditedCurve> curve);

    /// The menu that all instances share: one choice reaches each canvas. Made at the first call, without a
    /// parent, and never deleted by this library. Needs a `QApplication`.
    static ControlMenu* menu();

    const std::shared_ptr<EditedCurve>& curve() const { return curve_; }
    const SplineBase* getSpline() const { return curve_->spline(); }
    CurveEdit& door() { return door_; }
    /// The spline while an edit of the curve is open; null else.
    SplineBase* openSpline() const { return door_.spline(*curve_); }

    Selection& selection() { return selection_; }
    const Selection& selection() const { return selection_; }
    /// The single selected point; null if there is none, or it is gone.
    const SplineBase::PointInfo* getCurrent() const;
    /// Makes `point` the only selected point; with null nothing is selected.
    void selectOnly(const SplineBase::PointInfo* point);
    /// Selects these points and no other.
    void selectPoints(const std::vector<PointSerial>& points);
    /// Adds `point` to the selection, or takes it out; null changes nothing.
    void toggleSelected(const SplineBase::PointInfo* point);
    /// Selects the points strictly inside a rectangle of the plane, drops all others, and returns whether there
    /// are any. The last one becomes the current point too.
    /// If `adds`, the others stay selected.
    bool selectInBand(double timeLow, double timeHigh, double valueLow, double valueHigh, bool adds = false);
    /// For after a change by the host: mends the spline, and takes out of the selection what it does not hold any
    /// more.
    void dropLostPoints();

    bool hasSelection() const { return !selection_.isEmpty(); }
    bool hasSingleSelection() const { return selection_.hasSingle(); }
    bool hasMultipleSelection() const { return selection_.hasMultiple(); }
    bool isSelected(const SplineBase::PointInfo* point) const;

    /// The index of the current point in the spline; -1 if there is none. Quick if it is `guess`.
    int currentIndex(int guess = -1) const;
    /// The point of that index; null if the index is out of range.
    const SplineBase::PointInfo* pointAt(int index) const;
    int pointCount() const;
    /// Of the points that an edit would act on.
    std::vector<double> selectedTimes() const;

    /// What a drag of the single current point edits.
    SplineEdits::Part activePart = SplineEdits::Part::Point;

    /// Shows the shared menu at a position of the screen, with the entries that the selection allows, and
    /// returns when it has closed.
    void popupMenu(const QPoint& globalPosition);

    /// Edits the spline of this curve alone as one step of the undo stack, called `one` or `many` with the name of the
    /// curve and the number of points in it. What is open elsewhere ends first, and who hears of that may take the
    /// curve away. Returns whether the curve has changed; tells nobody.
    bool edit(const QString& one, const QString& many, std::size_t count,
              const std::function<void(SplineBase&)>& work);

public Q_SLOTS:
    /// The selected points become `Linear`, `Bezier`, `Tcb`, or any type. A new `Bezier` point keeps the slopes
    /// that it showed. One point that is listed, but not current, is not touched.
    void setSelectedLinear() { setSelectedType(SplineBase::Linear); }
    void setSelectedBezier() { setSelectedType(SplineBase::Bezier); }
    void setSelectedTcb() { setSelectedType(SplineBase::Tcb); }
    void setSelectedType(int type);

private:
    CurveEdit& door_;
    std::shared_ptr<EditedCurve> curve_;
    Selection selection_;
};
