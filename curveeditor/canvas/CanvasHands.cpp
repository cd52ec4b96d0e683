// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasHands.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/MouseState.h>
#include <curveeditor/canvas/StepKey.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>
#include <functional>
#include <utility>

namespace curveeditor {

namespace {

Gesture::Place placeAt(const ViewPort& viewport, const QPoint& pixel)
{
    return {viewport.pixelToTime(pixel.x()), viewport.pixelToValue(pixel.y())};
}

std::function<double(double)> heightsOf(const CurveNodeBase& curve)
{
    return [&curve](double value) {
        return curve.heightOf(value);
    };
}

} // namespace

CanvasHands::CanvasHands(CanvasFunctionBase& canvas, CanvasCurves& curves) : canvas_(canvas), curves_(curves)
{
}

ViewPort* CanvasHands::viewport() const
{
    return canvas_.getViewport();
}

CurveEdit::Curves CanvasHands::settle()
{
    CurveEdit& door = canvas_.door();
    guide.end();
    if (!viewport())
        return door.commit();
    Gesture& gesture = viewport()->gesture;
    const bool isStroke = gesture.kind() == Gesture::Kind::Stroke && door.isOpen(gesture.edit());
    if (isStroke || gesture.isAtPoints())
        gesture.end();
    return isStroke ? keepStroke() : door.commit();
}

/// It may have taken selected points away.
CurveEdit::Curves CanvasHands::keepStroke()
{
    const QPointer<CanvasFunctionBase> canvas(&canvas_);
    CurveEdit::Curves changed = canvas_.door().keep(canvas_.door().id());
    if (canvas)
        canvas->dropLostPoints();
    if (canvas)
        Q_EMIT canvas->selectionChanged(false);
    return changed;
}

bool CanvasHands::cancel()
{
    if (!viewport())
        return false;
    Gesture& gesture = viewport()->gesture;
    gesture.press.bandSelects = false;
    if (gesture.isAtView()) {
        viewport()->cancelDrag();
        return true;
    }
    if (gesture.kind() == Gesture::Kind::Stroke) {
        gesture.cancel();
        canvas_.door().cancel();
        return true;
    }
    if (!gesture.isAtPoints())
        return false;
    const CurveEdit::Id edit = gesture.edit();
    gesture.cancel();
    guide.end();
    if (canvas_.door().isOpen(edit))
        canvas_.door().cancel();
    return true;
}

bool CanvasHands::press(const QMouseEvent& event)
{
    settle();
    if (!viewport())
        return false;
    Gesture& gesture = viewport()->gesture;
    const QPoint pixel = event.position().toPoint();
    gesture.end();
    gesture.press = {};
    gesture.press.pixel = pixel;
    if (!curves_.current())
        return false;
    const bool isLeft = event.button() == Qt::LeftButton;
    if (!curves_.current()->isSpline() && !curves_.editsAll())
        return isLeft && pickCurve(pixel);

    gesture.place = placeAt(*viewport(), pixel);
    if (stateBefore(event).has(Qt::AltModifier))
        return false;
    if (gesture.keys.band && isLeft) {
        gesture.press.bandSelects = gesture.press.bandAdds = true;
        return false;
    }
    const CanvasSpline::Hit hit = hitPoint(pixel);
    gesture.place = placeAt(*viewport(), pixel); // in the plane of the curve that is current now
    if (!curves_.current())
        return true;
    if (!curves_.current()->isSpline())
        return isLeft && pressOnEmptyCanvas(event);
    return pressOnHit(event, hit);
}

bool CanvasHands::pressOnHit(const QMouseEvent& event, const CanvasSpline::Hit& hit)
{
    const MouseState held = stateBefore(event);
    CurveNodeBase& current = *curves_.current();
    current.control().activePart = hit.part;
    if (hit.point != 0 && held.has(Qt::ShiftModifier)) {
        current.control().selection().toggle(hit.point, *current.getSpline());
        current.emitCurveChanged();
        return true;
    }
    updateSelection(hit.point, held.has(Qt::ShiftModifier));
    if (event.button() == Qt::LeftButton && held.isEmpty() && curves_.hasMultipleSelection())
        viewport()->gesture.press.click = hit.point;
    return curves_.hasSelection() ? pressOnSelection(event) : pressOnEmptyCanvas(event);
}

/// The handles of the current curve's selected point can be hit, too.
CanvasSpline::Hit CanvasHands::hitIn(CurveNodeBase& curve, const QPoint& pixel) const
{
    const Selection selection = &curve == curves_.current() ? curve.control().selection() : Selection();
    return curve.getCanvasSpline()->hitTest(pixel, selection);
}

/// What lies there of the current curve, or else of another one in reach, which becomes the current one. Who hears of
/// that may take curves away.
CanvasSpline::Hit CanvasHands::hitPoint(const QPoint& pixel)
{
    curves_.dropLostPoints();
    canvas_.updateCurves();
    const auto [curve, hit] = pointAt(pixel);
    if (!curve)
        return {};
    const QPointer<CurveNodeBase> next(curve);
    if (next != curves_.current())
        canvas_.setCurrentCurve(next);
    return next && next == curves_.current() ? hit : CanvasSpline::Hit();
}

/// The one in front, in the pictures as they are; null and none where no point is.
std::pair<CurveNodeBase*, CanvasSpline::Hit> CanvasHands::pointAt(const QPoint& pixel) const
{
    CanvasCurves::Nodes reach = curves_.inReach();
    const bool hasCurrent = !reach.empty() && reach.front() == curves_.current();
    std::reverse(reach.begin() + (hasCurrent ? 1 : 0), reach.end()); // from the front to the back
    for (CurveNodeBase* const curve : reach) {
        const CanvasSpline::Hit hit = hitIn(*curve, pixel);
        if (hit.point != 0)
            return {curve, hit};
    }
    return {};
}

bool CanvasHands::hasPointAt(const QPoint& pixel) const
{
    canvas_.updateCurves();
    return pointAt(pixel).first != nullptr;
}

/// For the curves: no key is held that gives the mouse to others.
bool CanvasHands::isHandFree() const
{
    if (!viewport() || !viewport()->canShow())
        return false;
    const Gesture::Keys& keys = viewport()->gesture.keys;
    return !keys.band && !keys.draw && !keys.space;
}

bool CanvasHands::canMoveSelection() const
{
    const CanvasCurves::Nodes selected = curves_.selected();
    return std::any_of(selected.begin(), selected.end(),
                       [](const CurveNodeBase* curve) { return !curve->curve()->isLocked(); });
}

CanvasHands::Aim CanvasHands::aimAt(const QPoint& pixel, Qt::KeyboardModifiers held) const
{
    const CurveNodeBase* const current = curves_.current();
    if (!current || !isHandFree() || held.testFlag(Qt::AltModifier))
        return {};
    const bool isSpline = current->isSpline();
    const bool shift = held.testFlag(Qt::ShiftModifier);
    if (isSpline || curves_.editsAll()) {
        const auto [curve, hit] = pointAt(pixel);
        if (curve)
            return {shift || curve->curve()->isLocked() ? Deed::Select : Deed::Move, curve, hit};
    }
    if (isSpline && keepsSelection(viewport()->pixelToTime(pixel.x()), shift))
        return {canMoveSelection() ? Deed::Move : Deed::Nothing, nullptr, {}};
    if (isSpline && held.testFlag(Qt::ControlModifier))
        return {current->isShown() && !current->curve()->isLocked() ? Deed::Add : Deed::Nothing, nullptr, {}};
    CurveNodeBase* const other = otherCurveAt(pixel);
    return {other ? Deed::Select : Deed::Nothing, other, {}};
}

bool CanvasHands::pressOnSelection(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton) {
        canvas_.openPointMenu(event.globalPosition().toPoint());
        return false;
    }
    if (event.button() == Qt::LeftButton || event.button() == Qt::MiddleButton)
        beginDrag(stateBefore(event).has(Qt::ControlModifier));
    return true;
}

bool CanvasHands::pressOnEmptyCanvas(const QMouseEvent& event)
{
    Gesture& gesture = viewport()->gesture;
    if (event.button() == Qt::RightButton) {
        canvas_.openPointMenu(event.globalPosition().toPoint());
        return false;
    }
    if (event.button() != Qt::LeftButton)
        return false;
    if (stateBefore(event).has(Qt::ControlModifier) && curves_.current()->isSpline()) {
        canvas_.createPoint(gesture.place);
        return true;
    }
    if (pickCurve(event.position().toPoint()))
        return true;
    gesture.press.bandSelects = true;
    return false;
}

void CanvasHands::doubleClick(const QMouseEvent& event)
{
    settle();
    if (!curves_.current() || !viewport())
        return;
    const QPoint pixel = event.position().toPoint();
    const CanvasSpline::Hit hit = hitPoint(pixel);
    const bool picksCurve = viewport()->gesture.press.picksCurve;
    if (!curves_.current())
        return;
    if (!curves_.current()->isSpline()) {
        if (!picksCurve)
            pickCurve(pixel);
        return;
    }
    curves_.current()->control().activePart = hit.part;
    curves_.selectOnly(hit.point);
    const MouseState held = stateBefore(event);
    if (held.has(Qt::ShiftModifier) || held.has(Qt::ControlModifier))
        return;
    if (curves_.current()->control().hasSelection() || picksCurve || pickCurve(pixel))
        return;
    canvas_.createPoint(placeAt(*viewport(), pixel));
}

void CanvasHands::move(const QMouseEvent& event)
{
    if (!viewport() || curves_.inReach().empty())
        return;
    const Gesture::Place place = placeAt(*viewport(), event.position().toPoint());
    if (viewport()->gesture.isAtPoints())
        dragSelection(place, stateBefore(event));
    viewport()->gesture.place = place;
}

void CanvasHands::beginDrag(bool withCtrl)
{
    Gesture& gesture = viewport()->gesture;
    const PlaneMapping view = viewport()->mapping();
    using Part = SplineEdits::Part;
    const Part pressed = curves_.current()->control().activePart;
    const Part part = alignsHandles && pressed != Part::Point ? Part::BothTangents : pressed;
    const QString one = part == Part::Point ? tr("Move a point of %1") : tr("Change a tangent of %1");
    const bool keepsDistance = curves_.hasMultipleSelection();
    CanvasCurves::Nodes dragged = curves_.selected();
    std::erase_if(dragged, [](const CurveNodeBase* curve) { return curve->curve()->isLocked(); });
    std::vector<Gesture::Drag> drags;
    std::vector<CurveEdit::Target> targets;
    for (const CurveNodeBase* const curve : dragged) {
        const Selection& selection = curve->control().selection();
        const PlaneMapping plane = curve->mapping();
        PointDrag drag(*curve->getSpline(), selection, part, placeIn(plane, gesture.place, view), plane,
                       keepsDistance);
        targets.push_back({curve->curve(), drag.points()});
        drags.push_back({curve->curve(), std::move(drag)});
    }
    const QString text =
        dragged.empty() ? QString() : CanvasEdit::ofPoints(one, tr("Move %1 points of %2"))(dragged);
    const CurveEdit::Id edit = canvas_.door().begin(text, std::move(targets));
    std::erase_if(drags, [this](const Gesture::Drag& drag) { return !canvas_.door().isOpen(*drag.curve); });
    gesture.beginAtPoints(edit, std::move(drags));
    curves_.noteReaders(gesture.curves());
    guide.begin(gesture.grabbed(gesture.place, view), gesture.place, !keepsDistance, withCtrl);
}

void CanvasHands::prepareSnap()
{
    guide.snap.fps = viewport()->fps;
    guide.snap.timeLine = viewport()->timeLine;
    guide.snap.setGridLines(canvas_.grid().times(), canvas_.grid().values());
    const bool hasOwnScale = viewport()->ownScale.isOn();
    std::vector<Snap::Source> sources;
    for (const auto& curve : curves_.all()) {
        if (curve->isShown() && curve->isSpline())
            sources.push_back({curve->getSpline(), viewport()->gesture.moving(curve->getSpline()),
                               hasOwnScale ? heightsOf(*curve) : nullptr});
    }
    guide.snap.setPoints(sources);
    guide.isFilled = true;
}

void CanvasHands::dragSelection(const Gesture::Place& mouse, const MouseState& held)
{
    Gesture& gesture = viewport()->gesture;
    CurveEdit& door = canvas_.door();
    if (!door.isOpen(gesture.edit()) || !areDraggedThere())
        return gesture.cancel();
    const PlaneMapping view = viewport()->mapping();
    const bool scaling = held.has(Qt::ShiftModifier) || held.has(Qt::MiddleButton);
    const bool isGuided = !scaling && gesture.kind() == Gesture::Kind::Points;
    if (isGuided && !guide.isFilled && guide.snaps(held.has(Qt::ControlModifier)))
        prepareSnap();
    const Gesture::Place place =
        isGuided ? guide.guided(mouse, view, gesture.keys.axis, held.has(Qt::ControlModifier)) : mouse;
    std::vector<std::pair<std::shared_ptr<EditedCurve>, TimeInterval>> touched;
    for (Gesture::Drag& drag : gesture.drags()) {
        TimeInterval times = door.beginStep(*drag.curve);
        const PlaneMapping plane = curves_.find(*drag.curve)->mapping();
        times.unite(drag.points.step(*door.spline(*drag.curve), placeIn(plane, place, view), scaling, plane));
        touched.emplace_back(drag.curve, times);
        door.bound(*drag.curve, drag.points);
        Selection& selection = curves_.find(*drag.curve)->control().selection();
        if (selection.hasMultiple())
            selection.setCurrent(selection.listed().back());
        selection.giveUpListOfOne();
    }
    const CurveEdit::Id edit = gesture.edit();
    for (auto& [curve, times] : touched)
        times.unite(door.constrain(*curve));
    for (const auto& [curve, times] : touched) {
        if (door.isOpen(edit))
            door.preview(*curve, times);
    }
}

/// A host may have taken curves away, or deleted splines.
bool CanvasHands::areDraggedThere() const
{
    const std::vector<Gesture::Drag>& drags = viewport()->gesture.drags();
    return std::all_of(drags.begin(), drags.end(), [this](const Gesture::Drag& drag) {
        return canvas_.door().spline(*drag.curve) && curves_.find(*drag.curve);
    });
}

void CanvasHands::release(const QMouseEvent& event)
{
    if (!viewport())
        return;
    Gesture& gesture = viewport()->gesture;
    const bool isCancelled = gesture.kind() == Gesture::Kind::Cancelled;
    if (curves_.inReach().empty() || isCancelled) {
        viewport()->bandValid = false;
        viewport()->bandActive = false;
        if (isCancelled)
            gesture.end();
        return;
    }
    curves_.dropLostPoints();
    const bool isBand = gesture.press.bandSelects && !stateBefore(event).isEmpty();
    if (isBand && (gesture.press.bandAdds || !curves_.hasSelection()))
        selectInBand();
    const QPointer<CurveNodeBase> reported(curves_.hasSelection() ? curves_.current() : nullptr);
    gesture.press.bandSelects = false;
    if (isClick(event))
        curves_.selectOnly(*gesture.press.click);
    const CurveEdit::Curves changed = settle();
    CanvasCurves::report(curves_.withFirst(reported, changed));
}

/// Whether a press that kept several points selected ends where it began. A selection of many would hardly be left by
/// the mouse otherwise.
bool CanvasHands::isClick(const QMouseEvent& release) const
{
    const Gesture& gesture = viewport()->gesture;
    return gesture.press.click && release.button() == Qt::LeftButton && gesture.isAtPoints() &&
           release.position().toPoint() == gesture.press.pixel;
}

void CanvasHands::key(const QKeyEvent& event, bool isFocused)
{
    if (event.key() == Qt::Key_Escape)
        cancel();
    CurveNodeBase* const current = curves_.current();
    if (!current)
        return;
    current->changed = true;
    current->control().dropLostPoints();
    if (isDeleteKey(event))
        return canvas_.deleteSelection();
    const bool isArrow = event.key() == Qt::Key_Right || event.key() == Qt::Key_Left;
    if (isArrow && (isFocused || current->control().hasSelection()))
        stepSelection(event.key() == Qt::Key_Right);
}

} // namespace curveeditor
