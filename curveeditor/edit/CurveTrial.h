// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveEdit.h>

#include <QPointer>

#include <vector>

namespace curveeditor {

/// An edit of the splines of curves that a user tries out: shown as often as wanted, then kept as one step or taken back.
///
/// Foreign code may run while it lasts. Any other edit takes it back, as the end of the canvas does; then it can still
/// be shown anew and kept. Where the host has changed one of the curves or taken it away, the trial changes nothing any
/// more.
class CurveTrial
{
    Q_DISABLE_COPY_MOVE(CurveTrial)

public:
    /// Mends the curves. An edit that is open is committed first. `text` says to the user what it does.
    CurveTrial(CurveEdit& door, const CurveEdit::Curves& curves, const QString& text);

    /// A curve as it was at first, by its place among those that were given.
    const CurveState& before(std::size_t curve = 0) const { return trials_[curve].before; }
    /// The curves are there, and as they were left.
    bool isPossible() const;
    /// Nobody has taken it back.
    bool isOpen() const { return door_ && door_->isOpen(id_); }
    /// Of its edit.
    CurveEdit::Id id() const { return id_; }

    /// Gives each curve one of the splines and reports a step. Returns false if that is not possible.
    bool show(const std::vector<SplineState>& splines);
    /// Either ends the trial. Kept is what was shown last, and `keep` gives the curves that changed. What the host has done
    /// to a curve stays.
    CurveEdit::Curves keep();
    void takeBack();

private:
    struct Trial
    {
        std::shared_ptr<EditedCurve> curve;
        CurveState before;
        SplineState shown;
        std::uint64_t fingerprintBefore; ///< of the curve
        std::uint64_t fingerprintShown;
    };

    CurveEdit::Curves curves() const;
    bool reopen();
    bool write(Trial& trial, const SplineState& spline);

    QPointer<CurveEdit> door_;
    QString text_;
    CurveEdit::Id id_;
    std::vector<Trial> trials_;
};

} // namespace curveeditor
