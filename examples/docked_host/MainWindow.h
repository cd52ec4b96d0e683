// SPDX-License-Identifier: MIT
#pragma once

#include "Renderer.h"
#include "Show.h"
#include "SoundTrack.h"
#include "Stage.h"

#include <QColor>
#include <QMainWindow>
#include <QTimer>
#include <QUndoStack>

#include <functional>
#include <memory>

class CurveEditor;
class QAction;
class QSlider;

/// A lighting console with the editor in a dock. Its lamps follow each step of an edit, drawn by a thread; the edits of the
/// user and the commands of the host go back in one order; the host's own commands stand in the menus of the editor.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    const Show& data() const { return show_; }

private:
    void addEditor();
    void addChannels();
    void addMenus();
    void addCommands();
    void showBeats(bool on);
    void drawCues(QPainter& painter, const PlaneMapping& view) const;

    void open();
    void save();
    void editCurrent(const QString& text, const std::function<void(SplineBase&)>& work, int merge = 0);
    void setFull();
    void fadeOut();
    void goToMouse();
    void takeGel();
    void takeColor(const QString& group, const QString& name, const QColor& color);
    void showStatus();
    void lockChannel(bool on);
    void showLock();
    void record(int level);
    void changeColor();
    void play(bool on);
    void advance();
    void setTime(double time);
    void showTime(double time);
    void render();

    Show show_;
    SoundTrack music_{Show::duration};
    double time_ = 0.0;
    int recording_ = 0; ///< number of the one that goes on; each is one entry of the undo stack
    QColor gel_ = Qt::white;
    QUndoStack undoStack_;
    QTimer clock_;
    Renderer renderer_;
    Stage* stage_;
    QSlider* fader_ = nullptr;
    QAction* waveformAction_ = nullptr;
    QAction* recordAction_ = nullptr;
    QAction* lockAction_ = nullptr;
    std::unique_ptr<CurveEditor> editor_; ///< before the curves in its end
};
