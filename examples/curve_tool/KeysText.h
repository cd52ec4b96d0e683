// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/CurveKeys.h>

#include <iosfwd>
#include <string>
#include <string_view>

/// A curve as JSON, to be exchanged with other programs for animation; the manual page tells the form.
struct KeysText
{
    CurveFile::Color color{255, 255, 255};
    std::string formula;    ///< empty for a curve of keys
    CurveKeys::Curve curve; ///< whole, unless there is a formula

    /// Throws a `TextFault` for a text that is not of that form, to the last byte.
    static KeysText read(std::string_view text);
    /// A key in each line. Throws a `Fault` for a formula that is no UTF-8.
    std::string write() const;

    /// Says how far a curve is from the keys, or the keys from the curve, if it is.
    static void tellDeviation(double deviation, std::ostream& messages);
};
