// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "AxisTexts.h"

#include <curveeditor/shell/CurveEditor.h>

#include <QAction>
#include <QDockWidget>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QRandomGenerator>
#include <QSaveFile>
#include <QTextStream>
#include <QToolBar>
#include <QUndoCommand>

#include <cmath>

namespace {

constexpr double duration = 10.0;
constexpr double fps = 24.0;

/// A command of the host, which has nothing to do with curves.
class ColorCommand : public QUndoCommand
{
public:
    ColorCommand(Stage& stage, const QColor& color)
        : QUndoCommand(MainWindow::tr("Change the colour of the ball")), stage_(stage),
          before_(stage.color()), after_(color)
    {
    }
    void undo() override { stage_.setColor(before_); }
    void redo() override { stage_.setColor(after_); }

private:
    Stage& stage_;
    QColor before_;
    QColor after_;
};

} // namespace

MainWindow::MainWindow()
    : stage_(new Stage(x_.spline, y_.spline, duration, this)), editor_(std::make_unique<CurveEditor>())
{
    x_.spline.setPos(x_.spline.modify(0u), -0.8);
    x_.spline.addPoint(duration, 0.8);
    y_.spline.addPoint(2.5, 0.8);
    y_.spline.addPoint(7.5, -0.8);
    y_.spline.addPoint(duration, 0.0);
    setCentralWidget(stage_);
    addEditor();
    addMenus();
    clock_.setInterval(int(1000.0 / fps));
    connect(&clock_, &QTimer::timeout, this, &MainWindow::advance);
    resize(1000, 900);
}

MainWindow::~MainWindow()
{
    editor_.reset(); // before the stack that holds its edits
}

void MainWindow::addEditor()
{
    editor_->setTheme(CurveEditorTheme::fromPalette(palette()));
    editor_->setUndoStack(&undoStack_);
    editor_->setFps(fps);
    editor_->setTimeRange(0.0, duration);
    editor_->setMinValue(-1.0);
    editor_->setMaxValue(1.0);
    editor_->setTimeLineDraggable(true);
    editor_->setTimeText(
        [](double time) { return AxisTexts::timecode(time, AxisTexts::film); },
        [](const QString& text) { return AxisTexts::timeOfTimecode(text, AxisTexts::film); });
    editor_->addCurve("Ball", "x", Qt::red, 0.0F, &x_.spline, &x_.formula, -1.0F, 1.0F);
    editor_->addCurve("Ball", "y", Qt::blue, 0.0F, &y_.spline, &y_.formula, -1.0F, 1.0F);
    editor_->setDefaultSelected("Ball", "x");
    editor_->setDefaultSelected("Ball", "y");
    connect(editor_.get(), &CurveEditor::curveEdited, stage_, [this] { stage_->update(); });
    connect(editor_.get(), &CurveEditor::timeLineDragged, this, &MainWindow::showTime);

    auto* const dock = new QDockWidget(tr("Curves"), this);
    dock->setWidget(editor_.get());
    addDockWidget(Qt::BottomDockWidgetArea, dock);
}

void MainWindow::addMenus()
{
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("Save the path of the ball…"), this, &MainWindow::save)
        ->setShortcut(QKeySequence::Save);
    QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
    QAction* const undo = undoStack_.createUndoAction(this);
    undo->setShortcut(QKeySequence::Undo);
    QAction* const redo = undoStack_.createRedoAction(this);
    redo->setShortcut(QKeySequence::Redo);
    edit->addActions({undo, redo});
    edit->addSeparator();
    edit->addAction(tr("Change the colour of the ball"), this, &MainWindow::changeColor);
    QAction* const playing = addToolBar(tr("Clock"))->addAction(tr("Play"));
    playing->setCheckable(true);
    connect(playing, &QAction::toggled, this, &MainWindow::play);
}

/// The editor has a key of the same name, which acts while the focus is in it.
void MainWindow::save()
{
    const QString name = QFileDialog::getSaveFileName(this, tr("Save the path of the ball"));
    if (name.isEmpty())
        return;
    QSaveFile file(name);
    const bool isOpen = file.open(QIODevice::WriteOnly | QIODevice::Text);
    QTextStream out(&file);
    for (int frame = 0; isOpen && frame <= int(duration * fps); ++frame)
        out << frame / fps << ' ' << x_.spline(frame / fps) << ' ' << y_.spline(frame / fps) << '\n';
    out.flush();
    if (!isOpen || !file.commit())
        QMessageBox::warning(this, windowTitle(), tr("%1 could not be saved.").arg(name));
}

void MainWindow::changeColor()
{
    const int hue = QRandomGenerator::global()->bounded(360);
    undoStack_.push(new ColorCommand(*stage_, QColor::fromHsv(hue, 200, 230)));
}

void MainWindow::play(bool on)
{
    if (on)
        clock_.start();
    else
        clock_.stop();
}

void MainWindow::advance()
{
    showTime(std::fmod(time_ + 1.0 / fps, duration));
    editor_->setTimeLine(time_);
}

void MainWindow::showTime(double time)
{
    time_ = time;
    stage_->setTime(time);
}
