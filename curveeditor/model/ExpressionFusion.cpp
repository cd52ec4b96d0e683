// SPDX-License-Identifier: MIT
#include <curveeditor/model/ExpressionProgram.h>

namespace {

using Code = ExpressionCode;
using Instruction = ExpressionProgram::Instruction;

/// The code that does `first`, then `second`; `second` if there is none.
Code fusedCode(Code first, Code second)
{
    switch (second) {
    case Code::Square:
        return first == Code::AddConstant ? Code::AddConstantSquare : second;
    case Code::Exp:
        return first == Code::DivideByConstant ? Code::DivideByConstantExp : second;
    case Code::AddConstant:
        return first == Code::Multiply ? Code::MultiplyAddConstant : second;
    case Code::Add:
        return first == Code::MultiplyConstant ? Code::MultiplyConstantAdd
               : first == Code::Multiply       ? Code::MultiplyAdd
               : first == Code::Choose         ? Code::ChooseAdd
                                               : second;
    case Code::Subtract:
        return first == Code::MultiplyConstant ? Code::MultiplyConstantSubtract
               : first == Code::Multiply       ? Code::MultiplySubtract
               : first == Code::Choose         ? Code::ChooseSubtract
                                               : second;
    default:
        return second;
    }
}

/// Makes `first` do `second` too, if one instruction can do both.
bool absorb(Instruction& first, const Instruction& second)
{
    if (second.key || second.code == Code::Constant)
        return false;
    if (first.code == Code::Variable) {
        first.code = second.code;
        first.constant = second.constant;
        return true;
    }
    const Code both = fusedCode(first.code, second.code);
    if (both == second.code)
        return false;
    first.code = both;
    if (both == Code::MultiplyAddConstant)
        first.constant = second.constant;
    return true;
}

} // namespace

void fuse(std::vector<Instruction>& instructions)
{
    std::size_t last = 0;
    for (std::size_t i = 1; i < instructions.size(); ++i) {
        if (!absorb(instructions[last], instructions[i]))
            instructions[++last] = instructions[i];
    }
    instructions.resize(last + 1);
}
