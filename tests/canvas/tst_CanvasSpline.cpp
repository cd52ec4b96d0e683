// SPDX-License-Identifier: MIT
#include "CanvasScene.h"

namespace {

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
    QImage shown()
    {
        const auto draw = [this](QPainter& painter) {
            painter.setBackground(Qt::darkBlue);
            painter.setBackgroundMode(Qt::OpaqueMode);
            CurvePainter curves(&painter, 1.0);
            picture.draw(curves, selection, dragged);
        };
        return drawn(QSize(1000, 600), draw, Qt::darkBlue);
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

} // namespace

class tst_CanvasSpline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        f.spline.firstType = SplineBase::Zero;
        f.picture.rebuild(&f.view, -1e9f, 1e9f);
        QCOMPARE(f.boundsOf(f.picture.unselectedColor).bottom(), 300);
        Fixture two({{5.0, 1.0}, {5.0, 1.0}}, SplineBase::Bezier);
        two.select(0); // above the other one
        QCOMPARE(two.shown().pixelColor(502, 202), QColor(Qt::red));
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
            f.picture.rebuild(&f.view, -1.0f, 1.0f);
            f.shown();
            f.picture.hitTest({500, 300}, f.selection);
            QVERIFY(f.picture.rawLine.points.size() + f.picture.postLine.points.size() <= 2002);
            QVERIFY(QRect(-100, -100, 1201, 801).contains(f.picture.nodePixels.boundingRect()));
        }
    }
};

QTEST_MAIN(tst_CanvasSpline)
#include "tst_CanvasSpline.moc"
