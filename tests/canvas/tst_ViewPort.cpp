// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/MouseState.h>
#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/Truncate.h>
#include <support/Test.h>

using namespace curveeditor;

namespace {

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

class tst_ViewPort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

QTEST_MAIN(tst_ViewPort)
#include "tst_ViewPort.moc"
