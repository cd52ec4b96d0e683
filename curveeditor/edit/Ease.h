// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <array>
#include <vector>

namespace curveeditor {

/// How a value goes from 0.0 to 1.0 while the time does. A value.
///
/// Quadratic, cubic, back and smoothstep are cubic polynomials and so are exact, in and out with one point halfway.
/// A sine has its own slopes at the ends and no point between them; others get as many as they need.
class Ease
{
public:
    enum class Shape { Sine, Quadratic, Cubic, Exponential, Back };
    enum class Side { In, Out, InOut };

    /// Slow at that side. `Back` goes below 0.0 first, or beyond 1.0.
    static Ease of(Shape shape, Side side);
    /// Level at both ends, without a point between them.
    static Ease smoothstep();

    /// x1, y1, x2 and y2 as in the `cubic-bezier` of style sheets: the inner two of the four points of a curve in that
    /// square.
    using CssNumbers = std::array<double, 4>;
    /// Each x within 0.0 and 1.0, each y no further from 0.0 than `greatestHeight`.
    static bool isCss(const CssNumbers& numbers);
    static constexpr double greatestHeight = 10.0;
    /// For numbers that are CSS.
    static Ease css(const CssNumbers& numbers);

    /// `Bezier` points from (0, 0) to (1, 1).
    const std::vector<SplineBase::PointInfo>& points() const { return points_; }
    /// How far the curve through them is from the ease at most; 0.0 where rounding alone tells them apart.
    double deviation() const { return deviation_; }
    /// The same points, bit for bit, and as far from the ease.
    bool operator==(const Ease& other) const;

private:
    class Path;

    Ease(std::vector<SplineBase::PointInfo> points, const Path& path);
    static Ease fitted(const Path& path);

    std::vector<SplineBase::PointInfo> points_;
    double deviation_ = 0.0;
};

} // namespace curveeditor
