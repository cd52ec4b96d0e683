// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace curveeditor {

/// What an operation of an expression, or one instruction of its program, computes.
enum class ExpressionCode : std::uint8_t {
    // Written in the text of an expression: operators, then functions.
    Negate,
    Add,
    Subtract,
    Multiply,
    Divide,
    Power,
    GreaterOrEqual,
    LessOrEqual,
    Equal,
    NotEqual,
    Greater,
    Less,
    Cos,
    Sin,
    Tan,
    Exp,
    Log,
    Log10,
    Round,
    Absolute,
    SquareRoot,
    ArcCos,
    ArcSin,
    ArcTan,
    CosH,
    SinH,
    TanH,
    Ceil,
    Floor,
    BesselJ0,
    BesselJ1,
    Minimum,
    Maximum,
    Modulo,
    Choose,

    // Only in programs: operands, and operations with one constant operand c.
    Constant,
    Variable,
    MappedVariable,
    AddConstant,
    SubtractFromConstant,
    MultiplyConstant,
    DivideByConstant,
    DivideConstant,
    Square,
    PowerByConstant,
    PowerOfConstant,
    GreaterThanConstant,
    LessThanConstant,

    // Only in programs: where to go on.
    JumpIfZero,
    Jump,
    Return,

    // Only in programs: several in one, see `ExpressionFusion.h`.
    VariableAddConstant,
    VariableMultiplyConstant,
    VariableGreaterThanConstant,
    VariableLessThanConstant,
    JumpUnlessVariableGreaterThanConstant,
    JumpUnlessVariableLessThanConstant,
    VariableSquare,
    VariableSquareMultiplyConstant,
    VariableAddConstantSquare,
    AddVariable,
    SubtractVariable,
    MultiplyVariable,
    DivideByVariable,
    MultiplyVariableAddedConstant,
    MultiplyVariableAddConstant,
    AddConstantSquare,
    DivideByConstantExp,
    MultiplyConstantAdd,
    AddVariableMultiplyConstant,
    MultiplyConstantSubtract,
    MultiplyAdd
};

} // namespace curveeditor
