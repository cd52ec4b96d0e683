// SPDX-License-Identifier: MIT
#include <curveeditor/model/NumberReading.h>

#ifndef __cpp_lib_to_chars
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <locale.h>
#include <string>
#ifdef __APPLE__
#include <xlocale.h>
#endif
#endif

namespace curveeditor {

#ifdef __cpp_lib_to_chars

std::from_chars_result readNumber(const char* first, const char* last, double& number)
{
    return std::from_chars(first, last, number);
}

#else

namespace {

/// The part that `strtod` may see: it takes blanks, a plus and hexadecimal digits, too.
std::string decimalPart(const char* first, const char* last)
{
    std::string text(first, last);
    const std::size_t digits = text.compare(0, 1, "-") == 0 ? 1 : 0;
    const bool hasSign = digits < text.size() && (text[digits] == '+' || text[digits] == '-');
    if (digits == text.size() || hasSign || std::isspace(static_cast<unsigned char>(text[digits])))
        return {};
    const bool isHexadecimal = text[digits] == '0' && (text.compare(digits + 1, 1, "x") == 0 ||
                                                       text.compare(digits + 1, 1, "X") == 0);
    return isHexadecimal ? text.substr(0, digits + 1) : text;
}

} // namespace

std::from_chars_result readNumber(const char* first, const char* last, double& number)
{
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    const std::string text = decimalPart(first, last);
    char* end = nullptr;
    errno = 0;
    const double read = strtod_l(text.c_str(), &end, plain);
    if (end == text.c_str())
        return {first, std::errc::invalid_argument};
    const char* const rest = first + (end - text.c_str());
    if (errno == ERANGE && (read == 0.0 || std::isinf(read)))
        return {rest, std::errc::result_out_of_range};
    number = read;
    return {rest, std::errc()};
}

#endif

} // namespace curveeditor
