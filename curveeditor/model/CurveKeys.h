// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>
#include <curveeditor/model/SplineBase.h>
#include <curveeditor/model/SplineState.h>

#include <cstddef>
#include <cstdint>
#include <vector>

/// Curves as keys, the form in which most programs for animation keep them, and the way from and to a spline.
///
/// A handle of a key may reach as far into its segment as it likes, while one of a spline's `Bezier` point always reaches
/// a third of it. So there are curves of keys that no spline has, and eased `Tcb` segments that no key has. These are
/// fitted: the segment is divided into as many as are near enough, whose ends are on the curve and, unless it is too steep
/// there, have its slope. Everything else comes over as it is, rounding aside.
///
/// All functions may run on several threads at once. Times are in time units, values and tolerances in value units.
namespace CurveKeys {

/// What a segment looks like; it belongs to the key at which the segment begins.
enum class Shape {
    Hold,   ///< the value of the key, until the next one
    Linear, ///< a straight line
    Bezier  ///< by the handles of both keys
};

/// How far the handles of a spline reach.
constexpr double usualReach = 1.0 / 3.0;

/// A handle of a key.
struct Side
{
    double slope = 0.0; ///< finite, in value units per time unit
    double reach =
        usualReach; ///< 0.0 to 1.0, in lengths of the segment; with 0.0 the handle is the key itself
};

/// One key.
struct Key
{
    double time = 0.0;  ///< finite
    double value = 0.0; ///< finite
    Side arriving{};    ///< in the segment that ends here
    Side leaving{};     ///< in the segment that begins here
    Shape shape = Shape::Bezier;
};

/// A whole curve.
struct Curve
{
    std::vector<Key> keys;                         ///< ascending in time
    std::int32_t firstType = SplineBase::Constant; ///< before the first key, as `SplineBase::firstType`
    std::int32_t lastType = SplineBase::Constant;  ///< behind the last key, as `SplineBase::lastType`
    double defaultValue = 0.0;                     ///< see `SplineBase::getDefaultValue`
};

/// True for at least one key, times that do not descend, and numbers that are what they must be.
CURVEEDITOR_EXPORT bool isWhole(const Curve& curve);

/// The most points or keys that are made.
constexpr std::size_t pointLimit = 10'000'000;

/// A curve of points.
struct Points
{
    SplineState spline; ///< without points where there are none
    double deviation =
        0.0; ///< how far it is from the keys between them at most; 0.0 where nothing was fitted
};

/// Points that are at most `tolerance` away from the keys, or as near as numbers go. Where both handles of a segment
/// have the usual reach, and for `Hold` and `Linear`, they are the keys. A curve that is not whole, a tolerance that is
/// negative or not a number, and one that takes more than `pointLimit` give no points.
CURVEEDITOR_EXPORT Points toSpline(const Curve& curve, double tolerance);

/// A curve of keys.
struct Keys
{
    Curve curve;            ///< without keys where there are none
    double deviation = 0.0; ///< how far it is from the spline at most; 0.0 where nothing was fitted
};

/// Keys with the usual reach, which `toSpline` takes back as they are. Only `Tcb` segments with ease are fitted. A spline
/// that is not whole, see `SplineState::isWhole`, or whose slopes are not finite, gives no keys, and so do a bad
/// tolerance and more than `pointLimit`.
CURVEEDITOR_EXPORT Keys fromSpline(const SplineBase& spline, double tolerance);

/// Gives the segment between two keys the ease that style sheets write as `cubic-bezier(x1, y1, x2, y2)`: the inner two
/// of the four points of a curve from (0, 0) to (1, 1). `x1` and `x2` are within 0.0 and 1.0.
CURVEEDITOR_EXPORT void setEase(Key& from, Key& to, double x1, double y1, double x2, double y2);

} // namespace CurveKeys
