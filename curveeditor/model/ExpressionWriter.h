// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class FunctionFloatBase;
class FunctionFloatOperation;
class ParserVarMapper;

namespace curveeditor {

struct TokenRule;

/// Writes a tree as text that the parser reads back as the same tree; see `FunctionFloatBase::getString`.
class ExpressionWriter
{
public:
    explicit ExpressionWriter(const FunctionFloatOperation& root);

    std::string write();

private:
    struct Piece
    {
        const FunctionFloatBase* node; // null for a mere piece of text
        std::string_view text;         // with a node, its sign, which names may hide
    };
    struct Start
    {
        const FunctionFloatBase* node;
        std::size_t offset;
        std::size_t length;
    };

    void writeOnce();
    void writeValue(const FunctionFloatBase& value);
    void writeOperation(const FunctionFloatOperation& operation);
    void writeInfix(const FunctionFloatOperation& operation, const TokenRule& rule);
    void writeFunction(const FunctionFloatOperation& operation, const TokenRule& rule);

    // What is put last is written first.
    void putText(std::string_view text);
    void putOperand(const FunctionFloatBase& operand, bool inParentheses);

    // Finds values, functions and comparisons that would be read as a longer known name, together with what follows them:
    // with "a.x" and "a.x-2" known, the difference of a.x and 2 is written (a.x)-2. Each gets its next guard,
    // and if `guardAll` then so does all that has none. Returns true if there are new ones.
    bool guardHiddenStarts(bool guardAll);
    bool isHidden(const Start& start) const;
    std::size_t guardsOf(const FunctionFloatBase& node) const;

    const FunctionFloatOperation& root_;
    const ParserVarMapper* mapper_;
    std::string text_;
    std::vector<Piece> pieces_;
    std::vector<Start> starts_;
    std::unordered_map<const FunctionFloatBase*, std::size_t> guards_;
};

} // namespace curveeditor
