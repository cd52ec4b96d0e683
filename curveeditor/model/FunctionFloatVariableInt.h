// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatVariable.h>

namespace curveeditor {
class ExpressionParser;
} // namespace curveeditor

/// A variable whose storage is an `int`.
class CURVEEDITOR_EXPORT FunctionFloatVariableInt : public FunctionFloatVariable
{
public:
    ~FunctionFloatVariableInt() override;

    bool isVariableInt() const override { return true; }
    const FunctionFloatVariableInt* getVariableIntRef() const override { return this; }

private:
    friend class curveeditor::ExpressionParser;

    using FunctionFloatVariable::FunctionFloatVariable;
};
