// SPDX-License-Identifier: MIT
#include <curveeditor/files/TypedNumber.h>

#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/NumberReading.h>

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
        else if (letter == ')')
            --depth;
        else if (letter == ',' && depth == 0)
            letter = '.';
    }
}

/// Parses while no curve is known.
std::unique_ptr<FunctionFloatBase> parseWithoutCurves(const std::string& text)
{
    FunctionParserBase& parser = *FunctionParserBase::instance();
    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> tree(parser.parseString(text, message, nullptr));
    return message.errors.empty() && parser.getAllVars(tree.get()).empty() ? std::move(tree) : nullptr;
}

/// What a field shows and most of what is typed: the parser would find the same number in it.
std::optional<double> plainNumber(const std::string& text)
{
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const bool isPlain = text.find_first_not_of("-0123456789.") == std::string::npos;
    const std::from_chars_result result = readNumber(text.data(), end, number);
    return isPlain && result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<double> typedNumber(std::string text)
{
    makePoints(text);
    if (const std::optional<double> plain = plainNumber(text))
        return plain;
    const std::unique_ptr<FunctionFloatBase> tree = parseWithoutCurves(text);
    const double number = tree ? tree->evaluate() : std::nan("");
    return std::isnan(number) ? std::nullopt : std::optional(number);
}

} // namespace curveeditor
