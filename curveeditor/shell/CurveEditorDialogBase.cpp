// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorDialogBase.h>

#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/EditingListPanel.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/panel/TcbCurveFrame.h>
#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/PageArea.h>
#include <curveeditor/shell/PlainToolBar.h>

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>

using namespace curveeditor;

namespace {

constexpr QSize initialSize(844, 550);
constexpr QSize canvasAtFirst(550, 300);
constexpr QSize leastCanvas(150, 80);
constexpr int listWidth = 150;
constexpr int menuHeight = 30;
constexpr int fieldHeight = 20;
constexpr int leastFormulaWidth = 150;
constexpr int stepButtonWidth = 20;
constexpr int stepButtonMargin = 6;
constexpr int columnSpace = 11; // as the margins ...
constexpr int narrowMargin = 4; // ... but at the sides of a narrow page

void setLabel(QLabel* label, QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical,
              Qt::CursorShape cursor, Qt::Alignment side)
{
    label->setSizePolicy(horizontal, vertical);
    label->setCursor(cursor);
    label->setAlignment(Qt::AlignVCenter | side);
}

// No width in pixels, which would cut numbers off: the field itself asks for the room of its longest number.
CustomEditLine* numericField(const char* name, QWidget* parent)
{
    auto* field = named<CustomEditLine>(name, parent);
    field->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    field->setMinimumHeight(fieldHeight);
    field->setColors(QColor(128, 128, 128), QColor(0, 0, 0));
    field->setCursor(Qt::PointingHandCursor);
    field->setMouseTracking(true);
    field->setAcceptDrops(true);
    return field;
}

QPushButton* stepButton(const char* name, QWidget* parent)
{
    auto* button = named<QPushButton>(name, parent);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    button->setCursor(Qt::PointingHandCursor);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoRepeat(true);
    button->setAutoDefault(false);
    button->setDefault(false);
    button->setFlat(true);
    return button;
}

/// Lets the wheel scroll the page, unless it has the focus.
class ChoiceCombo : public QComboBox
{
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        return hasFocus() ? QComboBox::wheelEvent(event) : event->ignore();
    }
};

QComboBox* choiceCombo(const char* name, QWidget* parent)
{
    auto* combo = named<ChoiceCombo>(name, parent);
    combo->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    combo->setCursor(Qt::ArrowCursor);
    combo->setFocusPolicy(Qt::StrongFocus); // not by the wheel
    return combo;
}

// At least as wide as its content. An explicit minimum width would let the layout cut the content off.
QFrame* pageFrame(const char* name, QWidget* parent)
{
    auto* frame = named<QFrame>(name, parent);
    frame->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setFrameShadow(QFrame::Raised);
    return frame;
}

void addRow(QGridLayout* grid, QLabel* left, QWidget* right)
{
    left->setBuddy(right);
    const int row = grid->rowCount() - (grid->count() == 0 ? 1 : 0);
    grid->addWidget(left, row, 0, Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(right, row, 1);
    grid->setColumnStretch(1, 1);
}

int widthInARow(const QLayout& parts)
{
    const QMargins margins = parts.contentsMargins() + parts.parentWidget()->contentsMargins();
    int width = margins.left() + margins.right() + (parts.count() - 1) * parts.spacing();
    for (int i = 0; i < parts.count(); ++i)
        width += parts.itemAt(i)->minimumSize().width();
    return width;
}

/// The rows begin where those beside them begin; what is left of the height lies below.
void endRows(QGridLayout* grid)
{
    if (grid->parent()->isWidgetType())
        grid->setContentsMargins(0, 0, 0, 0);
    grid->setRowStretch(grid->rowCount(), 1);
}

} // namespace

CurveEditorDialogBase::CurveEditorDialogBase(QWidget* parent, const QString& name, bool modal,
                                             Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setObjectName(name.isEmpty() ? QStringLiteral("CurveEditorDialogBase") : name);
    setModal(modal);
    CurveEditorDialogBaseLayout = outerLayout<QVBoxLayout>("CurveEditorDialogBaseLayout", this);
    buildMenuAndSplitters();
    buildNodePage();
    buildExpressionPage();
    CurveEditorDialogBaseLayout->addWidget(splitter11);
    orderTabs();
    CurveEditorDialogBase::languageChange();
    resize(initialSize.expandedTo(minimumSizeHint()));
}

void CurveEditorDialogBase::buildMenuAndSplitters()
{
    mainMenu = new PlainToolBar(this, QStringLiteral("mainMenu"));
    mainMenu->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    CurveEditorDialogBaseLayout->addWidget(mainMenu);

    splitter11 = named<QSplitter>("splitter11", this);
    splitter11->setOrientation(Qt::Horizontal);
    listPanel = named<EditingListPanel>("listPanel", splitter11);
    listPanel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    checkListsEditing = listPanel->list();
    checkListsEditing->setObjectName(QStringLiteral("checkListsEditing"));
    checkListsEditing->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);

    splitter10 = named<QSplitter>("splitter10", splitter11);
    splitter10->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    splitter10->setOrientation(Qt::Vertical);
    functionView = named<QFrame>("functionView", splitter10);
    functionView->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    functionView->setMinimumSize(leastCanvas);
    setPaletteColor(functionView, QPalette::Window, QColor(58, 56, 51));
    functionView->setAutoFillBackground(true);
    functionView->setMouseTracking(true);
    functionView->setFocusPolicy(Qt::StrongFocus);
    functionView->setFrameShape(QFrame::StyledPanel);
    functionView->setFrameShadow(QFrame::Sunken);

    tabWidget2 = named<QTabWidget>("tabWidget2", splitter10);
    tabWidget2->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    tabWidget2->setMinimumSize(0, 0);
    tabWidget2->setFocusProxy(nullptr); // Tab would go round between the proxy, its tab bar, and the pages
    tabWidget2->setFocusPolicy(Qt::NoFocus);
    splitter11->setCollapsible(splitter11->indexOf(listPanel), false);
    splitter11->setSizes({listWidth, initialSize.width() - listWidth});
    connect(splitter11, &QSplitter::splitterMoved, this, [this] { hasUsersListWidth = true; });
    connect(splitter10, &QSplitter::splitterMoved, this, [this] { hasUsersPageHeight = true; });
    // The canvas takes all the room that the list and the pages don't need.
    splitter11->setStretchFactor(splitter11->indexOf(splitter10), 1);
    splitter10->setStretchFactor(splitter10->indexOf(functionView), 1);
}

void CurveEditorDialogBase::buildNodePage()
{
    auto* const area = named<PageArea>("tab", tabWidget2);
    tab = area;
    tabLayout = outerLayout<QHBoxLayout>("tabLayout", area->widget());
    buildPositionFrame();
    buildParameterFrame();
    tabLayout->setStretchFactor(frame10, 1);
    tabLayout->setSpacing(columnSpace);
    connect(area, &PageArea::widthChanged, this, &CurveEditorDialogBase::stackFrames);
    tabWidget2->addTab(tab, QString());
}

/// The frames stand side by side, or one below the other where the page is too narrow, and so do their parts where it is
/// too narrow for one of them.
void CurveEditorDialogBase::stackFrames(int pageWidth)
{
    const int first = widthInARow(*frame11Layout), second = widthInARow(*frame10Layout);
    const bool isNarrow = pageWidth < first + second + 3 * columnSpace;
    const bool isVeryNarrow = pageWidth < qMax(first, second) + 2 * narrowMargin;
    const int margin = isNarrow ? narrowMargin : columnSpace;
    tabLayout->setContentsMargins(margin, columnSpace, margin, columnSpace);
    tabLayout->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    for (QBoxLayout* const parts : {frame11Layout, frame10Layout})
        parts->setDirection(isVeryNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    line1->setFrameShape(isVeryNarrow ? QFrame::HLine : QFrame::VLine);
}

void CurveEditorDialogBase::buildPositionFrame()
{
    frame11 = pageFrame("frame11", tabLayout->parentWidget());
    tabLayout->addWidget(frame11);
    frame11Layout = outerLayout<QHBoxLayout>("frame11Layout", frame11);
    layout15 = innerLayout<QVBoxLayout>("layout15", frame11Layout);
    layout13 = innerLayout<QHBoxLayout>("layout13", layout15);
    prevNode = stepButton("prevNode", frame11);
    nextNode = stepButton("nextNode", frame11);
    node = numericField("node", frame11);
    layout13->addWidget(node);

    layout14 = innerLayout<QGridLayout>("layout14", layout15);
    posX = numericField("posX", frame11);
    textLabel1 = named<QLabel>("textLabel1", frame11);
    posY = numericField("posY", frame11);
    textLabel2 = named<QLabel>("textLabel2", frame11);
    for (QLabel* label : {textLabel1, textLabel2})
        setLabel(label, QSizePolicy::Fixed, QSizePolicy::Fixed, Qt::PointingHandCursor, Qt::AlignRight);
    addRow(layout14, textLabel1, posX);
    addRow(layout14, textLabel2, posY);
    layout15->addStretch();

    line1 = named<QFrame>("line1", frame11);
    line1->setFrameShape(QFrame::VLine);
    line1->setFrameShadow(QFrame::Sunken);
    frame11Layout->addWidget(line1);
    buildBehaviours();
    frame11Layout->setSpacing(columnSpace);
    for (int part : {0, 2})
        frame11Layout->setStretch(part, 1);
}

void CurveEditorDialogBase::buildBehaviours()
{
    layout24 = innerLayout<QVBoxLayout>("layout24", frame11Layout);
    textLabel1_2 = named<QLabel>("textLabel1_2", frame11);
    nodeFirst = choiceCombo("nodeFirst", frame11);
    textLabel1_2_2 = named<QLabel>("textLabel1_2_2", frame11);
    nodeLast = choiceCombo("nodeLast", frame11);
    for (QLabel* label : {textLabel1_2, textLabel1_2_2})
        setLabel(label, QSizePolicy::Preferred, QSizePolicy::Fixed, Qt::ArrowCursor, Qt::AlignLeft);
    textLabel1_2->setBuddy(nodeFirst);
    textLabel1_2_2->setBuddy(nodeLast);
    for (QWidget* widget : std::initializer_list<QWidget*>{textLabel1_2, nodeFirst, textLabel1_2_2, nodeLast})
        layout24->addWidget(widget);
    layout24->addStretch();
}

void CurveEditorDialogBase::buildParameterFrame()
{
    frame10 = pageFrame("frame10", tabLayout->parentWidget());
    tabLayout->addWidget(frame10);
    frame10Layout = outerLayout<QHBoxLayout>("frame10Layout", frame10);
    layout21 = innerLayout<QGridLayout>("layout21", frame10Layout);
    textLabel1_2_3_2_2 = named<QLabel>("textLabel1_2_3_2_2", frame10);
    textLabel1_2_3_2 = named<QLabel>("textLabel1_2_3_2", frame10);
    for (QLabel* label : {textLabel1_2_3_2_2, textLabel1_2_3_2})
        setLabel(label, QSizePolicy::Preferred, QSizePolicy::Fixed, Qt::ArrowCursor, Qt::AlignRight);
    easeFrom = numericField("easeFrom", frame10);
    easeTo = numericField("easeTo", frame10);
    nodeTypeCombo = choiceCombo("nodeTypeCombo", frame10);
    nodeTypeCombo->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    layout21->addWidget(nodeTypeCombo, 0, 0, 1, 2);
    addRow(layout21, textLabel1_2_3_2, easeTo);
    addRow(layout21, textLabel1_2_3_2_2, easeFrom);
    endRows(layout21);

    nodeTypeWidgetStack = named<QStackedWidget>("nodeTypeWidgetStack", frame10);
    frame10Layout->addWidget(nodeTypeWidgetStack);
    buildTcbPage();
    buildTangentPage();
    tcbCurve = named<TcbCurveFrame>("tcbCurve", frame10);
    tcbCurve->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    frame10Layout->addWidget(tcbCurve);
    frame10Layout->setStretchFactor(tcbCurve, 1);
    frame10Layout->setSpacing(columnSpace);
}

void CurveEditorDialogBase::buildTcbPage()
{
    tcbPage = named<QWidget>("tcbPage", nodeTypeWidgetStack);
    tcbPageLayout = outerLayout<QGridLayout>("tcbPageLayout", tcbPage);
    textTension = named<QLabel>("textTension", tcbPage);
    tension = numericField("tension", tcbPage);
    textContinuity = named<QLabel>("textContinuity", tcbPage);
    continuity = numericField("continuity", tcbPage);
    textBias = named<QLabel>("textBias", tcbPage);
    bias = numericField("bias", tcbPage);
    for (QLabel* label : {textTension, textContinuity})
        setLabel(label, QSizePolicy::Fixed, QSizePolicy::Fixed, Qt::ArrowCursor, Qt::AlignRight);
    setLabel(textBias, QSizePolicy::Fixed, QSizePolicy::Fixed, Qt::PointingHandCursor, Qt::AlignRight);
    addRow(tcbPageLayout, textTension, tension);
    addRow(tcbPageLayout, textContinuity, continuity);
    addRow(tcbPageLayout, textBias, bias);
    endRows(tcbPageLayout);
    nodeTypeWidgetStack->insertWidget(0, tcbPage);
}

void CurveEditorDialogBase::buildTangentPage()
{
    ioPage = named<QWidget>("ioPage", nodeTypeWidgetStack);
    ioPageLayout = outerLayout<QGridLayout>("ioPageLayout", ioPage);
    outgoing = numericField("outgoing", ioPage);
    incoming = numericField("incoming", ioPage);
    textIncoming = named<QLabel>("textIncoming", ioPage);
    textOutcoming = named<QLabel>("textOutcoming", ioPage);
    setLabel(textIncoming, QSizePolicy::Preferred, QSizePolicy::Preferred, Qt::PointingHandCursor,
             Qt::AlignRight);
    setLabel(textOutcoming, QSizePolicy::Preferred, QSizePolicy::Preferred, Qt::ArrowCursor, Qt::AlignRight);
    addRow(ioPageLayout, textIncoming, incoming);
    addRow(ioPageLayout, textOutcoming, outgoing);
    endRows(ioPageLayout);
    nodeTypeWidgetStack->insertWidget(1, ioPage);
}

void CurveEditorDialogBase::buildExpressionPage()
{
    auto* const area = named<PageArea>("tab_2", tabWidget2);
    tab_2 = area;
    tabLayout_2 = outerLayout<QVBoxLayout>("tabLayout_2", area->widget());
    expressionTool = new PlainToolBar(area->widget(), QStringLiteral("expressionTool"));
    expressionTool->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    tabLayout_2->addWidget(expressionTool);

    layout4 = innerLayout<QHBoxLayout>("layout4", tabLayout_2);
    commandLine = named<ExpressionEditLine>("commandLine", area->widget());
    commandLine->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    commandLine->setMinimumSize(leastFormulaWidth, fieldHeight);
    setPaletteColor(commandLine, QPalette::Text, QColor(255, 255, 255));
    commandLine->setCursor(Qt::ArrowCursor);
    commandLine->setMouseTracking(true);
    commandLine->setFocusPolicy(Qt::StrongFocus);
    commandLine->setAcceptDrops(true);
    layout4->addWidget(commandLine, 1);

    deleteCurve = named<QPushButton>("deleteCurve", area->widget());
    deleteCurve->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    deleteCurve->setMinimumSize(80, fieldHeight);
    deleteCurve->setFocusPolicy(Qt::NoFocus);
    deleteCurve->setAutoDefault(false);
    layout4->addWidget(deleteCurve);
    layout4->addStretch();
    tabLayout_2->addStretch();
    connect(area, &PageArea::widthChanged, this, &CurveEditorDialogBase::keepFormulaInSight);
    tabWidget2->addTab(tab_2, QString());
}

/// Where the tool bar is wider than the page, the line and the button behind it are not.
void CurveEditorDialogBase::keepFormulaInSight(int pageWidth)
{
    const QMargins margins = tabLayout_2->contentsMargins();
    const int rest =
        margins.left() + layout4->spacing() + layout4->itemAt(1)->sizeHint().width() + margins.right();
    commandLine->setMaximumWidth(qMax(leastFormulaWidth, pageWidth - rest));
}

// As the widgets stand in the dialog and on the page, in reading order.
void CurveEditorDialogBase::orderTabs()
{
    QWidget* previous = listPanel->filterLine();
    for (QWidget* widget : std::initializer_list<QWidget*>{
             listPanel->openButton(), checkListsEditing, tabWidget2->tabBar(), node, posX, posY, nodeFirst,
             nodeLast, nodeTypeCombo, easeTo, easeFrom, tension, continuity, bias, incoming, outgoing,
             commandLine}) {
        setTabOrder(previous, widget);
        previous = widget;
    }
}

void CurveEditorDialogBase::setLeastSize(const QSize& size)
{
    const QMargins margins = CurveEditorDialogBaseLayout->contentsMargins();
    const int menu = mainMenu->isHidden()
                         ? 0
                         : mainMenu->minimumSizeHint().height() + CurveEditorDialogBaseLayout->spacing();
    splitter11->setMinimumSize(
        (size.shrunkBy(margins) - QSize(0, menu)).expandedTo(splitter11->minimumSizeHint()));
}

void CurveEditorDialogBase::fitListTo(const QTreeWidgetItem* row)
{
    widthOfNames_ = qMax(widthOfNames_, checkListsEditing->widthFor(row));
    if (isVisible())
        fitList();
}

void CurveEditorDialogBase::fitList()
{
    const QList<int> sizes = splitter11->sizes();
    const int room = sizes.front() + sizes.back();
    const int wanted = qMin(widthOfNames_, room / 3);
    if (!hasUsersListWidth && !listPanel->isHidden() && wanted > 0)
        splitter11->setSizes({wanted, room - wanted}); // or as narrow as the list can be
}

/// The pages are whole, up to half of the height; the canvas has the rest.
void CurveEditorDialogBase::fitPages()
{
    if (hasUsersPageHeight || tabWidget2->isHidden())
        return;
    const QList<int> sizes = splitter10->sizes();
    const int room = sizes.front() + sizes.back();
    const auto& nodePage = static_cast<const PageArea&>(*tab);
    const int frame = tabWidget2->height() - tabWidget2->currentWidget()->height();
    const int wanted = qMin(frame + nodePage.wholeHeight(), room / 2);
    if (wanted > 0)
        splitter10->setSizes({room - wanted, wanted});
}

void CurveEditorDialogBase::fitAll()
{
    fitList();
    fitPages();
}

void CurveEditorDialogBase::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    QTimer::singleShot(0, this, &CurveEditorDialogBase::fitAll); // when all parts have their room
}

void CurveEditorDialogBase::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    QTimer::singleShot(0, this, &CurveEditorDialogBase::fitAll);
}

void CurveEditorDialogBase::setCrowded(bool isCrowded)
{
    functionView->setMinimumSize(isCrowded ? leastCanvas : canvasAtFirst);
    stackFrames(isCrowded ? static_cast<const PageArea*>(tab)->viewport()->width() : QWIDGETSIZE_MAX);
    for (PageArea* const page : findChildren<PageArea*>())
        page->setScrolls(isCrowded);
}

void CurveEditorDialogBase::fitToFont()
{
    checkListsEditing->setMinimumWidth(listWidth);
    mainMenu->setMaximumHeight(qMax(menuHeight, mainMenu->sizeHint().height()));
    widthOfNames_ = 0;
    for (int row = 0; row < checkListsEditing->topLevelItemCount(); ++row)
        widthOfNames_ =
            qMax(widthOfNames_, checkListsEditing->widthFor(checkListsEditing->topLevelItem(row)));
    QTimer::singleShot(0, this, &CurveEditorDialogBase::fitAll);
    alignRows();
    fitStepButtons();
}

/// Both together are as wide as the labels below them, so that the fields beside them are in line.
void CurveEditorDialogBase::fitStepButtons()
{
    const int spaces = 2 * layout13->spacing() - layout14->horizontalSpacing();
    int width = qMax(textLabel1->sizeHint().width(), textLabel2->sizeHint().width());
    for (const QPushButton* const button : {prevNode, nextNode}) {
        const int textWidth = button->fontMetrics().horizontalAdvance(button->text());
        width = qMax(width, 2 * qMax(stepButtonWidth, textWidth + stepButtonMargin) + spaces);
    }
    prevNode->setFixedWidth((width - spaces) / 2);
    nextNode->setFixedWidth(width - spaces - prevNode->width());
    layout14->setColumnMinimumWidth(0, width);
}

/// All rows of a page are as high as the highest of their widgets, so that the baselines meet.
void CurveEditorDialogBase::alignRows()
{
    const std::initializer_list<QWidget*> boxes = {nodeFirst, nodeLast, nodeTypeCombo};
    int height = qMax(fieldHeight, posX->sizeHint().height());
    for (QWidget* const box : boxes)
        height = qMax(height, box->sizeHint().height());
    for (QWidget* const widget :
         std::initializer_list<QWidget*>{prevNode, nextNode, textLabel1_2, textLabel1_2_2})
        widget->setFixedHeight(height);
    for (QWidget* const box : boxes)
        box->setFixedHeight(height);
    commandLine->setFixedHeight(qMax(commandLine->sizeHint().height(), deleteCurve->sizeHint().height()));
    for (QGridLayout* const grid : {layout14, layout21, tcbPageLayout, ioPageLayout})
        for (int row = 0; row < grid->rowCount() && grid->itemAtPosition(row, 0); ++row)
            grid->setRowMinimumHeight(row, height);
}

void CurveEditorDialogBase::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        languageChange();
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitToFont();
    if (event->type() == QEvent::LayoutDirectionChange)
        showStepButtons();
}

#include "moc_CurveEditorDialogBase.cpp"
