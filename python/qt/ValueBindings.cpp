// SPDX-License-Identifier: MIT
#include "Bindings.h"
#include "Casters.h"

#include "../model/Numbered.h"

#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/shell/CurveChange.h>
#include <curveeditor/shell/CurveOptions.h>
#include <curveeditor/shell/EditorPart.h>

#include <optional>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

namespace {

void bindEnumerations(py::module_& module)
{
    py::enum_<EditorPart>(module, "EditorPart", "What an application may take away from the editor.")
        .value("MENU_BAR", EditorPart::MenuBar)
        .value("TOOL_BAR", EditorPart::ToolBar)
        .value("LIST", EditorPart::List)
        .value("PAGES", EditorPart::Pages)
        .value("ENVELOPE_PAGE", EditorPart::EnvelopePage)
        .value("EXPRESSION_PAGE", EditorPart::ExpressionPage)
        .value("POINTS_PAGE", EditorPart::PointsPage)
        .value("FILES", EditorPart::Files)
        .value("FORMULAS", EditorPart::Formulas)
        .value("PICTURES", EditorPart::Pictures)
        .value("FITTING", EditorPart::Fitting);
    py::enum_<EditPhase>(module, "EditPhase", "Whether more of an edit is to follow.")
        .value("PREVIEW", EditPhase::Preview)
        .value("COMMIT", EditPhase::Commit);
    py::enum_<EditCause>(module, "EditCause", "Where a change of a curve comes from.")
        .value("EDIT", EditCause::Edit)
        .value("UNDO", EditCause::Undo)
        .value("REDO", EditCause::Redo)
        .value("CANCEL", EditCause::Cancel)
        .value("HOST", EditCause::Host);
}

void bindChange(py::module_& module)
{
    py::class_<CurveChange>(module, "CurveChange", "What an edit did to a curve.")
        .def_readonly("group", &CurveChange::group, "As `add_curve` got it, or the last rename.")
        .def_readonly("curve", &CurveChange::curve, "The same.")
        .def_readonly("time_first", &CurveChange::timeFirst,
                      "The first time at which the value may have changed.")
        .def_readonly("time_last", &CurveChange::timeLast, "The last one.")
        .def_readonly("phase", &CurveChange::phase, "An application writes a step of undo at COMMIT alone.")
        .def_readonly("cause", &CurveChange::cause, "Whose change it is.")
        .def_property_readonly(
            "diff",
            [](const CurveChange& self) { return self.diff ? std::optional(*self.diff) : std::nullopt; },
            "What leads from the curve as it was at the last COMMIT to what it is now; None at PREVIEW.")
        .def_readonly("text", &CurveChange::text, "What was done, as a name for a step of undo.")
        .def_readonly("merge", &CurveChange::merge, "What `edit` got.");
}

void bindOptions(py::module_& module)
{
    py::class_<CurveOptions>(module, "CurveOptions", "What an application lays down for one curve.")
        .def(py::init([](double lowest, double highest, double step, const std::vector<int>& types,
                         bool locked, bool hidden, const QString& toolTip) {
                 CurveOptions options{lowest, highest, step, {}, locked, hidden, toolTip};
                 for (const int type : types)
                     options.types.push_back(SplineBase::NodeType(checkedPointType(type)));
                 return options;
             }),
             py::kw_only(), "lowest"_a = CurveOptions().lowest, "highest"_a = CurveOptions().highest,
             "step"_a = 0.0, "types"_a = std::vector<int>(), "locked"_a = false, "hidden"_a = false,
             "tool_tip"_a = QString())
        .def_readonly("lowest", &CurveOptions::lowest, "Of the values of points.")
        .def_readonly("highest", &CurveOptions::highest, "Of the values of points.")
        .def_readonly("step", &CurveOptions::step, "What the values of points are multiples of; 0 for any.")
        .def_property_readonly(
            "types",
            [](const CurveOptions& self) {
                py::list types;
                for (const SplineBase::NodeType type : self.types)
                    types.append(toPointType(type));
                return types;
            },
            "The `PointType`s that points may have, the first for new ones; any if empty.")
        .def_readonly("locked", &CurveOptions::locked, "The user can't edit the curve.")
        .def_readonly("hidden", &CurveOptions::hidden, "The canvas does not show it.")
        .def_readonly("tool_tip", &CurveOptions::toolTip, "Shown at its row in the list.");
}

void bindMapping(py::module_& module)
{
    py::class_<PlaneMapping>(module, "PlaneMapping",
                             "Where times and values lie on a canvas, in logical pixels.")
        .def_readonly("time_min", &PlaneMapping::timeMin, "At the left edge.")
        .def_readonly("time_max", &PlaneMapping::timeMax, "At the right edge.")
        .def_readonly("value_min", &PlaneMapping::valueMin, "At the lower edge.")
        .def_readonly("value_max", &PlaneMapping::valueMax, "At the upper edge.")
        .def_readonly("pixel_width", &PlaneMapping::pixelWidth, "Of the canvas.")
        .def_readonly("pixel_height", &PlaneMapping::pixelHeight, "Of the canvas.")
        .def(
            "column", [](const PlaneMapping& self, double time) { return self.column(time); }, "time"_a,
            "Where a time lies, from the left edge.")
        .def(
            "row", [](const PlaneMapping& self, double value) { return self.row(value); }, "value"_a,
            "Where a value lies, from the upper edge.")
        .def(
            "time_at", [](const PlaneMapping& self, double column) { return self.timeAt(column); },
            "column"_a, "The time at a column.")
        .def(
            "value_at", [](const PlaneMapping& self, double row) { return self.valueAt(row); }, "row"_a,
            "The value at a row.");
}

} // namespace

void bindValues(py::module_& module)
{
    bindEnumerations(module);
    bindChange(module);
    bindOptions(module);
    bindMapping(module);
}

} // namespace curveeditor::python
