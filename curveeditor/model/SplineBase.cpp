// SPDX-License-Identifier: MIT
#include <curveeditor/model/SplineBase.h>

#include <curveeditor/model/PlacedPoint.h>
#include <curveeditor/model/PointTypes.h>
#include <curveeditor/model/SplineState.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <cmath>
#include <istream>
#include <limits>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

using namespace curveeditor;

namespace {

using PointInfo = SplineBase::PointInfo;

constexpr double restLength = 0.667;
constexpr double greatest = std::numeric_limits<double>::max();
constexpr std::uint32_t greatestSerial = std::numeric_limits<std::uint32_t>::max();

/// The greatest that any point of the process has had.
std::atomic<std::uint32_t> lastSerial = 0;

constexpr const char* openingWord = "spline";
constexpr const char* closingWord = "end";
constexpr double PointInfo::*textFields[] = {
    &PointInfo::time,       &PointInfo::pos,  &PointInfo::tanLeft, &PointInfo::tanRight, &PointInfo::tension,
    &PointInfo::continuity, &PointInfo::bias, &PointInfo::easeTo,  &PointInfo::easeFrom};

static_assert(offsetof(PointInfo, easeFrom) - offsetof(PointInfo, tension) == 4 * sizeof(double),
              "tension to easeFrom are copied as one run");

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

/// Moves the entry at `from` to the place in front of the one that is at `target` now.
template <typename Entry> void moveEntry(std::vector<Entry>& entries, std::size_t from, std::size_t target)
{
    const auto entry = entries.begin() + std::ptrdiff_t(from);
    const auto place = entries.begin() + std::ptrdiff_t(target);
    if (target > from) {
        std::rotate(entry, entry + 1, place);
    } else {
        std::rotate(place, entry, entry + 1);
    }
}

/// What stands near an end, as in edits of many points one after the other, is found at once.
template <typename Place> Place findFromBothEnds(Place first, Place last, const PointInfo* point)
{
    for (Place front = first, back = last; front < back; ++front) {
        if (*front == point)
            return front;
        if (*--back == point)
            return back;
    }
    return last;
}

/// What a serial adds to the sum of all. Spread over all bits, so that other serials hardly come to the same sum.
std::uint64_t serialShare(const PointInfo& point)
{
    std::uint64_t share = point.serial * 0x9E3779B97F4A7C15U;
    share = (share ^ (share >> 29)) * 0xBF58476D1CE4E5B9U;
    return share ^ (share >> 32);
}

bool holdsAny(const std::vector<PointInfo*>& points, const std::unordered_set<std::uint32_t>& serials)
{
    return !serials.empty() && std::any_of(points.begin(), points.end(), [&](const PointInfo* point) {
        return serials.count(point->serial) > 0;
    });
}

/// It came from elsewhere, and is not to be given again.
void noteSerial(std::uint32_t serial)
{
    std::uint32_t last = lastSerial;
    while (last < serial && !lastSerial.compare_exchange_weak(last, serial))
        ;
}

template <typename Number> void append(std::string& text, Number number, char separator)
{
    char digits[32];
    text.append(digits, std::to_chars(digits, digits + sizeof(digits), number).ptr);
    text += separator;
}

/// The words of a stream, between white space. Takes them from its buffer, since a stream spends more on a word than
/// the number takes that it is. What comes behind the last word stays there.
class WordReader
{
public:
    explicit WordReader(std::istream& in) : in_(in), isGood_(std::istream::sentry(in, true)) {}

    /// Takes the next word; false if there is none, or one that is longer than any number.
    bool next()
    {
        try {
            return isGood_ && take(*in_.rdbuf());
        } catch (...) {
            in_.setstate(std::ios_base::badbit);
            return false;
        }
    }
    /// Takes the next word as a number; false if it is none.
    template <typename Number> bool next(Number& number) { return next() && convert(number); }

    std::string_view word() const { return {word_.data(), size_}; }

    template <typename Number> bool convert(Number& number) const
    {
        const char* const end = word_.data() + size_;
        const auto [rest, error] = std::from_chars(word_.data(), end, number);
        return error == std::errc() && rest == end;
    }

private:
    static constexpr int endOfText = std::char_traits<char>::eof();

    static bool isWhiteSpace(int character)
    {
        return character == ' ' || ('\t' <= character && character <= '\r');
    }

    bool take(std::streambuf& buffer)
    {
        int character = buffer.sgetc();
        while (isWhiteSpace(character))
            character = buffer.snextc();
        for (size_ = 0; character != endOfText && !isWhiteSpace(character); character = buffer.snextc()) {
            if (size_ == word_.size())
                return false;
            word_[size_++] = char(character);
        }
        if (character == endOfText)
            in_.setstate(std::ios_base::eofbit);
        return size_ > 0;
    }

    std::istream& in_;
    bool isGood_;
    std::array<char, 63> word_ = {};
    std::size_t size_ = 0;
};

bool isAmong(std::int32_t number, std::int32_t first, std::int32_t last)
{
    return first <= number && number <= last;
}

/// Reads a point whose first number is taken already.
bool readPoint(WordReader& words, PointInfo& point)
{
    for (double PointInfo::*field : textFields) {
        if (!words.convert(point.*field) || !std::isfinite(point.*field) || !words.next())
            return false;
    }
    return words.convert(point.type) && PointTypes::of(point.type).number == point.type;
}

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

/// How many of `count` times are not later than `time`.
std::size_t countInWindow(const double* times, std::size_t count, double time)
{
    std::size_t earlier = 0;
    for (std::size_t index = 0; index < count; ++index)
        earlier += std::size_t(times[index] <= time);
    return earlier;
}

/// How many of the ascending `times`, at least one, are not later than `time`. Looks around the place where
/// `time` would be if the times were even, and widens the window until it holds the place. The last window is
/// small enough to count in it without branches, which would be hard to predict.
std::size_t countUntil(const std::vector<double>& times, double time)
{
    const std::size_t size = times.size();
    constexpr std::size_t firstReach = 8;
    if (size <= 2 * firstReach)
        return countInWindow(times.data(), size, time);
    const double share = (time - times.front()) / (times.back() - times.front());
    const auto guess = share > 0.0 ? std::size_t(std::min(share, 1.0) * double(size - 1)) : 0;
    std::size_t low = 0, high = 0;
    for (std::size_t reach = firstReach;; reach *= 8) {
        low = guess - std::min(guess, reach);
        high = guess + std::min(size - guess, reach);
        if ((low == 0 || times[low - 1] <= time) && (high == size || times[high] > time))
            break;
    }
    while (high - low > 2 * firstReach) {
        const std::size_t half = (high - low) / 2;
        (times[low + half] <= time ? low : high) = low + half;
    }
    return low + countInWindow(times.data() + low, high - low, time);
}

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
            value_ = {fromPos, toPos - fromPos, 0.0, 0.0};
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
    Slope slopeWithoutEase(double time) const { return {value_.slope(place(time)), length_, slopeUnit}; }

    /// What the computed slopes are where a segment of `type` leaves and arrives at a point.
    static Slope leaving(const SplineBase& spline, std::size_t index, std::int32_t type)
    {
        return type == Tcb ? leavingSlope(spline, index) : chord(spline, index + 1);
    }
    static Slope arriving(const SplineBase& spline, std::size_t index, std::int32_t type)
    {
        return type == Tcb ? arrivingSlope(spline, index) : chord(spline, index);
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
    static Slope chord(const SplineBase& spline, std::size_t endIndex)
    {
        const PointInfo& from = *spline.points_[endIndex - 1];
        const PointInfo& to = *spline.points_[endIndex];
        return {rise(from, to), run(from, to), slopeUnit};
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

struct SplineBase::Private
{
    /// Of the serials as they were given; it tells when one was written over.
    std::uint64_t serialSum = 0;
    /// The last number given, and the last of those that follow it and that the spline does not hold, when the process
    /// has no others left.
    std::uint32_t lastSpare = 0;
    std::uint32_t spareEnd = 0;

    void findSpare(std::vector<std::uint32_t> held);
};

SplineBase::SplineBase() : d_(std::make_unique<Private>())
{
    insertNew(0, PointInfo());
}

/// To be evaluated alone: the points stay another's.
SplineBase::SplineBase(std::vector<PointInfo*> points, std::vector<double> times, std::int32_t first,
                       std::int32_t last)
    : firstType(first), lastType(last), points_(std::move(points)), times_(std::move(times))
{
}

SplineBase::~SplineBase()
{
    if (d_)
        clear();
}

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

std::int32_t SplineBase::findIndex(const PointInfo* point) const
{
    const auto place = find(point);
    return place == points_.end() ? -1 : std::int32_t(place - points_.begin());
}

std::int32_t SplineBase::findIndex(std::uint32_t serial, double near) const
{
    const auto holdsSerial = [serial](const PointInfo* point) {
        return point->serial == serial;
    };
    const auto begin = points_.begin();
    const auto [first, last] = std::equal_range(times_.begin(), times_.end(), near);
    const auto end = begin + (last - times_.begin());
    const auto place = std::find_if(begin + (first - times_.begin()), end, holdsSerial);
    if (place != end)
        return std::int32_t(place - begin);
    const auto other = std::find_if(begin, points_.end(), holdsSerial);
    return other == points_.end() ? -1 : std::int32_t(other - begin);
}

std::vector<PointInfo*>::const_iterator SplineBase::find(const PointInfo* point) const
{
    return findFromBothEnds(points_.begin(), points_.end(), point);
}

const PointInfo* SplineBase::getNext(const double& time) const
{
    const auto place = std::upper_bound(times_.begin(), times_.end(), time);
    return place == times_.end() ? nullptr : points_[std::size_t(place - times_.begin())];
}

const PointInfo* SplineBase::getPrev(const double& time) const
{
    const auto place = std::lower_bound(times_.begin(), times_.end(), time);
    return place == times_.begin() ? nullptr : points_[std::size_t(place - times_.begin()) - 1];
}

PointInfo* SplineBase::getNext(const double& time)
{
    return const_cast<PointInfo*>(std::as_const(*this).getNext(time));
}

PointInfo* SplineBase::getPrev(const double& time)
{
    return const_cast<PointInfo*>(std::as_const(*this).getPrev(time));
}

void SplineBase::addPoint(const double& time, const double& value)
{
    if (!std::isfinite(time) || !std::isfinite(value))
        return;
    PointInfo point;
    point.time = time;
    point.pos = value;
    const std::size_t index = countUntil(times_, time);
    if (points_.size() > 1)
        point.type = points_[std::clamp<std::size_t>(index, 1, points_.size() - 1)]->type;
    if (endsSegment(index) && point.type == Bezier)
        point.tanLeft = point.tanRight = slopeInside(index, time);
    insertNew(index, point);
}

void SplineBase::remove(const PointInfo* point)
{
    const auto place = find(point);
    if (place == points_.end() || points_.size() == 1)
        return;
    times_.erase(times_.begin() + (place - points_.begin()));
    points_.erase(place);
    d_->serialSum -= serialShare(*point);
    delete point;
}

void SplineBase::reset()
{
    clear();
    insertNew(0, PointInfo());
}

void SplineBase::setTime(PointInfo* point, const double& time)
{
    const std::size_t from = indexOf(point);
    if (from == points_.size() || !std::isfinite(time) || (time == times_[from] && time == point->time))
        return;
    const std::size_t behind = countUntil(times_, time);
    times_[from] = point->time = time;
    moveEntry(times_, from, behind);
    moveEntry(points_, from, behind);
}

void SplineBase::mend()
{
    bool isInOrder = true;
    std::uint64_t serialSum = 0;
    for (std::size_t i = 0; i < points_.size(); ++i) {
        PointInfo& point = *points_[i];
        if (!std::isfinite(point.time))
            point.time = times_[i];
        if (!std::isfinite(point.pos))
            point.pos = 0.0;
        isInOrder = isInOrder && point.time == times_[i];
        serialSum += serialShare(point);
    }
    if (serialSum != d_->serialSum)
        renewCopiedSerials();
    if (isInOrder)
        return;
    const auto isEarlier = [](const PointInfo* left, const PointInfo* right) {
        return isEarlierPoint(*left, *right);
    };
    if (!std::is_sorted(points_.begin(), points_.end(), isEarlier))
        std::stable_sort(points_.begin(), points_.end(), isEarlier);
    std::transform(points_.begin(), points_.end(), times_.begin(),
                   [](const PointInfo* point) { return point->time; });
}

void SplineBase::renewCopiedSerials()
{
    std::unordered_set<std::uint32_t> seen = {0};
    d_->serialSum = 0;
    d_->spareEnd = d_->lastSpare;
    for (const PointInfo* const point : points_)
        noteSerial(point->serial);
    for (PointInfo* const point : points_) {
        if (!seen.insert(point->serial).second)
            point->serial = newSerial();
        d_->serialSum += serialShare(*point);
    }
}

void SplineBase::setPos(PointInfo* point, const double& value)
{
    if (point && std::isfinite(value))
        point->pos = value;
}

void SplineBase::setTanLeft(PointInfo* point, const double& value)
{
    if (point && std::isfinite(value))
        point->tanLeft = value;
}

void SplineBase::setTanRight(PointInfo* point, const double& value)
{
    if (point && std::isfinite(value))
        point->tanRight = value;
}

SplineState SplineBase::state() const
{
    SplineState state;
    copyTo(state);
    return state;
}

void SplineBase::copyTo(SplineState& state) const
{
    state.points.clear();
    state.points.reserve(points_.size());
    for (const PointInfo* point : points_)
        state.points.push_back(*point);
    state.firstType = firstType;
    state.lastType = lastType;
    state.defaultValue = defaultValue;
}

std::vector<std::uint32_t> SplineBase::serialsIn(const SplineState& state) const
{
    std::vector<std::uint32_t> serials(state.points.size());
    for (std::size_t i = 0; i < serials.size(); ++i) {
        PointInfo point = state.points[i];
        if (point.serial == 0 && i < points_.size())
            point.serial = points_[i]->serial;
        const bool isPresent =
            state.points[i].serial == 0 && i < points_.size() && isSamePoint(point, *points_[i]);
        serials[i] = isPresent ? point.serial : state.points[i].serial;
    }
    return serials;
}

bool SplineBase::assign(const SplineState& state)
{
    if (!state.isWhole())
        return false;
    const std::vector<std::uint32_t> serials = serialsIn(state);
    // Mostly each point is where it was; only the others have to be looked for.
    std::unordered_map<std::uint32_t, PointInfo*> moved;
    std::vector<PointInfo*> copies;
    std::uint64_t sumBefore = 0;
    for (std::size_t i = 0; i < points_.size(); ++i) {
        sumBefore += serialShare(*points_[i]);
        const bool stays = i < serials.size() && serials[i] == points_[i]->serial;
        if (!stays && !moved.emplace(points_[i]->serial, points_[i]).second)
            copies.push_back(points_[i]);
    }
    std::vector<PointInfo*> points;
    points.reserve(state.points.size());
    bool mayRepeat = sumBefore != d_->serialSum;
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < state.points.size(); ++i) {
        const bool stays = i < points_.size() && serials[i] == points_[i]->serial;
        const auto found = stays ? moved.end() : moved.find(serials[i]);
        PointInfo* place = stays ? points_[i] : nullptr;
        if (found != moved.end()) {
            place = found->second;
            moved.erase(found);
        }
        mayRepeat = mayRepeat || !place;
        points.push_back(place ? place : new PointInfo);
        *points.back() = state.points[i];
        points.back()->serial = serials[i];
        sum += serialShare(*points.back());
    }
    for (const auto& [serial, point] : moved)
        delete point;
    for (const PointInfo* point : copies)
        delete point;
    points_.swap(points);
    d_->serialSum = sum;
    if (mayRepeat)
        renewCopiedSerials();
    times_.resize(points_.size());
    std::transform(points_.begin(), points_.end(), times_.begin(),
                   [](const PointInfo* point) { return point->time; });
    firstType = state.firstType;
    lastType = state.lastType;
    defaultValue = state.defaultValue;
    return true;
}

/// Takes points out and puts others in, each at its index in the result. False, with nothing changed, if their times
/// would not be in order then, or if one of those that are new is there already.
bool SplineBase::replace(const std::vector<PlacedPoint>& removed, const std::vector<PlacedPoint>& inserted)
{
    std::unordered_map<std::uint32_t, PointInfo*> spare;
    for (const PlacedPoint& point : removed)
        spare.emplace(point.info.serial, points_[point.index]);
    std::unordered_set<std::uint32_t> newcomers;
    for (const PlacedPoint& point : inserted) {
        if (spare.count(point.info.serial) == 0)
            newcomers.insert(point.info.serial);
    }
    std::vector<double> times =
        replaced(times_, removed, inserted, [](const PlacedPoint& point) { return point.info.time; });
    if (times.empty() || !std::is_sorted(times.begin(), times.end()) || holdsAny(points_, newcomers))
        return false;
    for (const PlacedPoint& point : removed)
        d_->serialSum -= serialShare(point.info);
    points_ = replaced(points_, removed, inserted, [&](const PlacedPoint& point) {
        const auto present = spare.extract(point.info.serial);
        PointInfo* const place = present ? present.mapped() : new PointInfo;
        *place = point.info;
        if (place->serial == 0)
            place->serial = newSerial();
        noteSerial(place->serial);
        d_->serialSum += serialShare(*place);
        return place;
    });
    times_ = std::move(times);
    for (const auto& [serial, point] : spare)
        delete point;
    return true;
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

void SplineBase::save(const SplineBase& spline, std::ostream& out)
{
    std::string text = openingWord;
    text += ' ';
    append(text, spline.firstType, ' ');
    append(text, spline.lastType, ' ');
    append(text, spline.defaultValue, '\n');
    for (const PointInfo* point : spline.points_) {
        for (double PointInfo::*field : textFields)
            append(text, point->*field, ' ');
        append(text, point->type, '\n');
    }
    text += closingWord;
    text += '\n';
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void SplineBase::load(SplineBase* spline, std::istream& in)
{
    SplineBase loaded;
    if (!spline || !loaded.readText(in)) {
        in.setstate(std::ios_base::failbit);
        return;
    }
    spline->firstType = loaded.firstType;
    spline->lastType = loaded.lastType;
    spline->defaultValue = loaded.defaultValue;
    spline->points_.swap(loaded.points_);
    spline->times_.swap(loaded.times_);
    spline->d_.swap(loaded.d_);
}

std::size_t SplineBase::indexOf(const PointInfo* point) const
{
    if (!point)
        return points_.size();
    const auto [first, last] = std::equal_range(times_.begin(), times_.end(), point->time);
    const auto begin = points_.begin();
    const auto end = begin + (last - times_.begin());
    const auto place = findFromBothEnds(begin + (first - times_.begin()), end, point);
    return std::size_t((place != end ? place : find(point)) - begin);
}

// Searches once more, so that those who mostly do not need it have little to remember.
double SplineBase::wideValue(const double& time) const
{
    const std::size_t index = countUntil(times_, time);
    return bounded(Segment<true>(*this, index)(time), points_[index - 1]->pos);
}

double SplineBase::slopeInside(std::size_t endIndex, double time) const
{
    const Slope slope = Segment<false>(*this, endIndex).slopeWithoutEase(time);
    return (slope.isFinite() ? slope : Segment<true>(*this, endIndex).slopeWithoutEase(time)).quotient();
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

std::uint32_t SplineBase::newSerial()
{
    std::uint32_t last = lastSerial;
    while (last < greatestSerial && !lastSerial.compare_exchange_weak(last, last + 1))
        ;
    if (last < greatestSerial)
        return last + 1;
    if (d_->lastSpare == d_->spareEnd) {
        std::vector<std::uint32_t> held;
        for (const PointInfo* const point : points_)
            held.push_back(point->serial);
        d_->findSpare(std::move(held));
    }
    return ++d_->lastSpare;
}

/// The longest run of numbers that are not held.
void SplineBase::Private::findSpare(std::vector<std::uint32_t> held)
{
    held.push_back(0);
    std::sort(held.begin(), held.end());
    lastSpare = held.back();
    spareEnd = greatestSerial;
    for (std::size_t i = 1; i < held.size(); ++i) {
        if (held[i] > held[i - 1] && held[i] - held[i - 1] - 1 > spareEnd - lastSpare) {
            lastSpare = held[i - 1];
            spareEnd = held[i] - 1;
        }
    }
}

void SplineBase::insertNew(std::size_t index, PointInfo point)
{
    point.serial = newSerial();
    d_->serialSum += serialShare(point);
    const auto place = std::ptrdiff_t(index);
    times_.insert(times_.begin() + place, point.time);
    points_.insert(points_.begin() + place, new PointInfo(point));
}

void SplineBase::clear()
{
    for (const PointInfo* point : points_)
        delete point;
    points_.clear();
    times_.clear();
    d_->serialSum = 0;
}

bool SplineBase::readText(std::istream& in)
{
    WordReader words(in);
    if (!words.next() || words.word() != openingWord || !words.next(firstType) || !words.next(lastType) ||
        !words.next(defaultValue) || !isAmong(firstType, Zero, FollowTangent) ||
        !isAmong(lastType, Zero, FollowTangent) || !std::isfinite(defaultValue))
        return false;
    clear();
    while (words.next()) {
        if (words.word() == closingWord)
            return !times_.empty();
        PointInfo point;
        if (!readPoint(words, point) || (!times_.empty() && point.time < times_.back()))
            return false;
        insertNew(times_.size(), point);
    }
    return false;
}
