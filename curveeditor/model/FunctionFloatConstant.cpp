// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatConstant.h>

#include <curveeditor/model/NodeMemory.h>

#include <algorithm>

FunctionFloatConstant::FunctionFloatConstant(double value, std::string_view typed) : value_(value)
{
    text = typed;
}

FunctionFloatConstant::~FunctionFloatConstant() = default;

void* FunctionFloatConstant::operator new(std::size_t size)
{
    return NodeMemory::take(size);
}

void FunctionFloatConstant::operator delete(void* memory, std::size_t size)
{
    NodeMemory::give(memory, size);
}

void FunctionFloatConstant::evaluateBlock(const double*, double, double* values, std::size_t count)
{
    std::fill_n(values, count, value_);
}
