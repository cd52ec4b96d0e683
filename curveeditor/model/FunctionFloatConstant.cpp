// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatConstant.h>

#include <curveeditor/model/ParserVarMapper.h>
#include <curveeditor/model/VariableSource.h>

#include <algorithm>

using namespace curveeditor;

FunctionFloatConstant::FunctionFloatConstant(double value, std::string_view typed,
                                             const std::shared_ptr<VariableSource>& source)
    : value_(value), source_(source)
{
    text = typed;
}

FunctionFloatConstant::~FunctionFloatConstant() = default;

std::string_view FunctionFloatConstant::getWritten() const
{
    const ParserVarMapper* const mapper = mapperOf(*this);
    return text == pi && mapper && mapper->hasName(pi) ? "3.141592653589793" : std::string_view(text);
}

void FunctionFloatConstant::evaluateBlock(const double*, double, double* values, std::size_t count)
{
    std::fill_n(values, count, value_);
}
