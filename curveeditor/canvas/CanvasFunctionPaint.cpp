// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace {

QPen dottedPen()
{
    return QPen(Qt::white, 1, Qt::DotLine);
}

QSize deviceSize(const QWidget& widget)
{
    return (QSizeF(widget.size()) * widget.devicePixelRatioF()).toSize();
}

} // namespace

void CanvasFunctionBase::paint()
{
    if (paintHolds_ > 0)
        return;
    QWidget* const canvas = widget();
    bufferFresh_ = canvas && canvas->isVisible();
    if (!bufferFresh_)
        return;
    render();
    canvas->update();
}

void CanvasFunctionBase::releasePaint()
{
    if (--paintHolds_ == 0)
        paint();
}

void CanvasFunctionBase::showBuffer(QPainter* painter)
{
    if (!bufferFresh_)
        render();
    bufferFresh_ = false;
    painter->drawPixmap(0, 0, backBuffer_);
}

void CanvasFunctionBase::resizeBuffer()
{
    const QWidget* const canvas = widget();
    if (!canvas)
        return;
    backBuffer_ = QPixmap(deviceSize(*canvas));
    backBuffer_.setDevicePixelRatio(canvas->devicePixelRatioF());
    backBuffer_.fill(canvasColor_);
}

void CanvasFunctionBase::fitBuffer()
{
    const QWidget* const canvas = widget();
    const bool sharp = qFuzzyCompare(backBuffer_.devicePixelRatio(), canvas->devicePixelRatioF());
    if (sharp && backBuffer_.size() == deviceSize(*canvas))
        return;
    resizeBuffer();
    if (viewport_)
        viewport_->dirty = true;
}

void CanvasFunctionBase::render()
{
    fitBuffer();
    if (!viewport_ || backBuffer_.isNull())
        return;
    const QRect canvasRect = widget()->rect();
    QPainter painter(&backBuffer_);
    // Qt draws long polylines about twice as fast, pixel for pixel the same, when a clip is set.
    painter.setClipRect(canvasRect);
    painter.setBackground(canvasColor_);

    drawBackground(painter, canvasRect);
    if (viewport_->canShow()) {
        drawMark(painter);
        drawBand(painter);
        drawSelectionSpan(painter);
    }
    if (viewport_->dirty)
        grid_->layout(viewport_);
    grid_->draw(&painter);
    drawCurves(painter);
    viewport_->dirty = false;
}

void CanvasFunctionBase::drawBackground(QPainter& painter, const QRect& canvasRect)
{
    if (image_ && viewport_->dirty)
        image_->updateForView(viewport_, backBuffer_.devicePixelRatio());
    if (!image_ || !image_->coversCanvas())
        painter.eraseRect(canvasRect);
    if (image_)
        image_->draw(&painter);
}

void CanvasFunctionBase::drawMark(QPainter& painter) const
{
    if (!showMark_)
        return;
    const int column = viewport_->timeToPixel(lastPlace_.time);
    const int row = viewport_->valueToPixel(lastPlace_.value);
    painter.setPen(dottedPen());
    painter.drawLine(0, row, viewport_->pixelWidth, row);
    painter.drawLine(column, 0, column, viewport_->pixelHeight);
}

void CanvasFunctionBase::drawBand(QPainter& painter) const
{
    const QRect band = viewport_->bandRect();
    if (!isBandOpen() || band.isEmpty())
        return;
    painter.setPen(dottedPen());
    painter.setBrush(viewport_->bandValid ? selectionColor_ : canvasColor_);
    painter.drawRect(band.adjusted(0, 0, -1, -1));
}

bool CanvasFunctionBase::isBandOpen() const
{
    return viewport_->bandValid || viewport_->bandActive;
}

void CanvasFunctionBase::drawSelectionSpan(QPainter& painter) const
{
    double first = 0.0;
    double last = 0.0;
    if (isBandOpen() || !current_ || !current_->isSpline() ||
        !current_->control().getSelectionSpan(first, last))
        return;
    const int left = viewport_->timeToPixel(std::min(first, last));
    const int right = viewport_->timeToPixel(std::max(first, last));
    painter.fillRect(left, 0, right - left, viewport_->pixelHeight, selectionColor_);
}

void CanvasFunctionBase::drawCurves(QPainter& painter)
{
    for (const auto& curve : curves_) {
        if (curve.get() != current_)
            curve->draw(viewport_, &painter);
    }
    if (current_)
        current_->draw(viewport_, &painter);
}

void CanvasFunctionBase::setSelectionColor(const QColor& color)
{
    selectionColor_ = color;
}

void CanvasFunctionBase::setCanvasColor(const QColor& color)
{
    canvasColor_ = color;
}

void CanvasFunctionBase::setControllerColor(const QColor& color)
{
    CanvasSpline::setControllerColor(color);
}

void CanvasFunctionBase::setControllerSelectedColor(const QColor& color)
{
    CanvasSpline::setControllerSelectedColor(color);
}

void CanvasFunctionBase::setControlPointColor(const QColor& color)
{
    CanvasSpline::setControlPointColor(color);
}

void CanvasFunctionBase::setControlPointSelectedColor(const QColor& color)
{
    CanvasSpline::setControlPointSelectedColor(color);
}

void CanvasFunctionBase::setFrameFontColor(const QColor& color)
{
    grid_->fontColor = color;
}

void CanvasFunctionBase::setFrameHLineColor(const QColor& color)
{
    grid_->frameHLineColor = color;
}

void CanvasFunctionBase::setFrameVLineColor(const QColor& color)
{
    grid_->frameVLineColor = color;
}

void CanvasFunctionBase::setFrameLinesColor(const QColor& color)
{
    grid_->linePen = QPen(color, 0, Qt::SolidLine);
}

void CanvasFunctionBase::setTimeLineColor(const QColor& color)
{
    grid_->timeLineColor = color;
}

void CanvasFunctionBase::loadImage(const QString& fileName)
{
    clearImage();
    image_ = std::make_unique<BackgroundImage>(fileName);
    if (viewport_)
        viewport_->dirty = true;
}

void CanvasFunctionBase::clearImage()
{
    image_.reset();
}
