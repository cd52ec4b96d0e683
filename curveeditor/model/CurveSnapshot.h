// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstddef>
#include <memory>

class CurveVariables;
class FunctionFloatBase;
class SplineBase;

/// A curve as it was at one moment, to be evaluated on any thread, and on several at once, while the user edits.
///
/// A snapshot never changes and needs nothing of what it was taken from, which may be edited or deleted. The host takes
/// it on the thread on which the curve is edited and hands the pointer over by its own means, such as a lock around
/// the pointer. Who lets go of a snapshot last frees it; where that must take no time, give it back to the thread that
/// took it.
class CURVEEDITOR_EXPORT CurveSnapshot
{
public:
    CurveSnapshot(const CurveSnapshot&) = delete;
    CurveSnapshot& operator=(const CurveSnapshot&) = delete;
    virtual ~CurveSnapshot();

    /// Of a spline. Reads all points, and shares with `previous`, a snapshot of the same spline or null, the points
    /// that are equal, in chunks of some hundreds; if nothing has changed the result is `previous`. Keep the last
    /// snapshot for the next one: then a change of one point of many costs little more than looking for it.
    static std::shared_ptr<const CurveSnapshot> of(const SplineBase& spline,
                                                   std::shared_ptr<const CurveSnapshot> previous = {});

    /// Of a parsed formula, with `fps` frames in a time unit, and of all curves that it reads, directly or through
    /// others, as `variables` knows them. Curves that read themselves, chains that are too long and unknown names give
    /// 0.0 as they do there. Null if the formula reads anything else of the host's: an expression or a mapper of a class
    /// of the host's own, or a variable with the host's own storage.
    ///
    /// What is read of a spline is shared, as above, with the snapshots of other formulas with the same `variables`.
    static std::shared_ptr<const CurveSnapshot> of(const FunctionFloatBase& formula, double fps,
                                                   const CurveVariables& variables);

    /// @name Evaluation
    /// Bit for bit the values of the curve: those of `SplineBase::operator()` and `SplineBase::evaluate`, or of
    /// `FunctionFloatBase::evaluate` and `FunctionFloatBase::evaluateBlock`. None takes a lock. The snapshot of a spline
    /// allocates nothing and does not throw; that of a formula takes memory for the time of the call, and a chain of
    /// formulas stack for each of them.
    /// @{

    /// The value at `time`, which may be any number.
    virtual double operator()(double time) const = 0;

    /// The values at `count` times; fast where the times rise. `values` may be the same array as `times`, but may not
    /// overlap it otherwise.
    virtual void evaluate(const double* times, double* values, std::size_t count) const = 0;
    /// @}

protected:
    CurveSnapshot() = default;
};
