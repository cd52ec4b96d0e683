// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/edit/Truncate.h>
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/files/SensorTable.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>

#include <QPointer>
#include <QTextStream>
#include <QWidget>

#include <algorithm>
#include <set>
#include <utility>

using namespace curveeditor;

CanvasFunctionBase::CanvasFunctionBase(QObject* parent, DependencyCheck* editor)
    : QObject(parent), cursor(widget()), editor_(editor), curves_(editor), hands_(*this, curves_),
      picture_(widget(), curves_, hands_.guide), colors_(picture_.theme()),
      menu_(std::make_unique<PointMenu>(*this))
{
    connect(&door_.history(), &EditHistory::reported, this, &CanvasFunctionBase::takeReport);
    connect(&door_.history(), &EditHistory::formulaLost, this,
            [this](const QString& curve, const QString& formula) {
                showWarning(widget(), tr("Undo"),
                            tr("The formula of %1 can't be read any more:\n%2").arg(curve, formula));
            });
}

CanvasFunctionBase::~CanvasFunctionBase()
{
    menu_.reset();
    leaveStack();
    removeAllCurves();
}

void CanvasFunctionBase::leaveStack()
{
    door_.history().disconnect();
    settle();
    door_.history().leaveStack();
}

void CanvasFunctionBase::finishDrag()
{
    const QPointer<CanvasFunctionBase> guard(this);
    const CurveEdit::Curves changed = settle();
    if (!guard)
        return;
    CanvasCurves::report(curves_.withFirst(nullptr, changed));
    if (guard)
        Q_EMIT selectionChanged(false);
    if (guard)
        paint();
}

QWidget* CanvasFunctionBase::widget() const
{
    return qobject_cast<QWidget*>(parent());
}

void CanvasFunctionBase::setViewport(ViewPort* newViewport)
{
    viewport_ = newViewport;
    picture_.setViewport(newViewport);
}

CurveNodeBase* CanvasFunctionBase::addCurve(QWidget* menu, const QString& name, const QColor& color,
                                            float defaultValue, SplineBase* spline,
                                            FunctionFloatBase** expression, float minValue, float maxValue)
{
    settle();
    if (CurveNodeBase* const present = findCurve(name))
        return present;
    auto made = std::make_unique<CurveNodeBase>(this, menu, name, color, defaultValue, spline, expression,
                                                minValue, maxValue);
    if (picture_.hasOwnTheme())
        made->setColor(color, theme().canvas);
    const QPointer<CurveNodeBase> curve(made.get());
    curves_.add(std::move(made));
    setCurrentCurve(curve);
    paint();
    return curve;
}

void CanvasFunctionBase::setCurveColor(const QString& name, const QColor& color)
{
    if (CurveNodeBase* const curve = findCurve(name))
        curve->setColor(color, theme().canvas);
    paint();
}

void CanvasFunctionBase::renameCurve(const QString& oldName, const QString& newName)
{
    if (CurveNodeBase* const curve = findCurve(oldName))
        curve->setName(newName);
}

void CanvasFunctionBase::removeCurve(const QString& name)
{
    settle();
    if (CurveNodeBase* const curve = findCurve(name)) {
        removeCurve(curve);
        paint();
    }
}

void CanvasFunctionBase::removeCurve(CurveNodeBase* curve)
{
    const QPointer<CurveNodeBase> present(curve);
    settle();
    const bool wasSolo = present && present->mark(CurveMark::Solo).isOn;
    if (!present || !curves_.take(present))
        return;
    tell({}); // what was told may be about it
    curves_.followMarks();
    if (wasSolo)
        Q_EMIT marksChanged();
    setCurrentCurve(curves_.current());
}

void CanvasFunctionBase::removeAllCurves()
{
    settle();
    curves_.clear();
}

void CanvasFunctionBase::setCurrentCurve(CurveNodeBase* curve)
{
    const QPointer<CurveNodeBase> next(curve);
    if (curves_.current() != curve) {
        tell({});
        settle();
        if (viewport_)
            viewport_->gesture.press.bandSelects = false;
    }
    if (next) {
        curves_.setCurrent(*next);
        if (viewport_)
            viewport_->followScale(next->scale());
    }
    Q_EMIT changeCommandLine();
}

void CanvasFunctionBase::setCurrentCurve(const QString& name)
{
    CanvasCurves::Guarded named;
    for (const auto& curve : curves_.all()) {
        if (curve->getName() == name)
            named.emplace_back(curve.get());
    }
    for (const auto& curve : named) {
        if (curve)
            setCurrentCurve(curve);
    }
}

void CanvasFunctionBase::paint()
{
    picture_.paint();
    if (!isTakingReport_)
        Q_EMIT frameAsked();
}

void CanvasFunctionBase::tell(const QString& text)
{
    if (std::exchange(picture_.modeLine, text) == text)
        return;
    picture_.paint();
    Q_EMIT told(text);
}

void CanvasFunctionBase::takeReport(const EditReport& report)
{
    const bool wasTaking = std::exchange(isTakingReport_, true);
    const bool isPreview = report.phase == EditReport::Phase::Preview;
    curves_.markEdited(report, isPreview && viewport_ && door_.isOpen(viewport_->gesture.edit()));
    const QPointer<CanvasFunctionBase> guard(this);
    const bool isHost = report.cause == EditReport::Cause::Host;
    const bool isStep = report.cause == EditReport::Cause::Undo || report.cause == EditReport::Cause::Redo;
    if (isStep)
        tell({});
    if (isStep)
        showStep(report);
    else if (CurveNodeBase* const curve = curves_.find(*report.curve); curve && isHost)
        curve->control().dropLostPoints();
    if (guard && report.cause != EditReport::Cause::Edit) {
        Q_EMIT selectionChanged(isStep);
        paint();
    }
    if (guard)
        isTakingReport_ = wasTaking;
}

void CanvasFunctionBase::showStep(const EditReport& report)
{
    CurveNodeBase* const curve = findCurve(report.curve->name);
    if (!curve)
        return;
    Selection& selection = curve->control().selection();
    selection.dropLost(*curve->getSpline());
    if (!curve->isShown())
        return;
    const bool isSelected = std::all_of(report.points.begin(), report.points.end(),
                                        [&](PointSerial point) { return selection.contains(point); });
    if (!isSelected && report.points.size() == 1)
        selection.selectOnly(report.points.front());
    else if (!isSelected)
        selection.selectAll(report.points);
    if (curve != getCurrentCurve() && !editsAllCurves())
        setCurrentCurve(curve);
}

QString CanvasFunctionBase::getCurrentCurveName() const
{
    return noCurrentCurve() ? QStringLiteral("None") : getCurrentCurve()->getName();
}

CanvasSpline* CanvasFunctionBase::currentSpline() const
{
    return noCurrentCurve() ? nullptr : getCurrentCurve()->getCanvasSpline();
}

const SplineBase* CanvasFunctionBase::currentSplineBase() const
{
    return noCurrentCurve() ? nullptr : getCurrentCurve()->getSpline();
}

ControlSplineNode* CanvasFunctionBase::currentControl() const
{
    return noCurrentCurve() ? nullptr : &getCurrentCurve()->control();
}

ControlSplineNode* CanvasFunctionBase::currentSplineControl() const
{
    return currentSplineBase() && !isCurrentExpression() ? currentControl() : nullptr;
}

bool CanvasFunctionBase::isCurrentExpression() const
{
    return !noCurrentCurve() && !getCurrentCurve()->isSpline();
}

QString CanvasFunctionBase::getCurrentExpressionText() const
{
    FunctionFloatBase* const expression = noCurrentCurve() ? nullptr : getCurrentCurve()->getExpression();
    return expression ? QString::fromStdString(expression->getString()) : QString();
}

bool CanvasFunctionBase::getCurrentValue(const double& time, double& value) const
{
    if (noCurrentCurve())
        return false;
    value = getCurrentCurve()->getClampedValue(time);
    return true;
}

bool CanvasFunctionBase::hasSinglePoint() const
{
    return !noCurrentCurve() && currentControl()->hasSingleSelection();
}

void CanvasFunctionBase::getExtent(double& timeFirst, double& timeLast, double& valueLowest,
                                   double& valueHighest) const
{
    const SplineBase* const spline = currentSplineBase();
    if (!spline || isCurrentExpression() || spline->getControlPointsNumber() < 2)
        return;
    const auto [lowest, highest] =
        std::minmax_element(spline->getControlPoints().begin(), spline->getControlPoints().end(),
                            [](const auto* left, const auto* right) { return left->pos < right->pos; });
    timeFirst = spline->getFirst()->time;
    timeLast = spline->getLast()->time;
    valueLowest = (*lowest)->pos;
    valueHighest = (*highest)->pos;
}

bool CanvasFunctionBase::saveCurve(std::ostream& out) const
{
    if (noCurrentCurve())
        return false;
    const QColor color = getCurrentCurve()->getColor();
    CurveFile::writeColor(out, {color.red(), color.green(), color.blue()});
    return getCurrentCurve()->write(out);
}

bool CanvasFunctionBase::loadCurve(std::istream& in)
{
    CurveFile::Color color;
    settle();
    if (noCurrentCurve() || !CurveFile::readColor(in, color))
        return false;
    bool isWhole = true; // for all that is known, unless the file is read
    const QPointer<CurveNodeBase> curve(getCurrentCurve());
    CanvasEdit loading;
    loading.text = CanvasEdit::ofCurve(tr("Load %1"));
    loading.work = [&](CurveNodeBase& target) {
        isWhole = target.curve()->read(in);
        if (isWhole)
            target.control().selectOnly(nullptr);
    };
    edit(loading);
    if (curve && isWhole)
        curve->emitCurveChanged();
    return isWhole;
}

bool CanvasFunctionBase::exportSensorData(QTextStream& out) const
{
    if (!viewport_)
        return false;
    const qint64 first = truncateToInt(viewport_->limitTimeMin);
    const qint64 last = truncateToInt(viewport_->limitTimeMax);
    const qint64 lambdas = last - first + 1;
    if (lambdas > SensorTable::maximumRows)
        return false;

    out << QString::fromStdString(SensorTable::head(curves_.all().size(), lambdas));
    std::vector<double> values(curves_.all().size());
    FunctionParserBase::keyStruct* const time = FunctionParserBase::instance()->getKey("t");
    const double notedTime = time->getValue();
    for (qint64 lambda = first; lambda <= last; ++lambda) {
        time->setValue(double(lambda));
        std::transform(curves_.all().begin(), curves_.all().end(), values.begin(),
                       [lambda](const auto& curve) { return curve->getValue(double(lambda)); });
        out << QString::fromStdString(SensorTable::row(int(lambda), values));
    }
    time->setValue(notedTime);
    return true;
}

void CanvasFunctionBase::setTheme(const CurveEditorTheme& theme)
{
    picture_.setTheme(theme);
    colors_.setTheme(picture_.theme());
    for (const auto& curve : curves_.all())
        curve->setColor(curve->getColor(), picture_.theme().canvas);
    paint();
}

void CanvasFunctionBase::setImageStrength(double share)
{
    picture_.imageStrength = share >= 0.0 ? std::min(share, 1.0) : 0.0;
    paint();
}

void CanvasFunctionBase::setShowsSpeed(bool on)
{
    picture_.showsSpeed = on;
    paint();
}

void CanvasFunctionBase::setMouseTime(std::optional<double> time)
{
    picture_.mouseTime = time;
    if (picture_.showsSpeed)
        picture_.paint();
}

void CanvasFunctionBase::openPointMenuByKey()
{
    settle();
    dropLostPoints();
    menu_->openByKey();
}

void CanvasFunctionBase::showMark()
{
    if (viewport_)
        picture_.mark = viewport_->gesture.place;
}

void CanvasFunctionBase::setEditsAllCurves(bool on)
{
    settle();
    curves_.setEditsAll(on);
    Q_EMIT selectionChanged(false);
    paint();
}

void CanvasFunctionBase::changeSelections(const NodeWork& work)
{
    settle();
    dropLostPoints();
    for (CurveNodeBase* const curve : curves_.inReach())
        work(curve->control());
    Q_EMIT selectionChanged(true);
    paint();
}

/// Null if it does not show, or has no such point.
CurveNodeBase* CanvasFunctionBase::curveToSelectIn(const QString& name, const std::vector<int>& indices) const
{
    CurveNodeBase* const curve = findCurve(name);
    const bool isShown = curve && curve->isShown() && curve->isSpline();
    const auto isPoint = [curve](int index) {
        return curve->control().pointAt(index) != nullptr;
    };
    return isShown && std::all_of(indices.begin(), indices.end(), isPoint) ? curve : nullptr;
}

void CanvasFunctionBase::selectPoints(const QString& name, const std::vector<int>& indices)
{
    if (!curveToSelectIn(name, indices))
        return;
    settle();
    dropLostPoints();
    CurveNodeBase* const curve = curveToSelectIn(name, indices); // who heard of that may have taken it away
    if (!curve)
        return;
    ControlSplineNode& control = curve->control();
    const std::set<int> inOrder(indices.begin(), indices.end());
    std::vector<PointSerial> points;
    for (const int index : inOrder)
        points.push_back(control.pointAt(index)->serial);
    control.selectPoints(points);
    if (curve != getCurrentCurve() && !editsAllCurves())
        setCurrentCurve(curve);
    Q_EMIT selectionChanged(true);
    paint();
}

void CanvasFunctionBase::nodeHasChanged(const ControlSplineNode* control)
{
    for (const auto& curve : curves_.present()) {
        if (!curve || &curve->control() != control)
            continue;
        const QPointer<CanvasFunctionBase> guard(this);
        curve->changed = true;
        picture_.paint();
        curve->emitCurveChanged();
        if (guard)
            paint();
        return;
    }
}

void CanvasFunctionBase::currentNodeHasChanged()
{
    if (!noCurrentCurve())
        nodeHasChanged(currentControl());
}

#include "moc_CanvasFunctionBase.cpp"
