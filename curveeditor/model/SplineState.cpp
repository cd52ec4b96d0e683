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

/// Spreads each bit over all.
constexpr std::uint64_t mixed(std::uint64_t word)
{
    word = (word ^ (word >> 32)) * 0x9E3779B97F4A7C15U;
    word = (word ^ (word >> 29)) * 0xBF58476D1CE4E5B9U;
    return word ^ (word >> 32);
}

/// Each word has an odd factor of its own, and none is the sum of others, so that no words can change places; the
/// products do not wait for each other.
template <typename Value> std::uint64_t mixedBits(const Value& value)
{
    std::uint64_t factor = 0xD6E8FEB86659FD93U;
    std::uint64_t sum = 0;
    for (const std::uint64_t word : wordsOf(value)) {
        sum += (word ^ (word >> 32)) * factor;
        factor = mixed(factor) | 1;
    }
    return mixed(sum);
}

std::uint64_t mixedRest(std::int32_t firstType, std::int32_t lastType, double defaultValue)
{
    return mixedBits(std::array{mixedBits(firstType), mixedBits(lastType), mixedBits(defaultValue)});
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
    std::uint64_t sum = mixedRest(firstType, lastType, defaultValue);
    for (const PointInfo& point : points)
        sum += fingerprintOf(point);
    return sum;
}

std::uint64_t fingerprintOf(const PointInfo& point)
{
    return mixedBits(point);
}

std::uint64_t fingerprintOf(const SplineBase& spline)
{
    std::uint64_t sum = mixedRest(spline.firstType, spline.lastType, spline.getDefaultValue());
    for (const PointInfo* const point : spline.getControlPoints())
        sum += fingerprintOf(*point);
    return sum;
}
