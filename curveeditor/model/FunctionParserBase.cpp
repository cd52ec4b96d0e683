// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionParserBase.h>

#include <curveeditor/model/ExpressionParser.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionFloatVariable.h>
#include <curveeditor/model/ParserVarMapper.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>
#include <map>
#include <unordered_set>

using namespace curveeditor;

struct FunctionParserBase::Private
{
    struct Variable
    {
        keyStruct key;
        alignas(double) std::byte storage[sizeof(double)]{};
    };

    std::map<std::string, Variable, std::less<>> keys;
    const ParserVarMapper* varMapper = nullptr;
};

FunctionParserBase::FunctionParserBase() : d_(std::make_unique<Private>())
{
    makeKey("t", 3);
    makeKey("f", 3);
}

FunctionParserBase::~FunctionParserBase() = default;

FunctionParserBase* FunctionParserBase::instance()
{
    // Never freed, so that trees and mappers of static life can still reach it at the end of the process.
    static auto* const parser = new FunctionParserBase;
    return parser;
}

FunctionFloatBase* FunctionParserBase::parseString(const std::string& text, ParseMessage& message)
{
    message = ParseMessage();
    message.text = text;
    return ExpressionParser(*this, message).parse().release();
}

std::int32_t FunctionParserBase::keyStruct::toInt(double v)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(v))
        return 0;
    return static_cast<std::int32_t>(std::clamp(v, double(Limits::min()), double(Limits::max())));
}

FunctionParserBase::keyStruct* FunctionParserBase::getKey(const std::string& name)
{
    const std::string stored = ParserVarMapper::getStoredName(name);
    if (stored == "t" || stored == "f")
        return &d_->keys.find(stored)->second.key;
    if (!d_->varMapper || !d_->varMapper->hasName(stored))
        return nullptr;
    keyStruct* const key = makeKey(stored, d_->varMapper->getType(stored));
    readMapped(*key);
    return key;
}

std::vector<FunctionParserBase::keyStruct*>
FunctionParserBase::getAllVars(const FunctionFloatBase* expression)
{
    std::vector<keyStruct*> keys;
    std::unordered_set<const keyStruct*> seen;
    std::vector<const FunctionFloatBase*> nodes;
    if (expression)
        nodes.push_back(expression);
    while (!nodes.empty()) {
        const FunctionFloatBase& node = *nodes.back();
        nodes.pop_back();
        if (const FunctionFloatOperation* const operation = FunctionFloatOperation::of(node)) {
            for (std::size_t i = operation->getOperandCount(); i-- > 0;)
                nodes.push_back(operation->getOperand(i));
        } else if (const FunctionFloatVariable* const variable = FunctionFloatVariable::of(node)) {
            if (seen.insert(variable->getKey()).second)
                keys.push_back(variable->getKey());
        }
    }
    return keys;
}

FunctionParserBase::keyStruct* FunctionParserBase::makeKey(std::string_view name, std::int32_t type)
{
    const auto [place, isNew] = d_->keys.try_emplace(std::string(name));
    Private::Variable& variable = place->second;
    if (isNew) {
        variable.key.name = name;
        variable.key.value = variable.storage;
    }
    variable.key.type = type;
    return &variable.key;
}

double FunctionParserBase::readMapped(keyStruct& key) const
{
    key.setValue(d_->varMapper && d_->varMapper->hasName(key.name) ? d_->varMapper->getValue(key.name) : 0.0);
    return key.getValue();
}

void FunctionParserBase::readMapped(keyStruct& key, const double* times, double framesPerTimeUnit,
                                    double* values, std::size_t count) const
{
    if (d_->varMapper && d_->varMapper->hasName(key.name)) {
        d_->varMapper->getValues(key.name, times, framesPerTimeUnit, values, count);
    } else {
        std::fill_n(values, count, 0.0);
    }
    for (std::size_t i = key.holdsDouble() && count > 0 ? count - 1 : 0; i < count; ++i) {
        key.setValue(values[i]);
        values[i] = key.getValue();
    }
}

void FunctionParserBase::setVarMapper(const ParserVarMapper* const mapper)
{
    d_->varMapper = mapper;
}

const ParserVarMapper* FunctionParserBase::getVarMapper() const
{
    return d_->varMapper;
}
