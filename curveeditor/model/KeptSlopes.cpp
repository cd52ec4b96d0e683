// SPDX-License-Identifier: MIT
#include <curveeditor/model/KeptSlopes.h>

namespace curveeditor {

void keepSlopes(const SplineBase& spline, std::size_t end, std::vector<SplineBase::PointInfo>& points)
{
    if (end == 0 || end >= points.size() || points[end].type != SplineBase::Tcb)
        return;
    double length = 0.0;
    points[end - 1].tanRight = spline.getTangentRightAtNode(unsigned(end), length);
    points[end].tanLeft = spline.getTangentLeftAtNode(unsigned(end), length);
    points[end].type = SplineBase::Bezier;
}

} // namespace curveeditor
