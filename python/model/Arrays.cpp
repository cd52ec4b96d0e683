// SPDX-License-Identifier: MIT
#include "Arrays.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace py = pybind11;

namespace curveeditor::python {

namespace {

bool overlaps(const double* first, const double* second, std::size_t count)
{
    const std::less<> isBefore;
    return isBefore(first, second + count) && isBefore(second, first + count);
}

double numberOf(const py::object& time)
{
    const double number = PyFloat_AsDouble(time.ptr());
    if (PyErr_Occurred())
        throw py::error_already_set();
    return number;
}

Numbers numbersOf(const py::object& times)
{
    const py::array given = py::array::ensure(times);
    if (!given || !std::strchr("biuf", given.dtype().kind())) // anything else would be made into some number
        raise(PyExc_TypeError, "times have to be a number or an array of numbers");
    return Numbers::ensure(given);
}

py::array_t<double> outputFor(const Numbers& times, const py::object& out)
{
    const std::vector<py::ssize_t> shape(times.shape(), times.shape() + times.ndim());
    if (out.is_none())
        return py::array_t<double>(shape);
    if (!Numbers::check_(out))
        raise(PyExc_TypeError, "out has to be an array of float64 without gaps");
    py::array_t<double> values = out;
    if (!values.writeable())
        raise(PyExc_ValueError, "out can't be written");
    if (values.ndim() != times.ndim() || !std::equal(shape.begin(), shape.end(), values.shape()))
        raise(PyExc_ValueError, "out has another shape than times");
    return values;
}

bool isKept(const SplineBase::PointInfo& point)
{
    const double numbers[] = {point.time,       point.pos,  point.tanLeft, point.tanRight, point.tension,
                              point.continuity, point.bias, point.easeTo,  point.easeFrom};
    return std::all_of(std::begin(numbers), std::end(numbers),
                       [](double number) { return std::isfinite(number); });
}

bool isType(std::int32_t type)
{
    return type >= SplineBase::Linear && type <= SplineBase::Hold;
}

} // namespace

py::object valuesAt(const py::object& times, const py::object& out,
                    const std::function<double(double)>& value, const Evaluation& evaluate)
{
    if (out.is_none() && (PyFloat_Check(times.ptr()) || PyLong_Check(times.ptr())))
        return py::float_(value(numberOf(times)));
    Numbers numbers = numbersOf(times);
    if (out.is_none() && numbers.ndim() == 0)
        return py::float_(value(*numbers.data()));
    py::array_t<double> values = outputFor(numbers, out);
    const std::size_t count = std::size_t(numbers.size());
    double* const target = values.mutable_data();
    if (numbers.data() != target && overlaps(numbers.data(), target, count))
        numbers = numbers.attr("copy")();
    {
        const double* const source = numbers.data();
        const py::gil_scoped_release unlocked;
        evaluate(source, target, count);
    }
    return values;
}

py::dtype pointFields()
{
    return py::dtype::of<SplineBase::PointInfo>();
}

py::object toRecords(const std::vector<SplineBase::PointInfo>& points)
{
    return toRecordArray(points);
}

std::vector<SplineBase::PointInfo> toPoints(const py::array& records)
{
    std::vector<SplineBase::PointInfo> points = recordsOf<SplineBase::PointInfo>(records, "points");
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::string which = "point " + std::to_string(i);
        if (!isKept(points[i]))
            raise(PyExc_ValueError, which + " has a number that is not finite");
        if (!isType(points[i].type))
            raise(PyExc_ValueError, which + " has a type that does not exist");
        if (i > 0 && points[i].time < points[i - 1].time)
            raise(PyExc_ValueError, which + " is earlier than the one before it");
    }
    return points;
}

} // namespace curveeditor::python
