// SPDX-License-Identifier: MIT
#include "TextNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t longestQuote = 40;
constexpr std::size_t longestDecimal = std::numeric_limits<double>::max_exponent10 + 16;

bool continuesCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace

std::optional<double> parseNumber(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    double number = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc::invalid_argument || result.ptr != text.data() + text.size())
        return std::nullopt;
    if (result.ec == std::errc::result_out_of_range) {
        const bool isSmall = text.find("e-") != text.npos || text.find("E-") != text.npos;
        return isSmall ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return number;
}

std::string toText(double number)
{
    if (std::isnan(number))
        return "nan"; // its sign means nothing
    std::array<char, 32> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), result.ptr};
}

std::string toShortLimit(double limit)
{
    if (!(limit > 0.0) || !std::isfinite(limit))
        return toText(limit);
    const double unit = std::pow(10.0, std::floor(std::log10(limit)) - 1.0);
    const double rounded = unit > 0.0 ? std::ceil(limit / unit - 1e-9) * unit : limit;
    std::array<char, 32> text{};
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), rounded, std::chars_format::general, 2);
    return {text.data(), result.ptr};
}

std::string toSixDecimals(double number)
{
    std::array<char, longestDecimal> text{};
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 6);
    return {text.data(), result.ptr};
}

std::string printable(std::string_view text)
{
    std::string shown(text);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }, '?');
    return shown;
}

std::string inQuotes(std::string_view text)
{
    std::size_t end = std::min(text.size(), longestQuote);
    while (end > 0 && end < text.size() && continuesCharacter(text[end]))
        --end;
    return '\'' + printable(text.substr(0, end)) + (end < text.size() ? "...'" : "'");
}

bool isWhiteSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string toUpper(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z')
            c = char(c - 'a' + 'A');
    }
    return upper;
}
