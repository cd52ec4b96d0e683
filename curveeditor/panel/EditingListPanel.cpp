// SPDX-License-Identifier: MIT
#include <curveeditor/panel/EditingListPanel.h>

#include <curveeditor/panel/EditingList.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

namespace curveeditor {

namespace {

constexpr int mostRowsAtAGlance = 12;

} // namespace

EditingListPanel::EditingListPanel(QWidget* parent)
    : QWidget(parent), filterLine_(new QLineEdit(this)), list_(new EditingList(this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(filterLine_);
    layout->addWidget(list_);
    filterLine_->setObjectName(QStringLiteral("filterLine"));
    filterLine_->setClearButtonEnabled(true);
    filterLine_->setAcceptDrops(false); // the list takes dropped names
    filterLine_->installEventFilter(this);
    filterLine_->hide();
    translate();
    connect(filterLine_, &QLineEdit::textChanged, list_, &EditingList::setFilter);
    connect(list_->model(), &QAbstractItemModel::rowsInserted, this, &EditingListPanel::showFilterLine);
    connect(list_->model(), &QAbstractItemModel::rowsRemoved, this, &EditingListPanel::showFilterLine);
}

void EditingListPanel::showFilterLine()
{
    const bool isNeeded = list_->topLevelItemCount() > mostRowsAtAGlance;
    if (isNeeded != filterLine_->isHidden())
        return;
    if (!isNeeded && filterLine_->hasFocus())
        list_->setFocus();
    if (!isNeeded)
        filterLine_->clear();
    filterLine_->setVisible(isNeeded);
}

bool EditingListPanel::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (watched != filterLine_ || (!isOverride && event->type() != QEvent::KeyPress))
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool clears = key == Qt::Key_Escape && !filterLine_->text().isEmpty();
    if (!clears && (isOverride || key != Qt::Key_Down))
        return QWidget::eventFilter(watched, event);
    event->accept();
    if (!isOverride && clears)
        filterLine_->clear();
    else if (!isOverride)
        list_->setFocus();
    return true;
}

void EditingListPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QWidget::changeEvent(event);
}

void EditingListPanel::translate()
{
    filterLine_->setPlaceholderText(tr("Filter"));
    filterLine_->setAccessibleName(tr("Filter of the curves"));
    filterLine_->setToolTip(
        tr("Shows only the curves whose names contain this text; the others stay on the canvas"));
}

} // namespace curveeditor

#include "moc_EditingListPanel.cpp"
