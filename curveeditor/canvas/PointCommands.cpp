// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/PointCommands.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/DecimalQuestion.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/files/NumberText.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace curveeditor {

PointCommands::PointCommands(CanvasFunctionBase& canvas) : canvas_(canvas) {}

bool PointCommands::canSelect() const
{
    return !canvas_.curves().inReach().empty();
}

bool PointCommands::canInsert() const
{
    return !canvas_.curves().currentShownOnly().empty();
}

bool PointCommands::canEdit() const
{
    return canvas_.hasSelectedPoint();
}

bool PointCommands::canCopy() const
{
    return canInsert() && canvas_.currentSplineControl()->hasSelection();
}

void PointCommands::selectAll()
{
    changeMarks([](Marks& marks) { marks.assign(marks.size(), true); });
}

void PointCommands::selectNone()
{
    changeMarks([](Marks& marks) { marks.assign(marks.size(), false); });
}

void PointCommands::selectOthers()
{
    changeMarks([](Marks& marks) { marks.flip(); });
}

void PointCommands::extendSelection(bool forward)
{
    const bool isAnySelected = canEdit();
    changeMarks([forward, isAnySelected](Marks& marks) {
        const auto first = std::find(marks.begin(), marks.end(), true);
        const auto last = std::find(marks.rbegin(), marks.rend(), true);
        if (isAnySelected && first == marks.end())
            return;
        if (forward && last != marks.rbegin())
            *(last == marks.rend() ? marks.begin() : last.base()) = true;
        else if (!forward && first != marks.begin())
            *(first - 1) = true;
    });
}

void PointCommands::nudge(double frames, double tenthsOfGridStep)
{
    const double time = frames * frame();
    const double value = tenthsOfGridStep * canvas_.grid().stepY / 10.0;
    if ((time == 0.0 && value == 0.0) || !std::isfinite(time) || !std::isfinite(value))
        return;
    canvas_.editSelection(tr("Nudge a point of %1"), tr("Nudge %1 points of %2"),
                          [&](SplineBase& spline, const std::vector<PointSerial>& points) {
                              SplineEdits::panPoints(spline, points, time,
                                                     value * canvas_.shareOfScale(spline));
                          });
}

void PointCommands::copy()
{
    const ControlSplineNode* const present = canvas_.currentSplineControl();
    if (!canCopy())
        return;
    QGuiApplication::clipboard()->setText(
        PointText::write(SplineEdits::copyOf(*present->getSpline(), present->selection().edited())));
}

void PointCommands::cut()
{
    canvas_.settle(); // may make another curve the current one
    if (!canCopy())
        return;
    copy();
    canvas_.editSpline(tr("Cut points of %1"), [this](SplineBase& spline) {
        SplineEdits::removePoints(spline, canvas_.currentSplineControl()->selection().edited());
    });
}

bool PointCommands::canPaste() const
{
    const QMimeData* const content = QGuiApplication::clipboard()->mimeData();
    return canInsert() && content && content->hasText();
}

void PointCommands::paste(Paste kind)
{
    if (!canPaste())
        return;
    const QString text = QGuiApplication::clipboard()->text();
    const PointText::Result result = PointText::read(text);
    if (!result.isAmbiguous)
        return paste(result, kind);
    // Later, so that the menu in which this was chosen is not at work while the host may delete it.
    QTimer::singleShot(0, &canvas_, [commands = *this, text, kind]() mutable {
        const std::optional<TableReader::Decimal> decimal =
            askForDecimal(commands.canvas_.widget(), tr("Paste points"), text.toStdString());
        if (decimal && commands.canInsert())
            commands.paste(PointText::read(text, *decimal), kind);
    });
}

void PointCommands::paste(PointText::Result result, Paste kind)
{
    if (result.isEmpty)
        return canvas_.tell(result.message);
    if (!result.message.isEmpty())
        return showWarning(canvas_.widget(), tr("Paste points"), result.message);
    const ViewPort* const view = canvas_.getViewport();
    const bool stays = kind == Paste::WhereTheyWere || !view;
    const double shift = stays ? 0.0 : view->timeLine - result.points.front().time;
    for (SplineBase::PointInfo& point : result.points)
        point.time += shift;
    const bool replaces = kind == Paste::ReplacingAtTimeLine;
    add(replaces ? tr("Replace points of %1") : tr("Paste points into %1"), result.points, replaces);
}

void PointCommands::duplicate()
{
    canvas_.settle();
    const ControlSplineNode* const present = canvas_.currentSplineControl();
    if (!canCopy())
        return;
    std::vector<SplineBase::PointInfo> points =
        SplineEdits::copyOf(*present->getSpline(), present->selection().edited());
    for (SplineBase::PointInfo& point : points)
        point.time += frame();
    add(tr("Duplicate points of %1"), points);
}

void PointCommands::insertAtTimeLine()
{
    if (const ViewPort* const view = canvas_.getViewport())
        insertAt(view->timeLine);
}

void PointCommands::insertAt(double time)
{
    canvas_.editSpline(tr("Insert a point on %1"), [this, time](SplineBase& spline) {
        canvas_.currentSplineControl()->selection().selectOnly(SplineEdits::insertOnCurve(spline, time));
    });
}

void PointCommands::flattenTangents()
{
    canvas_.editSelection(tr("Flatten a point of %1"), tr("Flatten %1 points of %2"),
                          &SplineEdits::flattenTangents);
}

void PointCommands::alignTangents()
{
    canvas_.editSelection(tr("Align the tangents of a point of %1"),
                          tr("Align the tangents of %1 points of %2"), &SplineEdits::alignTangents);
}

void PointCommands::smoothTangents()
{
    canvas_.editSelection(tr("Smooth a point of %1"), tr("Smooth %1 points of %2"),
                          &SplineEdits::smoothTangents);
}

void PointCommands::ease(const Ease& ease)
{
    SegmentEase::Outcome outcome;
    Easable easable;
    CanvasEdit easing;
    easing.text = CanvasEdit::ofPoints(tr("Ease a point of %1"), tr("Ease %1 points of %2"));
    easing.targets = [&easable](const CanvasCurves& curves) {
        easable = easableOf(curves);
        return easable.curves;
    };
    std::vector<Eased> eased;
    easing.work = [&](CurveNodeBase& curve) {
        eased.push_back(easeOne(curve, ease, outcome));
    };
    easing.told = CanvasEdit::Told::Current;
    easing.showsSelection = false;
    const QPointer<CanvasFunctionBase> canvas(&canvas_);
    canvas_.edit(easing);
    if (!canvas)
        return;
    const QLocale locale = canvas->widget() ? canvas->widget()->locale() : QLocale();
    QStringList told;
    if (outcome.segments > 0)
        told += areAsEased(eased) ? outcomeText(outcome, locale)
                                  : tr("Ease: the application has changed the result");
    if (!eased.empty())
        eased_ = std::move(eased);
    if (!easable.refusal.isEmpty())
        told += easable.refusal;
    if (!told.isEmpty())
        canvas->tell(told.join(QLatin1String(". ")));
}

/// A constraint may have the last word, and whoever hears of an edit. Notes what is there now.
bool PointCommands::areAsEased(std::vector<Eased>& eased)
{
    bool isAsEased = true;
    for (Eased& one : eased) {
        const std::shared_ptr<const EditedCurve> curve = one.curve.lock();
        if (!curve || !curve->spline())
            continue;
        one.isAsEased = one.isAsEased && curve->spline()->state() == one.left;
        isAsEased = isAsEased && one.isAsEased;
        curve->spline()->copyTo(one.left);
    }
    return isAsEased;
}

QString PointCommands::easeRefusal() const
{
    const Easable easable = easableOf(canvas_.curves());
    return easable.curves.empty() ? easable.refusal : QString();
}

PointCommands::Easable PointCommands::easableOf(const CanvasCurves& curves)
{
    Easable easable;
    for (CurveNodeBase* const node : curves.selected()) {
        if (!SegmentEase::isPossible(*node->getSpline(), node->control().selection().edited()))
            continue;
        const bool isAllowed = PointLimits::allow(node->curve()->options, SplineBase::Bezier);
        if (isAllowed)
            easable.curves.push_back(node);
        else
            easable.refusal = tr("Ease: %1 may have no Bezier points").arg(node->getName());
    }
    if (easable.curves.empty() && easable.refusal.isEmpty())
        easable.refusal = tr("Ease: select both ends of a segment that is not vertical");
    return easable;
}

/// Without the points of the last ease, if these are selected still and nothing else has come since.
PointCommands::Eased PointCommands::easeOne(CurveNodeBase& curve, const Ease& ease,
                                            SegmentEase::Outcome& outcome) const
{
    SplineBase& spline = *curve.control().openSpline();
    const Selection& selection = curve.control().selection();
    Eased eased{curve.curve(), selection.edited(), {}, ease};
    spline.copyTo(eased.left);
    const auto last = std::find_if(eased_.begin(), eased_.end(), [&](const Eased& one) {
        return one.curve.lock() == curve.curve() && one.selected == selection.points() &&
               one.left == eased.left;
    });
    if (last != eased_.end() && last->ease == ease) {
        outcome.unite(last->outcome);
        return *last;
    }
    if (last != eased_.end()) {
        SplineEdits::removePoints(spline, last->outcome.added);
        eased.points = last->points;
    }
    eased.outcome = SegmentEase::apply(spline, eased.points, ease, curve.curve()->options);
    outcome.unite(eased.outcome);
    std::vector<PointSerial> both = eased.points, selected;
    both.insert(both.end(), eased.outcome.added.begin(), eased.outcome.added.end());
    for (const SplineBase::PointInfo& point : SplineEdits::copyOf(spline, both))
        selected.push_back(point.serial);
    curve.control().selectPoints(selected);
    eased.selected = selection.points();
    spline.copyTo(eased.left);
    return eased;
}

QString PointCommands::outcomeText(const SegmentEase::Outcome& outcome, const QLocale& locale)
{
    if (outcome.steps == 0)
        return tr("Ease: a level segment has no step, and is straight now");
    const double tenths = std::ceil(outcome.deviation * 1000.0); // of a percent
    const QString percent = NumberText::inLocale(QString::number(tenths / 10.0, 'f', 1), locale);
    const QString exactness =
        tenths > 0.0 ? tr("Ease: deviates by at most %1 % of the step").arg(percent) : tr("Ease: exact");
    return outcome.bendsOthers ? tr("%1; an eased Tcb segment beside it has bent").arg(exactness) : exactness;
}

/// In time units; 0.0 if there are none.
double PointCommands::frame() const
{
    const ViewPort* const view = canvas_.getViewport();
    const double frame = view && view->fps != 0.0 ? 1.0 / view->fps : 0.0;
    return std::isfinite(frame) ? frame : 0.0;
}

/// `replaces` the points from the first to the last of the new ones.
void PointCommands::add(const QString& text, const std::vector<SplineBase::PointInfo>& points, bool replaces)
{
    const bool isWithinTimes =
        std::all_of(points.begin(), points.end(),
                    [](const SplineBase::PointInfo& point) { return std::isfinite(point.time); });
    if (!isWithinTimes)
        return showWarning(canvas_.widget(), tr("Paste points"),
                           tr("Moved there, the points would lie beyond all times."));
    canvas_.editSpline(text, [this, &points, replaces](SplineBase& spline) {
        const std::vector<PointSerial> replaced =
            replaces ? SplineEdits::pointsWithin(spline, points.front().time, points.back().time)
                     : std::vector<PointSerial>();
        const std::vector<PointSerial> added = SplineEdits::addPoints(spline, points);
        SplineEdits::removePoints(spline, replaced);
        canvas_.currentSplineControl()->selectPoints(added);
    });
}

/// For each curve in reach `change` gets which of its points are selected.
void PointCommands::changeMarks(const std::function<void(Marks&)>& change)
{
    canvas_.changeSelections([&change](ControlSplineNode& control) {
        Marks marks = control.selection().marks(*control.getSpline());
        marks.resize(std::size_t(control.pointCount()), false);
        change(marks);
        std::vector<PointSerial> points;
        for (std::size_t i = 0; i < marks.size(); ++i) {
            if (marks[i])
                points.push_back(control.pointAt(int(i))->serial);
        }
        control.selectPoints(points);
    });
}

} // namespace curveeditor
