// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurveNames.h>

#include <curveeditor/canvas/CanvasCurves.h>
#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPainter>

#include <algorithm>
#include <vector>

namespace curveeditor {

namespace {

constexpr int leastCanvas = 300;
constexpr int margin = 6;
constexpr int padding = 3;
constexpr std::size_t mostNames = 12;
constexpr float opacity = 0.8F;

CanvasCurves::Nodes currentFirst(const CanvasCurves& curves)
{
    CanvasCurves::Nodes shown = curves.shown();
    const auto current = std::find(shown.begin(), shown.end(), curves.current());
    if (current != shown.end())
        std::rotate(shown.begin(), current, current + 1);
    return shown;
}

} // namespace

void drawCurveNames(QPainter& painter, const CanvasCurves& curves, const ViewPort& view,
                    const CurveEditorTheme& theme)
{
    const QFontMetrics metrics = painter.fontMetrics();
    const int height = metrics.height();
    const QRect room = QRect(0, 0, view.pixelWidth, view.pixelHeight)
                           .adjusted(0, height, -margin, -height - margin - theme.timeLineGrip);
    if (view.pixelWidth < leastCanvas || !view.canShow())
        return;
    QColor background = theme.canvas;
    background.setAlphaF(opacity);
    std::vector<QRect> taken;
    for (CurveNodeBase* const curve : currentFirst(curves)) {
        if (taken.size() == mostNames)
            return;
        const double row = curve->mapping().row(curve->getClampedValue(view.timeMax));
        if (!(row >= 0.0 && row <= view.pixelHeight))
            continue;
        const QString name = metrics.elidedText(curve->getName(), Qt::ElideMiddle, room.width() / 2);
        QRect place(0, 0, metrics.horizontalAdvance(name) + 2 * padding, height);
        place.moveCenter({0, int(row) - height / 2 - padding});
        place.moveRight(room.right());
        if (std::any_of(taken.begin(), taken.end(),
                        [&](const QRect& other) { return other.intersects(place); }))
            continue;
        taken.push_back(place);
        painter.fillRect(place, background);
        painter.setPen(curve->nameColor());
        painter.drawText(place, Qt::AlignCenter, name);
    }
}

} // namespace curveeditor
