// SPDX-License-Identifier: MIT
#include "Arrays.h"
#include "Bindings.h"
#include "Errors.h"
#include "Numbered.h"
#include "Point.h"
#include "Spline.h"

#include <curveeditor/model/CurveDiff.h>
#include <curveeditor/model/CurveSnapshot.h>

#include <pybind11/operators.h>
#include <pybind11/stl.h>

#include <optional>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

namespace {

SplineState stateOf(const py::array& points, std::int32_t firstType, std::int32_t lastType,
                    double defaultValue)
{
    SplineState state{toPoints(points), checkedBehaviour(firstType), checkedBehaviour(lastType),
                      finite(defaultValue, "default_value")};
    if (!state.isWhole())
        raise(PyExc_ValueError, "a spline has at least one point");
    return state;
}

CurveState curveState(const SplineState& spline, const std::optional<std::string>& formula)
{
    return {spline, formula ? CurveKind::Expression : CurveKind::Spline, formula.value_or(std::string())};
}

void bindSplineState(py::module_& module)
{
    py::class_<SplineState>(
        module, "SplineState",
        "The whole content of a spline as a value. Two are equal if every bit is, the serials of the "
        "points included.")
        .def(py::init(&stateOf), "points"_a, "first_type"_a = std::int32_t(SplineBase::Constant),
             "last_type"_a = std::int32_t(SplineBase::Constant), "default_value"_a = 0.0,
             "Of points as `Spline.points` gives them.")
        .def_property_readonly(
            "points", [](const SplineState& self) { return toRecords(self.points); },
            "A copy of all points, as a record array in the order of time.")
        .def_property_readonly(
            "first_type", [](const SplineState& self) { return toBehaviour(self.firstType); },
            "The curve before its first point.")
        .def_property_readonly(
            "last_type", [](const SplineState& self) { return toBehaviour(self.lastType); },
            "The curve behind its last point.")
        .def_readonly("default_value", &SplineState::defaultValue, "Kept for the application.")
        .def("fingerprint", method(&SplineState::fingerprint),
             "Equal for equal states, and as good as never for others.")
        .def(py::self == py::self)
        .def(py::self != py::self)
        .def("__hash__", method(&SplineState::fingerprint))
        .def(py::pickle(
            [](const SplineState& self) {
                return py::make_tuple(toRecords(self.points), self.firstType, self.lastType,
                                      self.defaultValue);
            },
            [](const py::tuple& content) {
                return stateOf(content[0], content[1].cast<std::int32_t>(), content[2].cast<std::int32_t>(),
                               content[3].cast<double>());
            }));
}

void bindCurveState(py::module_& module)
{
    py::class_<CurveState>(
        module, "CurveState",
        "The whole content of a curve as a value: its spline, and its formula if it shows one.")
        .def(py::init(&curveState), "spline"_a, "formula"_a = py::none())
        .def_readonly("spline", &CurveState::spline, "There for a formula too, which hides it.")
        .def_property_readonly(
            "formula",
            [](const CurveState& self) {
                return self.kind == CurveKind::Expression ? std::optional(self.formula) : std::nullopt;
            },
            "The text of the formula, or None for a curve that shows its spline.")
        .def(py::self == py::self)
        .def(py::self != py::self)
        .def("__hash__", [](const CurveState& self) { return self.spline.fingerprint(); })
        .def(py::pickle(
            [](const CurveState& self) {
                return py::make_tuple(self.spline, self.kind == CurveKind::Expression, self.formula);
            },
            [](const py::tuple& content) {
                return CurveState{content[0].cast<SplineState>(), CurveKind(content[1].cast<bool>()),
                                  content[2].cast<std::string>()};
            }));
}

} // namespace

void bindStates(py::module_& module)
{
    PYBIND11_NUMPY_DTYPE_EX(SplineBase::PointInfo, time, "time", pos, "value", tanLeft, "tan_left", tanRight,
                            "tan_right", tension, "tension", continuity, "continuity", bias, "bias", easeTo,
                            "ease_to", easeFrom, "ease_from", type, "type", serial, "serial");
    module.attr("PointType") = enumeration("PointType", "The shape of the segment that ends at a point.",
                                           {"LINEAR", "BEZIER", "TCB", "HOLD"});
    module.attr("Behaviour") =
        enumeration("Behaviour", "How a curve goes on before its first and behind its last point.",
                    {"ZERO", "CONSTANT", "LOOP", "LOOP_OFFSET", "FOLLOW_TANGENT"});
    module.attr("point_fields") = pointFields();
    bindSplineState(module);
    bindCurveState(module);
    py::class_<CurveSnapshot, std::shared_ptr<CurveSnapshot>>(
        module, "Snapshot",
        "A curve as it was at one moment. It never changes, and any thread may evaluate it.")
        .def(
            "__call__",
            [](const std::shared_ptr<CurveSnapshot>& self, const py::object& times, const py::object& out) {
                return valuesAt(
                    times, out, [&](double time) { return (*self)(time); },
                    [&](const double* source, double* target, std::size_t count) {
                        self->evaluate(source, target, count);
                    });
            },
            "times"_a, "out"_a = py::none(), "The value at a time, or the values at an array of times.");
}

} // namespace curveeditor::python
