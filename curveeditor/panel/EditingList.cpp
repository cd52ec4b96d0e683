// SPDX-License-Identifier: MIT
#include <curveeditor/panel/EditingList.h>

#include <curveeditor/panel/TextDrop.h>

#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QTimer>

#include <utility>

using namespace curveeditor;

namespace {

constexpr QColor outline(128, 128, 128); // so that a curve in the colour of the list has its square too

constexpr int lockRole = Qt::UserRole;

bool mayNameCurve(const QMimeData& data)
{
    return data.hasText() && !data.text().contains(QLatin1Char('?'));
}

bool isInsert(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Insert && !(key.modifiers() & ~Qt::KeypadModifier);
}

void drawPadlock(QPainter& painter, const QRectF& place, const QColor& color)
{
    const double unit = place.height() / 8.0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, unit));
    painter.drawRoundedRect(place.adjusted(2.0 * unit, unit, -2.0 * unit, -unit), 2.0 * unit, 2.0 * unit);
    painter.setPen(outline);
    painter.setBrush(color);
    painter.drawRect(place.adjusted(unit, 4.0 * unit, -unit, -unit));
}

/// Draws the colour of a curve as a square, sharp whatever the ratio of pixels, and the same in a selected row.
class CurveRowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& row) const override
    {
        QStyledItemDelegate::initStyleOption(option, row);
        const auto color = row.data(Qt::DecorationRole).value<QColor>();
        if (!color.isValid() || !option->widget)
            return;
        const qreal ratio = option->widget->devicePixelRatioF();
        QPixmap square(option->decorationSize * ratio);
        const bool isLocked = row.data(lockRole).toBool();
        square.fill(isLocked ? QColor(Qt::transparent) : outline);
        const int edge = qMax(1, qRound(ratio));
        QPainter painter(&square);
        if (isLocked)
            drawPadlock(painter, QRectF(square.rect()), color);
        else
            painter.fillRect(square.rect().adjusted(edge, edge, -edge, -edge), color);
        painter.end();
        option->font.setItalic(isLocked);
        if (isLocked)
            option->palette.setBrush(QPalette::Text,
                                     option->palette.brush(QPalette::Disabled, QPalette::Text));
        square.setDevicePixelRatio(ratio);
        option->icon = QIcon(square);
        option->icon.addPixmap(square, QIcon::Selected);
    }
};

} // namespace

EditingList::EditingList(QWidget* parent, const QString& name) : QTreeWidget(parent)
{
    setObjectName(name);
    setColumnCount(1);
    setHeaderHidden(true);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);
    setItemDelegate(new CurveRowDelegate(this));
    fitSquares();
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    sortRows();
    setAcceptDrops(true);
}

QTreeWidgetItem* EditingList::selectedItem() const
{
    return selectedItems().value(0);
}

// Qt itself would sort all rows for each that comes.
void EditingList::addRow(QTreeWidgetItem* row)
{
    int place = 0;
    for (int behind = topLevelItemCount(); place < behind;) {
        const int middle = (place + behind) / 2;
        if (*row < *topLevelItem(middle))
            behind = middle;
        else
            place = middle + 1;
    }
    insertTopLevelItem(place, row);
}

void EditingList::selectRow(QTreeWidgetItem* row)
{
    isSelecting_ = true;
    setCurrentItem(row);
    isSelecting_ = false;
    if (std::exchange(willScroll_, true))
        return;
    QTimer::singleShot(0, this, [this] {
        willScroll_ = false;
        if (QTreeWidgetItem* const selected = selectedItem())
            scrollToItem(selected);
    });
}

// The base asks where the row is, and for that lays out all rows, for each of many that come one after the other.
void EditingList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    if (isSelecting_)
        viewport()->update();
    else
        QTreeWidget::currentChanged(current, previous);
}

/// All of it, for the same reason.
QRegion EditingList::visualRegionForSelection(const QItemSelection& /*selection*/) const
{
    return viewport()->rect();
}

void EditingList::sortRows()
{
    sortByColumn(0, Qt::AscendingOrder);
}

bool EditingList::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isInsert(*static_cast<QKeyEvent*>(event)))
        return event->accept(), true;
    return QTreeWidget::event(event);
}

// Delete ends here: in the dialog it would delete the selected points of the curve that is current
// afterwards.
void EditingList::keyPressEvent(QKeyEvent* event)
{
    if (isInsert(*event))
        return Q_EMIT curvesWanted();
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

void EditingList::setCurveName(QTreeWidgetItem* row, const QString& name, const QString& tip)
{
    const QString shown = tip.isEmpty() ? name : name + QLatin1Char('\n') + tip;
    row->setText(0, name);
    row->setToolTip(0, Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown) : shown);
}

void EditingList::setCurveLocked(QTreeWidgetItem* row, bool isLocked)
{
    row->setData(0, lockRole, isLocked);
}

void EditingList::setCurveColor(QTreeWidgetItem* row, const QColor& color)
{
    row->setData(0, Qt::DecorationRole, color);
}

void EditingList::setFilter(const QString& part)
{
    filter_ = part;
    filterRows(0, topLevelItemCount() - 1);
    scrollToItem(selectedItem());
}

void EditingList::filterRows(int first, int last)
{
    for (int row = first; row <= last; ++row) {
        QTreeWidgetItem* const item = topLevelItem(row);
        item->setHidden(!item->text(0).contains(filter_, Qt::CaseInsensitive) && !item->isSelected());
    }
}

void EditingList::rowsInserted(const QModelIndex& parent, int first, int last)
{
    QTreeWidget::rowsInserted(parent, first, last);
    if (!filter_.isEmpty())
        filterRows(first, last);
}

void EditingList::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles)
{
    QTreeWidget::dataChanged(first, last, roles);
    if (!filter_.isEmpty())
        filterRows(first.row(), last.row());
}

void EditingList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTreeWidgetItem* const row = itemFromIndex(selected.indexes().value(0));
    if (row && row->isHidden()) {
        row->setHidden(false);
        scrollToItem(row);
    }
    QTreeWidget::selectionChanged(selected, deselected);
}

void EditingList::changeEvent(QEvent* event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitSquares();
}

void EditingList::fitSquares()
{
    const int side = fontMetrics().ascent();
    setIconSize({side, side});
}

#include "moc_EditingList.cpp"
