// SPDX-License-Identifier: MIT
#include "SoundTrack.h"

#include <curveeditor/edit/PlaneMapping.h>

#include <QColor>
#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <random>

SoundTrack::SoundTrack(double duration) : samples_(std::size_t(duration * rate))
{
    std::minstd_rand random;
    std::uniform_real_distribution<float> noise(-1.0F, 1.0F);
    for (std::size_t i = 0; i < samples_.size(); ++i) {
        const double time = double(i) / rate;
        const double beat = std::exp(-4.0 * std::fmod(time, 60.0 / tempo));
        const double swell = 0.35 + 0.3 * std::sin(time / 7.0);
        samples_[i] = noise(random) * float(swell * (0.3 + 0.7 * beat));
    }
}

void SoundTrack::paint(QPainter& painter, const PlaneMapping& view) const
{
    const double middle = view.pixelHeight / 2.0;
    painter.setPen(QColor(110, 140, 190, 70));
    QList<QLineF> columns;
    for (int column = 0; column < view.pixelWidth; ++column) {
        const auto sampleAt = [&](int pixel) {
            const double sample = view.timeAt(pixel) * rate;
            return std::size_t(std::clamp(sample, 0.0, double(samples_.size())));
        };
        const auto first = samples_.begin() + std::ptrdiff_t(sampleAt(column));
        const auto last =
            samples_.begin() + std::ptrdiff_t(std::min(sampleAt(column + 1) + 1, samples_.size()));
        if (first >= last)
            continue;
        const auto [least, greatest] = std::minmax_element(first, last);
        columns.append({column + 0.5, middle * (1.0 - *greatest), column + 0.5, middle * (1.0 - *least)});
    }
    painter.drawLines(columns);
}
