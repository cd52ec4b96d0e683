// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/MarkerStamp.h>

#include <QPainter>

#include <cmath>

namespace curveeditor {

namespace {

constexpr double outlineWidth = 1.5;

void drawShape(QPainter& painter, CurveEditorTheme::Shape shape, double reach)
{
    const QRectF square(-reach, -reach, 2 * reach, 2 * reach);
    if (shape == CurveEditorTheme::Shape::Circle)
        painter.drawEllipse(square);
    else if (shape == CurveEditorTheme::Shape::Diamond)
        painter.drawPolygon(QPolygonF({{0, -reach}, {reach, 0}, {0, reach}, {-reach, 0}}));
    else
        painter.drawRect(square);
}

} // namespace

MarkerStamp::MarkerStamp(const QPainter& painter, CurveEditorTheme::Shape shape, int size,
                         const QColor& color, const QColor& outline)
    : ratio_(painter.device()->devicePixelRatio())
{
    const double reach = size / 2.0 + outlineWidth;
    const int side = 2 * int(std::ceil(reach * ratio_)) + 1;
    image_ = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    image_.fill(Qt::transparent);
    QPainter onImage(&image_);
    onImage.setRenderHint(QPainter::Antialiasing);
    onImage.translate(side / 2.0, side / 2.0);
    onImage.scale(ratio_, ratio_);
    onImage.setPen(Qt::NoPen);
    if (outline.isValid()) {
        onImage.setBrush(outline);
        drawShape(onImage, shape, reach);
    }
    onImage.setBrush(color);
    drawShape(onImage, shape, size / 2.0);
}

void MarkerStamp::draw(QPainter* painter, const QPoint& pixel) const
{
    const double corner = 0.5 * ratio_ - image_.width() / 2.0;
    painter->drawImage(qRound(pixel.x() * ratio_ + corner), qRound(pixel.y() * ratio_ + corner), image_);
}

} // namespace curveeditor
