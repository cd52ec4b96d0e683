// SPDX-License-Identifier: MIT
#include <curveeditor/shell/EditMenu.h>

#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/shell/BakeDialog.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/SimplifyDialog.h>

#include <QAction>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

EditMenu::EditMenu(QMenu* menu, FunctionEditor& canvas)
    : QObject(menu), canvas_(canvas), points_(canvas.canvas), menu_(menu), target_(menu)
{
    addClipboard();
    addSelection();
    addMoves();
    addShaping();
    addFits();
    addSnapping();
    addView();
    connect(menu, &QMenu::aboutToShow, this, &EditMenu::updateEntries);
    canvas.installEventFilter(this);
}

void EditMenu::add(const QString& text, const QString& key, const Condition& isPossible,
                   const std::function<void()>& work)
{
    QAction* const action = target_->addAction(text, this, work);
    action->setShortcut(QKeySequence(key));
    action->setShortcutContext(
        Qt::WidgetShortcut); // of the menu: Qt only shows it, the event filter triggers
    entries_.emplace_back(action, isPossible);
}

void EditMenu::addToggle(const QString& text, const QString& key, const Condition& isOn,
                         const std::function<void(bool)>& work)
{
    add(
        text, key, [] { return true; }, [] {});
    QAction* const action = entries_.back().first;
    action->setCheckable(true);
    action->setChecked(isOn());
    connect(action, &QAction::toggled, this, work);
    toggles_.emplace_back(action, isOn);
}

void EditMenu::addClipboard()
{
    const Condition canCopy = [this] {
        return points_.canCopy();
    };
    const Condition canPaste = [this] {
        return points_.canPaste();
    };
    menu_->addSeparator();
    add(tr("Cut points"), QStringLiteral("Ctrl+X"), canCopy, [this] { points_.cut(); });
    add(tr("Copy points"), QStringLiteral("Ctrl+C"), canCopy, [this] { points_.copy(); });
    add(tr("Paste points at the time line"), QStringLiteral("Ctrl+V"), canPaste,
        [this] { points_.paste(false); });
    add(tr("Paste points where they were"), QStringLiteral("Ctrl+Shift+V"), canPaste,
        [this] { points_.paste(true); });
    add(tr("Duplicate points"), QStringLiteral("Ctrl+D"), canCopy, [this] { points_.duplicate(); });
}

void EditMenu::addSelection()
{
    const Condition canSelect = [this] {
        return points_.canSelect();
    };
    menu_->addSeparator();
    CanvasFunctionBase& curves = canvas_.canvas;
    addToggle(
        tr("Edit all curves at once"), QStringLiteral("A"), [&curves] { return curves.editsAllCurves(); },
        [&curves](bool on) { curves.setEditsAllCurves(on); });
    menu_->addSeparator();
    add(tr("Select all points"), QStringLiteral("Ctrl+A"), canSelect, [this] { points_.selectAll(); });
    add(tr("Select no point"), QStringLiteral("Ctrl+Shift+A"), canSelect, [this] { points_.selectNone(); });
    add(tr("Select the other points"), QStringLiteral("Ctrl+I"), canSelect,
        [this] { points_.selectOthers(); });
    add(tr("Select the next point too"), QStringLiteral("Shift+Right"), canSelect,
        [this] { points_.extendSelection(true); });
    add(tr("Select the previous point too"), QStringLiteral("Shift+Left"), canSelect,
        [this] { points_.extendSelection(false); });
}

void EditMenu::addMoves()
{
    const Condition canEdit = [this] {
        return points_.canEdit();
    };
    const struct
    {
        QString text;
        QString key;
        int frames;
        int tenths;
    } moves[] = {{tr("A frame later"), QStringLiteral("Right"), 1, 0},
                 {tr("A frame earlier"), QStringLiteral("Left"), -1, 0},
                 {tr("A tenth of a grid line up"), QStringLiteral("Up"), 0, 1},
                 {tr("A tenth of a grid line down"), QStringLiteral("Down"), 0, -1}};
    target_ = menu_->addMenu(tr("Move points"));
    for (const auto& move : moves) {
        add(move.text, QStringLiteral("Alt+") + move.key, canEdit,
            [this, move] { points_.nudge(move.frames, move.tenths); });
    }
    for (const auto& move : moves) {
        add(tr("%1, ten times").arg(move.text), QStringLiteral("Alt+Shift+") + move.key, canEdit,
            [this, move] { points_.nudge(10 * move.frames, 10 * move.tenths); });
    }
    target_ = menu_;
}

void EditMenu::addShaping()
{
    const Condition canInsert = [this] {
        return points_.canInsert();
    };
    const Condition canEdit = [this] {
        return points_.canEdit();
    };
    menu_->addSeparator();
    add(tr("Insert a point on the curve at the mouse"), QStringLiteral("I"), canInsert,
        [this] { insertUnderMouse(); });
    add(tr("Insert a point on the curve at the time line"), QStringLiteral("Shift+I"), canInsert,
        [this] { points_.insertAtTimeLine(); });
    target_ = menu_->addMenu(tr("Tangents"));
    add(tr("Flatten"), {}, canEdit, [this] { points_.flattenTangents(); });
    add(tr("Align both sides"), {}, canEdit, [this] { points_.alignTangents(); });
    add(tr("Smooth without overshoot"), {}, canEdit, [this] { points_.smoothTangents(); });
    target_ = menu_;
}

void EditMenu::addFits()
{
    const Condition canSimplify = [this] {
        return points_.canInsert() && canvas_.canvas.currentControl()->pointCount() > 2;
    };
    const Condition canBake = [this] {
        return canvas_.canvas.currentSplineBase() != nullptr;
    };
    add(tr("Simplify…"), QStringLiteral("Shift+S"), canSimplify,
        [this, canSimplify] { open<SimplifyDialog>(canSimplify); });
    add(tr("Bake…"), QStringLiteral("Shift+B"), canBake, [this, canBake] { open<BakeDialog>(canBake); });
}

/// To settle may run foreign code.
template <typename Dialog> void EditMenu::open(const Condition& isPossible)
{
    canvas_.canvas.settle();
    if (isPossible())
        (new Dialog(menu_->parentWidget(), canvas_.canvas))->open();
}

/// Chosen from the menu, the mouse is elsewhere: the time line has its own entry.
void EditMenu::insertUnderMouse()
{
    const QPoint mouse = canvas_.mapFromGlobal(QCursor::pos());
    if (canvas_.rect().contains(mouse))
        points_.insertAt(canvas_.pixelToTime(mouse.x()));
    else
        points_.insertAtTimeLine();
}

void EditMenu::addSnapping()
{
    DragGuide& guide = canvas_.canvas.guide;
    target_ = menu_->addMenu(tr("Snapping"));
    addToggle(
        tr("Snap while dragging (Ctrl: the other way)"), QStringLiteral("S"),
        [&guide] { return guide.isSnapping; }, [&guide](bool on) { guide.isSnapping = on; });
    target_->addSeparator();
    const std::pair<QString, Snap::Kind> kinds[] = {{tr("To frames"), Snap::Frames},
                                                    {tr("To grid lines"), Snap::GridLines},
                                                    {tr("To points"), Snap::Points},
                                                    {tr("To the time line"), Snap::TimeLine}};
    for (const auto& [text, kind] : kinds) {
        addToggle(
            text, {}, [&guide, kind = kind] { return (guide.snap.kinds & kind) != 0; },
            [&guide, kind = kind](bool on) {
                guide.snap.kinds = on ? guide.snap.kinds | kind : guide.snap.kinds & ~unsigned(kind);
            });
    }
    target_ = menu_;
}

void EditMenu::addView()
{
    const Condition hasCurve = [this] {
        return !canvas_.canvas.noCurrentCurve();
    };
    menu_->addSeparator();
    add(tr("Show all curves"), QStringLiteral("Home"), hasCurve, [this] { canvas_.canvas.showAllCurves(); });
    add(tr("Show selected points or the curve"), QStringLiteral("F"), hasCurve,
        [this] { canvas_.canvas.showSelection(); });
    const Condition canDrag = [this] {
        return canvas_.timeLineDrag.isEnabled();
    };
    add(tr("Time line a frame later"), QStringLiteral("."), canDrag,
        [this] { canvas_.timeLineDrag.moveByFrames(1); });
    add(tr("Time line a frame earlier"), QStringLiteral(","), canDrag,
        [this] { canvas_.timeLineDrag.moveByFrames(-1); });
}

void EditMenu::updateEntries()
{
    for (const auto& [action, isPossible] : entries_)
        action->setEnabled(isPossible());
    for (const auto& [action, isOn] : toggles_)
        action->setChecked(isOn());
}

QAction* EditMenu::entryOf(const QKeyEvent& event)
{
    const QKeySequence key(QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key())));
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&key](const auto& entry) {
        return entry.first->shortcut().matches(key) == QKeySequence::ExactMatch;
    });
    if (found == entries_.end())
        return nullptr;
    const auto& [action, isPossible] = *found; // the others might ask other applications for the clipboard
    action->setEnabled(isPossible());
    return action->isEnabled() ? action : nullptr;
}

bool EditMenu::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (watched != &canvas_ || (!isOverride && event->type() != QEvent::KeyPress) || !canvas_.hasFocus())
        return false;
    auto* const key = static_cast<QKeyEvent*>(event);
    const bool isAxis = canvas_.gesture.isAtPoints() && (key->key() == Qt::Key_X || key->key() == Qt::Key_Y);
    QAction* const entry = isAxis ? nullptr : entryOf(*key);
    if (!entry)
        return false;
    if (isOverride)
        event->accept();
    else
        entry->trigger();
    return true;
}
