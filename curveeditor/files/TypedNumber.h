// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace curveeditor {

/// The number that a user means by `text`, UTF-8: what the parser of formulas makes of it, with `pi` and without
/// curves, `t` and `f`, so "1+2" is 3. A comma outside parentheses is a decimal sign. May be infinite; nothing for
/// not-a-number and for all that is no number, the empty text included.
std::optional<double> typedNumber(std::string text);

} // namespace curveeditor
