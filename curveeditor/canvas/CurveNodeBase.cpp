// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurveNodeBase.h>

#include <curveeditor/canvas/CanvasExpression.h>
#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/ControlMenu.h>
#include <curveeditor/canvas/DependencyCheck.h>
#include <curveeditor/edit/Truncate.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParseMessage.h>
#include <curveeditor/model/SplineBase.h>

#include <QAction>
#include <QActionGroup>
#include <QMessageBox>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int samplesPerView = 5000;
constexpr double defaultFramesPerTimeUnit = 10.0;

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

void markCycle(ParseMessage& message, const std::string& variable)
{
    if (variable.empty())
        return;
    std::string text = message.text;
    std::replace(text.begin(), text.end(), ' ', '_');
    for (auto at = text.find(variable); at != std::string::npos; at = text.find(variable, at + 1)) {
        message.errors.emplace_back(std::uint32_t(at), std::uint32_t(variable.size()));
        message.code = ParseMessage::CyclicDependency;
    }
}

} // namespace

CurveNodeBase::CurveNodeBase(CanvasFunctionBase* owner, QWidget* menu, const QString& fullName,
                             const QColor& color, float resetValue, SplineBase* hostSpline,
                             FunctionFloatBase** holder, float lowest, float highest)
    : canvas(owner), action(std::make_unique<QAction>()), name(fullName), spline(hostSpline),
      expression(holder), canvasSpline(std::make_unique<CanvasSpline>(hostSpline)),
      canvasExpression(std::make_unique<CanvasExpression>()), defaultValue(resetValue), minValue(lowest),
      maxValue(highest)
{
    canvasSpline->control.setSpline(spline);
    action->setObjectName(name);
    action->setText(tr(name.toUtf8().constData()));
    action->setCheckable(true);
    if (menu) {
        curvesGroup(menu)->addAction(action.get());
        menu->addAction(action.get());
    }
    connect(action.get(), &QAction::triggered, this, &CurveNodeBase::setThisNode);
    connectMenu();

    if (getExpression()) {
        setExpressionMode();
    } else {
        setSplineMode(false);
    }
    setColor(color, Qt::black);
    setThisNode();
}

CurveNodeBase::~CurveNodeBase() = default;

void CurveNodeBase::connectMenu()
{
    const ControlMenu* menu = ControlSplineNode::menu();
    connect(menu, &ControlMenu::nodeChanged, canvas, &CanvasFunctionBase::currentNodeHasChanged,
            Qt::UniqueConnection);
    connect(menu, &ControlMenu::createNodeAtCursor, this, &CurveNodeBase::createNodeAtCursor);
    connect(menu, &ControlMenu::aboutToHide, canvas, &CanvasFunctionBase::hideMark, Qt::UniqueConnection);
    connect(&canvasSpline->control, &ControlSplineNode::pointsChanged, this, [this] { changed = true; });
}

void CurveNodeBase::setName(const QString& newName)
{
    name = newName;
    action->setText(name);
}

FunctionFloatBase* CurveNodeBase::getExpression() const
{
    return expression ? *expression : nullptr;
}

void CurveNodeBase::toggleAction()
{
    action->setChecked(true);
}

void CurveNodeBase::setColor(const QColor& color, const QColor& background)
{
    canvasSpline->setColors(color, background);
    canvasExpression->setColors(QPen(color, 0, Qt::SolidLine), background);
}

QColor CurveNodeBase::getColor() const
{
    return canvasSpline->getColor();
}

double CurveNodeBase::getValue(const double& time) const
{
    if (kind == 0)
        return spline ? (*spline)(time) : 0.0;
    FunctionFloatBase* const tree = getExpression();
    return tree ? tree->evaluate() : 0.0;
}

double CurveNodeBase::getClampedValue(const double& time) const
{
    if (kind == 0)
        return clamped(getValue(time));
    FunctionFloatBase* const tree = getExpression();
    if (!tree)
        return 0.0;
    EvaluationTime evaluationTime;
    evaluationTime.set(time, framesPerTimeUnit());
    return clamped(tree->evaluate());
}

double CurveNodeBase::clamped(double value) const
{
    if (value < double(minValue))
        return double(minValue);
    return value > double(maxValue) ? double(maxValue) : value;
}

double CurveNodeBase::framesPerTimeUnit() const
{
    const ViewPort* const viewport = canvas->getViewport();
    return viewport ? viewport->fps : defaultFramesPerTimeUnit;
}

void CurveNodeBase::draw(ViewPort* viewport, QPainter* painter)
{
    const bool stale = changed || viewport->dirty;
    if (kind == 0) {
        if (stale)
            canvasSpline->rebuild(viewport, minValue, maxValue);
        canvasSpline->draw(painter);
        changed = false;
        return;
    }
    if (!getExpression())
        return;
    if (stale)
        sampleExpression(*viewport);
    canvasExpression->draw(painter);
    changed = false;
}

void CurveNodeBase::sampleExpression(const ViewPort& viewport)
{
    QPolygon line;
    std::vector<int> lineStarts;
    if (viewport.canShow()) {
        const double step = (viewport.timeMax - viewport.timeMin) / samplesPerView;
        std::vector<double> times(samplesPerView);
        std::vector<double> values(samplesPerView);
        for (int i = 0; i < samplesPerView; ++i)
            times[std::size_t(i)] = i * step + viewport.timeMin;
        getExpression()->evaluateBlock(times.data(), viewport.fps, values.data(), values.size());

        const double xScale = viewport.pixelWidth * (1.0 / samplesPerView);
        const double yScale = viewport.pixelHeight / (viewport.valueMax - viewport.valueMin);
        line.reserve(samplesPerView);
        bool joined = true;
        for (int i = 0; i < samplesPerView; ++i) {
            const double value = values[std::size_t(i)];
            const bool finite = std::isfinite(value);
            if (finite) {
                if (!joined)
                    lineStarts.push_back(int(line.size()));
                const double row = (viewport.valueMax - clamped(value)) * yScale;
                line.append(QPoint(truncateToInt(i * xScale),
                                   truncateToInt(std::clamp(row, -1.0, double(viewport.pixelHeight)))));
            }
            joined = finite;
        }
    }
    canvasExpression->setLine(line, lineStarts);
}

void CurveNodeBase::setSplineMode(const bool& deleteExpression)
{
    kind = 0;
    changed = true;
    if (deleteExpression)
        setExpression(nullptr);
}

void CurveNodeBase::setExpressionMode()
{
    kind = 1;
    changed = true;
}

void CurveNodeBase::setExpression(std::unique_ptr<FunctionFloatBase> newExpression)
{
    if (!expression)
        return;
    delete *expression;
    *expression = newExpression.release();
    changed = true;
}

void CurveNodeBase::assignExpression(FunctionFloatBase* newExpression, ParseMessage& message)
{
    setExpression(std::unique_ptr<FunctionFloatBase>(newExpression));

    const QString variable = DependencyCheck::lowerVariableName(name);
    QString withFunc;
    DependencyCheck* const editor = canvas->getEditor();
    if (!editor || !editor->checkDependencies(variable, variable, withFunc))
        return;
    QMessageBox::warning(nullptr, tr("Cyclical dependency"),
                         tr("Cyclical dependency has been found for d-var %1 ").arg(withFunc));
    markCycle(message, DependencyCheck::lowerVariableName(withFunc).toStdString());
}

void CurveNodeBase::resetCurve()
{
    setSplineMode(true);
    canvasSpline->control.selectOnly(nullptr);
    if (spline) {
        spline->reset();
        spline->setPos(spline->modify(0), double(defaultValue));
    }
    const QPointer<CurveNodeBase> guard(this);
    emitCurveChanged();
    if (guard)
        changed = true;
}

void CurveNodeBase::emitCurveChanged()
{
    const QStringList parts = name.split(QLatin1Char('.'), Qt::SkipEmptyParts);
    QString nodeName = parts.isEmpty() ? name : parts.first();
    QString curveName = parts.isEmpty() ? name : parts.last();
    Q_EMIT curveHasChanged(nodeName, curveName);
}

bool CurveNodeBase::read(std::istream& in, FunctionParserBase* parser)
{
    CurveFile::Kind fileKind = CurveFile::Spline;
    if (!CurveFile::readKind(in, fileKind))
        return false;
    if (!(fileKind == CurveFile::Spline ? readSpline(in) : readExpression(in, parser)))
        return false;
    canvasSpline->control.selectOnly(nullptr);
    return true;
}

bool CurveNodeBase::readSpline(std::istream& in)
{
    if (!spline || !CurveFile::readSpline(in, *spline))
        return false;
    canvasSpline->control.setSpline(spline);
    setSplineMode(false);
    return true;
}

bool CurveNodeBase::readExpression(std::istream& in, FunctionParserBase* parser)
{
    std::string text;
    if (!expression || !CurveFile::readExpression(in, text))
        return false;
    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> parsed(parser->parseString(text, message));
    if (!parsed || !message.errors.empty())
        return false;
    setExpression(std::move(parsed));
    setExpressionMode();
    return true;
}

bool CurveNodeBase::write(std::ostream& out) const
{
    FunctionFloatBase* const tree = getExpression();
    if (kind == 0 ? !spline : !tree)
        return false;
    if (kind == 0) {
        CurveFile::writeSpline(out, *spline);
    } else {
        CurveFile::writeExpression(out, tree->getString());
    }
    return out.good();
}

void CurveNodeBase::setThisNode()
{
    canvas->setCurrentCurve(this);
}

void CurveNodeBase::createNodeAtCursor()
{
    canvas->createNodeAtCursor(this);
}
