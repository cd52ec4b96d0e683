// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatBase.h>

#include <curveeditor/model/EvaluationTime.h>

FunctionFloatBase::~FunctionFloatBase() = default;

bool FunctionFloatBase::isUnary() const
{
    return false;
}

bool FunctionFloatBase::isBinary() const
{
    return false;
}

bool FunctionFloatBase::isTernary() const
{
    return false;
}

bool FunctionFloatBase::isConstant() const
{
    return false;
}

bool FunctionFloatBase::isVariableBool() const
{
    return false;
}

bool FunctionFloatBase::isVariableDouble() const
{
    return false;
}

bool FunctionFloatBase::isVariableFloat() const
{
    return false;
}

bool FunctionFloatBase::isVariableInt() const
{
    return false;
}

const FunctionFloatUnary* FunctionFloatBase::getUnaryRef() const
{
    return nullptr;
}

const FunctionFloatBinary* FunctionFloatBase::getBinaryRef() const
{
    return nullptr;
}

const FunctionFloatTernary* FunctionFloatBase::getTernaryRef() const
{
    return nullptr;
}

const FunctionFloatConstant* FunctionFloatBase::getConstantRef() const
{
    return nullptr;
}

const FunctionFloatVariableBool* FunctionFloatBase::getVariableBoolRef() const
{
    return nullptr;
}

const FunctionFloatVariableDouble* FunctionFloatBase::getVariableDoubleRef() const
{
    return nullptr;
}

const FunctionFloatVariableFloat* FunctionFloatBase::getVariableFloatRef() const
{
    return nullptr;
}

const FunctionFloatVariableInt* FunctionFloatBase::getVariableIntRef() const
{
    return nullptr;
}

const FunctionFloatOperation* FunctionFloatBase::asOperation() const
{
    return nullptr;
}

std::string FunctionFloatBase::getString()
{
    return text;
}

void FunctionFloatBase::evaluateBlock(const double* times, double framesPerTimeUnit, double* values,
                                      std::size_t count)
{
    EvaluationTime now;
    for (std::size_t i = 0; i < count; ++i) {
        now.set(times[i], framesPerTimeUnit);
        values[i] = evaluate();
    }
}
