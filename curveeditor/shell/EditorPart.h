// SPDX-License-Identifier: MIT
#pragma once

/// What a host may take away from a `CurveEditor`, see `CurveEditor::setPartShown`.
enum class EditorPart {
    // Areas: hidden, while the commands in them keep their keys.
    MenuBar,        ///< the menus "File", "Curves", "Options" and "Edit"
    ToolBar,        ///< the buttons beside them, which fit the view and scale and pan the selected points
    List,           ///< the curves on the canvas, with filter and "+". Without it Insert acts on the canvas
    Pages,          ///< all that is below the canvas
    EnvelopePage,   ///< numbers of the selected point, and behaviours
    ExpressionPage, ///< formula, and the place of the mouse
    PointsPage,     ///< the table of points
    // Subjects: their commands and keys are gone, too.
    Files,    ///< "Load curve" and "Save curve"
    Formulas, ///< the page of formulas. Curves that are formulas stay so, and can be seen, baked and reset
    Pictures, ///< "Load image" and "Clear image"; a picture that is there stays
    Fitting   ///< "Simplify" and "Bake"
};
