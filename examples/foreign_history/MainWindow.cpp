// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include <QAction>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolBar>

#include <utility>

namespace {

constexpr double duration = 10.0;
const auto group = QStringLiteral("Track"), curve = QStringLiteral("Gain");

} // namespace

MainWindow::MainWindow()
    : nodes_{{0, 0.2, Node::Shape::Hold},
             {96000, 0.8, Node::Shape::Linear},
             {240000, 0.4, Node::Shape::Following},
             {336000, 0.9, Node::Shape::Following},
             {480000, 0.1}},
      gain_(new QSpinBox(this)), editor_(std::make_unique<CurveEditor>())
{
    SplineState state;
    state.points = pointsOf(nodes_);
    spline_.assign(state);
    tidy(spline_);
    engine_.publish(CurveSnapshot::of(spline_));
    addEditor();
    addCommands();
}

MainWindow::~MainWindow()
{
    editor_.reset(); // a widget of this window, and before what it edits
}

void MainWindow::addEditor()
{
    CurveOptions options;
    options.lowest = 0.0;
    options.highest = 1.0;
    options.types = {SplineBase::Linear, SplineBase::Bezier, SplineBase::Hold};
    for (const EditorPart part : {EditorPart::Formulas, EditorPart::Files, EditorPart::List})
        editor_->setPartShown(part, false); // it has one curve, in files of its own
    editor_->setTheme(CurveEditorTheme::fromPalette(palette()));
    editor_->setFps(framesPerSecond);
    editor_->setTimeRange(0.0, duration);
    editor_->setMinValue(0.0);
    editor_->setMaxValue(1.0);
    editor_->setTimeLineDraggable(true);
    editor_->addCurve(group, curve, Qt::green, 0.0F, &spline_, &formula_, 0.0F, 1.0F);
    editor_->setCurveOptions(group, curve, options);
    editor_->setConstraint(group, curve, &tidy);
    editor_->setKeepsHistory(false);
    editor_->setDefaultSelected(group, curve);
    editor_->setTimeLine(time_);
    connect(editor_.get(), &CurveEditor::curveEdited, this, &MainWindow::takeEdit);
    connect(editor_.get(), &CurveEditor::undoRequested, this, [this] { history_.undo(); });
    connect(editor_.get(), &CurveEditor::redoRequested, this, [this] { history_.redo(); });
    connect(editor_.get(), &CurveEditor::timeLineDragged, this, [this](double time) { time_ = time; });
    setCentralWidget(editor_.get());
}

void MainWindow::addCommands()
{
    QToolBar* const bar = addToolBar(tr("Track"));
    bar->addAction(tr("Undo"), editor_.get(),
                   &CurveEditor::undo); // which asks for the step when typing is done
    bar->addAction(tr("Redo"), editor_.get(), &CurveEditor::redo);
    bar->addAction(tr("Hold at the time line"), this, &MainWindow::toggleHold);
    gain_->setRange(0, 200);
    gain_->setValue(lastGain_);
    gain_->setSuffix(QStringLiteral(" %"));
    bar->addWidget(gain_);
    connect(gain_, &QSpinBox::valueChanged, this, &MainWindow::setGain);
}

/// The engine follows each step of a drag, the nodes and the history what is done. A step of the history comes here too,
/// and is no new command.
void MainWindow::takeEdit(const CurveChange& change)
{
    engine_.publish(CurveSnapshot::of(spline_, engine_.published()));
    if (change.phase == CurveChange::Phase::Preview)
        return;
    nodes_ = nodesOf(spline_);
    if (change.cause == CurveChange::Cause::Edit || change.cause == CurveChange::Cause::Host)
        history_.add(change.text.toStdString(), [this, diff = change.diff](bool forward) {
            return editor_->apply(group, curve, *diff, forward);
        });
}

void MainWindow::toggleHold()
{
    editor_->edit(group, curve, tr("Hold"), [this](SplineBase& spline) { ::toggleHold(spline, time_); });
}

/// A command that has nothing to do with curves.
void MainWindow::setGain(int percent)
{
    const auto show = [this](int shown) {
        const QSignalBlocker silence(gain_);
        gain_->setValue(shown);
        engine_.setGain(shown / 100.0);
        return true;
    };
    const int before = std::exchange(lastGain_, percent);
    history_.add("Change the level", [this, show, before, percent](bool forward) {
        return show(lastGain_ = forward ? percent : before);
    });
    show(percent);
}
