// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatVariable.h>

#include <curveeditor/model/FunctionFloatVariableBool.h>
#include <curveeditor/model/FunctionFloatVariableDouble.h>
#include <curveeditor/model/FunctionFloatVariableFloat.h>
#include <curveeditor/model/FunctionFloatVariableInt.h>
#include <curveeditor/model/VariableSource.h>

using namespace curveeditor;

FunctionFloatVariable::FunctionFloatVariable(FunctionParserBase::keyStruct* key, bool mapped,
                                             const std::shared_ptr<VariableSource>& source)
    : key_(key), mapped_(mapped), source_(source)
{
    text = key->name;
}

FunctionFloatVariable::~FunctionFloatVariable() = default;

const FunctionFloatVariable* FunctionFloatVariable::of(const FunctionFloatBase& node)
{
    if (const FunctionFloatVariableDouble* const variable = node.getVariableDoubleRef())
        return variable;
    if (const FunctionFloatVariableFloat* const variable = node.getVariableFloatRef())
        return variable;
    if (const FunctionFloatVariableInt* const variable = node.getVariableIntRef())
        return variable;
    return node.getVariableBoolRef();
}

double FunctionFloatVariable::evaluate()
{
    return mapped_ ? source_->read(*key_) : key_->getValue();
}

void FunctionFloatVariable::evaluateBlock(const double* times, double framesPerTimeUnit, double* values,
                                          std::size_t count)
{
    if (mapped_) {
        source_->read(*key_, times, framesPerTimeUnit, values, count);
    } else {
        FunctionFloatBase::evaluateBlock(times, framesPerTimeUnit, values, count);
    }
}
