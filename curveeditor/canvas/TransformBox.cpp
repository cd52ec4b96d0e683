// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/TransformBox.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/PointLimits.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace curveeditor {

namespace {

bool endsBox(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Escape || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// An extent that rounding alone has made is none: nobody sees it, and scaled to a pixel it would be a wall.
AxisRange withoutRounding(const AxisRange& range)
{
    constexpr double rounding = 1e-12;
    const double size = std::max(std::abs(range.low), std::abs(range.high));
    return range.isNothing() || range.span() > rounding * size ? range : AxisRange{range.low, range.low};
}

/// The place of the frame that is pulled; of the inside the corner that is nearest to the press.
Gesture::Place pulledPlace(const Gesture::BoxDrag& box)
{
    const auto side = [](const AxisRange& range, int pulled, double anchor) {
        const bool isHigh = pulled == 0 ? range.high - anchor < anchor - range.low : pulled > 0;
        return isHigh ? range.high : range.low;
    };
    return {side(box.frame.time, box.grip.time, box.anchor.time),
            side(box.frame.value, box.grip.value, box.anchor.value)};
}

/// Along what an edge moves, or a corner or the inside while a key is `held`.
Gesture::Axis pulledAxis(const PlaneFrame::Grip& grip, Gesture::Axis held)
{
    if (grip.value == 0 && grip.time != 0)
        return Gesture::Axis::Time;
    return grip.time == 0 && grip.value != 0 ? Gesture::Axis::Value : held;
}

} // namespace

TransformBox::TransformBox(QWidget* widget, CanvasFunctionBase& canvas, ViewPort& view)
    : widget_(widget), canvas_(canvas), view_(view)
{
    widget->installEventFilter(this);
}

QString TransformBox::refusalText()
{
    return tr("That would leave points without a time or a value.");
}

QString TransformBox::bendText()
{
    return tr("A Tcb segment beside points that are not selected may bend.");
}

void TransformBox::toggle()
{
    widget_->setFocus();
    canvas_.settle();
    if (isShown())
        return end();
    const PlaneFrame about = frame();
    if (about.time.isNothing())
        return canvas_.tell(tr("Nothing that can be edited is selected."));
    if (!(about.time.span() > 0.0) && !(about.value.span() > 0.0))
        return canvas_.tell(tr("A transform box takes points at two times or two values."));
    content_ = content();
    measured_ = {};
    canvas_.paint();
    canvas_.tell(tr("Edges scale, with Shift about the middle; the inside moves; Return ends it."));
}

void TransformBox::end()
{
    content_.reset();
    showCursor({});
    canvas_.paint();
}

/// The curves of the selected points, but for locked ones.
TransformBox::Nodes TransformBox::framed() const
{
    Nodes nodes = canvas_.curves().selected();
    std::erase_if(nodes, [](const CurveNodeBase* node) {
        const Selection& selection = node->control().selection();
        return node->curve()->isLocked() || !(selection.hasMultiple() || selection.hasSingle());
    });
    return nodes;
}

TransformBox::Content TransformBox::content() const
{
    Content content{canvas_.getCurrentCurve(), {}};
    for (const CurveNodeBase* const node : framed())
        content.points.emplace_back(node->curve(), node->control().selection());
    return content;
}

/// The order in which points were selected does not count.
bool TransformBox::isShown() const
{
    if (!content_ || content_->current != canvas_.getCurrentCurve())
        return false;
    const Nodes nodes = framed();
    return std::equal(nodes.begin(), nodes.end(), content_->points.begin(), content_->points.end(),
                      [](const CurveNodeBase* node, const auto& noted) {
                          const Selection& selection = node->control().selection();
                          return node->curve() == noted.first &&
                                 (selection == noted.second || selection.points() == noted.second.points());
                      });
}

/// In the plane of the current curve: where each curve has a scale of its own, a point of another one counts where it is seen.
PlaneFrame TransformBox::frame() const
{
    PlaneFrame frame;
    for (const CurveNodeBase* const node : framed()) {
        AxisRange values = AxisRange::nothing();
        for (const std::int32_t index : node->control().selection().indices(*node->getSpline())) {
            const SplineBase::PointInfo& point = *node->control().pointAt(index);
            frame.time.include(point.time);
            values.include(point.pos);
        }
        if (values.isNothing())
            continue;
        frame.value.include(node->heightOf(values.low));
        frame.value.include(node->heightOf(values.high));
    }
    frame.time = withoutRounding(frame.time);
    frame.value = withoutRounding(frame.value);
    return frame;
}

/// Of the frame as the picture shows it. Nobody measures many points for each move of the mouse.
FrameGrips TransformBox::grips()
{
    canvas_.updateCurves();
    std::vector<quint64> pictures{canvas_.getCurrentCurve()->pictureNumber()};
    for (const CurveNodeBase* const node : framed())
        pictures.push_back(node->pictureNumber());
    if (pictures != measured_.pictures)
        measured_ = {std::move(pictures), frame()};
    return {measured_.frame, view_.mapping()};
}

void TransformBox::draw(QPainter& painter)
{
    if (isShown())
        grips().draw(painter, canvas_.theme());
}

bool TransformBox::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != widget_ || !content_)
        return false;
    if (!isShown() && !isDragged()) {
        end();
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return takePress(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        return takeMove(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return takeRelease(*static_cast<QMouseEvent*>(event));
    case QEvent::ShortcutOverride:
        return takeOverride(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyPress:
        return takeKey(*static_cast<QKeyEvent*>(event));
    case QEvent::Leave:
        showCursor({});
        return false;
    default:
        return false;
    }
}

Gesture::Place TransformBox::placeAt(const QMouseEvent& event) const
{
    const QPoint pixel = event.position().toPoint();
    return {view_.pixelToTime(pixel.x()), view_.pixelToValue(pixel.y())};
}

bool TransformBox::isDragged() const
{
    return view_.gesture.kind() == Gesture::Kind::Box;
}

/// Presses for the view, a band or a stroke are left to them.
bool TransformBox::takePress(const QMouseEvent& event)
{
    const Gesture::Keys& keys = view_.gesture.keys;
    const bool isForOthers =
        event.modifiers().testFlag(Qt::AltModifier) || keys.space || keys.band || keys.draw;
    if (isDragged() || event.button() != Qt::LeftButton || isForOthers)
        return isDragged();
    canvas_.settle();
    const std::optional<PlaneFrame::Grip> grip = isShown() ? grips().at(event.position()) : std::nullopt;
    if (!grip) {
        end();
        return false;
    }
    begin(*grip, event);
    return true;
}

void TransformBox::begin(const PlaneFrame::Grip& grip, const QMouseEvent& event)
{
    canvas_.tell({});
    widget_->setFocus();
    Gesture& gesture = view_.gesture;
    gesture.press = {};
    gesture.press.pixel = event.position().toPoint();
    Gesture::BoxDrag box{frame(), grip, placeAt(event), {}, {}};
    std::vector<CurveEdit::Target> targets;
    const Nodes nodes = framed();
    for (const CurveNodeBase* const node : nodes) {
        box.parts.push_back({node->curve(),
                             {*node->getSpline(), node->control().selection().edited(),
                              PointLimits::allow(node->curve()->options, SplineBase::Bezier)}});
        targets.push_back({node->curve(), box.parts.back().points.points()});
    }
    const CanvasEdit::Text text =
        grip.moves() ? CanvasEdit::ofPoints(tr("Move a point of %1"), tr("Move %1 points of %2"))
                     : CanvasEdit::ofPoints(tr("Scale a point of %1"), tr("Scale %1 points of %2"));
    const CurveEdit::Id edit = canvas_.door().begin(text(nodes), std::move(targets));
    canvas_.hands().guide.begin(pulledPlace(box), box.anchor, false,
                                event.modifiers().testFlag(Qt::ControlModifier));
    gesture.beginAtBox(edit, std::move(box));
    canvas_.curves().noteReaders(gesture.curves());
}

bool TransformBox::takeMove(const QMouseEvent& event)
{
    if (!isDragged()) {
        const bool isHovering = event.buttons() == Qt::NoButton;
        showCursor(isHovering ? grips().at(event.position()) : std::nullopt);
        return false;
    }
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        canvas_.finishDrag(); // its release went astray
    } else if (!areDraggedThere()) {
        view_.gesture.cancel();
    } else {
        step(pulledTo(event));
    }
    return true;
}

/// What the mouse asks for, led by what it snaps to.
PlaneTransform TransformBox::pulledTo(const QMouseEvent& event)
{
    DragGuide& guide = canvas_.hands().guide;
    const bool isToggled = event.modifiers().testFlag(Qt::ControlModifier);
    if (!guide.isFilled && guide.snaps(isToggled))
        canvas_.hands().prepareSnap();
    const Gesture::BoxDrag& box = view_.gesture.box();
    const Gesture::Axis axis = pulledAxis(box.grip, view_.gesture.keys.axis);
    const Gesture::Place place = guide.guided(placeAt(event), view_.mapping(), axis, isToggled);
    Gesture::Place distance{place.time - box.anchor.time, place.value - box.anchor.value};
    if (axis == Gesture::Axis::Time)
        distance.value = 0.0; // to the bit
    else if (axis == Gesture::Axis::Value)
        distance.time = 0.0;
    return box.frame.pulled(box.grip, distance, event.modifiers().testFlag(Qt::ShiftModifier));
}

/// Constraints and reports of a step run foreign code, which may end the drag.
void TransformBox::step(const PlaneTransform& transform)
{
    CurveEdit& door = canvas_.door();
    Gesture& gesture = view_.gesture;
    const CurveEdit::Id edit = gesture.edit();
    std::vector<std::pair<std::shared_ptr<EditedCurve>, CurveState>> before;
    for (const Gesture::BoxDrag::Part& part : gesture.box().parts) {
        before.emplace_back(part.curve, part.curve->state());
        door.beginStep(*part.curve);
    }
    Results written = results(transform);
    QString told = written ? QString() : refusalText();
    if (written)
        gesture.box().last = transform;
    else
        written = results(gesture.box().last);
    for (std::size_t i = 0; i < before.size() && written; ++i) {
        const EditedCurve& curve = *before[i].first;
        door.spline(curve)->assign((*written)[i].state);
        door.bound(curve);
        if (told.isEmpty() && (*written)[i].mayBend)
            told = bendText();
    }
    const QPointer<TransformBox> guard(this);
    for (const auto& [curve, state] : before)
        door.constrain(*curve);
    for (const auto& [curve, state] : before) {
        if (guard && door.isOpen(edit) && curve->spline())
            door.preview(
                *curve,
                CurveDiff::between(state, *curve->spline(), curve->kind(), curve->formula()).touched());
    }
    if (!guard)
        return;
    canvas_.tell(told);
    Q_EMIT canvas_.selectionChanged(false);
    if (guard)
        canvas_.paint();
}

/// None if one of the curves can't follow.
TransformBox::Results TransformBox::results(const PlaneTransform& transform)
{
    std::vector<PointTransform::Result> results;
    for (const Gesture::BoxDrag::Part& part : view_.gesture.box().parts) {
        const CurveNodeBase& node = *canvas_.curves().find(*part.curve);
        PlaneTransform own = transform;
        own.value.pivot = node.valueAt(transform.value.pivot);
        own.value.shift *= canvas_.shareOfScale(*part.curve->spline());
        std::optional<PointTransform::Result> result = part.points.applied(*part.curve->spline(), own);
        if (!result)
            return std::nullopt;
        results.push_back(std::move(*result));
    }
    return results;
}

/// The edit may have ended, and a host may have taken curves away.
bool TransformBox::areDraggedThere() const
{
    const std::vector<Gesture::BoxDrag::Part>& parts = view_.gesture.box().parts;
    return canvas_.door().isOpen(view_.gesture.edit()) &&
           std::all_of(parts.begin(), parts.end(), [this](const Gesture::BoxDrag::Part& part) {
               return canvas_.door().spline(*part.curve) && canvas_.curves().find(*part.curve);
           });
}

bool TransformBox::takeRelease(const QMouseEvent& event)
{
    const bool wasDragged = isDragged();
    if (wasDragged && event.button() == Qt::LeftButton)
        canvas_.finishDrag();
    return wasDragged;
}

/// A host in whose window the widget is may use these keys.
bool TransformBox::takeOverride(QKeyEvent& event) const
{
    if (endsBox(event))
        event.accept();
    return endsBox(event);
}

/// During a drag Escape is the canvas's own, and Return has nothing to end yet.
bool TransformBox::takeKey(const QKeyEvent& event)
{
    if (!endsBox(event))
        return false;
    if (isDragged())
        return event.key() != Qt::Key_Escape;
    end();
    canvas_.tell({});
    return true;
}

void TransformBox::showCursor(const std::optional<PlaneFrame::Grip>& grip)
{
    canvas_.cursor.ask(CanvasCursor::Asker::Box,
                       grip ? std::optional(FrameGrips::cursorOf(*grip)) : std::nullopt);
}

} // namespace curveeditor

#include "moc_TransformBox.cpp"
