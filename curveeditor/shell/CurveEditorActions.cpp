// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditor.h>

#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/shell/PlainToolBar.h>

#include <QAction>
#include <QActionGroup>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>

namespace {

constexpr int readOutLength = 15;
constexpr QSize largestFitButton(30, 20);

} // namespace

void CurveEditor::preInit()
{
    createActions();
    createMainMenu();
    createViewButtons();
    editingMenu = std::make_unique<ControlMenu2>();
    createExpressionTool();
    languageChange();
}

QAction* CurveEditor::createAction(const char* name)
{
    auto* const action = new QAction(this);
    action->setObjectName(QLatin1String(name));
    addAction(action); // its shortcut works before any menu was opened
    return action;
}

QAction* CurveEditor::createToggleAction(const char* name, QActionGroup* group)
{
    QAction* const action = createAction(name);
    action->setParent(group);
    action->setCheckable(true);
    group->addAction(action);
    return action;
}

void CurveEditor::createActions()
{
    undoAction = createAction("undoAction");
    redoAction = createAction("redoAction");
    resetAllChecked = createAction("resetAllChecked");
    resetSelected = createAction("resetSelected");
    loadCurve = createAction("loadCurve");
    saveCurve = createAction("saveCurve");
    setWaveRangeAction = createAction("setWaveRangeAction");
    resetRangeAction = createAction("resetRangeAction");
    loadImageAction = createAction("loadImageAction");
    clearImageAction = createAction("clearImageAction");
    setCompleteAction = createAction("setCompleteAction");
    setCompleteHAction = createAction("setCompleteHAction");
    setCompleteVAction = createAction("setCompleteVAction");
    openScaleSelection = createAction("openScaleSelection");
    openPanSelection = createAction("openPanSelection");
    optionsFirstNodeAction = createAction("optionsFirstNodeAction");
    optionsLastNodeAction = createAction("optionsLastNodeAction");
    optionsHorizontalAxisAction = createAction("optionsHorizontalAxisAction");

    auto* const axis = new QActionGroup(this);
    showTimeAction = createToggleAction("showTimeAction", axis);
    showFramesAction = createToggleAction("showFramesAction", axis);
    showFramesAction->setChecked(true);

    auto* const first = new QActionGroup(this);
    firstNodeZeroAction = createToggleAction("firstNodeZeroAction", first);
    firstNodeConstantAction = createToggleAction("firstNodeConstantAction", first);

    auto* const last = new QActionGroup(this);
    lastNodeZeroAction = createToggleAction("lastNodeZeroAction", last);
    lastNodeConstantAction = createToggleAction("lastNodeConstantAction", last);
    lastNodeLoopAction = createToggleAction("lastNodeLoopAction", last);
    lastNodeLoopOffsetAction = createToggleAction("lastNodeLoopOffsetAction", last);
    lastNodeFollowTangentAction = createToggleAction("lastNodeFollowTangentAction", last);
}

QMenu* CurveEditor::createMenu(const QList<QAction*>& actions)
{
    auto* const menu = new QMenu(this);
    menu->setFont(font());
    menu->addActions(actions);
    return menu;
}

void CurveEditor::createMainMenu()
{
    fileMenu = createMenu({resetAllChecked, resetSelected, loadCurve, saveCurve});
    curvesMenu = createMenu({});
    optionsMenu = createMenu({setWaveRangeAction, resetRangeAction, loadImageAction, clearImageAction,
                              setCompleteAction, setCompleteHAction, setCompleteVAction, openScaleSelection,
                              openPanSelection});
    editMenu = createMenu({undoAction, redoAction});
    firstNodeMenu = createMenu({firstNodeZeroAction, firstNodeConstantAction});
    lastNodeMenu = createMenu({lastNodeZeroAction, lastNodeConstantAction, lastNodeLoopAction,
                               lastNodeLoopOffsetAction, lastNodeFollowTangentAction});
    horizontalAxisMenu = createMenu({showTimeAction, showFramesAction});
    horizontalAxisMenu->setTitle(tr("Horizontal axis"));
    firstNodeMenu->setIcon(optionsFirstNodeAction->icon());
    lastNodeMenu->setIcon(optionsLastNodeAction->icon());
    horizontalAxisMenu->setIcon(optionsHorizontalAxisAction->icon());
    for (QMenu* const submenu : {firstNodeMenu, lastNodeMenu, horizontalAxisMenu})
        optionsMenu->addMenu(submenu);

    addMenuButton(mainMenu, tr("File"), fileMenu);
    addMenuButton(mainMenu, tr("Curves"), curvesMenu);
    addMenuButton(mainMenu, tr("Options"), optionsMenu);
    addMenuButton(mainMenu, tr("Edit"), editMenu);
    mainMenu->setMovable(true);
}

void CurveEditor::addMenuButton(QToolBar* bar, const QString& text, QMenu* menu)
{
    auto* const button = new QToolButton(bar);
    button->setObjectName(text);
    button->setText(text);
    button->setAutoRaise(true);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
    bar->addWidget(button);
}

QToolButton* CurveEditor::createViewButton(QWidget* box, const QString& text)
{
    auto* const button = new QToolButton(box);
    button->setObjectName(text.trimmed());
    button->setText(text);
    button->setAutoRaise(true);
    box->layout()->addWidget(button);
    return button;
}

void CurveEditor::createViewButtons()
{
    auto* const box = new QFrame(mainMenu);
    box->setFrameShape(QFrame::StyledPanel);
    auto* const layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(5);
    mainMenu->addWidget(box);

    fitButton = createViewButton(box, tr(" Fit "));
    fitHButton = createViewButton(box, tr(" Fit H "));
    fitVButton = createViewButton(box, tr(" Fit V "));
    for (QToolButton* const button : {fitButton, fitHButton, fitVButton})
        button->setFocusPolicy(Qt::NoFocus);
    limitFitButtons();
    scaleButton = createViewButton(box, tr("Scale"));
    panButton = createViewButton(box, tr("Pan"));
    auto* const filler = new QFrame(box);
    filler->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    layout->addWidget(filler);

    connect(fitButton, &QToolButton::clicked, this, &CurveEditor::completeViewport);
    connect(fitHButton, &QToolButton::clicked, this, &CurveEditor::completeViewportH);
    connect(fitVButton, &QToolButton::clicked, this, &CurveEditor::completeViewportV);
    connect(scaleButton, &QToolButton::clicked, this, &CurveEditor::setScaleSelection);
    connect(panButton, &QToolButton::clicked, this, &CurveEditor::setPanSelection);
}

void CurveEditor::limitFitButtons()
{
    for (QToolButton* const button : {fitButton, fitHButton, fitVButton}) {
        const QSize text = button->fontMetrics().size(Qt::TextSingleLine, button->text().trimmed());
        button->setMaximumSize(largestFitButton.expandedTo(text));
    }
}

QMenu* CurveEditor::createExpressionMenu(const QString& text, const QStringList& entries,
                                         void (CurveEditor::*insert)(int))
{
    auto* const menu = new QMenu(expressionTool);
    menu->setFont(font());
    for (const QString& entry : entries) {
        auto* const action = new QAction(entry, expressionTool);
        action->setObjectName(entry);
        action->setData(int(menu->actions().size()));
        menu->addAction(action);
    }
    addMenuButton(expressionTool, text, menu);
    connect(menu, &QMenu::triggered, this,
            [this, insert](const QAction* entry) { (this->*insert)(entry->data().toInt()); });
    return menu;
}

void CurveEditor::createExpressionTool()
{
    unaryMenu = createExpressionMenu(tr("Unary functions"),
                                     {"cos", "sin", "tan", "exp", "log", "l10", "rnd", "abs", "sqrt", "acos",
                                      "asin", "atan", "cosh", "sinh", "tanh", "ceil", "floor", "j0", "j1"},
                                     &CurveEditor::insertUnaryFunc);
    binaryMenu = createExpressionMenu(tr("Binary functions"), {"+", "-", "*", "/", "^", ">", "<"},
                                      &CurveEditor::insertBinaryFunc);
    ternaryMenu = createExpressionMenu(tr("Ternary functions"), {"if"}, &CurveEditor::insertTernaryFunc);
    iVarMenu = createExpressionMenu(tr("I vars"), {"t", "f"}, &CurveEditor::insertIVarFunc);
    dVarMenu = createExpressionMenu(tr("D vars"), {}, &CurveEditor::insertDVarFunc);
    // A click on a menu button would else pass the focus to the dialog, and the line would drop its
    // selection.
    expressionTool->setFocusProxy(commandLine);

    funcTimeEdit = createReadOut("funcTimeEdit");
    funcCursorEdit = createReadOut("funcCursorEdit");
    funcValueEdit = createReadOut("funcValueEdit");
}

CustomEditLine* CurveEditor::createReadOut(const char* name)
{
    auto* const line = new CustomEditLine(expressionTool, QLatin1String(name));
    line->setEnabled(false);
    line->setMaxLength(readOutLength);
    QPalette readable = line->palette();
    readable.setColor(QPalette::Disabled, QPalette::Text, readable.color(QPalette::Active, QPalette::Text));
    line->setPalette(readable);
    expressionTool->addWidget(line);
    return line;
}

void CurveEditor::connectActions()
{
    const std::initializer_list<std::pair<QAction*, void (CurveEditor::*)()>> commands = {
        {undoAction, &CurveEditor::undo},
        {redoAction, &CurveEditor::redo},
        {resetAllChecked, &CurveEditor::resetAllCheckedF},
        {resetSelected, &CurveEditor::resetSelectedF},
        {loadCurve, &CurveEditor::loadFile},
        {saveCurve, &CurveEditor::saveFile},
        {setWaveRangeAction, &CurveEditor::setRange},
        {resetRangeAction, &CurveEditor::resetViewport},
        {loadImageAction, &CurveEditor::loadImage},
        {clearImageAction, &CurveEditor::clearImage},
        {setCompleteAction, &CurveEditor::completeViewport},
        {setCompleteHAction, &CurveEditor::completeViewportH},
        {setCompleteVAction, &CurveEditor::completeViewportV},
        {openScaleSelection, &CurveEditor::setScaleSelection},
        {openPanSelection, &CurveEditor::setPanSelection},
        {showTimeAction, &CurveEditor::setShowTime},
        {showFramesAction, &CurveEditor::setShowFrames},
        {firstNodeZeroAction, &CurveEditor::setFirstNodeZero},
        {firstNodeConstantAction, &CurveEditor::setFirstNodeConstant},
        {lastNodeZeroAction, &CurveEditor::setLastNodeZero},
        {lastNodeConstantAction, &CurveEditor::setLastNodeConstant},
        {lastNodeLoopAction, &CurveEditor::setLastNodeLoop},
        {lastNodeLoopOffsetAction, &CurveEditor::setLastNodeLoopOffset},
        {lastNodeFollowTangentAction, &CurveEditor::setLastNodeFollowTangent}};
    for (const auto& [action, command] : commands)
        connect(action, &QAction::triggered, this, command);
}

void CurveEditor::languageChange()
{
    setWindowTitle(tr("Curve Editor"));
    commandLine->setToolTip(tr("Here appears the expression"));
    commandLine->setWhatsThis(tr("This's the expression parsed"));

    const std::initializer_list<std::pair<QAction*, QString>> texts = {
        {resetAllChecked, tr("Reset All Checked Curves")},
        {resetSelected, tr("Reset curve")},
        {loadCurve, tr("Load curve")},
        {saveCurve, tr("Save curve")},
        {setWaveRangeAction, tr("Set Range")},
        {resetRangeAction, tr("Reset View")},
        {loadImageAction, tr("Load image")},
        {clearImageAction, tr("Clear image")},
        {setCompleteAction, tr("Fit View")},
        {setCompleteHAction, tr("Fit Horizontal View")},
        {setCompleteVAction, tr("Fit Vertical View")},
        {openScaleSelection, tr("Scale selection")},
        {openPanSelection, tr("Pan selection")},
        {showTimeAction, tr("Show time")},
        {showFramesAction, tr("Show frames")},
        {firstNodeZeroAction, tr("Zero")},
        {firstNodeConstantAction, tr("Constant")},
        {lastNodeZeroAction, tr("Zero")},
        {lastNodeConstantAction, tr("Constant")},
        {lastNodeLoopAction, tr("Loop")},
        {lastNodeLoopOffsetAction, tr("Loop offset")},
        {lastNodeFollowTangentAction, tr("Follow tangent")},
        {optionsFirstNodeAction, tr("Start Node Behaviour")},
        {optionsLastNodeAction, tr("Last Node Behaviour")},
        {optionsHorizontalAxisAction, tr("Horizontal axis mode")}};
    for (const auto& [action, text] : texts)
        action->setText(text);

    resetAllChecked->setWhatsThis(tr("Reset all the checked curves"));
    resetSelected->setWhatsThis(tr("Reset the current editing curve"));
    loadCurve->setWhatsThis(tr("Open previously saved curve"));
    saveCurve->setWhatsThis(tr("Save the current curve"));

    undoAction->setShortcut(tr("Ctrl+Z"));
    redoAction->setShortcuts({tr("Ctrl+Shift+Z"), tr("Ctrl+Y")});
    loadCurve->setShortcut(tr("Ctrl+l"));
    saveCurve->setShortcut(tr("Ctrl+s"));
    setWaveRangeAction->setShortcut(tr("Alt+s"));
    loadImageAction->setShortcut(tr("Alt+i"));
    setCompleteAction->setShortcut(tr("Alt+c"));
    setCompleteHAction->setShortcut(tr("Alt+h"));
    setCompleteVAction->setShortcut(tr("Alt+v"));
    showTimeAction->setShortcut(tr("Alt+t"));
    showFramesAction->setShortcut(tr("Alt+f"));

    firstNodeMenu->setTitle(optionsFirstNodeAction->text());
    lastNodeMenu->setTitle(optionsLastNodeAction->text());
}
