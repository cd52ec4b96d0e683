// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatVariableInt.h>

FunctionFloatVariableInt::~FunctionFloatVariableInt() = default;
