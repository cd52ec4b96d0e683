// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/CanvasGrid.h>
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

/// The canvas over which the point menu, which all canvases share, is open.
QPointer<CanvasFunctionBase> menuCanvas;

Gesture::Place placeAt(const ViewPort& viewport, const QPoint& pixel)
{
    return {viewport.pixelToTime(pixel.x()), viewport.pixelToValue(pixel.y())};
}

/// A point that was edited alone is selected alone: a list of one is given up.
void endSinglePointEdit(Selection& selection)
{
    if (!selection.hasMultiple())
        selection.selectOnly(selection.current());
}

} // namespace

bool CanvasFunctionBase::mousePress(QMouseEvent* event)
{
    settle();
    if (!current_ || !viewport_)
        return false;
    bandSelects_ = false;
    viewport_->gesture.end();
    const QPoint pixel = event->position().toPoint();
    if (!current_->isSpline())
        return event->button() == Qt::LeftButton && pickCurve(pixel);

    lastPlace_ = placeAt(*viewport_, pixel);
    const MouseState held = stateBefore(*event);
    if (held.has(Qt::AltModifier))
        return false;

    ControlSplineNode& control = current_->control();
    control.dropLostPoints();
    const CanvasSpline::Hit hit = current_->getCanvasSpline()->hitTest(pixel, control.selection());
    control.activePart = hit.part;
    if (hit.point != 0 && held.has(Qt::ShiftModifier)) {
        control.selection().toggle(hit.point, *control.getSpline());
        current_->emitCurveChanged();
        return true;
    }
    updateSelection(hit.point, held.has(Qt::ShiftModifier));
    return control.hasSelection() ? pressOnSelection(*event) : pressOnEmptyCanvas(*event);
}

void CanvasFunctionBase::updateSelection(PointSerial point, bool shift)
{
    ControlSplineNode& control = current_->control();
    const bool keepsSelection =
        control.hasMultipleSelection() && (shift || !control.isOutsideSelection(lastPlace_.time));
    if (!keepsSelection)
        control.selection().selectOnly(point);
}

bool CanvasFunctionBase::pressOnSelection(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton) {
        openPointMenu(event);
        return false;
    }
    if (event.button() == Qt::LeftButton || event.button() == Qt::MiddleButton)
        beginDrag();
    return true;
}

bool CanvasFunctionBase::pressOnEmptyCanvas(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton) {
        showMark_ = true;
        openPointMenu(event);
        return false;
    }
    if (event.button() != Qt::LeftButton)
        return false;
    if (stateBefore(event).has(Qt::ControlModifier)) {
        createPoint(lastPlace_);
        return true;
    }
    if (pickCurve(event.position().toPoint()))
        return true;
    bandSelects_ = true;
    return false;
}

void CanvasFunctionBase::openPointMenu(const QMouseEvent& event)
{
    paint();
    menuCanvas = this;
    current_->control().popupMenu(event.globalPosition().toPoint());
    menuCanvas = nullptr;
}

void CanvasFunctionBase::mouseDoubleClick(QMouseEvent* event)
{
    settle();
    if (!current_ || !viewport_)
        return;
    const QPoint pixel = event->position().toPoint();
    if (!current_->isSpline()) {
        pickCurve(pixel);
        return;
    }
    ControlSplineNode& control = current_->control();
    control.dropLostPoints();
    const CanvasSpline::Hit hit = current_->getCanvasSpline()->hitTest(pixel, control.selection());
    control.activePart = hit.part;
    control.selection().selectOnly(hit.point);
    const MouseState held = stateBefore(*event);
    if (held.has(Qt::ShiftModifier) || held.has(Qt::ControlModifier))
        return;
    if (control.hasSelection() || pickCurve(pixel))
        return;
    createPoint(placeAt(*viewport_, pixel));
}

void CanvasFunctionBase::mouseMove(QMouseEvent* event)
{
    if (!current_ || !viewport_ || !current_->isSpline())
        return;
    const MouseState held = stateBefore(*event);
    const Gesture::Place place = placeAt(*viewport_, event->position().toPoint());
    if (viewport_->gesture.isAtPoints())
        dragSelection(place, held);
    lastPlace_ = place;
}

void CanvasFunctionBase::beginDrag()
{
    ControlSplineNode& control = current_->control();
    const QString one = control.activePart == SplineEdits::Part::Point ? tr("Move a point of %1")
                                                                       : tr("Change a tangent of %1");
    viewport_->gesture.beginAtPoints(*control.getSpline(), control.selection(), control.activePart,
                                     lastPlace_);
    const CurveEdit::Curves curves = {control.curve()};
    drag_ =
        door_.begin(control.editText(one, tr("Move %1 points of %2")), curves, viewport_->gesture.points());
    readersOf_.clear();
    beginGuide();
}

void CanvasFunctionBase::beginGuide()
{
    const Gesture& gesture = viewport_->gesture;
    guide.snap.fps = viewport_->fps;
    guide.snap.timeLine = viewport_->timeLine;
    guide.snap.setGridLines(grid_->times(*viewport_), grid_->values());
    std::vector<const SplineBase*> splines;
    for (const auto& curve : curves_) {
        if (curve->isSpline())
            splines.push_back(curve->getSpline());
    }
    guide.snap.setPoints(splines, gesture.points());
    guide.begin(gesture.grabbed(viewport_->mapping()), lastPlace_, !gesture.isMultiple());
}

void CanvasFunctionBase::dragSelection(const Gesture::Place& mouse, const MouseState& held)
{
    const bool scaling = held.has(Qt::ShiftModifier) || held.has(Qt::MiddleButton);
    const bool isGuided = !scaling && viewport_->gesture.kind() == Gesture::Kind::Points;
    const Gesture::Place place =
        isGuided ? guide.guided(mouse, viewport_->mapping(), held.has(Qt::ControlModifier)) : mouse;
    ControlSplineNode& control = current_->control();
    if (!door_.isOpen(drag_) || !control.getSpline())
        return viewport_->gesture.cancel();
    const TimeInterval touched =
        viewport_->gesture.step(*control.getSpline(), place, scaling, viewport_->mapping());
    Selection& selection = control.selection();
    if (selection.hasMultiple())
        selection.setCurrent(selection.listed().back());
    endSinglePointEdit(selection);
    door_.preview(touched);
}

void CanvasFunctionBase::mouseRelease(QMouseEvent* event)
{
    if (!viewport_)
        return;
    if (!current_ || !current_->isSpline() || viewport_->gesture.kind() == Gesture::Kind::Cancelled) {
        viewport_->bandValid = false;
        viewport_->bandActive = false;
        if (viewport_->gesture.kind() == Gesture::Kind::Cancelled)
            viewport_->gesture.end();
        return;
    }
    ControlSplineNode& control = current_->control();
    control.dropLostPoints();
    const bool any =
        control.hasSelection() || (bandSelects_ && !stateBefore(*event).isEmpty() && selectInBand());
    const QPointer<CurveNodeBase> curve(current_);
    bandSelects_ = false;
    settle();
    if (any && curve)
        curve->emitCurveChanged();
}

bool CanvasFunctionBase::selectInBand()
{
    double timeLow = 0.0;
    double timeHigh = 0.0;
    double valueLow = 0.0;
    double valueHigh = 0.0;
    viewport_->takeBand(timeLow, timeHigh, valueLow, valueHigh);
    return current_->control().selectInBand(timeLow, timeHigh, valueLow, valueHigh);
}

bool CanvasFunctionBase::cancelGesture()
{
    bandSelects_ = false;
    if (!viewport_)
        return false;
    if (viewport_->gesture.isAtView()) {
        viewport_->cancelDrag();
        return true;
    }
    if (!viewport_->gesture.isAtPoints())
        return false;
    viewport_->gesture.cancel();
    guide.end();
    if (door_.isOpen(drag_))
        door_.cancel();
    return true;
}

void CanvasFunctionBase::keyPress(QKeyEvent* event, bool isFocused)
{
    if (event->key() == Qt::Key_Escape)
        cancelGesture();
    if (event->key() == Qt::Key_Delete)
        settle();
    if (!current_)
        return;
    ControlSplineNode& control = current_->control();
    markStale(*current_);
    control.dropLostPoints();
    if (event->key() == Qt::Key_Delete) {
        const QString text = control.editText(tr("Delete a point of %1"), tr("Delete %1 points of %2"));
        editAndReport(*current_, text, [&control](EditedCurve& curve) {
            if (curve.spline())
                SplineEdits::removePoints(*curve.spline(), control.selection().edited());
            control.selectOnly(nullptr);
        });
    } else if (event->key() == Qt::Key_Right || event->key() == Qt::Key_Left) {
        if (isFocused || control.hasSelection())
            stepSelection(event->key() == Qt::Key_Right);
    }
}

void CanvasFunctionBase::stepSelection(bool forward)
{
    ControlSplineNode& control = current_->control();
    SplineBase* const spline = control.getSpline();
    if (!spline)
        return;
    const SplineBase::PointInfo* point = nullptr;
    if (control.hasSingleSelection()) {
        const double time = control.getCurrent()->time;
        point = forward ? spline->getNext(time) : spline->getPrev(time);
    } else if (!control.hasSelection() && current_->isSpline()) {
        point = forward ? spline->getFirst() : spline->getLast();
    }
    if (point)
        control.selectOnly(point);
}

void CanvasFunctionBase::createNodeAtCursor()
{
    const bool menuIsElsewhere = menuCanvas && menuCanvas != this;
    settle();
    if (current_ && current_->isSpline() && !menuIsElsewhere)
        createPoint(lastPlace_);
}

void CanvasFunctionBase::createPoint(const Gesture::Place& place)
{
    editAndReport(*current_, tr("Add a point to %1").arg(current_->getName()), [&place](EditedCurve& curve) {
        if (curve.spline())
            SplineEdits::addPoint(*curve.spline(), place.time, place.value);
    });
}

void CanvasFunctionBase::setSelectedType(int type)
{
    editSelections(tr("Change the type of points"), [type](ControlSplineNode& control) {
        SplineEdits::setType(*control.getSpline(), control.selection().edited(), type);
    });
}

void CanvasFunctionBase::deleteSelectedNodes()
{
    editSelections(tr("Delete points"), [](ControlSplineNode& control) {
        SplineEdits::removePoints(*control.getSpline(), control.selection().edited());
        control.selectOnly(nullptr);
    });
}

void CanvasFunctionBase::editSelections(const QString& text,
                                        const std::function<void(ControlSplineNode&)>& work)
{
    settle();
    dropLostPoints();
    CurveEdit::Curves edited;
    std::vector<ControlSplineNode*> controls;
    for (const auto& curve : curves_) {
        if (curve->getSpline() && curve->control().hasSelection()) {
            edited.push_back(curve->curve());
            controls.push_back(&curve->control());
        }
    }
    const QString names = edited.size() == 1 ? tr("%1 of %2").arg(text, edited.front()->name) : text;
    door_.begin(names, edited);
    for (ControlSplineNode* const control : controls)
        work(*control);
    door_.commit();
    Q_EMIT selectionChanged(false);
    paint();
}

void CanvasFunctionBase::editSelection(const QString& one, const QString& many, const PointWork& work)
{
    if (!canEditSelection())
        return;
    ControlSplineNode& control = current_->control();
    const QPointer<CanvasFunctionBase> guard(this);
    editAndReport(*current_, control.editText(one, many),
                  [&](EditedCurve& curve) { work(*curve.spline(), control.selection().edited()); });
    if (!guard)
        return;
    Q_EMIT selectionChanged(false);
    paint();
}

void CanvasFunctionBase::editSpline(const QString& text, const std::function<void(SplineBase&)>& work)
{
    settle();
    if (!current_ || !current_->isSpline() || !current_->getSpline())
        return;
    const QPointer<CanvasFunctionBase> guard(this);
    editAndReport(*current_, text.arg(current_->getName()),
                  [&](EditedCurve& curve) { work(*curve.spline()); });
    if (!guard)
        return;
    Q_EMIT selectionChanged(true);
    paint();
}

double CanvasFunctionBase::gridStep() const
{
    return grid_->stepY;
}

void CanvasFunctionBase::scaleSelection(const double& timeFactor, const double& valueFactor)
{
    if ((timeFactor == 1.0 && valueFactor == 1.0) || !canEditSelection())
        return;
    ControlSplineNode& control = current_->control();
    edit(*current_, control.editText(tr("Scale a point of %1"), tr("Scale %1 points of %2")),
         [&](EditedCurve& curve) {
             SplineEdits::scalePoints(*curve.spline(), control.selection().edited(), timeFactor, valueFactor);
         });
    paint();
}

void CanvasFunctionBase::panSelection(const double& timeOffset, const double& valueOffset)
{
    if ((timeOffset == 0.0 && valueOffset == 0.0) || !canEditSelection())
        return;
    ControlSplineNode& control = current_->control();
    edit(*current_, control.editText(tr("Pan a point of %1"), tr("Pan %1 points of %2")),
         [&](EditedCurve& curve) {
             SplineEdits::panPoints(*curve.spline(), control.selection().edited(), timeOffset, valueOffset);
         });
    paint();
}

bool CanvasFunctionBase::canEditSelection()
{
    settle();
    if (!current_ || !current_->isSpline() || !current_->getSpline())
        return false;
    current_->control().dropLostPoints();
    return current_->control().hasSelection();
}

bool CanvasFunctionBase::pickCurve(const QPoint& pixel)
{
    for (const auto& curve : curves_) {
        if (curve.get() != current_ && hitsCurve(*curve, pixel)) {
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
        const double time = viewport_->pixelToTime(column);
        evaluationTime.set(time, viewport_->fps);
        const double value = curve.getValue(time);
        if (std::isfinite(value) && std::abs(viewport_->valueToPixel(value) - pixel.y()) < pickDistance)
            return true;
    }
    return false;
}
