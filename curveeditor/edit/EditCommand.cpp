// SPDX-License-Identifier: MIT
#include <curveeditor/edit/EditCommand.h>

#include <algorithm>
#include <utility>

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

void EditCommand::step(EditReport::Cause cause)
{
    if (!isDead())
        Q_EMIT history_->aboutToStep();
    if (!isDead()) {
        for (EditHistory::Part& part : parts_)
            stepPart(part, cause);
    }
    setObsolete(isDead());
}

void EditCommand::stepPart(EditHistory::Part& part, EditReport::Cause cause)
{
    if (part.isDead)
        return;
    const bool isUndo = cause == EditReport::Cause::Undo;
    EditedCurve& curve = *part.curve;
    CurveState state = curve.state();
    // Which content shows is chosen anew when a curve comes back onto the canvas, so it is no edit of the host.
    state.kind = isUndo ? part.diff.kindAfter() : part.diff.kindBefore();
    const bool isAsLeft = curve.fingerprint() == (isUndo ? part.after : part.before) &&
                          (isUndo ? part.diff.revert(state) : part.diff.apply(state));
    if (isAsLeft && curve.restore(state)) {
        history_->pending_.push_back({part.curve, part.diff.touched(), EditReport::Phase::Commit, cause,
                                      isUndo ? part.diff.pointsBefore() : part.diff.pointsAfter()});
        return;
    }
    if (isAsLeft)
        history_->lostFormulas_.emplace_back(curve.name, QString::fromStdString(state.formula));
    history_->drop(curve);
}
