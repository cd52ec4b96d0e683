// SPDX-License-Identifier: MIT
#pragma once

#include "Errors.h"

#include <atomic>
#include <thread>

namespace curveeditor::python {

/// While editors are there, the parser and the curves in them belong to their thread, which works without the
/// interpreter's lock. All modules share one of these.
struct GuiThread
{
    std::atomic<int> editors{0};
    std::atomic<std::thread::id> thread{};
};

/// That of this module; each sets it when it is imported.
inline GuiThread* guiThread = nullptr;

inline bool isOtherThread()
{
    return guiThread->editors > 0 && guiThread->thread.load() != std::this_thread::get_id();
}

[[noreturn]] inline void refuseThread(const char* what)
{
    raise(PyExc_RuntimeError, std::string(what) + "; take a snapshot for other threads");
}

/// For all that reads or writes formulas.
inline void requireParser()
{
    if (isOtherThread())
        refuseThread("formulas belong to the thread of the editor");
}

} // namespace curveeditor::python
