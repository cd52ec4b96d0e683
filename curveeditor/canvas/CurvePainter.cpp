// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurvePainter.h>

#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/DevicePixels.h>

#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QPen>
#include <QtMath>

#include <algorithm>

namespace curveeditor {

namespace {

template <typename Draw> void forEachPiece(const DeviceLine& line, const Draw& draw)
{
    int begin = 0;
    for (const int gap : line.gaps) {
        draw(line.points.constData() + begin, gap - begin);
        begin = gap;
    }
    draw(line.points.constData() + begin, int(line.points.size()) - begin);
}

/// Of a line that is not smooth.
int penPixels(double width, double pixelRatio)
{
    return std::max(1, qRound(width * pixelRatio));
}

/// The pixel in which a point lies of which that many units are one.
int rowOrColumn(int position, int scale)
{
    return position >= 0 ? position / scale : -((scale - 1 - position) / scale);
}

/// As Qt's pens, one of an even number of pixels has its larger half above and to the left.
int pixelsBefore(int width)
{
    return width / 2;
}

} // namespace

DeviceLine DeviceLine::in(const CurveEditorTheme& theme, double pixelRatio)
{
    DeviceLine line;
    line.scale = theme.smooth ? fine : 1;
    line.dotPixels = penPixels(theme.dottedWidth, pixelRatio);
    line.widest =
        penPixels(std::max({theme.curveWidth, theme.otherCurveWidth, theme.dottedWidth}), pixelRatio);
    return line;
}

CurvePainter::CurvePainter(QPainter* painter, double pixelRatio) : painter_(painter), pixelRatio_(pixelRatio)
{
}

void CurvePainter::writeInto(QImage* image, const QRect& part)
{
    part_ = part & image->rect();
    pixels_ = reinterpret_cast<QRgb*>(image->bits());
    pitch_ = image->bytesPerLine() / qsizetype(sizeof(QRgb));
    stroke_.setTarget(image, part_);
}

void CurvePainter::drawSolid(const DeviceLine& line, const QColor& color, double width)
{
    if (line.scale > 1 && pixels_)
        return drawSmooth(line, color, width);
    const int pixels = penPixels(width, pixelRatio_);
    if (line.scale > 1) {
        const double wide = width * pixelRatio_ * line.scale;
        return drawWithQt(line, QPen(color, wide, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin), true);
    }
    if (color.alpha() < 255)
        return drawWithQt(line, QPen(color, pixels), false);
    runs_.clear();
    forEachPiece(line, [this, pixels](const QPoint* points, int count) {
        const auto [first, behind] = pixels_ ? pointsNear(points, count, pixels + 1, 1) : std::pair(0, count);
        appendColumnRuns(runs_, points + first, behind - first);
    });
    fill(color, pixels);
}

void CurvePainter::drawSmooth(const DeviceLine& line, const QColor& color, double width)
{
    const double pixels = width * pixelRatio_;
    forEachPiece(line, [&](const QPoint* points, int count) {
        const auto [first, behind] = pointsNear(points, count, int(pixels) + 2, line.scale);
        stroke_.draw(points + first, behind - first, line.scale, pixels, color);
    });
}

void CurvePainter::drawDotted(const DeviceLine& line, const QColor& color, double width)
{
    if (line.points.isEmpty())
        return;
    const int pixels = penPixels(width, pixelRatio_);
    if (pixels == 1)
        return drawWithQt(line, QPen(color, line.scale, Qt::DotLine), line.scale > 1);
    runs_.clear();
    forEachPiece(line, [this, &line, pixels](const QPoint* points, int count) {
        takeRuns(points, count, line.scale, 3 * pixels);
    });
    if (painter_->backgroundMode() == Qt::OpaqueMode)
        fill(painter_->background().color(), pixels);
    keepDots(pixels);
    fill(color, pixels);
}

/// Of the whole line, as each dot depends on those before. A line to the left is followed from its right end on; it is
/// level, and may begin very far off, where whole steps from dot to dot are left out.
void CurvePainter::takeRuns(const QPoint* points, int count, int scale, int step)
{
    path_.assign(points, points + count);
    for (QPoint& pixel : path_)
        pixel = QPoint(rowOrColumn(pixel.x(), scale), rowOrColumn(pixel.y(), scale));
    const bool isToTheLeft = count > 1 && path_.back().x() < path_.front().x();
    const int edge = qCeil(painter_->device()->width() * painter_->device()->devicePixelRatio());
    if (isToTheLeft)
        path_.front().rx() -= std::max(0, path_.front().x() - edge) / step * step;
    if (isToTheLeft)
        std::reverse(path_.begin(), path_.end());
    const auto first = std::ptrdiff_t(runs_.size());
    appendColumnRuns(runs_, path_.data(), count);
    if (isToTheLeft)
        std::reverse(runs_.begin() + first, runs_.end());
}

/// Leaves one pixel of the runs where a dot begins.
void CurvePainter::keepDots(int width)
{
    dots_.clear();
    bool falls = false;
    int distance = 0; // to the next dot
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        const auto [column, top, bottom] = runs_[i];
        if (i + 1 < runs_.size())
            falls = runs_[i + 1].top + runs_[i + 1].bottom > top + bottom;
        const int length = bottom - top + 1;
        for (; distance < length; distance += 3 * width) {
            const int row = falls ? top + distance : bottom - distance;
            dots_.push_back({column, row, row});
        }
        distance -= length;
    }
    runs_.swap(dots_);
}

void CurvePainter::drawWithQt(const DeviceLine& line, const QPen& pen, bool isSmooth)
{
    const DevicePixels devicePixels(painter_, pixelRatio_ * line.scale);
    painter_->setRenderHint(QPainter::Antialiasing, isSmooth);
    painter_->setPen(pen);
    forEachPiece(line, [this](const QPoint* points, int count) { painter_->drawPolyline(points, count); });
}

/// The points that decide on the pixels in the part that is drawn, with a margin of that many pixels.
std::pair<int, int> CurvePainter::pointsNear(const QPoint* points, int count, int margin, int scale) const
{
    const auto isLeftOf = [](const QPoint& point, int column) {
        return point.x() < column;
    };
    const QPoint* const first =
        std::lower_bound(points, points + count, (part_.left() - margin) * scale, isLeftOf);
    const QPoint* const behind =
        std::lower_bound(first, points + count, (part_.right() + margin) * scale, isLeftOf);
    // A line depends on the one before it.
    return {std::max(int(first - points) - 2, 0), std::min(int(behind - points) + 2, count)};
}

void CurvePainter::fill(const QColor& color, int width)
{
    if (pixels_ && color.alpha() == 255)
        fillImage(color, width);
    else
        fillRects(color, width);
}

void CurvePainter::fillRects(const QColor& color, int width)
{
    std::vector<QRect> rects;
    rects.reserve(runs_.size());
    const int before = pixelsBefore(width);
    for (const ColumnRun& run : runs_)
        rects.emplace_back(run.column - before, run.top - before, width, run.bottom - run.top + width);
    const DevicePixels devicePixels(painter_, pixelRatio_);
    painter_->setPen(Qt::NoPen);
    painter_->setBrush(color);
    painter_->drawRects(rects.data(), int(rects.size()));
}

void CurvePainter::fillImage(const QColor& color, int width)
{
    const QRgb rgb = color.rgb();
    const int before = pixelsBefore(width);
    for (const ColumnRun& run : runs_) {
        const int height = run.bottom - run.top + width;
        fillPixels(QRect(run.column - before, run.top - before, width, height), rgb);
    }
}

void CurvePainter::fillPixels(const QRect& rect, QRgb color)
{
    const int left = std::max(rect.left(), part_.left());
    const int behind = std::min(rect.right(), part_.right()) + 1;
    const int top = std::max(rect.top(), part_.top());
    const int below = std::min(rect.bottom(), part_.bottom()) + 1;
    for (int row = top; row < below; ++row) {
        QRgb* const pixels = pixels_ + row * pitch_;
        for (int column = left; column < behind; ++column)
            pixels[column] = color;
    }
}

void CurvePainter::fillRect(const QRect& rect, const QColor& color)
{
    const int ratio = qRound(pixelRatio_);
    if (pixels_ && color.alpha() == 255 && ratio == pixelRatio_)
        fillPixels(QRect(rect.topLeft() * ratio, rect.size() * ratio), color.rgb());
    else
        painter_->fillRect(rect, color);
}

} // namespace curveeditor
