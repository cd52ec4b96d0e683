// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/SmoothStroke.h>

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace curveeditor {

namespace {

constexpr int stripsPerPixel = 4;
// Where there is no line, its highest row lies below and its lowest row above all others.
constexpr float nowhere = std::numeric_limits<float>::infinity();

/// Leave `bound` alone if `row` is not a number. Unlike those of the standard library they become one instruction.
void raise(float& bound, float row)
{
    bound = row < bound ? row : bound;
}
void lower(float& bound, float row)
{
    bound = row > bound ? row : bound;
}

bool isTurn(const QPoint& before, const QPoint& point, const QPoint& behind)
{
    return (point.y() > before.y()) != (behind.y() > point.y());
}

/// `share` is of 256.
QRgb blended(QRgb color, QRgb under, quint32 share)
{
    const quint32 rest = 256 - share;
    const quint32 redAndBlue = ((color & 0xff00ff) * share + (under & 0xff00ff) * rest) >> 8;
    const quint32 green = ((color & 0x00ff00) * share + (under & 0x00ff00) * rest) >> 8;
    return 0xff000000 | (redAndBlue & 0xff00ff) | (green & 0x00ff00);
}

} // namespace

void SmoothStroke::setTarget(QImage* image, const QRect& part)
{
    image_ = image;
    part_ = part & image->rect();
    changes_.assign(std::size_t(image->height()) + 2, 0.0f);
}

void SmoothStroke::draw(const QPoint* points, int count, int scale, double width, const QColor& color)
{
    if (count < 2 || part_.isEmpty())
        return;
    const int margin = int(std::ceil(width / 2.0)) + 1;
    firstStrip_ = (part_.left() - margin) * stripsPerPixel;
    const auto strips = std::size_t(part_.width() + 2 * std::ptrdiff_t(margin)) * stripsPerPixel;
    turns_.clear();
    highest_.assign(strips, nowhere);
    lowest_.assign(strips, -nowhere);
    resample(points, count, scale);
    widen(width / 2.0);
    roundTurns(width / 2.0);
    fill(color);
}

/// Takes the line's row in the middle of each strip, and its ends and turns, which may lie between.
void SmoothStroke::resample(const QPoint* points, int count, int scale)
{
    const int strips = int(highest_.size());
    const auto stripOf = [this, scale](const QPoint& point) {
        return double(point.x()) * stripsPerPixel / scale - 0.5 - firstStrip_;
    };
    const auto rowOf = [scale](const QPoint& point) {
        return float(point.y()) / float(scale);
    };
    for (int i = 0; i < count; ++i) {
        const double strip = stripOf(points[i]);
        const float row = rowOf(points[i]);
        if (i == 0 || i + 1 == count || isTurn(points[i - 1], points[i], points[i + 1]))
            turns_.emplace_back(strip, row);
        if (i + 1 == count)
            return;
        const double nextStrip = stripOf(points[i + 1]);
        if (nextStrip < 0.0 || strip >= strips)
            continue;
        const auto slope = float((rowOf(points[i + 1]) - row) / (nextStrip - strip));
        const int last = std::min(int(std::floor(nextStrip)), strips - 1);
        for (int k = std::max(int(std::ceil(strip)), 0); k <= last; ++k) {
            const float between = row + float(k - strip) * slope;
            raise(highest_[std::size_t(k)], between);
            lower(lowest_[std::size_t(k)], between);
        }
    }
}

/// What lies `across` from a place reaches it by the height of a circle there. A few directions are enough: the line
/// is at most two hundredths thinner where it runs between them.
void SmoothStroke::widen(double radius)
{
    constexpr int directions = 4; // between level and upright
    const int strips = int(highest_.size());
    top_.resize(highest_.size());
    bottom_.resize(lowest_.size());
    for (std::size_t k = 0; k < highest_.size(); ++k) {
        top_[k] = highest_[k] - float(radius);
        bottom_[k] = lowest_[k] + float(radius);
    }
    for (const int direction : {-4, -3, -2, -1, 1, 2, 3, 4}) {
        const double angle = direction * (std::numbers::pi / 2.0) / directions;
        const double across = radius * std::sin(angle) * stripsPerPixel;
        const auto height = float(radius * std::cos(angle));
        const int offset = int(std::floor(across));
        const auto share = float(across - offset);
        const int first = std::max(0, -offset);
        const int behind = std::min(strips, strips - offset - 1);
        const float* const highest = highest_.data() + offset;
        const float* const lowest = lowest_.data() + offset;
        for (int k = first; k < behind; ++k) {
            raise(top_[std::size_t(k)], highest[k] + share * (highest[k + 1] - highest[k]) - height);
            lower(bottom_[std::size_t(k)], lowest[k] + share * (lowest[k + 1] - lowest[k]) + height);
        }
    }
}

/// Where the line is steep, its ends and turns would be missed by these directions.
void SmoothStroke::roundTurns(double radius)
{
    const double reach = radius * stripsPerPixel;
    for (const auto& [strip, row] : turns_) {
        const double behind = std::min(strip + reach, double(top_.size()) - 1.0);
        for (auto k = std::size_t(std::max(std::ceil(strip - reach), 0.0)); double(k) <= behind; ++k) {
            const double across = (double(k) - strip) / stripsPerPixel;
            const auto height = float(std::sqrt(std::max(radius * radius - across * across, 0.0)));
            raise(top_[k], row - height);
            lower(bottom_[k], row + height);
        }
    }
}

void SmoothStroke::fill(const QColor& color)
{
    const QRgb rgb = color.rgb();
    const float opacity = 256.0f * float(color.alphaF());
    const qsizetype pitch = image_->bytesPerLine() / qsizetype(sizeof(QRgb));
    auto* const pixels = reinterpret_cast<QRgb*>(image_->bits());
    const auto firstOfPart = float(part_.top());
    const auto behindPart = float(part_.bottom() + 1);
    for (int column = part_.left(); column <= part_.right(); ++column) {
        const auto strip = std::size_t(column * stripsPerPixel - firstStrip_);
        float top = nowhere;
        float bottom = -nowhere;
        float fullTop = -nowhere;
        float fullBottom = nowhere;
        for (std::size_t k = strip; k < strip + stripsPerPixel; ++k) {
            raise(top, top_[k]);
            lower(bottom, bottom_[k]);
            lower(fullTop, top_[k]);
            raise(fullBottom, bottom_[k]);
        }
        top = std::max(top, firstOfPart);
        bottom = std::min(bottom, behindPart);
        if (!(top < bottom))
            continue;
        const int firstRow = int(top);
        const int behindRow = std::min(int(bottom) + 1, part_.bottom() + 1);
        for (std::size_t k = strip; k < strip + stripsPerPixel; ++k)
            addStretch(std::max(top_[k], firstOfPart), std::min(bottom_[k], behindPart));
        float share = 0.5f; // of 256, so that the fraction is rounded off
        const auto blend = [&](int first, int behind) {
            QRgb* pixel = pixels + first * pitch + column;
            for (int row = first; row < behind; ++row, pixel += pitch) {
                share += opacity * std::exchange(changes_[std::size_t(row)], 0.0f);
                *pixel = blended(rgb, *pixel, quint32(share));
            }
        };
        const int firstFull = int(std::clamp(std::ceil(fullTop), float(firstRow), float(behindRow)));
        const int behindFull = int(std::clamp(std::floor(fullBottom), float(firstRow), float(behindRow)));
        if (opacity < 256.0f || firstFull >= behindFull) {
            blend(firstRow, behindRow);
        } else {
            blend(firstRow, firstFull);
            QRgb* pixel = pixels + firstFull * pitch + column;
            for (int row = firstFull; row < behindFull; ++row, pixel += pitch)
                *pixel = rgb;
            share += opacity * std::exchange(changes_[std::size_t(firstFull)], 0.0f);
            blend(behindFull, behindRow);
        }
        changes_[std::size_t(behindRow)] = changes_[std::size_t(behindRow) + 1] = 0.0f;
    }
}

/// Between two rows the coverage changes by what the one has of an end of the stretch, and the other does not.
void SmoothStroke::addStretch(float top, float bottom)
{
    if (!(top < bottom))
        return;
    for (const auto& [end, change] : {std::pair(top, 1.0f), std::pair(bottom, -1.0f)}) {
        const auto row = std::size_t(end);
        const float part = (end - float(row)) / stripsPerPixel;
        changes_[row] += change * (1.0f / stripsPerPixel - part);
        changes_[row + 1] += change * part;
    }
}

} // namespace curveeditor
