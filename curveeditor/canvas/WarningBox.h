// SPDX-License-Identifier: MIT
#pragma once

class QMessageBox;
class QString;
class QWidget;

namespace curveeditor {

/// Shows a warning in a modal window of its own, as wide as its title takes, and returns at once: no loop runs, so
/// the host may do anything while it is open. The window goes when the user closes it, or with `parent`, which may
/// be null. `text` is shown as it is, whatever markup it holds.
void showWarning(QWidget* parent, const QString& title, const QString& text);

/// The box, which has all its buttons, gets as wide as its title takes.
void makeRoomForTitle(QMessageBox& box);

} // namespace curveeditor
