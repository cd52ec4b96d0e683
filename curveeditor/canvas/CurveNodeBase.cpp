// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurveNodeBase.h>

#include <curveeditor/canvas/CanvasExpression.h>
#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/ColorContrast.h>
#include <curveeditor/canvas/DependencyCheck.h>
#include <curveeditor/canvas/ReleasedAction.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/SplineBase.h>

#include <QAction>
#include <QActionGroup>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

using namespace curveeditor;

namespace {

constexpr std::size_t samplesOfExtent = 1000;
constexpr double defaultFramesPerTimeUnit = 10.0;
constexpr double contrastOfNames = 4.5;
constexpr double lockedShare = 0.5; // of its own colour

/// The exclusive group of all curves in that menu, which lives as long as the menu.
QActionGroup* curvesGroup(QWidget* menu)
{
    const QString groupName = QStringLiteral("curvesGroup");
    auto* group = menu->findChild<QActionGroup*>(groupName, Qt::FindDirectChildrenOnly);
    if (!group) {
        group = new QActionGroup(menu);
        group->setObjectName(groupName);
    }
    return group;
}

} // namespace

CurveNodeBase::CurveNodeBase(CanvasFunctionBase* canvas, QWidget* menu, const QString& name,
                             const QColor& color, float defaultValue, SplineBase* spline,
                             FunctionFloatBase** expression, float minValue, float maxValue)
    : canvas_(canvas), curve_(canvas->door().history().curve(name, spline, expression)), action_(new QAction),
      canvasSpline_(std::make_unique<CanvasSpline>(spline, canvas_->theme())),
      canvasExpression_(std::make_unique<CanvasExpression>(canvas_->theme())),
      control_(canvas_->door(), curve_), defaultValue_(defaultValue), minValue_(minValue), maxValue_(maxValue)
{
    action_->setObjectName(name);
    action_->setText(tr(name.toUtf8().constData()));
    action_->setCheckable(true);
    if (menu) {
        curvesGroup(menu)->addAction(action_);
        menu->addAction(action_);
    }
    connect(action_, &QAction::triggered, this, &CurveNodeBase::setThisNode);
    curve_->setKind(getExpression() ? CurveKind::Expression : CurveKind::Spline);
    setColor(color, Qt::black);
}

CurveNodeBase::~CurveNodeBase()
{
    releaseAction(action_);
}

void CurveNodeBase::setName(const QString& newName)
{
    canvas_->door().history().rename(*curve_, newName);
    action_->setText(newName);
}

bool CurveNodeBase::isShown() const
{
    return !curve_->options.hidden && (isSolo_ || !(isBesideSolo || isHidden_));
}

MarkState CurveNodeBase::mark(CurveMark mark) const
{
    const CurveOptions& options = curve_->options;
    if (mark == CurveMark::Lock)
        return {curve_->isLocked(), options.locked};
    return {mark == CurveMark::Solo ? isSolo_ : options.hidden || isHidden_, options.hidden};
}

void CurveNodeBase::setMark(CurveMark mark, bool on)
{
    bool& marked = mark == CurveMark::Solo   ? isSolo_
                   : mark == CurveMark::Hide ? isHidden_
                                             : curve_->isLockedByUser;
    marked = on;
}

void CurveNodeBase::toggleAction()
{
    action_->setChecked(true);
}

void CurveNodeBase::setColor(const QColor& color, const QColor& background)
{
    color_ = color;
    nameColor_ = QColor();
    const QColor line = canvas_->colors().lineOf(color);
    const QColor shown = curve_->isLocked() ? mixedColor(line, background, lockedShare) : line;
    canvasSpline_->setColors(shown, background);
    canvasExpression_->setColors(QPen(shown, 0, Qt::SolidLine), background);
    renewPictureNumber();
}

QColor CurveNodeBase::lineColor() const
{
    return canvasSpline_->getColor();
}

QColor CurveNodeBase::nameColor()
{
    if (!nameColor_.isValid())
        nameColor_ = contrastingColor(lineColor(), {canvas_->theme().canvas}, contrastOfNames);
    return nameColor_;
}

double CurveNodeBase::getValue(const double& time) const
{
    if (isSpline())
        return getSpline() ? (*getSpline())(time) : 0.0;
    FunctionFloatBase* const tree = getExpression();
    return tree ? tree->evaluate() : 0.0;
}

double CurveNodeBase::getClampedValue(const double& time) const
{
    if (isSpline())
        return clamped(getValue(time));
    FunctionFloatBase* const tree = getExpression();
    if (!tree)
        return 0.0;
    EvaluationTime evaluationTime;
    evaluationTime.set(time, framesPerTimeUnit());
    return clamped(tree->evaluate());
}

double CurveNodeBase::slope(double time, double step) const
{
    if (!isSpline())
        return (getClampedValue(time + step / 2.0) - getClampedValue(time - step / 2.0)) / step;
    const double value = getValue(time);
    return getSpline() && clamped(value) == value ? getSpline()->slope(time) : 0.0;
}

double CurveNodeBase::clamped(double value) const
{
    return CanvasSpline::clamped(value, double(minValue_), double(maxValue_));
}

double CurveNodeBase::framesPerTimeUnit() const
{
    const ViewPort* const viewport = canvas_->getViewport();
    return viewport ? viewport->fps : defaultFramesPerTimeUnit;
}

PlaneMapping CurveNodeBase::planeIn(const PlaneMapping& view) const
{
    const ViewPort* const viewport = canvas_->getViewport();
    return viewport ? viewport->ownScale.planeOf(scale_, view) : view;
}

PlaneMapping CurveNodeBase::mapping() const
{
    const ViewPort* const viewport = canvas_->getViewport();
    return viewport ? planeIn(viewport->mapping()) : PlaneMapping();
}

double CurveNodeBase::heightOf(double value) const
{
    return placeIn(canvas_->getViewport()->mapping(), {0.0, value}, mapping()).value;
}

double CurveNodeBase::valueAt(double height) const
{
    return placeIn(mapping(), {0.0, height}, canvas_->getViewport()->mapping()).value;
}

int CurveNodeBase::rowOf(double value, const ViewPort& viewport) const
{
    return mapping().pixelRow(viewport.withinLimits(value));
}

bool CurveNodeBase::updatesScale(const ViewPort& viewport) const
{
    return isScaleStale_ && viewport.ownScale.isOn() && !viewport.ownScale.isFrozen;
}

/// Of a formula the scale is that of its visible values.
void CurveNodeBase::noteScale(const ViewPort& viewport)
{
    isScaleStale_ = isScaleStale_ || changed || !edited_.isEmpty() || (!isSpline() && viewport.dirty);
    if (!updatesScale(viewport) || (!isSpline() && getExpression()))
        return;
    AxisRange values = AxisRange::nothing();
    if (isSpline() && getSpline())
        includeValues({getSpline()->getFirst()->time, getSpline()->getLast()->time}, values);
    updateScale(values);
}

void CurveNodeBase::updateScale(const AxisRange& values)
{
    const ViewPort& viewport = *canvas_->getViewport();
    if (!updatesScale(viewport))
        return;
    const CurveOptions& options = curve_->options;
    const AxisRange bounds{std::max(double(minValue_), options.lowest),
                           std::min(double(maxValue_), options.highest)};
    const AxisRange scale = OwnScale::of(values, bounds);
    isScaleStale_ = false;
    changed = changed || scale != scale_;
    scale_ = canvasSpline_->scale = scale;
}

/// A jump that a loop repeats behind the last point lies between two columns.
bool CurveNodeBase::jumpsAgainPast(const QPoint& pixel, const ViewPort& viewport, int distance) const
{
    const SplineBase& spline = *getSpline();
    const auto& points = spline.getControlPoints();
    const bool isLoop = spline.lastType == SplineBase::Loop || spline.lastType == SplineBase::LoopOffset;
    const bool isBehind = viewport.pixelToTime(pixel.x() + 1) > spline.getLast()->time;
    const auto isHold = [](const auto* point) {
        return point->type == SplineBase::Hold;
    };
    if (!isLoop || !isBehind || std::none_of(points.begin(), points.end(), isHold))
        return false;
    for (const int column : {pixel.x() - 1, pixel.x()}) {
        const auto [top, bottom] = std::minmax({rowOf(getValue(viewport.pixelToTime(column)), viewport),
                                                rowOf(getValue(viewport.pixelToTime(column + 1)), viewport)});
        if (top - distance < pixel.y() && pixel.y() < bottom + distance)
            return true;
    }
    return false;
}

bool CurveNodeBase::passes(const QPoint& pixel, const ViewPort& viewport, int distance) const
{
    EvaluationTime evaluationTime;
    for (int column = pixel.x() - 1; column <= pixel.x() + 1; ++column) {
        const double time = viewport.pixelToTime(column);
        evaluationTime.set(time, viewport.fps);
        const double value = getValue(time);
        if (std::isfinite(value) && std::abs(rowOf(value, viewport) - pixel.y()) < distance)
            return true;
    }
    return isSpline() && getSpline() &&
           (jumpsPast(pixel, viewport, distance) || jumpsAgainPast(pixel, viewport, distance));
}

/// At a point of the type Hold.
bool CurveNodeBase::jumpsPast(const QPoint& pixel, const ViewPort& viewport, int distance) const
{
    const double last = viewport.pixelToTime(pixel.x() + 1);
    const auto& points = getSpline()->getControlPoints();
    auto point = std::partition_point(
        points.begin() + 1, points.end(),
        [first = viewport.pixelToTime(pixel.x() - 1)](const auto* earlier) { return earlier->time < first; });
    for (; point != points.end() && (*point)->time <= last; ++point) {
        const auto [top, bottom] =
            std::minmax({rowOf(point[-1]->pos, viewport), rowOf((*point)->pos, viewport)});
        if ((*point)->type == SplineBase::Hold && top - distance < pixel.y() && pixel.y() < bottom + distance)
            return true;
    }
    return false;
}

void CurveNodeBase::includeValues(const AxisRange& range, AxisRange& values) const
{
    std::vector<double> times(samplesOfExtent);
    std::vector<double> found(times.size());
    for (std::size_t i = 0; i < times.size(); ++i)
        times[i] = range.low + range.span() * double(i) / double(times.size() - 1);
    if (isSpline() && getSpline()) {
        getSpline()->evaluate(times.data(), found.data(), times.size());
        for (const SplineBase::PointInfo* point : getSpline()->getControlPoints())
            values.include(point->pos);
    } else if (!isSpline() && getExpression()) {
        getExpression()->evaluateBlock(times.data(), framesPerTimeUnit(), found.data(), found.size());
    } else {
        return;
    }
    for (const double value : found) {
        if (std::isfinite(value))
            values.include(clamped(value));
    }
}

void CurveNodeBase::update(ViewPort* viewport)
{
    noteScale(*viewport);
    if (isSpline() && (canvasSpline_->selected || canvasSpline_->showsPoints))
        canvasSpline_->placePoints();
    if (drawnSelection_ != shownSelection())
        renewPictureNumber();
    const bool isSampled = !isSpline() && getExpression();
    if (!isStale(*viewport) || isSampled)
        return;
    if (isSpline())
        canvasSpline_->rebuild(viewport, minValue_, maxValue_,
                               changed || viewport->dirty ? TimeInterval::everything() : edited_);
    changed = false;
    edited_ = {};
    renewPictureNumber();
}

void CurveNodeBase::drawLine(CurvePainter& curves, double width) const
{
    curves.drawSolid(isSpline() ? canvasSpline_->curveLine : canvasExpression_->curveLine, lineColor(),
                     width);
}

void CurveNodeBase::draw(CurvePainter& curves) const
{
    if (isSpline())
        canvasSpline_->draw(curves, control_.selection(), control_.activePart);
    else if (getExpression())
        canvasExpression_->draw(curves);
}

/// What of the selection is to be seen if the curve is not the current one.
std::optional<Selection> CurveNodeBase::shownSelection() const
{
    return canvasSpline_->showsPoints ? std::optional(control_.selection()) : std::nullopt;
}

void CurveNodeBase::renewPictureNumber()
{
    static quint64 last = 0;
    pictureNumber_ = ++last;
    drawnSelection_ = shownSelection();
}

bool CurveNodeBase::isStale(const ViewPort& viewport) const
{
    return changed || viewport.dirty || !edited_.isEmpty();
}

bool CurveNodeBase::needsSamples(const ViewPort& viewport) const
{
    return !isSpline() && getExpression() && (isStale(viewport) || updatesScale(viewport));
}

void CurveNodeBase::setExpressionLine(DeviceLine line)
{
    canvasExpression_->curveLine = std::move(line);
    changed = false;
    edited_ = {};
    renewPictureNumber();
}

bool CurveNodeBase::findsCycle(FunctionFloatBase& expression, QString& withFunc) const
{
    const QString variable = DependencyCheck::lowerVariableName(getName());
    DependencyCheck* const editor = canvas_->getEditor();
    return editor && curve_->tryOut(expression,
                                    [&] { return editor->checkDependencies(variable, variable, withFunc); });
}

std::pair<QString, QString> CurveNodeBase::reportedNames(const QString& fullName)
{
    const QStringList parts = fullName.split(QLatin1Char('.'), Qt::SkipEmptyParts);
    return parts.isEmpty() ? std::pair(fullName, fullName) : std::pair(parts.first(), parts.last());
}

void CurveNodeBase::emitCurveChanged()
{
    if (curve_->isLocked())
        return;
    auto [nodeName, curveName] = reportedNames(getName());
    Q_EMIT curveHasChanged(nodeName, curveName);
}

bool CurveNodeBase::write(std::ostream& out) const
{
    FunctionFloatBase* const tree = getExpression();
    if (isSpline() ? !getSpline() : !tree)
        return false;
    if (isSpline()) {
        CurveFile::writeSpline(out, *getSpline());
    } else {
        CurveFile::writeExpression(out, tree->getString());
    }
    return out.good();
}

void CurveNodeBase::setThisNode()
{
    canvas_->setCurrentCurve(this);
}

#include "moc_CurveNodeBase.cpp"
