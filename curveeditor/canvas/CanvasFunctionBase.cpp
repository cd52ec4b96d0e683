// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/CanvasExpression.h>
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/ControlMenu.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/DependencyCheck.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/edit/Truncate.h>
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/files/SensorTable.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParseMessage.h>

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

void markCycle(ParseMessage& message, const std::string& variable)
{
    std::string text = message.text;
    std::replace(text.begin(), text.end(), ' ', '_');
    for (auto at = text.find(variable); !variable.empty() && at != std::string::npos;
         at = text.find(variable, at + 1)) {
        message.errors.emplace_back(std::uint32_t(at), std::uint32_t(variable.size()));
    }
    if (message.errors.empty())
        message.errors.emplace_back(0U, std::uint32_t(message.text.size()));
    message.code = ParseMessage::CyclicDependency;
}

} // namespace

CanvasFunctionBase::CanvasFunctionBase(QObject* parent, DependencyCheck* editor)
    : QObject(parent), editor_(editor), grid_(std::make_unique<CanvasGrid>(widget()))
{
    connect(&door_.history(), &EditHistory::reported, this, &CanvasFunctionBase::takeReport);
    connect(&door_.history(), &EditHistory::formulaLost, this,
            [this](const QString& curve, const QString& formula) {
                showWarning(widget(), tr("Undo"),
                            tr("The formula of %1 can't be read any more:\n%2").arg(curve, formula));
            });
    connectPointMenu();
}

CanvasFunctionBase::~CanvasFunctionBase()
{
    closePointMenu();
    leaveStack();
    removeAllCurves();
}

void CanvasFunctionBase::leaveStack()
{
    door_.history().disconnect(this);
    settle();
    door_.history().leaveStack();
}

void CanvasFunctionBase::connectPointMenu()
{
    const ControlMenu* const menu = ControlSplineNode::menu();
    connect(menu, &ControlMenu::setSelectedType, this, &CanvasFunctionBase::setSelectedType);
    connect(menu, &ControlMenu::deleteSelectedNodes, this, &CanvasFunctionBase::deleteSelectedNodes);
    connect(menu, &ControlMenu::createNodeAtCursor, this, &CanvasFunctionBase::createNodeAtCursor);
    connect(menu, &ControlMenu::nodeChanged, this, &CanvasFunctionBase::currentNodeHasChanged);
    connect(menu, &ControlMenu::aboutToHide, this, &CanvasFunctionBase::hideMark);
}

QWidget* CanvasFunctionBase::widget() const
{
    return qobject_cast<QWidget*>(parent());
}

void CanvasFunctionBase::setViewport(ViewPort* newViewport)
{
    viewport_ = newViewport;
}

CurveNodeBase* CanvasFunctionBase::addCurve(QWidget* menu, const QString& name, const QColor& color,
                                            float defaultValue, SplineBase* spline,
                                            FunctionFloatBase** expression, float minValue, float maxValue)
{
    settle();
    if (CurveNodeBase* const present = findCurve(name))
        return present;
    curves_.push_back(std::make_unique<CurveNodeBase>(this, menu, name, color, defaultValue, spline,
                                                      expression, minValue, maxValue));
    curves_.back()->getCanvasSpline()->showsPoints = editsAllCurves_;
    if (hasOwnTheme_)
        curves_.back()->setColor(color, theme_.canvas);
    const QPointer<CurveNodeBase> curve(curves_.back().get());
    setCurrentCurve(curve);
    paint();
    return curve;
}

CurveNodeBase* CanvasFunctionBase::findCurve(const QString& name) const
{
    const auto found = std::find_if(curves_.begin(), curves_.end(),
                                    [&](const auto& curve) { return curve->getName() == name; });
    return found == curves_.end() ? nullptr : found->get();
}

void CanvasFunctionBase::setCurveColor(const QString& name, const QColor& color)
{
    if (CurveNodeBase* const curve = findCurve(name))
        curve->setColor(color, theme_.canvas);
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
    const auto found = std::find_if(curves_.begin(), curves_.end(),
                                    [&present](const auto& entry) { return entry.get() == present; });
    if (found == curves_.end())
        return;
    std::unique_ptr<CurveNodeBase> removed = std::move(*found);
    curves_.erase(found);
    if (current_ == curve)
        current_ = curves_.empty() ? nullptr : curves_.front().get();
    removed.reset();
    setCurrentCurve(current_);
}

void CanvasFunctionBase::removeAllCurves()
{
    settle();
    current_ = nullptr;
    curves_.clear();
}

void CanvasFunctionBase::dropLostPoints()
{
    for (const auto& curve : curves_)
        curve->control().dropLostPoints();
}

void CanvasFunctionBase::setCurrentCurve(CurveNodeBase* curve)
{
    const QPointer<CurveNodeBase> next(curve);
    if (current_ != curve) {
        settle();
        bandSelects_ = false;
    }
    if (next) {
        if (current_)
            setSelectedMark(*current_, false);
        current_ = next;
        setSelectedMark(*current_, true);
        current_->toggleAction();
    }
    Q_EMIT changeCommandLine();
}

void CanvasFunctionBase::setCurrentCurve(const QString& name)
{
    std::vector<QPointer<CurveNodeBase>> named;
    for (const auto& curve : curves_) {
        if (curve->getName() == name)
            named.emplace_back(curve.get());
    }
    for (const auto& curve : named) {
        if (curve)
            setCurrentCurve(curve);
    }
}

void CanvasFunctionBase::takeReport(const EditReport& report)
{
    markEdited(report);
    const QPointer<CanvasFunctionBase> guard(this);
    const bool isStep = report.cause == EditReport::Cause::Undo || report.cause == EditReport::Cause::Redo;
    if (isStep)
        showStep(report);
    if (guard)
        Q_EMIT edited(report);
    if (guard && report.cause != EditReport::Cause::Edit) {
        Q_EMIT selectionChanged(isStep);
        paint();
    }
}

void CanvasFunctionBase::showStep(const EditReport& report)
{
    CurveNodeBase* const curve = findCurve(report.curve->name);
    if (!curve)
        return;
    Selection& selection = curve->control().selection();
    selection.dropLost(*curve->getSpline());
    if (report.points.size() == 1)
        selection.selectOnly(report.points.front());
    else if (report.points.size() > 1)
        selection.selectAll(report.points);
    if (curve != current_ && !editsAllCurves_)
        setCurrentCurve(curve);
}

void CanvasFunctionBase::markStale(CurveNodeBase& curve)
{
    curve.changed = true;
}

// Two curves may share a spline or a variable.
void CanvasFunctionBase::markEdited(const EditReport& report)
{
    const bool isDrag = report.phase == EditReport::Phase::Preview && door_.isOpen(drag_);
    QStringList names = {report.curve->name};
    for (const auto& curve : curves_) {
        const EditedCurve& present = *curve->curve();
        if (curve->curve() != report.curve && present.spline() != report.curve->spline() &&
            (!present.variable() || present.variable() != report.curve->variable()))
            continue;
        markStale(*curve);
        names.append(curve->getName());
    }
    if (!isDrag)
        readers_.clear();
    auto readers = readers_.find(report.curve->name);
    if (readers == readers_.end())
        readers = readers_.insert(report.curve->name, readersOf(names));
    for (const auto& curve : curves_) {
        if (readers->isEmpty())
            return;
        if (readers->contains(DependencyCheck::lowerVariableName(curve->getName())))
            markStale(*curve);
    }
}

QSet<QString> CanvasFunctionBase::readersOf(const QStringList& names) const
{
    QSet<QString> readers;
    for (const QString& name : names) {
        const QStringList found =
            editor_ ? editor_->readersOf(DependencyCheck::lowerVariableName(name)) : QStringList();
        readers.unite(QSet<QString>(found.begin(), found.end()));
    }
    return readers;
}

std::vector<QPointer<CurveNodeBase>> CanvasFunctionBase::presentCurves() const
{
    std::vector<QPointer<CurveNodeBase>> present;
    for (const auto& curve : curves_)
        present.emplace_back(curve.get());
    return present;
}

QString CanvasFunctionBase::getCurrentCurveName() const
{
    return current_ ? current_->getName() : QStringLiteral("None");
}

CanvasSpline* CanvasFunctionBase::currentSpline() const
{
    return current_ ? current_->getCanvasSpline() : nullptr;
}

const SplineBase* CanvasFunctionBase::currentSplineBase() const
{
    return current_ ? current_->getSpline() : nullptr;
}

ControlSplineNode* CanvasFunctionBase::currentControl() const
{
    return current_ ? &current_->control() : nullptr;
}

bool CanvasFunctionBase::isCurrentExpression() const
{
    return current_ && !current_->isSpline();
}

QString CanvasFunctionBase::getCurrentExpressionText() const
{
    FunctionFloatBase* const expression = current_ ? current_->getExpression() : nullptr;
    return expression ? QString::fromStdString(expression->getString()) : QString();
}

bool CanvasFunctionBase::getCurrentValue(const double& time, double& value) const
{
    if (!current_)
        return false;
    value = current_->getClampedValue(time);
    return true;
}

bool CanvasFunctionBase::hasSinglePoint() const
{
    return current_ && current_->control().hasSingleSelection();
}

bool CanvasFunctionBase::hasSelectedPoint() const
{
    return !selectedCurves().empty();
}

bool CanvasFunctionBase::hasPointAt(const QPoint& pixel) const
{
    const std::vector<CurveNodeBase*> reach = curvesInReach();
    return std::any_of(reach.begin(), reach.end(), [this, &pixel](CurveNodeBase* curve) {
        const Selection selection = curve == current_ ? curve->control().selection() : Selection();
        return curve->getCanvasSpline()->hitTest(pixel, selection).point != 0;
    });
}

CurveEdit::Curves CanvasFunctionBase::settle()
{
    if (viewport_ && viewport_->gesture.isAtPoints())
        viewport_->gesture.end();
    guide.end();
    return door_.commit();
}

/// To be called when all is settled, so that nothing foreign runs before the work is done. The node may be gone
/// afterwards.
void CanvasFunctionBase::edit(const CurveNodeBase& node, const QString& text, const Work& work)
{
    const std::shared_ptr<EditedCurve>& curve = node.curve();
    door_.begin(text, {curve});
    work(*curve);
    door_.commit();
}

/// Edits the current curve; `text` has a place for its name.
void CanvasFunctionBase::editSettled(const QString& text, const Work& work)
{
    settle();
    if (current_)
        edit(*current_, text.arg(current_->getName()), work);
}

void CanvasFunctionBase::editAndReport(CurveNodeBase& node, const QString& text, const Work& work)
{
    const QPointer<CurveNodeBase> curve(&node);
    edit(node, text, work);
    if (curve)
        curve->emitCurveChanged();
}

void CanvasFunctionBase::setCurrentToSpline(const bool& dropExpression)
{
    editSettled(dropExpression ? tr("Delete the formula of %1") : tr("Show the spline of %1"),
                [dropExpression](EditedCurve& curve) {
                    curve.setKind(CurveKind::Spline);
                    if (dropExpression)
                        curve.setExpression(nullptr, {});
                });
    Q_EMIT changeCommandLine();
}

void CanvasFunctionBase::setCurrentToExpression()
{
    editSettled(tr("Show the formula of %1"),
                [](EditedCurve& curve) { curve.setKind(CurveKind::Expression); });
    Q_EMIT changeCommandLine();
}

void CanvasFunctionBase::deleteExpression()
{
    settle();
    const QPointer<CurveNodeBase> curve(current_);
    setCurrentToSpline(true);
    if (curve)
        curve->emitCurveChanged();
}

bool CanvasFunctionBase::dropExpression(const QString& name)
{
    CurveNodeBase* const curve = findCurve(name);
    if (!curve)
        return false;
    const std::shared_ptr<EditedCurve> dropped = curve->curve();
    dropped->setKind(CurveKind::Spline);
    dropped->setExpression(nullptr, {});
    markEdited({dropped});
    door_.history().forgetRetired(dropped->variable());
    return true;
}

void CanvasFunctionBase::resetAllCurves()
{
    settle();
    resetCurves(presentCurves(), tr("Reset all curves"));
}

void CanvasFunctionBase::resetCurrentCurve()
{
    settle();
    if (current_)
        resetCurves({QPointer<CurveNodeBase>(current_)}, tr("Reset %1").arg(current_->getName()));
}

void CanvasFunctionBase::resetCurves(const std::vector<QPointer<CurveNodeBase>>& curves, const QString& text)
{
    CurveEdit::Curves edited;
    for (const auto& curve : curves) {
        if (curve)
            edited.push_back(curve->curve());
    }
    door_.begin(text, edited);
    for (const auto& curve : curves) {
        if (curve) {
            curve->curve()->reset(curve->defaultValue());
            curve->control().selectOnly(nullptr);
        }
    }
    door_.commit();
    for (const auto& curve : curves) {
        if (curve)
            curve->emitCurveChanged();
    }
}

bool CanvasFunctionBase::parseExpression(const QString& text, ParseMessage& message)
{
    settle();
    if (!current_)
        return true;
    const QPointer<CurveNodeBase> curve(current_);
    const auto isStillCurrent = [this, &curve] {
        return curve && curve == current_;
    };
    std::unique_ptr<FunctionFloatBase> expression(
        FunctionParserBase::instance()->parseString(text.toStdString(), message));
    if (!expression || !message.errors.empty()) {
        showWarning(widget(), tr("Syntax error"), faultText(message));
        return isStillCurrent();
    }
    if (QString withFunc; curve->findsCycle(*expression, withFunc)) {
        markCycle(message, DependencyCheck::lowerVariableName(withFunc).toStdString());
        showWarning(widget(), tr("Cyclical dependency"),
                    tr("Cyclical dependency has been found for d-var %1 ").arg(withFunc));
        return isStillCurrent();
    }
    editAndReport(*curve, tr("Enter the formula of %1").arg(curve->getName()), [&](EditedCurve& edited) {
        edited.setExpression(std::move(expression), text.toStdString());
        edited.setKind(CurveKind::Expression);
    });
    return isStillCurrent();
}

bool CanvasFunctionBase::saveCurve(std::ostream& out) const
{
    if (!current_)
        return false;
    const QColor color = current_->getColor();
    CurveFile::writeColor(out, {color.red(), color.green(), color.blue()});
    return current_->write(out);
}

bool CanvasFunctionBase::loadCurve(std::istream& in)
{
    CurveFile::Color color;
    settle();
    if (!current_ || !CurveFile::readColor(in, color))
        return false;
    bool isWhole = false;
    const QPointer<CurveNodeBase> curve(current_);
    edit(*curve, tr("Load %1").arg(curve->getName()), [&](EditedCurve& edited) {
        isWhole = edited.read(in);
        if (isWhole)
            curve->control().selectOnly(nullptr);
    });
    if (curve && isWhole)
        curve->emitCurveChanged();
    return isWhole;
}

void CanvasFunctionBase::setFirstType(int type)
{
    editSettled(tr("Change the start behaviour of %1"), [this, type](EditedCurve& curve) {
        if (curve.spline())
            SplineEdits::setFirstType(*door_.spline(curve), type);
    });
    paint();
}

void CanvasFunctionBase::setLastType(int type)
{
    editSettled(tr("Change the end behaviour of %1"), [this, type](EditedCurve& curve) {
        if (curve.spline())
            SplineEdits::setLastType(*door_.spline(curve), type);
    });
    paint();
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
    if (!spline || !current_->isSpline() || spline->getControlPointsNumber() < 2)
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
    if (!viewport_)
        return false;
    const qint64 first = truncateToInt(viewport_->limitTimeMin);
    const qint64 last = truncateToInt(viewport_->limitTimeMax);
    const qint64 lambdas = last - first + 1;
    if (lambdas > SensorTable::maximumRows)
        return false;

    SensorTable table(out);
    table.writeHeader(qint64(curves_.size()), lambdas);
    FunctionParserBase::keyStruct* const time = FunctionParserBase::instance()->getKey("t");
    const double notedTime = time->getValue();
    for (qint64 lambda = first; lambda <= last; ++lambda) {
        time->setValue(double(lambda));
        table.beginRow(int(lambda));
        for (const auto& curve : curves_)
            table.addValue(curve->getValue(double(lambda)));
        table.endRow();
    }
    time->setValue(notedTime);
    return true;
}

void CanvasFunctionBase::nodeHasChanged(const ControlSplineNode* control)
{
    const auto found = std::find_if(curves_.begin(), curves_.end(),
                                    [control](const auto& curve) { return &curve->control() == control; });
    if (found == curves_.end())
        return;
    const QPointer<CurveNodeBase> curve(found->get());
    markStale(*curve);
    paint();
    curve->emitCurveChanged();
}

void CanvasFunctionBase::currentNodeHasChanged()
{
    if (!current_)
        return;
    markStale(*current_);
    paint();
    current_->emitCurveChanged();
}

void CanvasFunctionBase::hideMark()
{
    showMark_ = false;
}
