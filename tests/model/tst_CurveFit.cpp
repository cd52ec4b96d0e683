// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveFit.h>

#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

using CurveFit::Options;
using CurveFit::Result;
using CurveFit::Status;
using Numbers = std::vector<double>;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double huge = std::numeric_limits<double>::max();

Q_DECLARE_METATYPE(Numbers)

Numbers wholeTimes(std::size_t count)
{
    Numbers times(count);
    for (std::size_t i = 0; i < count; ++i)
        times[i] = double(i);
    return times;
}

Numbers sampled(const std::function<double(double)>& function, std::size_t count)
{
    Numbers values = wholeTimes(count);
    std::transform(values.begin(), values.end(), values.begin(), function);
    return values;
}

Numbers noise(std::size_t count)
{
    std::mt19937 random(1);
    return sampled([&](double) { return double(random() % 1000); }, count);
}

class tst_CurveFit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isNearAllSamplesWithFewPoints_data()
    {
        QTest::addColumn<Numbers>("times");
        QTest::addColumn<Numbers>("values");
        QTest::addColumn<double>("tolerance");
        QTest::addColumn<int>("mostPoints");

        const Numbers wave = sampled([](double t) { return std::sin(t / 50.0); }, 1000);
        const Numbers triangle = sampled([](double t) { return std::abs(std::remainder(t, 200.0)); }, 1001);
        const Numbers square =
            sampled([](double t) { return std::fmod(t, 200.0) < 100.0 ? 1.0 : 0.0; }, 1000);
        const Numbers line = sampled([](double t) { return 3.0 - 0.1 * t; }, 500);
        const auto row = [](const char* name, const Numbers& times, const Numbers& values, double tolerance,
                            int most) {
            QTest::newRow(name) << times << values << tolerance << most;
        };
        row("one sample", {4.0}, {5.0}, 0.0, 1);
        row("two samples", {4.0, 6.0}, {5.0, -5.0}, 0.0, 2);
        row("line", wholeTimes(500), line, 1e-12, 2);
        row("standing still", wholeTimes(500), Numbers(500, 0.1), 0.0, 2);
        row("wave", wholeTimes(1000), wave, 0.001, 23);
        row("any distance", wholeTimes(1000), wave, infinity, 2);
        row("each value", wholeTimes(1000), wave, 0.0, 1000);
        row("corners", wholeTimes(1001), triangle, 0.1, 11);
        row("steps", wholeTimes(1000), square, 0.001, 20);
        row("noise", wholeTimes(2000), noise(2000), 1.0, 2000);
        row("within the noise", wholeTimes(2000), noise(2000), 600.0, 4);
        row("step in time", {0.0, 1.0, 2.0, 2.0, 2.0, 3.0, 4.0}, {0.0, 1.0, 2.0, 9.0, 5.0, 4.0, 3.0}, 1e-9,
            4);
        row("steps at both ends", {1.0, 1.0, 2.0, 2.0}, {0.0, 1.0, 1.0, 3.0}, 0.0, 4);
        row("gaps", {0.0, notANumber, 1.0, infinity, 2.0}, {0.0, 7.0, notANumber, 7.0, 2.0}, 0.0, 2);
        row("huge numbers", {-huge, 0.0, 1.0, 2.0, huge}, {-huge, huge, -huge, huge, 1.0}, 1.0, 5);
        row("tiny numbers", {0.0, 5e-324, 1e-323, 1.0}, {0.0, 5e-324, 1e-300, 5e-324}, 0.0, 4);
        row("uneven times", {0.0, 1e-9, 1e-3, 1.0, 1e6, 1e9}, {0.0, 1.0, 2.0, 1.0, 5.0, 4.0}, 0.0, 6);
    }
    void isNearAllSamplesWithFewPoints()
    {
        QFETCH(const Numbers, times);
        QFETCH(const Numbers, values);
        QFETCH(const double, tolerance);
        QFETCH(const int, mostPoints);
        for (const bool monotone : {false, true}) {
            const Result result = CurveFit::fit(times, values, {tolerance, monotone});
            QVERIFY(result.isDone());
            const std::size_t count = result.spline.points.size();
            QVERIFY2(count <= std::size_t(mostPoints), qPrintable(QString::number(count)));
            SplineBase spline;
            QVERIFY(spline.assign(result.spline));
            double greatest = 0.0;
            for (std::size_t i = 0; i < times.size(); ++i) {
                const bool isStep = i + 1 < times.size() && times[i] == times[i + 1];
                if (std::isfinite(times[i]) && std::isfinite(values[i]) && !isStep)
                    greatest = std::max(greatest, std::abs(spline(times[i]) - values[i]));
            }
            QVERIFY2(greatest <= tolerance, qPrintable(QString::number(greatest)));
            QCOMPARE(result.deviation, greatest);
        }
    }
};

QTEST_GUILESS_MAIN(tst_CurveFit)
#include "tst_CurveFit.moc"
