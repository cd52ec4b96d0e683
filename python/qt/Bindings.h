// SPDX-License-Identifier: MIT
#pragma once

#include <pybind11/pybind11.h>

namespace curveeditor::python {

/// @{
/// Each puts the classes of one subject into the module, in this order: later ones speak of earlier ones.
void bindValues(pybind11::module_& module);
void bindTheme(pybind11::module_& module);
void bindEditor(pybind11::module_& module);
/// @}

} // namespace curveeditor::python
