// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurveNames.h>

#include <curveeditor/canvas/CanvasCurves.h>
#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/OutlinedText.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <optional>
#include <vector>

namespace curveeditor {

namespace {

constexpr int leastCanvas = 240;
constexpr int margin = 6;
constexpr int padding = 3;
constexpr std::size_t mostNames = 12;
constexpr int mostEnds = 4; // that are tried from the right on

CanvasCurves::Nodes currentFirst(const CanvasCurves& curves)
{
    CanvasCurves::Nodes shown = curves.shown();
    const auto current = std::find(shown.begin(), shown.end(), curves.current());
    if (current != shown.end())
        std::rotate(shown.begin(), current, current + 1);
    return shown;
}

/// Where names stand: above the right end of their line, below it, or further left where others stand there.
class Places
{
public:
    Places(const QFontMetrics& metrics, const ViewPort& view, const CurveEditorTheme& theme)
        : metrics_(metrics), view_(view), leastLeft_(3 * metrics.height())
    {
        room_ = QRect(0, 0, view.pixelWidth, view.pixelHeight)
                    .adjusted(0, metrics.height(), -margin, -metrics.height() - margin - theme.timeLineGrip);
    }
    std::size_t count() const { return taken_.size(); }
    QString shortened(const QString& name) const
    {
        return metrics_.elidedText(name, Qt::ElideMiddle, room_.width() / 2);
    }
    std::optional<QRect> take(const CurveNodeBase& curve, const QString& name)
    {
        QRect place(0, 0, metrics_.horizontalAdvance(name) + 2 * padding, metrics_.height());
        for (int end = 0; end < mostEnds; ++end) {
            place.moveRight(room_.right() - end * room_.width() / (mostEnds + 1));
            if (end != 0 && place.left() < leastLeft_)
                break;
            const double row = rowAt(curve, end == 0 ? view_.pixelWidth : place.center().x());
            if (!(row >= 0.0 && row <= view_.pixelHeight))
                continue;
            for (const int top : {int(row) - place.height() - padding, int(row) + padding}) {
                place.moveTop(std::max(room_.top(), std::min(top, room_.bottom() - place.height())));
                if (isFree(place)) {
                    taken_.push_back(place);
                    return place;
                }
            }
        }
        return std::nullopt;
    }

private:
    double rowAt(const CurveNodeBase& curve, int column) const
    {
        return curve.mapping().row(curve.getClampedValue(view_.mapping().timeAt(column)));
    }
    bool isFree(const QRect& place) const
    {
        return std::none_of(taken_.begin(), taken_.end(),
                            [&place](const QRect& other) { return other.intersects(place); });
    }

    QFontMetrics metrics_;
    const ViewPort& view_;
    QRect room_;
    int leastLeft_; ///< right of the numbers along the left edge, mostly
    std::vector<QRect> taken_;
};

} // namespace

void drawCurveNames(QPainter& painter, const CanvasCurves& curves, const ViewPort& view,
                    const CurveEditorTheme& theme)
{
    if (view.pixelWidth < leastCanvas || !view.canShow())
        return;
    Places places(painter.fontMetrics(), view, theme);
    for (CurveNodeBase* const curve : currentFirst(curves)) {
        if (places.count() == mostNames)
            return;
        const QString name = places.shortened(curve->getName());
        if (const std::optional<QRect> place = places.take(*curve, name))
            drawOutlined(painter, *place, name, curve->nameColor(), theme.canvas);
    }
}

} // namespace curveeditor
