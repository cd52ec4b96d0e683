// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// How numbers of an axis may be written and read, to be given to `CurveEditor::setTimeText` and `setValueText`. Times are
/// in seconds. What can't be read gives nothing.
namespace AxisTexts {

/// How frames are counted. Where `dropped` is not 0, so many numbers are left out at each minute but every tenth, as SMPTE
/// 12M does, so that the count keeps up with a clock.
struct FrameRate
{
    int counted; ///< frame numbers in a counted second
    double perSecond;
    int dropped;
};
inline constexpr FrameRate film{24, 24.0, 0};
inline constexpr FrameRate dropFrame{30, 30000.0 / 1001.0, 2}; ///< 29.97 a second

/// "00:01:00:12", or with ";" before the frame if numbers are dropped; the nearest frame.
QString timecode(double time, const FrameRate& rate);
std::optional<double> timeOfTimecode(const QString& text, const FrameRate& rate);

/// "5.3.480": the bar, its beat, both from 1 on, and 960th parts of the beat.
QString bars(double time, double beatsPerMinute, int beatsPerBar);
std::optional<double> timeOfBars(const QString& text, double beatsPerMinute, int beatsPerBar);

/// "80 %" and its like: at most four digits.
QString withUnit(double value, const QString& unit);
std::optional<double> valueWithUnit(QString text, const QString& unit);

} // namespace AxisTexts
