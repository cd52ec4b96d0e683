// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/MouseState.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/model/EvaluationTime.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <cmath>
#include <cstdlib>

namespace {

constexpr int pickDistance = 4;
constexpr double scalePerView = 5.0;

/// The canvas over which the point menu, which all canvases share, is open.
QPointer<CanvasFunctionBase> menuCanvas;

} // namespace

bool CanvasFunctionBase::mousePress(QMouseEvent* event)
{
    if (!current || !viewport)
        return false;
    endGesture();
    const QPoint pixel = event->position().toPoint();
    if (current->getKind() != 0)
        return event->button() == Qt::LeftButton && pickCurve(pixel);

    lastTime = viewport->pixelToTime(pixel.x());
    lastValue = viewport->pixelToValue(pixel.y());
    const MouseState held = stateBefore(*event);
    if (held.has(Qt::AltModifier))
        return false;

    ControlSplineNode& control = current->getCanvasSpline()->control;
    SplineBase::PointInfo* const point = current->getCanvasSpline()->hitTest(pixel);
    if (point && held.has(Qt::ShiftModifier)) {
        control.toggleSelected(point);
        reportEdit();
        return true;
    }
    updateSelection(point, held.has(Qt::ShiftModifier));
    return control.hasSelection() ? pressOnSelection(*event) : pressOnEmptyCanvas(*event);
}

void CanvasFunctionBase::updateSelection(SplineBase::PointInfo* point, bool shift)
{
    ControlSplineNode& control = current->getCanvasSpline()->control;
    const bool keepsSelection =
        control.hasMultipleSelection() && (shift || !control.isOutsideSelection(lastTime));
    if (!keepsSelection)
        control.selectOnly(point);
}

bool CanvasFunctionBase::pressOnSelection(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton) {
        openPointMenu(event);
        return false;
    }
    dragging = event.button() == Qt::LeftButton || event.button() == Qt::MiddleButton;
    return true;
}

bool CanvasFunctionBase::pressOnEmptyCanvas(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton) {
        showMark = true;
        openPointMenu(event);
        return false;
    }
    if (event.button() != Qt::LeftButton)
        return false;
    if (stateBefore(event).has(Qt::ControlModifier)) {
        addPoint(lastTime, lastValue);
        return true;
    }
    if (pickCurve(event.position().toPoint()))
        return true;
    bandSelecting = true;
    return false;
}

void CanvasFunctionBase::openPointMenu(const QMouseEvent& event)
{
    paint();
    menuCanvas = this;
    current->getCanvasSpline()->control.popupMenu(event.globalPosition().toPoint());
    menuCanvas = nullptr;
}

void CanvasFunctionBase::mouseDoubleClick(QMouseEvent* event)
{
    if (!current || !viewport)
        return;
    const QPoint pixel = event->position().toPoint();
    if (current->getKind() != 0) {
        pickCurve(pixel);
        return;
    }
    ControlSplineNode& control = current->getCanvasSpline()->control;
    control.selectOnly(current->getCanvasSpline()->hitTest(pixel));
    const MouseState held = stateBefore(*event);
    if (held.has(Qt::ShiftModifier) || held.has(Qt::ControlModifier))
        return;
    if (control.hasSelection() || pickCurve(pixel))
        return;
    addPoint(viewport->pixelToTime(pixel.x()), viewport->pixelToValue(pixel.y()));
}

void CanvasFunctionBase::mouseMove(QMouseEvent* event)
{
    if (!current || !viewport || current->getKind() != 0)
        return;
    const QPoint pixel = event->position().toPoint();
    const MouseState held = stateBefore(*event);
    const double time = viewport->pixelToTime(pixel.x());
    const double value = viewport->pixelToValue(pixel.y());
    if (dragging)
        dragSelection(time, value, held.has(Qt::ShiftModifier) || held.has(Qt::MiddleButton));
    lastTime = time;
    lastValue = value;
}

void CanvasFunctionBase::dragSelection(double time, double value, bool scaling)
{
    ControlSplineNode& control = current->getCanvasSpline()->control;
    control.dropLostPoints();
    if (!control.hasSelection())
        return;
    if (!control.hasMultipleSelection()) {
        control.movePoint(time, value);
    } else {
        const double timeOffset = time - lastTime;
        const double valueOffset = value - lastValue;
        if (scaling) {
            scalePoints(std::pow(scalePerView, timeOffset / (viewport->timeMax - viewport->timeMin)),
                        std::pow(scalePerView, valueOffset / (viewport->valueMax - viewport->valueMin)));
        } else {
            panPoints(timeOffset, valueOffset);
        }
        control.setCurrent(control.selectionList().back());
    }
    current->changed = true;
}

void CanvasFunctionBase::mouseRelease(QMouseEvent* event)
{
    if (!viewport)
        return;
    if (!current || current->getKind() != 0) {
        viewport->bandValid = false;
        viewport->bandActive = false;
        return;
    }
    CanvasSpline* const spline = current->getCanvasSpline();
    spline->control.dropLostPoints();
    bool any = spline->control.hasSelection();
    if (!any && bandSelecting && !stateBefore(*event).isEmpty()) {
        double timeLow = 0.0;
        double timeHigh = 0.0;
        double valueLow = 0.0;
        double valueHigh = 0.0;
        viewport->takeBand(timeLow, timeHigh, valueLow, valueHigh);
        any = spline->selectInBand(timeLow, timeHigh, valueLow, valueHigh);
    }
    endGesture();
    if (any)
        current->emitCurveChanged();
}

void CanvasFunctionBase::keyPress(QKeyEvent* event)
{
    if (!current)
        return;
    current->changed = true;
    ControlSplineNode& control = current->getCanvasSpline()->control;
    control.dropLostPoints();
    if (event->key() == Qt::Key_Delete) {
        control.deleteSelectedNodes();
        reportEdit();
    } else if (event->key() == Qt::Key_Right || event->key() == Qt::Key_Left) {
        stepSelection(event->key() == Qt::Key_Right);
    }
}

void CanvasFunctionBase::stepSelection(bool forward)
{
    ControlSplineNode& control = current->getCanvasSpline()->control;
    SplineBase* const spline = control.getSpline();
    if (!spline)
        return;
    SplineBase::PointInfo* point = nullptr;
    if (control.hasSingleSelection()) {
        const double time = control.getCurrent()->time;
        point = forward ? spline->getNext(time) : spline->getPrev(time);
    } else if (!control.hasSelection() && current->getKind() == 0) {
        point = spline->modify(forward ? 0U : spline->getControlPointsNumber() - 1);
    }
    if (point)
        control.selectOnly(point);
}

void CanvasFunctionBase::createNodeAtCursor(CurveNodeBase* curve)
{
    const bool menuIsElsewhere = menuCanvas && menuCanvas != this;
    if (curve && curve == current && curve->getKind() == 0 && !menuIsElsewhere)
        addPoint(lastTime, lastValue);
}

void CanvasFunctionBase::scaleSelection(const double& timeFactor, const double& valueFactor)
{
    if ((timeFactor == 1.0 && valueFactor == 1.0) || !canEditSelection())
        return;
    ControlSplineNode& control = current->getCanvasSpline()->control;
    if (control.hasMultipleSelection()) {
        scalePoints(timeFactor, valueFactor);
    } else {
        control.scalePoint(timeFactor, valueFactor);
    }
    current->changed = true;
    paint();
}

void CanvasFunctionBase::panSelection(const double& timeOffset, const double& valueOffset)
{
    if ((timeOffset == 0.0 && valueOffset == 0.0) || !canEditSelection())
        return;
    ControlSplineNode& control = current->getCanvasSpline()->control;
    if (control.hasMultipleSelection()) {
        panPoints(timeOffset, valueOffset);
    } else {
        control.panPoint(timeOffset, valueOffset);
    }
    current->changed = true;
    paint();
}

bool CanvasFunctionBase::canEditSelection() const
{
    if (!current || current->getKind() != 0)
        return false;
    current->getCanvasSpline()->control.dropLostPoints();
    return current->getCanvasSpline()->control.hasSelection();
}

void CanvasFunctionBase::scalePoints(double timeFactor, double valueFactor)
{
    SplineBase* const spline = current->getSpline();
    for (SplineBase::PointInfo* const point : current->getCanvasSpline()->control.selectionList()) {
        spline->setTime(point, point->time * timeFactor);
        spline->setPos(point, point->pos * valueFactor);
    }
}

void CanvasFunctionBase::panPoints(double timeOffset, double valueOffset)
{
    SplineBase* const spline = current->getSpline();
    for (SplineBase::PointInfo* const point : current->getCanvasSpline()->control.selectionList()) {
        spline->setTime(point, point->time + timeOffset);
        spline->setPos(point, point->pos + valueOffset);
    }
}

void CanvasFunctionBase::addPoint(double time, double value)
{
    if (SplineBase* const spline = currentSplineBase()) {
        spline->addPoint(time, value);
        reportEdit();
    }
}

void CanvasFunctionBase::reportEdit()
{
    const QPointer<CurveNodeBase> curve(current);
    curve->changed = true;
    curve->emitCurveChanged();
    // The receiver may have painted, corrected the curve or taken it away.
    if (curve)
        curve->changed = true;
}

void CanvasFunctionBase::endGesture()
{
    bandSelecting = false;
    dragging = false;
}

bool CanvasFunctionBase::pickCurve(const QPoint& pixel)
{
    for (const auto& curve : curves) {
        if (curve.get() != current && hitsCurve(*curve, pixel)) {
            setCurrentCurve(curve.get());
            return true;
        }
    }
    return false;
}

bool CanvasFunctionBase::hitsCurve(const CurveNodeBase& curve, const QPoint& pixel) const
{
    EvaluationTime evaluationTime;
    for (int column = pixel.x() - 1; column <= pixel.x() + 1; ++column) {
        const double time = viewport->pixelToTime(column);
        evaluationTime.set(time, viewport->fps);
        const double value = curve.getValue(time);
        if (std::isfinite(value) && std::abs(viewport->valueToPixel(value) - pixel.y()) < pickDistance)
            return true;
    }
    return false;
}
