// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ControlSplineNode.h>

#include <curveeditor/canvas/ControlMenu.h>

#include <QPointer>

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

namespace {

constexpr double tangentShortening = 0.001;

bool earlier(const SplineBase::PointInfo* left, const SplineBase::PointInfo* right)
{
    return left->time < right->time;
}

} // namespace

ControlSplineNode::ControlSplineNode(CanvasSpline* enclosingPicture) : owner(enclosingPicture)
{
    connect(menu(), &ControlMenu::setSelectedLinear, this, &ControlSplineNode::setSelectedLinear);
    connect(menu(), &ControlMenu::setSelectedBezier, this, &ControlSplineNode::setSelectedBezier);
    connect(menu(), &ControlMenu::setSelectedTcb, this, &ControlSplineNode::setSelectedTcb);
    connect(menu(), &ControlMenu::deleteSelectedNodes, this, &ControlSplineNode::deleteSelectedNodes);
}

ControlMenu* ControlSplineNode::menu()
{
    static QPointer<ControlMenu> shared;
    if (!shared)
        shared = new ControlMenu;
    return shared;
}

void ControlSplineNode::selectOnly(SplineBase::PointInfo* point)
{
    current = point;
    selection.clear();
}

void ControlSplineNode::toggleSelected(SplineBase::PointInfo* point)
{
    if (!point)
        return;
    const auto listed = std::find(selection.begin(), selection.end(), point);
    if (listed != selection.end()) {
        selection.erase(listed);
    } else if (point == current) {
        selectOnly(nullptr);
    } else if (!selection.empty()) {
        const auto notEarlier = std::find_if(selection.begin(), selection.end(),
                                             [&](const auto* entry) { return !earlier(entry, point); });
        selection.insert(notEarlier, point);
        current = nullptr;
    } else if (current) {
        selection = earlier(point, current) ? std::vector{point, current} : std::vector{current, point};
        current = nullptr;
    } else {
        current = point;
    }
}

void ControlSplineNode::dropLostPoints()
{
    if (currentIndex() < 0)
        current = nullptr;
    if (selection.empty())
        return;
    std::unordered_set<const SplineBase::PointInfo*> held;
    if (spline)
        held.insert(spline->getControlPoints().begin(), spline->getControlPoints().end());
    std::erase_if(selection, [&](const auto* point) { return !held.contains(point); });
}

bool ControlSplineNode::isSelected(const SplineBase::PointInfo* point) const
{
    return point &&
           (point == current || std::find(selection.begin(), selection.end(), point) != selection.end());
}

std::vector<bool> ControlSplineNode::selectedPoints() const
{
    std::unordered_set<const SplineBase::PointInfo*> chosen(selection.begin(), selection.end());
    chosen.insert(current);
    std::vector<bool> marks;
    marks.reserve(std::size_t(pointCount()));
    for (int index = 0; index < pointCount(); ++index)
        marks.push_back(chosen.contains(pointAt(index)));
    return marks;
}

int ControlSplineNode::currentIndex() const
{
    return current && spline ? spline->findIndex(current) : -1;
}

SplineBase::PointInfo* ControlSplineNode::pointAt(const int& index) const
{
    return index >= 0 && index < pointCount() ? spline->getControlPoints()[std::size_t(index)] : nullptr;
}

int ControlSplineNode::pointCount() const
{
    return spline ? int(spline->getControlPointsNumber()) : 0;
}

SplineBase::PointInfo* ControlSplineNode::modifyCurrent()
{
    return pointAt(currentIndex());
}

void ControlSplineNode::getSelectionSpan(double& first, double& last) const
{
    if (selection.empty())
        return;
    first = selection.front()->time;
    last = selection.back()->time;
}

bool ControlSplineNode::isOutsideSelection(const double& time) const
{
    if (!hasMultipleSelection())
        return false;
    const auto below = [&](const auto* entry) {
        return entry->time - time < 0.0;
    };
    const auto above = [&](const auto* entry) {
        return entry->time - time > 0.0;
    };
    return std::none_of(selection.begin(), selection.end(), below) ||
           std::none_of(selection.begin(), selection.end(), above);
}

void ControlSplineNode::movePoint(const double& time, const double& value)
{
    if (!holdsSinglePoint())
        return;
    if (isActiveNone()) {
        placeCurrent(time, value);
        return;
    }
    const double valueDistance = value - current->pos;
    const double timeDistance = time - current->time;
    const double shortening = std::hypot(valueDistance, timeDistance) * tangentShortening;
    const double slope = valueDistance / (timeDistance + (timeDistance >= 0.0 ? shortening : -shortening));
    if (isActiveLeft() || isActiveBoth())
        spline->setTanLeft(current, slope);
    if (isActiveRight() || isActiveBoth())
        spline->setTanRight(current, slope);
    selectOnly(current);
}

void ControlSplineNode::scalePoint(const double& timeFactor, const double& valueFactor)
{
    if (holdsSinglePoint())
        placeCurrent(current->time * timeFactor, current->pos * valueFactor);
}

void ControlSplineNode::panPoint(const double& timeOffset, const double& valueOffset)
{
    if (holdsSinglePoint())
        placeCurrent(current->time + timeOffset, current->pos + valueOffset);
}

void ControlSplineNode::popupMenu(const QPoint& globalPosition)
{
    const bool any = hasSelection();
    for (const int id : {ControlMenu::SelectionToLinear, ControlMenu::SelectionToBezier,
                         ControlMenu::SelectionToTcb, ControlMenu::DeleteKey})
        menu()->setEntryEnabled(id, any);
    menu()->setEntryEnabled(ControlMenu::CreateKey, !any);
    menu()->showMenu(globalPosition, 0);
}

void ControlSplineNode::setSelectedLinear()
{
    setSelectedType(SplineBase::Linear);
}

void ControlSplineNode::setSelectedBezier()
{
    for (SplineBase::PointInfo* point : editedPoints()) {
        const int index = spline->findIndex(point);
        double length = 0.0;
        if (index < pointCount() - 1)
            spline->setTanRight(point, spline->getTangentRightAtNode(unsigned(index + 1), length));
        if (index != 0)
            spline->setTanLeft(point, spline->getTangentLeftAtNode(unsigned(index), length));
    }
    setSelectedType(SplineBase::Bezier);
}

void ControlSplineNode::setSelectedTcb()
{
    setSelectedType(SplineBase::Tcb);
}

void ControlSplineNode::deleteSelectedNodes()
{
    const std::vector<SplineBase::PointInfo*> points = editedPoints();
    for (const SplineBase::PointInfo* point : points)
        spline->remove(point);
    selectOnly(nullptr);
    if (!points.empty())
        Q_EMIT pointsChanged();
}

std::vector<SplineBase::PointInfo*> ControlSplineNode::editedPoints()
{
    dropLostPoints();
    if (hasMultipleSelection())
        return selection;
    return current ? std::vector{current} : std::vector<SplineBase::PointInfo*>();
}

bool ControlSplineNode::holdsSinglePoint()
{
    dropLostPoints();
    return current && !hasMultipleSelection();
}

void ControlSplineNode::setSelectedType(int type)
{
    const std::vector<SplineBase::PointInfo*> points = editedPoints();
    for (SplineBase::PointInfo* point : points)
        point->type = type;
    if (!points.empty())
        Q_EMIT pointsChanged();
}

void ControlSplineNode::placeCurrent(double time, double value)
{
    spline->setTime(current, time);
    spline->setPos(current, value);
    selectOnly(current);
}
