// SPDX-License-Identifier: MIT
// What the dialog says: its texts, tips and names for assistive tools.
#include <curveeditor/shell/CurveEditorDialogBase.h>

#include <curveeditor/edit/PointTypeTexts.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/panel/TcbCurveFrame.h>
#include <curveeditor/shell/DialogParts.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

#include <utility>

using namespace curveeditor;

namespace {

constexpr QChar leftToRightMark(0x200E);

void setHelp(QWidget* widget, const QString& help)
{
    widget->setToolTip(help);
    widget->setWhatsThis(help);
}

void setItems(QComboBox* combo, const QStringList& items)
{
    const int index = combo->currentIndex();
    combo->clear();
    combo->addItems(items);
    combo->setCurrentIndex(index < 0 ? 0 : index);
    fitToItems(combo);
}

} // namespace

void CurveEditorDialogBase::languageChange()
{
    setWindowTitle(tr("Curve Editor"));
    checkListsEditing->setToolTip(tr("Selected variables"));
    checkListsEditing->setWhatsThis(tr("Here you can select the variables to be edited as curves"));
    showStepButtons();
    setHelp(prevNode, tr("Select previous node"));
    setHelp(nextNode, tr("Select next node"));
    explainFields();
    textLabel1->setText(tr("Time:"));
    textLabel2->setText(tr("Value:"));
    textLabel1_2->setText(tr("Pre-behaviour:"));
    setItems(nodeFirst, {tr("Zero"), tr("Constant")});
    textLabel1_2_2->setText(tr("Post-behaviour:"));
    setItems(nodeLast, {tr("Zero"), tr("Constant"), tr("Loop"), tr("Loop offset"), tr("Follow Tangent")});
    textLabel1_2_3_2_2->setText(tr("Ease From:"));
    textLabel1_2_3_2->setText(tr("Ease To:"));
    setItems(nodeTypeCombo, PointTypeTexts::nodes());
    textTension->setText(tr("Tension:"));
    textContinuity->setText(tr("Continuity:"));
    textBias->setText(tr("Bias:"));
    textIncoming->setText(tr("Incoming:"));
    textOutcoming->setText(tr("Outgoing:"));
    tab->setWindowTitle(tr("Envelope"));
    commandLine->setPlaceholderText(tr("Formula of t, then Return"));
    commandLine->setToolTip(tr("Here appears the expression"));
    commandLine->setWhatsThis(tr("This's the expression parsed"));
    deleteCurve->setText(tr("Delete Expression"));
    tab_2->setWindowTitle(tr("Expresion"));
    for (int page = 0; page < tabWidget2->count(); ++page)
        tabWidget2->setTabText(page, tabWidget2->widget(page)->windowTitle());
    nameForAssistiveTools();
    fitToFont();
}

/// Time runs to the right in every language, so the button that goes there stands at the right, and points there, where Qt
/// would mirror both.
void CurveEditorDialogBase::showStepButtons()
{
    const QString mark = QGuiApplication::isRightToLeft() ? QString(leftToRightMark) : QString();
    prevNode->setText(mark + tr("<<") + mark);
    nextNode->setText(mark + tr(">>") + mark);
    layout13->insertWidget(0, isRightToLeft() ? nextNode : prevNode);
    layout13->insertWidget(1, isRightToLeft() ? prevNode : nextNode);
}

// The tool tip says what a number does, beside the words that all fields have in common.
void CurveEditorDialogBase::explainFields()
{
    const std::pair<QWidget*, QString> tips[] = {
        {node, tr("Current node: its place among the nodes of the curve, counted from 0")},
        {posX, tr("Current node: its time, or its frame number")},
        {posY, tr("Current node: its value")},
        {easeTo, tr("Current node: how the curve arrives, from 1 (it slows down) to -1 (it speeds up)")},
        {easeFrom,
         tr("Current node: how the curve leaves, from 1 (slowly at first) to -1 (quickly at first)")},
        {tension,
         tr("Current node: how tightly the curve turns, from a narrow bend at 1 to a wide one at -1")},
        {continuity, tr("Current node: how sharp a corner the curve makes, 0 for none")},
        {bias,
         tr("Current node: whether its direction follows the node before (above 0) or after (below 0)")},
        {incoming, tr("Current node: slope of the curve before it, in values per time unit")},
        {outgoing, tr("Current node: slope of the curve after it, in values per time unit")}};
    for (const auto& [field, tip] : tips) {
        field->setToolTip(tip);
        field->setWhatsThis(tr("Current node"));
    }
    setHelp(nodeFirst, tr("Curve before the first node"));
    setHelp(nodeLast, tr("Curve after the last node"));
    setHelp(nodeTypeCombo,
            tr("Type of the current node: it shapes the curve from the node before to this one"));
    deleteCurve->setToolTip(tr("Turns the current curve back into nodes that can be edited"));
    tcbCurve->setToolTip(tr("What the numbers of the current node do to a curve"));
}

void CurveEditorDialogBase::nameForAssistiveTools()
{
    tabWidget2->setAccessibleName(tr("Pages"));
    tabWidget2->tabBar()->setAccessibleName(tr("Pages"));
    checkListsEditing->setAccessibleName(tr("Curves on the canvas"));
    prevNode->setAccessibleName(tr("Previous node"));
    nextNode->setAccessibleName(tr("Next node"));
    node->setAccessibleName(tr("Node index"));
    posX->setAccessibleName(tr("Time or frame"));
    posY->setAccessibleName(tr("Value"));
    nodeFirst->setAccessibleName(tr("Pre-behaviour"));
    nodeLast->setAccessibleName(tr("Post-behaviour"));
    easeFrom->setAccessibleName(tr("Ease from"));
    easeTo->setAccessibleName(tr("Ease to"));
    nodeTypeCombo->setAccessibleName(tr("Node type"));
    for (QComboBox* const combo : {nodeFirst, nodeLast, nodeTypeCombo})
        combo->view()->setAccessibleName(combo->accessibleName());
    tension->setAccessibleName(tr("Tension"));
    continuity->setAccessibleName(tr("Continuity"));
    bias->setAccessibleName(tr("Bias"));
    outgoing->setAccessibleName(tr("Outgoing tangent"));
    incoming->setAccessibleName(tr("Incoming tangent"));
    tcbCurve->setAccessibleName(tr("Preview of the node parameters"));
    commandLine->setAccessibleName(tr("Expression"));
}
