// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>
#include <curveeditor/model/ParseMessage.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class FunctionFloatBase;
class ParserVarMapper;

/// Parses expressions and knows their variables. There is one for the whole process; see `instance`.
///
/// The independent variables `t`, time, and `f`, the frame number, are always known. All others come from the
/// `ParserVarMapper` that the host sets, which is asked for names while parsing. What was parsed keeps that mapper, whose
/// values it reads.
///
/// The language, from loose to tight:
///
/// | Written                    | Meaning                                                                   |
/// |----------------------------|---------------------------------------------------------------------------|
/// | `a > b`, `a < b`           | 1.0 or 0.0; and `>=`, `<=`, `==`, `!=`. Not-a-number equals nothing       |
/// | `a + b`, `a - b`           | sum and difference                                                        |
/// | `a * b`, `a / b`, `a b`    | without an operator where a name, a function or "(" follows a value       |
/// | `-a`, `+a`                 | signs                                                                     |
/// | `a ^ b`                    | power, to the right: 2^3^2 is 2^9; b may carry a sign                     |
/// | `cos(a)`                   | and sin, tan, acos, asin, atan, cosh, sinh, tanh (radians), exp, abs,     |
/// |                            | sqrt, ceil, floor, log (natural), l10 (decimal), rnd (to the nearest      |
/// |                            | integer, half away from zero), j0, j1 (Bessel functions, first kind)      |
/// | `min(a, b)`, `max(a, b)`   | the lesser, the greater; not-a-number if either is that                   |
/// | `mod(a, b)`                | the rest of a / b, with the sign of b: mod(-1, 3) is 2. Not-a-number for  |
/// |                            | b = 0.0                                                                   |
/// | `if(c, a, b)`              | a unless c is 0.0, then b                                                 |
/// | `520`, `5.2`, `.5`, `1e-3` | numbers; an "e" belongs to them only where digits follow                  |
/// | `pi`                       | 3.14159..., ASCII case aside                                              |
///
/// A name runs over letters, digits, "_", "." and bytes above 127, but a known name may hold any other
/// character too: known names are tried first, the longest first, without regard to ASCII case. A name is
/// known only as a whole: with `cam` known, "camera" is another name. Where a number, or a function with its
/// "(", is as long as a known name, the number or function stands. But a known name goes before `pi`, before
/// `min`, `max` and `mod`, and before the comparisons of two characters if it begins with "=" or "!": with `min`
/// known, "min(2)" is a product. White space separates and means nothing else.
class CURVEEDITOR_EXPORT FunctionParserBase
{
public:
    /// One named variable. `value` points to storage of the width of `type`, which may be the host's own.
    struct keyStruct
    {
        std::string name;      ///< lower case
        std::int32_t type = 3; ///< 0 bool, 1 int, 2 float, 3 double
        void* value = nullptr; ///< read and written in place; null reads as 0.0

        /// The stored number. 0.0 for any other `type`.
        double getValue() const;

        /// Stores `v`: as it is, narrowed to float, truncated toward zero (NaN as 0, the nearest int where it
        /// does not fit), or as true unless it equals 0.0 (NaN is true). Does nothing for any other `type`.
        void setValue(const double& v);

        /// True if the storage holds each number as it is.
        bool holdsDouble() const { return type == 3 && value; }

    private:
        static std::int32_t toInt(double v);
    };

    /// The longest text that is parsed, in bytes. A longer one is an error that covers what is too much. So
    /// is one that would be longer as `FunctionFloatBase::getString` writes it, with a "*" for each product
    /// without an operator: what was parsed can be written and parsed again.
    static constexpr std::size_t maximumLength = std::size_t(1) << 20;

    FunctionParserBase(const FunctionParserBase&) = delete;
    FunctionParserBase& operator=(const FunctionParserBase&) = delete;

    /// The parser of the process, the same at every call. Lives until the process ends.
    static FunctionParserBase* instance();

    /// Parses `text`, UTF-8, and fills `message`; see `ParseMessage`. Returns a new tree that the caller
    /// owns, or null if there is any error. Depth of nesting costs no stack.
    ///
    /// `message.text` is `text` with each known variable, and `pi`, in its stored, lower-case form. Each unknown
    /// variable has a span; any other error ends the parsing and has a span only if it is the first.
    FunctionFloatBase* parseString(const std::string& text, ParseMessage& message);
    /// The same with the names of `variables`, whatever `setVarMapper` took; null for none but `t` and `f`.
    FunctionFloatBase* parseString(const std::string& text, ParseMessage& message,
                                   const ParserVarMapper* variables);

    /// The variable of that name, ASCII case aside, with its present value in its storage; null for an
    /// unknown name. Never null for `t` and `f`, which stay until the process ends. Any other one is of the mapper that
    /// `setVarMapper` took, and stays as long as that and all formulas that were parsed with it.
    keyStruct* getKey(const std::string& name);

    /// The variables that `expression` reads, each once, in order of their first occurrence; `t` and `f` are
    /// among them. Empty for null and for an expression of a host's own class. They stay as long as the expression.
    std::vector<keyStruct*> getAllVars(const FunctionFloatBase* expression);

    /// Takes the source of all variables other than `t` and `f` in what is parsed from now on; null for none. It stays
    /// the caller's. One that is destroyed takes itself out. Trees that exist go on reading the one that they were
    /// parsed with, and 0.0 when it is gone.
    void setVarMapper(const ParserVarMapper* mapper);

    /// What `setVarMapper` took last and is still alive.
    const ParserVarMapper* getVarMapper() const;

private:
    struct Private;

    FunctionParserBase();
    ~FunctionParserBase();

    const std::unique_ptr<Private> d_;
};

inline double FunctionParserBase::keyStruct::getValue() const
{
    if (!value)
        return 0.0;
    switch (type) {
    case 3:
        return *static_cast<const double*>(value);
    case 2:
        return double(*static_cast<const float*>(value));
    case 1:
        return double(*static_cast<const std::int32_t*>(value));
    case 0:
        return double(*static_cast<const unsigned char*>(value));
    default:
        return 0.0;
    }
}

inline void FunctionParserBase::keyStruct::setValue(const double& v)
{
    if (!value)
        return;
    switch (type) {
    case 3:
        *static_cast<double*>(value) = v;
        break;
    case 2:
        *static_cast<float*>(value) = static_cast<float>(v);
        break;
    case 1:
        *static_cast<std::int32_t*>(value) = toInt(v);
        break;
    case 0:
        *static_cast<unsigned char*>(value) = v != 0.0;
        break;
    default:
        break;
    }
}
