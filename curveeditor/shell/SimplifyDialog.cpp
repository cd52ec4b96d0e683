// SPDX-License-Identifier: MIT
#include <curveeditor/shell/SimplifyDialog.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/model/CurveFit.h>

#include <QCheckBox>

#include <algorithm>
#include <cmath>

namespace curveeditor {

SimplifyDialog::SimplifyDialog(QWidget* editor, CanvasFunctionBase& canvas)
    : FitDialog(editor, canvas, canvas.getCurrentCurve()),
      trial_(canvas.door(), {curve()->curve()}, tr("Simplify %1").arg(curve()->getName()))
{
    original_.assign(trial_.before().spline);
    takeSpan();
    const auto& points = trial_.before().spline.points;
    const auto begin = points.begin() + std::ptrdiff_t(first_);
    const auto [lowest, highest] =
        std::minmax_element(begin, points.begin() + std::ptrdiff_t(last_) + 1,
                            [](const auto& left, const auto& right) { return left.pos < right.pos; });
    tolerance_ = addNumber("tolerance", usualTolerance(lowest->pos, highest->pos));
    tolerance_->selectAll();
    tolerance_->setFocus();
    monotone_ = new QCheckBox;
    addBox("monotone", monotone_);
    connect(monotone_, &QCheckBox::toggled, this, &SimplifyDialog::fieldChanged);
    addOutcome();
}

void SimplifyDialog::translate()
{
    setWindowTitle(tr("Simplify"));
    setLabel(tolerance_, tr("&Tolerance"));
    monotone_->setText(tr("&Keep rising and falling parts so"));
}

void SimplifyDialog::takeSpan()
{
    last_ = original_.getControlPointsNumber() - 1;
    const std::vector<bool> marks = curve()->control().selection().marks(original_);
    isPart_ = std::count(marks.begin(), marks.end(), true) > 2;
    if (!isPart_)
        return;
    first_ = std::size_t(std::find(marks.begin(), marks.end(), true) - marks.begin());
    last_ = marks.size() - 1 - std::size_t(std::find(marks.rbegin(), marks.rend(), true) - marks.rbegin());
}

FitDialog::Outcome SimplifyDialog::work()
{
    const bool wasLost = hasLostPoint();
    const std::optional<double> tolerance = tolerance_->number();
    Outcome outcome{toleranceHint(), false};
    if (tolerance && *tolerance >= 0.0)
        outcome = simplify(*tolerance);
    const bool isShown = outcome.isPossible ? trial_.isPossible() : trial_.show({trial_.before().spline});
    showTrial(wasLost);
    if (!isShown)
        return {tr("The curve has changed meanwhile and stays as it is."), false};
    return outcome;
}

FitDialog::Outcome SimplifyDialog::simplify(double tolerance)
{
    const auto type = PointLimits::fitType(curve()->curve()->options);
    if (!type)
        return {tr("This makes Bezier or Linear points, which the curve may not have."), false};
    const CurveFit::Result result =
        CurveFit::simplify(original_, first_, last_, {tolerance, monotone_->isChecked(), *type});
    const std::size_t count = last_ - first_ + 1;
    const std::size_t rest = original_.getControlPointsNumber() - count;
    const std::size_t left = result.spline.points.size() - rest;
    if (!result.isDone() || left >= count)
        return {tr("No fewer than %1 points are within this tolerance.").arg(count), false};
    trial_.show({result.spline});
    const QString text = isPart_ ? tr("%1 points of the selected part become %2, at most %3 away.")
                                 : tr("%1 points become %2, at most %3 away.");
    const auto part = std::span(result.spline.points).subspan(first_, left);
    return {text.arg(count).arg(left).arg(deviationText(result.deviation, part)), true};
}

void SimplifyDialog::apply()
{
    trial_.keep();
    if (!curve())
        return;
    curve()->control().dropLostPoints();
    Q_EMIT canvas().selectionChanged(false);
    if (curve())
        canvas().nodeHasChanged(&curve()->control());
}

void SimplifyDialog::takeBack()
{
    const bool wasLost = hasLostPoint();
    trial_.takeBack();
    showTrial(wasLost);
}

/// Whether the trial is without the point that is selected, which then is on no page.
bool SimplifyDialog::hasLostPoint() const
{
    const ControlSplineNode* const control = canvas().currentControl();
    return control && control->hasSingleSelection() && !control->getCurrent();
}

/// `wasPointLost` says that the page was closed for want of the point; it opens if the point is back.
void SimplifyDialog::showTrial(bool wasPointLost)
{
    canvas().paint();
    Q_EMIT canvas().selectionChanged(wasPointLost);
}

} // namespace curveeditor

#include "moc_SimplifyDialog.cpp"
