// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Texts of UTF-8 that come in lines of fields, as tables and lists of measured values do. Needs no Qt. Any bytes may
/// be given. `TableReader` reads a whole table.
namespace TextFields {

/// A blank, a tab, or what ends a line or a page.
CURVEEDITOR_EXPORT bool isWhiteSpace(char c);
/// Without the white space at both ends.
CURVEEDITOR_EXPORT std::string_view trimmed(std::string_view text);

/// Without the byte order mark that some programs put in front of a text.
CURVEEDITOR_EXPORT std::string_view withoutByteOrderMark(std::string_view text);

/// Takes the first line from the front of `text`, and what ends it: a line feed, a carriage return, or both. The
/// line comes without them.
CURVEEDITOR_EXPORT std::string_view takeLine(std::string_view& text);

/// Fills `fields` with the fields of a line, without the white space around them. A blank as separator stands for a
/// run of white space, a tab for a run of tabs; one separator may end the line. A field may begin with text between
/// quotation marks, in which separators are text and two quotation marks are one. False if one has no partner;
/// `fields` then holds those before.
CURVEEDITOR_EXPORT bool split(std::string_view line, char separator, std::vector<std::string>& fields);

/// The number that the whole text is, written as in C whatever the locale, with or without a sign. It may be infinite
/// or not-a-number, where the text says so or the number is too large; one that is too small is 0.0.
CURVEEDITOR_EXPORT std::optional<double> number(std::string_view text);

/// For messages and names: control characters, and bytes that are no UTF-8, become the substitute.
CURVEEDITOR_EXPORT std::string printable(std::string_view text, char substitute = '?');
/// The most whole characters from the front that have no more bytes than that.
CURVEEDITOR_EXPORT std::string_view shortened(std::string_view text, std::size_t bytes);
/// Printable, between single quotation marks, and shortened to 40 bytes and "..." if it has more.
CURVEEDITOR_EXPORT std::string inQuotes(std::string_view text);

} // namespace TextFields
