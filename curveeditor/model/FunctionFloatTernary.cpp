// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatTernary.h>

FunctionFloatTernary::~FunctionFloatTernary() = default;
