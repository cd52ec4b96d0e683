// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveVariables.h>

#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>

#include <bit>
#include <cstdint>
#include <functional>
#include <map>

namespace {

bool isSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

struct Curve
{
    const SplineBase* spline = nullptr;
    FunctionFloatBase** expression = nullptr;
    bool evaluating = false;

    // The last value, and when it was read.
    double value = 0.0;
    std::uint64_t reading = 0;
    double time = 0.0;
    double frame = 0.0;
};

bool isRunning(const Curve& curve)
{
    if (!curve.expression || !*curve.expression)
        return false;
    const FunctionFloatOperation* const operation = FunctionFloatOperation::of(**curve.expression);
    return operation && operation->isRunning();
}

} // namespace

struct CurveVariables::Private
{
    bool isKnownNow(const Curve& curve) const;
    void read(Curve& curve);

    // A reading begins with a curve that no other curve reads.
    std::map<std::string, Curve, std::less<>> curves;
    std::uint64_t reading = 0;
    int depth = 0;
    FunctionParserBase::keyStruct* time = FunctionParserBase::instance()->getKey("t");
    FunctionParserBase::keyStruct* frame = FunctionParserBase::instance()->getKey("f");
};

CurveVariables::CurveVariables() : d_(std::make_unique<Private>()) {}

CurveVariables::~CurveVariables() = default;

bool CurveVariables::add(const std::string& name, const SplineBase* spline, FunctionFloatBase** expression)
{
    Curve curve;
    curve.spline = spline;
    curve.expression = expression;
    if (name.empty() || !d_->curves.try_emplace(getStoredName(name), curve).second)
        return false;
    addName(name);
    return true;
}

void CurveVariables::remove(const std::string& name)
{
    d_->curves.erase(getStoredName(name));
    removeName(name);
}

bool CurveVariables::rename(const std::string& oldName, const std::string& newName)
{
    const auto place = d_->curves.find(getStoredName(oldName));
    if (place == d_->curves.end())
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
    auto place = d_->curves.find(name);
    if (place == d_->curves.end() && hasName(name))
        place = d_->curves.find(getStoredName(name));
    if (place == d_->curves.end() || place->second.evaluating)
        return 0.0;
    if (d_->depth == 0)
        ++d_->reading;
    Curve& curve = place->second;
    if (!d_->isKnownNow(curve) && d_->depth < maximumDepth && !isRunning(curve))
        d_->read(curve);
    return d_->isKnownNow(curve) ? curve.value : 0.0;
}

bool CurveVariables::Private::isKnownNow(const Curve& curve) const
{
    return curve.reading == reading && isSame(curve.time, time->getValue()) &&
           isSame(curve.frame, frame->getValue());
}

void CurveVariables::Private::read(Curve& curve)
{
    const double now = time->getValue();
    ++depth;
    curve.evaluating = true;
    if (curve.expression && *curve.expression) {
        curve.value = (*curve.expression)->evaluate();
    } else {
        curve.value = curve.spline ? (*curve.spline)(now) : 0.0;
    }
    curve.evaluating = false;
    --depth;
    curve.reading = reading;
    curve.time = now;
    curve.frame = frame->getValue();
}
