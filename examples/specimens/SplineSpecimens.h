// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <cstdint>
#include <string>
#include <vector>

/// A named curve that shows one property of splines, plain or extreme. Tests, benchmarks and the demo share
/// them.
struct SplineSpecimen
{
    std::string name; ///< lower case, words apart by blanks, different for each specimen
    std::vector<SplineBase::PointInfo> points; ///< ascending in time, at least one
    std::int32_t firstType = SplineBase::Constant;
    std::int32_t lastType = SplineBase::Constant;

    /// Gives `spline` the points and behaviours of this specimen in place of its own.
    void fill(SplineBase& spline) const;
};

/// All specimens, the plain ones first.
const std::vector<SplineSpecimen>& splineSpecimens();
