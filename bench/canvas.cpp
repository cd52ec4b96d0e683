// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTextStream>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

constexpr QSize canvasSize(1600, 900);
constexpr int curveCount = 100;
constexpr int pointCount = 1000;
const char* const formula =
    "1/14 cos(t)+3*exp(-(t-520)^2/2000)+8*exp(-(t-600)^2/2000)+2*exp(-(t-700)^2/4000)";

/// A dialog whose canvas shows 100 splines of 1,000 points, or as many expressions, on 1600 x 900 pixels.
class Scene
{
public:
    explicit Scene(int splines = curveCount, int expressions = 0, int points = pointCount)
    {
        editor_.setTimeRange(0.0, points);
        editor_.setMinValue(-3.0);
        editor_.setMaxValue(3.0);
        for (int i = 0; i < splines + expressions; ++i)
            addCurve(i, i >= splines, points);
        editor_.show();
        canvas_ = editor_.findChild<FunctionEditor*>();
        canvas_->setFixedSize(canvasSize);
        QApplication::processEvents();
        if (canvas_->size() != canvasSize)
            std::abort();
    }
    ~Scene()
    {
        for (const auto& curve : curves_)
            delete curve->expression;
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    FunctionEditor& canvas() { return *canvas_; }
    SplineBase::PointInfo* point(unsigned index) { return curves_.back()->spline.modify(index); }
    QPoint pixel(unsigned index)
    {
        return {canvas_->timeToPixel(point(index)->time), canvas_->valueToPixel(point(index)->pos)};
    }
    void send(QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::KeyboardModifiers keys = {})
    {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, at, canvas_->mapToGlobal(at), isMove ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, keys);
        QApplication::sendEvent(canvas_, &event);
    }

private:
    struct Curve
    {
        SplineBase spline;
        FunctionFloatBase* expression = nullptr;
    };

    void addCurve(int number, bool isExpression, int points)
    {
        curves_.push_back(std::make_unique<Curve>());
        Curve& curve = *curves_.back();
        for (int i = 1; i < points; ++i)
            curve.spline.addPoint(i, 2.8 * std::sin(i * 0.02 + number) * std::cos(i * 0.003 + number));
        ParseMessage message;
        if (isExpression)
            curve.expression = FunctionParserBase::instance()->parseString(formula, message);
        const QString name = QString::number(number);
        editor_.addCurve("Bench", name, QColor::fromHsv(number * 3 % 360, 200, 255), 0.0f, &curve.spline,
                         &curve.expression, -10.0f, 10.0f);
        editor_.setDefaultSelected("Bench", name);
    }

    std::vector<std::unique_ptr<Curve>> curves_;
    CurveEditor editor_;
    FunctionEditor* canvas_ = nullptr;
};

/// A move event, all that it causes, and the buffer rendered.
void dragStep(benchmark::State& state, bool formOpen)
{
    Scene scene;
    const QPoint start = scene.pixel(500);
    scene.send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    if (!formOpen)
        scene.canvas().closeNodeForm();
    if (scene.canvas().nodeForm.isActive() != formOpen)
        state.SkipWithError("the node form is not as it should be");
    int step = 0;
    for (auto _ : state)
        scene.send(QEvent::MouseMove, start + QPoint(0, 10 + ++step % 50), Qt::LeftButton);
}
void dragOfAPoint(benchmark::State& state)
{
    dragStep(state, true);
}
void dragOfAPointWithTheFormClosed(benchmark::State& state)
{
    dragStep(state, false);
}

/// What press and release cost in a curve of that many points, beside a repaint of it, which each of them does.
void pressOrRelease(benchmark::State& state, bool isPress)
{
    Scene scene(1, 0, int(state.range(0)));
    const QPoint start = scene.pixel(unsigned(state.range(0) / 2));
    for (auto _ : state) {
        if (!isPress) {
            state.PauseTiming();
            scene.send(QEvent::MouseButtonPress, start, Qt::LeftButton);
            scene.send(QEvent::MouseMove, start + QPoint(0, 20), Qt::LeftButton);
            scene.send(QEvent::MouseMove, start, Qt::LeftButton);
            state.ResumeTiming();
        }
        scene.send(isPress ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, start, Qt::LeftButton);
    }
}
void press(benchmark::State& state)
{
    pressOrRelease(state, true);
}
void release(benchmark::State& state)
{
    pressOrRelease(state, false);
}
void repaintOfOneCurve(benchmark::State& state)
{
    Scene scene(1, 0, int(state.range(0)));
    for (auto _ : state)
        scene.canvas().canvas.paint();
}

void dragOfAllPoints(benchmark::State& state)
{
    Scene scene;
    for (unsigned i = 0; i < pointCount; ++i)
        scene.canvas().canvas.currentControl()->toggleSelected(scene.point(i));
    const QPoint start(800, 20);
    scene.send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    int step = 0;
    for (auto _ : state) {
        ++step;
        scene.send(QEvent::MouseMove, start + QPoint(step % 50, step % 40), Qt::LeftButton);
    }
}

void repaintOfAStableView(benchmark::State& state)
{
    Scene scene;
    for (auto _ : state)
        scene.canvas().canvas.paint();
}

/// A pan step: every curve is sampled and drawn anew.
void panStep(benchmark::State& state, Scene& scene)
{
    scene.canvas().zoomView(-400, 200);
    scene.send(QEvent::MouseButtonPress, QPoint(800, 450), Qt::MiddleButton, Qt::AltModifier);
    int step = 0;
    for (auto _ : state)
        scene.send(QEvent::MouseMove, QPoint(800 + ++step % 50, 450), Qt::MiddleButton, Qt::AltModifier);
}
void viewChange(benchmark::State& state)
{
    Scene scene;
    panStep(state, scene);
}
void viewChangeWithOneExpression(benchmark::State& state)
{
    Scene scene(0, 1);
    panStep(state, scene);
}
void viewChangeWithALargePicture(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath("picture.jpg");
    QImage picture(6000, 4000, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x * y % 256, x % 256, y % 256));
    }
    picture.save(fileName);
    Scene scene(1);
    scene.canvas().canvas.loadImage(fileName);
    panStep(state, scene);
}

/// 400 rows of 100 curves, half of them expressions.
void sensorTable(benchmark::State& state)
{
    Scene scene(curveCount / 2, curveCount / 2);
    scene.canvas().setLimitTimeMin(0.0);
    scene.canvas().setLimitTimeMax(399.0);
    for (auto _ : state) {
        QByteArray text;
        QTextStream out(&text);
        if (!scene.canvas().canvas.exportSensorData(out))
            state.SkipWithError("no table");
    }
}

BENCHMARK(dragOfAPoint)->Unit(benchmark::kMillisecond);
BENCHMARK(dragOfAPointWithTheFormClosed)->Unit(benchmark::kMillisecond);
BENCHMARK(press)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(release)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(repaintOfOneCurve)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(dragOfAllPoints)->Unit(benchmark::kMillisecond);
BENCHMARK(repaintOfAStableView)->Unit(benchmark::kMillisecond);
BENCHMARK(viewChange)->Unit(benchmark::kMillisecond);
BENCHMARK(viewChangeWithOneExpression)->Unit(benchmark::kMillisecond);
BENCHMARK(viewChangeWithALargePicture)->Unit(benchmark::kMillisecond);
BENCHMARK(sensorTable)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
}
