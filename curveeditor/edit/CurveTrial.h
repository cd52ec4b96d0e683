// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveEdit.h>

#include <QPointer>

namespace curveeditor {

/// An edit of a curve's spline that a user tries out: shown as often as wanted, then kept as one step or taken back.
///
/// Foreign code may run while it lasts. Any other edit takes it back, as the end of the canvas does; then it can still
/// be shown anew and kept. Where the host has changed the curve or taken it away, the trial changes nothing any more.
class CurveTrial
{
    Q_DISABLE_COPY_MOVE(CurveTrial)

public:
    /// Mends the curve. An edit that is open is committed first. `text` says to the user what it does.
    CurveTrial(CurveEdit& door, std::shared_ptr<EditedCurve> curve, const QString& text);

    /// The curve as it was at first.
    const CurveState& before() const { return before_; }
    /// The curve is there, and as it was left.
    bool isPossible() const;

    /// Makes `spline` the spline of the curve and reports a step. Returns false if that is not possible.
    bool show(const SplineState& spline);
    /// Either ends the trial. Kept is what was shown last. What the host has done to the curve stays.
    void keep();
    void takeBack();

private:
    bool reopen();

    QPointer<CurveEdit> door_;
    std::shared_ptr<EditedCurve> curve_;
    QString text_;
    CurveEdit::Id id_;
    CurveState before_;
    SplineState shown_;
    std::uint64_t fingerprintBefore_; ///< of the curve
    std::uint64_t fingerprintShown_;
};

} // namespace curveeditor
