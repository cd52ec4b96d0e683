// SPDX-License-Identifier: MIT
#include <curveeditor/edit/EditCommand.h>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace curveeditor {

EditCommand::EditCommand(EditHistory& history, const QString& text, std::vector<EditHistory::Part> parts,
                         int merge)
    : QUndoCommand(text), history_(&history), parts_(std::move(parts)), merge_(merge)
{
    history.entries_.insert(this);
}

EditCommand::~EditCommand()
{
    if (history_)
        history_->entries_.erase(this);
}

void EditCommand::drop(const EditedCurve& curve)
{
    for (EditHistory::Part& part : parts_)
        part.isDead = part.isDead || part.curve.get() == &curve;
}

void EditCommand::dropFormulas(FunctionFloatBase** variable, const std::vector<std::string>& formulas)
{
    for (EditHistory::Part& part : parts_) {
        const bool leadsThere = std::any_of(formulas.begin(), formulas.end(), [&part](const auto& formula) {
            return part.diff.formulaBefore() == formula || part.diff.formulaAfter() == formula;
        });
        part.isDead = part.isDead || (part.curve->variable() == variable && leadsThere);
    }
}

void EditCommand::rename(const EditedCurve& curve, const QString& oldName)
{
    const bool concerns = std::any_of(parts_.begin(), parts_.end(),
                                      [&](const auto& part) { return part.curve.get() == &curve; });
    if (concerns)
        setText(text().replace(oldName, curve.name));
}

bool EditCommand::isDead() const
{
    return !history_ ||
           std::all_of(parts_.begin(), parts_.end(), [](const auto& part) { return part.isDead; });
}

void EditCommand::undo()
{
    step(EditReport::Cause::Undo);
}

void EditCommand::redo()
{
    if (!std::exchange(isDoneAlready_, false))
        step(EditReport::Cause::Redo);
}

// No foreign code runs before the stack has done its step: it might delete this entry, or step itself.
void EditCommand::step(EditReport::Cause cause)
{
    if (!isDead()) {
        history_->isStepping_ = true;
        Q_EMIT history_->aboutToStep();
        stepParts(cause);
        history_->isStepping_ = false;
    }
    setObsolete(isDead());
}

// All curves are looked at before any changes, as two may share a spline.
void EditCommand::stepParts(EditReport::Cause cause)
{
    const bool isUndo = cause == EditReport::Cause::Undo;
    for (const EditHistory::Part& part : parts_) {
        if (!part.isDead && part.curve->fingerprint() != (isUndo ? part.after : part.before))
            history_->drop(*part.curve);
    }
    std::unordered_set<const SplineBase*> stepped;
    for (const EditHistory::Part& part : parts_) {
        if (part.isDead)
            continue;
        const CurveDiff diff = isUndo ? part.diff.inverse() : part.diff;
        if (part.curve->step(diff, stepped.count(part.curve->spline()) == 0)) {
            stepped.insert(part.curve->spline());
            history_->tellStep(part.curve, diff, cause);
            continue;
        }
        if (const std::string& formula = diff.formulaAfter(); !formula.empty())
            history_->lostFormulas_.emplace_back(part.curve->name, QString::fromStdString(formula));
        history_->drop(*part.curve);
    }
}

} // namespace curveeditor
