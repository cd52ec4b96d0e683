// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatVariable.h>

namespace curveeditor {
class ExpressionParser;
} // namespace curveeditor

/// A variable whose storage is a `double`.
class CURVEEDITOR_EXPORT FunctionFloatVariableDouble : public FunctionFloatVariable
{
public:
    ~FunctionFloatVariableDouble() override;

    bool isVariableDouble() const override { return true; }
    const FunctionFloatVariableDouble* getVariableDoubleRef() const override { return this; }

private:
    friend class curveeditor::ExpressionParser;

    using FunctionFloatVariable::FunctionFloatVariable;
};
