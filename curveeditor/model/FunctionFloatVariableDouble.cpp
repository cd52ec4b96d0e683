// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatVariableDouble.h>

FunctionFloatVariableDouble::~FunctionFloatVariableDouble() = default;
