// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasFunctionBase.h>

#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/CurvePainter.h>
#include <curveeditor/canvas/ExpressionSampler.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <array>

namespace {

/// Has the colours of markers and handles for all canvases without a theme of their own.
CurveEditorTheme& sharedTheme()
{
    static CurveEditorTheme theme;
    return theme;
}

constexpr std::array sharedColors = {&CurveEditorTheme::controlPoint, &CurveEditorTheme::controlPointSelected,
                                     &CurveEditorTheme::controller, &CurveEditorTheme::controllerSelected};

} // namespace

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
    if (!theme_.smooth || layer_.isNull()) {
        layer_.draw(painter);
        CurvePainter curves(painter, layer_.pixelRatio());
        return drawFront(curves);
    }
    const auto drawFrontInto = [this](QPainter& onFrame, QImage& frame) {
        CurvePainter curves(&onFrame, layer_.pixelRatio());
        curves.writeInto(&frame, frame.rect());
        drawFront(curves);
    };
    layer_.drawWith(drawFrontInto, painter);
}

/// What lies before the layer.
void CanvasFunctionBase::drawFront(CurvePainter& curves) const
{
    if (!viewport_)
        return;
    QPainter& painter = *curves.painter();
    if (current_) {
        painter.setBackground(theme_.canvas);
        painter.setBackgroundMode(theme_.smooth ? Qt::TransparentMode : Qt::OpaqueMode);
        current_->draw(curves);
        drawSnapMark(painter);
    }
    grid_->drawGrip(&painter, theme_);
    drawHint(painter);
}

/// What can be done on a canvas that is empty, or nearly so.
void CanvasFunctionBase::drawHint(QPainter& painter) const
{
    if (!theme_.hint.isValid())
        return;
    const SplineBase* const spline = current_ && current_->isSpline() ? current_->getSpline() : nullptr;
    QString text;
    if (curves_.empty())
        text = tr("Drop the name of a curve on the list to edit it here");
    else if (spline && spline->getControlPointsNumber() == 1)
        text = tr("Double-click to add a point");
    else
        return;
    constexpr double heightShare = 0.4; // clear of a level curve in the middle
    painter.setFont(widget()->font());
    QRect place = painter.fontMetrics().boundingRect(text).adjusted(-8, -4, 8, 4);
    place.moveCenter(QPoint(viewport_->pixelWidth / 2, int(viewport_->pixelHeight * heightShare)));
    painter.fillRect(place, theme_.canvas);
    painter.setPen(theme_.hint);
    painter.setBackgroundMode(Qt::TransparentMode);
    painter.drawText(place, Qt::AlignCenter, text);
}

/// Lines through what a dragged point has snapped to.
void CanvasFunctionBase::drawSnapMark(QPainter& painter) const
{
    const Snap::Result& hit = guide.hit();
    painter.setPen(QPen(theme_.timeLine, 1, Qt::DashLine));
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
    theme();
    if (!viewport_ || layer_.isNull())
        return;
    if (viewport_->dirty) {
        ++viewNumber_;
        grid_->layout(viewport_);
        if (image_)
            image_->updateForView(viewport_, layer_.pixelRatio());
    }
    grid_->placeTimeLine(*viewport_);
    std::vector<CurveNodeBase*> expressions;
    for (const auto& curve : curves_) {
        curve->update(viewport_);
        if (curve->needsSamples(*viewport_))
            expressions.push_back(curve.get());
    }
    ExpressionSampler::sample(expressions, *viewport_, theme_);
    viewport_->dirty = false;
    layer_.show(backdrop(), curvesBehindCurrent());
}

CanvasLayer::Backdrop CanvasFunctionBase::backdrop() const
{
    CanvasLayer::Backdrop backdrop;
    backdrop.view = viewNumber_;
    backdrop.look = look_;
    backdrop.theme = &theme_;
    backdrop.background = image_.get();
    backdrop.grid = grid_.get();
    backdrop.timeLine = grid_->timeLineX;
    backdrop.font = QFont();
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

void CanvasFunctionBase::setTheme(const CurveEditorTheme& theme)
{
    theme_ = theme.bounded();
    hasOwnTheme_ = true;
    ++look_;
    for (const auto& curve : curves_)
        curve->setColor(curve->getColor(), theme_.canvas);
    if (viewport_)
        viewport_->dirty = true;
    paint();
}

const CurveEditorTheme& CanvasFunctionBase::theme()
{
    for (const auto color : sharedColors) {
        if (!hasOwnTheme_ && theme_.*color != sharedTheme().*color)
            setColor(color, sharedTheme().*color);
    }
    return theme_;
}

void CanvasFunctionBase::setColor(QColor CurveEditorTheme::*part, const QColor& color)
{
    theme_.*part = color;
    ++look_;
}

void CanvasFunctionBase::setSharedColor(QColor CurveEditorTheme::*part, const QColor& color)
{
    if (!hasOwnTheme_)
        sharedTheme().*part = color;
    setColor(part, color);
}

void CanvasFunctionBase::setSelectionColor(const QColor& color)
{
    setColor(&CurveEditorTheme::selection, color);
}

void CanvasFunctionBase::setCanvasColor(const QColor& color)
{
    QColor opaque = color; // else the last picture would shine through
    opaque.setAlpha(255);
    setColor(&CurveEditorTheme::canvas, opaque);
}

void CanvasFunctionBase::setControllerColor(const QColor& color)
{
    setSharedColor(&CurveEditorTheme::controller, color);
}

void CanvasFunctionBase::setControllerSelectedColor(const QColor& color)
{
    setSharedColor(&CurveEditorTheme::controllerSelected, color);
}

void CanvasFunctionBase::setControlPointColor(const QColor& color)
{
    setSharedColor(&CurveEditorTheme::controlPoint, color);
}

void CanvasFunctionBase::setControlPointSelectedColor(const QColor& color)
{
    setSharedColor(&CurveEditorTheme::controlPointSelected, color);
}

void CanvasFunctionBase::setFrameFontColor(const QColor& color)
{
    setColor(&CurveEditorTheme::labels, color);
}

void CanvasFunctionBase::setFrameHLineColor(const QColor& color)
{
    setColor(&CurveEditorTheme::frameHLine, color);
}

void CanvasFunctionBase::setFrameVLineColor(const QColor& color)
{
    setColor(&CurveEditorTheme::frameVLine, color);
}

void CanvasFunctionBase::setFrameLinesColor(const QColor& color)
{
    setColor(&CurveEditorTheme::gridLines, color);
}

void CanvasFunctionBase::setTimeLineColor(const QColor& color)
{
    setColor(&CurveEditorTheme::timeLine, color);
}

bool CanvasFunctionBase::loadImage(const QString& fileName)
{
    auto loaded = std::make_unique<BackgroundImage>(fileName);
    if (loaded->sourceImage.isNull())
        return false;
    image_ = std::move(loaded);
    if (viewport_)
        viewport_->dirty = true;
    return true;
}

void CanvasFunctionBase::clearImage()
{
    image_.reset();
}

void CanvasFunctionBase::setOffersTimeLine(bool on)
{
    grid_->offersTimeLine = on;
}
