// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class QDoubleSpinBox;
class QSlider;
class QToolButton;

/// The host's clock: a button that plays, a slider and a field for the present time. Playing crosses the
/// range in ten seconds, over and over.
class Transport : public QWidget
{
    Q_OBJECT

public:
    explicit Transport(QWidget* parent = nullptr);

    /// The range of time, in time units, `last` not before `first`. A present time outside of it moves to its
    /// beginning.
    void setRange(double first, double last);

    /// The present time, in time units.
    double getTime() const { return time_; }
    /// Moves the clock within its range.
    void setTime(double time);
    void setPlaying(bool on);

Q_SIGNALS:
    void timeChanged(double time);

private:
    void advance();
    void showTime();

    double first_ = 0.0;
    double last_ = 1.0;
    double time_ = 0.0;
    QTimer timer_;
    QElapsedTimer sinceTick_;
    QToolButton* playButton_;
    QSlider* slider_;
    QDoubleSpinBox* field_;
};
