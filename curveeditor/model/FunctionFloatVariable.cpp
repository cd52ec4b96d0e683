// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatVariable.h>

FunctionFloatVariable::FunctionFloatVariable(FunctionParserBase::keyStruct* key, bool mapped)
    : key_(key), mapped_(mapped)
{
    text = key->name;
}

FunctionFloatVariable::~FunctionFloatVariable() = default;

double FunctionFloatVariable::evaluate()
{
    return mapped_ ? FunctionParserBase::instance()->readMapped(*key_) : key_->getValue();
}
