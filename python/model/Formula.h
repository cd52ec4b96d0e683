// SPDX-License-Identifier: MIT
#pragma once

#include "Spline.h"

#include <curveeditor/model/CurveSnapshot.h>
#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/FunctionFloatBase.h>

#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace curveeditor::python {

class Formula;
using FormulaPointer = std::shared_ptr<Formula>;

/// The curves that formulas read by name. It keeps them alive; the formulas that read it do not keep it.
class Variables
{
public:
    using Curve = std::variant<SplinePointer, FormulaPointer>;

    Variables() = default;
    ~Variables();
    Variables(const Variables&) = delete;
    Variables& operator=(const Variables&) = delete;

    /// False for a name that is taken or empty.
    bool add(const std::string& name, const Curve& curve);
    /// False for a name that is not there.
    bool remove(const std::string& name);
    /// False where there is no such name, or another curve has the new one.
    bool rename(const std::string& oldName, const std::string& newName);

    const std::map<std::string, Curve>& curves() const { return curves_; }
    const CurveVariables& mapper() const { return mapper_; }
    CurveVariables& mapper() { return mapper_; }

private:
    static void leave(const Curve& curve);

    std::map<std::string, Curve> curves_; ///< by their stored names
    CurveVariables mapper_;               ///< goes first, as it reads the curves
};

using VariablesPointer = std::shared_ptr<Variables>;

/// A parsed formula. The interpreter's lock is held whenever it is made, evaluated or freed, as the parser is one for the
/// process; blocks are evaluated from a snapshot, without it.
class Formula
{
public:
    /// Raises FormulaError. `variables` may be null.
    Formula(const std::string& text, const VariablesPointer& variables, double framesPerTimeUnit);
    ~Formula();
    Formula(const Formula&) = delete;
    Formula& operator=(const Formula&) = delete;

    /// A new tree that is the caller's, or FormulaError. `variables` may be null.
    static FunctionFloatBase* parsed(const std::string& text, const ParserVarMapper* variables);

    /// Of the formula as it is written shortest.
    std::string text() const;
    /// Of all it reads, each once.
    std::vector<std::string> names() const;
    double framesPerTimeUnit() const { return framesPerTimeUnit_; }
    bool readsVariables() const { return readsVariables_; }

    double valueAt(double time) const;
    /// The formula and all that it reads, as they are now.
    std::shared_ptr<CurveSnapshot> snapshot() const;

    /// For those who read the formula where it lies; never null.
    FunctionFloatBase** holder() { return &tree_; }

private:
    VariablesPointer variables() const;

    FunctionFloatBase* tree_;
    double framesPerTimeUnit_;
    bool readsVariables_;
    std::weak_ptr<Variables> variables_;
};

} // namespace curveeditor::python

template <>
class pybind11::detail::type_caster<curveeditor::python::VariablesPointer>
    : public curveeditor::python::NeverNull<curveeditor::python::Variables>
{
};
template <>
class pybind11::detail::type_caster<curveeditor::python::FormulaPointer>
    : public curveeditor::python::NeverNull<curveeditor::python::Formula>
{
};
