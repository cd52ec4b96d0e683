// SPDX-License-Identifier: MIT
#include <curveeditor/shell/EditMenu.h>

#include <curveeditor/shell/FunctionEditor.h>

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

EditMenu::EditMenu(QMenu* menu, FunctionEditor& canvas)
    : QObject(menu), canvas_(canvas), points_(canvas.canvas), menu_(menu), target_(menu)
{
    addSelection();
    addMoves();
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

void EditMenu::addSelection()
{
    const Condition canSelect = [this] {
        return points_.canSelect();
    };
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

void EditMenu::addView()
{
    const Condition hasCurve = [this] {
        return !canvas_.canvas.noCurrentCurve();
    };
    menu_->addSeparator();
    add(tr("Show all curves"), QStringLiteral("Home"), hasCurve, [this] { canvas_.canvas.showAllCurves(); });
    add(tr("Show selected points or the curve"), QStringLiteral("F"), hasCurve,
        [this] { canvas_.canvas.showSelection(); });
}

void EditMenu::updateEntries()
{
    for (const auto& [action, isPossible] : entries_)
        action->setEnabled(isPossible());
}

QAction* EditMenu::entryOf(const QKeyEvent& event)
{
    updateEntries();
    const QKeySequence key(event.keyCombination());
    for (const auto& [action, isPossible] : entries_) {
        if (action->isEnabled() && action->shortcut().matches(key) == QKeySequence::ExactMatch)
            return action;
    }
    return nullptr;
}

bool EditMenu::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (watched != &canvas_ || (!isOverride && event->type() != QEvent::KeyPress) || !canvas_.hasFocus())
        return false;
    QAction* const entry = entryOf(*static_cast<QKeyEvent*>(event));
    if (!entry)
        return false;
    if (isOverride)
        event->accept();
    else
        entry->trigger();
    return true;
}
