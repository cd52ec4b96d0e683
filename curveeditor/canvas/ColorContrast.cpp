// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ColorContrast.h>

#include <curveeditor/canvas/CurveEditorTheme.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace curveeditor {

namespace {

using Triple = std::array<double, 3>;

constexpr int bisections = 16;

double linearOf(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double channelOf(double linear)
{
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1.0 / 2.4) - 0.055;
}

Triple linearRgb(const QColor& color)
{
    return {linearOf(color.redF()), linearOf(color.greenF()), linearOf(color.blueF())};
}

double luminanceOf(const QColor& color)
{
    const auto [red, green, blue] = linearRgb(color);
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

// Björn Ottosson, "A perceptual color space for image processing", 2020.

Triple oklabOf(const QColor& color)
{
    const auto [red, green, blue] = linearRgb(color);
    const double l = std::cbrt(0.4122214708 * red + 0.5363325363 * green + 0.0514459929 * blue);
    const double m = std::cbrt(0.2119034982 * red + 0.6806995451 * green + 0.1073969566 * blue);
    const double s = std::cbrt(0.0883024619 * red + 0.2817188376 * green + 0.6299787005 * blue);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

Triple linearRgbOf(const Triple& oklab)
{
    const auto [lightness, a, b] = oklab;
    const double l = std::pow(lightness + 0.3963377774 * a + 0.2158037573 * b, 3);
    const double m = std::pow(lightness - 0.1055613458 * a - 0.0638541728 * b, 3);
    const double s = std::pow(lightness - 0.0894841775 * a - 1.2914855480 * b, 3);
    return {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
            -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
            -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
}

/// The largest of 0 to 1 for which `holds`, which is true up to some number.
template <typename Holds> double bisect(const Holds& holds)
{
    double low = 0.0;
    double high = 1.0;
    for (int i = 0; i < bisections; ++i) {
        const double middle = (low + high) / 2.0;
        (holds(middle) ? low : high) = middle;
    }
    return low;
}

/// The colour of that lightness and hue, as vivid as the screen can show.
QColor withLightness(const Triple& oklab, double lightness)
{
    const auto rgb = [&](double vividness) {
        return linearRgbOf({lightness, oklab[1] * vividness, oklab[2] * vividness});
    };
    const auto isShown = [&](double vividness) {
        const Triple channels = rgb(vividness);
        return std::all_of(channels.begin(), channels.end(),
                           [](double channel) { return channel >= 0.0 && channel <= 1.0; });
    };
    const auto [red, green, blue] = rgb(isShown(1.0) ? 1.0 : bisect(isShown));
    const auto byte = [](double linear) {
        return int(std::lround(255.0 * channelOf(std::clamp(linear, 0.0, 1.0))));
    };
    return QColor(byte(red), byte(green), byte(blue));
}

double leastContrast(const QColor& color, const std::vector<QColor>& backgrounds)
{
    double least = 21.0;
    for (const QColor& background : backgrounds)
        least = std::min(least, contrastOf(color, background));
    return least;
}

} // namespace

double contrastOf(const QColor& left, const QColor& right)
{
    const auto [darker, lighter] = std::minmax({luminanceOf(left), luminanceOf(right)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor mixedColor(const QColor& color, const QColor& background, double share)
{
    const auto channel = [share](int own, int other) {
        return int(own * share + other * (1.0 - share));
    };
    return QColor(channel(color.red(), background.red()), channel(color.green(), background.green()),
                  channel(color.blue(), background.blue()));
}

QColor contrastingColor(const QColor& color, const std::vector<QColor>& backgrounds, double least)
{
    if (leastContrast(color, backgrounds) >= least)
        return color;
    const Triple oklab = oklabOf(color);
    QColor best;
    double bestStep = 2.0;
    for (const double extreme : {0.0, 1.0}) {
        const auto lightness = [&](double step) {
            return oklab[0] + (extreme - oklab[0]) * step;
        };
        const auto lacks = [&](double step) {
            return leastContrast(withLightness(oklab, lightness(step)), backgrounds) < least;
        };
        if (lacks(1.0))
            continue;
        double step = bisect(lacks);
        while (lacks(step)) // bytes are coarser than the bisection
            step = std::min(1.0, step + 1.0 / 256.0);
        const double distance = std::abs(lightness(step) - oklab[0]);
        if (distance < bestStep) {
            bestStep = distance;
            best = withLightness(oklab, lightness(step));
        }
    }
    if (best.isValid())
        return best;
    const bool isBlackBetter = leastContrast(Qt::black, backgrounds) > leastContrast(Qt::white, backgrounds);
    return isBlackBetter ? Qt::black : Qt::white;
}

std::pair<QColor, QColor> curveColors(const QColor& color, const QColor& background,
                                      const CurveEditorTheme& theme)
{
    const auto adapted = [&theme](const QColor& drawn) {
        return theme.adaptsCurveColors
                   ? contrastingColor(drawn, {theme.canvas, theme.selection}, contrastOfParts)
                   : drawn;
    };
    const QColor current = adapted(color);
    return {current, adapted(mixedColor(current, background, theme.otherCurveShare))};
}

} // namespace curveeditor
