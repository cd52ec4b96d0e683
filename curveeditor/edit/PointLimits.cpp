// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PointLimits.h>

#include <curveeditor/model/PointTypes.h>

#include <algorithm>
#include <cmath>

namespace curveeditor {

namespace {

constexpr double uncountable = 4503599627370496.0; // 2^52: from here on numbers are too coarse for steps
constexpr double roundingShare = 1e-9;

/// `bound` in steps, rounded by `inward` unless rounding alone keeps it from a whole number.
double boundInSteps(double bound, double step, double (*inward)(double))
{
    const double steps = bound / step, nearest = std::round(steps);
    return std::abs(steps - nearest) <= roundingShare * std::max(1.0, std::abs(steps)) ? nearest
                                                                                       : inward(steps);
}

double firstStep(const CurveOptions& options)
{
    return boundInSteps(options.lowest, options.step, [](double steps) { return std::ceil(steps); });
}

double lastStep(const CurveOptions& options)
{
    return boundInSteps(options.highest, options.step, [](double steps) { return std::floor(steps); });
}

bool isKnown(SplineBase::NodeType type)
{
    return PointTypes::of(type).number == type;
}

} // namespace

bool PointLimits::areSound(const CurveOptions& options)
{
    return std::isfinite(options.lowest) && std::isfinite(options.highest) && std::isfinite(options.step) &&
           options.lowest <= options.highest && options.step >= 0.0 &&
           std::all_of(options.types.begin(), options.types.end(), isKnown) &&
           (options.step == 0.0 || firstStep(options) <= lastStep(options));
}

bool PointLimits::allow(const CurveOptions& options, std::int32_t type)
{
    return options.types.empty() ||
           std::find(options.types.begin(), options.types.end(), type) != options.types.end();
}

std::optional<SplineBase::NodeType> PointLimits::fitType(const CurveOptions& options)
{
    for (const SplineBase::NodeType type : {SplineBase::Bezier, SplineBase::Linear}) {
        if (allow(options, type))
            return type;
    }
    return std::nullopt;
}

bool PointLimits::bind(const CurveOptions& options)
{
    const CurveOptions none;
    return !options.types.empty() || options.step > 0.0 || options.lowest != none.lowest ||
           options.highest != none.highest;
}

double PointLimits::bounded(const CurveOptions& options, double value)
{
    if (options.step > 0.0) {
        const double steps = std::clamp(value / options.step, firstStep(options), lastStep(options));
        if (std::abs(steps) < uncountable)
            value = std::round(steps) * options.step + 0.0; // no -0.0
    }
    return std::clamp(value, options.lowest, options.highest);
}

double PointLimits::greatestShift(const CurveOptions& options, std::span<const SplineBase::PointInfo> points)
{
    double shift = 0.0;
    for (const SplineBase::PointInfo& point : points)
        shift = std::max(shift, std::abs(bounded(options, point.pos) - point.pos));
    return shift;
}

} // namespace curveeditor
