// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ControlMenu.h>

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
        add(type.menuId, QLatin1String("selectionTo%1Action").arg(QLatin1String(type.word)));
    addSeparator();
    add(CreateKey, QStringLiteral("createKeyAction"));
    add(DeleteKey, QStringLiteral("deleteKeyAction"));
    addSeparator();
    translate();
}

void ControlMenu::add(int id, const QString& name)
{
    QAction* const entry = addAction(QString());
    entry->setObjectName(name);
    entry->setData(id);
    connect(entry, &QAction::triggered, this, [this, id] { handleMenu(id); });
    entries_.append(entry);
}

void ControlMenu::showOthers(const QList<QPointer<QAction>>& others)
{
    for (QAction* const shown : actions()) {
        if (shown->parent() != this)
            removeAction(shown);
    }
    for (QAction* const other : others) {
        if (other)
            addAction(other);
    }
}

void ControlMenu::showMenu(const QPoint& globalPosition, int indexAtPoint)
{
    exec(globalPosition, actions().value(indexAtPoint));
}

void ControlMenu::enableEntries(bool hasSelection, const EditedCurve& curve)
{
    for (QAction* const action : entries_) {
        const int id = action->data().toInt();
        action->setEnabled((id == CreateKey) != hasSelection);
        for (const PointType& type : PointTypes::all()) {
            if (type.menuId == id)
                action->setVisible(curve.offers(type.number));
        }
    }
}

void ControlMenu::translate()
{
    QHash<int, QString> texts{{CreateKey, tr("Create key")}, {DeleteKey, tr("Delete key")}};
    for (const PointType& type : PointTypes::all())
        texts[type.menuId] = PointTypeTexts::shown(type.selection);
    for (QAction* const action : entries_)
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
