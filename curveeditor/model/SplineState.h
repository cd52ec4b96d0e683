// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <cstdint>
#include <vector>

/// The whole content of a spline as a value: to be kept, compared, and given back with `SplineBase::assign`.
///
/// Two states are equal if every bit of them is, the serials of the points included; so a point that was
/// removed and another that was made in its place are told apart, and -0.0 differs from 0.0.
struct CURVEEDITOR_EXPORT SplineState
{
    std::vector<SplineBase::PointInfo> points;     ///< ascending in time
    std::int32_t firstType = SplineBase::Constant; ///< before the first point, as `SplineBase::firstType`
    std::int32_t lastType = SplineBase::Constant;  ///< behind the last point, as `SplineBase::lastType`
    double defaultValue = 0.0;                     ///< see `SplineBase::getDefaultValue`

    /// @{
    /// Compare every bit, see the class.
    bool operator==(const SplineState& other) const;
    bool operator!=(const SplineState& other) const { return !(*this == other); }
    /// @}

    /// What a spline can be: at least one point, times that ascend, times and values that are finite.
    bool isWhole() const;

    /// Equal for equal states, and for others equal by a chance of 1 in 2^64 only; but points of one time may change
    /// places. A sum modulo 2^64, of which each point is a summand.
    std::uint64_t fingerprint() const;
};

/// Whether every bit of two points is the same.
CURVEEDITOR_EXPORT bool isSamePoint(const SplineBase::PointInfo& left, const SplineBase::PointInfo& right);

/// Orders points by time alone.
inline bool isEarlierPoint(const SplineBase::PointInfo& left, const SplineBase::PointInfo& right)
{
    return left.time < right.time;
}

/// The point's summand in `SplineState::fingerprint`.
CURVEEDITOR_EXPORT std::uint64_t fingerprintOf(const SplineBase::PointInfo& point);

/// `SplineState::fingerprint` of a spline's state, without a copy of it.
CURVEEDITOR_EXPORT std::uint64_t fingerprintOf(const SplineBase& spline);
