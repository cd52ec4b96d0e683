// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/SplineBase.h>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <cstddef>
#include <functional>
#include <vector>

namespace curveeditor::python {

/// Numbers in a row in memory, whatever they were before.
using Numbers = pybind11::array_t<double, pybind11::array::c_style | pybind11::array::forcecast>;

/// Fills `count` values; called without the interpreter's lock.
using Evaluation = std::function<void(const double* times, double* values, std::size_t count)>;

/// The value at a number, or an array of the shape of `times`, which is `out` unless that is None.
pybind11::object valuesAt(const pybind11::object& times, const pybind11::object& out,
                          const std::function<double(double)>& value, const Evaluation& evaluate);

/// Points as a record array, whose fields bear the names of Python.
pybind11::object toRecords(const std::vector<SplineBase::PointInfo>& points);
/// Points of any structured array whose fields are among those of `toRecords`; the others are those of a new point.
/// Raises ValueError for numbers that a spline can't keep.
std::vector<SplineBase::PointInfo> toPoints(const pybind11::array& records);
/// The type of what `toRecords` gives.
pybind11::dtype pointFields();

} // namespace curveeditor::python
