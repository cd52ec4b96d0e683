// SPDX-License-Identifier: MIT
#pragma once

#include "Stage.h"

#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/SplineBase.h>

#include <QMainWindow>
#include <QTimer>
#include <QUndoStack>

#include <memory>

class CurveEditor;

/// A host with the editor in a dock. The stage follows each step of an edit, and the edits of the user and the commands
/// of the host go back in one order by the menu "Edit". Ctrl+S saves what the host makes of the curves.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

private:
    struct Curve
    {
        ~Curve() { delete formula; } // what the editor leaves in the variable is the host's
        SplineBase spline;
        FunctionFloatBase* formula = nullptr;
    };

    void addEditor();
    void addMenus();
    void save();
    void changeColor();
    void play(bool on);
    void advance();
    void showTime(double time);

    Curve x_;
    Curve y_;
    double time_ = 0.0;
    QUndoStack undoStack_;
    QTimer clock_;
    Stage* stage_;
    std::unique_ptr<CurveEditor> editor_; ///< before the curves in its end
};
