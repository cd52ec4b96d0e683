// SPDX-License-Identifier: MIT
#include "Transport.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QToolButton>

#include <algorithm>
#include <chrono>
#include <cmath>

using namespace std::chrono_literals;

namespace {

constexpr auto tick = 20ms;
constexpr double secondsToCross = 10.0;
constexpr int sliderSteps = 1000;
constexpr int fieldSteps = 100;
constexpr int mostDecimals = 12;

// Enough decimals to tell a thousandth of the range.
int decimalsFor(double span)
{
    return span > 0.0 ? int(std::clamp(3.0 - std::floor(std::log10(span)), 0.0, double(mostDecimals))) : 3;
}

} // namespace

Transport::Transport(QWidget* parent)
    : QWidget(parent), playButton_(new QToolButton(this)), slider_(new QSlider(Qt::Horizontal, this)),
      field_(new QDoubleSpinBox(this))
{
    playButton_->setObjectName(QStringLiteral("playButton"));
    playButton_->setCheckable(true);
    playButton_->setIcon(style()->standardIcon(QStyle::SP_MediaPlay));
    playButton_->setToolTip(tr("Play (Ctrl+P)"));
    playButton_->setAccessibleName(tr("Play"));
    playButton_->setShortcut(Qt::CTRL | Qt::Key_P);
    slider_->setObjectName(QStringLiteral("timeSlider"));
    slider_->setRange(0, sliderSteps);
    slider_->setToolTip(tr("Present time"));
    field_->setObjectName(QStringLiteral("timeField"));
    field_->setToolTip(tr("Present time"));
    for (QWidget* const widget : std::initializer_list<QWidget*>{slider_, field_})
        widget->setAccessibleName(widget->toolTip());
    field_->setKeyboardTracking(false);
    field_->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000.000000")) + 30);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(playButton_);
    layout->addWidget(slider_);
    layout->addWidget(field_);

    timer_.setInterval(tick);
    connect(&timer_, &QTimer::timeout, this, &Transport::advance);
    connect(playButton_, &QToolButton::toggled, this, &Transport::setPlaying);
    connect(slider_, &QSlider::valueChanged, this,
            [this](int step) { setTime(std::lerp(first_, last_, double(step) / sliderSteps)); });
    connect(field_, &QDoubleSpinBox::valueChanged, this, &Transport::setTime);
    setRange(first_, last_);
}

void Transport::setRange(double first, double last)
{
    first_ = first;
    last_ = last;
    const QSignalBlocker blocker(field_);
    field_->setDecimals(decimalsFor(last - first));
    field_->setRange(first, last);
    field_->setSingleStep((last - first) / fieldSteps);
    setTime(time_ > last ? first : time_);
    showTime();
}

void Transport::setTime(double time)
{
    time = std::clamp(time, first_, last_);
    if (time == time_)
        return;
    time_ = time;
    showTime();
    Q_EMIT timeChanged(time_);
}

void Transport::setPlaying(bool on)
{
    playButton_->setChecked(on);
    playButton_->setIcon(style()->standardIcon(on ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
    sinceTick_.start();
    timer_.stop();
    if (on)
        timer_.start();
}

void Transport::advance()
{
    const double span = last_ - first_;
    const double seconds = double(sinceTick_.restart()) / 1000.0;
    const double next = time_ + seconds / secondsToCross * span;
    setTime(next < last_ ? next : first_);
}

void Transport::showTime()
{
    const QSignalBlocker sliderBlocker(slider_);
    const QSignalBlocker fieldBlocker(field_);
    const double span = last_ - first_;
    slider_->setValue(span > 0.0 ? int(std::lround((time_ - first_) / span * sliderSteps)) : 0);
    field_->setValue(time_);
}

#include "moc_Transport.cpp"
