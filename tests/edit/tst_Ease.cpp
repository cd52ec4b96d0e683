// SPDX-License-Identifier: MIT
#include <curveeditor/edit/SegmentEase.h>
#include <curveeditor/model/SplineState.h>
#include <support/Test.h>

using Formula = std::function<double(double)>;

double sine(double u)
{
    return 1.0 - std::cos(u * std::acos(0.0));
}

double back(double u)
{
    return 2.70158 * u * u * u - 1.70158 * u * u;
}

/// Solved for the place of `u`.
Formula css(const Ease::CssNumbers& n)
{
    const auto bezier = [](double first, double second, double s) {
        return 3.0 * (1.0 - s) * (1.0 - s) * s * first + 3.0 * (1.0 - s) * s * s * second + s * s * s;
    };
    return [=](double u) {
        double low = 0.0, high = 1.0;
        for (int i = 0; i < 60; ++i)
            (bezier(n[0], n[2], (low + high) / 2.0) < u ? low : high) = (low + high) / 2.0;
        return bezier(n[1], n[3], low);
    };
}

/// The fields of a spline whose points, all of one type, are at (0, 1), (1, 3), (3, -1), (4, 2) and (6, 2).
struct EasedFixture
{
    explicit EasedFixture(int type)
    {
        spline.setPos(spline.modify(0), 1.0);
        for (const auto& [time, value] : {std::pair(1.0, 3.0), {3.0, -1.0}, {4.0, 2.0}, {6.0, 2.0}})
            spline.addPoint(time, value);
        for (unsigned i = 0; i < 5; ++i) {
            spline.modify(i)->type = type;
            spline.modify(i)->tanLeft = spline.modify(i)->tanRight = 0.5;
            spline.modify(i)->bias = 0.3;
        }
        before.assign(spline.state());
    }
    SegmentEase::Outcome ease(const Ease& ease, const QList<unsigned>& points)
    {
        std::vector<PointSerial> serials;
        for (const unsigned index : points)
            serials.push_back(before[index]->serial);
        return SegmentEase::apply(spline, serials, ease, options);
    }
    bool isSameFrom(double first, double last) const
    {
        for (double t = first; t < last; t += 0.0625) {
            if (std::abs(spline(t) - before(t)) > 1e-12)
                return false;
        }
        return true;
    }

    SplineBase spline, before;
    CurveOptions options;
};

class tst_Ease : public QObject
{
    Q_OBJECT

    using Eases =
        Rows<Ease, Formula, unsigned, double>; // points between the ends, and how far it may be away

private Q_SLOTS:
    void segmentsFollowTheirFormulas_data()
    {
        using Shape = Ease::Shape;
        const Eases row;
        const struct
        {
            const char* name;
            Shape shape;
            Formula in;
            unsigned between, betweenInOut;
            double bound;
        } shapes[] = {{"sine", Shape::Sine, sine, 0, 0, 0.011},
                      {"quadratic", Shape::Quadratic, [](double u) { return u * u; }, 0, 1, 1e-14},
                      {"cubic", Shape::Cubic, [](double u) { return u * u * u; }, 0, 1, 1e-14},
                      {"back", Shape::Back, back, 0, 1, 1e-14},
                      {"exponential", Shape::Exponential,
                       [](double u) { return u > 0.0 ? std::exp2(10.0 * u - 10.0) : 0.0; }, 2, 6, 0.005}};
        for (const auto& [name, shape, in, between, betweenInOut, bound] : shapes) {
            const auto out = [in = in](double u) {
                return 1.0 - in(1.0 - u);
            };
            row(qPrintable(QString(name) + " in"), Ease::of(shape, Ease::Side::In), in, between, bound);
            row(qPrintable(QString(name) + " out"), Ease::of(shape, Ease::Side::Out), out, between, bound);
            row(
                qPrintable(QString(name) + " in and out"), Ease::of(shape, Ease::Side::InOut),
                [in = in, out](double u) { return u < 0.5 ? in(2 * u) / 2 : 0.5 + out(2 * u - 1) / 2; },
                betweenInOut, bound);
        }
        row(
            "smoothstep", Ease::smoothstep(), [](double u) { return 3 * u * u - 2 * u * u * u; }, 0, 1e-14);
        for (const Ease::CssNumbers numbers : {Ease::CssNumbers{0.25, 0.1, 0.25, 1.0},
                                               {0.68, -0.55, 0.265, 1.55},
                                               {0, 0, 1, 1},
                                               {1, 0, 0, 1},
                                               {0, -10, 0, 10}}) {
            const Ease ease = Ease::css(numbers);
            row(qPrintable(QString("css %1 %2").arg(numbers[0]).arg(numbers[1])), ease, css(numbers),
                unsigned(ease.points().size()) - 2, 0.005);
        }
    }
    void segmentsFollowTheirFormulas()
    {
        const auto [ease, formula, between, bound] = Eases::present();
        for (const int type : {SplineBase::Linear, SplineBase::Bezier, SplineBase::Tcb, SplineBase::Hold}) {
            EasedFixture f(type);
            const SegmentEase::Outcome outcome = f.ease(ease, {2, 1, 4});
            QCOMPARE(f.spline.getControlPointsNumber(), 5 + between);
            double deviation = 0.0;
            for (double u = 0.0; u < 1.0; u += 1.0 / 4096.0)
                deviation = std::max(deviation, std::abs((3.0 - f.spline(1.0 + 2.0 * u)) / 4.0 - formula(u)));
            QVERIFY2(deviation <= bound && std::abs(outcome.deviation - deviation) < 1e-4,
                     qPrintable(QString::number(deviation)));
            QVERIFY(outcome.segments == 1 && outcome.steps == 1 && !outcome.bendsOthers);
            QVERIFY(f.isSameFrom(0.0, 1.0) && f.isSameFrom(3.0, 7.0));
        }
    }

    void singlePointHasBothItsSegmentsEasedAndWhatHasNoStepStaysOrIsLevel()
    {
        EasedFixture single(SplineBase::Tcb);
        QCOMPARE(single.ease(Ease::smoothstep(), {1}).segments, 2);
        QVERIFY(single.spline(0.5) == 2.0 && std::abs(single.spline(2.0) - 1.0) < 1e-15);
        QVERIFY(single.isSameFrom(3.0, 7.0));
        const Ease ease = Ease::of(Ease::Shape::Cubic, Ease::Side::InOut);
        EasedFixture f(SplineBase::Tcb);
        const SegmentEase::Outcome level = f.ease(ease, {3, 4});
        QVERIFY(level.segments == 1 && level.steps == 0 && level.deviation == 0.0);
        QVERIFY(f.spline(5.0) == 2.0 && f.spline.getControlPointsNumber() == 5 && f.isSameFrom(0.0, 4.0));
        QCOMPARE(f.spline[3]->type, int(SplineBase::Tcb)); // as nothing came beside it
        QVERIFY(!SegmentEase::isPossible(f.spline, {f.spline[0]->serial, f.spline[2]->serial}));
        for (const double time : {3.0, std::nextafter(3.0, 4.0)}) { // vertical, and without room for a point
            EasedFixture steep(SplineBase::Linear);
            steep.spline.setTime(steep.spline.modify(3), time);
            QCOMPARE(steep.ease(ease, {2, 3}).segments, time == 3.0 ? 0 : 1);
            QCOMPARE(steep.spline.getControlPointsNumber(), 5u);
        }
        SplineBase one;
        QVERIFY(!SegmentEase::isPossible(one, {one[0]->serial}) && !SegmentEase::isPossible(one, {}));
        one.setPos(one.modify(0), -1e308);
        one.addPoint(1e-300, 1e308);
        QVERIFY(!SegmentEase::isPossible(one, {one[0]->serial}));
        one.setTime(one.modify(1), 2.0);
        one.setPos(one.modify(0), 0.0);
        SegmentEase::apply(one, {one[0]->serial}, Ease::of(Ease::Shape::Back, Ease::Side::In), {});
        QVERIFY(std::isfinite(one[1]->tanLeft));
    }

    void addedPointsKeepToTheOptions()
    {
        EasedFixture f(SplineBase::Linear);
        f.options.step = 2.0;
        f.options.lowest = 0.0; // so that the last one moves up
        const SegmentEase::Outcome outcome =
            f.ease(Ease::of(Ease::Shape::Quadratic, Ease::Side::InOut), {1, 2});
        QVERIFY(f.spline[1]->pos == 4.0 && f.spline[2]->pos == 2.0 && f.spline[3]->pos == 0.0);
        QCOMPARE(outcome.deviation, 0.0);
        f.options.step = 3.0;
        EasedFixture coarse(SplineBase::Linear);
        coarse.options = f.options;
        QCOMPARE(coarse.ease(Ease::of(Ease::Shape::Quadratic, Ease::Side::InOut), {1, 2}).deviation, 0.5);
    }

    void easedNeighbourIsToldToBend()
    {
        for (const Ease::Side side : {Ease::Side::In, Ease::Side::InOut}) {
            EasedFixture f(SplineBase::Tcb);
            f.spline.modify(3)->easeTo = 0.5;
            QCOMPARE(f.ease(Ease::of(Ease::Shape::Cubic, side), {1, 2}).bendsOthers,
                     side == Ease::Side::InOut);
            QCOMPARE(f.spline[f.spline.getControlPointsNumber() - 2]->type, int(SplineBase::Tcb));
        }
    }

    void cssNumbersAreBounded()
    {
        QVERIFY(Ease::isCss({0, -10, 1, 10}));
        for (const Ease::CssNumbers& numbers : {Ease::CssNumbers{-0.1, 0, 1, 1},
                                                {0, 0, 1.1, 1},
                                                {0, 11, 1, 1},
                                                {0, 0, 1, -11},
                                                {notANumber, 0, 1, 1},
                                                {0, 0, 1, infinity}})
            QVERIFY(!Ease::isCss(numbers));
    }
};

QTEST_APPLESS_MAIN(tst_Ease)
#include "tst_Ease.moc"
