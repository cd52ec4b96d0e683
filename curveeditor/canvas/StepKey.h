// SPDX-License-Identifier: MIT
#pragma once

class QKeyEvent;

namespace curveeditor {

/// What a key asks of the undo stack.
enum class StepKey { None, Undo, Redo };

/// Ctrl+Z undoes, Ctrl+Shift+Z and Ctrl+Y redo, as do the keys that the platform has for it.
StepKey stepKeyOf(const QKeyEvent& event);

/// Delete, or Backspace, which some keyboards have in its place.
bool isDeleteKey(const QKeyEvent& event);

} // namespace curveeditor
