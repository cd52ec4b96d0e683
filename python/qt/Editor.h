// SPDX-License-Identifier: MIT
#pragma once

#include "PythonCall.h"

#include "../model/Formula.h"
#include "../model/Spline.h"

#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/shell/CurveEditor.h>

#include <QPointer>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace curveeditor::python {

/// A curve that is registered in an editor: it keeps the spline alive, and is the host's holder of the formula.
struct RegisteredCurve
{
    RegisteredCurve(SplinePointer spline, const QString& group, const QString& curve);
    ~RegisteredCurve();
    RegisteredCurve(const RegisteredCurve&) = delete;
    RegisteredCurve& operator=(const RegisteredCurve&) = delete;

    std::string name() const { return (group + '.' + curve).toStdString(); }

    const SplinePointer spline;
    SplineBase& base;
    QString group;
    QString curve;
    FunctionFloatBase* formula = nullptr;
};

/// An editor of Python's, with all that its host keeps for it. The dialog goes with it, or with its parent; then
/// everything raises ReferenceError.
class Editor
{
public:
    /// `report` is called with the name of a signal and what it tells, `gone` when the dialog is no more.
    Editor(std::uintptr_t parent, pybind11::object report, pybind11::object gone);
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    bool isEdited = false; ///< while the work of `edit` runs

    bool isThere() const { return !dialog_.isNull(); }
    /// Raises where it is gone, and on another thread than its own.
    CurveEditor& dialog() const;
    void close();

    struct Look
    {
        QColor color;
        float defaultValue;
        float minimum;
        float maximum;
    };
    void addCurve(const QString& group, const QString& curve, const SplinePointer& spline,
                  const std::optional<std::string>& formula, const Look& look);
    void removeCurve(const QString& group, const QString& curve);
    void renameCurve(const QString& group, const QString& curve, const QString& name);
    void removeGroup(const QString& group);
    void renameGroup(const QString& group, const QString& name);

    /// Raises KeyError for a curve that is not there.
    RegisteredCurve& curve(const QString& group, const QString& curve) const;
    void deleteFormula(const QString& group, const QString& curve);
    std::optional<std::string> formula(const QString& group, const QString& curve) const;
    pybind11::object values(const QString& group, const QString& curve, const pybind11::object& times) const;
    void setVariables(const std::optional<VariablesPointer>& variables);

private:
    using Curves = std::vector<std::unique_ptr<RegisteredCurve>>;

    /// What the dialog reads to its end.
    struct Kept
    {
        Curves curves;
        CurveVariables mapper; ///< goes first, as it reads the curves
        VariablesPointer variables;
    };

    void connectReports(const PythonCall& report);
    void dropRemoved();
    /// Raises KeyError.
    void requireGroup(const QString& group) const;
    /// Takes the names of its record, which is under that name; false if it is not.
    bool follow(RegisteredCurve& curve, const QString& newName);
    FunctionFloatBase* parsed(const std::string& text) const;

    QPointer<CurveEditor> dialog_;
    std::shared_ptr<Kept> kept_;
};

} // namespace curveeditor::python
