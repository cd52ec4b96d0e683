// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurveNodeBase.h>

#include <curveeditor/canvas/CanvasExpression.h>
#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/DependencyCheck.h>
#include <curveeditor/canvas/ReleasedAction.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/Truncate.h>
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionFloatVariable.h>
#include <curveeditor/model/ParserVarMapper.h>
#include <curveeditor/model/SplineBase.h>

#include <QAction>
#include <QActionGroup>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace {

constexpr int samplesPerView = 5000;
constexpr int fewestSamples = 64;
constexpr std::size_t samplesOfExtent = 1000;
constexpr int mostNodesOfFullView = 16384; // more than any formula that fits into the formula line has
constexpr int mostNodesCounted = samplesPerView / fewestSamples * mostNodesOfFullView;
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

/// Puts an entry where its text belongs in a menu whose others are in order.
void insertSorted(QWidget* menu, QAction* entry)
{
    menu->removeAction(entry);
    const QList<QAction*> entries = menu->actions();
    const auto next =
        std::upper_bound(entries.begin(), entries.end(), entry->text(),
                         [](const QString& text, const QAction* other) { return text < other->text(); });
    menu->insertAction(next == entries.end() ? nullptr : *next, entry);
}

/// Another curve's expression that `node` reads, null if it reads none.
const FunctionFloatBase* expressionRead(const FunctionFloatBase& node)
{
    const FunctionFloatVariable* const variable = FunctionFloatVariable::of(node);
    const ParserVarMapper* const mapper = FunctionParserBase::instance()->getVarMapper();
    return variable && variable->isMapped() && mapper ? mapper->getExpression(variable->getKey()->name)
                                                      : nullptr;
}

/// The nodes of `root`. Adds to `read` the expressions that it reads, each as often as it is read.
int countNodes(const FunctionFloatBase& root, std::vector<const FunctionFloatBase*>& read)
{
    int count = 0;
    std::vector<const FunctionFloatBase*> pending = {&root};
    while (!pending.empty()) {
        const FunctionFloatBase& node = *pending.back();
        const FunctionFloatOperation* const operation = FunctionFloatOperation::of(node);
        pending.pop_back();
        ++count;
        for (std::size_t i = 0; operation && i < operation->getOperandCount(); ++i)
            pending.push_back(operation->getOperand(i));
        if (const FunctionFloatBase* const other = operation ? nullptr : expressionRead(node))
            read.push_back(other);
    }
    return count;
}

/// The nodes of `root` and of all that it reads, each once, as they are evaluated in one reading. Stops where
/// they are more than `mostNodesCounted`.
int countNodesOfReading(const FunctionFloatBase& root)
{
    int count = 0;
    std::unordered_set<const FunctionFloatBase*> seen;
    std::vector<const FunctionFloatBase*> pending = {&root};
    while (!pending.empty() && count < mostNodesCounted) {
        const FunctionFloatBase& expression = *pending.back();
        pending.pop_back();
        if (seen.insert(&expression).second)
            count += countNodes(expression, pending);
    }
    return count;
}

/// A formula that is huge, with all that it reads, is sampled at fewer times, so that the work for a view has
/// a bound.
int sampleCount(const FunctionFloatBase& expression)
{
    std::vector<const FunctionFloatBase*> readings;
    std::int64_t nodes = countNodes(expression, readings);
    std::unordered_map<const FunctionFloatBase*, int> known;
    for (std::size_t i = 0; i < readings.size() && nodes < mostNodesCounted; ++i) {
        const auto [place, isNew] = known.try_emplace(readings[i], 0);
        if (isNew)
            place->second = countNodesOfReading(*readings[i]);
        nodes += place->second;
    }
    if (nodes <= mostNodesOfFullView)
        return samplesPerView;
    return std::max(fewestSamples, int(std::int64_t(samplesPerView) * mostNodesOfFullView / nodes));
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
        insertSorted(menu, action_);
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
    curve_->name = newName;
    action_->setText(newName);
    const QList<QObject*> places = action_->associatedObjects();
    for (QObject* const place : places) {
        if (auto* const menu = qobject_cast<QWidget*>(place))
            insertSorted(menu, action_);
    }
}

void CurveNodeBase::toggleAction()
{
    action_->setChecked(true);
}

void CurveNodeBase::setColor(const QColor& color, const QColor& background)
{
    color_ = color;
    canvasSpline_->setColors(color, background);
    canvasExpression_->setColors(QPen(color, 0, Qt::SolidLine), background);
    renewPictureNumber();
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

double CurveNodeBase::clamped(double value) const
{
    if (value < double(minValue_))
        return double(minValue_);
    return value > double(maxValue_) ? double(maxValue_) : value;
}

double CurveNodeBase::framesPerTimeUnit() const
{
    const ViewPort* const viewport = canvas_->getViewport();
    return viewport ? viewport->fps : defaultFramesPerTimeUnit;
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
    if (isSpline() && (canvasSpline_->selected || canvasSpline_->showsPoints))
        canvasSpline_->placePoints();
    if (drawnSelection_ != shownSelection())
        renewPictureNumber();
    if ((!changed && !viewport->dirty) || (!isSpline() && !getExpression()))
        return;
    if (isSpline())
        canvasSpline_->rebuild(viewport, minValue_, maxValue_);
    else
        sampleExpression(*viewport);
    changed = false;
    renewPictureNumber();
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

void CurveNodeBase::sampleExpression(const ViewPort& viewport)
{
    DeviceLine line;
    line.scale = canvas_->theme().smooth ? DeviceLine::fine : 1;
    const PlaneMapping view = viewport.deviceMapping(line.scale);
    if (view.canShow()) {
        const int intervals = sampleCount(*getExpression());
        const int count = intervals < samplesPerView ? intervals + 1 : intervals; // wide gaps reach the end
        const double step = view.timeSpan() / intervals;
        std::vector<double> times(static_cast<std::size_t>(count));
        std::vector<double> values(times.size());
        for (int i = 0; i < count; ++i)
            times[std::size_t(i)] = i * step + view.timeMin;
        getExpression()->evaluateBlock(times.data(), viewport.fps, values.data(), values.size());

        const double xScale = view.pixelWidth * (1.0 / intervals);
        line.points.reserve(count);
        bool joined = true;
        for (int i = 0; i < count; ++i) {
            const double value = values[std::size_t(i)];
            const bool finite = std::isfinite(value);
            if (finite) {
                if (!joined)
                    line.gaps.push_back(int(line.points.size()));
                line.points.append(QPoint(truncateToInt(i * xScale), line.rowOf(clamped(value), view)));
            }
            joined = finite;
        }
    }
    canvasExpression_->curveLine = line;
}

bool CurveNodeBase::findsCycle(QString& withFunc) const
{
    const QString variable = DependencyCheck::lowerVariableName(getName());
    DependencyCheck* const editor = canvas_->getEditor();
    return editor && editor->checkDependencies(variable, variable, withFunc);
}

std::pair<QString, QString> CurveNodeBase::reportedNames(const QString& fullName)
{
    const QStringList parts = fullName.split(QLatin1Char('.'), Qt::SkipEmptyParts);
    return parts.isEmpty() ? std::pair(fullName, fullName) : std::pair(parts.first(), parts.last());
}

void CurveNodeBase::emitCurveChanged()
{
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
