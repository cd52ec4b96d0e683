// SPDX-License-Identifier: MIT
#include "CanvasScene.h"

#include <curveeditor/canvas/MouseState.h>
#include <specimens/SplineSpecimens.h>

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

/// Of one logical pixel, with blue gaps; straight into the image or by Qt.
QImage dotted(const DeviceLine& line, double ratio, bool isDirect = true,
              const QRect& part = QRect(0, 0, 9999, 9999))
{
    const auto draw = [&](QPainter& painter) {
        painter.setBackground(Qt::blue);
        painter.setBackgroundMode(Qt::OpaqueMode);
        CurvePainter curves(&painter, ratio);
        if (isDirect)
            curves.writeInto(static_cast<QImage*>(painter.device()), part);
        curves.drawDotted(line, Qt::red, 1.0);
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

// 100 pixels for each time unit and each value unit; value 0.0 stands at row 300.
struct Fixture
{
    Fixture(const QList<QPointF>& points, int type, int lastType = SplineBase::Constant)
    {
        const auto* initial = spline.getFirst();
        for (const QPointF& point : points)
            spline.addPoint(point.x(), point.y());
        spline.remove(initial);
        for (auto* point : spline.getControlPoints())
            point->type = type;
        spline.lastType = lastType;
        view.setSize(1000, 600);
        view.timeMin = 0.0;
        picture.selected = true;
        picture.rebuild(&view, -1e9f, 1e9f);
    }
    SplineBase::PointInfo* select(unsigned index)
    {
        selection.selectOnly(spline[index]->serial);
        return spline.modify(index);
    }
    QImage shown(bool isDirect = false)
    {
        const auto draw = [this, isDirect](QPainter& painter) {
            painter.setBackground(Qt::darkBlue);
            painter.setBackgroundMode(Qt::OpaqueMode);
            CurvePainter curves(&painter, view.pixelRatio);
            if (isDirect)
                curves.writeInto(static_cast<QImage*>(painter.device()), QRect(0, 0, 9999, 9999));
            picture.draw(curves, selection, dragged);
        };
        return drawn(QSize(1000, 600), draw, Qt::darkBlue, view.pixelRatio);
    }
    QRect boundsOf(const QColor& color) { return placesOf(color, shown()).boundingRect(); }

    SplineBase spline;
    ViewPort view{0, 0};
    CurveEditorTheme theme;
    CanvasSpline picture{&spline, theme};
    Selection selection;
    SplineEdits::Part dragged = SplineEdits::Part::Point;
};

const QList<QPointF> levelPoints{{2.0, 1.0}, {5.0, 1.0}, {8.0, 1.0}};

/// A grid on a canvas of that many pixels.
struct GridScene
{
    GridScene(const QSize& pixels, double timeMin, double timeMax)
    {
        canvas.resize(pixels);
        view.setSize(pixels.width(), pixels.height());
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
        const QImage square = drawn(size, [](QPainter& painter) {
            CurvePainter curves(&painter, 1.0);
            curves.writeInto(static_cast<QImage*>(painter.device()), QRect(0, 0, 99, 99));
            curves.fillRect({9, 9, 5, 5}, QColor(255, 0, 0, 100));
        });
        QVERIFY(qAbs(square.pixelColor(10, 10).red() - 100) <= 1);
        for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
            const QRegion dots = placesOf(Qt::red, dotted(stairs, ratio));
            QCOMPARE(dotted(stairs, ratio), dotted(stairs, ratio, false));
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
                QCOMPARE(dotted(line, ratio), drawn(
                                                  size, [](QPainter&) {}, Qt::black, ratio));
                QCOMPARE(ink(drawn(size, direct(line), Qt::black, ratio)), 0.0);
            }
        }
    }

    void dotsAreAsLongAsTheLineIsWideAndGapsTwiceThat()
    {
        for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
            const int wide = qRound(ratio), first = -(wide / 2);
            for (const auto& [from, to] : {std::pair(QPoint(9, 90), QPoint(300, 90)),
                                           {{300, 90}, {9, 90}},
                                           {{9, 90}, {40, 390}},
                                           {{9, 390}, {40, 90}}}) {
                DeviceLine line{{from, to}, 1, {}};
                const QImage image = dotted(line, ratio);
                const QRegion dots = placesOf(Qt::red, image), gaps = placesOf(Qt::blue, image);
                const bool isLevel = from.y() == to.y(),
                           isBack = isLevel ? from.x() > to.x() : from.y() > to.y();
                for (int i = 3 * wide; i < 250; ++i) {
                    const int at = (isLevel ? from.x() : from.y()) + (isBack ? -i - 1 + wide % 2 : i);
                    const QRect place = isLevel ? QRect(at, 90 + first, 1, 1) : QRect(0, at, 99, 1);
                    const bool isDot = (i - first) % (3 * wide) < wide;
                    QCOMPARE(isDot ? dots.intersects(place) : !dots.intersects(place), true);
                    QVERIFY(isDot || gaps.intersects(place));
                }
                line.scale = DeviceLine::fine;
                for (QPoint& point : line.points)
                    point = point * line.scale + QPoint(20, 20);
                QVERIFY(ratio == 1.0 || dotted(line, ratio) == image);
            }
            const auto fromFar = [&](int dots) {
                return dotted({{QPoint(4000 + 3 * wide * dots, 90), QPoint(9, 90)}, 1, {}}, ratio);
            };
            QCOMPARE(fromFar(1000000), fromFar(0));
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
            const QImage opaque = drawn(size, direct(line, 2.5));
            const QImage nearly = drawn(size, direct(line, 2.5, opaque.rect(), QColor(255, 0, 0, 254)));
            QVERIFY(difference(opaque, nearly) <= 0.01 * ink(opaque));
        }
        QVERIFY(pixels > 10000.0);
    }

    void partOfALineIsDrawnAsInTheWhole()
    {
        for (const int scale : {1, 2}) {
            const DeviceLine line{
                {{0, 290}, {100, 20}, {130, 200}, {133, 199}, {135, 150}, {199, 10}}, scale, {}};
            const QSize half(100, 150);
            const QImage whole = drawn(half, direct(line), Qt::black, 2.0), dots = dotted(line, 2.0);
            for (int left = 0; left < whole.width() - 3; ++left) {
                const QRect rect(left, 5, 3, 280);
                QCOMPARE(drawn(half, direct(line, 1.0, rect), Qt::black, 2.0).copy(rect), whole.copy(rect));
                QCOMPARE(dotted(line, 2.0, true, rect).copy(rect), dots.copy(rect));
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

    void linesCoverThePartOfTheViewThatTheyStandFor()
    {
        const auto sizesAndColumns = [](double firstTime, double lastTime) {
            const Fixture f({{firstTime, 1.0}, {lastTime, 2.0}}, SplineBase::Tcb, SplineBase::Loop);
            const auto& [curve, post] = std::tie(f.picture.curveLine.points, f.picture.postLine.points);
            return QList({int(curve.size()), curve.first().x(), int(post.size()), post.value(0).x()});
        };
        QCOMPARE(sizesAndColumns(4.0, 4.0), QList({1, 400, 601, 400}));
        QCOMPARE(sizesAndColumns(-5.0, 15.0), QList({1001, 0, 0, 0}));
        QCOMPARE(sizesAndColumns(-500.0, -400.0), QList({1, 0, 1001, 0}));
        QCOMPARE(sizesAndColumns(20.0, 30.0), QList({1, 2000, 0, 0}));
    }

    void dottedLineShowsWhereTheClampBitesAndOnlyThere()
    {
        Fixture f({{-1.0, -2.0}, {11.0, 1.0}}, SplineBase::Linear);
        QVERIFY(f.boundsOf(f.picture.unselectedColor).isEmpty());
        f.picture.rebuild(&f.view, -1.0f, -1.5f);
        QCOMPARE(QPoint(f.picture.curveLine.points.first().y(), f.picture.curveLine.points.last().y()),
                 QPoint(400, 450));
        QVERIFY(f.boundsOf(f.picture.unselectedColor).height() > 200);
        for (const double ratio : {1.0, 1.5, 2.0}) {
            f.view.pixelRatio = ratio;
            f.picture.rebuild(&f.view, -1e9f, 0.0f); // from time 7 on
            const QRect dots = f.boundsOf(f.picture.unselectedColor);
            QVERIFY(qAbs(dots.left() - 700 * ratio) < 12 * ratio && dots.right() > 990 * ratio);
            QVERIFY(dots.bottom() < 300 * ratio && dots.top() < 230 * ratio);
            QCOMPARE(f.shown(true), f.shown());
        }
    }

    void markersCoverExactlyTheirRectangle()
    {
        Fixture f(levelPoints, SplineBase::Bezier);
        f.select(1);
        QCOMPARE(f.boundsOf(Qt::black), QRect(198, 198, 605, 5));
        QCOMPARE(f.boundsOf(QColor(255, 255, 220)), QRect(452, 198, 96, 5));
        f.dragged = SplineEdits::Part::RightTangent;
        QCOMPARE(f.boundsOf(QColor(255, 0, 220)), QRect(501, 198, 47, 5));
        f.dragged = SplineEdits::Part::LeftTangent;
        QCOMPARE(f.boundsOf(QColor(255, 0, 220)).right(), 500);
        f.spline.modify(1u)->type = SplineBase::Tcb;
        QCOMPARE(f.boundsOf(QColor(255, 255, 220)), QRect(453, 199, 94, 3));
        f.select(2)->easeTo = 0.5; // does not shorten the handles at the ends
        QCOMPARE(f.boundsOf(QColor(255, 0, 220)).left(), 753);
        f.picture.selected = false;
        QVERIFY(f.boundsOf(Qt::red).isEmpty());
        for (std::int32_t* const end : {&f.spline.firstType, &f.spline.lastType}) {
            f.spline.firstType = f.spline.lastType = SplineBase::Constant;
            *end = SplineBase::Zero;
            f.picture.rebuild(&f.view, -1e9f, 1e9f);
            QCOMPARE(f.boundsOf(f.picture.unselectedColor).bottom(), 300);
        }
        Fixture two({{5.0, 1.0}, {5.0, 1.0}}, SplineBase::Bezier);
        two.select(0); // above the other one
        QCOMPARE(two.shown().pixelColor(502, 202), QColor(Qt::red));
        Fixture apart({{5.0, 1.0}, {5.0, 0.92}}, SplineBase::Bezier);
        QVERIFY(apart.shown().pixelColor(498, 204) != QColor(Qt::black));
        QCOMPARE(apart.shown().pixelColor(498, 206), QColor(Qt::black));
    }

    void pressFindsPointsAndTheHandlesOfTheCurrentOne()
    {
        enum { point, both, left, right, none = -10 };
        Fixture f(levelPoints, SplineBase::Bezier);
        f.spline.modify(1u)->tanRight = 1.0;
        const auto found = [&](unsigned current, const QList<QPoint>& pixels) {
            QList<int> parts; // the part that a drag edits, and 10 for each point before the one found
            for (const QPoint& pixel : pixels) {
                f.select(current);
                const CanvasSpline::Hit hit = f.picture.hitTest(pixel, f.selection);
                parts << indicesOf({hit.point}, f.spline).front() * 10 + int(hit.part);
            }
            return parts;
        };
        QCOMPARE(found(1, {{505, 200}, {531, 168}, {450, 200}, {515, 195}, {520, 190}}),
                 QList<int>({10 + point, 10 + right, 10 + left, 10 + both, none}));
        QCOMPARE(found(1, {{795, 200}, {797, 197}}), QList<int>({20 + point, none}));
        QCOMPARE(found(0, {{220, 200}, {220, 212}, {155, 200}}), QList<int>({both, none, none}));
        QCOMPARE(found(2, {{755, 200}, {780, 200}, {845, 200}}), QList<int>({20 + left, 20 + both, none}));
        f.spline.modify(1u)->type = SplineBase::Tcb;
        QCOMPARE(found(1, {{531, 168}, {450, 200}}), QList<int>({none, none}));
    }

    void valuesThatAreNotFiniteLeaveAGap()
    {
        Fixture f({{1, 1}, {3, 1}, {4, 1}, {5, 1}, {7, 1}, {8, 1}}, SplineBase::Bezier);
        f.spline.firstType = SplineBase::Zero;
        for (const unsigned index : {1u, 4u})
            f.spline.modify(index)->pos = std::nan("");
        f.picture.rebuild(&f.view, -1e9f, 1e9f);
        f.picture.selected = false;
        const QRegion found = placesOf(Qt::darkBlue, f.shown(), Qt::MaskInColor);
        for (const int column : {310, 710})
            QVERIFY(!found.intersects(QRect(column, 0, 80, 600)));
    }

    void extremeNumbersStayWithinBounds()
    {
        for (const double n : {1e300, -1e300, 1e-300, 1.7e308}) {
            Fixture f({{-n, n}, {0.0, -n}, {n, n}}, SplineBase::Bezier, SplineBase::LoopOffset);
            f.select(1)->tanRight = f.spline.modify(1u)->easeFrom = n;
            f.view.timeMax = std::abs(n);
            f.view.pixelRatio = 2.0; // wide dots
            f.picture.rebuild(&f.view, -1.0f, 1.0f);
            f.shown(true);
            f.picture.hitTest({500, 300}, f.selection);
            QVERIFY(f.picture.rawLine.points.size() + f.picture.postLine.points.size() <= 2002);
            QVERIFY(QRect(-100, -100, 1201, 801).contains(f.picture.nodePixels.boundingRect()));
        }
    }

    void linesFollowFromTheRange()
    {
        const auto firstCountZero = [](double low, double high, double fps) {
            GridScene s(QSize(100, 100), low, high);
            s.view.setFps(fps);
            s.grid.layout(&s.view);
            const double first = s.grid.positionsX.empty() ? 0.0 : s.grid.positionsX.front();
            return QList({first, double(s.grid.countX), double(s.grid.zeroIndexX)});
        };
        const QList nothing({0.0, 0.0, -1.0});
        QCOMPARE(firstCountZero(0.0, 1.0, 1.0), QList({0.0, 5.0, 0.0}));
        QCOMPARE(firstCountZero(-1.0, 10.0, 10.0), QList({0.0, 5.0, 0.0}));
        QCOMPARE(firstCountZero(-1.0, 0.0, 1.0), QList({-1.0, 5.0, -1.0}));
        QCOMPARE(firstCountZero(1e15, 1e15 + 0.125, 1.0), nothing);
        QCOMPARE(firstCountZero(3.6226245078280963e-53, 3.6226245078280968e-53, 1.0), nothing);
        QCOMPARE(firstCountZero(0.0, 1.0, -10.0), nothing);
        GridScene s(QSize(100, 100), 0.0, 1.0); // 0 to 10 frames
        QCOMPARE(s.grid.times(), std::vector<double>({0.0, 0.25, 0.5, 0.75, 1.0}));
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
            QRegion times, values; // of which the digits are no pieces any more
            for (const QRect& piece : labels& QRect(0, 58 - font->height(), width, font->height()))
                times += QRect(piece.left(), 0, piece.width() + 2, 1);
            for (const QRect& piece : labels& QRect(0, 0, 10, 60))
                values += QRect(0, piece.top(), 1, piece.height() + 1);
            for (const QRect& label : times)
                QVERIFY(label.width() <= font->horizontalAdvance("7.5E+06") + 6);
            for (const QRect& label : values)
                QVERIFY(label.height() <= font->height());
            QVERIFY(QRect(0, 1, width - 2, 58).contains(labels.boundingRect()));
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
        QVERIFY(shows(-1.0, 10.0, Qt::red, Qt::blue) && shows(-1.0, 4.5, Qt::red, Qt::red));
        QVERIFY(shows(4.5, 15.5, Qt::blue, Qt::black) && shows(-1e30, -8.0, Qt::black, Qt::black));
        QVERIFY(!shows(0.0, 0.01, {}, {}) && background.viewPixmap.isNull());

        QImage palette(600, 600, QImage::Format_Indexed8);
        palette.setColorTable({QColor(Qt::green).rgb(), QColor(Qt::red).rgb()});
        palette.fill(1);
        palette.save(folder.filePath("palette.png"));
        background = BackgroundImage(folder.filePath("palette.png"));
        QVERIFY(shows(4.5, 15.5, Qt::red, Qt::green));

        background = BackgroundImage(folder.path());
        QVERIFY(!shows(-1.0, 10.0, {}, {}));
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
        QVERIFY(!accepts(true, QRectF(0, 0, 0.5, 5)) && accepts(true, QRectF(0, 0, 11 * double(0.05f), 5)));
        QVERIFY(!accepts(true, QRectF(3000, 0, 0.58, 5)) && accepts(true, QRectF(-3000, 0, 0.58, 5)));
        QVERIFY(!accepts(false, QRectF(0, 0, 4, 0)) && accepts(false, QRectF(500, 0, 8000, 2e8)));
        QVERIFY(!accepts(false, QRectF(500, 0, 8000.1, 2e8)) && accepts(true, QRectF(-4500, 0, 9000, 5)));
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
        view.gesture.beginAtView(Gesture::Kind::Band, view.mapping());
        view.reset();
        QCOMPARE(view.gesture.kind(), Gesture::Kind::Idle);
        view.gesture.beginAtPoints(1, {});
        view.reset();
        QCOMPARE(view.gesture.kind(), Gesture::Kind::Points);
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

    void everyViewMapsToBoundedPixelsTruncatedTowardZero()
    {
        ViewPort usual = standardView();
        QVERIFY(usual.valueToPixel(2.0) == 100 && usual.timeToPixel(1e9) == 1100);
        usual.panView(100, 0);
        QVERIFY(usual.timeToPixel(-0.019) == -1 && usual.pixelToTime(1100) == 10.0);
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

QTEST_MAIN(tst_CanvasLayer)
#include "tst_CanvasLayer.moc"
