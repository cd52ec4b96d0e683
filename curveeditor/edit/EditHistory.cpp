// SPDX-License-Identifier: MIT
#include <curveeditor/edit/EditHistory.h>

#include <curveeditor/edit/EditCommand.h>

#include <QUndoStack>

#include <algorithm>
#include <utility>

namespace curveeditor {

namespace {

/// More would only be kept for nobody; a host that wants another number sets it on an empty stack.
constexpr int usualLimit = 1000;

bool isDeadEntry(const QUndoStack& stack, int index)
{
    const auto* const entry = dynamic_cast<const EditCommand*>(stack.command(index));
    return entry && entry->isDead();
}

// The stack removes entries only while it steps over them, so those that lie next are stepped over at once and
// no text of theirs is offered to the user. Within a macro the stack refuses to step.
void removeDeadEntriesOf(QUndoStack& stack)
{
    int count = -1;
    while (stack.index() > 0 && stack.count() != count && isDeadEntry(stack, stack.index() - 1)) {
        count = stack.count();
        stack.undo();
    }
    count = -1;
    while (stack.canRedo() && stack.count() != count && isDeadEntry(stack, stack.index())) {
        count = stack.count();
        stack.redo();
    }
}

} // namespace

EditHistory::EditHistory(QObject* parent) : QObject(parent), ownStack_(std::make_unique<QUndoStack>())
{
    ownStack_->setUndoLimit(usualLimit);
    connectStack(ownStack_.get());
}

// What is left on a host's stack goes when it comes to its top.
EditHistory::~EditHistory()
{
    stack()->disconnect(this);
    leaveStack();
    QUndoStack* const left = hostStack_;
    if (!left || entries_.empty())
        return;
    connect(left, &QUndoStack::indexChanged, left, [left, isRemoving = false]() mutable {
        if (std::exchange(isRemoving, true))
            return;
        removeDeadEntriesOf(*left);
        isRemoving = false;
    });
}

void EditHistory::leaveStack()
{
    const HostCalls::Call call(hostCalls);
    ownStack_->clear();
    for (EditCommand* const entry : entries_)
        entry->setParts({});
    removeDeadEntries();
}

std::shared_ptr<EditedCurve> EditHistory::find(const QString& name, const SplineBase* spline,
                                               FunctionFloatBase** variable) const
{
    const auto [first, last] = curves_.equal_range(name);
    const auto found = std::find_if(first, last, [&](const auto& curve) {
        return curve->spline() == spline && curve->variable() == variable;
    });
    return found == last ? nullptr : *found;
}

std::shared_ptr<EditedCurve> EditHistory::curve(const QString& name, SplineBase* spline,
                                                FunctionFloatBase** variable)
{
    std::shared_ptr<EditedCurve> curve = find(name, spline, variable);
    if (!curve) {
        curve = std::make_shared<EditedCurve>(name, spline, variable, settings_);
        curves_.insert(name, curve);
    }
    return curve;
}

QSet<QString> EditHistory::hiddenCurves() const
{
    QSet<QString> names;
    for (const auto& curve : curves_) {
        if (curve->options.hidden)
            names.insert(curve->name);
    }
    return names;
}

void EditHistory::rename(const QString& oldName, const QString& newName)
{
    const auto renamed = curves_.values(oldName);
    for (const auto& curve : renamed)
        rename(*curve, newName);
}

void EditHistory::rename(EditedCurve& curve, const QString& newName)
{
    const QString oldName = std::exchange(curve.name, newName);
    if (const auto known = find(oldName, curve.spline(), curve.variable())) {
        curves_.remove(oldName, known);
        curves_.insert(newName, known);
    }
    for (EditCommand* const entry : entries_)
        entry->rename(curve, oldName);
    Q_EMIT stackChanged();
}

void EditHistory::forget(const QStringList& names)
{
    QList<std::shared_ptr<EditedCurve>> gone;
    for (const QString& name : names) {
        gone += curves_.values(name);
        curves_.remove(name);
    }
    for (const auto& curve : std::as_const(gone)) {
        curve->letGo();
        drop(*curve);
    }
    removeDeadEntries();
}

void EditHistory::forgetRetired(FunctionFloatBase** variable)
{
    std::vector<std::string> lost;
    for (const auto& curve : curves_) {
        if (curve->variable() != variable)
            continue;
        const std::vector<std::string> texts = curve->forgetRetired();
        lost.insert(lost.end(), texts.begin(), texts.end());
    }
    for (EditCommand* const entry : entries_)
        entry->dropFormulas(variable, lost);
    removeDeadEntries();
}

QUndoStack* EditHistory::stack() const
{
    return hostStack_ ? hostStack_.data() : ownStack_.get();
}

void EditHistory::setStack(QUndoStack* newStack)
{
    if ((newStack ? newStack : ownStack_.get()) == stack())
        return;
    hostStack_ = newStack == ownStack_.get() ? nullptr : newStack;
    steppingFrom_.reset();
    const HostCalls::Call call(hostCalls);
    ownStack_->clear();
    if (hostStack_) {
        connectStack(hostStack_);
        connect(hostStack_, &QObject::destroyed, this, &EditHistory::stackChanged, Qt::UniqueConnection);
    }
    Q_EMIT stackChanged();
}

void EditHistory::connectStack(QUndoStack* stack)
{
    for (const auto signal : {&QUndoStack::undoTextChanged, &QUndoStack::redoTextChanged})
        connect(stack, signal, this, &EditHistory::stackChanged, Qt::UniqueConnection);
    for (const auto signal : {&QUndoStack::canUndoChanged, &QUndoStack::canRedoChanged})
        connect(stack, signal, this, &EditHistory::stackChanged, Qt::UniqueConnection);
    connect(stack, &QUndoStack::indexChanged, this, &EditHistory::finishStep, Qt::UniqueConnection);
}

void EditHistory::setKeepsEntries(bool on)
{
    keepsEntries_ = on;
    const QPointer<EditHistory> guard(this);
    if (!on)
        leaveStack();
    if (guard)
        Q_EMIT stackChanged();
}

bool EditHistory::apply(const std::shared_ptr<EditedCurve>& curve, const CurveDiff& diff, bool forward)
{
    if (diff.isEmpty())
        return true;
    const CurveDiff step = forward ? diff : diff.inverse();
    if (!curve->isAt(step) || !curve->step(step, true))
        return false;
    tellStep(curve, step, forward ? EditReport::Cause::Redo : EditReport::Cause::Undo);
    return true;
}

void EditHistory::undo()
{
    step(&QUndoStack::undo);
}

void EditHistory::redo()
{
    step(&QUndoStack::redo);
}

void EditHistory::step(void (QUndoStack::*work)())
{
    Q_EMIT aboutToStep();
    const HostCalls::Call call(hostCalls);
    const QPointer<EditHistory> guard(this);
    steppingFrom_ = stack()->index();
    (stack()->*work)();
    if (guard)
        steppingFrom_.reset();
}

bool EditHistory::isCommandAtWork() const
{
    return steppingFrom_ == stack()->index();
}

EditCommand* EditHistory::makeEntry(const QString& text, std::vector<Part> parts, int merge)
{
    return new EditCommand(*this, text, std::move(parts), merge);
}

void EditHistory::push(EditCommand* entry)
{
    const HostCalls::Call call(hostCalls);
    if (isStepping_ || isCommandAtWork() || !keepsEntries_)
        delete entry;
    else
        stack()->push(entry);
}

bool EditHistory::isOnTop(EditCommand* entry) const
{
    const QUndoStack& present = *stack();
    const int index = present.index();
    return entries_.count(entry) > 0 && index > 0 && index == present.count() &&
           present.command(index - 1) == entry;
}

EditCommand* EditHistory::entryToJoin(int merge) const
{
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](EditCommand* entry) {
        return entry->merge() == merge && isOnTop(entry);
    });
    return merge != 0 && !stack()->isClean() && found != entries_.end() ? *found : nullptr;
}

void EditHistory::amend(EditCommand* entry, std::vector<Part> parts)
{
    if (!isOnTop(entry))
        return;
    entry->setParts(std::move(parts));
    removeDeadEntries();
}

void EditHistory::drop(const EditedCurve& curve)
{
    for (EditCommand* const entry : entries_)
        entry->drop(curve);
}

void EditHistory::tell(const EditReport& report)
{
    if (isStepping_)
        pending_.push_back(report);
    else
        Q_EMIT reported(report);
}

void EditHistory::tellStep(const std::shared_ptr<EditedCurve>& curve, const CurveDiff& diff,
                           EditReport::Cause cause)
{
    tell({curve, diff.touched(), EditReport::Phase::Commit, cause, diff.pointsAfter(),
          std::make_shared<const CurveDiff>(diff)});
}

void EditHistory::finishStep()
{
    if (isStepping_)
        return;
    const QPointer<EditHistory> guard(this);
    removeDeadEntries();
    if (!guard)
        return;
    const std::vector<EditReport> reports = std::exchange(pending_, {});
    const auto lost = std::exchange(lostFormulas_, {});
    for (const EditReport& report : reports) {
        if (guard)
            Q_EMIT reported(report);
    }
    for (const auto& [curve, formula] : lost) {
        if (guard)
            Q_EMIT formulaLost(curve, formula);
    }
}

void EditHistory::removeDeadEntries()
{
    if (isStepping_ || std::exchange(isRemoving_, true))
        return;
    const HostCalls::Call call(hostCalls);
    const QPointer<EditHistory> guard(this);
    removeDeadEntriesOf(*stack());
    if (guard)
        isRemoving_ = false;
}

} // namespace curveeditor

#include "moc_EditHistory.cpp"
