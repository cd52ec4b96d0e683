// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/ViewStep.h>

#include <QByteArray>

#include <optional>

namespace curveeditor {

/// How a user has arranged an editor, see `CurveEditor::saveState`. A value.
struct EditorState
{
    QByteArray columns; ///< of the splitter beside the list, as `QSplitter` writes it
    QByteArray rows;    ///< of that below the canvas
    int page = 0;
    bool snaps = false;
    unsigned snapKinds = 0; ///< see `Snap::Kind`
    bool editsAllCurves = false;
    bool alignsHandles = false;
    bool showsFrames = true;
    bool hasOwnScale = false;
    bool showsSpeed = false;
    AxisRange times = {};
    AxisRange values =
        {}; ///< heights, where curves have own scales: another curve may be the current one then

    QByteArray bytes() const;
    /// Null for what `bytes` has not written.
    static std::optional<EditorState> read(const QByteArray& bytes);
};

} // namespace curveeditor
