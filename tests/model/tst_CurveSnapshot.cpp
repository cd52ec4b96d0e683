// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveSnapshot.h>
#include <curveeditor/model/SplineState.h>
#include <support/Formulas.h>
#include <support/Test.h>

#include <atomic>
#include <cstdlib>
#include <future>
#include <mutex>
#include <new>

namespace {
thread_local std::size_t allocatedBytes = 0; ///< by this thread, freed ones included
} // namespace

void* operator new(std::size_t size)
{
    allocatedBytes += size;
    if (void* const piece = std::malloc(size))
        return piece;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept
{
    allocatedBytes += size;
    return std::malloc(size);
}
void operator delete(void* piece) noexcept
{
    std::free(piece);
}
void operator delete(void* piece, std::size_t) noexcept
{
    std::free(piece);
}

namespace {

using Snapshot = std::shared_ptr<const CurveSnapshot>;

bool areSame(const std::vector<double>& left, const std::vector<double>& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](double a, double b) {
        return std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b);
    });
}

/// In one block and one by one, and infinite if the two differ or if memory is taken.
std::vector<double> valuesOf(const CurveSnapshot& snapshot, const std::vector<double>& times)
{
    std::vector<double> values(times), single(times);
    const std::size_t before = allocatedBytes;
    snapshot.evaluate(values.data(), values.data(), values.size());
    for (double& number : single)
        number = snapshot(number);
    return allocatedBytes == before && areSame(values, single) ? values : std::vector(1, infinity);
}

void fill(SplineBase& spline, int count)
{
    SplineState state;
    for (int i = 0; i < count; ++i)
        state.points.push_back({.time = double(i), .pos = std::sin(i), .tanLeft = 1.0, .type = i % 4});
    spline.assign(state);
}

} // namespace

class tst_CurveSnapshot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splineKeepsItsValues()
    {
        std::mt19937 random(26);
        const auto below = [&](std::size_t count) {
            return unsigned(std::uniform_int_distribution<std::size_t>(0, count - 1)(random));
        };
        std::vector<double> times{notANumber, infinity, -infinity, -0.0};
        for (int i = 0; i < 900; ++i)
            times.push_back(i % 7 == 0 ? double(below(4000)) - 500.0 : i * 3.7 - 200.0);
        SplineBase spline;
        std::vector<std::pair<Snapshot, std::vector<double>>> taken;
        int round = 0;
        unsigned index = 0;
        const std::function<void()> edits[] = {
            [&] {
                for (unsigned i = below(600); i > 0; --i)
                    spline.addPoint(below(3000), below(100));
            },
            [&] {
                const std::size_t count = spline.getControlPointsNumber();
                for (unsigned i = below(std::min<std::size_t>(300, count - index)); i > 0; --i)
                    spline.remove(spline[index]);
            },
            [&] { spline.setTime(spline.modify(index), below(3000)); },
            [&] { spline.modify(index)->type = int(below(4)); },
            [&] { spline.lastType = int(below(5)), spline.firstType = int(below(2)); },
            [&] { spline.modify(index)->time = below(3000); }, // past the spline
            [&] {
                spline.addPoint(-double(round), 1.0);
                spline.modify(0)->serial = spline.getLast()->serial;
            },
            [&] { round % 40 == 7 ? spline.reset() : spline.mend(); },
        };
        for (; round < 150; ++round) {
            index = below(spline.getControlPointsNumber());
            edits[round % 8]();
            Snapshot previous = taken.empty() || round % 11 == 0 ? nullptr : taken.back().first;
            if (round % 13 == 0)
                previous = CurveSnapshot::of(*parsed("t"), 25.0, CurveVariables());
            std::vector<double> values(times.size());
            spline.evaluate(times.data(), values.data(), times.size());
            taken.emplace_back(CurveSnapshot::of(spline, previous), values);
        }
        for (const auto& [snapshot, values] : taken)
            QVERIFY(areSame(valuesOf(*snapshot, times), values));
    }

    void equalPointsAreShared()
    {
        const std::function<void(SplineBase&)> edits[] = {
            [](SplineBase& spline) { spline.modify(50000)->pos += 1.0; },
            [](SplineBase& spline) { spline.addPoint(-1.0, 0.0); },
            [](SplineBase& spline) { spline.remove(spline[70000]); },
            [](SplineBase& spline) { spline.setTime(spline.modify(9), 1e9); },
            [](SplineBase& spline) { spline.lastType ^= SplineBase::LoopOffset; },
        };
        SplineBase spline;
        fill(spline, 100000);
        Snapshot snapshot = CurveSnapshot::of(spline);
        QCOMPARE(CurveSnapshot::of(spline, snapshot), snapshot);
        for (int i = 0; i < 15; ++i) {
            edits[i / 3](spline);
            const std::size_t before = allocatedBytes;
            const Snapshot next = CurveSnapshot::of(spline, snapshot);
            const std::size_t bytes = allocatedBytes - before;
            QVERIFY(next != snapshot);
            // Two words for each point, and some chunks.
            QVERIFY2(bytes < 100000 * 16 + 200000, qPrintable(QString::number(bytes)));
            snapshot = next;
        }
    }

    void chunksStayLarge()
    {
        for (const int direction : {1, -1}) { // in which it is recorded
            SplineBase spline;
            Snapshot snapshot;
            for (int i = 1; i <= 3000; ++i) {
                spline.addPoint(direction * i, i);
                const std::size_t before = allocatedBytes;
                snapshot = CurveSnapshot::of(spline, snapshot);
                QVERIFY(allocatedBytes - before < std::size_t(i) * 16 + 100000);
            }
            const std::size_t before = allocatedBytes;
            QCOMPARE(CurveSnapshot::of(spline, snapshot), snapshot);
            QVERIFY(allocatedBytes - before < 3000 * 16 + 5000); // few chunks to look through
        }
    }

    /// How long, in milliseconds: CURVEEDITOR_THREADS_RUN.
    void threadsReadWholeStates()
    {
        ReadCurves variables;
        SplineBase a, b;
        std::unique_ptr<FunctionFloatBase> formula;
        FunctionFloatBase* holder = nullptr;
        variables.add("g.a", &a, nullptr);
        variables.add("g.b", &b, nullptr);
        variables.add("g.sum", nullptr, &holder);
        struct State
        {
            Snapshot spline, chain;
        } shared;
        std::mutex mutex;
        std::atomic<bool> isOver = false;
        const auto read = [&] {
            std::vector<double> times(300), values(300);
            for (std::size_t i = 0; i < times.size(); ++i)
                times[i] = double(i) * 2.0 - 50.0;
            double last = 0.0;
            int states = 0;
            while (!isOver) {
                mutex.lock();
                const State state = shared;
                mutex.unlock();
                if (!state.spline)
                    continue;
                state.spline->evaluate(times.data(), values.data(), times.size());
                const double present = (*state.spline)(7.5);
                const bool isWhole = present >= last && areSame(values, std::vector(times.size(), present));
                state.chain->evaluate(times.data(), values.data(), times.size());
                if (!isWhole || (*state.chain)(7.5) != 0.0 || !areSame(values, std::vector(300, 0.0)))
                    return -1;
                states += present > last;
                last = present;
            }
            return states;
        };
        auto first = std::async(std::launch::async, read), second = std::async(std::launch::async, read);
        bool isSet = false;
        const int duration = qEnvironmentVariableIntValue("CURVEEDITOR_THREADS_RUN", &isSet);
        const QDeadlineTimer end(isSet ? duration : 300);
        for (int step = 1; !end.hasExpired(); ++step) {
            for (SplineBase* const spline : {&a, &b}) {
                spline->addPoint(double(step % 500), 0.0);
                if (spline->getControlPointsNumber() > 400)
                    spline->remove((*spline)[unsigned(step % 300)]);
                for (SplineBase::PointInfo* const point : spline->getControlPoints())
                    point->pos = step;
            }
            formula = parsed(step % 2 ? "g.a+g.b" : "g.b+g.a*1");
            holder = formula.get();
            const auto difference = parsed("g.sum-2g.a+0*sin(t)");
            difference->evaluate();
            State next{CurveSnapshot::of(a, shared.spline), CurveSnapshot::of(*difference, 25.0, variables)};
            const std::lock_guard lock(mutex);
            std::swap(shared, next);
        }
        isOver = true;
        QVERIFY(first.get() > 1 && second.get() > 1);
    }
};

QTEST_APPLESS_MAIN(tst_CurveSnapshot)
#include "tst_CurveSnapshot.moc"
