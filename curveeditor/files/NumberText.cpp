// SPDX-License-Identifier: MIT
#include <curveeditor/files/NumberText.h>

#include <curveeditor/files/TypedNumber.h>

#include <cmath>

namespace curveeditor {

namespace {

constexpr char16_t arabicSign = u'\u066B';
constexpr int briefDigits = 6;

} // namespace

std::optional<double> NumberText::read(const QString& text)
{
    return typedNumber(QString(text).replace(QChar(arabicSign), QLatin1Char('.')).toStdString());
}

std::optional<double> NumberText::readFinite(const QString& text)
{
    const std::optional<double> number = read(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

QString NumberText::inLocale(QString number, const QLocale& locale)
{
    return number.replace(QLatin1Char('.'), locale.decimalPoint());
}

QString NumberText::withPoint(QString number)
{
    return number.replace(QLatin1Char(','), QLatin1Char('.')).replace(QChar(arabicSign), QLatin1Char('.'));
}

QString NumberText::brief(double number, const QLocale& locale)
{
    return inLocale(QString::number(number, 'g', briefDigits), locale);
}

QString NumberText::full(double number, const QLocale& locale)
{
    const double size = std::abs(number);
    const bool isPlain = size >= 1e-5 && size < 1e15;
    return inLocale(QString::number(number, isPlain ? 'f' : 'g', QLocale::FloatingPointShortest), locale);
}

} // namespace curveeditor
