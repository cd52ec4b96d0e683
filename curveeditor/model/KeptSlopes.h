// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>
#include <curveeditor/model/SplineBase.h>

#include <cstddef>
#include <vector>

namespace curveeditor {

/// In `points`, a copy of those of `spline`, makes the segment that ends at the index `end` a `Bezier` one with the slopes
/// that it has, if they follow from the points beside it, so that these may change. Any other segment stays, and so
/// does one that ends nowhere. A `Tcb` segment loses its ease.
CURVEEDITOR_EXPORT void keepSlopes(const SplineBase& spline, std::size_t end,
                                   std::vector<SplineBase::PointInfo>& points);

} // namespace curveeditor
