// SPDX-License-Identifier: MIT
#include <curveeditor/panel/EditingList.h>

#include <curveeditor/panel/TextDrop.h>

#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>

namespace {

bool mayNameCurve(const QMimeData& data)
{
    return data.hasText() && !data.text().contains(QLatin1Char('?'));
}

} // namespace

EditingList::EditingList(QWidget* parent, const QString& name) : QTreeWidget(parent)
{
    setObjectName(name);
    setColumnCount(1);
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setRootIsDecorated(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSortingEnabled(true);
    sortByColumn(0, Qt::AscendingOrder);
    setAcceptDrops(true);
}

QTreeWidgetItem* EditingList::selectedItem() const
{
    return selectedItems().value(0);
}

// Delete ends here: in the dialog it would delete the selected points of the curve that is current
// afterwards.
void EditingList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete)
        Q_EMIT supressFromEditing(selectedItem());
    QTreeWidget::keyPressEvent(event);
    if (event->key() == Qt::Key_Delete)
        event->accept();
}

void EditingList::dragEnterEvent(QDragEnterEvent* event)
{
    answerDrag(event, mayNameCurve(*event->mimeData()));
}

void EditingList::dragMoveEvent(QDragMoveEvent* event)
{
    answerDrag(event, mayNameCurve(*event->mimeData()));
}

void EditingList::dropEvent(QDropEvent* event)
{
    const bool hasText = event->mimeData()->hasText();
    answerDrag(event, hasText);
    if (hasText)
        Q_EMIT setNodeForEdit(event->mimeData()->text());
}

// A row reaches at least to the right edge, so that a click behind a short name still meets it.
void EditingList::resizeEvent(QResizeEvent* event)
{
    header()->setMinimumSectionSize(viewport()->width());
    QTreeWidget::resizeEvent(event);
}
