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

#include <algorithm>

namespace {

constexpr int readOutLength = 15;
constexpr int fewestDigits = 7; // that a read-out has room for: the shortest form of a number is "-1e+300"
constexpr QSize largestFitButton(30, 20);

} // namespace

void CurveEditor::preInit()
{
    createMainMenu();
    createViewButtons();
    d_->editingMenu = std::make_unique<ControlMenu2>();
    createExpressionTool();
    languageChange();
}

/// An action of the main menu, or one that only bears a text. Texts are the untranslated ones, null for none.
struct CurveEditor::Command
{
    const char* name;
    QMenu* Private::*menu;
    void (CurveEditor::*work)();
    Qt::ConnectionType how;
    const char* text = nullptr;
    const char* key = nullptr;
    const char* help = nullptr;
};

/// In the order of their menus. A menu whose entries are a choice is a group.
const std::vector<CurveEditor::Command>& CurveEditor::commands()
{
    using P = Private;
    using E = CurveEditor;
    constexpr auto direct = Qt::DirectConnection;
    constexpr auto queued = Qt::QueuedConnection; // runs a loop, in which the host may delete a menu at work
    static const std::vector<Command> rows = {
        {"undoAction", &P::editMenu, &E::undo, direct, nullptr, QT_TR_NOOP("Ctrl+Z")},
        {"redoAction", &P::editMenu, &E::redo, direct},
        {"resetAllChecked", &P::fileMenu, &E::resetAllCheckedF, direct,
         QT_TR_NOOP("Reset All Checked Curves"), nullptr, QT_TR_NOOP("Reset all the checked curves")},
        {"resetSelected", &P::fileMenu, &E::resetSelectedF, direct, QT_TR_NOOP("Reset curve"), nullptr,
         QT_TR_NOOP("Reset the current editing curve")},
        {"loadCurve", &P::fileMenu, &E::loadFile, queued, QT_TR_NOOP("Load curve"), QT_TR_NOOP("Ctrl+l"),
         QT_TR_NOOP("Open previously saved curve")},
        {"saveCurve", &P::fileMenu, &E::saveFile, queued, QT_TR_NOOP("Save curve"), QT_TR_NOOP("Ctrl+s"),
         QT_TR_NOOP("Save the current curve")},
        {"setWaveRangeAction", &P::optionsMenu, &E::setRange, queued, QT_TR_NOOP("Set Range"),
         QT_TR_NOOP("Alt+s")},
        {"resetRangeAction", &P::optionsMenu, &E::resetViewport, direct, QT_TR_NOOP("Reset View")},
        {"loadImageAction", &P::optionsMenu, &E::loadImage, queued, QT_TR_NOOP("Load image"),
         QT_TR_NOOP("Alt+i")},
        {"clearImageAction", &P::optionsMenu, &E::clearImage, direct, QT_TR_NOOP("Clear image")},
        {"setCompleteAction", &P::optionsMenu, &E::completeViewport, direct, QT_TR_NOOP("Fit View"),
         QT_TR_NOOP("Alt+c")},
        {"setCompleteHAction", &P::optionsMenu, &E::completeViewportH, direct,
         QT_TR_NOOP("Fit Horizontal View"), QT_TR_NOOP("Alt+h")},
        {"setCompleteVAction", &P::optionsMenu, &E::completeViewportV, direct,
         QT_TR_NOOP("Fit Vertical View"), QT_TR_NOOP("Alt+v")},
        {"openScaleSelection", &P::optionsMenu, &E::setScaleSelection, queued, QT_TR_NOOP("Scale selection")},
        {"openPanSelection", &P::optionsMenu, &E::setPanSelection, queued, QT_TR_NOOP("Pan selection")},
        {"optionsFirstNodeAction", nullptr, nullptr, direct, QT_TR_NOOP("Start Node Behaviour")},
        {"optionsLastNodeAction", nullptr, nullptr, direct, QT_TR_NOOP("Last Node Behaviour")},
        {"optionsHorizontalAxisAction", nullptr, nullptr, direct, QT_TR_NOOP("Horizontal axis mode")},
        {"showTimeAction", &P::horizontalAxisMenu, &E::setShowTime, direct, QT_TR_NOOP("Show time"),
         QT_TR_NOOP("Alt+t")},
        {"showFramesAction", &P::horizontalAxisMenu, &E::setShowFrames, direct, QT_TR_NOOP("Show frames"),
         QT_TR_NOOP("Alt+f")},
        {"firstNodeZeroAction", &P::firstNodeMenu, &E::setFirstNodeZero, direct, QT_TR_NOOP("Zero")},
        {"firstNodeConstantAction", &P::firstNodeMenu, &E::setFirstNodeConstant, direct,
         QT_TR_NOOP("Constant")},
        {"lastNodeZeroAction", &P::lastNodeMenu, &E::setLastNodeZero, direct, QT_TR_NOOP("Zero")},
        {"lastNodeConstantAction", &P::lastNodeMenu, &E::setLastNodeConstant, direct, QT_TR_NOOP("Constant")},
        {"lastNodeLoopAction", &P::lastNodeMenu, &E::setLastNodeLoop, direct, QT_TR_NOOP("Loop")},
        {"lastNodeLoopOffsetAction", &P::lastNodeMenu, &E::setLastNodeLoopOffset, direct,
         QT_TR_NOOP("Loop offset")},
        {"lastNodeFollowTangentAction", &P::lastNodeMenu, &E::setLastNodeFollowTangent, direct,
         QT_TR_NOOP("Follow tangent")}};
    return rows;
}

void CurveEditor::createActions()
{
    for (const Command& command : commands()) {
        auto* const action = new QAction(this);
        action->setObjectName(QLatin1String(command.name));
        // Before any menu was opened, and not outside the editor, where a host may have the same keys.
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
        d_->actions.push_back(action);
        if (!command.menu)
            continue;
        (d_.get()->*command.menu)->addAction(action);
        connect(action, &QAction::triggered, this, command.work, command.how);
    }
    for (const QMenu* const choice : {d_->horizontalAxisMenu, d_->firstNodeMenu, d_->lastNodeMenu}) {
        auto* const group = new QActionGroup(this);
        for (QAction* const action : choice->actions()) {
            action->setParent(group);
            action->setCheckable(true);
            group->addAction(action);
        }
    }
    actionOf(&CurveEditor::setShowFrames)->setChecked(true);
}

QAction* CurveEditor::actionOf(void (CurveEditor::*work)()) const
{
    const auto found = std::find_if(commands().begin(), commands().end(),
                                    [work](const Command& command) { return command.work == work; });
    return d_->actions[std::size_t(found - commands().begin())];
}

void CurveEditor::createMainMenu()
{
    for (QMenu** const menu : {&d_->fileMenu, &d_->curvesMenu, &d_->optionsMenu, &d_->editMenu,
                               &d_->firstNodeMenu, &d_->lastNodeMenu, &d_->horizontalAxisMenu}) {
        *menu = new QMenu(this);
        (*menu)->setFont(font());
    }
    createActions();
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

    auto action = d_->actions.begin();
    for (const Command& command : commands()) {
        if (command.text)
            (*action)->setText(tr(command.text));
        if (command.key)
            (*action)->setShortcut(tr(command.key));
        if (command.help)
            (*action)->setWhatsThis(tr(command.help));
        ++action;
    }
    actionOf(&CurveEditor::redo)->setShortcuts({tr("Ctrl+Shift+Z"), tr("Ctrl+Y")});
    showStepTexts();
    d_->firstNodeMenu->setTitle(tr("Start Node Behaviour"));
    d_->lastNodeMenu->setTitle(tr("Last Node Behaviour"));
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
