// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveEdit.h>
#include <curveeditor/edit/Gesture.h>
#include <curveeditor/edit/ViewStep.h>

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QStringList>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class CurveNodeBase;
class DependencyCheck;

namespace curveeditor {

/// The curves of one canvas in the order of adding, which it owns: which of them is current, which are in the reach of
/// the hand and what of those is selected, and which of them read an edited one.
///
/// It calls nothing foreign but in `report`, where a host may take any curve away, and the canvas with it.
class CanvasCurves
{
public:
    using Nodes = std::vector<CurveNodeBase*>;
    /// For walks that run foreign code: a curve that goes on the way becomes null.
    using Guarded = std::vector<QPointer<CurveNodeBase>>;

    /// `editor` knows who reads whom; null means that nobody reads.
    explicit CanvasCurves(DependencyCheck* editor);
    ~CanvasCurves();

    const std::vector<std::unique_ptr<CurveNodeBase>>& all() const { return curves_; }
    Nodes nodes() const;
    /// Those that are not hidden.
    Nodes shown() const;
    Guarded present() const;
    bool isEmpty() const { return curves_.empty(); }
    /// The first one of that name; names compare exactly. Null if there is none.
    CurveNodeBase* find(const QString& name) const;
    CurveNodeBase* find(const EditedCurve& curve) const;
    void add(std::unique_ptr<CurveNodeBase> curve);
    /// Takes a curve out; if it was the current one, the first that is left becomes so. Null if it is not here.
    std::unique_ptr<CurveNodeBase> take(const CurveNodeBase* curve);
    void clear();

    /// Null without one.
    CurveNodeBase* current() const { return current_; }
    void setCurrent(CurveNodeBase& curve);
    /// The current curve alone, or nothing.
    Nodes currentOnly() const;
    /// The same if it is a spline, and not hidden.
    Nodes currentShownOnly() const;

    /// To be called when marks or the host's options have changed, and when a curve has gone: lets see what is to be seen.
    /// Hidden curves let go of their selection.
    void followMarks();

    /// Whether the points of all splines are in reach, else those of the current one.
    bool editsAll() const { return editsAll_; }
    void setEditsAll(bool on);
    /// The splines of which points can be selected, the current one first; not hidden ones. A spline that two share is there once.
    Nodes inReach() const;
    /// Those in reach of which points are selected.
    Nodes selected() const;
    /// The same, whether in reach or not; no hidden ones.
    Nodes selectedAnywhere() const;
    bool hasSelection() const { return !selected().empty(); }
    bool hasMultipleSelection() const;
    /// The curves of which points are selected, in reach or not. To be compared: a curve may be gone by then.
    using Selections = std::vector<std::pair<const CurveNodeBase*, Selection>>;
    Selections selections() const;
    /// The times of the first and the last selected point, if there are several.
    std::optional<AxisRange> selectedTimes() const;
    /// All selected points lie at one side of that time, or at it.
    bool isOutsideSelection(double time) const;
    /// Selects a point of the current curve alone; 0 selects nothing.
    void selectOnly(PointSerial point);
    /// For after a change by the host: selections let go of the points that their splines do not hold any more.
    void dropLostPoints();

    /// Marks the pictures that an edit has made stale: of the curve, of those that share its spline or variable, and
    /// of those that read one of them. The steps of a drag take the readers that `noteReaders` has found.
    void markEdited(const EditReport& report, bool isDragStep);
    /// Looks once for the readers of what is dragged from now on.
    void noteReaders(const CurveEdit::Curves& dragged);

    /// `first`, unless that is null, and then the others of which the content is in `changed`.
    Guarded withFirst(CurveNodeBase* first, const CurveEdit::Curves& changed) const;
    /// Emits `CurveNodeBase::curveHasChanged` of each.
    static void report(const Guarded& curves);

private:
    Nodes showing(const EditedCurve& curve) const;
    QSet<QString> readersOf(const EditedCurve& curve) const;

    DependencyCheck* editor_;
    std::vector<std::unique_ptr<CurveNodeBase>> curves_;
    CurveNodeBase* current_ = nullptr;
    bool editsAll_ = false;
    /// For a curve that is dragged, the lower variable names of the curves that read it.
    QHash<QString, QSet<QString>> readers_;
};

} // namespace curveeditor
