// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionFloatBase.h>

#include <memory>
#include <string>

class ParserVarMapper;
class ParseMessage;

namespace curveeditor {

class VariableSource;

/// Parses the formulas of one editor, with the variables that its host has set or else with those of the parser.
class FormulaReader
{
public:
    /// Null, and the end of the mapper, bring back those of the parser. The mapper stays the host's.
    void setVariables(const ParserVarMapper* variables);

    /// Null, with the fault in `message`, if the text can't be parsed.
    std::unique_ptr<FunctionFloatBase> read(const std::string& text, ParseMessage& message) const;
    std::unique_ptr<FunctionFloatBase> read(const std::string& text) const;
    /// Whether reading the text of a parsed tree again gives one that reads the same variables.
    bool readsAgain(const FunctionFloatBase& tree, const std::string& text) const;

private:
    std::shared_ptr<const VariableSource> source_;
};

} // namespace curveeditor
