// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasHands.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <algorithm>

namespace curveeditor {

void CanvasHands::updateSelection(PointSerial point, bool shift)
{
    if (!keepsSelection(viewport()->gesture.place.time, shift))
        curves_.selectOnly(point);
}

/// A press at that time does.
bool CanvasHands::keepsSelection(double time, bool shift) const
{
    return curves_.hasMultipleSelection() && (shift || !curves_.isOutsideSelection(time));
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

CurveNodeBase* CanvasHands::otherCurveAt(const QPoint& pixel) const
{
    const int reach = canvas_.theme().curveGrabDistance;
    const auto& all = curves_.all();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& curve) {
        return curve.get() != curves_.current() && curve->isShown() &&
               curve->passes(pixel, *viewport(), reach);
    });
    return found == all.end() ? nullptr : found->get();
}

bool CanvasHands::pickCurve(const QPoint& pixel)
{
    CurveNodeBase* const curve = otherCurveAt(pixel);
    if (!curve)
        return false;
    viewport()->gesture.press.picksCurve = true;
    canvas_.setCurrentCurve(curve);
    return true;
}

} // namespace curveeditor
