// SPDX-License-Identifier: MIT
#include <curveeditor/shell/ShrinkingBox.h>

#include <QEvent>
#include <QStyle>

namespace curveeditor {

namespace {

constexpr int space = 5;

QSize sizeIn(const QWidget& widget)
{
    return widget.sizeHint().boundedTo(widget.maximumSize());
}

} // namespace

ShrinkingBox::ShrinkingBox(QWidget* parent) : QFrame(parent)
{
    setFrameShape(QFrame::StyledPanel);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void ShrinkingBox::add(QWidget* widget)
{
    widget->setParent(this);
    row_.append(widget);
}

QSize ShrinkingBox::sizeHint() const
{
    QSize size(-space, 0);
    for (const QWidget* const widget : row_) {
        const QSize one = sizeIn(*widget);
        size = {size.width() + space + one.width(), qMax(size.height(), one.height())};
    }
    return size + QSize(2 * frameWidth(), 2 * frameWidth());
}

QSize ShrinkingBox::minimumSizeHint() const
{
    return {2 * frameWidth(), sizeHint().height()};
}

bool ShrinkingBox::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        updateGeometry();
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize)
        place();
    return QFrame::event(event);
}

void ShrinkingBox::place()
{
    const QRect free = contentsRect();
    int left = free.left();
    for (QWidget* const widget : row_) {
        QRect place(QPoint(left, 0), sizeIn(*widget));
        place.moveTop(free.top() + (free.height() - place.height()) / 2);
        widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
        widget->setVisible(place.right() <= free.right());
        left = place.right() + 1 + space;
    }
}

} // namespace curveeditor

#include "moc_ShrinkingBox.cpp"
