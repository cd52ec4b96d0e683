// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

#include <optional>

namespace curveeditor {

/// Numbers as texts for fields, dialogs and tables. They show the decimal sign of a locale, and neither its digits
/// nor its groups; every decimal sign is read.
namespace NumberText {

/// See `typedNumber`.
std::optional<double> read(const QString& text);
/// The same, but nothing for an infinity.
std::optional<double> readFinite(const QString& text);

/// A number that is written with a ".", with the sign of that locale.
QString inLocale(QString number, const QLocale& locale);
/// The other way about, from any sign, for comparing what is shown.
QString withPoint(QString number);

/// At most six digits.
QString brief(double number, const QLocale& locale);
/// The shortest text that reads back to the same bits, without an exponent where that is readable.
QString full(double number, const QLocale& locale);

} // namespace NumberText

} // namespace curveeditor
