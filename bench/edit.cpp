// SPDX-License-Identifier: MIT
#include <curveeditor/edit/CurveEdit.h>
#include <curveeditor/edit/PointDrag.h>

#include <benchmark/benchmark.h>

#include <QUndoStack>

#include <malloc.h>
#include <optional>

using namespace curveeditor;

namespace {

/// A curve of that many points at whole times, and the door to it.
struct Scene
{
    explicit Scene(std::int64_t count)
    {
        for (std::int64_t i = 1; i < count; ++i)
            spline.addPoint(double(i), double(i % 7));
        selection.selectOnly(spline[unsigned(count / 2)]->serial);
    }
    void press()
    {
        drag.emplace(spline, selection, SplineEdits::Part::Point, PointDrag::Place(), view, false);
        door.begin("drag", {{curve, drag->points()}});
    }
    void step(double value)
    {
        const double time = double(spline.getControlPointsNumber() / 2);
        door.preview(*curve, drag->step(spline, {time, value}, false, view));
    }

    SplineBase spline;
    CurveEdit door;
    std::shared_ptr<EditedCurve> curve = door.history().curve("a.x", &spline, nullptr);
    Selection selection;
    std::optional<PointDrag> drag;
    PlaneMapping view{0.0, 10.0, 0.0, 10.0, 1000, 1000};
};

/// What a press on a point costs without the canvas.
void pressOnAPoint(benchmark::State& state)
{
    Scene scene(state.range(0));
    for (auto _ : state) {
        scene.press();
        state.PauseTiming();
        scene.door.cancel();
        state.ResumeTiming();
    }
}

/// What the release of a drag costs, which makes the entry.
void releaseOfADrag(benchmark::State& state)
{
    Scene scene(state.range(0));
    double value = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        scene.press();
        scene.step(value += 1.0);
        state.ResumeTiming();
        scene.door.commit();
    }
}

/// A step of a drag of one point, the others standing still.
void stepOfADrag(benchmark::State& state)
{
    Scene scene(state.range(0));
    scene.press();
    double value = 0.0;
    for (auto _ : state)
        scene.step(value += 1.0);
}

void undoAndRedo(benchmark::State& state)
{
    Scene scene(state.range(0));
    scene.press();
    scene.step(5.0);
    scene.door.commit();
    for (auto _ : state) {
        scene.door.history().undo();
        scene.door.history().redo();
    }
}

/// Memory that a drag of one point takes until its release; the counter is in bytes.
void memoryOfADrag(benchmark::State& state)
{
    double bytes = 0.0;
    for (auto _ : state) {
        Scene scene(state.range(0));
        const auto held = [] {
            return double(mallinfo2().uordblks + mallinfo2().hblkhd);
        };
        const double before = held();
        scene.press();
        scene.step(5.0);
        bytes = held() - before;
        scene.door.commit();
    }
    state.counters["bytes"] = bytes;
}

/// Memory of 10,000 entries, each a drag of one point of a curve of 1,000; the counter is in bytes an entry.
void entries(benchmark::State& state)
{
    constexpr int count = 10000;
    double bytes = 0.0;
    for (auto _ : state) {
        Scene scene(1000);
        scene.door.history().stack()->setUndoLimit(0);
        const std::size_t before = mallinfo2().uordblks;
        for (int i = 0; i < count; ++i) {
            scene.press();
            scene.step(double(i) + 1.5);
            scene.door.commit();
        }
        bytes = double(mallinfo2().uordblks - before) / count;
    }
    state.counters["bytes"] = bytes;
}

BENCHMARK(pressOnAPoint)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(releaseOfADrag)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(stepOfADrag)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(undoAndRedo)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(memoryOfADrag)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(entries)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
