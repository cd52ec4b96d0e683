// SPDX-License-Identifier: MIT
#include "AxisTexts.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>

namespace AxisTexts {

namespace {

constexpr double longest =
    1e9; // seconds; a time beyond that, where a formula or a hand may lead, is a mere number
constexpr int ticksPerBeat = 960;

QString twoDigits(qint64 number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

/// The numbers in a text of that form; none if it has another.
QList<qint64> numbersIn(const QString& text, const QString& form)
{
    const QRegularExpressionMatch match =
        QRegularExpression(QRegularExpression::anchoredPattern(form)).match(text.trimmed());
    QList<qint64> numbers;
    for (int i = 1; match.hasMatch() && i <= match.lastCapturedIndex(); ++i)
        numbers.append(match.captured(i).toLongLong());
    return numbers;
}

} // namespace

QString timecode(double time, const FrameRate& rate)
{
    if (!(std::abs(time) < longest))
        return QString::number(time);
    qint64 frame = std::llround(std::abs(time) * rate.perSecond);
    const bool isNegative = time < 0.0 && frame > 0;
    if (rate.dropped > 0) {
        const qint64 perMinute = 60 * rate.counted - rate.dropped;
        const qint64 perTenMinutes = 10 * perMinute + rate.dropped;
        const qint64 rest = frame % perTenMinutes;
        frame += 9 * rate.dropped * (frame / perTenMinutes);
        if (rest >= rate.dropped)
            frame += rate.dropped * ((rest - rate.dropped) / perMinute);
    }
    const qint64 seconds = frame / rate.counted;
    const QStringList parts = {twoDigits(seconds / 3600), twoDigits(seconds / 60 % 60),
                               twoDigits(seconds % 60)};
    return (isNegative ? QStringLiteral("-") : QString()) + parts.join(QLatin1Char(':')) +
           QLatin1Char(rate.dropped > 0 ? ';' : ':') + twoDigits(frame % rate.counted);
}

std::optional<double> timeOfTimecode(const QString& text, const FrameRate& rate)
{
    const bool isNegative = text.trimmed().startsWith(QLatin1Char('-'));
    const QList<qint64> parts =
        numbersIn(text, QStringLiteral("-?(\\d{1,6}):(\\d{1,2}):(\\d{1,2})[:;](\\d{1,2})"));
    if (parts.size() < 4 || parts[1] > 59 || parts[2] > 59 || parts[3] >= rate.counted)
        return std::nullopt;
    const qint64 minutes = parts[0] * 60 + parts[1];
    const bool isDropped = minutes % 10 != 0 && parts[2] == 0 && parts[3] < rate.dropped;
    if (isDropped)
        return std::nullopt;
    const qint64 frame =
        (minutes * 60 + parts[2]) * rate.counted + parts[3] - rate.dropped * (minutes - minutes / 10);
    return (isNegative ? -1.0 : 1.0) * double(frame) / rate.perSecond;
}

QString bars(double time, double beatsPerMinute, int beatsPerBar)
{
    if (!(std::abs(time) < longest))
        return QString::number(time);
    const qint64 ticks = std::llround(time * beatsPerMinute / 60.0 * ticksPerBeat);
    const qint64 perBar = qint64(beatsPerBar) * ticksPerBeat;
    const qint64 bar = qint64(std::floor(double(ticks) / double(perBar)));
    const qint64 rest = ticks - bar * perBar;
    return QStringLiteral("%1.%2.%3")
        .arg(bar + 1)
        .arg(rest / ticksPerBeat + 1)
        .arg(rest % ticksPerBeat, 3, 10, QLatin1Char('0'));
}

std::optional<double> timeOfBars(const QString& text, double beatsPerMinute, int beatsPerBar)
{
    const QList<qint64> parts = numbersIn(text, QStringLiteral("(-?\\d{1,9})\\.(\\d{1,3})\\.(\\d{1,3})"));
    if (parts.size() < 3 || parts[1] < 1 || parts[1] > beatsPerBar || parts[2] >= ticksPerBeat)
        return std::nullopt;
    const double beats =
        double((parts[0] - 1) * beatsPerBar + parts[1] - 1) + double(parts[2]) / ticksPerBeat;
    return beats * 60.0 / beatsPerMinute;
}

QString withUnit(double value, const QString& unit)
{
    return QLocale().toString(value, 'g', 4) + QLatin1Char(' ') + unit;
}

std::optional<double> valueWithUnit(QString text, const QString& unit)
{
    text = text.trimmed();
    if (!text.endsWith(unit))
        return std::nullopt;
    text.chop(unit.size());
    bool isNumber = false;
    const double value = QLocale().toDouble(text.trimmed(), &isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

} // namespace AxisTexts
