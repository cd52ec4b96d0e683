// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasEdit.h>
#include <curveeditor/edit/Ease.h>
#include <curveeditor/edit/PointText.h>
#include <curveeditor/edit/SegmentEase.h>
#include <curveeditor/model/SplineBase.h>
#include <curveeditor/model/SplineState.h>

#include <QCoreApplication>
#include <QLocale>

#include <functional>
#include <memory>
#include <vector>

class CanvasFunctionBase;
class CurveNodeBase;

namespace curveeditor {

class EditedCurve;

/// What menus and keys do to the points of the current curve, beyond what mouse and bare keys do; where all curves are
/// edited at once, selecting, moving and shaping act on all of them. Each edit is one step of the undo stack and is
/// reported as any other. Without a current spline, with a hidden one, or where nothing is selected that could be
/// edited, they do nothing. The canvas outlives it.
class PointCommands
{
    Q_DECLARE_TR_FUNCTIONS(PointCommands)

public:
    explicit PointCommands(CanvasFunctionBase& canvas);

    /// There is a spline of which points can be selected.
    bool canSelect() const;
    /// The current curve is a spline, and not hidden.
    bool canInsert() const;
    /// A point is selected ...
    bool canEdit() const;
    /// ... that is one of the current curve.
    bool canCopy() const;

    void selectAll();
    void selectNone();
    void selectOthers();
    /// Adds the point behind the last selected one, or before the first; with nothing selected the first or the
    /// last point of all.
    void extendSelection(bool forward);

    /// Moves the selected points by frames and by tenths of the grid's step in value.
    void nudge(double frames, double tenthsOfGridStep);

    /// The selected points as a table on the clipboard, see `PointText`.
    void copy();
    /// The same, and they go; the last point of a curve stays.
    void cut();
    bool canPaste() const;
    enum class Paste {
        AtTimeLine,         ///< the first point comes there
        WhereTheyWere,      ///< all keep their times
        ReplacingAtTimeLine ///< as `AtTimeLine`, and the points from the first to the last pasted one go
    };
    /// The points of a table on the clipboard. They are selected. Text that is no table, and a shift beyond all times,
    /// are told in a box, text without any points at the edge of the canvas, and nothing is changed; a text that can be read in two ways makes a box ask which one is
    /// meant.
    void paste(Paste kind);
    /// The selected points once more, a frame later. The new ones are selected.
    void duplicate();

    /// A new point at the time line on the curve, which keeps its shape, see `SplineEdits::insertOnCurve`. It is
    /// selected.
    void insertAtTimeLine();
    /// The same at the time where the mouse is, in the plane of the canvas.
    void insertAt(double time);

    /// Tangents of the selected points, see `SplineEdits`.
    void flattenTangents();
    void alignTangents();
    void smoothTangents();

    /// Lets the segments between selected points follow the ease, see `SegmentEase`, and tells how exactly. Curves that
    /// may have no Bezier points stay as they are, which is told too. Added points are selected as well; while the selection
    /// stays so, another ease takes the place of this one.
    void ease(const Ease& ease);
    /// Why there is nothing to be eased now; empty if there is.
    QString easeRefusal() const;

private:
    /// Curves with segments to be eased, and why others have to stay as they are.
    struct Easable
    {
        CanvasEdit::Nodes curves;
        QString refusal;
    };
    static Easable easableOf(const CanvasCurves& curves);
    /// What an ease left of one curve.
    struct Eased
    {
        std::weak_ptr<const EditedCurve> curve;
        std::vector<PointSerial> points;   ///< between which it is
        std::vector<PointSerial> selected; ///< when it was done
        Ease ease;
        SegmentEase::Outcome outcome = {};
        SplineState left = {}; ///< what was there when it was done
        bool isAsEased = true; ///< it is what the ease has made
    };
    static bool areAsEased(std::vector<Eased>& eased);
    Eased easeOne(CurveNodeBase& curve, const Ease& ease, SegmentEase::Outcome& outcome) const;
    double frame() const;
    void paste(PointText::Result result, Paste kind);
    void add(const QString& text, const std::vector<SplineBase::PointInfo>& points, bool replaces = false);
    static QString outcomeText(const SegmentEase::Outcome& outcome, const QLocale& locale);
    using Marks = std::vector<bool>;
    void changeMarks(const std::function<void(Marks&)>& change);

    CanvasFunctionBase& canvas_;
    std::vector<Eased> eased_; ///< by the last ease
};

} // namespace curveeditor
