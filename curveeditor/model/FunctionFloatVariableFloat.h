// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatVariable.h>

namespace curveeditor {
class ExpressionParser;
} // namespace curveeditor

/// A variable whose storage is a `float`.
class CURVEEDITOR_EXPORT FunctionFloatVariableFloat : public FunctionFloatVariable
{
public:
    ~FunctionFloatVariableFloat() override;

    bool isVariableFloat() const override { return true; }
    const FunctionFloatVariableFloat* getVariableFloatRef() const override { return this; }

private:
    friend class curveeditor::ExpressionParser;

    using FunctionFloatVariable::FunctionFloatVariable;
};
