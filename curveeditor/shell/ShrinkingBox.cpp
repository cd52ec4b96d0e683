// SPDX-License-Identifier: MIT
#include <curveeditor/shell/ShrinkingBox.h>

#include <QEvent>
#include <QMenu>
#include <QStyle>
#include <QToolButton>

namespace curveeditor {

namespace {

constexpr int space = 5;

QSize sizeIn(const QWidget& widget)
{
    return widget.sizeHint().boundedTo(widget.maximumSize());
}

} // namespace

ShrinkingBox::ShrinkingBox(QWidget* parent) : QFrame(parent), more_(new QToolButton(this))
{
    setFrameShape(QFrame::StyledPanel);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    more_->setObjectName(QStringLiteral("moreButton"));
    more_->hide();
    more_->setText(QStringLiteral("\u00BB"));
    more_->setAutoRaise(true);
    more_->setFocusPolicy(Qt::NoFocus);
    more_->setPopupMode(QToolButton::InstantPopup);
    more_->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    more_->setMenu(new QMenu(more_));
    connect(more_->menu(), &QMenu::aboutToShow, this, &ShrinkingBox::offerHidden);
    translate();
}

void ShrinkingBox::translate()
{
    more_->setToolTip(tr("More"));
    more_->setAccessibleName(tr("More"));
}

void ShrinkingBox::add(QAbstractButton* button)
{
    button->setParent(this);
    row_.append(button);
}

QSize ShrinkingBox::sizeHint() const
{
    QSize size(-space, 0);
    for (const QWidget* const button : row_) {
        const QSize one = sizeIn(*button);
        size = {size.width() + space + one.width(), qMax(size.height(), one.height())};
    }
    return size + QSize(2 * frameWidth(), 2 * frameWidth());
}

QSize ShrinkingBox::minimumSizeHint() const
{
    return {sizeIn(*more_).width() + 2 * frameWidth(), sizeHint().height()};
}

bool ShrinkingBox::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        updateGeometry();
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize)
        place();
    if (event->type() == QEvent::LanguageChange)
        translate();
    return QFrame::event(event);
}

void ShrinkingBox::placeAt(int left, QWidget& button)
{
    const QRect free = contentsRect();
    QRect place(QPoint(left, 0), sizeIn(button));
    place.moveTop(free.top() + (free.height() - place.height()) / 2);
    button.setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}

void ShrinkingBox::place()
{
    const QRect free = contentsRect();
    const bool hasRoom = sizeHint().width() <= width();
    const int end = hasRoom ? free.right() : free.right() - sizeIn(*more_).width();
    int left = free.left();
    for (QWidget* const button : row_) {
        const int next = left + sizeIn(*button).width();
        placeAt(left, *button);
        button->setVisible(next - 1 <= end);
        left = next + space;
    }
    placeAt(free.right() + 1 - sizeIn(*more_).width(), *more_);
    more_->setVisible(!hasRoom);
}

void ShrinkingBox::offerHidden()
{
    QMenu* const menu = more_->menu();
    menu->clear();
    for (QAbstractButton* const button : row_) {
        if (button->isHidden())
            menu->addAction(button->text().trimmed(), button, &QAbstractButton::click)
                ->setEnabled(button->isEnabled());
    }
}

} // namespace curveeditor

#include "moc_ShrinkingBox.cpp"
