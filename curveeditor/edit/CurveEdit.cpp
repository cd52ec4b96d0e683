// SPDX-License-Identifier: MIT
#include <curveeditor/edit/CurveEdit.h>

#include <curveeditor/edit/PointDrag.h>
#include <curveeditor/edit/PointLimits.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace curveeditor {

namespace {

void boundPoints(SplineBase& spline, const std::vector<std::int32_t>& indices, const CurveOptions& options)
{
    std::vector<PointSerial> strays;
    for (const std::int32_t index : indices) {
        SplineBase::PointInfo& point = *spline.modify(index);
        point.pos = PointLimits::bounded(options, point.pos);
        if (!PointLimits::allow(options, point.type))
            strays.push_back(point.serial);
    }
    if (!strays.empty())
        SplineEdits::setType(spline, strays, options.types.front());
}

} // namespace

CurveEdit::CurveEdit(QObject* parent) : QObject(parent)
{
    connect(&history_, &EditHistory::aboutToStep, this, &CurveEdit::interrupt);
}

CurveEdit::Id CurveEdit::begin(const QString& text, const Curves& curves)
{
    std::vector<Target> targets;
    for (const auto& curve : curves)
        targets.push_back({curve});
    return begin(text, std::move(targets));
}

CurveEdit::Id CurveEdit::begin(const QString& text, std::vector<Target> targets)
{
    if (isShut_)
        return 0;
    commit();
    std::erase_if(targets, [](const Target& target) { return target.curve->isLocked(); });
    isTrial_ = false;
    text_ = text;
    entry_ = nullptr;
    previewed_ = {};
    checkpoint_.clear();
    before_.resize(targets.size());
    for (std::size_t i = 0; i < targets.size(); ++i) {
        before_[i].curve = std::move(targets[i].curve);
        before_[i].own =
            before_[i].curve->constraint ? std::vector<PointSerial>() : std::move(targets[i].own);
        before_[i].curve->mend();
        before_[i].curve->constrained = {};
        before_[i].note();
    }
    isOpen_ = !before_.empty();
    return ++id_;
}

CurveEdit::Id CurveEdit::tryOut(const QString& text, const Curves& curves)
{
    begin(text, curves);
    isTrial_ = isOpen();
    noteTrial();
    return id_;
}

void CurveEdit::noteTrial()
{
    if (!isTrial_ || !isOpen())
        return;
    for (Before& before : before_)
        before.tried = before.curve->fingerprint();
}

CurveEdit::Curves CurveEdit::keep(Id id)
{
    if (!isOpen(id))
        return {};
    isTrial_ = false;
    return commit();
}

/// Null if no edit of it is open.
const CurveEdit::Before* CurveEdit::find(const EditedCurve& curve) const
{
    const auto found = std::find_if(before_.begin(), before_.end(),
                                    [&](const Before& before) { return before.curve.get() == &curve; });
    return isOpen() && found != before_.end() ? &*found : nullptr;
}

bool CurveEdit::isOpen(const EditedCurve& curve) const
{
    return find(curve) != nullptr;
}

bool CurveEdit::isAtSplineOf(const EditedCurve& curve) const
{
    return isOpen() && std::any_of(before_.begin(), before_.end(), [&](const Before& before) {
               return before.curve->spline() == curve.spline();
           });
}

SplineBase* CurveEdit::spline(const EditedCurve& curve) const
{
    return isOpen(curve) ? curve.spline_ : nullptr;
}

void CurveEdit::bound(const EditedCurve& curve)
{
    if (const Before* const before = find(curve))
        bound(*before);
}

void CurveEdit::bound(const Before& before)
{
    const EditedCurve& curve = *before.curve;
    if (curve.spline() && PointLimits::bind(curve.options))
        boundPoints(*curve.spline_, indicesOf(before.difference().pointsAfter(), *curve.spline()),
                    curve.options);
}

void CurveEdit::bound(const EditedCurve& curve, const PointDrag& drag)
{
    if (!spline(curve) || !PointLimits::bind(curve.options))
        return;
    boundPoints(*curve.spline_, drag.indices(*curve.spline()), curve.options);
}

/// What holds for the curves, to be kept by what the edit has written.
void CurveEdit::holdAll()
{
    for (const Before& before : before_) {
        bound(before);
        constrain(before);
    }
}

void CurveEdit::preview(const EditedCurve& curve, const TimeInterval& touched)
{
    const Before* const before = find(curve);
    if (before && !touched.isEmpty())
        history_.tell(
            {before->curve, touched, EditReport::Phase::Preview, EditReport::Cause::Edit, before->own});
}

void CurveEdit::checkpoint()
{
    if (!isOpen())
        return;
    holdAll();
    const std::vector<EditHistory::Part> left = continueAboveForeignEntry();
    const std::vector<EditHistory::Part> parts = checkpointParts_ = changes();
    checkpoint_.clear();
    for (const Before& before : before_) {
        checkpoint_.push_back({before.curve, before.own});
        checkpoint_.back().note();
    }
    const Id id = id_;
    const QString text = text_;
    const QPointer<CurveEdit> guard(this);
    keepEntry(parts);
    report(left, EditReport::Cause::Edit, text);
    if (!guard || !isOpen(id) || before_.empty())
        return;
    TimeInterval touched =
        std::exchange(previewed_, parts.empty() ? TimeInterval() : parts.front().diff.touched());
    touched.unite(previewed_);
    preview(*before_.front().curve, touched);
}

CurveEdit::Curves CurveEdit::commit()
{
    if (!isOpen())
        return {};
    if (isTrial_) {
        cancel();
        return {};
    }
    holdAll();
    return close();
}

CurveEdit::Curves CurveEdit::close()
{
    std::vector<EditHistory::Part> told = continueAboveForeignEntry();
    isOpen_ = false;
    const std::vector<EditHistory::Part> parts = changes();
    told.insert(told.end(), parts.begin(), parts.end());
    const QString text = text_;
    keepEntry(parts);
    report(told, EditReport::Cause::Edit, text);
    Curves changed;
    for (const EditHistory::Part& part : parts)
        changed.push_back(part.curve);
    return changed;
}

void CurveEdit::cancel()
{
    if (!isOpen())
        return;
    std::vector<EditHistory::Part> left = continueAboveForeignEntry();
    isOpen_ = false;
    std::vector<Before> foreign = takeForeignTrials();
    const std::vector<EditHistory::Part> parts = changes();
    for (const Before& before : before_) {
        if (before.curve->spline())
            before.takeBack();
    }
    const QString text = text_;
    if (!foreign.empty()) {
        before_ = std::move(foreign);
        left = changes();
        keepEntry(left);
    } else if (history_.isOnTop(entry_)) {
        keepEntry({});
    }
    const QPointer<CurveEdit> guard(this);
    report(left, EditReport::Cause::Edit, text);
    if (guard)
        report(parts, EditReport::Cause::Cancel, {});
}

std::vector<EditHistory::Part> CurveEdit::changes() const
{
    std::vector<EditHistory::Part> parts;
    for (const Before& before : before_) {
        if (!before.curve->spline())
            continue;
        const EditHistory::Part part = before.change();
        if (!part.diff.isEmpty())
            parts.push_back(part);
    }
    return parts;
}

/// Into the memory that an edit before has left.
void CurveEdit::Before::note()
{
    if (own.empty() || !curve->spline())
        curve->copyTo(state);
    else
        points.note(*curve->spline(), own);
}

/// What the edit has done; what the host has changed beside its own points meanwhile is not in it.
CurveDiff CurveEdit::Before::difference() const
{
    const SplineBase& spline = *curve->spline();
    return own.empty() ? CurveDiff::between(state, spline, curve->kind(), curve->formula())
                       : CurveDiff::between(points.backIn(spline), spline, curve->kind());
}

/// Nothing is in it but the difference where that is empty.
EditHistory::Part CurveEdit::Before::change() const
{
    const CurveDiff diff = difference();
    if (diff.isEmpty())
        return {curve, diff};
    const std::uint64_t after = curve->fingerprint();
    const std::uint64_t start = own.empty()
                                    ? state.spline.fingerprint() + std::hash<std::string>()(state.formula)
                                    : after - diff.pointsShift();
    return {curve, diff, start, after};
}

void CurveEdit::Before::takeBack() const
{
    if (own.empty()) {
        curve->restore(state);
        return;
    }
    curve->mend(); // the host may have written others
    curve->step(difference().inverse(), true);
}

/// An entry that lies below another one can't grow any more: what follows it is an edit of its own. Gives what is in
/// it then, which nobody has been told as done.
std::vector<EditHistory::Part> CurveEdit::continueAboveForeignEntry()
{
    if (!entry_ || history_.isOnTop(entry_))
        return {};
    entry_ = nullptr;
    before_ = std::exchange(checkpoint_, {});
    return std::exchange(checkpointParts_, {});
}

// The stack runs foreign code, which may end this edit and begin another one.
void CurveEdit::keepEntry(const std::vector<EditHistory::Part>& parts)
{
    const bool isNeeded = !parts.empty() && history_.keepsEntries();
    EditCommand* const entry = entry_ ? entry_ : isNeeded ? history_.makeEntry(text_, parts) : nullptr;
    const bool isNew = !std::exchange(entry_, isNeeded ? entry : nullptr);
    if (entry && isNew)
        history_.push(entry);
    else if (entry)
        history_.amend(entry, parts);
}

void CurveEdit::report(const std::vector<EditHistory::Part>& parts, EditReport::Cause cause,
                       const QString& text, int merge)
{
    const QPointer<CurveEdit> guard(this);
    for (const EditHistory::Part& part : parts) {
        const CurveDiff told = cause == EditReport::Cause::Cancel ? CurveDiff() : part.diff;
        if (guard)
            history_.tell({part.curve, part.diff.touched(), EditReport::Phase::Commit, cause,
                           part.diff.pointsAfter(), std::make_shared<const CurveDiff>(told), text, merge});
    }
}

/// Of what is tried out, the curves that the host has changed. They are left out of the edit.
std::vector<CurveEdit::Before> CurveEdit::takeForeignTrials()
{
    std::vector<Before> foreign;
    if (!std::exchange(isTrial_, false))
        return foreign;
    const auto first = std::stable_partition(before_.begin(), before_.end(), [](const Before& before) {
        return !before.curve->spline() || before.curve->fingerprint() == before.tried;
    });
    std::move(first, before_.end(), std::back_inserter(foreign));
    before_.erase(first, before_.end());
    return foreign;
}

void CurveEdit::interrupt()
{
    if (entry_)
        commit();
    else
        cancel();
}

} // namespace curveeditor

#include "moc_CurveEdit.cpp"
