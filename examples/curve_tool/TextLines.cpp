// SPDX-License-Identifier: MIT
#include "TextLines.h"

#include "Fault.h"
#include "TextNumber.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// "0,5" or, where the line was taken apart at the comma, "5 1".
bool hasDecimalComma(std::string_view field, std::string_view line)
{
    if (std::find_if(field.begin(), field.end(), isWhiteSpace) == field.end() &&
        field.find(',') == field.npos)
        return false;
    for (std::size_t i = 1; i + 1 < line.size(); ++i) {
        if (line[i] == ',' && isDigit(line[i - 1]) && isDigit(line[i + 1]))
            return true;
    }
    return false;
}

// Takes the text between quotation marks from the front; false if it does not end.
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

TextLines::TextLines(std::string_view text) : rest_(text)
{
    if (rest_.substr(0, byteOrderMark.size()) == byteOrderMark)
        rest_.remove_prefix(byteOrderMark.size());
}

bool TextLines::next()
{
    if (rest_.empty())
        return false;
    ++number_;
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    line_ = trimmed(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    if (line_.size() > longestLine)
        fail("the line is longer than 16 MiB");
    if (line_.find('\r') != line_.npos)
        fail("lines have to end in a line feed");
    return true;
}

bool TextLines::holds(char c) const
{
    bool isQuoted = false;
    for (const char d : line_) {
        isQuoted ^= d == '"';
        if (d == c && !isQuoted)
            return true;
    }
    return false;
}

char TextLines::separator() const
{
    return holds(';') ? ';' : holds(',') ? ',' : ' ';
}

void TextLines::split(char separator, std::vector<std::string>& fields) const
{
    fields.clear();
    std::string_view rest = line_;
    const auto isSeparator = [&](char c) {
        return separator == ' ' ? isWhiteSpace(c) : c == separator;
    };
    while (!rest.empty()) {
        std::string field;
        if (rest.front() == '"' && !takeQuoted(rest, field))
            fail("a quotation mark has no partner");
        const auto end = std::size_t(std::find_if(rest.begin(), rest.end(), isSeparator) - rest.begin());
        field += trimmed(rest.substr(0, end));
        fields.push_back(std::move(field));
        rest = trimmed(rest.substr(std::min(end + 1, rest.size())));
    }
}

double TextLines::toNumber(std::string_view field) const
{
    const std::optional<double> number = parseNumber(field);
    if (field.empty())
        fail("a number is missing");
    if (!number)
        fail(inQuotes(field) + " is no number" +
             (hasDecimalComma(field, line_) ? "; the decimal sign is a point, not a comma" : ""));
    if (!std::isfinite(*number))
        fail(inQuotes(field) + " is no finite number");
    return *number;
}

void TextLines::fail(const std::string& reason) const
{
    throw TextFault(std::max(number_, std::size_t(1)), reason);
}
