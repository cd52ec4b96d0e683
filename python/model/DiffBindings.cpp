// SPDX-License-Identifier: MIT
#include "Bindings.h"
#include "Errors.h"
#include "Spline.h"

#include <curveeditor/model/CurveDiff.h>

#include <pybind11/stl.h>

#include <optional>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

namespace {

[[noreturn]] void refuse()
{
    raise(PyExc_ValueError, "the curve is not as the difference left it");
}

template <bool (CurveDiff::*step)(SplineBase&) const>
void stepSpline(const CurveDiff& diff, const SplinePointer& spline)
{
    if (!spline->edit([&](SplineBase& base) { return (diff.*step)(base); }))
        refuse();
}

template <bool (CurveDiff::*step)(CurveState&) const>
CurveState stepState(const CurveDiff& diff, CurveState state)
{
    if (!(diff.*step)(state))
        refuse();
    return state;
}

} // namespace

void bindDiffs(py::module_& module)
{
    using Between = CurveDiff (*)(const CurveState&, const CurveState&);
    py::class_<CurveDiff, std::shared_ptr<CurveDiff>>(
        module, "CurveDiff", "What leads from one state of a curve to another. It holds only what differs.")
        .def_static("between", static_cast<Between>(&CurveDiff::between), "before"_a, "after"_a)
        .def_static(
            "between",
            [](const SplineState& before, const SplineState& after) {
                return CurveDiff::between(CurveState{before, CurveKind::Spline, {}},
                                          CurveState{after, CurveKind::Spline, {}});
            },
            "before"_a, "after"_a, "The difference of two states of a curve, or of a spline.")
        .def_property_readonly("is_empty", method(&CurveDiff::isEmpty), "True if both states were equal.")
        .def("apply", &stepSpline<&CurveDiff::apply>, "spline"_a)
        .def("apply", &stepState<&CurveDiff::apply>, "state"_a,
             "Makes what was before what is after: a spline in place, a state as a new one. Raises "
             "ValueError, and "
             "changes nothing, where what differs is not as it was left.")
        .def("revert", &stepSpline<&CurveDiff::revert>, "spline"_a)
        .def("revert", &stepState<&CurveDiff::revert>, "state"_a, "The way back, as `apply`.")
        .def("inverse", method(&CurveDiff::inverse), "What leads back.")
        .def_property_readonly(
            "touched",
            [](const CurveDiff& self) {
                const TimeInterval& times = self.touched();
                return times.isEmpty() ? std::nullopt : std::optional(std::pair(times.first, times.last));
            },
            "The first and the last time at which the value may differ; None if it does nowhere.")
        .def_property_readonly("points_before", method(&CurveDiff::pointsBefore),
                               "The serials of the points that differ and were there before.")
        .def_property_readonly("points_after", method(&CurveDiff::pointsAfter),
                               "The serials of the points that differ and are there after.")
        .def("__bool__", [](const CurveDiff& self) { return !self.isEmpty(); })
        .def("__str__", method(&CurveDiff::toString));
}

} // namespace curveeditor::python
