// SPDX-License-Identifier: MIT
#include <curveeditor/panel/PointTablePage.h>

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/edit/PointTypeTexts.h>
#include <curveeditor/panel/EmptyText.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

namespace curveeditor {

namespace {

constexpr const char* pickedProperty = "picked";
constexpr int digitsInSight = 13;
constexpr int currentCellWidth = 2; // of the frame around it

std::vector<int> selectedRows(const QTableView& view)
{
    std::vector<int> rows;
    for (const QItemSelectionRange& range : view.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

/// Edits cells. What the user has not touched in an editor is not written, and what is typed is not overwritten
/// when the host changes the curve meanwhile. Who hears of an edit may free the editor, and Qt asks it once more after
/// `setModelData`; so that only notes what `write` then writes.
class CellDelegate : public QStyledItemDelegate
{
public:
    explicit CellDelegate(QTableView* view) : QStyledItemDelegate(view), view_(view) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& cell) const override
    {
        if (cell.column() != PointTableModel::Type)
            return QStyledItemDelegate::createEditor(parent, option, cell);
        auto* const combo = new QComboBox(parent);
        const auto* const model = static_cast<const PointTableModel*>(cell.model());
        for (const PointType& type : PointTypes::all()) {
            if (!model->control() || model->control()->curve()->offers(type.number))
                combo->addItem(QString(), type.number);
        }
        combo->setCurrentIndex(-1);
        connect(combo, &QComboBox::activated, combo, [combo] { combo->setProperty(pickedProperty, true); });
        return combo;
    }

    // Of all selected cells this one takes what is typed.
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& cell) const override
    {
        QStyledItemDelegate::paint(painter, option, cell);
        if (cell != view_->currentIndex() || !view_->hasFocus())
            return;
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->setPen(QPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text),
                             currentCellWidth));
        const qreal inset = currentCellWidth / 2.0;
        painter->drawRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset));
        painter->restore();
    }

    // A sign stands before its number in every language.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& cell) const override
    {
        QStyledItemDelegate::initStyleOption(option, cell);
        if (cell.column() != PointTableModel::Type)
            option->direction = Qt::LeftToRight;
    }

    void setEditorData(QWidget* editor, const QModelIndex& cell) const override
    {
        auto* const combo = qobject_cast<QComboBox*>(editor);
        for (int type = 0; combo && type < combo->count(); ++type) // the language may have changed
            combo->setItemText(type,
                               PointTypeTexts::shown(PointTypes::of(combo->itemData(type).toInt()).name));
        if (isTouched(*editor))
            return;
        if (combo)
            combo->setCurrentText(cell.data().toString());
        else
            QStyledItemDelegate::setEditorData(editor, cell);
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& cell) const override
    {
        if (!isTouched(*editor))
            return;
        std::vector<int> rows = selectedRows(*view_);
        if (!std::binary_search(rows.begin(), rows.end(), cell.row()))
            rows = {cell.row()};
        const auto* const combo = qobject_cast<QComboBox*>(editor);
        const auto* const line = qobject_cast<QLineEdit*>(editor);
        const QString text = combo ? combo->currentText() : line->text();
        noted_ = [this, table = static_cast<PointTableModel*>(model), cell = QPersistentModelIndex(cell),
                  text, rows] {
            const QString fault = table->faultOf(cell, text);
            if (fault.isEmpty())
                table->setText(cell, text, rows);
            else
                tell(fault, cell);
        };
    }

    void write()
    {
        if (isFiltering_)
            return;
        if (const std::function<void()> work = std::exchange(noted_, nullptr))
            work();
    }

    /// An event that freed the editor ends here.
    bool eventFilter(QObject* editor, QEvent* event) override
    {
        const QPointer<QObject> guard(editor);
        const bool wasFiltering = std::exchange(isFiltering_, true); // closing the editor hides it
        const bool isTaken = QStyledItemDelegate::eventFilter(editor, event);
        isFiltering_ = wasFiltering;
        write();
        return isTaken || !guard;
    }

private:
    /// At the cell. The focus, which leaves the editor now, would hide it again.
    void tell(const QString& fault, const QPersistentModelIndex& cell) const
    {
        QTimer::singleShot(0, view_, [view = view_, fault, cell] {
            QWidget* const cells = view->viewport();
            QToolTip::showText(cells->mapToGlobal(view->visualRect(cell).bottomLeft()), fault, cells);
        });
    }

    static bool isTouched(const QWidget& editor)
    {
        const auto* const line = qobject_cast<const QLineEdit*>(&editor);
        return line ? line->isModified() : editor.property(pickedProperty).toBool();
    }

    QTableView* view_;
    mutable std::function<void()> noted_;
    bool isFiltering_ = false;
};

using Command = void (*)(PointCommands& points);

/// Null for a key that is none of a command.
Command commandOf(const QKeyEvent& key)
{
    if (key.matches(QKeySequence::Copy))
        return [](PointCommands& points) {
            points.copy();
        };
    if (key.matches(QKeySequence::Cut))
        return [](PointCommands& points) {
            points.cut();
        };
    if (key.matches(QKeySequence::Paste))
        return [](PointCommands& points) {
            points.paste(PointCommands::Paste::WhereTheyWere);
        };
    return nullptr;
}

class PointTableView : public QTableView
{
public:
    PointTableView(PointCommands& commands, QWidget* parent)
        : QTableView(parent), commands_(commands), cells_(new CellDelegate(this))
    {
        setItemDelegate(cells_);
    }

protected:
    /// A host in whose window the dialog is docked may have the same keys.
    bool event(QEvent* event) override
    {
        const auto* const key =
            event->type() == QEvent::ShortcutOverride ? static_cast<QKeyEvent*>(event) : nullptr;
        const bool isOurs = key && (commandOf(*key) || key->matches(QKeySequence::SelectAll));
        if (isOurs)
            event->accept();
        return isOurs || QTableView::event(event);
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (const Command command = commandOf(*event))
            command(commands_);
        else if (const std::optional<CursorAction> arrow = arrowOf(*event))
            follow(*arrow, event->modifiers().testFlag(Qt::ShiftModifier));
        else if (isReturn && state() != EditingState)
            goBelow();
        else
            QTableView::keyPressEvent(event);
    }

    void paintEvent(QPaintEvent* event) override
    {
        QTableView::paintEvent(event);
        if (model()->rowCount() == 0)
            drawEmptyText(*viewport(), PointTablePage::tr("Open a curve with points to see them here"),
                          palette().color(QPalette::Text));
    }

    void commitData(QWidget* editor) override
    {
        QTableView::commitData(editor);
        cells_->write();
    }

    /// Not one that the model's reset has closed already, as an edit that it commits itself can cause; it may even be
    /// freed by now.
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override
    {
        const auto editors = viewport()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        if (editors.contains(editor) && !editor->isHidden())
            QTableView::closeEditor(editor, hint);
        if (hint == QAbstractItemDelegate::SubmitModelCache) // by Return
            goBelow();
    }

private:
    /// For a bare arrow or one with Shift.
    static std::optional<CursorAction> arrowOf(const QKeyEvent& key)
    {
        if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
            return {};
        switch (key.key()) {
        case Qt::Key_Left:
            return MoveLeft;
        case Qt::Key_Right:
            return MoveRight;
        case Qt::Key_Up:
            return MoveUp;
        case Qt::Key_Down:
            return MoveDown;
        default:
            return {};
        }
    }

    /// To another cell of the row the selected rows stay, to another row with Shift, which is selected too.
    void follow(CursorAction arrow, bool shift)
    {
        const QModelIndex next = moveCursor(arrow, Qt::NoModifier);
        const bool staysInRow = next.row() == currentIndex().row();
        const QItemSelectionModel::SelectionFlags change =
            shift ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect;
        selectionModel()->setCurrentIndex(next, staysInRow ? QItemSelectionModel::NoUpdate
                                                           : change | QItemSelectionModel::Rows);
    }

    /// Several selected rows stay selected as long as it is one of them.
    void goBelow()
    {
        const QModelIndex below = currentIndex().siblingAtRow(currentIndex().row() + 1);
        if (!below.isValid())
            return;
        const bool isSelected = selectionModel()->isSelected(below);
        selectionModel()->setCurrentIndex(below, isSelected ? QItemSelectionModel::NoUpdate
                                                            : QItemSelectionModel::ClearAndSelect |
                                                                  QItemSelectionModel::Rows);
    }

    PointCommands& commands_;
    CellDelegate* cells_;
};

} // namespace

PointTablePage::PointTablePage(CanvasFunctionBase& canvas, QWidget* parent)
    : QWidget(parent), model_(*canvas.getViewport()), commands_(canvas),
      view_(new PointTableView(commands_, this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
    setSizePolicy(QSizePolicy::Ignored,
                  QSizePolicy::Ignored); // the other pages decide how much room there is
    view_->setObjectName(QStringLiteral("pointTable"));
    view_->setModel(&model_);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed);
    view_->setTabKeyNavigation(false);
    view_->setWordWrap(false);
    view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view_->horizontalHeader()->setHighlightSections(false);
    fitToFont();
    translate();
    model_.setLocale(locale());
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PointTablePage::pickSelection);
    connect(&model_, &PointTableModel::edited, this, &PointTablePage::edited);
}

void PointTablePage::fitToFont()
{
    for (QHeaderView* const header : {view_->horizontalHeader(), view_->verticalHeader()})
        header->setFont(font()); // else it may have another one from the desktop
    view_->verticalHeader()->setDefaultSectionSize(view_->verticalHeader()->minimumSectionSize());
    view_->horizontalHeader()->setDefaultSectionSize(fontMetrics().horizontalAdvance(u'0') * digitsInSight);
    fitToTitles();
}

void PointTablePage::fitToTitles()
{
    const QHeaderView& titles = *view_->horizontalHeader();
    for (int column = 0; column < PointTableModel::ColumnCount; ++column)
        view_->setColumnWidth(column, std::max(view_->columnWidth(column), titles.sectionSizeHint(column)));
}

void PointTablePage::show(ControlSplineNode* control)
{
    control_ = control;
    if (!isVisible())
        return;
    const QScopedValueRollback showing(isShowing_, true);
    const QModelIndex cell = view_->currentIndex();
    const PointSerial point = model_.pointIn(cell.row());
    const bool hasFocus = isAncestorOf(QApplication::focusWidget());
    const bool areOthers = model_.show(control);
    if (areOthers && hasFocus)
        view_->setFocus(); // a reset takes it away from an open cell
    if (areOthers)
        view_->selectionModel()->setCurrentIndex(model_.index(model_.rowOf(point), cell.column()),
                                                 QItemSelectionModel::NoUpdate);
    if (areOthers || (control && !(control->selection() == shown_)))
        selectRows();
}

void PointTablePage::selectRows()
{
    const Selection selection = control_ ? control_->selection() : Selection();
    const bool areOthers = !(selection == shown_);
    shown_ = selection;
    QItemSelection rows;
    const bool hasSpline = control_ && control_->getSpline();
    const std::vector<bool> marks = hasSpline ? shown_.marks(*control_->getSpline()) : std::vector<bool>();
    for (auto begin = std::find(marks.begin(), marks.end(), true); begin != marks.end();) {
        const auto end = std::find(begin, marks.end(), false);
        rows.append({model_.index(int(begin - marks.begin()), 0),
                     model_.index(int(end - marks.begin()) - 1, PointTableModel::ColumnCount - 1)});
        begin = std::find(end, marks.end(), true);
    }
    view_->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    if (!areOthers || rows.isEmpty() || rows.contains(view_->currentIndex()))
        return;
    const int column = std::max(view_->currentIndex().column(), 0);
    view_->selectionModel()->setCurrentIndex(model_.index(rows.front().top(), column),
                                             QItemSelectionModel::NoUpdate);
}

void PointTablePage::pickSelection()
{
    if (isShowing_ || !control_)
        return;
    std::vector<PointSerial> points;
    for (const int row : selectedRows(*view_))
        points.push_back(model_.pointIn(row));
    Selection& selection = control_->selection();
    if (points.size() == 1)
        selection.selectOnly(points.front());
    else
        selection.selectAll(std::move(points));
    shown_ = selection;
    Q_EMIT selectionPicked();
}

void PointTablePage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    show(control_);
}

void PointTablePage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitToFont();
    if (event->type() == QEvent::LocaleChange)
        model_.setLocale(locale());
}

void PointTablePage::translate()
{
    setWindowTitle(tr("Points"));
    model_.translate();
    fitToTitles();
    view_->setAccessibleName(tr("Points of the current curve"));
    if (auto* const corner = view_->findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly)) {
        corner->setAccessibleName(tr("Select all points"));
        corner->setToolTip(tr("Selects all points of the current curve"));
    }
    view_->setWhatsThis(tr("What is typed into a cell goes to all selected rows"));
}

} // namespace curveeditor

#include "moc_PointTablePage.cpp"
