// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPointer>

#include <algorithm>
#include <utility>

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
            values.include(curve->heightOf(spline[unsigned(index)]->pos));
        }
    }
    showRanges(times, values);
}

void CanvasFunctionBase::setOwnScale(bool on)
{
    if (!viewport_ || hasOwnScale() == on)
        return;
    settle();
    if (on)
        viewport_->ownScale.switchOn(viewport_->mapping());
    else
        viewport_->showView(viewport_->ownScale.switchedOff(viewport_->mapping()));
    viewport_->dirty = true;
    for (const auto& curve : curves_.all())
        curve->changed = true;
    updateCurves();
    tell({});
    Q_EMIT told(toldText());
    Q_EMIT selectionChanged(false);
    paint();
}

double CanvasFunctionBase::shareOfScale(const SplineBase& spline) const
{
    const auto& all = curves_.all();
    const auto curve =
        std::find_if(all.begin(), all.end(), [&](const auto& each) { return each->getSpline() == &spline; });
    if (!hasOwnScale() || curve == all.end())
        return 1.0;
    return (*curve)->mapping().valueSpan() / viewport_->mapping().valueSpan();
}

void CanvasFunctionBase::freezeScales()
{
    if (viewport_)
        viewport_->ownScale.isFrozen = door_.isOpen() || viewport_->gesture.isBusy();
}

void CanvasFunctionBase::updateCurves()
{
    freezeScales();
    picture_.updateCurves();
    tellFollowedView();
}

void CanvasFunctionBase::showBuffer(QPainter* painter)
{
    freezeScales();
    picture_.show(painter);
    tellFollowedView();
}

/// A frame does not run foreign code, so it is told afterwards.
void CanvasFunctionBase::tellFollowedView()
{
    if (!hasOwnScale())
        return;
    const AxisRange values{viewport_->valueMin, viewport_->valueMax};
    if (std::exchange(shownValues_, values) != values)
        QMetaObject::invokeMethod(this, &CanvasFunctionBase::frameAsked, Qt::QueuedConnection);
}

void CanvasFunctionBase::setMark(CurveNodeBase* marked, CurveMark mark, bool on)
{
    const QPointer<CurveNodeBase> curve(marked);
    if (viewport_ && viewport_->gesture.holdsEdit())
        finishDrag();
    else
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
    for (const CurveNodeBase* const curve : curves) {
        AxisRange own = AxisRange::nothing();
        curve->includeValues(times, own);
        if (own.isNothing())
            continue;
        values.include(curve->heightOf(own.low));
        values.include(curve->heightOf(own.high));
    }
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
