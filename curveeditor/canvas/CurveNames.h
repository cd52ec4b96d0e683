// SPDX-License-Identifier: MIT
#pragma once

class QPainter;
class ViewPort;
struct CurveEditorTheme;

namespace curveeditor {

class CanvasCurves;

/// Writes the name of each shown curve, at most twelve, at the right edge of the canvas, where the curve leaves it, or
/// further left where another name stands, the current one first. A name that finds no place is left out, and so are all
/// on a narrow canvas. What is drawn later lies over them.
void drawCurveNames(QPainter& painter, const CanvasCurves& curves, const ViewPort& view,
                    const CurveEditorTheme& theme);

} // namespace curveeditor
