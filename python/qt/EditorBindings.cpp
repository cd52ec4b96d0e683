// SPDX-License-Identifier: MIT
#include "Bindings.h"
#include "Casters.h"
#include "Editor.h"

#include "../model/Errors.h"

#include <curveeditor/model/CurveDiff.h>

#include <QAction>
#include <QFont>
#include <QPixmap>
#include <QScopedValueRollback>
#include <QUndoStack>

#include <cfloat>
#include <stdexcept>

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

/// @{
/// One of a curve, which raises KeyError where that is not there.
template <typename Result, typename... Arguments>
auto callOfCurve(Result (CurveEditor::*function)(const QString&, const QString&, Arguments...))
{
    return [function](Editor& self, const QString& group, const QString& curve,
                      std::decay_t<Arguments>... arguments) -> Result {
        self.curve(group, curve);
        return callOf(function)(self, group, curve, std::move(arguments)...);
    };
}

template <typename Result>
auto callOfCurve(Result (CurveEditor::*function)(const QString&, const QString&) const)
{
    return [function](Editor& self, const QString& group, const QString& curve) -> Result {
        self.curve(group, curve);
        return callOf(function)(self, group, curve);
    };
}
/// @}

/// Null for None.
template <typename Signature, typename Make>
std::function<Signature> functionOf(const py::object& function, Make make)
{
    return function.is_none() ? std::function<Signature>()
                              : std::function<Signature>(make(PythonCall(function)));
}

/// The editor takes what a function of Python's raises for what one of C++ throws.
void require(bool isDone)
{
    if (!isDone)
        throw std::runtime_error("a function of Python's has raised an exception");
}

void setConstraint(Editor& self, const QString& group, const QString& curve, const py::object& mend)
{
    const SplinePointer spline = self.curve(group, curve).spline;
    const auto make = [&](const PythonCall& call) {
        return [call, spline](SplineBase&) {
            require(call([&] { return py::make_tuple(spline); }));
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
        const QScopedValueRollback<bool> edited(self.isEdited, true);
        work(spline);
    };
    if (!callOf(&CurveEditor::edit)(self, group, curve, text, run, merge))
        raise(PyExc_RuntimeError, "another edit is going on");
}

void apply(Editor& self, const QString& group, const QString& curve, const CurveDiff& diff, bool forward)
{
    self.curve(group, curve);
    if (self.isEdited)
        raise(PyExc_RuntimeError, "another edit is going on");
    if (!callOf(&CurveEditor::apply)(self, group, curve, diff, forward))
        raise(PyExc_ValueError, "the curve is not as the difference left it");
}

void setOptions(Editor& self, const QString& group, const QString& curve, const CurveOptions& options)
{
    callOfCurve (&CurveEditor::setCurveOptions)(self, group, curve, options);
    const CurveOptions taken = self.dialog().curveOptions(group, curve);
    if (taken.lowest != options.lowest || taken.highest != options.highest || taken.step != options.step)
        raise(PyExc_ValueError, "no value keeps to these options");
}

void setTimeGrid(Editor& self, const py::object& lines)
{
    using Times = std::vector<double>;
    const auto make = [](const PythonCall& call) {
        return [call](double first, double last) {
            Times times;
            require(call([&] { return py::make_tuple(first, last); },
                         [&](const py::object& given) { times = given.cast<Times>(); }));
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
            require(call([&] { return py::make_tuple(number); },
                         [&](const py::object& given) { text = given.cast<QString>(); }));
            return text;
        };
    };
    const auto reader = [](const PythonCall& call) {
        return [call](const QString& text) {
            std::optional<double> number;
            require(call([&] { return py::make_tuple(text); },
                         [&](const py::object& given) { number = given.cast<std::optional<double>>(); }));
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
            require(call([&] { return py::make_tuple(addressOf(&painter), mapping); }));
        };
    };
    callOf(setter)(self, functionOf<void(QPainter&, const PlaneMapping&)>(paint, make));
}

const QColor& valid(const QColor& color)
{
    if (!color.isValid())
        raise(PyExc_ValueError, "there is no such colour");
    return color;
}

void bindCurves(Class& editor)
{
    editor
        .def(
            "add_curve",
            [](Editor& self, const QString& group, const QString& curve, const SplinePointer& spline,
               const std::optional<std::string>& formula, const QColor& color, float defaultValue,
               float minimum, float maximum) {
                self.addCurve(group, curve, spline, formula, {valid(color), defaultValue, minimum, maximum});
            },
            "group"_a, "curve"_a, "spline"_a, "formula"_a = py::none(), py::kw_only(), "color"_a = "yellow",
            "default"_a = 0.0F, "minimum"_a = -FLT_MAX, "maximum"_a = FLT_MAX,
            "Registers a curve, a spline and perhaps the text of a formula, which hides it. `default` is "
            "what a reset leaves; `minimum` and `maximum` clamp the value.")
        .def("remove_curve", &Editor::removeCurve, "group"_a, "curve"_a,
             "Takes a curve off the canvas and out of the editor.")
        .def("rename_curve", &Editor::renameCurve, "group"_a, "curve"_a, "new_curve"_a,
             "Formulas that read it under the old name stay as they are.")
        .def("remove_group", &Editor::removeGroup, "group"_a, "Removes all curves of a group.")
        .def("rename_group", &Editor::renameGroup, "group"_a, "new_group"_a,
             "Renames a group and its curves.")
        .def("formula", &Editor::formula, "group"_a, "curve"_a,
             "The text of the formula that a curve shows, or None.")
        .def("delete_formula", &Editor::deleteFormula, "group"_a, "curve"_a,
             "Lets the curve be a spline again.")
        .def("values", &Editor::values, "group"_a, "curve"_a, "times"_a,
             "The value of a curve, be it a spline or a formula, at a time or at an array of times.")
        .def("set_variables", &Editor::setVariables, "variables"_a,
             "Lets formulas that come from now on read these curves instead of those of the editor; None "
             "brings them back.")
        .def("set_curve_options", &setOptions, "group"_a, "curve"_a, "options"_a,
             "Bounds, types and locks of one curve; raises ValueError where no value keeps to them.")
        .def("curve_options", callOfCurve(&CurveEditor::curveOptions), "group"_a, "curve"_a,
             "What `set_curve_options` took.")
        .def("_set_constraint", &setConstraint, "group"_a, "curve"_a, "mend"_a)
        .def(
            "set_curve_color",
            [](Editor& self, const QString& group, const QString& curve, const QColor& color) {
                self.curve(group, curve);
                callOf (&CurveEditor::setCurveColor)(self, group, curve, valid(color));
            },
            "group"_a, "curve"_a, "color"_a, "Gives a curve another colour, as the user can.")
        .def("open_curve", callOfCurve(&CurveEditor::setDefaultSelected), "group"_a, "curve"_a,
             "Puts a curve on the canvas and makes it current.")
        .def("close_curves", callOf(&CurveEditor::cleanSelecteds), "Takes all curves off the canvas.")
        .def("open_curves", callOf(&CurveEditor::openCurves),
             "The curves on the canvas, from back to front, as tuples of group and curve.")
        .def("current_curve", callOf(&CurveEditor::currentCurve),
             "Group and curve, both empty if there is none.")
        .def("selected_points", callOfCurve(&CurveEditor::selectedPoints), "group"_a, "curve"_a,
             "The indices of the selected points of a curve.")
        .def("select_points", callOfCurve(&CurveEditor::selectPoints), "group"_a, "curve"_a, "indices"_a,
             "Selects these points of a curve and no other ones of it.")
        .def("update_curves", callOf(&CurveEditor::updateCurves),
             "Draws all curves anew, after changes of your own.")
        .def("set_hold_offered", callOf(&CurveEditor::setHoldOffered), "on"_a,
             "Whether the user may make points of the type HOLD.");
}

void bindEdits(Class& editor)
{
    editor
        .def("edit", &edit, "group"_a, "curve"_a, "text"_a, "work"_a, "merge"_a = 0,
             "Lets `work` change the spline of a curve as one step of undo. What it raises passes on, and "
             "the curve is as before. The same `merge`, not 0, joins the step before.")
        .def("apply", &apply, "group"_a, "curve"_a, "diff"_a, "forward"_a,
             "Does a difference to a curve, or takes it back, as a step of undo does; raises ValueError "
             "where the curve is not as it was left.")
        .def("undo", callOf(&CurveEditor::undo), "Takes the last edit back.")
        .def("redo", callOf(&CurveEditor::redo), "Does it again.")
        .def("set_keeps_history", callOf(&CurveEditor::setKeepsHistory), "on"_a,
             "Whether edits are kept on the undo stack; else `undo_requested` and `redo_requested` ask for "
             "steps.")
        .def("_undo_stack", [](Editor& self) { return addressOf(self.dialog().undoStack()); })
        .def(
            "_set_undo_stack",
            [](Editor& self, std::uintptr_t stack) {
                callOf (&CurveEditor::setUndoStack)(self, at<QUndoStack>(stack));
            },
            "stack"_a)
        .def("reset_all", callOf(&CurveEditor::resetAllCheckedF),
             "Resets all curves on the canvas, as one edit.")
        .def("reset_current", callOf(&CurveEditor::resetSelectedF), "Resets the current curve.")
        .def("set_part_shown", callOf(&CurveEditor::setPartShown), "part"_a, "shown"_a,
             "Takes an area or a subject away, or brings it back.")
        .def("is_part_shown", callOf(&CurveEditor::isPartShown), "part"_a, "True if it was not taken away.")
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
    editor
        .def("view", callOf(&CurveEditor::view),
             "The part of the plane that is seen: the first time and the lowest value are x and y.")
        .def("set_view", callOf(&CurveEditor::setView), "plane"_a,
             "Shows that part, as far as the limits let it.")
        .def("to_canvas", callOf(&CurveEditor::toCanvas), "place"_a,
             "The pixel at which a time and a value lie.")
        .def("from_canvas", callOf(&CurveEditor::fromCanvas), "pixel"_a, "The time and the value at a pixel.")
        .def("reset_view", callOf(&CurveEditor::resetViewport), "Shows all that the limits allow.")
        .def("show_all", callOf(&CurveEditor::completeViewport), "Shows all of the current curve.")
        .def("show_all_times", callOf(&CurveEditor::completeViewportH), "Shows all its times.")
        .def("show_all_values", callOf(&CurveEditor::completeViewportV), "Shows all its values.")
        .def("save_state", callOf(&CurveEditor::saveState),
             "How the user has arranged the editor, to be kept.")
        .def(
            "restore_state",
            [](Editor& self, const QByteArray& state) {
                if (!callOf(&CurveEditor::restoreState)(self, state))
                    raise(PyExc_ValueError, "this is no state of an editor");
            },
            "state"_a, "Takes what `save_state` gave.")
        .def("set_time_range", callOf(&CurveEditor::setTimeRange), "first"_a, "last"_a, "The limits of time.")
        .def("set_minimum", callOf(&CurveEditor::setMinValue), "value"_a, "The lower limit of values.")
        .def("set_maximum", callOf(&CurveEditor::setMaxValue), "value"_a, "The upper limit of values.")
        .def("set_time_line", callOf(static_cast<SetTime>(&CurveEditor::setTimeLine)), "time"_a,
             "Moves the time line to a time.")
        .def("set_time_line_draggable", callOf(&CurveEditor::setTimeLineDraggable), "on"_a,
             "Whether the user may move it.")
        .def("set_view_gestures", callOf(&CurveEditor::setViewGestures), "on"_a,
             "Whether wheel, touch pad and Space move and zoom the view.")
        .def("fps", callOf(&CurveEditor::getFps), "Frames in a time unit.")
        .def("set_fps", callOf(&CurveEditor::setFps), "fps"_a, "Frames in a time unit.")
        .def("show_time", callOf(&CurveEditor::setShowTime), "Writes times as times.")
        .def("show_frames", callOf(&CurveEditor::setShowFrames), "Writes times as frames.")
        .def("shows_frames", callOf(&CurveEditor::isModeFrames), "True if times are written as frames.")
        .def("_set_time_grid", &setTimeGrid, "lines"_a)
        .def("_set_time_text", &setText<&CurveEditor::setTimeText>, "write"_a, "read"_a)
        .def("_set_value_text", &setText<&CurveEditor::setValueText>, "write"_a, "read"_a)
        .def("_set_underlay", &setPainter<&CurveEditor::setUnderlay>, "paint"_a)
        .def("_set_overlay", &setPainter<&CurveEditor::setOverlay>, "paint"_a)
        .def("update_underlay", callOf(&CurveEditor::updateUnderlay), "The underlay has other content.")
        .def("theme", callOf(&CurveEditor::theme), "All colours, widths and sizes.")
        .def("set_theme", callOf(&CurveEditor::setTheme), "theme"_a, "Takes them from a theme.")
        .def("clear_image", callOf(&CurveEditor::clearImage), "Shows no picture behind the curves any more.")
        .def("set_image_strength", callOf(&CurveEditor::setImageStrength), "share"_a,
             "How much of its colours the picture keeps, 0 to 1.")
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
        .def(
            "is_there", [](Editor& self) { return self.isThere(); },
            "False when the editor has gone, with the window that it was in.")
        .def("_close", [](Editor& self) { self.close(); });
    bindCurves(editor);
    bindEdits(editor);
    bindView(editor);
}

} // namespace curveeditor::python
