// SPDX-License-Identifier: MIT
#include <curveeditor/shell/DialogParts.h>

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
