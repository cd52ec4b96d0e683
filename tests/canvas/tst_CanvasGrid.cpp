// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QPainter>
#include <QRegion>
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

    void linesAreEquallyWideAtEveryRatio()
    {
        QWidget canvas;
        canvas.resize(503, 307);
        ViewPort view(0, 0);
        view.setSize(503, 307);
        view.timeMax = 10.3;
        CanvasGrid grid(&canvas);
        grid.layout(&view);
        grid.timeLineX = -1; // out of sight
        for (const auto& [ratio, pixels] : {std::pair(1.0, 1), {1.5, 2}, {2.0, 2}, {3.0, 3}}) {
            QImage image(canvas.size() * ratio, QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            image.fill(Qt::black);
            QPainter painter(&image);
            grid.draw(&painter, CurveEditorTheme::described());
            QRegion columns;
            for (int column = 20; column < image.width(); ++column) {
                if (image.pixelColor(column, 3) == Qt::white)
                    columns += QRect(column, 0, 1, 1);
            }
            QCOMPARE(columns.rectCount(), grid.countX);
            for (const QRect& line : columns)
                QCOMPARE(line.width(), pixels);
        }
    }

    void spacedLabelsMeetNeitherEdgesNorEachOther()
    {
        CurveEditorTheme theme = CurveEditorTheme::light();
        theme.timeLineGrip = 0;
        for (QColor* const line :
             {&theme.gridLines, &theme.zeroLines, &theme.frameHLine, &theme.frameVLine, &theme.timeLine})
            *line = theme.labels; // unseen
        for (int width = 30; width < 400; width += 3) {
            QWidget canvas;
            canvas.resize(width, 60);
            ViewPort view(0, 0);
            view.setSize(width, 60);
            view.timeMin = -1e7 / width;
            view.timeMax = 1e7;
            CanvasGrid grid(&canvas);
            grid.layout(&view);
            QImage image(canvas.size(), QImage::Format_RGB32);
            image.fill(theme.labels);
            QPainter painter(&image);
            grid.draw(&painter, theme);
            const auto widest = painter.fontMetrics().horizontalAdvance("7.5E+06") + 6;
            int run = 0;
            for (int column = 0; column < width; ++column) {
                run = image.pixelColor(column, 57 - painter.fontMetrics().height()) == theme.labels ? 0
                                                                                                    : run + 1;
                QVERIFY(run <= widest);
            }
            run = 0;
            for (int row = 0; row < 60; ++row) {
                run = image.pixelColor(3, row) == theme.labels ? 0 : run + 1;
                QVERIFY(run <= painter.fontMetrics().height());
                QCOMPARE(image.pixelColor(width - 2, row), theme.labels);
            }
            for (int column = 0; column < width; ++column)
                QVERIFY(image.pixelColor(column, 0) == theme.labels &&
                        image.pixelColor(column, 59) == theme.labels);
        }
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
