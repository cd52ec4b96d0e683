// SPDX-License-Identifier: MIT
#include <curveeditor/edit/CurveEdit.h>

#include <algorithm>
#include <functional>
#include <unordered_set>
#include <utility>

namespace curveeditor {

namespace {

std::uint64_t fingerprintOf(const CurveState& state)
{
    return state.spline.fingerprint() ^ std::hash<std::string>()(state.formula);
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
    commit();
    isTrial_ = false;
    text_ = text;
    entry_ = nullptr;
    previewed_ = {};
    checkpoint_.clear();
    before_.resize(targets.size());
    for (std::size_t i = 0; i < targets.size(); ++i) {
        Before& before = before_[i];
        before.curve = std::move(targets[i].curve);
        before.own = std::move(targets[i].own);
        before.curve->mend();
        before.curve->copyTo(before.state); // into the memory of the edit before
    }
    isOpen_ = !before_.empty();
    return ++id_;
}

CurveEdit::Id CurveEdit::tryOut(const QString& text, const std::shared_ptr<EditedCurve>& curve)
{
    begin(text, Curves{curve});
    isTrial_ = isOpen(*curve);
    tried_ = curve->fingerprint();
    return id_;
}

void CurveEdit::keep(Id id)
{
    if (!isOpen(id))
        return;
    isTrial_ = false;
    commit();
}

/// Null if no edit of it is open.
const CurveEdit::Before* CurveEdit::find(const EditedCurve& curve) const
{
    const auto found = std::find_if(before_.begin(), before_.end(),
                                    [&](const Before& before) { return before.curve.get() == &curve; });
    return isOpen_ && found != before_.end() ? &*found : nullptr;
}

bool CurveEdit::isOpen(const EditedCurve& curve) const
{
    return find(curve) != nullptr;
}

SplineBase* CurveEdit::spline(const EditedCurve& curve) const
{
    return isOpen(curve) ? curve.spline_ : nullptr;
}

void CurveEdit::preview(const EditedCurve& curve, const TimeInterval& touched)
{
    if (isTrial_)
        tried_ = curve.fingerprint();
    const Before* const before = find(curve);
    if (before && !touched.isEmpty())
        history_.tell(
            {before->curve, touched, EditReport::Phase::Preview, EditReport::Cause::Edit, before->own});
}

void CurveEdit::checkpoint()
{
    if (!isOpen_)
        return;
    continueAboveForeignEntry();
    const std::vector<EditHistory::Part> parts = changes();
    checkpoint_.clear();
    for (const Before& before : before_)
        checkpoint_.push_back({before.curve, before.own, before.curve->state()});
    const Id id = id_;
    keepEntry(parts);
    if (!isOpen(id) || before_.empty())
        return;
    TimeInterval touched =
        std::exchange(previewed_, parts.empty() ? TimeInterval() : parts.front().diff.touched());
    touched.unite(previewed_);
    preview(*before_.front().curve, touched);
}

CurveEdit::Curves CurveEdit::commit()
{
    if (isTrial_) {
        cancel();
        return {};
    }
    if (!isOpen_)
        return {};
    continueAboveForeignEntry();
    isOpen_ = false;
    const std::vector<EditHistory::Part> parts = changes();
    keepEntry(parts);
    report(parts, EditReport::Phase::Commit, EditReport::Cause::Edit);
    Curves changed;
    for (const EditHistory::Part& part : parts)
        changed.push_back(part.curve);
    return changed;
}

void CurveEdit::cancel()
{
    if (!isOpen_)
        return;
    if (std::exchange(isTrial_, false) && isTriedCurveForeign()) {
        commit();
        return;
    }
    continueAboveForeignEntry();
    isOpen_ = false;
    const std::vector<EditHistory::Part> parts = changes();
    for (const Before& before : before_) {
        if (before.curve->spline())
            before.curve->restore(baseline(before));
    }
    if (entry_ && history_.isOnTop(entry_))
        keepEntry({});
    report(parts, EditReport::Phase::Commit, EditReport::Cause::Cancel);
}

std::vector<EditHistory::Part> CurveEdit::changes() const
{
    std::vector<EditHistory::Part> parts;
    for (const Before& before : before_) {
        const EditedCurve& curve = *before.curve;
        if (!curve.spline())
            continue;
        const auto diffFrom = [&curve](const CurveState& state) {
            return CurveDiff::between(state, *curve.spline(), curve.kind(), curve.formula());
        };
        CurveDiff diff = diffFrom(before.state);
        const bool isOwn = isOwnAlone(before, diff);
        const CurveState rest = isOwn ? CurveState() : withOwnPointsBack(before);
        if (!isOwn)
            diff = diffFrom(rest);
        if (!diff.isEmpty())
            parts.push_back(
                {before.curve, diff, fingerprintOf(isOwn ? before.state : rest), curve.fingerprint()});
    }
    return parts;
}

bool CurveEdit::isOwnAlone(const Before& before, const CurveDiff& diff)
{
    if (before.own.empty())
        return true;
    const std::unordered_set<PointSerial> own(before.own.begin(), before.own.end());
    const std::vector<PointSerial> points = diff.pointsBefore();
    const std::vector<PointSerial> pointsAfter = diff.pointsAfter();
    const std::unordered_set<PointSerial> after(pointsAfter.begin(), pointsAfter.end());
    return diff.concernsPointsOnly() && points.size() == after.size() &&
           std::all_of(points.begin(), points.end(),
                       [&](PointSerial point) { return own.count(point) > 0 && after.count(point) > 0; });
}

CurveState CurveEdit::baseline(const Before& before)
{
    const EditedCurve& curve = *before.curve;
    const CurveDiff diff = CurveDiff::between(before.state, *curve.spline(), curve.kind(), curve.formula());
    return isOwnAlone(before, diff) ? before.state : withOwnPointsBack(before);
}

CurveState CurveEdit::withOwnPointsBack(const Before& before)
{
    using PointInfo = SplineBase::PointInfo;
    const std::unordered_set<PointSerial> own(before.own.begin(), before.own.end());
    CurveState state = before.curve->state();
    std::vector<PointInfo>& points = state.spline.points;
    std::unordered_set<PointSerial> present;
    for (const PointInfo& point : points) {
        if (own.count(point.serial) > 0)
            present.insert(point.serial);
    }
    std::erase_if(points, [&](const PointInfo& point) { return present.count(point.serial) > 0; });
    for (const PointInfo& point : before.state.spline.points) {
        if (present.count(point.serial) > 0)
            points.push_back(point);
    }
    std::stable_sort(points.begin(), points.end(), isEarlierPoint);
    return state;
}

// An entry that lies below another one can't grow any more: what follows it is an edit of its own.
void CurveEdit::continueAboveForeignEntry()
{
    if (!entry_ || history_.isOnTop(entry_))
        return;
    entry_ = nullptr;
    before_ = std::exchange(checkpoint_, {});
}

// The stack runs foreign code, which may end this edit and begin another one.
void CurveEdit::keepEntry(const std::vector<EditHistory::Part>& parts)
{
    EditCommand* const entry = entry_ ? entry_ : parts.empty() ? nullptr : history_.makeEntry(text_, parts);
    const bool isNew = !std::exchange(entry_, parts.empty() ? nullptr : entry);
    if (entry && isNew)
        history_.push(entry);
    else if (entry)
        history_.amend(entry, parts);
}

void CurveEdit::report(const std::vector<EditHistory::Part>& parts, EditReport::Phase phase,
                       EditReport::Cause cause)
{
    const QPointer<CurveEdit> guard(this);
    for (const EditHistory::Part& part : parts) {
        if (guard)
            history_.tell({part.curve, part.diff.touched(), phase, cause, part.diff.pointsAfter()});
    }
}

bool CurveEdit::isTriedCurveForeign() const
{
    const EditedCurve& curve = *before_.front().curve;
    return curve.spline() && curve.fingerprint() != tried_;
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
