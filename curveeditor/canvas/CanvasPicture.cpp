// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasPicture.h>

#include <curveeditor/canvas/CanvasCurves.h>
#include <curveeditor/canvas/CurveNames.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/CurvePainter.h>
#include <curveeditor/canvas/ExpressionSampler.h>
#include <curveeditor/canvas/OutlinedText.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/DragGuide.h>
#include <curveeditor/files/NumberText.h>
#include <curveeditor/model/SplineBase.h>

#include <QPainter>
#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>
#include <array>
#include <utility>

namespace curveeditor {

namespace {

/// Has the colours of markers and handles for all canvases without a theme of their own.
CurveEditorTheme& sharedTheme()
{
    static CurveEditorTheme theme;
    return theme;
}

constexpr std::array sharedColors = {&CurveEditorTheme::controlPoint, &CurveEditorTheme::controlPointSelected,
                                     &CurveEditorTheme::controller, &CurveEditorTheme::controllerSelected};

constexpr int textMargin = 8;

QString joined(QStringList texts)
{
    texts.removeAll(QString());
    return texts.join(QStringLiteral("   "));
}

} // namespace

CanvasPicture::CanvasPicture(QWidget* widget, const CanvasCurves& curves, const DragGuide& guide)
    : widget_(widget), curves_(curves), guide_(guide), grid_(std::make_unique<CanvasGrid>(widget))
{
}

CanvasPicture::~CanvasPicture() = default;

void CanvasPicture::paint()
{
    if (widget_)
        widget_->update();
}

void CanvasPicture::show(QPainter* painter)
{
    updateCurves();
    paintUnderlay();
    if (viewport_ && !layer_.isNull())
        layer_.show(backdrop(), curvesBehindCurrent());
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
void CanvasPicture::drawFront(CurvePainter& curves) const
{
    if (!viewport_)
        return;
    QPainter& painter = *curves.painter();
    if (theme_.namesCurves)
        drawCurveNames(painter, curves_, *viewport_, theme_);
    if (curves_.current() && curves_.current()->isShown()) {
        painter.setBackground(theme_.canvas);
        painter.setBackgroundMode(theme_.smooth ? Qt::TransparentMode : Qt::OpaqueMode);
        drawSpeed(painter);
        curves_.current()->draw(curves);
        drawSnapMark(painter);
    }
    grid_->drawGrip(&painter, theme_);
    drawHint(painter);
    drawModeLine(painter);
}

/// What can be done on a canvas that is empty, or nearly so.
QString CanvasPicture::hint() const
{
    if (!theme_.hint.isValid())
        return {};
    if (curves_.isEmpty())
        return tr("Drop the name of a curve on the list to edit it here");
    const CanvasCurves::Nodes current = curves_.currentShownOnly();
    const bool isBare = !current.empty() && current.front()->getSpline()->getControlPointsNumber() == 1;
    if (isBare)
        return tr("Double-click to add a point");
    return !current.empty() && isOutOfReach(*current.front()->getSpline())
               ? tr("All points of this curve lie outside the range that is set under \"Options\"")
               : QString();
}

/// Whether no point of the spline can be brought into sight.
bool CanvasPicture::isOutOfReach(const SplineBase& spline) const
{
    const auto& points = spline.getControlPoints();
    const ViewStep::Limits limits = viewport_->limits();
    return !points.empty() && std::none_of(points.begin(), points.end(), [&](const auto* point) {
        return limits.time.contains(point->time) && limits.value.contains(point->pos);
    });
}

void CanvasPicture::drawHint(QPainter& painter) const
{
    const QString text = hint();
    if (text.isEmpty())
        return;
    constexpr int flags = int(Qt::AlignCenter) | int(Qt::TextWordWrap);
    constexpr double heightShare = 0.8; // clear of a level curve in the middle
    const QRect room(textMargin, 0, viewport_->pixelWidth - 2 * textMargin,
                     int(viewport_->pixelHeight * heightShare));
    painter.setFont(widget_->font());
    painter.setBackgroundMode(Qt::TransparentMode);
    drawOutlined(painter, room, text, theme_.hint, theme_.canvas, flags);
}

QString CanvasPicture::line() const
{
    const bool hasOwnScale = viewport_ && viewport_->ownScale.isOn();
    return joined({hasOwnScale ? tr("Own scale") : QString(), modeLine});
}

/// What is on, what is said, and what is under the mouse.
void CanvasPicture::drawModeLine(QPainter& painter) const
{
    const CurveNodeBase* const current = curves_.current();
    const bool isLocked = current && current->curve()->isLocked();
    const QString text =
        joined({isLocked ? tr("Locked") : QString(), curves_.editsAll() ? tr("All curves") : QString(),
                guide_.isSnapping ? tr("Snapping") : QString(), line(), slopeText()});
    if (!text.isEmpty())
        drawText(painter, text, widget_->fontMetrics().height() / 2 + 4, textColor());
}

QColor CanvasPicture::textColor() const
{
    return theme_.hint.isValid() ? theme_.hint : theme_.labels;
}

/// Where the mouse is.
QString CanvasPicture::slopeText() const
{
    const CurveNodeBase* const curve = showsSpeed ? curves_.current() : nullptr;
    if (!curve || !curve->isShown() || !mouseTime)
        return {};
    const double slope = curve->slope(*mouseTime, viewport_->mapping().timeOfPixels(1.0));
    return tr("Slope %1").arg(NumberText::inLocale(QString::number(slope, 'g', 6), widget_->locale()));
}

void CanvasPicture::drawSpeed(QPainter& painter) const
{
    if (!showsSpeed)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, theme_.smooth);
    painter.setPen(QPen(textColor(), 1));
    speed_.draw(painter);
    painter.restore();
}

/// In the middle of the canvas, about the row `middle`.
void CanvasPicture::drawText(QPainter& painter, const QString& text, int middle, const QColor& color) const
{
    painter.setFont(widget_->font());
    const QString shown =
        painter.fontMetrics().elidedText(text, Qt::ElideRight, viewport_->pixelWidth - 2 * textMargin);
    QRect place = painter.fontMetrics().boundingRect(shown).adjusted(-textMargin, -4, textMargin, 4);
    place.moveCenter(QPoint(viewport_->pixelWidth / 2, middle));
    painter.setBackgroundMode(Qt::TransparentMode);
    drawOutlined(painter, place, shown, color, theme_.canvas);
}

/// Lines through what a dragged point has snapped to.
void CanvasPicture::drawSnapMark(QPainter& painter) const
{
    const Snap::Result& hit = guide_.hit();
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

void CanvasPicture::resize()
{
    if (!widget_ || !layer_.resize(widget_->size(), widget_->devicePixelRatioF()) || !viewport_)
        return;
    viewport_->pixelRatio = layer_.pixelRatio();
    viewport_->dirty = true;
}

CanvasGrid& CanvasPicture::grid()
{
    if (widget_ && viewport_ && !isLaidOut())
        grid_->layout(viewport_);
    return *grid_;
}

bool CanvasPicture::isLaidOut() const
{
    return !viewport_->dirty && laidOut_ == viewport_->mapping();
}

void CanvasPicture::updateCurves()
{
    resize();
    theme();
    if (!viewport_ || layer_.isNull())
        return;
    std::vector<CurveNodeBase*> expressions;
    for (const auto& curve : curves_.all()) {
        curve->update(viewport_);
        if (curve->needsSamples(*viewport_))
            expressions.push_back(curve.get());
    }
    ExpressionSampler::sample(expressions, *viewport_, theme_);
    if (curves_.current())
        viewport_->followScale(curves_.current()->scale());
    if (!isLaidOut()) {
        ++view_;
        grid_->layout(viewport_);
        if (image_)
            image_->updateForView(viewport_, layer_.pixelRatio());
        laidOut_ = viewport_->mapping();
    }
    grid_->placeTimeLine(*viewport_);
    viewport_->dirty = false;
    if (showsSpeed && curves_.current() && viewport_->canShow())
        speed_.update(*curves_.current(), *viewport_);
}

CanvasLayer::Backdrop CanvasPicture::backdrop() const
{
    CanvasLayer::Backdrop backdrop;
    backdrop.view = view_;
    backdrop.look = look_;
    backdrop.theme = &theme_;
    backdrop.background = image_.get();
    backdrop.backgroundStrength = imageStrength;
    backdrop.underlay = underlay_ && viewport_->canShow() ? grounds_ : 0;
    backdrop.grid = grid_.get();
    backdrop.timeLine = grid_->timeLineX;
    backdrop.font = QFont();
    if (!viewport_->canShow())
        return backdrop;
    if (mark)
        backdrop.mark = QPoint(viewport_->timeToPixel(mark->time), viewport_->valueToPixel(mark->value));
    if (viewport_->bandValid || viewport_->bandActive)
        backdrop.band = viewport_->bandRect();
    else
        backdrop.selection = selectedColumns();
    backdrop.isBandValid = viewport_->bandValid;
    return backdrop;
}

CanvasLayer::Curves CanvasPicture::curvesBehindCurrent() const
{
    CanvasLayer::Curves curves;
    for (const auto& curve : curves_.all()) {
        if (curve.get() != curves_.current() && curve->isShown())
            curves.emplace_back(curve.get(), curve->pictureNumber());
    }
    return curves;
}

std::optional<std::pair<int, int>> CanvasPicture::selectedColumns() const
{
    const std::optional<AxisRange> times = curves_.selectedTimes();
    if (!times)
        return std::nullopt;
    return std::pair(viewport_->timeToPixel(times->low), viewport_->timeToPixel(times->high));
}

void CanvasPicture::setTheme(const CurveEditorTheme& theme)
{
    theme_ = theme.bounded();
    grid_->hasFineLines = theme_.fineGridLines.isValid();
    hasOwnTheme_ = true;
    ++look_;
    if (viewport_)
        viewport_->dirty = true;
}

const CurveEditorTheme& CanvasPicture::theme()
{
    for (const auto color : sharedColors) {
        if (!hasOwnTheme_ && theme_.*color != sharedTheme().*color)
            setColor(color, sharedTheme().*color);
    }
    return theme_;
}

void CanvasPicture::setColor(QColor CurveEditorTheme::*part, const QColor& color)
{
    theme_.*part = color;
    theme_.canvas.setAlpha(255); // else the last picture would shine through
    ++look_;
}

void CanvasPicture::setSharedColor(QColor CurveEditorTheme::*part, const QColor& color)
{
    if (!hasOwnTheme_)
        sharedTheme().*part = color;
    setColor(part, color);
}

bool CanvasPicture::loadImage(const QString& fileName)
{
    auto loaded = std::make_unique<BackgroundImage>(fileName);
    if (loaded->sourceImage.isNull())
        return false;
    image_ = std::move(loaded);
    ++content_;
    if (viewport_)
        viewport_->dirty = true;
    return true;
}

void CanvasPicture::clearImage()
{
    image_.reset();
    ++content_;
}

CanvasPicture::SharedPainter CanvasPicture::shared(CanvasPainter painter)
{
    return painter ? std::make_shared<const CanvasPainter>(std::move(painter)) : nullptr;
}

void CanvasPicture::setUnderlay(CanvasPainter painter)
{
    underlay_ = shared(std::move(painter));
    updateUnderlay();
}

void CanvasPicture::updateUnderlay()
{
    ++content_;
    paint();
}

void CanvasPicture::setOverlay(CanvasPainter painter)
{
    overlay_ = shared(std::move(painter));
    paint();
}

/// The painter may put another one in its place while it runs. Returns false if it threw; it is gone then, and the other
/// one stays.
bool CanvasPicture::callHost(SharedPainter& painter, QPainter& on)
{
    const QScopedValueRollback atWork(isHostAtWork_, true);
    const SharedPainter present = painter;
    on.setFont(widget_->font());
    on.setPen(widget_->palette().color(widget_->foregroundRole()));
    try {
        (*present)(on, viewport_->mapping());
        return true;
    } catch (...) { // there is no way through Qt
        qWarning("CurveEditor: a painter of the host threw and is not called any more");
        if (painter == present)
            painter.reset();
        return false;
    }
}

/// The host may do anything in it, so it comes before the curves are looked at, and once in a frame.
void CanvasPicture::paintUnderlay()
{
    if (!underlay_ || isHostAtWork_ || !viewport_ || layer_.isNull() || !viewport_->canShow())
        return;
    const Ground ground{viewport_->mapping(), layer_.pixelRatio(), look_, content_};
    if (ground == ground_)
        return;
    ground_ = ground;
    ++grounds_;
    bool isDone = false;
    layer_.paintUnderlay([&](QPainter& painter) { isDone = callHost(underlay_, painter); });
    if (!isDone)
        updateUnderlay();
    updateCurves();
}

void CanvasPicture::showOverlay()
{
    if (!overlay_ || isHostAtWork_ || !viewport_ || !viewport_->canShow())
        return;
    QPainter painter(widget_);
    if (!callHost(overlay_, painter))
        paint();
}

} // namespace curveeditor
