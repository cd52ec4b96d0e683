// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <QString>

#include <limits>
#include <vector>

/// What a host lays down for one curve, see `CurveEditor::setCurveOptions`. A value.
///
/// Points that the user makes or changes keep to it; the others stay as they are.
struct CurveOptions
{
    /// @{
    /// Where the values of points lie, ends included, in value units. Finite.
    double lowest = std::numeric_limits<double>::lowest();
    double highest = std::numeric_limits<double>::max();
    /// @}
    /// What the values of points are multiples of, counted from 0.0, in value units; the ends are rounded inward to
    /// such. 0.0 for any value. Between points the curve has any value.
    double step = 0.0;
    /// The types that points may have; one that has another gets the first. The first is that of new points too. Any
    /// if empty.
    std::vector<SplineBase::NodeType> types;
    /// The user can't edit the curve. Its points can be selected and copied, and undo and redo change it as ever.
    bool locked = false;
    /// The canvas does not show the curve: neither mouse nor keys nor menus select or edit its points, and commands for
    /// all curves leave it alone. While it is current the user still edits it where it can be seen, on the pages, and
    /// may load or reset it; undo and redo change it as ever, and select nothing.
    bool hidden = false;
    /// Plain text, shown at the curve's row in the list.
    QString toolTip;
};
