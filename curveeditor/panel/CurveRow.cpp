// SPDX-License-Identifier: MIT
#include <curveeditor/panel/CurveRow.h>

#include <QCollator>

namespace curveeditor {

namespace {

QCollator collatorOfNames()
{
    const QLocale locale;
    // the C locale doesn't know numbers
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    return collator;
}

} // namespace

bool CurveRow::comesBefore(const QString& name, const QString& other)
{
    static const QCollator collator = collatorOfNames();
    const int order = collator.compare(name, other);
    return order != 0 ? order < 0 : name < other;
}

bool CurveRow::operator<(const QTreeWidgetItem& other) const
{
    return comesBefore(text(0), other.text(0));
}

} // namespace curveeditor
