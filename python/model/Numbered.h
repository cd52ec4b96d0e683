// SPDX-License-Identifier: MIT
#pragma once

#include <pybind11/pybind11.h>

#include <cstdint>
#include <vector>

namespace curveeditor::python {

/// A class of Python's for numbers from 0 on.
pybind11::object enumeration(const char* name, const char* text, const std::vector<const char*>& members);

/// @{
/// A number as the member of Python's `PointType` or `Behaviour`; one that is none acts as the first, or as
/// `CONSTANT`, and is told as that.
pybind11::object toPointType(std::int32_t number);
pybind11::object toBehaviour(std::int32_t number);
/// @}

/// @{
/// Raises ValueError for a number that is none.
std::int32_t checkedPointType(std::int32_t number);
std::int32_t checkedBehaviour(std::int32_t number);
/// @}

} // namespace curveeditor::python
