// SPDX-License-Identifier: MIT
#include "Bindings.h"

#include "../model/GuiThread.h"

#include <QtGlobal>

namespace py = pybind11;
using namespace curveeditor::python;

PYBIND11_MODULE(_qt, module)
{
    module.doc() = "The editor, for curveeditor.qt.";
    guiThread = py::module_::import("curveeditor._model")
                    .attr("_gui_thread")
                    .cast<py::capsule>()
                    .get_pointer<GuiThread>();
    module.attr("built_with") = QT_VERSION_STR;
    module.attr("runs_with") = qVersion();
    bindValues(module);
    bindTheme(module);
    bindEditor(module);
}
