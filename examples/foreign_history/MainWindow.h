// SPDX-License-Identifier: MIT
#pragma once

#include "Engine.h"
#include "History.h"
#include "Nodes.h"

#include <curveeditor/shell/CurveEditor.h>

#include <QMainWindow>

class QLabel;
class QSpinBox;

/// An application that had its own curves, its own commands and its own engine before it took the editor. The nodes stay
/// the truth: the editor edits a spline that is made of them, and each edit of it becomes nodes, a command, and what the
/// engine evaluates.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    const std::vector<Node>& nodes() const { return nodes_; }
    const Engine& engine() const { return engine_; }
    const History& history() const { return history_; }
    CurveEditor& editor() { return *editor_; }

    /// Holds the value of the node before the time line, or no more.
    void toggleHold();

private:
    void addEditor();
    void addCommands();
    void takeEdit(const CurveChange& change);
    void setGain(int percent);

    std::vector<Node> nodes_;
    SplineBase spline_;
    FunctionFloatBase* formula_ = nullptr; ///< stays null: this application has no formulas
    History history_;
    Engine engine_;
    QSpinBox* gain_;
    int lastGain_ = 100;
    double time_ = 1.0;
    std::unique_ptr<CurveEditor> editor_; ///< before the spline in its end
};
