// SPDX-License-Identifier: MIT
#include <curveeditor/files/TextFields.h>

#include <curveeditor/model/NumberReading.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace {

constexpr std::size_t longestQuote = 40;

bool continuesCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The bytes of the character that the text begins with; 0 if that is none, or one for control.
std::size_t printableLength(std::string_view text)
{
    const auto first = std::uint32_t(static_cast<unsigned char>(text[0]));
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length > text.size() || continuesCharacter(text[0]) || first > 0xF4)
        return 0;
    std::uint32_t code = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (!continuesCharacter(text[i]))
            return 0;
        code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 4> least = {0x20, 0xA0, 0x800, 0x10000};
    const bool isCharacter = code != 0x7F && (code < 0xD800 || code > 0xDFFF) && code <= 0x10FFFF;
    return isCharacter && code >= least[length - 1] ? length : 0;
}

/// Takes the text between quotation marks from the front; false if it does not end.
bool takeQuoted(std::string_view& rest, std::string& field)
{
    std::size_t i = 1;
    for (; i < rest.size() && (rest[i] != '"' || (i + 1 < rest.size() && rest[i + 1] == '"')); ++i) {
        i += rest[i] == '"';
        field += rest[i];
    }
    if (i >= rest.size())
        return false;
    rest.remove_prefix(i + 1);
    return true;
}

} // namespace

bool TextFields::isWhiteSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

std::string_view TextFields::trimmed(std::string_view text)
{
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view TextFields::withoutByteOrderMark(std::string_view text)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return text.substr(0, mark.size()) == mark ? text.substr(mark.size()) : text;
}

std::string_view TextFields::takeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + (text.substr(end, 2) == "\r\n" ? 2 : 1), text.size()));
    return line;
}

bool TextFields::split(std::string_view line, char separator, std::vector<std::string>& fields)
{
    fields.clear();
    const bool isRun = separator == ' ' || separator == '\t';
    const auto isSeparator = [separator](char c) {
        return separator == ' ' ? isWhiteSpace(c) : c == separator;
    };
    const auto skipWhiteSpace = [&line, separator] {
        while (!line.empty() && isWhiteSpace(line.front()) && line.front() != separator)
            line.remove_prefix(1);
    };
    if (separator == ' ')
        line = trimmed(line);
    for (skipWhiteSpace(); !line.empty(); skipWhiteSpace()) {
        std::string field;
        if (line.front() == '"' && !takeQuoted(line, field))
            return false;
        const auto end = std::size_t(std::find_if(line.begin(), line.end(), isSeparator) - line.begin());
        field += trimmed(line.substr(0, end));
        fields.push_back(std::move(field));
        line.remove_prefix(std::min(end + 1, line.size()));
        while (isRun && !line.empty() && isSeparator(line.front()))
            line.remove_prefix(1);
    }
    return true;
}

std::optional<double> TextFields::number(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    double number = 0.0;
    const auto result = curveeditor::readNumber(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc::invalid_argument || result.ptr != text.data() + text.size())
        return std::nullopt;
    if (result.ec == std::errc::result_out_of_range) {
        const bool isSmall = text.find("e-") != text.npos || text.find("E-") != text.npos;
        return isSmall ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return number;
}

std::string TextFields::printable(std::string_view text, char substitute)
{
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = printableLength(text);
        if (length == 0)
            shown += substitute;
        shown += text.substr(0, length);
        // Of a control character of several bytes all go.
        text.remove_prefix(std::max(length, std::size_t(1)));
        while (length == 0 && !text.empty() && continuesCharacter(text[0]))
            text.remove_prefix(1);
    }
    return shown;
}

std::string_view TextFields::shortened(std::string_view text, std::size_t bytes)
{
    std::size_t end = std::min(text.size(), bytes);
    while (end > 0 && end < text.size() && continuesCharacter(text[end]))
        --end;
    return text.substr(0, end);
}

std::string TextFields::inQuotes(std::string_view text)
{
    const std::string_view shown = shortened(text, longestQuote);
    return '\'' + printable(shown) + (shown.size() < text.size() ? "...'" : "'");
}
