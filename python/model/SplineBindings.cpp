// SPDX-License-Identifier: MIT
#include "Arrays.h"
#include "Bindings.h"
#include "Numbered.h"
#include "Point.h"
#include "Spline.h"

#include <curveeditor/model/CurveDiff.h>
#include <curveeditor/model/CurveSnapshot.h>

#include <pybind11/stl.h>

#include <array>
#include <optional>
#include <sstream>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

namespace {

template <typename Field>
void bindNumber(py::class_<Point>& point, const char* name, Field field, const char* doc)
{
    point.def_property(
        name, [field](const Point& self) { return self.read().*field; },
        [field, name](const Point& self, double number) {
            finite(number, name);
            self.edit([&](SplineBase&, SplineBase::PointInfo* info) { info->*field = number; });
        },
        doc);
}

unsigned indexIn(const Spline& spline, std::ptrdiff_t index)
{
    const std::ptrdiff_t count = spline.read().getControlPointsNumber();
    if (index < 0)
        index += count;
    if (index < 0 || index >= count)
        throw py::index_error("a spline of " + std::to_string(count) + " points has no such point");
    return unsigned(index);
}

Point pointAt(const SplinePointer& spline, std::ptrdiff_t index)
{
    return {spline, *spline->read()[indexIn(*spline, index)]};
}

std::optional<Point> pointOrNone(const SplinePointer& spline, const SplineBase::PointInfo* point)
{
    return point ? std::optional(Point(spline, *point)) : std::nullopt;
}

Point addPoint(const SplinePointer& self, double time, double value, std::optional<std::int32_t> type)
{
    finite(time, "time");
    finite(value, "value");
    const auto add = [&](SplineBase& spline) {
        spline.addPoint(time, value);
        // It stands behind those at the same time.
        const SplineBase::PointInfo* next = spline.getNext(time);
        const unsigned index =
            next ? unsigned(spline.findIndex(next)) - 1 : spline.getControlPointsNumber() - 1;
        SplineBase::PointInfo* const point = spline.modify(index);
        if (type)
            point->type = *type;
        return Point(self, *point);
    };
    if (type)
        checkedPointType(*type);
    return self->edit(add);
}

void removePoint(const SplinePointer& self, unsigned index)
{
    if (self->read().getControlPointsNumber() == 1)
        raise(PyExc_ValueError, "a spline keeps its last point");
    self->edit([&](SplineBase& spline) { spline.remove(spline[index]); });
}

void setPoints(const SplinePointer& self, const py::array& records)
{
    SplineState state = self->read().state();
    state.points = toPoints(records);
    if (!self->edit([&](SplineBase& spline) { return spline.assign(state); }))
        raise(PyExc_ValueError, "a spline has at least one point");
}

std::string textOf(const Spline& spline)
{
    std::ostringstream out;
    SplineBase::save(spline.read(), out);
    return out.str();
}

SplinePointer fromText(const std::string& text)
{
    std::istringstream in(text);
    const auto result = std::make_shared<Spline>();
    result->edit([&](SplineBase& spline) { SplineBase::load(&spline, in); });
    if (!in)
        raise(PyExc_ValueError, "the text is no whole spline");
    return result;
}

std::pair<double, double> tangentAt(const Spline& spline, std::ptrdiff_t index,
                                    double (SplineBase::*tangent)(const unsigned&, double&) const)
{
    double length = 0.0;
    const double slope = (spline.read().*tangent)(indexIn(spline, index), length);
    return {slope, length};
}

void bindPoints(py::module_& module)
{
    using Info = SplineBase::PointInfo;
    py::class_<Point> point(
        module, "Point",
        "A point of a spline, which it keeps alive. It stays the same point when it moves and gets "
        "another index; when it is gone, everything but `serial` raises ReferenceError.");
    point
        .def_property(
            "time", [](const Point& self) { return self.read().time; },
            [](const Point& self, double time) {
                finite(time, "time");
                self.edit([&](SplineBase& spline, Info* info) { spline.setTime(info, time); });
            },
            "Finite; another time may give the point another index.")
        .def_property(
            "type", [](const Point& self) { return toPointType(self.read().type); },
            [](const Point& self, std::int32_t type) {
                checkedPointType(type);
                self.edit([&](SplineBase&, Info* info) { info->type = type; });
            },
            "Of the segment that ends at the point.")
        .def_property_readonly("serial", method(&Point::serial), "Never given to two points of one spline.")
        .def_property_readonly("index", method(&Point::index), "In the order of time.")
        .def(
            "__eq__",
            [](const Point& self, const py::object& other) {
                return py::isinstance<Point>(other) && self == other.cast<const Point&>();
            },
            "other"_a)
        .def("__hash__", [](const Point& self) { return self.serial(); })
        .def("__repr__", [](const Point& self) {
            if (!self.isThere())
                return py::str("<Point that is gone>");
            const Info& info = self.read();
            return py::str("<Point {} of type {} at time {!r}, value {!r}>")
                .format(self.index(), toPointType(info.type).attr("name"), info.time, info.pos);
        });
    bindNumber(point, "value", &Info::pos, "Of the curve at `time`.");
    bindNumber(point, "tan_left", &Info::tanLeft, "Slope with which a BEZIER segment arrives.");
    bindNumber(point, "tan_right", &Info::tanRight, "Slope with which a BEZIER segment leaves.");
    bindNumber(point, "tension", &Info::tension, "Of use in -10 ... 10.");
    bindNumber(point, "continuity", &Info::continuity, "Of use in -10 ... 10.");
    bindNumber(point, "bias", &Info::bias, "Of use in -10 ... 10.");
    bindNumber(point, "ease_to", &Info::easeTo, "Slows the arrival down, -1 ... 1.");
    bindNumber(point, "ease_from", &Info::easeFrom, "Slows the departure down, -1 ... 1.");
}

void bindEditing(py::class_<Spline, SplinePointer>& spline)
{
    spline
        .def("add", &addPoint, "time"_a, "value"_a, "type"_a = py::none(),
             "Adds a point behind those at the same time, and returns it. Without a type it gets that of the "
             "segment "
             "into which it falls.")
        .def(
            "remove",
            [](const SplinePointer& self, const Point& point) {
                if (!point.isOf(*self))
                    raise(PyExc_ValueError, "the point is of another spline");
                removePoint(self, unsigned(point.index()));
            },
            "point"_a, "Removes that point, unless it is the only one.")
        .def(
            "__delitem__",
            [](const SplinePointer& self, std::ptrdiff_t index) { removePoint(self, indexIn(*self, index)); },
            "index"_a)
        .def(
            "reset", [](const SplinePointer& self) { self->edit([](SplineBase& base) { base.reset(); }); },
            "Leaves one point at time 0 and value 0. Behaviours and default value stay.")
        .def_property(
            "points", [](const SplinePointer& self) { return toRecords(self->read().state().points); },
            &setPoints,
            "A copy of all points, as a record array in the order of time. Assigned, points whose serial is "
            "there stay "
            "the same points; fields that the array lacks are those of a new point.")
        .def_property(
            "first_type", [](const SplinePointer& self) { return toBehaviour(self->read().firstType); },
            [](const SplinePointer& self, std::int32_t behaviour) {
                checkedBehaviour(behaviour);
                self->edit([&](SplineBase& base) { base.firstType = behaviour; });
            },
            "The curve before its first point; only ZERO and CONSTANT have a meaning there.")
        .def_property(
            "last_type", [](const SplinePointer& self) { return toBehaviour(self->read().lastType); },
            [](const SplinePointer& self, std::int32_t behaviour) {
                checkedBehaviour(behaviour);
                self->edit([&](SplineBase& base) { base.lastType = behaviour; });
            },
            "The curve behind its last point.")
        .def_property(
            "default_value", [](const SplinePointer& self) { return self->read().getDefaultValue(); },
            [](const SplinePointer& self, double number) {
                finite(number, "default_value");
                self->edit([&](SplineBase& base) { base.setDefaultValue(number); });
            },
            "Kept for the application; the curve does not depend on it.");
}

void bindReading(py::class_<Spline, SplinePointer>& spline)
{
    spline
        .def(
            "__call__",
            [](const SplinePointer& self, const py::object& times, const py::object& out) {
                self->read(); // on a thread that may
                return valuesAt(
                    times, out, [&](double time) { return self->read()(time); },
                    [&](const double* source, double* target, std::size_t count) {
                        self->evaluate(source, target, count);
                    });
            },
            "times"_a, "out"_a = py::none(),
            "The value at a time, or the values at an array of times, which may be any numbers; fast where "
            "they rise. "
            "Other threads go on meanwhile. The values are written into `out`, a float64 array of the same "
            "shape that "
            "may be `times` itself.")
        .def(
            "slope", [](const SplinePointer& self, double time) { return self->read().slope(time); },
            "time"_a, "The slope at a time, toward later times.")
        .def("__len__", [](const SplinePointer& self) { return self->read().getControlPointsNumber(); })
        .def("__getitem__", &pointAt, "index"_a)
        .def("__iter__",
             [](const SplinePointer& self) {
                 py::list points;
                 for (const SplineBase::PointInfo* point : self->read().getControlPoints())
                     points.append(Point(self, *point));
                 return py::iter(points);
             })
        .def(
            "next",
            [](const SplinePointer& self, double time) {
                return pointOrNone(self, self->read().getNext(time));
            },
            "time"_a, "The first point later than `time`, or None.")
        .def(
            "previous",
            [](const SplinePointer& self, double time) {
                return pointOrNone(self, self->read().getPrev(time));
            },
            "time"_a, "The last point earlier than `time`, or None.")
        .def(
            "find",
            [](const SplinePointer& self, std::uint32_t serial, double near) {
                const std::int32_t index = self->read().findIndex(serial, near);
                return index < 0 ? std::nullopt : std::optional(pointAt(self, index));
            },
            "serial"_a, "near"_a = 0.0, "The point with that serial, or None; found fast at the time `near`.")
        .def(
            "tangent_left",
            [](const SplinePointer& self, std::ptrdiff_t index) {
                return tangentAt(*self, index, &SplineBase::getTangentLeftAtNode);
            },
            "index"_a,
            "The slope with which the segment arrives at that point, and the length of the handle.")
        .def(
            "tangent_right",
            [](const SplinePointer& self, std::ptrdiff_t index) {
                return tangentAt(*self, index, &SplineBase::getTangentRightAtNode);
            },
            "index"_a,
            "The slope with which that segment leaves the point before, and the length of the handle.")
        .def(
            "influence",
            [](const SplinePointer& self, std::ptrdiff_t index) {
                const TimeInterval times = influenceOf(self->read(), indexIn(*self, index));
                return std::pair(times.first, times.last);
            },
            "index"_a, "The first and the last time at which the value depends on that point.")
        .def("__repr__", [](const SplinePointer& self) {
            const SplineBase& base = self->read();
            return py::str("<Spline of {} points, time {!r} to {!r}>")
                .format(base.getControlPointsNumber(), base.getFirst()->time, base.getLast()->time);
        });
}

void bindCopies(py::class_<Spline, SplinePointer>& spline)
{
    const auto copy = [](const SplinePointer& self) {
        return std::make_shared<Spline>(self->read().state());
    };
    spline.def("copy", copy, "Another spline of the same points, serials included.")
        .def("__copy__", copy)
        .def(
            "__deepcopy__", [copy](const SplinePointer& self, const py::dict&) { return copy(self); },
            "memo"_a)
        .def_property_readonly(
            "state", [](const SplinePointer& self) { return self->read().state(); },
            "The whole content as a value.")
        .def(
            "assign",
            [](const SplinePointer& self, const SplineState& state) {
                if (!self->edit([&](SplineBase& base) { return base.assign(state); }))
                    raise(PyExc_ValueError, "the state is not whole");
            },
            "state"_a,
            "Makes a state the content. Points whose serial is there before and after stay the same points.")
        .def(
            "snapshot",
            [](const SplinePointer& self, std::shared_ptr<CurveSnapshot> previous) {
                return std::const_pointer_cast<CurveSnapshot>(
                    CurveSnapshot::of(self->read(), std::move(previous)));
            },
            "previous"_a = py::none(),
            "The curve as it is now, to be evaluated by any thread; shares what is equal with an earlier "
            "one.")
        .def(
            "to_text", [](const SplinePointer& self) { return textOf(*self); },
            "All points, the behaviours and the default value, whatever the locale.")
        .def_static("from_text", &fromText, "text"_a, "Reads what `to_text` wrote.")
        .def(py::pickle([](const SplinePointer& self) { return py::make_tuple(self->read().state()); },
                        [](const py::tuple& content) {
                            return std::make_shared<Spline>(content[0].cast<const SplineState&>());
                        }));
}

} // namespace

void bindSplines(py::module_& module)
{
    bindPoints(module);

    py::class_<Spline, SplinePointer> spline(module, "Spline",
                                             "A scalar function of time that is shaped by points. A new one "
                                             "holds a point at time 0 and value 0. It is never "
                                             "empty. Times are in time units.");
    spline.def(py::init<>(), "A point at time 0 and value 0.")
        .def(py::init([](const py::array& points) {
                 SplineState state;
                 state.points = toPoints(points);
                 if (state.points.empty())
                     raise(PyExc_ValueError, "a spline has at least one point");
                 return std::make_shared<Spline>(state);
             }),
             "points"_a, "The points of a structured array, as `points` gives it.");
    bindReading(spline);
    bindEditing(spline);
    bindCopies(spline);
}

} // namespace curveeditor::python
