// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurveNames.h>

#include <curveeditor/canvas/CanvasCurves.h>
#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/OutlinedText.h>
#include <curveeditor/canvas/ShortenedName.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace curveeditor {

namespace {

constexpr int leastCanvas = 240;
constexpr int margin = 6;
constexpr int padding = 3;
constexpr std::size_t mostNames = 12;
constexpr int mostEnds = 6;               // that are tried in the right half
constexpr int stepOfRows = 16;            // columns
constexpr std::size_t mostKeptClear = 24; // curves that names keep clear of

CanvasCurves::Nodes currentFirst(const CanvasCurves& curves)
{
    CanvasCurves::Nodes shown = curves.shown();
    const auto current = std::find(shown.begin(), shown.end(), curves.current());
    if (current != shown.end())
        std::rotate(shown.begin(), current, current + 1);
    return shown;
}

/// The rows of curves at every few columns, each asked for once.
class Rows
{
public:
    Rows(const CanvasCurves::Nodes& curves, const ViewPort& view)
        : curves_(curves), view_(view), rows_(curves.size())
    {
    }

    /// The highest and the lowest row of a curve between two columns, both included.
    std::pair<double, double> span(std::size_t curve, int left, int right)
    {
        std::pair<double, double> found(std::numeric_limits<double>::max(),
                                        std::numeric_limits<double>::lowest());
        for (int place = left / stepOfRows; place <= right / stepOfRows + 1; ++place) {
            const double row = at(curve, place);
            found = {std::min(found.first, row), std::max(found.second, row)};
        }
        return found;
    }
    /// How many curves run through that place.
    int crossings(const QRect& place)
    {
        int count = 0;
        for (std::size_t curve = 0; curve < std::min(curves_.size(), mostKeptClear); ++curve) {
            const auto [top, bottom] = span(curve, place.left(), place.right());
            count += top <= place.bottom() && bottom >= place.top() ? 1 : 0;
        }
        return count;
    }

private:
    double at(std::size_t curve, int place)
    {
        std::vector<double>& rows = rows_[curve];
        if (rows.empty())
            rows.resize(std::size_t(view_.pixelWidth / stepOfRows + 2), unknown);
        double& row =
            rows[std::size_t(std::clamp(place, 0, int(rows.size()) - 1))]; // wide fonts reach past the canvas
        if (row == unknown) {
            const CurveNodeBase& node = *curves_[curve];
            row = node.mapping().row(node.getClampedValue(view_.mapping().timeAt(place * stepOfRows)));
        }
        return row;
    }

    static constexpr double unknown = std::numeric_limits<double>::infinity();
    const CanvasCurves::Nodes& curves_;
    const ViewPort& view_;
    std::vector<std::vector<double>> rows_;
};

/// Where names stand: above their line or below it, at its right end or further left, where the fewest curves run
/// through them.
class Places
{
public:
    Places(const QFontMetrics& metrics, const CanvasCurves::Nodes& curves, const ViewPort& view,
           const CurveEditorTheme& theme)
        : metrics_(metrics), rows_(curves, view), leastLeft_(3 * metrics.height())
    {
        room_ = QRect(0, 0, view.pixelWidth, view.pixelHeight)
                    .adjusted(0, margin, -margin, -metrics.height() - margin - theme.timeLineGrip);
    }
    std::size_t count() const { return taken_.size(); }
    QString shortened(const QString& name) const { return shortenedName(metrics_, name, room_.width() / 2); }
    std::optional<QRect> take(std::size_t curve, const QString& name)
    {
        QRect place(0, 0, metrics_.horizontalAdvance(name) + 2 * padding, metrics_.height());
        std::optional<QRect> best;
        int fewest = std::numeric_limits<int>::max();
        for (int end = 0; end < mostEnds && fewest > 0; ++end) {
            place.moveRight(room_.right() - end * room_.width() / (2 * mostEnds));
            if (end > 0 && place.left() < leastLeft_)
                break;
            const auto [top, bottom] = rows_.span(curve, place.left(), place.right());
            for (const double row : {top - place.height() - padding, bottom + padding}) {
                if (!(row >= room_.top() && row + place.height() <= room_.bottom()))
                    continue;
                place.moveTop(int(row));
                const int crossings = isFree(place) ? rows_.crossings(place) : fewest;
                if (crossings < fewest) {
                    fewest = crossings;
                    best = place;
                }
            }
        }
        if (best)
            taken_.push_back(*best);
        return best;
    }

private:
    bool isFree(const QRect& place) const
    {
        return std::none_of(taken_.begin(), taken_.end(),
                            [&place](const QRect& other) { return other.intersects(place); });
    }

    QFontMetrics metrics_;
    Rows rows_;
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
    const CanvasCurves::Nodes shown = currentFirst(curves);
    Places places(painter.fontMetrics(), shown, view, theme);
    for (std::size_t curve = 0; curve < shown.size() && places.count() < mostNames; ++curve) {
        const QString name = places.shortened(shown[curve]->getName());
        if (const std::optional<QRect> place = places.take(curve, name))
            drawOutlined(painter, *place, name, shown[curve]->nameColor(), theme.canvas);
    }
}

} // namespace curveeditor
