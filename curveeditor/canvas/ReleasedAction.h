// SPDX-License-Identifier: MIT
#pragma once

class QAction;

namespace curveeditor {

/// Takes an entry out of its menus at once. It is deleted when control returns to the event loop, as the entry
/// may be the one whose signal runs now. The first of its menus owns it until then, if nobody else does.
void releaseAction(QAction* action);

} // namespace curveeditor
