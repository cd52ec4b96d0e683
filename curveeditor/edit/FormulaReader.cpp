// SPDX-License-Identifier: MIT
#include <curveeditor/edit/FormulaReader.h>

#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParseMessage.h>
#include <curveeditor/model/VariableSource.h>

namespace curveeditor {

void FormulaReader::setVariables(const ParserVarMapper* variables)
{
    source_ = variables ? VariableSource::of(*variables) : nullptr;
}

std::unique_ptr<FunctionFloatBase> FormulaReader::read(const std::string& text, ParseMessage& message) const
{
    FunctionParserBase& parser = *FunctionParserBase::instance();
    const ParserVarMapper* const own = source_ ? source_->mapper() : nullptr;
    std::unique_ptr<FunctionFloatBase> tree(
        parser.parseString(text, message, own ? own : parser.getVarMapper()));
    return message.errors.empty() ? std::move(tree) : nullptr;
}

std::unique_ptr<FunctionFloatBase> FormulaReader::read(const std::string& text) const
{
    ParseMessage message;
    return read(text, message);
}

bool FormulaReader::readsAgain(const FunctionFloatBase& tree, const std::string& text) const
{
    const std::unique_ptr<FunctionFloatBase> again = read(text);
    FunctionParserBase& parser = *FunctionParserBase::instance();
    const auto variables = parser.getAllVars(&tree);
    return again && (variables.empty() || variables == parser.getAllVars(again.get()));
}

} // namespace curveeditor
