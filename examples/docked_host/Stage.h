// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

class SplineBase;

/// The view of this host: the path of a ball whose place is read from two curves, and the ball at the present time.
class Stage : public QWidget
{
public:
    /// The curves must outlive it. Times are from 0 to `duration`, places from -1 to 1.
    Stage(const SplineBase& x, const SplineBase& y, double duration, QWidget* parent = nullptr);

    void setTime(double time);
    QColor color() const { return color_; }
    void setColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPointF placeAt(double time) const;

    const SplineBase& x_;
    const SplineBase& y_;
    double duration_;
    double time_ = 0.0;
    QColor color_ = QColor(230, 120, 40);
};
