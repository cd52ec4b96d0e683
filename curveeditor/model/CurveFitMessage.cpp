// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveFit.h>

const char* CurveFit::message(Status status)
{
    switch (status) {
    case Status::Done:
        return "";
    case Status::NoSamples:
        return "there are no samples, or none is finite";
    case Status::SizesDiffer:
        return "there are not as many values as times";
    case Status::TimesDescend:
        return "a time is earlier than the one before it";
    case Status::BadTolerance:
        return "the tolerance is negative, or not a number";
    case Status::BadRange:
        return "the step is not above 0, or the range is not finite or ends before it begins";
    case Status::TooManyPoints:
        return "these are more than a million steps";
    case Status::NotWhole:
        return "the spline has times that descend, or a time or value that is not finite";
    case Status::BadType:
        return "the points of a fit are Bezier or Linear";
    }
    return "the fit failed";
}
