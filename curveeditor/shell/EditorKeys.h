// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

class CurveEditor;
class FunctionEditor;
class QAction;
class QKeyEvent;
class QKeySequence;

namespace curveeditor {

class EditMenu;

/// Gives the keys of commands to those commands wherever in the editor the focus is, before the widget that has it
/// sees them, and before the keys of a host in whose window the editor is docked.
///
/// The keys of the editor's own actions act everywhere. Those of the menu "Edit", and the letters of the canvas, act
/// where nothing is typed: on the canvas, and on the list, buttons and tab bars, which keep the keys that move in
/// them, Space and Delete. While the list is hidden, its key that opens curves acts there too. The keys of the host's
/// actions act there, if none of the editor has them, and in fields and choices those with Ctrl, Alt or Meta, and F1 to
/// F35, that these have no use for. It must go before the canvas.
class EditorKeys : public QObject
{
public:
    EditorKeys(CurveEditor& editor, FunctionEditor& canvas, EditMenu& menu);

    /// Listens to the keys of an action of the host, too. Null, and one that is there, change nothing.
    void addAction(QAction* action);

    bool eventFilter(QObject* focus, QEvent* event) override;

private:
    void followFocus(QWidget* before, QWidget* now);
    bool takeKey(const QWidget& focus, QKeyEvent& event);
    QAction* actionOf(const QWidget& focus, const QKeyEvent& key);
    bool isExplained(const QWidget& focus, const QKeyEvent& key);
    QAction* listActionOf(const QKeySequence& pressed) const;
    QAction* hostActionOf(const QKeySequence& pressed) const;
    bool isTyped(const QKeyEvent& key);
    bool handToCanvas(QKeyEvent& event);
    bool isForCanvas(const QWidget& focus, const QKeyEvent& key) const;

    CurveEditor& editor_;
    FunctionEditor& canvas_;
    EditMenu& menu_;
    QPointer<QWidget> followed_; ///< the widget in the editor that has the focus
    QList<QPointer<QAction>> hostActions_;
    bool isHanding_ = false;
    bool isAsking_ = false;
};

} // namespace curveeditor
