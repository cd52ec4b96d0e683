// SPDX-License-Identifier: MIT
#include "CanvasScene.h"

#include <specimens/SplineSpecimens.h>

#include <numeric>

namespace {

using Draw = std::function<void(QPainter&)>;

const QSize size(800, 450);

DeviceLine lineOf(const SplineBase& spline, double ratio, bool isSmooth, double width = 1.0)
{
    ViewPort view(0, 0);
    view.setSize(size.width(), size.height());
    view.pixelRatio = ratio;
    CurveEditorTheme theme;
    theme.smooth = isSmooth;
    theme.curveWidth = theme.otherCurveWidth = theme.dottedWidth = width;
    CanvasSpline picture(&spline, theme);
    picture.rebuild(&view, -1e9f, 1e9f);
    return picture.curveLine;
}

DeviceLine lineOf(const SplineSpecimen& specimen, double ratio, bool isSmooth, double width = 1.0)
{
    SplineBase spline;
    specimen.fill(spline);
    return lineOf(spline, ratio, isSmooth, width);
}

/// Of one logical pixel.
QImage dotted(const DeviceLine& line, double ratio)
{
    const auto draw = [&](QPainter& painter) {
        CurvePainter(&painter, ratio).drawDotted(line, Qt::red, 1.0);
    };
    return drawn(size, draw, Qt::black, ratio);
}

Draw byPainter(const DeviceLine& line, double width = 1.0)
{
    return [=](QPainter& painter) {
        CurvePainter(&painter, painter.device()->devicePixelRatio()).drawSolid(line, Qt::red, width);
    };
}

/// Writes what lies in that part straight into the image.
Draw direct(const DeviceLine& line, double width = 1.0, const QRect& part = QRect(0, 0, 9999, 9999),
            const QColor& color = Qt::red)
{
    return [=](QPainter& painter) {
        CurvePainter curves(&painter, painter.device()->devicePixelRatio());
        curves.writeInto(static_cast<QImage*>(painter.device()), part);
        curves.drawSolid(line, color, width);
    };
}

/// The red by which two pictures of one size differ, in pixels that are wholly red.
double difference(const QImage& left, const QImage& right)
{
    if (left == right)
        return 0.0;
    const auto* const pixels = reinterpret_cast<const QRgb*>(left.constBits());
    const auto* const others = reinterpret_cast<const QRgb*>(right.constBits());
    const auto redOff = [](QRgb one, QRgb other) {
        return std::abs(qRed(one) - qRed(other));
    };
    const int count = left.width() * left.height();
    return std::inner_product(pixels, pixels + count, others, 0.0, std::plus(), redOff) / 255.0;
}

double ink(const QImage& image)
{
    return difference(image, drawn(image.size(), [](QPainter&) {}));
}

/// The spline "a.x" is current, the formula "a.y" at value 2 is not; the dotted lines of "a.z", which is clamped and
/// loops, cross the view.
struct Scene : CanvasScene
{
    Scene()
    {
        view.setLimitValueMin(-5.0);
        view.setLimitValueMax(5.0);
        loop.spline.setTime(loop.spline.modify(2u), 12.0);
        loop.spline.modify(1u)->pos = 4.0;
        loop.spline.lastType = SplineBase::Loop;
        add(loop, "a.z");
        add(formula, "a.y", "2");
        add(curve, "a.x");
    }
    QImage pictureFromScratch()
    {
        view.dirty = true;
        return picture();
    }
    void select(unsigned first, unsigned second)
    {
        canvas.currentControl()->selection().selectAll(
            {curve.spline[first]->serial, curve.spline[second]->serial});
    }

    HostCurve loop, formula, curve;
};

} // namespace

class tst_CanvasLayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesHaveThePixelsThatQtGivesThem()
    {
        const double mostDifferences = 3.0; // where steep lines meet
        double pixels = 0.0;
        for (const SplineSpecimen& specimen : splineSpecimens()) {
            for (const double ratio : {1.0, 1.5, 2.0}) {
                const DeviceLine line = lineOf(specimen, ratio, false, 1.0 / ratio);
                const auto byQt = [&line](QPainter& painter) {
                    painter.setPen(QPen(Qt::red, 0));
                    std::vector<int> ends = line.gaps;
                    ends.push_back(int(line.points.size()));
                    for (int first = 0; const int end : ends) {
                        painter.drawPolyline(line.points.constData() + first, end - first);
                        first = end;
                    }
                };
                const QImage ours = drawn(size * ratio, direct(line));
                pixels += ink(ours);
                QVERIFY(difference(ours, drawn(size * ratio, byQt)) <= mostDifferences);
                QCOMPARE(drawn(size, direct(line), Qt::black, ratio),
                         drawn(size, byPainter(line), Qt::black, ratio));
            }
        }
        QVERIFY(pixels > 10000.0);
    }

    void linesCoverTheirDotsAndAreOutOfSightBeyondTheView()
    {
        const DeviceLine stairs{{{9, 90}, {300, 90}, {300, 20}, {500, 20}}, 1, {}};
        const QImage pale = drawn(size, direct(stairs, 1.0, QRect(QPoint(), size), QColor(255, 0, 0, 100)));
        QVERIFY(qAbs(pale.pixelColor(100, 90).red() - 100) <= 1);
        for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
            const QRegion dots = placesOf(Qt::red, dotted(stairs, ratio));
            for (const Draw& draw : {direct(stairs), byPainter(stairs)}) {
                const QRegion solid = placesOf(Qt::red, drawn(size, draw, Qt::black, ratio));
                QVERIFY(!dots.isEmpty() && dots.subtracted(solid).isEmpty());
            }
            for (const double value : {1e6, -1e6}) {
                SplineBase spline;
                spline.setPos(spline.modify(0u), value);
                spline.addPoint(5.0, value);
                const DeviceLine line = lineOf(spline, ratio, false);
                QVERIFY(line.points.size() > 2);
                QCOMPARE(ink(dotted(line, ratio)), 0.0);
                QCOMPARE(ink(drawn(size, direct(line), Qt::black, ratio)), 0.0);
            }
        }
    }

    void smoothLinesCoverWhatQtCovers()
    {
        double pixels = 0.0;
        for (const SplineSpecimen& specimen : splineSpecimens()) {
            const DeviceLine line = lineOf(specimen, 1.0, true);
            const QImage byQt = drawn(size, byPainter(line, 2.5));
            QVERIFY2(difference(drawn(size, direct(line, 2.5)), byQt) <= 0.06 * ink(byQt),
                     specimen.name.c_str());
            pixels += ink(byQt);
        }
        QVERIFY(pixels > 10000.0);
    }

    void partOfALineIsDrawnAsInTheWhole()
    {
        for (const int scale : {1, 2}) {
            const DeviceLine line{
                {{0, 290}, {100, 20}, {130, 200}, {133, 199}, {135, 150}, {199, 10}}, scale, {}};
            const QSize half(100, 150);
            const QImage whole = drawn(half, direct(line), Qt::black, 2.0);
            for (int left = 0; left < whole.width() - 3; ++left) {
                const QRect rect(left, 5, 3, 280);
                QCOMPARE(drawn(half, direct(line, 1.0, rect), Qt::black, 2.0).copy(rect), whole.copy(rect));
            }
        }
    }

    void layerShowsWhatHasChanged()
    {
        const std::function<void(Scene&)> changes[] = {
            [](Scene& s) { s.view.setTimeLine(7.0); },
            [](Scene& s) { s.canvas.setTimeLineColor(Qt::black); },
            [](Scene& s) { s.view.setTimeLine(19.9); },
            [](Scene& s) { s.view.setTimeLine(77.0); },
            [](Scene& s) { s.canvas.setCanvasColor(Qt::darkGreen); },
            [](Scene& s) { s.canvas.setFrameFontColor(Qt::green); },
            [](Scene& s) { s.canvas.setFrameVLineColor(Qt::green); },
            [](Scene& s) { s.canvas.setFrameHLineColor(Qt::green); },
            [](Scene& s) { s.canvas.setFrameLinesColor(Qt::darkGray); },
            [](Scene& s) { s.view.beginBand(60, 60), s.view.extendBand(90, 90); },
            [](Scene& s) { s.view.extendBand(61, 90); },
            [](Scene& s) { s.view.extendBand(90, 90); },
            [](Scene& s) { s.canvas.setSelectionColor(Qt::cyan); },
            [](Scene& s) { s.view.bandValid = false; },
            [](Scene& s) { s.view.bandActive = false; },
            [](Scene& s) { s.select(0, 2); },
            [](Scene& s) { s.select(0, 1); },
            [](Scene& s) { s.canvas.setCurveColor("a.z", Qt::yellow); },
            [](Scene& s) {
                delete std::exchange(s.formula.expression, nullptr);
                s.canvas.findCurve("a.y")->changed = true;
            },
            [](Scene& s) { s.canvas.setCurrentCurve("a.z"); },
            [](Scene& s) { s.canvas.setCurrentCurve("a.y"); },
            [](Scene& s) { s.canvas.setCurrentToSpline(false); },
            [](Scene& s) { s.canvas.resetCurrentCurve(); },
            [](Scene& s) { s.canvas.removeCurve("a.z"); },
            [](Scene& s) { s.add(s.loop, "a.z"); },
            [](Scene& s) { s.canvas.setCurrentCurve("a.x"); },
            [](Scene& s) { s.canvas.removeCurve("a.z"), s.canvas.removeCurve("a.y"); },
            [](Scene& s) { s.setTimes(2.0, 12.0); },
            [](Scene& s) { s.view.setShowFrames(!s.view.showFrames); },
            [](Scene& s) { s.widget.resize(180, 90), s.view.setSize(180, 90); },
            [](Scene& s) { // another curve of the same spline
                s.canvas.addCurve(&s.menu, "a.w", Qt::red, 0.0f, &s.curve.spline, nullptr, -3.0f, 3.0f);
                s.select(0, 1);
                s.picture();
                s.canvas.panSelection(0.0, 1.0);
            },
        };
        for (const auto& theme : {CurveEditorTheme::described(), CurveEditorTheme::light()}) {
            Scene s;
            s.canvas.setTheme(theme);
            for (const auto& change : changes) {
                const QImage before = s.picture();
                change(s);
                const QImage after = s.picture();
                const QByteArray number = QByteArray::number(&change - changes);
                QVERIFY2(after != before, number);
                QVERIFY2(s.pictureFromScratch() == after, number);
            }
        }
    }
};

QTEST_MAIN(tst_CanvasLayer)
#include "tst_CanvasLayer.moc"
