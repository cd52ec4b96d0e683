// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/ViewPort.h>

#include <QBitmap>
#include <QPainter>
#include <QTest>

namespace {

// 100 pixels for each time unit and each value unit; value 0.0 stands at row 300.
struct Fixture
{
    Fixture(const QList<QPointF>& points, int type)
    {
        const auto* initial = spline.getFirst();
        for (const QPointF& point : points)
            spline.addPoint(point.x(), point.y());
        spline.remove(initial);
        for (auto* point : spline.getControlPoints())
            point->type = type;
        view.setSize(1000, 600);
        view.timeMin = 0.0;
        picture.selected = true;
        picture.rebuild(&view, -1e9f, 1e9f);
    }
    QImage drawn(const QPolygon& dotted = {})
    {
        QImage image(1000, 600, QImage::Format_RGB32);
        image.fill(Qt::darkBlue);
        QPainter painter(&image);
        painter.setBackground(Qt::darkBlue);
        painter.setBackgroundMode(Qt::OpaqueMode);
        painter.setPen(QPen(picture.unselectedColor, 1, Qt::DotLine));
        painter.drawPolyline(dotted);
        picture.draw(&painter);
        return image;
    }
    QRect boundsOf(const QColor& color)
    {
        const QImage others = drawn().createMaskFromColor(color.rgb(), Qt::MaskOutColor);
        return QRegion(QBitmap::fromImage(others)).boundingRect();
    }

    SplineBase spline;
    ViewPort view{0, 0};
    CanvasSpline picture{&spline};
    ControlSplineNode& control = picture.control;
};

const QList<QPointF> levelPoints{{2.0, 1.0}, {5.0, 1.0}, {8.0, 1.0}};

QList<int> sizesAndColumns(double firstTime, double lastTime)
{
    Fixture f({{firstTime, 1.0}, {lastTime, 2.0}}, SplineBase::Tcb);
    f.spline.lastType = SplineBase::Loop;
    f.picture.rebuild(&f.view, 0.0f, 1.0f);
    const auto& [curve, post] = std::tie(f.picture.curveLine, f.picture.postLine);
    return {int(curve.size()), curve.first().x(), int(post.size()), post.value(0).x()};
}

} // namespace

class tst_CanvasSpline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesCoverThePartOfTheViewThatTheyStandFor()
    {
        QCOMPARE(sizesAndColumns(4.0, 4.0), (QList<int>{1, 400, 601, 400}));
        QCOMPARE(sizesAndColumns(-5.0, 15.0), (QList<int>{1001, 0, 0, 0}));
        QCOMPARE(sizesAndColumns(-500.0, -400.0), (QList<int>{1, 0, 1001, 0}));
        QCOMPARE(sizesAndColumns(20.0, 30.0), (QList<int>{1, 2000, 0, 0}));
    }

    void dottedLineShowsWhereTheClampBitesAndOnlyThere()
    {
        Fixture f({{-1.0, -2.0}, {11.0, 1.0}}, SplineBase::Linear);
        QVERIFY(f.drawn(f.picture.rawLine) == f.drawn());
        QVERIFY(f.boundsOf(f.picture.unselectedColor).isEmpty());
        f.picture.rebuild(&f.view, -1.0f, -1.5f);
        QCOMPARE(f.picture.curveLine.first().y(), 400);
        QCOMPARE(f.picture.curveLine.last().y(), 450);
        QVERIFY(f.boundsOf(f.picture.unselectedColor).height() > 200);
    }

    void markersCoverExactlyTheirRectangle()
    {
        Fixture f(levelPoints, SplineBase::Bezier);
        f.control.selectOnly(f.control.pointAt(1));
        QCOMPARE(f.boundsOf(Qt::black), QRect(198, 198, 605, 5));
        QCOMPARE(f.boundsOf(QColor(255, 255, 220)), QRect(452, 198, 96, 5));
        f.control.modifyCurrent()->type = SplineBase::Tcb;
        QCOMPARE(f.boundsOf(QColor(255, 255, 220)), QRect(453, 199, 94, 3));
        f.picture.selected = false;
        QVERIFY(f.boundsOf(Qt::red).isEmpty());
        f.spline.firstType = SplineBase::Zero;
        QCOMPARE(f.boundsOf(f.picture.unselectedColor).bottom(), 300);
    }

    void pressFindsPointsAndTheHandlesOfTheCurrentOne()
    {
        Fixture f(levelPoints, SplineBase::Bezier);
        f.control.selectOnly(f.control.pointAt(1));
        const auto found = [&](int x, int y) {
            const int index = f.spline.findIndex(f.picture.hitTest({x, y}));
            return QPoint(index, f.control.isActiveRight() * 3 + f.control.isActiveLeft() * 2 +
                                     f.control.isActiveBoth());
        };
        QCOMPARE(found(505, 200), QPoint(1, 0));
        QCOMPARE(found(550, 200), QPoint(1, 3));
        QCOMPARE(found(450, 200), QPoint(1, 2));
        QCOMPARE(found(520, 209), QPoint(1, 1));
        QCOMPARE(found(520, 210), QPoint(-1, 0));
        QCOMPARE(found(795, 200), QPoint(2, 0));
        QCOMPARE(found(797, 197), QPoint(-1, 0));
        f.control.modifyCurrent()->tanRight = 1.0;
        QCOMPARE(found(531, 168), QPoint(1, 3));
        f.control.modifyCurrent()->type = SplineBase::Tcb;
        QCOMPARE(found(550, 200), QPoint(-1, 0));
    }

    void hostsChangesBeforeTheNextRebuildDoNoHarm()
    {
        Fixture f(levelPoints, SplineBase::Tcb);
        const QImage before = f.drawn();
        f.spline.addPoint(5.0, 3.0);
        QVERIFY(f.drawn() == before);
        QVERIFY(f.picture.selectInBand(2.0, 10.0, 0.0, 3.0));
        QCOMPARE(f.control.selectionList().size(), 2U);
        f.spline.remove(f.spline.getLast());
        f.spline.remove(f.spline.getLast());
        QCOMPARE(f.picture.hitTest({800, 200}), nullptr);
        QVERIFY(f.control.selectionList().size() == 1 && !f.control.getCurrent());
        QCOMPARE(f.boundsOf(Qt::red).width(), 5);
    }

    void extremeNumbersStayWithinBounds()
    {
        const QRect widest(-100, -100, 1201, 801);
        for (const double number : {1e300, -1e300, 1e-300, 1.7e308}) {
            Fixture f({{-number, number}, {0.0, -number}, {number, number}}, SplineBase::Bezier);
            f.control.selectOnly(f.control.pointAt(1));
            f.control.getCurrent()->tanRight = f.control.getCurrent()->easeFrom = number;
            f.spline.lastType = SplineBase::LoopOffset;
            for (const double edge : {10.0, 1e-300, 1e300, 0.0, qQNaN()}) {
                f.view.timeMax = edge;
                f.picture.rebuild(&f.view, -1.0f, 1.0f);
                f.drawn();
                f.picture.hitTest({500, 300});
                QVERIFY(f.picture.rawLine.size() + f.picture.postLine.size() <= 2002);
                QCOMPARE(f.picture.nodePixels.size(), edge > 0.0 ? 3 : 0);
                QCOMPARE(f.picture.nodePixels.boundingRect() | widest, widest);
            }
        }
    }
};

QTEST_MAIN(tst_CanvasSpline)
#include "tst_CanvasSpline.moc"
