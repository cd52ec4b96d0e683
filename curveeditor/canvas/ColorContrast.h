// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <utility>
#include <vector>

struct CurveEditorTheme;

namespace curveeditor {

/// The contrast of two opaque colours after WCAG 2.2: from 1 for equal ones to 21 for black and white.
double contrastOf(const QColor& left, const QColor& right);

/// Channel by channel the part `share` of `color`, the rest of `background`, rounded down.
QColor mixedColor(const QColor& color, const QColor& background, double share);

/// `color` if its contrast to each of `backgrounds` is `least` already. Else the nearest in lightness, of the same
/// hue, that has it; where none has, black or white, whichever stands out more. Lightness and hue are those of the
/// colour space Oklab.
QColor contrastingColor(const QColor& color, const std::vector<QColor>& backgrounds, double least);

/// The least contrast of what is not text.
constexpr double contrastOfParts = 3.0;

/// What a curve of that colour is drawn in: when it is the current one, and when it is not, which dims it towards
/// `background`. Both stand out of the canvas if the theme adapts them.
std::pair<QColor, QColor> curveColors(const QColor& color, const QColor& background,
                                      const CurveEditorTheme& theme);

} // namespace curveeditor
