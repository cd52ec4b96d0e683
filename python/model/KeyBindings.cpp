// SPDX-License-Identifier: MIT
#include "Arrays.h"
#include "Bindings.h"
#include "Errors.h"
#include "Numbered.h"
#include "Spline.h"

#include <curveeditor/model/CurveFit.h>
#include <curveeditor/model/CurveKeys.h>

#include <algorithm>
#include <iterator>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

/// A key in one row of fields.
struct KeyRecord
{
    double time = 0.0;
    double value = 0.0;
    double arrivingSlope = 0.0;
    double arrivingReach = CurveKeys::usualReach;
    double leavingSlope = 0.0;
    double leavingReach = CurveKeys::usualReach;
    std::int32_t shape = std::int32_t(CurveKeys::Shape::Bezier);
};

namespace {

/// Keys, and how far they are from the spline that they were made of.
struct Keys
{
    CurveKeys::Curve curve;
    double deviation = 0.0;
};

CurveKeys::Key toKey(const KeyRecord& record)
{
    return {record.time,
            record.value,
            {record.arrivingSlope, record.arrivingReach},
            {record.leavingSlope, record.leavingReach},
            CurveKeys::Shape(record.shape)};
}

KeyRecord toRecord(const CurveKeys::Key& key)
{
    return {key.time,          key.value,         key.arriving.slope,     key.arriving.reach,
            key.leaving.slope, key.leaving.reach, std::int32_t(key.shape)};
}

Keys keysOf(const py::array& given, std::int32_t firstType, std::int32_t lastType, double defaultValue)
{
    const std::vector<KeyRecord> records = recordsOf<KeyRecord>(given, "keys");
    Keys keys{{{}, checkedBehaviour(firstType), checkedBehaviour(lastType), defaultValue}};
    std::transform(records.begin(), records.end(), std::back_inserter(keys.curve.keys), &toKey);
    const auto hasNoShape = [](const KeyRecord& record) {
        return record.shape < 0 || record.shape > 2;
    };
    if (std::any_of(records.begin(), records.end(), hasNoShape) || !CurveKeys::isWhole(keys.curve))
        raise(
            PyExc_ValueError,
            "there are no keys, their times descend, a number is not finite, or a reach or a shape is none");
    return keys;
}

py::object toArray(const std::vector<CurveKeys::Key>& keys)
{
    std::vector<KeyRecord> records;
    std::transform(keys.begin(), keys.end(), std::back_inserter(records), &toRecord);
    return toRecordArray(records);
}

[[noreturn]] void refuse(double tolerance)
{
    if (!(tolerance >= 0.0))
        raise(PyExc_ValueError, CurveFit::message(CurveFit::Status::BadTolerance));
    raise(PyExc_ValueError, "the curve takes too many points or keys, or its slopes are not finite");
}

Keys fromSpline(const SplinePointer& spline, double tolerance)
{
    CurveKeys::Keys keys = CurveKeys::fromSpline(spline->read(), tolerance);
    if (keys.curve.keys.empty())
        refuse(tolerance);
    return {std::move(keys.curve), keys.deviation};
}

std::shared_ptr<FittedSpline> toSpline(const Keys& keys, double tolerance)
{
    const auto work = [&, curve = keys.curve] {
        const py::gil_scoped_release unlocked;
        return CurveKeys::toSpline(curve, tolerance);
    };
    const CurveKeys::Points points = work();
    if (points.spline.points.empty())
        refuse(tolerance);
    return std::make_shared<FittedSpline>(points.spline, points.deviation, 0);
}

void setEase(Keys& self, std::size_t index, double x1, double y1, double x2, double y2)
{
    std::vector<CurveKeys::Key> keys = self.curve.keys;
    if (index + 1 >= keys.size())
        throw py::index_error("no segment begins at that key");
    if (!(x1 >= 0.0 && x1 <= 1.0 && x2 >= 0.0 && x2 <= 1.0))
        raise(PyExc_ValueError, "x1 and x2 are numbers from 0 to 1");
    CurveKeys::setEase(keys[index], keys[index + 1], x1, y1, x2, y2);
    CurveKeys::Curve eased = self.curve;
    eased.keys = std::move(keys);
    if (!CurveKeys::isWhole(eased))
        raise(PyExc_ValueError, "y1 and y2 give slopes that are not finite");
    self.curve = std::move(eased);
}

} // namespace

void bindKeys(py::module_& module)
{
    PYBIND11_NUMPY_DTYPE_EX(KeyRecord, time, "time", value, "value", arrivingSlope, "arriving_slope",
                            arrivingReach, "arriving_reach", leavingSlope, "leaving_slope", leavingReach,
                            "leaving_reach", shape, "shape");
    module.attr("KeyShape") = enumeration("KeyShape", "The shape of the segment that begins at a key.",
                                          {"HOLD", "LINEAR", "BEZIER"});
    module.attr("key_fields") = py::dtype::of<KeyRecord>();
    const auto constant = std::int32_t(SplineBase::Constant);
    py::class_<Keys>(
        module, "Keys",
        "A curve as keys, the form in which most programs for animation keep it: each with its handles, as "
        "slopes and as reaches of 0 to 1 in lengths of the segment.")
        .def(py::init(&keysOf), "records"_a, "first_type"_a = constant, "last_type"_a = constant,
             "default_value"_a = 0.0,
             "Of a structured array, as `records` gives it; fields that it lacks are those of a flat BEZIER "
             "key.")
        .def_static("of", &fromSpline, "spline"_a, py::kw_only(), "tolerance"_a,
                    "The keys of a spline. TCB segments with ease are fitted, `deviation` tells how well.")
        .def("to_spline", &toSpline, py::kw_only(), "tolerance"_a,
             "The spline, at most the tolerance away where handles have another reach than a third.")
        .def("set_ease", &setEase, "index"_a, "x1"_a, "y1"_a, "x2"_a, "y2"_a,
             "Gives the segment from that key on the ease of `cubic-bezier(x1, y1, x2, y2)`.")
        .def_property_readonly(
            "records", [](const Keys& self) { return toArray(self.curve.keys); },
            "A copy of all keys, as a record array.")
        .def_property_readonly(
            "first_type", [](const Keys& self) { return toBehaviour(self.curve.firstType); },
            "The curve before its first key.")
        .def_property_readonly(
            "last_type", [](const Keys& self) { return toBehaviour(self.curve.lastType); },
            "The curve behind its last key.")
        .def_property_readonly(
            "default_value", [](const Keys& self) { return self.curve.defaultValue; },
            "Kept for the application.")
        .def_readonly("deviation", &Keys::deviation, "How far the keys are from the spline that they are of.")
        .def("__len__", [](const Keys& self) { return self.curve.keys.size(); })
        .def(py::pickle(
            [](const Keys& self) {
                return py::make_tuple(toArray(self.curve.keys), self.curve.firstType, self.curve.lastType,
                                      self.curve.defaultValue, self.deviation);
            },
            [](const py::tuple& content) {
                Keys keys = keysOf(content[0], content[1].cast<std::int32_t>(),
                                   content[2].cast<std::int32_t>(), content[3].cast<double>());
                keys.deviation = content[4].cast<double>();
                return keys;
            }));
}

} // namespace curveeditor::python
