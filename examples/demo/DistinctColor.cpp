// SPDX-License-Identifier: MIT
#include "DistinctColor.h"

#include <cmath>

QColor distinctColor(std::size_t index)
{
    // Steps of the golden section spread any number of hues evenly.
    constexpr double goldenSection = 0.618033988749895;
    constexpr double saturations[] = {0.55, 0.75, 0.4};
    const double hue = std::fmod(double(index) * goldenSection, 1.0);
    return QColor::fromHsvF(float(hue), float(saturations[index % 3]), 1.0F);
}
