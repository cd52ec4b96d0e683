// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurvePainter.h>

#include <curveeditor/canvas/DevicePixels.h>

#include <QImage>
#include <QPainter>

#include <algorithm>

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

} // namespace

CurvePainter::CurvePainter(QPainter* painter, double pixelRatio)
    : painter_(painter), pixelRatio_(pixelRatio), width_(std::max(1, qRound(pixelRatio)))
{
}

void CurvePainter::writeInto(QImage* image, const QRect& part)
{
    image_ = image;
    part_ = part & image->rect();
}

void CurvePainter::drawSolid(const DeviceLine& line, const QColor& color)
{
    if (color.alpha() < 255)
        return drawWithQt(line, color, Qt::SolidLine);
    runs_.clear();
    forEachPiece(line, [this](const QPoint* points, int count) {
        const auto [first, behind] = image_ ? pointsNear(points, count) : std::pair(0, count);
        appendColumnRuns(runs_, points + first, behind - first);
    });
    if (image_)
        fillImage(color);
    else
        fillRects(color);
}

void CurvePainter::drawDotted(const DeviceLine& line, const QColor& color)
{
    drawWithQt(line, color, Qt::DotLine);
}

void CurvePainter::drawWithQt(const DeviceLine& line, const QColor& color, Qt::PenStyle style)
{
    const DevicePixels devicePixels(painter_, pixelRatio_);
    painter_->setPen(QPen(color, width_, style));
    forEachPiece(line, [this](const QPoint* points, int count) { painter_->drawPolyline(points, count); });
}

/// The points that decide on the pixels in the part that is drawn.
std::pair<int, int> CurvePainter::pointsNear(const QPoint* points, int count) const
{
    const int margin = width_ + 1;
    const auto isLeftOf = [](const QPoint& point, int column) {
        return point.x() < column;
    };
    const auto* const first = std::lower_bound(points, points + count, part_.left() - margin, isLeftOf);
    const auto* const behind = std::lower_bound(first, points + count, part_.right() + margin, isLeftOf);
    // A line depends on the one before it.
    return {std::max(int(first - points) - 2, 0), std::min(int(behind - points) + 2, count)};
}

void CurvePainter::fillRects(const QColor& color)
{
    std::vector<QRect> rects;
    rects.reserve(runs_.size());
    const int before = (width_ - 1) / 2;
    for (const ColumnRun& run : runs_)
        rects.emplace_back(run.column - before, run.top - before, width_, run.bottom - run.top + width_);
    const DevicePixels devicePixels(painter_, pixelRatio_);
    painter_->setPen(Qt::NoPen);
    painter_->setBrush(color);
    painter_->drawRects(rects.data(), int(rects.size()));
}

void CurvePainter::fillImage(const QColor& color)
{
    const QRgb rgb = color.rgb();
    const int before = (width_ - 1) / 2;
    const qsizetype pitch = image_->bytesPerLine() / qsizetype(sizeof(QRgb));
    auto* const pixels = reinterpret_cast<QRgb*>(image_->bits());
    for (const ColumnRun& run : runs_) {
        const int left = std::max(run.column - before, part_.left());
        const int right = std::min(run.column - before + width_, part_.right() + 1);
        const int top = std::max(run.top - before, part_.top());
        const int bottom = std::min(run.bottom - before + width_, part_.bottom() + 1);
        for (int row = top; row < bottom; ++row) {
            for (int column = left; column < right; ++column)
                pixels[row * pitch + column] = rgb;
        }
    }
}
