// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPointer>

using namespace curveeditor;

void CanvasFunctionBase::showAllCurves()
{
    showCurves(curves_.shown());
}

void CanvasFunctionBase::showSelection()
{
    if (!viewport_ || noCurrentCurve())
        return;
    if (!hasSelectedPoint())
        return showCurves(getCurrentCurve()->isShown() ? curves_.currentOnly() : Nodes());
    AxisRange times = AxisRange::nothing();
    AxisRange values = AxisRange::nothing();
    for (const CurveNodeBase* const curve : curves_.selected()) {
        const SplineBase& spline = *curve->getSpline();
        for (const std::int32_t index : indicesOf(curve->control().selection().edited(), spline)) {
            if (index < 0)
                continue;
            times.include(spline[unsigned(index)]->time);
            values.include(spline[unsigned(index)]->pos);
        }
    }
    showRanges(times, values);
}

void CanvasFunctionBase::setMark(CurveNodeBase* marked, CurveMark mark, bool on)
{
    const QPointer<CurveNodeBase> curve(marked);
    settle();
    if (!curve || curve->mark(mark).isOn == on)
        return;
    const bool isHosts = curve->mark(mark).isHosts;
    tell(on || isHosts ? textOf(mark, isHosts).arg(curve->getName()) : QString());
    if (isHosts)
        return;
    curve->setMark(mark, on);
    curve->setColor(curve->getColor(), theme().canvas);
    followMarks();
}

QString CanvasFunctionBase::textOf(CurveMark mark, bool isHosts)
{
    if (mark == CurveMark::Lock)
        return isHosts ? tr("The application has locked %1.") : tr("%1 is locked.");
    if (isHosts)
        return tr("The application hides %1.");
    return mark == CurveMark::Hide ? tr("%1 is hidden.") : tr("%1 is seen alone.");
}

void CanvasFunctionBase::followMarks()
{
    curves_.followMarks();
    Q_EMIT marksChanged();
    Q_EMIT selectionChanged(false);
    paint();
}

/// Formulas have no end: they are shown at the times of the splines, or at those that are visible now.
void CanvasFunctionBase::showCurves(const Nodes& curves)
{
    if (!viewport_ || curves.empty())
        return;
    AxisRange times = AxisRange::nothing();
    for (const CurveNodeBase* const curve : curves) {
        if (!curve->isSpline() || !curve->getSpline())
            continue;
        times.include(curve->getSpline()->getFirst()->time);
        times.include(curve->getSpline()->getLast()->time);
    }
    if (times.isNothing())
        times = {viewport_->timeMin, viewport_->timeMax};
    AxisRange values = AxisRange::nothing();
    for (const CurveNodeBase* const curve : curves)
        curve->includeValues(times, values);
    showRanges(times, values);
}

void CanvasFunctionBase::showRanges(const AxisRange& times, const AxisRange& values)
{
    if (times.isNothing())
        return;
    const AxisRange present{viewport_->valueMin, viewport_->valueMax};
    viewport_->showView(ViewStep::showing(viewport_->mapping(), viewport_->limits(), times,
                                          values.isNothing() ? present : values));
    paint();
}
