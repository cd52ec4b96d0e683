// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/Oklab.h>

#include <algorithm>
#include <cmath>

namespace curveeditor {

namespace {

double linearOf(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double channelOf(double linear)
{
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1.0 / 2.4) - 0.055;
}

int byteOf(double linear)
{
    return int(std::lround(255.0 * channelOf(std::clamp(linear, 0.0, 1.0))));
}

} // namespace

Oklab Oklab::of(const QColor& color)
{
    const auto [red, green, blue] = linearRgb(color);
    const double l = std::cbrt(0.4122214708 * red + 0.5363325363 * green + 0.0514459929 * blue);
    const double m = std::cbrt(0.2119034982 * red + 0.6806995451 * green + 0.1073969566 * blue);
    const double s = std::cbrt(0.0883024619 * red + 0.2817188376 * green + 0.6299787005 * blue);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

double Oklab::chroma() const
{
    return std::sqrt(a * a + b * b);
}

double distance(const Oklab& left, const Oklab& right)
{
    const Oklab step{left.lightness - right.lightness, left.a - right.a, left.b - right.b};
    return std::sqrt(step.lightness * step.lightness + step.a * step.a + step.b * step.b);
}

double hueDistance(const Oklab& left, const Oklab& right)
{
    const double product = left.chroma() * right.chroma() - left.a * right.a - left.b * right.b;
    return std::sqrt(2.0 * std::max(0.0, product));
}

std::array<double, 3> linearRgb(const QColor& color)
{
    return {linearOf(color.redF()), linearOf(color.greenF()), linearOf(color.blueF())};
}

std::array<double, 3> linearRgb(const Oklab& color)
{
    const double l = std::pow(color.lightness + 0.3963377774 * color.a + 0.2158037573 * color.b, 3);
    const double m = std::pow(color.lightness - 0.1055613458 * color.a - 0.0638541728 * color.b, 3);
    const double s = std::pow(color.lightness - 0.0894841775 * color.a - 1.2914855480 * color.b, 3);
    return {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
            -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
            -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
}

QColor colorOf(const std::array<double, 3>& linearRgb)
{
    return QColor(byteOf(linearRgb[0]), byteOf(linearRgb[1]), byteOf(linearRgb[2]));
}

} // namespace curveeditor
