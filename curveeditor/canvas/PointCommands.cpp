// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/PointCommands.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/canvas/ViewPort.h>

#include <algorithm>
#include <cmath>

PointCommands::PointCommands(CanvasFunctionBase& canvas) : canvas_(canvas) {}

bool PointCommands::canSelect() const
{
    return control() != nullptr;
}

bool PointCommands::canEdit() const
{
    return canvas_.hasSelectedPoint();
}

ControlSplineNode* PointCommands::control() const
{
    ControlSplineNode* const control = canvas_.currentControl();
    return control && !canvas_.isCurrentExpression() && control->getSpline() ? control : nullptr;
}

void PointCommands::selectAll()
{
    if (const ControlSplineNode* const present = control())
        select(std::vector<bool>(std::size_t(present->pointCount()), true));
}

void PointCommands::selectNone()
{
    select({});
}

void PointCommands::selectOthers()
{
    const ControlSplineNode* const present = control();
    if (!present)
        return;
    std::vector<bool> marks = present->selection().marks(*present->getSpline());
    marks.resize(std::size_t(present->pointCount()), false);
    marks.flip();
    select(marks);
}

void PointCommands::extendSelection(bool forward)
{
    const ControlSplineNode* const present = control();
    if (!present)
        return;
    std::vector<bool> marks = present->selection().marks(*present->getSpline());
    marks.resize(std::size_t(present->pointCount()), false);
    if (forward) {
        const auto last = std::find(marks.rbegin(), marks.rend(), true);
        if (last != marks.rbegin())
            *(last == marks.rend() ? marks.begin() : last.base()) = true;
    } else {
        const auto first = std::find(marks.begin(), marks.end(), true);
        if (first != marks.begin())
            *(first - 1) = true;
    }
    select(marks);
}

void PointCommands::nudge(double frames, double tenthsOfGridStep)
{
    const ViewPort* const view = canvas_.getViewport();
    if (!view)
        return;
    const double time = frames == 0.0 || view->fps == 0.0 ? 0.0 : frames / view->fps;
    const double value = tenthsOfGridStep * canvas_.gridStep() / 10.0;
    if ((time == 0.0 && value == 0.0) || !std::isfinite(time) || !std::isfinite(value))
        return;
    canvas_.editSelection(tr("Nudge a point of %1"), tr("Nudge %1 points of %2"),
                          [&](SplineBase& spline, const std::vector<PointSerial>& points) {
                              SplineEdits::panPoints(spline, points, time, value);
                          });
}

void PointCommands::select(const std::vector<bool>& marks)
{
    canvas_.settle();
    ControlSplineNode* const present = control();
    if (!present)
        return;
    std::vector<PointSerial> points;
    for (std::size_t i = 0; i < marks.size() && int(i) < present->pointCount(); ++i) {
        if (marks[i])
            points.push_back(present->pointAt(int(i))->serial);
    }
    if (points.size() > 1)
        present->selection().selectAll(points);
    else
        present->selection().selectOnly(points.empty() ? 0 : points.front());
    Q_EMIT canvas_.selectionChanged(true);
    canvas_.paint();
}
