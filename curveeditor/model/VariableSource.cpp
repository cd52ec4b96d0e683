// SPDX-License-Identifier: MIT
#include <curveeditor/model/VariableSource.h>

#include <curveeditor/model/FunctionFloatConstant.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionFloatVariable.h>
#include <curveeditor/model/ParserVarMapper.h>

#include <algorithm>

namespace curveeditor {

VariableSource::Key& VariableSource::key(std::string_view name, std::int32_t type)
{
    const auto [place, isNew] = variables_.try_emplace(std::string(name));
    Variable& variable = place->second;
    if (isNew) {
        variable.key.name = name;
        variable.key.value = variable.storage;
    }
    variable.key.type = type;
    return variable.key;
}

double VariableSource::read(Key& key) const
{
    key.setValue(mapper_ && mapper_->hasName(key.name) ? mapper_->getValue(key.name) : 0.0);
    return key.getValue();
}

void VariableSource::read(Key& key, const double* times, double framesPerTimeUnit, double* values,
                          std::size_t count) const
{
    if (mapper_ && mapper_->hasName(key.name)) {
        mapper_->getValues(key.name, times, framesPerTimeUnit, values, count);
    } else {
        std::fill_n(values, count, 0.0);
    }
    for (std::size_t i = key.holdsDouble() && count > 0 ? count - 1 : 0; i < count; ++i) {
        key.setValue(values[i]);
        values[i] = key.getValue();
    }
}

const ParserVarMapper* mapperOf(const FunctionFloatBase& tree)
{
    const FunctionFloatBase* leaf = &tree;
    while (const FunctionFloatOperation* const operation = FunctionFloatOperation::of(*leaf))
        leaf = operation->getOperand(0);
    const FunctionFloatVariable* const variable = FunctionFloatVariable::of(*leaf);
    const FunctionFloatConstant* const constant = leaf->getConstantRef();
    const VariableSource* const source = variable   ? variable->getSource().get()
                                         : constant ? constant->getSource().get()
                                                    : nullptr;
    return source && source->mapper() ? source->mapper() : FunctionParserBase::instance()->getVarMapper();
}

} // namespace curveeditor
