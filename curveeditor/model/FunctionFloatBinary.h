// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatOperation.h>

namespace curveeditor {
class ExpressionParser;
} // namespace curveeditor

/// An operator between two operands, or a function of two arguments; a product without an operator is one too.
class CURVEEDITOR_EXPORT FunctionFloatBinary : public FunctionFloatOperation
{
public:
    ~FunctionFloatBinary() override;

    bool isBinary() const override { return true; }
    const FunctionFloatBinary* getBinaryRef() const override { return this; }

private:
    friend class curveeditor::ExpressionParser;

    using FunctionFloatOperation::FunctionFloatOperation;
};
