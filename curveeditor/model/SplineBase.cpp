// SPDX-License-Identifier: MIT
#include <curveeditor/model/SplineBase.h>

#include <curveeditor/model/PlacedPoint.h>
#include <curveeditor/model/SplineState.h>
#include <curveeditor/model/TimeSearch.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <unordered_set>
#include <utility>

using namespace curveeditor;

namespace {

using PointInfo = SplineBase::PointInfo;

constexpr std::uint32_t greatestSerial = std::numeric_limits<std::uint32_t>::max();

/// The greatest that any point of the process has had.
std::atomic<std::uint32_t> lastSerial = 0;

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

} // namespace

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
        point.tanLeft = point.tanRight = slopeInside(index, time, false);
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
