// SPDX-License-Identifier: MIT

// Feeds any text to the parser. What it takes must be written by getString so that it reads back as the same
// values, and must give in a block what it gives one by one; what it refuses must have spans within the text.

#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParserVarMapper.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr double framesPerTimeUnit = 25.0;
constexpr std::array times{-2.5, 0.0, 1.0, 3.7, 1e300, std::numeric_limits<double>::quiet_NaN()};

using Expression = std::unique_ptr<FunctionFloatBase>;

/// Names that look like numbers, functions and other expressions.
class OddNames : public ParserVarMapper
{
public:
    OddNames()
    {
        for (const char* name : {"a.x", "a.x-2", "2*a.x", "cam-1.x (left)", "e", "5.2", "cos", "cos(t)-a.x",
                                 "1e2.x", "=a.x", "==t", "max(t", "pi-t", "gr\xc3\xbc\xc3\x9f.x"})
            addName(name);
        FunctionParserBase::instance()->setVarMapper(this);
    }

    double getValue(const std::string& name) const override
    {
        const double t = FunctionParserBase::instance()->getKey("t")->getValue();
        return double(name.size()) + t;
    }
};

void check(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

bool isSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

std::vector<double> valuesOf(FunctionFloatBase& expression)
{
    std::vector<double> values;
    EvaluationTime now;
    for (const double time : times) {
        now.set(time, framesPerTimeUnit);
        values.push_back(expression.evaluate());
    }
    return values;
}

void checkMessage(const std::string& text, const ParseMessage& message)
{
    check(message.text.size() == text.size(), "the text keeps its length");
    for (const auto& [offset, length] : message.errors)
        check(offset <= text.size() && length <= text.size() - offset, "a span lies within the text");
}

void checkExpression(FunctionFloatBase& expression)
{
    const std::vector<double> values = valuesOf(expression);
    std::array<double, times.size()> block{};
    expression.evaluateBlock(times.data(), framesPerTimeUnit, block.data(), times.size());

    const std::string written = expression.getString();
    check(written.find_first_of(" \t\n\v\f\r") == std::string::npos, "the written form is one word");
    ParseMessage message;
    const Expression again(FunctionParserBase::instance()->parseString(written, message));
    check(again && again->getString() == written, "the written form reads back");
    const std::vector<double> valuesAgain = valuesOf(*again);
    for (std::size_t i = 0; i < times.size(); ++i) {
        check(isSame(values[i], valuesAgain[i]), "the written form has the same value");
        check(isSame(values[i], block[i]), "a block has the same value");
    }
    FunctionParserBase::instance()->getAllVars(&expression);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const OddNames names;
    const std::string text(reinterpret_cast<const char*>(data), size);
    ParseMessage message;
    const Expression expression(FunctionParserBase::instance()->parseString(text, message));
    checkMessage(text, message);
    check(bool(expression) == message.errors.empty(), "there is a tree or an error");
    if (expression)
        checkExpression(*expression);
    return 0;
}
