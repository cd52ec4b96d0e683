// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionParserBase.h>

#include <curveeditor/model/ExpressionParser.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionFloatVariable.h>
#include <curveeditor/model/ParserVarMapper.h>
#include <curveeditor/model/VariableSource.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>

using namespace curveeditor;

struct FunctionParserBase::Private
{
    VariableSource independent{nullptr};
    keyStruct& time = independent.key("t", 3);
    keyStruct& frame = independent.key("f", 3);
    const ParserVarMapper* varMapper = nullptr;
};

FunctionParserBase::FunctionParserBase() : d_(std::make_unique<Private>()) {}

FunctionParserBase::~FunctionParserBase() = default;

FunctionParserBase* FunctionParserBase::instance()
{
    // Never freed, so that trees and mappers of static life can still reach it at the end of the process.
    static auto* const parser = new FunctionParserBase;
    return parser;
}

FunctionFloatBase* FunctionParserBase::parseString(const std::string& text, ParseMessage& message)
{
    return parseString(text, message, d_->varMapper);
}

FunctionFloatBase* FunctionParserBase::parseString(const std::string& text, ParseMessage& message,
                                                   const ParserVarMapper* variables)
{
    message = ParseMessage();
    message.text = text;
    return ExpressionParser(variables, message).parse().release();
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
    if (stored == "t")
        return &d_->time;
    if (stored == "f")
        return &d_->frame;
    if (!d_->varMapper || !d_->varMapper->hasName(stored))
        return nullptr;
    VariableSource& source = *VariableSource::of(*d_->varMapper);
    keyStruct& key = source.key(stored, d_->varMapper->getType(stored));
    source.read(key);
    return &key;
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

void FunctionParserBase::setVarMapper(const ParserVarMapper* const mapper)
{
    d_->varMapper = mapper;
}

const ParserVarMapper* FunctionParserBase::getVarMapper() const
{
    return d_->varMapper;
}
