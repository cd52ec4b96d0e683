// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>
#include <curveeditor/model/SplineBase.h>

#include <iosfwd>
#include <string>

/// One curve as a `.crv` file holds it, and the pieces that such a file is made of. Needs no Qt.
///
/// The file is text: three lines with the red, green and blue of the curve's colour (0 to 255), a line with
/// the character 0 for a spline or 1 for an expression, and the body. The body of a spline is what
/// `SplineBase::save` writes; that of an expression is one line with its text, UTF-8 and without blanks. A
/// reader goes by white space alone, so any line end will do, and takes any other character than 0 for an
/// expression. Neither reading nor writing depends on a locale.
///
///     255
///     128
///     0
///     1
///     sin(t)
///
/// Each `read...` returns false, and leaves its result as it was, if the stream does not hold that piece.
class CURVEEDITOR_EXPORT CurveFile
{
public:
    /// Components of 0 to 255.
    struct Color
    {
        int red = 0;   ///< first line of the file
        int green = 0; ///< second line
        int blue = 0;  ///< third line
    };
    /// Which body the file has, by the character that stands for it.
    enum Kind { Spline = 0, Expression = 1 };

    Color color;            ///< black in a new one
    Kind kind = Spline;     ///< which of the two bodies counts
    SplineBase spline;      ///< the body if `kind` is `Spline`
    std::string expression; ///< the body if `kind` is `Expression`; not parsed

    /// Reads a whole file. If it is none, returns false and changes nothing. What follows the body is not
    /// looked at.
    bool read(std::istream& in);
    /// Writes a whole file; false if the stream failed.
    bool write(std::ostream& out) const;

    /// Whole numbers of at most 32 digits, with or without a sign, as a stream extracts them. Components
    /// outside 0 to 255 are brought to the nearer bound.
    static bool readColor(std::istream& in, Color& color);
    /// The character that tells spline from expression.
    static bool readKind(std::istream& in, Kind& kind);
    /// Replaces all of `spline` or nothing.
    static bool readSpline(std::istream& in, SplineBase& spline);
    /// Reads one word; a word without end, longer than any expression can be, is none.
    static bool readExpression(std::istream& in, std::string& text);

    /// The three lines of the colour, as they are, also outside 0 to 255.
    static void writeColor(std::ostream& out, const Color& color);
    /// @{
    /// The kind and the body.
    static void writeSpline(std::ostream& out, const SplineBase& spline);
    static void writeExpression(std::ostream& out, const std::string& text);
    /// @}
};
