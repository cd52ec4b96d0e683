// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatConstant.h>

#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParserVarMapper.h>

#include <algorithm>

FunctionFloatConstant::FunctionFloatConstant(double value, std::string_view typed) : value_(value)
{
    text = typed;
}

FunctionFloatConstant::~FunctionFloatConstant() = default;

std::string_view FunctionFloatConstant::getWritten() const
{
    const ParserVarMapper* const mapper = FunctionParserBase::instance()->getVarMapper();
    return text == pi && mapper && mapper->hasName(pi) ? "3.141592653589793" : std::string_view(text);
}

void FunctionFloatConstant::evaluateBlock(const double*, double, double* values, std::size_t count)
{
    std::fill_n(values, count, value_);
}
