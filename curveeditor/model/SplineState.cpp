// SPDX-License-Identifier: MIT
#include <curveeditor/model/SplineState.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>

namespace {

using PointInfo = SplineBase::PointInfo;

static_assert(sizeof(PointInfo) == 80, "a point has no padding, whose bits would be compared");

/// Mixes words into one number, each by a multiplication with the golden ratio and a shift.
class Mixer
{
public:
    void add(std::uint64_t word)
    {
        sum_ = (sum_ ^ word) * 0x9E3779B97F4A7C15U;
        sum_ ^= sum_ >> 29;
    }
    template <typename Value> void addBits(const Value& value)
    {
        std::uint64_t word = 0;
        std::memcpy(&word, &value, sizeof(value));
        add(word);
    }
    void addPoint(const PointInfo& point)
    {
        std::uint64_t words[sizeof(PointInfo) / sizeof(std::uint64_t)];
        std::memcpy(words, &point, sizeof(point));
        for (const std::uint64_t word : words)
            add(word);
    }
    std::uint64_t result() const { return sum_; }

private:
    std::uint64_t sum_ = 0;
};

std::uint64_t mixed(Mixer points, std::int32_t firstType, std::int32_t lastType, double defaultValue)
{
    points.addBits(firstType);
    points.addBits(lastType);
    points.addBits(defaultValue);
    return points.result();
}

} // namespace

bool isSamePoint(const PointInfo& left, const PointInfo& right)
{
    return std::memcmp(&left, &right, sizeof(PointInfo)) == 0;
}

bool SplineState::operator==(const SplineState& other) const
{
    return firstType == other.firstType && lastType == other.lastType &&
           std::memcmp(&defaultValue, &other.defaultValue, sizeof(double)) == 0 &&
           std::equal(points.begin(), points.end(), other.points.begin(), other.points.end(), isSamePoint);
}

bool SplineState::isWhole() const
{
    const auto isFinite = [](const PointInfo& point) {
        return std::isfinite(point.time) && std::isfinite(point.pos);
    };
    const auto isEarlier = [](const PointInfo& left, const PointInfo& right) {
        return left.time < right.time;
    };
    return !points.empty() && std::all_of(points.begin(), points.end(), isFinite) &&
           std::is_sorted(points.begin(), points.end(), isEarlier);
}

std::uint64_t SplineState::fingerprint() const
{
    Mixer mixer;
    for (const PointInfo& point : points)
        mixer.addPoint(point);
    return mixed(mixer, firstType, lastType, defaultValue);
}

std::uint64_t fingerprintOf(const SplineBase& spline)
{
    Mixer mixer;
    for (const PointInfo* point : spline.getControlPoints())
        mixer.addPoint(*point);
    return mixed(mixer, spline.firstType, spline.lastType, spline.getDefaultValue());
}
