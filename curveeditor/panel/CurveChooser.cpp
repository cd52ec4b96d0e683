// SPDX-License-Identifier: MIT
#include <curveeditor/panel/CurveChooser.h>

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QStringListModel>
#include <QVBoxLayout>

#include <algorithm>

namespace curveeditor {

namespace {

constexpr int rowsInSight = 12;
constexpr int charactersInSight = 40;

/// Long names are shortened, so each is its own tip.
class NameModel : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;

    QVariant data(const QModelIndex& name, int role) const override
    {
        return QStringListModel::data(name, role == Qt::ToolTipRole ? int(Qt::DisplayRole) : role);
    }
};

bool movesDown(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Down || key.key() == Qt::Key_PageDown;
}

} // namespace

CurveChooser::CurveChooser(QWidget* parent)
    : QFrame(parent, Qt::Popup), line_(new QLineEdit(this)), list_(new QListView(this)),
      model_(new NameModel(this))
{
    setObjectName(QStringLiteral("curveChooser"));
    setFrameStyle(QFrame::Box | QFrame::Plain); // a styled one is not to be seen on dark canvases
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(line_);
    layout->addWidget(list_);
    line_->setClearButtonEnabled(true);
    list_->setModel(model_);
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setTextElideMode(Qt::ElideMiddle);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    line_->installEventFilter(this);
    list_->installEventFilter(this);
    connect(line_, &QLineEdit::textChanged, this, &CurveChooser::filter);
    connect(list_, &QAbstractItemView::doubleClicked, this, &CurveChooser::choose);
    translate();
}

void CurveChooser::open(const QStringList& names, const QWidget& over)
{
    names_ = names;
    line_->clear();
    filter({});
    translate();
    for (QWidget* const part : std::initializer_list<QWidget*>{line_, list_})
        part->setFont(over.font());
    setPalette(over.palette());
    const QFontMetrics metrics(over.font());
    const int rowHeight = qMax(metrics.height(), list_->sizeHintForRow(0));
    resize(charactersInSight * metrics.averageCharWidth(),
           line_->sizeHint().height() + rowsInSight * rowHeight);
    QRect place(over.mapToGlobal(QPoint()), size());
    const QRect free = over.screen()->availableGeometry();
    place.moveRight(qMin(place.right(), free.right()));
    place.moveBottom(qMin(place.bottom(), free.bottom()));
    move(place.topLeft());
    show();
    line_->setFocus(Qt::PopupFocusReason);
}

void CurveChooser::filter(const QString& part)
{
    model_->setStringList(part.isEmpty() ? names_ : names_.filter(part, Qt::CaseInsensitive));
    list_->setCurrentIndex(model_->index(0));
}

void CurveChooser::choose()
{
    QList<int> rows;
    for (const QModelIndex& name : list_->selectionModel()->selectedIndexes())
        rows.append(name.row());
    std::sort(rows.begin(), rows.end());
    QStringList names;
    for (const int row : rows)
        names.append(model_->index(row).data().toString());
    close();
    Q_EMIT chosen(names);
}

bool CurveChooser::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (isOverride)
        event->accept(); // no shortcut of a window acts meanwhile
    const bool isKey = event->type() == QEvent::KeyPress;
    return isOverride || (isKey && takeKey(watched, *static_cast<QKeyEvent*>(event)));
}

bool CurveChooser::takeKey(QObject* watched, QKeyEvent& key)
{
    const bool isInLine = watched == line_;
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return choose(), true;
    if (key.key() == Qt::Key_Escape)
        return close(), true;
    if (isInLine && movesDown(key)) {
        list_->setFocus();
        return QCoreApplication::sendEvent(list_, &key), true;
    }
    const bool leavesList = key.key() == Qt::Key_Up && list_->currentIndex().row() <= 0;
    const bool types = !key.text().isEmpty() && key.text()[0].isPrint() && key.text() != QLatin1String(" ");
    if (isInLine || (!leavesList && !types && key.key() != Qt::Key_Backspace))
        return false;
    line_->setFocus();
    if (!leavesList)
        QCoreApplication::sendEvent(line_, &key);
    return true;
}

void CurveChooser::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QFrame::changeEvent(event);
}

void CurveChooser::translate()
{
    setAccessibleName(tr("Curves to open"));
    line_->setPlaceholderText(names_.isEmpty() ? tr("There is no other curve") : tr("Filter"));
    line_->setAccessibleName(tr("Filter of the curves to open"));
    list_->setAccessibleName(tr("Curves that are not on the canvas"));
    line_->setToolTip(
        tr("Shows only the curves whose names contain this text; Return puts the chosen ones on the canvas"));
    list_->setWhatsThis(
        tr("Return or a double click puts the chosen curves on the canvas, Shift and Ctrl choose several"));
}

} // namespace curveeditor

#include "moc_CurveChooser.cpp"
