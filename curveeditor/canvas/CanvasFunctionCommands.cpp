// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/DependencyCheck.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/ParseMessage.h>

#include <QPointer>

#include <algorithm>
#include <utility>

using namespace curveeditor;

namespace {

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
    for (auto at = message.text.find(variable); !variable.empty() && at != std::string::npos;
         at = message.text.find(variable, at + 1))
        message.errors.emplace_back(std::uint32_t(at), std::uint32_t(variable.size()));
    if (message.errors.empty())
        message.errors.emplace_back(0U, std::uint32_t(message.text.size()));
    message.code = ParseMessage::CyclicDependency;
}

CanvasCurves::Guarded toldOf(CanvasEdit::Told told, const CanvasCurves& curves,
                             const CanvasCurves::Guarded& targets, CurveNodeBase* current,
                             const CurveEdit::Curves& changed)
{
    switch (told) {
    case CanvasEdit::Told::Targets:
        return targets;
    case CanvasEdit::Told::Current:
        return curves.withFirst(current, changed);
    case CanvasEdit::Told::ChangedOfMany:
        return changed.size() > 1 ? curves.withFirst(nullptr, changed) : CanvasCurves::Guarded();
    case CanvasEdit::Told::Nobody:
        break;
    }
    return {};
}

/// `work` with the spline and the selected points of a curve; nothing without a spline.
CanvasEdit::Work atSelection(const CanvasFunctionBase::PointWork& work)
{
    return [work](CurveNodeBase& curve) {
        if (curve.getSpline())
            work(*curve.control().openSpline(), curve.control().selection().edited());
    };
}

void removeSelection(CurveNodeBase& curve)
{
    atSelection (&SplineEdits::removePoints)(curve);
    curve.control().selectOnly(nullptr);
}

} // namespace

void CanvasFunctionBase::edit(const CanvasEdit& edit)
{
    tell({});
    settle();
    dropLostPoints();
    const QPointer<CanvasFunctionBase> guard(this);
    const QPointer<CurveNodeBase> current(getCurrentCurve());
    Nodes targets = edit.targets(curves_);
    open(edit, targets);
    const CanvasCurves::Guarded guarded(targets.begin(), targets.end());
    for (CurveNodeBase* const target : targets) {
        edit.work(*target);
        target->control().dropLostPoints();
    }
    const CurveEdit::Curves changed = door_.commit();
    if (guard && edit.changesFormula)
        Q_EMIT changeCommandLine();
    if (guard && !targets.empty()) {
        CanvasCurves::report(toldOf(edit.told, curves_, guarded, current, changed));
        if (guard && edit.showsSelection)
            Q_EMIT selectionChanged(*edit.showsSelection);
    }
    if (guard)
        paint();
}

/// Leaves those of the targets for which the door opens, and names no other. Where none is left, the user hears why.
void CanvasFunctionBase::open(const CanvasEdit& edit, Nodes& targets)
{
    if (targets.empty())
        return;
    const QString name = targets.front()->getName();
    std::erase_if(targets, [](const CurveNodeBase* target) { return target->curve()->isLocked(); });
    if (targets.empty())
        return tell(tr("%1 is locked.").arg(name));
    CurveEdit::Curves edited;
    for (const CurveNodeBase* const target : targets)
        edited.push_back(target->curve());
    door_.begin(edit.text(targets), edited);
    std::erase_if(targets, [this](const CurveNodeBase* target) { return !door_.isOpen(*target->curve()); });
}

void CanvasFunctionBase::editSelection(const QString& one, const QString& many, const PointWork& work)
{
    CanvasEdit shaping;
    shaping.text = CanvasEdit::ofPoints(one, many);
    shaping.targets = &CanvasCurves::selected;
    shaping.work = atSelection(work);
    shaping.told = CanvasEdit::Told::Current;
    shaping.showsSelection = false;
    edit(shaping);
}

void CanvasFunctionBase::deleteSelection()
{
    CanvasEdit deletion;
    deletion.text = CanvasEdit::ofPoints(tr("Delete a point of %1"), tr("Delete %1 points of %2"));
    deletion.targets = [](const CanvasCurves& curves) {
        const Nodes selected = curves.selected();
        const CurveNodeBase* const current = curves.current();
        const bool isOpen = current && current->isShown() && !current->curve()->isLocked();
        return selected.empty() && isOpen ? curves.currentOnly() : selected;
    };
    deletion.work = &removeSelection;
    deletion.told = CanvasEdit::Told::Current;
    edit(deletion);
}

void CanvasFunctionBase::scaleSelection(const double& timeFactor, const double& valueFactor, double pivotTime,
                                        double pivotValue)
{
    if (timeFactor == 1.0 && valueFactor == 1.0)
        return;
    moveSelection(tr("Scale a point of %1"), tr("Scale %1 points of %2"),
                  [&](SplineBase& spline, const std::vector<PointSerial>& points) {
                      SplineEdits::scalePoints(spline, points, timeFactor, valueFactor, pivotTime,
                                               pivotValue);
                  });
}

void CanvasFunctionBase::panSelection(const double& timeOffset, const double& valueOffset)
{
    if (timeOffset == 0.0 && valueOffset == 0.0)
        return;
    moveSelection(tr("Pan a point of %1"), tr("Pan %1 points of %2"),
                  [&](SplineBase& spline, const std::vector<PointSerial>& points) {
                      SplineEdits::panPoints(spline, points, timeOffset, valueOffset);
                  });
}

void CanvasFunctionBase::moveSelection(const QString& one, const QString& many, const PointWork& work)
{
    CanvasEdit moving;
    moving.text = CanvasEdit::ofPoints(one, many);
    moving.targets = &CanvasCurves::selected;
    moving.work = [&work](CurveNodeBase& curve) {
        atSelection(work)(curve);
        curve.control().selection().giveUpListOfOne();
    };
    moving.told = CanvasEdit::Told::ChangedOfMany;
    edit(moving);
}

void CanvasFunctionBase::setSelectedType(int type)
{
    editByMenu(tr("Change the type of points"),
               atSelection([type](SplineBase& spline, const std::vector<PointSerial>& points) {
                   SplineEdits::setType(spline, points, type);
               }));
}

void CanvasFunctionBase::deleteSelectedNodes()
{
    editByMenu(tr("Delete points"), &removeSelection);
}

/// The menu acts on what is selected of any curve, and reports the current one itself.
void CanvasFunctionBase::editByMenu(const QString& text, const CanvasEdit::Work& work)
{
    CanvasEdit chosen;
    chosen.text = [text](const Nodes& nodes) {
        return nodes.size() == 1 ? tr("%1 of %2").arg(text, nodes.front()->getName()) : text;
    };
    chosen.targets = &CanvasCurves::selectedAnywhere;
    chosen.work = work;
    chosen.showsSelection = false;
    edit(chosen);
}

void CanvasFunctionBase::createPoint(const Gesture::Place& place)
{
    CanvasEdit creation;
    creation.text = CanvasEdit::ofCurve(tr("Add a point to %1"));
    creation.targets = &CanvasCurves::currentShownOnly;
    creation.work = [&place](CurveNodeBase& curve) {
        SplineBase& spline = *curve.control().openSpline();
        const PointSerial point = SplineEdits::addPoint(spline, place.time, place.value);
        if (const auto& types = curve.curve()->options.types; !types.empty())
            SplineEdits::setType(spline, {point}, types.front());
    };
    creation.told = CanvasEdit::Told::Targets;
    edit(creation);
}

void CanvasFunctionBase::createNodeAtCursor()
{
    if (viewport_ && !menu_->isElsewhere())
        createPoint(viewport_->gesture.place);
}

void CanvasFunctionBase::editSpline(const QString& text, const std::function<void(SplineBase&)>& work)
{
    CanvasEdit shaping;
    shaping.text = CanvasEdit::ofCurve(text);
    shaping.targets = &CanvasCurves::currentShownOnly;
    shaping.work = [&work](CurveNodeBase& curve) {
        work(*curve.control().openSpline());
    };
    shaping.told = CanvasEdit::Told::Targets;
    shaping.showsSelection = true;
    edit(shaping);
}

void CanvasFunctionBase::setPoints(CurveNodeBase& node, const QString& text,
                                   std::vector<SplineBase::PointInfo> points)
{
    const QPointer<CurveNodeBase> curve(&node);
    CanvasEdit replacement;
    replacement.text = CanvasEdit::ofCurve(text);
    replacement.targets = [&curve](const CanvasCurves&) {
        return curve && curve->getSpline() ? Nodes{curve} : Nodes();
    };
    replacement.work = [&points](CurveNodeBase& target) {
        SplineState state = target.getSpline()->state();
        state.points = std::move(points);
        if (target.control().openSpline()->assign(state))
            target.curve()->showSpline(target.kind() == CurveKind::Expression);
    };
    replacement.told = CanvasEdit::Told::Targets;
    replacement.changesFormula = true;
    edit(replacement);
}

void CanvasFunctionBase::setCurrentToSpline(const bool& dropExpression)
{
    showSpline(dropExpression, CanvasEdit::Told::Nobody);
}

void CanvasFunctionBase::showSpline(bool dropsExpression, CanvasEdit::Told told)
{
    CanvasEdit change;
    change.text =
        CanvasEdit::ofCurve(dropsExpression ? tr("Delete the formula of %1") : tr("Show the spline of %1"));
    change.work = [dropsExpression](CurveNodeBase& curve) {
        curve.curve()->showSpline(dropsExpression);
    };
    change.told = told;
    change.changesFormula = true;
    edit(change);
}

void CanvasFunctionBase::setCurrentToExpression()
{
    CanvasEdit change;
    change.text = CanvasEdit::ofCurve(tr("Show the formula of %1"));
    change.work = [](CurveNodeBase& curve) {
        curve.curve()->setKind(CurveKind::Expression);
    };
    change.changesFormula = true;
    edit(change);
}

bool CanvasFunctionBase::dropExpression(const QString& name)
{
    CurveNodeBase* const curve = findCurve(name);
    if (!curve)
        return false;
    const std::shared_ptr<EditedCurve> dropped = curve->curve();
    dropped->showSpline(true);
    curves_.markEdited({dropped, TimeInterval::everything()}, false);
    door_.history().forgetRetired(dropped->variable());
    return true;
}

void CanvasFunctionBase::resetAllCurves()
{
    CanvasEdit reset = resetOf([](const Nodes&) { return tr("Reset all curves"); });
    reset.targets = &CanvasCurves::shown;
    edit(reset);
}

void CanvasFunctionBase::resetCurrentCurve()
{
    edit(resetOf(CanvasEdit::ofCurve(tr("Reset %1"))));
}

CanvasEdit CanvasFunctionBase::resetOf(const CanvasEdit::Text& text)
{
    CanvasEdit reset;
    reset.text = text;
    reset.work = [](CurveNodeBase& curve) {
        curve.curve()->reset(curve.defaultValue());
        curve.control().selectOnly(nullptr);
    };
    reset.told = CanvasEdit::Told::Targets;
    return reset;
}

void CanvasFunctionBase::editBehaviour(const QString& text, void (*set)(SplineBase&, int), int type)
{
    CanvasEdit change;
    change.text = CanvasEdit::ofCurve(text);
    change.work = [set, type](CurveNodeBase& curve) {
        if (curve.getSpline())
            set(*curve.control().openSpline(), type);
    };
    edit(change);
}

void CanvasFunctionBase::setFirstType(int type)
{
    editBehaviour(tr("Change the start behaviour of %1"), &SplineEdits::setFirstType, type);
}

void CanvasFunctionBase::setLastType(int type)
{
    editBehaviour(tr("Change the end behaviour of %1"), &SplineEdits::setLastType, type);
}

bool CanvasFunctionBase::parseExpression(const QString& text, ParseMessage& message)
{
    settle();
    if (noCurrentCurve())
        return true;
    const QPointer<CurveNodeBase> curve(getCurrentCurve());
    const auto isStillCurrent = [this, &curve] {
        return curve && curve == getCurrentCurve();
    };
    std::unique_ptr<FunctionFloatBase> expression =
        door_.history().settings().formulas.read(text.toStdString(), message);
    if (!expression) {
        showWarning(widget(), tr("Syntax error"), faultText(message));
        return isStillCurrent();
    }
    if (QString withFunc; curve->findsCycle(*expression, withFunc)) {
        markCycle(message, DependencyCheck::lowerVariableName(withFunc).toStdString());
        showWarning(widget(), tr("Cyclical dependency"),
                    tr("Cyclical dependency has been found for d-var %1 ").arg(withFunc));
        return isStillCurrent();
    }
    CanvasEdit entry;
    entry.text = CanvasEdit::ofCurve(tr("Enter the formula of %1"));
    entry.work = [&](CurveNodeBase& target) {
        target.curve()->setExpression(std::move(expression), text.toStdString());
        target.curve()->setKind(CurveKind::Expression);
    };
    entry.told = CanvasEdit::Told::Targets;
    edit(entry);
    const bool isTaken = !expression;
    return isTaken && isStillCurrent();
}
