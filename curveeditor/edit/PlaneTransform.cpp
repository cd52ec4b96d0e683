// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PlaneTransform.h>

#include <cmath>
#include <numeric>

namespace curveeditor {

namespace {

AxisTransform pulledSide(const AxisRange& range, int side, double distance, bool aboutMiddle)
{
    if (side == 0)
        return {};
    const double edge = side > 0 ? range.high : range.low;
    const double opposite = side > 0 ? range.low : range.high;
    const double pivot = aboutMiddle ? std::midpoint(range.low, range.high) : opposite;
    return {(edge + distance - pivot) / (edge - pivot), pivot};
}

} // namespace

double AxisTransform::operator()(double coordinate) const
{
    if (isIdentity())
        return coordinate;
    return (factor == 1.0 ? coordinate : pivot + factor * (coordinate - pivot)) + shift;
}

bool PlaneTransform::collapsesTime() const
{
    constexpr double leastFactor = 1e-9;
    return std::abs(time.factor) < leastFactor;
}

PlaneTransform PlaneFrame::pulled(const Grip& grip, const PointDrag::Place& distance, bool aboutMiddle) const
{
    if (grip.moves())
        return {{1.0, 0.0, distance.time}, {1.0, 0.0, distance.value}};
    return {pulledSide(time, grip.time, distance.time, aboutMiddle),
            pulledSide(value, grip.value, distance.value, aboutMiddle)};
}

} // namespace curveeditor
