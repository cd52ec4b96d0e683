// SPDX-License-Identifier: MIT
#pragma once

/// Whether more of an edit is to follow.
enum class EditPhase {
    Preview, ///< a step of an edit that goes on: of a drag, or of typing in a field
    Commit   ///< the edit is done, or a step back or forth is
};

/// Where a change of a curve comes from.
enum class EditCause {
    Edit,   ///< the user edited the curve
    Undo,   ///< an edit was taken back, by the undo stack or by `CurveEditor::apply` ...
    Redo,   ///< ... or done again
    Cancel, ///< the user took back what was previewed
    Host    ///< the host edited the curve, see `CurveEditor::edit`
};
