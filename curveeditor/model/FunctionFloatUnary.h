// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatOperation.h>

namespace curveeditor {
class ExpressionParser;
} // namespace curveeditor

/// A sign, or a function of one argument.
class CURVEEDITOR_EXPORT FunctionFloatUnary : public FunctionFloatOperation
{
public:
    ~FunctionFloatUnary() override;

    bool isUnary() const override { return true; }
    const FunctionFloatUnary* getUnaryRef() const override { return this; }

private:
    friend class curveeditor::ExpressionParser;

    using FunctionFloatOperation::FunctionFloatOperation;
};
