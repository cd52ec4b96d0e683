// SPDX-License-Identifier: MIT
#include "Bindings.h"

using namespace curveeditor::python;

PYBIND11_MODULE(_model, module)
{
    module.doc() = "The curve model of the curve editor.";
    bindStates(module);
    bindSplines(module);
    bindDiffs(module);
    bindFits(module);
    bindFormulas(module);
    bindFiles(module);
}
