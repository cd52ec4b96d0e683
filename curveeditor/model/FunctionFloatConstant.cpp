// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatConstant.h>

#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/NodeMemory.h>
#include <curveeditor/model/ParserVarMapper.h>

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

std::string_view FunctionFloatConstant::getWritten() const
{
    const ParserVarMapper* const mapper = FunctionParserBase::instance()->getVarMapper();
    return text == pi && mapper && mapper->hasName(pi) ? "3.141592653589793" : std::string_view(text);
}

void FunctionFloatConstant::evaluateBlock(const double*, double, double* values, std::size_t count)
{
    std::fill_n(values, count, value_);
}
