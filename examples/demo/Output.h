// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class CurveEditor;

/// Write what an editor shows into a file. An old file of that name is replaced when the new one is complete.
/// Each returns an empty text, or the reason why nothing was written.
namespace Output {

/// The dialog as a PNG picture. An editor that is not visible is drawn without appearing on a screen.
QString writeScreenshot(CurveEditor& editor, const QString& fileName);

/// The sensor table of all curves on the canvas.
QString writeTable(CurveEditor& editor, const QString& fileName);

} // namespace Output
