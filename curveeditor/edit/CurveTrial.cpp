// SPDX-License-Identifier: MIT
#include <curveeditor/edit/CurveTrial.h>

#include <utility>

namespace curveeditor {

CurveTrial::CurveTrial(CurveEdit& door, std::shared_ptr<EditedCurve> curve, const QString& text)
    : door_(&door), curve_(std::move(curve)), text_(text), id_(door.tryOut(text_, curve_)),
      before_(curve_->state()), shown_(before_.spline), fingerprintBefore_(curve_->fingerprint()),
      fingerprintShown_(fingerprintBefore_)
{
}

bool CurveTrial::isPossible() const
{
    return door_ && curve_->spline() && curve_->kind() == before_.kind &&
           curve_->fingerprint() == (door_->isOpen(id_) ? fingerprintShown_ : fingerprintBefore_);
}

bool CurveTrial::reopen()
{
    if (door_ && !door_->isOpen(id_))
        door_->commit();
    if (!isPossible())
        return false;
    if (!door_->isOpen(id_))
        id_ = door_->tryOut(text_, curve_);
    return door_->isOpen(*curve_);
}

bool CurveTrial::show(const SplineState& spline)
{
    if (!reopen())
        return false;
    const CurveState last = curve_->state();
    door_->spline(*curve_)->assign(spline);
    door_->bound(*curve_);
    door_->constrain(*curve_);
    if (!curve_->spline())
        return false;
    curve_->spline()->copyTo(shown_);
    fingerprintShown_ = curve_->fingerprint();
    door_->preview(*curve_,
                   CurveDiff::between(last, *curve_->spline(), curve_->kind(), curve_->formula()).touched());
    return isPossible();
}

void CurveTrial::keep()
{
    if (door_ && !door_->isOpen(id_))
        show(SplineState(shown_));
    if (door_)
        door_->keep(id_);
}

void CurveTrial::takeBack()
{
    if (door_ && door_->isOpen(id_))
        door_->cancel();
}

} // namespace curveeditor
