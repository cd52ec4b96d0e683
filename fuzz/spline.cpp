// SPDX-License-Identifier: MIT

// Edits a spline by any sequence of its operations, beside a plain list of points that does the same the long way.
// After each step both hold the same, to the bit and at the same addresses, the curve has the values that it
// promises, and the difference to the step before leads there and back.

#include "Bytes.h"
#include "Require.h"

#include <curveeditor/model/CurveDiff.h>
#include <curveeditor/model/CurveState.h>
#include <curveeditor/model/SplineBase.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <set>
#include <sstream>
#include <vector>

namespace {

using PointInfo = SplineBase::PointInfo;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::size_t mostPoints = 40;

bool hasSameBits(double left, double right)
{
    return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

/// A point as it must be. The serial of a new one, and an address that is null, are the spline's choice.
struct Expected
{
    PointInfo info;
    bool isNew = true;
    double order = info.time; ///< where it stands, whatever was written into its time
    const PointInfo* address = nullptr;
};

class Play
{
public:
    explicit Play(Bytes bytes) : bytes_(bytes)
    {
        points_.push_back({});
        check();
    }
    void step();
    bool isAtEnd() const { return bytes_.isAtEnd(); }

private:
    void edit();
    void addPoint();
    void addMany();
    void removePoint();
    void moveInTime();
    void writeField();
    void writeWhole();
    void writeBehaviour();
    void mend();
    void saveAndLoad();
    void assignState();
    void editState(SplineState& state);
    void giveBadArguments();

    void insert(const Expected& point);
    std::size_t countUntil(double time) const;
    bool hasReadableText() const;
    PointInfo* some() { return spline_.modify(index_ = bytes_.below(unsigned(points_.size()))); }

    void check();
    void adopt(std::size_t index);
    void checkSearches(double time);
    void checkValues(const std::vector<double>& times);
    void checkTangents();
    void checkDifference(const CurveState& before, const CurveState& after, const std::vector<double>& times,
                         bool isInOrder);
    std::vector<double> sampleTimes(const SplineState& before, const SplineState& after);

    Bytes bytes_;
    SplineBase spline_;
    std::vector<Expected> points_;
    std::int32_t firstType_ = SplineBase::Constant;
    std::int32_t lastType_ = SplineBase::Constant;
    double defaultValue_ = 0.0;
    std::set<std::uint32_t> serials_; ///< all that were ever given
    std::vector<SplineState> kept_;
    unsigned index_ = 0;   ///< of the point that `some` gave
    bool isMended_ = true; ///< nothing was written past the operations since the order was made
};

void Play::step()
{
    const CurveState before{spline_.state(), CurveKind::Spline, {}};
    const bool wasMended = isMended_;
    edit();
    check();
    CurveState after{spline_.state(), CurveKind::Spline, {}};
    const std::vector<double> times = sampleTimes(before.spline, after.spline);
    if (isMended_)
        checkValues(times);
    checkSearches(times.back());
    checkTangents();
    checkDifference(before, after, times, wasMended && isMended_);
    if (bytes_.below(8) == 1)
        kept_.push_back(after.spline);
}

void Play::edit()
{
    switch (bytes_.below(16)) {
    case 0:
    case 1:
        return addPoint();
    case 2:
        return addMany();
    case 3:
        return removePoint();
    case 4:
    case 5:
        return moveInTime();
    case 6:
    case 7:
        return writeField();
    case 8:
        return writeWhole();
    case 9:
        return writeBehaviour();
    case 10:
        return mend();
    case 11:
        return saveAndLoad();
    case 12:
    case 13:
        return assignState();
    case 14:
        spline_.reset();
        points_ = {{}};
        isMended_ = true;
        return;
    default:
        return giveBadArguments();
    }
}

std::size_t Play::countUntil(double time) const
{
    const auto isLater = [time](const Expected& point) {
        return point.order > time;
    };
    return std::size_t(std::find_if(points_.begin(), points_.end(), isLater) - points_.begin());
}

void Play::insert(const Expected& point)
{
    points_.insert(points_.begin() + std::ptrdiff_t(countUntil(point.order)), point);
}

void Play::addPoint()
{
    const double time = bytes_.number();
    const double value = bytes_.number();
    if (points_.size() == mostPoints)
        return;
    spline_.addPoint(time, value);
    if (!std::isfinite(time) || !std::isfinite(value))
        return;
    const std::size_t index = countUntil(time);
    Expected point{{time, value}};
    if (points_.size() > 1)
        point.info.type = points_[std::clamp<std::size_t>(index, 1, points_.size() - 1)].info.type;
    const bool isInside = index > 0 && index < points_.size();
    if (isInside && point.info.type == SplineBase::Bezier) {
        require(std::isfinite(spline_[unsigned(index)]->tanLeft) || !isMended_);
        point.info.tanLeft = point.info.tanRight = spline_[unsigned(index)]->tanLeft;
    }
    insert(point);
}

/// Enough for the ways of the evaluation that look up many times together.
void Play::addMany()
{
    const double step = bytes_.number();
    double time = bytes_.number();
    for (unsigned count = bytes_.below(24); count > 0 && points_.size() < mostPoints; --count) {
        time += step;
        if (!std::isfinite(time))
            return;
        spline_.addPoint(time, double(count % 5));
        const std::size_t index = countUntil(time);
        Expected point{*spline_[unsigned(index)]};
        require(point.info.time == time && point.info.pos == double(count % 5));
        insert(point);
    }
}

void Play::removePoint()
{
    const PointInfo* const point = some();
    spline_.remove(point);
    if (points_.size() > 1)
        points_.erase(points_.begin() + index_);
    spline_.remove(point); // it is freed already, or the only one
}

void Play::moveInTime()
{
    PointInfo* const point = some();
    const double time = bytes_.number();
    spline_.setTime(point, time);
    Expected moved = points_[index_];
    if (!std::isfinite(time) || (time == moved.order && time == moved.info.time))
        return;
    points_.erase(points_.begin() + index_);
    moved.order = moved.info.time = time;
    insert(moved);
}

void Play::writeField()
{
    PointInfo* const point = some();
    PointInfo& info = points_[index_].info;
    const unsigned field = bytes_.below(11);
    const double number = bytes_.number();
    constexpr double PointInfo::*direct[] = {
        &PointInfo::tanLeft, &PointInfo::tanRight, &PointInfo::tension, &PointInfo::continuity,
        &PointInfo::bias,    &PointInfo::easeTo,   &PointInfo::easeFrom};
    constexpr void (SplineBase::*setters[])(PointInfo*, const double&) = {
        &SplineBase::setPos, &SplineBase::setTanLeft, &SplineBase::setTanRight};
    constexpr double PointInfo::*set[] = {&PointInfo::pos, &PointInfo::tanLeft, &PointInfo::tanRight};
    if (field < 7) {
        point->*direct[field] = info.*direct[field] = number;
    } else if (field < 10) {
        (spline_.*setters[field - 7])(point, number);
        if (std::isfinite(number))
            info.*set[field - 7] = number;
    } else {
        point->type = info.type = std::int32_t(bytes_.below(8) == 7 ? bytes_.word() : bytes_.below(3));
    }
}

/// What only `mend` puts right.
void Play::writeWhole()
{
    PointInfo* const point = some();
    PointInfo& info = points_[index_].info;
    switch (bytes_.below(4)) {
    case 0:
        point->time = info.time = bytes_.number();
        break;
    case 1:
        point->pos = info.pos = bytes_.number();
        break;
    case 2:
        *point = info = *spline_[bytes_.below(unsigned(points_.size()))];
        break;
    default:
        point->serial = info.serial = 0;
        break;
    }
    isMended_ = false;
}

void Play::writeBehaviour()
{
    const bool isAny = bytes_.below(8) == 7;
    const auto behaviour = std::int32_t(isAny ? bytes_.word() : bytes_.below(5));
    switch (bytes_.below(3)) {
    case 0:
        spline_.firstType = firstType_ = behaviour;
        break;
    case 1:
        spline_.lastType = lastType_ = behaviour;
        break;
    default:
        defaultValue_ = bytes_.number();
        spline_.setDefaultValue(defaultValue_);
        break;
    }
}

void Play::mend()
{
    spline_.mend();
    std::set<std::uint32_t> seen = {0};
    for (Expected& point : points_) {
        if (!std::isfinite(point.info.time))
            point.info.time = point.order;
        if (!std::isfinite(point.info.pos))
            point.info.pos = 0.0;
        point.isNew = !seen.insert(point.info.serial).second;
    }
    std::stable_sort(points_.begin(), points_.end(), [](const Expected& left, const Expected& right) {
        return left.info.time < right.info.time;
    });
    for (Expected& point : points_)
        point.order = point.info.time;
    isMended_ = true;
}

/// A text is refused whose points descend, or that holds a number that `load` does not know.
bool Play::hasReadableText() const
{
    const auto isReadable = [](const Expected& point) {
        const PointInfo& info = point.info;
        for (const double number : {info.time, info.pos, info.tanLeft, info.tanRight, info.tension,
                                    info.continuity, info.bias, info.easeTo, info.easeFrom}) {
            if (!std::isfinite(number))
                return false;
        }
        return info.type >= SplineBase::Linear && info.type <= SplineBase::Hold;
    };
    const auto isBehaviour = [](std::int32_t number) {
        return number >= SplineBase::Zero && number <= SplineBase::FollowTangent;
    };
    return isBehaviour(firstType_) && isBehaviour(lastType_) && std::isfinite(defaultValue_) &&
           std::all_of(points_.begin(), points_.end(), isReadable) &&
           std::is_sorted(points_.begin(), points_.end(), [](const Expected& left, const Expected& right) {
               return left.info.time < right.info.time;
           });
}

void Play::saveAndLoad()
{
    std::stringstream text;
    SplineBase::save(spline_, text);
    SplineBase::load(&spline_, text);
    require(!text.fail() == hasReadableText());
    if (text.fail())
        return;
    for (Expected& point : points_)
        point = {point.info};
    isMended_ = true;
}

void Play::editState(SplineState& state)
{
    if (state.points.empty())
        return;
    const unsigned count = unsigned(state.points.size());
    const auto place = state.points.begin() + bytes_.below(count);
    switch (bytes_.below(6)) {
    case 0:
        place->serial = 0;
        break;
    case 1:
        *place = state.points[bytes_.below(count)];
        break;
    case 2:
        place->time = bytes_.number();
        break;
    case 3:
        place->pos = bytes_.number();
        break;
    case 4:
        state.points.erase(place);
        break;
    default:
        state.points.insert(place, *place);
        break;
    }
}

void Play::assignState()
{
    SplineState state =
        kept_.empty() || bytes_.flag() ? spline_.state() : kept_[bytes_.below(unsigned(kept_.size()))];
    for (unsigned edits = bytes_.below(4); edits > 0; --edits)
        editState(state);
    const SplineState before = spline_.state();
    const bool isTaken = spline_.assign(state);
    require(isTaken == state.isWhole());
    if (!isTaken)
        return;
    for (std::size_t i = 0; i < std::min(state.points.size(), before.points.size()); ++i) {
        PointInfo same = state.points[i]; // without a serial it is the one in its place, if they are alike
        same.serial = before.points[i].serial;
        if (state.points[i].serial == 0 && isSamePoint(same, before.points[i]))
            state.points[i] = same;
    }
    std::vector<Expected> points;
    std::set<std::uint32_t> seen = {0};
    for (const PointInfo& info : state.points) {
        points.push_back({info, !seen.insert(info.serial).second});
    }
    const bool areOneEach = isMended_ && seen.size() == points.size() + 1;
    for (Expected& point : points) {
        const auto old = std::find_if(points_.begin(), points_.end(), [&point](const Expected& other) {
            return other.info.serial == point.info.serial;
        });
        if (areOneEach && old != points_.end())
            point.address = old->address;
    }
    points_.swap(points);
    firstType_ = state.firstType;
    lastType_ = state.lastType;
    defaultValue_ = state.defaultValue;
    isMended_ = true;
}

void Play::giveBadArguments()
{
    SplineBase other;
    const auto count = unsigned(points_.size());
    spline_.remove(nullptr);
    spline_.remove(other.getFirst());
    spline_.setTime(nullptr, 1.0);
    spline_.setTime(other.modify(0), 1.0);
    spline_.setPos(nullptr, 1.0);
    spline_.setTanLeft(nullptr, 1.0);
    spline_.setTanRight(nullptr, 1.0);
    spline_.addPoint(std::numeric_limits<double>::quiet_NaN(), 1.0);
    spline_.addPoint(1.0, infinity);
    require(!spline_[count] && !spline_.modify(count) && !spline_.modify(-1));
    require(!spline_.modify(other.getFirst()) && spline_.findIndex(other.getFirst()) == -1);
    require(!spline_.assign(SplineState()) && other.getFirst()->time == 0.0);
    std::istringstream noSpline("spline 1 1 0\n0 0 0");
    SplineBase::load(&spline_, noSpline);
    require(noSpline.fail());
}

/// A point that was made or renewed has a serial that no other point ever had.
void Play::adopt(std::size_t index)
{
    Expected& point = points_[index];
    const PointInfo* const actual = spline_[unsigned(index)];
    if (point.isNew) {
        require(actual->serial != 0 && serials_.insert(actual->serial).second);
        point.info.serial = actual->serial;
        point.isNew = false;
    }
    if (!point.address)
        point.address = actual;
}

void Play::check()
{
    require(spline_.getControlPointsNumber() == points_.size());
    require(spline_.firstType == firstType_ && spline_.lastType == lastType_);
    require(hasSameBits(spline_.getDefaultValue(), defaultValue_));
    std::set<std::uint32_t> serials;
    for (std::size_t i = 0; i < points_.size(); ++i) {
        adopt(i);
        const PointInfo* const point = spline_[unsigned(i)];
        require(point == points_[i].address && isSamePoint(*point, points_[i].info));
        require(serials.insert(point->serial).second || !isMended_);
        require(spline_.findIndex(point) == std::int32_t(i));
        require(spline_.findIndex(point->serial, point->time) == std::int32_t(i) || !isMended_);
        require(!isMended_ || i == 0 || spline_[unsigned(i - 1)]->time <= point->time);
    }
    require(spline_.getFirst() == points_.front().address && spline_.getLast() == points_.back().address);
    const SplineState state = spline_.state();
    require(state == spline_.state() && state.fingerprint() == fingerprintOf(spline_));
}

void Play::checkSearches(double time)
{
    const auto addressAt = [this](std::size_t index) {
        return index < points_.size() ? points_[index].address : nullptr;
    };
    std::size_t earlier = 0;
    while (earlier < points_.size() && points_[earlier].order < time)
        ++earlier;
    require(spline_.getNext(time) == addressAt(countUntil(time)));
    require(spline_.getPrev(time) == addressAt(earlier - 1));
}

void Play::checkValues(const std::vector<double>& times)
{
    std::vector<double> block(times.size());
    spline_.evaluate(times.data(), block.data(), times.size());
    const double first = points_.front().info.time;
    const double last = points_.back().info.time;
    const bool mayLeave = lastType_ == SplineBase::LoopOffset || lastType_ == SplineBase::FollowTangent;
    for (std::size_t i = 0; i < times.size(); ++i) {
        const double time = times[i];
        const double value = spline_(time);
        require(hasSameBits(value, block[i]) && !std::isnan(value));
        require(std::isfinite(value) || (mayLeave && time > last));
        if (!(time >= first))
            require(value == (firstType_ == SplineBase::Zero ? 0.0 : points_.front().info.pos));
    }
    block = times;
    spline_.evaluate(block.data(), block.data(), block.size());
    for (std::size_t i = 0; i < times.size(); ++i)
        require(hasSameBits(block[i], spline_(times[i])));
}

void Play::checkTangents()
{
    double length = 0.0;
    for (const unsigned index : {0U, bytes_.below(mostPoints), unsigned(points_.size())}) {
        const bool endsSegment = index > 0 && index < points_.size();
        const bool isShown = endsSegment && points_[index].info.type == SplineBase::Bezier;
        const double left = spline_.getTangentLeftAtNode(index, length);
        require(isShown ? hasSameBits(left, points_[index].info.tanLeft) : std::isfinite(left));
        const double right = spline_.getTangentRightAtNode(index, length);
        require(isShown ? hasSameBits(right, points_[index - 1].info.tanRight) : std::isfinite(right));
        require(endsSegment || (left == 0.0 && right == 0.0 && length == 0.667));
    }
}

/// The points of both states, what lies between and around them, and the ends of time.
std::vector<double> Play::sampleTimes(const SplineState& before, const SplineState& after)
{
    std::vector<double> times = {-infinity, -1e300, 1e9, 1e300, infinity};
    for (const SplineState* state : {&before, &after}) {
        double last = state->points.front().time - 1.0;
        for (const PointInfo& point : state->points) {
            if (point.time != last)
                times.insert(times.end(), {last + 0.3 * (point.time - last), point.time});
            last = point.time;
        }
        times.insert(times.end(), {std::nextafter(last, infinity), last + 0.7, last + 5.3});
    }
    if (bytes_.below(4) > 0)
        std::sort(times.begin(), times.end());
    times.push_back(bytes_.number());
    return times;
}

void Play::checkDifference(const CurveState& before, const CurveState& after,
                           const std::vector<double>& times, bool isInOrder)
{
    CurveState end = after;
    if (const unsigned choice = bytes_.below(8); choice < 2) {
        end.kind = choice == 0 ? CurveKind::Spline : CurveKind::Expression;
        end.formula = "t";
    }
    const CurveDiff diff = CurveDiff::between(before, end);
    const CurveDiff same = CurveDiff::between(before, spline_, end.kind, end.formula);
    require(diff.isEmpty() == (before == end) && same.isEmpty() == diff.isEmpty());
    require(same.pointsBefore() == diff.pointsBefore() && same.pointsAfter() == diff.pointsAfter());
    require(same.touched().first == diff.touched().first && same.touched().last == diff.touched().last);
    require(diff.kindBefore() == before.kind && diff.kindAfter() == end.kind);
    CurveState state = before;
    require(diff.apply(state) && state == end);
    require(same.revert(state) && state == before);
    if (CurveState other = end; !diff.apply(other))
        require(other == end);
    if (!isInOrder)
        return;
    SplineBase earlier;
    require(earlier.assign(before.spline));
    const auto [first, last] = diff.touched();
    for (const double time : times) {
        if (!(time >= first && time <= last) && !std::isnan(time))
            require(earlier(time) == spline_(time));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Play play(Bytes(data, size));
    while (!play.isAtEnd())
        play.step();
    return 0;
}
