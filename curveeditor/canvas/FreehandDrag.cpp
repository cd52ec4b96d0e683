// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/FreehandDrag.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/PointLimits.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace curveeditor {

namespace {

constexpr double toleranceInPixels = 2.0;

} // namespace

FreehandDrag::FreehandDrag(QWidget* widget, CanvasFunctionBase& canvas, ViewPort& view)
    : widget_(widget), canvas_(canvas), view_(view)
{
    widget->installEventFilter(this);
}

bool FreehandDrag::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != widget_)
        return false;
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
        return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && takeEscape();
    case QEvent::Hide:
        if (isDrawing() && !isAtWork_)
            keep(); // as leaving does
        return false;
    default:
        return false;
    }
}

void FreehandDrag::drawNext()
{
    drawsNext_ = view_.gesture.keys.draw = true;
    widget_->setFocus();
    canvas_.cursor.ask(CanvasCursor::Asker::View, Qt::CrossCursor);
    canvas_.tell(tr("The next drag draws; Escape forgets it."));
}

/// Losing the focus forgets it, as it does held keys.
bool FreehandDrag::isAwaited() const
{
    return drawsNext_ && view_.gesture.keys.draw;
}

bool FreehandDrag::isDrawing() const
{
    return view_.gesture.kind() == Gesture::Kind::Stroke && trial_;
}

bool FreehandDrag::takePress(const QMouseEvent& event)
{
    if (isDrawing())
        return true;
    const bool begins = event.button() == Qt::LeftButton && view_.gesture.keys.draw && view_.canShow();
    if (!begins)
        return false;
    canvas_.settle();
    widget_->setFocus();
    CurveNodeBase* const curve = canvas_.getCurrentCurve();
    if (!canDraw(curve)) {
        end();
        return true;
    }
    curve_ = curve;
    stroke_.emplace(placeAt(event));
    trial_.emplace(canvas_.door(), CurveEdit::Curves{curve->curve()}, tr("Draw %1").arg(curve->getName()));
    view_.gesture.beginStroke(trial_->id());
    canvas_.curves().noteReaders({curve->curve()});
    return true;
}

/// Or says why not.
bool FreehandDrag::canDraw(const CurveNodeBase* curve)
{
    if (!curve)
        return false;
    QString reason;
    if (!curve->isShown())
        reason = tr("%1 is hidden.").arg(curve->getName());
    else if (!curve->isSpline() || !curve->getSpline())
        reason = tr("A formula can't be drawn.");
    else if (curve->curve()->isLocked())
        reason = tr("%1 is locked.").arg(curve->getName());
    else if (!PointLimits::fitType(curve->curve()->options))
        reason = tr("This makes Bezier or Linear points, which the curve may not have.");
    canvas_.tell(reason);
    return reason.isEmpty();
}

/// Beyond the edges the stroke follows them.
Stroke::Place FreehandDrag::placeAt(const QMouseEvent& event) const
{
    const PlaneMapping plane = view_.mapping();
    return {plane.timeAt(std::clamp(event.position().x(), 0.0, double(plane.pixelWidth))),
            plane.valueAt(std::clamp(event.position().y(), 0.0, double(plane.pixelHeight)))};
}

bool FreehandDrag::takeMove(const QMouseEvent& event)
{
    if (!isDrawing() || isAtWork_)
        return isAtWork_;
    if (event.buttons().testFlag(Qt::LeftButton))
        draw(placeAt(event));
    else
        keep(); // its release went astray
    return true;
}

void FreehandDrag::draw(const Stroke::Place& place)
{
    const CurveOptions& options = curve_->curve()->options;
    const auto type = PointLimits::fitType(options);
    stroke_->drawTo(place, view_.mapping().timeOfPixels(1.0));
    SplineBase before;
    if (!type || !trial_->isPossible() || !before.assign(trial_->before().spline))
        return end();
    const QScopedValueRollback atWork(isAtWork_, true); // a host that hears of it may let events through
    const double tolerance = std::abs(view_.mapping().valueOfPixels(toleranceInPixels));
    if (!trial_->show({SplineEdits::withSpan(before, stroke_->points(tolerance, *type),
                                             PointLimits::allow(options, SplineBase::Bezier))}))
        return end();
    canvas_.paint();
}

bool FreehandDrag::takeRelease(const QMouseEvent& event)
{
    const bool wasDrawing = isDrawing();
    if (wasDrawing && !isAtWork_ && event.button() == Qt::LeftButton)
        keep();
    return wasDrawing;
}

/// A host in whose window the widget is may use Escape.
bool FreehandDrag::takeOverride(QKeyEvent& event) const
{
    const bool isOurs = (isDrawing() || isAwaited()) && event.key() == Qt::Key_Escape;
    if (isOurs)
        event.accept();
    return isOurs;
}

bool FreehandDrag::takeEscape()
{
    if (isAtWork_ || (!isDrawing() && !isAwaited()))
        return isAtWork_;
    canvas_.cancelGesture();
    canvas_.tell({});
    end();
    return true;
}

void FreehandDrag::keep()
{
    const bool isKept = !stroke_->isDot() && !trial_->keep().empty();
    if (!isKept)
        trial_->takeBack();
    const QPointer<CurveNodeBase> curve = curve_;
    end();
    if (!curve)
        return;
    curve->control().dropLostPoints();
    Q_EMIT canvas_.selectionChanged(false);
    if (curve && isKept)
        canvas_.nodeHasChanged(&curve->control());
}

void FreehandDrag::end()
{
    if (view_.gesture.kind() == Gesture::Kind::Stroke)
        view_.gesture.end();
    trial_.reset();
    stroke_.reset();
    curve_ = nullptr;
    if (std::exchange(drawsNext_, false)) {
        view_.gesture.keys.draw = false;
        canvas_.cursor.ask(CanvasCursor::Asker::View, {});
    }
    canvas_.paint();
}

} // namespace curveeditor

#include "moc_FreehandDrag.cpp"
