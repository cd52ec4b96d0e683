// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ViewPort.h>

#include <curveeditor/canvas/MouseState.h>

#include <QMouseEvent>
#include <QtGlobal>

#include <algorithm>
#include <cmath>

using namespace curveeditor;

namespace {

constexpr double smallestSide = double(1e-9f);
constexpr double smallestShareOfPosition = double(0.0001f);
constexpr double zoomOfWholeDrag = 5.0;

double within(double number, double low, double high)
{
    return std::min(std::max(number, low), high);
}

} // namespace

ViewPort::ViewPort(const int& /*width*/, const int& /*height*/) {}

void ViewPort::setSize(const int& width, const int& height)
{
    if (width == pixelWidth && height == pixelHeight)
        return;
    pixelWidth = width;
    pixelHeight = height;
    dirty = true;
}

void ViewPort::reset()
{
    showFrames = true;
    clearDrag();
    timeMin = limitTimeMin;
    timeMax = limitTimeMax;
    const AxisRange values = wholeValues();
    valueMin = values.low;
    valueMax = values.high;
    bandX0 = bandY0 = bandX1 = bandY1 = 0.0;
    bandValid = false;
    bandActive = false;
    zoomThreshold = usualThreshold;
    dirty = true;
}

/// Limits of value say nothing of a curve in a scale of its own: all of that is its whole range.
AxisRange ViewPort::wholeValues() const
{
    return ownScale.isOn() ? ownScale.valuesAt({0.0, 1.0}) : AxisRange{limitValueMin, limitValueMax};
}

PlaneMapping ViewPort::mapping() const
{
    return {timeMin, timeMax, valueMin, valueMax, pixelWidth, pixelHeight};
}

PlaneMapping ViewPort::deviceMapping(int scale) const
{
    return {timeMin,
            timeMax,
            valueMin,
            valueMax,
            qRound(pixelWidth * pixelRatio) * scale,
            qRound(pixelHeight * pixelRatio) * scale};
}

void ViewPort::followScale(const AxisRange& scale)
{
    const PlaneMapping view = ownScale.followed(scale, mapping());
    valueMin = view.valueMin;
    valueMax = view.valueMax;
}

void ViewPort::showView(const PlaneMapping& view)
{
    const bool isSame = timeMin == view.timeMin && timeMax == view.timeMax && valueMin == view.valueMin &&
                        valueMax == view.valueMax;
    dirty = dirty || !isSame;
    timeMin = view.timeMin;
    timeMax = view.timeMax;
    valueMin = view.valueMin;
    valueMax = view.valueMax;
}

ViewStep::Limits ViewPort::limits() const
{
    return {{limitTimeMin, limitTimeMax}, valueLimits()};
}

/// A curve in a scale of its own is seen wherever its values lie.
AxisRange ViewPort::valueLimits() const
{
    constexpr double unlimited = 1e300; // whose span is finite
    return ownScale.isOn() ? AxisRange{-unlimited, unlimited} : AxisRange{limitValueMin, limitValueMax};
}

double ViewPort::withinLimits(double value) const
{
    const AxisRange limits = valueLimits();
    return within(value, limits.low, limits.high);
}

bool ViewPort::canShow() const
{
    return mapping().canShow();
}

void ViewPort::setShowFrames(const bool& on)
{
    dirty = dirty || on != showFrames;
    showFrames = on;
}

double ViewPort::pixelToTimeDelta(const int& dx) const
{
    return mapping().timeOfPixels(dx);
}

double ViewPort::pixelToValueDelta(const int& dy) const
{
    return mapping().valueOfPixels(dy);
}

double ViewPort::pixelToTime(const int& x) const
{
    return within(mapping().timeAt(x), limitTimeMin, limitTimeMax);
}

double ViewPort::pixelToValue(const int& y) const
{
    return withinLimits(mapping().valueAt(y));
}

int ViewPort::timeToPixel(const double& t) const
{
    return mapping().pixelColumn(within(t, limitTimeMin, limitTimeMax));
}

int ViewPort::valueToPixel(const double& v) const
{
    return mapping().pixelRow(withinLimits(v));
}

void ViewPort::panView(const int& dx, const int& dy)
{
    const double timeSpan = timeMax - timeMin;
    const double valueSpan = valueMax - valueMin;
    bandX0 = pixelToTimeDelta(dx) + timeMin;
    bandY1 = valueMin - pixelToValueDelta(dy);
    bandX1 = timeSpan + bandX0;
    bandY0 = valueSpan + bandY1;
    checkBand(false);
    if (bandValid) {
        timeMin = bandX0;
        timeMax = bandX1;
        valueMin = bandY1;
        valueMax = bandY0;
        bandValid = false;
    }
    bandActive = false;
}

void ViewPort::zoomView(const int& dx, const int& dy)
{
    const PlaneMapping view = mapping();
    const double timeFactor = std::pow(zoomOfWholeDrag, view.shareOfWidth(-double(dx)));
    const double valueFactor = std::pow(zoomOfWholeDrag, view.shareOfHeight(dy));
    const double anchorTime = view.timeAt(anchorX);
    const double anchorValue = view.valueAt(anchorY);
    const double time = anchorTime + ((timeMin + timeMax) * 0.5 - anchorTime) * timeFactor;
    const double value = anchorValue + ((valueMin + valueMax) * 0.5 - anchorValue) * valueFactor;
    const double halfTime = timeFactor * view.timeSpan() * 0.5;
    const double halfValue = valueFactor * view.valueSpan() * 0.5;
    bandX0 = time - halfTime;
    bandY0 = value + halfValue;
    bandX1 = time + halfTime;
    bandY1 = value - halfValue;
    applyBand(true);
}

void ViewPort::beginBand(const int& x, const int& y)
{
    bandX0 = pixelToTime(x);
    bandY0 = pixelToValue(y);
    bandX1 = bandX0;
    bandY1 = bandY0;
    checkBand(true);
}

void ViewPort::extendBand(const int& x, const int& y)
{
    bandX1 = pixelToTime(x);
    bandY1 = pixelToValue(y);
    checkBand(true);
}

void ViewPort::checkBand(bool strict)
{
    bandActive = true;
    if (strict) {
        bandX0 = within(bandX0, limitTimeMin, limitTimeMax);
        bandX1 = within(bandX1, limitTimeMin, limitTimeMax);
        bandY0 = withinLimits(bandY0);
        bandY1 = withinLimits(bandY1);
    }
    const double width = std::abs(bandX1 - bandX0);
    const double height = std::abs(bandY0 - bandY1);
    const bool tooSmallInView =
        (timeMax - timeMin) * zoomThreshold > width || (valueMax - valueMin) * zoomThreshold > height;
    const bool tooSmallWhereItIs = (bandX0 + bandX1) * smallestShareOfPosition > width ||
                                   (bandY0 + bandY1) * smallestShareOfPosition > height;
    const bool withoutSide = width < smallestSide || height < smallestSide;
    const bool largerThanLimits = limitTimeMax - limitTimeMin < width || valueLimits().span() < height;
    bandValid = !(strict && (tooSmallInView || tooSmallWhereItIs)) && !withoutSide && !largerThanLimits;
}

void ViewPort::applyBand(bool strict)
{
    checkBand(strict);
    if (bandValid) {
        timeMin = std::min(bandX0, bandX1);
        timeMax = std::max(bandX0, bandX1);
        valueMin = std::min(bandY0, bandY1);
        valueMax = std::max(bandY0, bandY1);
        bandValid = false;
        dirty = true;
    }
    bandActive = false;
}

void ViewPort::takeBand(double& timeLow, double& timeHigh, double& valueLow, double& valueHigh)
{
    timeLow = std::min(bandX0, bandX1);
    timeHigh = std::max(bandX0, bandX1);
    valueLow = std::min(bandY0, bandY1);
    valueHigh = std::max(bandY0, bandY1);
    bandValid = false;
    bandActive = false;
}

QRect ViewPort::bandRect() const
{
    return mapping().pixelRect(bandX0, bandY0, bandX1, bandY1);
}

void ViewPort::clearDrag()
{
    if (gesture.isAtView())
        gesture.end();
}

void ViewPort::cancelDrag()
{
    if (!gesture.isAtView())
        return;
    showView(gesture.start());
    bandValid = false;
    bandActive = false;
    dirty = true;
    gesture.cancel();
}

void ViewPort::mousePress(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const bool alt = stateBefore(*event).has(Qt::AltModifier);
    lastMouseX = anchorX = position.x();
    lastMouseY = anchorY = position.y();
    if (event->button() == Qt::LeftButton) {
        beginBand(anchorX, anchorY);
        gesture.beginAtView(Gesture::Kind::Band, mapping());
    } else if (event->button() == Qt::MiddleButton && alt) {
        gesture.beginAtView(Gesture::Kind::Pan, mapping());
    } else if (event->button() == Qt::RightButton && alt) {
        gesture.beginAtView(Gesture::Kind::Zoom, mapping());
    }
}

void ViewPort::mouseMove(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const int dx = lastMouseX - position.x();
    const int dy = lastMouseY - position.y();
    if (gesture.kind() == Gesture::Kind::Band) {
        extendBand(position.x(), position.y());
    } else if (gesture.kind() == Gesture::Kind::Pan) {
        panView(dx, dy);
        dirty = true;
    } else if (gesture.kind() == Gesture::Kind::Zoom) {
        zoomView(dx, dy);
        dirty = true;
    }
    lastMouseX = position.x();
    lastMouseY = position.y();
}

void ViewPort::mouseRelease(QMouseEvent* event)
{
    if (gesture.kind() == Gesture::Kind::Band && stateBefore(*event).has(Qt::AltModifier))
        applyBand(true);
    clearDrag();
}
