// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PlaneMapping.h>

#include <curveeditor/edit/Truncate.h>

#include <algorithm>
#include <cmath>

using namespace curveeditor;

namespace {

double quotient(double dividend, double divisor)
{
    return divisor == 0.0 ? 0.0 : dividend / divisor;
}

} // namespace

PlaneMapping::PlaneMapping(double timeLow, double timeHigh, double valueLow, double valueHigh, int width,
                           int height)
    : timeMin(timeLow), timeMax(timeHigh), valueMin(valueLow), valueMax(valueHigh), pixelWidth(width),
      pixelHeight(height), timeScale_(quotient(width, timeSpan())), valueScale_(quotient(height, valueSpan()))
{
}

bool PlaneMapping::operator==(const PlaneMapping& other) const
{
    return timeMin == other.timeMin && timeMax == other.timeMax && valueMin == other.valueMin &&
           valueMax == other.valueMax && pixelWidth == other.pixelWidth && pixelHeight == other.pixelHeight;
}

bool PlaneMapping::canShow() const
{
    return pixelWidth > 0 && pixelHeight > 0 && timeSpan() > 0.0 && valueSpan() > 0.0 &&
           std::isfinite(timeSpan()) && std::isfinite(valueSpan());
}

double PlaneMapping::shareOfWidth(double columns) const
{
    return quotient(columns, pixelWidth);
}

double PlaneMapping::shareOfHeight(double rows) const
{
    return quotient(rows, pixelHeight);
}

double PlaneMapping::timeOfPixels(double columns) const
{
    return shareOfWidth(columns) * timeSpan();
}

double PlaneMapping::valueOfPixels(double rows) const
{
    return shareOfHeight(rows) * valueSpan();
}

int PlaneMapping::pixelColumn(double time) const
{
    return truncateToPixel(column(time));
}

int PlaneMapping::pixelRow(double value) const
{
    return truncateToPixel(row(value));
}

QRect PlaneMapping::pixelRect(double timeA, double valueA, double timeB, double valueB) const
{
    const double left = std::min(timeA, timeB);
    const double top = std::max(valueA, valueB);
    return QRect(truncateToPixel(quotient(left - timeMin, timeSpan()) * pixelWidth),
                 truncateToPixel(quotient(valueMax - top, valueSpan()) * pixelHeight),
                 truncateToPixel(quotient(std::abs(timeB - timeA), timeSpan()) * pixelWidth),
                 truncateToPixel(quotient(std::abs(valueB - valueA), valueSpan()) * pixelHeight));
}

double PlaneMapping::pixelSlope(double slope) const
{
    return slope * (double(pixelHeight) / pixelWidth * timeSpan() / valueSpan());
}
