// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatOperation.h>

#include <curveeditor/model/ExpressionProgram.h>
#include <curveeditor/model/ExpressionWriter.h>

#include <utility>

using namespace curveeditor;

namespace {

constexpr std::size_t usualNodes = 16;

/// Sets a mark for as long as it lives.
class Running
{
public:
    explicit Running(bool& mark) : mark_(mark), before_(std::exchange(mark, true)) {}
    ~Running() { mark_ = before_; }

    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    bool& mark_;
    bool before_;
};

} // namespace

FunctionFloatOperation::FunctionFloatOperation(ExpressionCode code, std::string_view name,
                                               Operands&& operands)
    : code_(code), operands_(std::move(operands))
{
    text = name;
}

FunctionFloatOperation::~FunctionFloatOperation()
{
    std::vector<std::unique_ptr<FunctionFloatBase>> orphans;
    freeOperands(orphans);
    while (!orphans.empty()) {
        const std::unique_ptr<FunctionFloatBase> node = std::move(orphans.back());
        orphans.pop_back();
        static_cast<FunctionFloatOperation&>(*node).freeOperands(orphans);
    }
}

void FunctionFloatOperation::freeOperands(std::vector<std::unique_ptr<FunctionFloatBase>>& nodes)
{
    for (std::unique_ptr<FunctionFloatBase>& operand : operands_) {
        if (operand && of(*operand)) {
            if (nodes.capacity() == 0)
                nodes.reserve(usualNodes);
            nodes.push_back(std::move(operand));
        } else {
            operand.reset();
        }
    }
}

const FunctionFloatBase* FunctionFloatOperation::getOperand(std::size_t index) const
{
    return index < operands_.size() ? operands_[index].get() : nullptr;
}

double FunctionFloatOperation::evaluate()
{
    const Running running(running_);
    return program().run();
}

void FunctionFloatOperation::evaluateBlock(const double* times, double framesPerTimeUnit, double* values,
                                           std::size_t count)
{
    const Running running(running_);
    program().runBlock(times, framesPerTimeUnit, values, count);
}

const ExpressionProgram& FunctionFloatOperation::program()
{
    if (!program_)
        program_ = std::make_unique<const ExpressionProgram>(*this);
    return *program_;
}

std::string FunctionFloatOperation::getString()
{
    return ExpressionWriter(*this).write();
}
