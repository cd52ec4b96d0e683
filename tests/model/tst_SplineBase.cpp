// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveDiff.h>
#include <curveeditor/model/SplineBase.h>
#include <model/CommaLocale.h>
#include <specimens/SplineSpecimens.h>
#include <support/Test.h>

#include <cstring>

using PointInfo = SplineBase::PointInfo;
using Numbers = std::vector<double>;
using Places = std::vector<std::pair<double, double>>;

constexpr auto fieldBytes = offsetof(PointInfo, type) + sizeof(PointInfo::type);
const auto isSame = [](const PointInfo& a, const PointInfo& b) {
    return !std::memcmp(&a, &b, fieldBytes);
};
const auto near = [](double a, double b, double tolerance = 1e-12) {
    return std::abs(a - b) <= tolerance;
};

struct Curve
{
    SplineBase spline;
    CurveKind kind = CurveKind::Spline;
    std::string formula;

    CurveState state() const { return {spline.state(), kind, formula}; }
};

/// Whether both give the same bits at all times that `touched` does not cover.
bool isSameOutside(const TimeInterval& touched, const SplineBase& left, const SplineBase& right)
{
    for (double time = -4.0; time < 14.0; time += 1.0 / 32) {
        const bool isCovered = touched.first <= time && time <= touched.last;
        if (!isCovered && std::bit_cast<quint64>(left(time)) != std::bit_cast<quint64>(right(time)))
            return false;
    }
    return true;
}

class tst_SplineBase : public QObject
{
    Q_OBJECT

private:
    /// Applies and reverts what `edit` does to `curve`, to states and to the spline itself.
    static CurveDiff verified(Curve& curve, const std::function<void()>& edit)
    {
        const CurveState before = curve.state();
        edit();
        const CurveState after = curve.state();
        const CurveDiff diff = CurveDiff::between(before, curve.spline, curve.kind, curve.formula);
        CurveState state = before;
        [&] {
            QVERIFY(diff.apply(state) && state == after && diff.revert(state) && state == before);
            using Alteration = void (*)(SplineState&);
            for (const Alteration alter : {Alteration([](SplineState& s) { s.firstType ^= 1; }),
                                           Alteration([](SplineState& s) { s.lastType ^= 1; }),
                                           Alteration([](SplineState& s) { s.defaultValue = 77.0; })}) {
                CurveState other = before;
                alter(other.spline);
                const CurveState kept = other;
                SplineBase spline;
                QVERIFY(spline.assign(other.spline) &&
                        (diff.isEmpty() || !(diff.apply(other) || diff.apply(spline))));
                QVERIFY(other == kept && spline.state() == kept.spline);
            }
            for (const bool isKind : {true, false}) { // a formula that stays may be any
                CurveState other = before;
                isKind ? void(other.kind = CurveKind(1 - int(other.kind))) : void(other.formula += 'x');
                QCOMPARE(diff.apply(other), diff.isEmpty() || (!isKind && before.formula == after.formula));
            }
            QCOMPARE(diff.isEmpty(), before == after);
            QCOMPARE(diff.toString().empty(), before == after);
            QCOMPARE(diff.toString(), CurveDiff::between(before, after).toString());
            SplineBase old;
            QVERIFY(old.assign(before.spline) && old.state() == before.spline);
            QVERIFY2(isSameOutside(diff.touched(), old, curve.spline), diff.toString().c_str());
            const auto living = curve.spline.getControlPoints();
            QVERIFY(diff.revert(curve.spline) && curve.spline.state() == before.spline);
            QVERIFY(diff.pointsBefore().empty() ||
                    (!diff.revert(curve.spline) && curve.spline.state() == before.spline));
            QVERIFY(diff.apply(curve.spline) && curve.spline.state() == after.spline);
            QCOMPARE(fingerprintOf(curve.spline), after.spline.fingerprint());
            QVERIFY(curve.spline.assign(before.spline) && curve.spline.state() == before.spline);
            const auto afterwards = curve.spline.getControlPoints();
            for (std::size_t i = 0; i < living.size(); ++i) {
                const PointInfo& was = after.spline.points[i];
                const std::int32_t index = curve.spline.findIndex(was.serial, was.time);
                QVERIFY(index < 0 || afterwards[std::size_t(index)] == living[i]);
            }
            QVERIFY(curve.spline.assign(after.spline) && curve.spline.state() == after.spline);
        }();
        return diff;
    }

private Q_SLOTS:
    void segmentsFollowTheirFormulas()
    {
        SplineBase spline;
        spline.addPoint(1.0, 1.0);
        spline.addPoint(3.0, 0.0);
        // Tension, continuity, bias; thrice the slopes that arrive at the middle point and leave it.
        for (const Numbers& row : {Numbers{0, 0, 0, 0, 0}, Numbers{1, 3, -2, 0, 0}, Numbers{0, 1, 0, -2, 2},
                                   Numbers{0, 0, 1, 2, 2}, Numbers{-1, 0.5, 0.2, -1.2, 2.8}}) {
            std::copy_n(row.begin(), 3, &spline.modify(1)->tension);
            QVERIFY(near(spline(0.5), 0.5 + (1.0 - row[3] / 3.0) / 8.0));
            QVERIFY(near(spline(2.0), 0.5 + 2.0 * (row[4] / 3.0 + 0.5) / 8.0));
        }
        *spline.modify(1) = {1.0, 1.0, 3.0, 0, 0, 0, 0, 1.0, 0, SplineBase::Linear};
        QVERIFY(near(spline(0.25), 0.25 + 0.25 * 0.25 * 0.75));
        spline.modify(1)->type = SplineBase::Bezier;
        QVERIFY(near(spline(0.3), 0.027) && near(spline(0.8), 0.512));
    }

    void everySpecimenAgreesWithItsTangents()
    {
        SplineBase spline;
        double left = 0.0, right = 0.0;
        for (const SplineSpecimen& specimen : splineSpecimens()) {
            specimen.fill(spline);
            for (unsigned i = 1; i < spline.getControlPointsNumber(); ++i) {
                const PointInfo from = *spline[i - 1], to = *spline[i];
                const double leaving = spline.getTangentRightAtNode(i, right);
                const double arriving = spline.getTangentLeftAtNode(i, left);
                QVERIFY(near(right, 0.667 * (1.0 - from.easeFrom)) && near(left, 0.667 * (1.0 - to.easeTo)));
                const double step = (to.time - from.time) * 1e-6;
                const double end = to.type == SplineBase::Hold ? from.pos : to.pos;
                const double tolerance = 1e-4 * std::max({std::abs(leaving), std::abs(arriving),
                                                          std::abs(from.pos - to.pos) / (step * 1e6)});
                const bool agrees = near((spline(from.time + step) - from.pos) / step, leaving, tolerance) &&
                                    near((end - spline(to.time - step)) / step, arriving, tolerance);
                QVERIFY2(agrees || step < 1e-310, specimen.name.c_str());
                QVERIFY2(std::isfinite(leaving) && std::isfinite(arriving), specimen.name.c_str());
            }
            for (int behaviour = SplineBase::Zero; behaviour <= SplineBase::FollowTangent; ++behaviour) {
                spline.lastType = behaviour;
                const double first = spline.getFirst()->time, span = spline.getLast()->time - first;
                for (int i = -7; i < 50 && span > 1e-300 && span < 1e300; ++i) {
                    const double time = first + (i + 0.37) * span / 20.0, step = span * 1e-7;
                    const double before = spline(time - step), after = spline(time + step);
                    const double slope = spline.slope(time), expected = (after - before) / (2.0 * step);
                    const double size =
                        std::max({std::abs(slope), std::abs(before) / span, std::abs(after) / span});
                    QVERIFY2(std::isfinite(slope) && (near(slope, expected, 1e-5 * size) || size > 1e290),
                             specimen.name.c_str());
                }
                QVERIFY(spline.slope(notANumber) == 0.0 && spline.slope(infinity) == 0.0);
            }
            QCOMPARE(spline.getTangentLeftAtNode(0, left), 0.0);
            QCOMPARE(spline.getTangentRightAtNode(spline.getControlPointsNumber(), right), 0.0);
        }
    }

    void everyBlockGivesTheBitsOfSingleValues()
    {
        const auto givesThem = [](const SplineBase& spline, const Numbers& times) {
            Numbers values = times, apart(times.size());
            spline.evaluate(values.data(), values.data(), values.size());
            spline.evaluate(times.data(), apart.data(), times.size());
            const bool areSame = !std::memcmp(values.data(), apart.data(), times.size() * sizeof(double));
            return areSame &&
                   std::equal(values.begin(), values.end(), times.begin(), [&](double value, double time) {
                       return std::bit_cast<quint64>(value) == std::bit_cast<quint64>(spline(time));
                   });
        };
        SplineBase spline, many;
        for (const SplineSpecimen& specimen : splineSpecimens()) {
            specimen.fill(spline);
            const double first = spline.getFirst()->time, last = spline.getLast()->time;
            Numbers times = {last, first, notANumber, -infinity, infinity, 1e300, -1e300, 2.0};
            for (int i = -100; i < 400; ++i)
                times.push_back(first + i * 0.01 * (last - first));
            QVERIFY2(givesThem(spline, times), specimen.name.c_str());
            for (const double time : times) {
                QVERIFY2(std::isfinite(spline(time)) || time > last, specimen.name.c_str());
                QVERIFY(first < last || !(time > last) || spline(time) == spline.getLast()->pos);
            }
        }
        for (int i = 1; i < 4000; ++i) {
            many.addPoint(i + 0.4 * std::sin(i), std::cos(7 * i));
            many.modify(i)->type = i / 5 % 4;
        }
        for (const double step : {0.3, 0.7, 3.0, 9.0, 100.0, -1.3}) {
            Numbers times;
            for (double time = step > 0.0 ? -20.0 : 4020.0; time > -21.0 && time < 4200.0; time += step)
                times.push_back(time);
            for (int disorder = 0; disorder < 3; ++disorder) {
                QVERIFY(givesThem(many, times));
                for (std::size_t i = 7; i < times.size(); i += 19)
                    times[i] = disorder > 0 ? notANumber : times[i / 2];
            }
        }
    }

    void behavioursGoOnOutsideThePoints()
    {
        SplineBase spline;
        spline.addPoint(1.0, 2.0);
        spline.addPoint(4.0, 1.0);
        *spline.modify(2) = {4.0, 1.0, 0, 0, 0, 0, 0, 0.5, 0, SplineBase::Linear};
        spline.setPos(spline.modify(0), 0.5);
        const Places rows[] = {{{-0.1, 0.0}, {0.0, 0.5}, {4.0, 1.0}, {4.1, 0.0}, {1e300, 0.0}},
                               {{-0.1, 0.5}, {4.1, 1.0}, {infinity, 1.0}},
                               {{4.0, 1.0}, {5.0, 2.0}, {8.0, 0.5}, {41.0, 2.0}},
                               {{4.0, 1.0}, {5.0, 2.5}, {8.0, 1.5}, {41.0, 7.0}},
                               {{4.0, 1.0}, {10.0, 0.0}}};
        for (int type = SplineBase::Zero; type <= SplineBase::FollowTangent; ++type) {
            spline.firstType = spline.lastType = type;
            for (const auto& [time, value] : rows[type])
                QVERIFY2(near(spline(time), value), qPrintable(QString("%1 at %2").arg(type).arg(time)));
        }
        spline.addPoint(4.0, 9.0);
        QCOMPARE(spline(5.0), 9.0);
    }

    void hugeNumbersKeepSegmentsFinite()
    {
        for (int type = SplineBase::Linear; type <= SplineBase::Tcb; ++type) {
            SplineBase spline;
            spline.addPoint(4.0, -1e308);
            spline.setPos(spline.modify(0), 1e308);
            spline.modify(1)->type = type;
            QVERIFY(near(spline(1.0) / 1e308, type == spline.Bezier ? 0.6875 : 0.5) && spline(2.0) == 0.0);
            double length = 0.0;
            const double slope = type == SplineBase::Bezier ? 0.0 : -0.5;
            QVERIFY(near(spline.getTangentLeftAtNode(1, length) / 1e308, slope));
            QVERIFY(near(spline.getTangentRightAtNode(1, length) / 1e308, slope));
            spline.addPoint(2.0, 0.0);
            QVERIFY(near(spline[1]->tanLeft / 1e308, type == SplineBase::Bezier ? -0.75 : 0.0));
        }
        SplineBase spline;
        spline.addPoint(1e308, 1e308);
        *spline.modify(0) = {-1e308, -1e308, 1e308, 1e308, -10, 10, 10, -1, -1, SplineBase::Bezier};
        for (int type = SplineBase::Linear; type <= SplineBase::Tcb; ++type) {
            spline.modify(1)->type = type;
            double values[] = {-1e308, -5e307, 0.0, 1.0, 9e307};
            spline.evaluate(values, values, std::size(values));
            spline.evaluate(nullptr, nullptr, 0);
            for (const double value : values)
                QVERIFY(std::isfinite(value));
        }
    }

    void addedPointTakesPlaceTypeAndSlope()
    {
        SplineBase spline;
        spline.addPoint(2.0, 4.0);
        *spline.modify(1) = {2.0, 4.0, 4.0, 0, 0, 0, 0, 0, 0, SplineBase::Bezier};
        spline.addPoint(1.0, 7.0);
        spline.modify(1)->type = SplineBase::Linear;
        spline.addPoint(-1.0, 0.0);
        spline.addPoint(2.0, 5.0);
        QVERIFY(isSame(*spline[0], {-1.0, 0.0, 0, 0, 0, 0, 0, 0, 0, SplineBase::Linear}));
        QVERIFY(isSame(*spline[2], {1.0, 7.0, 2.0, 2.0, 0, 0, 0, 0, 0, SplineBase::Linear}));
        QVERIFY(isSame(*spline[4], {2.0, 5.0, 0, 0, 0, 0, 0, 0, 0, SplineBase::Bezier}));
        spline.remove(spline[1]);
        QVERIFY(spline(2.0) == 5.0 && spline.getNext(1.0) == spline[2] && spline.getPrev(2.0) == spline[1]);
        QVERIFY(!spline.getPrev(spline[0]->time) && !spline.getNext(spline.getLast()->time));
    }

    void setTimeMovesOnePointAmongTheOthers()
    {
        SplineBase spline;
        for (int i = 1; i < 4; ++i)
            spline.addPoint(i, i);
        PointInfo* const point = spline.modify(1);
        for (const auto& [time, order] : std::map<double, Numbers>{
                 {-1.0, {1, 0, 2, 3}}, {2.0, {0, 2, 1, 3}}, {2.5, {0, 2, 1, 3}}, {3.0, {0, 2, 3, 1}}}) {
            spline.setTime(point, time);
            spline.setTime(spline.modify(1), spline[1]->time);
            QCOMPARE(spline(time), 1.0);
            QVERIFY(spline.getNext(time) == spline[unsigned(spline.findIndex(point)) + 1]);
            for (unsigned i = 0; i < 4; ++i)
                QCOMPARE(spline[i]->pos, order[i]);
        }
        spline.setTime(point, 0.5);
        QVERIFY(spline[1] == point && spline[3]->pos == 3.0);
    }

    void badArgumentsAndTheLastRemovalChangeNothing()
    {
        SplineBase spline, other;
        for (const double bad : {notANumber, infinity, -infinity}) {
            spline.addPoint(bad, 0.0);
            spline.addPoint(0.0, bad);
            spline.setTime(spline.modify(0), bad);
            spline.setPos(spline.modify(0), bad);
        }
        for (PointInfo* point : {static_cast<PointInfo*>(nullptr), other.modify(0), spline.modify(0)}) {
            spline.remove(point);
            spline.setTime(point, 0.0);
        }
        QVERIFY(!spline.assign({{{1.0, 0.0}, {0.0, 0.0}}}));
        QVERIFY(spline.findIndex(other[0]) == -1 && !spline.modify(other[0]) && !spline.modify(1));
        const auto modifyAt = [&spline](auto... indices) {
            return std::vector{spline.modify(indices)...};
        };
        for (PointInfo* point :
             modifyAt(-1, -1L, std::ptrdiff_t(-1), 1UL, 1L << 32, std::size_t(1) << 32, ~0U))
            QVERIFY(!point);
        for (PointInfo* point : modifyAt(0, 0L, std::size_t(), short(), 0U, spline[0]))
            QCOMPARE(point, spline[0]);
        QVERIFY(spline.getControlPointsNumber() == 1 && isSame(*spline[0], PointInfo()));
    }

    void textReadsBackToTheSameBitsOrChangesNothing()
    {
        const CommaLocale commas;
        SplineBase spline, loaded;
        spline.addPoint(12345.678, 0.5);
        *spline.modify(0) = {0.0, -0.0, 0.1, 5e-324, 1.0 / 3, -1e308, 1234.5, 1e22, 1e-300, 2};
        spline.firstType = spline.lastType = SplineBase::Zero;
        spline.setDefaultValue(0.1);
        std::stringstream text;
        SplineBase::save(spline, text);
        SplineBase::load(&loaded, text);
        QVERIFY(!text.fail() && loaded.getControlPointsNumber() == 2 && loaded(12345.678) == 0.5);
        QVERIFY(isSame(*loaded[0], *spline[0]) && isSame(*loaded[1], *spline[1]));
        QVERIFY(loaded.firstType == 0 && loaded.lastType == 0 && loaded.getDefaultValue() == 0.1);

        const std::string good = text.str();
        const QString tabs = QString::fromStdString(good).replace(u' ', "\t\v").replace(u'\n', "\f\r\n");
        std::istringstream spaced(tabs.toStdString());
        SplineBase::load(&loaded, spaced);
        QVERIFY(!spaced.fail() && isSame(*loaded[0], *spline[0]));
        std::vector<std::string> broken = {"garbage", "spline 1 1 0 end", "spline 1 1 0\n0 nan\nend\n"};
        for (std::size_t size = 0; size < good.size() - 1; ++size)
            broken.push_back(good.substr(0, size));
        for (const char* time : {"-1", "0,5", "1e999", "nan", "0x1", "1.5.2"})
            broken.push_back(std::string(good).replace(good.find("12345.678"), 9, time));
        broken.push_back("spline 1 1 0\n" + std::string(64, '0') + " 0 0 0 0 0 0 0 2\nend\n"); // no two words
        for (const char* head : {"5 1 0", "1 -1 0", "1 1 inf"})
            broken.push_back("spline " + std::string(head) + "\n0 0 0 0 0 0 0 0 0 2\nend\n");
        for (const char* rest :
             {"inf 0 0 0 0 0 0 2", "0 nan 0 0 0 0 0 2", "0 0 0 0 0 0 -inf 2", "0 0 0 0 0 0 0 4"})
            broken.push_back("spline 1 1 0\n0 0 " + std::string(rest) + "\nend\n");
        const PointInfo* const point = loaded[0];
        for (const std::string& content : broken) {
            std::istringstream in(content);
            SplineBase::load(&loaded, in);
            QVERIFY2(in.fail() && loaded[0] == point && loaded.lastType == 0, content.c_str());
        }
        struct : std::stringbuf
        {
            int_type underflow() override { throw "no such sector"; }
        } failing;
        failing.str(good.substr(0, good.size() - 1));
        std::istream in(&failing);
        SplineBase::load(&loaded, in);
        QVERIFY(in.bad() && loaded[0] == point);
        std::istringstream step(std::string(good).replace(good.find("12345.678"), 9, "0"));
        SplineBase::load(&loaded, step);
        QVERIFY(!step.fail() && loaded[1]->time == 0.0);
    }

    void everyEditGoesForthAndBack()
    {
        Curve curve;
        SplineBase& spline = curve.spline;
        for (int i = 1; i < 6; ++i)
            spline.addPoint(2.0 * i, i % 3);
        const std::vector<std::tuple<std::function<void()>, const char*, double, double>> rows = {
            {[] {}, "", INFINITY, -INFINITY},
            {[&] { spline.addPoint(5.0, 7.0); }, "+ 3: 5 7 Tcb\n", 2.0, 8.0},
            {[&] { spline.setTime(spline.modify(3), 9.0); }, "- 3: 5 7 Tcb\n+ 5: 9 7 Tcb\n", 2.0, 10.0},
            {[&] { spline.remove(spline[5]); }, "- 5: 9 7 Tcb\n", 6.0, 10.0},
            {[&] { spline.modify(2)->type = spline.Bezier; }, "- 2: 4 2 Tcb\n+ 2: 4 2 Bezier\n", 0.0, 8.0},
            {[&] { spline.addPoint(4.0, 3.0); }, "+ 3: 4 3 Tcb\n", 4.0, 8.0},
            {[&] { spline.firstType = SplineBase::Zero; }, "first 1 -> 0\n", -INFINITY, 0.0},
            {[&] { spline.lastType = SplineBase::Loop; }, "last 1 -> 2\n", 10.0, INFINITY},
            {[&] { spline.setDefaultValue(-0.0); }, "default 0 -> -0\n", INFINITY, -INFINITY},
            {[&] { spline.setDefaultValue(NAN); }, "default -0 -> nan\n", INFINITY, -INFINITY},
            {[&] { spline.setDefaultValue(2.5); }, "default nan -> 2.5\n", INFINITY, -INFINITY},
            {[&] { curve.formula = std::string("t"); }, "formula \"\" -> \"t\"\n", -INFINITY, INFINITY},
            {[&] { curve.kind = CurveKind::Expression; }, "kind 0 -> 1\n", -INFINITY, INFINITY}};
        for (const auto& [edit, text, first, last] : rows) {
            const CurveDiff diff = verified(curve, edit);
            QCOMPARE(diff.toString(), std::string(text));
            QVERIFY2(diff.touched().first == first && diff.touched().last == last, text);
        }
    }

    void randomEditsGoForthAndBack()
    {
        std::mt19937 random(1);
        const auto below = [&random](std::size_t count) {
            return int(random() % count);
        };
        for (int round = 0; round < 2000 && !QTest::currentTestFailed(); ++round) {
            Curve curve;
            SplineBase& spline = curve.spline;
            PointInfo* point = nullptr;
            double number = 0.0;
            const std::function<void()> edits[] = {
                [&] { spline.addPoint(number, below(5)); },
                [&] { spline.remove(point); },
                [&] { spline.setTime(point, number); },
                [&] { spline.setPos(point, number); },
                [&] { point->type = below(3); },
                [&] { point->tanLeft = point->tension = point->easeTo = number / 10.0; },
                [&] { spline.lastType = below(5); },
                [&] { spline.firstType = below(2); },
                [&] {
                    point->time = number;
                    spline.mend();
                },
            };
            const auto edit = [&] {
                point = spline.modify(below(spline.getControlPointsNumber()));
                number = below(11);
                edits[below(std::size(edits))]();
            };
            for (int i = below(30); i > 0; --i)
                edit();
            verified(curve, [&] {
                for (int i = below(4); i >= 0; --i)
                    edit();
            });
        }
    }

    void directWritesAreMendedOrEditedOver()
    {
        SplineBase spline;
        for (int i = 1; i < 4; ++i)
            spline.addPoint(i, i);
        PointInfo* const point = spline.modify(1);
        point->time = 2.5;
        spline.setTime(point, 2.5);
        QVERIFY(spline[2] == point && spline.getNext(2.0) == point && spline(2.5) == 1.0);
        point->time = NAN;
        spline.setTime(point, 2.5);
        QCOMPARE(point->time, 2.5);
        *point = {0.5, 9.0};
        spline.modify(3)->pos = NAN;
        spline.mend();
        QVERIFY(spline[1] == point && point->serial != 0 && spline(0.5) == 9.0 && spline[3]->pos == 0.0);
        *point = *spline[2];
        *spline.modify(3) = *spline[2];
        const SplineState copies = spline.state();
        const SplineState state = SplineBase().state();
        QVERIFY(spline.assign(state) && spline.state() == state);
        QVERIFY(spline.assign(copies) && spline[1]->serial != spline[2]->serial);
        QVERIFY(spline[2]->serial != spline[3]->serial && spline[3]->serial != spline[1]->serial);
    }

    void pointsWithoutASerialAreThoseThatEqualThem()
    {
        SplineBase spline;
        for (int i = 1; i < 4; ++i)
            spline.addPoint(i, i);
        const SplineState before = spline.state();
        SplineState stored = before;
        for (PointInfo& point : stored.points)
            point.serial = 0;
        QVERIFY(spline.assign(stored) && spline.state() == before);
        stored.points[1].pos = 9.0;
        stored.points[3].serial = before.points[2].serial;
        QVERIFY(spline.assign(stored));
        QCOMPARE(spline[0]->serial, before.points[0].serial);
        QCOMPARE(spline[2]->serial, before.points[2].serial);
        for (const unsigned changed : {1u, 3u})
            QVERIFY(spline[changed]->serial > before.points[3].serial);
    }

    /// Comes last, as the process has no new serials afterwards.
    void serialsOfAStoredStateAreNotGivenAgain()
    {
        SplineBase spline, other;
        SplineState stored;
        for (const std::uint32_t ahead : {2u, 3u})
            stored.points.push_back({.time = double(ahead), .serial = spline[0]->serial + ahead});
        QVERIFY(spline.assign(stored) && spline.state() == stored);
        const auto areDistinct = [](const SplineBase& curve) {
            std::set<std::uint32_t> serials = {0};
            for (const PointInfo* const point : curve.getControlPoints())
                serials.insert(point->serial);
            return serials.size() == curve.getControlPointsNumber() + 1;
        };
        for (int i = 0; i < 5; ++i)
            spline.addPoint(i, i);
        QVERIFY(areDistinct(spline));
        const std::uint32_t last = std::numeric_limits<std::uint32_t>::max();
        *other.modify(0) = {.serial = last - 3};
        other.mend();
        for (int i = 0; i < 10'000; ++i)
            other.addPoint(i, i);
        QVERIFY(areDistinct(other));
        stored.points = {
            {.serial = last}, {.time = 1.0, .serial = 5}, {.time = 2.0, .serial = 5}, {.time = 3.0}};
        for (SplineBase* const curve : {&spline, &other}) {
            QVERIFY(curve->assign(stored));
            for (int i = 0; i < 100; ++i)
                curve->addPoint(i, i);
            QVERIFY(areDistinct(*curve));
        }
    }
};

QTEST_APPLESS_MAIN(tst_SplineBase)
#include "tst_SplineBase.moc"
