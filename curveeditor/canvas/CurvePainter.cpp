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

CurvePainter::CurvePainter(QPainter* painter, double pixelRatio, QImage* image)
    : painter_(painter), pixelRatio_(pixelRatio), image_(image), width_(std::max(1, qRound(pixelRatio)))
{
}

void CurvePainter::drawSolid(const DeviceLine& line, const QColor& color)
{
    if (color.alpha() < 255)
        return drawWithQt(line, color, Qt::SolidLine);
    runs_.clear();
    forEachPiece(line, [this](const QPoint* points, int count) { appendColumnRuns(runs_, points, count); });
    if (image_)
        fillImage(color);
    else
        fill(color);
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

void CurvePainter::fill(const QColor& color)
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
        const int left = std::max(run.column - before, 0);
        const int right = std::min(run.column - before + width_, image_->width());
        const int top = std::max(run.top - before, 0);
        const int bottom = std::min(run.bottom - before + width_, image_->height());
        for (int row = top; row < bottom; ++row) {
            for (int column = left; column < right; ++column)
                pixels[row * pitch + column] = rgb;
        }
    }
}
