// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasCurves.h>

#include <curveeditor/canvas/CanvasExpression.h>
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/DependencyCheck.h>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace curveeditor {

namespace {

void setSelectedMark(const CurveNodeBase& curve, bool selected)
{
    curve.getCanvasSpline()->selected = selected;
    curve.getCanvasExpression()->selected = selected;
}

bool isMultiple(const CanvasCurves::Nodes& nodes)
{
    return nodes.size() > 1 || (!nodes.empty() && nodes.front()->control().hasMultipleSelection());
}

} // namespace

CanvasCurves::CanvasCurves(DependencyCheck* editor) : editor_(editor) {}

CanvasCurves::~CanvasCurves() = default;

CanvasCurves::Nodes CanvasCurves::nodes() const
{
    Nodes nodes;
    for (const auto& curve : curves_)
        nodes.push_back(curve.get());
    return nodes;
}

CanvasCurves::Nodes CanvasCurves::shown() const
{
    Nodes shown = nodes();
    std::erase_if(shown, [](const CurveNodeBase* curve) { return !curve->isShown(); });
    return shown;
}

CanvasCurves::Guarded CanvasCurves::present() const
{
    const Nodes all = nodes();
    return {all.begin(), all.end()};
}

CurveNodeBase* CanvasCurves::find(const QString& name) const
{
    const auto found = std::find_if(curves_.begin(), curves_.end(),
                                    [&](const auto& curve) { return curve->getName() == name; });
    return found == curves_.end() ? nullptr : found->get();
}

CurveNodeBase* CanvasCurves::find(const EditedCurve& curve) const
{
    const auto found = std::find_if(curves_.begin(), curves_.end(),
                                    [&](const auto& present) { return present->curve().get() == &curve; });
    return found == curves_.end() ? nullptr : found->get();
}

void CanvasCurves::add(std::unique_ptr<CurveNodeBase> curve)
{
    curve->getCanvasSpline()->showsPoints = editsAll_;
    curve->isBesideSolo = !curves_.empty() && curves_.front()->isBesideSolo;
    curve->setMark(CurveMark::Solo, curve->isBesideSolo); // who opens it wants to see it
    curves_.push_back(std::move(curve));
}

std::unique_ptr<CurveNodeBase> CanvasCurves::take(const CurveNodeBase* curve)
{
    const auto found = std::find_if(curves_.begin(), curves_.end(),
                                    [curve](const auto& present) { return present.get() == curve; });
    if (found == curves_.end())
        return nullptr;
    std::unique_ptr<CurveNodeBase> taken = std::move(*found);
    curves_.erase(found);
    if (current_ == curve)
        current_ = curves_.empty() ? nullptr : curves_.front().get();
    return taken;
}

void CanvasCurves::clear()
{
    current_ = nullptr;
    curves_.clear();
}

void CanvasCurves::setCurrent(CurveNodeBase& curve)
{
    if (current_)
        setSelectedMark(*current_, false);
    current_ = &curve;
    setSelectedMark(curve, true);
    curve.toggleAction();
}

CanvasCurves::Nodes CanvasCurves::currentOnly() const
{
    return current_ ? Nodes{current_} : Nodes();
}

CanvasCurves::Nodes CanvasCurves::currentShownOnly() const
{
    const bool isSpline = current_ && current_->isSpline() && current_->getSpline();
    return isSpline && current_->isShown() ? Nodes{current_} : Nodes();
}

void CanvasCurves::followMarks()
{
    const bool hasSolo = std::any_of(curves_.begin(), curves_.end(), [](const auto& curve) {
        return curve->mark(CurveMark::Solo).isOn && !curve->curve()->options.hidden;
    });
    for (const auto& curve : curves_) {
        curve->isBesideSolo = hasSolo;
        if (!curve->isShown())
            curve->control().selection().selectOnly(0);
    }
}

void CanvasCurves::setEditsAll(bool on)
{
    editsAll_ = on;
    for (const auto& curve : curves_) {
        curve->getCanvasSpline()->showsPoints = on;
        if (!on && curve.get() != current_)
            curve->control().selectOnly(nullptr); // the point menu would act on what does not show any more
    }
}

CanvasCurves::Nodes CanvasCurves::inReach() const
{
    Nodes reach = currentShownOnly();
    if (!editsAll_)
        return reach;
    std::unordered_set<const SplineBase*> splines;
    for (const CurveNodeBase* const curve : reach)
        splines.insert(curve->getSpline());
    for (const auto& curve : curves_) {
        if (curve->isShown() && curve->isSpline() && curve->getSpline() &&
            splines.insert(curve->getSpline()).second)
            reach.push_back(curve.get());
    }
    return reach;
}

CanvasCurves::Nodes CanvasCurves::selected() const
{
    Nodes selected = inReach();
    std::erase_if(selected, [](const CurveNodeBase* curve) { return !curve->control().hasSelection(); });
    return selected;
}

CanvasCurves::Nodes CanvasCurves::selectedAnywhere() const
{
    Nodes selected;
    for (const auto& curve : curves_) {
        if (curve->isShown() && curve->getSpline() && curve->control().hasSelection())
            selected.push_back(curve.get());
    }
    return selected;
}

bool CanvasCurves::hasMultipleSelection() const
{
    return isMultiple(selected());
}

CanvasCurves::Selections CanvasCurves::selections() const
{
    Selections selections;
    for (const auto& curve : curves_) {
        if (curve->control().hasSelection())
            selections.emplace_back(curve.get(), curve->control().selection());
    }
    return selections;
}

std::optional<AxisRange> CanvasCurves::selectedTimes() const
{
    const Nodes nodes = selected();
    if (!isMultiple(nodes))
        return std::nullopt;
    AxisRange range = AxisRange::nothing();
    for (const CurveNodeBase* const curve : nodes) {
        for (const double time : curve->control().selectedTimes())
            range.include(time);
    }
    return range.isNothing() ? std::nullopt : std::optional(range);
}

bool CanvasCurves::isOutsideSelection(double time) const
{
    const std::optional<AxisRange> range = selectedTimes();
    return !range || time <= range->low || time >= range->high;
}

void CanvasCurves::selectOnly(PointSerial point)
{
    for (CurveNodeBase* const curve : inReach())
        curve->control().selection().selectOnly(0);
    current_->control().selection().selectOnly(point);
}

void CanvasCurves::dropLostPoints()
{
    for (const auto& curve : curves_)
        curve->control().dropLostPoints();
}

/// Two curves may share a spline or a variable.
CanvasCurves::Nodes CanvasCurves::showing(const EditedCurve& curve) const
{
    Nodes nodes;
    for (const auto& candidate : curves_) {
        const EditedCurve& content = *candidate->curve();
        const bool sharesVariable = content.variable() && content.variable() == curve.variable();
        if (&content == &curve || content.spline() == curve.spline() || sharesVariable)
            nodes.push_back(candidate.get());
    }
    return nodes;
}

void CanvasCurves::markEdited(const EditReport& report, bool isDragStep)
{
    const EditedCurve& edited = *report.curve;
    for (CurveNodeBase* const curve : showing(edited))
        curve->noteEdited(report.touched);
    const QSet<QString> readers = isDragStep ? readers_.value(edited.name) : readersOf(edited);
    if (readers.isEmpty())
        return;
    for (const auto& curve : curves_) {
        if (readers.contains(DependencyCheck::lowerVariableName(curve->getName())))
            curve->changed = true;
    }
}

void CanvasCurves::noteReaders(const CurveEdit::Curves& dragged)
{
    readers_.clear();
    for (const auto& curve : dragged)
        readers_.insert(curve->name, readersOf(*curve));
}

/// The lower variable names of those that read the curve, or one that shows the same; it need not be on the canvas.
QSet<QString> CanvasCurves::readersOf(const EditedCurve& curve) const
{
    QStringList names = {curve.name};
    for (const CurveNodeBase* const node : showing(curve))
        names.append(node->getName());
    QSet<QString> readers;
    for (const QString& name : std::as_const(names)) {
        const QStringList found =
            editor_ ? editor_->readersOf(DependencyCheck::lowerVariableName(name)) : QStringList();
        readers.unite(QSet<QString>(found.begin(), found.end()));
    }
    return readers;
}

CanvasCurves::Guarded CanvasCurves::withFirst(CurveNodeBase* first, const CurveEdit::Curves& changed) const
{
    Guarded curves;
    if (first)
        curves.emplace_back(first);
    for (const auto& curve : curves_) {
        const bool hasChanged = std::find(changed.begin(), changed.end(), curve->curve()) != changed.end();
        if (hasChanged && curve.get() != first)
            curves.emplace_back(curve.get());
    }
    return curves;
}

void CanvasCurves::report(const Guarded& curves)
{
    for (const auto& curve : curves) {
        if (curve)
            curve->emitCurveChanged();
    }
}

} // namespace curveeditor
