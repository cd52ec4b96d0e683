// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace curveeditor {

/// The width in logical pixels that a window takes for its frame to show the whole title, with one button on
/// each side of it.
int titleWidth(const QWidget& window);

} // namespace curveeditor
