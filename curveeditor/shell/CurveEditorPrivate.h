// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/HostCalls.h>
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/EditorKeys.h>

#include <QHash>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class CustomEditLine;
class FunctionEditor;
class PointTablePage;
class QAction;
class QMenu;
class QToolButton;

/// What a `CurveEditor` holds. It lies behind a pointer, so that more can be held without a new layout of the
/// class, which hosts are built against. Widgets and actions belong to their Qt parents.
struct CurveEditor::Private
{
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
    QString toldCurrent;                  ///< the full name that `currentCurveChanged` told last
    bool isDeletionDue = false;           ///< as soon as the host's code has returned
    bool hasOwnFont = false;              ///< set by the host
    int setChanges = 0;                   ///< curves are on their way onto the canvas or off it
    std::optional<MousePlace> mousePlace; ///< what the read-outs show; nothing at first
    QString lineCurve;                    ///< the curve whose formula the command line shows ...
    QString lineFormula;                  ///< ... and that formula
    /// What was typed over the formula of a curve that is not current and was not entered.
    struct UnfinishedText
    {
        QString formula;
        QString text;
    };
    QHash<QString, UnfinishedText> unfinishedTexts; ///< by full name

    FunctionEditor* functionEdit = nullptr;
    PointTablePage* pointTable = nullptr;
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

    std::vector<QAction*> actions;         ///< of `commands`
    std::vector<QToolButton*> menuButtons; ///< in the order of creation
    QToolButton* fitButton = nullptr;
    QToolButton* fitHButton = nullptr;
    QToolButton* fitVButton = nullptr;
    QToolButton* scaleButton = nullptr;
    QToolButton* panButton = nullptr;

    CustomEditLine* funcTimeEdit = nullptr;
    CustomEditLine* funcCursorEdit = nullptr;
    CustomEditLine* funcValueEdit = nullptr;
};
