// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/PlainToolBar.h>
#include <curveeditor/shell/ShrinkingBox.h>

#include <QAction>
#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

using namespace curveeditor;

namespace {

constexpr int readOutLength = 15;
constexpr int fewestDigits = 7; // that a read-out has room for: the shortest form of a number is "-1e+300"
constexpr QSize largestFitButton(30, 20);

} // namespace

void CurveEditor::Private::preInit()
{
    createMainMenu();
    createViewButtons();
    editingMenu = std::make_unique<ControlMenu2>();
    createExpressionTool();
    editor.languageChange();
}

/// An action of the main menu, or one that only bears a text. Texts are the untranslated ones, null for none.
struct CurveEditor::Private::Command
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
const std::vector<CurveEditor::Private::Command>& CurveEditor::Private::commands()
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

void CurveEditor::Private::createActions()
{
    for (const Command& command : commands()) {
        auto* const action = new QAction(&editor);
        action->setObjectName(QLatin1String(command.name));
        // Before any menu was opened, and not outside the editor, where a host may have the same keys.
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        editor.addAction(action);
        actions.push_back(action);
        shownKeys.emplace_back();
        if (!command.menu)
            continue;
        (this->*command.menu)->addAction(action);
        QObject::connect(action, &QAction::triggered, &editor, command.work, command.how);
    }
    actionOf(&CurveEditor::redo)
        ->setShortcuts(
            {QKeySequence(CurveEditor::tr("Ctrl+Shift+Z")), QKeySequence(CurveEditor::tr("Ctrl+Y"))});
    for (const QMenu* const choice : {horizontalAxisMenu, firstNodeMenu, lastNodeMenu}) {
        auto* const group = new QActionGroup(&editor);
        for (QAction* const action : choice->actions()) {
            action->setParent(group);
            action->setCheckable(true);
            group->addAction(action);
        }
    }
    actionOf(&CurveEditor::setShowFrames)->setChecked(true);
}

QAction* CurveEditor::Private::actionOf(void (CurveEditor::*work)()) const
{
    const auto found = std::find_if(commands().begin(), commands().end(),
                                    [work](const Command& command) { return command.work == work; });
    return actions[std::size_t(found - commands().begin())];
}

void CurveEditor::Private::createMainMenu()
{
    for (QMenu** const menu : {&fileMenu, &curvesMenu, &optionsMenu, &editMenu, &firstNodeMenu, &lastNodeMenu,
                               &horizontalAxisMenu}) {
        *menu = new QMenu(&editor);
        (*menu)->setFont(editor.font());
    }
    createActions();
    for (const auto& [submenu, name] :
         {std::pair(firstNodeMenu, "firstNodeMenuAction"), std::pair(lastNodeMenu, "lastNodeMenuAction"),
          std::pair(horizontalAxisMenu, "horizontalAxisMenuAction")})
        optionsMenu->addMenu(submenu)->setObjectName(QLatin1String(name));

    addMenuButton(editor.mainMenu, CurveEditor::tr("File"), fileMenu);
    addMenuButton(editor.mainMenu, CurveEditor::tr("Curves"), curvesMenu);
    addMenuButton(editor.mainMenu, CurveEditor::tr("Options"), optionsMenu);
    addMenuButton(editor.mainMenu, CurveEditor::tr("Edit"), editMenu);
    editor.mainMenu->setMovable(true);
}

void CurveEditor::Private::addMenuButton(QToolBar* bar, const QString& text, QMenu* menu)
{
    auto* const button = new QToolButton(bar);
    button->setObjectName(text);
    button->setText(text);
    button->setAutoRaise(true);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
    bar->addWidget(button);
    menuButtons.push_back(button);
    if (bar == editor.mainMenu)
        QObject::connect(button, &QToolButton::triggered, &editor, [this] { functionEdit->setFocus(); });
}

QToolButton* CurveEditor::Private::createViewButton(ShrinkingBox& box, const QString& text)
{
    auto* const button = new QToolButton;
    button->setObjectName(text.trimmed());
    button->setText(text);
    button->setAutoRaise(true);
    box.add(button);
    return button;
}

void CurveEditor::Private::createViewButtons()
{
    auto* const box = new ShrinkingBox(editor.mainMenu);
    viewBox = editor.mainMenu->addWidget(box);

    fitButton = createViewButton(*box, CurveEditor::tr(" Fit "));
    fitHButton = createViewButton(*box, CurveEditor::tr(" Fit H "));
    fitVButton = createViewButton(*box, CurveEditor::tr(" Fit V "));
    for (QToolButton* const button : {fitButton, fitHButton, fitVButton})
        button->setFocusPolicy(Qt::NoFocus);
    scaleButton = createViewButton(*box, CurveEditor::tr("Scale"));
    panButton = createViewButton(*box, CurveEditor::tr("Pan"));

    for (const QToolButton* const button : box->findChildren<QToolButton*>())
        QObject::connect(button, &QToolButton::clicked, &editor, [this] { functionEdit->setFocus(); });
    QObject::connect(fitButton, &QToolButton::clicked, &editor, &CurveEditor::completeViewport);
    QObject::connect(fitHButton, &QToolButton::clicked, &editor, &CurveEditor::completeViewportH);
    QObject::connect(fitVButton, &QToolButton::clicked, &editor, &CurveEditor::completeViewportV);
    QObject::connect(scaleButton, &QToolButton::clicked, &editor, &CurveEditor::setScaleSelection);
    QObject::connect(panButton, &QToolButton::clicked, &editor, &CurveEditor::setPanSelection);
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
        readOut->setMaximumWidth(readOut->widthOf(readOutLength));
        width += readOut->minimumWidth();
    }
    expressionTool->setMinimumWidth(width);
    CurveEditorDialogBase::fitToFont();
    d_->showParts();
}

QMenu* CurveEditor::Private::createExpressionMenu(const QString& text, const QStringList& entries,
                                                  const std::function<void(CurveEditor&, int)>& insert)
{
    auto* const menu = new QMenu(editor.expressionTool);
    menu->setFont(editor.font());
    for (const QString& entry : entries) {
        auto* const action = new QAction(entry, editor.expressionTool);
        action->setObjectName(entry);
        action->setData(int(menu->actions().size()));
        menu->addAction(action);
    }
    addMenuButton(editor.expressionTool, text, menu);
    QObject::connect(menu, &QMenu::triggered, &editor,
                     [this, insert](const QAction* entry) { insert(editor, entry->data().toInt()); });
    return menu;
}

void CurveEditor::Private::createExpressionTool()
{
    unaryMenu = createExpressionMenu(CurveEditor::tr("Unary functions"),
                                     {"cos", "sin", "tan", "exp", "log", "l10", "rnd", "abs", "sqrt", "acos",
                                      "asin", "atan", "cosh", "sinh", "tanh", "ceil", "floor", "j0", "j1"},
                                     &CurveEditor::insertUnaryFunc);
    binaryMenu = createExpressionMenu(CurveEditor::tr("Binary functions"),
                                      {"+", "-", "*", "/", "^", ">", "<"}, &CurveEditor::insertBinaryFunc);
    ternaryMenu =
        createExpressionMenu(CurveEditor::tr("Ternary functions"), {"if"}, &CurveEditor::insertTernaryFunc);
    iVarMenu = createExpressionMenu(CurveEditor::tr("I vars"), {"t", "f"}, &CurveEditor::insertIVarFunc);
    dVarMenu = createExpressionMenu(CurveEditor::tr("D vars"), {}, &CurveEditor::insertDVarFunc);
    for (QMenu* const growing : {curvesMenu, dVarMenu})
        growing->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }")); // else it makes columns
    // A click on a menu button would else pass the focus to the dialog, and the line would drop its
    // selection.
    editor.expressionTool->setFocusProxy(editor.commandLine);

    funcTimeEdit = createReadOut("funcTimeEdit");
    funcCursorEdit = createReadOut("funcCursorEdit");
    funcValueEdit = createReadOut("funcValueEdit");
}

CustomEditLine* CurveEditor::Private::createReadOut(const char* name)
{
    auto* const line = new CustomEditLine(editor.expressionTool, QLatin1String(name));
    line->setEnabled(false);
    line->setMaxLength(readOutLength);
    editor.expressionTool->addWidget(line);
    return line;
}

void CurveEditor::languageChange()
{
    CurveEditorDialogBase::languageChange();
    if (!testAttribute(Qt::WA_SetLocale))
        unsetLocale(); // the application may have another default now
    if (d_->functionEdit) {
        d_->showTimeLabel();
        d_->showMousePlace();
    }
    d_->showLineTip();
    commandLine->setWhatsThis(tr("This's the expression parsed"));

    d_->translateActions();
    d_->showStepTexts();
    d_->firstNodeMenu->setTitle(tr("Start Node Behaviour"));
    d_->lastNodeMenu->setTitle(tr("Last Node Behaviour"));
    d_->horizontalAxisMenu->setTitle(tr("Horizontal axis"));
    d_->translateMenuButtons();
    d_->translateViewButtons();
    d_->explainTools();
    fitToFont();
}

/// Keys that the host has given stay.
void CurveEditor::Private::translateActions()
{
    for (std::size_t i = 0; i < actions.size(); ++i) {
        const Command& command = commands()[i];
        if (command.text)
            actions[i]->setText(CurveEditor::tr(command.text));
        if (command.help)
            actions[i]->setWhatsThis(CurveEditor::tr(command.help));
        if (command.key && actions[i]->shortcut() == shownKeys[i])
            actions[i]->setShortcut(shownKeys[i] = QKeySequence(CurveEditor::tr(command.key)));
    }
}

void CurveEditor::Private::translateMenuButtons()
{
    const std::pair<QString, QString> texts[] = {
        {CurveEditor::tr("File"), CurveEditor::tr("Resets, loads and saves curves")},
        {CurveEditor::tr("Curves"), CurveEditor::tr("Chooses the current curve among those on the canvas")},
        {CurveEditor::tr("Options"),
         CurveEditor::tr("Sets the view, the background image and the curve outside its nodes")},
        {CurveEditor::tr("Edit"),
         CurveEditor::tr("Takes edits back, and works on the selected points and the view")},
        {CurveEditor::tr("Unary functions"),
         CurveEditor::tr("Makes the expression the argument of a function")},
        {CurveEditor::tr("Binary functions"), CurveEditor::tr("Joins the expression with a second operand")},
        {CurveEditor::tr("Ternary functions"),
         CurveEditor::tr("Makes the expression one of the two that a condition chooses from")},
        {CurveEditor::tr("I vars"), CurveEditor::tr("Inserts the time or the frame number")},
        {CurveEditor::tr("D vars"), CurveEditor::tr("Inserts the value of another curve")}};
    auto button = menuButtons.begin();
    for (const auto& [text, tip] : texts) {
        (*button)->setText(text);
        (*button)->setAccessibleName(text);
        (*button)->setToolTip(tip);
        ++button;
    }
}

void CurveEditor::Private::translateViewButtons()
{
    fitButton->setText(CurveEditor::tr(" Fit "));
    fitHButton->setText(CurveEditor::tr(" Fit H "));
    fitVButton->setText(CurveEditor::tr(" Fit V "));
    scaleButton->setText(CurveEditor::tr("Scale"));
    panButton->setText(CurveEditor::tr("Pan"));
}

void CurveEditor::Private::explainTools()
{
    const struct
    {
        QWidget* widget;
        QString name;
        QString tip;
    } tools[] = {
        {fitButton, CurveEditor::tr("Fit View"), CurveEditor::tr("Shows the whole current curve")},
        {fitHButton, CurveEditor::tr("Fit Horizontal View"),
         CurveEditor::tr("Shows all times of the current curve")},
        {fitVButton, CurveEditor::tr("Fit Vertical View"),
         CurveEditor::tr("Shows all values of the current curve")},
        {scaleButton, CurveEditor::tr("Scale selection"),
         CurveEditor::tr("Scales the selected points by two factors")},
        {panButton, CurveEditor::tr("Pan selection"),
         CurveEditor::tr("Moves the selected points by two distances")},
        {funcTimeEdit, CurveEditor::tr("Time or frame at the mouse"),
         CurveEditor::tr("Time or frame number at the mouse")},
        {funcCursorEdit, CurveEditor::tr("Value at the mouse"), CurveEditor::tr("Value at the mouse")},
        {funcValueEdit, CurveEditor::tr("Value of the curve"),
         CurveEditor::tr("Value of the current curve at the time of the mouse")}};
    for (const auto& [widget, name, tip] : tools) {
        widget->setAccessibleName(name);
        widget->setToolTip(tip);
    }
    if (functionEdit)
        functionEdit->setAccessibleName(CurveEditor::tr("Canvas"));
}
