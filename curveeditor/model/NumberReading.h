// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <charconv>

namespace curveeditor {

/// `std::from_chars` for a `double`, for which not each standard library has it. The same texts give the same numbers.
CURVEEDITOR_EXPORT std::from_chars_result readNumber(const char* first, const char* last, double& number);

} // namespace curveeditor
