// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatBase.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace curveeditor {
class ExpressionParser;
class VariableSource;
} // namespace curveeditor

/// A number. `text` is the number as it was typed, or `pi`.
class CURVEEDITOR_EXPORT FunctionFloatConstant : public FunctionFloatBase
{
public:
    /// The name of the constant pi.
    static constexpr std::string_view pi = "pi";

    ~FunctionFloatConstant() override;

    /// The number: finite, not negative.
    double getValue() const { return value_; }

    bool isConstant() const override { return true; }
    const FunctionFloatConstant* getConstantRef() const override { return this; }
    double evaluate() override { return value_; }
    std::string getString() override { return std::string(getWritten()); }

    /// What it was parsed with, null for no mapper; for the library alone.
    const std::shared_ptr<curveeditor::VariableSource>& getSource() const { return source_; }
    /// What the parser reads back as this number: `text`, or the digits of pi where a variable has that name.
    std::string_view getWritten() const;

    void evaluateBlock(const double* times, double framesPerTimeUnit, double* values,
                       std::size_t count) override;

private:
    friend class curveeditor::ExpressionParser;

    FunctionFloatConstant(double value, std::string_view typed,
                          const std::shared_ptr<curveeditor::VariableSource>& source);

    double value_;
    std::shared_ptr<curveeditor::VariableSource> source_;
};
