// SPDX-License-Identifier: MIT
#include <curveeditor/shell/DialogParts.h>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace {

constexpr int rowHeight = 20;
constexpr int lineWidth = 60;
constexpr int lineLength = 9;
constexpr double usualFontHeight = 14.0;

void fixForFont(QWidget* widget, const QSize& size)
{
    const double scale = std::max(1.0, widget->fontMetrics().height() / usualFontHeight);
    widget->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    widget->setFixedSize(size * scale);
}

} // namespace

void setDialogFamily(QWidget* widget)
{
    widget->setFont(QFont(QStringLiteral("Arial Narrow")));
}

void setPaletteColor(QWidget* widget, QPalette::ColorRole role, const QColor& color)
{
    QPalette colors = widget->palette();
    colors.setColor(role, color);
    widget->setPalette(colors);
}

QLabel* numberLabel(const char* name, QDialog* parent, int width)
{
    auto* label = named<QLabel>(name, parent);
    fixForFont(label, {width, rowHeight});
    return label;
}

QLineEdit* numberLine(const char* name, QDialog* parent, QLabel* label)
{
    auto* line = named<QLineEdit>(name, parent);
    fixForFont(line, {lineWidth, rowHeight});
    line->setMaxLength(lineLength);
    line->setAlignment(Qt::AlignRight);
    label->setBuddy(line);
    return line;
}

QHBoxLayout* widgetRow(const char* name, QVBoxLayout* outer, QWidget* left, QWidget* right)
{
    auto* row = innerLayout<QHBoxLayout>(name, outer);
    row->addWidget(left);
    row->addWidget(right);
    return row;
}

void fixSize(QDialog* dialog, const QSize& size)
{
    fixForFont(dialog, size);
}
