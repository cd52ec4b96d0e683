// SPDX-License-Identifier: MIT
#include "TextNumber.h"

#include <array>
#include <charconv>
#include <cmath>

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

std::string toUpper(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z')
            c = char(c - 'a' + 'A');
    }
    return upper;
}
