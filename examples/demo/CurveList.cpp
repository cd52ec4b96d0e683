// SPDX-License-Identifier: MIT
#include "CurveList.h"

#include <QDrag>
#include <QMimeData>
#include <QPixmap>

namespace {

constexpr int swatchSize = 10;

QIcon swatch(const QColor& color)
{
    QPixmap pixmap(swatchSize, swatchSize);
    pixmap.fill(color);
    return pixmap;
}

} // namespace

CurveList::CurveList(QWidget* parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIconSize(QSize(swatchSize, swatchSize));
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    setExpandsOnDoubleClick(false);
    setEditTriggers(NoEditTriggers);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void CurveList::addCurve(const QString& group, const QString& name, const QColor& color)
{
    auto* item = new QTreeWidgetItem(groupItem(group), {name});
    item->setIcon(0, swatch(color));
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled);
}

CurveList::CurveName CurveList::nameOf(const QTreeWidgetItem* item)
{
    if (!item || !item->parent())
        return {};
    return {item->parent()->text(0), item->text(0)};
}

void CurveList::setFilter(const QString& text)
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = topLevelItem(i);
        bool anyShown = false;
        for (int j = 0; j < group->childCount(); ++j) {
            const CurveName name = nameOf(group->child(j));
            const bool shown = (name.group + u'.' + name.curve).contains(text, Qt::CaseInsensitive);
            group->child(j)->setHidden(!shown);
            anyShown |= shown;
        }
        group->setHidden(!anyShown);
    }
}

void CurveList::startDrag(Qt::DropActions /*actions*/)
{
    const CurveName name = nameOf(currentItem());
    if (name.curve.isEmpty())
        return;
    auto* fullName = new QMimeData;
    fullName->setText(name.group + u'.' + name.curve);
    auto* drag = new QDrag(this); // Qt deletes it
    drag->setMimeData(fullName);
    drag->setPixmap(viewport()->grab(visualItemRect(currentItem())));
    if (drag->exec(Qt::CopyAction) != Qt::IgnoreAction)
        Q_EMIT dragged();
}

QTreeWidgetItem* CurveList::groupItem(const QString& group)
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (topLevelItem(i)->text(0) == group)
            return topLevelItem(i);
    }
    auto* item = new QTreeWidgetItem(this, {group});
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    item->setExpanded(true);
    return item;
}

#include "moc_CurveList.cpp"
