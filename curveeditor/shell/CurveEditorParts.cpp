// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/panel/EditingListPanel.h>
#include <curveeditor/panel/PointTablePage.h>
#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/PlainToolBar.h>

#include <QAction>
#include <QMenu>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

using namespace curveeditor;

namespace {

constexpr EditorPart allParts[] = {
    EditorPart::MenuBar,      EditorPart::ToolBar,        EditorPart::List,       EditorPart::Pages,
    EditorPart::EnvelopePage, EditorPart::ExpressionPage, EditorPart::PointsPage, EditorPart::Files,
    EditorPart::Formulas,     EditorPart::Pictures,       EditorPart::Fitting};
constexpr QSize leastWithPages(640, 480);
constexpr QSize leastWithoutPages(400, 200);
constexpr QSize leastCanvasAlone(200, 120);

} // namespace

bool CurveEditor::isPartShown(EditorPart part) const
{
    return d_->isShown(part);
}

void CurveEditor::setPartShown(EditorPart part, bool shown)
{
    const bool isKnown = std::find(std::begin(allParts), std::end(allParts), part) != std::end(allParts);
    if (!isKnown || shown == isPartShown(part))
        return;
    const QPointer<CurveEditor> guard(this);
    if (!shown)
        d_->leavePart(part);
    if (!guard)
        return;
    if (shown)
        d_->hiddenParts.erase(part);
    else
        d_->hiddenParts.insert(part);
    for (QAction* const action : d_->actionsOf(part))
        action->setVisible(shown); // which disables one that is hidden
    d_->showParts();
    CurveEditorDialogBaseLayout->activate(); // so that the host may resize the dialog at once
    d_->functionEdit->showSelection(false);
}

/// What the user is at there is done; who hears of it may delete the editor.
void CurveEditor::Private::leavePart(EditorPart part)
{
    const QPointer<CurveEditor> guard(&editor);
    const QWidget* const area = areaOf(part);
    if (area && area->isAncestorOf(editor.focusWidget())) {
        functionEdit->nodeForm.stopDrags();
        functionEdit->setFocus();
    }
    if (guard && part == EditorPart::MenuBar) {
        for (QMenu* const menu : {fileMenu, curvesMenu, optionsMenu, editMenu})
            menu->close();
    }
    if (guard && part == EditorPart::List) {
        editor.listPanel->closeOffer();
        editingMenu->close();
    }
    const QList<QDialog*> dialogs = guard ? editor.findChildren<QDialog*>() : QList<QDialog*>();
    for (const QPointer<QDialog> dialog : dialogs) {
        if (dialog && dialog->property(partOfDialog) == int(part))
            dialog->reject();
    }
}

QWidget* CurveEditor::Private::areaOf(EditorPart part) const
{
    switch (part) {
    case EditorPart::MenuBar:
    case EditorPart::ToolBar:
        return editor.mainMenu;
    case EditorPart::List:
        return editor.listPanel;
    case EditorPart::Pages:
        return editor.tabWidget2;
    case EditorPart::EnvelopePage:
        return editor.tab;
    case EditorPart::ExpressionPage:
    case EditorPart::Formulas:
        return editor.tab_2;
    case EditorPart::PointsPage:
        return pointTable;
    default:
        return nullptr;
    }
}

std::vector<QAction*> CurveEditor::Private::actionsOf(EditorPart part) const
{
    switch (part) {
    case EditorPart::Files:
        return {actionOf(&CurveEditor::loadFile), actionOf(&CurveEditor::saveFile)};
    case EditorPart::Pictures:
        return {actionOf(&CurveEditor::loadImage), actionOf(&CurveEditor::clearImage)};
    case EditorPart::Fitting:
        return {editor.action(QStringLiteral("simplifyAction")), editor.action(QStringLiteral("bakeAction"))};
    default:
        return {};
    }
}

void CurveEditor::Private::showParts()
{
    if (pages.empty())
        return; // the dialog is being built
    const bool hasMenus = isShown(EditorPart::MenuBar);
    for (const QToolButton* const button : menuButtons) {
        for (QAction* const item : editor.mainMenu->actions()) {
            if (editor.mainMenu->widgetForAction(item) == button)
                item->setVisible(hasMenus);
        }
    }
    viewBox->setVisible(isShown(EditorPart::ToolBar));
    editor.mainMenu->setVisible(hasMenus || isShown(EditorPart::ToolBar));
    editor.listPanel->setVisible(isShown(EditorPart::List));
    showPages();
    limitSize();
}

void CurveEditor::Private::showPages()
{
    int place = 0;
    for (const auto& [part, page] : pages) {
        const bool isOff = part == EditorPart::ExpressionPage && !isShown(EditorPart::Formulas);
        const int index = editor.tabWidget2->indexOf(page);
        const bool shows = isShown(part) && !isOff;
        if (shows && index < 0)
            editor.tabWidget2->insertTab(place, page, page->windowTitle());
        else if (!shows && index >= 0)
            editor.tabWidget2->removeTab(index);
        place += shows ? 1 : 0;
    }
    editor.tabWidget2->setVisible(isShown(EditorPart::Pages) && place > 0);
}

/// Pages and list are nothing without room.
void CurveEditor::Private::limitSize()
{
    const bool isAlone = editor.mainMenu->isHidden() && editor.listPanel->isHidden();
    editor.setLeastSize(!editor.tabWidget2->isHidden() ? leastWithPages
                        : isAlone                      ? leastCanvasAlone
                                                       : leastWithoutPages);
}

void CurveEditor::Private::setCrowded(bool isCrowded)
{
    editor.CurveEditorDialogBase::setCrowded(isCrowded);
    limitSize();
}

void CurveEditor::setVisible(bool visible)
{
    const bool isFirst = visible && isWindow() && !d_->wasShown;
    d_->wasShown |= visible;
    if (!isFirst)
        return CurveEditorDialogBase::setVisible(visible);
    for (QWidget* const part : findChildren<QWidget*>())
        part->updateGeometry(); // layouts remember the room that it took in another font
    for (QLayout* const layout : findChildren<QLayout*>())
        layout->invalidate();
    d_->setCrowded(false);
    const QSize roomy = size().expandedTo(CurveEditorDialogBaseLayout->totalMinimumSize());
    const bool isCrowded = size() != roomy && size() != Private::sizeBeforeFirstShow;
    d_->setCrowded(isCrowded);
    const QPointer<CurveEditor> guard(this);
    CurveEditorDialogBase::setVisible(true);
    if (guard)
        d_->setCrowded(true);
}
