// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Numbers as text, written as in C whatever the locale.

/// In the shortest form that reads back to the same number.
std::string toText(double number);

/// Rounded up to two digits, for a limit of 0.0 or more.
std::string toShortLimit(double limit);

/// ASCII letters in upper case.
std::string toUpper(std::string_view text);
