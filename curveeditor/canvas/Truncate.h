// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <limits>

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
