// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/EditingListPanel.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/panel/TcbCurveFrame.h>
#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/PlainToolBar.h>

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>

#include <utility>

using namespace curveeditor;

namespace {

constexpr int pointsOfListMenu = 8;

} // namespace

void CurveEditor::setTimeGrid(std::function<std::vector<double>(double first, double last)> lines)
{
    CanvasGrid& grid = d_->functionEdit->canvas.grid();
    grid.hostTimes = nullptr;
    if (lines)
        grid.hostTimes = [this, lines = std::move(lines)](double first, double last) {
            const HostCalls::Call call(d_->hostCalls());
            return lines(first, last);
        };
    d_->paintChangedView();
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
    for (const auto& record : d_->nodeList)
        d_->showSquare(*record);
    d_->showPanelTheme();
}

void CurveEditor::Private::showPanelTheme()
{
    const CurveEditorTheme shown = editor.theme();
    setPaletteColor(editor.functionView, QPalette::Window, shown.canvas);
    showFieldColors();
    editor.commandLine->setColors(shown.formula, shown.formulaText, shown.formulaWarning);
    editor.tcbCurve->setColors(shown.preview, shown.previewCurve, shown.previewMiddle);
    editor.tcbCurve->setLine(shown.smooth ? shown.curveWidth : 0.0);
    if (hasOwnFont)
        return;
    const QFont font = shown.panelFamily.isEmpty() ? QFont() : QFont(shown.panelFamily);
    for (QWidget* const part : std::initializer_list<QWidget*>{
             editor.mainMenu, editor.listPanel->filterLine(), editor.checkListsEditing, editor.tabWidget2})
        part->setFont(font);
    editingMenu->setFont(shown.panelFamily.isEmpty() ? QFont() : QFont(shown.panelFamily, pointsOfListMenu));
    editor.fitToFont();
}

/// A field that is disabled differs from the others also where it is empty.
void CurveEditor::Private::showFieldColors()
{
    const CurveEditorTheme shown = editor.theme();
    const QColor disabledField = editor.palette().color(QPalette::Active, QPalette::Button);
    for (CustomEditLine* const field : editor.findChildren<CustomEditLine*>())
        field->setColors(shown.field, shown.fieldText, disabledField);
    // These are there to be read: the former three are never enabled, the others follow the mouse where they are not.
    const QColor readable = editor.palette().color(QPalette::Active, QPalette::ButtonText);
    for (CustomEditLine* const readOut :
         {funcTimeEdit, funcCursorEdit, funcValueEdit, editor.posX, editor.posY})
        readOut->setColors(shown.field, shown.fieldText, disabledField, readable);
}

/// Gives one of the small dialogs the font of the panel, where the theme has another than these have of themselves.
void CurveEditor::Private::showPanelFont(QDialog& dialog) const
{
    const QString family = editor.theme().panelFamily;
    if (hasOwnFont || family == CurveEditorTheme::described().panelFamily)
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
        d_->showFieldColors();
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
