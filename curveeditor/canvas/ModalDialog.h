// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPointer>

#include <optional>
#include <utility>

namespace curveeditor {

/// A dialog that runs its own loop, in which the host may do anything: also delete the parent, and the dialog with
/// it. Whoever asks goes on only after an answer, which says that both are still there.
template <class Dialog> class ModalDialog
{
public:
    template <class... Arguments>
    explicit ModalDialog(Arguments&&... arguments)
        : dialog_(new Dialog(std::forward<Arguments>(arguments)...))
    {
    }
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;
    ~ModalDialog() { delete dialog_; }

    Dialog& operator*() const { return *dialog_; }
    Dialog* operator->() const { return dialog_; }

    /// Runs the dialog and returns its result; nothing if it is gone.
    std::optional<int> answer()
    {
        const int result = dialog_->exec();
        return dialog_ ? std::optional(result) : std::nullopt;
    }

private:
    QPointer<Dialog> dialog_;
};

} // namespace curveeditor
