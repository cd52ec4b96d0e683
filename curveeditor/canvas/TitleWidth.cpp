// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/TitleWidth.h>

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <QWidget>

namespace curveeditor {

int titleWidth(const QWidget& window)
{
    QFont font = QApplication::font("QTitleBar");
    font.setBold(true); // as most frames draw it
    const int button = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return QFontMetrics(font).horizontalAdvance(window.windowTitle()) + 2 * button;
}

} // namespace curveeditor
