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
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {

/// The canvas over which the point menu, which all canvases share, is open.
QPointer<CanvasFunctionBase> menuCanvas;

Gesture::Place placeAt(const ViewPort& viewport, const QPoint& pixel)
{
    return {viewport.pixelToTime(pixel.x()), viewport.pixelToValue(pixel.y())};
}

/// A point that was edited alone is selected alone: a list of one is given up.
void endSinglePointEdit(Selection& selection)
{
    if (selection.hasSingle())
        selection.selectOnly(selection.current());
}

} // namespace

bool CanvasFunctionBase::mousePress(QMouseEvent* event)
{
    settle();
    if (!current_ || !viewport_)
        return false;
    bandSelects_ = false;
    click_.reset();
    pressPicksCurve_ = false;
    viewport_->gesture.end();
    const QPoint pixel = event->position().toPoint();
    const bool isLeft = event->button() == Qt::LeftButton;
    if (!current_->isSpline() && !editsAllCurves_)
        return isLeft && pickCurve(pixel);

    lastPlace_ = placeAt(*viewport_, pixel);
    const MouseState held = stateBefore(*event);
    if (held.has(Qt::AltModifier))
        return false;
    bandAdds_ = isBandHeld && isLeft;
    if (bandAdds_) {
        bandSelects_ = true;
        return false;
    }

    const CanvasSpline::Hit hit = hitPoint(pixel);
    if (!current_)
        return true;
    if (!current_->isSpline())
        return isLeft && pressOnEmptyCanvas(*event);
    ControlSplineNode& control = current_->control();
    control.activePart = hit.part;
    if (hit.point != 0 && held.has(Qt::ShiftModifier)) {
        control.selection().toggle(hit.point, *control.getSpline());
        current_->emitCurveChanged();
        return true;
    }
    updateSelection(hit.point, held.has(Qt::ShiftModifier));
    if (isLeft && held.isEmpty() && hasMultipleSelection())
        click_ = Click{pixel, hit.point};
    return hasSelectedPoint() ? pressOnSelection(*event) : pressOnEmptyCanvas(*event);
}

/// What lies there of the current curve, or else of another one in reach, which becomes the current one. Who hears of
/// that may take curves away.
CanvasSpline::Hit CanvasFunctionBase::hitPoint(const QPoint& pixel)
{
    dropLostPoints();
    std::vector<CurveNodeBase*> reach = curvesInReach();
    std::reverse(reach.begin() + (current_->isSpline() ? 1 : 0), reach.end()); // from the front to the back
    for (CurveNodeBase* const curve : reach) {
        const bool isOwn = curve == current_;
        const Selection selection = isOwn ? curve->control().selection() : Selection();
        const CanvasSpline::Hit hit = curve->getCanvasSpline()->hitTest(pixel, selection);
        if (hit.point == 0)
            continue;
        const QPointer<CurveNodeBase> next(curve);
        if (!isOwn)
            setCurrentCurve(next);
        return next && next == current_ ? hit : CanvasSpline::Hit();
    }
    return {};
}

void CanvasFunctionBase::updateSelection(PointSerial point, bool shift)
{
    const bool keepsSelection = hasMultipleSelection() && (shift || !isOutsideSelection(lastPlace_.time));
    if (!keepsSelection)
        selectOnly(point);
}

void CanvasFunctionBase::selectOnly(PointSerial point)
{
    for (CurveNodeBase* const curve : curvesInReach())
        curve->control().selection().selectOnly(0);
    current_->control().selection().selectOnly(point);
}

std::vector<CurveNodeBase*> CanvasFunctionBase::curvesInReach() const
{
    std::vector<CurveNodeBase*> reach;
    if (current_ && current_->isSpline() && current_->getSpline())
        reach.push_back(current_);
    if (!editsAllCurves_)
        return reach;
    for (const auto& curve : curves_) {
        const bool isThere = std::any_of(reach.begin(), reach.end(), [&curve](const CurveNodeBase* other) {
            return other->getSpline() == curve->getSpline();
        });
        if (curve->isSpline() && curve->getSpline() && !isThere)
            reach.push_back(curve.get());
    }
    return reach;
}

std::vector<CurveNodeBase*> CanvasFunctionBase::selectedCurves() const
{
    std::vector<CurveNodeBase*> selected = curvesInReach();
    std::erase_if(selected, [](const CurveNodeBase* curve) { return !curve->control().hasSelection(); });
    return selected;
}

bool CanvasFunctionBase::hasMultipleSelection() const
{
    const std::vector<CurveNodeBase*> selected = selectedCurves();
    return selected.size() > 1 || (!selected.empty() && selected.front()->control().hasMultipleSelection());
}

bool CanvasFunctionBase::isOutsideSelection(double time) const
{
    bool isAfterOne = false;
    bool isBeforeOne = false;
    for (const CurveNodeBase* const curve : selectedCurves()) {
        for (const double selected : curve->control().selectedTimes()) {
            isAfterOne = isAfterOne || selected < time;
            isBeforeOne = isBeforeOne || selected > time;
        }
    }
    return !isAfterOne || !isBeforeOne;
}

void CanvasFunctionBase::changeSelections(const NodeWork& work)
{
    settle();
    dropLostPoints();
    for (CurveNodeBase* const curve : curvesInReach())
        work(curve->control());
    Q_EMIT selectionChanged(true);
    paint();
}

void CanvasFunctionBase::setEditsAllCurves(bool on)
{
    settle();
    editsAllCurves_ = on;
    for (const auto& curve : curves_) {
        curve->getCanvasSpline()->showsPoints = on;
        if (!on && curve.get() != current_)
            curve->control().selectOnly(nullptr); // the point menu would act on what does not show any more
    }
    Q_EMIT selectionChanged(false);
    paint();
}

bool CanvasFunctionBase::pressOnSelection(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton) {
        openPointMenu(event.globalPosition().toPoint());
        return false;
    }
    if (event.button() == Qt::LeftButton || event.button() == Qt::MiddleButton)
        beginDrag(stateBefore(event).has(Qt::ControlModifier));
    return true;
}

bool CanvasFunctionBase::pressOnEmptyCanvas(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton) {
        showMark_ = true;
        openPointMenu(event.globalPosition().toPoint());
        return false;
    }
    if (event.button() != Qt::LeftButton)
        return false;
    if (stateBefore(event).has(Qt::ControlModifier) && current_->isSpline()) {
        createPoint(lastPlace_);
        return true;
    }
    if (pickCurve(event.position().toPoint()))
        return true;
    bandSelects_ = true;
    return false;
}

void CanvasFunctionBase::openPointMenu(const QPoint& globalPosition)
{
    paint();
    menuCanvas = this;
    current_->control().popupMenu(globalPosition);
    menuCanvas = nullptr;
}

/// A canvas that goes does not leave its menu behind.
void CanvasFunctionBase::closePointMenu()
{
    if (menuCanvas != this)
        return;
    ControlSplineNode::menu()->disconnect(this);
    ControlSplineNode::menu()->close();
}

void CanvasFunctionBase::openPointMenuByKey()
{
    settle();
    if (!viewport_ || !widget() || !current_ || !current_->isSpline())
        return;
    ControlSplineNode& control = current_->control();
    control.dropLostPoints();
    const SplineBase::PointInfo* const point = control.getCurrent();
    QPoint pixel = widget()->rect().center();
    if (point)
        pixel = {viewport_->timeToPixel(point->time), viewport_->valueToPixel(point->pos)};
    if (!widget()->rect().contains(pixel))
        pixel = widget()->rect().center();
    lastPlace_ = placeAt(*viewport_, pixel);
    showMark_ = !control.hasSelection();
    openPointMenu(widget()->mapToGlobal(pixel));
}

void CanvasFunctionBase::mouseDoubleClick(QMouseEvent* event)
{
    settle();
    if (!current_ || !viewport_)
        return;
    const QPoint pixel = event->position().toPoint();
    const CanvasSpline::Hit hit = hitPoint(pixel);
    if (!current_)
        return;
    if (!current_->isSpline()) {
        if (!pressPicksCurve_)
            pickCurve(pixel);
        return;
    }
    ControlSplineNode& control = current_->control();
    control.activePart = hit.part;
    selectOnly(hit.point);
    const MouseState held = stateBefore(*event);
    if (held.has(Qt::ShiftModifier) || held.has(Qt::ControlModifier))
        return;
    if (control.hasSelection() || pressPicksCurve_ || pickCurve(pixel))
        return;
    createPoint(placeAt(*viewport_, pixel));
}

void CanvasFunctionBase::mouseMove(QMouseEvent* event)
{
    if (!viewport_ || curvesInReach().empty())
        return;
    const MouseState held = stateBefore(*event);
    const Gesture::Place place = placeAt(*viewport_, event->position().toPoint());
    if (viewport_->gesture.isAtPoints())
        dragSelection(place, held);
    lastPlace_ = place;
}

void CanvasFunctionBase::beginDrag(bool withCtrl)
{
    const SplineEdits::Part part = current_->control().activePart;
    const QString one =
        part == SplineEdits::Part::Point ? tr("Move a point of %1") : tr("Change a tangent of %1");
    const bool keepsDistance = hasMultipleSelection();
    std::vector<PointDrag> drags;
    std::vector<CurveEdit::Target> targets;
    dragged_.clear();
    for (CurveNodeBase* const curve : selectedCurves()) {
        const ControlSplineNode& control = curve->control();
        drags.emplace_back(*control.getSpline(), control.selection(), part, lastPlace_, viewport_->mapping(),
                           keepsDistance);
        targets.push_back({control.curve(), drags.back().points()});
        dragged_.emplace_back(curve);
    }
    const QString text = editText(selectedCurves(), one, tr("Move %1 points of %2"));
    viewport_->gesture.beginAtPoints(std::move(drags));
    drag_ = door_.begin(text, std::move(targets));
    readers_.clear();
    beginGuide(keepsDistance, withCtrl);
}

void CanvasFunctionBase::beginGuide(bool keepsDistance, bool withCtrl)
{
    Gesture& gesture = viewport_->gesture;
    prepareSnap();
    guide.begin(gesture.grabbed(lastPlace_, viewport_->mapping()), lastPlace_, !keepsDistance, withCtrl);
}

void CanvasFunctionBase::prepareSnap()
{
    guide.snap.fps = viewport_->fps;
    guide.snap.timeLine = viewport_->timeLine;
    guide.snap.setGridLines(grid_->times(*viewport_), grid_->values());
    std::vector<Snap::Source> sources;
    for (const auto& curve : curves_) {
        if (curve->isSpline())
            sources.push_back({curve->getSpline(), movingPoints(*curve)});
    }
    guide.snap.setPoints(sources);
}

std::vector<PointSerial> CanvasFunctionBase::movingPoints(const CurveNodeBase& curve) const
{
    if (!viewport_->gesture.isAtPoints())
        return {};
    for (std::size_t i = 0; i < dragged_.size(); ++i) {
        if (dragged_[i] && dragged_[i]->getSpline() == curve.getSpline())
            return viewport_->gesture.drags()[i].points();
    }
    return {};
}

void CanvasFunctionBase::dragSelection(const Gesture::Place& mouse, const MouseState& held)
{
    const bool scaling = held.has(Qt::ShiftModifier) || held.has(Qt::MiddleButton);
    const bool isGuided = !scaling && viewport_->gesture.kind() == Gesture::Kind::Points;
    const Gesture::Place place =
        isGuided ? guide.guided(mouse, viewport_->mapping(), held.has(Qt::ControlModifier)) : mouse;
    const bool areThere = std::all_of(dragged_.begin(), dragged_.end(),
                                      [](const auto& curve) { return curve && curve->getSpline(); });
    if (!door_.isOpen(drag_) || !areThere)
        return viewport_->gesture.cancel();
    std::vector<TimeInterval> touched;
    for (std::size_t i = 0; i < dragged_.size(); ++i) {
        ControlSplineNode& control = dragged_[i]->control();
        touched.push_back(
            viewport_->gesture.drags()[i].step(*control.openSpline(), place, scaling, viewport_->mapping()));
        Selection& selection = control.selection();
        if (selection.hasMultiple())
            selection.setCurrent(selection.listed().back());
        endSinglePointEdit(selection);
    }
    for (std::size_t i = 0; i < touched.size() && door_.isOpen(drag_); ++i)
        door_.preview(touched[i], i);
}

void CanvasFunctionBase::mouseRelease(QMouseEvent* event)
{
    if (!viewport_)
        return;
    if (curvesInReach().empty() || viewport_->gesture.kind() == Gesture::Kind::Cancelled) {
        viewport_->bandValid = false;
        viewport_->bandActive = false;
        if (viewport_->gesture.kind() == Gesture::Kind::Cancelled)
            viewport_->gesture.end();
        return;
    }
    dropLostPoints();
    if (bandSelects_ && !stateBefore(*event).isEmpty() && (bandAdds_ || !hasSelectedPoint()))
        selectInBand();
    const bool any = hasSelectedPoint();
    const QPointer<CurveNodeBase> curve(current_);
    bandSelects_ = false;
    if (isClick(*event))
        selectOnly(click_->point);
    const CurveEdit::Curves changed = settle();
    if (any && curve)
        curve->emitCurveChanged();
    reportOthers(changed, curve);
}

/// Whether a press that kept several points selected ends where it began. A selection of many would hardly be left by
/// the mouse otherwise.
bool CanvasFunctionBase::isClick(const QMouseEvent& release) const
{
    return click_ && release.button() == Qt::LeftButton && viewport_->gesture.isAtPoints() &&
           release.position().toPoint() == click_->pixel;
}

void CanvasFunctionBase::selectInBand()
{
    double timeLow = 0.0;
    double timeHigh = 0.0;
    double valueLow = 0.0;
    double valueHigh = 0.0;
    viewport_->takeBand(timeLow, timeHigh, valueLow, valueHigh);
    for (CurveNodeBase* const curve : curvesInReach())
        curve->control().selectInBand(timeLow, timeHigh, valueLow, valueHigh, bandAdds_);
}

/// Of the curves that an edit changed, all but one that has been reported already.
void CanvasFunctionBase::reportOthers(const CurveEdit::Curves& changed, const CurveNodeBase* reported)
{
    for (const auto& curve : presentCurves()) {
        if (curve && curve != reported &&
            std::find(changed.begin(), changed.end(), curve->curve()) != changed.end())
            curve->emitCurveChanged();
    }
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
        const auto nodes = current_->isSpline() || editsAllCurves_ ? selectedCurves() : std::vector{current_};
        editPointsAndReport(
            nodes, tr("Delete a point of %1"), tr("Delete %1 points of %2"), [](ControlSplineNode& selected) {
                if (selected.getSpline())
                    SplineEdits::removePoints(*selected.openSpline(), selected.selection().edited());
                selected.selectOnly(nullptr);
            });
    } else if (event->key() == Qt::Key_Right || event->key() == Qt::Key_Left) {
        const bool isDragged = viewport_ && viewport_->gesture.isAtPoints();
        if (!isDragged && (isFocused || control.hasSelection()))
            stepSelection(event->key() == Qt::Key_Right);
    }
}

void CanvasFunctionBase::stepSelection(bool forward)
{
    ControlSplineNode& control = current_->control();
    const SplineBase* const spline = control.getSpline();
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
    editAndReport(*current_, tr("Add a point to %1").arg(current_->getName()),
                  [this, &place](EditedCurve& curve) {
                      if (curve.spline())
                          SplineEdits::addPoint(*door_.spline(curve), place.time, place.value);
                  });
}

void CanvasFunctionBase::setSelectedType(int type)
{
    editSelections(tr("Change the type of points"), [type](ControlSplineNode& control) {
        SplineEdits::setType(*control.openSpline(), control.selection().edited(), type);
    });
}

void CanvasFunctionBase::deleteSelectedNodes()
{
    editSelections(tr("Delete points"), [](ControlSplineNode& control) {
        SplineEdits::removePoints(*control.openSpline(), control.selection().edited());
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
    const QPointer<CanvasFunctionBase> guard(this);
    editPointsAndReport(selectedCurves(), one, many, [&work](ControlSplineNode& control) {
        work(*control.openSpline(), control.selection().edited());
    });
    if (!guard)
        return;
    Q_EMIT selectionChanged(false);
    paint();
}

QString CanvasFunctionBase::editText(const std::vector<CurveNodeBase*>& nodes, const QString& one,
                                     const QString& many)
{
    if (nodes.size() == 1)
        return nodes.front()->control().editText(one, many);
    std::size_t count = 0;
    for (const CurveNodeBase* const node : nodes)
        count += node->control().selection().edited().size();
    return many.arg(count).arg(tr("%1 curves").arg(nodes.size()));
}

/// As one step. To be called when all is settled; the nodes may be gone afterwards.
CurveEdit::Curves CanvasFunctionBase::editPoints(const std::vector<CurveNodeBase*>& nodes, const QString& one,
                                                 const QString& many, const NodeWork& work)
{
    CurveEdit::Curves curves;
    for (const CurveNodeBase* const node : nodes)
        curves.push_back(node->curve());
    door_.begin(editText(nodes, one, many), curves);
    for (CurveNodeBase* const node : nodes)
        work(node->control());
    return door_.commit();
}

/// The current curve is reported in any case.
void CanvasFunctionBase::editPointsAndReport(const std::vector<CurveNodeBase*>& nodes, const QString& one,
                                             const QString& many, const NodeWork& work)
{
    const QPointer<CanvasFunctionBase> guard(this);
    const QPointer<CurveNodeBase> current(current_);
    const CurveEdit::Curves changed = editPoints(nodes, one, many, work);
    if (current)
        current->emitCurveChanged();
    if (guard)
        reportOthers(changed, current);
}

void CanvasFunctionBase::editSpline(const QString& text, const std::function<void(SplineBase&)>& work)
{
    settle();
    if (!current_ || !current_->isSpline() || !current_->getSpline())
        return;
    const QPointer<CanvasFunctionBase> guard(this);
    editAndReport(*current_, text.arg(current_->getName()),
                  [&](EditedCurve& curve) { work(*door_.spline(curve)); });
    if (!guard)
        return;
    Q_EMIT selectionChanged(true);
    paint();
}

void CanvasFunctionBase::setPoints(CurveNodeBase& node, const QString& text,
                                   std::vector<SplineBase::PointInfo> points)
{
    const QPointer<CurveNodeBase> curve(&node);
    settle();
    if (!curve || !curve->getSpline())
        return;
    const QPointer<CanvasFunctionBase> guard(this);
    edit(*curve, text.arg(curve->getName()), [this, &points](EditedCurve& edited) {
        SplineState state = edited.spline()->state();
        state.points = std::move(points);
        if (!door_.spline(edited)->assign(state))
            return;
        if (edited.kind() == CurveKind::Expression)
            edited.setExpression(nullptr, {});
        edited.setKind(CurveKind::Spline);
    });
    if (curve)
        curve->control().dropLostPoints();
    if (guard)
        Q_EMIT changeCommandLine();
    if (curve)
        curve->emitCurveChanged();
    if (guard)
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
    editPointsQuietly(tr("Scale a point of %1"), tr("Scale %1 points of %2"),
                      [&](ControlSplineNode& control) {
                          SplineEdits::scalePoints(*control.openSpline(), control.selection().edited(),
                                                   timeFactor, valueFactor);
                          endSinglePointEdit(control.selection());
                      });
}

void CanvasFunctionBase::panSelection(const double& timeOffset, const double& valueOffset)
{
    if ((timeOffset == 0.0 && valueOffset == 0.0) || !canEditSelection())
        return;
    editPointsQuietly(tr("Pan a point of %1"), tr("Pan %1 points of %2"), [&](ControlSplineNode& control) {
        SplineEdits::panPoints(*control.openSpline(), control.selection().edited(), timeOffset, valueOffset);
        endSinglePointEdit(control.selection());
    });
}

/// Does not report the curve if it is the only one.
void CanvasFunctionBase::editPointsQuietly(const QString& one, const QString& many, const NodeWork& work)
{
    const QPointer<CanvasFunctionBase> guard(this);
    const CurveEdit::Curves changed = editPoints(selectedCurves(), one, many, work);
    if (guard && changed.size() > 1)
        reportOthers(changed, nullptr);
    if (guard)
        paint();
}

bool CanvasFunctionBase::canEditSelection()
{
    settle();
    dropLostPoints();
    return hasSelectedPoint();
}

bool CanvasFunctionBase::pickCurve(const QPoint& pixel)
{
    for (const auto& curve : curves_) {
        if (curve.get() != current_ && hitsCurve(*curve, pixel)) {
            pressPicksCurve_ = true;
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
        if (std::isfinite(value) &&
            std::abs(viewport_->valueToPixel(value) - pixel.y()) < theme_.curveGrabDistance)
            return true;
    }
    return false;
}
