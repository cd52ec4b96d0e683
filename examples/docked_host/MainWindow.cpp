// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "AxisTexts.h"

#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/shell/CurveEditor.h>

#include <QAction>
#include <QCursor>
#include <QDockWidget>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QRandomGenerator>
#include <QSaveFile>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>
#include <QUndoCommand>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace {

constexpr double fadeTime = 2.0;
constexpr double firstTime = 16.0; // where there is light
constexpr int beatsPerBar = 4;

/// A command of the host, which has nothing to do with curves.
class GelCommand : public QUndoCommand
{
public:
    GelCommand(QColor& gel, const QColor& color, std::function<void()> show)
        : QUndoCommand(MainWindow::tr("Change the gel")), gel_(gel), other_(color), show_(std::move(show))
    {
    }
    void undo() override { swap(); }
    void redo() override { swap(); }

private:
    void swap()
    {
        std::swap(gel_, other_);
        show_();
    }

    QColor& gel_;
    QColor other_;
    std::function<void()> show_;
};

/// The beats between two times, or the bars where beats would be too many.
std::vector<double> linesOfMusic(double first, double last)
{
    constexpr int mostLines = 60;
    const double beat = 60.0 / SoundTrack::tempo;
    const double step = (last - first) / beat > mostLines ? beatsPerBar * beat : beat;
    std::vector<double> lines;
    for (double bar = std::ceil(first / step); bar * step <= last; ++bar)
        lines.push_back(bar * step);
    return lines;
}

double wholeFrame(double time)
{
    return std::round(time * Show::fps) / Show::fps;
}

void setToWholeFrames(SplineBase& spline)
{
    for (unsigned i = 0; i < unsigned(spline.getControlPointsNumber()); ++i) {
        SplineBase::PointInfo* const point = spline.modify(i);
        if (point->time != wholeFrame(point->time))
            spline.setTime(point, wholeFrame(point->time));
    }
}

/// The point at that time gets the value, a new one if there is none.
void setLevel(SplineBase& spline, double time, double level)
{
    for (unsigned i = 0; i < unsigned(spline.getControlPointsNumber()); ++i) {
        if (spline.modify(i)->time == time)
            return spline.setPos(spline.modify(i), level);
    }
    spline.addPoint(time, level);
}

} // namespace

MainWindow::MainWindow() : stage_(new Stage(this)), editor_(std::make_unique<CurveEditor>())
{
    setCentralWidget(stage_);
    connect(&renderer_, &Renderer::drawn, stage_, &Stage::setImage);
    connect(stage_, &Stage::resized, this, &MainWindow::render);
    renderer_.start();
    addEditor();
    addMenus();
    addCommands();
    clock_.setInterval(int(1000.0 / Show::fps));
    connect(&clock_, &QTimer::timeout, this, &MainWindow::advance);
    resize(1000, 900);
    setTime(firstTime);
    showStatus();
}

MainWindow::~MainWindow()
{
    editor_.reset(); // before the stack that holds its edits
}

void MainWindow::addEditor()
{
    using namespace AxisTexts;
    editor_->setTheme(CurveEditorTheme::fromPalette(palette()));
    editor_->setUndoStack(&undoStack_);
    editor_->setVariables(&show_.variables());
    for (const EditorPart part : {EditorPart::Files, EditorPart::Pictures}) // the console has its own
        editor_->setPartShown(part, false);
    editor_->setFps(Show::fps);
    editor_->setShowTime();
    editor_->setTimeRange(0.0, Show::duration);
    editor_->setMinValue(0.0);
    editor_->setMaxValue(100.0);
    showBeats(false);
    editor_->setValueText([](double level) { return withUnit(level, QStringLiteral("%")); },
                          [](const QString& text) { return valueWithUnit(text, QStringLiteral("%")); });
    editor_->setTimeLineDraggable(true);
    editor_->setUnderlay([this](QPainter& painter, const PlaneMapping& view) {
        if (waveformAction_->isChecked())
            music_.paint(painter, view);
    });
    editor_->setOverlay([this](QPainter& painter, const PlaneMapping& view) { drawCues(painter, view); });
    addChannels();
    editor_->setDefaultSelected("Back", "01");
    editor_->setDefaultSelected("House", "01");
    editor_->setDefaultSelected("Front", "01");
    connect(editor_.get(), &CurveEditor::curveEdited, this, &MainWindow::render);
    connect(editor_.get(), &CurveEditor::timeLineDragged, this, &MainWindow::showTime);
    connect(editor_.get(), &CurveEditor::curveColorChanged, this, &MainWindow::takeColor);
    connect(editor_.get(), &CurveEditor::viewChanged, this, &MainWindow::showStatus);
    connect(editor_.get(), &CurveEditor::pointSelectionChanged, this, &MainWindow::showStatus);

    auto* const dock = new QDockWidget(tr("Channels"), this);
    dock->setObjectName("channels");
    dock->setWidget(editor_.get());
    addDockWidget(Qt::BottomDockWidgetArea, dock);
}

/// Bars and beats of the music, or timecode.
void MainWindow::showBeats(bool on)
{
    using namespace AxisTexts;
    if (on) {
        editor_->setTimeText(
            [](double time) { return bars(time, SoundTrack::tempo, beatsPerBar); },
            [](const QString& text) { return timeOfBars(text, SoundTrack::tempo, beatsPerBar); });
        editor_->setTimeGrid(linesOfMusic);
    } else {
        editor_->setTimeText([](double time) { return timecode(time, film); },
                             [](const QString& text) { return timeOfTimecode(text, film); });
        editor_->setTimeGrid({});
    }
}

void MainWindow::addChannels()
{
    for (const auto& channel : show_.channels()) {
        editor_->addCurve(channel->group, channel->name, channel->color, 0.0F, &channel->spline,
                          &channel->formula, 0.0F, 100.0F);
        CurveOptions options;
        options.lowest = 0.0;
        options.highest = 100.0;
        options.step = 1.0;
        options.locked = channel->isLocked;
        options.toolTip = channel->isLocked ? tr("Lights that must not go out") : QString();
        editor_->setCurveOptions(channel->group, channel->name, options);
        editor_->setConstraint(channel->group, channel->name, setToWholeFrames);
    }
}

void MainWindow::drawCues(QPainter& painter, const PlaneMapping& view) const
{
    painter.setPen(palette().color(QPalette::Text));
    for (const Show::Cue& cue : show_.cues()) {
        const int column = view.pixelColumn(cue.time);
        painter.drawLine(column, 0, column, painter.fontMetrics().height());
        painter.drawText(column + 4, painter.fontMetrics().ascent(), cue.name);
    }
}

void MainWindow::addMenus()
{
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("Open a show…"), this, &MainWindow::open)->setShortcut(QKeySequence::Open);
    file->addAction(tr("Save the show…"), this, &MainWindow::save)->setShortcut(QKeySequence::Save);
    QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
    QAction* const undo = undoStack_.createUndoAction(this);
    undo->setShortcut(QKeySequence::Undo);
    QAction* const redo = undoStack_.createRedoAction(this);
    redo->setShortcut(QKeySequence::Redo);
    edit->addActions({undo, redo});
    edit->addSeparator();
    edit->addAction(tr("Change the gel"), this, &MainWindow::changeColor);
    QMenu* const view = menuBar()->addMenu(tr("&View"));
    const auto addSwitch = [view](const QString& text) {
        QAction* const action = view->addAction(text);
        action->setCheckable(true);
        action->setChecked(true);
        return action;
    };
    waveformAction_ = addSwitch(tr("Waveform"));
    connect(waveformAction_, &QAction::toggled, editor_.get(), &CurveEditor::updateUnderlay);
    connect(addSwitch(tr("List of channels")), &QAction::toggled, this,
            [this] { editor_->setPartShown(EditorPart::List, !editor_->isPartShown(EditorPart::List)); });

    QToolBar* const bar = addToolBar(tr("Clock"));
    QAction* const playing = bar->addAction(tr("Play"));
    playing->setCheckable(true);
    connect(playing, &QAction::toggled, this, &MainWindow::play);
    QAction* const beats = bar->addAction(tr("Beats"));
    beats->setCheckable(true);
    connect(beats, &QAction::toggled, this, &MainWindow::showBeats);
    recordAction_ = bar->addAction(tr("Record"));
    recordAction_->setCheckable(true);
    connect(recordAction_, &QAction::toggled, this, [this](bool on) { recording_ += on; });
    fader_ = new QSlider(Qt::Horizontal);
    fader_->setRange(0, 100);
    fader_->setMaximumWidth(200);
    fader_->setAccessibleName(tr("Level of the current channel"));
    connect(fader_, &QSlider::valueChanged, this, &MainWindow::record);
    bar->addWidget(fader_);
    bar->addAction(editor_->action("setCompleteAction")); // one of the editor's in a bar of the host
}

/// Commands of the host in the menus of the editor.
void MainWindow::addCommands()
{
    const auto command = [this](const QString& text, const QKeySequence& key, void (MainWindow::*slot)()) {
        auto* const action = new QAction(text, this);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    editor_->addPointAction(command(tr("Set to full"), Qt::Key_F9, &MainWindow::setFull));
    editor_->addEditAction(command(tr("Fade out at the time line"), Qt::Key_F10, &MainWindow::fadeOut));
    editor_->addEditAction(command(tr("Time line to the mouse"), Qt::Key_F8, &MainWindow::goToMouse));
    editor_->addListAction(command(tr("Take the colour of the gel"), {}, &MainWindow::takeGel));
    lockAction_ = new QAction(tr("Lock the channel"), this);
    lockAction_->setCheckable(true);
    connect(lockAction_, &QAction::toggled, this, &MainWindow::lockChannel);
    connect(editor_.get(), &CurveEditor::currentCurveChanged, this, &MainWindow::showLock);
    editor_->addListAction(lockAction_);
    showLock();
}

/// What is locked is locked for the tools of this host too. The text has places for group and name.
void MainWindow::editCurrent(const QString& text, const std::function<void(SplineBase&)>& work, int merge)
{
    const auto [group, name] = editor_->currentCurve();
    if (!editor_->curveOptions(group, name).locked)
        editor_->edit(group, name, text.arg(group, name), work, merge);
}

void MainWindow::setFull()
{
    const auto [group, name] = editor_->currentCurve();
    editCurrent(tr("Set points of %1.%2 to full"),
                [points = editor_->selectedPoints(group, name)](SplineBase& spline) {
                    for (const int point : points)
                        spline.setPos(spline.modify(point), 100.0);
                });
}

void MainWindow::fadeOut()
{
    const double time = wholeFrame(time_);
    editCurrent(tr("Fade out %1.%2"), [time](SplineBase& spline) {
        setLevel(spline, time, spline(time));
        setLevel(spline, time + fadeTime, 0.0);
    });
}

void MainWindow::goToMouse()
{
    const auto* const canvas = editor_->findChild<QWidget*>("functionEdit");
    const double time = editor_->fromCanvas(canvas->mapFromGlobal(QCursor::pos())).x();
    setTime(std::clamp(wholeFrame(time), 0.0, Show::duration));
}

void MainWindow::takeGel()
{
    const auto [group, name] = editor_->currentCurve();
    editor_->setCurveColor(group, name, gel_);
}

/// The lamps have the colours of their curves.
void MainWindow::takeColor(const QString& group, const QString& name, const QColor& color)
{
    show_.find(group, name)->color = color;
    render();
}

void MainWindow::showStatus()
{
    using namespace AxisTexts;
    const auto [group, name] = editor_->currentCurve();
    const QRectF view = editor_->view();
    statusBar()->showMessage(tr("Selected points: %1. In sight: %2 – %3")
                                 .arg(editor_->selectedPoints(group, name).size())
                                 .arg(timecode(view.left(), film), timecode(view.right(), film)));
}

void MainWindow::lockChannel(bool on)
{
    const auto [group, name] = editor_->currentCurve();
    CurveOptions options = editor_->curveOptions(group, name);
    options.locked = on;
    editor_->setCurveOptions(group, name, options);
}

void MainWindow::showLock()
{
    const QSignalBlocker blocker(lockAction_);
    const auto [group, name] = editor_->currentCurve();
    lockAction_->setChecked(editor_->curveOptions(group, name).locked);
}

/// All of one recording is one entry, and what the user does between goes on.
void MainWindow::record(int level)
{
    if (!recordAction_->isChecked())
        return;
    editCurrent(
        tr("Record %1.%2"), [this, level](SplineBase& spline) { setLevel(spline, wholeFrame(time_), level); },
        recording_);
}

void MainWindow::save()
{
    const QString name = QFileDialog::getSaveFileName(this, tr("Save the show"));
    if (name.isEmpty())
        return;
    QJsonArray opened;
    for (const auto& [group, curve] : editor_->openCurves())
        opened.append(QJsonArray{group, curve});
    const QJsonObject file{{"view", QString::fromLatin1(editor_->saveState().toBase64())},
                           {"open", opened},
                           {"curves", show_.write()}};
    QSaveFile out(name);
    if (!out.open(QIODevice::WriteOnly) || out.write(QJsonDocument(file).toJson()) < 0 || !out.commit())
        QMessageBox::warning(this, windowTitle(), tr("%1 could not be saved.").arg(name));
}

void MainWindow::open()
{
    const QString name = QFileDialog::getOpenFileName(this, tr("Open a show"));
    QFile in(name);
    if (name.isEmpty() || !in.open(QIODevice::ReadOnly))
        return;
    const QJsonObject file = QJsonDocument::fromJson(in.readAll()).object();
    for (const auto& channel : show_.channels())
        editor_->removeCurve(channel->group, channel->name);
    show_.read(file["curves"].toObject());
    addChannels();
    for (const QJsonValue curve : file["open"].toArray())
        editor_->setDefaultSelected(curve[0].toString(), curve[1].toString());
    editor_->restoreState(QByteArray::fromBase64(file["view"].toString().toLatin1()));
    render();
}

void MainWindow::changeColor()
{
    const int hue = QRandomGenerator::global()->bounded(360);
    undoStack_.push(new GelCommand(gel_, QColor::fromHsv(hue, 120, 255), [this] { render(); }));
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
    setTime(std::fmod(time_ + 1.0 / Show::fps, Show::duration));
    record(fader_->value());
}

void MainWindow::setTime(double time)
{
    editor_->setTimeLine(time);
    showTime(time);
}

void MainWindow::showTime(double time)
{
    time_ = time;
    render();
}

void MainWindow::render()
{
    Renderer::Scene scene{show_.snapshots(), {}, time_, stage_->size()};
    for (const auto& channel : show_.channels()) {
        const QColor color = channel->color;
        scene.colors.push_back(qRgb(color.red() * gel_.red() / 255, color.green() * gel_.green() / 255,
                                    color.blue() * gel_.blue() / 255));
    }
    renderer_.show(std::move(scene));
}
