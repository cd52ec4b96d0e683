// SPDX-License-Identifier: MIT
#include <curveeditor/shell/RetimeDialog.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/TransformBox.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/shell/DialogParts.h>

#include <QComboBox>

#include <algorithm>
#include <numeric>

namespace curveeditor {

namespace {

CurveEdit::Curves contentOf(const CanvasCurves::Nodes& nodes)
{
    CurveEdit::Curves curves;
    for (const CurveNodeBase* const node : nodes)
        curves.push_back(node->curve());
    return curves;
}

} // namespace

RetimeDialog::RetimeDialog(QWidget* editor, CanvasFunctionBase& canvas)
    : FitDialog(editor, canvas, editable(canvas).front()),
      trial_(canvas.door(), contentOf(editable(canvas)),
             CanvasEdit::ofPoints(tr("Retime a point of %1"), tr("Retime %1 points of %2"))(editable(canvas)))
{
    setProperty(partOfDialog, QVariant()); // goes with no part
    addParts(editable(canvas));
    timeFactor_ = addNumber("timeFactor", 1.0);
    timeFactor_->selectAll();
    timeFactor_->setFocus();
    valueFactor_ = addNumber("valueFactor", 1.0);
    pivot_ = new QComboBox;
    for (const Pivot pivot : {Pivot::FirstPoint, Pivot::TimeLine, Pivot::Middle})
        pivot_->addItem(QString(), int(pivot));
    addField("pivot", pivot_);
    connect(pivot_, &QComboBox::currentIndexChanged, this, &RetimeDialog::fieldChanged);
    addOutcome();
}

void RetimeDialog::addParts(const CanvasCurves::Nodes& nodes)
{
    view_ = canvas().getViewport()->mapping();
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        auto original = std::make_unique<SplineBase>();
        original->assign(trial_.before(i).spline);
        PointTransform points(*original, nodes[i]->control().selection().edited(),
                              PointLimits::allow(nodes[i]->curve()->options, SplineBase::Bezier));
        const PlaneMapping plane = nodes[i]->mapping();
        for (const SplineBase::PointInfo& point : SplineEdits::copyOf(*original, points.points())) {
            const PointDrag::Place seen = placeIn(view_, {point.time, point.pos}, plane);
            if (frame_.time.isNothing() || point.time < frame_.time.low)
                first_ = seen;
            frame_.time.include(seen.time);
            frame_.value.include(seen.value);
        }
        parts_.push_back({std::move(original), std::move(points), plane});
    }
}

void RetimeDialog::translate()
{
    setWindowTitle(tr("Retime"));
    setLabel(timeFactor_, tr("&Time factor"));
    setLabel(valueFactor_, tr("&Value factor"));
    setLabel(pivot_, tr("&About"));
    pivot_->setItemText(int(Pivot::FirstPoint), tr("The first point"));
    pivot_->setItemText(int(Pivot::TimeLine), tr("The curve at the time line"));
    pivot_->setItemText(int(Pivot::Middle), tr("The middle"));
    fitToItems(pivot_);
}

/// In the plane of the view.
PointDrag::Place RetimeDialog::pivot() const
{
    const double timeLine = canvas().getViewport()->timeLine;
    switch (Pivot(pivot_->currentData().toInt())) {
    case Pivot::TimeLine:
        return placeIn(view_, {timeLine, (*parts_.front().original)(timeLine)}, parts_.front().plane);
    case Pivot::Middle:
        return {std::midpoint(frame_.time.low, frame_.time.high),
                std::midpoint(frame_.value.low, frame_.value.high)};
    case Pivot::FirstPoint:
        break;
    }
    return first_;
}

FitDialog::Outcome RetimeDialog::work()
{
    const std::optional<double> timeFactor = timeFactor_->number(), valueFactor = valueFactor_->number();
    Outcome outcome{tr("The factors must be numbers, that of the times not 0."), false};
    if (timeFactor && valueFactor && *timeFactor != 0.0)
        outcome = transform(*timeFactor, *valueFactor);
    if (!outcome.isPossible)
        showBefore();
    showTrial();
    return outcome;
}

void RetimeDialog::showBefore()
{
    std::vector<SplineState> before;
    for (std::size_t i = 0; i < parts_.size(); ++i)
        before.push_back(trial_.before(i).spline);
    trial_.show(before);
}

FitDialog::Outcome RetimeDialog::transform(double timeFactor, double valueFactor)
{
    std::vector<SplineState> states;
    bool mayBend = false;
    for (const Part& part : parts_) {
        const PointDrag::Place about = placeIn(part.plane, pivot(), view_);
        std::optional<PointTransform::Result> result =
            part.points.applied(*part.original, {{timeFactor, about.time}, {valueFactor, about.value}});
        if (!result)
            return {TransformBox::refusalText(), false};
        mayBend = mayBend || result->mayBend;
        states.push_back(std::move(result->state));
    }
    if (!trial_.show(states))
        return {tr("A curve has changed meanwhile and stays as it is."), false};
    return {summary(mayBend), true};
}

QString RetimeDialog::summary(bool mayBend) const
{
    std::size_t count = 0;
    for (const Part& part : parts_)
        count += part.points.points().size();
    if (count == 1)
        return tr("A single point keeps its place, unless it is retimed about the time line.");
    const QString number = tr("Number of points: %1").arg(count);
    return mayBend ? number + QStringLiteral(". ") + TransformBox::bendText() : number;
}

bool RetimeDialog::isStale() const
{
    return !trial_.isOpen();
}

void RetimeDialog::apply()
{
    const CurveEdit::Curves changed = trial_.keep();
    if (!curve())
        return;
    const CanvasCurves::Guarded nodes = canvas().curves().withFirst(nullptr, changed);
    Q_EMIT canvas().selectionChanged(false);
    for (const auto& node : nodes) {
        if (node)
            canvas().nodeHasChanged(&node->control());
    }
}

void RetimeDialog::takeBack()
{
    trial_.takeBack();
    showTrial();
}

void RetimeDialog::showTrial()
{
    canvas().paint();
    Q_EMIT canvas().selectionChanged(false);
}

} // namespace curveeditor

#include "moc_RetimeDialog.cpp"
