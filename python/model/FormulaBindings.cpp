// SPDX-License-Identifier: MIT
#include "Arrays.h"
#include "Bindings.h"
#include "Errors.h"
#include "Formula.h"
#include "Point.h"

#include <pybind11/stl.h>

#include <optional>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

namespace {

constexpr double usualFramesPerTimeUnit = 10.0; // what a new editor has

void bindVariables(py::module_& module)
{
    const auto refused = [](const std::string& name) {
        raise(PyExc_ValueError, "the name \"" + name + "\" is empty, or another curve has it");
    };
    const auto unknown = [](const std::string& name) {
        throw py::key_error(name);
    };
    const auto stored = [](const std::string& name) {
        return ParserVarMapper::getStoredName(name);
    };
    py::class_<Variables, VariablesPointer>(module, "Variables",
                                            "The curves that formulas read by name. It keeps its curves "
                                            "alive. Keep it as long as the formulas that were "
                                            "parsed with it: when it is gone, they raise ReferenceError. A "
                                            "curve that reads itself gives 0 there.")
        .def(py::init<>())
        .def(
            "add",
            [refused](const VariablesPointer& self, const std::string& name, const Variables::Curve& curve) {
                if (!self->add(name, curve))
                    refused(name);
            },
            "name"_a, "curve"_a,
            "Makes a spline or a formula known under a name, which is kept in lower case and with \"_\" for "
            "each blank.")
        .def(
            "remove",
            [unknown](const VariablesPointer& self, const std::string& name) {
                if (!self->remove(name))
                    unknown(name);
            },
            "name"_a, "Formulas that read the name read 0 from now on.")
        .def(
            "rename",
            [refused, unknown, stored](const VariablesPointer& self, const std::string& old,
                                       const std::string& name) {
                if (!self->curves().count(stored(old)))
                    unknown(old);
                if (!self->rename(old, name))
                    refused(name);
            },
            "old"_a, "new"_a, "Formulas keep the old name, and read 0 for it.")
        .def("__len__", [](const VariablesPointer& self) { return self->curves().size(); })
        .def(
            "__contains__",
            [stored](const VariablesPointer& self, const std::string& name) {
                return self->curves().count(stored(name)) != 0;
            },
            "name"_a)
        .def(
            "__getitem__",
            [unknown, stored](const VariablesPointer& self, const std::string& name) {
                const auto found = self->curves().find(stored(name));
                if (found == self->curves().end())
                    unknown(name);
                return found->second;
            },
            "name"_a)
        .def("__iter__", [](const VariablesPointer& self) {
            py::list names;
            for (const auto& [name, curve] : self->curves())
                names.append(name);
            return py::iter(names);
        });
}

FormulaPointer formulaOf(const std::string& text, const std::optional<VariablesPointer>& variables,
                         double fps)
{
    finite(fps, "fps");
    return std::make_shared<Formula>(text, variables.value_or(nullptr), fps);
}

py::object formulaValues(const FormulaPointer& formula, const py::object& times, const py::object& out)
{
    std::shared_ptr<CurveSnapshot> snapshot;
    const auto evaluate = [&](const double* source, double* target, std::size_t count) {
        {
            const py::gil_scoped_acquire locked;
            snapshot = formula->snapshot();
        }
        snapshot->evaluate(source, target, count);
    };
    return valuesAt(
        times, out, [&](double time) { return formula->valueAt(time); }, evaluate);
}

} // namespace

void bindFormulas(py::module_& module)
{
    module.attr("FormulaError") = py::reinterpret_steal<py::object>(
        PyErr_NewExceptionWithDoc("curveeditor.FormulaError",
                                  "A formula that can't be read. `text` is the formula as it was read, "
                                  "`spans` its faulty places: from which "
                                  "character to which.",
                                  PyExc_ValueError, nullptr));
    bindVariables(module);
    py::class_<Formula, FormulaPointer>(module, "Formula",
                                        "A scalar function of the time `t` and the frame `f`, which is the "
                                        "time times `fps`, written as a formula.")
        .def(py::init(&formulaOf), "text"_a, "variables"_a = py::none(), py::kw_only(),
             "fps"_a = usualFramesPerTimeUnit, "Parses a text; raises FormulaError.")
        .def("__call__", &formulaValues, "times"_a, "out"_a = py::none(),
             "The value at a time, or the values at an array of times. Other threads go on meanwhile. The "
             "values are "
             "written into `out`, a float64 array of the same shape that may be `times` itself.")
        .def_property_readonly("fps", method(&Formula::framesPerTimeUnit), "Frames in a time unit.")
        .def_property_readonly("names", method(&Formula::names), "All that the formula reads, each once.")
        .def(
            "snapshot", [](const FormulaPointer& self) { return self->snapshot(); },
            "The formula, and all curves that it reads, as they are now, to be evaluated by any thread.")
        .def("__str__", method(&Formula::text))
        .def("__repr__",
             [](const FormulaPointer& self) { return py::str("Formula({!r})").format(self->text()); })
        .def(py::pickle(
            [](const FormulaPointer& self) {
                if (self->readsVariables())
                    raise(PyExc_TypeError, "a formula with variables can't be pickled; keep its text");
                return py::make_tuple(self->text(), self->framesPerTimeUnit());
            },
            [](const py::tuple& content) {
                return formulaOf(content[0].cast<std::string>(), {}, content[1].cast<double>());
            }));
}

} // namespace curveeditor::python
