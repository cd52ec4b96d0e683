// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QAction>
#include <QComboBox>
#include <QHash>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QToolButton>

using namespace curveeditor;

namespace {

/// The text of the entry with that id, in the menu or its submenus; empty if there is none.
QString entryText(const QMenu& menu, int id)
{
    for (const QAction* const entry : menu.actions()) {
        if (entry->menu()) {
            QString text = entryText(*entry->menu(), id);
            if (!text.isEmpty())
                return text;
        } else if (entry->data().toInt() == id) {
            return entry->text();
        }
    }
    return QString();
}

/// The curves that the expression in `holder` reads, as their variable names.
QStringList variablesRead(FunctionFloatBase* const* holder)
{
    QStringList names;
    for (const auto* const key : FunctionParserBase::instance()->getAllVars(*holder))
        names.append(QString::fromStdString(key->name).replace(QLatin1Char(' '), QLatin1Char('_')));
    return names;
}

} // namespace

void CurveEditor::setVariables(ParserVarMapper* variables)
{
    d_->functionEdit->canvas.door().history().settings().formulas.setVariables(variables);
}

void CurveEditor::executeCommand()
{
    if (commandLine->isReadOnly())
        return; // what stands there is not the whole formula
    ParseMessage message;
    const QString curve = d_->lineCurve;
    const bool isSameCurve = d_->functionEdit->canvas.parseExpression(commandLine->text(), message);
    if (message.errors.empty())
        d_->unfinishedTexts.remove(curve);
    if (!isSameCurve)
        return; // the line shows another curve's formula by now
    commandLine->showMessage(message);
    if (!message.errors.empty())
        return;
    d_->lineCurve.clear();
    refreshCommandLine();
}

void CurveEditor::Private::parseBuiltText(bool isBuilt)
{
    editor.commandLine->setFocus();
    if (isBuilt)
        editor.executeCommand();
    else
        showWarning(&editor, CurveEditor::tr("Formula"),
                    CurveEditor::tr("The line has room for no more than %1 characters.")
                        .arg(editor.commandLine->maxLength()));
}

void CurveEditor::insertUnaryFunc(int id)
{
    const QString function = entryText(*d_->unaryMenu, id);
    if (function.isEmpty())
        return;
    d_->parseBuiltText(
        commandLine->replaceText(QStringLiteral(" %1(%2) ").arg(function, commandLine->text())));
}

void CurveEditor::insertBinaryFunc(int id)
{
    const QString sign = entryText(*d_->binaryMenu, id);
    if (sign.isEmpty())
        return;
    d_->parseBuiltText(commandLine->replaceText(QStringLiteral(" %1%2X ").arg(commandLine->text(), sign)));
}

void CurveEditor::insertTernaryFunc(int id)
{
    const QString function = entryText(*d_->ternaryMenu, id);
    if (function.isEmpty())
        return;
    d_->parseBuiltText(
        commandLine->replaceText(QStringLiteral(" %1( X, %2, X) ").arg(function, commandLine->text())));
}

void CurveEditor::insertIVarFunc(int id)
{
    const QString variable = entryText(*d_->iVarMenu, id);
    if (variable.isEmpty())
        return;
    d_->parseBuiltText(commandLine->insertText(QStringLiteral(" %1 ").arg(variable)));
}

void CurveEditor::insertDVarFunc(int id)
{
    const QString variable = entryText(*d_->dVarMenu, id);
    if (variable.isEmpty())
        return;
    d_->parseBuiltText(commandLine->insertText(variable));
}

void CurveEditor::setExpression()
{
    d_->functionEdit->setCurrentToExpression();
    update();
}

void CurveEditor::setTcb()
{
    d_->functionEdit->setCurrentToSpline(false);
    update();
}

void CurveEditor::deleteCurveClicked()
{
    d_->functionEdit->deleteExpression();
    update();
}

void CurveEditor::errorClosed()
{
    commandLine->insertUnderscore();
}

void CurveEditor::deleteExpression(const QString& nodeName, const QString& curveName,
                                   FunctionFloatBase** function)
{
    const QString name = nodeName + QLatin1Char('.') + curveName;
    d_->unfinishedTexts.remove(name);
    CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    const NodeStruct* const record = searchAllNodeList(name);
    if (isVisible() && canvas.dropExpression(name)) {
        EditingList::setCurveKind(record->editingItem, false);
        refreshCommandLine();
    } else if (isVisible() && record) {
        canvas.door().history().forgetRetired(record->function);
    } else if (!isVisible() && function) {
        delete std::exchange(*function, nullptr);
        canvas.door().history().forgetRetired(function);
        d_->paintChangedView();
    }
}

void CurveEditor::refreshCommandLine()
{
    const CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    d_->showContent();
    d_->functionEdit->closeNodeForm();
    d_->functionEdit->showSelection(false);
    if (NodeStruct* const record = searchAllNodeList(canvas.getCurrentCurveName()))
        d_->showSelectedRow(*record);
    if (!canvas.noCurrentCurve())
        d_->functionEdit->canvas.paint();
    d_->tellCurrentCurve();
}

void CurveEditor::Private::showContent()
{
    const CanvasFunctionBase& canvas = functionEdit->canvas;
    const bool isSpline = !canvas.noCurrentCurve() && !canvas.isCurrentExpression();
    setSplineToolsEnabled(isSpline);
    enablePointTools();
    if (canvas.noCurrentCurve()) {
        keepUnfinishedText();
        lineCurve.clear();
        return;
    }
    editor.deleteCurve->setEnabled(!isSpline);
    showLineText();
    if (isSpline) {
        showFirstType(canvas.currentSplineBase()->firstType);
        showLastType(canvas.currentSplineBase()->lastType);
    }
}

// A text that is being typed stays while the curve and its formula do.
void CurveEditor::Private::showLineText()
{
    const CanvasFunctionBase& canvas = functionEdit->canvas;
    const QString curve = canvas.getCurrentCurveName();
    const QString formula = canvas.isCurrentExpression() ? canvas.getCurrentExpressionText() : QString();
    if (curve == lineCurve && formula == lineFormula)
        return;
    if (curve != lineCurve)
        keepUnfinishedText();
    lineCurve = curve;
    lineFormula = formula;
    editor.commandLine->showFormula(formula);
    showLineTip();
    const auto unfinished = unfinishedTexts.constFind(curve);
    if (unfinished != unfinishedTexts.cend() && unfinished->formula == formula)
        editor.commandLine->showUnfinished(unfinished->text);
    unfinishedTexts.remove(curve);
}

void CurveEditor::Private::keepUnfinishedText()
{
    if (!lineCurve.isEmpty() && editor.commandLine->isUnfinished())
        unfinishedTexts.insert(lineCurve, {lineFormula, editor.commandLine->text()});
}

/// A text over a formula that has changed meanwhile is of no use.
void CurveEditor::Private::dropUnfinishedText(EditedCurve& curve)
{
    const auto unfinished = unfinishedTexts.constFind(curve.name);
    if (unfinished == unfinishedTexts.cend())
        return;
    FunctionFloatBase* const tree = curve.kind() == CurveKind::Expression ? curve.expression() : nullptr;
    const QString formula = tree ? QString::fromStdString(tree->getString()) : QString();
    if (formula != unfinished->formula)
        unfinishedTexts.erase(unfinished);
}

void CurveEditor::Private::showLineTip()
{
    editor.commandLine->setToolTip(
        editor.commandLine->isReadOnly()
            ? CurveEditor::tr("This expression is too long for the line and can't be edited here")
            : CurveEditor::tr("Here appears the expression"));
}

void CurveEditor::Private::setSplineToolsEnabled(bool enabled)
{
    for (QToolButton* const button : {fitButton, fitHButton, fitVButton})
        button->setEnabled(enabled);
    for (const auto fit :
         {&CurveEditor::completeViewport, &CurveEditor::completeViewportH, &CurveEditor::completeViewportV})
        actionOf(fit)->setEnabled(enabled);
    for (QMenu* const menu : {firstNodeMenu, lastNodeMenu})
        menu->setEnabled(enabled);
    for (QComboBox* const combo : {editor.nodeFirst, editor.nodeLast})
        combo->setEnabled(enabled);
}

void CurveEditor::Private::enablePointTools()
{
    const bool enabled = functionEdit->canvas.hasSelectedPoint();
    for (QToolButton* const button : {scaleButton, panButton})
        button->setEnabled(enabled);
    for (const auto tool : {&CurveEditor::setScaleSelection, &CurveEditor::setPanSelection})
        actionOf(tool)->setEnabled(enabled);
}

bool CurveEditor::checkDependencies(const QString& firstFunc, const QString& current, QString& withFunc)
{
    return d_->checkDependencies(firstFunc, current, withFunc);
}

bool CurveEditor::Private::checkDependencies(const QString& firstFunc, const QString& current,
                                             QString& withFunc)
{
    QHash<QString, const NodeStruct*> curves;
    for (auto record = nodeList.rbegin(); record != nodeList.rend(); ++record)
        curves.insert(DependencyCheck::lowerVariableName((*record)->name), record->get());
    const NodeStruct* const start = curves.value(current);
    if (!start)
        return false;

    QSet<QString> visited = {current};
    const auto leadsToFirst = [&](const QString& variable) {
        QStringList pending = {variable};
        while (!pending.isEmpty()) {
            const QString name = pending.takeLast();
            if (name == firstFunc)
                return true;
            const NodeStruct* const curve = curves.value(name);
            if (curve && !visited.contains(name)) {
                visited.insert(name);
                pending += variablesRead(curve->function);
            }
        }
        return false;
    };
    for (const QString& variable : variablesRead(start->function)) {
        if (leadsToFirst(variable)) {
            const bool isOutermost = current == firstFunc && variable != firstFunc;
            withFunc = (isOutermost ? curves.value(variable) : start)->name;
            return true;
        }
    }
    return false;
}

QStringList CurveEditor::Private::readersOf(const QString& curve) const
{
    QHash<QString, QStringList> readers;
    for (const auto& record : nodeList) {
        const QString reader = DependencyCheck::lowerVariableName(record->name);
        for (const QString& variable : variablesRead(record->function))
            readers[variable].append(reader);
    }
    QStringList found;
    QStringList pending = {curve};
    while (!pending.isEmpty()) {
        const QStringList direct = readers.take(pending.takeLast());
        found += direct;
        pending += direct;
    }
    return found;
}
