// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

class PlaneMapping;
class QPainter;

/// The music of the show, to be drawn beneath the curves.
class SoundTrack
{
public:
    static constexpr int rate = 8000;      ///< samples a second
    static constexpr double tempo = 120.0; ///< beats a minute

    /// Of so many seconds, made up.
    explicit SoundTrack(double duration);

    /// Draws the loudest and the faintest sample of each column, across the whole height.
    void paint(QPainter& painter, const PlaneMapping& view) const;

private:
    std::vector<float> samples_; ///< -1.0 to 1.0
};
