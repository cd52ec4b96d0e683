// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ControlMenu.h>

#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/edit/PointTypeTexts.h>
#include <curveeditor/model/SplineBase.h>

#include <QAction>
#include <QEvent>
#include <QHash>

using namespace curveeditor;

ControlMenu::ControlMenu()
{
    setSeparatorsCollapsible(false);
    addSeparator();
    for (const PointType& type : PointTypes::all())
        addAction(QString())->setData(type.menuId);
    addSeparator();
    for (const Entry id : {CreateKey, DeleteKey})
        addAction(QString())->setData(id);
    addSeparator();
    translate();
    connect(this, &QMenu::triggered, this, [this](QAction* action) { handleMenu(action->data().toInt()); });
}

void ControlMenu::showMenu(const QPoint& globalPosition, int indexAtPoint)
{
    exec(globalPosition, actions().value(indexAtPoint));
}

void ControlMenu::enableEntries(bool hasSelection, const CurveOptions& options)
{
    const QList<QAction*> entries = actions();
    for (QAction* const action : entries) {
        const int id = action->data().toInt();
        action->setEnabled((id == CreateKey) != hasSelection);
        for (const PointType& type : PointTypes::all()) {
            if (type.menuId == id)
                action->setVisible(PointLimits::allow(options, type.number));
        }
    }
}

void ControlMenu::translate()
{
    QHash<int, QString> texts{{CreateKey, tr("Create key")}, {DeleteKey, tr("Delete key")}};
    for (const PointType& type : PointTypes::all())
        texts[type.menuId] = PointTypeTexts::shown(type.selection);
    const QList<QAction*> entries = actions();
    for (QAction* const action : entries)
        action->setText(texts.value(action->data().toInt()));
}

void ControlMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMenu::changeEvent(event);
}

void ControlMenu::handleMenu(int id)
{
    if (id == CreateKey)
        Q_EMIT createNodeAtCursor();
    if (id == DeleteKey)
        Q_EMIT deleteSelectedNodes();
    for (const PointType& type : PointTypes::all()) {
        if (type.menuId == id)
            chooseType(type.number);
    }
    Q_EMIT nodeChanged();
}

void ControlMenu::chooseType(int type)
{
    if (type == SplineBase::Linear)
        Q_EMIT setSelectedLinear();
    if (type == SplineBase::Bezier)
        Q_EMIT setSelectedBezier();
    if (type == SplineBase::Tcb)
        Q_EMIT setSelectedTcb();
    Q_EMIT setSelectedType(type);
}

#include "moc_ControlMenu.cpp"
