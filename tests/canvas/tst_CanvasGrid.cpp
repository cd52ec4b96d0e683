// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPainter>
#include <QTest>
#include <QWidget>

class tst_CanvasGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesFollowFromTheRange()
    {
        const auto firstCountZero = [](double low, double high, double fps) {
            QWidget canvas;
            ViewPort view(0, 0);
            view.setSize(100, 100);
            view.setLimitTimeMin(low);
            view.setLimitTimeMax(high);
            view.setFps(fps);
            CanvasGrid grid(&canvas);
            grid.layout(&view);
            return QList({grid.firstX, double(grid.countX), double(grid.zeroIndexX)});
        };
        const QList nothing({0.0, 0.0, -1.0});
        QCOMPARE(firstCountZero(0.0, 1.0, 1.0), QList({0.0, 5.0, 0.0}));
        QCOMPARE(firstCountZero(-1.0, 10.0, 10.0), QList({0.0, 5.0, 0.0}));
        QCOMPARE(firstCountZero(-1.0, 0.0, 1.0), QList({-1.0, 5.0, -1.0}));
        QCOMPARE(firstCountZero(1e15, 1e15 + 0.125, 1.0), nothing);
        QCOMPARE(firstCountZero(3.6226245078280963e-53, 3.6226245078280968e-53, 1.0), nothing);
        QCOMPARE(firstCountZero(0.0, 1.0, -10.0), nothing);
    }

    void drawsTimeLineAndLabelsThatClearTheEdge()
    {
        QWidget canvas;
        canvas.resize(1100, 600);
        ViewPort view(0, 0);
        view.setSize(1100, 600);
        view.valueMin = -2.9;
        CanvasGrid grid(&canvas);
        for (const int firstLine : {100, 8}) {
            view.timeMin = -firstLine / 100.0;
            view.timeMax = view.timeLine = 11.0 + view.timeMin;
            grid.layout(&view);
            QImage image(canvas.size(), QImage::Format_RGB32);
            image.fill(Qt::gray);
            QPainter painter(&image);
            grid.draw(&painter, CurveEditorTheme::described());
            QVERIFY(painter.backgroundMode() == Qt::OpaqueMode && painter.compositionMode() == 0);
            QCOMPARE(image.pixelColor(grid.timeLineX - 1, 20), QColor(223, 255, 255));
            const QImage label = image.copy(firstLine + 4, 585, 8, 10);
            QCOMPARE(label == image.copy(firstLine + 40, 585, 8, 10), firstLine == 8);
        }
    }
};

QTEST_MAIN(tst_CanvasGrid)
#include "tst_CanvasGrid.moc"
