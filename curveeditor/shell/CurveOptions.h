// SPDX-License-Identifier: MIT
#pragma once

/// What a host lays down for one curve, see `CurveEditor::setCurveOptions`. A value.
struct CurveOptions
{
    /// The user can't edit the curve. Its points can be selected and copied, and undo and redo change it as ever.
    bool locked = false;
};
