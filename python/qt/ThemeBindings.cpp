// SPDX-License-Identifier: MIT
#include "Bindings.h"
#include "Casters.h"

#include <curveeditor/canvas/CurveEditorTheme.h>

#include <QPalette>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

void bindTheme(py::module_& module)
{
    py::class_<CurveEditorTheme> theme(
        module, "Theme", "All colours, widths and sizes of the editor. A colour that is not valid is none.");
    py::enum_<CurveEditorTheme::Shape>(theme, "Shape", "Of the markers of points.")
        .value("SQUARE", CurveEditorTheme::Shape::Square)
        .value("CIRCLE", CurveEditorTheme::Shape::Circle)
        .value("DIAMOND", CurveEditorTheme::Shape::Diamond);
    theme.def(py::init<>(), "As `described`.")
        .def_static("described", &CurveEditorTheme::described, "What an editor has that never got a theme.")
        .def_static("light", &CurveEditorTheme::light, "Smooth lines on a light canvas.")
        .def_static("dark", &CurveEditorTheme::dark, "Smooth lines on a dark canvas.")
        .def_static(
            "from_palette",
            [](const QColor& base, const QColor& text, const QColor& highlight) {
                QPalette palette;
                palette.setColor(QPalette::Base, base);
                palette.setColor(QPalette::Text, text);
                palette.setColor(QPalette::Highlight, highlight);
                return CurveEditorTheme::fromPalette(palette);
            },
            "base"_a, "text"_a, "highlight"_a, "The same look in these colours of a palette.")
        .def_readwrite(
            "follows_palette", &CurveEditorTheme::followsPalette,
            "When the palette of the editor changes, the editor takes `from_palette` of the new one.")
        .def_readwrite("canvas", &CurveEditorTheme::canvas, "What all else is drawn on; opaque.")
        .def_readwrite("selection", &CurveEditorTheme::selection,
                       "Behind the span of selected points, and in a rubber band.")
        .def_readwrite("mark", &CurveEditorTheme::mark,
                       "Rubber band, cross of the last press, and frame of a canvas that has the focus.")
        .def_readwrite("hint", &CurveEditorTheme::hint,
                       "What to do on an empty canvas; not valid: nothing is said.")
        .def_readwrite("grid_lines", &CurveEditorTheme::gridLines, "Of the plain grid.")
        .def_readwrite("grid_width", &CurveEditorTheme::gridWidth, "Of grid lines.")
        .def_readwrite(
            "fine_grid_lines", &CurveEditorTheme::fineGridLines,
            "If valid, lines of this colour stand between those at 1, 2 or 5 times a power of ten.")
        .def_readwrite("zero_lines", &CurveEditorTheme::zeroLines,
                       "The grid lines at 0; not valid: as `grid_lines`.")
        .def_readwrite("frame_v_line", &CurveEditorTheme::frameVLine, "Along the bottom edge.")
        .def_readwrite("frame_h_line", &CurveEditorTheme::frameHLine, "Along the left edge.")
        .def_readwrite("frame_width", &CurveEditorTheme::frameWidth,
                       "Of both, the outer half of which lies beyond the edge.")
        .def_readwrite("labels", &CurveEditorTheme::labels, "The numbers along the axes.")
        .def_readwrite("label_family", &CurveEditorTheme::labelFamily,
                       "Their font; empty: that of the application.")
        .def_readwrite("label_points", &CurveEditorTheme::labelPoints,
                       "Their size in points, to 100; below 1: that of the application.")
        .def_readwrite("label_stretch", &CurveEditorTheme::labelStretch,
                       "Per cent of the font's own width, 50 to 200.")
        .def_readwrite(
            "spaces_labels", &CurveEditorTheme::spacesLabels,
            "Each label stands in the middle of its line, and one that would meet another is left out.")
        .def_readwrite("time_line", &CurveEditorTheme::timeLine,
                       "Also of the lines through what a dragged point snaps to.")
        .def_readwrite("time_line_width", &CurveEditorTheme::timeLineWidth, "Of these lines.")
        .def_readwrite("time_line_blends", &CurveEditorTheme::timeLineBlends,
                       "The time line is the bitwise OR of its colour and what it covers, inverted.")
        .def_readwrite("time_line_grip", &CurveEditorTheme::timeLineGrip,
                       "Width of the grip at the foot of the time line, 0 for none.")
        .def_readwrite("names_curves", &CurveEditorTheme::namesCurves,
                       "Each curve has its name at the right edge of the canvas.")
        .def_readwrite("curve_width", &CurveEditorTheme::curveWidth, "Of the current curve.")
        .def_readwrite("other_curve_width", &CurveEditorTheme::otherCurveWidth, "Of the other curves.")
        .def_readwrite("dotted_width", &CurveEditorTheme::dottedWidth,
                       "Of the dotted lines of curves, outside their points and beyond their bounds.")
        .def_readwrite("other_curve_share", &CurveEditorTheme::otherCurveShare,
                       "How much of its colour a curve keeps that is not current.")
        .def_readwrite("smooth", &CurveEditorTheme::smooth, "Lines and markers are antialiased.")
        .def_readwrite("adapts_curve_colors", &CurveEditorTheme::adaptsCurveColors,
                       "Curves are drawn in other colours where they can't be seen or told apart.")
        .def_readwrite("control_point", &CurveEditorTheme::controlPoint, "Points that are not selected.")
        .def_readwrite("control_point_selected", &CurveEditorTheme::controlPointSelected, "Points that are.")
        .def_readwrite("control_point_outline", &CurveEditorTheme::controlPointOutline,
                       "Around both; not valid: none.")
        .def_readwrite("guide", &CurveEditorTheme::guide,
                       "The dotted line through a selected point; not valid: as `control_point_selected`.")
        .def_readwrite("point_shape", &CurveEditorTheme::pointShape,
                       "Of points that are not selected, where `smooth` is set.")
        .def_readwrite("selected_point_shape", &CurveEditorTheme::selectedPointShape, "Of points that are.")
        .def_readwrite("point_size", &CurveEditorTheme::pointSize, "Of points that are not selected.")
        .def_readwrite("selected_point_size", &CurveEditorTheme::selectedPointSize, "Of points that are.")
        .def_readwrite("controller", &CurveEditorTheme::controller, "Tangent handles.")
        .def_readwrite("controller_selected", &CurveEditorTheme::controllerSelected,
                       "The one that is dragged.")
        .def_readwrite("handle_width", &CurveEditorTheme::handleWidth,
                       "Of the line from a point to its handle.")
        .def_readwrite("handle_size", &CurveEditorTheme::handleSize, "Of handles.")
        .def_readwrite("fixed_handle_size", &CurveEditorTheme::fixedHandleSize,
                       "Of handles that can't be dragged.")
        .def_readwrite("handle_length", &CurveEditorTheme::handleLength,
                       "From a point to its handle, for a tangent of plain length.")
        .def_readwrite("grab_distance", &CurveEditorTheme::grabDistance,
                       "A press takes a point or a handle that is nearer.")
        .def_readwrite("handle_grab_distance", &CurveEditorTheme::handleGrabDistance,
                       "The same of the line between two handles.")
        .def_readwrite("curve_grab_distance", &CurveEditorTheme::curveGrabDistance,
                       "The same of a curve, up and down.")
        .def_readwrite("panel_family", &CurveEditorTheme::panelFamily,
                       "The font around the canvas; empty: that of the application.")
        .def_readwrite("field", &CurveEditorTheme::field, "Fields of numbers.")
        .def_readwrite("field_text", &CurveEditorTheme::fieldText, "The numbers in them.")
        .def_readwrite("formula", &CurveEditorTheme::formula, "The formula line.")
        .def_readwrite("formula_text", &CurveEditorTheme::formulaText, "The formula in it.")
        .def_readwrite("formula_warning", &CurveEditorTheme::formulaWarning, "The faulty part of a formula.")
        .def_readwrite("preview", &CurveEditorTheme::preview, "The small picture on the page of points.")
        .def_readwrite("preview_curve", &CurveEditorTheme::previewCurve, "The curve in it.")
        .def_readwrite("preview_middle", &CurveEditorTheme::previewMiddle, "The middle of that curve.");
}

} // namespace curveeditor::python
