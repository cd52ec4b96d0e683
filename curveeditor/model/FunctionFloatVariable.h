// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>

#include <memory>

namespace curveeditor {
class VariableSource;
} // namespace curveeditor

/// What the four kinds of variables have in common. `text` is the name in its stored, lower-case form. The
/// class of a node follows the type that the variable had when it was parsed; its value is always read as the
/// type of its key.
class CURVEEDITOR_EXPORT FunctionFloatVariable : public FunctionFloatBase
{
public:
    ~FunctionFloatVariable() override;

    /// `node` as a variable, null if it is none.
    static const FunctionFloatVariable* of(const FunctionFloatBase& node);

    /// The variable. It stays as long as this.
    FunctionParserBase::keyStruct* getKey() const { return key_; }

    /// False for `t` and `f`, true for a variable that a mapper gives.
    bool isMapped() const { return mapped_; }
    /// What it was parsed with, null for no mapper; for the library alone.
    const std::shared_ptr<curveeditor::VariableSource>& getSource() const { return source_; }

    /// The variable's present value.
    double evaluate() override;
    void evaluateBlock(const double* times, double framesPerTimeUnit, double* values,
                       std::size_t count) override;

protected:
    /// `key` must be one of `source`, or one that the parser owns.
    FunctionFloatVariable(FunctionParserBase::keyStruct* key, bool mapped,
                          const std::shared_ptr<curveeditor::VariableSource>& source);

private:
    FunctionParserBase::keyStruct* key_;
    bool mapped_;
    std::shared_ptr<curveeditor::VariableSource> source_;
};
