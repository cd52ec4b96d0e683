// SPDX-License-Identifier: MIT
#include "CurveStore.h"

#include <curveeditor/model/CurveFit.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParseMessage.h>

#include <QStringList>

#include <algorithm>

namespace {

// The name by which expressions read the curve.
std::string variableName(const Curve& curve)
{
    return ParserVarMapper::getStoredName(curve.fullName().toStdString());
}

template <typename Predicate> Curve* findIf(const CurveStore& store, Predicate predicate)
{
    const auto& curves = store.getCurves();
    const auto found =
        std::find_if(curves.begin(), curves.end(), [&](const auto& c) { return predicate(*c); });
    return found == curves.end() ? nullptr : found->get();
}

} // namespace

Curve::~Curve()
{
    delete expression;
}

CurveStore::CurveStore()
{
    FunctionParserBase::instance()->setVarMapper(&variables_);
}

CurveStore::~CurveStore() = default;

Curve* CurveStore::add(const QString& group, const QString& name)
{
    if (find(group, name))
        return nullptr;
    auto curve = std::make_unique<Curve>(group, name);
    byFullName_.insert(curve->fullName(), curve.get());
    variables_.add(variableName(*curve), &curve->spline, &curve->expression);
    curves_.push_back(std::move(curve));
    return curves_.back().get();
}

bool CurveStore::setExpression(Curve& curve, const std::string& text)
{
    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> expression(FunctionParserBase::instance()->parseString(text, message));
    if (!expression || !message.errors.empty())
        return false;
    delete curve.expression;
    curve.expression = expression.release();
    return true;
}

bool CurveStore::rename(Curve& curve, const QString& newName)
{
    if (newName.isEmpty() || find(curve.group, newName))
        return false;
    const std::string oldVariable = variableName(curve);
    byFullName_.remove(curve.fullName());
    curve.name = newName;
    byFullName_.insert(curve.fullName(), &curve);
    forgetVariable(oldVariable);
    variables_.add(variableName(curve), &curve.spline, &curve.expression);
    return true;
}

void CurveStore::remove(Curve& curve)
{
    const auto found =
        std::find_if(curves_.begin(), curves_.end(), [&](const auto& c) { return c.get() == &curve; });
    const std::unique_ptr<Curve> removed = std::move(*found);
    curves_.erase(found);
    byFullName_.remove(removed->fullName());
    forgetVariable(variableName(*removed));
}

Curve* CurveStore::find(const QString& group, const QString& name) const
{
    return byFullName_.value(group + u'.' + name);
}

Curve* CurveStore::findReported(const QString& group, const QString& name) const
{
    if (Curve* curve = find(group, name))
        return curve;
    return findIf(*this, [&](const Curve& curve) {
        const QStringList parts = curve.fullName().split(u'.', Qt::SkipEmptyParts);
        return !parts.isEmpty() && parts.first() == group && parts.last() == name;
    });
}

// Curves whose names differ only in capitals and blanks share a variable; it stays while one of them is left.
void CurveStore::forgetVariable(const std::string& variable)
{
    variables_.remove(variable);
    if (Curve* other = findIf(*this, [&](const Curve& curve) { return variableName(curve) == variable; }))
        variables_.add(variable, &other->spline, &other->expression);
}

bool simplify(Curve& curve, double percent)
{
    const auto& points = curve.spline.getControlPoints();
    const auto [lowest, highest] =
        std::minmax_element(points.begin(), points.end(),
                            [](const auto* left, const auto* right) { return left->pos < right->pos; });
    const double tolerance = ((*highest)->pos - (*lowest)->pos) * percent / 100.0;
    const CurveFit::Result result = CurveFit::simplify(curve.spline, {tolerance, false});
    const bool isFewer = result.isDone() && result.spline.points.size() < points.size();
    return isFewer && !curve.expression && curve.spline.assign(result.spline);
}

double valueAt(const Curve& curve, double time, double fps)
{
    double value = curve.spline(time);
    if (curve.expression)
        curve.expression->evaluateBlock(&time, fps, &value, 1);
    if (value < double(curve.minValue))
        return double(curve.minValue);
    return value > double(curve.maxValue) ? double(curve.maxValue) : value;
}
