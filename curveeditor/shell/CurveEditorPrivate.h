// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasCurves.h>
#include <curveeditor/canvas/DependencyCheck.h>
#include <curveeditor/edit/CurveMark.h>
#include <curveeditor/edit/EditHistory.h>
#include <curveeditor/edit/ViewStep.h>
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/NodePageWidgets.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/EditorKeys.h>

#include <QHash>
#include <QKeySequence>
#include <QPointer>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

class CurveNodeBase;
class CustomEditLine;
class FunctionEditor;
class QAction;
class QMenu;
class QToolBar;
class QToolButton;

namespace curveeditor {

class PointTablePage;
class ShrinkingBox;

inline QString fullName(const QString& group, const QString& curve)
{
    return group + QLatin1Char('.') + curve;
}

} // namespace curveeditor

using namespace curveeditor;

/// What a `CurveEditor` holds, and does without being called by a host. It lies behind a pointer, so that all of it can
/// change without a new layout of the class, which hosts are built against. Widgets and actions belong to their Qt parents.
struct CurveEditor::Private final : DependencyCheck
{
    explicit Private(CurveEditor& owner) : editor(owner) {}

    NodePageWidgets nodePageWidgets() const;
    bool checkDependencies(const QString& firstFunc, const QString& current, QString& withFunc) override;
    QStringList readersOf(const QString& curve) const override;

    CurveEditor& editor;
    static constexpr QSize sizeBeforeFirstShow{400, 300};

    struct MousePlace
    {
        double time;
        double value;
        double curveValue;
    };

    std::vector<std::unique_ptr<MainNodeStruct>> mainNodeList;
    std::vector<std::unique_ptr<NodeStruct>> nodeList;
    QHash<QString, NodeStruct*> nodeOfName; ///< those of the list, by full name
    int nextVariableId = 0;
    QString toldCurrent;                     ///< the full name that `currentCurveChanged` told last
    bool isDeletionDue = false;              ///< as soon as the host's code has returned
    bool hasOwnFont = false;                 ///< set by the host
    int setChanges = 0;                      ///< curves are on their way onto the canvas or off it
    PlaneMapping toldView;                   ///< what `viewChanged` told last; without a size
    CanvasCurves::Selections toldSelections; ///< and `pointSelectionChanged`
    std::optional<MousePlace> mousePlace;    ///< what the read-outs show; nothing at first
    QString lineCurve;                       ///< the curve whose formula the command line shows ...
    QString lineFormula;                     ///< ... and that formula
    /// What was typed over the formula of a curve that is not current and was not entered.
    struct UnfinishedText
    {
        QString formula;
        QString text;
    };
    QHash<QString, UnfinishedText> unfinishedTexts; ///< by full name

    FunctionEditor* functionEdit = nullptr;
    PointTablePage* pointTable = nullptr;
    std::vector<std::pair<EditorPart, QWidget*>> pages; ///< in order, those that do not show too
    std::set<EditorPart> hiddenParts;
    bool wasShown = false;
    std::unique_ptr<ControlMenu2> editingMenu;
    std::unique_ptr<EditorKeys> keys;

    QMenu* fileMenu = nullptr;
    QMenu* curvesMenu = nullptr;
    QMenu* optionsMenu = nullptr;
    QMenu* editMenu = nullptr;
    QMenu* firstNodeMenu = nullptr;
    QMenu* lastNodeMenu = nullptr;
    QMenu* horizontalAxisMenu = nullptr;
    QMenu* unaryMenu = nullptr;
    QMenu* binaryMenu = nullptr;
    QMenu* ternaryMenu = nullptr;
    QMenu* iVarMenu = nullptr;
    QMenu* dVarMenu = nullptr;

    std::vector<QAction*> actions;         ///< of `commands` ...
    std::vector<QKeySequence> shownKeys;   ///< ... and their keys in the present language
    QHash<QString, QAction*> namedActions; ///< of all menus but that over points, by object name
    std::vector<QToolButton*> menuButtons; ///< in the order of creation
    QAction* viewBox = nullptr;            ///< that of the view buttons in the bar
    QToolButton* fitButton = nullptr;
    QToolButton* fitHButton = nullptr;
    QToolButton* fitVButton = nullptr;
    QToolButton* scaleButton = nullptr;
    QToolButton* panButton = nullptr;

    CustomEditLine* funcTimeEdit = nullptr;
    CustomEditLine* funcCursorEdit = nullptr;
    CustomEditLine* funcValueEdit = nullptr;

    std::function<void()> meaningOfEscape();
    void passTabOn(Qt::FocusReason reason);
    void preInit();
    struct Command;
    static const std::vector<Command>& commands();
    QAction* actionOf(void (CurveEditor::*work)()) const;
    void createActions();
    bool isShown(EditorPart part) const { return hiddenParts.count(part) == 0; }
    void showParts();
    void showPages();
    void leavePart(EditorPart part);
    QWidget* areaOf(EditorPart part) const;
    std::vector<QAction*> actionsOf(EditorPart part) const;
    void setCrowded(bool isCrowded);
    void limitSize();
    void nameActions(const QMenu& menu);
    void addHostAction(QMenu& menu, QAction* action);
    void createMainMenu();
    void createViewButtons();
    void createExpressionTool();
    void connectWidgets();
    void connectPointTable();
    void connectEditingList();
    QMenu* createExpressionMenu(const QString& text, const QStringList& entries,
                                const std::function<void(CurveEditor&, int)>& insert);
    void addMenuButton(QToolBar* bar, const QString& text, QMenu* menu);
    QToolButton* createViewButton(ShrinkingBox& box, const QString& text);
    CustomEditLine* createReadOut(const char* name);
    void orderTools();
    void translateActions();
    void translateMenuButtons();
    void translateViewButtons();
    void showMousePlace();
    void explainTools();

    void addNewMainNode(const QString& name);
    void addNewNode(const QString& nodeName, const QString& curveName, const QColor& color,
                    float defaultValue, SplineBase* spline, FunctionFloatBase** function, float minValue,
                    float maxValue);
    void addNewNode(MainNodeStruct* group, const QString& fullName, const QColor& color, float defaultValue,
                    SplineBase* spline, FunctionFloatBase** function, float minValue, float maxValue);
    void renameRecord(NodeStruct& record, const QString& nodeName, const QString& curveName);
    void eraseRecords(const std::vector<NodeStruct*>& records);
    std::vector<NodeStruct*> nodesOfGroup(const QString& nodeName) const;
    NodeStruct* searchCheckList(const QTreeWidgetItem* item);
    NodeStruct* searchAllNodeEditingList(const QTreeWidgetItem* item);
    QColor getColorFromNode(const QTreeWidgetItem* item);
    QColor getColorFromEditingNode(const QTreeWidgetItem* item);
    void setColorToNode(const QTreeWidgetItem* item, const QColor& color);
    void setColorToEditingNode(const QTreeWidgetItem* item, const QColor& color);
    void setColor(NodeStruct* record, const QColor& color);
    void showSquare(const NodeStruct& record);

    std::shared_ptr<EditedCurve> contentOf(const QString& name) const;
    CurveOptions optionsOf(const QString& name) const;
    bool endHandsAt(const QString& name);
    bool endHands();
    void tellEdit(const EditReport& report);
    void showStepTexts();
    bool handsStepsOn(void (CurveEditor::*request)());
    CurveName nameOf(const CurveNodeBase* curve) const;
    void tellCurrentCurve();
    CanvasPainter guarded(CanvasPainter painter);
    void tellView();
    void tellSelection();
    void tellSeen();
    PlaneMapping shownRange() const;
    void showRange(const AxisRange& times, const AxisRange& values);
    bool isCurrent(const QPointer<CurveNodeBase>& curve) const;
    void takeDroppedName(const QString& name);
    QStringList closedCurves() const;
    void openCurves(const QStringList& names);
    HostCalls& hostCalls() const;
    void deleteIfDue();
    bool mayReplace(const QString& path);
    void showContent();
    void showPoints();
    void showLineText();
    void showLineTip();
    void keepUnfinishedText();
    void dropUnfinishedText(EditedCurve& curve);
    void setCurveEditableOn(NodeStruct* record);
    void setCurveEditableOff(NodeStruct* record);
    void putOnCanvas(NodeStruct& record);
    void takeOffCanvas(NodeStruct& record);
    void showSelectedRow(NodeStruct& record);
    void showMarks(const NodeStruct& record);
    void toggleMark(const QTreeWidgetItem* row, CurveMark mark);

    void parseBuiltText(bool isBuilt);
    void setSplineToolsEnabled(bool enabled);
    void enablePointTools();
    void showFirstType(int type);
    void showLastType(int type);
    void setMinTime(const double& val);
    void setMaxTime(const double& val);
    double timeOfFrame(double frame) const;
    double timeTyped() const;
    void countFrames(bool on);
    void showTimes(double time);
    void showTimeLabel();
    void showTimeBounds();
    void showAxes();
    void showPanelTheme();
    void showFieldColors();
    void showPanelFont(QDialog& dialog) const;
    void paintChangedView();
};
