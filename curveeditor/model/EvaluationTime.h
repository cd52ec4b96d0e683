// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>
#include <curveeditor/model/FunctionParserBase.h>

/// Evaluating at a time: notes the values of `t` and `f`, sets them as often as wanted, and gives both their
/// noted values again when it goes out of scope.
class CURVEEDITOR_EXPORT EvaluationTime
{
public:
    EvaluationTime();
    ~EvaluationTime();

    EvaluationTime(const EvaluationTime&) = delete;
    EvaluationTime& operator=(const EvaluationTime&) = delete;

    /// `t` becomes `time`, in time units, and `f` becomes `time` * `framesPerTimeUnit`.
    void set(double time, double framesPerTimeUnit);

private:
    FunctionParserBase::keyStruct* time_;
    FunctionParserBase::keyStruct* frame_;
    double notedTime_;
    double notedFrame_;
};
