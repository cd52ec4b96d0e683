// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <QDialog>

class CustomEditLine;
class EditingList;
class ExpressionEditLine;
class QComboBox;
class QFrame;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QTabWidget;
class QTreeWidgetItem;
class QVBoxLayout;
class TcbCurveFrame;

namespace curveeditor {
class EditingListPanel;
class PlainToolBar;
} // namespace curveeditor

/// The widgets of the main dialog and nothing else: it builds and names them, `CurveEditor` gives them their
/// work. Every widget and layout is a public member named as its object, but for the two tool bars, whose objects
/// have no name. All of them are set when the
/// constructor returns, and are children of the dialog that die with it.
class CURVEEDITOR_EXPORT CurveEditorDialogBase : public QDialog
{
    Q_OBJECT

public:
    /// An empty `name` stands for the name of the class.
    explicit CurveEditorDialogBase(QWidget* parent = nullptr, const QString& name = QString(),
                                   bool modal = false, Qt::WindowFlags flags = {});

    /// @{
    /// Around the pages: menu, editing list and canvas side by side, the pages below.
    curveeditor::PlainToolBar* mainMenu = nullptr;
    QSplitter* splitter11 = nullptr;
    curveeditor::EditingListPanel* listPanel = nullptr;
    EditingList* checkListsEditing = nullptr;
    QSplitter* splitter10 = nullptr;
    QFrame* functionView = nullptr; ///< frame of the canvas
    QTabWidget* tabWidget2 = nullptr;
    /// @}

    /// @{
    /// On the node page, in the order of the form: a field, and the label that names it.
    QWidget* tab = nullptr; ///< the node page, a scroll area
    QFrame* frame11 = nullptr;
    QPushButton* prevNode = nullptr;
    QPushButton* nextNode = nullptr;
    CustomEditLine* node = nullptr;
    CustomEditLine* posX = nullptr;
    QLabel* textLabel1 = nullptr;
    CustomEditLine* posY = nullptr;
    QLabel* textLabel2 = nullptr;
    QFrame* line1 = nullptr;
    QLabel* textLabel1_2 = nullptr;
    QComboBox* nodeFirst = nullptr; ///< the index is a `SplineBase::firstType`
    QLabel* textLabel1_2_2 = nullptr;
    QComboBox* nodeLast = nullptr; ///< the index is a `SplineBase::lastType`
    QFrame* frame10 = nullptr;
    QLabel* textLabel1_2_3_2_2 = nullptr;
    QLabel* textLabel1_2_3_2 = nullptr;
    CustomEditLine* easeFrom = nullptr;
    CustomEditLine* easeTo = nullptr;
    QComboBox* nodeTypeCombo = nullptr;            ///< the types of points
    QStackedWidget* nodeTypeWidgetStack = nullptr; ///< page 0 `tcbPage`, page 1 `ioPage`
    QWidget* tcbPage = nullptr;
    QLabel* textTension = nullptr;
    CustomEditLine* tension = nullptr;
    QLabel* textContinuity = nullptr;
    CustomEditLine* continuity = nullptr;
    QLabel* textBias = nullptr;
    CustomEditLine* bias = nullptr;
    QWidget* ioPage = nullptr;
    CustomEditLine* outgoing = nullptr;
    CustomEditLine* incoming = nullptr;
    QLabel* textIncoming = nullptr;
    QLabel* textOutcoming = nullptr;
    TcbCurveFrame* tcbCurve = nullptr;
    /// @}

    /// @{
    /// On the expression page: menus of what can be inserted, the command line, and what drops the expression.
    QWidget* tab_2 = nullptr; ///< the expression page, a scroll area
    curveeditor::PlainToolBar* expressionTool = nullptr;
    ExpressionEditLine* commandLine = nullptr;
    QPushButton* deleteCurve = nullptr;
    /// @}

    /// @{
    /// The layouts, for hosts that put widgets of their own beside those of the dialog.
    QVBoxLayout* CurveEditorDialogBaseLayout = nullptr;
    QHBoxLayout* tabLayout = nullptr;
    QHBoxLayout* frame11Layout = nullptr;
    QVBoxLayout* layout15 = nullptr;
    QHBoxLayout* layout13 = nullptr;
    QGridLayout* layout14 = nullptr;
    QVBoxLayout* layout24 = nullptr;
    QHBoxLayout* frame10Layout = nullptr;
    QGridLayout* layout21 = nullptr;
    QGridLayout* tcbPageLayout = nullptr;
    QGridLayout* ioPageLayout = nullptr;
    QVBoxLayout* tabLayout_2 = nullptr;
    QHBoxLayout* layout4 = nullptr;
    /// @}

protected Q_SLOTS:
    /// Sets every text the user sees. Runs in the constructor, and again when the language changes.
    virtual void languageChange();

protected:
    /// Calls `languageChange` when the language changes.
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// Lets what is described in pixels grow with the texts. Runs whenever the font or the texts change.
    virtual void fitToFont();
    /// The dialog is at least that large, and large enough for what it holds.
    void setLeastSize(const QSize& size);
    /// Makes the list wide enough for the name of that row, up to a third of the dialog, unless the user has given it
    /// another width.
    void fitListTo(const QTreeWidgetItem* row);
    bool hasUsersListWidth = false;
    bool hasUsersPageHeight = false; ///< else the pages are as high as the node page is, up to half
    /// Whether canvas and pages may be as small as can be, as they may at first, or have the room that they have when a
    /// dialog shows for the first time.
    void setCrowded(bool isCrowded);

private:
    void buildMenuAndSplitters();
    void buildNodePage();
    void buildPositionFrame();
    void buildBehaviours();
    void buildParameterFrame();
    void buildTcbPage();
    void buildTangentPage();
    void buildExpressionPage();
    void orderTabs();
    void alignRows();
    void fitStepButtons();
    void showStepButtons();
    void keepFormulaInSight(int pageWidth);
    void explainFields();
    void nameForAssistiveTools();
    void fitList();
    void fitPages();
    void fitAll();
    void stackFrames(int pageWidth);

    int widthOfNames_ = 0;
};
