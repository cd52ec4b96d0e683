// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasLayer.h>

#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/CurvePainter.h>
#include <curveeditor/canvas/DevicePixels.h>

#include <QPainter>

namespace {

QPen dottedPen()
{
    return QPen(Qt::white, 1, Qt::DotLine);
}

} // namespace

bool CanvasLayer::resize(const QSize& size, double pixelRatio)
{
    const QSize deviceSize = (QSizeF(size) * pixelRatio).toSize();
    if (image_.size() == deviceSize && qFuzzyCompare(image_.devicePixelRatio(), pixelRatio))
        return false;
    image_ = QImage(deviceSize, QImage::Format_RGB32);
    image_.setDevicePixelRatio(pixelRatio);
    image_.fill(Qt::black);
    content_ = {};
    return true;
}

void CanvasLayer::show(Content content)
{
    if (content == content_)
        return;
    content_ = std::move(content);
    render();
}

void CanvasLayer::draw(QPainter* painter) const
{
    // Qt copies an image of the same pixels at once, and one of another scale pixel by pixel.
    const DevicePixels devicePixels(painter, image_.devicePixelRatio());
    QImage pixels = image_;
    pixels.setDevicePixelRatio(1.0);
    painter->drawImage(0, 0, pixels);
}

void CanvasLayer::render()
{
    QPainter painter(&image_);
    // Qt draws long polylines about twice as fast, pixel for pixel the same, when a clip is set.
    painter.setClipRect(QRect(QPoint(), size()));
    painter.setBackground(content_.canvasColor);
    drawBackground(painter);
    drawMark(painter);
    drawBand(painter);
    drawSelection(painter);
    content_.grid->draw(&painter);
    painter.setBackgroundMode(Qt::OpaqueMode);
    CurvePainter curves(&painter, image_.devicePixelRatio(), &image_);
    for (const auto& curve : content_.curves)
        curve.first->draw(curves);
}

void CanvasLayer::drawBackground(QPainter& painter) const
{
    BackgroundImage* const background = content_.background;
    if (!background || !background->coversCanvas())
        painter.eraseRect(QRect(QPoint(), size()));
    if (background)
        background->draw(&painter);
}

void CanvasLayer::drawMark(QPainter& painter) const
{
    if (!content_.mark)
        return;
    painter.setPen(dottedPen());
    painter.drawLine(0, content_.mark->y(), size().width(), content_.mark->y());
    painter.drawLine(content_.mark->x(), 0, content_.mark->x(), size().height());
}

void CanvasLayer::drawBand(QPainter& painter) const
{
    if (!content_.band)
        return;
    painter.setPen(dottedPen());
    painter.setBrush(content_.isBandValid ? content_.selectionColor : content_.canvasColor);
    painter.drawRect(content_.band->adjusted(0, 0, -1, -1));
}

void CanvasLayer::drawSelection(QPainter& painter) const
{
    if (!content_.selection)
        return;
    const auto [left, right] = *content_.selection;
    painter.fillRect(left, 0, right - left, size().height(), content_.selectionColor);
}

QSize CanvasLayer::size() const
{
    return image_.deviceIndependentSize().toSize();
}
