// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/CurveState.h>
#include <curveeditor/model/Export.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace curveeditor {
struct DiffContent;
} // namespace curveeditor

/// A span of time, ends included; an end may be infinite. Empty unless `first` <= `last`.
struct CURVEEDITOR_EXPORT TimeInterval
{
    double first = std::numeric_limits<double>::infinity(); ///< in time units
    double last = -std::numeric_limits<double>::infinity(); ///< in time units

    /// From minus to plus infinity.
    static TimeInterval everything() { return {-TimeInterval().first, TimeInterval().first}; }
    /// Also where an end is not a number.
    bool isEmpty() const { return !(first <= last); }
    /// Grows to cover `other` too, and what lies between both.
    void unite(const TimeInterval& other);
};

/// The times at which the value of `spline` depends on its point `index`: one segment to both sides, two where
/// a `Tcb` segment follows, whose slope at its near end depends on the point too; without end where the
/// behaviours of the spline do. Empty for an index out of range.
CURVEEDITOR_EXPORT TimeInterval influenceOf(const SplineBase& spline, std::size_t index);

/// What leads from one state of a curve to another: a value that holds only what differs, so that it can be
/// kept for thousands of edits. Copies share what they hold.
class CURVEEDITOR_EXPORT CurveDiff
{
public:
    /// Nothing differs.
    CurveDiff();
    /// @{
    /// A move is a copy too, so that what was moved from stays of use.
    CurveDiff(const CurveDiff&) = default;
    CurveDiff& operator=(const CurveDiff&) = default;
    ~CurveDiff() = default;
    /// @}

    /// Takes linear time, and no more memory than the points that differ.
    static CurveDiff between(const CurveState& before, const CurveState& after);
    /// The same where the spline after is a living one, which saves its copy.
    static CurveDiff between(const CurveState& before, const SplineBase& spline, CurveKind kind,
                             const std::string& formula);

    /// The same where nothing but points can differ: `pointsBefore` are those before in their order, which may be points
    /// of the spline itself.
    static CurveDiff between(const std::vector<const SplineBase::PointInfo*>& pointsBefore,
                             const SplineBase& spline, CurveKind kind);

    /// True if both states were equal, to the bit.
    bool isEmpty() const;

    /// What the points add to `fingerprintOf` a spline by differing, modulo 2^64.
    std::uint64_t pointsShift() const;

    /// @{
    /// What the curve shows on that side of the edit.
    CurveKind kindBefore() const;
    CurveKind kindAfter() const;
    /// @}

    /// @{
    /// The formula on that side of the edit; both are empty if it did not change.
    const std::string& formulaBefore() const;
    const std::string& formulaAfter() const;
    /// @}

    /// @{
    /// Makes the state before the state after, or the other way about. Returns false, and changes nothing, if
    /// what differs is not in `state` as it was left. One that is empty fits any. Takes linear time.
    bool apply(CurveState& state) const;
    bool revert(CurveState& state) const;
    /// @}

    /// @{
    /// The same at a living spline; kind and formula are not looked at. A point that is there on both sides stays the
    /// same object. Reads only the points that differ.
    bool apply(SplineBase& spline) const;
    bool revert(SplineBase& spline) const;
    /// @}

    /// What leads back: `apply` of it is `revert` of this.
    CurveDiff inverse() const;

    /// The times at which the value of the curve may differ: around each point that differs, at its old and
    /// its new place. Everything if kind or formula differ; nothing if only the default value does.
    const TimeInterval& touched() const;

    /// @{
    /// The serials of the points that differ and are there before, or after, in the order of time.
    std::vector<std::uint32_t> pointsBefore() const;
    std::vector<std::uint32_t> pointsAfter() const;
    /// @}

    /// For logs and tests: "- 1: 5 2 Bezier", a point that was there before, its index in front; "+ 1: 6 2
    /// Bezier", one that is there after; "last 1 -> 2"; "kind 0 -> 1"; `formula "" -> "t"`. A line each.
    std::string toString() const;

private:
    friend struct curveeditor::DiffContent;

    struct Private;

    explicit CurveDiff(std::shared_ptr<const Private> differences);

    std::shared_ptr<const Private> d_; ///< never null
};
