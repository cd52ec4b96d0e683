// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/Selection.h>
#include <curveeditor/model/CurveDiff.h>
#include <curveeditor/model/SplineState.h>

#include <vector>

namespace curveeditor {

/// What hands do to the points of a spline. Points that the spline does not hold are passed over; numbers that
/// are not finite are not stored. Times are in time units, values in value units.
namespace SplineEdits {

/// What a drag at a single point moves.
enum class Part { Point, BothTangents, LeftTangent, RightTangent };

/// A field of a point that the node page shows.
enum class Field { Time, Value, Tension, Continuity, Bias, TangentLeft, TangentRight, EaseFrom, EaseTo };

/// What the pages take of tension, continuity and bias, and of eases, on both sides of 0.0.
constexpr double parameterBound = 10.0;
constexpr double easeBound = 1.0;

double read(const SplineBase::PointInfo& point, Field field);
void write(SplineBase& spline, PointSerial point, Field field, double number);
/// The same for many points, in linear time; those that get a time stand behind others at it, in their own order.
void write(SplineBase& spline, const std::vector<PointSerial>& points, Field field, double number);

/// How the curve goes on before its first and after its last point, see `SplineBase::Behaviour`.
void setFirstType(SplineBase& spline, int type);
void setLastType(SplineBase& spline, int type);

/// Gives the point; 0, and adds nothing, for a number that is not finite.
PointSerial addPoint(SplineBase& spline, double time, double value);
/// Adds points as they are, behind those of the same time; their serials are new. Points whose time or value is not
/// finite are left out. Returns the serials, in order of time. Linear in the points of both.
std::vector<PointSerial> addPoints(SplineBase& spline, std::vector<SplineBase::PointInfo> points);
/// The spline with these points, which ascend in time, in the place of those from the first to the last of their times.
/// The points outside stay where they are, and the curve between two of them keeps its shape, but for the ease of a `Tcb`
/// segment beside the last of them. To new points and from them a `Bezier` segment is a straight line.
/// Unless `keepsShape`, as where no point may become `Bezier`, a `Tcb` segment beside them follows its new neighbours.
SplineState withSpan(const SplineBase& spline, std::vector<SplineBase::PointInfo> span, bool keepsShape);
/// The points from one time to another, both included.
std::vector<PointSerial> pointsWithin(const SplineBase& spline, double first, double last);
/// The points with these serials, in the order of the spline.
std::vector<SplineBase::PointInfo> copyOf(const SplineBase& spline, const std::vector<PointSerial>& points);
/// Adds a point on the curve, which keeps its shape: exactly in `Bezier` segments, and in `Linear` segments without
/// ease, but for `Tcb` segments beside it, whose slopes follow from the neighbours. Any other segment still goes
/// through the point. Outside the points a `Bezier` segment to it is a straight line. Gives the point; the last one
/// that is there at that time already is given as it is. Gives 0, and adds nothing, for a time that is not finite.
PointSerial insertOnCurve(SplineBase& spline, double time);
/// The last point that is left in the spline stays.
void removePoints(SplineBase& spline, const std::vector<PointSerial>& points);

/// Gives the points a `SplineBase::NodeType`. A new `Bezier` point keeps the slopes that it showed.
void setType(SplineBase& spline, const std::vector<PointSerial>& points, int type);

/// @name Tangents
/// Of those of the points that stand at an end of a `Bezier` segment; the others are passed over. Both tangents of
/// a point become the same.
/// @{

/// Slope 0.0.
void flattenTangents(SplineBase& spline, const std::vector<PointSerial>& points);
/// The mean of both slopes; where one side alone is a `Bezier` segment, its slope.
void alignTangents(SplineBase& spline, const std::vector<PointSerial>& points);
/// A slope with which the curve does not overshoot, see `CurveFit::smoothSlope`.
void smoothTangents(SplineBase& spline, const std::vector<PointSerial>& points);
/// @}

/// Gives tangents of the point the slope of the line from the point to a place, never steeper than 1000. The
/// place of the point itself has no slope and leaves them as they are.
void aimTangent(SplineBase& spline, PointSerial point, Part part, double time, double value);

/// Multiplies, or shifts, times and values about a place.
void scalePoints(SplineBase& spline, const std::vector<PointSerial>& points, double timeFactor,
                 double valueFactor, double pivotTime = 0.0, double pivotValue = 0.0);
void panPoints(SplineBase& spline, const std::vector<PointSerial>& points, double timeOffset,
               double valueOffset);

} // namespace SplineEdits

} // namespace curveeditor
