// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ExpressionSampler.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/CurvePainter.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/Truncate.h>
#include <curveeditor/model/BlockReading.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionFloatVariable.h>
#include <curveeditor/model/ParserVarMapper.h>
#include <curveeditor/model/VariableSource.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace curveeditor {

namespace {

constexpr int formulaSamplesPerView = 5000;
constexpr int fewestSamples = 64;
constexpr int mostNodesOfFullView = 16384; // more than any formula that fits into the formula line has
constexpr int mostNodesCounted = formulaSamplesPerView / fewestSamples * mostNodesOfFullView;

using Expressions = std::vector<const FunctionFloatBase*>;

/// Another curve's expression that `node` reads, null if it reads none.
const FunctionFloatBase* expressionRead(const FunctionFloatBase& node)
{
    const FunctionFloatVariable* const variable = FunctionFloatVariable::of(node);
    const ParserVarMapper* const mapper =
        variable && variable->isMapped() ? variable->getSource()->mapper() : nullptr;
    return mapper ? mapper->getExpression(variable->getKey()->name) : nullptr;
}

/// The nodes of `root`. Adds to `read` the expressions that it reads, each as often as it is read.
int countNodes(const FunctionFloatBase& root, Expressions& read)
{
    int count = 0;
    Expressions pending = {&root};
    while (!pending.empty()) {
        const FunctionFloatBase& node = *pending.back();
        const FunctionFloatOperation* const operation = FunctionFloatOperation::of(node);
        pending.pop_back();
        ++count;
        for (std::size_t i = 0; operation && i < operation->getOperandCount(); ++i)
            pending.push_back(operation->getOperand(i));
        if (const FunctionFloatBase* const other = operation ? nullptr : expressionRead(node))
            read.push_back(other);
    }
    return count;
}

/// The nodes of these and of all that they read, each once, as they are evaluated in one reading. Stops where they
/// are more than `mostNodesCounted`.
int countNodesOfReading(Expressions pending)
{
    int count = 0;
    std::unordered_set<const FunctionFloatBase*> seen;
    while (!pending.empty() && count < mostNodesCounted) {
        const FunctionFloatBase& expression = *pending.back();
        pending.pop_back();
        if (seen.insert(&expression).second)
            count += countNodes(expression, pending);
    }
    return count;
}

/// Few numbers come out, so that most curves are sampled at the same times.
int intervalsOf(const FunctionFloatBase& expression)
{
    Expressions readings;
    std::int64_t nodes = countNodes(expression, readings);
    std::unordered_map<const FunctionFloatBase*, int> known;
    for (std::size_t i = 0; i < readings.size() && nodes < mostNodesCounted; ++i) {
        const auto [place, isNew] = known.try_emplace(readings[i], 0);
        if (isNew)
            place->second = countNodesOfReading({readings[i]});
        nodes += place->second;
    }
    if (nodes <= mostNodesOfFullView)
        return formulaSamplesPerView;
    const auto most = unsigned(std::int64_t(formulaSamplesPerView) * mostNodesOfFullView / nodes);
    return std::max(fewestSamples, int(std::bit_floor(most + 1)) - 1);
}

/// The samples of a curve, of which a line is made when all are there.
class SampledCurve
{
public:
    SampledCurve(CurveNodeBase* curve, const DeviceLine& empty) : curve_(curve), line_(empty) {}

    void reserve(std::size_t count) { values_.reserve(count); }
    void add(const double* times, double framesPerTimeUnit, std::size_t count)
    {
        const std::size_t done = values_.size();
        values_.resize(done + count);
        curve_->getExpression()->evaluateBlock(times, framesPerTimeUnit, &values_[done], count);
    }
    void finish(const std::vector<int>& columns, const PlaneMapping& view)
    {
        AxisRange range = AxisRange::nothing();
        for (double& value : values_) {
            if (!std::isfinite(value))
                continue;
            value = curve_->clamped(value);
            range.include(value);
        }
        curve_->updateScale(range);
        makeLine(columns, curve_->planeIn(view));
        curve_->setExpressionLine(std::move(line_));
    }

private:
    void makeLine(const std::vector<int>& columns, const PlaneMapping& plane)
    {
        line_.points.reserve(qsizetype(values_.size()));
        bool isJoined = true;
        for (std::size_t i = 0; i < values_.size(); ++i) {
            const bool isFinite = std::isfinite(values_[i]);
            if (isFinite) {
                if (!isJoined)
                    line_.gaps.push_back(int(line_.points.size()));
                line_.points.append(QPoint(columns[i], line_.rowOf(values_[i], plane)));
            }
            isJoined = isFinite;
        }
    }

    CurveNodeBase* curve_;
    DeviceLine line_;
    std::vector<double> values_;
};

/// Leaves curves without samples where nothing can be shown.
void sampleTogether(std::vector<SampledCurve>& curves, int intervals, const PlaneMapping& view,
                    double framesPerTimeUnit)
{
    // Wide gaps reach the end.
    const auto most = std::size_t(intervals < formulaSamplesPerView ? intervals + 1 : intervals);
    const std::size_t count = view.canShow() ? most : 0;
    const double step = view.timeSpan() / intervals;
    const double xScale = view.pixelWidth * (1.0 / intervals);
    std::vector<double> times(count);
    std::vector<int> columns(count);
    for (std::size_t i = 0; i < count; ++i) {
        times[i] = double(i) * step + view.timeMin;
        columns[i] = truncateToInt(double(i) * xScale);
    }
    for (SampledCurve& curve : curves)
        curve.reserve(count);
    for (std::size_t done = 0; done < count; done += BlockReading::longest) {
        const std::size_t length = std::min(count - done, BlockReading::longest);
        const BlockReading reading(&times[done], framesPerTimeUnit, length);
        for (SampledCurve& curve : curves)
            curve.add(&times[done], framesPerTimeUnit, length);
    }
    for (SampledCurve& curve : curves)
        curve.finish(columns, view);
}

} // namespace

void ExpressionSampler::sample(const std::vector<CurveNodeBase*>& curves, const ViewPort& viewport,
                               const CurveEditorTheme& theme)
{
    const DeviceLine empty = DeviceLine::in(theme, viewport.pixelRatio);
    const PlaneMapping view = viewport.deviceMapping(empty.scale);
    Expressions expressions;
    for (const CurveNodeBase* const curve : curves)
        expressions.push_back(curve->getExpression());
    const bool isFullView = countNodesOfReading(expressions) <= mostNodesOfFullView;
    std::map<int, std::vector<SampledCurve>> groups; // by the number of intervals
    for (CurveNodeBase* const curve : curves)
        groups[isFullView ? formulaSamplesPerView : intervalsOf(*curve->getExpression())].emplace_back(curve,
                                                                                                       empty);
    for (auto& [intervals, group] : groups)
        sampleTogether(group, intervals, view, viewport.fps);
}

} // namespace curveeditor
