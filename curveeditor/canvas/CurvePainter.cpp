// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurvePainter.h>

#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/DevicePixels.h>

#include <QImage>
#include <QPainter>
#include <QPen>

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
    line.widest =
        penPixels(std::max({theme.curveWidth, theme.otherCurveWidth, theme.dottedWidth}), pixelRatio);
    return line;
}

CurvePainter::CurvePainter(QPainter* painter, double pixelRatio) : painter_(painter), pixelRatio_(pixelRatio)
{
}

void CurvePainter::writeInto(QImage* image, const QRect& part)
{
    image_ = image;
    part_ = part & image->rect();
    stroke_.setTarget(image, part_);
}

void CurvePainter::drawSolid(const DeviceLine& line, const QColor& color, double width)
{
    if (line.scale > 1 && image_)
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
        const auto [first, behind] = image_ ? pointsNear(points, count, pixels + 1, 1) : std::pair(0, count);
        appendColumnRuns(runs_, points + first, behind - first);
    });
    if (image_)
        fillImage(color, pixels);
    else
        fillRects(color, pixels);
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
    // Qt takes a hundred times longer for wide dots that are antialiased.
    const int pixels = penPixels(width, pixelRatio_);
    drawWithQt(line, QPen(color, pixels * line.scale, Qt::DotLine), line.scale > 1 && pixels == 1);
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
    const qsizetype pitch = image_->bytesPerLine() / qsizetype(sizeof(QRgb));
    auto* const pixels = reinterpret_cast<QRgb*>(image_->bits());
    for (const ColumnRun& run : runs_) {
        const int left = std::max(run.column - before, part_.left());
        const int right = std::min(run.column - before + width, part_.right() + 1);
        const int top = std::max(run.top - before, part_.top());
        const int bottom = std::min(run.bottom - before + width, part_.bottom() + 1);
        for (int row = top; row < bottom; ++row) {
            for (int column = left; column < right; ++column)
                pixels[row * pitch + column] = rgb;
        }
    }
}

} // namespace curveeditor
