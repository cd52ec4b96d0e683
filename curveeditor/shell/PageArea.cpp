// SPDX-License-Identifier: MIT
#include <curveeditor/shell/PageArea.h>

#include <QApplication>
#include <QEvent>
#include <QResizeEvent>
#include <QScrollBar>

namespace curveeditor {

namespace {

constexpr QSize leastSize(120, 200);

} // namespace

PageArea::PageArea(QWidget* parent) : QScrollArea(parent)
{
    auto* const content = new QWidget;
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setWidget(content);
    setFocusPolicy(Qt::NoFocus);
    for (QWidget* const transparent : {viewport(), content})
        transparent->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now && widget()->isAncestorOf(now))
            bringIntoSight(*now);
    });
}

/// The whole widget, or of a long line the cursor.
void PageArea::bringIntoSight(QWidget& part)
{
    const QRect place(part.mapTo(widget(), QPoint()), part.size());
    if (place.width() > viewport()->width())
        return ensureWidgetVisible(&part);
    ensureVisible(place.center().x(), place.center().y(), place.width() / 2 + 1, place.height() / 2 + 1);
}

void PageArea::setScrolls(bool scrolls)
{
    scrolls_ = scrolls;
    updateGeometry();
}

QSize PageArea::sizeHint() const
{
    return widget()->sizeHint().expandedTo(minimumSizeHint());
}

QSize PageArea::minimumSizeHint() const
{
    const QSize whole = widget()->minimumSizeHint();
    return scrolls_ ? (whole + QSize(0, barHeight())).boundedTo(leastSize) : whole;
}

/// Of the bar that the content needs. The splitter, which gives pages their room, asks before they have its width.
int PageArea::barHeight() const
{
    const QWidget* const stack = parentWidget();
    const QWidget* const tabs = stack->parentWidget();
    const int room = tabs->parentWidget()->width() - (tabs->width() - stack->width());
    return room < widget()->minimumSizeHint().width() ? horizontalScrollBar()->sizeHint().height() : 0;
}

void PageArea::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    Q_EMIT widthChanged(event->size().width());
}

bool PageArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace curveeditor

#include "moc_PageArea.cpp"
