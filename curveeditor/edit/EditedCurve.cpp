// SPDX-License-Identifier: MIT
#include <curveeditor/edit/EditedCurve.h>

#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/files/CurveFile.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace curveeditor {

namespace {

constexpr std::size_t mostRetired = 16;

} // namespace

EditedCurve::EditedCurve(const QString& fullName, SplineBase* hostSpline, FunctionFloatBase** hostVariable,
                         std::shared_ptr<const EditorSettings> settings)
    : name(fullName), spline_(hostSpline), variable_(hostVariable),
      kind_(expression() ? CurveKind::Expression : CurveKind::Spline), settings_(std::move(settings))
{
}

bool EditedCurve::offers(std::int32_t type) const
{
    const bool isChosen = !options.types.empty() || type != SplineBase::Hold || settings_->offersHold;
    return isChosen && PointLimits::allow(options, type);
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
    return points + std::hash<std::string>()(formula());
}

void EditedCurve::mend()
{
    if (spline_)
        spline_->mend();
}

void EditedCurve::showSpline(bool dropsExpression)
{
    kind_ = CurveKind::Spline;
    if (dropsExpression)
        setExpression(nullptr, {});
}

void EditedCurve::setExpression(std::unique_ptr<FunctionFloatBase> newExpression, const std::string& text)
{
    if (!variable_)
        return;
    std::string oldText = formula();
    const bool retires = *variable_ && !settings_->formulas.readsAgain(**variable_, oldText);
    std::unique_ptr<FunctionFloatBase> old(std::exchange(*variable_, newExpression.release()));
    entered_ = text;
    enteredResult_ = *variable_ ? (*variable_)->getString() : std::string();
    if (retires)
        retired_.emplace_back(std::move(oldText), std::move(old));
    if (retired_.size() > mostRetired)
        retired_.erase(retired_.begin());
}

std::vector<std::string> EditedCurve::forgetRetired()
{
    std::vector<std::string> lost;
    for (const auto& entry : std::exchange(retired_, {}))
        lost.push_back(entry.first);
    return lost;
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
    SplineState state = spline_->state();
    state.points.assign(1, {});
    state.points.front().pos = std::isfinite(value) ? value : 0.0;
    spline_->assign(state); // the point stays if it is this one already
}

bool EditedCurve::restore(const CurveState& state)
{
    return restoreFormula(state.formula, state.kind,
                          [&] { return !spline_ || spline_->assign(state.spline); });
}

bool EditedCurve::isAt(const CurveDiff& diff) const
{
    const bool changesFormula = diff.formulaBefore() != diff.formulaAfter();
    return kind_ == diff.kindBefore() && (!changesFormula || formula() == diff.formulaBefore());
}

bool EditedCurve::step(const CurveDiff& diff, bool stepsSpline)
{
    const bool changesFormula = diff.formulaBefore() != diff.formulaAfter();
    return restoreFormula(changesFormula ? diff.formulaAfter() : formula(), diff.kindAfter(),
                          [&] { return !spline_ || !stepsSpline || diff.apply(*spline_); });
}

/// Does all or nothing: `restoreSpline` says whether the spline is as it shall be now.
bool EditedCurve::restoreFormula(const std::string& text, CurveKind kind,
                                 const std::function<bool()>& restoreSpline)
{
    const bool changesFormula = text != formula();
    std::unique_ptr<FunctionFloatBase> tree = changesFormula ? expressionOf(text) : nullptr;
    if ((changesFormula && !tree && !text.empty()) || !restoreSpline())
        return false;
    if (changesFormula)
        setExpression(std::move(tree), text);
    kind_ = kind;
    return true;
}

std::unique_ptr<FunctionFloatBase> EditedCurve::expressionOf(const std::string& text)
{
    const auto kept = std::find_if(retired_.begin(), retired_.end(),
                                   [&](const auto& entry) { return entry.first == text; });
    if (kept == retired_.end())
        return settings_->formulas.read(text);
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
    std::unique_ptr<FunctionFloatBase> parsed = settings_->formulas.read(text);
    if (!parsed)
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

} // namespace curveeditor
