// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasHands.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>

namespace curveeditor {

void CanvasHands::updateSelection(PointSerial point, bool shift)
{
    const bool keepsSelection = curves_.hasMultipleSelection() &&
                                (shift || !curves_.isOutsideSelection(viewport()->gesture.place.time));
    if (!keepsSelection)
        curves_.selectOnly(point);
}

void CanvasHands::selectInBand()
{
    double timeLow = 0.0, timeHigh = 0.0, valueLow = 0.0, valueHigh = 0.0;
    viewport()->takeBand(timeLow, timeHigh, valueLow, valueHigh);
    for (CurveNodeBase* const curve : curves_.inReach())
        curve->control().selectInBand(timeLow, timeHigh, curve->valueAt(valueLow), curve->valueAt(valueHigh),
                                      viewport()->gesture.press.bandAdds);
}

void CanvasHands::stepSelection(bool forward)
{
    ControlSplineNode& control = curves_.current()->control();
    const SplineBase* const spline = control.getSpline();
    if (!spline || !curves_.current()->isShown())
        return;
    const SplineBase::PointInfo* point = nullptr;
    if (control.hasSingleSelection()) {
        const double time = control.getCurrent()->time;
        point = forward ? spline->getNext(time) : spline->getPrev(time);
    } else if (!control.hasSelection() && curves_.current()->isSpline()) {
        point = forward ? spline->getFirst() : spline->getLast();
    }
    if (point)
        control.selectOnly(point);
}

bool CanvasHands::pickCurve(const QPoint& pixel)
{
    for (const auto& curve : curves_.all()) {
        if (curve.get() != curves_.current() && curve->isShown() &&
            curve->passes(pixel, *viewport(), canvas_.theme().curveGrabDistance)) {
            viewport()->gesture.press.picksCurve = true;
            canvas_.setCurrentCurve(curve.get());
            return true;
        }
    }
    return false;
}

} // namespace curveeditor
