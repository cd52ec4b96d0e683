// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveOptions.h>

#include <span>

namespace curveeditor {

/// What `CurveOptions` ask of points.
namespace PointLimits {

/// Whether there are values that keep to the options.
bool areSound(const CurveOptions& options);
/// Whether there are numbers that don't.
bool bindValues(const CurveOptions& options);
/// The nearest value that keeps to sound options. Finite, for one that is.
double bounded(const CurveOptions& options, double value);
/// How far `bounded` moves the one of the points that it moves farthest.
double greatestShift(const CurveOptions& options, std::span<const SplineBase::PointInfo> points);

} // namespace PointLimits

} // namespace curveeditor
