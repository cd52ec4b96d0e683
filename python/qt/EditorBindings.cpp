// SPDX-License-Identifier: MIT
#include "Bindings.h"
#include "Casters.h"
#include "Editor.h"

#include "../model/Errors.h"

#include <curveeditor/model/CurveDiff.h>

#include <QAction>
#include <QFont>
#include <QPixmap>
#include <QUndoStack>

#include <cfloat>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

namespace {

using Class = py::class_<Editor>;

template <typename Object> std::uintptr_t addressOf(Object* object)
{
    return reinterpret_cast<std::uintptr_t>(object); // NOLINT: for PyQt6
}

template <typename Object> Object* at(std::uintptr_t address)
{
    return reinterpret_cast<Object*>(address); // NOLINT: from PyQt6
}

/// A function of the dialog, called without the interpreter's lock.
template <typename Result, typename... Arguments> auto callOf(Result (CurveEditor::*function)(Arguments...))
{
    return [function](Editor& self, std::decay_t<Arguments>... arguments) -> Result {
        CurveEditor& dialog = self.dialog();
        const py::gil_scoped_release unlocked;
        return (dialog.*function)(arguments...);
    };
}

template <typename Result, typename... Arguments>
auto callOf(Result (CurveEditor::*function)(Arguments...) const)
{
    return [function](Editor& self, std::decay_t<Arguments>... arguments) -> Result {
        const CurveEditor& dialog = self.dialog();
        const py::gil_scoped_release unlocked;
        return (dialog.*function)(arguments...);
    };
}

/// Null for None.
template <typename Signature, typename Make>
std::function<Signature> functionOf(const py::object& function, Make make)
{
    return function.is_none() ? std::function<Signature>()
                              : std::function<Signature>(make(PythonCall(function)));
}

void setConstraint(Editor& self, const QString& group, const QString& curve, const py::object& mend)
{
    const SplinePointer spline = self.curve(group, curve).spline;
    const auto make = [&](const PythonCall& call) {
        return [call, spline](SplineBase&) {
            call([&] { return py::make_tuple(spline); });
        };
    };
    callOf (&CurveEditor::setConstraint)(self, group, curve, functionOf<void(SplineBase&)>(mend, make));
}

void edit(Editor& self, const QString& group, const QString& curve, const QString& text,
          const py::object& work, int merge)
{
    const SplinePointer spline = self.curve(group, curve).spline;
    const auto run = [&](SplineBase&) {
        const py::gil_scoped_acquire locked;
        const PythonCall::Running running;
        work(spline);
    };
    if (!callOf(&CurveEditor::edit)(self, group, curve, text, run, merge))
        raise(PyExc_RuntimeError, "another edit is going on");
}

void apply(Editor& self, const QString& group, const QString& curve, const CurveDiff& diff, bool forward)
{
    self.curve(group, curve);
    if (!callOf(&CurveEditor::apply)(self, group, curve, diff, forward))
        raise(PyExc_ValueError, "the curve is not as the difference left it");
}

void setTimeGrid(Editor& self, const py::object& lines)
{
    using Times = std::vector<double>;
    const auto make = [](const PythonCall& call) {
        return [call](double first, double last) {
            Times times;
            call([&] { return py::make_tuple(first, last); },
                 [&](const py::object& given) { times = given.cast<Times>(); });
            return times;
        };
    };
    callOf (&CurveEditor::setTimeGrid)(self, functionOf<Times(double, double)>(lines, make));
}

using Setter = void (CurveEditor::*)(std::function<QString(double)>,
                                     std::function<std::optional<double>(const QString&)>);

template <Setter setter> void setText(Editor& self, const py::object& write, const py::object& read)
{
    const auto writer = [](const PythonCall& call) {
        return [call](double number) {
            QString text;
            call([&] { return py::make_tuple(number); },
                 [&](const py::object& given) { text = given.cast<QString>(); });
            return text;
        };
    };
    const auto reader = [](const PythonCall& call) {
        return [call](const QString& text) {
            std::optional<double> number;
            call([&] { return py::make_tuple(text); },
                 [&](const py::object& given) { number = given.cast<std::optional<double>>(); });
            return number;
        };
    };
    callOf(setter)(self, functionOf<QString(double)>(write, writer),
                   functionOf<std::optional<double>(const QString&)>(read, reader));
}

/// The painter and the mapping are those of the call alone, which `_painting` of the package sees to.
template <void (CurveEditor::*setter)(CanvasPainter)> void setPainter(Editor& self, const py::object& paint)
{
    const auto make = [](const PythonCall& call) {
        return [call](QPainter& painter, const PlaneMapping& mapping) {
            call([&] { return py::make_tuple(addressOf(&painter), mapping); });
        };
    };
    callOf(setter)(self, functionOf<void(QPainter&, const PlaneMapping&)>(paint, make));
}

void bindCurves(Class& editor)
{
    editor
        .def(
            "add_curve",
            [](Editor& self, const QString& group, const QString& curve, const SplinePointer& spline,
               const std::optional<std::string>& formula, const QColor& color, float defaultValue,
               float minimum, float maximum) {
                self.addCurve(group, curve, spline, formula, {color, defaultValue, minimum, maximum});
            },
            "group"_a, "curve"_a, "spline"_a, "formula"_a = py::none(), py::kw_only(), "color"_a = "yellow",
            "default"_a = 0.0F, "minimum"_a = -FLT_MAX, "maximum"_a = FLT_MAX)
        .def("remove_curve", &Editor::removeCurve, "group"_a, "curve"_a)
        .def("rename_curve", &Editor::renameCurve, "group"_a, "curve"_a, "new_curve"_a)
        .def("remove_group", &Editor::removeGroup, "group"_a)
        .def("rename_group", &Editor::renameGroup, "group"_a, "new_group"_a)
        .def("formula", &Editor::formula, "group"_a, "curve"_a)
        .def("delete_formula", &Editor::deleteFormula, "group"_a, "curve"_a)
        .def("values", &Editor::values, "group"_a, "curve"_a, "times"_a)
        .def("set_variables", &Editor::setVariables, "variables"_a)
        .def("set_curve_options", callOf(&CurveEditor::setCurveOptions), "group"_a, "curve"_a, "options"_a)
        .def("curve_options", callOf(&CurveEditor::curveOptions), "group"_a, "curve"_a)
        .def("set_constraint", &setConstraint, "group"_a, "curve"_a, "mend"_a)
        .def("set_curve_color", callOf(&CurveEditor::setCurveColor), "group"_a, "curve"_a, "color"_a)
        .def("open_curve", callOf(&CurveEditor::setDefaultSelected), "group"_a, "curve"_a)
        .def("close_curves", callOf(&CurveEditor::cleanSelecteds))
        .def("open_curves", callOf(&CurveEditor::openCurves))
        .def("current_curve", callOf(&CurveEditor::currentCurve))
        .def("selected_points", callOf(&CurveEditor::selectedPoints), "group"_a, "curve"_a)
        .def("select_points", callOf(&CurveEditor::selectPoints), "group"_a, "curve"_a, "indices"_a)
        .def("update_curves", callOf(&CurveEditor::updateCurves))
        .def("set_hold_offered", callOf(&CurveEditor::setHoldOffered), "on"_a);
}

void bindEdits(Class& editor)
{
    editor.def("edit", &edit, "group"_a, "curve"_a, "text"_a, "work"_a, "merge"_a = 0)
        .def("apply", &apply, "group"_a, "curve"_a, "diff"_a, "forward"_a)
        .def("undo", callOf(&CurveEditor::undo))
        .def("redo", callOf(&CurveEditor::redo))
        .def("set_keeps_history", callOf(&CurveEditor::setKeepsHistory), "on"_a)
        .def("_undo_stack", [](Editor& self) { return addressOf(self.dialog().undoStack()); })
        .def(
            "_set_undo_stack",
            [](Editor& self, std::uintptr_t stack) {
                callOf (&CurveEditor::setUndoStack)(self, at<QUndoStack>(stack));
            },
            "stack"_a)
        .def("reset_all", callOf(&CurveEditor::resetAllCheckedF))
        .def("reset_current", callOf(&CurveEditor::resetSelectedF))
        .def("set_part_shown", callOf(&CurveEditor::setPartShown), "part"_a, "shown"_a)
        .def("is_part_shown", callOf(&CurveEditor::isPartShown), "part"_a)
        .def(
            "_action",
            [](Editor& self, const QString& name) { return addressOf(self.dialog().action(name)); }, "name"_a)
        .def(
            "_add_point_action",
            [](Editor& self, std::uintptr_t action) { self.dialog().addPointAction(at<QAction>(action)); },
            "action"_a)
        .def(
            "_add_edit_action",
            [](Editor& self, std::uintptr_t action) { self.dialog().addEditAction(at<QAction>(action)); },
            "action"_a)
        .def(
            "_add_list_action",
            [](Editor& self, std::uintptr_t action) { self.dialog().addListAction(at<QAction>(action)); },
            "action"_a);
}

void bindView(Class& editor)
{
    using SetTime = void (CurveEditor::*)(const double&);
    editor.def("view", callOf(&CurveEditor::view))
        .def("set_view", callOf(&CurveEditor::setView), "plane"_a)
        .def("to_canvas", callOf(&CurveEditor::toCanvas), "place"_a)
        .def("from_canvas", callOf(&CurveEditor::fromCanvas), "pixel"_a)
        .def("reset_view", callOf(&CurveEditor::resetViewport))
        .def("show_all", callOf(&CurveEditor::completeViewport))
        .def("show_all_times", callOf(&CurveEditor::completeViewportH))
        .def("show_all_values", callOf(&CurveEditor::completeViewportV))
        .def("save_state", callOf(&CurveEditor::saveState))
        .def(
            "restore_state",
            [](Editor& self, const QByteArray& state) {
                if (!callOf(&CurveEditor::restoreState)(self, state))
                    raise(PyExc_ValueError, "this is no state of an editor");
            },
            "state"_a)
        .def("set_time_range", callOf(&CurveEditor::setTimeRange), "first"_a, "last"_a)
        .def("set_minimum", callOf(&CurveEditor::setMinValue), "value"_a)
        .def("set_maximum", callOf(&CurveEditor::setMaxValue), "value"_a)
        .def("set_time_line", callOf(static_cast<SetTime>(&CurveEditor::setTimeLine)), "time"_a)
        .def("set_time_line_draggable", callOf(&CurveEditor::setTimeLineDraggable), "on"_a)
        .def("set_view_gestures", callOf(&CurveEditor::setViewGestures), "on"_a)
        .def("fps", callOf(&CurveEditor::getFps))
        .def("set_fps", callOf(&CurveEditor::setFps), "fps"_a)
        .def("show_time", callOf(&CurveEditor::setShowTime))
        .def("show_frames", callOf(&CurveEditor::setShowFrames))
        .def("shows_frames", callOf(&CurveEditor::isModeFrames))
        .def("set_time_grid", &setTimeGrid, "lines"_a)
        .def("_set_time_text", &setText<&CurveEditor::setTimeText>, "write"_a, "read"_a)
        .def("_set_value_text", &setText<&CurveEditor::setValueText>, "write"_a, "read"_a)
        .def("_set_underlay", &setPainter<&CurveEditor::setUnderlay>, "paint"_a)
        .def("_set_overlay", &setPainter<&CurveEditor::setOverlay>, "paint"_a)
        .def("update_underlay", callOf(&CurveEditor::updateUnderlay))
        .def("theme", callOf(&CurveEditor::theme))
        .def("set_theme", callOf(&CurveEditor::setTheme), "theme"_a)
        .def("clear_image", callOf(&CurveEditor::clearImage))
        .def("set_image_strength", callOf(&CurveEditor::setImageStrength), "share"_a)
        .def(
            "_set_font",
            [](Editor& self, const QString& description) {
                QFont font;
                font.fromString(description);
                callOf (&CurveEditor::setFont)(self, font);
            },
            "description"_a);
}

} // namespace

void bindEditor(py::module_& module)
{
    Class editor(module, "Editor");
    editor.def(py::init<std::uintptr_t, py::object, py::object>(), "parent"_a, "report"_a, "gone"_a)
        .def("_widget", [](Editor& self) { return addressOf(static_cast<QWidget*>(&self.dialog())); })
        .def("is_there", [](Editor& self) { return self.isThere(); })
        .def("_close", [](Editor& self) { self.close(); });
    bindCurves(editor);
    bindEdits(editor);
    bindView(editor);
}

} // namespace curveeditor::python
