// SPDX-License-Identifier: MIT
#include "CanvasScene.h"

#include <curveeditor/canvas/BackgroundImage.h>
#include <curveeditor/canvas/CanvasGrid.h>
#include <curveeditor/canvas/MouseState.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/Truncate.h>
#include <support/Test.h>

#include <optional>

using namespace curveeditor;

namespace {

/// A grid on a canvas of that many pixels.
struct GridScene
{
    GridScene(const QSize& size, double timeMin, double timeMax)
    {
        canvas.resize(size);
        view.setSize(size.width(), size.height());
        setTimes(timeMin, timeMax);
    }
    void setTimes(double low, double high)
    {
        view.timeMin = low;
        view.timeMax = high;
        grid.layout(&view);
    }

    QWidget canvas;
    ViewPort view{0, 0};
    CanvasGrid grid{&canvas};
};

constexpr auto alt = Qt::AltModifier;

/// 100 pixels for each unit: time -1 … 10, value -3 … 3.
ViewPort standardView()
{
    ViewPort view(0, 0);
    view.setSize(1100, 600);
    return view;
}

/// The visible range after a drag, time by value.
QRectF drag(Qt::MouseButton button, QPointF from, QPointF to, Qt::KeyboardModifier atPress,
            Qt::KeyboardModifier atRelease)
{
    ViewPort view = standardView();
    QMouseEvent press(QEvent::MouseButtonPress, from, from, button, button, atPress);
    QMouseEvent move(QEvent::MouseMove, to, to, Qt::NoButton, button, atPress);
    QMouseEvent release(QEvent::MouseButtonRelease, to, to, button, Qt::NoButton, atRelease);
    view.mousePress(&press);
    view.mouseMove(&move);
    view.mouseRelease(&release);
    return QRectF(view.timeMin, view.valueMin, view.timeMax - view.timeMin, view.valueMax - view.valueMin);
}

} // namespace

class tst_CanvasBackdrop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesFollowFromTheRange()
    {
        const auto firstCountZero = [](double low, double high, double fps) {
            GridScene s(QSize(100, 100), low, high);
            s.view.setFps(fps);
            s.grid.layout(&s.view);
            return QList({s.grid.firstX, double(s.grid.countX), double(s.grid.zeroIndexX)});
        };
        const QList nothing({0.0, 0.0, -1.0});
        QCOMPARE(firstCountZero(0.0, 1.0, 1.0), QList({0.0, 5.0, 0.0}));
        QCOMPARE(firstCountZero(-1.0, 10.0, 10.0), QList({0.0, 5.0, 0.0}));
        QCOMPARE(firstCountZero(-1.0, 0.0, 1.0), QList({-1.0, 5.0, -1.0}));
        QCOMPARE(firstCountZero(1e15, 1e15 + 0.125, 1.0), nothing);
        QCOMPARE(firstCountZero(3.6226245078280963e-53, 3.6226245078280968e-53, 1.0), nothing);
        QCOMPARE(firstCountZero(0.0, 1.0, -10.0), nothing);
        GridScene s(QSize(100, 100), 0.0, 1.0); // 0 to 10 frames
        QCOMPARE(s.grid.times(s.view), std::vector<double>({0.0, 0.25, 0.5, 0.75, 1.0}));
    }

    void linesAreEquallyWideAtEveryRatio()
    {
        GridScene s(QSize(503, 307), -1.0, 10.3);
        s.grid.timeLineX = -1; // out of sight
        const auto draw = [&s](QPainter& painter) {
            s.grid.draw(&painter, CurveEditorTheme::described());
        };
        for (const auto& [ratio, pixels] : {std::pair(1.0, 1), {1.5, 2}, {2.0, 2}, {3.0, 3}}) {
            const QImage image = drawn(s.canvas.size(), draw, Qt::black, ratio);
            const QRegion lines = placesOf(Qt::white, image) & QRect(20, 3, image.width(), 1);
            QCOMPARE(lines.rectCount(), s.grid.countX);
            for (const QRect& line : lines)
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
            GridScene s(QSize(width, 60), -1e7 / width, 1e7);
            std::optional<QFontMetrics> font;
            const auto draw = [&](QPainter& painter) {
                s.grid.draw(&painter, theme);
                font = painter.fontMetrics();
            };
            const QImage image = drawn(s.canvas.size(), draw, theme.labels);
            const QRegion labels = placesOf(theme.labels, image, Qt::MaskInColor);
            for (const QRect& label : labels& QRect(0, 58 - font->height(), width, 1))
                QVERIFY(label.width() <= font->horizontalAdvance("7.5E+06") + 6);
            for (const QRect& label : labels& QRect(3, 0, 1, 60))
                QVERIFY(label.height() <= font->height());
            QVERIFY(QRect(0, 1, width - 2, 58).contains(labels.boundingRect()));
        }
    }

    void drawsTimeLineAndLabelsThatClearTheEdge()
    {
        for (const int firstLine : {100, 8}) {
            GridScene s(QSize(1100, 600), 0.0, 1.0);
            s.view.valueMin = -2.9;
            s.view.timeLine = 11.0 - firstLine / 100.0;
            s.setTimes(-firstLine / 100.0, s.view.timeLine);
            const auto draw = [&s](QPainter& painter) {
                s.grid.draw(&painter, CurveEditorTheme::described());
                QVERIFY(painter.backgroundMode() == Qt::OpaqueMode && painter.compositionMode() == 0);
            };
            const QImage image = drawn(s.canvas.size(), draw, Qt::gray);
            QCOMPARE(image.pixelColor(s.grid.timeLineX - 1, 20), QColor(223, 255, 255));
            const QImage label = image.copy(firstLine + 4, 585, 8, 10);
            QCOMPARE(label == image.copy(firstLine + 40, 585, 8, 10), firstLine == 8);
        }
    }

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

    void mappingTruncatesTowardZeroAndStaysWithinTheLimits()
    {
        ViewPort view = standardView();
        QCOMPARE(view.valueToPixel(2.0), 100);
        QCOMPARE(view.timeToPixel(1e9), 1100);
        view.panView(100, 0);
        QCOMPARE(view.timeToPixel(-0.019), -1);
        QCOMPARE(view.pixelToTime(1100), 10.0);
    }

    void bandIsTestedAgainstViewPlaceAndLimits()
    {
        const auto accepts = [](bool strict, const QRectF& band) {
            ViewPort view = standardView();
            view.limitTimeMin = -4000.0;
            view.limitTimeMax = 4000.0;
            view.bandX0 = band.x();
            view.bandX1 = band.x() + band.width();
            view.bandY1 = band.height();
            view.applyBand(strict);
            return view.timeMax != 10.0 && view.timeMin < view.timeMax && view.valueMin < view.valueMax;
        };
        QVERIFY(!accepts(true, QRectF(0, 0, 0.5, 5)));
        QVERIFY(accepts(true, QRectF(0, 0, 11 * double(0.05f), 5)));
        QVERIFY(!accepts(true, QRectF(3000, 0, 0.58, 5)));
        QVERIFY(accepts(true, QRectF(-3000, 0, 0.58, 5)));
        QVERIFY(!accepts(false, QRectF(0, 0, 4, 0)));
        QVERIFY(accepts(false, QRectF(500, 0, 8000, 2e8)));
        QVERIFY(!accepts(false, QRectF(500, 0, 8000.1, 2e8)));
        QVERIFY(accepts(true, QRectF(-4500, 0, 9000, 5)));
        ViewPort view = standardView();
        view.beginBand(700, 500);
        view.extendBand(300, 100); // shown between its corners, wherever it is begun
        QVERIFY(QRect(299, 99, 402, 402).contains(view.bandRect()) && view.bandRect().height() > 398);
    }

    void gesturesChangeTheView()
    {
        const QRectF same(-1.0, -3.0, 11.0, 6.0);
        const QPointF at(700, 400);
        QCOMPARE(drag(Qt::LeftButton, at, {200, 200}, {}, alt), QRectF(1.0, -1.0, 5.0, 2.0));
        QCOMPARE(drag(Qt::LeftButton, at, {200, 200}, alt, {}), same);
        QCOMPARE(drag(Qt::MiddleButton, at, {800, 450}, alt, {}), QRectF(-2.0, -2.5, 11.0, 6.0));
        QCOMPARE(drag(Qt::MiddleButton, at, {800, 450}, {}, alt), same);
        QCOMPARE(drag(Qt::RightButton, at, {-400, 1000}, alt, {}), QRectF(4.6, -1.4, 2.2, 1.2));
        QCOMPARE(drag(Qt::RightButton, {0, 300}, {50, -300}, alt, {}), QRectF(-1, -15, 11, 30));
    }

    void resetEndsGesturesAtTheViewOnly()
    {
        ViewPort view = standardView();
        const auto kindAfterReset = [&view] {
            view.reset();
            return view.gesture.kind();
        };
        view.gesture.beginAtView(Gesture::Kind::Band, view.mapping());
        QCOMPARE(kindAfterReset(), Gesture::Kind::Idle);
        view.gesture.beginAtPoints(1, {});
        QCOMPARE(kindAfterReset(), Gesture::Kind::Points);
    }

    void mouseStateIsWhatWasHeldBeforeTheEvent()
    {
        const auto buttonsBefore = [](QEvent::Type type, Qt::MouseButtons during) {
            const QMouseEvent event(type, {}, {}, Qt::LeftButton, during, alt | Qt::KeypadModifier);
            return stateBefore(event).modifiers == alt ? stateBefore(event).buttons : Qt::AllButtons;
        };
        const Qt::MouseButtons right = Qt::RightButton, both = right | Qt::LeftButton;
        QCOMPARE(buttonsBefore(QEvent::MouseButtonPress, both), right);
        QCOMPARE(buttonsBefore(QEvent::MouseButtonDblClick, both), right);
        QCOMPARE(buttonsBefore(QEvent::MouseButtonRelease, right), both);
        QCOMPARE(buttonsBefore(QEvent::MouseMove, both), both);
    }

    void everyViewMapsToBoundedPixels()
    {
        ViewPort view(640, 480);
        QVERIFY(!view.canShow() && view.timeToPixel(5.0) == 0 && view.pixelToTime(5) == -1.0);
        view.setSize(100, 100);
        const double next = std::nextafter(1e300, HUGE_VAL);
        for (const QPointF range : {QPointF(0.0, 5e-324), QPointF(1e300, next), QPointF(1.0, 1.0),
                                    QPointF(1.0, 0.0), QPointF(std::nan(""), 1.0), QPointF(-1e308, 1e308)}) {
            view.setLimitTimeMin(range.x());
            view.setLimitTimeMax(range.y());
            QCOMPARE(view.canShow(), range.y() == 5e-324 || range.y() == next);
            for (const double time : {range.x(), range.y(), 0.0, -1e300, std::nan("")})
                QVERIFY(qAbs(view.timeToPixel(time)) <= farthestPixel);
            view.extendBand(99, 99);
            QVERIFY(qAbs(view.bandRect().width()) <= farthestPixel);
        }
    }
};

QTEST_MAIN(tst_CanvasBackdrop)
#include "tst_CanvasBackdrop.moc"
