// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFile.h>

#include <curveeditor/model/FunctionParserBase.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <iomanip>
#include <istream>
#include <ostream>

namespace {

constexpr std::size_t longestNumber = 32;
constexpr int largestComponent = 255;

bool readWord(std::istream& in, std::size_t longest, std::string& word)
{
    std::string read;
    if (!(in >> std::setw(int(longest) + 1) >> read) || read.size() > longest)
        return false;
    word = read;
    return true;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// What the stream would extract as a whole number, without a locale's groups of digits.
bool readComponent(std::istream& in, int& component)
{
    char first = '+';
    if (!(in >> first))
        return false;
    if (isDigit(first)) {
        in.unget();
    } else if (first != '+' && first != '-') {
        return false;
    }
    std::string digits;
    while (digits.size() <= longestNumber && isDigit(char(in.peek())))
        digits += char(in.get());
    if (digits.empty() || digits.size() > longestNumber)
        return false;
    int number = largestComponent;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    component = first == '-' ? 0 : std::min(number, largestComponent);
    return true;
}

} // namespace

bool CurveFile::read(std::istream& in)
{
    Color fileColor;
    Kind fileKind = Spline;
    if (!readColor(in, fileColor) || !readKind(in, fileKind))
        return false;
    if (!(fileKind == Spline ? readSpline(in, spline) : readExpression(in, expression)))
        return false;
    color = fileColor;
    kind = fileKind;
    return true;
}

bool CurveFile::write(std::ostream& out) const
{
    writeColor(out, color);
    if (kind == Spline) {
        writeSpline(out, spline);
    } else {
        writeExpression(out, expression);
    }
    return out.good();
}

bool CurveFile::readColor(std::istream& in, Color& color)
{
    Color read;
    if (!readComponent(in, read.red) || !readComponent(in, read.green) || !readComponent(in, read.blue))
        return false;
    color = read;
    return true;
}

bool CurveFile::readKind(std::istream& in, Kind& kind)
{
    char character = '0';
    if (!(in >> character))
        return false;
    kind = character == '0' ? Spline : Expression;
    return true;
}

bool CurveFile::readSpline(std::istream& in, SplineBase& spline)
{
    SplineBase::load(&spline, in);
    return !in.fail();
}

bool CurveFile::readExpression(std::istream& in, std::string& text)
{
    return readWord(in, FunctionParserBase::maximumLength, text);
}

void CurveFile::writeColor(std::ostream& out, const Color& color)
{
    for (const int component : {color.red, color.green, color.blue})
        out << std::to_string(component) << '\n';
}

void CurveFile::writeSpline(std::ostream& out, const SplineBase& spline)
{
    out << "0\n";
    SplineBase::save(spline, out);
    out.flush();
}

void CurveFile::writeExpression(std::ostream& out, const std::string& text)
{
    out << "1\n" << text << '\n';
    out.flush();
}
