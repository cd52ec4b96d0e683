// SPDX-License-Identifier: MIT
#include "Bindings.h"

#include "../model/GuiThread.h"

#include <curveeditor/shell/Translations.h>

#include <QLocale>
#include <QtGlobal>

#include <cstdint>

namespace py = pybind11;
using namespace py::literals;
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
    module.def(
        "_install_translation",
        [](std::uintptr_t locale) {
            return installCurveEditorTranslation(locale ? *reinterpret_cast<const QLocale*>(locale) // NOLINT
                                                        : QLocale());
        },
        "locale"_a);
    bindValues(module);
    bindTheme(module);
    bindEditor(module);
}
