// SPDX-License-Identifier: MIT
// Plays with two editors as an unruly user and an unruly host: usage curve_editor_monkey [SEED [EVENTS]]
// Each event follows from a number alone. When one breaks the program or what must always hold, the shortest sequence
// that is found within a minute is printed; curve_editor_monkey --replay NUMBER... plays it.
#include <shell/Invariants.h>

#include <curveeditor/canvas/PointCommands.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/SplineState.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/shell/FitDialog.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QUndoStack>
#include <QWheelEvent>

#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <vector>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace curveeditor;

namespace {

constexpr int faultStatus = 99;
constexpr rlim_t secondsOfAChild = 300; // of the processor
constexpr qint64 millisecondsToShorten = 60'000;
const QStringList curveNames = {"a.x", "a.y", "b.long name of a curve", "b.z"};

using Numbers = std::vector<std::uint32_t>;

/// What one event is made of.
class Dice
{
public:
    explicit Dice(std::uint32_t seed) : source_(seed) {}
    int below(int count) { return int(source_() % std::uint32_t(count)); }
    bool oneOf(int count) { return below(count) == 0; }
    template <typename Item> const Item& pick(const std::vector<Item>& items)
    {
        return items[std::size_t(below(int(items.size())))];
    }
    double number()
    {
        static const std::vector<double> odd = {0.0,  1.0,   -1.0,    5.0,    1e-9, 1e9,
                                                -1e9, 1e300, qQNaN(), qInf(), -3.0, 0.5};
        return oneOf(4) ? pick(odd) : below(2000) / 100.0 - 5.0;
    }

private:
    std::mt19937 source_;
};

/// Two editors over the same curves, and their host.
class Playground
{
public:
    Playground()
    {
        for (const QString& name : curveNames) {
            for (int i = 1; i < 6; ++i)
                curves_[name].spline.addPoint(i * 1.7, i % 3 - 1.0);
        }
        for (int i = 0; i < 2; ++i)
            makeEditor(i);
    }

    void play(std::uint32_t number);
    bool isTalking = false; ///< names each event
    QString fault()
    {
        for (const auto& editor : editors_) {
            const QString found = Invariants::fault(*editor);
            if (!found.isEmpty())
                return found;
        }
        return {};
    }
    /// Undo with redo behind it gives the same curves.
    QString faultOfUndo()
    {
        const bool isFree =
            !reply_ && canvas().gesture.kind() == Gesture::Kind::Idle && !editor().findChild<FitDialog*>();
        QUndoStack& stack = *editor().undoStack();
        const int index = stack.index();
        const int count = stack.count();
        const auto before = states();
        if (!isFree || index == 0)
            return {};
        editor().undo();
        if (stack.index() != index - 1 || stack.count() != count)
            return {}; // entries go where the host has changed the curve since
        editor().redo();
        return stack.index() == index && states() == before ? QString() : "redo gives other curves";
    }

private:
    struct Event
    {
        const char* name;
        std::function<void(Playground&, Dice&)> work;
    };
    static const std::vector<Event>& events();

    CurveEditor& editor() { return *editors_[current_]; }
    FunctionEditor& canvas() { return *editor().findChild<FunctionEditor*>(QStringLiteral("functionEdit")); }

    void makeEditor(int index)
    {
        editors_[index] = std::make_unique<CurveEditor>();
        CurveEditor& editor = *editors_[index];
        for (auto& [name, curve] : curves_)
            addCurve(editor, name, curve);
        editor.setTimeRange(-1.0, 10.0);
        editor.setMinValue(-4.0);
        editor.setMaxValue(4.0);
        editor.setTimeLineDraggable(true);
        editor.setHoldOffered(true);
        editor.resize(900, 600);
        const auto reply = [this] {
            replyToReport();
        };
        QObject::connect(&editor, &CurveEditor::curveHasChanged, &editor, reply);
        QObject::connect(&editor, &CurveEditor::curveEdited, &editor, reply);
        // As a host must whose curves are open in two editors.
        QObject::connect(&editor, &CurveEditor::curveEdited, &editor, [this, index] {
            if (editors_[1 - index])
                editors_[1 - index]->updateCurves();
        });
        QObject::connect(&editor, &CurveEditor::timeLineDragged, &editor, reply);
        editor.show();
        for (const QString& name : curveNames)
            editor.setEditingNode(name);
    }
    static void addCurve(CurveEditor& editor, const QString& name, HostCurve& curve)
    {
        editor.addCurve(name.section(u'.', 0, 0), name.section(u'.', 1), Qt::green, 0.5F, &curve.spline,
                        &curve.expression, -3.0F, 3.0F);
    }

    void replyToReport()
    {
        if (!reply_)
            return;
        const auto work = std::exchange(reply_, nullptr);
        work();
    }
    void hostCall(Dice& dice);
    void mouse(QEvent::Type type, Dice& dice);
    void chooseFromMenus(Dice& dice);
    void answerDialogs(Dice& dice);
    std::vector<std::pair<SplineState, std::string>> states() const
    {
        std::vector<std::pair<SplineState, std::string>> found;
        for (const auto& [name, curve] : curves_)
            found.emplace_back(curve.spline.state(),
                               curve.expression ? curve.expression->getString() : std::string());
        return found;
    }
    void tellEditors()
    {
        for (const auto& editor : editors_)
            editor->updateCurves();
    }

    std::map<QString, HostCurve> curves_;
    std::unique_ptr<CurveEditor> editors_[2];
    int current_ = 0;
    std::function<void()> reply_; ///< what the host does when it hears of a change next
    QPoint mouse_{300, 200};
    Qt::MouseButtons buttons_;
};

Qt::KeyboardModifiers modifiersOf(Dice& dice)
{
    static const std::vector<Qt::KeyboardModifiers> all = {Qt::NoModifier,
                                                           Qt::NoModifier,
                                                           Qt::NoModifier,
                                                           Qt::ShiftModifier,
                                                           Qt::ControlModifier,
                                                           Qt::AltModifier,
                                                           Qt::ShiftModifier | Qt::ControlModifier,
                                                           Qt::AltModifier | Qt::ControlModifier};
    return dice.pick(all);
}

/// Often where a point is.
void Playground::mouse(QEvent::Type type, Dice& dice)
{
    FunctionEditor& canvas = this->canvas();
    if (const SplineBase* const spline = dice.oneOf(2) ? canvas.canvas.currentSplineBase() : nullptr) {
        const auto& points = spline->getControlPoints();
        const SplineBase::PointInfo& point = *points[std::size_t(dice.below(int(points.size())))];
        mouse_ = {canvas.timeToPixel(point.time), canvas.valueToPixel(point.pos)};
    } else {
        mouse_ = {dice.below(qMax(1, canvas.width() + 40)) - 20,
                  dice.below(qMax(1, canvas.height() + 40)) - 20};
    }
    static const std::vector<Qt::MouseButton> buttons = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,
                                                         Qt::MiddleButton, Qt::RightButton};
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : dice.pick(buttons);
    buttons_ = type == QEvent::MouseButtonRelease ? buttons_ & ~Qt::MouseButtons(button) : buttons_ | button;
    QMouseEvent event(type, mouse_, canvas.mapToGlobal(mouse_), button, buttons_, modifiersOf(dice));
    QApplication::sendEvent(&canvas, &event);
}

void Playground::hostCall(Dice& dice)
{
    const QString name = dice.pick(std::vector<QString>(curveNames.begin(), curveNames.end()));
    const QString group = name.section(u'.', 0, 0);
    const QString curve = name.section(u'.', 1);
    HostCurve& host = curves_[name];
    CurveEditor& editor = this->editor();
    switch (dice.below(32)) {
    case 0:
        return editor.removeCurve(group, curve);
    case 1:
        return addCurve(editor, name, host);
    case 2:
        return editor.setEditingNode(name);
    case 3:
        return editor.cleanSelecteds();
    case 4:
        editor.renameCurve(group, curve, "other");
        return editor.renameCurve(group, "other", curve);
    case 5:
        host.spline.addPoint(dice.below(100) / 10.0, 0.3);
        return tellEditors();
    case 6:
        if (host.spline.getControlPointsNumber() > 1)
            host.spline.remove(host.spline.modify(0u));
        return tellEditors();
    case 7:
        host.spline.setTime(host.spline.modify(0u), dice.below(90) / 10.0);
        return tellEditors();
    case 8:
        return editor.setTimeLine(dice.number());
    case 9:
        return editor.setFps(dice.number());
    case 10:
        return editor.setTimeRange(dice.oneOf(4) ? dice.number() : -1.0, 10.0);
    case 11:
        return dice.oneOf(2) ? editor.undo() : editor.redo();
    case 12:
        return dice.oneOf(2) ? editor.setShowTime() : editor.setShowFrames();
    case 13:
        return editor.setTheme(dice.oneOf(2) ? CurveEditorTheme::dark() : CurveEditorTheme::described());
    case 14:
        return editor.resize(500 + dice.below(700), 400 + dice.below(400));
    case 15:
        return editor.setVisible(!dice.oneOf(3));
    case 16:
        editor.setMinValue(-4.0);
        return editor.setMaxValue(dice.oneOf(5) ? dice.number() : 4.0);
    case 17:
        return dice.oneOf(2) ? editor.resetViewport() : editor.completeViewport();
    case 18:
        return editor.changeNodeFirstType(dice.below(3));
    case 19:
        return editor.changeNodeLastType(dice.below(6));
    case 20:
        return dice.oneOf(2) ? editor.resetSelectedF() : editor.resetAllCheckedF();
    case 21:
        return dice.oneOf(2) ? editor.setTcb() : editor.setExpression();
    case 22:
        editor.deleteExpression(group, curve, &host.expression);
        return tellEditors();
    case 23:
        editor.edit(
            group, curve, "Work",
            [&dice](SplineBase& spline) { spline.addPoint(dice.below(90) / 10.0, 1.0); }, dice.below(3));
        return;
    case 24:
        return editor.selectPoints(group, curve, {dice.below(4), dice.below(4)});
    case 25:
        return editor.setView({dice.number(), -2.0, 4.0, dice.oneOf(4) ? dice.number() : 5.0});
    case 26:
        editor.restoreState(editor.saveState());
        return;
    case 27:
        return editor.setPartShown(EditorPart(dice.below(11)), !dice.oneOf(4));
    case 28: {
        CurveOptions options = editor.curveOptions(group, curve);
        (dice.oneOf(2) ? options.locked : options.hidden) = dice.oneOf(2);
        options.step = dice.oneOf(3) ? 0.5 : 0.0;
        options.types.assign(dice.oneOf(4) ? 1 : 0, SplineBase::Linear);
        return editor.setCurveOptions(group, curve, options);
    }
    case 29:
        if (dice.oneOf(2))
            return editor.setTimeText([](double time) { return QString::number(time) + " s"; });
        return editor.setTimeText({});
    case 30:
        if (dice.oneOf(2))
            return editor.setConstraint(group, curve,
                                        [](SplineBase& spline) { spline.setPos(spline.modify(0u), 0.5); });
        return editor.setConstraint(group, curve, {});
    default:
        return editor.setDefaultSelected(group, curve);
    }
}

/// Files and colours would ask the desktop.
void Playground::chooseFromMenus(Dice& dice)
{
    std::vector<QAction*> choices;
    for (const char* menu : {"Edit", "Curves"}) {
        QMenu* const found = editor().findChild<QToolButton*>(menu)->menu();
        Q_EMIT found->aboutToShow();
        for (QAction* const action : found->findChildren<QAction*>()) {
            if (action->isEnabled() && !action->menu() && !action->isSeparator())
                choices.push_back(action);
        }
    }
    if (!choices.empty())
        dice.pick(choices)->trigger();
}

/// Menus and boxes that run loops of their own are closed; the fit dialogs are typed into.
void Playground::answerDialogs(Dice& dice)
{
    for (QDialog* const dialog : editor().findChildren<QDialog*>()) {
        if (!dialog->isVisible())
            continue;
        for (QLineEdit* const line : dialog->findChildren<QLineEdit*>())
            line->setText(QString::number(dice.number()));
        if (dice.oneOf(2))
            dialog->accept();
        else if (dice.oneOf(2))
            dialog->reject();
        return;
    }
}

const std::vector<Playground::Event>& Playground::events()
{
    static const std::vector<QString> texts = {"sin(t)", "2*", "a.x+1", "b.z*2", "", "((((", "t^t", "1e999"};
    static const std::vector<QString> clips = {
        "1\t2\n3\t4\n",    "", "a b\n1 2", "1;2,5\n2;3", "0 0\n0 0\n0 1", "time\tvalue\n5\t1\n",
        QString(100, u'x')};
    static const std::vector<int> keys = {
        Qt::Key_Left,  Qt::Key_Right, Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Delete, Qt::Key_Escape,
        Qt::Key_Tab,   Qt::Key_Space, Qt::Key_Home,   Qt::Key_F,     Qt::Key_A,      Qt::Key_B,
        Qt::Key_I,     Qt::Key_S,     Qt::Key_X,      Qt::Key_Y,     Qt::Key_C,      Qt::Key_V,
        Qt::Key_D,     Qt::Key_Z,     Qt::Key_Period, Qt::Key_Comma, Qt::Key_T,      Qt::Key_5,
        Qt::Key_Minus, Qt::Key_E,     Qt::Key_K,      Qt::Key_L,     Qt::Key_H,      Qt::Key_R};
    static const std::vector<Event> all = {
        {"press",
         [](Playground& p, Dice& dice) {
             p.mouse(QEvent::MouseButtonPress, dice);
         }},
        {"move",
         [](Playground& p, Dice& dice) {
             p.mouse(QEvent::MouseMove, dice);
         }},
        {"move",
         [](Playground& p, Dice& dice) {
             p.mouse(QEvent::MouseMove, dice);
         }},
        {"release",
         [](Playground& p, Dice& dice) {
             p.mouse(QEvent::MouseButtonRelease, dice);
         }},
        {"release",
         [](Playground& p, Dice& dice) {
             p.mouse(QEvent::MouseButtonRelease, dice);
         }},
        {"double click",
         [](Playground& p, Dice& dice) {
             p.mouse(QEvent::MouseButtonDblClick, dice);
         }},
        {"key",
         [](Playground& p, Dice& dice) {
             QWidget* const focus = QApplication::focusWidget();
             QWidget* const target = focus && dice.oneOf(3) ? focus : &p.canvas();
             const Qt::Key key = Qt::Key(dice.pick(keys));
             QKeyEvent event(dice.oneOf(4) ? QEvent::KeyRelease : QEvent::KeyPress, key, modifiersOf(dice),
                             key < 128 ? QString(QChar(key)) : QString());
             QApplication::sendEvent(target, &event);
         }},
        {"wheel",
         [](Playground& p, Dice& dice) {
             static const std::vector<int> deltas = {0, 1, 120, -120, 30000, -30000, 15};
             const QPointF at(dice.below(700), dice.below(400));
             QWheelEvent event(at, p.canvas().mapToGlobal(at), {}, {dice.pick(deltas), dice.pick(deltas)},
                               Qt::NoButton, modifiersOf(dice), Qt::NoScrollPhase, false);
             QApplication::sendEvent(&p.canvas(), &event);
         }},
        {"menu",
         [](Playground& p, Dice& dice) {
             p.chooseFromMenus(dice);
         }},
        {"dialog",
         [](Playground& p, Dice& dice) {
             p.answerDialogs(dice);
         }},
        {"clipboard",
         [](Playground&, Dice& dice) {
             QApplication::clipboard()->setText(dice.pick(clips));
         }},
        {"formula",
         [](Playground& p, Dice& dice) {
             p.editor().commandLine->setText(dice.pick(texts));
             p.editor().executeCommand();
         }},
        {"host call",
         [](Playground& p, Dice& dice) {
             p.hostCall(dice);
         }},
        {"host call in a report",
         [](Playground& p, Dice& dice) {
             const std::uint32_t number = std::uint32_t(dice.below(1 << 30));
             p.reply_ = [&p, number] {
                 Dice own(number);
                 p.hostCall(own);
             };
         }},
        {"field",
         [](Playground& p, Dice& dice) {
             const auto fields = p.editor().findChildren<CustomEditLine*>();
             CustomEditLine* const field = fields[dice.below(int(fields.size()))];
             if (!field->isEnabled() || !p.editor().isActiveWindow())
                 return; // no user types there
             field->setFocus();
             QTest::keyClicks(field, QString::number(dice.number()));
             if (dice.oneOf(2))
                 QTest::keyClick(field, dice.oneOf(2) ? Qt::Key_Return : Qt::Key_Escape);
         }},
        {"combo",
         [](Playground& p, Dice& dice) {
             const auto combos = p.editor().findChildren<QComboBox*>();
             QComboBox* const combo = combos[dice.below(int(combos.size()))];
             if (combo->isEnabled())
                 QTest::keyClick(combo, dice.oneOf(2) ? Qt::Key_Down : Qt::Key_Up);
         }},
        {"page",
         [](Playground& p, Dice& dice) {
             p.editor().tabWidget2->setCurrentIndex(dice.below(3));
         }},
        {"table",
         [](Playground& p, Dice& dice) {
             auto* const table = p.editor().findChild<QTableView*>();
             if (!table->model() || table->model()->rowCount() == 0)
                 return;
             const QModelIndex cell =
                 table->model()->index(dice.below(table->model()->rowCount()), dice.below(3));
             if (dice.oneOf(2))
                 table->selectionModel()->select(cell,
                                                 QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
             else
                 table->model()->setData(cell, QString::number(dice.number()));
         }},
        {"list",
         [](Playground& p, Dice& dice) {
             EditingList& list = *p.editor().checkListsEditing;
             if (list.topLevelItemCount() == 0)
                 return;
             QTreeWidgetItem* const row = list.topLevelItem(dice.below(list.topLevelItemCount()));
             row->setSelected(true);
             if (dice.oneOf(6))
                 QTest::keyClick(&list, Qt::Key_Delete);
         }},
        {"other editor",
         [](Playground& p, Dice& dice) {
             p.current_ = dice.below(2);
         }},
        {"new editor",
         [](Playground& p, Dice& dice) {
             if (dice.oneOf(20))
                 p.makeEditor(p.current_);
         }},
        {"undo or redo",
         [](Playground& p, Dice& dice) {
             dice.oneOf(2) ? p.editor().undo() : p.editor().redo();
         }},
    };
    return all;
}

void Playground::play(std::uint32_t number)
{
    Dice dice(number);
    QTimer closing; // what has a loop of its own would wait for ever
    QObject::connect(&closing, &QTimer::timeout, [] {
        QWidget* const popup = QApplication::activePopupWidget();
        QWidget* const open = popup ? popup : QApplication::activeModalWidget();
        if (open && (popup || !open->inherits("curveeditor::FitDialog")))
            open->close();
    });
    closing.start(0);
    const Event& event = dice.pick(events());
    if (isTalking)
        std::fprintf(stderr, "%u: %s\n", number, event.name);
    event.work(*this, dice);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// How many events a process has played, for the one that has started it.
std::size_t* const played = static_cast<std::size_t*>(
    mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

int playAll(const Numbers& numbers, bool isTalking)
{
    int count = 1;
    char name[] = "curve_editor_monkey";
    char* arguments[] = {name, nullptr};
    QApplication application(count, arguments);
    Playground playground;
    playground.isTalking = isTalking;
    constexpr std::size_t eventsBetweenChecks = 10;
    constexpr std::size_t eventsBetweenUndoes = 70;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        *played = i + 1;
        playground.play(numbers[i]);
        if (i % eventsBetweenChecks != 0 && i + 1 != numbers.size())
            continue;
        const bool undoes = i % eventsBetweenUndoes == 0;
        const QString undone = undoes ? playground.faultOfUndo() : QString();
        const QString fault = undone.isEmpty() ? playground.fault() : undone;
        if (!fault.isEmpty()) {
            std::fprintf(stderr, "after %zu events: %s\n", i + 1, qPrintable(fault));
            return faultStatus;
        }
    }
    return EXIT_SUCCESS;
}

/// In a process of its own, which may crash.
bool isBroken(const Numbers& numbers, bool isQuiet)
{
    const pid_t child = fork();
    if (child == 0) {
        if (isQuiet)
            std::freopen("/dev/null", "w", stderr);
        const rlimit limit{secondsOfAChild, secondsOfAChild};
        setrlimit(RLIMIT_CPU, &limit);
        _exit(playAll(numbers, false));
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status) && !isQuiet)
        std::fprintf(stderr, "after %zu events: signal %d\n", *played, WTERMSIG(status));
    return status != 0;
}

Numbers shortened(Numbers numbers)
{
    QElapsedTimer timer;
    timer.start();
    numbers.resize(*played); // what comes behind was not reached
    for (std::size_t part = numbers.size() / 2; part > 0; part /= 2) {
        for (std::size_t from = 0; from < numbers.size() && timer.elapsed() < millisecondsToShorten;) {
            Numbers fewer(numbers.begin(), numbers.begin() + std::ptrdiff_t(from));
            const std::size_t behind = qMin(from + part, numbers.size());
            fewer.insert(fewer.end(), numbers.begin() + std::ptrdiff_t(behind), numbers.end());
            if (!fewer.empty() && isBroken(fewer, true))
                numbers = fewer;
            else
                from += part;
        }
    }
    return numbers;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    Numbers numbers;
    if (!arguments.empty() && arguments[0] == "--replay") {
        for (std::size_t i = 1; i < arguments.size(); ++i)
            numbers.push_back(std::uint32_t(std::stoul(arguments[i])));
        return playAll(numbers, true);
    }
    const std::uint32_t seed = arguments.empty() ? 1 : std::uint32_t(std::stoul(arguments[0]));
    const std::size_t count = arguments.size() < 2 ? 10'000 : std::stoul(arguments[1]);
    std::mt19937 source(seed);
    while (numbers.size() < count)
        numbers.push_back(std::uint32_t(source()));
    if (!isBroken(numbers, false))
        return EXIT_SUCCESS;
    std::fprintf(stderr, "seed %u is broken, looking for a shorter sequence\n", seed);
    std::string replay = "curve_editor_monkey --replay";
    for (const std::uint32_t number : shortened(numbers))
        replay += ' ' + std::to_string(number);
    std::fprintf(stderr, "%s\n", replay.c_str());
    return EXIT_FAILURE;
}
