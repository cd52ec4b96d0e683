// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

class FunctionFloatBase;

namespace curveeditor {
class VariableSource;
} // namespace curveeditor

/// Where expressions find the variables other than `t` and `f`. A host derives a class that adds the names it
/// knows and gives their values, and hands it to `FunctionParserBase::setVarMapper`; or it uses
/// `CurveVariables`, which is such a class.
///
/// An expression reads its variables by name at each evaluation, and a block of them at once where it is
/// evaluated in blocks; but for a block, `if` reads those of the branch alone that it takes. So a name may be removed
/// and added again at any time: while it is not known it reads as 0.0, and so do all names when the mapper is gone.
class CURVEEDITOR_EXPORT ParserVarMapper
{
public:
    ParserVarMapper();
    ParserVarMapper(const ParserVarMapper&) = delete;
    ParserVarMapper& operator=(const ParserVarMapper&) = delete;

    /// Takes itself out of the parser, if it is set there, and out of the formulas that were parsed with it.
    virtual ~ParserVarMapper();

    /// The present value of the variable `name`. Only called for names that `hasName` knows.
    virtual double getValue(const std::string& name) const = 0;

    /// The values of the variable `name` at `count` times: `values[i]` becomes the one with `t` = `times[i]`,
    /// in time units, and `f` = `times[i]` * `framesPerTimeUnit`. `t` and `f` have their old values again
    /// afterwards. `values` may be the same array as `times`, but may not overlap it otherwise.
    ///
    /// This class calls `getValue` for each time. A mapper that can do better overrides it.
    virtual void getValues(const std::string& name, const double* times, double framesPerTimeUnit,
                           double* values, std::size_t count) const;

    /// The expression whose value the variable `name` has now, for those who ask how much work reading it is;
    /// in this class null, for none. It stays the host's.
    virtual const FunctionFloatBase* getExpression(const std::string& name) const;

    /// The type of the variable, as in `FunctionParserBase::keyStruct`: its value is converted to this type
    /// when it is read. In this class 3, double.
    virtual std::int32_t getType(const std::string& name) const;

    /// True if this name is known, ASCII case aside.
    bool hasName(std::string_view name) const;

    /// Length in bytes of the longest known name with which `text` begins, without regard to ASCII case; 0 if
    /// there is none. A name that ends in a letter, digit, "_", "." or byte above 127 counts only where none
    /// of these follows.
    std::size_t getNameLength(std::string_view text) const;

    /// `name` as it is stored: ASCII letters in lower case, each white space replaced by "_".
    static std::string getStoredName(std::string_view name);

protected:
    /// Makes `name` known, in its stored form. An empty name is passed over, and a name that starts with one of
    /// + - * / ^ > <, a parenthesis or a comma is never found in a text. With "=", `pi`, `min`, `max` or `mod`
    /// as a name, the comparisons, the constant or the function of that beginning are not found.
    void addName(std::string_view name);
    /// Forgets `name`, given in any form that has the same stored one. An unknown one is passed over.
    void removeName(std::string_view name);

private:
    friend class curveeditor::VariableSource;

    struct Private;
    std::unique_ptr<Private> d_;
};
