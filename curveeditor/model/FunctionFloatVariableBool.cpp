// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatVariableBool.h>

FunctionFloatVariableBool::~FunctionFloatVariableBool() = default;
