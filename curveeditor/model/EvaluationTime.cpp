// SPDX-License-Identifier: MIT
#include <curveeditor/model/EvaluationTime.h>

EvaluationTime::EvaluationTime()
    : time_(FunctionParserBase::instance()->getKey("t")), frame_(FunctionParserBase::instance()->getKey("f")),
      notedTime_(time_->getValue()), notedFrame_(frame_->getValue())
{
}

EvaluationTime::~EvaluationTime()
{
    time_->setValue(notedTime_);
    frame_->setValue(notedFrame_);
}

void EvaluationTime::set(double time, double framesPerTimeUnit)
{
    time_->setValue(time);
    frame_->setValue(time * framesPerTimeUnit);
}
