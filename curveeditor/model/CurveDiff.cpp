// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveDiff.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>

namespace {

using PointInfo = SplineBase::PointInfo;

/// As whole states are compared: -0.0 is another number than 0.0, and not-a-number the same as itself.
bool hasSameBits(double left, double right)
{
    return (left == right && std::signbit(left) == std::signbit(right)) ||
           (std::isnan(left) && std::isnan(right));
}

const char* typeName(std::int32_t type)
{
    switch (type) {
    case SplineBase::Bezier:
        return "Bezier";
    case SplineBase::Tcb:
        return "Tcb";
    default:
        return "Linear";
    }
}

template <typename Entries> std::vector<std::uint32_t> serialsOf(const Entries& entries)
{
    std::vector<std::uint32_t> serials;
    serials.reserve(entries.size());
    for (const auto& entry : entries)
        serials.push_back(entry.info.serial);
    return serials;
}

} // namespace

/// The points and behaviours of a spline or of a state, under the same names.
class CurveDiff::Points
{
public:
    explicit Points(const SplineBase& spline)
        : firstType(spline.firstType), lastType(spline.lastType), defaultValue(spline.getDefaultValue()),
          pointers_(spline.getControlPoints().data()), size_(spline.getControlPoints().size())
    {
    }
    explicit Points(const SplineState& state)
        : firstType(state.firstType), lastType(state.lastType), defaultValue(state.defaultValue),
          state_(&state), size_(state.points.size())
    {
    }

    std::size_t size() const { return size_; }
    const PointInfo& operator[](std::size_t index) const
    {
        return state_ ? state_->points[index] : *pointers_[index];
    }

    /// The behaviours that need a span act only where there is one.
    bool hasSpan() const { return size_ > 0 && (*this)[0].time < (*this)[size_ - 1].time; }

    const std::int32_t firstType;
    const std::int32_t lastType;
    const double defaultValue;

private:
    const PointInfo* const* pointers_ = nullptr;
    const SplineState* state_ = nullptr;
    std::size_t size_;
};

void TimeInterval::unite(const TimeInterval& other)
{
    if (other.isEmpty())
        return;
    first = std::min(first, other.first);
    last = std::max(last, other.last);
}

TimeInterval influenceOf(const SplineBase& spline, std::size_t index)
{
    return CurveDiff::influence(CurveDiff::Points(spline), index);
}

TimeInterval CurveDiff::influence(const Points& points, std::size_t index)
{
    if (index >= points.size())
        return {};
    const auto endsTcbSegment = [&points](std::size_t end) {
        return points[end].type == SplineBase::Tcb;
    };
    const std::size_t last = points.size() - 1;
    const bool reachesLeft = index >= 2 && endsTcbSegment(index - 1);
    const bool reachesRight = index + 2 <= last && endsTcbSegment(index + 2);
    const std::size_t left = index - std::min<std::size_t>(index, reachesLeft ? 2 : 1);
    const std::size_t right = std::min<std::size_t>(last, index + (reachesRight ? 2 : 1));

    TimeInterval interval{points[left].time, points[right].time};
    if (index == 0)
        interval.first = TimeInterval::everything().first;
    const bool repeats = points.lastType == SplineBase::Loop || points.lastType == SplineBase::LoopOffset;
    const bool leavesAlongLast = points.lastType == SplineBase::FollowTangent && right == last;
    if (index == last || repeats || leavesAlongLast)
        interval.last = TimeInterval::everything().last;
    return interval;
}

CurveDiff CurveDiff::between(const CurveState& before, const CurveState& after)
{
    CurveDiff diff = compare(Points(before.spline), Points(after.spline));
    diff.kind_ = {before.kind, after.kind};
    diff.noteFormula(before.formula, after.formula);
    return diff;
}

CurveDiff CurveDiff::between(const CurveState& before, const SplineBase& spline, CurveKind kind,
                             const std::string& formula)
{
    CurveDiff diff = compare(Points(before.spline), Points(spline));
    diff.kind_ = {before.kind, kind};
    diff.noteFormula(before.formula, formula);
    return diff;
}

CurveDiff CurveDiff::compare(const Points& before, const Points& after)
{
    CurveDiff diff;
    diff.firstType_ = {before.firstType, after.firstType};
    diff.lastType_ = {before.lastType, after.lastType};
    diff.defaultValue_ = {before.defaultValue, after.defaultValue};
    diff.comparePoints(before, after);
    diff.noteTouched(before, after);
    return diff;
}

// An unchanged formula is not kept, it may be long.
void CurveDiff::noteFormula(const std::string& before, const std::string& after)
{
    if (before != after)
        formula_ = {before, after};
    if (before != after || kind_.before != kind_.after)
        touched_ = TimeInterval::everything();
}

// Both lists ascend in time: of two points that are not the same one, the earlier is missing on the other side.
void CurveDiff::comparePoints(const Points& before, const Points& after)
{
    std::size_t beforeEnd = before.size();
    std::size_t afterEnd = after.size();
    std::size_t start = 0;
    while (start < std::min(beforeEnd, afterEnd) && isSamePoint(before[start], after[start]))
        ++start;
    while (std::min(beforeEnd, afterEnd) > start && isSamePoint(before[beforeEnd - 1], after[afterEnd - 1])) {
        --beforeEnd;
        --afterEnd;
    }
    std::size_t i = start;
    std::size_t j = start;
    while (i < beforeEnd || j < afterEnd) {
        const bool both = i < beforeEnd && j < afterEnd;
        if (both && isSamePoint(before[i], after[j])) {
            ++i;
            ++j;
            continue;
        }
        const bool isOne = both && (before[i].serial == after[j].serial || before[i].time == after[j].time);
        const bool isGone = isOne || j == afterEnd || (both && before[i].time < after[j].time);
        const bool isNew = isOne || !isGone;
        if (isGone) {
            removed_.push_back({i, before[i]});
            ++i;
        }
        if (isNew) {
            inserted_.push_back({j, after[j]});
            ++j;
        }
    }
}

void CurveDiff::noteTouched(const Points& before, const Points& after)
{
    for (const Entry& entry : removed_)
        touched_.unite(influence(before, entry.index));
    for (const Entry& entry : inserted_)
        touched_.unite(influence(after, entry.index));
    const TimeInterval everything = TimeInterval::everything();
    const bool goesOnChanges = before.lastType != after.lastType || before.hasSpan() != after.hasSpan();
    for (const Points* points : {&before, &after}) {
        if (points->size() == 0)
            continue;
        if (before.firstType != after.firstType)
            touched_.unite({everything.first, (*points)[0].time});
        if (goesOnChanges)
            touched_.unite({(*points)[points->size() - 1].time, everything.last});
    }
}

bool CurveDiff::isEmpty() const
{
    return removed_.empty() && inserted_.empty() && concernsPointsOnly();
}

bool CurveDiff::concernsPointsOnly() const
{
    return firstType_.before == firstType_.after && lastType_.before == lastType_.after &&
           kind_.before == kind_.after && hasSameBits(defaultValue_.before, defaultValue_.after) &&
           formula_.before == formula_.after;
}

bool CurveDiff::apply(CurveState& state) const
{
    const bool changesFormula = formula_.before != formula_.after;
    SplineState& spline = state.spline;
    if (state.kind != kind_.before || (changesFormula && state.formula != formula_.before) ||
        spline.firstType != firstType_.before || spline.lastType != lastType_.before ||
        !hasSameBits(spline.defaultValue, defaultValue_.before) || !replacePoints(spline.points))
        return false;
    spline.firstType = firstType_.after;
    spline.lastType = lastType_.after;
    spline.defaultValue = defaultValue_.after;
    state.kind = kind_.after;
    if (changesFormula)
        state.formula = formula_.after;
    return true;
}

bool CurveDiff::revert(CurveState& state) const
{
    return inverse().apply(state);
}

CurveDiff CurveDiff::inverse() const
{
    CurveDiff diff = *this;
    std::swap(diff.removed_, diff.inserted_);
    std::swap(diff.firstType_.before, diff.firstType_.after);
    std::swap(diff.lastType_.before, diff.lastType_.after);
    std::swap(diff.defaultValue_.before, diff.defaultValue_.after);
    std::swap(diff.kind_.before, diff.kind_.after);
    std::swap(diff.formula_.before, diff.formula_.after);
    return diff;
}

bool CurveDiff::replacePoints(std::vector<SplineBase::PointInfo>& points) const
{
    const auto isThere = [&points](const Entry& entry) {
        return entry.index < points.size() && isSamePoint(points[entry.index], entry.info);
    };
    if (!std::all_of(removed_.begin(), removed_.end(), isThere))
        return false;
    std::vector<SplineBase::PointInfo> result;
    result.reserve(points.size() + inserted_.size());
    auto removed = removed_.begin();
    auto inserted = inserted_.begin();
    for (std::size_t i = 0; i <= points.size(); ++i) {
        for (; inserted != inserted_.end() && inserted->index == result.size(); ++inserted)
            result.push_back(inserted->info);
        if (removed != removed_.end() && removed->index == i)
            ++removed;
        else if (i < points.size())
            result.push_back(points[i]);
    }
    for (; inserted != inserted_.end() && inserted->index == result.size(); ++inserted)
        result.push_back(inserted->info);
    if (inserted != inserted_.end())
        return false;
    points.swap(result);
    return true;
}

std::vector<std::uint32_t> CurveDiff::pointsBefore() const
{
    return serialsOf(removed_);
}

std::vector<std::uint32_t> CurveDiff::pointsAfter() const
{
    return serialsOf(inserted_);
}

std::string CurveDiff::toString() const
{
    std::ostringstream text;
    const auto writePoints = [&text](char sign, const std::vector<Entry>& entries) {
        for (const Entry& entry : entries)
            text << sign << ' ' << entry.index << ": " << entry.info.time << ' ' << entry.info.pos << ' '
                 << typeName(entry.info.type) << '\n';
    };
    const auto writeChange = [&text](const char* name, const auto& before, const auto& after) {
        if (before != after)
            text << name << ' ' << before << " -> " << after << '\n';
    };
    writePoints('-', removed_);
    writePoints('+', inserted_);
    writeChange("first", firstType_.before, firstType_.after);
    writeChange("last", lastType_.before, lastType_.after);
    writeChange("default", defaultValue_.before, defaultValue_.after);
    writeChange("kind", int(kind_.before), int(kind_.after));
    writeChange("formula", '"' + formula_.before + '"', '"' + formula_.after + '"');
    return text.str();
}
