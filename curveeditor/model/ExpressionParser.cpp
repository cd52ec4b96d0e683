// SPDX-License-Identifier: MIT
#include <curveeditor/model/ExpressionParser.h>

#include <curveeditor/model/FunctionFloatBinary.h>
#include <curveeditor/model/FunctionFloatConstant.h>
#include <curveeditor/model/FunctionFloatTernary.h>
#include <curveeditor/model/FunctionFloatUnary.h>
#include <curveeditor/model/FunctionFloatVariableBool.h>
#include <curveeditor/model/FunctionFloatVariableDouble.h>
#include <curveeditor/model/FunctionFloatVariableFloat.h>
#include <curveeditor/model/FunctionFloatVariableInt.h>
#include <curveeditor/model/NumberReading.h>
#include <curveeditor/model/ParserVarMapper.h>
#include <curveeditor/model/VariableSource.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <system_error>

namespace curveeditor {

namespace {

constexpr std::size_t usualDepth = 16;
constexpr std::size_t largestGrowth = 8; // of a text that getString writes, at most
constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();

bool isOpen(const TokenRule& rule)
{
    return rule.role == TokenRole::Open || rule.role == TokenRole::Function;
}

bool isIndependent(std::string_view name)
{
    return name.size() == 1 && (toLowerAscii(name[0]) == 't' || toLowerAscii(name[0]) == 'f');
}

bool isPi(std::string_view name)
{
    return name.size() == 2 && toLowerAscii(name[0]) == 'p' && toLowerAscii(name[1]) == 'i';
}

} // namespace

ExpressionParser::ExpressionParser(const ParserVarMapper* variables, ParseMessage& message)
    : variables_(variables), source_(variables ? VariableSource::of(*variables) : nullptr), message_(message),
      text_(message.text), lastOperator_(nowhere)
{
    pending_.reserve(usualDepth);
    values_.reserve(usualDepth);
}

std::unique_ptr<FunctionFloatBase> ExpressionParser::parse()
{
    constexpr std::size_t limit = FunctionParserBase::maximumLength;
    if (text_.size() > limit) {
        fail(ParseMessage::OtherError, limit, text_.size() - limit);
        return nullptr;
    }
    for (skipBlanks(); !failed_ && position_ < text_.size(); skipBlanks()) {
        if (valueExpected_) {
            readForValue();
        } else {
            readBehindValue();
        }
    }
    if (!failed_)
        finish();
    if (!message_.errors.empty())
        return nullptr;
    Node tree = takeValue();
    if (text_.size() > limit / largestGrowth)
        checkWrittenLength(*tree);
    return failed_ ? nullptr : std::move(tree);
}

void ExpressionParser::checkWrittenLength(FunctionFloatBase& tree)
{
    const std::size_t written = tree.getString().size();
    if (written <= FunctionParserBase::maximumLength)
        return;
    const std::size_t excess = std::min(written - FunctionParserBase::maximumLength, text_.size());
    fail(ParseMessage::OtherError, text_.size() - excess, excess);
}

void ExpressionParser::skipBlanks()
{
    while (position_ < text_.size() && isBlank(text_[position_]))
        ++position_;
}

std::size_t ExpressionParser::knownNameLength(std::string_view text) const
{
    return variables_ ? variables_->getNameLength(text) : 0;
}

bool ExpressionParser::hasOpenGroup() const
{
    return std::any_of(pending_.begin(), pending_.end(),
                       [](const Pending& pending) { return isOpen(*pending.rule); });
}

// A comparison of two characters ends where a name begins that is known with the second of them, or with both.
const TokenRule* ExpressionParser::findSymbol() const
{
    if (isNameByte(text_[position_]))
        return nullptr;
    const auto find = valueExpected_ ? findSymbolForValue : findSymbolBehindValue;
    const TokenRule* const rule = find(rest());
    if (!rule || rule->text.size() == 1)
        return rule;
    const TokenRule* const shorter = find(rest().substr(0, 1));
    return knownNameLength(rest().substr(shorter ? 1 : 0)) > 0 ? shorter : rule;
}

void ExpressionParser::passOperator(std::size_t length)
{
    lastOperator_ = position_;
    lastOperatorLength_ = length;
    position_ += length;
}

void ExpressionParser::readForValue()
{
    const TokenRule* const rule = findSymbol();
    if (!rule) {
        readValue();
    } else if (rule->role == TokenRole::Sign) {
        if (rule->operandCount > 0)
            pending_.push_back({rule, position_, 0});
        passOperator(1);
    } else if (rule->role == TokenRole::Open) {
        pushOpen(*rule);
    } else {
        const bool noPartner = rule->role == TokenRole::Close && !hasOpenGroup();
        fail(noPartner ? ParseMessage::UnmatchedParenthesis : ParseMessage::OtherError, position_,
             rule->text.size());
    }
}

void ExpressionParser::readBehindValue()
{
    const TokenRule* const rule = findSymbol();
    if (!rule) {
        readValue();
    } else if (rule->role == TokenRole::Infix) {
        pushInfix(*rule);
        passOperator(rule->text.size());
    } else if (rule->role == TokenRole::Open) {
        pushOpen(*rule);
    } else if (rule->role == TokenRole::Close) {
        close();
    } else {
        separate();
    }
}

void ExpressionParser::readValue()
{
    const std::size_t known = knownNameLength(rest());
    const std::size_t number = numberLength(rest());
    const std::size_t name = number > 0 ? 0 : nameLength(rest());
    const TokenRule* const function = functionFollows(name) ? findFunction(rest().substr(0, name)) : nullptr;
    const bool firmFunction = function && !function->yieldsToNames;
    const bool builtIn = number > 0 || firmFunction || isIndependent(rest().substr(0, name));
    const bool parenthesisFollows = function && rest()[name] == '(';

    if (known > (builtIn ? std::max(number, name) + parenthesisFollows : 0)) {
        readMapped(known);
    } else if (number > 0) {
        readNumber(number);
    } else if (function) {
        readFunction(*function, name);
    } else if (name > 0) {
        readName(name);
    } else {
        fail(ParseMessage::OtherError, position_, 1);
    }
}

bool ExpressionParser::functionFollows(std::size_t length) const
{
    const std::string_view behind = rest().substr(length);
    const auto next = std::find_if_not(behind.begin(), behind.end(), isBlank);
    return length > 0 && next != behind.end() && *next == '(';
}

void ExpressionParser::readNumber(std::size_t length)
{
    if (!valueExpected_) {
        fail(ParseMessage::OtherError, position_, length);
        return;
    }
    const std::string_view typed = rest().substr(0, length);
    double value = 0.0;
    const std::errc error = curveeditor::readNumber(typed.data(), typed.data() + length, value).ec;
    if (error == std::errc::result_out_of_range) {
        fail(ParseMessage::OtherError, position_, length);
        return;
    }
    pushConstant(value, typed);
    position_ += length;
}

void ExpressionParser::readFunction(const TokenRule& rule, std::size_t length)
{
    position_ += length;
    skipBlanks();
    pushOpen(rule);
}

void ExpressionParser::readMapped(std::size_t length)
{
    startOperand();
    const std::string name = ParserVarMapper::getStoredName(rest().substr(0, length));
    std::copy(name.begin(), name.end(), message_.text.begin() + std::ptrdiff_t(position_));
    pushVariable(&source_->key(name, variables_->getType(name)), true);
    position_ += length;
}

void ExpressionParser::readName(std::size_t length)
{
    startOperand();
    const std::string_view name = rest().substr(0, length);
    if (isIndependent(name)) {
        message_.text[position_] = toLowerAscii(name[0]);
        pushVariable(FunctionParserBase::instance()->getKey(std::string(name)), false);
    } else if (isPi(name)) {
        std::copy_n(FunctionFloatConstant::pi.begin(), length,
                    message_.text.begin() + std::ptrdiff_t(position_));
        pushConstant(std::numbers::pi, FunctionFloatConstant::pi);
    } else {
        addError(ParseMessage::UnknownVariable, position_, length);
        pushConstant(0.0, "0");
    }
    position_ += length;
}

void ExpressionParser::pushConstant(double value, std::string_view typed)
{
    values_.emplace_back(new FunctionFloatConstant(value, typed, source_));
    valueExpected_ = false;
}

void ExpressionParser::pushVariable(FunctionParserBase::keyStruct* key, bool mapped)
{
    switch (key->type) {
    case 0:
        values_.emplace_back(new FunctionFloatVariableBool(key, mapped, source_));
        break;
    case 1:
        values_.emplace_back(new FunctionFloatVariableInt(key, mapped, source_));
        break;
    case 2:
        values_.emplace_back(new FunctionFloatVariableFloat(key, mapped, source_));
        break;
    default:
        values_.emplace_back(new FunctionFloatVariableDouble(key, mapped, source_));
    }
    valueExpected_ = false;
}

void ExpressionParser::startOperand()
{
    if (!valueExpected_)
        pushInfix(ruleOf(ExpressionCode::Multiply));
}

void ExpressionParser::pushInfix(const TokenRule& rule)
{
    while (!pending_.empty() && !isOpen(*pending_.back().rule)) {
        const int tightness = pending_.back().rule->tightness;
        if (tightness < rule.tightness || (tightness == rule.tightness && rule.rightToLeft))
            break;
        reduce();
    }
    pending_.push_back({&rule, position_, 0});
    valueExpected_ = true;
}

void ExpressionParser::pushOpen(const TokenRule& rule)
{
    startOperand();
    pending_.push_back({&rule, position_, 0});
    ++position_;
}

void ExpressionParser::separate()
{
    reduceGroup();
    if (pending_.empty() || ++pending_.back().argumentCount >= pending_.back().rule->operandCount) {
        fail(ParseMessage::OtherError, position_, 1);
        return;
    }
    valueExpected_ = true;
    passOperator(1);
}

void ExpressionParser::close()
{
    reduceGroup();
    if (pending_.empty()) {
        fail(ParseMessage::UnmatchedParenthesis, position_, 1);
        return;
    }
    const Pending& group = pending_.back();
    if (group.rule->role == TokenRole::Open) {
        pending_.pop_back();
    } else if (group.argumentCount + 1 < group.rule->operandCount) {
        fail(ParseMessage::OtherError, position_, 1);
    } else {
        reduce();
    }
    ++position_;
}

void ExpressionParser::reduceGroup()
{
    while (!pending_.empty() && !isOpen(*pending_.back().rule))
        reduce();
}

void ExpressionParser::reduce()
{
    const TokenRule& rule = *pending_.back().rule;
    pending_.pop_back();
    FunctionFloatOperation::Operands operands;
    for (std::size_t i = rule.operandCount; i-- > 0;)
        operands[i] = takeValue();
    switch (rule.operandCount) {
    case 1:
        values_.emplace_back(new FunctionFloatUnary(rule.code, rule.text, std::move(operands)));
        break;
    case 2:
        values_.emplace_back(new FunctionFloatBinary(rule.code, rule.text, std::move(operands)));
        break;
    default:
        values_.emplace_back(new FunctionFloatTernary(rule.code, rule.text, std::move(operands)));
    }
}

ExpressionParser::Node ExpressionParser::takeValue()
{
    Node value = std::move(values_.back());
    values_.pop_back();
    return value;
}

void ExpressionParser::finish()
{
    for (const Pending& pending : pending_) {
        if (isOpen(*pending.rule))
            fail(ParseMessage::UnmatchedParenthesis, pending.offset, 1);
    }
    if (failed_)
        return;
    if (!valueExpected_) {
        reduceGroup();
    } else if (lastOperator_ == nowhere) {
        fail(ParseMessage::OtherError, 0, 0);
    } else {
        fail(ParseMessage::OtherError, lastOperator_, lastOperatorLength_);
    }
}

void ExpressionParser::fail(ParseMessage::Code code, std::size_t offset, std::size_t length)
{
    failed_ = true;
    addError(code, offset, length);
}

void ExpressionParser::addError(ParseMessage::Code code, std::size_t offset, std::size_t length)
{
    if (!message_.errors.empty() && message_.code != code)
        return;
    message_.code = code;
    constexpr std::size_t largest = std::numeric_limits<std::uint32_t>::max();
    message_.errors.emplace_back(std::uint32_t(std::min(offset, largest)),
                                 std::uint32_t(std::min(length, largest)));
}

} // namespace curveeditor
