// SPDX-License-Identifier: MIT
#include "Renderer.h"

#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <utility>

namespace {

constexpr int lampsInRow = 10;

QImage draw(const Renderer::Scene& scene)
{
    QImage image(scene.size, QImage::Format_RGB32);
    image.fill(QColor(12, 12, 16));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const int rows = std::max(1, (int(scene.levels.size()) + lampsInRow - 1) / lampsInRow);
    const double width = double(image.width()) / lampsInRow;
    const double height = double(image.height()) / rows;
    const double radius = 0.45 * std::min(width, height);
    for (int i = 0; i < int(scene.levels.size()); ++i) {
        const auto& level = scene.levels[std::size_t(i)];
        const double percent = level ? std::clamp((*level)(scene.time), 0.0, 100.0) : 0.0;
        const QPointF center((i % lampsInRow + 0.5) * width, (i / lampsInRow + 0.5) * height);
        QColor light = QColor::fromRgb(scene.colors[std::size_t(i)]);
        QRadialGradient glow(center, radius);
        light.setAlphaF(float(0.1 + 0.9 * percent / 100.0));
        glow.setColorAt(0.0, light);
        light.setAlpha(0);
        glow.setColorAt(1.0, light);
        painter.setBrush(glow);
        painter.drawEllipse(center, radius, radius);
    }
    return image;
}

} // namespace

Renderer::~Renderer()
{
    {
        const QMutexLocker lock(&mutex_);
        isEnding_ = true;
    }
    changed_.wakeAll();
    wait();
}

void Renderer::show(Scene scene)
{
    {
        const QMutexLocker lock(&mutex_);
        next_ = std::move(scene);
        isWaiting_ = true;
    }
    changed_.wakeAll();
}

void Renderer::run()
{
    for (;;) {
        Scene scene;
        {
            const QMutexLocker lock(&mutex_);
            while (!isWaiting_ && !isEnding_)
                changed_.wait(&mutex_);
            if (isEnding_)
                return;
            scene = next_;
            isWaiting_ = false;
        }
        Q_EMIT drawn(draw(scene));
    }
}
