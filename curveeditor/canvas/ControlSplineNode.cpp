// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ControlSplineNode.h>

#include <curveeditor/canvas/ControlMenu.h>

#include <QPointer>

#include <algorithm>
#include <utility>

using namespace curveeditor;

ControlSplineNode::ControlSplineNode(CurveEdit& door, std::shared_ptr<EditedCurve> curve)
    : door_(door), curve_(std::move(curve))
{
}

ControlMenu* ControlSplineNode::menu()
{
    static QPointer<ControlMenu> shared;
    if (!shared)
        shared = new ControlMenu;
    return shared;
}

const SplineBase::PointInfo* ControlSplineNode::getCurrent() const
{
    return pointAt(currentIndex());
}

void ControlSplineNode::selectOnly(const SplineBase::PointInfo* point)
{
    selection_.selectOnly(point ? point->serial : 0);
}

void ControlSplineNode::selectPoints(const std::vector<PointSerial>& points)
{
    if (points.size() > 1)
        selection_.selectAll(points);
    else
        selection_.selectOnly(points.empty() ? 0 : points.front());
}

void ControlSplineNode::toggleSelected(const SplineBase::PointInfo* point)
{
    if (point && getSpline())
        selection_.toggle(point->serial, *getSpline());
}

bool ControlSplineNode::selectInBand(double timeLow, double timeHigh, double valueLow, double valueHigh,
                                     bool adds)
{
    const std::vector<bool> marks =
        adds && getSpline() ? selection_.marks(*getSpline()) : std::vector<bool>();
    std::vector<PointSerial> inside;
    for (int index = 0; index < pointCount(); ++index) {
        const SplineBase::PointInfo& point = *pointAt(index);
        const bool isInside =
            point.time > timeLow && point.time < timeHigh && point.pos > valueLow && point.pos < valueHigh;
        if (isInside || (!marks.empty() && marks[std::size_t(index)]))
            inside.push_back(point.serial);
    }
    selection_.selectAll(std::move(inside));
    return hasSelection();
}

void ControlSplineNode::dropLostPoints()
{
    curve_->mend();
    if (getSpline())
        selection_.dropLost(*getSpline());
    else
        selection_ = Selection();
}

bool ControlSplineNode::isSelected(const SplineBase::PointInfo* point) const
{
    return point && selection_.contains(point->serial);
}

int ControlSplineNode::currentIndex(int guess) const
{
    const PointSerial current = selection_.current();
    const SplineBase::PointInfo* const guessed = pointAt(guess);
    if (current == 0 || !getSpline())
        return -1;
    return guessed && guessed->serial == current ? guess : indicesOf({current}, *getSpline()).front();
}

const SplineBase::PointInfo* ControlSplineNode::pointAt(int index) const
{
    return index >= 0 && index < pointCount() ? getSpline()->getControlPoints()[std::size_t(index)] : nullptr;
}

int ControlSplineNode::pointCount() const
{
    return getSpline() ? int(getSpline()->getControlPointsNumber()) : 0;
}

std::vector<double> ControlSplineNode::selectedTimes() const
{
    std::vector<double> times;
    for (const std::int32_t index : indicesOf(selection_.edited(), *getSpline())) {
        if (index >= 0)
            times.push_back(pointAt(index)->time);
    }
    return times;
}

void ControlSplineNode::popupMenu(const QPoint& globalPosition)
{
    menu()->enableEntries(hasSelection(), *curve_);
    menu()->showMenu(globalPosition, 0);
}

bool ControlSplineNode::edit(const QString& one, const QString& many, std::size_t count,
                             const std::function<void(SplineBase&)>& work)
{
    const QPointer<ControlSplineNode> guard(this);
    door_.commit();
    if (!guard || !getSpline())
        return false;
    const QString& name = curve_->name;
    door_.begin(count == 1 ? one.arg(name) : many.arg(count).arg(name), {curve_});
    if (SplineBase* const spline = openSpline())
        work(*spline);
    return !door_.commit().empty();
}

void ControlSplineNode::setSelectedType(int type)
{
    edit(tr("Change the type of a point of %1"), tr("Change the type of %1 points of %2"),
         selection_.edited().size(),
         [this, type](SplineBase& spline) { SplineEdits::setType(spline, selection_.edited(), type); });
}

#include "moc_ControlSplineNode.cpp"
