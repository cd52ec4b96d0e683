// SPDX-License-Identifier: MIT
#include <curveeditor/model/ExpressionFusion.h>

namespace curveeditor {

namespace {

using Code = ExpressionCode;

enum class ConstantOf { First, Second };

struct Fusion
{
    Code first;
    Code second;
    Code result;
    ConstantOf constant;
};

/// A row whose first code is fused itself stands below that of this code.
constexpr Fusion fusions[] = {
    {Code::Variable, Code::AddConstant, Code::VariableAddConstant, ConstantOf::Second},
    {Code::Variable, Code::MultiplyConstant, Code::VariableMultiplyConstant, ConstantOf::Second},
    {Code::Variable, Code::GreaterThanConstant, Code::VariableGreaterThanConstant, ConstantOf::Second},
    {Code::Variable, Code::LessThanConstant, Code::VariableLessThanConstant, ConstantOf::Second},
    {Code::VariableGreaterThanConstant, Code::JumpIfZero, Code::JumpUnlessVariableGreaterThanConstant,
     ConstantOf::First},
    {Code::VariableLessThanConstant, Code::JumpIfZero, Code::JumpUnlessVariableLessThanConstant,
     ConstantOf::First},
    {Code::Variable, Code::Square, Code::VariableSquare, ConstantOf::Second},
    {Code::VariableSquare, Code::MultiplyConstant, Code::VariableSquareMultiplyConstant, ConstantOf::Second},
    {Code::Variable, Code::Add, Code::AddVariable, ConstantOf::Second},
    {Code::Variable, Code::Subtract, Code::SubtractVariable, ConstantOf::Second},
    {Code::Variable, Code::Multiply, Code::MultiplyVariable, ConstantOf::Second},
    {Code::Variable, Code::Divide, Code::DivideByVariable, ConstantOf::Second},
    {Code::VariableAddConstant, Code::Square, Code::VariableAddConstantSquare, ConstantOf::First},
    {Code::VariableAddConstant, Code::Multiply, Code::MultiplyVariableAddedConstant, ConstantOf::First},
    {Code::MultiplyVariable, Code::AddConstant, Code::MultiplyVariableAddConstant, ConstantOf::Second},
    {Code::AddConstant, Code::Square, Code::AddConstantSquare, ConstantOf::First},
    {Code::DivideByConstant, Code::Exp, Code::DivideByConstantExp, ConstantOf::First},
    {Code::MultiplyConstant, Code::Add, Code::MultiplyConstantAdd, ConstantOf::First},
    {Code::VariableMultiplyConstant, Code::Add, Code::AddVariableMultiplyConstant, ConstantOf::First},
    {Code::MultiplyConstant, Code::Subtract, Code::MultiplyConstantSubtract, ConstantOf::First},
    {Code::Multiply, Code::Add, Code::MultiplyAdd, ConstantOf::First},
};

constexpr std::size_t codeCount = std::size_t(Code::MultiplyAdd) + 1;

constexpr std::array<ExpressionParts, codeCount> partsOfAll()
{
    std::array<ExpressionParts, codeCount> all;
    for (std::size_t code = 0; code < codeCount; ++code)
        all[code] = {{Code(code)}, 1};
    for (const Fusion& fusion : fusions) {
        ExpressionParts& parts = all[std::size_t(fusion.result)];
        parts = all[std::size_t(fusion.first)];
        parts.codes[parts.count++] = fusion.second;
    }
    return all;
}

constexpr std::array<ExpressionParts, codeCount> allParts = partsOfAll();

/// For each two codes the row of their fusion, counted from 1.
using RowTable = std::array<std::array<unsigned char, codeCount>, codeCount>;

constexpr RowTable rowsOfAll()
{
    RowTable rows{};
    unsigned char row = 0;
    for (const Fusion& fusion : fusions)
        rows[std::size_t(fusion.first)][std::size_t(fusion.second)] = ++row;
    return rows;
}

constexpr RowTable rowTable = rowsOfAll();

} // namespace

bool fuse(ExpressionProgram::Instruction& last, const ExpressionProgram::Instruction& next)
{
    const std::size_t row = rowTable[std::size_t(last.code)][std::size_t(next.code)];
    if (row == 0)
        return false;
    const Fusion& fusion = fusions[row - 1];
    last.code = fusion.result;
    if (fusion.constant == ConstantOf::Second)
        last.constant = next.constant;
    return true;
}

const ExpressionParts& partsOf(ExpressionCode code)
{
    return allParts[std::size_t(code)];
}

} // namespace curveeditor
