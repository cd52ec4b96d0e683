// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/shell/EditorState.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QAction>
#include <QSplitter>
#include <QTabWidget>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace curveeditor;

namespace {

bool areSame(const QRectF& left, const QRectF& right) // to the last bit
{
    return left.x() == right.x() && left.y() == right.y() && left.width() == right.width() &&
           left.height() == right.height();
}

bool takesState(const QSplitter& splitter, const QByteArray& state)
{
    QSplitter probe;
    for (int i = 0; i < splitter.count(); ++i)
        probe.addWidget(new QWidget);
    return probe.restoreState(state) && probe.orientation() == splitter.orientation();
}

} // namespace

/// Without the size of the canvas.
PlaneMapping CurveEditor::Private::shownRange() const
{
    const ViewPort& view = *functionEdit;
    return {view.timeMin, view.timeMax, view.valueMin, view.valueMax, 0, 0};
}

QRectF CurveEditor::view() const
{
    const PlaneMapping shown = d_->shownRange();
    return {shown.timeMin, shown.valueMin, shown.timeSpan(), shown.valueSpan()};
}

void CurveEditor::setView(const QRectF& plane)
{
    if (!areSame(plane, view())) // the sum of an edge and a span need not be the other edge
        d_->showRange({plane.x(), plane.x() + plane.width()}, {plane.y(), plane.y() + plane.height()});
}

void CurveEditor::Private::showRange(const AxisRange& times, const AxisRange& values)
{
    ViewPort& view = *functionEdit;
    view.showView(ViewStep::placed(view.mapping(), view.limits(), times, values));
    functionEdit->canvas.paint();
}

QPointF CurveEditor::toCanvas(const QPointF& place) const
{
    const PlaneMapping shown = d_->functionEdit->mapping();
    return {shown.column(place.x()), shown.row(place.y())};
}

QPointF CurveEditor::fromCanvas(const QPointF& pixel) const
{
    const PlaneMapping shown = d_->functionEdit->mapping();
    return {shown.timeAt(pixel.x()), shown.valueAt(pixel.y())};
}

CanvasPainter CurveEditor::Private::guarded(CanvasPainter painter)
{
    if (!painter)
        return {};
    return [this, painter = std::move(painter)](QPainter& on, const PlaneMapping& plane) {
        const HostCalls::Call call(hostCalls());
        painter(on, plane);
    };
}

void CurveEditor::setUnderlay(CanvasPainter painter)
{
    d_->functionEdit->canvas.setUnderlay(d_->guarded(std::move(painter)));
}

void CurveEditor::setOverlay(CanvasPainter painter)
{
    d_->functionEdit->canvas.setOverlay(d_->guarded(std::move(painter)));
}

void CurveEditor::updateUnderlay()
{
    d_->functionEdit->canvas.updateUnderlay();
}

QByteArray CurveEditor::saveState() const
{
    // A splitter remembers what it was given, and its widgets may have needed more.
    if (tabWidget2->isVisible())
        splitter10->setSizes(splitter10->sizes());
    const DragGuide& guide = d_->functionEdit->canvas.hands().guide;
    const PlaneMapping shown = d_->shownRange();
    EditorState state;
    state.columns = splitter11->saveState();
    state.rows = splitter10->saveState();
    state.page =
        int(std::find_if(d_->pages.begin(), d_->pages.end(),
                         [this](const auto& page) { return page.second == tabWidget2->currentWidget(); }) -
            d_->pages.begin());
    state.snaps = guide.isSnapping;
    state.snapKinds = guide.snap.kinds;
    state.editsAllCurves = d_->functionEdit->canvas.editsAllCurves();
    state.alignsHandles = d_->functionEdit->canvas.hands().alignsHandles;
    state.showsFrames = isModeFrames();
    state.hasOwnScale = d_->functionEdit->canvas.hasOwnScale();
    state.showsSpeed = d_->functionEdit->canvas.showsSpeed();
    state.times = {shown.timeMin, shown.timeMax};
    state.values = state.hasOwnScale ? d_->functionEdit->ownScale.heightsIn(shown)
                                     : AxisRange{shown.valueMin, shown.valueMax};
    return state.bytes();
}

bool CurveEditor::restoreState(const QByteArray& bytes)
{
    const std::optional<EditorState> state = EditorState::read(bytes);
    const bool isOurs = state && state->page >= 0 && state->page <= int(d_->pages.size()) &&
                        takesState(*splitter11, state->columns) && takesState(*splitter10, state->rows);
    if (!isOurs)
        return false;
    splitter11->restoreState(state->columns);
    hasUsersListWidth = true;
    hasUsersPageHeight = true;
    splitter10->restoreState(state->rows);
    if (state->page < int(d_->pages.size())) // else there was none
        tabWidget2->setCurrentIndex(tabWidget2->indexOf(d_->pages[std::size_t(state->page)].second));
    CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    canvas.hands().guide.isSnapping = state->snaps;
    canvas.hands().guide.snap.kinds = state->snapKinds;
    canvas.hands().alignsHandles = state->alignsHandles;
    const auto axis = state->showsFrames ? &CurveEditor::setShowFrames : &CurveEditor::setShowTime;
    (this->*axis)();
    d_->actionOf(axis)->setChecked(true);
    if (canvas.editsAllCurves() != state->editsAllCurves)
        canvas.setEditsAllCurves(state->editsAllCurves);
    canvas.setOwnScale(state->hasOwnScale);
    canvas.setShowsSpeed(state->showsSpeed);
    d_->showRange(state->times,
                  state->hasOwnScale ? d_->functionEdit->ownScale.valuesAt(state->values) : state->values);
    d_->functionEdit->showSelection(false);
    return true;
}

void CurveEditor::Private::tellView()
{
    if (toldView == shownRange())
        return;
    toldView = shownRange();
    const HostCalls::Call call(hostCalls());
    Q_EMIT editor.viewChanged();
}

/// What a frame may show otherwise than the last one.
void CurveEditor::Private::tellSeen()
{
    if (setChanges > 0)
        return;
    tellView();
    tellSelection();
}
