// SPDX-License-Identifier: MIT
#include <curveeditor/edit/SegmentEase.h>

#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/model/KeptSlopes.h>
#include <curveeditor/model/SplineState.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace curveeditor {

namespace {

using PointInfo = SplineBase::PointInfo;

bool canBeEased(const PointInfo& from, const PointInfo& to)
{
    return to.time > from.time && std::isfinite((to.pos - from.pos) / (to.time - from.time));
}

/// For each point of the spline whether the segment that ends there is to be eased.
std::vector<bool> easedEnds(const SplineBase& spline, const std::vector<PointSerial>& points)
{
    const auto& all = spline.getControlPoints();
    std::vector<bool> isGiven(all.size());
    for (const std::int32_t index : indicesOf(points, spline)) {
        if (index >= 0)
            isGiven[std::size_t(index)] = true;
    }
    const bool isSingle = std::count(isGiven.begin(), isGiven.end(), true) == 1;
    std::vector<bool> eased(all.size());
    for (std::size_t end = 1; end < all.size(); ++end) {
        const bool isBetween = isSingle ? isGiven[end - 1] || isGiven[end] : isGiven[end - 1] && isGiven[end];
        eased[end] = isBetween && canBeEased(*all[end - 1], *all[end]);
    }
    return eased;
}

/// Eases segments of a copy of the spline, one by one.
class SegmentEasing
{
public:
    SegmentEasing(const SplineBase& spline, const Ease& ease, const CurveOptions& options)
        : spline_(spline), ease_(ease), options_(options), state_(spline.state()),
          isFilled_(state_.points.size() + 1)
    {
    }
    void ease(std::size_t end);
    void keepShape(std::size_t end);
    SplineState result() const;
    const SegmentEase::Outcome& outcome() const { return outcome_; }

private:
    bool addPoints(const PointInfo& from, const PointInfo& to);

    const SplineBase& spline_;
    const Ease& ease_;
    const CurveOptions& options_;
    SplineState state_;
    std::vector<PointInfo> added_;
    std::vector<bool>
        isFilled_; ///< for each end whether points were added before it; one more for the last neighbour
    SegmentEase::Outcome outcome_;
};

double boundedSlope(double easeSlope, double slope)
{
    constexpr double greatest = std::numeric_limits<double>::max();
    return std::clamp(easeSlope * slope, -greatest, greatest) + 0.0; // not -0.0, which would show
}

void SegmentEasing::ease(std::size_t end)
{
    PointInfo& from = state_.points[end - 1];
    PointInfo& to = state_.points[end];
    from.pos = PointLimits::bounded(options_, from.pos);
    to.pos = PointLimits::bounded(options_, to.pos);
    const double slope = (to.pos - from.pos) / (to.time - from.time);
    from.tanRight = boundedSlope(ease_.points().front().tanRight, slope);
    to.tanLeft = boundedSlope(ease_.points().back().tanLeft, slope);
    to.type = SplineBase::Bezier;
    ++outcome_.segments;
    if (from.pos == to.pos)
        return;
    ++outcome_.steps;
    isFilled_[end] = addPoints(from, to);
}

/// Returns whether there were any to be added.
bool SegmentEasing::addPoints(const PointInfo& from, const PointInfo& to)
{
    const double length = to.time - from.time, step = to.pos - from.pos;
    double greatestShift = 0.0;
    double last = from.time;
    for (std::size_t i = 1; i + 1 < ease_.points().size(); ++i) {
        PointInfo point = ease_.points()[i];
        point.serial = 0;
        point.time = from.time + point.time * length;
        if (point.time <= last || point.time >= to.time)
            continue; // in so short a segment there is no room for it
        last = point.time;
        const double value = from.pos + point.pos * step;
        point.pos = PointLimits::bounded(options_, value);
        point.tanLeft = boundedSlope(point.tanLeft, step / length);
        point.tanRight = boundedSlope(point.tanRight, step / length);
        greatestShift = std::max(greatestShift, std::abs(point.pos - value));
        added_.push_back(point);
    }
    outcome_.deviation = std::max(outcome_.deviation, ease_.deviation() + greatestShift / std::abs(step));
    return last > from.time;
}

/// The slopes of a `Tcb` segment follow from the neighbours of its ends, which may be others now.
void SegmentEasing::keepShape(std::size_t end)
{
    const PointInfo& from = state_.points[end - 1];
    const PointInfo& to = state_.points[end];
    const bool isBesideAdded = isFilled_[end - 1] || isFilled_[end + 1];
    if (!isBesideAdded || to.type != SplineBase::Tcb)
        return;
    if (from.easeFrom != 0.0 || to.easeTo != 0.0) {
        outcome_.bendsOthers = true;
        return;
    }
    keepSlopes(spline_, end, state_.points);
}

SplineState SegmentEasing::result() const
{
    SplineState both = state_;
    both.points.clear();
    std::merge(state_.points.begin(), state_.points.end(), added_.begin(), added_.end(),
               std::back_inserter(both.points), isEarlierPoint);
    return both;
}

} // namespace

void SegmentEase::Outcome::unite(const Outcome& other)
{
    segments += other.segments;
    steps += other.steps;
    deviation = std::max(deviation, other.deviation);
    bendsOthers = bendsOthers || other.bendsOthers;
    added.insert(added.end(), other.added.begin(), other.added.end());
}

bool SegmentEase::isPossible(const SplineBase& spline, const std::vector<PointSerial>& points)
{
    const std::vector<bool> eased = easedEnds(spline, points);
    return std::find(eased.begin(), eased.end(), true) != eased.end();
}

SegmentEase::Outcome SegmentEase::apply(SplineBase& spline, const std::vector<PointSerial>& points,
                                        const Ease& ease, const CurveOptions& options)
{
    const std::vector<bool> eased = easedEnds(spline, points);
    SegmentEasing easing(spline, ease, options);
    for (std::size_t end = 1; end < eased.size(); ++end) {
        if (eased[end])
            easing.ease(end);
    }
    for (std::size_t end = 1; end < eased.size(); ++end) {
        if (!eased[end])
            easing.keepShape(end);
    }
    const SplineState result = easing.result();
    spline.assign(result);
    Outcome outcome = easing.outcome();
    for (std::size_t i = 0; i < result.points.size(); ++i) {
        if (result.points[i].serial == 0)
            outcome.added.push_back(spline[unsigned(i)]->serial);
    }
    return outcome;
}

} // namespace curveeditor
