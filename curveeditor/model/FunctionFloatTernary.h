// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatOperation.h>

namespace curveeditor {
class ExpressionParser;
} // namespace curveeditor

/// A function of three arguments: `if`.
class CURVEEDITOR_EXPORT FunctionFloatTernary : public FunctionFloatOperation
{
public:
    ~FunctionFloatTernary() override;

    bool isTernary() const override { return true; }
    const FunctionFloatTernary* getTernaryRef() const override { return this; }

private:
    friend class curveeditor::ExpressionParser;

    using FunctionFloatOperation::FunctionFloatOperation;
};
