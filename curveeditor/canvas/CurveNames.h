// SPDX-License-Identifier: MIT
#pragma once

class QPainter;
class ViewPort;
struct CurveEditorTheme;

namespace curveeditor {

class CanvasCurves;

/// Writes the name of each shown curve at the right edge of the canvas, where it leaves it, the current one first. A name
/// that would meet another one or the numbers along an edge is left out, and so are all on a narrow
/// canvas. What is drawn later lies over them.
void drawCurveNames(QPainter& painter, const CanvasCurves& curves, const ViewPort& view,
                    const CurveEditorTheme& theme);

} // namespace curveeditor
