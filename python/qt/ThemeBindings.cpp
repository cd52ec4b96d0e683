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
        .def_readwrite("follows_palette", &CurveEditorTheme::followsPalette)
        .def_readwrite("canvas", &CurveEditorTheme::canvas)
        .def_readwrite("selection", &CurveEditorTheme::selection)
        .def_readwrite("mark", &CurveEditorTheme::mark)
        .def_readwrite("hint", &CurveEditorTheme::hint)
        .def_readwrite("grid_lines", &CurveEditorTheme::gridLines)
        .def_readwrite("grid_width", &CurveEditorTheme::gridWidth)
        .def_readwrite("fine_grid_lines", &CurveEditorTheme::fineGridLines)
        .def_readwrite("zero_lines", &CurveEditorTheme::zeroLines)
        .def_readwrite("frame_v_line", &CurveEditorTheme::frameVLine)
        .def_readwrite("frame_h_line", &CurveEditorTheme::frameHLine)
        .def_readwrite("frame_width", &CurveEditorTheme::frameWidth)
        .def_readwrite("labels", &CurveEditorTheme::labels)
        .def_readwrite("label_family", &CurveEditorTheme::labelFamily)
        .def_readwrite("label_points", &CurveEditorTheme::labelPoints)
        .def_readwrite("label_stretch", &CurveEditorTheme::labelStretch)
        .def_readwrite("spaces_labels", &CurveEditorTheme::spacesLabels)
        .def_readwrite("time_line", &CurveEditorTheme::timeLine)
        .def_readwrite("time_line_width", &CurveEditorTheme::timeLineWidth)
        .def_readwrite("time_line_blends", &CurveEditorTheme::timeLineBlends)
        .def_readwrite("time_line_grip", &CurveEditorTheme::timeLineGrip)
        .def_readwrite("names_curves", &CurveEditorTheme::namesCurves)
        .def_readwrite("curve_width", &CurveEditorTheme::curveWidth)
        .def_readwrite("other_curve_width", &CurveEditorTheme::otherCurveWidth)
        .def_readwrite("dotted_width", &CurveEditorTheme::dottedWidth)
        .def_readwrite("other_curve_share", &CurveEditorTheme::otherCurveShare)
        .def_readwrite("smooth", &CurveEditorTheme::smooth)
        .def_readwrite("adapts_curve_colors", &CurveEditorTheme::adaptsCurveColors)
        .def_readwrite("control_point", &CurveEditorTheme::controlPoint)
        .def_readwrite("control_point_selected", &CurveEditorTheme::controlPointSelected)
        .def_readwrite("control_point_outline", &CurveEditorTheme::controlPointOutline)
        .def_readwrite("guide", &CurveEditorTheme::guide)
        .def_readwrite("point_shape", &CurveEditorTheme::pointShape)
        .def_readwrite("selected_point_shape", &CurveEditorTheme::selectedPointShape)
        .def_readwrite("point_size", &CurveEditorTheme::pointSize)
        .def_readwrite("selected_point_size", &CurveEditorTheme::selectedPointSize)
        .def_readwrite("controller", &CurveEditorTheme::controller)
        .def_readwrite("controller_selected", &CurveEditorTheme::controllerSelected)
        .def_readwrite("handle_width", &CurveEditorTheme::handleWidth)
        .def_readwrite("handle_size", &CurveEditorTheme::handleSize)
        .def_readwrite("fixed_handle_size", &CurveEditorTheme::fixedHandleSize)
        .def_readwrite("handle_length", &CurveEditorTheme::handleLength)
        .def_readwrite("grab_distance", &CurveEditorTheme::grabDistance)
        .def_readwrite("handle_grab_distance", &CurveEditorTheme::handleGrabDistance)
        .def_readwrite("curve_grab_distance", &CurveEditorTheme::curveGrabDistance)
        .def_readwrite("panel_family", &CurveEditorTheme::panelFamily)
        .def_readwrite("field", &CurveEditorTheme::field)
        .def_readwrite("field_text", &CurveEditorTheme::fieldText)
        .def_readwrite("formula", &CurveEditorTheme::formula)
        .def_readwrite("formula_text", &CurveEditorTheme::formulaText)
        .def_readwrite("formula_warning", &CurveEditorTheme::formulaWarning)
        .def_readwrite("preview", &CurveEditorTheme::preview)
        .def_readwrite("preview_curve", &CurveEditorTheme::previewCurve)
        .def_readwrite("preview_middle", &CurveEditorTheme::previewMiddle);
}

} // namespace curveeditor::python
