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
    QWidget* const canvas = widget();
    bufferFresh_ = canvas && canvas->isVisible();
    if (!bufferFresh_)
        return;
    render();
    canvas->update();
}

void CanvasFunctionBase::showBuffer(QPainter* painter)
{
    if (!bufferFresh_)
        render();
    bufferFresh_ = false;
    painter->drawPixmap(0, 0, backBuffer);
}

void CanvasFunctionBase::resizeBuffer()
{
    const QWidget* const canvas = widget();
    if (!canvas)
        return;
    backBuffer = QPixmap(deviceSize(*canvas));
    backBuffer.setDevicePixelRatio(canvas->devicePixelRatioF());
    backBuffer.fill(canvasColor);
}

void CanvasFunctionBase::fitBuffer()
{
    const QWidget* const canvas = widget();
    const bool sharp = qFuzzyCompare(backBuffer.devicePixelRatio(), canvas->devicePixelRatioF());
    if (sharp && backBuffer.size() == deviceSize(*canvas))
        return;
    resizeBuffer();
    if (viewport)
        viewport->dirty = true;
}

void CanvasFunctionBase::render()
{
    fitBuffer();
    if (!viewport || backBuffer.isNull())
        return;
    const QRect canvasRect = widget()->rect();
    QPainter painter(&backBuffer);
    // Qt draws long polylines about twice as fast, pixel for pixel the same, when a clip is set.
    painter.setClipRect(canvasRect);
    painter.setBackground(canvasColor);

    drawBackground(painter, canvasRect);
    if (viewport->canShow()) {
        drawMark(painter);
        drawBand(painter);
        drawSelectionSpan(painter);
    }
    if (viewport->dirty)
        grid->layout(viewport);
    grid->draw(&painter);
    drawCurves(painter);
    viewport->dirty = false;
}

void CanvasFunctionBase::drawBackground(QPainter& painter, const QRect& canvasRect)
{
    if (image && viewport->dirty)
        image->updateForView(viewport, backBuffer.devicePixelRatio());
    if (!image || !image->coversCanvas())
        painter.eraseRect(canvasRect);
    if (image)
        image->draw(&painter);
}

void CanvasFunctionBase::drawMark(QPainter& painter) const
{
    if (!showMark)
        return;
    const int column = viewport->timeToPixel(lastTime);
    const int row = viewport->valueToPixel(lastValue);
    painter.setPen(dottedPen());
    painter.drawLine(0, row, viewport->pixelWidth, row);
    painter.drawLine(column, 0, column, viewport->pixelHeight);
}

void CanvasFunctionBase::drawBand(QPainter& painter) const
{
    const QRect band = viewport->bandRect();
    if (!isBandOpen() || band.isEmpty())
        return;
    painter.setPen(dottedPen());
    painter.setBrush(viewport->bandValid ? selectionColor : canvasColor);
    painter.drawRect(band.adjusted(0, 0, -1, -1));
}

bool CanvasFunctionBase::isBandOpen() const
{
    return viewport->bandValid || viewport->bandActive;
}

void CanvasFunctionBase::drawSelectionSpan(QPainter& painter) const
{
    if (isBandOpen() || !current || current->getKind() != 0)
        return;
    const ControlSplineNode& control = current->getCanvasSpline()->control;
    if (!control.hasMultipleSelection())
        return;
    double first = 0.0;
    double last = 0.0;
    control.getSelectionSpan(first, last);
    const int left = viewport->timeToPixel(std::min(first, last));
    const int right = viewport->timeToPixel(std::max(first, last));
    painter.fillRect(left, 0, right - left, viewport->pixelHeight, selectionColor);
}

void CanvasFunctionBase::drawCurves(QPainter& painter)
{
    for (const auto& curve : curves) {
        if (curve.get() != current)
            curve->draw(viewport, &painter);
    }
    if (current)
        current->draw(viewport, &painter);
}

void CanvasFunctionBase::setSelectionColor(const QColor& color)
{
    selectionColor = color;
}

void CanvasFunctionBase::setCanvasColor(const QColor& color)
{
    canvasColor = color;
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
    grid->fontColor = color;
}

void CanvasFunctionBase::setFrameHLineColor(const QColor& color)
{
    grid->frameHLineColor = color;
}

void CanvasFunctionBase::setFrameVLineColor(const QColor& color)
{
    grid->frameVLineColor = color;
}

void CanvasFunctionBase::setFrameLinesColor(const QColor& color)
{
    grid->linePen = QPen(color, 0, Qt::SolidLine);
}

void CanvasFunctionBase::setTimeLineColor(const QColor& color)
{
    grid->timeLineColor = color;
}

void CanvasFunctionBase::loadImage(const QString& fileName)
{
    clearImage();
    image = std::make_unique<BackgroundImage>(fileName);
    if (viewport)
        viewport->dirty = true;
}

void CanvasFunctionBase::clearImage()
{
    image.reset();
}
