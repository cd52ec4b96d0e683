// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/ExpressionCode.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/VariableSource.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

class FunctionFloatBase;

namespace curveeditor {

/// The variables of one evaluation, apart from those of the parser, so that several threads may evaluate at once.
class ExpressionVariables
{
public:
    using Key = FunctionParserBase::keyStruct;

    virtual ~ExpressionVariables() = default;
    /// The value of a mapped variable at the present `time` and `frame`.
    virtual double read(const Key& key) = 0;
    /// Its values at the times of a block.
    virtual void read(const Key& key, const double* times, double* values, std::size_t count) = 0;

    double time = 0.0;  ///< `t`, unless a block is evaluated
    double frame = 0.0; ///< `f`, the same
};

/// An expression as a flat list of instructions for a machine with a stack. Arithmetic without variables is
/// computed once, when the program is made. Of a choice only the branch that counts is computed, but for a
/// block of times both are. Shares the variables of the tree and holds nothing else of it. Running it
/// changes nothing in it: it may be run again while it runs, which happens when a host's own variable
/// evaluates the expression that reads it.
class ExpressionProgram
{
public:
    struct Instruction
    {
        ExpressionCode code = ExpressionCode::Constant;
        double constant = 0.0;
        FunctionParserBase::keyStruct* key = nullptr; // of a variable
        std::uint32_t distance = 0; // of a jump: how many of the next instructions it passes over
        std::uint32_t choices = 0;  // how many choices end here, which a block has to make first
    };

    /// `root` must come from the parser.
    explicit ExpressionProgram(const FunctionFloatBase& root);

    /// @{
    /// With the variables of the tree or, where `variables` are given, with these and without any look at those.
    double run() const;
    double run(ExpressionVariables& variables) const;
    void runBlock(const double* times, double framesPerTimeUnit, double* values, std::size_t count,
                  ExpressionVariables* variables = nullptr) const;
    /// @}

    /// Of the mapped variables; null if there are none.
    const VariableSource* source() const { return source_.get(); }

private:
    class Compiler;

    template <typename Variables> double runWith(Variables& variables) const;

    std::vector<Instruction> instructions_;
    std::size_t depth_ = 0;
    std::shared_ptr<VariableSource> source_;
};

/// How many values a vector instruction takes at most.
inline constexpr std::size_t blockStep = 8;

/// Carries out one operation for `count` values at once, `count` a multiple of `blockStep`. The operands are
/// rows of `stride` values, the last one at `top`; the result goes to the row of the first one, which is
/// returned.
double* applyToBlock(const ExpressionProgram::Instruction& instruction, double* top, std::size_t stride,
                     std::size_t count);

} // namespace curveeditor
