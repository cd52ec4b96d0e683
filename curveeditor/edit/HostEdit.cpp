// SPDX-License-Identifier: MIT
#include <curveeditor/edit/CurveEdit.h>

#include <curveeditor/edit/EditCommand.h>

#include <algorithm>
#include <utility>

namespace curveeditor {

namespace {

bool isSharedByOther(const std::vector<EditHistory::Part>& parts, const EditedCurve& curve)
{
    return std::any_of(parts.begin(), parts.end(), [&](const EditHistory::Part& part) {
        return part.curve.get() != &curve && part.curve->spline() == curve.spline();
    });
}

} // namespace

/// Shuts the door while it lives, or until the host deletes the editor.
class CurveEdit::Shut
{
    Q_DISABLE_COPY_MOVE(Shut)

public:
    explicit Shut(CurveEdit& door) : door_(&door) { door.isShut_ = true; }
    ~Shut()
    {
        if (door_)
            door_->isShut_ = false;
    }

private:
    QPointer<CurveEdit> door_;
};

bool CurveEdit::editForHost(const std::shared_ptr<EditedCurve>& curve, const QString& text,
                            const std::function<void(SplineBase&)>& work, int merge)
{
    if (isShut_ || !curve->spline())
        return false;
    curve->mend();
    Before before{curve, {}};
    before.note();
    const QPointer<CurveEdit> guard(this);
    try {
        const HostCalls::Call call(history_.hostCalls);
        const Shut shut(*this);
        work(*curve->spline_);
    } catch (...) {
        if (guard)
            before.takeBack();
        throw;
    }
    if (!guard || isTaken(curve))
        return true;
    curve->mend();
    bound(before);
    constrain(before);
    if (!guard || isTaken(curve))
        return true;
    const EditHistory::Part part = before.change();
    if (part.diff.isEmpty())
        return true;
    if (auto [entry, parts] = joined(merge, before, part); entry)
        history_.amend(entry, std::move(parts));
    else
        history_.push(history_.makeEntry(text, {part}, merge));
    if (guard)
        report({part}, EditReport::Cause::Host, text, merge);
    return true;
}

TimeInterval CurveEdit::beginStep(const EditedCurve& curve)
{
    const Before* const before = find(curve);
    if (!before || !curve.spline())
        return {};
    const CurveDiff last = std::exchange(before->curve->constrained, {});
    return last.revert(*curve.spline_) ? last.touched() : TimeInterval();
}

TimeInterval CurveEdit::constrain(const EditedCurve& curve)
{
    const Before* const before = find(curve);
    return before ? constrain(*before) : TimeInterval();
}

TimeInterval CurveEdit::constrain(const Before& before)
{
    const std::shared_ptr<EditedCurve> curve = before.curve;
    if (!curve->constraint || !curve->spline() || isShut_ || !before.own.empty() ||
        before.state.spline.fingerprint() == fingerprintOf(*curve->spline()))
        return {};
    const CurveState last = curve->state();
    runConstraint(*curve);
    if (isTaken(curve))
        return {};
    curve->mend();
    bound(before);
    curve->constrained = CurveDiff::between(last, curve->state());
    return curve->constrained.touched();
}

/// Whether the host has taken the curve away in what it ran, with what was edited. Those that read it are drawn anew then.
bool CurveEdit::isTaken(const std::shared_ptr<EditedCurve>& curve)
{
    if (curve->spline())
        return false;
    history_.tell({curve, TimeInterval::everything(), EditReport::Phase::Commit, EditReport::Cause::Host});
    return true;
}

/// One that throws has written nothing.
void CurveEdit::runConstraint(EditedCurve& curve)
{
    const SplineState last = curve.spline()->state();
    const auto mend = curve.constraint; // it may give the curve another one
    const HostCalls::Call call(history_.hostCalls);
    const Shut shut(*this);
    try {
        mend(*curve.spline_);
    } catch (...) {
        if (curve.spline())
            curve.spline_->assign(last);
    }
}

/// The entry on top of that number, and what is in it together with `part`; null where they can't be one step.
CurveEdit::Join CurveEdit::joined(int merge, const Before& before, const EditHistory::Part& part) const
{
    EditCommand* const entry = history_.entryToJoin(merge);
    if (!entry || isSharedByOther(entry->parts(), *part.curve))
        return {};
    std::vector<EditHistory::Part> parts = entry->parts();
    const auto same = std::find_if(parts.begin(), parts.end(),
                                   [&](const auto& other) { return other.curve == part.curve; });
    if (same == parts.end()) {
        parts.push_back(part);
        return {entry, parts};
    }
    CurveState first = before.state;
    if (same->isDead || same->after != part.before || !same->diff.revert(first))
        return {};
    same->diff = CurveDiff::between(first, part.curve->state());
    same->after = part.after;
    if (same->diff.isEmpty())
        parts.erase(same);
    return {entry, parts};
}

} // namespace curveeditor
