// SPDX-License-Identifier: MIT
#include <curveeditor/model/FormulaSnapshot.h>

#include <curveeditor/model/BlockReading.h>
#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/FunctionFloatConstant.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionFloatVariable.h>

#include <algorithm>
#include <cstdint>
#include <string>

namespace curveeditor {

namespace {

bool isParsed(const FunctionFloatBase& formula)
{
    return FunctionFloatOperation::of(formula) || FunctionFloatVariable::of(formula) ||
           formula.getConstantRef();
}

} // namespace

/// Follows the formula through all curves that it reads.
class FormulaSnapshot::Taker
{
public:
    Taker(FormulaSnapshot& snapshot, const CurveVariables& variables)
        : snapshot_(snapshot), variables_(variables)
    {
    }

    bool take(const FunctionFloatBase& root)
    {
        indexOf(root);
        for (std::size_t i = 0; i < found_.size(); ++i) {
            const FunctionFloatBase& formula = *found_[i];
            if (!isParsed(formula))
                return false;
            const bool isOperation = FunctionFloatOperation::of(formula);
            snapshot_.formulas_.push_back({ExpressionProgram(formula), isOperation});
            const VariableSource* const source = snapshot_.formulas_.back().program.source();
            if (!takeCurves(formula, source ? source->mapper() : nullptr))
                return false;
        }
        return true;
    }

private:
    bool takeCurves(const FunctionFloatBase& formula, const ParserVarMapper* mapper)
    {
        FunctionParserBase& parser = *FunctionParserBase::instance();
        for (const FunctionParserBase::keyStruct* const key : parser.getAllVars(&formula)) {
            const bool isMapped = key != parser.getKey("t") && key != parser.getKey("f");
            if (isMapped && mapper == &variables_ && variables_.holds(key->name)) {
                takeCurve(*key);
            } else if (isMapped && mapper && mapper->hasName(key->name)) {
                return false;
            }
            if (!key->holdsDouble())
                return false;
        }
        return true;
    }

    void takeCurve(const FunctionParserBase::keyStruct& key)
    {
        if (!snapshot_.curveOf_.emplace(&key, snapshot_.curves_.size()).second)
            return;
        Curve& curve = snapshot_.curves_.emplace_back();
        if (const FunctionFloatBase* const formula = variables_.getExpression(key.name)) {
            curve.formula = indexOf(*formula);
        } else {
            curve.spline = variables_.splineSnapshot(key.name);
        }
    }

    /// Among those that are found; it is one of them from now on.
    std::size_t indexOf(const FunctionFloatBase& formula)
    {
        const auto [place, isNew] = indices_.emplace(&formula, found_.size());
        if (isNew)
            found_.push_back(&formula);
        return place->second;
    }

    FormulaSnapshot& snapshot_;
    const CurveVariables& variables_;
    std::vector<const FunctionFloatBase*> found_;
    std::unordered_map<const FunctionFloatBase*, std::size_t> indices_;
};

/// One evaluation of a snapshot. Reads curves in the order in which, and gives 0.0 where, `CurveVariables` does.
class FormulaSnapshot::Reading final : public ExpressionVariables
{
public:
    /// At as many times as `longestBlock` at once.
    Reading(const FormulaSnapshot& snapshot, std::size_t longestBlock)
        : snapshot_(snapshot), states_(snapshot.curves_.size()), isRunning_(snapshot.formulas_.size()),
          rows_(new double[states_.size() * longestBlock]), longestBlock_(longestBlock)
    {
    }

    double value(double at)
    {
        time = at;
        frame = at * snapshot_.framesPerTimeUnit_;
        times_ = &time;
        count_ = 1;
        double result = 0.0;
        evaluateFormula(0, &result);
        return result;
    }
    void evaluate(const double* times, double* values, std::size_t count)
    {
        isBlock_ = true;
        times_ = times;
        count_ = count;
        evaluateFormula(0, values);
    }

    double read(const Key& key) override
    {
        const double* const row = rowOf(key);
        return row ? *row : 0.0;
    }
    void read(const Key& key, const double* times, double* values, std::size_t count) override
    {
        if (depth_ == 0) {
            times_ = times;
            count_ = count;
        }
        if (const double* const row = rowOf(key)) {
            std::copy_n(row + (times - times_), count, values);
        } else {
            std::fill_n(values, count, 0.0);
        }
    }

private:
    struct State
    {
        bool isEvaluating = false;
        std::uint64_t reading = 0; ///< to which the values belong
    };

    /// The values of the curve at all times of the block; null where it gives 0.0.
    const double* rowOf(const Key& key)
    {
        const auto place = snapshot_.curveOf_.find(&key);
        if (place == snapshot_.curveOf_.end())
            return nullptr;
        if (depth_ == 0)
            ++reading_;
        State& state = states_[place->second];
        double* const row = rows_.get() + place->second * longestBlock_;
        if (!state.isEvaluating && state.reading != reading_ && depth_ < CurveVariables::maximumDepth &&
            !isRunning(snapshot_.curves_[place->second])) {
            ++depth_;
            state.isEvaluating = true;
            evaluateCurve(snapshot_.curves_[place->second], row);
            state.isEvaluating = false;
            --depth_;
            state.reading = reading_;
        }
        return state.reading == reading_ ? row : nullptr;
    }

    bool isRunning(const Curve& curve) const { return curve.formula && isRunning_[*curve.formula]; }

    void evaluateCurve(const Curve& curve, double* row)
    {
        if (curve.formula) {
            evaluateFormula(*curve.formula, row);
        } else if (curve.spline) {
            curve.spline->evaluate(times_, row, count_);
        } else {
            std::fill_n(row, count_, 0.0);
        }
    }

    void evaluateFormula(std::size_t index, double* row)
    {
        const Formula& formula = snapshot_.formulas_[index];
        isRunning_[index] = formula.isOperation;
        if (isBlock_) {
            formula.program.runBlock(times_, snapshot_.framesPerTimeUnit_, row, count_, this);
        } else {
            *row = formula.program.run(*this);
        }
        isRunning_[index] = false;
    }

    const FormulaSnapshot& snapshot_;
    std::vector<State> states_;
    std::vector<bool> isRunning_; ///< of the formulas
    std::unique_ptr<double[]> rows_;
    std::size_t longestBlock_;
    bool isBlock_ = false;
    const double* times_ = nullptr; ///< of the block that is read
    std::size_t count_ = 0;
    std::uint64_t reading_ = 0; ///< begins with each variable of the formula itself
    int depth_ = 0;
};

bool FormulaSnapshot::take(const FunctionFloatBase& formula, const CurveVariables& variables)
{
    return Taker(*this, variables).take(formula);
}

double FormulaSnapshot::operator()(double time) const
{
    return Reading(*this, 1).value(time);
}

void FormulaSnapshot::evaluate(const double* times, double* values, std::size_t count) const
{
    Reading(*this, std::min(count, BlockReading::longest)).evaluate(times, values, count);
}

} // namespace curveeditor
