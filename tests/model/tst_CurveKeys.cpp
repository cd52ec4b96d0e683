// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveKeys.h>
#include <support/Test.h>

using CurveKeys::Key;
using CurveKeys::Shape;
using Ease = std::array<double, 4>;

double cubic(double first, double second, double third, double fourth, double place)
{
    const double rest = 1.0 - place;
    return rest * rest * (rest * first + 3.0 * place * second) +
           place * place * (3.0 * rest * third + place * fourth);
}

/// How far `spline` is from the segment between two keys of the shape `Bezier`.
double distance(const SplineBase& spline, const Key& from, const Key& to)
{
    const double length = to.time - from.time, out = from.leaving.reach * length,
                 in = to.arriving.reach * length;
    double worst = 0.0;
    for (double place = 0.001; place < 1.0; place += 0.0137) {
        const double time = cubic(from.time, from.time + out, to.time - in, to.time, place);
        const double value = cubic(from.value, from.value + out * from.leaving.slope,
                                   to.value - in * to.arriving.slope, to.value, place);
        worst = std::max(worst, std::abs(spline(time) - value));
    }
    return worst;
}

/// Keys, and the points of splines, as others have them.
class tst_CurveKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysComeInWithinWhatIsTold()
    {
        const double reaches[] = {0.0, 0.1, CurveKeys::usualReach, 0.5, 1.0};
        for (int round = 0; round < 10'000; ++round) {
            CurveKeys::Curve curve{{}, 0, SplineBase::FollowTangent, 3.0};
            for (int i = 0; i < 3; ++i)
                curve.keys.push_back({i + number() / 3.0,
                                      number(),
                                      {number(), reaches[random_() % 5]},
                                      {number(), reaches[random_() % 5]},
                                      Shape::Bezier});
            const double tolerance = std::pow(10.0, -double(random_() % 4));
            const CurveKeys::Points points = CurveKeys::toSpline(curve, tolerance);
            SplineBase spline;
            QVERIFY(spline.assign(points.spline) && points.deviation <= tolerance);
            QVERIFY(spline.firstType == 0 && spline.lastType == 4 && spline.getDefaultValue() == 3.0);
            for (std::size_t i = 1; i < 3; ++i)
                QVERIFY(distance(spline, curve.keys[i - 1], curve.keys[i]) <= points.deviation + 1e-14);
        }
    }

    void splinesGoOutAndBack()
    {
        for (int round = 0; round < 10'000; ++round) {
            SplineBase spline;
            bool isEased = false;
            for (unsigned i = 0; i < 4; ++i) {
                if (i > 0)
                    spline.addPoint(int(random_() % 4) + (random_() % 3 ? 0.25 : 0.0), number());
                auto& [time, pos, left, right, tension, continuity, bias, to, from, type, serial] =
                    *spline.modify(i);
                for (double* const field : {&left, &right, &tension, &continuity, &bias})
                    *field = number();
                to = random_() % 2 ? number() / 4.0 : 0.0;
                from = random_() % 2 ? number() / 4.0 : 0.0;
                type = std::int32_t(random_() % 5);
            }
            for (unsigned i = 1; i < 4; ++i)
                isEased =
                    isEased || (spline[i]->type == SplineBase::Tcb && spline[i]->time > spline[i - 1]->time &&
                                (spline[i]->easeTo != 0.0 || spline[i - 1]->easeFrom != 0.0));
            spline.lastType = SplineBase::FollowTangent;
            const CurveKeys::Keys keys = CurveKeys::fromSpline(spline, 1e-3);
            QVERIFY(keys.deviation <= 1e-3 && (keys.deviation > 0.0) == isEased);
            const CurveKeys::Points points = CurveKeys::toSpline(keys.curve, 0.0);
            SplineBase back;
            QVERIFY(back.assign(points.spline) && points.deviation == 0.0);
            for (double time = -1.0; time < 5.0; time += 0.0371)
                QVERIFY(std::abs(back(time) - spline(time)) <= keys.deviation + 1e-12);
            const auto again = CurveKeys::fromSpline(back, 0.0).curve.keys;
            QVERIFY(std::equal(again.begin(), again.end(), keys.curve.keys.begin(), keys.curve.keys.end(),
                               [](const Key& left, const Key& right) {
                                   return left.time == right.time && left.value == right.value &&
                                          left.arriving.slope == right.arriving.slope &&
                                          left.leaving.slope == right.leaving.slope &&
                                          left.shape == right.shape;
                               }));
        }
    }

    void easesOfStyleSheets_data()
    {
        const Rows<Ease, unsigned> row;
        row("ease", {0.25, 0.1, 0.25, 1.0}, 11);
        row("ease-in", {0.42, 0.0, 1.0, 1.0}, 9);
        row("ease-out", {0.0, 0.0, 0.58, 1.0}, 9);
        row("ease-in-out", {0.42, 0.0, 0.58, 1.0}, 9);
        row("in-out back", {0.68, -0.55, 0.27, 1.55}, 17);
        row("out back", {0.34, 1.56, 0.64, 1.0}, 9);
        row("upright", {0.0, 1.0, 1.0, 0.0}, 60);
        row("cusp", {1.0, 0.0, 0.0, 1.0}, 70);
        row("exact", {1.0 / 3.0, 0.2, 2.0 / 3.0, 0.9}, 2);
    }

    void easesOfStyleSheets()
    {
        const auto [ease, most] = Rows<Ease, unsigned>::present();
        for (const double scale : {1.0, -1e6}) {
            CurveKeys::Curve curve{{{2.0, 1.0}, {2.5, 1.0 + scale}}};
            CurveKeys::setEase(curve.keys[0], curve.keys[1], ease[0], ease[1], ease[2], ease[3]);
            const CurveKeys::Points points = CurveKeys::toSpline(curve, 1e-4 * std::abs(scale));
            SplineBase spline;
            QVERIFY(spline.assign(points.spline));
            QVERIFY(spline.getControlPointsNumber() <= most);
            for (double place = 0.0; place < 1.0; place += 0.0003) {
                const double time = 2.0 + 0.5 * cubic(0.0, ease[0], ease[2], 1.0, place);
                const double value = 1.0 + scale * cubic(0.0, ease[1], ease[3], 1.0, place);
                QVERIFY(std::abs(spline(time) - value) <= 1e-4 * std::abs(scale));
            }
        }
    }

    void whatIsNoCurveIsRefused()
    {
        const Key key{1.0, 2.0};
        for (const auto& keys : std::initializer_list<std::vector<Key>>{{},
                                                                        {key, {0.5}},
                                                                        {{infinity}},
                                                                        {{0.0, notANumber}},
                                                                        {{0.0, 0.0, {infinity}}},
                                                                        {{0.0, 0.0, {}, {0.0, 1.1}}}})
            QVERIFY(CurveKeys::toSpline({keys}, 1.0).spline.points.empty());
        QVERIFY(CurveKeys::toSpline({{key}}, notANumber).spline.points.empty());
        QCOMPARE(CurveKeys::toSpline({{key}}, 0.0).spline.points.size(), std::size_t(1));
        SplineBase spline;
        QVERIFY(CurveKeys::fromSpline(spline, -1.0).curve.keys.empty());
        spline.modify(0)->tanRight = infinity;
        QVERIFY(CurveKeys::fromSpline(spline, 1.0).curve.keys.empty());
        const double huge = std::numeric_limits<double>::max();
        const Key first{-huge, -huge, {}, {huge, 0.9}, Shape::Bezier}, last{huge, huge, {-huge, 0.2}};
        QVERIFY(spline.assign(CurveKeys::toSpline({{first, last}}, 0.0).spline));
        QVERIFY(std::isfinite(spline(0.0)) && spline.getControlPointsNumber() < 100);
    }

private:
    double number() { return double(random_() % 2001) / 1000.0 - 1.0; }

    std::mt19937 random_{1};
};

QTEST_GUILESS_MAIN(tst_CurveKeys)
#include "tst_CurveKeys.moc"
