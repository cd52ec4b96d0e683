// SPDX-License-Identifier: MIT
#include <curveeditor/edit/CurveTrial.h>

#include <algorithm>

namespace curveeditor {

CurveTrial::CurveTrial(CurveEdit& door, const CurveEdit::Curves& curves, const QString& text)
    : door_(&door), text_(text), id_(door.tryOut(text_, curves))
{
    for (const auto& curve : curves) {
        const std::uint64_t fingerprint = curve->fingerprint();
        trials_.push_back({curve, curve->state(), {}, fingerprint, fingerprint});
        trials_.back().shown = trials_.back().before.spline;
    }
}

CurveEdit::Curves CurveTrial::curves() const
{
    CurveEdit::Curves curves;
    for (const Trial& trial : trials_)
        curves.push_back(trial.curve);
    return curves;
}

bool CurveTrial::isPossible() const
{
    return door_ && std::all_of(trials_.begin(), trials_.end(), [this](const Trial& trial) {
               const EditedCurve& curve = *trial.curve;
               return curve.spline() && curve.kind() == trial.before.kind &&
                      curve.fingerprint() ==
                          (door_->isOpen(id_) ? trial.fingerprintShown : trial.fingerprintBefore);
           });
}

bool CurveTrial::reopen()
{
    if (door_ && !door_->isOpen(id_))
        door_->commit();
    if (!isPossible())
        return false;
    if (!door_->isOpen(id_))
        id_ = door_->tryOut(text_, curves());
    const bool isWhole = std::all_of(trials_.begin(), trials_.end(),
                                     [this](const Trial& trial) { return door_->isOpen(*trial.curve); });
    if (!isWhole)
        takeBack();
    return isWhole;
}

/// The constraint of a curve runs foreign code, which may take curves away.
bool CurveTrial::write(Trial& trial, const SplineState& spline)
{
    const EditedCurve& curve = *trial.curve;
    SplineBase* const written = door_->spline(curve);
    if (!written)
        return false;
    written->assign(spline);
    door_->bound(curve);
    door_->constrain(curve);
    if (!curve.spline())
        return false;
    curve.spline()->copyTo(trial.shown);
    trial.fingerprintShown = curve.fingerprint();
    return true;
}

bool CurveTrial::show(const std::vector<SplineState>& splines)
{
    if (!reopen())
        return false;
    std::vector<CurveState> last;
    for (const Trial& trial : trials_)
        last.push_back(trial.curve->state());
    bool isWritten = true;
    for (std::size_t i = 0; i < trials_.size(); ++i)
        isWritten = isWritten && write(trials_[i], splines[i]);
    door_->noteTrial();
    for (std::size_t i = 0; i < trials_.size() && isWritten; ++i) {
        const EditedCurve& curve = *trials_[i].curve;
        if (door_ && curve.spline())
            door_->preview(
                curve, CurveDiff::between(last[i], *curve.spline(), curve.kind(), curve.formula()).touched());
    }
    return isWritten && isPossible();
}

CurveEdit::Curves CurveTrial::keep()
{
    if (door_ && !door_->isOpen(id_)) {
        std::vector<SplineState> shown;
        for (const Trial& trial : trials_)
            shown.push_back(trial.shown);
        show(shown);
    }
    return door_ ? door_->keep(id_) : CurveEdit::Curves();
}

void CurveTrial::takeBack()
{
    if (door_ && door_->isOpen(id_))
        door_->cancel();
}

} // namespace curveeditor
