// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace curveeditor {

/// The lesser of the two; not-a-number if either is that.
inline double minimum(double a, double b)
{
    return b < a || std::isnan(b) ? b : a;
}

/// The greater of the two; not-a-number if either is that.
inline double maximum(double a, double b)
{
    return b > a || std::isnan(b) ? b : a;
}

/// What is left of `a` after whole steps of `b`: from 0 to `b`, so of the sign of `b`. Not-a-number for `b` = 0.
inline double flooredModulo(double a, double b)
{
    const double rest = std::fmod(a, b);
    return (rest < 0.0 && b > 0.0) || (rest > 0.0 && b < 0.0) ? rest + b : std::copysign(rest, b);
}

} // namespace curveeditor
