// SPDX-License-Identifier: MIT
#include <curveeditor/edit/EditedCurve.h>

#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParseMessage.h>

#include <algorithm>
#include <functional>

namespace {

constexpr std::size_t mostRetired = 16;

} // namespace

EditedCurve::EditedCurve(const QString& fullName, SplineBase* hostSpline, FunctionFloatBase** hostVariable)
    : name(fullName), spline_(hostSpline), variable_(hostVariable),
      kind_(expression() ? CurveKind::Expression : CurveKind::Spline)
{
}

std::string EditedCurve::formula() const
{
    FunctionFloatBase* const present = expression();
    if (!present)
        return {};
    const std::string text = present->getString();
    return text == enteredResult_ ? entered_ : text;
}

CurveState EditedCurve::state() const
{
    CurveState state;
    copyTo(state);
    return state;
}

void EditedCurve::copyTo(CurveState& state) const
{
    if (spline_)
        spline_->copyTo(state.spline);
    state.kind = kind_;
    state.formula = formula();
}

std::uint64_t EditedCurve::fingerprint() const
{
    const std::uint64_t points = spline_ ? fingerprintOf(*spline_) : 0;
    return points ^ std::hash<std::string>()(formula());
}

void EditedCurve::mend()
{
    if (spline_)
        spline_->mend();
}

void EditedCurve::setExpression(std::unique_ptr<FunctionFloatBase> newExpression, const std::string& text)
{
    if (!variable_)
        return;
    if (*variable_)
        retired_.emplace_back(formula(), std::unique_ptr<FunctionFloatBase>(*variable_));
    if (retired_.size() > mostRetired)
        retired_.erase(retired_.begin());
    entered_ = text;
    enteredResult_ = newExpression ? newExpression->getString() : std::string();
    *variable_ = newExpression.release();
}

bool EditedCurve::tryOut(FunctionFloatBase& expression, const std::function<bool()>& work) const
{
    if (!variable_)
        return work();
    FunctionFloatBase* const present = std::exchange(*variable_, &expression);
    const bool found = work();
    *variable_ = present;
    return found;
}

void EditedCurve::reset(double value)
{
    kind_ = CurveKind::Spline;
    setExpression(nullptr, {});
    if (!spline_)
        return;
    spline_->reset();
    spline_->setPos(spline_->modify(0), value);
}

bool EditedCurve::restore(const CurveState& state)
{
    const bool changesFormula = state.formula != formula();
    std::unique_ptr<FunctionFloatBase> tree = changesFormula ? expressionOf(state.formula) : nullptr;
    if (changesFormula && !tree && !state.formula.empty())
        return false;
    if (spline_ && !spline_->assign(state.spline))
        return false;
    if (changesFormula)
        setExpression(std::move(tree), state.formula);
    kind_ = state.kind;
    return true;
}

std::unique_ptr<FunctionFloatBase> EditedCurve::expressionOf(const std::string& text)
{
    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> parsed;
    if (!text.empty())
        parsed.reset(FunctionParserBase::instance()->parseString(text, message));
    if (parsed && message.errors.empty())
        return parsed;
    const auto kept = std::find_if(retired_.begin(), retired_.end(),
                                   [&](const auto& entry) { return entry.first == text; });
    if (kept == retired_.end())
        return nullptr;
    std::unique_ptr<FunctionFloatBase> tree = std::move(kept->second);
    retired_.erase(kept);
    return tree;
}

bool EditedCurve::read(std::istream& in)
{
    CurveFile::Kind kind = CurveFile::Spline;
    if (!CurveFile::readKind(in, kind))
        return false;
    return kind == CurveFile::Spline ? readSpline(in) : readExpression(in);
}

bool EditedCurve::readSpline(std::istream& in)
{
    if (!spline_ || !CurveFile::readSpline(in, *spline_))
        return false;
    kind_ = CurveKind::Spline;
    return true;
}

bool EditedCurve::readExpression(std::istream& in)
{
    std::string text;
    if (!variable_ || !CurveFile::readExpression(in, text))
        return false;
    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> parsed(FunctionParserBase::instance()->parseString(text, message));
    if (!parsed || !message.errors.empty())
        return false;
    setExpression(std::move(parsed), text);
    kind_ = CurveKind::Expression;
    return true;
}

void EditedCurve::letGo()
{
    spline_ = nullptr;
    variable_ = nullptr;
    retired_.clear();
}
