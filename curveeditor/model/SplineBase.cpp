// SPDX-License-Identifier: MIT
#include <curveeditor/model/SplineBase.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iomanip>
#include <istream>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <system_error>

namespace {

using PointInfo = SplineBase::PointInfo;

constexpr double restLength = 0.667;
constexpr double greatest = std::numeric_limits<double>::max();

constexpr const char* openingWord = "spline";
constexpr const char* closingWord = "end";
constexpr int wordLimit = 64;
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

constexpr Cubic identity = {0.0, 1.0, 0.0, 0.0};

double factor(double tension, double continuity, double bias)
{
    return ((1.0 - tension) * 0.5) * (1.0 + continuity) * (1.0 + bias);
}

PointInfo pointAt(double time, double value)
{
    PointInfo point;
    point.time = time;
    point.pos = value;
    return point;
}

/// Moves the entry at `from` to the place in front of the one that is at `target` now.
template <typename Entry> void moveEntry(std::vector<Entry>& entries, std::size_t from, std::size_t target)
{
    const auto entry = entries.begin() + static_cast<std::ptrdiff_t>(from);
    const auto place = entries.begin() + static_cast<std::ptrdiff_t>(target);
    if (target > from)
        std::rotate(entry, entry + 1, place);
    else
        std::rotate(place, entry, entry + 1);
}

template <typename Number> void append(std::string& text, Number number, char separator)
{
    char digits[32];
    text.append(digits, std::to_chars(digits, digits + sizeof(digits), number).ptr);
    text += separator;
}

bool readWord(std::istream& in, std::string& word)
{
    in >> std::ws >> std::setw(wordLimit) >> word;
    return !in.fail() && word.size() < wordLimit;
}

template <typename Number> bool convert(const std::string& word, Number& number)
{
    const char* const end = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), end, number);
    return error == std::errc() && rest == end;
}

template <typename Number> bool read(std::istream& in, std::string& word, Number& number)
{
    return readWord(in, word) && convert(word, number);
}

/// Reads a point whose first number is in `word` already.
bool readPoint(std::istream& in, std::string& word, PointInfo& point)
{
    for (double PointInfo::*field : textFields) {
        if (!convert(word, point.*field) || !readWord(in, word))
            return false;
    }
    return convert(word, point.type) && std::isfinite(point.time) && std::isfinite(point.pos);
}

} // namespace

/// A slope as rise over run, kept apart because the quotient of huge and tiny numbers overflows.
struct SplineBase::Slope
{
    double rise, run;

    double over(double length) const { return rise * (length / run); }
    double quotient() const { return run > 0.0 ? std::clamp(rise / run, -greatest, greatest) : 0.0; }
};

class SplineBase::Segment
{
public:
    Segment(double start, double length, const Cubic& value, const Cubic& ease)
        : start_(start), length_(length), value_(value), ease_(ease)
    {
    }
    double operator()(double time) const { return value_(ease_((time - start_) / length_)); }
    Slope slopeWithoutEase(double time) const { return {value_.slope((time - start_) / length_), length_}; }

private:
    double start_, length_;
    Cubic value_, ease_;
};

SplineBase::SplineBase()
{
    insert(0, PointInfo());
}

SplineBase::~SplineBase()
{
    clear();
}

double SplineBase::operator()(const double& time) const
{
    const std::size_t index = countUntil(time);
    return endsSegment(index) ? segmentEndingAt(index)(time) : valueOutside(time);
}

void SplineBase::evaluate(const double* times, double* values, std::size_t count) const
{
    const auto isWithin = [this](double time, std::size_t index) {
        return endsSegment(index) && time >= times_[index - 1] && time < times_[index];
    };
    std::size_t index = 0;
    for (std::size_t done = 0; done < count;) {
        index = isWithin(times[done], index + 1) ? index + 1 : countUntil(times[done]);
        if (!endsSegment(index)) {
            values[done] = valueOutside(times[done]);
            ++done;
            continue;
        }
        std::size_t end = done + 1;
        while (end < count && isWithin(times[end], index))
            ++end;
        const Segment segment = segmentEndingAt(index);
        for (; done < end; ++done)
            values[done] = segment(times[done]);
    }
}

std::int32_t SplineBase::findIndex(const PointInfo* point) const
{
    const auto place = find(point);
    return place == controlPoints.end() ? -1 : static_cast<std::int32_t>(place - controlPoints.begin());
}

std::vector<PointInfo*>::const_iterator SplineBase::find(const PointInfo* point) const
{
    return std::find(controlPoints.begin(), controlPoints.end(), point);
}

PointInfo* SplineBase::getNext(const double& time)
{
    const auto place = std::upper_bound(times_.begin(), times_.end(), time);
    return place == times_.end() ? nullptr : controlPoints[static_cast<std::size_t>(place - times_.begin())];
}

PointInfo* SplineBase::getPrev(const double& time)
{
    const auto place = std::lower_bound(times_.begin(), times_.end(), time);
    return place == times_.begin() ? nullptr
                                   : controlPoints[static_cast<std::size_t>(place - times_.begin()) - 1];
}

void SplineBase::addPoint(const double& time, const double& value)
{
    if (!std::isfinite(time) || !std::isfinite(value))
        return;
    PointInfo point = pointAt(time, value);
    const std::size_t index = countUntil(time);
    if (controlPoints.size() > 1)
        point.type = controlPoints[std::clamp<std::size_t>(index, 1, controlPoints.size() - 1)]->type;
    if (endsSegment(index) && point.type == Bezier)
        point.tanLeft = point.tanRight = segmentEndingAt(index).slopeWithoutEase(time).quotient();
    insert(index, point);
}

void SplineBase::remove(const PointInfo* point)
{
    const auto place = find(point);
    if (place == controlPoints.end() || controlPoints.size() == 1)
        return;
    times_.erase(times_.begin() + (place - controlPoints.begin()));
    controlPoints.erase(place);
    delete point;
}

void SplineBase::reset()
{
    clear();
    insert(0, PointInfo());
}

void SplineBase::setTime(PointInfo* point, const double& time)
{
    const std::size_t from = indexOf(point);
    if (from == controlPoints.size() || !std::isfinite(time) || time == times_[from])
        return;
    const std::size_t behind = countUntil(time);
    times_[from] = point->time = time;
    moveEntry(times_, from, behind);
    moveEntry(controlPoints, from, behind);
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

double SplineBase::getTangentLeftAtNode(const unsigned& index, double& length) const
{
    length = restLength;
    if (!endsSegment(index))
        return 0.0;
    const PointInfo& point = *controlPoints[index];
    const double speed = 1.0 - point.easeTo;
    length *= speed;
    if (point.type == Bezier)
        return point.tanLeft;
    return (point.type == Tcb ? arrivingSlope(index) : chord(index)).quotient() * speed;
}

double SplineBase::getTangentRightAtNode(const unsigned& index, double& length) const
{
    length = restLength;
    if (!endsSegment(index))
        return 0.0;
    const PointInfo& point = *controlPoints[index - 1];
    const double speed = 1.0 - point.easeFrom;
    length *= speed;
    const std::int32_t type = controlPoints[index]->type;
    if (type == Bezier)
        return point.tanRight;
    return (type == Tcb ? leavingSlope(index - 1) : chord(index)).quotient() * speed;
}

void SplineBase::save(const SplineBase& spline, std::ostream& out)
{
    std::string text = openingWord;
    text += ' ';
    append(text, spline.firstType, ' ');
    append(text, spline.lastType, ' ');
    append(text, spline.defaultValue, '\n');
    for (const PointInfo* point : spline.controlPoints) {
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
    spline->controlPoints.swap(loaded.controlPoints);
    spline->times_.swap(loaded.times_);
}

double SplineBase::getFactorL0(const PointInfo* point) const
{
    return factor(point->tension, point->continuity, point->bias);
}

double SplineBase::getFactorL1(const PointInfo* point) const
{
    return factor(point->tension, -point->continuity, -point->bias);
}

double SplineBase::getFactorR0(const PointInfo* point) const
{
    return factor(point->tension, -point->continuity, point->bias);
}

double SplineBase::getFactorR1(const PointInfo* point) const
{
    return factor(point->tension, point->continuity, -point->bias);
}

// A search without branches: the comparison is multiplied, since compilers turn a condition into a jump.
std::size_t SplineBase::countUntil(double time) const
{
    const double* first = times_.data();
    for (std::size_t rest = times_.size(); rest > 1;) {
        const std::size_t half = rest / 2;
        first += static_cast<std::size_t>(first[half - 1] <= time) * half;
        rest -= half;
    }
    return static_cast<std::size_t>(first - times_.data()) + static_cast<std::size_t>(*first <= time);
}

std::size_t SplineBase::indexOf(const PointInfo* point) const
{
    if (!point)
        return controlPoints.size();
    const auto [first, last] = std::equal_range(times_.begin(), times_.end(), point->time);
    const auto begin = controlPoints.begin();
    const auto end = begin + (last - times_.begin());
    const auto place = std::find(begin + (first - times_.begin()), end, point);
    return place == end ? controlPoints.size() : static_cast<std::size_t>(place - begin);
}

bool SplineBase::endsSegment(std::size_t index) const
{
    return index > 0 && index < controlPoints.size();
}

SplineBase::Slope SplineBase::chord(std::size_t index) const
{
    return {controlPoints[index]->pos - controlPoints[index - 1]->pos, times_[index] - times_[index - 1]};
}

SplineBase::Slope SplineBase::slopeAt(std::size_t index, double factor0, double factor1) const
{
    const std::size_t previous = index > 0 ? index - 1 : index;
    const std::size_t next = index + 1 < controlPoints.size() ? index + 1 : index;
    const double value = controlPoints[index]->pos;
    const double toPoint = value - controlPoints[previous]->pos;
    const double fromPoint = controlPoints[next]->pos - value;
    return {2.0 * (factor0 * toPoint + factor1 * fromPoint), times_[next] - times_[previous]};
}

SplineBase::Slope SplineBase::leavingSlope(std::size_t index) const
{
    const PointInfo* const point = controlPoints[index];
    return slopeAt(index, getFactorL0(point), getFactorL1(point));
}

SplineBase::Slope SplineBase::arrivingSlope(std::size_t index) const
{
    const PointInfo* const point = controlPoints[index];
    return slopeAt(index, getFactorR0(point), getFactorR1(point));
}

SplineBase::Segment SplineBase::segmentEndingAt(std::size_t index) const
{
    const PointInfo& from = *controlPoints[index - 1];
    const PointInfo& to = *controlPoints[index];
    const double start = times_[index - 1];
    const double length = times_[index] - start;
    if (to.type == Bezier)
        return {start, length, Cubic::hermite(from.pos, to.pos, from.tanRight * length, to.tanLeft * length),
                identity};
    const Cubic ease = Cubic::hermite(0.0, 1.0, 1.0 - from.easeFrom, 1.0 - to.easeTo);
    if (to.type == Tcb)
        return {start, length,
                Cubic::hermite(from.pos, to.pos, leavingSlope(index - 1).over(length),
                               arrivingSlope(index).over(length)),
                ease};
    return {start, length, {from.pos, to.pos - from.pos, 0.0, 0.0}, ease};
}

double SplineBase::valueOutside(double time) const
{
    const double first = getFirst()->pos;
    const double last = getLast()->pos;
    if (!(time >= times_.front()))
        return firstType == Zero ? 0.0 : first;
    const double beyond = std::min(time, greatest) - times_.back();
    if (!(beyond > 0.0))
        return last;
    if (lastType == Zero)
        return 0.0;
    const double span = times_.back() - times_.front();
    if (!(span > 0.0) || lastType < Loop || lastType > FollowTangent)
        return last;
    if (lastType == FollowTangent) {
        double length;
        return last + beyond * getTangentLeftAtNode(getControlPointsNumber() - 1, length);
    }
    const double place = std::fmod(beyond, span);
    const double value = (*this)(std::min(times_.front() + place, times_.back()));
    if (lastType == Loop)
        return value;
    const double rounds = std::round((beyond - place) / span) + 1.0;
    return value + std::min(rounds, greatest) * (last - first);
}

void SplineBase::insert(std::size_t index, const PointInfo& point)
{
    auto added = std::make_unique<PointInfo>(point);
    const auto place = static_cast<std::ptrdiff_t>(index);
    times_.insert(times_.begin() + place, point.time);
    controlPoints.insert(controlPoints.begin() + place, added.get());
    added.release();
}

void SplineBase::clear()
{
    for (const PointInfo* point : controlPoints)
        delete point;
    controlPoints.clear();
    times_.clear();
}

bool SplineBase::readText(std::istream& in)
{
    std::string word;
    if (!readWord(in, word) || word != openingWord || !read(in, word, firstType) ||
        !read(in, word, lastType) || !read(in, word, defaultValue))
        return false;
    clear();
    while (readWord(in, word) && word != closingWord) {
        PointInfo point;
        if (!readPoint(in, word, point) || (!times_.empty() && point.time < times_.back()))
            return false;
        insert(times_.size(), point);
    }
    return word == closingWord && !times_.empty();
}
