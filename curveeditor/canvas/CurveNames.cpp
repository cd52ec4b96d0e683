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

CanvasCurves::Nodes currentFirst(const CanvasCurves& curves)
{
    CanvasCurves::Nodes shown = curves.shown();
    const auto current = std::find(shown.begin(), shown.end(), curves.current());
    if (current != shown.end())
        std::rotate(shown.begin(), current, current + 1);
    return shown;
}

/// On a line of its own colour a name is read by its outline.
void drawOutlined(QPainter& painter, const QRect& place, const QString& name, const QColor& color,
                  const QColor& background)
{
    painter.setPen(background);
    for (const QPoint& shift : {QPoint(-1, -1), QPoint(0, -1), QPoint(1, -1), QPoint(-1, 0), QPoint(1, 0),
                                QPoint(-1, 1), QPoint(0, 1), QPoint(1, 1)})
        painter.drawText(place.translated(shift), Qt::AlignCenter, name);
    painter.setPen(color);
    painter.drawText(place, Qt::AlignCenter, name);
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
    std::vector<QRect> taken;
    const auto isFree = [&taken](const QRect& place) {
        return std::none_of(taken.begin(), taken.end(),
                            [&place](const QRect& other) { return other.intersects(place); });
    };
    for (CurveNodeBase* const curve : currentFirst(curves)) {
        if (taken.size() == mostNames)
            return;
        const double row = curve->mapping().row(curve->getClampedValue(view.timeMax));
        if (!(row >= 0.0 && row <= view.pixelHeight))
            continue;
        const QString name = metrics.elidedText(curve->getName(), Qt::ElideMiddle, room.width() / 2);
        QRect place(0, 0, metrics.horizontalAdvance(name) + 2 * padding, height);
        place.moveRight(room.right());
        for (const int top : {int(row) - height - padding, int(row) + padding}) { // above its line, or below
            place.moveTop(std::max(room.top(), std::min(top, room.bottom() - height)));
            if (!isFree(place))
                continue;
            taken.push_back(place);
            drawOutlined(painter, place, name, curve->nameColor(), theme.canvas);
            break;
        }
    }
}

} // namespace curveeditor
