// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatVariable.h>

namespace curveeditor {
class ExpressionParser;
} // namespace curveeditor

/// A variable whose storage is a `bool`.
class CURVEEDITOR_EXPORT FunctionFloatVariableBool : public FunctionFloatVariable
{
public:
    ~FunctionFloatVariableBool() override;

    bool isVariableBool() const override { return true; }
    const FunctionFloatVariableBool* getVariableBoolRef() const override { return this; }

private:
    friend class curveeditor::ExpressionParser;

    using FunctionFloatVariable::FunctionFloatVariable;
};
