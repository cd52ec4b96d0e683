// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace {

int fail(const std::string& reason)
{
    std::cerr << reason << '\n';
    return EXIT_FAILURE;
}

template <typename Number> bool readNumber(std::string_view text, Number& number)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

} // namespace

/// Prints samples of a curve file: evaluate FILE FROM TO COUNT
int main(int argc, char* argv[])
{
    double from = 0.0;
    double to = 0.0;
    int count = 0;
    if (argc != 5 || !readNumber(argv[2], from) || !readNumber(argv[3], to) || !readNumber(argv[4], count) ||
        count < 1)
        return fail("usage: evaluate FILE FROM TO COUNT");

    std::ifstream file(argv[1]);
    CurveFile curve;
    if (!file || !curve.read(file))
        return fail(std::string(argv[1]) + ": no curve file");

    std::unique_ptr<FunctionFloatBase> expression;
    if (curve.kind == CurveFile::Expression) {
        ParseMessage message;
        expression.reset(FunctionParserBase::instance()->parseString(curve.expression, message));
        if (!message.errors.empty())
            return fail(std::string(argv[1]) + ": the expression has a fault: " + message.text);
    }

    constexpr double framesPerTimeUnit = 10.0; // what a new editor has
    std::cout.precision(std::numeric_limits<double>::digits10);
    for (int i = 0; i < count; ++i) {
        const double time = count > 1 ? from + (to - from) * i / (count - 1) : from;
        double value = curve.spline(time);
        if (expression)
            expression->evaluateBlock(&time, framesPerTimeUnit, &value, 1);
        std::cout << time << '\t' << value << '\n';
    }
}
