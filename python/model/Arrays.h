// SPDX-License-Identifier: MIT
#pragma once

#include "Errors.h"

#include <curveeditor/model/SplineBase.h>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace curveeditor::python {

/// Numbers in a row in memory, whatever they were before.
using Numbers = pybind11::array_t<double, pybind11::array::c_style | pybind11::array::forcecast>;

/// Fills `count` values; called without the interpreter's lock.
using Evaluation = std::function<void(const double* times, double* values, std::size_t count)>;

/// The value at a number, or an array of the shape of `times`, which is `out` unless that is None.
pybind11::object valuesAt(const pybind11::object& times, const pybind11::object& out,
                          const std::function<double(double)>& value, const Evaluation& evaluate);

/// Records as an array whose fields are attributes, too.
template <typename Record> pybind11::object toRecordArray(const std::vector<Record>& records)
{
    const pybind11::array_t<Record> array(pybind11::ssize_t(records.size()), records.data());
    return array.attr("view")(pybind11::module_::import("numpy").attr("recarray"));
}

/// Records of any structured array whose fields are among those of `Record`, "time" at least; the others are those of a
/// new one. Raises ValueError for another array.
template <typename Record>
std::vector<Record> recordsOf(const pybind11::array& given, const std::string& what)
{
    const pybind11::object names = given.dtype().attr("names");
    if (given.ndim() != 1 || names.is_none() || !pybind11::bool_(names.attr("__contains__")("time")))
        raise(PyExc_ValueError, what + " have to be a row of records with a field \"time\"");
    std::vector<Record> records(std::size_t(given.size()));
    const pybind11::array_t<Record> fields(given.size(), records.data());
    for (const pybind11::handle handle : names) {
        const auto name = pybind11::reinterpret_borrow<pybind11::object>(handle);
        if (!pybind11::bool_(fields.dtype().attr("names").attr("__contains__")(name)))
            raise(PyExc_ValueError, what + " have no field \"" + std::string(pybind11::str(name)) + '"');
        fields[name] = given[name];
    }
    std::copy_n(fields.data(), records.size(), records.begin());
    return records;
}

/// Points as a record array, whose fields bear the names of Python.
pybind11::object toRecords(const std::vector<SplineBase::PointInfo>& points);
/// Points of any structured array whose fields are among those of `toRecords`; the others are those of a new point.
/// Raises ValueError for numbers that a spline can't keep.
std::vector<SplineBase::PointInfo> toPoints(const pybind11::array& records);
/// The type of what `toRecords` gives.
pybind11::dtype pointFields();

} // namespace curveeditor::python
