// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/TitleWidth.h>

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace curveeditor {

namespace {

constexpr int leastRoomBeside = 80;

} // namespace

int titleWidth(const QWidget& window)
{
    QFont font = QApplication::font("QTitleBar");
    font.setBold(true); // as most frames draw it
    const int button = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return QFontMetrics(font).horizontalAdvance(window.windowTitle()) + std::max(2 * button, leastRoomBeside);
}

} // namespace curveeditor
