// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/CurveSnapshot.h>

#include <QImage>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <memory>
#include <vector>

/// A thread that draws the lamps at one time while the user edits. It reads snapshots alone, never the curves.
class Renderer : public QThread
{
    Q_OBJECT

public:
    struct Scene
    {
        std::vector<std::shared_ptr<const CurveSnapshot>>
            levels;               ///< of percent, one for each lamp; null for dark
        std::vector<QRgb> colors; ///< one for each lamp
        double time = 0.0;
        QSize size;
    };

    ~Renderer() override;

    /// Draws `scene` next; one that waits is passed over.
    void show(Scene scene);

Q_SIGNALS:
    void drawn(const QImage& image);

protected:
    void run() override;

private:
    QMutex mutex_;
    QWaitCondition changed_;
    Scene next_;
    bool isWaiting_ = false;
    bool isEnding_ = false;
};
