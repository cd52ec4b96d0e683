// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/CurveSnapshot.h>
#include <curveeditor/model/ExpressionProgram.h>

#include <optional>
#include <unordered_map>
#include <vector>

namespace curveeditor {

/// The programs of a formula and of those that it reads, and the snapshots of the splines.
class FormulaSnapshot final : public CurveSnapshot
{
public:
    explicit FormulaSnapshot(double framesPerTimeUnit) : framesPerTimeUnit_(framesPerTimeUnit) {}

    /// False if there is something that no snapshot can be taken of. To be called once, before all else.
    bool take(const FunctionFloatBase& formula, const CurveVariables& variables);

    double operator()(double time) const override;
    void evaluate(const double* times, double* values, std::size_t count) const override;

private:
    class Reading;
    class Taker;

    struct Formula
    {
        ExpressionProgram program;
        bool isOperation; ///< and so gives 0.0 to whoever reads it while it is evaluated
    };
    /// With neither of them it is 0.0.
    struct Curve
    {
        std::shared_ptr<const CurveSnapshot> spline;
        std::optional<std::size_t> formula; ///< its index
    };

    double framesPerTimeUnit_;
    std::vector<Formula> formulas_; ///< the snapshot's own one first
    std::vector<Curve> curves_;
    std::unordered_map<const ExpressionVariables::Key*, std::size_t> curveOf_; ///< index of each that is read
};

} // namespace curveeditor
