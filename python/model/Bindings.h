// SPDX-License-Identifier: MIT
#pragma once

#include <pybind11/pybind11.h>

namespace curveeditor::python {

/// @{
/// Each puts the classes and functions of one subject into the module, in this order: later ones speak of earlier ones.
void bindStates(pybind11::module_& module);
void bindSplines(pybind11::module_& module);
void bindDiffs(pybind11::module_& module);
void bindFits(pybind11::module_& module);
void bindKeys(pybind11::module_& module);
void bindFormulas(pybind11::module_& module);
void bindFiles(pybind11::module_& module);
/// @}

} // namespace curveeditor::python
