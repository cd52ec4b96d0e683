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
#include <curveeditor/shell/EditMenu.h>
#include <curveeditor/shell/FitDialog.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/PlainToolBar.h>

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace curveeditor;

namespace {

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

CurveEditor::CurveEditor(QWidget* parent)
    : CurveEditorDialogBase(parent), d_(std::make_unique<Private>(*this))
{
    d_->preInit();

    auto* const layout = new QHBoxLayout(functionView);
    layout->setContentsMargins(0, 0, 0, 0);
    d_->functionEdit = new FunctionEditor(functionView, d_.get(), d_->nodePageWidgets());
    layout->addWidget(d_->functionEdit);
    functionView->setFocusPolicy(Qt::ClickFocus);
    d_->functionEdit->setFocusPolicy(Qt::ClickFocus);
    functionView->setObjectName(QStringLiteral("functionView"));
    d_->functionEdit->setObjectName(QStringLiteral("functionEdit"));
    auto* const menu = new EditMenu(d_->editMenu, *d_->functionEdit); // a child of the menu
    d_->keys = std::make_unique<EditorKeys>(*this, *d_->functionEdit, *menu);
    d_->functionEdit->setAccessibleName(tr("Canvas"));
    d_->pointTable = new PointTablePage(d_->functionEdit->canvas, this);
    d_->pages = {{EditorPart::EnvelopePage, tab},
                 {EditorPart::ExpressionPage, tab_2},
                 {EditorPart::PointsPage, d_->pointTable}};

    d_->showPanelTheme();

    d_->showParts();
    resize(Private::sizeBeforeFirstShow);
    d_->connectWidgets();
    d_->connectEditingList();
    d_->connectPointTable();
    setFocusPolicy(Qt::StrongFocus);
    d_->orderTools();
    setShowFrames();
    d_->toldView = d_->shownRange();
    d_->showTimeBounds();
    d_->showStepTexts();
    d_->setSplineToolsEnabled(false); // until there is a current curve
    d_->enablePointTools();
    for (const QMenu* const actions : {d_->fileMenu, d_->optionsMenu, d_->editMenu})
        d_->nameActions(*actions);
    d_->nameActions(*d_->editingMenu);
}

CurveEditor::~CurveEditor()
{
    qDeleteAll(findChildren<FitDialog*>(QString(), Qt::FindDirectChildrenOnly));
    d_->functionEdit->canvas.leaveStack(); // who hears of it finds the dialog whole
    d_->keys.reset();
    // The canvas goes before all else, while all that its signals and its node form reach is still there.
    delete std::exchange(d_->pointTable, nullptr); // it asks the canvas for the unit of times
    delete d_->functionEdit;
    checkListsEditing->disconnect(this);
    d_->nodeOfName.clear();
    for (const auto& record : d_->nodeList)
        record->action = nullptr; // goes with its parent; Qt looks for each among all that are deleted later
    d_->nodeList.clear();
    d_->mainNodeList.clear();
}

// The base has ordered what it has built; the canvas comes before the page that shows its point.
void CurveEditor::Private::orderTools()
{
    editor.setTabOrder(editor.tabWidget2->tabBar(), functionEdit);
    for (PlainToolBar* const bar : {editor.mainMenu, editor.expressionTool}) {
        QWidget* previous = bar == editor.mainMenu ? static_cast<QWidget*>(&editor) : editor.outgoing;
        const QList<QToolButton*> buttons = bar->findChildren<QToolButton*>();
        for (QToolButton* const button : buttons) {
            editor.setTabOrder(previous, button);
            previous = button->focusPolicy() == Qt::NoFocus ? previous : button;
        }
    }
}

void CurveEditor::Private::connectWidgets()
{
    QObject::connect(editor.commandLine, &QLineEdit::returnPressed, &editor, &CurveEditor::executeCommand);
    QObject::connect(editor.deleteCurve, &QPushButton::pressed, &editor, &CurveEditor::deleteCurveClicked);
    for (QWidget* const searching :
         std::initializer_list<QWidget*>{editor.nodeFirst, editor.nodeLast, editor.nodeTypeCombo,
                                         editor.checkListsEditing, editor.listPanel->filterLine()})
        searching->installEventFilter(&editor);
    QObject::connect(editor.nodeFirst, &QComboBox::activated, &editor, &CurveEditor::changeNodeFirstType);
    QObject::connect(editor.nodeLast, &QComboBox::activated, &editor, &CurveEditor::changeNodeLastType);
    QObject::connect(&functionEdit->canvas, &CanvasFunctionBase::changeCommandLine, &editor,
                     &CurveEditor::refreshCommandLine);
    const EditHistory& history = functionEdit->canvas.door().history();
    QObject::connect(&history, &EditHistory::reported, &editor,
                     [this](const EditReport& report) { tellEdit(report); });
    QObject::connect(&history, &EditHistory::stackChanged, &editor, [this] { showStepTexts(); });
    QObject::connect(&functionEdit->timeLineDrag, &TimeLineDrag::dragged, &editor, [this](double time) {
        const HostCalls::Call call(hostCalls());
        Q_EMIT editor.timeLineDragged(time);
    });
    QObject::connect(&functionEdit->canvas, &CanvasFunctionBase::frameAsked, &editor, [this] { tellSeen(); });
    QObject::connect(
        &hostCalls(), &HostCalls::returned, &editor, [this] { deleteIfDue(); }, Qt::QueuedConnection);
    QObject::connect(functionEdit, &FunctionEditor::setPosInfo, &editor, &CurveEditor::setPosInfo);
    QObject::connect(functionEdit, &FunctionEditor::setFuncPosInfo, &editor, &CurveEditor::setFuncPosInfo);
}

void CurveEditor::Private::connectPointTable()
{
    CanvasFunctionBase& canvas = functionEdit->canvas;
    QObject::connect(functionEdit, &FunctionEditor::selectionShown, &editor, [this] { showPoints(); });
    QObject::connect(&canvas.door().history(), &EditHistory::reported, &editor,
                     [this](const EditReport& report) {
                         showPoints();
                         if (report.cause != EditReport::Cause::Edit)
                             tellSeen();
                     });
    QObject::connect(pointTable, &PointTablePage::edited, functionEdit,
                     [this](const ControlSplineNode* control) {
                         functionEdit->showSelection(false);
                         functionEdit->canvas.nodeHasChanged(control);
                     });
    QObject::connect(pointTable, &PointTablePage::selectionPicked, functionEdit,
                     [this] { functionEdit->showSelection(true); });
    // The view of the table is still at it, and would not bear that a host takes the curve away.
    QObject::connect(
        pointTable, &PointTablePage::selectionPicked, functionEdit, [this] { functionEdit->canvas.paint(); },
        Qt::QueuedConnection);
    QObject::connect(pointTable, &QWidget::windowTitleChanged, editor.tabWidget2,
                     [this](const QString& title) {
                         editor.tabWidget2->setTabText(editor.tabWidget2->indexOf(pointTable), title);
                     });
}

void CurveEditor::Private::showPoints()
{
    if (pointTable)
        pointTable->show(functionEdit->canvas.currentSplineControl());
}

void CurveEditor::Private::connectEditingList()
{
    QObject::connect(editor.checkListsEditing, &EditingList::setNodeForEdit, &editor,
                     [this](const QString& name) { takeDroppedName(name); });
    QObject::connect(editor.listPanel, &EditingListPanel::curvesWanted, &editor, [this] {
        const bool hasList = editor.checkListsEditing->isVisible();
        editor.listPanel->offer(closedCurves(),
                                hasList ? static_cast<QWidget&>(*editor.checkListsEditing) : *functionEdit);
    });
    QObject::connect(editor.listPanel, &EditingListPanel::curvesChosen, &editor,
                     [this](const QStringList& names) { openCurves(names); });
    QObject::connect(editor.checkListsEditing, &EditingList::supressFromEditing, &editor,
                     &CurveEditor::slotRemoveFromEditing);
    QObject::connect(editor.checkListsEditing, &QTreeWidget::itemPressed, &editor,
                     &CurveEditor::pressedEditingItem);
    QObject::connect(editor.checkListsEditing, &QTreeWidget::itemSelectionChanged, &editor, [this] {
        editor.selectionChangedEditingItem(editor.checkListsEditing->selectedItem());
    });
    editor.checkListsEditing->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(editor.checkListsEditing, &QWidget::customContextMenuRequested, &editor,
                     [this](const QPoint& position) {
                         editor.rightButtonPressedEditingItem(
                             editor.checkListsEditing->itemAt(position),
                             editor.checkListsEditing->viewport()->mapToGlobal(position), 0);
                     });
    QObject::connect(functionEdit, &FunctionEditor::selectionShown, &editor, [this] { enablePointTools(); });
    QObject::connect(editor.checkListsEditing, &EditingList::markClicked, &editor,
                     [this](const QTreeWidgetItem* row, CurveMark mark) { toggleMark(row, mark); });
    QObject::connect(&functionEdit->canvas, &CanvasFunctionBase::marksChanged, &editor, [this] {
        for (const auto& record : nodeList)
            showMarks(*record);
    });
    for (const char* const name : {"lockCurveAction", "hideCurveAction", "soloCurveAction"})
        editingMenu->addAction(editMenu->findChild<QAction*>(QLatin1String(name)));
    editingMenu->addAction(editor.listPanel->openAction());
    QObject::connect(editingMenu.get(), &ControlMenu2::aboutToAct, &editor,
                     [this] { editingMenu->setMenuItem(editor.checkListsEditing->selectedItem()); });
    QObject::connect(editingMenu.get(), &ControlMenu2::setRemoveItem, &editor,
                     &CurveEditor::slotMenuEditingNodeRemove);
    QObject::connect(editingMenu.get(), &ControlMenu2::setColorChange, &editor,
                     &CurveEditor::slotMenuEditingNodeColor);
    QObject::connect(editingMenu.get(), &ControlMenu2::nodeChanged, &functionEdit->canvas,
                     &CanvasFunctionBase::currentNodeHasChanged);
}

/// The widgets of the node page, all of which must exist.
NodePageWidgets CurveEditor::Private::nodePageWidgets() const
{
    NodePageWidgets widgets;
    widgets.prevNode = editor.prevNode;
    widgets.nextNode = editor.nextNode;
    widgets.node = editor.node;
    widgets.posX = editor.posX;
    widgets.posY = editor.posY;
    widgets.tension = editor.tension;
    widgets.continuity = editor.continuity;
    widgets.bias = editor.bias;
    widgets.incoming = editor.incoming;
    widgets.outgoing = editor.outgoing;
    widgets.easeFrom = editor.easeFrom;
    widgets.easeTo = editor.easeTo;
    widgets.nodeTypeCombo = editor.nodeTypeCombo;
    widgets.nodeTypeWidgetStack = editor.nodeTypeWidgetStack;
    widgets.tcbCurve = editor.tcbCurve;
    return widgets;
}

HostCalls& CurveEditor::Private::hostCalls() const
{
    return functionEdit->canvas.door().history().hostCalls;
}

/// `deleteLater` comes at once where a slot of the host runs a loop; it is done when the slot has returned.
void CurveEditor::Private::deleteIfDue()
{
    if (isDeletionDue && !hostCalls().isAny())
        delete &editor;
}

bool CurveEditor::event(QEvent* event)
{
    if (event->type() == QEvent::DeferredDelete && d_->hostCalls().isAny()) {
        d_->isDeletionDue = true;
        return true;
    }
    if (event->type() == QEvent::FocusIn)
        d_->passTabOn(static_cast<QFocusEvent*>(event)->reason());
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    const auto* const key = isOverride ? static_cast<QKeyEvent*>(event) : nullptr;
    // A host in whose window the dialog is docked may have the same keys; inside the dialog they act here.
    const bool isOurs = key && (isDeleteKey(*key) || stepKeyOf(*key) != StepKey::None ||
                                (key->key() == Qt::Key_Escape && d_->meaningOfEscape()));
    if (isOurs)
        event->accept();
    return CurveEditorDialogBase::event(event) || isOurs;
}

/// Tab would be lost on the dialog itself, where nothing shows the focus.
void CurveEditor::Private::passTabOn(Qt::FocusReason reason)
{
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
        editor.focusNextPrevChild(reason == Qt::TabFocusReason);
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
    const std::function<void()> escape = event->key() == Qt::Key_Escape ? d_->meaningOfEscape() : nullptr;
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
std::function<void()> CurveEditor::Private::meaningOfEscape()
{
    CanvasFunctionBase& canvas = functionEdit->canvas;
    const Gesture& gesture = functionEdit->gesture;
    if (gesture.holdsEdit() || gesture.isAtView() || gesture.kind() == Gesture::Kind::TimeLine)
        return [this] {
            QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QCoreApplication::sendEvent(functionEdit, &escape);
        };
    const QWidget* const focus = QApplication::focusWidget();
    if (qobject_cast<const QLineEdit*>(focus) && editor.isAncestorOf(focus))
        return [this] {
            functionEdit->setFocus();
        };
    if (editor.listPanel->isVisible() && !editor.listPanel->filterLine()->text().isEmpty())
        return [this] {
            editor.listPanel->filterLine()->clear();
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
    const HostCalls::Call call(d_->hostCalls());
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
    d_->paintChangedView();
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
    if (!std::isfinite(timeMin) || !std::isfinite(timeMax))
        return;
    d_->setMinTime(timeMin);
    d_->setMaxTime(timeMax);
}

void CurveEditor::Private::setMinTime(const double& val)
{
    if (!std::isfinite(val))
        return;
    functionEdit->setLimitTimeMin(val);
    if (editor.isModeFrames())
        showTimeBounds();
    functionEdit->dirty = true;
}

void CurveEditor::Private::setMaxTime(const double& val)
{
    if (!std::isfinite(val))
        return;
    functionEdit->setLimitTimeMax(val);
    if (editor.isModeFrames())
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
    setTimeLine(d_->timeOfFrame(val));
}

void CurveEditor::setFps(const double& val)
{
    if (!std::isfinite(val))
        return;
    d_->functionEdit->setFps(val);
    d_->showTimeBounds();
    d_->functionEdit->showSelection(false);
    d_->paintChangedView();
}

void CurveEditor::setMinValue(const double& val)
{
    if (!std::isfinite(val))
        return;
    d_->functionEdit->setLimitValueMin(val);
    d_->paintChangedView();
}

void CurveEditor::setMaxValue(const double& val)
{
    if (!std::isfinite(val))
        return;
    d_->functionEdit->setLimitValueMax(val);
    d_->paintChangedView();
}

double CurveEditor::Private::timeOfFrame(double frame) const
{
    return editor.getFps() == 0.0 ? 0.0 : frame / editor.getFps();
}

void CurveEditor::Private::showTimeBounds()
{
    functionEdit->nodeForm.setTimeBounds(functionEdit->shownTime(functionEdit->timeMin),
                                         functionEdit->shownTime(functionEdit->timeMax));
}

void CurveEditor::Private::paintChangedView()
{
    functionEdit->dirty = true;
    functionEdit->canvas.paint();
}

#include "moc_CurveEditor.cpp"
