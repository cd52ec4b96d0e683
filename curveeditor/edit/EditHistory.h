// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/EditPhase.h>
#include <curveeditor/edit/EditedCurve.h>
#include <curveeditor/edit/HostCalls.h>
#include <curveeditor/edit/Selection.h>
#include <curveeditor/model/CurveDiff.h>

#include <QMultiHash>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

class QUndoStack;

namespace curveeditor {

class EditCommand;

/// What one edit did to one curve, as it is told.
struct EditReport
{
    using Phase = EditPhase;
    using Cause = EditCause;

    std::shared_ptr<EditedCurve> curve;
    TimeInterval touched = {}; ///< the times at which the curve's value may have changed
    Phase phase = Phase::Commit;
    Cause cause = Cause::Edit;
    std::vector<PointSerial> points = {}; ///< those that changed and are there now
    /// What leads from the curve at the commit before to this one; null at a preview.
    std::shared_ptr<const CurveDiff> diff = nullptr;
    QString text = {}; ///< of the entry; empty at previews, steps and what was taken back
    int merge = 0;     ///< of an edit of the host
};

/// The curves of one editor, and the entries of an undo stack that lead back to what they were.
///
/// The stack is the editor's own unless a host gives one, which stays the host's; several editors and the host
/// may put their entries on one stack. An entry acts only on a curve that is in the state that the entry left:
/// where the host has changed it since, all entries of that curve are dropped, and nothing is overwritten.
/// Entries do nothing any more once this object is gone.
class EditHistory : public QObject
{
    Q_OBJECT

public:
    /// What an entry holds for one curve.
    struct Part
    {
        std::shared_ptr<EditedCurve> curve;
        CurveDiff diff;
        std::uint64_t before = 0; ///< fingerprint of the curve before the edit
        std::uint64_t after = 0;  ///< and after it
        bool isDead = false;      ///< dropped, to be passed over
    };

    explicit EditHistory(QObject* parent = nullptr);
    ~EditHistory() override;

    HostCalls hostCalls; ///< those of the editor; a step counts as one, as the host may listen to the stack

    /// Those of all curves.
    EditorSettings& settings() { return *settings_; }

    /// The curve of that name, spline and variable; null before the first call of `curve`.
    std::shared_ptr<EditedCurve> find(const QString& name, const SplineBase* spline,
                                      FunctionFloatBase** variable) const;
    /// The same; a new one at the first time.
    std::shared_ptr<EditedCurve> curve(const QString& name, SplineBase* spline, FunctionFloatBase** variable);
    /// The names of the curves that are hidden.
    QSet<QString> hiddenCurves() const;
    /// The curve, or all of that name, and the texts of their entries.
    void rename(EditedCurve& curve, const QString& newName);
    void rename(const QString& oldName, const QString& newName);
    /// The host takes the curves of these names away, and their entries go. That the stack tells of it comes last.
    void forget(const QStringList& names);

    /// By order of the host, which frees what its expressions read: deletes what the curves of that variable have
    /// retired, and the entries that would bring it back go.
    void forgetRetired(FunctionFloatBase** variable);

    /// Never null. A stack that is deleted, or null given to `setStack`, brings the own one back.
    QUndoStack* stack() const;
    void setStack(QUndoStack* stack);

    /// Whether entries are kept, as they are at first. Switched off, those that are there go.
    bool keepsEntries() const { return keepsEntries_; }
    void setKeepsEntries(bool on);

    /// Makes of the curve before `diff` the one behind it, or the other way about, and tells it as a step. Returns false,
    /// and changes nothing, if what differs is not as it was left.
    bool apply(const std::shared_ptr<EditedCurve>& curve, const CurveDiff& diff, bool forward);

    /// Step back and forth, passing over entries that do nothing any more.
    void undo();
    void redo();
    /// Whether one of the two has a command of the stack at work; nothing can be put on the stack then.
    bool isCommandAtWork() const;

    /// Takes all entries off the stack, or lets them do nothing where that is not possible. To be called before whom
    /// the signals of the stack may reach goes; the destructor does the same.
    void leaveStack();

    /// An entry for what is done already, to be given to `push`, which hands it to the stack. That can't take it while
    /// it steps or where none is kept, and the edit then has none. `merge` is a number of the host's, or 0.
    EditCommand* makeEntry(const QString& text, std::vector<Part> parts, int merge = 0);
    void push(EditCommand* entry);
    /// Whether it is that entry which the stack would take back next; it may be gone.
    bool isOnTop(EditCommand* entry) const;
    /// The entry on top, if it is one of this history and has that number; else, and where the stack is clean, null.
    EditCommand* entryToJoin(int merge) const;
    /// Gives an entry that is on top other parts, or without any takes it off the stack.
    void amend(EditCommand* entry, std::vector<Part> parts);

    /// Tells of an edit: at once, or while the stack steps when it has done so, since who hears of it may do
    /// anything with the stack.
    void tell(const EditReport& report);
    /// The same of a step that was `diff`.
    void tellStep(const std::shared_ptr<EditedCurve>& curve, const CurveDiff& diff, EditReport::Cause cause);

Q_SIGNALS:
    /// An entry is about to change curves: whoever has an edit under way ends it now.
    void aboutToStep();
    void reported(const EditReport& report);
    /// A formula that came back with an entry can't be parsed; its curve stays as it is.
    void formulaLost(const QString& curve, const QString& formula);
    /// `stack` gives another one now, or its texts have changed.
    void stackChanged();

private:
    friend class EditCommand;

    void step(void (QUndoStack::*work)());
    void drop(const EditedCurve& curve);
    void connectStack(QUndoStack* stack);
    void finishStep();
    void removeDeadEntries();

    std::shared_ptr<EditorSettings> settings_ = std::make_shared<EditorSettings>();
    std::unique_ptr<QUndoStack> ownStack_;
    QPointer<QUndoStack> hostStack_;
    QMultiHash<QString, std::shared_ptr<EditedCurve>> curves_; ///< by name
    std::unordered_set<EditCommand*> entries_;                 ///< on whatever stack they are
    std::vector<EditReport> pending_;                          ///< told when the stack has done its step
    std::vector<std::pair<QString, QString>> lostFormulas_;
    std::optional<int> steppingFrom_; ///< where the stack stands until the command that it runs has returned
    bool keepsEntries_ = true;
    bool isRemoving_ = false;
    bool isStepping_ = false;
};

} // namespace curveeditor
