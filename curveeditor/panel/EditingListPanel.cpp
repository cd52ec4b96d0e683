// SPDX-License-Identifier: MIT
#include <curveeditor/panel/EditingListPanel.h>

#include <curveeditor/panel/CurveChooser.h>
#include <curveeditor/panel/EditingList.h>

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace curveeditor {

namespace {

constexpr int mostRowsAtAGlance = 12;

} // namespace

EditingListPanel::EditingListPanel(QWidget* parent)
    : QWidget(parent), filterLine_(new QLineEdit(this)), openButton_(new QToolButton(this)),
      openAction_(new QAction(this)), list_(new EditingList(this)), chooser_(new CurveChooser(this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* const head = new QHBoxLayout;
    layout->addLayout(head);
    head->addWidget(filterLine_);
    head->addStretch();
    head->addWidget(openButton_);
    layout->addWidget(list_);
    openButton_->setObjectName(QStringLiteral("openButton"));
    openButton_->setText(QStringLiteral("+"));
    openButton_->setAutoRaise(true);
    openAction_->setObjectName(QStringLiteral("openCurvesAction"));
    openAction_->setShortcut(Qt::Key_Insert);
    openAction_->setShortcutContext(Qt::WidgetShortcut); // of the menu: Qt only shows it
    connect(openAction_, &QAction::triggered, this, &EditingListPanel::curvesWanted);
    connect(openAction_, &QAction::changed, this, [this] {
        openButton_->setVisible(openAction_->isVisible());
        openButton_->setEnabled(openAction_->isEnabled());
    });
    connect(openButton_, &QToolButton::clicked, openAction_, &QAction::trigger);
    connect(list_, &EditingList::curvesWanted, this, [this] {
        if (openAction_->isEnabled())
            openAction_->trigger();
    });
    connect(chooser_, &CurveChooser::chosen, this, &EditingListPanel::curvesChosen);
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

void EditingListPanel::offer(const QStringList& names, const QWidget& over)
{
    chooser_->open(names, over);
}

void EditingListPanel::closeOffer()
{
    chooser_->close();
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
    openAction_->setText(tr("Open curves…"));
    openButton_->setAccessibleName(tr("Open curves"));
    openButton_->setToolTip(tr("Puts curves on the canvas (Insert in the list)"));
    filterLine_->setPlaceholderText(tr("Filter"));
    filterLine_->setAccessibleName(tr("Filter of the curves"));
    filterLine_->setToolTip(
        tr("Shows only the curves whose names contain this text; the others stay on the canvas"));
}

} // namespace curveeditor

#include "moc_EditingListPanel.cpp"
