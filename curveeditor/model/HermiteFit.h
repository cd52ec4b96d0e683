// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace curveeditor {

/// Samples without a step in time: their times ascend strictly, all numbers are finite, there is at least one.
struct FitSamples
{
    std::vector<double> times, values;

    std::size_t last() const { return times.size() - 1; }
};

/// Where two cubic pieces of the fitted curve meet, at the time of a sample.
struct FitKnot
{
    std::size_t sample = 0;
    double value = 0.0;
    double left = 0.0, right = 0.0; ///< slopes
    bool isKept = false;            ///< an end, or a turn
    bool isPinned = false;          ///< goes through its sample
    bool isLimited = false;         ///< the curve must not turn beside it
    bool isCorner = false;          ///< the slopes may differ
    bool isTurn = false;            ///< has slope 0.0 unless it is a corner
};

/// Finds few knots for which the cubic Hermite pieces between them are near all samples.
///
/// Knots are inserted until the tolerance holds, and then taken out where it goes on to hold. For given knots
/// the curve is linear in their values and slopes, and so these are the solution of normal equations. A knot
/// that is taken out changes its neighbours only, a few to both sides.
///
/// Where numbers are so huge or tiny that the equations can't be reckoned, the tolerance may be missed.
class HermiteFit
{
public:
    HermiteFit(const FitSamples& samples, double tolerance, bool isMonotone);

    std::vector<FitKnot> knots();

private:
    enum class Edges { Free, Fixed };
    /// Products of the basis functions with each other and with the values, over the samples of a piece.
    struct Sums
    {
        std::array<std::array<double, 4>, 4> products = {};
        std::array<double, 4> right = {};
    };

    class Chain;

    void findCorners();
    void findRuns();
    std::vector<FitKnot> firstKnots() const;
    FitKnot knotAt(std::size_t sample) const;

    void solve(std::vector<FitKnot>& knots, Edges edges) const;
    Sums sumsOver(std::size_t first, std::size_t last) const;
    void limitValues(std::vector<FitKnot>& knots, std::size_t first, std::size_t last) const;
    void limitSlopes(std::vector<FitKnot>& knots, std::size_t first, std::size_t last) const;
    bool isRun(const FitKnot& from, const FitKnot& to) const;
    bool isInnerEdge(const std::vector<FitKnot>& knots, std::size_t index) const;
    bool isMonotone(const FitKnot& from, const FitKnot& to) const;

    double deviation(const FitKnot& from, const FitKnot& to) const;
    bool staysNear(const FitKnot& from, const FitKnot& to) const;
    bool holds(const FitKnot& from, const FitKnot& to) const;
    std::size_t placeToSplit(const FitKnot& from, const FitKnot& to) const;
    void pin(FitKnot& knot) const;
    bool refine(std::vector<FitKnot>& knots, bool isThorough) const;
    std::vector<FitKnot> enoughKnots() const;
    void removeSpareKnots(std::vector<FitKnot>& knots) const;

    const FitSamples& samples_;
    double tolerance_;
    bool isMonotone_;
    double timeUnit_ = 1.0;
    std::vector<bool> isCorner_;             ///< for each sample
    std::vector<std::size_t> rises_, falls_; ///< until a sample, if the curve is to be monotone
};

} // namespace curveeditor
