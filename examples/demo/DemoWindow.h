// SPDX-License-Identifier: MIT
#pragma once

#include "EditorHost.h"

#include <QMainWindow>

#include <vector>

class CurveList;
class CurveStore;
class QPlainTextEdit;
class Transport;
struct Curve;

/// The window of the host: the list of all its curves, a transport that moves the time line of the editor,
/// and a log of what the editor reports. The store must outlive it.
class DemoWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit DemoWindow(CurveStore& store);

    EditorHost& getHost() { return host_; }
    /// Shows this window and, beside it, the editor.
    void showBoth();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void createWidgets();
    void createMenus();
    void connectEditor();
    Curve* selectedCurve() const;
    /// All of the group whose row is selected.
    std::vector<Curve*> selectedCurves() const;
    void openSelected();
    void renameSelected();
    void removeSelected();
    void simplifySelected();
    void exportTable();
    void showEditor();
    void logChange(const QString& group, const QString& name);

    CurveStore& store_;
    EditorHost host_;
    CurveList* list_;
    Transport* transport_;
    QPlainTextEdit* log_;
};
