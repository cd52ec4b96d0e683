// SPDX-License-Identifier: MIT
#include "Arrays.h"
#include "Bindings.h"
#include "Errors.h"
#include "Numbered.h"
#include "Point.h"
#include "Spline.h"

#include <curveeditor/model/CurveFit.h>

#include <pybind11/stl.h>

#include <optional>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

namespace {

using FittedPointer = std::shared_ptr<FittedSpline>;

FittedPointer splineOf(const CurveFit::Result& result)
{
    if (!result.isDone())
        raise(PyExc_ValueError, CurveFit::message(result.status));
    return std::make_shared<FittedSpline>(result.spline, result.deviation, result.samples);
}

SplineBase::NodeType nodeType(std::int32_t type)
{
    return SplineBase::NodeType(checkedPointType(type));
}

std::vector<double> rowOf(const Numbers& numbers)
{
    if (numbers.ndim() != 1)
        raise(PyExc_ValueError, "times and values have to be arrays of one dimension");
    return {numbers.data(), numbers.data() + numbers.size()};
}

FittedPointer fit(const Numbers& times, const Numbers& values, double tolerance, bool monotone,
                  std::int32_t type)
{
    const CurveFit::Options options{tolerance, monotone, nodeType(type)};
    const std::vector<double> timeRow = rowOf(times);
    const std::vector<double> valueRow = rowOf(values);
    const auto work = [&] {
        const py::gil_scoped_release unlocked;
        return CurveFit::fit(timeRow, valueRow, options);
    };
    return splineOf(work());
}

FittedPointer simplify(const SplinePointer& spline, double tolerance, bool monotone, std::int32_t type,
                       std::size_t first, std::optional<std::size_t> last)
{
    const CurveFit::Options options{tolerance, monotone, nodeType(type)};
    SplineBase base;
    base.assign(spline->read().state());
    const std::size_t end = last.value_or(base.getControlPointsNumber() - 1);
    const auto work = [&] {
        const py::gil_scoped_release unlocked;
        return first == 0 && !last ? CurveFit::simplify(base, options)
                                   : CurveFit::simplify(base, first, end, options);
    };
    return splineOf(work());
}

std::function<double(double)> functionOf(const py::object& function, CurveFit::Steps& steps)
{
    if (py::isinstance<Spline>(function)) {
        const auto spline = function.cast<SplinePointer>();
        steps.jumps = CurveFit::jumpsOf(spline->read());
        return [spline](double time) {
            return spline->read()(time);
        };
    }
    return [function](double time) {
        return function(time).cast<double>();
    };
}

FittedPointer bake(const py::object& function, double first, double last, double step,
                   std::optional<double> tolerance, bool monotone, std::int32_t type)
{
    CurveFit::Steps steps{first, last, step};
    const std::function<double(double)> values = functionOf(function, steps);
    return splineOf(
        tolerance ? CurveFit::bake(values, steps, CurveFit::Options{*tolerance, monotone, nodeType(type)})
                  : CurveFit::bake(values, steps, nodeType(type)));
}

std::vector<std::tuple<double, double, double>> jumps(const SplinePointer& spline)
{
    std::vector<std::tuple<double, double, double>> list;
    for (const CurveFit::Jump& jump : CurveFit::jumpsOf(spline->read()))
        list.emplace_back(jump.time, jump.before, jump.value);
    return list;
}

double smoothSlope(const std::optional<Point>& previous, const Point& point, const std::optional<Point>& next)
{
    return CurveFit::smoothSlope(previous ? &previous->read() : nullptr, point.read(),
                                 next ? &next->read() : nullptr);
}

} // namespace

void bindFits(py::module_& module)
{
    const auto bezier = std::int32_t(SplineBase::Bezier);
    py::class_<FittedSpline, Spline, FittedPointer>(module, "FittedSpline", "A spline that a fit has made.")
        .def_property_readonly("deviation", method(&FittedSpline::deviation),
                               "How far the curve was away from what it was fitted to, when it was made.")
        .def_property_readonly("samples", method(&FittedSpline::samples), "How many samples the fit went by.")
        .def(py::pickle(
            [](const FittedPointer& self) {
                return py::make_tuple(self->read().state(), self->deviation(), self->samples());
            },
            [](const py::tuple& content) {
                return std::make_shared<FittedSpline>(content[0].cast<const SplineState&>(),
                                                      content[1].cast<double>(),
                                                      content[2].cast<std::size_t>());
            }));
    module.def(
        "fit", &fit, "times"_a, "values"_a, py::kw_only(), "tolerance"_a = 0.0, "monotone"_a = false,
        "type"_a = bezier,
        "The spline of few BEZIER or LINEAR points that is nowhere further than the tolerance from a sample. "
        "Times ascend; samples that are not finite are passed over. With `monotone` the curve rises and "
        "falls "
        "only where the samples do.");
    module.def(
        "simplify", &simplify, "spline"_a, py::kw_only(), "tolerance"_a, "monotone"_a = false,
        "type"_a = bezier, "first"_a = std::size_t(0), "last"_a = py::none(),
        "A spline of fewer points that is nowhere further than the tolerance from this one; from the point "
        "`first` to the point `last` alone, if they are given.");
    module.def(
        "bake", &bake, "function"_a, "first"_a, "last"_a, "step"_a, py::kw_only(), "tolerance"_a = py::none(),
        "monotone"_a = false, "type"_a = bezier,
        "A point for each step of a spline, a formula or any function of a time; with a tolerance as few as "
        "keep to it.");
    module.def(
        "jumps", &jumps, "spline"_a,
        "Where a spline has two values at a time: tuples of the time, the value before, and the value.");
    module.def("smooth_slope", &smoothSlope, "previous"_a, "point"_a, "next"_a,
               "The slope at a point with which a curve does not overshoot between its neighbours, which may "
               "be None.");
}

} // namespace curveeditor::python
