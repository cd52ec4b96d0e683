// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/EditHistory.h>
#include <curveeditor/edit/OwnPoints.h>

#include <QString>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace curveeditor {

class PointDrag;

/// The one door through which hands change curves.
///
///     door.begin(tr("Delete points"), {curve});
///     SplineEdits::removePoints(*door.spline(*curve), points);
///     door.commit();
///
/// `begin` notes the state of the curves; whatever is written until `commit` is one value then, one entry of the
/// undo stack, and one report. An edit that changed nothing leaves neither. One edit is open at a time.
///
/// An edit that runs while foreign code may run, such as a drag, names the points of each curve that are its own:
/// what the host changes beside them in the meantime is neither part of the edit nor taken back with it. All of a
/// curve that has a constraint is the edit's own.
class CurveEdit : public QObject
{
    Q_OBJECT

public:
    using Curves = std::vector<std::shared_ptr<EditedCurve>>;
    using Id = std::uint64_t;

    /// A curve, and the points of it that are the edit's own; without any all of it is.
    struct Target
    {
        std::shared_ptr<EditedCurve> curve;
        std::vector<PointSerial> own = {};
    };

    explicit CurveEdit(QObject* parent = nullptr);

    EditHistory& history() { return history_; }

    /// Opens an edit. `text` says to the user what it does. One that is open is committed first, which runs
    /// foreign code: who is not sure calls `commit`, and then looks for what to edit. It need not open for every curve:
    /// who writes asks `isOpen` or `spline` for each. Linear in the points of the
    /// curves, as are all the others here but `preview`.
    Id begin(const QString& text, const Curves& curves);
    Id begin(const QString& text, std::vector<Target> targets);
    /// Opens an edit that is only tried out: `keep` commits it, and whatever else ends it takes it back. Where the
    /// host has changed a curve after the last `noteTrial`, that stays, and all of it is an entry.
    Id tryOut(const QString& text, const Curves& curves);
    /// To be called when all that is tried out has been written, before anybody hears of it.
    void noteTrial();
    /// Gives the curves that have changed. Does nothing if that edit is not open any more.
    Curves keep(Id id);
    bool isOpen() const { return isOpen_ && !isShut_; }
    /// Of the last edit that was opened.
    Id id() const { return id_; }
    /// Whether it is that edit which is open.
    bool isOpen(Id id) const { return isOpen() && id == id_; }
    /// Whether an edit of that curve is.
    bool isOpen(const EditedCurve& curve) const;
    /// Whether an edit is open of that curve, or of another one that shares its spline.
    bool isAtSplineOf(const EditedCurve& curve) const;

    /// The spline of a curve of the open edit, to be written until the edit ends. Null for every other curve, and where
    /// there is none.
    SplineBase* spline(const EditedCurve& curve) const;

    /// @{
    /// Brings points that the open edit has written within the options of their curve. `checkpoint` and `commit` do
    /// it by themselves; who shows or tells a step earlier calls it first. What a drag has moved takes no pass over
    /// the other points.
    void bound(const EditedCurve& curve);
    void bound(const EditedCurve& curve, const PointDrag& drag);
    /// @}
    /// To be called before each step but the first of an edit that lasts: takes back what the constraint of the curve wrote
    /// in the step before, so that none builds on another. What the host has changed meanwhile stays. Gives the times at
    /// which the curve may have changed by that.
    TimeInterval beginStep(const EditedCurve& curve);
    /// Lets the host's constraint of the curve write what follows from what the open edit has written, which keeps to the
    /// options too. Nothing happens where the edit has changed no spline yet. `checkpoint` and `commit` do it by
    /// themselves, as with `bound`. Gives the times at which the curve may have changed by that. It runs foreign
    /// code, for which the door is shut, and which may take curves away; linear in the points.
    TimeInterval constrain(const EditedCurve& curve);
    /// Reports a step of the open edit at one of its curves; nothing if it is not open for that.
    void preview(const EditedCurve& curve, const TimeInterval& touched);
    /// Makes what is done so far an entry, which grows with the edit, and reports it as a step: for an edit that
    /// lasts longer than a host may wait with a step back, as typing does.
    void checkpoint();
    /// Ends the edit. Returns the curves that it changed.
    Curves commit();
    /// Takes the edit back and ends it.
    void cancel();

    /// Lets the host's own code edit the spline of a curve, locked or not, in one go beside what is open at others;
    /// nothing may be open at that spline. It is an entry, which joins the one on top if that has the same `merge`, not
    /// 0, and one report of cause `Host`. What `work` throws passes on when all that it did is taken back. Returns false,
    /// and does nothing, while the door is shut.
    bool editForHost(const std::shared_ptr<EditedCurve>& curve, const QString& text,
                     const std::function<void(SplineBase&)>& work, int merge);
    /// Whether the host's code writes to a curve. Until it returns no edit opens or ends, as if none were open.
    bool isShut() const { return isShut_; }

private:
    class Shut;
    /// What a curve was: all of it, or the points that are the edit's own.
    struct Before
    {
        std::shared_ptr<EditedCurve> curve;
        std::vector<PointSerial> own;
        CurveState state = {};   ///< unless points are its own
        OwnPoints points = {};   ///< those
        std::uint64_t tried = 0; ///< fingerprint of the curve as the edit left it, if it is only tried out

        void note();
        CurveDiff difference() const;
        EditHistory::Part change() const;
        void takeBack() const;
    };

    using Join = std::pair<EditCommand*, std::vector<EditHistory::Part>>;
    Join joined(int merge, const Before& before, const EditHistory::Part& part) const;
    void bound(const Before& before);
    TimeInterval constrain(const Before& before);
    void runConstraint(EditedCurve& curve);
    bool isTaken(const std::shared_ptr<EditedCurve>& curve);
    const Before* find(const EditedCurve& curve) const;

    void holdAll();
    Curves close();
    std::vector<EditHistory::Part> changes() const;
    std::vector<EditHistory::Part> continueAboveForeignEntry();
    void keepEntry(const std::vector<EditHistory::Part>& parts);
    void report(const std::vector<EditHistory::Part>& parts, EditReport::Cause cause, const QString& text,
                int merge = 0);
    void interrupt();
    std::vector<Before> takeForeignTrials();

    EditHistory history_;
    Id id_ = 0;
    bool isOpen_ = false;
    bool isShut_ = false;
    bool isTrial_ = false;
    QString text_;
    std::vector<Before> before_;
    EditCommand* entry_ = nullptr;   ///< of the open edit; the stack's, which may have deleted it
    std::vector<Before> checkpoint_; ///< the curves when that entry was made or grew
    TimeInterval previewed_;         ///< of the last checkpoint
    std::vector<EditHistory::Part> checkpointParts_; ///< what that entry holds
};

} // namespace curveeditor
