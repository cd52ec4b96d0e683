// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace curveeditor {

/// The integer next to `number` on the side of zero, for every double: not-a-number gives 0, and a number
/// that no int can hold gives the nearest int.
inline int truncateToInt(double number)
{
    if (std::isnan(number))
        return 0;
    if (number >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (number <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(number);
}

/// No pixel that is computed from the plane lies further out: a marker's size can be added to it, and two of
/// them subtracted, without overflow.
constexpr int farthestPixel = 1 << 29;

/// `truncateToInt`, at most `farthestPixel` away from 0.
inline int truncateToPixel(double position)
{
    return std::clamp(truncateToInt(position), -farthestPixel, farthestPixel);
}

} // namespace curveeditor
