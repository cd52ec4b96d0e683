// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

#ifdef __MINGW32__ // whose header hides them from strict C++
extern "C" double _j0(double x);
extern "C" double _j1(double x);
#endif

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

/// The Bessel functions of the first kind of order 0 and 1. POSIX and Windows have them, under these names, and C++ does
/// not: its special functions are missing in libc++.
inline double besselJ0(double x)
{
#ifdef _WIN32
    return ::_j0(x);
#else
    return ::j0(x);
#endif
}
inline double besselJ1(double x)
{
#ifdef _WIN32
    return ::_j1(x);
#else
    return ::j1(x);
#endif
}

} // namespace curveeditor
