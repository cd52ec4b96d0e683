// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatBinary.h>

FunctionFloatBinary::~FunctionFloatBinary() = default;
