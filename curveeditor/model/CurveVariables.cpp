// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveVariables.h>

#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>

#include <bit>

namespace {

bool isSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

} // namespace

CurveVariables::CurveVariables()
    : time_(FunctionParserBase::instance()->getKey("t")), frame_(FunctionParserBase::instance()->getKey("f"))
{
}

CurveVariables::~CurveVariables() = default;

bool CurveVariables::add(const std::string& name, const SplineBase* spline, FunctionFloatBase** expression)
{
    Curve curve;
    curve.spline = spline;
    curve.expression = expression;
    if (name.empty() || !curves_.try_emplace(getStoredName(name), curve).second)
        return false;
    addName(name);
    return true;
}

void CurveVariables::remove(const std::string& name)
{
    curves_.erase(getStoredName(name));
    removeName(name);
}

bool CurveVariables::rename(const std::string& oldName, const std::string& newName)
{
    const auto place = curves_.find(getStoredName(oldName));
    if (place == curves_.end())
        return false;
    if (place->first == getStoredName(newName))
        return true;
    if (!add(newName, place->second.spline, place->second.expression))
        return false;
    remove(oldName);
    return true;
}

double CurveVariables::getValue(const std::string& name) const
{
    auto place = curves_.find(name);
    if (place == curves_.end() && hasName(name))
        place = curves_.find(getStoredName(name));
    if (place == curves_.end() || place->second.evaluating)
        return 0.0;
    if (depth_ == 0)
        ++reading_;
    Curve& curve = place->second;
    if (!isKnownNow(curve) && depth_ < maximumDepth && !isRunning(curve))
        read(curve);
    return isKnownNow(curve) ? curve.value : 0.0;
}

bool CurveVariables::isKnownNow(const Curve& curve) const
{
    return curve.reading == reading_ && isSame(curve.time, time_->getValue()) &&
           isSame(curve.frame, frame_->getValue());
}

bool CurveVariables::isRunning(const Curve& curve)
{
    if (!curve.expression || !*curve.expression)
        return false;
    const FunctionFloatOperation* const operation = FunctionFloatOperation::of(**curve.expression);
    return operation && operation->isRunning();
}

void CurveVariables::read(Curve& curve) const
{
    const double time = time_->getValue();
    ++depth_;
    curve.evaluating = true;
    if (curve.expression && *curve.expression) {
        curve.value = (*curve.expression)->evaluate();
    } else {
        curve.value = curve.spline ? (*curve.spline)(time) : 0.0;
    }
    curve.evaluating = false;
    --depth_;
    curve.reading = reading_;
    curve.time = time;
    curve.frame = frame_->getValue();
}
