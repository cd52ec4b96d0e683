// SPDX-License-Identifier: MIT
#include "DarkPalette.h"

QPalette darkPalette()
{
    QPalette palette(QColor(44, 48, 54), QColor(34, 38, 44));
    palette.setColor(QPalette::Base, QColor(22, 25, 30));
    palette.setColor(QPalette::AlternateBase, QColor(28, 32, 38));
    palette.setColor(QPalette::Highlight, QColor(76, 155, 255));
    palette.setColor(QPalette::HighlightedText, QColor(10, 14, 20));
    palette.setColor(QPalette::ToolTipBase, QColor(44, 48, 54));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(230, 237, 243));
        palette.setColor(QPalette::Disabled, role, QColor(120, 128, 138));
    }
    return palette;
}
