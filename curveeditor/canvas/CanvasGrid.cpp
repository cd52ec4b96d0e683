// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasGrid.h>

#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/DevicePixels.h>
#include <curveeditor/canvas/OutlinedText.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/Truncate.h>

#include <QPainter>
#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using namespace curveeditor;

namespace {

constexpr int fewestLines = 5;
constexpr int mostLines = 100;
constexpr int leastLineDistance = 4; // of lines of the host, in pixels
constexpr int leastFineDistance = 10;
constexpr int labelGap = 4;    // between a line and its number
constexpr int labelMargin = 5; // between an edge of the canvas and the numbers along it
constexpr int lastColumnWithoutLabel = 12;
constexpr int labelPadding = 3;

struct Axis
{
    double step = 0.0;
    double first = 0.0;  ///< axis position of line 0
    double offset = 0.0; ///< of line 0 from the lower edge
    double span = 0.0;
    int count = 0;
    int zeroIndex = -1;
    int leading = 1; ///< digit of the step, where it is round

    /// Where a line lies on a side of `length` pixels, from the lower edge on.
    double position(int index, int length) const { return length * (index * step + offset) / span; }
};

/// By repeated squaring, so that a step is the same number with every C library.
double powerOfTen(int exponent)
{
    double power = 1.0;
    double square = 10.0;
    for (int bits = std::abs(exponent); bits != 0; bits >>= 1) {
        if (bits & 1)
            power *= square;
        square *= square;
    }
    return exponent < 0 ? 1.0 / power : power;
}

/// A few steps down do. Where the ends are too close for a double to tell the lines between them apart, the
/// step comes to nothing or the count goes beyond all bounds, and there is no line.
Axis axisBetween(double lower, double upper, bool isRound)
{
    Axis axis;
    axis.span = upper - lower;
    if (!(axis.span > 0.0) || !std::isfinite(axis.span))
        return axis;

    int exponent = truncateToInt(std::floor(std::log10(axis.span)));
    const auto stepDown = [&] {
        if (!isRound)
            return axis.step * 0.5;
        exponent -= axis.leading == 1 ? 1 : 0;
        axis.leading = axis.leading == 5 ? 2 : axis.leading == 2 ? 1 : 5;
        return axis.leading * powerOfTen(exponent);
    };
    for (axis.step = powerOfTen(exponent); axis.step > 0.0; axis.step = stepDown()) {
        const double firstMultiple = std::ceil(lower / axis.step);
        const double lines = std::floor(upper / axis.step) - firstMultiple + 1.0;
        if (lines > mostLines)
            break;
        if (lines >= fewestLines) {
            axis.offset = firstMultiple * axis.step - lower;
            axis.first = lower + axis.offset;
            axis.count = truncateToInt(lines);
            if (lower <= 0.0 && upper > 0.0)
                axis.zeroIndex = truncateToInt(-axis.first / axis.step);
            break;
        }
    }
    return axis;
}

/// Those between the lines of `axis`, from the lower edge on; none where they would come too close.
std::vector<double> finePositions(const Axis& axis, int length)
{
    const int parts = axis.leading == 2 ? 4 : 5;
    const double distance = axis.position(1, length) - axis.position(0, length);
    std::vector<double> positions;
    if (axis.count == 0 || distance < parts * leastFineDistance)
        return positions;
    const double fine = distance / parts;
    for (int i = 1 - parts; i < axis.count * parts; ++i) {
        const double position = axis.position(0, length) + i * fine;
        if (i % parts != 0 && position >= 0.0 && position <= length)
            positions.push_back(position);
    }
    return positions;
}

QPoint startOf(const QPolygon& lines, qsizetype index)
{
    return lines.at(2 * index);
}

/// Which lines have a number, so that numbers that are `distance` apart from line to line don't meet: all, or every
/// second, fifth and so on, counted from zero.
int everyThatFits(int distance, int height)
{
    for (const int every : {1, 2, 5, 10, 20, 50}) {
        if (distance * every >= height)
            return every;
    }
    return mostLines;
}

QString labelText(double number, bool zero)
{
    return zero ? QStringLiteral("0") : QStringLiteral("%1").arg(number, 0, 'G', -1);
}

QFont labelFont(const CurveEditorTheme& theme)
{
    QFont font;
    if (!theme.labelFamily.isEmpty())
        font.setFamily(theme.labelFamily);
    if (theme.labelPoints >= 1.0)
        font.setPointSizeF(theme.labelPoints);
    font.setStretch(theme.labelStretch);
    return font;
}

/// Draws lines across the whole canvas of whole device pixels, so that all of one width are equally wide.
class DeviceLines
{
public:
    explicit DeviceLines(QPainter* painter) : painter_(painter), ratio_(painter->device()->devicePixelRatio())
    {
    }
    void drawUpright(int column, double width, const QColor& color) const
    {
        const auto [left, size] = pixels(column, width);
        fill(QRect(left, 0, size, painter_->device()->height()), color);
    }
    void drawLevel(int row, double width, const QColor& color) const
    {
        const auto [top, size] = pixels(row, width);
        fill(QRect(0, top, painter_->device()->width(), size), color);
    }
    /// In logical pixels.
    double middle(int position, double width) const
    {
        const auto [first, size] = pixels(position, width);
        return (first + size / 2.0) / ratio_;
    }

private:
    std::pair<int, int> pixels(int position, double width) const
    {
        const int before = int(width) / 2;
        return {qRound((position - before) * ratio_), std::max(1, qRound(width * ratio_))};
    }
    void fill(const QRect& rect, const QColor& color) const
    {
        const DevicePixels devicePixels(painter_, ratio_);
        painter_->fillRect(rect, color);
    }

    QPainter* painter_;
    double ratio_;
};

} // namespace

CanvasGrid::CanvasGrid(QWidget* canvas) : widget(canvas) {}

void CanvasGrid::layout(ViewPort* view)
{
    gridWidth = view->pixelWidth;
    gridHeight = view->pixelHeight;
    placeTimeLine(*view);

    layOutTimes(*view, timesOfHost(*view));
    const Axis y = view->canShow() ? axisBetween(view->valueMin, view->valueMax, hasFineLines) : Axis();
    stepY = y.step;
    firstY = y.first;
    countY = y.count;
    zeroIndexY = y.zeroIndex;

    const int width = widget->width();
    const int height = widget->height();
    for (int j = 0; j < countY; ++j) {
        const int row = truncateToPixel(height - y.position(j, height));
        lines << QPoint(0, row) << QPoint(width, row);
    }
    fineRows_.clear();
    for (const double position : hasFineLines ? finePositions(y, height) : std::vector<double>())
        fineRows_.push_back(truncateToPixel(height - position));
    writeLabels(*view);
}

void CanvasGrid::writeLabels(const ViewPort& view)
{
    isTimeWritten_ = bool(view.timeText);
    timeLabels_.clear();
    valueLabels_.clear();
    for (std::size_t i = 0; i < times_.size(); ++i)
        timeLabels_ << (isTimeWritten_ ? view.timeText.write(times_[i])
                                       : labelText(positionsX[i], int(i) == zeroIndexX));
    for (int j = 0; j < countY; ++j) {
        const double value = j * stepY + firstY;
        valueLabels_ << (view.valueText ? view.valueText.write(value) : labelText(value, j == zeroIndexY));
    }
}

/// Upright lines, from left to right.
void CanvasGrid::layOutTimes(const ViewPort& view, const std::vector<double>& ofHost)
{
    const double factor = view.showFrames ? view.fps : 1.0;
    const Axis even = view.canShow() && !hostTimes && ofHost.empty()
                          ? axisBetween(factor * view.timeMin, factor * view.timeMax, hasFineLines)
                          : Axis();
    const auto addLine = [this](int column) {
        lines << QPoint(column, 0) << QPoint(column, widget->height());
    };
    lines.clear();
    positionsX.clear();
    times_.clear();
    for (int i = 0; i < even.count; ++i) {
        positionsX.push_back(i * even.step + even.first);
        times_.push_back(positionsX.back() / factor);
        addLine(truncateToPixel(even.position(i, widget->width())));
    }
    zeroIndexX = even.zeroIndex;
    fineColumns_.clear();
    for (const double position : hasFineLines ? finePositions(even, widget->width()) : std::vector<double>())
        fineColumns_.push_back(truncateToPixel(position));
    for (const double time : ofHost) {
        const int column = view.timeToPixel(time);
        if (!times_.empty() && column - startOf(lines, qsizetype(times_.size()) - 1).x() < leastLineDistance)
            continue;
        if (time == 0.0)
            zeroIndexX = int(times_.size());
        positionsX.push_back(factor * time);
        times_.push_back(time);
        addLine(column);
    }
    countX = int(times_.size());
}

/// Those in the view, from left to right.
std::vector<double> CanvasGrid::timesOfHost(const ViewPort& view)
{
    const auto ask = hostTimes; // it may set another one
    if (!ask || isAskingHost_ || !view.canShow())
        return {};
    const QScopedValueRollback asking(isAskingHost_, true);
    const double first = view.timeMin, last = view.timeMax;
    std::vector<double> found;
    try {
        found = ask(first, last);
    } catch (...) {
        return {};
    }
    std::erase_if(found, [&](double time) { return !(time >= first && time <= last); });
    if (!std::is_sorted(found.begin(), found.end()))
        std::sort(found.begin(), found.end());
    return found;
}

void CanvasGrid::placeTimeLine(const ViewPort& view)
{
    timeLineX = view.canShow() ? view.timeToPixel(view.timeLine) : -1;
}

std::vector<double> CanvasGrid::values() const
{
    std::vector<double> values;
    values.reserve(std::size_t(countY));
    for (int j = 0; j < countY; ++j)
        values.push_back(j * stepY + firstY);
    return values;
}

void CanvasGrid::draw(QPainter* painter, const CurveEditorTheme& theme) const
{
    if (lines.isEmpty())
        return;
    drawLines(painter, theme);
    if (theme.spacesLabels)
        drawSpacedLabels(painter, theme);
    else
        drawLabels(painter, theme);
    painter->setBackgroundMode(Qt::OpaqueMode);
}

QRect CanvasGrid::timeLineGrip(const CurveEditorTheme& theme) const
{
    const int size = theme.timeLineGrip;
    if (!offersTimeLine || !showsTimeLine() || lines.isEmpty() || size <= 0)
        return {};
    return QRect(timeLineX - size / 2, gridHeight - size, size, size);
}

void CanvasGrid::drawLines(QPainter* painter, const CurveEditorTheme& theme) const
{
    const DeviceLines straight(painter);
    for (const int column : fineColumns_)
        straight.drawUpright(column, theme.gridWidth, theme.fineGridLines);
    for (const int row : fineRows_)
        straight.drawLevel(row, theme.gridWidth, theme.fineGridLines);
    const QColor zeroColor = theme.zeroLines.isValid() ? theme.zeroLines : theme.gridLines;
    for (int i = 0; i < countX; ++i)
        straight.drawUpright(startOf(lines, i).x(), theme.gridWidth,
                             i == zeroIndexX ? zeroColor : theme.gridLines);
    for (int j = 0; j < countY; ++j)
        straight.drawLevel(startOf(lines, countX + j).y(), theme.gridWidth,
                           j == zeroIndexY ? zeroColor : theme.gridLines);
    straight.drawLevel(gridHeight, theme.frameWidth, theme.frameVLine);
    straight.drawUpright(0, theme.frameWidth, theme.frameHLine);

    if (showsTimeLine()) {
        if (theme.timeLineBlends)
            painter->setCompositionMode(QPainter::RasterOp_SourceOrNotDestination);
        straight.drawUpright(timeLineX, theme.timeLineWidth, theme.timeLine);
        painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
}

void CanvasGrid::drawLabels(QPainter* painter, const CurveEditorTheme& theme) const
{
    painter->setPen(theme.labels);
    painter->setFont(labelFont(theme));
    painter->setBackgroundMode(Qt::TransparentMode);
    const int labelRow = widget->height() - labelMargin;
    int firstFreeColumn = lastColumnWithoutLabel + 1;
    for (int i = 0; i < countX; ++i) {
        const int column = startOf(lines, i).x() + labelGap;
        if (column < firstFreeColumn)
            continue;
        painter->drawText(column, labelRow, timeLabels_.at(i));
        if (isTimeWritten_ || hostTimes)
            firstFreeColumn = column + painter->fontMetrics().horizontalAdvance(timeLabels_.at(i)) + labelGap;
    }
    for (int j = 0; j < countY; ++j) {
        const int row = startOf(lines, countX + j).y();
        painter->drawText(labelMargin, row - labelGap, valueLabels_.at(j));
    }
}

/// Each in the middle of its line, those of times above the grip, and those of values where these leave them room.
void CanvasGrid::drawSpacedLabels(QPainter* painter, const CurveEditorTheme& theme) const
{
    painter->setFont(labelFont(theme));
    painter->setBackgroundMode(Qt::TransparentMode);
    const QFontMetrics metrics = painter->fontMetrics();
    QRect room(QPoint(), widget->size());
    room.adjust(labelMargin, labelMargin / 2, -labelMargin, -labelMargin / 2 - theme.timeLineGrip);
    std::vector<QRect> taken;
    const auto drawLabel = [&](const QPoint& center, const QString& text) {
        QRect rect(0, 0, metrics.horizontalAdvance(text) + 2 * labelPadding, metrics.height());
        rect.moveCenter(center);
        rect.moveLeft(std::max(rect.left(), room.left() - labelPadding));
        if (center.x() > 0 && std::abs(timeLineX - center.x()) < rect.width() / 2)
            rect.moveLeft(timeLineX + 1);
        const QRect spaced = rect.adjusted(-labelMargin, 0, labelMargin, 0);
        const bool isFree = std::none_of(taken.begin(), taken.end(),
                                         [&](const QRect& other) { return other.intersects(spaced); });
        if (!isFree || !room.contains(rect.adjusted(labelPadding, 0, -labelPadding, 0)))
            return;
        taken.push_back(rect);
        drawOutlined(*painter, rect, text, theme.labels, theme.canvas);
    };
    for (int i = 0; i < countX; ++i)
        drawLabel({startOf(lines, i).x(), room.bottom() - metrics.height() / 2}, timeLabels_.at(i));
    const int distance = countY > 1 ? startOf(lines, countX).y() - startOf(lines, countX + 1).y() : 0;
    const int every = everyThatFits(distance, metrics.height());
    for (int j = 0; j < countY; ++j) {
        if (std::llround(j + firstY / stepY) % every == 0)
            drawLabel({0, startOf(lines, countX + j).y()}, valueLabels_.at(j));
    }
}

void CanvasGrid::drawGrip(QPainter* painter, const CurveEditorTheme& theme) const
{
    QRectF grip = timeLineGrip(theme);
    if (grip.isEmpty())
        return;
    grip.moveCenter({DeviceLines(painter).middle(timeLineX, theme.timeLineWidth), grip.center().y()});
    const double shoulder = grip.top() + grip.height() / 2;
    const std::array corners = {QPointF(grip.center().x(), grip.top()), QPointF(grip.right(), shoulder),
                                grip.bottomRight(), grip.bottomLeft(), QPointF(grip.left(), shoulder)};
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(theme.timeLine);
    painter->drawPolygon(corners.data(), int(corners.size()));
    painter->restore();
}
