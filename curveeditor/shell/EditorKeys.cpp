// SPDX-License-Identifier: MIT
#include <curveeditor/shell/EditorKeys.h>

#include <curveeditor/canvas/StepKey.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/EditMenu.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTableView>

namespace curveeditor {

namespace {

constexpr Qt::KeyboardModifiers commandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool keepsItsKeys(const QWidget& widget)
{
    return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QTableView*>(&widget);
}

bool isArrow(const QKeyEvent& key)
{
    return key.key() >= Qt::Key_Left && key.key() <= Qt::Key_Down;
}

/// What moves in any widget, or presses or empties it.
bool isOfEveryWidget(const QKeyEvent& key)
{
    const bool isNamed = key.key() == Qt::Key_Home || key.key() == Qt::Key_End ||
                         key.key() == Qt::Key_Space || isDeleteKey(key);
    return (isArrow(key) || isNamed) && !(key.modifiers() & commandModifiers);
}

bool isLetter(const QKeyEvent& key)
{
    return key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z && !(key.modifiers() & commandModifiers);
}

QAction* enabledActionWith(const QKeySequence& key, const QList<QAction*>& actions)
{
    for (QAction* const action : actions) {
        if (action->isEnabled() && action->shortcuts().contains(key))
            return action;
    }
    return nullptr;
}

} // namespace

EditorKeys::EditorKeys(CurveEditor& editor, FunctionEditor& canvas, EditMenu& menu)
    : editor_(editor), canvas_(canvas), menu_(menu)
{
    connect(qApp, &QApplication::focusChanged, this, &EditorKeys::followFocus);
}

// Who had the focus may be freed by now, as an editor of the table is when it writes what was typed.
void EditorKeys::followFocus(QWidget*, QWidget* now)
{
    if (followed_)
        followed_->removeEventFilter(this);
    followed_ = nullptr;
    if (now != &canvas_)
        canvas_.viewGestures.releaseKeys(); // nobody would tell of their release
    if (!now || (now != &editor_ && !editor_.isAncestorOf(now)))
        return;
    followed_ = now;
    followed_->installEventFilter(this);
}

void EditorKeys::addAction(QAction* action)
{
    if (action && !hostActions_.contains(action))
        hostActions_.append(action);
}

bool EditorKeys::eventFilter(QObject* focus, QEvent* event)
{
    const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress ||
                       event->type() == QEvent::KeyRelease;
    return isKey && !isAsking_ && takeKey(*static_cast<QWidget*>(focus), *static_cast<QKeyEvent*>(event));
}

bool EditorKeys::takeKey(const QWidget& focus, QKeyEvent& event)
{
    if (stepKeyOf(event) != StepKey::None)
        return false; // the dialog steps, but for lines that take their typing back
    const bool isHandBusy = isArrow(event) && canvas_.gesture.isAtPoints();
    QAction* const action = isHandBusy ? nullptr : actionOf(focus, event);
    if (!isHandBusy && !action && !isExplained(focus, event))
        return isForCanvas(focus, event) && handToCanvas(event);
    event.accept();
    if (action && event.type() == QEvent::KeyPress)
        action->trigger();
    return true;
}

QAction* EditorKeys::actionOf(const QWidget& focus, const QKeyEvent& key)
{
    const QKeySequence pressed(QKeyCombination(key.modifiers() & ~Qt::KeypadModifier, Qt::Key(key.key())));
    if (QAction* const action = enabledActionWith(pressed, editor_.actions()))
        return action;
    const bool isAxis = canvas_.gesture.isAtPoints() && (key.key() == Qt::Key_X || key.key() == Qt::Key_Y);
    if (isAxis || (&focus != &canvas_ && isOfEveryWidget(key)))
        return nullptr;
    if (keepsItsKeys(focus))
        return isTyped(key) ? nullptr : hostActionOf(pressed);
    if (QAction* const entry = menu_.entryOf(key))
        return entry;
    QAction* const ofList = listActionOf(pressed);
    return ofList ? ofList : hostActionOf(pressed);
}

/// Whether it is the key of an entry that can't be used now, which the canvas has told.
bool EditorKeys::isExplained(const QWidget& focus, const QKeyEvent& key)
{
    const bool isWidgets = keepsItsKeys(focus) || (&focus != &canvas_ && isOfEveryWidget(key));
    return key.type() == QEvent::KeyPress && !isWidgets && menu_.explain(key);
}

/// The list answers its own key while it is there.
QAction* EditorKeys::listActionOf(const QKeySequence& pressed) const
{
    const bool hasList = editor_.isPartShown(EditorPart::List);
    return hasList ? nullptr
                   : enabledActionWith(pressed, {editor_.action(QStringLiteral("openCurvesAction"))});
}

QAction* EditorKeys::hostActionOf(const QKeySequence& pressed) const
{
    for (QAction* const action : hostActions_) {
        if (action && action->isEnabled() && action->shortcuts().contains(pressed))
            return action;
    }
    return nullptr;
}

/// The widget that has the focus types it or moves by it: a widget for text says so itself.
bool EditorKeys::isTyped(const QKeyEvent& key)
{
    const bool isFunctionKey = key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F35;
    const bool moves = key.key() >= Qt::Key_Home && key.key() <= Qt::Key_PageDown;
    if (moves || (!isFunctionKey && !(key.modifiers() & commandModifiers)))
        return true;
    const QScopedValueRollback asking(isAsking_, true);
    QKeyEvent question(QEvent::ShortcutOverride, key.key(), key.modifiers(), key.text());
    question.ignore();
    QCoreApplication::sendEvent(followed_, &question);
    return question.isAccepted();
}

/// What the canvas does not take comes up to the dialog, which may be what has the focus.
bool EditorKeys::handToCanvas(QKeyEvent& event)
{
    const QScopedValueRollback handing(isHanding_, true);
    QCoreApplication::sendEvent(&canvas_, &event);
    return event.isAccepted();
}

bool EditorKeys::isForCanvas(const QWidget& focus, const QKeyEvent& key) const
{
    return !isHanding_ && &focus != &canvas_ && !keepsItsKeys(focus) && isLetter(key);
}

} // namespace curveeditor
