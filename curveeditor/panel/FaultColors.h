// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

namespace curveeditor {

/// The palette of a line whose text can't be read, made from its own.
inline QPalette faultColors(QPalette colors)
{
    colors.setColor(QPalette::Base, QColor(255, 210, 200));
    colors.setColor(QPalette::Text, QColor(96, 0, 0));
    return colors;
}

} // namespace curveeditor
