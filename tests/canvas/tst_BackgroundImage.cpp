// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

class tst_BackgroundImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void viewSelectsThePartOfThePicture()
    {
        const QTemporaryDir folder;
        QImage picture(600, 600, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        QPainter(&picture).fillRect(0, 0, 300, 600, Qt::red);
        picture.save(folder.filePath("picture@2x.png"));

        QImageReader::setAllocationLimit(1);
        BackgroundImage background(folder.filePath("picture@2x.png"));
        QCOMPARE(QImageReader::allocationLimit(), 1);

        ViewPort view(0, 0);
        view.setSize(100, 50);
        view.setLimitValueMin(-3.0);
        view.setLimitValueMax(3.0);
        const auto shows = [&](double timeMin, double timeMax, const QColor& left, const QColor& right) {
            view.timeMin = timeMin;
            view.timeMax = timeMax;
            background.updateForView(&view, 2.0);
            const QImage shown = background.viewPixmap.toImage();
            return background.coversCanvas() && shown.deviceIndependentSize() == QSizeF(100, 50) &&
                   shown.pixelColor(1, 50) == left && shown.pixelColor(198, 50) == right;
        };
        QVERIFY(shows(-1.0, 10.0, Qt::red, Qt::blue));
        QVERIFY(shows(-1.0, 4.5, Qt::red, Qt::red));
        QVERIFY(shows(4.5, 15.5, Qt::blue, Qt::black));
        QVERIFY(shows(-1e30, -8.0, Qt::black, Qt::black));
        QVERIFY(!shows(0.0, 0.01, {}, {}));
        QVERIFY(background.viewPixmap.isNull());

        QImage palette(600, 600, QImage::Format_Indexed8);
        palette.setColorTable({QColor(Qt::green).rgb(), QColor(Qt::red).rgb()});
        palette.fill(1);
        palette.save(folder.filePath("palette.png"));
        background = BackgroundImage(folder.filePath("palette.png"));
        QVERIFY(shows(4.5, 15.5, Qt::red, Qt::green));

        background = BackgroundImage(folder.path());
        QVERIFY(!shows(-1.0, 10.0, {}, {}));
    }
};

QTEST_MAIN(tst_BackgroundImage)
#include "tst_BackgroundImage.moc"
