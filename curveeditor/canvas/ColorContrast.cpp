// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ColorContrast.h>

#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/Oklab.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace curveeditor {

namespace {

using Channels = std::array<double, 3>;

constexpr int bisections = 16;

double luminanceOf(const QColor& color)
{
    const auto [red, green, blue] = linearRgb(color);
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
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
QColor withLightness(const Oklab& color, double lightness)
{
    const auto rgb = [&](double vividness) {
        return linearRgb(Oklab{lightness, color.a * vividness, color.b * vividness});
    };
    const auto isShown = [&](double vividness) {
        const Channels channels = rgb(vividness);
        return std::all_of(channels.begin(), channels.end(),
                           [](double channel) { return channel >= 0.0 && channel <= 1.0; });
    };
    return colorOf(rgb(isShown(1.0) ? 1.0 : bisect(isShown)));
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
    const Oklab oklab = Oklab::of(color);
    QColor best;
    double bestStep = 2.0;
    for (const double extreme : {0.0, 1.0}) {
        const auto lightness = [&](double step) {
            return oklab.lightness + (extreme - oklab.lightness) * step;
        };
        const auto lacks = [&](double step) {
            return leastContrast(withLightness(oklab, lightness(step)), backgrounds) < least;
        };
        if (lacks(1.0))
            continue;
        double step = bisect(lacks);
        while (lacks(step)) // bytes are coarser than the bisection
            step = std::min(1.0, step + 1.0 / 256.0);
        const double distance = std::abs(lightness(step) - oklab.lightness);
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
