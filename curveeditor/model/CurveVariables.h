// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParserVarMapper.h>

#include <memory>
#include <string>

class CurveSnapshot;
class FunctionFloatBase;
class SplineBase;

namespace curveeditor {
class FormulaSnapshot;
} // namespace curveeditor

/// Lets expressions read curves. A host keeps one, adds each of its curves once, and sets it with
/// `FunctionParserBase::instance()->setVarMapper(&variables)`. From then on every expression may name any of
/// the curves.
///
/// A curve reads as the value of the expression in its holder, or of its spline while the holder is empty, at
/// the present `t` and `f` and without a clamp range. Nothing is copied: splines and holders stay the host's,
/// and what they hold at the time of reading counts. They must live until the curve is removed.
///
/// Curves that depend on themselves are harmless: a curve that is met again while it is being evaluated gives
/// 0.0, whether it is read here or its parsed expression is evaluated by itself, as for drawing. So does one
/// that lies more than `maximumDepth` curves deep. Within one reading each curve is evaluated once. An
/// expression that is evaluated in blocks reads curves in blocks, each of them as `evaluateBlock` gives it.
class CURVEEDITOR_EXPORT CurveVariables : public ParserVarMapper
{
public:
    /// How many curves may read each other in a chain.
    static constexpr int maximumDepth = 2000;

    CurveVariables();
    ~CurveVariables() override;

    /// Makes a curve known under `name`: group, ".", curve name. It is stored as the lower variable name,
    /// with ASCII letters in lower case and "_" for each blank. Hand the name over as it is: letters beyond
    /// ASCII are matched exactly, so a name that was put in lower case by other means may not be found.
    ///
    /// Several curves may come to one stored name, as "A.x y" and "A.x_y" do: the first one stays, as it does
    /// where the editor looks for circles, and the others are refused until it is removed. So is an empty
    /// name. The result is false then. A curve that gets another spline or holder is removed first. `spline`
    /// and `expression`, the host's holder, may be null.
    bool add(const std::string& name, const SplineBase* spline, FunctionFloatBase** expression);

    /// Forgets the curve that is stored under `name`, whoever added it. Expressions that read it read 0.0
    /// from now on, or another curve that is added under this name. Nothing happens if there is no such
    /// curve.
    void remove(const std::string& name);

    /// The curve `oldName` is known as `newName` from now on. Expressions keep the old name and read 0.0 for
    /// it. Nothing happens, and the result is false, if there is no such curve or another one has the new
    /// name.
    bool rename(const std::string& oldName, const std::string& newName);

    /// The curve's value at the present `t` and `f`; 0.0 for a name that `hasName` does not know.
    double getValue(const std::string& name) const override;
    void getValues(const std::string& name, const double* times, double framesPerTimeUnit, double* values,
                   std::size_t count) const override;

    /// What is in the curve's holder; null for a name that `hasName` does not know.
    const FunctionFloatBase* getExpression(const std::string& name) const override;

private:
    friend class curveeditor::FormulaSnapshot;

    struct Private;

    bool holds(const std::string& name) const;
    std::shared_ptr<const CurveSnapshot> splineSnapshot(const std::string& name) const;

    std::unique_ptr<Private> d_;
};
