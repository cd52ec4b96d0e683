// SPDX-License-Identifier: MIT
#include "Sampling.h"

#include "Fault.h"
#include "TextNumber.h"

#include <curveeditor/files/FormulaFault.h>
#include <curveeditor/model/CurveFit.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParserVarMapper.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double roundingOfCount = 1e-9;

std::unique_ptr<FunctionFloatBase> parse(const std::string& text)
{
    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> formula(FunctionParserBase::instance()->parseString(text, message));
    if (!formula)
        throw Fault(formulaFault(message));
    return formula;
}

/// Knows the names for which a parser asked in vain.
class AskedNames : public ParserVarMapper
{
public:
    explicit AskedNames(const ParseMessage& message)
    {
        for (const auto& [offset, length] : message.errors)
            addName(std::string_view(message.text).substr(offset, length));
        FunctionParserBase::instance()->setVarMapper(this);
    }

    double getValue(const std::string& /*name*/) const override { return 0.0; }
};

} // namespace

TimeSteps::TimeSteps(double from, double to, double step, double size) : from_(from), to_(to), step_(step)
{
    if (!(size <= double(mostSteps)))
        throw UsageFault("these are more than " + std::to_string(mostSteps) + " samples");
    size_ = std::size_t(size);
    if (size_ > 1 && !(at(1) > at(0) && at(size_ - 1) > at(size_ - 2)))
        throw UsageFault("the times from " + toText(from) + " to " + toText(to) +
                         " lie too close together or too far apart");
}

TimeSteps TimeSteps::byCount(double from, double to, double count)
{
    return {from, to, count > 1.0 ? (to - from) / (count - 1.0) : 0.0, count};
}

TimeSteps TimeSteps::byStep(double from, double to, double step)
{
    return {from, to, step, std::floor((to - from) / step + roundingOfCount) + 1.0};
}

double TimeSteps::at(std::size_t index) const
{
    const double time = from_ + double(index) * step_;
    const bool isEnd = index > 0 && index + 1 == size_ && std::abs(time - to_) <= roundingOfCount * step_;
    return isEnd ? to_ : time;
}

CurveValues::CurveValues(const CurveFile& curve, double framesPerTimeUnit)
    : curve_(curve), framesPerTimeUnit_(framesPerTimeUnit)
{
    if (curve.kind == CurveFile::Expression)
        formula_ = parse(curve.expression);
}

void CurveValues::evaluate(const double* times, double* values, std::size_t count) const
{
    if (formula_) {
        formula_->evaluateBlock(times, framesPerTimeUnit_, values, count);
    } else {
        curve_.spline.evaluate(times, values, count);
    }
}

SampleTable CurveValues::sample(const TimeSteps& steps, const std::string& name) const
{
    SampleTable table;
    for (std::size_t i = 0; i < steps.size(); ++i)
        table.times.push_back(steps.at(i));
    table.curves.push_back({name, std::vector<double>(steps.size())});
    evaluate(table.times.data(), table.curves[0].values.data(), steps.size());
    return table;
}

std::vector<std::string> CurveValues::variablesOf(const std::string& formula)
{
    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> tree(FunctionParserBase::instance()->parseString(formula, message));
    if (tree || message.code != ParseMessage::UnknownVariable)
        tree = parse(formula);
    const AskedNames names(message);
    tree = parse(formula);
    std::vector<std::string> variables;
    for (const FunctionParserBase::keyStruct* key : FunctionParserBase::instance()->getAllVars(tree.get()))
        variables.push_back(key->name);
    return variables;
}

SplineState straightLines(const std::vector<double>& times, const std::vector<double>& values)
{
    SplineState state;
    for (std::size_t i = 0; i < times.size(); ++i) {
        SplineBase::PointInfo point;
        point.time = times[i];
        point.pos = values[i];
        point.type = SplineBase::Linear;
        state.points.push_back(point);
    }
    return state;
}

std::pair<double, double> rangeOf(const SplineBase& spline)
{
    double lowest = spline.getFirst()->pos;
    double highest = lowest;
    for (unsigned i = 1; i < spline.getControlPointsNumber(); ++i) {
        const double begin = spline[i - 1]->time;
        const double end = spline[i]->time;
        for (std::size_t j = 0; j <= CurveFit::samplesInSegment; ++j) {
            const double share = double(j) / double(CurveFit::samplesInSegment);
            const double value = spline(begin * (1.0 - share) + end * share);
            lowest = std::min(lowest, value);
            highest = std::max(highest, value);
        }
        for (const double value : {spline[i - 1]->pos, spline[i]->pos}) {
            lowest = std::min(lowest, value);
            highest = std::max(highest, value);
        }
    }
    return {lowest, highest};
}
