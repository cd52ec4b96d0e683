// SPDX-License-Identifier: MIT
#include "Editor.h"

#include "Casters.h"

#include "../model/Arrays.h"
#include "../model/Errors.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <thread>

namespace py = pybind11;

namespace curveeditor::python {

namespace {

template <typename... Told>
void forward(CurveEditor* dialog, void (CurveEditor::*signal)(Told...), const char* name,
             const PythonCall& report)
{
    QObject::connect(dialog, signal, dialog, [=](std::decay_t<Told>... told) {
        report([&] { return py::make_tuple(name, told...); });
    });
}

/// Editors that have a dialog.
std::vector<Editor*> living;

/// Dialogs do not outlive the application.
void closeAll()
{
    if (!Py_IsInitialized())
        return;
    const py::gil_scoped_acquire locked;
    while (!living.empty())
        living.back()->close();
}

} // namespace

RegisteredCurve::RegisteredCurve(SplinePointer registered, const QString& groupName, const QString& curveName)
    : spline(std::move(registered)), base(spline->enterEditor()), group(groupName), curve(curveName)
{
}

RegisteredCurve::~RegisteredCurve()
{
    delete formula;
    spline->leaveEditor();
}

Editor::Editor(std::uintptr_t parent, py::object report, py::object gone) : kept_(std::make_shared<Kept>())
{
    if (living.empty()) {
        qRemovePostRoutine(&closeAll);
        qAddPostRoutine(&closeAll);
    }
    living.push_back(this);
    ++guiThread->editors;
    guiThread->thread = std::this_thread::get_id();
    dialog_ = new CurveEditor(reinterpret_cast<QWidget*>(parent)); // NOLINT: the address that PyQt6 gave
    dialog_->setVariables(&kept_->mapper);
    connectReports(PythonCall(std::move(report)));
    QObject::connect(dialog_, &QObject::destroyed, [kept = kept_, call = PythonCall(std::move(gone))] {
        kept->curves.clear();
        kept->variables.reset(); // its formulas, as long as other threads keep off the parser
        --guiThread->editors;
        call([] { return py::tuple(); });
    });
}

Editor::~Editor()
{
    close();
}

void Editor::close()
{
    living.erase(std::remove(living.begin(), living.end(), this), living.end());
    CurveEditor* const dialog = dialog_;
    if (!dialog)
        return;
    dialog_.clear();
    // In a loop of events a slot of PyQt's may be what drops it, which only the dialog's own code called.
    if (PythonCall::Running::isAny() || QThread::currentThread() != dialog->thread() ||
        dialog->thread()->loopLevel() > 0) {
        dialog->deleteLater();
        return;
    }
    const py::gil_scoped_release unlocked;
    delete dialog;
}

CurveEditor& Editor::dialog() const
{
    if (!dialog_)
        raise(PyExc_ReferenceError, "the editor is gone");
    if (QThread::currentThread() != dialog_->thread())
        raise(PyExc_RuntimeError, "the editor may be used by the thread alone that made it");
    return *dialog_;
}

void Editor::connectReports(const PythonCall& report)
{
    forward(dialog_, &CurveEditor::closed, "closed", report);
    forward(dialog_, &CurveEditor::curveHasChanged, "curve_has_changed", report);
    forward(dialog_, &CurveEditor::curveEdited, "curve_edited", report);
    forward(dialog_, &CurveEditor::undoRequested, "undo_requested", report);
    forward(dialog_, &CurveEditor::redoRequested, "redo_requested", report);
    forward(dialog_, &CurveEditor::curveOpened, "curve_opened", report);
    forward(dialog_, &CurveEditor::curveClosed, "curve_closed", report);
    forward(dialog_, &CurveEditor::currentCurveChanged, "current_curve_changed", report);
    forward(dialog_, &CurveEditor::curveColorChanged, "curve_color_changed", report);
    forward(dialog_, &CurveEditor::viewChanged, "view_changed", report);
    forward(dialog_, &CurveEditor::pointSelectionChanged, "point_selection_changed", report);
    forward(dialog_, &CurveEditor::timeLineDragged, "time_line_dragged", report);
}

void Editor::addCurve(const QString& group, const QString& curve, const SplinePointer& spline,
                      const std::optional<std::string>& formula, const Look& look)
{
    CurveEditor& editor = dialog();
    auto registered = std::make_unique<RegisteredCurve>(spline, group, curve);
    if (formula)
        registered->formula = parsed(*formula);
    if (!kept_->mapper.add(registered->name(), &registered->base, &registered->formula))
        raise(PyExc_ValueError, "another curve has the name \"" + registered->name() + '"');
    RegisteredCurve& added = *kept_->curves.emplace_back(std::move(registered));
    editor.addCurve(group, curve, look.color, look.defaultValue, &added.base, &added.formula, look.minimum,
                    look.maximum);
}

void Editor::dropRemoved()
{
    const auto isRemoved = [&](const std::unique_ptr<RegisteredCurve>& curve) {
        const auto* record =
            dialog_ ? dialog_->searchAllNodeList(curve->group + '.' + curve->curve) : nullptr;
        return !record || record->function != &curve->formula;
    };
    for (const auto& curve : kept_->curves) {
        if (isRemoved(curve))
            kept_->mapper.remove(curve->name());
    }
    Curves& curves = kept_->curves;
    curves.erase(std::remove_if(curves.begin(), curves.end(), isRemoved), curves.end());
}

void Editor::removeCurve(const QString& group, const QString& name)
{
    curve(group, name);
    dialog().removeCurve(group, name);
    dropRemoved();
}

void Editor::requireGroup(const QString& group) const
{
    if (!dialog().searchMainNode(group))
        throw py::key_error(group.toStdString());
}

void Editor::removeGroup(const QString& group)
{
    requireGroup(group);
    dialog().removeNode(group);
    dropRemoved();
}

bool Editor::follow(RegisteredCurve& curve, const QString& newName)
{
    const auto* record = dialog().searchAllNodeList(newName);
    if (!record || record->function != &curve.formula)
        return false;
    curve.group = record->nodeName;
    curve.curve = record->curveName;
    return true;
}

void Editor::renameCurve(const QString& group, const QString& name, const QString& newName)
{
    RegisteredCurve& renamed = curve(group, name);
    const QString newFullName = group + '.' + newName;
    if (!kept_->mapper.rename(renamed.name(), newFullName.toStdString()))
        raise(PyExc_ValueError, "another curve has the new name");
    dialog().renameCurve(group, name, newName);
    follow(renamed, newFullName);
}

void Editor::renameGroup(const QString& group, const QString& newName)
{
    requireGroup(group);
    std::vector<std::pair<RegisteredCurve*, QString>> renamed; // and their new names
    for (const auto& curve : kept_->curves) {
        const QString name = curve->group + '.' + curve->curve;
        if (name.startsWith(group + '.'))
            renamed.emplace_back(curve.get(), newName + name.mid(group.size()));
    }
    CurveVariables& mapper = kept_->mapper;
    for (const auto& [curve, name] : renamed)
        mapper.remove(curve->name());
    bool isDone = std::none_of(renamed.begin(), renamed.end(), [&](const auto& one) {
        return mapper.hasName(ParserVarMapper::getStoredName(one.second.toStdString()));
    });
    if (isDone)
        dialog().renameNode(group, newName);
    for (const auto& [curve, name] : renamed) {
        isDone = isDone && follow(*curve, name);
        mapper.add(curve->name(), &curve->base, &curve->formula);
    }
    if (!isDone)
        raise(PyExc_ValueError, "another curve has the new name of one of the group");
}

RegisteredCurve& Editor::curve(const QString& group, const QString& name) const
{
    dialog();
    for (const auto& curve : kept_->curves) {
        if (curve->group == group && curve->curve == name)
            return *curve;
    }
    throw py::key_error((group + '.' + name).toStdString());
}

FunctionFloatBase* Editor::parsed(const std::string& text) const
{
    const ParserVarMapper& mapper = kept_->variables ? kept_->variables->mapper() : kept_->mapper;
    return Formula::parsed(text, &mapper);
}

void Editor::deleteFormula(const QString& group, const QString& name)
{
    FunctionFloatBase** const holder = &curve(group, name).formula;
    dialog().deleteExpression(group, name, holder);
}

std::optional<std::string> Editor::formula(const QString& group, const QString& name) const
{
    const RegisteredCurve& asked = curve(group, name);
    return asked.formula ? std::optional(asked.formula->getString()) : std::nullopt;
}

py::object Editor::values(const QString& group, const QString& name, const py::object& times) const
{
    const RegisteredCurve& asked = curve(group, name);
    const std::string variable = ParserVarMapper::getStoredName(asked.name());
    const double framesPerTimeUnit = dialog().getFps();
    const auto evaluate = [&](const double* source, double* target, std::size_t count) {
        kept_->mapper.getValues(variable, source, framesPerTimeUnit, target, count);
    };
    const auto valueAt = [&](double time) {
        double value = 0.0;
        evaluate(&time, &value, 1);
        return value;
    };
    return valuesAt(times, py::none(), valueAt, evaluate);
}

void Editor::setVariables(const std::optional<VariablesPointer>& variables)
{
    CurveEditor& editor = dialog();
    kept_->variables = variables.value_or(nullptr);
    editor.setVariables(kept_->variables ? &kept_->variables->mapper() : &kept_->mapper);
}

} // namespace curveeditor::python
