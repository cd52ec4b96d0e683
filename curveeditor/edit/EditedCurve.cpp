// SPDX-License-Identifier: MIT
#include <curveeditor/edit/EditedCurve.h>

#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParseMessage.h>

#include <functional>

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
    if (spline_)
        state.spline = spline_->state();
    state.kind = kind_;
    state.formula = formula();
    return state;
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
    delete *variable_;
    entered_ = text;
    enteredResult_ = newExpression ? newExpression->getString() : std::string();
    *variable_ = newExpression.release();
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
    if (state.formula != formula()) {
        ParseMessage message;
        std::unique_ptr<FunctionFloatBase> parsed;
        if (!state.formula.empty())
            parsed.reset(FunctionParserBase::instance()->parseString(state.formula, message));
        if (!message.errors.empty() || (!state.formula.empty() && !parsed))
            return false;
        setExpression(std::move(parsed), state.formula);
    }
    if (spline_)
        spline_->assign(state.spline);
    kind_ = state.kind;
    return true;
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
}
