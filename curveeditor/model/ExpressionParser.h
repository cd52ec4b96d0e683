// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/ExpressionToken.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace curveeditor {

class VariableSource;

/// Parses one text by operator precedence: values wait on one stack, operators and open parentheses on
/// another, and an operator takes its values when a looser one follows. See Dijkstra's "shunting yard"
/// (1961).
class ExpressionParser
{
public:
    /// Reads `message.text`, which must hold the text, and reports to the rest of `message`, which must be as
    /// new. Both must outlive the parser; without `variables` it knows `t` and `f` alone.
    ExpressionParser(const ParserVarMapper* variables, ParseMessage& message);

    /// The tree, or null if `message` has errors now. May be called once.
    std::unique_ptr<FunctionFloatBase> parse();

private:
    using Node = std::unique_ptr<FunctionFloatBase>;

    struct Pending
    {
        const TokenRule* rule;
        std::size_t offset; // where its parenthesis stands, for those that have one
        std::size_t argumentCount;
    };

    std::string_view rest() const { return text_.substr(position_); }
    std::size_t knownNameLength(std::string_view text) const;
    bool hasOpenGroup() const;
    bool functionFollows(std::size_t length) const;
    void skipBlanks();

    const TokenRule* findSymbol() const;
    void passOperator(std::size_t length);
    void readForValue();
    void readBehindValue();
    void readValue();
    void readNumber(std::size_t length);
    void readFunction(const TokenRule& rule, std::size_t length);
    void readMapped(std::size_t length);
    void readName(std::size_t length);
    void pushConstant(double value, std::string_view typed);
    void pushVariable(FunctionParserBase::keyStruct* key, bool mapped);

    void startOperand();
    void pushInfix(const TokenRule& rule);
    void pushOpen(const TokenRule& rule);
    void separate();
    void close();
    void reduceGroup();
    void reduce();
    Node takeValue();
    void finish();
    void checkWrittenLength(FunctionFloatBase& tree);

    void addError(ParseMessage::Code code, std::size_t offset, std::size_t length);
    void fail(ParseMessage::Code code, std::size_t offset, std::size_t length);

    const ParserVarMapper* variables_;
    std::shared_ptr<VariableSource> source_; // of the variables
    ParseMessage& message_;
    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t lastOperator_;
    std::size_t lastOperatorLength_ = 0;
    bool valueExpected_ = true;
    bool failed_ = false;
    std::vector<Pending> pending_;
    std::vector<Node> values_;
};

} // namespace curveeditor
