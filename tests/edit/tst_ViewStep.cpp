// SPDX-License-Identifier: MIT
#include <curveeditor/edit/ViewStep.h>

#include <QTest>

#include <cmath>

namespace {

const PlaneMapping view(0.0, 10.0, -5.0, 5.0, 1000, 500);
const ViewStep::Limits limits{{-20.0, 20.0}, {-10.0, 10.0}};

QString text(const PlaneMapping& shown)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(shown.timeMin)
        .arg(shown.timeMax)
        .arg(shown.valueMin)
        .arg(shown.valueMax);
}

} // namespace

class tst_ViewStep : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsGoAsFarAsTheLimitsLet()
    {
        using namespace ViewStep;
        const PlaneMapping outside(15.0, 35.0, -5.0, 5.0, 1000, 500);
        const AxisRange point{3.0, 3.0};
        const QPointF corner(1000.0, 500.0);
        const std::pair<PlaneMapping, const char*> steps[] = {
            {zoomed(view, limits, {200.0, 0.0}, 0.5, 0.5), "1 6 0 5"},
            {zoomed(view, limits, {500.0, 250.0}, 2.0, 1.0), "-5 15 -5 5"},
            {zoomed(view, limits, {0.0, 500.0}, 3.0, 1.5), "-10 20 -5 10"},
            {zoomed(view, limits, corner, 1e300, 1e300), "-20 20 -10 10"},
            {zoomed(view, limits, {0.0, 250.0}, 1e-300, 1.0), "0 1e-09 -5 5"},
            {zoomed(view, limits, corner, 1e-300, 1e-300), "9.998 10 -5 -4.999"},
            {zoomed(outside, limits, corner, 10.0, 1.0), "-20 35 -5 5"},
            {zoomed(view, limits, corner, std::nan(""), 1.0), "0 10 -5 5"},
            {zoomed(view, limits, corner, 0.0, -1.0), "0 10 -5 5"},
            {panned(view, limits, {100.0, 50.0}), "-1 9 -4 6"},
            {panned(view, limits, {-1e300, 1e300}), "10 20 0 10"},
            {panned(outside, limits, {-100.0, 0.0}), "15 35 -5 5"},
            {panned(outside, limits, {100.0, 0.0}), "13 33 -5 5"},
            {panned(view, limits, {std::nan(""), 0.0}), "0 10 -5 5"},
            {showing(view, limits, {1.0, 3.0}, {0.0, 2.0}), "0.9 3.1 -0.2 2.2"},
            {showing(view, limits, {1.0, 30.0}, {-99.0, 99.0}), "-11.9 20 -10 10"},
            {showing(view, limits, point, point), "-2 8 -2 8"},
            {showing(view, limits, {-HUGE_VAL, HUGE_VAL}, point), "0 10 -5 5"},
        };
        for (const auto& [result, expected] : steps)
            QCOMPARE(text(result), QLatin1String(expected));
        QVERIFY(!zoomed(PlaneMapping(), limits, corner, 2.0, 2.0).canShow());
    }
};

QTEST_MAIN(tst_ViewStep)
#include "tst_ViewStep.moc"
