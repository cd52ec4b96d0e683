// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveDiff.h>

#include <curveeditor/model/CurveDiffContent.h>
#include <curveeditor/model/PointTypes.h>

#include <algorithm>
#include <sstream>
#include <utility>

using namespace curveeditor;

/// The points and behaviours of a spline or of a state, under the same names.
class curveeditor::DiffPoints
{
public:
    explicit DiffPoints(const SplineBase& spline)
        : firstType(spline.firstType), lastType(spline.lastType), defaultValue(spline.getDefaultValue()),
          pointers_(spline.getControlPoints().data()), size_(spline.getControlPoints().size())
    {
    }
    DiffPoints(const std::vector<const SplineBase::PointInfo*>& points, const SplineBase& spline)
        : firstType(spline.firstType), lastType(spline.lastType), defaultValue(spline.getDefaultValue()),
          pointers_(points.data()), size_(points.size())
    {
    }
    explicit DiffPoints(const SplineState& state)
        : firstType(state.firstType), lastType(state.lastType), defaultValue(state.defaultValue),
          state_(&state), size_(state.points.size())
    {
    }

    std::size_t size() const { return size_; }
    const SplineBase::PointInfo& operator[](std::size_t index) const
    {
        return state_ ? state_->points[index] : *pointers_[index];
    }

    /// The behaviours that need a span act only where there is one.
    bool hasSpan() const { return size_ > 0 && (*this)[0].time < (*this)[size_ - 1].time; }

    const std::int32_t firstType;
    const std::int32_t lastType;
    const double defaultValue;

private:
    const SplineBase::PointInfo* const* pointers_ = nullptr;
    const SplineState* state_ = nullptr;
    std::size_t size_;
};

namespace {

using PointInfo = SplineBase::PointInfo;

template <typename Entries> std::vector<std::uint32_t> serialsOf(const Entries& entries)
{
    std::vector<std::uint32_t> serials;
    serials.reserve(entries.size());
    for (const auto& entry : entries)
        serials.push_back(entry.info.serial);
    return serials;
}

TimeInterval influence(const DiffPoints& points, std::size_t index)
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

bool isSame(const PointInfo& left, const PointInfo& right)
{
    return &left == &right || isSamePoint(left, right);
}

} // namespace

void TimeInterval::unite(const TimeInterval& other)
{
    if (other.isEmpty())
        return;
    first = std::min(first, other.first);
    last = std::max(last, other.last);
}

TimeInterval influenceOf(const SplineBase& spline, std::size_t index)
{
    return influence(DiffPoints(spline), index);
}

CurveDiff::CurveDiff()
{
    static const auto nothing = std::make_shared<const Private>();
    d_ = nothing;
}

CurveDiff::CurveDiff(std::shared_ptr<const Private> differences) : d_(std::move(differences)) {}

CurveDiff CurveDiff::between(const CurveState& before, const CurveState& after)
{
    const auto diff = std::make_shared<Private>(DiffPoints(before.spline), DiffPoints(after.spline));
    diff->noteContent({before.kind, after.kind}, before.formula, after.formula);
    return CurveDiff(diff);
}

CurveDiff CurveDiff::between(const CurveState& before, const SplineBase& spline, CurveKind kind,
                             const std::string& formula)
{
    const auto diff = std::make_shared<Private>(DiffPoints(before.spline), DiffPoints(spline));
    diff->noteContent({before.kind, kind}, before.formula, formula);
    return CurveDiff(diff);
}

CurveDiff CurveDiff::between(const std::vector<const PointInfo*>& pointsBefore, const SplineBase& spline,
                             CurveKind kind)
{
    const auto diff = std::make_shared<Private>(DiffPoints(pointsBefore, spline), DiffPoints(spline));
    diff->noteContent({kind, kind}, {}, {});
    return CurveDiff(diff);
}

bool CurveDiff::isEmpty() const
{
    return d_->isEmpty();
}

CurveKind CurveDiff::kindBefore() const
{
    return d_->kind.before;
}

CurveKind CurveDiff::kindAfter() const
{
    return d_->kind.after;
}

bool CurveDiff::apply(CurveState& state) const
{
    return isEmpty() || d_->apply(state);
}

bool CurveDiff::revert(CurveState& state) const
{
    return isEmpty() || d_->inverse().apply(state);
}

bool CurveDiff::apply(SplineBase& spline) const
{
    return isEmpty() || d_->apply(spline);
}

bool CurveDiff::revert(SplineBase& spline) const
{
    return isEmpty() || d_->inverse().apply(spline);
}

CurveDiff CurveDiff::inverse() const
{
    return CurveDiff(std::make_shared<const Private>(d_->inverse()));
}

std::uint64_t CurveDiff::pointsShift() const
{
    std::uint64_t shift = 0;
    for (const PlacedPoint& point : d_->inserted)
        shift += fingerprintOf(point.info);
    for (const PlacedPoint& point : d_->removed)
        shift -= fingerprintOf(point.info);
    return shift;
}

const std::string& CurveDiff::formulaBefore() const
{
    return d_->formula.before;
}

const std::string& CurveDiff::formulaAfter() const
{
    return d_->formula.after;
}

const TimeInterval& CurveDiff::touched() const
{
    return d_->touched;
}

std::vector<std::uint32_t> CurveDiff::pointsBefore() const
{
    return serialsOf(d_->removed);
}

std::vector<std::uint32_t> CurveDiff::pointsAfter() const
{
    return serialsOf(d_->inserted);
}

std::string CurveDiff::toString() const
{
    std::ostringstream text;
    const auto writePoints = [&text](char sign, const std::vector<PlacedPoint>& entries) {
        for (const PlacedPoint& entry : entries)
            text << sign << ' ' << entry.index << ": " << entry.info.time << ' ' << entry.info.pos << ' '
                 << PointTypes::of(entry.info.type).word << '\n';
    };
    const auto writeChange = [&text](const char* name, const auto& change) {
        if (!change.isNone())
            text << name << ' ' << change.before << " -> " << change.after << '\n';
    };
    writePoints('-', d_->removed);
    writePoints('+', d_->inserted);
    writeChange("first", d_->firstType);
    writeChange("last", d_->lastType);
    writeChange("default", d_->defaultValue);
    writeChange("kind", Change<int>{int(d_->kind.before), int(d_->kind.after)});
    writeChange("formula",
                Change<std::string>{'"' + d_->formula.before + '"', '"' + d_->formula.after + '"'});
    return text.str();
}

CurveDiff::Private::Private(const DiffPoints& before, const DiffPoints& after)
    : firstType{before.firstType, after.firstType}, lastType{before.lastType, after.lastType},
      defaultValue{before.defaultValue, after.defaultValue}
{
    notePoints(before, after);
    noteTouched(before, after);
}

// An unchanged formula is not kept, it may be long.
void CurveDiff::Private::noteContent(Change<CurveKind> kinds, const std::string& before,
                                     const std::string& after)
{
    kind = kinds;
    if (before != after)
        formula = {before, after};
    if (!formula.isNone() || !kind.isNone())
        touched = TimeInterval::everything();
}

// Both lists ascend in time: of two points that are not the same one, the earlier is missing on the other side.
void CurveDiff::Private::notePoints(const DiffPoints& before, const DiffPoints& after)
{
    std::size_t beforeEnd = before.size();
    std::size_t afterEnd = after.size();
    std::size_t start = 0;
    while (start < std::min(beforeEnd, afterEnd) && isSame(before[start], after[start]))
        ++start;
    while (std::min(beforeEnd, afterEnd) > start && isSame(before[beforeEnd - 1], after[afterEnd - 1])) {
        --beforeEnd;
        --afterEnd;
    }
    std::size_t i = start;
    std::size_t j = start;
    while (i < beforeEnd || j < afterEnd) {
        const bool both = i < beforeEnd && j < afterEnd;
        if (both && isSame(before[i], after[j])) {
            ++i;
            ++j;
            continue;
        }
        const bool isOne = both && (before[i].serial == after[j].serial || before[i].time == after[j].time);
        const bool isGone = isOne || j == afterEnd || (both && before[i].time < after[j].time);
        const bool isNew = isOne || !isGone;
        if (isGone) {
            removed.push_back({i, before[i]});
            ++i;
        }
        if (isNew) {
            inserted.push_back({j, after[j]});
            ++j;
        }
    }
}

void CurveDiff::Private::noteTouched(const DiffPoints& before, const DiffPoints& after)
{
    for (const PlacedPoint& entry : removed)
        touched.unite(influence(before, entry.index));
    for (const PlacedPoint& entry : inserted)
        touched.unite(influence(after, entry.index));
    const TimeInterval everything = TimeInterval::everything();
    const bool goesOnChanges = before.lastType != after.lastType || before.hasSpan() != after.hasSpan();
    for (const DiffPoints* points : {&before, &after}) {
        if (points->size() == 0)
            continue;
        if (before.firstType != after.firstType)
            touched.unite({everything.first, (*points)[0].time});
        if (goesOnChanges)
            touched.unite({(*points)[points->size() - 1].time, everything.last});
    }
}

bool CurveDiff::Private::isEmpty() const
{
    return removed.empty() && inserted.empty() && concernsPointsOnly();
}

bool CurveDiff::Private::concernsPointsOnly() const
{
    return firstType.isNone() && lastType.isNone() && kind.isNone() && formula.isNone() &&
           defaultValue.isNone();
}

bool CurveDiff::Private::apply(CurveState& state) const
{
    const bool changesFormula = !formula.isNone();
    SplineState& spline = state.spline;
    if (state.kind != kind.before || (changesFormula && state.formula != formula.before) ||
        spline.firstType != firstType.before || spline.lastType != lastType.before ||
        !hasSameBits(spline.defaultValue, defaultValue.before) || !isReplaceable(DiffPoints(spline)))
        return false;
    spline.points =
        replaced(spline.points, removed, inserted, [](const PlacedPoint& point) { return point.info; });
    spline.firstType = firstType.after;
    spline.lastType = lastType.after;
    spline.defaultValue = defaultValue.after;
    state.kind = kind.after;
    if (changesFormula)
        state.formula = formula.after;
    return true;
}

CurveDiff::Private CurveDiff::Private::inverse() const
{
    Private diff = *this;
    std::swap(diff.removed, diff.inserted);
    std::swap(diff.firstType.before, diff.firstType.after);
    std::swap(diff.lastType.before, diff.lastType.after);
    std::swap(diff.defaultValue.before, diff.defaultValue.after);
    std::swap(diff.kind.before, diff.kind.after);
    std::swap(diff.formula.before, diff.formula.after);
    return diff;
}

/// Whether the points are as they were left.
bool CurveDiff::Private::isReplaceable(const DiffPoints& points) const
{
    const auto isThere = [&points](const PlacedPoint& point) {
        return point.index < points.size() && isSamePoint(points[point.index], point.info);
    };
    return std::all_of(removed.begin(), removed.end(), isThere) &&
           (inserted.empty() || inserted.back().index < points.size() - removed.size() + inserted.size());
}

bool CurveDiff::Private::apply(SplineBase& spline) const
{
    const DiffPoints points(spline);
    if (points.firstType != firstType.before || points.lastType != lastType.before ||
        !hasSameBits(points.defaultValue, defaultValue.before) || !isReplaceable(points) ||
        !spline.replace(removed, inserted))
        return false;
    spline.firstType = firstType.after;
    spline.lastType = lastType.after;
    spline.setDefaultValue(defaultValue.after);
    return true;
}
