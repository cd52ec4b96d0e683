// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/PointMenu.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/ControlMenu.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPointer>
#include <QWidget>

namespace curveeditor {

namespace {

/// The canvas over which the menu is open, else the one that was pressed last.
QPointer<CanvasFunctionBase> menuCanvas;

} // namespace

PointMenu::PointMenu(CanvasFunctionBase& canvas) : canvas_(canvas)
{
    const ControlMenu* const menu = ControlSplineNode::menu();
    const auto connectSlot = [&canvas, menu](auto signal, auto slot) {
        QObject::connect(menu, signal, &canvas, slot);
    };
    connectSlot(&ControlMenu::setSelectedType, &CanvasFunctionBase::setSelectedType);
    connectSlot(&ControlMenu::deleteSelectedNodes, &CanvasFunctionBase::deleteSelectedNodes);
    connectSlot(&ControlMenu::createNodeAtCursor, &CanvasFunctionBase::createNodeAtCursor);
    connectSlot(&ControlMenu::nodeChanged, &CanvasFunctionBase::currentNodeHasChanged);
    connectSlot(&ControlMenu::aboutToHide, &CanvasFunctionBase::hideMark);
}

PointMenu::~PointMenu()
{
    if (menuCanvas != &canvas_)
        return;
    ControlSplineNode::menu()->disconnect(&canvas_);
    ControlSplineNode::menu()->close();
    ControlSplineNode::menu()->showOthers({});
}

void PointMenu::addAction(QAction* action)
{
    if (action && !others_.contains(action))
        others_.append(action);
}

void PointMenu::follow()
{
    menuCanvas = &canvas_;
}

void PointMenu::open(const QPoint& globalPosition)
{
    const QPointer<ControlSplineNode> control(canvas_.currentControl());
    if (!control->hasSelection())
        canvas_.showMark();
    canvas_.paint();
    if (!control)
        return; // the host heard of the selection
    follow();
    ControlSplineNode::menu()->showOthers(others_);
    control->popupMenu(globalPosition);
}

void PointMenu::openByKey()
{
    ViewPort* const view = canvas_.getViewport();
    const QWidget* const widget = canvas_.widget();
    if (!view || !widget || !canvas_.currentSplineBase() || canvas_.isCurrentExpression())
        return;
    const SplineBase::PointInfo* const point = canvas_.currentControl()->getCurrent();
    QPoint pixel = widget->rect().center();
    if (point)
        pixel = {view->timeToPixel(point->time), view->valueToPixel(point->pos)};
    if (!widget->rect().contains(pixel))
        pixel = widget->rect().center();
    view->gesture.place = {view->pixelToTime(pixel.x()), view->pixelToValue(pixel.y())};
    open(widget->mapToGlobal(pixel));
}

bool PointMenu::isElsewhere() const
{
    return menuCanvas && menuCanvas != &canvas_;
}

} // namespace curveeditor
