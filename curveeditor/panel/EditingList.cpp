// SPDX-License-Identifier: MIT
#include <curveeditor/panel/EditingList.h>

#include <curveeditor/canvas/StepKey.h>
#include <curveeditor/panel/CurveRowDelegate.h>
#include <curveeditor/panel/EmptyText.h>
#include <curveeditor/panel/TextDrop.h>

#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QTimer>
#include <QToolTip>

#include <utility>

using namespace curveeditor;

namespace {

bool mayNameCurve(const QMimeData& data)
{
    return data.hasText() && !data.text().contains(QLatin1Char('?'));
}

bool isInsert(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Insert && !(key.modifiers() & ~Qt::KeypadModifier);
}

MarkState stateOf(const QTreeWidgetItem& row, CurveMark mark)
{
    return CurveRowDelegate::stateOf(row.data(0, CurveRowDelegate::roleOf(mark)));
}

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
    viewport()->setAttribute(Qt::WA_Hover); // the row under the mouse offers its marks
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
void EditingList::paintEvent(QPaintEvent* event)
{
    QTreeWidget::paintEvent(event);
    if (topLevelItemCount() == 0)
        drawEmptyText(*viewport(), tr("Open a curve with +"), palette().color(QPalette::Text));
}

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

std::optional<CurveMark> EditingList::markAt(const QPoint& place) const
{
    const QTreeWidgetItem* const row = itemAt(place);
    return row ? CurveRowDelegate::markAt(place, visualItemRect(row), iconSize().height()) : std::nullopt;
}

bool EditingList::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeWidget::viewportEvent(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    const std::optional<CurveMark> mark = markAt(help.pos());
    if (!mark)
        return QTreeWidget::viewportEvent(event);
    QToolTip::showText(help.globalPos(), tipOf(*mark, stateOf(*itemAt(help.pos()), *mark)), this);
    return true;
}

void EditingList::mousePressEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    const std::optional<CurveMark> mark = markAt(place);
    if (mark && event->button() == Qt::LeftButton)
        Q_EMIT markClicked(itemAt(place), *mark);
    else
        QTreeWidget::mousePressEvent(event);
}

void EditingList::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (markAt(event->position().toPoint()))
        mousePressEvent(event);
    else
        QTreeWidget::mouseDoubleClickEvent(event);
}

// Delete ends here: in the dialog it would delete the selected points of the curve that is current
// afterwards.
void EditingList::keyPressEvent(QKeyEvent* event)
{
    if (isInsert(*event))
        return Q_EMIT curvesWanted();
    if (isDeleteKey(*event))
        Q_EMIT supressFromEditing(selectedItem());
    QTreeWidget::keyPressEvent(event);
    if (isDeleteKey(*event))
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
    describe(row);
}

void EditingList::setCurveMark(QTreeWidgetItem* row, CurveMark mark, const MarkState& state)
{
    row->setData(0, CurveRowDelegate::roleOf(mark), CurveRowDelegate::dataOf(state));
    describe(row);
}

void EditingList::setCurveSeen(QTreeWidgetItem* row, bool isSeen)
{
    row->setData(0, CurveRowDelegate::unseenRole, !isSeen);
}

void EditingList::setCurveKind(QTreeWidgetItem* row, bool isFormula)
{
    row->setData(0, CurveRowDelegate::formulaRole, isFormula);
    describe(row);
}

int EditingList::widthFor(const QTreeWidgetItem* row) const
{
    return sizeHintForIndex(indexFromItem(row)).width() +
           CurveRowDelegate::widthOfMarks(iconSize().height()) + 2 * frameWidth() +
           verticalScrollBar()->sizeHint().width();
}

/// For assistive tools; the name alone is enough where nothing is marked.
void EditingList::describe(QTreeWidgetItem* row)
{
    const std::pair<CurveMark, QString> words[] = {
        {CurveMark::Solo, tr("solo")}, {CurveMark::Hide, tr("hidden")}, {CurveMark::Lock, tr("locked")}};
    QStringList marked;
    for (const auto& [mark, word] : words) {
        if (stateOf(*row, mark).isOn)
            marked.append(word);
    }
    if (row->data(0, CurveRowDelegate::formulaRole).toBool())
        marked.append(tr("formula"));
    const QString text = row->text(0) + QLatin1String(", ") + marked.join(QLatin1String(", "));
    row->setData(0, Qt::AccessibleTextRole, marked.isEmpty() ? QVariant() : text);
}

QString EditingList::tipOf(CurveMark mark, const MarkState& state)
{
    if (mark == CurveMark::Solo)
        return tr("Shows this curve alone, or with others that are marked so (Shift+H)");
    if (mark == CurveMark::Hide)
        return state.isHosts ? tr("The application hides this curve") : tr("Hides this curve (H)");
    return state.isHosts ? tr("The application has locked this curve")
                         : tr("Locks this curve against edits (L)");
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
    for (int row = 0; event->type() == QEvent::LanguageChange && row < topLevelItemCount(); ++row)
        describe(topLevelItem(row));
}

void EditingList::fitSquares()
{
    const int side = fontMetrics().ascent();
    setIconSize({side, side});
}

#include "moc_EditingList.cpp"
