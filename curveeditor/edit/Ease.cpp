// SPDX-License-Identifier: MIT
#include <curveeditor/edit/Ease.h>

#include <curveeditor/model/CurveFit.h>
#include <curveeditor/model/SplineState.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <utility>

namespace curveeditor {

namespace {

using EasePoints = std::vector<SplineBase::PointInfo>;

constexpr double greatestDeviation = 0.005;
constexpr double fitTolerance = 0.0045; // from samples
constexpr int fewestSamples = 1024;
constexpr int mostSamples = 16384;
constexpr int measuredSamples = 10000;
constexpr double roundingError = 1e-9;
constexpr double overshoot = 1.70158; // by which `Back` goes a tenth of the step too far

/// The side `In` of a shape, and its slopes at both ends.
struct ShapeIn
{
    double (*value)(double time);
    double firstSlope, lastSlope;
};

/// In the order of `Ease::Shape`.
constexpr ShapeIn shapes[] = {
    {[](double time) { return 1.0 - std::cos(time * std::numbers::pi / 2.0); }, 0.0, std::numbers::pi / 2.0},
    {[](double time) { return time * time; }, 0.0, 2.0},
    {[](double time) { return time * time * time; }, 0.0, 3.0},
    {[](double time) { return time > 0.0 ? std::exp2(10.0 * (time - 1.0)) : 0.0; }, 0.0, 0.0},
    {[](double time) { return ((overshoot + 1.0) * time - overshoot) * time * time; }, 0.0, overshoot + 3.0}};

double valueOf(const ShapeIn& shape, Ease::Side side, double time)
{
    if (side == Ease::Side::In)
        return shape.value(time);
    if (side == Ease::Side::Out)
        return 1.0 - shape.value(1.0 - time);
    return time < 0.5 ? shape.value(2.0 * time) / 2.0 : 1.0 - shape.value(2.0 - 2.0 * time) / 2.0;
}

SplineBase::PointInfo easePoint(double time, double value, double slope)
{
    return {.time = time, .pos = value, .tanLeft = slope, .tanRight = slope, .type = SplineBase::Bezier};
}

EasePoints betweenEnds(double firstSlope, double lastSlope)
{
    return {easePoint(0.0, 0.0, firstSlope), easePoint(1.0, 1.0, lastSlope)};
}

/// One coordinate of a cubic Bezier curve from 0.0 to 1.0.
double bernstein(double first, double second, double place)
{
    const double rest = 1.0 - place;
    return ((3.0 * first * rest + 3.0 * second * place) * rest + place * place) * place;
}

} // namespace

/// The ease itself: its time and its value at places from 0.0 to 1.0.
class Ease::Path
{
public:
    explicit Path(std::function<std::pair<double, double>(double)> at) : at_(std::move(at)) {}

    /// At equal distances, in ascending times.
    std::pair<std::vector<double>, std::vector<double>> samples(int count) const
    {
        std::vector<double> times, values;
        for (int i = 0; i <= count; ++i) {
            const auto [time, value] = at_(double(i) / count);
            times.push_back(times.empty() ? time : std::max(time, times.back()));
            values.push_back(value);
        }
        return {times, values};
    }

private:
    std::function<std::pair<double, double>(double)> at_;
};

Ease::Ease(EasePoints points, const Path& path) : points_(std::move(points))
{
    SplineBase spline;
    spline.assign({.points = points_});
    const auto [times, values] = path.samples(measuredSamples);
    for (std::size_t i = 0; i < times.size(); ++i)
        deviation_ = std::max(deviation_, std::abs(spline(times[i]) - values[i]));
    if (deviation_ < roundingError)
        deviation_ = 0.0;
}

/// Where the path is steep its samples are far from each other, and the fit knows nothing of what is between them.
Ease Ease::fitted(const Path& path)
{
    for (int count = fewestSamples;; count *= 4) {
        const auto [times, values] = path.samples(count);
        const Ease ease(CurveFit::fit(times, values, {.tolerance = fitTolerance}).spline.points, path);
        if (ease.deviation() <= greatestDeviation || count >= mostSamples)
            return ease;
    }
}

Ease Ease::of(Shape shape, Side side)
{
    const ShapeIn& in = shapes[int(shape)];
    const Path path([&in, side](double time) { return std::pair(time, valueOf(in, side, time)); });
    if (shape == Shape::Exponential)
        return fitted(path);
    if (side == Side::In)
        return {betweenEnds(in.firstSlope, in.lastSlope), path};
    if (side == Side::Out)
        return {betweenEnds(in.lastSlope, in.firstSlope), path};
    EasePoints points = betweenEnds(in.firstSlope, in.firstSlope);
    if (shape != Shape::Sine) // which is near enough
        points.insert(points.begin() + 1, easePoint(0.5, 0.5, in.lastSlope));
    return {points, path};
}

Ease Ease::smoothstep()
{
    return {betweenEnds(0.0, 0.0),
            Path([](double time) { return std::pair(time, (3.0 - 2.0 * time) * time * time); })};
}

bool Ease::operator==(const Ease& other) const
{
    return deviation_ == other.deviation_ && std::equal(points_.begin(), points_.end(), other.points_.begin(),
                                                        other.points_.end(), isSamePoint);
}

bool Ease::isCss(const CssNumbers& numbers)
{
    const auto isWithin = [](double number, double low, double high) {
        return number >= low && number <= high;
    };
    return isWithin(numbers[0], 0.0, 1.0) && isWithin(numbers[2], 0.0, 1.0) &&
           isWithin(numbers[1], -greatestHeight, greatestHeight) &&
           isWithin(numbers[3], -greatestHeight, greatestHeight);
}

Ease Ease::css(const CssNumbers& numbers)
{
    return fitted(Path([&numbers](double place) {
        return std::pair(bernstein(numbers[0], numbers[2], place), bernstein(numbers[1], numbers[3], place));
    }));
}

} // namespace curveeditor
