// SPDX-License-Identifier: MIT
#include <curveeditor/files/TypedNumber.h>

#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>

#include <cmath>
#include <memory>

namespace curveeditor {

namespace {

void makePoints(std::string& text)
{
    int depth = 0;
    for (char& letter : text) {
        if (letter == '(')
            ++depth;
        else if (letter == ')' && depth > 0)
            --depth;
        else if (letter == ',' && depth == 0)
            letter = '.';
    }
}

/// Parses while no curve is known.
std::unique_ptr<FunctionFloatBase> parseWithoutCurves(const std::string& text)
{
    FunctionParserBase& parser = *FunctionParserBase::instance();
    const ParserVarMapper* const curves = parser.getVarMapper();
    ParseMessage message;
    parser.setVarMapper(nullptr);
    std::unique_ptr<FunctionFloatBase> tree(parser.parseString(text, message));
    parser.setVarMapper(curves);
    return message.errors.empty() && parser.getAllVars(tree.get()).empty() ? std::move(tree) : nullptr;
}

} // namespace

std::optional<double> typedNumber(std::string text)
{
    makePoints(text);
    const std::unique_ptr<FunctionFloatBase> tree = parseWithoutCurves(text);
    const double number = tree ? tree->evaluate() : std::nan("");
    return std::isnan(number) ? std::nullopt : std::optional(number);
}

} // namespace curveeditor
