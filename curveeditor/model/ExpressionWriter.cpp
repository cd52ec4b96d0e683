// SPDX-License-Identifier: MIT
#include <curveeditor/model/ExpressionWriter.h>

#include <curveeditor/model/ExpressionToken.h>
#include <curveeditor/model/FunctionFloatConstant.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/ParserVarMapper.h>
#include <curveeditor/model/VariableSource.h>

#include <algorithm>
#include <array>

namespace curveeditor {

namespace {

constexpr int tightnessOfValues = 1000;

// What ends a value in parentheses: the first of these with which it is no beginning of a longer name. They
// keep the value to the last bit.
constexpr std::array<std::string_view, 4> guardsOfValues{")", "*1)", "/1.)", "^1e0)"};
// The first argument of a function, or what a comparison stands before, gets parentheses, then a sign instead.
constexpr std::size_t operationGuardCount = 2;

// A guard may hide what stands before it, and so on to the beginning. From then on all is guarded at once.
constexpr int longestChainOfGuards = 8;

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

ExpressionWriter::ExpressionWriter(const FunctionFloatOperation& root) : root_(root), mapper_(mapperOf(root))
{
}

std::string ExpressionWriter::write()
{
    int rounds = 0;
    do {
        text_.clear();
        starts_.clear();
        writeOnce();
    } while (guardHiddenStarts(++rounds > longestChainOfGuards));
    return text_;
}

void ExpressionWriter::writeOnce()
{
    pieces_.push_back({&root_, {}});
    while (!pieces_.empty()) {
        const Piece piece = pieces_.back();
        pieces_.pop_back();
        if (!piece.text.empty()) {
            if (piece.node)
                starts_.push_back({piece.node, text_.size() + piece.text.find_first_of("=!"), 0});
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
    const FunctionFloatConstant* const constant = value.getConstantRef();
    const std::string_view text = constant ? constant->getWritten() : std::string_view(value.text);
    const std::size_t guards = guardsOf(value);
    text_ += guards > 0 ? "(" : "";
    starts_.push_back({&value, text_.size(), text.size()});
    text_ += text;
    if (guards == 0)
        return;
    const std::string_view guard = guardsOfValues[guards - 1];
    if (guards > 1)
        starts_.push_back({&value, text_.size() + 1, guard.size() - 2});
    text_ += guard;
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
        writeInfix(operation, rule);
    }
}

void ExpressionWriter::writeInfix(const FunctionFloatOperation& operation, const TokenRule& rule)
{
    const std::size_t guards = guardsOf(operation);
    const FunctionFloatBase& right = *operation.getOperand(1);
    putOperand(right, guards == 1 || rightNeedsParentheses(rule, right));
    putText(guards == operationGuardCount ? "+" : "");
    pieces_.push_back({rule.text.size() > 1 ? &operation : nullptr, rule.text});
    putOperand(*operation.getOperand(0), leftNeedsParentheses(rule, *operation.getOperand(0)));
}

void ExpressionWriter::writeFunction(const FunctionFloatOperation& operation, const TokenRule& rule)
{
    starts_.push_back({&operation, text_.size(), rule.text.size() + 1}); // with its "("
    text_ += rule.text;
    putText(")");
    for (std::size_t i = rule.operandCount; i-- > 1;) {
        putOperand(*operation.getOperand(i), false);
        putText(",");
    }
    const std::size_t guards = guardsOf(operation);
    putOperand(*operation.getOperand(0), guards == 1);
    putText(guards == operationGuardCount ? "+" : "");
    putText("(");
}

void ExpressionWriter::putText(std::string_view text)
{
    if (!text.empty())
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

std::size_t ExpressionWriter::guardsOf(const FunctionFloatBase& node) const
{
    const auto place = guards_.find(&node);
    return place == guards_.end() ? 0 : place->second;
}

bool ExpressionWriter::isHidden(const Start& start) const
{
    return mapper_ && mapper_->getNameLength(std::string_view(text_).substr(start.offset)) > start.length;
}

bool ExpressionWriter::guardHiddenStarts(bool guardAll)
{
    const auto hidden = [this](const Start& start) {
        return isHidden(start);
    };
    if (std::none_of(starts_.begin(), starts_.end(), hidden))
        return false;
    bool guardedAny = false;
    for (const Start& start : starts_) {
        const std::size_t guards = guardsOf(*start.node);
        const std::size_t most =
            FunctionFloatOperation::of(*start.node) ? operationGuardCount : guardsOfValues.size();
        if (guards < most && (isHidden(start) || (guardAll && guards == 0))) {
            guards_[start.node] = guards + 1;
            guardedAny = true;
        }
    }
    return guardedAny;
}

} // namespace curveeditor
