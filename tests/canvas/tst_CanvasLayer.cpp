// SPDX-License-Identifier: MIT
#include "CanvasScene.h"

#include <specimens/SplineSpecimens.h>

#include <QTemporaryDir>

#include <functional>

namespace {

QImage drawn(const QSize& size, double ratio, const std::function<void(QImage&, QPainter&)>& draw)
{
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    QPainter painter(&image);
    draw(image, painter);
    return image;
}

int countDifferences(const QImage& left, const QImage& right)
{
    int count = 0;
    if (left == right)
        return 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x)
            count += left.pixel(x, y) != right.pixel(x, y);
    }
    return count;
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

    PointSerial serial(unsigned index) const { return curve.spline[index]->serial; }

    HostCurve loop, formula, curve;
};

} // namespace

class tst_CanvasLayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesHaveThePixelsThatQtGivesThem()
    {
        const QSize size(800, 450);
        const int mostDifferences = 3; // where steep lines meet
        int pixels = 0;
        for (const SplineSpecimen& specimen : splineSpecimens()) {
            for (const double ratio : {1.0, 1.5, 2.0}) {
                SplineBase spline;
                specimen.fill(spline);
                ViewPort view(0, 0);
                view.setSize(size.width(), size.height());
                view.pixelRatio = ratio;
                const CurveEditorTheme theme;
                CanvasSpline picture(&spline, theme);
                picture.rebuild(&view, -1e9f, 1e9f);
                const DeviceLine line = picture.curveLine;
                const auto direct = [&line](QImage& image, QPainter& painter) {
                    CurvePainter curves(&painter, image.devicePixelRatio());
                    curves.writeInto(&image, image.rect());
                    curves.drawSolid(line, Qt::red, 1.0);
                };
                const auto byRects = [&line, ratio](QImage&, QPainter& painter) {
                    CurvePainter(&painter, ratio).drawSolid(line, Qt::red, 1.0);
                };
                const auto byQt = [&line](QImage&, QPainter& painter) {
                    painter.setPen(QPen(Qt::red, 0));
                    std::vector<int> ends = line.gaps;
                    ends.push_back(int(line.points.size()));
                    for (int first = 0; const int end : ends) {
                        painter.drawPolyline(line.points.constData() + first, end - first);
                        first = end;
                    }
                };
                const QImage ours = drawn(size * ratio, 1.0, direct);
                pixels += countDifferences(ours, drawn(size * ratio, 1.0, [](QImage&, QPainter&) {}));
                QVERIFY(countDifferences(ours, drawn(size * ratio, 1.0, byQt)) <= mostDifferences);
                QCOMPARE(countDifferences(drawn(size, ratio, direct), drawn(size, ratio, byRects)), 0);
            }
        }
        QVERIFY(pixels > 10000);
    }

    void smoothLinesCoverWhatQtCovers()
    {
        const QSize size(800, 450);
        qint64 pixels = 0;
        for (const SplineSpecimen& specimen : splineSpecimens()) {
            SplineBase spline;
            specimen.fill(spline);
            ViewPort view(0, 0);
            view.setSize(size.width(), size.height());
            CurveEditorTheme theme;
            theme.smooth = true;
            CanvasSpline picture(&spline, theme);
            picture.rebuild(&view, -1e9f, 1e9f);
            const QImage byQt = drawn(size, 1.0, [&](QImage&, QPainter& painter) {
                CurvePainter(&painter, 1.0).drawSolid(picture.curveLine, Qt::red, 2.5);
            });
            const QImage ours = drawn(size, 1.0, [&](QImage& image, QPainter& painter) {
                CurvePainter curves(&painter, 1.0);
                curves.writeInto(&image, image.rect());
                curves.drawSolid(picture.curveLine, Qt::red, 2.5);
            });
            qint64 ink = 0;
            qint64 difference = 0;
            for (int row = 0; row < size.height(); ++row) {
                for (int column = 0; column < size.width(); ++column) {
                    const int expected = qRed(byQt.pixel(column, row));
                    ink += expected;
                    difference += std::abs(expected - qRed(ours.pixel(column, row)));
                }
            }
            QVERIFY2(difference * 100 <= ink * 6, specimen.name.c_str());
            pixels += ink / 255;
        }
        QVERIFY(pixels > 10000);
    }

    void partOfALineIsDrawnAsInTheWhole()
    {
        for (const int scale : {1, 2}) {
            const DeviceLine line{
                {{0, 290}, {100, 20}, {130, 200}, {133, 199}, {135, 150}, {199, 10}}, scale, {}};
            const auto part = [&line](const QRect& rect) {
                return [&line, rect](QImage& image, QPainter& painter) {
                    CurvePainter curves(&painter, 2.0);
                    curves.writeInto(&image, rect);
                    curves.drawSolid(line, Qt::red, 1.0);
                };
            };
            const QSize size(200, 300);
            const QImage whole = drawn(size, 1.0, part(QRect(QPoint(), size)));
            for (int left = 0; left < size.width() - 3; ++left) {
                const QRect rect(left, 5, 3, 280);
                QCOMPARE(drawn(size, 1.0, part(rect)).copy(rect), whole.copy(rect));
            }
        }
    }

    void layerShowsWhatHasChanged()
    {
        const QTemporaryDir folder;
        QImage image(10, 10, QImage::Format_RGB32);
        image.fill(Qt::blue);
        QVERIFY(image.save(folder.filePath("image.png")));
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
            [](Scene& s) {
                s.canvas.currentControl()->selection().selectAll({s.serial(0), s.serial(2)});
            },
            [](Scene& s) {
                s.canvas.currentControl()->selection().selectAll({s.serial(0), s.serial(1)});
            },
            [&](Scene& s) { s.canvas.loadImage(folder.filePath("image.png")); },
            [](Scene& s) { s.canvas.clearImage(); },
            [](Scene& s) { s.canvas.setCurveColor("a.z", Qt::yellow); },
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
