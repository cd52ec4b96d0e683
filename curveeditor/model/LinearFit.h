// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/HermiteFit.h>

#include <cstddef>
#include <vector>

namespace curveeditor {

/// The indices of few samples, the first and the last among them, between which straight lines are nowhere further than
/// `tolerance` from a sample, rounding aside: from each one the next is as far away as a line reaches. Linear in the
/// samples.
std::vector<std::size_t> linearKnots(const FitSamples& samples, double tolerance);

} // namespace curveeditor
