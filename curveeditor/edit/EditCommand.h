// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/EditHistory.h>

#include <QUndoCommand>

namespace curveeditor {

/// One entry of the undo stack: what an edit did to one or several curves. The stack owns it.
class EditCommand : public QUndoCommand
{
public:
    EditCommand(EditHistory& history, const QString& text, std::vector<EditHistory::Part> parts, int merge);
    ~EditCommand() override;

    const std::vector<EditHistory::Part>& parts() const { return parts_; }
    /// The number of the host's edits that may join it; 0 for none.
    int merge() const { return merge_; }
    void setParts(std::vector<EditHistory::Part> parts) { parts_ = std::move(parts); }
    /// The curve's parts do nothing from now on.
    void drop(const EditedCurve& curve);
    /// The parts of curves of that variable that come to or from one of these formulas do nothing from now on.
    void dropFormulas(FunctionFloatBase** variable, const std::vector<std::string>& formulas);
    /// The curve has its new name already.
    void rename(const EditedCurve& curve, const QString& oldName);
    /// Nothing is left to do: the step of the stack only removes the entry.
    bool isDead() const;

    void undo() override;
    void redo() override;

private:
    void step(EditReport::Cause cause);
    void stepParts(EditReport::Cause cause);

    QPointer<EditHistory> history_;
    std::vector<EditHistory::Part> parts_;
    int merge_;
    bool isDoneAlready_ = true; ///< pushing an entry calls `redo` once
};

} // namespace curveeditor
