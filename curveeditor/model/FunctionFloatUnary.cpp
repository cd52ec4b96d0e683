// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatUnary.h>

FunctionFloatUnary::~FunctionFloatUnary() = default;
