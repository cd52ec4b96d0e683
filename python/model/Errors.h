// SPDX-License-Identifier: MIT
#pragma once

#include <pybind11/pybind11.h>

#include <string>

namespace curveeditor::python {

/// Raises that exception of Python's.
[[noreturn]] inline void raise(PyObject* type, const std::string& text)
{
    PyErr_SetString(type, text.c_str());
    throw pybind11::error_already_set();
}

} // namespace curveeditor::python
