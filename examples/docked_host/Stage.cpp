// SPDX-License-Identifier: MIT
#include "Stage.h"

#include <QPainter>

Stage::Stage(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(320, 160);
    setFocusPolicy(Qt::ClickFocus); // a click takes the keys from the editor
}

void Stage::setImage(const QImage& image)
{
    image_ = image;
    update();
}

void Stage::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).drawImage(rect(), image_);
}

void Stage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Q_EMIT resized();
}
