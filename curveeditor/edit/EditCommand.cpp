// SPDX-License-Identifier: MIT
#include <curveeditor/edit/EditCommand.h>

#include <algorithm>
#include <utility>

namespace curveeditor {

EditCommand::EditCommand(EditHistory& history, const QString& text, std::vector<EditHistory::Part> parts)
    : QUndoCommand(text), history_(&history), parts_(std::move(parts))
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

// All targets are found before any curve changes, as two curves may share a spline.
void EditCommand::stepParts(EditReport::Cause cause)
{
    const bool isUndo = cause == EditReport::Cause::Undo;
    std::vector<CurveState> targets(parts_.size());
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        if (!parts_[i].isDead && !findTarget(parts_[i], isUndo, targets[i]))
            history_->drop(*parts_[i].curve);
    }
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        const EditHistory::Part& part = parts_[i];
        if (part.isDead)
            continue;
        if (part.curve->restore(targets[i])) {
            history_->tell({part.curve, part.diff.touched(), EditReport::Phase::Commit, cause,
                            isUndo ? part.diff.pointsBefore() : part.diff.pointsAfter()});
            continue;
        }
        history_->lostFormulas_.emplace_back(part.curve->name, QString::fromStdString(targets[i].formula));
        history_->drop(*part.curve);
    }
}

/// Where the step leads; false if the curve is not as the entry left it.
bool EditCommand::findTarget(const EditHistory::Part& part, bool isUndo, CurveState& target)
{
    if (part.curve->fingerprint() != (isUndo ? part.after : part.before))
        return false;
    target = part.curve->state();
    // Which content shows is chosen anew when a curve comes back onto the canvas, so it is no edit of the host.
    target.kind = isUndo ? part.diff.kindAfter() : part.diff.kindBefore();
    return isUndo ? part.diff.revert(target) : part.diff.apply(target);
}

} // namespace curveeditor
