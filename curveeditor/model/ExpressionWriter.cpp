// SPDX-License-Identifier: MIT
#include <curveeditor/model/ExpressionWriter.h>

#include <curveeditor/model/ExpressionToken.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParserVarMapper.h>

namespace {

constexpr int tightnessOfValues = 1000;

int tightnessOf(const FunctionFloatBase& node)
{
    const FunctionFloatOperation* const operation = FunctionFloatOperation::of(node);
    const TokenRule* const rule = operation ? &ruleOf(operation->getCode()) : nullptr;
    return rule && rule->role != TokenRole::Function ? rule->tightness : tightnessOfValues;
}

bool isSigned(const FunctionFloatBase& node)
{
    const FunctionFloatOperation* const operation = FunctionFloatOperation::of(node);
    return operation && operation->getCode() == ExpressionCode::Negate;
}

bool leftNeedsParentheses(const TokenRule& rule, const FunctionFloatBase& operand)
{
    const int tightness = tightnessOf(operand);
    return tightness < rule.tightness || (tightness == rule.tightness && rule.rightToLeft);
}

// A sign may stand behind any operator, and reaches as far there as it would at the beginning.
bool rightNeedsParentheses(const TokenRule& rule, const FunctionFloatBase& operand)
{
    const int tightness = tightnessOf(operand);
    return !isSigned(operand) &&
           (tightness < rule.tightness || (tightness == rule.tightness && !rule.rightToLeft));
}

} // namespace

ExpressionWriter::ExpressionWriter(const FunctionFloatOperation& root) : root_(root) {}

std::string ExpressionWriter::write()
{
    do {
        text_.clear();
        starts_.clear();
        writeOnce();
    } while (guardHiddenStarts());
    return text_;
}

void ExpressionWriter::writeOnce()
{
    pieces_.push_back({&root_, {}});
    while (!pieces_.empty()) {
        const Piece piece = pieces_.back();
        pieces_.pop_back();
        if (!piece.node) {
            text_ += piece.text;
        } else if (const FunctionFloatOperation* const operation = FunctionFloatOperation::of(*piece.node)) {
            writeOperation(*operation);
        } else {
            writeValue(*piece.node);
        }
    }
}

void ExpressionWriter::writeValue(const FunctionFloatBase& value)
{
    const bool guarded = guarded_.count(&value) > 0;
    text_ += guarded ? "(" : "";
    starts_.push_back({&value, text_.size(), value.text.size()});
    text_ += value.text;
    text_ += guarded ? ")" : "";
}

void ExpressionWriter::writeOperation(const FunctionFloatOperation& operation)
{
    const TokenRule& rule = ruleOf(operation.getCode());
    if (rule.role == TokenRole::Function) {
        writeFunction(operation, rule);
    } else if (rule.role == TokenRole::Sign) {
        text_ += rule.text;
        putOperand(*operation.getOperand(0), tightnessOf(*operation.getOperand(0)) < rule.tightness);
    } else {
        putOperand(*operation.getOperand(1), rightNeedsParentheses(rule, *operation.getOperand(1)));
        putText(rule.text);
        putOperand(*operation.getOperand(0), leftNeedsParentheses(rule, *operation.getOperand(0)));
    }
}

void ExpressionWriter::writeFunction(const FunctionFloatOperation& operation, const TokenRule& rule)
{
    starts_.push_back({&operation, text_.size(), rule.text.size()});
    text_ += rule.text;
    putText(")");
    for (std::size_t i = rule.operandCount; i-- > 1;) {
        putOperand(*operation.getOperand(i), false);
        putText(",");
    }
    putOperand(*operation.getOperand(0), guarded_.count(&operation) > 0);
    putText("(");
}

void ExpressionWriter::putText(std::string_view text)
{
    pieces_.push_back({nullptr, text});
}

void ExpressionWriter::putOperand(const FunctionFloatBase& operand, bool inParentheses)
{
    if (inParentheses)
        putText(")");
    pieces_.push_back({&operand, {}});
    if (inParentheses)
        putText("(");
}

bool ExpressionWriter::guardHiddenStarts()
{
    const ParserVarMapper* const mapper = FunctionParserBase::instance()->getVarMapper();
    bool guardedAny = false;
    for (const Start& start : starts_) {
        const std::string_view rest = std::string_view(text_).substr(start.offset);
        if (mapper && mapper->getNameLength(rest) > start.length)
            guardedAny = guarded_.insert(start.node).second || guardedAny;
    }
    return guardedAny;
}
