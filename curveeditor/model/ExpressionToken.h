// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/ExpressionCode.h>

#include <cstddef>
#include <string_view>

namespace curveeditor {

/// Where a token may stand, and what it does there.
enum class TokenRole {
    Sign,      ///< before a value
    Infix,     ///< between two values
    Function,  ///< a name, followed by "(" and its arguments
    Open,      ///< opens a group
    Close,     ///< closes a group or the arguments of a function
    Separator, ///< between two arguments
};

/// One row of the table that defines the language.
struct TokenRule
{
    std::string_view text;
    TokenRole role = TokenRole::Infix;
    ExpressionCode code = ExpressionCode::Constant; ///< `Constant` for what makes no node
    std::size_t operandCount = 0;
    int tightness = 0; ///< of operators: the higher binds its operands first
    bool rightToLeft = false;
    bool yieldsToNames = false; ///< a known name that begins with the function goes before it
};

/// The operator or mark with which `text` begins, where a value is expected or behind one; the longest, null for
/// none.
const TokenRule* findSymbolForValue(std::string_view text);
const TokenRule* findSymbolBehindValue(std::string_view text);

/// The function of that name, null for none.
const TokenRule* findFunction(std::string_view name);

/// The row of what is written in an expression: codes from `Negate` to `Choose`.
const TokenRule& ruleOf(ExpressionCode code);

/// White space, whatever the locale.
constexpr bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Letters, digits, "_", "." and bytes above 127, of which names are made that nobody knows.
constexpr bool isNameByte(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == '.' ||
           static_cast<unsigned char>(c) > 127;
}

constexpr char toLowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Length of the number with which `text` begins, 0 for none.
std::size_t numberLength(std::string_view text);

/// Length of the run of name bytes with which `text` begins.
std::size_t nameLength(std::string_view text);

} // namespace curveeditor
