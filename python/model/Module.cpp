// SPDX-License-Identifier: MIT
#include "Bindings.h"
#include "GuiThread.h"

using namespace curveeditor::python;

PYBIND11_MODULE(_model, module)
{
    module.doc() = "The curve model of the curve editor.";
    static GuiThread shared;
    guiThread = &shared;
    module.attr("_gui_thread") = pybind11::capsule(&shared);
    bindStates(module);
    bindSplines(module);
    bindDiffs(module);
    bindFits(module);
    bindKeys(module);
    bindFormulas(module);
    bindFiles(module);
}
