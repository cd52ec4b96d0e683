// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace curveeditor {

/// How many of `count` times are not later than `time`.
inline std::size_t countInWindow(const double* times, std::size_t count, double time)
{
    std::size_t earlier = 0;
    for (std::size_t index = 0; index < count; ++index)
        earlier += std::size_t(times[index] <= time);
    return earlier;
}

/// How many of the ascending `times`, at least one, are not later than `time`. Looks around the place where
/// `time` would be if the times were even, and widens the window until it holds the place. The last window is
/// small enough to count in it without branches, which would be hard to predict.
inline std::size_t countUntil(const std::vector<double>& times, double time)
{
    const std::size_t size = times.size();
    constexpr std::size_t firstReach = 8;
    if (size <= 2 * firstReach)
        return countInWindow(times.data(), size, time);
    const double share = (time - times.front()) / (times.back() - times.front());
    const auto guess = share > 0.0 ? std::size_t(std::min(share, 1.0) * double(size - 1)) : 0;
    std::size_t low = 0, high = 0;
    for (std::size_t reach = firstReach;; reach *= 8) {
        low = guess - std::min(guess, reach);
        high = guess + std::min(size - guess, reach);
        if ((low == 0 || times[low - 1] <= time) && (high == size || times[high] > time))
            break;
    }
    while (high - low > 2 * firstReach) {
        const std::size_t half = (high - low) / 2;
        (times[low + half] <= time ? low : high) = low + half;
    }
    return low + countInWindow(times.data() + low, high - low, time);
}

} // namespace curveeditor
