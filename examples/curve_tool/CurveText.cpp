// SPDX-License-Identifier: MIT
#include "CurveText.h"

#include "Fault.h"

#include <curveeditor/files/TextFields.h>

#include <algorithm>
#include <sstream>

namespace {

[[noreturn]] void failAtPlace(std::istringstream& in, std::string_view text, const char* reason)
{
    const bool isAtEnd = in.eof();
    in.clear();
    const auto read = text.begin() + (isAtEnd ? std::ptrdiff_t(text.size()) : std::ptrdiff_t(in.tellg()));
    const auto line = std::size_t(std::count(text.begin(), read, '\n')) + 1;
    throw TextFault(line, isAtEnd ? "the file ends too early, or " + std::string(reason) : reason);
}

} // namespace

void readCurveText(std::string_view text, CurveFile& curve)
{
    text = TextFields::withoutByteOrderMark(text);
    std::istringstream in{std::string(text)};
    if (!CurveFile::readColor(in, curve.color))
        failAtPlace(in, text, "the colour is not three whole numbers");
    if (!CurveFile::readKind(in, curve.kind))
        failAtPlace(in, text, "the kind of the curve is missing");
    if (curve.kind == CurveFile::Spline && !CurveFile::readSpline(in, curve.spline))
        failAtPlace(in, text, "the spline has a wrong number, or times that descend");
    if (curve.kind == CurveFile::Expression && !CurveFile::readExpression(in, curve.expression))
        failAtPlace(in, text, "the formula is missing or too long");
}

std::string writeCurveText(const CurveFile& curve)
{
    std::ostringstream out;
    curve.write(out);
    return out.str();
}
