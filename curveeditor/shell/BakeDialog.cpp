// SPDX-License-Identifier: MIT
#include <curveeditor/shell/BakeDialog.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/edit/PointTypeTexts.h>
#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/shell/DialogParts.h>

#include <QComboBox>
#include <QDeadlineTimer>

#include <algorithm>
#include <limits>

namespace curveeditor {

namespace {

constexpr qint64 longestEvaluation = 1000; // milliseconds

} // namespace

BakeDialog::BakeDialog(QWidget* editor, CanvasFunctionBase& canvas)
    : FitDialog(editor, canvas, canvas.getCurrentCurve()), fps_(canvas.getViewport()->fps),
      shownPerTime_(canvas.getViewport()->isShowFrames() && fps_ > 0.0 ? fps_ : 1.0)
{
    addTimes();
    addKinds();
    addOutcome();
    const auto& points = result_.spline.points;
    const auto [lowest, highest] =
        std::minmax_element(points.begin(), points.end(),
                            [](const auto& left, const auto& right) { return left.pos < right.pos; });
    if (!points.empty())
        tolerance_->setNumber(usualTolerance(lowest->pos, highest->pos));
}

void BakeDialog::addTimes()
{
    const ViewPort& view = *canvas().getViewport();
    double first = view.limitTimeMin, last = view.limitTimeMax, lowest = 0.0, highest = 0.0;
    canvas().getExtent(first, last, lowest, highest);
    const double step = areFrames() || !(fps_ > 0.0) ? 1.0 : 1.0 / fps_;
    from_ = addNumber("from", first * shownPerTime_);
    from_->setFocus();
    to_ = addNumber("to", last * shownPerTime_);
    every_ = addNumber("every", step);
}

void BakeDialog::addKinds()
{
    kind_ = new QComboBox;
    const CurveOptions& options = curve()->curve()->options;
    for (const PointType& type : PointTypes::all()) {
        if (curve()->curve()->offers(type.number))
            kind_->addItem(QString(), type.number);
    }
    if (PointLimits::fitType(options))
        kind_->addItem(QString()); // a fit
    kind_->setCurrentIndex(std::max(0, kind_->findData(SplineBase::Bezier)));
    addField("kind", kind_);
    tolerance_ = addNumber("tolerance", usualTolerance(0.0, 1.0));
    tolerance_->setEnabled(false);
    connect(kind_, &QComboBox::currentIndexChanged, this, [this] {
        tolerance_->setEnabled(isFitted());
        fieldChanged();
    });
}

void BakeDialog::translate()
{
    setWindowTitle(tr("Bake"));
    setLabel(from_, areFrames() ? tr("&From frame") : tr("&From time"));
    setLabel(to_, areFrames() ? tr("&To frame") : tr("&To time"));
    setLabel(every_, tr("&Every"));
    setLabel(kind_, tr("&Points"));
    for (int index = 0; index < kind_->count(); ++index) {
        const QVariant type = kind_->itemData(index);
        kind_->setItemText(index, type.isValid() ? PointTypeTexts::shown(PointTypes::of(type.toInt()).name)
                                                 : tr("As few as the tolerance allows"));
    }
    fitToItems(kind_);
    setLabel(tolerance_, tr("To&lerance"));
}

bool BakeDialog::areFrames() const
{
    return shownPerTime_ != 1.0;
}

bool BakeDialog::isFitted() const
{
    return !kind_->currentData().isValid();
}

std::optional<CurveFit::Steps> BakeDialog::steps() const
{
    const std::optional<double> from = from_->number(), to = to_->number(), every = every_->number();
    if (!from || !to || !every)
        return std::nullopt;
    return CurveFit::Steps{*from, *to, *every};
}

FitDialog::Outcome BakeDialog::work()
{
    result_ = {};
    const std::optional<CurveFit::Steps> times = steps();
    if (!times)
        return {tr("The times must be numbers."), false};
    if (isFitted() && tolerance_->number().value_or(-1.0) < 0.0)
        return {toleranceHint(), false};
    if (!curve())
        return {};
    result_ = bake(*times);
    return outcomeOf(*times);
}

CurveFit::Options BakeDialog::fitOptions() const
{
    CurveFit::Options options;
    options.tolerance = tolerance_->number().value_or(0.0);
    options.type = PointLimits::fitType(curve()->curve()->options).value_or(options.type);
    return options;
}

std::vector<CurveFit::Jump> BakeDialog::jumps() const
{
    const SplineBase* const spline = curve()->isSpline() ? curve()->getSpline() : nullptr;
    std::vector<CurveFit::Jump> jumps;
    if (spline)
        jumps = CurveFit::jumpsOf(*spline);
    for (CurveFit::Jump& jump : jumps)
        jump.time *= shownPerTime_;
    return jumps;
}

// Frames are whole numbers, so steps are made in what is shown.
CurveFit::Result BakeDialog::bake(CurveFit::Steps times)
{
    times.jumps = jumps();
    isLate_ = false;
    EvaluationTime evaluationTime;
    const QDeadlineTimer deadline(longestEvaluation);
    const auto function = [&](double shown) {
        isLate_ = isLate_ || deadline.hasExpired();
        if (isLate_)
            return std::numeric_limits<double>::quiet_NaN();
        const double time = shown / shownPerTime_;
        evaluationTime.set(time, fps_);
        return curve()->getValue(time);
    };
    CurveFit::Result result =
        isFitted() ? CurveFit::bake(function, times, fitOptions())
                   : CurveFit::bake(function, times, SplineBase::NodeType(kind_->currentData().toInt()));
    for (SplineBase::PointInfo& point : result.spline.points) {
        point.time /= shownPerTime_;
        point.tanLeft *= shownPerTime_;
        point.tanRight *= shownPerTime_;
    }
    return result;
}

FitDialog::Outcome BakeDialog::outcomeOf(const CurveFit::Steps& times) const
{
    if (isLate_)
        return {tr("This takes too long. Fewer points may do."), false};
    if (!(times.step > 0.0))
        return {tr("The step must be greater than 0."), false};
    if (times.first > times.last)
        return {tr("The first time is later than the last."), false};
    if (result_.status == CurveFit::Status::TooManyPoints || result_.status == CurveFit::Status::BadRange)
        return {tr("These are more than %1 points.").arg(CurveFit::stepLimit), false};
    if (!result_.isDone())
        return {tr("The curve has no value there."), false};
    const std::size_t count = result_.spline.points.size();
    if (!isFitted())
        return {tr("Number of points: %1").arg(count), true};
    return {tr("%1 values become %2 points, at most %3 away.")
                .arg(result_.samples)
                .arg(count)
                .arg(deviationText(result_.deviation, result_.spline.points)),
            true};
}

// The host may have changed the curve meanwhile.
void BakeDialog::accept()
{
    refresh();
    FitDialog::accept();
}

void BakeDialog::apply()
{
    if (curve())
        canvas().setPoints(*curve(), tr("Bake %1"), result_.spline.points);
}

} // namespace curveeditor

#include "moc_BakeDialog.cpp"
