// SPDX-License-Identifier: MIT
#include <curveeditor/model/LinearFit.h>

#include <algorithm>
#include <limits>

namespace curveeditor {

namespace {

/// Lines that reach no further for so long, and for so many times what they have reached, are given up.
constexpr std::size_t shortestSearch = 64;
constexpr std::size_t searchedTimes = 2;

/// The slopes of the lines from one sample that are near all others up to another one narrow with each of these.
std::size_t farthestFrom(std::size_t start, const FitSamples& samples, double tolerance)
{
    double steepestDown = -std::numeric_limits<double>::infinity();
    double steepestUp = std::numeric_limits<double>::infinity();
    std::size_t reached = start + 1;
    for (std::size_t i = start + 1; i <= samples.last() && steepestDown <= steepestUp; ++i) {
        const double time = samples.times[i] - samples.times[start];
        const double rise = samples.values[i] - samples.values[start];
        const double slope = rise / time;
        if (steepestDown <= slope && slope <= steepestUp)
            reached = i;
        if (i - reached > std::max(shortestSearch, searchedTimes * (reached - start)))
            break;
        steepestDown = std::max(steepestDown, (rise - tolerance) / time);
        steepestUp = std::min(steepestUp, (rise + tolerance) / time);
    }
    return reached;
}

} // namespace

std::vector<std::size_t> linearKnots(const FitSamples& samples, double tolerance)
{
    std::vector<std::size_t> knots{0};
    while (knots.back() < samples.last())
        knots.push_back(farthestFrom(knots.back(), samples, tolerance));
    return knots;
}

} // namespace curveeditor
