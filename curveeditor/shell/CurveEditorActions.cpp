// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/PlainToolBar.h>

#include <QAction>
#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QStyle>
#include <QToolButton>

namespace {

constexpr int readOutLength = 15;
constexpr int fewestDigits = 7; // that a read-out has room for: the shortest form of a number is "-1e+300"
constexpr QSize largestFitButton(30, 20);

} // namespace

void CurveEditor::preInit()
{
    createActions();
    createMainMenu();
    createViewButtons();
    d_->editingMenu = std::make_unique<ControlMenu2>();
    createExpressionTool();
    languageChange();
}

QAction* CurveEditor::createAction(const char* name)
{
    auto* const action = new QAction(this);
    action->setObjectName(QLatin1String(name));
    // Before any menu was opened, and not outside the editor, where a host may have the same keys.
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(action);
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
    d_->undoAction = createAction("undoAction");
    d_->redoAction = createAction("redoAction");
    d_->resetAllChecked = createAction("resetAllChecked");
    d_->resetSelected = createAction("resetSelected");
    d_->loadCurve = createAction("loadCurve");
    d_->saveCurve = createAction("saveCurve");
    d_->setWaveRangeAction = createAction("setWaveRangeAction");
    d_->resetRangeAction = createAction("resetRangeAction");
    d_->loadImageAction = createAction("loadImageAction");
    d_->clearImageAction = createAction("clearImageAction");
    d_->setCompleteAction = createAction("setCompleteAction");
    d_->setCompleteHAction = createAction("setCompleteHAction");
    d_->setCompleteVAction = createAction("setCompleteVAction");
    d_->openScaleSelection = createAction("openScaleSelection");
    d_->openPanSelection = createAction("openPanSelection");
    d_->optionsFirstNodeAction = createAction("optionsFirstNodeAction");
    d_->optionsLastNodeAction = createAction("optionsLastNodeAction");
    d_->optionsHorizontalAxisAction = createAction("optionsHorizontalAxisAction");

    auto* const axis = new QActionGroup(this);
    d_->showTimeAction = createToggleAction("showTimeAction", axis);
    d_->showFramesAction = createToggleAction("showFramesAction", axis);
    d_->showFramesAction->setChecked(true);

    auto* const first = new QActionGroup(this);
    d_->firstNodeZeroAction = createToggleAction("firstNodeZeroAction", first);
    d_->firstNodeConstantAction = createToggleAction("firstNodeConstantAction", first);

    auto* const last = new QActionGroup(this);
    d_->lastNodeZeroAction = createToggleAction("lastNodeZeroAction", last);
    d_->lastNodeConstantAction = createToggleAction("lastNodeConstantAction", last);
    d_->lastNodeLoopAction = createToggleAction("lastNodeLoopAction", last);
    d_->lastNodeLoopOffsetAction = createToggleAction("lastNodeLoopOffsetAction", last);
    d_->lastNodeFollowTangentAction = createToggleAction("lastNodeFollowTangentAction", last);
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
    d_->fileMenu = createMenu({d_->resetAllChecked, d_->resetSelected, d_->loadCurve, d_->saveCurve});
    d_->curvesMenu = createMenu({});
    d_->optionsMenu = createMenu({d_->setWaveRangeAction, d_->resetRangeAction, d_->loadImageAction,
                                  d_->clearImageAction, d_->setCompleteAction, d_->setCompleteHAction,
                                  d_->setCompleteVAction, d_->openScaleSelection, d_->openPanSelection});
    d_->editMenu = createMenu({d_->undoAction, d_->redoAction});
    d_->firstNodeMenu = createMenu({d_->firstNodeZeroAction, d_->firstNodeConstantAction});
    d_->lastNodeMenu = createMenu({d_->lastNodeZeroAction, d_->lastNodeConstantAction, d_->lastNodeLoopAction,
                                   d_->lastNodeLoopOffsetAction, d_->lastNodeFollowTangentAction});
    d_->horizontalAxisMenu = createMenu({d_->showTimeAction, d_->showFramesAction});
    d_->horizontalAxisMenu->setTitle(tr("Horizontal axis"));
    d_->firstNodeMenu->setIcon(d_->optionsFirstNodeAction->icon());
    d_->lastNodeMenu->setIcon(d_->optionsLastNodeAction->icon());
    d_->horizontalAxisMenu->setIcon(d_->optionsHorizontalAxisAction->icon());
    for (QMenu* const submenu : {d_->firstNodeMenu, d_->lastNodeMenu, d_->horizontalAxisMenu})
        d_->optionsMenu->addMenu(submenu);

    addMenuButton(mainMenu, tr("File"), d_->fileMenu);
    addMenuButton(mainMenu, tr("Curves"), d_->curvesMenu);
    addMenuButton(mainMenu, tr("Options"), d_->optionsMenu);
    addMenuButton(mainMenu, tr("Edit"), d_->editMenu);
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
    d_->menuButtons.push_back(button);
    if (bar == mainMenu)
        connect(button, &QToolButton::triggered, this, [this] { d_->functionEdit->setFocus(); });
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

    d_->fitButton = createViewButton(box, tr(" Fit "));
    d_->fitHButton = createViewButton(box, tr(" Fit H "));
    d_->fitVButton = createViewButton(box, tr(" Fit V "));
    for (QToolButton* const button : {d_->fitButton, d_->fitHButton, d_->fitVButton})
        button->setFocusPolicy(Qt::NoFocus);
    d_->scaleButton = createViewButton(box, tr("Scale"));
    d_->panButton = createViewButton(box, tr("Pan"));
    auto* const filler = new QFrame(box);
    filler->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    layout->addWidget(filler);

    for (const QToolButton* const button : box->findChildren<QToolButton*>())
        connect(button, &QToolButton::clicked, this, [this] { d_->functionEdit->setFocus(); });
    connect(d_->fitButton, &QToolButton::clicked, this, &CurveEditor::completeViewport);
    connect(d_->fitHButton, &QToolButton::clicked, this, &CurveEditor::completeViewportH);
    connect(d_->fitVButton, &QToolButton::clicked, this, &CurveEditor::completeViewportV);
    connect(d_->scaleButton, &QToolButton::clicked, this, &CurveEditor::setScaleSelection);
    connect(d_->panButton, &QToolButton::clicked, this, &CurveEditor::setPanSelection);
}

// A tool bar without a main window hides what has no room in it, so it is never too narrow.
void CurveEditor::fitToFont()
{
    for (QToolButton* const button : {d_->fitButton, d_->fitHButton, d_->fitVButton}) {
        const QSize text = button->fontMetrics().size(Qt::TextSingleLine, button->text());
        button->setMaximumSize(largestFitButton.expandedTo(text));
    }
    int width = 2 * style()->pixelMetric(QStyle::PM_ToolBarExtensionExtent);
    for (const QToolButton* const button : d_->menuButtons) {
        if (button->parent() == expressionTool)
            width += button->sizeHint().width();
    }
    for (CustomEditLine* const readOut : {d_->funcTimeEdit, d_->funcCursorEdit, d_->funcValueEdit}) {
        readOut->setMinimumWidth(readOut->widthOf(fewestDigits));
        width += readOut->minimumWidth();
    }
    expressionTool->setMinimumWidth(width);
    CurveEditorDialogBase::fitToFont();
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
    d_->unaryMenu =
        createExpressionMenu(tr("Unary functions"),
                             {"cos", "sin", "tan", "exp", "log", "l10", "rnd", "abs", "sqrt", "acos", "asin",
                              "atan", "cosh", "sinh", "tanh", "ceil", "floor", "j0", "j1"},
                             &CurveEditor::insertUnaryFunc);
    d_->binaryMenu = createExpressionMenu(tr("Binary functions"), {"+", "-", "*", "/", "^", ">", "<"},
                                          &CurveEditor::insertBinaryFunc);
    d_->ternaryMenu = createExpressionMenu(tr("Ternary functions"), {"if"}, &CurveEditor::insertTernaryFunc);
    d_->iVarMenu = createExpressionMenu(tr("I vars"), {"t", "f"}, &CurveEditor::insertIVarFunc);
    d_->dVarMenu = createExpressionMenu(tr("D vars"), {}, &CurveEditor::insertDVarFunc);
    for (QMenu* const growing : {d_->curvesMenu, d_->dVarMenu})
        growing->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }")); // else it makes columns
    // A click on a menu button would else pass the focus to the dialog, and the line would drop its
    // selection.
    expressionTool->setFocusProxy(commandLine);

    d_->funcTimeEdit = createReadOut("funcTimeEdit");
    d_->funcCursorEdit = createReadOut("funcCursorEdit");
    d_->funcValueEdit = createReadOut("funcValueEdit");
}

CustomEditLine* CurveEditor::createReadOut(const char* name)
{
    auto* const line = new CustomEditLine(expressionTool, QLatin1String(name));
    line->setEnabled(false);
    line->setMaxLength(readOutLength);
    expressionTool->addWidget(line);
    return line;
}

void CurveEditor::connectActions()
{
    const std::initializer_list<std::pair<QAction*, void (CurveEditor::*)()>> commands = {
        {d_->undoAction, &CurveEditor::undo},
        {d_->redoAction, &CurveEditor::redo},
        {d_->resetAllChecked, &CurveEditor::resetAllCheckedF},
        {d_->resetSelected, &CurveEditor::resetSelectedF},
        {d_->resetRangeAction, &CurveEditor::resetViewport},
        {d_->clearImageAction, &CurveEditor::clearImage},
        {d_->setCompleteAction, &CurveEditor::completeViewport},
        {d_->setCompleteHAction, &CurveEditor::completeViewportH},
        {d_->setCompleteVAction, &CurveEditor::completeViewportV},
        {d_->showTimeAction, &CurveEditor::setShowTime},
        {d_->showFramesAction, &CurveEditor::setShowFrames},
        {d_->firstNodeZeroAction, &CurveEditor::setFirstNodeZero},
        {d_->firstNodeConstantAction, &CurveEditor::setFirstNodeConstant},
        {d_->lastNodeZeroAction, &CurveEditor::setLastNodeZero},
        {d_->lastNodeConstantAction, &CurveEditor::setLastNodeConstant},
        {d_->lastNodeLoopAction, &CurveEditor::setLastNodeLoop},
        {d_->lastNodeLoopOffsetAction, &CurveEditor::setLastNodeLoopOffset},
        {d_->lastNodeFollowTangentAction, &CurveEditor::setLastNodeFollowTangent}};
    for (const auto& [action, command] : commands)
        connect(action, &QAction::triggered, this, command);
    // These run loops. Queued, so that no menu is at work while the host may delete it.
    const std::initializer_list<std::pair<QAction*, void (CurveEditor::*)()>> questions = {
        {d_->loadCurve, &CurveEditor::loadFile},
        {d_->saveCurve, &CurveEditor::saveFile},
        {d_->setWaveRangeAction, &CurveEditor::setRange},
        {d_->loadImageAction, &CurveEditor::loadImage},
        {d_->openScaleSelection, &CurveEditor::setScaleSelection},
        {d_->openPanSelection, &CurveEditor::setPanSelection}};
    for (const auto& [action, question] : questions)
        connect(action, &QAction::triggered, this, question, Qt::QueuedConnection);
}

void CurveEditor::languageChange()
{
    CurveEditorDialogBase::languageChange();
    if (!testAttribute(Qt::WA_SetLocale))
        unsetLocale(); // the application may have another default now
    if (d_->functionEdit) {
        textLabel1->setText(isModeFrames() ? tr("Frame:") : tr("Time:"));
        showMousePlace();
    }
    showLineTip();
    commandLine->setWhatsThis(tr("This's the expression parsed"));

    const std::initializer_list<std::pair<QAction*, QString>> texts = {
        {d_->resetAllChecked, tr("Reset All Checked Curves")},
        {d_->resetSelected, tr("Reset curve")},
        {d_->loadCurve, tr("Load curve")},
        {d_->saveCurve, tr("Save curve")},
        {d_->setWaveRangeAction, tr("Set Range")},
        {d_->resetRangeAction, tr("Reset View")},
        {d_->loadImageAction, tr("Load image")},
        {d_->clearImageAction, tr("Clear image")},
        {d_->setCompleteAction, tr("Fit View")},
        {d_->setCompleteHAction, tr("Fit Horizontal View")},
        {d_->setCompleteVAction, tr("Fit Vertical View")},
        {d_->openScaleSelection, tr("Scale selection")},
        {d_->openPanSelection, tr("Pan selection")},
        {d_->showTimeAction, tr("Show time")},
        {d_->showFramesAction, tr("Show frames")},
        {d_->firstNodeZeroAction, tr("Zero")},
        {d_->firstNodeConstantAction, tr("Constant")},
        {d_->lastNodeZeroAction, tr("Zero")},
        {d_->lastNodeConstantAction, tr("Constant")},
        {d_->lastNodeLoopAction, tr("Loop")},
        {d_->lastNodeLoopOffsetAction, tr("Loop offset")},
        {d_->lastNodeFollowTangentAction, tr("Follow tangent")},
        {d_->optionsFirstNodeAction, tr("Start Node Behaviour")},
        {d_->optionsLastNodeAction, tr("Last Node Behaviour")},
        {d_->optionsHorizontalAxisAction, tr("Horizontal axis mode")}};
    for (const auto& [action, text] : texts)
        action->setText(text);

    d_->resetAllChecked->setWhatsThis(tr("Reset all the checked curves"));
    d_->resetSelected->setWhatsThis(tr("Reset the current editing curve"));
    d_->loadCurve->setWhatsThis(tr("Open previously saved curve"));
    d_->saveCurve->setWhatsThis(tr("Save the current curve"));

    d_->undoAction->setShortcut(tr("Ctrl+Z"));
    d_->redoAction->setShortcuts({tr("Ctrl+Shift+Z"), tr("Ctrl+Y")});
    showStepTexts();
    d_->loadCurve->setShortcut(tr("Ctrl+l"));
    d_->saveCurve->setShortcut(tr("Ctrl+s"));
    d_->setWaveRangeAction->setShortcut(tr("Alt+s"));
    d_->loadImageAction->setShortcut(tr("Alt+i"));
    d_->setCompleteAction->setShortcut(tr("Alt+c"));
    d_->setCompleteHAction->setShortcut(tr("Alt+h"));
    d_->setCompleteVAction->setShortcut(tr("Alt+v"));
    d_->showTimeAction->setShortcut(tr("Alt+t"));
    d_->showFramesAction->setShortcut(tr("Alt+f"));

    d_->firstNodeMenu->setTitle(d_->optionsFirstNodeAction->text());
    d_->lastNodeMenu->setTitle(d_->optionsLastNodeAction->text());
    d_->horizontalAxisMenu->setTitle(tr("Horizontal axis"));
    translateMenuButtons();
    translateViewButtons();
    explainTools();
    fitToFont();
}

void CurveEditor::translateMenuButtons()
{
    const std::pair<QString, QString> texts[] = {
        {tr("File"), tr("Resets, loads and saves curves")},
        {tr("Curves"), tr("Chooses the current curve among those on the canvas")},
        {tr("Options"), tr("Sets the view, the background image and the curve outside its nodes")},
        {tr("Edit"), tr("Takes edits back, and works on the selected points and the view")},
        {tr("Unary functions"), tr("Makes the expression the argument of a function")},
        {tr("Binary functions"), tr("Joins the expression with a second operand")},
        {tr("Ternary functions"), tr("Makes the expression one of the two that a condition chooses from")},
        {tr("I vars"), tr("Inserts the time or the frame number")},
        {tr("D vars"), tr("Inserts the value of another curve")}};
    auto button = d_->menuButtons.begin();
    for (const auto& [text, tip] : texts) {
        (*button)->setText(text);
        (*button)->setAccessibleName(text);
        (*button)->setToolTip(tip);
        ++button;
    }
}

void CurveEditor::translateViewButtons()
{
    d_->fitButton->setText(tr(" Fit "));
    d_->fitHButton->setText(tr(" Fit H "));
    d_->fitVButton->setText(tr(" Fit V "));
    d_->scaleButton->setText(tr("Scale"));
    d_->panButton->setText(tr("Pan"));
}

void CurveEditor::explainTools()
{
    const struct
    {
        QWidget* widget;
        QString name;
        QString tip;
    } tools[] = {
        {d_->fitButton, tr("Fit View"), tr("Shows the whole current curve")},
        {d_->fitHButton, tr("Fit Horizontal View"), tr("Shows all times of the current curve")},
        {d_->fitVButton, tr("Fit Vertical View"), tr("Shows all values of the current curve")},
        {d_->scaleButton, tr("Scale selection"), tr("Scales the selected points by two factors")},
        {d_->panButton, tr("Pan selection"), tr("Moves the selected points by two distances")},
        {d_->funcTimeEdit, tr("Time or frame at the mouse"), tr("Time or frame number at the mouse")},
        {d_->funcCursorEdit, tr("Value at the mouse"), tr("Value at the mouse")},
        {d_->funcValueEdit, tr("Value of the curve"),
         tr("Value of the current curve at the time of the mouse")}};
    for (const auto& [widget, name, tip] : tools) {
        widget->setAccessibleName(name);
        widget->setToolTip(tip);
    }
    if (d_->functionEdit)
        d_->functionEdit->setAccessibleName(tr("Canvas"));
}
