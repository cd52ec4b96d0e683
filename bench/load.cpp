// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QUndoStack>
#include <QWheelEvent>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr QSize canvasSize(1600, 900);

/// What a host hands over. The first curve is the one that is dragged; the others may be formulas.
struct Load
{
    const char* name;
    int curves;             ///< registered
    int shown;              ///< of them on the canvas
    int points;             ///< of each spline
    bool isChain = false;   ///< each curve but the first reads the one before, twice
    std::size_t length = 0; ///< in bytes, of the formula of the second curve, which reads the first
};

const Load loads[] = {
    {.name = "100 curves, none shown", .curves = 100, .shown = 0, .points = 1000},
    {.name = "1,000 curves, none shown", .curves = 1000, .shown = 0, .points = 1000},
    {.name = "10,000 curves, none shown", .curves = 10000, .shown = 0, .points = 10},
    {.name = "100 curves, 10 shown", .curves = 100, .shown = 10, .points = 1000},
    {.name = "1,000 curves, 100 shown", .curves = 1000, .shown = 100, .points = 1000},
    {.name = "100 curves, all shown", .curves = 100, .shown = 100, .points = 10},
    {.name = "1,000 curves, all shown", .curves = 1000, .shown = 1000, .points = 10},
    {.name = "100,000 points", .curves = 1, .shown = 1, .points = 100000},
    {.name = "1,000,000 points", .curves = 1, .shown = 1, .points = 1000000},
    {.name = "formula of 100 kB",
     .curves = 2,
     .shown = 2,
     .points = 10,
     .length = FunctionParserBase::maximumLength / 10},
    {.name = "formula of 1 MB",
     .curves = 2,
     .shown = 2,
     .points = 10,
     .length = FunctionParserBase::maximumLength},
    {.name = "chain of 10", .curves = 10, .shown = 10, .points = 1000, .isChain = true},
    {.name = "chain of 100", .curves = 100, .shown = 100, .points = 1000, .isChain = true},
};

std::string formulaOf(const Load& load, int number)
{
    if (load.isChain && number > 0) {
        const std::string before = "load." + std::to_string(number - 1);
        return "0.6 * " + before + " + 0.4 * sin(" + before + ")";
    }
    if (load.length == 0 || number == 0)
        return {};
    std::string text = "load.0";
    while (text.size() + 6 <= load.length)
        text += "+t*0.1";
    return text;
}

/// The data of a host, and a dialog that edits them.
class Host
{
public:
    explicit Host(const Load& load)
        : load_(load), splines_(std::size_t(load.curves)), expressions_(splines_.size(), nullptr)
    {
        FunctionParserBase::instance()->setVarMapper(&variables_);
        for (int number = 0; number < load.curves; ++number) {
            SplineBase& spline = splines_[std::size_t(number)];
            FunctionFloatBase*& expression = expressions_[std::size_t(number)];
            for (int i = 1; i < load.points; ++i)
                spline.addPoint(i, 2.8 * std::sin(i * 6.0 * M_PI / load.points + number));
            ParseMessage message;
            const std::string text = formulaOf(load, number);
            if (!text.empty())
                expression = FunctionParserBase::instance()->parseString(text, message);
            if (!text.empty() && !expression)
                std::abort();
            variables_.add("load." + std::to_string(number), &spline, &expression);
        }
    }
    ~Host()
    {
        close();
        for (const FunctionFloatBase* const expression : expressions_)
            delete expression;
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void open()
    {
        editor_ = std::make_unique<CurveEditor>();
        editor_->setTimeRange(0.0, load_.points);
        for (int number = load_.curves - 1; number >= 0; --number) {
            const auto index = std::size_t(number);
            editor_->addCurve("load", QString::number(number), Qt::red, 0.0F, &splines_[index],
                              &expressions_[index], -10.0F, 10.0F);
        }
        for (int number = load_.shown - 1; number >= 0; --number)
            editor_->setDefaultSelected("load", QString::number(number));
        canvas_ = editor_->findChild<FunctionEditor*>();
        canvas_->setFixedSize(canvasSize);
        editor_->show();
        QApplication::processEvents();
    }
    void close() { editor_.reset(); }

    void press()
    {
        const SplineBase::PointInfo* const point = splines_[0].modify(unsigned(load_.points / 2));
        start_ = {canvas_->timeToPixel(point->time), canvas_->valueToPixel(point->pos)};
        send(QEvent::MouseButtonPress, start_);
    }
    void drag(int step) { send(QEvent::MouseMove, start_ + QPoint(0, 10 + step % 50)); }
    void release() { send(QEvent::MouseButtonRelease, start_ + QPoint(0, 10)); }
    /// A notch in, the next one out again, so that all curves stay in view.
    void turnWheel(int step)
    {
        const QPointF at(800.0, 450.0);
        QWheelEvent event(at, canvas_->mapToGlobal(at), {}, {0, step % 2 == 0 ? -120 : 120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(canvas_, &event);
        QApplication::processEvents();
    }
    /// What there is to be taken back: a formula is gone, or a point has moved.
    void edit()
    {
        if (load_.length > 0) {
            editor_->setDefaultSelected("load", "1");
            editor_->resetSelectedF();
        } else {
            press();
            drag(0);
            release();
        }
        QApplication::processEvents();
    }
    void step(bool isUndo)
    {
        isUndo ? editor_->undo() : editor_->redo();
        QApplication::processEvents();
    }
    bool canUndo() const { return editor_->undoStack()->canUndo(); }

private:
    void send(QEvent::Type type, const QPoint& at)
    {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, at, canvas_->mapToGlobal(at), isMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        QApplication::sendEvent(canvas_, &event);
        QApplication::processEvents();
    }

    const Load& load_;
    std::vector<SplineBase> splines_;
    std::vector<FunctionFloatBase*> expressions_;
    CurveVariables variables_;
    std::unique_ptr<CurveEditor> editor_;
    FunctionEditor* canvas_ = nullptr;
    QPoint start_;
};

/// Times `timed` and nothing of what stands around it.
template <typename Before, typename Timed> void measure(benchmark::State& state, Before before, Timed timed)
{
    for (auto _ : state) {
        state.PauseTiming();
        before();
        state.ResumeTiming();
        timed();
    }
}

void open(benchmark::State& state, Host& host)
{
    measure(
        state, [&] { host.close(); }, [&] { host.open(); });
}

void close(benchmark::State& state, Host& host)
{
    measure(
        state, [&] { host.open(); }, [&] { host.close(); });
}

void dragStep(benchmark::State& state, Host& host)
{
    host.open();
    host.press();
    int step = 0;
    for (auto _ : state)
        host.drag(++step);
}

void wheelStep(benchmark::State& state, Host& host)
{
    host.open();
    int step = 0;
    for (auto _ : state)
        host.turnWheel(++step);
}

void undo(benchmark::State& state, Host& host)
{
    host.open();
    host.edit();
    if (!host.canUndo())
        state.SkipWithError("nothing was edited");
    host.step(true);
    measure(
        state, [&] { host.step(false); }, [&] { host.step(true); });
}

void redo(benchmark::State& state, Host& host)
{
    host.open();
    host.edit();
    measure(
        state, [&] { host.step(true); }, [&] { host.step(false); });
}

const struct
{
    const char* name;
    void (*run)(benchmark::State&, Host&);
    bool isAtCanvas; ///< takes a curve there
} operations[] = {{"open", open, false}, {"drag step", dragStep, true}, {"wheel step", wheelStep, false},
                  {"undo", undo, true},  {"redo", redo, true},          {"close", close, false}};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    for (const Load& load : loads) {
        for (const auto& operation : operations) {
            if (operation.isAtCanvas && load.shown == 0)
                continue;
            const auto run = [&load, &operation](benchmark::State& state) {
                Host host(load);
                operation.run(state, host);
            };
            benchmark::RegisterBenchmark((load.name + std::string("/") + operation.name).c_str(), run)
                ->Unit(benchmark::kMillisecond);
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
}
