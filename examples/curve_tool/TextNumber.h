// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers as text, written as in C whatever the locale.

/// The number that the whole text is. May be infinite or not-a-number, where the text says so or the number is
/// too large; one that is too small is 0.0.
std::optional<double> parseNumber(std::string_view text);

/// In the shortest form that reads back to the same number.
std::string toText(double number);

/// Rounded up to two digits, for a limit of 0.0 or more.
std::string toShortLimit(double limit);

/// With six decimals.
std::string toSixDecimals(double number);

/// A piece of a file with "?" for what can't be shown.
std::string printable(std::string_view text);

/// The same between quotation marks, cut after 40 bytes.
std::string inQuotes(std::string_view text);

std::string_view trimmed(std::string_view text);

bool isWhiteSpace(char c);

/// ASCII letters in upper case.
std::string toUpper(std::string_view text);
