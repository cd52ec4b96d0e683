// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatVariableFloat.h>

FunctionFloatVariableFloat::~FunctionFloatVariableFloat() = default;
