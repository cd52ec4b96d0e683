// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/FormulaReader.h>

namespace curveeditor {

/// What a host lays down for all curves of one editor.
struct EditorSettings
{
    FormulaReader formulas;
    bool offersHold = false; ///< points of that type, to the user; those that are there are kept anyway
};

} // namespace curveeditor
