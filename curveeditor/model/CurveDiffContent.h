// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/CurveDiff.h>
#include <curveeditor/model/PlacedPoint.h>

#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace curveeditor {

class DiffPoints;

/// Unlike `==` true for the same not-a-number, and false for 0.0 beside -0.0.
inline bool hasSameBits(double left, double right)
{
    return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

/// What a difference changes, and into what.
template <typename Value> struct Change
{
    Value before{};
    Value after{};

    bool isNone() const { return before == after; }
};

template <> inline bool Change<double>::isNone() const
{
    return hasSameBits(before, after);
}

} // namespace curveeditor

/// What is within a difference, which all copies of it share. `CurveDiff` is its public face; whoever keeps differences in
/// a form of their own, as pickles are, comes here by `DiffContent`.
struct CurveDiff::Private
{
    Private() = default;
    Private(const curveeditor::DiffPoints& before, const curveeditor::DiffPoints& after);

    void notePoints(const curveeditor::DiffPoints& before, const curveeditor::DiffPoints& after);
    void noteTouched(const curveeditor::DiffPoints& before, const curveeditor::DiffPoints& after);
    void noteContent(curveeditor::Change<CurveKind> kinds, const std::string& before,
                     const std::string& after);

    bool isEmpty() const;
    bool concernsPointsOnly() const;
    Private inverse() const;
    bool apply(CurveState& state) const;
    bool apply(SplineBase& spline) const;
    bool isReplaceable(const curveeditor::DiffPoints& points) const;

    std::vector<curveeditor::PlacedPoint> removed;  ///< ascending indices in the points before
    std::vector<curveeditor::PlacedPoint> inserted; ///< ascending indices in the points after
    curveeditor::Change<std::int32_t> firstType, lastType;
    curveeditor::Change<double> defaultValue;
    curveeditor::Change<CurveKind> kind;
    curveeditor::Change<std::string> formula;
    TimeInterval touched;
};

namespace curveeditor {

/// What a difference holds, for those who keep it in a form of their own.
struct DiffContent
{
    using Content = CurveDiff::Private;

    static const Content& of(const CurveDiff& diff) { return *diff.d_; }
    static CurveDiff diff(Content content)
    {
        return CurveDiff(std::make_shared<const Content>(std::move(content)));
    }
};

} // namespace curveeditor
