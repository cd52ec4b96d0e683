// SPDX-License-Identifier: MIT
#include <curveeditor/model/ExpressionToken.h>

#include <algorithm>
#include <array>
#include <cassert>
#include <span>

namespace curveeditor {

namespace {

using Code = ExpressionCode;
using Role = TokenRole;

// What makes no node, then the rest in the order of ExpressionCode. A symbol stands above those that begin it.
constexpr std::array rules{
    TokenRule{"+", Role::Sign},
    TokenRule{"(", Role::Open},
    TokenRule{")", Role::Close},
    TokenRule{",", Role::Separator},
    TokenRule{"-", Role::Sign, Code::Negate, 1, 4},
    TokenRule{"+", Role::Infix, Code::Add, 2, 2},
    TokenRule{"-", Role::Infix, Code::Subtract, 2, 2},
    TokenRule{"*", Role::Infix, Code::Multiply, 2, 3},
    TokenRule{"/", Role::Infix, Code::Divide, 2, 3},
    TokenRule{"^", Role::Infix, Code::Power, 2, 5, true},
    TokenRule{">=", Role::Infix, Code::GreaterOrEqual, 2, 1},
    TokenRule{"<=", Role::Infix, Code::LessOrEqual, 2, 1},
    TokenRule{"==", Role::Infix, Code::Equal, 2, 1},
    TokenRule{"!=", Role::Infix, Code::NotEqual, 2, 1},
    TokenRule{">", Role::Infix, Code::Greater, 2, 1},
    TokenRule{"<", Role::Infix, Code::Less, 2, 1},
    TokenRule{"cos", Role::Function, Code::Cos, 1},
    TokenRule{"sin", Role::Function, Code::Sin, 1},
    TokenRule{"tan", Role::Function, Code::Tan, 1},
    TokenRule{"exp", Role::Function, Code::Exp, 1},
    TokenRule{"log", Role::Function, Code::Log, 1},
    TokenRule{"l10", Role::Function, Code::Log10, 1},
    TokenRule{"rnd", Role::Function, Code::Round, 1},
    TokenRule{"abs", Role::Function, Code::Absolute, 1},
    TokenRule{"sqrt", Role::Function, Code::SquareRoot, 1},
    TokenRule{"acos", Role::Function, Code::ArcCos, 1},
    TokenRule{"asin", Role::Function, Code::ArcSin, 1},
    TokenRule{"atan", Role::Function, Code::ArcTan, 1},
    TokenRule{"cosh", Role::Function, Code::CosH, 1},
    TokenRule{"sinh", Role::Function, Code::SinH, 1},
    TokenRule{"tanh", Role::Function, Code::TanH, 1},
    TokenRule{"ceil", Role::Function, Code::Ceil, 1},
    TokenRule{"floor", Role::Function, Code::Floor, 1},
    TokenRule{"j0", Role::Function, Code::BesselJ0, 1},
    TokenRule{"j1", Role::Function, Code::BesselJ1, 1},
    TokenRule{"min", Role::Function, Code::Minimum, 2, 0, false, true},
    TokenRule{"max", Role::Function, Code::Maximum, 2, 0, false, true},
    TokenRule{"mod", Role::Function, Code::Modulo, 2, 0, false, true},
    TokenRule{"if", Role::Function, Code::Choose, 3},
};

constexpr std::size_t firstWritten = 4;
constexpr std::size_t firstFunction = firstWritten + std::size_t(Code::Cos);
constexpr auto symbols = std::span(rules).first(firstFunction);
constexpr auto functions = std::span(rules).subspan(firstFunction);

constexpr bool standsInOrderOfCodes()
{
    for (std::size_t i = 0; i <= std::size_t(Code::Choose); ++i) {
        if (rules[firstWritten + i].code != Code(i))
            return false;
    }
    return functions.front().role == Role::Function && symbols.back().role == Role::Infix;
}
static_assert(standsInOrderOfCodes());

const TokenRule* findSymbol(std::string_view text, Role excluded)
{
    const auto fits = [=](const TokenRule& rule) {
        return rule.text.front() == text.front() && rule.role != excluded &&
               (rule.text.size() == 1 || text.starts_with(rule.text));
    };
    const auto rule = std::find_if(symbols.begin(), symbols.end(), fits);
    return rule == symbols.end() ? nullptr : &*rule;
}

std::size_t digitsLength(std::string_view text)
{
    return std::size_t(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
}

} // namespace

const TokenRule* findSymbolForValue(std::string_view text)
{
    const TokenRule* const sign = findSymbol(text, Role::Infix);
    return sign ? sign : findSymbol(text, Role::Sign);
}

const TokenRule* findSymbolBehindValue(std::string_view text)
{
    return findSymbol(text, Role::Sign);
}

const TokenRule* findFunction(std::string_view name)
{
    const auto fits = [=](const TokenRule& rule) {
        return rule.text.size() == name.size() && rule.text.front() == name.front() && rule.text == name;
    };
    const auto rule = std::find_if(functions.begin(), functions.end(), fits);
    return rule == functions.end() ? nullptr : &*rule;
}

const TokenRule& ruleOf(ExpressionCode code)
{
    assert(code <= Code::Choose);
    return rules[firstWritten + std::size_t(code)];
}

std::size_t numberLength(std::string_view text)
{
    const std::size_t whole = digitsLength(text);
    std::size_t length = whole;
    if (length < text.size() && text[length] == '.') {
        const std::size_t fraction = digitsLength(text.substr(length + 1));
        if (whole + fraction == 0)
            return 0;
        length += 1 + fraction;
    }
    if (length == 0 || length == text.size() || (text[length] != 'e' && text[length] != 'E'))
        return length;

    const std::string_view exponent = text.substr(length + 1);
    const std::size_t sign = !exponent.empty() && (exponent[0] == '+' || exponent[0] == '-');
    const std::size_t digits = digitsLength(exponent.substr(sign));
    return digits == 0 ? length : length + 1 + sign + digits;
}

std::size_t nameLength(std::string_view text)
{
    return std::size_t(std::find_if_not(text.begin(), text.end(), isNameByte) - text.begin());
}

} // namespace curveeditor
