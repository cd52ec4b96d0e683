// SPDX-License-Identifier: MIT
#include <curveeditor/files/FormulaFault.h>

#include <curveeditor/files/TextFields.h>

std::string formulaFault(const ParseMessage& message)
{
    if (message.errors.empty())
        return {};
    const auto [offset, length] = message.errors.front();
    const std::string place = TextFields::inQuotes(std::string_view(message.text).substr(offset, length));
    if (message.code == ParseMessage::UnknownVariable)
        return "the formula reads " + place + ", which is not known here";
    if (message.code == ParseMessage::UnmatchedParenthesis)
        return "a parenthesis of the formula has no partner";
    return "the formula can't be read at " + place;
}
