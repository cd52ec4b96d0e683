// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/CanvasExpression.h>
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/edit/Truncate.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/files/SensorTable.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParseMessage.h>

#include <QMessageBox>
#include <QWidget>

#include <algorithm>

namespace {

void setSelectedMark(const CurveNodeBase& curve, bool selected)
{
    curve.getCanvasSpline()->selected = selected;
    curve.getCanvasExpression()->selected = selected;
}

QString faultText(const ParseMessage& message)
{
    if (message.code == ParseMessage::UnknownVariable) {
        const auto [offset, length] = message.errors.front();
        const QByteArray variable = QByteArray::fromStdString(message.text).mid(offset, length);
        return CanvasFunctionBase::tr("Variable %1 not found").arg(QString::fromUtf8(variable));
    }
    if (message.code == ParseMessage::UnmatchedParenthesis)
        return CanvasFunctionBase::tr("Unmatched parenthesis");
    return CanvasFunctionBase::tr("Unknown");
}

} // namespace

CanvasFunctionBase::CanvasFunctionBase(QObject* parent, DependencyCheck* dependencyCheck)
    : QObject(parent), editor(dependencyCheck), grid(std::make_unique<CanvasGrid>(widget()))
{
}

CanvasFunctionBase::~CanvasFunctionBase()
{
    removeAllCurves();
}

QWidget* CanvasFunctionBase::widget() const
{
    return qobject_cast<QWidget*>(parent());
}

void CanvasFunctionBase::setViewport(ViewPort* newViewport)
{
    viewport = newViewport;
}

CurveNodeBase* CanvasFunctionBase::addCurve(QWidget* menu, const QString& name, const QColor& color,
                                            float defaultValue, SplineBase* spline,
                                            FunctionFloatBase** expression, float minValue, float maxValue)
{
    if (CurveNodeBase* const present = findCurve(name))
        return present;
    auto curve = std::make_unique<CurveNodeBase>(this, menu, name, color, defaultValue, spline, expression,
                                                 minValue, maxValue);
    curves.push_back(std::move(curve));
    paint();
    return curves.back().get();
}

CurveNodeBase* CanvasFunctionBase::findCurve(const QString& name) const
{
    const auto found = std::find_if(curves.begin(), curves.end(),
                                    [&](const auto& curve) { return curve->getName() == name; });
    return found == curves.end() ? nullptr : found->get();
}

void CanvasFunctionBase::setCurveColor(const QString& name, const QColor& color)
{
    if (CurveNodeBase* const curve = findCurve(name))
        curve->setColor(color, canvasColor);
}

void CanvasFunctionBase::renameCurve(const QString& oldName, const QString& newName)
{
    if (CurveNodeBase* const curve = findCurve(oldName))
        curve->setName(newName);
}

void CanvasFunctionBase::removeCurve(const QString& name)
{
    if (CurveNodeBase* const curve = findCurve(name)) {
        removeCurve(curve);
        paint();
    }
}

void CanvasFunctionBase::removeCurve(CurveNodeBase* curve)
{
    const auto found = std::find_if(curves.begin(), curves.end(),
                                    [curve](const auto& entry) { return entry.get() == curve; });
    if (found == curves.end())
        return;
    std::unique_ptr<CurveNodeBase> removed = std::move(*found);
    curves.erase(found);
    if (current == curve) {
        current = curves.empty() ? nullptr : curves.front().get();
        endGesture();
    }
    removed.reset();
    setCurrentCurve(current);
}

void CanvasFunctionBase::removeAllCurves()
{
    current = nullptr;
    endGesture();
    curves.clear();
}

void CanvasFunctionBase::dropLostPoints()
{
    for (const auto& curve : curves)
        curve->getCanvasSpline()->control.dropLostPoints();
}

void CanvasFunctionBase::setCurrentCurve(CurveNodeBase* curve)
{
    if (curve) {
        if (current)
            setSelectedMark(*current, false);
        if (current != curve)
            endGesture();
        current = curve;
        setSelectedMark(*current, true);
        current->toggleAction();
    }
    Q_EMIT changeCommandLine();
}

void CanvasFunctionBase::setCurrentCurve(const QString& name)
{
    for (const auto& curve : presentCurves()) {
        if (curve && curve->getName() == name)
            setCurrentCurve(curve);
    }
}

std::vector<QPointer<CurveNodeBase>> CanvasFunctionBase::presentCurves() const
{
    std::vector<QPointer<CurveNodeBase>> present;
    for (const auto& curve : curves)
        present.emplace_back(curve.get());
    return present;
}

QString CanvasFunctionBase::getCurrentCurveName() const
{
    return current ? current->getName() : QStringLiteral("None");
}

CanvasSpline* CanvasFunctionBase::currentSpline() const
{
    return current ? current->getCanvasSpline() : nullptr;
}

SplineBase* CanvasFunctionBase::currentSplineBase() const
{
    return current ? current->getSpline() : nullptr;
}

int CanvasFunctionBase::isCurrentExpression() const
{
    return current ? current->getKind() : 0;
}

QString CanvasFunctionBase::getCurrentExpressionText() const
{
    FunctionFloatBase* const expression = current ? current->getExpression() : nullptr;
    return expression ? QString::fromStdString(expression->getString()) : QString();
}

bool CanvasFunctionBase::getCurrentValue(const double& time, double& value) const
{
    if (!current)
        return false;
    value = current->getClampedValue(time);
    return true;
}

bool CanvasFunctionBase::hasSinglePoint() const
{
    return current && current->getCanvasSpline()->control.hasSingleSelection();
}

void CanvasFunctionBase::setCurrentToSpline(const bool& dropExpression)
{
    if (current)
        current->setSplineMode(dropExpression);
    Q_EMIT changeCommandLine();
}

void CanvasFunctionBase::setCurrentToExpression()
{
    if (current)
        current->setExpressionMode();
    Q_EMIT changeCommandLine();
}

void CanvasFunctionBase::resetAllCurves()
{
    for (const auto& curve : presentCurves()) {
        if (curve)
            curve->resetCurve();
    }
}

void CanvasFunctionBase::resetCurrentCurve()
{
    if (current)
        current->resetCurve();
}

void CanvasFunctionBase::notifyCurrentChanged()
{
    if (current)
        current->emitCurveChanged();
}

void CanvasFunctionBase::parseExpression(const QString& text, ParseMessage& message)
{
    if (!current)
        return;
    const QPointer<CurveNodeBase> curve(current);
    std::unique_ptr<FunctionFloatBase> expression(
        FunctionParserBase::instance()->parseString(text.toStdString(), message));
    if (!message.errors.empty())
        QMessageBox::warning(nullptr, tr("Syntax error"), faultText(message));
    if (curve)
        curve->assignExpression(expression.release(), message);
    if (curve && message.errors.empty())
        curve->emitCurveChanged();
}

bool CanvasFunctionBase::saveCurve(std::ostream& out) const
{
    if (!current)
        return false;
    const QColor color = current->getColor();
    CurveFile::writeColor(out, {color.red(), color.green(), color.blue()});
    return current->write(out);
}

bool CanvasFunctionBase::loadCurve(std::istream& in)
{
    CurveFile::Color color;
    if (!current || !CurveFile::readColor(in, color) || !current->read(in, FunctionParserBase::instance()))
        return false;
    current->emitCurveChanged();
    return true;
}

void CanvasFunctionBase::setFirstType(int type)
{
    if (SplineBase* const spline = currentSplineBase()) {
        spline->firstType = type;
        current->changed = true;
        paint();
    }
}

void CanvasFunctionBase::setLastType(int type)
{
    if (SplineBase* const spline = currentSplineBase()) {
        spline->lastType = type;
        current->changed = true;
        paint();
    }
}

void CanvasFunctionBase::setFirstNodeZero()
{
    setFirstType(SplineBase::Zero);
}

void CanvasFunctionBase::setFirstNodeConstant()
{
    setFirstType(SplineBase::Constant);
}

void CanvasFunctionBase::setLastNodeZero()
{
    setLastType(SplineBase::Zero);
}

void CanvasFunctionBase::setLastNodeConstant()
{
    setLastType(SplineBase::Constant);
}

void CanvasFunctionBase::setLastNodeLoop()
{
    setLastType(SplineBase::Loop);
}

void CanvasFunctionBase::setLastNodeLoopOffset()
{
    setLastType(SplineBase::LoopOffset);
}

void CanvasFunctionBase::setLastNodeFollowTangent()
{
    setLastType(SplineBase::FollowTangent);
}

void CanvasFunctionBase::getExtent(double& timeFirst, double& timeLast, double& valueLowest,
                                   double& valueHighest) const
{
    const SplineBase* const spline = currentSplineBase();
    if (!spline || current->getKind() != 0 || spline->getControlPointsNumber() < 2)
        return;
    const auto [lowest, highest] =
        std::minmax_element(spline->getControlPoints().begin(), spline->getControlPoints().end(),
                            [](const auto* left, const auto* right) { return left->pos < right->pos; });
    timeFirst = spline->getFirst()->time;
    timeLast = spline->getLast()->time;
    valueLowest = (*lowest)->pos;
    valueHighest = (*highest)->pos;
}

bool CanvasFunctionBase::exportSensorData(QTextStream& out) const
{
    if (!viewport)
        return false;
    const qint64 first = truncateToInt(viewport->limitTimeMin);
    const qint64 last = truncateToInt(viewport->limitTimeMax);
    const qint64 lambdas = last - first + 1;
    if (lambdas > SensorTable::maximumRows)
        return false;

    SensorTable table(out);
    table.writeHeader(qint64(curves.size()), lambdas);
    FunctionParserBase::keyStruct* const time = FunctionParserBase::instance()->getKey("t");
    const double notedTime = time->getValue();
    for (qint64 lambda = first; lambda <= last; ++lambda) {
        time->setValue(double(lambda));
        table.beginRow(int(lambda));
        for (const auto& curve : curves)
            table.addValue(curve->getValue(double(lambda)));
        table.endRow();
    }
    time->setValue(notedTime);
    return true;
}

void CanvasFunctionBase::currentNodeHasChanged()
{
    if (!current)
        return;
    current->changed = true;
    paint();
    current->emitCurveChanged();
}

void CanvasFunctionBase::hideMark()
{
    showMark = false;
}
