// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>
#include <curveeditor/model/FunctionFloatBase.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace curveeditor {
class ExpressionProgram;
enum class ExpressionCode : std::uint8_t;
} // namespace curveeditor

/// What the nodes with operands have in common: an operator, or a function with its arguments. Owns its
/// operands. Evaluating runs a flat program, which is made from the nodes below this one when it is evaluated
/// first.
class CURVEEDITOR_EXPORT FunctionFloatOperation : public FunctionFloatBase
{
public:
    /// In the order of the text; null from the last one on.
    using Operands = std::array<std::unique_ptr<FunctionFloatBase>, 3>;

    ~FunctionFloatOperation() override;

    /// `node` as an operation, null if it is none.
    static const FunctionFloatOperation* of(const FunctionFloatBase& node) { return node.asOperation(); }

    /// 1, 2 or 3.
    std::size_t getOperandCount() const
    {
        return std::size_t(!!operands_[0]) + !!operands_[1] + !!operands_[2];
    }

    /// The operand at `index`, in the order of the text; null from the last one on.
    const FunctionFloatBase* getOperand(std::size_t index) const;

    /// What the node computes; for the library alone.
    curveeditor::ExpressionCode getCode() const { return code_; }

    /// True while this very node is evaluated. Variables that read curves ask for it.
    bool isRunning() const { return running_; }

    double evaluate() override;
    std::string getString() override;
    void evaluateBlock(const double* times, double framesPerTimeUnit, double* values,
                       std::size_t count) override;

protected:
    /// `name` is the operator or function as it is written; the operands are taken over.
    FunctionFloatOperation(curveeditor::ExpressionCode code, std::string_view name, Operands&& operands);

private:
    const FunctionFloatOperation* asOperation() const override { return this; }
    const curveeditor::ExpressionProgram& program();
    // Those that are operations go to `nodes`.
    void freeOperands(std::vector<std::unique_ptr<FunctionFloatBase>>& nodes);

    curveeditor::ExpressionCode code_;
    bool running_ = false;
    Operands operands_;
    std::unique_ptr<const curveeditor::ExpressionProgram> program_;
};
