// SPDX-License-Identifier: MIT
#include <curveeditor/model/ExpressionProgram.h>

#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/ExpressionArithmetic.h>
#include <curveeditor/model/ExpressionFusion.h>
#include <curveeditor/model/FunctionFloatConstant.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionFloatVariable.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

#include <math.h> // j0 and j1 are in no other header

namespace curveeditor {

namespace {

using Code = ExpressionCode;
using Instruction = ExpressionProgram::Instruction;
using Instructions = std::vector<Instruction>;

constexpr std::size_t usualDepth = 8;
constexpr std::size_t usualInstructions = 32;
constexpr std::size_t longestBlock = 256;
constexpr std::size_t largestBlockStack = 64 * longestBlock;

using Key = FunctionParserBase::keyStruct;

bool isTime(const Key& key)
{
    return key.name == "t";
}

double valueIn(const ExpressionVariables& variables, const Key& key)
{
    return isTime(key) ? variables.time : variables.frame;
}

/// The variables that the tree was parsed with.
struct TreeVariables
{
    double read(Key& key) const { return source->read(key); }

    const VariableSource* source;
};

double valueIn(const TreeVariables&, const Key& key)
{
    return key.holdsDouble() ? *static_cast<const double*>(key.value) : key.getValue();
}

double square(double x)
{
    return x * x;
}

/// Up to the first `Return`.
template <typename Variables>
double compute(const Instruction* instruction, double* top, Variables& variables)
{
    const auto valueOf = [&variables](const Key& key) {
        return valueIn(variables, key);
    };
    double x = 0.0;
    for (;; ++instruction) {
        switch (instruction->code) {
        case Code::Constant:
            *top++ = x;
            x = instruction->constant;
            break;
        case Code::Variable:
            *top++ = x;
            x = valueOf(*instruction->key);
            break;
        case Code::MappedVariable:
            *top++ = x;
            x = variables.read(*instruction->key);
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
            x = besselJ0(x);
            break;
        case Code::BesselJ1:
            x = besselJ1(x);
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
        case Code::GreaterOrEqual:
            x = *--top >= x ? 1.0 : 0.0;
            break;
        case Code::LessOrEqual:
            x = *--top <= x ? 1.0 : 0.0;
            break;
        case Code::Equal:
            x = *--top == x ? 1.0 : 0.0;
            break;
        case Code::NotEqual:
            x = *--top != x ? 1.0 : 0.0;
            break;
        case Code::Minimum:
            x = minimum(*--top, x);
            break;
        case Code::Maximum:
            x = maximum(*--top, x);
            break;
        case Code::Modulo:
            x = flooredModulo(*--top, x);
            break;
        case Code::JumpIfZero:
            if (x == 0.0)
                instruction += instruction->distance;
            x = *--top;
            break;
        case Code::Jump:
            instruction += instruction->distance;
            break;
        case Code::VariableAddConstant:
            *top++ = x;
            x = valueOf(*instruction->key) + instruction->constant;
            break;
        case Code::VariableMultiplyConstant:
            *top++ = x;
            x = valueOf(*instruction->key) * instruction->constant;
            break;
        case Code::VariableGreaterThanConstant:
            *top++ = x;
            x = valueOf(*instruction->key) > instruction->constant ? 1.0 : 0.0;
            break;
        case Code::VariableLessThanConstant:
            *top++ = x;
            x = valueOf(*instruction->key) < instruction->constant ? 1.0 : 0.0;
            break;
        case Code::JumpUnlessVariableGreaterThanConstant:
            if (!(valueOf(*instruction->key) > instruction->constant))
                instruction += instruction->distance;
            break;
        case Code::JumpUnlessVariableLessThanConstant:
            if (!(valueOf(*instruction->key) < instruction->constant))
                instruction += instruction->distance;
            break;
        case Code::VariableSquare:
            *top++ = x;
            x = square(valueOf(*instruction->key));
            break;
        case Code::VariableSquareMultiplyConstant:
            *top++ = x;
            x = square(valueOf(*instruction->key)) * instruction->constant;
            break;
        case Code::VariableAddConstantSquare:
            *top++ = x;
            x = square(valueOf(*instruction->key) + instruction->constant);
            break;
        case Code::AddVariable:
            x = x + valueOf(*instruction->key);
            break;
        case Code::SubtractVariable:
            x = x - valueOf(*instruction->key);
            break;
        case Code::MultiplyVariable:
            x = x * valueOf(*instruction->key);
            break;
        case Code::DivideByVariable:
            x = x / valueOf(*instruction->key);
            break;
        case Code::MultiplyVariableAddedConstant:
            x = x * (valueOf(*instruction->key) + instruction->constant);
            break;
        case Code::MultiplyVariableAddConstant:
            x = x * valueOf(*instruction->key) + instruction->constant;
            break;
        case Code::AddConstantSquare:
            x = square(x + instruction->constant);
            break;
        case Code::DivideByConstantExp:
            x = std::exp(x / instruction->constant);
            break;
        case Code::MultiplyConstantAdd:
            x = *--top + x * instruction->constant;
            break;
        case Code::AddVariableMultiplyConstant:
            x = x + valueOf(*instruction->key) * instruction->constant;
            break;
        case Code::MultiplyConstantSubtract:
            x = *--top - x * instruction->constant;
            break;
        case Code::MultiplyAdd:
            top -= 2;
            x = top[0] + top[1] * x;
            break;
        case Code::Choose: // only in blocks
        case Code::Return:
            return x;
        }
    }
}

Instruction withConstantRight(Code code, double constant)
{
    switch (code) {
    case Code::Subtract:
        return Instruction{Code::AddConstant, -constant};
    case Code::Multiply:
        return Instruction{Code::MultiplyConstant, constant};
    case Code::Divide:
        return Instruction{Code::DivideByConstant, constant};
    case Code::Power:
        return Instruction{constant == 2.0 ? Code::Square : Code::PowerByConstant, constant};
    case Code::Greater:
        return Instruction{Code::GreaterThanConstant, constant};
    case Code::Less:
        return Instruction{Code::LessThanConstant, constant};
    default:
        return Instruction{Code::AddConstant, constant};
    }
}

Instruction withConstantLeft(Code code, double constant)
{
    switch (code) {
    case Code::Subtract:
        return Instruction{Code::SubtractFromConstant, constant};
    case Code::Divide:
        return Instruction{Code::DivideConstant, constant};
    case Code::Power:
        return Instruction{Code::PowerOfConstant, constant};
    case Code::Greater:
        return Instruction{Code::LessThanConstant, constant};
    case Code::Less:
        return Instruction{Code::GreaterThanConstant, constant};
    default:
        return withConstantRight(code, constant);
    }
}

double computeConstant(double operand, const Instruction& operation)
{
    const std::array program{Instruction{Code::Constant, operand}, operation, Instruction{Code::Return}};
    double stack[1]{};
    const TreeVariables none{nullptr};
    return compute(program.data(), stack, none);
}

// A sign of the operand is as well one of the constant.
bool takesSign(Code code)
{
    return code == Code::MultiplyConstant || code == Code::DivideByConstant || code == Code::DivideConstant;
}

// With one constant operand, the others take it from the stack.
bool hasFormWithConstant(Code code)
{
    switch (code) {
    case Code::Add:
    case Code::Subtract:
    case Code::Multiply:
    case Code::Divide:
    case Code::Power:
    case Code::Greater:
    case Code::Less:
        return true;
    default:
        return false;
    }
}

bool isOperand(Code code)
{
    return code == Code::Constant || code == Code::Variable || code == Code::MappedVariable;
}

/// The times of one block, filled up to a multiple of `blockStep` with the last of them. They lie in a row of
/// the heap, since expressions may read each other in long chains.
class BlockTimes
{
public:
    /// `row` has room for the longest block that is set. Mapped variables are read from `source` unless others are given.
    BlockTimes(double* row, double framesPerTimeUnit, const VariableSource* source,
               ExpressionVariables* variables)
        : treeSource_(source), variables_(variables), times_(row), framesPerTimeUnit_(framesPerTimeUnit)
    {
    }

    /// Takes `count` times, at least 1. They must stay until the next ones are taken.
    void set(const double* times, std::size_t count)
    {
        source_ = times;
        count_ = count;
        std::copy_n(times, count, times_);
        pad(times_);
    }

    std::size_t getPaddedCount() const { return (count_ + blockStep - 1) / blockStep * blockStep; }

    /// Writes the value of the constant or variable at each time to `row`.
    void load(const Instruction& instruction, double* row)
    {
        if (instruction.code == Code::Constant) {
            std::fill_n(row, getPaddedCount(), instruction.constant);
        } else if (instruction.code == Code::MappedVariable) {
            // At their own address: a mapper may know them again.
            readMapped(*instruction.key, row);
            pad(row);
        } else if (!variables_ && !instruction.key->holdsDouble()) {
            loadOneByOne(*instruction.key, row);
        } else if (isTime(*instruction.key)) {
            std::copy_n(times_, getPaddedCount(), row);
        } else {
            std::transform(times_, times_ + getPaddedCount(), row,
                           [this](double time) { return time * framesPerTimeUnit_; });
        }
    }

private:
    void pad(double* row) const { std::fill(row + count_, row + getPaddedCount(), row[count_ - 1]); }

    void readMapped(Key& key, double* row) const
    {
        if (variables_) {
            variables_->read(key, source_, row, count_);
        } else {
            treeSource_->read(key, source_, framesPerTimeUnit_, row, count_);
        }
    }

    void loadOneByOne(const Key& key, double* row) const
    {
        EvaluationTime now;
        for (std::size_t i = 0; i < getPaddedCount(); ++i) {
            now.set(times_[i], framesPerTimeUnit_);
            row[i] = key.getValue();
        }
    }

    const VariableSource* treeSource_;
    ExpressionVariables* variables_;
    const double* source_ = nullptr;
    std::size_t count_ = 0;
    double* times_;
    double framesPerTimeUnit_;
};

} // namespace

/// Writes the instructions of a tree, operands first. A constant is held back, so that it becomes a part of
/// the operation that takes it, or of another constant.
class ExpressionProgram::Compiler
{
public:
    explicit Compiler(ExpressionProgram& program)
        : instructions_(program.instructions_), largestDepth_(program.depth_), source_(program.source_)
    {
        instructions_.reserve(usualInstructions);
        tasks_.reserve(usualInstructions);
        operands_.reserve(usualInstructions);
    }

    void compile(const FunctionFloatBase& root)
    {
        tasks_.push_back({Step::Begin, &root});
        while (!tasks_.empty()) {
            const Task task = tasks_.back();
            tasks_.pop_back();
            switch (task.step) {
            case Step::Begin:
                begin(*task.node);
                break;
            case Step::Load:
                load();
                break;
            case Step::BeginFirstBranch:
                beginFirstBranch();
                break;
            case Step::BeginSecondBranch:
                beginSecondBranch();
                break;
            case Step::Finish:
                addOperation(static_cast<const FunctionFloatOperation&>(*task.node));
                break;
            }
        }
        load();
        push({Code::Return});
    }

private:
    enum class Step { Begin, Load, BeginFirstBranch, BeginSecondBranch, Finish };

    struct Task
    {
        Step step;
        const FunctionFloatBase* node;
    };

    struct Operand
    {
        bool isHeldBack;
        double constant;
    };

    void begin(const FunctionFloatBase& node)
    {
        if (const FunctionFloatOperation* const operation = FunctionFloatOperation::of(node)) {
            beginOperation(*operation);
        } else if (const FunctionFloatConstant* const constant = node.getConstantRef()) {
            operands_.push_back({true, constant->getValue()});
        } else if (const FunctionFloatVariable* const variable = FunctionFloatVariable::of(node)) {
            addOperand(
                {variable->isMapped() ? Code::MappedVariable : Code::Variable, 0.0, variable->getKey()});
            if (variable->isMapped())
                source_ = variable->getSource();
        }
    }

    void beginOperation(const FunctionFloatOperation& operation)
    {
        tasks_.push_back({Step::Finish, &operation});
        const std::size_t count = operation.getOperandCount();
        const bool loadsConstants = count > 1 && !hasFormWithConstant(operation.getCode());
        for (std::size_t i = count; i-- > 0;) {
            if (operation.getCode() == Code::Choose && i < 2)
                tasks_.push_back({i == 0 ? Step::BeginFirstBranch : Step::BeginSecondBranch, nullptr});
            if (loadsConstants)
                tasks_.push_back({Step::Load, nullptr});
            tasks_.push_back({Step::Begin, operation.getOperand(i)});
        }
    }

    void addOperand(const Instruction& instruction)
    {
        push(instruction);
        operands_.push_back({false, 0.0});
        largestDepth_ = std::max(largestDepth_, ++depth_);
    }

    void load()
    {
        const Operand operand = operands_.back();
        if (!operand.isHeldBack)
            return;
        operands_.pop_back();
        addOperand(Instruction{Code::Constant, operand.constant});
    }

    void addOperation(const FunctionFloatOperation& operation)
    {
        const std::size_t count = operation.getOperandCount();
        if (count == 1) {
            addToLast(Instruction{operation.getCode()});
        } else if (count == 2) {
            addBinary(operation.getCode());
        } else {
            operands_.resize(operands_.size() - 2);
            depth_ -= 2;
            endJump();
            ++choices_;
        }
    }

    void beginFirstBranch()
    {
        append({Code::JumpIfZero});
        jumps_.push_back(instructions_.size() - 1);
    }

    void beginSecondBranch()
    {
        push({Code::Jump});
        endJump();
        jumps_.push_back(instructions_.size() - 1);
    }

    /// The last jump that is open leads to the next instruction.
    void endJump()
    {
        lastTarget_ = instructions_.size();
        instructions_[jumps_.back()].distance = std::uint32_t(lastTarget_ - jumps_.back() - 1);
        jumps_.pop_back();
    }

    void addBinary(Code code)
    {
        const Operand right = operands_.back();
        operands_.pop_back();
        const Operand left = operands_.back();
        if (right.isHeldBack) {
            addToLast(withConstantRight(code, right.constant));
        } else if (left.isHeldBack) {
            operands_.back() = right;
            addToLast(withConstantLeft(code, left.constant));
        } else {
            --depth_;
            append({code});
        }
    }

    // An operation whose one operand that is no part of it is the last one.
    void addToLast(Instruction operation)
    {
        Operand& operand = operands_.back();
        if (operand.isHeldBack) {
            operand.constant = computeConstant(operand.constant, operation);
            return;
        }
        if (takesSign(operation.code) && instructions_.back().code == Code::Negate &&
            instructions_.size() - 1 > lastTarget_) {
            instructions_.pop_back();
            operation.constant = -operation.constant;
        }
        append(operation);
    }

    /// To the instruction before it, if the two can be one and no jump leads between them.
    void append(const Instruction& operation)
    {
        if (instructions_.size() == lastTarget_ || !fuse(instructions_.back(), operation))
            push(operation);
    }

    void push(const Instruction& instruction)
    {
        instructions_.push_back(instruction);
        instructions_.back().choices = std::exchange(choices_, 0);
    }

    Instructions& instructions_;
    std::size_t& largestDepth_;
    std::shared_ptr<VariableSource>& source_;
    std::size_t depth_ = 0;
    std::vector<Operand> operands_;
    std::vector<Task> tasks_;
    std::vector<std::size_t> jumps_; ///< the places of those whose end is open
    std::size_t lastTarget_ = 0;     ///< of the jumps that have ended
    std::uint32_t choices_ = 0;      ///< that end at the next instruction
};

ExpressionProgram::ExpressionProgram(const FunctionFloatBase& root)
{
    Compiler(*this).compile(root);
}

template <typename Variables> double ExpressionProgram::runWith(Variables& variables) const
{
    if (depth_ > usualDepth)
        return compute(instructions_.data(), std::unique_ptr<double[]>(new double[depth_]).get(), variables);
    double stack[usualDepth]{};
    return compute(instructions_.data(), stack, variables);
}

double ExpressionProgram::run() const
{
    const TreeVariables own{source_.get()};
    return runWith(own);
}

double ExpressionProgram::run(ExpressionVariables& variables) const
{
    return runWith(variables);
}

void ExpressionProgram::runBlock(const double* times, double framesPerTimeUnit, double* values,
                                 std::size_t count, ExpressionVariables* variables) const
{
    const std::size_t stride =
        std::clamp(largestBlockStack / depth_ / blockStep * blockStep, blockStep, longestBlock);
    const std::unique_ptr<double[]> rows(new double[(depth_ + 1) * stride]);
    BlockTimes now(rows.get() + depth_ * stride, framesPerTimeUnit, source_.get(), variables);
    while (count > 0) {
        const std::size_t length = std::min(count, stride);
        now.set(times, length);
        double* top = rows.get() - stride;
        for (const Instruction& instruction : instructions_) {
            for (std::uint32_t i = 0; i < instruction.choices; ++i)
                top = applyToBlock({Code::Choose}, top, stride, now.getPaddedCount());
            for (const Code code : partsOf(instruction.code)) {
                const Instruction part{code, instruction.constant, instruction.key};
                if (isOperand(code)) {
                    top += stride;
                    now.load(part, top);
                } else {
                    top = applyToBlock(part, top, stride, now.getPaddedCount());
                }
            }
        }
        std::copy_n(rows.get(), length, values);
        times += length;
        values += length;
        count -= length;
    }
}

} // namespace curveeditor
