// SPDX-License-Identifier: MIT
#pragma once

#include "SampleTable.h"

#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/SplineState.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Times at equal distances, each later than the one before it.
class TimeSteps
{
public:
    static constexpr std::size_t mostSteps = 10'000'000;

    /// `count` times, both ends among them; one time is `from` alone. Throws a `UsageFault` for times that can't
    /// be told apart, and for too many.
    static TimeSteps byCount(double from, double to, double count);
    /// `from`, and as many steps more as lead up to `to`.
    static TimeSteps byStep(double from, double to, double step);

    std::size_t size() const { return size_; }
    double at(std::size_t index) const;

private:
    TimeSteps(double from, double to, double step, double size);

    double from_, to_, step_;
    std::size_t size_;
};

/// The values of a curve, be it a spline or a formula of `t` and `f`.
class CurveValues
{
public:
    /// `curve` outlives this. Throws a `Fault` for a formula that can't be evaluated.
    CurveValues(const CurveFile& curve, double framesPerTimeUnit);

    /// Not-a-number, or infinite, where a formula has no value.
    void evaluate(const double* times, double* values, std::size_t count) const;
    SampleTable sample(const TimeSteps& steps, const std::string& name) const;

    /// The names of the variables that a formula reads, those that only its host knows among them.
    static std::vector<std::string> variablesOf(const std::string& formula);

private:
    const CurveFile& curve_;
    double framesPerTimeUnit_;
    std::unique_ptr<FunctionFloatBase> formula_;
};

/// A point at each time, with straight lines between. `times` is not empty, and rises.
SplineState straightLines(const std::vector<double>& times, const std::vector<double>& values);

/// The lowest and highest value of a spline between its points, within what 24 samples in each segment see.
std::pair<double, double> rangeOf(const SplineBase& spline);
