// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatVariable.h>

/// A variable whose storage is a `double`.
class CURVEEDITOR_EXPORT FunctionFloatVariableDouble : public FunctionFloatVariable
{
public:
    ~FunctionFloatVariableDouble() override;

    bool isVariableDouble() const override { return true; }
    const FunctionFloatVariableDouble* getVariableDoubleRef() const override { return this; }

private:
    friend class ExpressionParser;

    using FunctionFloatVariable::FunctionFloatVariable;
};
