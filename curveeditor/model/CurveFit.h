// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>
#include <curveeditor/model/SplineState.h>

#include <cstddef>
#include <functional>
#include <vector>

/// Few points for many samples: `Bezier` ones, or `Linear` ones.
///
/// The results are values: give them to a spline with `SplineBase::assign`, which makes the serials of their
/// points. All functions may run on several threads at once. Times are in time units, values and tolerances in
/// value units.
namespace CurveFit {

/// How a fit came out.
enum class Status {
    Done,
    NoSamples,     ///< there are none, or none is finite
    SizesDiffer,   ///< not as many values as times
    TimesDescend,  ///< a time is earlier than the one before it
    BadTolerance,  ///< negative, or not a number
    BadRange,      ///< steps that are not finite or not greater than zero, or that end before they begin
    TooManyPoints, ///< more steps than `stepLimit`
    NotWhole,      ///< a spline that could not be assigned as it is; see `SplineBase::mend`
    BadType        ///< a fit is asked for of points that are neither `Bezier` nor `Linear`
};

/// What was wrong with the input, in English; empty for `Done`.
CURVEEDITOR_EXPORT const char* message(Status status);

/// What the curve has to keep to.
struct Options
{
    /// How far the curve may be away from a sample, 0.0 or more. With an infinite one the ends alone stay.
    double tolerance = 0.0;
    /// Between two points, where the samples rise or stand still, so does the curve; where they fall, likewise.
    /// So monotone samples make a monotone curve.
    bool monotone = false;
    /// Of the points that are made: `Bezier` or `Linear`.
    SplineBase::NodeType type = SplineBase::Bezier;
};

/// A curve, or why there is none.
struct Result
{
    Status status = Status::NoSamples; ///< what was wrong with the input, if not `Done`
    SplineState spline;                ///< without points unless `status` is `Done`
    double deviation = 0.0;            ///< the greatest distance in value from a sample to the curve
    std::size_t samples = 0;           ///< that `fit` or `bake` went by

    /// True if `spline` may be assigned.
    bool isDone() const { return status == Status::Done; }
};

/// The curve of few points that is nowhere further than the tolerance from a sample, in the sense of
/// least squares near the samples, and that stops at its ends.
///
/// Kept as points with exactly their value: the first and the last sample, and those where the samples turn, if
/// they rise above, or fall below, both sides by more than twice the tolerance. There the slope is 0.0. Both
/// tangents of a point have one slope unless the samples have a corner there.
///
/// - One sample makes one point. Two make a straight line.
/// - A step between two samples makes a point at each. Samples at the same time are a step: the curve arrives at
///   the first of them and leaves from the last; those between are passed over.
/// - With tolerance 0.0 the curve goes through all samples.
/// - `Linear` points stand on samples: each as far from the one before as a straight line reaches.
/// - Samples whose time or value is not finite are passed over.
///
/// Between samples the curve leaves the range of those around by half of it and the tolerance at most.
///
/// A curve of few points takes time in proportion to the samples. Samples that need a point each take up to some
/// seconds for a million.
CURVEEDITOR_EXPORT Result fit(const std::vector<double>& times, const std::vector<double>& values,
                              const Options& options);

/// A spline fitted to its own samples, `samplesInSegment` in each segment and all points. The result is nowhere
/// further than the tolerance from the spline, between the samples neither, and `deviation` says how far it is at
/// most; numbers that overflow, and rounding, aside. Where no fewer points do, it is the spline as it is.
/// Behaviours and default value stay. A spline that is not whole, see `SplineState::isWhole`, gives `NotWhole`.
CURVEEDITOR_EXPORT Result simplify(const SplineBase& spline, const Options& options);
/// The same for the points from one index to another alone: the result is the whole curve, in which those at both
/// ends and outside keep their serials. Outside, the curve keeps its shape; a `Tcb` segment that ends there becomes
/// `Bezier`, whatever the type of the fit, and loses its ease. Indices of less than two points give `NoSamples`.
CURVEEDITOR_EXPORT Result simplify(const SplineBase& spline, std::size_t first, std::size_t last,
                                   const Options& options);
/// How many samples `simplify` takes between two points of the spline.
constexpr std::size_t samplesInSegment = 24;

/// Where a function has two values at one time.
struct Jump
{
    double time = 0.0;
    double before = 0.0; ///< with which the function arrives
    double value = 0.0;  ///< at the time, with which it goes on
};
/// Those that points of type `Hold`, and points at one time, make in a spline, by time. What its behaviours make
/// outside its points is not among them.
CURVEEDITOR_EXPORT std::vector<Jump> jumpsOf(const SplineBase& spline);

/// Times from `first` to `last` at equal distances; the last distance is shorter where `step` does not divide
/// them. Each jump from `first` to `last` is a time, too, with both of its values, and takes the place of a step that
/// rounding alone keeps apart from it.
struct Steps
{
    double first = 0.0;        ///< finite
    double last = 0.0;         ///< finite, not below `first`
    double step = 1.0;         ///< above 0.0
    std::vector<Jump> jumps{}; ///< of the function, ascending
};
/// The most steps and values at jumps that `bake` takes, so that a small step can't fill the memory.
constexpr std::size_t stepLimit = 1'000'000;

/// `function` at each step as a point of that type. The slopes of `Bezier` points are those of `smoothSlope`.
/// Two points stand at a jump; of type `Tcb` they have the tension and continuity that keep it off the curve beside it.
/// Steps at which the function is not finite are passed over. What the function throws goes through.
CURVEEDITOR_EXPORT Result bake(const std::function<double(double)>& function, const Steps& steps,
                               SplineBase::NodeType type);
/// The same with as few points as `fit` finds.
CURVEEDITOR_EXPORT Result bake(const std::function<double(double)>& function, const Steps& steps,
                               const Options& options);

/// The slope at `point` with which a cubic curve does not overshoot: that of the parabola through the neighbours,
/// 0.0 where the values turn, at most three times the slope of the chord to either neighbour. A neighbour that
/// is null, or at the same time, does not count; without any it is 0.0.
///
/// Fritsch and Carlson, "Monotone Piecewise Cubic Interpolation" (1980).
CURVEEDITOR_EXPORT double smoothSlope(const SplineBase::PointInfo* previous,
                                      const SplineBase::PointInfo& point, const SplineBase::PointInfo* next);

} // namespace CurveFit
