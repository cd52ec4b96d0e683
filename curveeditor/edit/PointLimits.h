// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveOptions.h>

#include <optional>
#include <span>

namespace curveeditor {

/// What `CurveOptions` ask of points.
namespace PointLimits {

/// Whether there are values and types that keep to the options.
bool areSound(const CurveOptions& options);
/// Whether there are values or types that don't.
bool bind(const CurveOptions& options);
/// Whether points may have that `SplineBase::NodeType`.
bool allow(const CurveOptions& options, std::int32_t type);
/// The type of the points that fits make: `Bezier`, or else `Linear`; none where neither is allowed.
std::optional<SplineBase::NodeType> fitType(const CurveOptions& options);
/// The nearest value that keeps to sound options. Finite, for one that is.
double bounded(const CurveOptions& options, double value);
/// How far `bounded` moves the one of the points that it moves farthest.
double greatestShift(const CurveOptions& options, std::span<const SplineBase::PointInfo> points);

} // namespace PointLimits

} // namespace curveeditor
