// SPDX-License-Identifier: MIT
#include "Arrays.h"
#include "Bindings.h"
#include "Errors.h"
#include "Spline.h"

#include <curveeditor/model/CurveDiffContent.h>

#include <pybind11/stl.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

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

py::tuple pickledPoints(const std::vector<PlacedPoint>& placed)
{
    std::vector<std::size_t> indices;
    std::vector<SplineBase::PointInfo> points;
    for (const PlacedPoint& point : placed) {
        indices.push_back(point.index);
        points.push_back(point.info);
    }
    return py::make_tuple(indices, toRecords(points));
}

std::vector<PlacedPoint> placedPoints(const py::tuple& pickled)
{
    const auto indices = pickled[0].cast<std::vector<std::size_t>>();
    const std::vector<SplineBase::PointInfo> points = toPoints(pickled[1]);
    if (indices.size() != points.size() ||
        std::adjacent_find(indices.begin(), indices.end(), std::greater_equal<>()) != indices.end())
        raise(PyExc_ValueError, "the points of the difference are out of order");
    std::vector<PlacedPoint> placed;
    for (std::size_t i = 0; i < points.size(); ++i)
        placed.push_back({indices[i], points[i]});
    return placed;
}

py::tuple pickled(const CurveDiff& diff)
{
    const DiffContent::Content& content = DiffContent::of(diff);
    const auto pair = [](const auto& change) {
        return py::make_tuple(change.before, change.after);
    };
    return py::make_tuple(
        pickledPoints(content.removed), pickledPoints(content.inserted), pair(content.firstType),
        pair(content.lastType), pair(content.defaultValue),
        py::make_tuple(content.kind.before != CurveKind::Spline, content.kind.after != CurveKind::Spline),
        pair(content.formula), py::make_tuple(content.touched.first, content.touched.last));
}

CurveDiff unpickled(const py::tuple& pickled)
{
    const auto read = [&](std::size_t index, auto& before, auto& after) {
        const py::tuple pair = pickled[index];
        before = pair[0].cast<std::decay_t<decltype(before)>>();
        after = pair[1].cast<std::decay_t<decltype(after)>>();
    };
    DiffContent::Content content;
    content.removed = placedPoints(pickled[0]);
    content.inserted = placedPoints(pickled[1]);
    read(2, content.firstType.before, content.firstType.after);
    read(3, content.lastType.before, content.lastType.after);
    read(4, content.defaultValue.before, content.defaultValue.after);
    bool isFormulaBefore = false, isFormulaAfter = false;
    read(5, isFormulaBefore, isFormulaAfter);
    content.kind = {CurveKind(isFormulaBefore), CurveKind(isFormulaAfter)};
    read(6, content.formula.before, content.formula.after);
    read(7, content.touched.first, content.touched.last);
    return DiffContent::diff(std::move(content));
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
        .def(py::pickle(&pickled, &unpickled))
        .def("__bool__", [](const CurveDiff& self) { return !self.isEmpty(); })
        .def("__str__", method(&CurveDiff::toString));
}

} // namespace curveeditor::python
