// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatConstant.h>

#include <algorithm>

FunctionFloatConstant::FunctionFloatConstant(double value, std::string_view typed) : value_(value)
{
    text = typed;
}

FunctionFloatConstant::~FunctionFloatConstant() = default;

void FunctionFloatConstant::evaluateBlock(const double*, double, double* values, std::size_t count)
{
    std::fill_n(values, count, value_);
}
