// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/CurvePainter.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPainter>
#include <QWidget>

#include <algorithm>

void CanvasFunctionBase::paint()
{
    if (paintHolds_ > 0)
        return;
    QWidget* const canvas = widget();
    if (!canvas || !canvas->isVisible())
        return;
    updatePicture();
    canvas->update();
}

void CanvasFunctionBase::releasePaint()
{
    if (--paintHolds_ == 0)
        paint();
}

void CanvasFunctionBase::showBuffer(QPainter* painter)
{
    updatePicture();
    layer_.draw(painter);
    if (!viewport_ || !current_)
        return;
    painter->setBackground(canvasColor_);
    painter->setBackgroundMode(Qt::OpaqueMode);
    CurvePainter curves(painter, layer_.pixelRatio());
    current_->draw(curves);
    drawSnapMark(*painter);
}

/// Lines through what a dragged point has snapped to.
void CanvasFunctionBase::drawSnapMark(QPainter& painter) const
{
    const Snap::Result& hit = guide.hit();
    painter.setPen(QPen(grid_->timeLineColor, 1, Qt::DashLine));
    painter.setBackgroundMode(Qt::TransparentMode);
    if (hit.timeKinds != Snap::Nothing) {
        const int column = viewport_->timeToPixel(hit.place.time);
        painter.drawLine(column, 0, column, viewport_->pixelHeight);
    }
    if (hit.valueKinds != Snap::Nothing) {
        const int row = viewport_->valueToPixel(hit.place.value);
        painter.drawLine(0, row, viewport_->pixelWidth, row);
    }
}

void CanvasFunctionBase::resizeBuffer()
{
    const QWidget* const canvas = widget();
    if (!canvas || !layer_.resize(canvas->size(), canvas->devicePixelRatioF()) || !viewport_)
        return;
    viewport_->pixelRatio = layer_.pixelRatio();
    viewport_->dirty = true;
}

void CanvasFunctionBase::updatePicture()
{
    resizeBuffer();
    if (!viewport_ || layer_.isNull())
        return;
    if (viewport_->dirty) {
        ++viewNumber_;
        grid_->layout(viewport_);
        if (image_)
            image_->updateForView(viewport_, layer_.pixelRatio());
    }
    grid_->placeTimeLine(*viewport_);
    for (const auto& curve : curves_)
        curve->update(viewport_);
    viewport_->dirty = false;
    layer_.show(backdrop(), curvesBehindCurrent());
}

CanvasLayer::Backdrop CanvasFunctionBase::backdrop() const
{
    CanvasLayer::Backdrop backdrop;
    backdrop.view = viewNumber_;
    backdrop.canvasColor = canvasColor_;
    backdrop.selectionColor = selectionColor_;
    backdrop.background = image_.get();
    backdrop.grid = grid_.get();
    backdrop.gridColors = grid_->colors();
    backdrop.timeLine = grid_->timeLineX;
    if (!viewport_->canShow())
        return backdrop;
    if (showMark_)
        backdrop.mark =
            QPoint(viewport_->timeToPixel(lastPlace_.time), viewport_->valueToPixel(lastPlace_.value));
    if (viewport_->bandValid || viewport_->bandActive)
        backdrop.band = viewport_->bandRect();
    else
        backdrop.selection = selectedColumns();
    backdrop.isBandValid = viewport_->bandValid;
    return backdrop;
}

CanvasLayer::Curves CanvasFunctionBase::curvesBehindCurrent() const
{
    CanvasLayer::Curves curves;
    for (const auto& curve : curves_) {
        if (curve.get() != current_)
            curves.emplace_back(curve.get(), curve->pictureNumber());
    }
    return curves;
}

std::optional<std::pair<int, int>> CanvasFunctionBase::selectedColumns() const
{
    std::vector<double> ends;
    for (const CurveNodeBase* const curve : selectedCurves()) {
        const std::vector<double> times = curve->control().selectedTimes();
        if (!times.empty())
            ends.insert(ends.end(), {times.front(), times.back()});
    }
    if (!hasMultipleSelection() || ends.empty())
        return std::nullopt;
    const auto [first, last] = std::minmax_element(ends.begin(), ends.end());
    return std::pair(viewport_->timeToPixel(*first), viewport_->timeToPixel(*last));
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
