// SPDX-License-Identifier: MIT
#include "Stage.h"

#include <curveeditor/model/SplineBase.h>

#include <QPainter>

Stage::Stage(const SplineBase& x, const SplineBase& y, double duration, QWidget* parent)
    : QWidget(parent), x_(x), y_(y), duration_(duration)
{
    setMinimumSize(320, 180);
    setFocusPolicy(Qt::ClickFocus); // a click takes the keys from the editor
}

void Stage::setTime(double time)
{
    time_ = time;
    update();
}

void Stage::setColor(const QColor& color)
{
    color_ = color;
    update();
}

void Stage::paintEvent(QPaintEvent* /*event*/)
{
    constexpr int steps = 300;
    constexpr double radius = 12.0;
    QPolygonF path;
    for (int i = 0; i <= steps; ++i)
        path << placeAt(duration_ * i / steps);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().base());
    painter.setPen(QPen(palette().mid(), 2.0));
    painter.drawPolyline(path);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color_);
    painter.drawEllipse(placeAt(time_), radius, radius);
}

QPointF Stage::placeAt(double time) const
{
    return {(1.0 + x_(time)) / 2.0 * width(), (1.0 - y_(time)) / 2.0 * height()};
}
