// SPDX-License-Identifier: MIT
#include <curveeditor/model/ExpressionProgram.h>

#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/FunctionFloatConstant.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionFloatVariable.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

#include <math.h> // j0 and j1 are in no other header

namespace {

using Code = ExpressionCode;
using Instruction = ExpressionProgram::Instruction;
using Instructions = std::vector<Instruction>;

constexpr std::size_t usualDepth = 16;
constexpr std::size_t longestBlock = 256;
constexpr std::size_t largestBlockStack = 64 * longestBlock;

double compute(const Instruction* begin, const Instruction* end, double* stack)
{
    double x = 0.0;
    double* top = stack;
    for (const Instruction* instruction = begin; instruction != end; ++instruction) {
        switch (instruction->code) {
        case Code::Constant:
            *top++ = x;
            x = instruction->constant;
            break;
        case Code::Variable:
            *top++ = x;
            x = instruction->key->getValue();
            break;
        case Code::MappedVariable:
            *top++ = x;
            x = FunctionParserBase::instance()->readMapped(*instruction->key);
            break;
        case Code::Negate:
            x = -x;
            break;
        case Code::Cos:
            x = std::cos(x);
            break;
        case Code::Sin:
            x = std::sin(x);
            break;
        case Code::Tan:
            x = std::tan(x);
            break;
        case Code::Exp:
            x = std::exp(x);
            break;
        case Code::Log:
            x = std::log(x);
            break;
        case Code::Log10:
            x = std::log10(x);
            break;
        case Code::Round:
            x = std::round(x);
            break;
        case Code::Absolute:
            x = std::fabs(x);
            break;
        case Code::SquareRoot:
            x = std::sqrt(x);
            break;
        case Code::ArcCos:
            x = std::acos(x);
            break;
        case Code::ArcSin:
            x = std::asin(x);
            break;
        case Code::ArcTan:
            x = std::atan(x);
            break;
        case Code::CosH:
            x = std::cosh(x);
            break;
        case Code::SinH:
            x = std::sinh(x);
            break;
        case Code::TanH:
            x = std::tanh(x);
            break;
        case Code::Ceil:
            x = std::ceil(x);
            break;
        case Code::Floor:
            x = std::floor(x);
            break;
        case Code::BesselJ0:
            x = ::j0(x);
            break;
        case Code::BesselJ1:
            x = ::j1(x);
            break;
        case Code::AddConstant:
            x = x + instruction->constant;
            break;
        case Code::SubtractFromConstant:
            x = instruction->constant - x;
            break;
        case Code::MultiplyConstant:
            x = x * instruction->constant;
            break;
        case Code::DivideByConstant:
            x = x / instruction->constant;
            break;
        case Code::DivideConstant:
            x = instruction->constant / x;
            break;
        case Code::Square:
            x = x * x;
            break;
        case Code::PowerByConstant:
            x = std::pow(x, instruction->constant);
            break;
        case Code::PowerOfConstant:
            x = std::pow(instruction->constant, x);
            break;
        case Code::GreaterThanConstant:
            x = x > instruction->constant ? 1.0 : 0.0;
            break;
        case Code::LessThanConstant:
            x = x < instruction->constant ? 1.0 : 0.0;
            break;
        case Code::Add:
            x = *--top + x;
            break;
        case Code::Subtract:
            x = *--top - x;
            break;
        case Code::Multiply:
            x = *--top * x;
            break;
        case Code::Divide:
            x = *--top / x;
            break;
        case Code::Power:
            x = std::pow(*--top, x);
            break;
        case Code::Greater:
            x = *--top > x ? 1.0 : 0.0;
            break;
        case Code::Less:
            x = *--top < x ? 1.0 : 0.0;
            break;
        case Code::Choose:
            top -= 2;
            x = top[0] != 0.0 ? top[1] : x;
            break;
        }
    }
    return x;
}

Code codeWithConstant(Code code, bool constantIsLeft)
{
    switch (code) {
    case Code::Subtract:
        return constantIsLeft ? Code::SubtractFromConstant : Code::AddConstant;
    case Code::Multiply:
        return Code::MultiplyConstant;
    case Code::Divide:
        return constantIsLeft ? Code::DivideConstant : Code::DivideByConstant;
    case Code::Power:
        return constantIsLeft ? Code::PowerOfConstant : Code::PowerByConstant;
    case Code::Greater:
        return constantIsLeft ? Code::LessThanConstant : Code::GreaterThanConstant;
    case Code::Less:
        return constantIsLeft ? Code::GreaterThanConstant : Code::LessThanConstant;
    default:
        return Code::AddConstant;
    }
}

bool isFreeOfVariables(const FunctionFloatBase& node)
{
    const auto* const operation = dynamic_cast<const FunctionFloatOperation*>(&node);
    return operation ? operation->isConstantTree() : node.isConstant();
}

bool isOperand(Code code)
{
    return code == Code::Constant || code == Code::Variable || code == Code::MappedVariable;
}

/// The times of one block, filled up to a multiple of `blockStep` with the last of them.
class BlockTimes
{
public:
    explicit BlockTimes(double framesPerTimeUnit) : framesPerTimeUnit_(framesPerTimeUnit) {}

    /// Takes `count` times, from 1 to `longestBlock`.
    void set(const double* times, std::size_t count)
    {
        paddedCount_ = (count + blockStep - 1) / blockStep * blockStep;
        std::copy_n(times, count, times_.begin());
        std::fill(times_.begin() + std::ptrdiff_t(count), times_.begin() + std::ptrdiff_t(paddedCount_),
                  times[count - 1]);
    }

    std::size_t getPaddedCount() const { return paddedCount_; }

    /// Writes the value of the constant or variable at each time to `row`.
    void load(const Instruction& instruction, double* row)
    {
        if (instruction.code == Code::Constant)
            std::fill_n(row, paddedCount_, instruction.constant);
        else if (instruction.key->type != 3 || instruction.code == Code::MappedVariable)
            loadOneByOne(instruction, row);
        else if (instruction.key == time_)
            std::copy_n(times_.begin(), paddedCount_, row);
        else
            std::transform(times_.begin(), times_.begin() + std::ptrdiff_t(paddedCount_), row,
                           [this](double time) { return time * framesPerTimeUnit_; });
    }

private:
    void loadOneByOne(const Instruction& instruction, double* row)
    {
        for (std::size_t i = 0; i < paddedCount_; ++i) {
            now_.set(times_[i], framesPerTimeUnit_);
            row[i] = compute(&instruction, &instruction + 1, row + i);
        }
    }

    EvaluationTime now_;
    const FunctionParserBase::keyStruct* const time_ = FunctionParserBase::instance()->getKey("t");
    double framesPerTimeUnit_;
    std::size_t paddedCount_ = 0;
    std::array<double, longestBlock> times_;
};

} // namespace

/// Writes the instructions of a tree, operands first. An operand without variables comes last of the two, so that it
/// becomes a part of the instruction.
class ExpressionProgram::Compiler
{
public:
    explicit Compiler(ExpressionProgram& program)
        : instructions_(program.instructions_), largestDepth_(program.depth_)
    {
    }

    void compile(const FunctionFloatOperation& root)
    {
        tasks_.push_back({&root, false});
        while (!tasks_.empty()) {
            const Task task = tasks_.back();
            tasks_.pop_back();
            if (task.operandsAreThere)
                addOperation(static_cast<const FunctionFloatOperation&>(*task.node));
            else
                begin(*task.node);
        }
    }

private:
    struct Task
    {
        const FunctionFloatBase* node;
        bool operandsAreThere;
    };

    static bool hasConstantLeft(const FunctionFloatOperation& operation)
    {
        return operation.isBinary() && !operation.isConstantTree() &&
               isFreeOfVariables(*operation.getOperand(0));
    }

    void begin(const FunctionFloatBase& node)
    {
        if (const FunctionFloatConstant* const constant = node.getConstantRef()) {
            addOperand(Instruction(Code::Constant, constant->getValue()));
        } else if (const auto* const operation = dynamic_cast<const FunctionFloatOperation*>(&node)) {
            tasks_.push_back({operation, true});
            for (std::size_t i = operation->getOperandCount(); i-- > 0;)
                tasks_.push_back({operation->getOperand(i), false});
            if (hasConstantLeft(*operation))
                std::swap(tasks_.end()[-1], tasks_.end()[-2]);
        } else if (const auto* const variable = dynamic_cast<const FunctionFloatVariable*>(&node)) {
            addOperand(Instruction(variable->isMapped() ? Code::MappedVariable : Code::Variable,
                                   variable->getKey()));
        }
    }

    void addOperand(const Instruction& instruction)
    {
        instructions_.push_back(instruction);
        largestDepth_ = std::max(largestDepth_, ++depth_);
    }

    void addOperation(const FunctionFloatOperation& operation)
    {
        const std::size_t operandCount = operation.getOperandCount();
        depth_ -= operandCount - 1;
        const bool constantIsLeft = hasConstantLeft(operation);
        if (operation.isConstantTree()) {
            instructions_.emplace_back(operation.getCode());
            fold(operandCount);
        } else if (operation.isBinary() && (constantIsLeft || isFreeOfVariables(*operation.getOperand(1)))) {
            addWithConstant(operation.getCode(), constantIsLeft);
        } else {
            instructions_.emplace_back(operation.getCode());
        }
    }

    void fold(std::size_t operandCount)
    {
        std::array<double, usualDepth> stack;
        const Instruction* const end = instructions_.data() + instructions_.size();
        const double value = compute(end - operandCount - 1, end, stack.data());
        instructions_.erase(instructions_.end() - std::ptrdiff_t(operandCount) - 1, instructions_.end());
        instructions_.emplace_back(Code::Constant, value);
    }

    void addWithConstant(Code code, bool constantIsLeft)
    {
        double constant = instructions_.back().constant;
        instructions_.pop_back();
        if (code == Code::Subtract && !constantIsLeft)
            constant = -constant;
        if ((code == Code::Multiply || code == Code::Divide) && instructions_.back().code == Code::Negate) {
            instructions_.pop_back();
            constant = -constant;
        }
        if (code == Code::Power && !constantIsLeft && constant == 2.0)
            instructions_.emplace_back(Code::Square);
        else
            instructions_.emplace_back(codeWithConstant(code, constantIsLeft), constant);
    }

    Instructions& instructions_;
    std::size_t& largestDepth_;
    std::size_t depth_ = 0;
    std::vector<Task> tasks_;
};

ExpressionProgram::ExpressionProgram(const FunctionFloatOperation& root)
{
    Compiler(*this).compile(root);
}

double ExpressionProgram::run() const
{
    const Instruction* const begin = instructions_.data();
    const Instruction* const end = begin + instructions_.size();
    if (depth_ > usualDepth)
        return compute(begin, end, std::make_unique_for_overwrite<double[]>(depth_).get());
    std::array<double, usualDepth> stack;
    return compute(begin, end, stack.data());
}

void ExpressionProgram::runBlock(const double* times, double framesPerTimeUnit, double* values,
                                 std::size_t count) const
{
    const std::size_t stride =
        std::clamp(largestBlockStack / depth_ / blockStep * blockStep, blockStep, longestBlock);
    const auto rows = std::make_unique_for_overwrite<double[]>(depth_ * stride);
    BlockTimes now(framesPerTimeUnit);
    while (count > 0) {
        const std::size_t length = std::min(count, stride);
        now.set(times, length);
        double* top = rows.get() - stride;
        for (const Instruction& instruction : instructions_) {
            if (isOperand(instruction.code)) {
                top += stride;
                now.load(instruction, top);
            } else {
                top = applyToBlock(instruction, top, stride, now.getPaddedCount());
            }
        }
        std::copy_n(rows.get(), length, values);
        times += length;
        values += length;
        count -= length;
    }
}
