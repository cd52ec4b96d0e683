// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/BackgroundImage.h>

#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/Truncate.h>

#include <QImageReader>
#include <QPainter>

#include <cmath>

using namespace curveeditor;

namespace {

constexpr int largestImageInMegabytes = 1024;

/// Raises the limit of what Qt decodes while it lives. The limit belongs to the process: one that the host
/// has set higher, or switched off, stays, and the old one is back afterwards.
class DecodingLimit
{
public:
    explicit DecodingLimit(int megabytes)
    {
        if (before_ > 0 && before_ < megabytes)
            QImageReader::setAllocationLimit(megabytes);
    }
    ~DecodingLimit() { QImageReader::setAllocationLimit(before_); }
    Q_DISABLE_COPY_MOVE(DecodingLimit)

private:
    const int before_ = QImageReader::allocationLimit();
};

QImage decoded(const QString& fileName)
{
    const DecodingLimit limit(largestImageInMegabytes);
    return QImageReader(fileName).read();
}

/// In whole picture elements, reaching past the picture where the view reaches past the limits; empty if the
/// limits span nothing.
QRectF visiblePart(const ViewPort& view, const QSize& image)
{
    const double timeRange = view.limitTimeMax - view.limitTimeMin;
    const double valueRange = view.limitValueMax - view.limitValueMin;
    if (!(timeRange > 0.0 && valueRange > 0.0))
        return QRectF();
    return QRectF(truncateToInt(image.width() * ((view.timeMin - view.limitTimeMin) / timeRange)),
                  truncateToInt(image.height() * ((view.limitValueMax - view.valueMax) / valueRange)),
                  truncateToInt(image.width() * ((view.timeMax - view.timeMin) / timeRange)),
                  truncateToInt(image.height() * ((view.valueMax - view.valueMin) / valueRange)));
}

QSize deviceSize(const ViewPort& view, double devicePixelRatio)
{
    return QSize(truncateToInt(std::ceil(view.pixelWidth * devicePixelRatio)),
                 truncateToInt(std::ceil(view.pixelHeight * devicePixelRatio)));
}

/// What stands where a view reaches past the picture: the first colour of a palette, if it has one.
QColor colorOfPixelZero(const QImage& image)
{
    if (image.colorCount() > 0)
        return QColor::fromRgba(image.color(0));
    return image.hasAlphaChannel() ? Qt::transparent : Qt::black;
}

} // namespace

BackgroundImage::BackgroundImage(const QString& fileName) : sourceImage(decoded(fileName)) {}

void BackgroundImage::updateForView(ViewPort* view, double devicePixelRatio)
{
    viewPixmap = QPixmap();
    const QRectF part = visiblePart(*view, sourceImage.size());
    if (!view->canShow() || part.isEmpty())
        return;

    QPixmap pixmap(deviceSize(*view, devicePixelRatio));
    if (pixmap.isNull())
        return;
    pixmap.fill(colorOfPixelZero(sourceImage));
    // Crops and scales in one pass over the visible pixels: cutting the part out first costs a copy of the
    // whole picture at a far view.
    QPainter(&pixmap).drawImage(QRectF(pixmap.rect()), sourceImage, part);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    viewPixmap = pixmap;
}

bool BackgroundImage::coversCanvas() const
{
    return !viewPixmap.isNull() && !viewPixmap.hasAlphaChannel();
}

void BackgroundImage::draw(QPainter* painter)
{
    painter->drawPixmap(0, 0, viewPixmap);
}
