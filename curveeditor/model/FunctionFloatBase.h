// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstddef>
#include <string>

class FunctionFloatBinary;
class FunctionFloatConstant;
class FunctionFloatOperation;
class FunctionFloatTernary;
class FunctionFloatUnary;
class FunctionFloatVariableBool;
class FunctionFloatVariableDouble;
class FunctionFloatVariableFloat;
class FunctionFloatVariableInt;

/// An expression: the root class of the tree that `FunctionParserBase::parseString` gives.
///
/// Whoever keeps a tree owns it and frees it with `delete`; a node owns the nodes below it. A parsed tree
/// does not change. Each node is an expression by itself and can be evaluated alone. A host may derive its
/// own expressions and put them into a curve's holder. Neither this class nor the parser may be used by two
/// threads at once.
class CURVEEDITOR_EXPORT FunctionFloatBase
{
public:
    FunctionFloatBase() = default;
    FunctionFloatBase(const FunctionFloatBase&) = delete;
    FunctionFloatBase& operator=(const FunctionFloatBase&) = delete;

    /// Frees the tree. The depth of the tree costs no stack.
    virtual ~FunctionFloatBase();

    /// What `getString` gives in this class. A leaf holds its number or name here, as it was typed; an
    /// operation its operator or the name of its function.
    std::string text;

    /// @name Kind
    /// @{

    /// Exactly one of these is true for a parsed node: the one of its own class.
    virtual bool isUnary() const;
    virtual bool isBinary() const;
    virtual bool isTernary() const;
    virtual bool isConstant() const;
    virtual bool isVariableBool() const;
    virtual bool isVariableDouble() const;
    virtual bool isVariableFloat() const;
    virtual bool isVariableInt() const;
    /// @}

    /// @name Typed views
    /// @{

    /// This node as its own class, null for every other class.
    virtual const FunctionFloatUnary* getUnaryRef() const;
    virtual const FunctionFloatBinary* getBinaryRef() const;
    virtual const FunctionFloatTernary* getTernaryRef() const;
    virtual const FunctionFloatConstant* getConstantRef() const;
    virtual const FunctionFloatVariableBool* getVariableBoolRef() const;
    virtual const FunctionFloatVariableDouble* getVariableDoubleRef() const;
    virtual const FunctionFloatVariableFloat* getVariableFloatRef() const;
    virtual const FunctionFloatVariableInt* getVariableIntRef() const;
    /// @}

    /// The value with the variables as they are now: to evaluate at a time, set `t` and `f` first (see
    /// `EvaluationTime`). Never fails: where the mathematics give no number, the value is NaN or infinite.
    virtual double evaluate() = 0;

    /// The expression as text, without blanks and with no parenthesis that is not needed. Parsed again, with
    /// the same names known, it gives the same tree, and so the same value at every time. Where a name or a
    /// number would be read as a longer known name even in parentheses, it is written with an operation that
    /// keeps its value: with "a.x" and "a.x)" known, the cosine of a.x is cos((a.x*1)).
    virtual std::string getString();

    /// Evaluates at `count` times: `values[i]` becomes the value with `t` = `times[i]`, in time units, and
    /// `f` = `times[i]` * `framesPerTimeUnit`. `t` and `f` have their old values again afterwards. `values`
    /// may be the same array as `times`, but may not overlap it otherwise.
    ///
    /// This class calls `evaluate` for each time. A parsed expression is much faster than that, and gives
    /// what `evaluate` gives to the last bit in everything but sin, cos, exp, log and `^`: for these, where
    /// the C library has vector functions (glibc on x86-64, built with GCC), each result may lie up to 4
    /// units in the last place from the true one. So a comparison, `ceil`, `floor` or `rnd` of such a result
    /// may fall to the other side where the result is that close to the border. The value does not depend on
    /// the place of its time in the block.
    virtual void evaluateBlock(const double* times, double framesPerTimeUnit, double* values,
                               std::size_t count);

private:
    friend class FunctionFloatOperation;

    virtual const FunctionFloatOperation* asOperation() const;
};
