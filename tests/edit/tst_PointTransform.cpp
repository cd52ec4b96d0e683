// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PointTransform.h>
#include <support/Test.h>

/// Points with everything at random; some share a time.
SplineState randomState(std::mt19937& random)
{
    const auto number = [&](double bound) {
        return std::uniform_real_distribution<double>(-bound, bound)(random);
    };
    const auto ease = [&] {
        return random() % 2 ? number(1.0) : 0.0;
    };
    SplineState state;
    for (double time = -3.0; state.points.size() < 9; time += random() % 6 == 0 ? 0.0 : 1.1 + number(1.0))
        state.points.push_back({time, number(4.0), number(3.0), number(3.0), number(1.0), number(1.0),
                                number(1.0), ease(), ease(), int(random() % 4)});
    return state;
}

struct Scene
{
    explicit Scene(const SplineState& state) { spline.assign(state); }
    std::vector<PointSerial> serials(const std::set<int>& indices) const
    {
        std::vector<PointSerial> found;
        for (const int index : indices)
            found.push_back(spline[unsigned(index)]->serial);
        return found;
    }
    SplineBase spline;
};

const std::set<int> all = {0, 1, 2, 3, 4, 5, 6, 7, 8};

class tst_PointTransform : public QObject
{
    Q_OBJECT

    using Refusals = Rows<PlaneTransform, bool>;

private Q_SLOTS:
    void segmentsKeepTheirShape()
    {
        std::mt19937 random(20);
        // All points, some in a row, the first ones, and with gaps.
        for (const auto& selected :
             std::vector<std::set<int>>{all, {2, 3, 4, 5}, {0, 1, 2}, {0, 1, 3, 4, 5, 8}}) {
            int checked = 0;
            for (const double a : {1.0, 0.4, 2.5, -1.0, -0.3, -4.0}) {
                for (const double b : {1.0, 0.0, -1.5, 2.0}) {
                    for (int run = 0; run < 20; ++run)
                        checked += checkShape(randomState(random), selected, {{a, 0.7, 0.5}, {b, -0.2, 0.1}});
                }
            }
            QVERIFY(checked > 500);
        }
    }

    void acrossAndBackIsAsItWas()
    {
        std::mt19937 random(3);
        for (int run = 0; run < 50; ++run) {
            Scene scene(randomState(random));
            const SplineState before = scene.spline.state();
            const PointTransform points(scene.spline, scene.serials({1, 2, 4, 5, 6}));
            for (const PlaneTransform& step :
                 {PlaneTransform{{-3.0, 1.0}, {-1.0}}, PlaneTransform{{0.1, 2.0}, {}},
                  PlaneTransform{{1.0, 0.0, 7.0}, {}}, PlaneTransform()})
                scene.spline.assign(points.applied(scene.spline, step)->state);
            QVERIFY(scene.spline.state() == before);
        }
    }

    void mirroredTypesGoOnAndAroundAndMovedPointsKeepThem()
    {
        std::mt19937 random(5);
        const Scene scene(randomState(random));
        SplineState due = scene.spline.state();
        const auto after = PointTransform(scene.spline, scene.serials(all))
                               .applied(scene.spline, {{-1.0}, {}})
                               ->state.points;
        for (std::size_t i = 0; i < after.size(); ++i)
            QCOMPARE(after[i].type, due.points[(after.size() - i) % after.size()].type);
        for (const std::size_t index : {3U, 4U})
            due.points[index].pos += 2.0;
        const PointTransform points(scene.spline, scene.serials({3, 4}));
        QVERIFY(points.applied(scene.spline, {{}, {1.0, 0.0, 2.0}})->state == due);
    }

    void whatTheHostDoesMeanwhileStays()
    {
        std::mt19937 random(7);
        Scene scene(randomState(random));
        const PointTransform points(scene.spline, scene.serials({2, 3}));
        const PointSerial lost = scene.spline[2]->serial;
        scene.spline.remove(scene.spline[2]);
        scene.spline.setPos(scene.spline.modify(0), 77.0);
        scene.spline.addPoint(-9.0, 5.0);
        const SplineState state = points.applied(scene.spline, {{2.0}, {}})->state;
        QCOMPARE(state.points.size(), 9u);
        QCOMPARE(state.points[1].pos, 77.0);
        QVERIFY(std::none_of(state.points.begin(), state.points.end(),
                             [lost](const auto& point) { return point.serial == lost; }));
    }

    void refusesWhatIsNoCurve_data()
    {
        const Refusals rows;
        rows("no time", {{0.0}, {}}, false);
        rows("no value", {{}, {0.0}}, true);
        rows("not-a-number in time", {{notANumber}, {}}, false);
        rows("not-a-number in value", {{}, {notANumber}}, false);
        rows("huge in time", {{1e308, -1.0}, {}}, false);
        rows("huge in value", {{}, {1e308, -9.0}}, false);
        rows("slopes without end", {{1e-320}, {}}, false);
        rows("pushed beyond all times", {{1.0, 0.0, infinity}, {}}, false);
    }
    void refusesWhatIsNoCurve()
    {
        const auto [transform, isPossible] = Refusals::present();
        std::mt19937 random(8);
        Scene scene(randomState(random));
        QCOMPARE(
            PointTransform(scene.spline, scene.serials(all)).applied(scene.spline, transform).has_value(),
            isPossible);
    }

private:
    /// Compares the segments between selected points with the closed form, and gives their number.
    static int checkShape(const SplineState& state, const std::set<int>& selected,
                          const PlaneTransform& transform)
    {
        Scene scene(state), after(state);
        const PointTransform points(scene.spline, scene.serials(selected));
        const PointTransform::Result result = points.applied(scene.spline, transform).value();
        after.spline.assign(result.state);
        const bool isMirrored = transform.mirrorsTime();
        const auto isOther = [&](const SplineBase& spline, int index) {
            const auto* const point = index < 0 ? nullptr : spline[unsigned(index)];
            const int was = point ? scene.spline.findIndex(point->serial, 0.0) : -1;
            return was >= 0 && !selected.count(was);
        };
        int checked = 0;
        bool mayBend = false;
        for (unsigned end = 1; end < scene.spline.getControlPointsNumber(); ++end) {
            const SplineBase::PointInfo &from = *scene.spline[end - 1], &to = *scene.spline[end];
            const int start = after.spline.findIndex(isMirrored ? to.serial : from.serial, 0.0);
            if (!selected.count(int(end) - 1) || !selected.count(int(end)) ||
                after.spline[unsigned(start + 1)] == nullptr ||
                after.spline[unsigned(start + 1)]->serial != (isMirrored ? from.serial : to.serial))
                continue;
            const bool isBeside = isOther(scene.spline, int(end) - 2) ||
                                  isOther(scene.spline, int(end) + 1) || isOther(after.spline, start - 1) ||
                                  isOther(after.spline, start + 2);
            const bool isEased = from.easeFrom != 0.0 || to.easeTo != 0.0;
            if (to.type == SplineBase::Tcb && isBeside && (isEased || transform.keepsSize())) {
                mayBend = true;
                continue;
            }
            for (double u = 0.05; u < 1.0 && to.time > from.time; u += 0.1) {
                const double time = from.time + u * (to.time - from.time);
                const double was = to.type == SplineBase::Hold && isMirrored ? to.pos : scene.spline(time);
                const double now = after.spline(transform.time(time)), due = transform.value(was);
                if (!(std::abs(now - due) <= 1e-12 * 8.0 * std::max(1.0, std::abs(transform.value.factor))))
                    QTest::qFail("another shape", __FILE__, __LINE__);
            }
            ++checked;
        }
        if (result.mayBend != mayBend)
            QTest::qFail("a bend is not told", __FILE__, __LINE__);
        return checked;
    }
};

QTEST_APPLESS_MAIN(tst_PointTransform)
#include "tst_PointTransform.moc"
