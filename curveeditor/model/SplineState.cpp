// SPDX-License-Identifier: MIT
#include <curveeditor/model/SplineState.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iterator>

namespace {

using PointInfo = SplineBase::PointInfo;

static_assert(sizeof(PointInfo) == 80, "a point has no padding, whose bits would be compared");

/// The bits of a value, in words that can be compared.
template <typename Value> auto wordsOf(const Value& value)
{
    std::array<std::uint64_t, (sizeof(Value) + 7) / 8> words{};
    std::memcpy(words.data(), &value, sizeof(value));
    return words;
}

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
        for (const std::uint64_t word : wordsOf(value))
            add(word);
    }
    std::uint64_t result() const { return sum_; }

private:
    std::uint64_t sum_ = 1;
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
    return wordsOf(left) == wordsOf(right);
}

bool SplineState::operator==(const SplineState& other) const
{
    return firstType == other.firstType && lastType == other.lastType &&
           wordsOf(defaultValue) == wordsOf(other.defaultValue) &&
           std::equal(points.begin(), points.end(), other.points.begin(), other.points.end(), isSamePoint);
}

bool SplineState::isWhole() const
{
    const auto isFinite = [](const PointInfo& point) {
        return std::isfinite(point.time) && std::isfinite(point.pos);
    };
    return !points.empty() && std::all_of(points.begin(), points.end(), isFinite) &&
           std::is_sorted(points.begin(), points.end(), isEarlierPoint);
}

std::uint64_t SplineState::fingerprint() const
{
    Mixer mixer;
    for (const PointInfo& point : points)
        mixer.addBits(point);
    return mixed(mixer, firstType, lastType, defaultValue);
}

std::uint64_t fingerprintOf(const SplineBase& spline)
{
    Mixer mixer;
    for (const PointInfo* point : spline.getControlPoints())
        mixer.addBits(*point);
    return mixed(mixer, spline.firstType, spline.lastType, spline.getDefaultValue());
}
