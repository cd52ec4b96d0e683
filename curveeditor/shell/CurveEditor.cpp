// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/PointCommands.h>
#include <curveeditor/canvas/StepKey.h>
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/EditingListPanel.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/panel/PointTablePage.h>
#include <curveeditor/panel/TcbCurveFrame.h>
#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/EditMenu.h>
#include <curveeditor/shell/FitDialog.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/PlainToolBar.h>

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {

constexpr int pointsOfListMenu = 8;

bool isTabStop(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) && widget.isEnabled() && widget.isVisible();
}

bool isComboWithoutFocus(const QObject& object)
{
    const auto* const combo = qobject_cast<const QComboBox*>(&object);
    return combo && !combo->hasFocus();
}

} // namespace

CurveEditor::CurveEditor(QWidget* parent) : CurveEditorDialogBase(parent), d_(std::make_unique<Private>())
{
    preInit();

    auto* const layout = new QHBoxLayout(functionView);
    layout->setContentsMargins(0, 0, 0, 0);
    d_->functionEdit = new FunctionEditor(functionView, this);
    layout->addWidget(d_->functionEdit);
    functionView->setFocusPolicy(Qt::ClickFocus);
    d_->functionEdit->setFocusPolicy(Qt::ClickFocus);
    functionView->setObjectName(QStringLiteral("functionView"));
    d_->functionEdit->setObjectName(QStringLiteral("functionEdit"));
    auto* const menu = new EditMenu(d_->editMenu, *d_->functionEdit); // a child of the menu
    d_->keys = std::make_unique<EditorKeys>(*this, *d_->functionEdit, *menu);
    d_->functionEdit->setAccessibleName(tr("Canvas"));
    d_->pointTable = new PointTablePage(this, d_->functionEdit->canvas, this);
    tabWidget2->addTab(d_->pointTable, d_->pointTable->windowTitle());

    showPanelTheme();

    resize(400, 300);
    connectWidgets();
    connectEditingList();
    connectPointTable();
    setFocusPolicy(Qt::StrongFocus);
    orderTools();
    setShowFrames();
    showTimeBounds();
    showStepTexts();
    setSplineToolsEnabled(false); // until there is a current curve
    enablePointTools();
}

CurveEditor::~CurveEditor()
{
    qDeleteAll(findChildren<FitDialog*>(QString(), Qt::FindDirectChildrenOnly));
    d_->functionEdit->canvas.leaveStack(); // who hears of it finds the dialog whole
    d_->keys.reset();
    // The canvas goes before all else, while all that its signals and its node form reach is still there.
    delete d_->functionEdit;
    delete d_->pointTable; // while the dialog can still tell it the unit of times
    checkListsEditing->disconnect(this);
    d_->nodeOfName.clear();
    for (const auto& record : d_->nodeList)
        record->action = nullptr; // goes with its parent; Qt looks for each among all that are deleted later
    d_->nodeList.clear();
    d_->mainNodeList.clear();
}

// The base has ordered what it has built; the canvas comes before the page that shows its point.
void CurveEditor::orderTools()
{
    setTabOrder(tabWidget2->tabBar(), d_->functionEdit);
    for (PlainToolBar* const bar : {mainMenu, expressionTool}) {
        QWidget* previous = bar == mainMenu ? static_cast<QWidget*>(this) : outgoing;
        const QList<QToolButton*> buttons = bar->findChildren<QToolButton*>();
        for (QToolButton* const button : buttons) {
            setTabOrder(previous, button);
            previous = button->focusPolicy() == Qt::NoFocus ? previous : button;
        }
    }
}

void CurveEditor::connectWidgets()
{
    connect(commandLine, &QLineEdit::returnPressed, this, &CurveEditor::executeCommand);
    connect(deleteCurve, &QPushButton::pressed, this, &CurveEditor::deleteCurveClicked);
    for (QWidget* const searching : std::initializer_list<QWidget*>{
             nodeFirst, nodeLast, nodeTypeCombo, checkListsEditing, listPanel->filterLine()})
        searching->installEventFilter(this);
    connect(nodeFirst, &QComboBox::activated, this, &CurveEditor::changeNodeFirstType);
    connect(nodeLast, &QComboBox::activated, this, &CurveEditor::changeNodeLastType);
    connect(&d_->functionEdit->canvas, &CanvasFunctionBase::changeCommandLine, this,
            &CurveEditor::refreshCommandLine);
    connect(&d_->functionEdit->canvas, &CanvasFunctionBase::edited, this, &CurveEditor::tellEdit);
    connect(&d_->functionEdit->canvas.door().history(), &EditHistory::stackChanged, this,
            &CurveEditor::showStepTexts);
    connect(&d_->functionEdit->timeLineDrag, &TimeLineDrag::dragged, this, [this](double time) {
        const HostCalls::Call call(hostCalls());
        Q_EMIT timeLineDragged(time);
    });
    connect(&hostCalls(), &HostCalls::returned, this, &CurveEditor::deleteIfDue, Qt::QueuedConnection);
    connect(d_->functionEdit, &FunctionEditor::setPosInfo, this, &CurveEditor::setPosInfo);
    connect(d_->functionEdit, &FunctionEditor::setFuncPosInfo, this, &CurveEditor::setFuncPosInfo);
}

void CurveEditor::connectPointTable()
{
    CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    connect(d_->functionEdit, &FunctionEditor::selectionShown, this, &CurveEditor::showPoints);
    connect(&canvas, &CanvasFunctionBase::edited, this, &CurveEditor::showPoints);
    connect(d_->pointTable, &PointTablePage::edited, d_->functionEdit,
            [this](const ControlSplineNode* control) {
                d_->functionEdit->showSelection(false);
                d_->functionEdit->canvas.nodeHasChanged(control);
            });
    connect(d_->pointTable, &PointTablePage::selectionPicked, d_->functionEdit, [this] {
        d_->functionEdit->showSelection(true);
        d_->functionEdit->canvas.paint();
    });
    connect(d_->pointTable, &QWidget::windowTitleChanged, tabWidget2, [this](const QString& title) {
        tabWidget2->setTabText(tabWidget2->indexOf(d_->pointTable), title);
    });
}

void CurveEditor::showPoints()
{
    d_->pointTable->show(d_->functionEdit->canvas.currentSplineControl());
}

void CurveEditor::connectEditingList()
{
    connect(checkListsEditing, &EditingList::setNodeForEdit, this, &CurveEditor::takeDroppedName);
    connect(checkListsEditing, &EditingList::supressFromEditing, this, &CurveEditor::slotRemoveFromEditing);
    connect(checkListsEditing, &QTreeWidget::itemPressed, this, &CurveEditor::pressedEditingItem);
    connect(checkListsEditing, &QTreeWidget::itemSelectionChanged, this,
            [this] { selectionChangedEditingItem(checkListsEditing->selectedItem()); });
    checkListsEditing->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(checkListsEditing, &QWidget::customContextMenuRequested, this, [this](const QPoint& position) {
        rightButtonPressedEditingItem(checkListsEditing->itemAt(position),
                                      checkListsEditing->viewport()->mapToGlobal(position), 0);
    });
    connect(d_->functionEdit, &FunctionEditor::selectionShown, this, &CurveEditor::enablePointTools);
    connect(d_->editingMenu.get(), &ControlMenu2::setRemoveItem, this,
            &CurveEditor::slotMenuEditingNodeRemove);
    connect(d_->editingMenu.get(), &ControlMenu2::setColorChange, this,
            &CurveEditor::slotMenuEditingNodeColor);
    connect(d_->editingMenu.get(), &ControlMenu2::nodeChanged, &d_->functionEdit->canvas,
            &CanvasFunctionBase::currentNodeHasChanged);
}

NodePageWidgets CurveEditor::nodePageWidgets() const
{
    NodePageWidgets widgets;
    widgets.prevNode = prevNode;
    widgets.nextNode = nextNode;
    widgets.node = node;
    widgets.posX = posX;
    widgets.posY = posY;
    widgets.tension = tension;
    widgets.continuity = continuity;
    widgets.bias = bias;
    widgets.incoming = incoming;
    widgets.outgoing = outgoing;
    widgets.easeFrom = easeFrom;
    widgets.easeTo = easeTo;
    widgets.nodeTypeCombo = nodeTypeCombo;
    widgets.nodeTypeWidgetStack = nodeTypeWidgetStack;
    widgets.tcbCurve = tcbCurve;
    return widgets;
}

HostCalls& CurveEditor::hostCalls() const
{
    return d_->functionEdit->canvas.door().history().hostCalls;
}

/// `deleteLater` comes at once where a slot of the host runs a loop; it is done when the slot has returned.
void CurveEditor::deleteIfDue()
{
    if (d_->isDeletionDue && !hostCalls().isAny())
        delete this;
}

bool CurveEditor::event(QEvent* event)
{
    if (event->type() == QEvent::DeferredDelete && hostCalls().isAny()) {
        d_->isDeletionDue = true;
        return true;
    }
    if (event->type() == QEvent::FocusIn)
        passTabOn(static_cast<QFocusEvent*>(event)->reason());
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    const auto* const key = isOverride ? static_cast<QKeyEvent*>(event) : nullptr;
    // A host in whose window the dialog is docked may have the same keys; inside the dialog they act here.
    const bool isOurs = key && (key->key() == Qt::Key_Delete || stepKeyOf(*key) != StepKey::None ||
                                (key->key() == Qt::Key_Escape && meaningOfEscape()));
    if (isOurs)
        event->accept();
    return CurveEditorDialogBase::event(event) || isOurs;
}

/// Tab would be lost on the dialog itself, where nothing shows the focus.
void CurveEditor::passTabOn(Qt::FocusReason reason)
{
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
        focusNextPrevChild(reason == Qt::TabFocusReason);
}

bool CurveEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel && isComboWithoutFocus(*watched)) {
        event->ignore();
        return true;
    }
    auto* const key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    if (!key || stepKeyOf(*key) == StepKey::None)
        return CurveEditorDialogBase::eventFilter(watched, event);
    keyPressEvent(key);
    return true;
}

void CurveEditor::keyPressEvent(QKeyEvent* event)
{
    switch (stepKeyOf(*event)) {
    case StepKey::Undo:
        return undo();
    case StepKey::Redo:
        return redo();
    case StepKey::None:
        break;
    }
    const std::function<void()> escape = event->key() == Qt::Key_Escape ? meaningOfEscape() : nullptr;
    if (escape)
        return escape();
    d_->functionEdit->keyPressEvent(event);
    // The base would press the default button of a box that this very key has opened.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return event->ignore();
    if (event->key() != Qt::Key_Escape)
        CurveEditorDialogBase::keyPressEvent(event);
    else if (isWindow())
        close();
}

/// The smallest thing that is there to take back, to leave or to clear; null if only the dialog itself is left.
std::function<void()> CurveEditor::meaningOfEscape()
{
    CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    const Gesture& gesture = d_->functionEdit->gesture;
    if (gesture.isAtPoints() || gesture.isAtView())
        return [this, &canvas] {
            canvas.cancelGesture();
            d_->functionEdit->showSelection(false);
            canvas.paint();
        };
    const QWidget* const focus = QApplication::focusWidget();
    if (qobject_cast<const QLineEdit*>(focus) && isAncestorOf(focus))
        return [this] {
            d_->functionEdit->setFocus();
        };
    if (!listPanel->filterLine()->text().isEmpty())
        return [this] {
            listPanel->filterLine()->clear();
        };
    if (canvas.hasSelectedPoint())
        return [&canvas] {
            PointCommands(canvas).selectNone();
        };
    return {};
}

void CurveEditor::closeEvent(QCloseEvent* event)
{
    event->accept();
    const HostCalls::Call call(hostCalls());
    Q_EMIT closed();
}

bool CurveEditor::focusNextPrevChild(bool next)
{
    const auto neighbour = [next](const QWidget& widget) {
        return next ? widget.nextInFocusChain() : widget.previousInFocusChain();
    };
    const QWidget* const start = focusWidget() ? focusWidget() : this;
    for (QWidget* widget = neighbour(*start); widget != start && !isTabStop(*widget);
         widget = neighbour(*widget)) {
        if (widget == d_->functionEdit) {
            d_->functionEdit->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return CurveEditorDialogBase::focusNextPrevChild(next);
}

void CurveEditor::updateCurves()
{
    d_->functionEdit->canvas.dropLostPoints();
    d_->functionEdit->showSelection(false);
    paintChangedView();
}

bool CurveEditor::exportSensorData(QTextStream& out) const
{
    return d_->functionEdit->canvas.exportSensorData(out);
}

double CurveEditor::getFps() const
{
    return d_->functionEdit->getFps();
}

bool CurveEditor::isModeFrames() const
{
    return d_->functionEdit->isShowFrames();
}

bool CurveEditor::isModeTime() const
{
    return !isModeFrames();
}

void CurveEditor::setTimeRange(const double& timeMin, const double& timeMax)
{
    setMinTime(timeMin);
    setMaxTime(timeMax);
}

void CurveEditor::setMinTime(const double& val)
{
    if (!std::isfinite(val))
        return;
    d_->functionEdit->setLimitTimeMin(val);
    if (isModeFrames())
        showTimeBounds();
    d_->functionEdit->dirty = true;
}

void CurveEditor::setMaxTime(const double& val)
{
    if (!std::isfinite(val))
        return;
    d_->functionEdit->setLimitTimeMax(val);
    if (isModeFrames())
        showTimeBounds();
    paintChangedView();
}

void CurveEditor::setViewGestures(bool on)
{
    d_->functionEdit->viewGestures.setEnabled(on);
}

void CurveEditor::setTimeLineDraggable(bool on)
{
    d_->functionEdit->timeLineDrag.setEnabled(on);
}

void CurveEditor::setTimeLine(const double& val)
{
    if (!std::isfinite(val))
        return;
    d_->functionEdit->setTimeLine(val);
    d_->functionEdit->canvas.paint();
}

void CurveEditor::setTimeLine(int val)
{
    setTimeLine(timeOfFrame(val));
}

void CurveEditor::setFps(const double& val)
{
    if (!std::isfinite(val))
        return;
    d_->functionEdit->setFps(val);
    showTimeBounds();
    d_->functionEdit->showSelection(false);
    paintChangedView();
}

void CurveEditor::setMinValue(const double& val)
{
    if (!std::isfinite(val))
        return;
    d_->functionEdit->setLimitValueMin(val);
    paintChangedView();
}

void CurveEditor::setMaxValue(const double& val)
{
    if (!std::isfinite(val))
        return;
    d_->functionEdit->setLimitValueMax(val);
    paintChangedView();
}

double CurveEditor::timeOfFrame(double frame) const
{
    return getFps() == 0.0 ? 0.0 : frame / getFps();
}

double CurveEditor::shownTime(double time) const
{
    return isModeFrames() ? time * getFps() : time;
}

void CurveEditor::showTimeBounds()
{
    d_->functionEdit->nodeForm.setTimeBounds(shownTime(d_->functionEdit->timeMin),
                                             shownTime(d_->functionEdit->timeMax));
}

void CurveEditor::paintChangedView()
{
    d_->functionEdit->dirty = true;
    d_->functionEdit->canvas.paint();
}

void CurveEditor::setFont(const QFont& font)
{
    d_->hasOwnFont = true;
    QWidget::setFont(font);
    for (QWidget* const menu :
         {d_->fileMenu, d_->curvesMenu, d_->optionsMenu, d_->editMenu, d_->firstNodeMenu, d_->lastNodeMenu,
          d_->horizontalAxisMenu, d_->unaryMenu, d_->binaryMenu, d_->ternaryMenu, d_->iVarMenu, d_->dVarMenu})
        menu->setFont(font);
    d_->editingMenu->setFont(font);
    for (QWidget* const button :
         {d_->fitButton, d_->fitHButton, d_->fitVButton, d_->scaleButton, d_->panButton})
        button->setFont(font);
    for (QWidget* const readOut : {d_->funcTimeEdit, d_->funcCursorEdit, d_->funcValueEdit})
        readOut->setFont(font);
    for (QWidget* const widget : std::initializer_list<QWidget*>{
             mainMenu, deleteCurve, tabWidget2, checkListsEditing, listPanel->filterLine(), textLabel1,
             textLabel2, textLabel1_2, textLabel1_2_3_2, textLabel1_2_3_2_2, textTension, textContinuity,
             textOutcoming})
        widget->setFont(font);
    fitToFont();
}

void CurveEditor::setTheme(const CurveEditorTheme& theme)
{
    d_->functionEdit->canvas.setTheme(theme);
    showPanelTheme();
}

void CurveEditor::showPanelTheme()
{
    const CurveEditorTheme shown = theme();
    setPaletteColor(functionView, QPalette::Window, shown.canvas);
    showFieldColors();
    commandLine->setColors(shown.formula, shown.formulaText, shown.formulaWarning);
    tcbCurve->setColors(shown.preview, shown.previewCurve, shown.previewMiddle);
    if (d_->hasOwnFont)
        return;
    const QFont font = shown.panelFamily.isEmpty() ? QFont() : QFont(shown.panelFamily);
    for (QWidget* const part :
         std::initializer_list<QWidget*>{mainMenu, listPanel->filterLine(), checkListsEditing, tabWidget2})
        part->setFont(font);
    d_->editingMenu->setFont(shown.panelFamily.isEmpty() ? QFont()
                                                         : QFont(shown.panelFamily, pointsOfListMenu));
    fitToFont();
}

/// A field that is disabled differs from the others also where it is empty.
void CurveEditor::showFieldColors()
{
    const CurveEditorTheme shown = theme();
    const QColor disabledField = palette().color(QPalette::Active, QPalette::Button);
    for (CustomEditLine* const field : findChildren<CustomEditLine*>())
        field->setColors(shown.field, shown.fieldText, disabledField);
    // These are never enabled, and there to be read.
    const QColor readable = palette().color(QPalette::Active, QPalette::ButtonText);
    for (CustomEditLine* const readOut : {d_->funcTimeEdit, d_->funcCursorEdit, d_->funcValueEdit})
        readOut->setColors(shown.field, shown.fieldText, disabledField, readable);
}

/// Gives one of the small dialogs the font of the panel, where the theme has another than these have of themselves.
void CurveEditor::showPanelFont(QDialog& dialog) const
{
    const QString family = theme().panelFamily;
    if (d_->hasOwnFont || family == CurveEditorTheme::described().panelFamily)
        return;
    const QFont font = family.isEmpty() ? QFont() : QFont(family);
    dialog.setFont(font);
    for (QWidget* const part : dialog.findChildren<QWidget*>())
        part->setFont(font);
}

CurveEditorTheme CurveEditor::theme() const
{
    return d_->functionEdit->canvas.theme();
}

void CurveEditor::changeEvent(QEvent* event)
{
    CurveEditorDialogBase::changeEvent(event);
    // The first of them come from constructors.
    if (event->type() != QEvent::PaletteChange || !d_ || !d_->functionEdit)
        return;
    if (theme().followsPalette)
        setTheme(CurveEditorTheme::fromPalette(palette()));
    else
        showFieldColors();
}

void CurveEditor::setCanvasColor(const QColor& color)
{
    d_->functionEdit->canvas.setCanvasColor(color);
}

void CurveEditor::setSelectionColor(const QColor& color)
{
    d_->functionEdit->canvas.setSelectionColor(color);
}

void CurveEditor::setControllerColor(const QColor& color)
{
    d_->functionEdit->canvas.setControllerColor(color);
}

void CurveEditor::setControllerSelectedColor(const QColor& color)
{
    d_->functionEdit->canvas.setControllerSelectedColor(color);
}

void CurveEditor::setControlPointColor(const QColor& color)
{
    d_->functionEdit->canvas.setControlPointColor(color);
}

void CurveEditor::setControlPointSelectedColor(const QColor& color)
{
    d_->functionEdit->canvas.setControlPointSelectedColor(color);
}

void CurveEditor::setFrameFontColor(const QColor& color)
{
    d_->functionEdit->canvas.setFrameFontColor(color);
}

void CurveEditor::setFrameLinesColor(const QColor& color)
{
    d_->functionEdit->canvas.setFrameLinesColor(color);
}

void CurveEditor::setFrameHLineColor(const QColor& color)
{
    d_->functionEdit->canvas.setFrameHLineColor(color);
}

void CurveEditor::setFrameVLineColor(const QColor& color)
{
    d_->functionEdit->canvas.setFrameVLineColor(color);
}

void CurveEditor::setTimeLineColor(const QColor& color)
{
    d_->functionEdit->canvas.setTimeLineColor(color);
}

#include "moc_CurveEditor.cpp"
