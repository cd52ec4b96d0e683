// SPDX-License-Identifier: MIT
#include <curveeditor/model/SplineBase.h>

#include <curveeditor/model/TimeSearch.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

using namespace curveeditor;

namespace {

using PointInfo = SplineBase::PointInfo;

constexpr double restLength = 0.667;
constexpr double greatest = std::numeric_limits<double>::max();

/// a + b u + c u^2 + d u^3
struct Cubic
{
    double a, b, c, d;

    static Cubic hermite(double from, double to, double slopeFrom, double slopeTo)
    {
        const double rise = to - from;
        return {from, slopeFrom, 3.0 * rise - 2.0 * slopeFrom - slopeTo, slopeFrom + slopeTo - 2.0 * rise};
    }
    double operator()(double u) const { return ((d * u + c) * u + b) * u + a; }
    double slope(double u) const { return (3.0 * d * u + 2.0 * c) * u + b; }
};

/// `value` where it is a number, no further than the greatest one; `otherwise` where it is none.
double bounded(double value, double otherwise)
{
    return std::isnan(value) ? otherwise : std::clamp(value, -greatest, greatest);
}

/// A slope as rise over run, kept apart because the quotient of huge and tiny numbers overflows.
struct Slope
{
    double rise, run;
    double unit; ///< what a rise of 1.0 over a run of 1.0 stands for

    bool isFinite() const { return std::isfinite(rise) && std::isfinite(run); }
    double over(double length) const { return rise * (length / run); }
    double quotient(double factor = 1.0) const
    {
        return run > 0.0 ? bounded(factor * rise / run * unit, 0.0) : 0.0;
    }
};

/// So many times are looked up together, and only where they pass so many points that looking up takes longer
/// than the values.
constexpr std::size_t batchSize = 32;
constexpr std::size_t passedPoints = 12;

using Places = std::array<std::size_t, batchSize>;

/// True if the times pass several points each. Also where they fall.
bool arePlacesFarApart(const std::size_t* places)
{
    return places[batchSize - 1] - places[0] > 4 * batchSize;
}

bool isInWindow(const std::vector<double>& times, std::size_t low, std::size_t count, double time)
{
    return low + count < times.size() && times[low] <= time && time < times[low + count];
}

/// `countUntil`, for a place that is expected around `guess`.
std::size_t countAround(const std::vector<double>& times, std::size_t guess, double time)
{
    constexpr std::size_t reach = 32;
    const std::size_t low = guess - std::min(guess, reach);
    if (!isInWindow(times, low, 2 * reach, time))
        return countUntil(times, time);
    // Without branches, which would be hard to predict.
    const double* passed = times.data() + low;
    for (std::size_t step = reach; step > 0; step /= 2)
        passed += std::size_t(passed[step] <= time) * step;
    return std::size_t(passed - times.data()) + 1;
}

/// The same, for a place that is expected so near that few times have to be read.
std::size_t countNear(const std::vector<double>& times, std::size_t guess, double time)
{
    constexpr std::size_t reach = 4;
    const std::size_t low = guess - std::min(guess, reach);
    if (!isInWindow(times, low, 2 * reach, time))
        return countAround(times, guess, time);
    return low + countInWindow(times.data() + low, 2 * reach, time);
}

/// What `countUntil` finds for each of the `batchSize` times `wanted`. Expects them to pass as many points as those
/// of the batch before, whose places are in `places`.
void findPlaces(const std::vector<double>& times, const double* wanted, Places& places)
{
    const std::size_t passed = std::max(places.front(), places.back()) - places.front();
    places.front() = countAround(times, places.back() + passed / batchSize, wanted[0]);
    places.back() = countAround(times, places.front() + passed, wanted[batchSize - 1]);
    if (!arePlacesFarApart(places.data())) {
        const double last = wanted[batchSize - 1];
        std::size_t place = places.front();
        bool rises = true;
        for (std::size_t i = 1; i < batchSize - 1; ++i) {
            rises = rises && wanted[i - 1] <= wanted[i] && wanted[i] <= last;
            if (!rises) [[unlikely]]
                place = countUntil(times, wanted[i]);
            while (place < times.size() && times[place] <= wanted[i])
                ++place;
            places[i] = place;
        }
        return;
    }
    // Each in the middle of two others: those of one step do not wait for each other.
    for (std::size_t step = batchSize / 2; step > 0; step /= 2) {
        for (std::size_t i = step; i < batchSize - 1; i += 2 * step) {
            const std::size_t next = std::min(i + step, batchSize - 1);
            places[i] = countNear(times, (places[i - step] + places[next]) / 2, wanted[i]);
        }
    }
}

void prefetch([[maybe_unused]] const PointInfo* point)
{
#ifdef __GNUC__
    __builtin_prefetch(point);
#endif
}

/// Adds zeros: a value that is not finite makes none of them. Four sums run beside each other.
bool areFinite(const double* values, std::size_t count)
{
    double sums[4] = {};
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        for (std::size_t lane = 0; lane < 4; ++lane)
            sums[lane] += values[i + lane] * 0.0;
    }
    for (; i < count; ++i)
        sums[0] += values[i] * 0.0;
    return sums[0] + sums[1] + sums[2] + sums[3] == 0.0;
}

} // namespace

/// The curve between two points that follow each other. A wide one reckons in larger units of time and value, so
/// that sums and differences of huge numbers do not overflow.
template <bool isWide> class SplineBase::Segment
{
public:
    Segment(const SplineBase& spline, std::size_t endIndex)
    {
        const PointInfo& from = *spline.points_[endIndex - 1];
        const PointInfo& to = *spline.points_[endIndex];
        const double fromPos = from.pos / valueUnit;
        const double toPos = to.pos / valueUnit;
        start_ = from.time / timeUnit;
        length_ = to.time / timeUnit - start_;
        ease_ = Cubic::hermite(0.0, 1.0, 1.0 - from.easeFrom, 1.0 - to.easeTo);
        isEased_ = to.type != Bezier;
        if (to.type == Bezier) {
            value_ = Cubic::hermite(fromPos, toPos, from.tanRight / slopeUnit * length_,
                                    to.tanLeft / slopeUnit * length_);
        } else if (to.type == Tcb) {
            value_ = Cubic::hermite(fromPos, toPos, leavingSlope(spline, endIndex - 1).over(length_),
                                    arrivingSlope(spline, endIndex).over(length_));
        } else {
            value_ = {fromPos, to.type == Hold ? 0.0 : toPos - fromPos, 0.0, 0.0};
        }
    }

    double operator()(double time) const
    {
        const double u = place(time);
        return value_(isEased_ ? ease_(u) : u) * valueUnit;
    }
    void evaluate(const double* times, double* values, std::size_t count) const
    {
        if (isEased_) {
            for (std::size_t i = 0; i < count; ++i)
                values[i] = value_(ease_(place(times[i]))) * valueUnit;
        } else {
            for (std::size_t i = 0; i < count; ++i)
                values[i] = value_(place(times[i])) * valueUnit;
        }
    }
    Slope slope(double time, bool withEase) const
    {
        const double u = place(time);
        const bool isEased = withEase && isEased_;
        return {isEased ? value_.slope(ease_(u)) * ease_.slope(u) : value_.slope(u), length_, slopeUnit};
    }

    /// What the computed slopes are where a segment of `type` leaves and arrives at a point.
    static Slope leaving(const SplineBase& spline, std::size_t index, std::int32_t type)
    {
        return type == Tcb ? leavingSlope(spline, index) : chord(spline, index + 1, type);
    }
    static Slope arriving(const SplineBase& spline, std::size_t index, std::int32_t type)
    {
        return type == Tcb ? arrivingSlope(spline, index) : chord(spline, index, type);
    }

private:
    static constexpr double valueUnit = isWide ? 0x1p64 : 1.0;
    static constexpr double timeUnit = isWide ? 4.0 : 1.0;
    static constexpr double slopeUnit = valueUnit / timeUnit;

    static Slope leavingSlope(const SplineBase& spline, std::size_t index)
    {
        const PointInfo* const point = spline.points_[index];
        return chordMean(spline, index, spline.getFactorL0(point), spline.getFactorL1(point));
    }
    static Slope arrivingSlope(const SplineBase& spline, std::size_t index)
    {
        const PointInfo* const point = spline.points_[index];
        return chordMean(spline, index, spline.getFactorR0(point), spline.getFactorR1(point));
    }
    static Slope chord(const SplineBase& spline, std::size_t endIndex, std::int32_t type)
    {
        const PointInfo& from = *spline.points_[endIndex - 1];
        const PointInfo& to = *spline.points_[endIndex];
        return {type == Hold ? 0.0 : rise(from, to), run(from, to), slopeUnit};
    }
    /// Twice the weighted chords to both neighbours over the time between these. The point itself stands for
    /// a neighbour that is missing.
    static Slope chordMean(const SplineBase& spline, std::size_t index, double factor0, double factor1)
    {
        const auto& points = spline.points_;
        const PointInfo& point = *points[index];
        const PointInfo& previous = *points[index > 0 ? index - 1 : index];
        const PointInfo& next = *points[index + 1 < points.size() ? index + 1 : index];
        return {2.0 * (factor0 * rise(previous, point) + factor1 * rise(point, next)), run(previous, next),
                slopeUnit};
    }
    static double rise(const PointInfo& from, const PointInfo& to)
    {
        return to.pos / valueUnit - from.pos / valueUnit;
    }
    static double run(const PointInfo& from, const PointInfo& to)
    {
        return to.time / timeUnit - from.time / timeUnit;
    }
    double place(double time) const { return (time / timeUnit - start_) / length_; }

    double start_ = 0.0, length_ = 0.0;
    Cubic value_ = {}, ease_ = {};
    bool isEased_ = false;
};

double SplineBase::operator()(const double& time) const
{
    const std::size_t index = countUntil(times_, time);
    if (!endsSegment(index))
        return valueOutside(time);
    const double value = Segment<false>(*this, index)(time);
    if (!std::isfinite(value)) [[unlikely]]
        return wideValue(time);
    return value;
}

void SplineBase::evaluate(const double* times, double* values, std::size_t count) const
{
    if (times == values) {
        std::array<double, 256> copy{};
        for (std::size_t done = 0; done < count; done += copy.size()) {
            const std::size_t length = std::min(count - done, copy.size());
            std::copy_n(times + done, length, copy.data());
            evaluate(copy.data(), values + done, length);
        }
        return;
    }
    evaluateBlock(times, values, count);
    if (areFinite(values, count))
        return;
    for (std::size_t i = 0; i < count; ++i) {
        if (!std::isfinite(values[i]))
            values[i] = (*this)(times[i]);
    }
}

void SplineBase::evaluateBlock(const double* times, double* values, std::size_t count) const
{
    std::size_t index = 0;
    Places places{};
    for (std::size_t done = 0; done < count;) {
        if (count - done >= batchSize && times_.size() - index > passedPoints &&
            times[done + batchSize - 1] >= times_[index + passedPoints]) {
            findPlaces(times_, times + done, places);
            evaluateBatch(times + done, places.data(), values + done);
            index = places.back();
            done += batchSize;
            continue;
        }
        const double time = times[done];
        const bool isInNext = endsSegment(index + 1) && times_[index] <= time && time < times_[index + 1];
        index = isInNext ? index + 1 : countUntil(times_, time);
        if (!endsSegment(index)) {
            values[done++] = valueOutside(time);
            continue;
        }
        const double start = times_[index - 1], end = times_[index];
        const Segment<false> segment(*this, index);
        std::size_t next = done + 1;
        while (next < count && times[next] >= start && times[next] < end)
            ++next;
        segment.evaluate(times + done, values + done, next - done);
        done = next;
    }
}

// Points lie anywhere in memory: those of a batch are fetched while the first of them are worked on.
void SplineBase::evaluateBatch(const double* times, const std::size_t* places, double* values) const
{
    if (arePlacesFarApart(places)) {
        for (std::size_t i = 0; i < batchSize; ++i) {
            if (endsSegment(places[i])) {
                prefetch(points_[places[i] - 1]);
                prefetch(points_[places[i]]);
            }
        }
    }
    for (std::size_t i = 0; i < batchSize; ++i)
        values[i] =
            endsSegment(places[i]) ? Segment<false>(*this, places[i])(times[i]) : valueOutside(times[i]);
}

// Searches once more, so that those who mostly do not need it have little to remember.
double SplineBase::wideValue(const double& time) const
{
    const std::size_t index = countUntil(times_, time);
    return bounded(Segment<true>(*this, index)(time), points_[index - 1]->pos);
}

double SplineBase::slope(double time) const
{
    if (!std::isfinite(time))
        return 0.0;
    const std::size_t index = countUntil(times_, time);
    return endsSegment(index) ? slopeInside(index, time, true) : slopeOutside(time);
}

double SplineBase::slopeInside(std::size_t endIndex, double time, bool withEase) const
{
    const Slope slope = Segment<false>(*this, endIndex).slope(time, withEase);
    return (slope.isFinite() ? slope : Segment<true>(*this, endIndex).slope(time, withEase)).quotient();
}

double SplineBase::slopeOutside(double time) const
{
    const double span = times_.back() - times_.front();
    if (time < times_.front() || !(span > 0.0))
        return 0.0;
    double length = 0.0;
    if (lastType == FollowTangent)
        return getTangentLeftAtNode(getControlPointsNumber() - 1, length);
    if (lastType != Loop && lastType != LoopOffset)
        return 0.0;
    const double place = std::fmod(std::min(time - times_.back(), greatest), span);
    return slope(std::min(times_.front() + place, times_.back()));
}

double SplineBase::valueOutside(double time) const
{
    const double first = getFirst()->pos;
    const double last = getLast()->pos;
    if (!(time >= times_.front()))
        return firstType == Zero ? 0.0 : first;
    const double beyond = std::min(time - times_.back(), greatest);
    if (!(beyond > 0.0))
        return last;
    if (lastType == Zero)
        return 0.0;
    const double span = times_.back() - times_.front();
    if (!(span > 0.0) || lastType < Loop || lastType > FollowTangent)
        return last;
    if (lastType == FollowTangent) {
        double length = 0.0;
        return last + beyond * getTangentLeftAtNode(getControlPointsNumber() - 1, length);
    }
    const double place = std::fmod(beyond, span);
    const double value = (*this)(std::min(times_.front() + place, times_.back()));
    if (lastType == Loop)
        return value;
    const double rounds = std::round((beyond - place) / span) + 1.0;
    return value + std::min(rounds, greatest) * (last - first);
}

double SplineBase::getTangentLeftAtNode(const unsigned& index, double& length) const
{
    length = restLength;
    if (!endsSegment(index))
        return 0.0;
    const PointInfo& point = *points_[index];
    const double speed = 1.0 - point.easeTo;
    length *= speed;
    if (point.type == Bezier)
        return point.tanLeft;
    const Slope slope = Segment<false>::arriving(*this, index, point.type);
    return (slope.isFinite() ? slope : Segment<true>::arriving(*this, index, point.type)).quotient(speed);
}

double SplineBase::getTangentRightAtNode(const unsigned& index, double& length) const
{
    length = restLength;
    if (!endsSegment(index))
        return 0.0;
    const PointInfo& point = *points_[index - 1];
    const double speed = 1.0 - point.easeFrom;
    length *= speed;
    const std::int32_t type = points_[index]->type;
    if (type == Bezier)
        return point.tanRight;
    const Slope slope = Segment<false>::leaving(*this, index - 1, type);
    return (slope.isFinite() ? slope : Segment<true>::leaving(*this, index - 1, type)).quotient(speed);
}
