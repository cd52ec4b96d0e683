// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>

namespace curveeditor {

/// While it lives the painter, which draws in logical pixels, draws in device pixels. Gives its state back.
class DevicePixels
{
public:
    DevicePixels(QPainter* painter, double pixelRatio) : painter_(painter)
    {
        painter_->save();
        painter_->scale(1.0 / pixelRatio, 1.0 / pixelRatio);
    }
    ~DevicePixels() { painter_->restore(); }
    Q_DISABLE_COPY_MOVE(DevicePixels)

private:
    QPainter* painter_;
};

} // namespace curveeditor
