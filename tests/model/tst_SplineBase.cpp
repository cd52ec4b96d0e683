// SPDX-License-Identifier: MIT
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

class tst_SplineBase : public QObject
{
    Q_OBJECT

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
                const double tolerance = 1e-4 * std::max({std::abs(leaving), std::abs(arriving),
                                                          std::abs(from.pos - to.pos) / (step * 1e6)});
                const bool agrees = near((spline(from.time + step) - from.pos) / step, leaving, tolerance) &&
                                    near((to.pos - spline(to.time - step)) / step, arriving, tolerance);
                QVERIFY2(agrees || step < 1e-310, specimen.name.c_str());
                QVERIFY2(std::isfinite(leaving) && std::isfinite(arriving), specimen.name.c_str());
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
            many.modify(i)->type = i / 5 % 3;
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
            QVERIFY(near(spline(1.0) / 1e308, type == SplineBase::Bezier ? 0.6875 : 0.5) &&
                    spline(2.0) == 0.0);
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
        std::vector<std::string> broken = {"garbage", "spline 1 1 0 end"};
        for (std::size_t size = 0; size < good.size() - 1; ++size)
            broken.push_back(good.substr(0, size));
        for (const char* time : {"-1", "0,5", "1e999", "nan", "0x1", "1.5.2"})
            broken.push_back(std::string(good).replace(good.find("12345.678"), 9, time));
        broken.push_back(std::string(good).replace(good.find("12345.678"), 9, std::string(1000, '1')));
        for (const char* head : {"5 1 0", "1 -1 0", "1 1 inf"})
            broken.push_back("spline " + std::string(head) + "\n0 0 0 0 0 0 0 0 0 2\nend\n");
        for (const char* rest :
             {"inf 0 0 0 0 0 0 2", "0 nan 0 0 0 0 0 2", "0 0 0 0 0 0 -inf 2", "0 0 0 0 0 0 0 3"})
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
};

QTEST_APPLESS_MAIN(tst_SplineBase)
#include "tst_SplineBase.moc"
