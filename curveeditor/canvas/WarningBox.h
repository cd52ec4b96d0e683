// SPDX-License-Identifier: MIT
#pragma once

class QMessageBox;
class QString;

/// Shows a warning in a window of its own and returns when the user has closed it. The window is as wide as
/// its title takes; `text` is shown as it is, whatever markup it holds.
void showWarning(const QString& title, const QString& text);

/// The box, which has all its buttons, gets as wide as its title takes.
void makeRoomForTitle(QMessageBox& box);
