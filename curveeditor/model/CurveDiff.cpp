// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveDiff.h>

#include <curveeditor/model/PointTypes.h>

#include <algorithm>
#include <bit>
#include <sstream>
#include <utility>

using namespace curveeditor;

namespace {

using PointInfo = SplineBase::PointInfo;

bool hasSameBits(double left, double right)
{
    return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

template <typename Entries> std::vector<std::uint32_t> serialsOf(const Entries& entries)
{
    std::vector<std::uint32_t> serials;
    serials.reserve(entries.size());
    for (const auto& entry : entries)
        serials.push_back(entry.info.serial);
    return serials;
}

/// The points and behaviours of a spline or of a state, under the same names.
class Points
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

TimeInterval influence(const Points& points, std::size_t index)
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

struct Entry
{
    std::size_t index = 0;
    PointInfo info;
};

template <typename Value> struct Change
{
    Value before{};
    Value after{};

    bool isNone() const { return before == after; }
};

template <> bool Change<double>::isNone() const
{
    return hasSameBits(before, after);
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
    return influence(Points(spline), index);
}

struct CurveDiff::Private
{
    Private() = default;
    Private(const Points& before, const Points& after);

    void notePoints(const Points& before, const Points& after);
    void noteTouched(const Points& before, const Points& after);
    void noteContent(Change<CurveKind> kinds, const std::string& before, const std::string& after);

    bool isEmpty() const;
    bool concernsPointsOnly() const;
    Private inverse() const;
    bool apply(CurveState& state) const;
    bool replacePoints(std::vector<PointInfo>& points) const;

    std::vector<Entry> removed;  ///< ascending indices in the points before
    std::vector<Entry> inserted; ///< ascending indices in the points after
    Change<std::int32_t> firstType, lastType;
    Change<double> defaultValue;
    Change<CurveKind> kind;
    Change<std::string> formula;
    TimeInterval touched;
};

CurveDiff::CurveDiff()
{
    static const auto nothing = std::make_shared<const Private>();
    d_ = nothing;
}

CurveDiff::CurveDiff(std::shared_ptr<const Private> differences) : d_(std::move(differences)) {}

CurveDiff CurveDiff::between(const CurveState& before, const CurveState& after)
{
    const auto diff = std::make_shared<Private>(Points(before.spline), Points(after.spline));
    diff->noteContent({before.kind, after.kind}, before.formula, after.formula);
    return CurveDiff(diff);
}

CurveDiff CurveDiff::between(const CurveState& before, const SplineBase& spline, CurveKind kind,
                             const std::string& formula)
{
    const auto diff = std::make_shared<Private>(Points(before.spline), Points(spline));
    diff->noteContent({before.kind, kind}, before.formula, formula);
    return CurveDiff(diff);
}

bool CurveDiff::isEmpty() const
{
    return d_->isEmpty();
}

bool CurveDiff::concernsPointsOnly() const
{
    return d_->concernsPointsOnly();
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
    return d_->apply(state);
}

bool CurveDiff::revert(CurveState& state) const
{
    return d_->inverse().apply(state);
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
    const auto writePoints = [&text](char sign, const std::vector<Entry>& entries) {
        for (const Entry& entry : entries)
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

CurveDiff::Private::Private(const Points& before, const Points& after)
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
void CurveDiff::Private::notePoints(const Points& before, const Points& after)
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
            removed.push_back({i, before[i]});
            ++i;
        }
        if (isNew) {
            inserted.push_back({j, after[j]});
            ++j;
        }
    }
}

void CurveDiff::Private::noteTouched(const Points& before, const Points& after)
{
    for (const Entry& entry : removed)
        touched.unite(influence(before, entry.index));
    for (const Entry& entry : inserted)
        touched.unite(influence(after, entry.index));
    const TimeInterval everything = TimeInterval::everything();
    const bool goesOnChanges = before.lastType != after.lastType || before.hasSpan() != after.hasSpan();
    for (const Points* points : {&before, &after}) {
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
        !hasSameBits(spline.defaultValue, defaultValue.before) || !replacePoints(spline.points))
        return false;
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

bool CurveDiff::Private::replacePoints(std::vector<PointInfo>& points) const
{
    const auto isThere = [&points](const Entry& entry) {
        return entry.index < points.size() && isSamePoint(points[entry.index], entry.info);
    };
    if (!std::all_of(removed.begin(), removed.end(), isThere))
        return false;
    std::vector<PointInfo> result;
    result.reserve(points.size() + inserted.size());
    auto gone = removed.begin();
    auto added = inserted.begin();
    for (std::size_t i = 0; i <= points.size(); ++i) {
        for (; added != inserted.end() && added->index == result.size(); ++added)
            result.push_back(added->info);
        if (gone != removed.end() && gone->index == i)
            ++gone;
        else if (i < points.size())
            result.push_back(points[i]);
    }
    for (; added != inserted.end() && added->index == result.size(); ++added)
        result.push_back(added->info);
    if (added != inserted.end())
        return false;
    points.swap(result);
    return true;
}
