// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/PointCommands.h>
#include <curveeditor/edit/PointText.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QClipboard>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextStream>
#include <QWheelEvent>

#include <qcustomplot.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <vector>

using namespace curveeditor;

namespace {

constexpr QSize canvasSize(1600, 900);
constexpr int curveCount = 100;
constexpr int pointCount = 1000;
enum Page { Envelope, Expression, Points };
const char* const formula =
    "1/14 cos(t)+3*exp(-(t-520)^2/2000)+8*exp(-(t-600)^2/2000)+2*exp(-(t-700)^2/4000)";

/// What the canvas shows, 100 smooth splines of 1,000 points within their bounds if nothing else is said.
struct Content
{
    int splines = curveCount;
    int expressions = 0;
    int points = pointCount;
    double swings = 3.0;   ///< across the view
    float bound = 10.0f;   ///< the values reach 2.8
    bool isThemed = false; ///< with smooth lines
    bool hasWave = false;  ///< as underlay, of a million samples
    bool scales = false;   ///< each curve by itself
};

void paintWave(QPainter& painter, const PlaneMapping& plane)
{
    static const std::vector<float> samples = [] {
        std::vector<float> wave(1000000);
        for (std::size_t i = 0; i < wave.size(); ++i)
            wave[i] = float(std::sin(double(i) * 0.05) * std::cos(double(i) * 0.0001));
        return wave;
    }();
    const std::size_t share = samples.size() / std::size_t(plane.pixelWidth);
    painter.setPen(Qt::darkGray);
    for (int column = 0; column < plane.pixelWidth; ++column) {
        const auto first = samples.begin() + std::ptrdiff_t(share) * column;
        const auto [low, high] = std::minmax_element(first, first + std::ptrdiff_t(share));
        painter.drawLine(QPointF(column, plane.row(*low)), QPointF(column, plane.row(*high)));
    }
}

/// A dialog whose canvas has 1600 x 900 logical pixels.
class Scene
{
public:
    explicit Scene(const Content& content = {})
    {
        if (content.isThemed)
            editor_.setTheme(CurveEditorTheme::dark());
        editor_.setTimeRange(0.0, content.points);
        editor_.setMinValue(-3.0);
        editor_.setMaxValue(3.0);
        for (int i = 0; i < content.splines + content.expressions; ++i)
            addCurve(i, content);
        editor_.show();
        canvas_ = editor_.findChild<FunctionEditor*>();
        canvas_->setFixedSize(canvasSize);
        QApplication::processEvents();
        if (canvas_->size() != canvasSize)
            std::abort();
        if (content.hasWave)
            editor_.setUnderlay(paintWave);
        canvas_->canvas.setOwnScale(content.scales);
    }
    ~Scene()
    {
        for (const auto& curve : curves_)
            delete curve->expression;
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    CurveEditor& editor() { return editor_; }
    FunctionEditor& canvas() { return *canvas_; }
    SplineBase& spline() { return curves_.back()->spline; }
    SplineBase::PointInfo* point(unsigned index) { return spline().modify(index); }
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
    void turnWheel(const QPointF& at, int notches)
    {
        QWheelEvent event(at, canvas_->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(canvas_, &event);
    }
    void open(Page page) { editor_.tabWidget2->setCurrentIndex(page); }
    /// What the last calls made out of date reaches the screen.
    void show() { QApplication::processEvents(); }

private:
    struct Curve
    {
        SplineBase spline;
        FunctionFloatBase* expression = nullptr;
    };

    void addCurve(int number, const Content& content)
    {
        curves_.push_back(std::make_unique<Curve>());
        Curve& curve = *curves_.back();
        const double pace = 2.0 * M_PI * content.swings / content.points;
        for (int i = 1; i < content.points; ++i)
            curve.spline.addPoint(i, 2.8 * std::sin(i * pace + number) * std::cos(i * pace * 0.15 + number));
        ParseMessage message;
        if (number >= content.splines)
            curve.expression = FunctionParserBase::instance()->parseString(formula, message);
        const QString name = QString::number(number);
        editor_.addCurve("Bench", name, QColor::fromHsv(number * 3 % 360, 200, 255), 0.0f, &curve.spline,
                         &curve.expression, -content.bound, content.bound);
        editor_.setDefaultSelected("Bench", name);
    }

    std::vector<std::unique_ptr<Curve>> curves_;
    CurveEditor editor_;
    FunctionEditor* canvas_ = nullptr;
};

/// The peer: QCustomPlot with the same curves, sampled at the 1000 times that the canvas takes.
class Peer
{
public:
    explicit Peer(double swings = 3.0, bool isAntialiased = false)
    {
        plot_.resize(canvasSize);
        plot_.setBackground(Qt::black);
        plot_.yAxis->setRange(-3.0, 3.0);
        for (int number = 0; number < curveCount; ++number) {
            for (int i = 0; i <= pointCount; ++i) {
                const double pace = 2.0 * M_PI * swings / pointCount;
                times_[i] = i;
                values_[i] = 2.8 * std::sin(i * pace + number) * std::cos(i * pace * 0.15 + number);
            }
            plot_.addGraph()->setPen(QPen(QColor::fromHsv(number * 3 % 360, 200, 255), 1));
            plot_.graph()->setAntialiased(isAntialiased);
            plot_.graph()->setData(times_, values_, true);
        }
        plot_.show();
        showView(0);
    }
    void showView(int step)
    {
        plot_.xAxis->setRange(step % 50, pointCount);
        show();
    }
    void showEdit(int step)
    {
        values_[pointCount / 2] = step % 5 * 0.1;
        plot_.graph()->setData(times_, values_, true);
        show();
    }
    void show()
    {
        plot_.replot(QCustomPlot::rpImmediateRefresh);
        QApplication::processEvents();
    }

private:
    QCustomPlot plot_;
    QVector<double> times_ = QVector<double>(pointCount + 1);
    QVector<double> values_ = times_;
};

/// Prints how many times longer the peer takes, in CPU time of this run.
void compare(benchmark::State& state, const std::function<void(int)>& peerStep, int steps = 20)
{
    const std::clock_t start = std::clock();
    for (int i = 0; i < steps; ++i)
        peerStep(i);
    const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC / steps;
    state.counters["QCustomPlot_ms"] = seconds * 1000.0;
    state.counters["QCustomPlot/ours"] =
        benchmark::Counter(seconds, benchmark::Counter::kIsIterationInvariantRate);
}

/// A move event, all that it causes, and the frame shown.
void dragStep(benchmark::State& state, const Content& content, bool formOpen = true, Page page = Envelope)
{
    Scene scene(content);
    scene.open(page);
    const QPoint start = scene.pixel(unsigned(content.points / 2));
    scene.send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    if (!formOpen)
        scene.canvas().closeNodeForm();
    if (scene.canvas().nodeForm.isActive() != formOpen)
        state.SkipWithError("the node form is not as it should be");
    scene.show();
    int step = 0;
    for (auto _ : state) {
        scene.send(QEvent::MouseMove, start + QPoint(0, 10 + ++step % 50), Qt::LeftButton);
        scene.show();
    }
    if (content.splines == curveCount && content.points == pointCount && page == Envelope &&
        !content.isThemed && !content.hasWave) {
        Peer peer(content.swings);
        compare(state, [&peer](int number) { peer.showEdit(number); });
    }
}

void selectAllPoints(Scene& scene)
{
    std::vector<PointSerial> points;
    for (const SplineBase::PointInfo* point : scene.spline().getControlPoints())
        points.push_back(point->serial);
    scene.canvas().canvas.currentControl()->selection().selectAll(points);
}

/// What press and release cost in a curve of that many points, one or all of which are dragged, beside a repaint of it,
/// which each of them does.
void pressOrRelease(benchmark::State& state, bool isPress, bool ofAll)
{
    Scene scene(Content{.splines = 1, .points = int(state.range(0))});
    const QPoint start = scene.pixel(unsigned(state.range(0) / 2));
    if (ofAll)
        selectAllPoints(scene);
    for (auto _ : state) {
        state.PauseTiming();
        if (!isPress) {
            scene.send(QEvent::MouseButtonPress, start, Qt::LeftButton);
            scene.send(QEvent::MouseMove, start + QPoint(0, 20), Qt::LeftButton);
            scene.send(QEvent::MouseMove, start + QPoint(0, 1), Qt::LeftButton);
        }
        state.ResumeTiming();
        if (isPress)
            scene.send(QEvent::MouseButtonPress, start, Qt::LeftButton);
        else
            scene.send(QEvent::MouseButtonRelease, start + QPoint(0, 1), Qt::LeftButton);
        scene.show();
        state.PauseTiming();
        if (isPress) {
            scene.send(QEvent::MouseMove, start + QPoint(0, 1), Qt::LeftButton);
            scene.send(QEvent::MouseButtonRelease, start + QPoint(0, 1), Qt::LeftButton);
        }
        state.ResumeTiming();
    }
}

void repaintOfOneCurve(benchmark::State& state)
{
    Scene scene(Content{.splines = 1, .points = int(state.range(0))});
    for (auto _ : state) {
        scene.canvas().canvas.paint();
        scene.show();
    }
}

void dragOfAllPoints(benchmark::State& state)
{
    Scene scene(
        Content{.splines = state.range(0) == pointCount ? curveCount : 1, .points = int(state.range(0))});
    selectAllPoints(scene);
    const QPoint start(800, 20);
    scene.send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    scene.show();
    int step = 0;
    for (auto _ : state) {
        ++step;
        scene.send(QEvent::MouseMove, start + QPoint(step % 50, step % 40), Qt::LeftButton);
        scene.show();
    }
}

/// A move over a transform box about so many points, or a step of pulling its upper right corner or of moving it.
void transformBox(benchmark::State& state, bool isPressed, const QPoint& at)
{
    Scene scene(Content{.splines = 1, .points = int(state.range(0))});
    selectAllPoints(scene);
    scene.canvas().transformBox.toggle();
    const QPoint corner(scene.pixel(unsigned(state.range(0)) - 1).x(), scene.canvas().valueToPixel(2.8));
    const QPoint start = at.isNull() ? corner : at;
    if (isPressed)
        scene.send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    scene.show();
    int step = 0;
    for (auto _ : state) {
        ++step;
        scene.send(QEvent::MouseMove, start + QPoint(step % 50 - 60, step % 40),
                   isPressed ? Qt::LeftButton : Qt::NoButton);
        scene.show();
    }
    if (!scene.canvas().transformBox.isShown() || scene.canvas().gesture.isBusy() != isPressed)
        state.SkipWithError("the box is not as it should be");
}

/// Presses there with all points of all curves selected.
void grabAllCurves(Scene& scene, const QPoint& at)
{
    scene.canvas().canvas.setEditsAllCurves(true);
    PointCommands(scene.canvas().canvas).selectAll();
    scene.send(QEvent::MouseButtonPress, at, Qt::LeftButton);
    scene.show();
}
void dragOfAllCurves(benchmark::State& state, const Content& content)
{
    Scene scene(content);
    const QPoint start(800, 20);
    grabAllCurves(scene, start);
    int step = 0;
    for (auto _ : state) {
        ++step;
        scene.send(QEvent::MouseMove, start + QPoint(step % 50, step % 40), Qt::LeftButton);
        scene.show();
    }
}
/// Back, the next one forth again.
void undoOfAllCurves(benchmark::State& state, const Content& content)
{
    Scene scene(content);
    const QPoint start(800, 20);
    grabAllCurves(scene, start);
    scene.send(QEvent::MouseMove, start + QPoint(30, 20), Qt::LeftButton);
    scene.send(QEvent::MouseButtonRelease, start + QPoint(30, 20), Qt::LeftButton);
    scene.show();
    const double moved = scene.point(pointCount / 2)->pos;
    int step = 0;
    for (auto _ : state) {
        if (++step % 2 != 0)
            scene.editor().undo();
        else
            scene.editor().redo();
        scene.show();
        if ((scene.point(pointCount / 2)->pos == moved) != (step % 2 == 0))
            state.SkipWithError("the points are not where they should be");
    }
}

void repaintOfAStableView(benchmark::State& state)
{
    Scene scene;
    for (auto _ : state) {
        scene.canvas().canvas.paint();
        scene.show();
    }
    Peer peer;
    compare(state, [&peer](int) { peer.show(); });
}

void tickOfTheTimeLine(benchmark::State& state)
{
    Scene scene;
    int step = 0;
    for (auto _ : state) {
        scene.editor().setTimeLine(double(++step % pointCount));
        scene.show();
    }
}

/// A pan step: every curve is sampled and drawn anew.
void panStep(benchmark::State& state, Scene& scene)
{
    scene.canvas().zoomView(-400, 200);
    scene.send(QEvent::MouseButtonPress, QPoint(800, 450), Qt::MiddleButton, Qt::AltModifier);
    int step = 0;
    for (auto _ : state) {
        scene.send(QEvent::MouseMove, QPoint(800 + ++step % 50, 450), Qt::MiddleButton, Qt::AltModifier);
        scene.show();
    }
}
void viewChange(benchmark::State& state, const Content& content)
{
    Scene scene(content);
    panStep(state, scene);
    if (content.splines == curveCount && content.bound > 3.0f) {
        Peer peer(content.swings, content.isThemed);
        compare(
            state, [&peer](int number) { peer.showView(number); }, content.isThemed ? 2 : 20);
    }
}
/// A notch in, the next one out again, so that all curves stay in view.
/// The mouse goes over the canvas: what is below it is looked for, and the frame shows it.
void hover(benchmark::State& state, const Content& content)
{
    Scene scene(content);
    scene.show();
    int step = 0;
    for (auto _ : state) {
        ++step;
        scene.send(QEvent::MouseMove, QPoint(100 + step % 1000, 60 + step % 500), Qt::NoButton);
        scene.show();
    }
}

void wheelStep(benchmark::State& state)
{
    Scene scene;
    int step = 0;
    for (auto _ : state) {
        scene.turnWheel({800.0, 450.0}, ++step % 2 == 0 ? -1 : 1);
        scene.show();
    }
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
    Scene scene(Content{.splines = 1});
    scene.canvas().canvas.loadImage(fileName);
    panStep(state, scene);
}

/// A table of that many points on the clipboard goes into a curve of 1,000.
void paste(benchmark::State& state)
{
    std::vector<SplineBase::PointInfo> points(std::size_t(state.range(0)));
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i].time = double(i) * pointCount / double(points.size()) + 0.01;
        points[i].pos = std::sin(double(i));
    }
    Scene scene(Content{.splines = 1});
    QGuiApplication::clipboard()->setText(PointText::write(points));
    PointCommands commands(scene.canvas().canvas);
    for (auto _ : state) {
        commands.paste(PointCommands::Paste::WhereTheyWere);
        scene.show();
        state.PauseTiming();
        if (scene.spline().getControlPointsNumber() != unsigned(pointCount + state.range(0)))
            state.SkipWithError("the points have not come");
        scene.editor().undo();
        scene.show();
        state.ResumeTiming();
    }
}

/// The page "Points" comes to the front and has to show rows that it has not shown yet.
void openingTheTable(benchmark::State& state)
{
    Scene scene(Content{.splines = 1, .points = int(state.range(0))});
    const auto* const table = scene.editor().findChild<QTableView*>();
    int added = 0;
    for (auto _ : state) {
        state.PauseTiming();
        scene.open(Envelope);
        scene.spline().addPoint(double(state.range(0) + ++added), 0.0);
        scene.editor().updateCurves();
        scene.show();
        state.ResumeTiming();
        scene.open(Points);
        scene.show();
        if (table->model()->rowCount() != int(state.range(0)) + added)
            state.SkipWithError("the rows are not shown");
    }
}

/// 400 rows of 100 curves, half of them expressions.
void sensorTable(benchmark::State& state)
{
    Scene scene(Content{.splines = curveCount / 2, .expressions = curveCount / 2});
    scene.canvas().setLimitTimeMin(0.0);
    scene.canvas().setLimitTimeMax(399.0);
    for (auto _ : state) {
        QByteArray text;
        QTextStream out(&text);
        if (!scene.canvas().canvas.exportSensorData(out))
            state.SkipWithError("no table");
    }
}

/// The dialog stands on the screen while that many curves come onto its canvas, with events between them or without.
void openingCurves(benchmark::State& state, bool oneByOne)
{
    std::vector<SplineBase> splines(std::size_t(state.range(0)));
    std::vector<FunctionFloatBase*> expressions(splines.size(), nullptr);
    for (SplineBase& spline : splines) {
        for (int i = 1; i < 10; ++i)
            spline.addPoint(i, i % 3);
    }
    for (auto _ : state) {
        CurveEditor editor;
        editor.show();
        for (std::size_t i = 0; i < splines.size(); ++i) {
            const QString name = QString::number(i);
            editor.addCurve("Bench", name, Qt::red, 0.0f, &splines[i], &expressions[i], -10.0f, 10.0f);
            editor.setDefaultSelected("Bench", name);
            if (oneByOne)
                QApplication::processEvents();
        }
    }
}

const Content themed{.isThemed = true};
const Content themedSwinging{.swings = 50.0, .isThemed = true};
const Content themedClamped{.bound = 2.0f, .isThemed = true};
const Content themedClampedSwinging{.swings = 50.0, .bound = 2.0f, .isThemed = true};
const Content overWave{.hasWave = true};
const Content scaled{.scales = true};
const Content scaledFormulas{.splines = 0, .expressions = curveCount, .scales = true};
const Content swinging{.swings = 50.0};
const Content clamped{.bound = 2.0f};
const Content clampedSwinging{.swings = 50.0, .bound = 2.0f};
const Content dense{.points = 10000};
const Content oneLong{.splines = 1, .points = 100000};
const Content oneVeryLong{.splines = 1, .points = 1000000};
const Content formulas{.splines = 0, .expressions = curveCount};
const Content oneFormula{.splines = 0, .expressions = 1};

BENCHMARK_CAPTURE(dragStep, smooth, Content())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, smoothOverAWave, overWave)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, scaled, scaled)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, themed, themed)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, smoothWithTheFormClosed, Content(), false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, swinging, swinging)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, themedClamped, themedClamped)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, clamped, clamped)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, dense, dense)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, oneLong, oneLong)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, oneVeryLong, oneVeryLong)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, smoothBesideTheTable, Content(), true, Points)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragStep, oneLongBesideTheTable, oneLong, true, Points)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pressOrRelease, press, true, false)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pressOrRelease, release, false, false)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pressOrRelease, pressOfAll, true, true)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pressOrRelease, releaseOfAll, false, true)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(repaintOfOneCurve)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(dragOfAllPoints)->Arg(pointCount)->Arg(40000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(transformBox, hover, false, QPoint(800, 400))->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(transformBox, move, true, QPoint(800, 400))->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(transformBox, scale, true, QPoint())->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragOfAllCurves, smooth, Content())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragOfAllCurves, scaled, scaled)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragOfAllCurves, themed, themed)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(undoOfAllCurves, smooth, Content())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(undoOfAllCurves, themed, themed)->Unit(benchmark::kMillisecond);
BENCHMARK(repaintOfAStableView)->Unit(benchmark::kMillisecond);
BENCHMARK(tickOfTheTimeLine)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, smooth, Content())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, scaled, scaled)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, scaledFormulas, scaledFormulas)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, themed, themed)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, themedSwinging, themedSwinging)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, themedClamped, themedClamped)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, themedClampedSwinging, themedClampedSwinging)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, clamped, clamped)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, clampedSwinging, clampedSwinging)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, swinging, swinging)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, formulas, formulas)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, oneFormula, oneFormula)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(viewChange, oneVeryLong, oneVeryLong)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hover, smooth, Content())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hover, themed, themed)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hover, formulas, formulas)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hover, oneVeryLong, oneVeryLong)->Unit(benchmark::kMillisecond);
BENCHMARK(wheelStep)->Unit(benchmark::kMillisecond);
BENCHMARK(paste)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(openingTheTable)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(viewChangeWithALargePicture)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openingCurves, oneByOne, true)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openingCurves, atOnce, false)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
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
