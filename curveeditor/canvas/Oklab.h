// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <array>

namespace curveeditor {

/// A colour in the space Oklab, in which equal distances look about equally far apart: Björn Ottosson, "A perceptual
/// color space for image processing", 2020.
struct Oklab
{
    double lightness = 0.0; ///< 0 for black, 1 for white
    double a = 0.0;         ///< from green to red
    double b = 0.0;         ///< from blue to yellow

    static Oklab of(const QColor& color);

    double chroma() const;
};

double distance(const Oklab& left, const Oklab& right);
/// The part of the distance that is one of hue; 0 if one of both is a grey.
double hueDistance(const Oklab& left, const Oklab& right);

/// Red, green and blue in parts of the light that the screen has at most: 0 to 1 if it can show that colour.
std::array<double, 3> linearRgb(const QColor& color);
std::array<double, 3> linearRgb(const Oklab& color);
/// The nearest that a screen can show.
QColor colorOf(const std::array<double, 3>& linearRgb);

} // namespace curveeditor
