// SPDX-License-Identifier: MIT
#include "Formula.h"

#include "Errors.h"

#include <curveeditor/files/FormulaFault.h>
#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/FunctionParserBase.h>

#include <pybind11/stl.h>

#include <algorithm>

namespace py = pybind11;

namespace curveeditor::python {

namespace {

std::size_t characters(std::string_view text)
{
    return std::size_t(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

[[noreturn]] void raiseFormulaError(const ParseMessage& message)
{
    const std::string_view text = message.text;
    py::list spans;
    for (const auto& [offset, length] : message.errors)
        spans.append(
            py::make_tuple(characters(text.substr(0, offset)), characters(text.substr(0, offset + length))));
    const py::object type = py::module_::import("curveeditor._model").attr("FormulaError");
    const py::object error = type(formulaFault(message));
    error.attr("text") = message.text;
    error.attr("spans") = spans;
    PyErr_SetObject(type.ptr(), error.ptr());
    throw py::error_already_set();
}

} // namespace

Variables::~Variables()
{
    for (const auto& [name, curve] : curves_)
        leave(curve);
}

void Variables::leave(const Curve& curve)
{
    if (const auto* spline = std::get_if<SplinePointer>(&curve))
        (*spline)->leaveEditor();
}

bool Variables::add(const std::string& name, const Curve& curve)
{
    requireParser();
    const auto* spline = std::get_if<SplinePointer>(&curve);
    const auto* formula = std::get_if<FormulaPointer>(&curve);
    if (!mapper_.add(name, spline ? &(*spline)->read() : nullptr, formula ? (*formula)->holder() : nullptr))
        return false;
    if (spline)
        (*spline)->enterEditor(); // one that has these variables reads it
    curves_.emplace(ParserVarMapper::getStoredName(name), curve);
    return true;
}

bool Variables::remove(const std::string& name)
{
    requireParser();
    mapper_.remove(name);
    const auto curve = curves_.find(ParserVarMapper::getStoredName(name));
    if (curve == curves_.end())
        return false;
    leave(curve->second);
    curves_.erase(curve);
    return true;
}

bool Variables::rename(const std::string& oldName, const std::string& newName)
{
    requireParser();
    if (!mapper_.rename(oldName, newName))
        return false;
    auto curve = curves_.extract(ParserVarMapper::getStoredName(oldName));
    curve.key() = ParserVarMapper::getStoredName(newName);
    curves_.insert(std::move(curve));
    return true;
}

Formula::Formula(const std::string& text, const VariablesPointer& variables, double framesPerTimeUnit)
    : framesPerTimeUnit_(framesPerTimeUnit), readsVariables_(variables != nullptr), variables_(variables)
{
    tree_ = parsed(text, variables ? &variables->mapper() : nullptr);
}

FunctionFloatBase* Formula::parsed(const std::string& text, const ParserVarMapper* variables)
{
    requireParser();
    ParseMessage message;
    FunctionFloatBase* const tree = FunctionParserBase::instance()->parseString(text, message, variables);
    if (!tree)
        raiseFormulaError(message);
    return tree;
}

Formula::~Formula()
{
    delete tree_;
}

VariablesPointer Formula::variables() const
{
    requireParser();
    VariablesPointer variables = variables_.lock();
    if (readsVariables_ && !variables)
        raise(PyExc_ReferenceError, "the variables of the formula are gone");
    return variables;
}

std::string Formula::text() const
{
    requireParser();
    return tree_->getString();
}

std::vector<std::string> Formula::names() const
{
    requireParser();
    std::vector<std::string> names;
    for (const FunctionParserBase::keyStruct* key : FunctionParserBase::instance()->getAllVars(tree_))
        names.push_back(key->name);
    return names;
}

double Formula::valueAt(double time) const
{
    const VariablesPointer kept = variables();
    EvaluationTime now;
    now.set(time, framesPerTimeUnit_);
    return tree_->evaluate();
}

std::shared_ptr<CurveSnapshot> Formula::snapshot() const
{
    const VariablesPointer kept = variables();
    const CurveVariables none;
    return std::const_pointer_cast<CurveSnapshot>(
        CurveSnapshot::of(*tree_, framesPerTimeUnit_, kept ? kept->mapper() : none));
}

} // namespace curveeditor::python
