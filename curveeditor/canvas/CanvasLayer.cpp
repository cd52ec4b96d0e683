// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasLayer.h>

#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/CurvePainter.h>
#include <curveeditor/canvas/DevicePixels.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <utility>

namespace curveeditor {

namespace {

bool startsWith(const CanvasLayer::Curves& curves, const CanvasLayer::Curves& start)
{
    return start.size() <= curves.size() && std::equal(start.begin(), start.end(), curves.begin());
}

/// Steep lines write pixels one below the other. Their places in the cache differ where a row takes an odd number of its
/// lines; else few of them would be in it at a time.
QImage opaqueImage(const QSize& size)
{
    constexpr int pixelsOfCacheLine = 16;
    const int cacheLines = (size.width() + pixelsOfCacheLine - 1) / pixelsOfCacheLine | 1;
    const QImage::Format format = QImage::Format_RGB32;
    auto whole = std::make_unique<QImage>(cacheLines * pixelsOfCacheLine, size.height(), format);
    if (size.isEmpty() || whole->isNull())
        return QImage();
    uchar* const pixels = whole->bits();
    const qsizetype pitch = whole->bytesPerLine();
    const auto release = [](void* image) {
        delete static_cast<QImage*>(image);
    };
    return QImage(pixels, size.width(), size.height(), pitch, format, release, whole.release());
}

} // namespace

bool CanvasLayer::resize(const QSize& size, double pixelRatio)
{
    const QSize deviceSize = (QSizeF(size) * pixelRatio).toSize();
    if (image_.size() == deviceSize && qFuzzyCompare(image_.devicePixelRatio(), pixelRatio))
        return false;
    image_ = opaqueImage(deviceSize);
    image_.setDevicePixelRatio(pixelRatio);
    image_.fill(Qt::black);
    backdrop_ = {};
    curves_.clear();
    return true;
}

void CanvasLayer::paintUnderlay(const std::function<void(QPainter&)>& work)
{
    if (underlay_.size() != image_.size())
        underlay_ = QImage(image_.size(), QImage::Format_ARGB32_Premultiplied);
    underlay_.setDevicePixelRatio(image_.devicePixelRatio());
    underlay_.fill(Qt::transparent);
    QPainter painter(&underlay_);
    work(painter);
}

void CanvasLayer::show(const Backdrop& backdrop, const Curves& curves)
{
    const Backdrop before = std::exchange(backdrop_, backdrop);
    const Curves curvesBefore = std::exchange(curves_, curves);
    const QRect whole(QPoint(), image_.size());
    Backdrop withoutMove = before;
    withoutMove.timeLine = backdrop.timeLine;
    if (backdrop != withoutMove || !startsWith(curves, curvesBefore)) {
        renderBackdrop(whole);
        renderCurves(whole, 0);
        return;
    }
    if (backdrop.timeLine != before.timeLine) {
        for (const int column : {before.timeLine, backdrop.timeLine}) {
            const QRect part = whole & columnsOfTimeLine(column);
            renderBackdrop(part);
            renderCurves(part, 0);
        }
    }
    renderCurves(whole, curvesBefore.size());
}

/// In device pixels, with some to spare.
QRect CanvasLayer::columnsOfTimeLine(int column) const
{
    const double ratio = image_.devicePixelRatio();
    const int reach = int(std::ceil(backdrop_.theme->timeLineWidth / 2)) + 1;
    return QRect(int((column - reach) * ratio), 0, int(std::ceil(2 * reach * ratio)) + 1, image_.height());
}

void CanvasLayer::put(const QImage& image, QPainter* painter)
{
    // Qt copies an image of the same pixels at once, and one that has a pixel ratio pixel by pixel.
    const QImage pixels(image.constBits(), image.width(), image.height(), image.bytesPerLine(),
                        image.format());
    const DevicePixels devicePixels(painter, image.devicePixelRatio());
    painter->drawImage(0, 0, pixels);
}

void CanvasLayer::drawWith(const std::function<void(QPainter&, QImage&)>& drawOn, QPainter* painter)
{
    if (frame_.size() != image_.size())
        frame_ = opaqueImage(image_.size());
    frame_.setDevicePixelRatio(image_.devicePixelRatio());
    std::memcpy(frame_.bits(), image_.constBits(), std::size_t(image_.sizeInBytes()));
    {
        QPainter onFrame(&frame_);
        drawOn(onFrame, frame_);
    }
    put(frame_, painter);
}

void CanvasLayer::renderBackdrop(const QRect& part)
{
    QPainter painter(&image_);
    clip(painter, part);
    drawBackground(painter);
    drawMark(painter);
    drawBand(painter);
    drawSelection(painter);
    if (backdrop_.underlay != 0)
        put(underlay_, &painter);
    backdrop_.grid->draw(&painter, *backdrop_.theme);
}

void CanvasLayer::renderCurves(const QRect& part, std::size_t first)
{
    QPainter painter(&image_);
    clip(painter, part);
    painter.setBackgroundMode(backdrop_.theme->smooth ? Qt::TransparentMode : Qt::OpaqueMode);
    CurvePainter curvePainter(&painter, image_.devicePixelRatio());
    curvePainter.writeInto(&image_, part);
    for (std::size_t i = first; i < curves_.size(); ++i)
        curves_[i].first->draw(curvePainter);
}

/// To device pixels. Qt draws a part of the picture as it draws the whole, pixel for pixel.
void CanvasLayer::clip(QPainter& painter, const QRect& part) const
{
    const double ratio = image_.devicePixelRatio();
    painter.scale(1.0 / ratio, 1.0 / ratio);
    painter.setClipRect(part);
    painter.resetTransform();
    painter.setBackground(backdrop_.theme->canvas);
}

void CanvasLayer::drawBackground(QPainter& painter) const
{
    BackgroundImage* const background = backdrop_.background;
    if (!background || !background->coversCanvas() || backdrop_.backgroundStrength < 1.0)
        painter.eraseRect(QRect(QPoint(), size()));
    if (!background)
        return;
    painter.setOpacity(backdrop_.backgroundStrength);
    background->draw(&painter);
    painter.setOpacity(1.0);
}

void CanvasLayer::drawMark(QPainter& painter) const
{
    if (!backdrop_.mark)
        return;
    painter.setPen(QPen(backdrop_.theme->mark, 1, Qt::DotLine));
    painter.drawLine(0, backdrop_.mark->y(), size().width(), backdrop_.mark->y());
    painter.drawLine(backdrop_.mark->x(), 0, backdrop_.mark->x(), size().height());
}

void CanvasLayer::drawBand(QPainter& painter) const
{
    if (!backdrop_.band)
        return;
    painter.setPen(QPen(backdrop_.theme->mark, 1, Qt::DotLine));
    painter.setBrush(backdrop_.isBandValid ? backdrop_.theme->selection : backdrop_.theme->canvas);
    painter.drawRect(backdrop_.band->adjusted(0, 0, -1, -1));
}

void CanvasLayer::drawSelection(QPainter& painter) const
{
    if (!backdrop_.selection)
        return;
    const auto [left, right] = *backdrop_.selection;
    painter.fillRect(left, 0, right - left, size().height(), backdrop_.theme->selection);
}

QSize CanvasLayer::size() const
{
    return image_.deviceIndependentSize().toSize();
}

} // namespace curveeditor
