// SPDX-License-Identifier: MIT
#include <curveeditor/shell/EditMenu.h>

#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/shell/BakeDialog.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/RetimeDialog.h>
#include <curveeditor/shell/SimplifyDialog.h>

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include <algorithm>

namespace curveeditor {

namespace {

constexpr double strengthOfPaleImage = 0.35;

} // namespace

EditMenu::EditMenu(QMenu* menu, FunctionEditor& canvas)
    : QObject(menu), canvas_(canvas), points_(canvas.canvas), menu_(menu), target_(menu)
{
    addClipboard();
    addSelection();
    addMoves();
    addTransforms();
    addShaping();
    addEases();
    addFits();
    addSnapping();
    addView();
    translate();
    canvas.installEventFilter(this);
    connect(menu, &QMenu::aboutToShow, this, &EditMenu::updateEntries);
    connect(menu, &QMenu::aboutToHide, this, &EditMenu::followCanvas);
    connect(&canvas, &FunctionEditor::selectionShown, this, &EditMenu::followCanvas);
    connect(&canvas.canvas.door().history(), &EditHistory::reported, this, &EditMenu::followCanvas);
    connect(&canvas.timeLineDrag, &TimeLineDrag::enabledChanged, this, &EditMenu::followCanvas);
    followCanvas();
}

void EditMenu::add(const char* name, const char* text, const QString& key, const Condition& isPossible,
                   const std::function<void()>& work)
{
    QAction* const action = target_->addAction(QString(), this, work);
    action->setObjectName(QLatin1String(name));
    texts_.emplace_back(action, text);
    action->setShortcut(QKeySequence(key));
    action->setShortcutContext(Qt::WidgetShortcut); // of the menu: Qt only shows it, `EditorKeys` triggers
    entries_.emplace_back(action, isPossible);
}

QMenu* EditMenu::addMenu(const char* name, const char* text)
{
    QMenu* const menu = menu_->addMenu(QString());
    menu->menuAction()->setObjectName(QLatin1String(name));
    texts_.emplace_back(menu->menuAction(), text);
    return menu;
}

void EditMenu::addToggle(const char* name, const char* text, const QString& key, const IsOn& isOn,
                         const std::function<void(bool)>& work)
{
    add(name, text, key, always(), [] {});
    QAction* const action = entries_.back().first;
    action->setCheckable(true);
    action->setChecked(isOn());
    connect(action, &QAction::toggled, this, work);
    toggles_.emplace_back(action, isOn);
}

EditMenu::Condition EditMenu::always()
{
    return {[] {
        return true;
    }};
}

EditMenu::Condition EditMenu::whenSelected() const
{
    return {[this] { return points_.canEdit(); }, QT_TR_NOOP("No point is selected.")};
}

EditMenu::Condition EditMenu::whenInserting() const
{
    return {[this] { return points_.canInsert(); }, QT_TR_NOOP("The current curve shows no points.")};
}

void EditMenu::addClipboard()
{
    const Condition canCopy{[this] { return points_.canCopy(); },
                            QT_TR_NOOP("No point of the current curve is selected.")};
    const Condition canPaste = whenInserting();
    menu_->addSeparator();
    add("cutAction", QT_TR_NOOP("Cut points"), QStringLiteral("Ctrl+X"), canCopy, [this] { points_.cut(); });
    add("copyAction", QT_TR_NOOP("Copy points"), QStringLiteral("Ctrl+C"), canCopy,
        [this] { points_.copy(); });
    add("pasteAction", QT_TR_NOOP("Paste points at the time line"), QStringLiteral("Ctrl+V"), canPaste,
        [this] { points_.paste(PointCommands::Paste::AtTimeLine); });
    add("pasteInPlaceAction", QT_TR_NOOP("Paste points where they were"), QStringLiteral("Ctrl+Shift+V"),
        canPaste, [this] { points_.paste(PointCommands::Paste::WhereTheyWere); });
    add("replacePasteAction", QT_TR_NOOP("Paste at the time line, replacing points"),
        QStringLiteral("Ctrl+Alt+V"), canPaste,
        [this] { points_.paste(PointCommands::Paste::ReplacingAtTimeLine); });
    pastes_ = {entries_.end()[-3].first, entries_.end()[-2].first, entries_.end()[-1].first};
    add("duplicateAction", QT_TR_NOOP("Duplicate points"), QStringLiteral("Ctrl+D"), canCopy,
        [this] { points_.duplicate(); });
}

void EditMenu::addSelection()
{
    const Condition canSelect{[this] {
        return points_.canSelect();
    }};
    menu_->addSeparator();
    CanvasFunctionBase& curves = canvas_.canvas;
    addToggle(
        "editAllCurvesAction", QT_TR_NOOP("Edit all curves at once"), QStringLiteral("Shift+A"),
        [&curves] { return curves.editsAllCurves(); }, [&curves](bool on) { curves.setEditsAllCurves(on); });
    addMarks();
    menu_->addSeparator();
    add("selectAllAction", QT_TR_NOOP("Select all points"), QStringLiteral("Ctrl+A"), canSelect,
        [this] { points_.selectAll(); });
    add("selectNoneAction", QT_TR_NOOP("Select no point"), QStringLiteral("Ctrl+Shift+A"), canSelect,
        [this] { points_.selectNone(); });
    add("selectOthersAction", QT_TR_NOOP("Select the other points"), QStringLiteral("Ctrl+I"), canSelect,
        [this] { points_.selectOthers(); });
    add("selectNextAction", QT_TR_NOOP("Select the next point too"), QStringLiteral("Shift+Right"), canSelect,
        [this] { points_.extendSelection(true); });
    add("selectPreviousAction", QT_TR_NOOP("Select the previous point too"), QStringLiteral("Shift+Left"),
        canSelect, [this] { points_.extendSelection(false); });
}

void EditMenu::addMarks()
{
    CanvasFunctionBase& curves = canvas_.canvas;
    const struct
    {
        const char* name;
        const char* text;
        const char* key;
        CurveMark mark;
    } marks[] = {{"lockCurveAction", QT_TR_NOOP("Lock the curve"), "L", CurveMark::Lock},
                 {"hideCurveAction", QT_TR_NOOP("Hide the curve"), "H", CurveMark::Hide},
                 {"soloCurveAction", QT_TR_NOOP("Show the curve alone"), "Shift+H", CurveMark::Solo}};
    for (const auto& [name, text, key, mark] : marks) {
        const auto stateOfCurrent = [&curves, mark = mark] {
            return curves.noCurrentCurve() ? MarkState{false, true} : curves.getCurrentCurve()->mark(mark);
        };
        addToggle(
            name, text, QLatin1String(key), [stateOfCurrent] { return stateOfCurrent().isOn; },
            [&curves, mark = mark](bool on) { curves.setMark(curves.getCurrentCurve(), mark, on); });
        entries_.back().second = {[stateOfCurrent] { return !stateOfCurrent().isHosts; },
                                  QT_TR_NOOP("The application does not allow that here.")};
    }
}

void EditMenu::addMoves()
{
    const Condition canEdit = whenSelected();
    const struct
    {
        const char* name;
        const char* text;
        const char* key;
        int frames;
        int tenths;
    } moves[] = {
        {"frameLaterAction", QT_TR_NOOP("A frame later"), "Alt+Right", 1, 0},
        {"frameEarlierAction", QT_TR_NOOP("A frame earlier"), "Alt+Left", -1, 0},
        {"tenthUpAction", QT_TR_NOOP("A tenth of a grid line up"), "Alt+Up", 0, 1},
        {"tenthDownAction", QT_TR_NOOP("A tenth of a grid line down"), "Alt+Down", 0, -1},
        {"tenFramesLaterAction", QT_TR_NOOP("A frame later, ten times"), "Alt+Shift+Right", 10, 0},
        {"tenFramesEarlierAction", QT_TR_NOOP("A frame earlier, ten times"), "Alt+Shift+Left", -10, 0},
        {"gridLineUpAction", QT_TR_NOOP("A tenth of a grid line up, ten times"), "Alt+Shift+Up", 0, 10},
        {"gridLineDownAction", QT_TR_NOOP("A tenth of a grid line down, ten times"), "Alt+Shift+Down", 0,
         -10}};
    target_ = addMenu("movePointsMenuAction", QT_TR_NOOP("Move points"));
    for (const auto& move : moves) {
        add(move.name, move.text, QLatin1String(move.key), canEdit,
            [this, move] { points_.nudge(move.frames, move.tenths); });
    }
    target_ = menu_;
}

void EditMenu::addTransforms()
{
    const Condition canEdit = whenSelected();
    add("transformBoxAction", QT_TR_NOOP("Transform box"), QStringLiteral("Ctrl+T"), canEdit,
        [this] { canvas_.transformBox.toggle(); });
    add("retimeAction", QT_TR_NOOP("Retime…"), QStringLiteral("Shift+R"), canEdit,
        [this, canEdit] { open<RetimeDialog>(canEdit); });
}

void EditMenu::addShaping()
{
    const Condition canInsert = whenInserting();
    const Condition canEdit = whenSelected();
    menu_->addSeparator();
    add("insertAtMouseAction", QT_TR_NOOP("Insert a point on the curve at the mouse"), QStringLiteral("I"),
        canInsert, [this] { insertUnderMouse(); });
    add("insertAtTimeLineAction", QT_TR_NOOP("Insert a point on the curve at the time line"),
        QStringLiteral("Shift+I"), canInsert, [this] { points_.insertAtTimeLine(); });
    add("drawAction", QT_TR_NOOP("Draw into the curve (hold D)"), {}, canInsert,
        [this] { canvas_.freehandDrag.drawNext(); });
    target_ = addMenu("tangentsMenuAction", QT_TR_NOOP("Tangents"));
    add("flattenTangentsAction", QT_TR_NOOP("Flatten"), {}, canEdit, [this] { points_.flattenTangents(); });
    add("alignTangentsAction", QT_TR_NOOP("Align both sides"), {}, canEdit,
        [this] { points_.alignTangents(); });
    add("smoothTangentsAction", QT_TR_NOOP("Smooth without overshoot"), {}, canEdit,
        [this] { points_.smoothTangents(); });
    target_->addSeparator();
    CanvasHands& hands = canvas_.canvas.hands();
    addToggle(
        "alignHandlesAction", QT_TR_NOOP("Keep handles in line"), QStringLiteral("K"),
        [&hands] { return hands.alignsHandles; }, [&hands](bool on) { hands.alignsHandles = on; });
    target_ = menu_;
}

void EditMenu::addFits()
{
    const Condition canSimplify{
        [this] { return points_.canInsert() && canvas_.canvas.currentControl()->pointCount() > 2; },
        QT_TR_NOOP("The current curve does not show more than two points.")};
    const Condition canBake{
        [this] { return canvas_.canvas.currentSplineBase() && canvas_.canvas.getCurrentCurve()->isShown(); },
        QT_TR_NOOP("No curve that is shown is the current one.")};
    add("simplifyAction", QT_TR_NOOP("Simplify…"), QStringLiteral("Shift+S"), canSimplify,
        [this, canSimplify] { open<SimplifyDialog>(canSimplify); });
    add("bakeAction", QT_TR_NOOP("Bake…"), QStringLiteral("Shift+B"), canBake,
        [this, canBake] { open<BakeDialog>(canBake); });
}

/// To settle may run foreign code.
template <typename Dialog> void EditMenu::open(const Condition& isPossible)
{
    canvas_.setFocus(); // where it is when the dialog closes
    canvas_.canvas.settle();
    if (isPossible.isMet())
        (new Dialog(menu_->parentWidget(), canvas_.canvas))->open();
}

/// Chosen from the menu, the mouse is elsewhere by now.
void EditMenu::insertUnderMouse()
{
    if (mouse_ && canvas_.rect().contains(*mouse_))
        points_.insertAt(canvas_.pixelToTime(mouse_->x()));
    else
        points_.insertAtTimeLine();
}

void EditMenu::addSnapping()
{
    DragGuide& guide = canvas_.canvas.hands().guide;
    target_ = addMenu("snappingMenuAction", QT_TR_NOOP("Snapping"));
    addToggle(
        "snapAction", QT_TR_NOOP("Snap while dragging (Ctrl: the other way)"), QStringLiteral("S"),
        [&guide] { return guide.isSnapping; }, [&guide](bool on) { guide.isSnapping = on; });
    target_->addSeparator();
    const struct
    {
        const char* name;
        const char* text;
        Snap::Kind kind;
    } kinds[] = {{"snapToFramesAction", QT_TR_NOOP("To frames"), Snap::Frames},
                 {"snapToGridLinesAction", QT_TR_NOOP("To grid lines"), Snap::GridLines},
                 {"snapToPointsAction", QT_TR_NOOP("To points"), Snap::Points},
                 {"snapToTimeLineAction", QT_TR_NOOP("To the time line"), Snap::TimeLine}};
    for (const auto& [name, text, kind] : kinds) {
        addToggle(
            name, text, {}, [&guide, kind = kind] { return (guide.snap.kinds & kind) != 0; },
            [&guide, kind = kind](bool on) {
                guide.snap.kinds = on ? guide.snap.kinds | kind : guide.snap.kinds & ~unsigned(kind);
            });
    }
    target_ = menu_;
}

void EditMenu::addView()
{
    const Condition hasCurve{[this] {
        return !canvas_.canvas.noCurrentCurve();
    }};
    menu_->addSeparator();
    add("showAllCurvesAction", QT_TR_NOOP("Show all curves"), QStringLiteral("Home"), hasCurve,
        [this] { canvas_.canvas.showAllCurves(); });
    add("showSelectionAction", QT_TR_NOOP("Show selected points or the curve"), QStringLiteral("F"), hasCurve,
        [this] { canvas_.canvas.showSelection(); });
    addToggle(
        "ownScaleAction", QT_TR_NOOP("Own scale for each curve"), QStringLiteral("Shift+F"),
        [this] { return canvas_.canvas.hasOwnScale(); }, [this](bool on) { canvas_.canvas.setOwnScale(on); });
    add("zoomInAction", QT_TR_NOOP("Zoom in"), QStringLiteral("+"), hasCurve,
        [this] { canvas_.viewGestures.zoomByNotches(1); });
    add("zoomOutAction", QT_TR_NOOP("Zoom out"), QStringLiteral("-"), hasCurve,
        [this] { canvas_.viewGestures.zoomByNotches(-1); });
    CanvasFunctionBase& curves = canvas_.canvas;
    addToggle(
        "showSpeedAction", QT_TR_NOOP("Show the slope of the curve"), QStringLiteral("V"),
        [&curves] { return curves.showsSpeed(); }, [&curves](bool on) { curves.setShowsSpeed(on); });
    addToggle(
        "paleImageAction", QT_TR_NOOP("Pale image behind the curves"), QString(),
        [&curves] { return curves.imageStrength() < 1.0; },
        [&curves](bool on) { curves.setImageStrength(on ? strengthOfPaleImage : 1.0); });
    const Condition canDrag{[this] {
        return canvas_.timeLineDrag.isEnabled();
    }};
    add("timeLineLaterAction", QT_TR_NOOP("Time line a frame later"), QStringLiteral("."), canDrag,
        [this] { canvas_.timeLineDrag.moveByFrames(1); });
    add("timeLineEarlierAction", QT_TR_NOOP("Time line a frame earlier"), QStringLiteral(","), canDrag,
        [this] { canvas_.timeLineDrag.moveByFrames(-1); });
}

void EditMenu::translate()
{
    for (const auto& [action, text] : texts_)
        action->setText(tr(text));
}

void EditMenu::updateEntries()
{
    followCanvas();
    for (QAction* const paste : pastes_)
        paste->setEnabled(points_.canPaste());
}

/// For hosts that show the entries elsewhere too. Nobody else is asked, so an entry may be enabled though the clipboard
/// holds nothing for it.
void EditMenu::followCanvas()
{
    for (const auto& [action, isPossible] : entries_)
        action->setEnabled(action->isVisible() && isPossible.isMet());
    updateToggles();
}

void EditMenu::updateToggles()
{
    for (const auto& [action, isOn] : toggles_)
        action->setChecked(isOn());
}

/// Null if there is none of that key.
const EditMenu::Entry* EditMenu::find(const QKeyEvent& event) const
{
    Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (event.key() == Qt::Key_Plus) // takes Shift on many keyboards
        modifiers &= ~Qt::ShiftModifier;
    const QKeySequence key(QKeyCombination(modifiers, Qt::Key(event.key())));
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&key](const auto& entry) {
        return entry.first->shortcuts().contains(key);
    });
    return found == entries_.end() ? nullptr : &*found;
}

QAction* EditMenu::entryOf(const QKeyEvent& event)
{
    const Entry* const entry = find(event);
    if (!entry)
        return nullptr;
    const auto& [action, isPossible] = *entry;
    action->setEnabled(action->isVisible() && isPossible.isMet());
    updateToggles();
    const bool isPaste = std::find(pastes_.begin(), pastes_.end(), action) != pastes_.end();
    return action->isEnabled() && (!isPaste || points_.canPaste()) ? action : nullptr;
}

/// What could be used is a paste of nothing.
bool EditMenu::explain(const QKeyEvent& event)
{
    const Entry* const entry = find(event);
    if (!entry || !entry->first->isVisible())
        return false;
    const char* const refusal = entry->second.refusal;
    const char* const text = entry->second.isMet() ? QT_TR_NOOP("The clipboard holds no points.") : refusal;
    if (text)
        canvas_.canvas.tell(tr(text));
    return text != nullptr;
}

bool EditMenu::event(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    return QObject::event(event);
}

bool EditMenu::eventFilter(QObject* canvas, QEvent* event)
{
    const bool isMouse = event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonPress;
    if (canvas == &canvas_ && isMouse)
        mouse_ = static_cast<QMouseEvent*>(event)->position().toPoint();
    return false;
}

} // namespace curveeditor

#include "moc_EditMenu.cpp"
