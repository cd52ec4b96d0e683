// SPDX-License-Identifier: MIT
#include "EditorScene.h"
#include "Invariants.h"

#include <curveeditor/model/CurveFit.h>

namespace {

/// An editor whose host keeps copies of the curves, which follow by the differences alone, and commands of its own.
struct HostScene : Scene
{
    explicit HostScene(bool keepsHistory = true)
    {
        copies = states();
        editor.setKeepsHistory(keepsHistory);
        QObject::connect(&editor, &CurveEditor::curveEdited, &canvas, [this](const CurveChange& change) {
            follows = follows && (change.phase == CurveChange::Phase::Commit) == bool(change.diff);
            if (!change.diff)
                return;
            follows = follows && change.diff->apply(copies[change.group + '.' + change.curve]);
            told += change.curve + "EURCH"[int(change.cause)] + ' ';
            const bool isNew =
                change.cause == CurveChange::Cause::Edit || change.cause == CurveChange::Cause::Host;
            follows = follows && change.text.isEmpty() != isNew;
            if (isNew)
                done.push_back(change), undone.clear();
        });
        QObject::connect(&editor, &CurveEditor::undoRequested, [this] { step(done, undone, false); });
        QObject::connect(&editor, &CurveEditor::redoRequested, [this] { step(undone, done, true); });
    }
    void step(std::vector<CurveChange>& from, std::vector<CurveChange>& to, bool forward)
    {
        const CurveChange change = from.back();
        QVERIFY(editor.apply(change.group, change.curve, *change.diff, forward));
        to.push_back(change), from.pop_back();
    }
    bool edit(const QString& curve, const std::function<void(SplineBase&)>& work, int merge = 0)
    {
        return editor.edit("a", curve, "Record", work, merge);
    }
    bool edit(const QString& curve, double value, int merge = 0)
    {
        return edit(
            curve, [value](SplineBase& spline) { spline.modify(1)->pos = value; }, merge);
    }
    void undoAll()
    {
        while (editor.undoStack()->canUndo())
            editor.undo();
    }
    QString takeTold() { return std::exchange(told, QString()); }
    bool isSound() { return follows && copies == states() && Invariants::fault(editor).isEmpty(); }

    std::map<QString, CurveState> copies;
    bool follows = true;
    QString told;
    std::vector<CurveChange> done, undone;
};

using HostDeed = std::function<void(HostScene&)>;
using Times = std::vector<double>;

/// The bars of a tempo map: 4/4 at 120 beats a minute, from 6.0 on 3/4 at 80.
Times bars(double first, double last)
{
    Times times;
    for (double bar = 0.0; bar <= last; bar += bar < 6.0 ? 2.0 : 2.25)
        times.push_back(bar >= first ? bar : notANumber);
    return times;
}

/// Where the upright lines of the grid are.
QList<int> columns(Scene& s)
{
    const CanvasGrid& grid = s.canvas.canvas.grid();
    QList<int> found;
    for (int i = 0; i < grid.countX; ++i)
        found.append(grid.lines[2 * i].x());
    return found;
}

} // namespace

class tst_HostEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editIsOneStep_data()
    {
        const Rows<HostDeed> row;
        row("current", [](HostScene& s) { s.clickPoint(); });
        row("another one", [](HostScene& s) { s.turnTo("a.y"); });
        row("locked", [](HostScene& s) { s.lock("x"); });
        row("hidden", [](HostScene& s) { s.hide("x"); });
        row("beneath a formula", [](HostScene& s) { s.enter("2 T"); });
    }
    void editIsOneStep()
    {
        const auto [prepare] = Rows<HostDeed>::present();
        HostScene s;
        prepare(s);
        const auto before = s.states();
        const int entries = s.entries();
        s.forgetChanges(), s.takeTold();
        QVERIFY(s.edit("x", 1.0) && s.takeTold().isEmpty() && s.changes.isEmpty() && s.edit("x", 2.0));
        QVERIFY(s.takeTold() == "xH " && s.changes == QStringList{"a/x"} && s.entries() == entries + 1);
        QVERIFY(s.editor.undoStack()->undoText() == "Record" && s.x[1]->pos == 2.0 && s.isSound());
        QVERIFY(s.showsWhatIsDrawnFromScratch());
        const auto after = s.states();
        QVERIFY(s.undo().states() == before && s.isSound());
        QVERIFY(s.redo().states() == after && s.isSound() && s.takeTold() == "xU xR ");
        s.editor.cleanSelecteds();
        QVERIFY(s.edit("x", 3.0) && s.x[1]->pos == 3.0 && s.takeTold() == "xH ");
    }

    void handsAtTheCurveEndFirstAndOthersGoOn()
    {
        for (const bool typed : {false, true}) {
            HostScene s;
            const auto before = s.states();
            typed ? s.clickPoint().type(s.editor.posY, "3") : s.press(5.0, 1.0).move(6.0, 2.0);
            QVERIFY(s.edit("y", 2.0) && s.takeTold() == "yH " && s.canvas.canvas.door().isOpen());
            typed ? QTest::keyClicks(s.editor.posY, "1") : void(s.move(6.0, 3.0));
            QVERIFY(s.x[1]->pos > 2.9 && s.edit("x", -1.0) && !s.canvas.canvas.door().isOpen());
            s.release(6.0, 3.0);
            QVERIFY(s.takeTold() == (typed ? "xE xE xH " : "xE xH ") && s.x[1]->pos == -1.0 && s.isSound());
            s.undoAll();
            QVERIFY(s.states() == before);
        }
    }

    void editsOfOneNumberJoin()
    {
        HostScene s;
        const auto before = s.states();
        for (int i = 0; i < 9; ++i)
            QVERIFY(s.edit("x", i, 7) && s.edit("y", -i, 7));
        QVERIFY(s.entries() == 1 && s.takeTold().count('H') == 18);
        const auto after = s.states();
        QVERIFY(s.undo().states() == before && s.redo().states() == after && s.isSound());
        const auto entriesAfter = [&s](double value, int merge) {
            return s.edit("x", value, merge), s.entries();
        };
        QVERIFY(entriesAfter(4.0, 8) == 2 && entriesAfter(5.0, 7) == 3);
        s.editor.undoStack()->setClean();
        QVERIFY(entriesAfter(6.0, 7) == 4 && !s.editor.undoStack()->isClean());
        QVERIFY(entriesAfter(5.0, 7) == 3 && entriesAfter(8.0, 7) == 4); // back where the entry began, and on
        s.x.modify(0u)->pos = 9.0;                                       // the host's
        QVERIFY(entriesAfter(10.0, 7) == 5 && entriesAfter(11.0, 0) == 6 && entriesAfter(12.0, 0) == 7);
    }

    void hostKeepsTheHistory()
    {
        HostScene s(false);
        const auto before = s.states();
        s.drag(5.0, 1.0, 6.0, 2.0).press(6.0, 2.0).move(6.0, 3.0).key(Qt::Key_Z, ctrl).release(6.0, 3.0);
        s.edit("y", 3.0, 7), s.edit("y", 4.0, 7);
        QVERIFY(s.done[0].text == "Move a point of a.x" && s.done[2].text == "Record" &&
                s.done[2].merge == 7);
        s.key(Qt::Key_A, ctrl).key(Qt::Key_Delete).enter("2 T").turnTo("a.y").editor.setLastNodeLoop();
        const QAction* const undo = entryOf(*s.menu("Edit"), "Undo");
        QVERIFY(s.entries() == 0 && s.done.size() == 6 && undo->text() == "Undo" && undo->isEnabled());
        s.clickPoint().press(5.0, 4.0).release(5.0, 4.0).type(s.editor.posY, "3");
        s.key(Qt::Key_Z, ctrl); // what was typed is a step
        QVERIFY(s.done.size() == 6 && s.undone.size() == 1);
        const auto after = s.states();
        s.lock("x");
        while (!s.done.empty())
            s.undo();
        QVERIFY(s.states() == before && s.isSound());
        s.key(Qt::Key_Y, ctrl);
        QVERIFY(s.changes.last() == "a/x" && s.control().hasSelection() && s.told.endsWith("xR "));
        while (s.undone.size() > 1)
            s.redo();
        QVERIFY(s.states() == after && s.isSound() && s.showsWhatIsDrawnFromScratch());
        s.editor.setKeepsHistory(true);
        s.edit("y", 5.0);
        QVERIFY(s.entries() == 1);
        s.editor.setKeepsHistory(false);
        QVERIFY(s.entries() == 0);
    }

    void differenceOfAnotherStateIsRefused()
    {
        HostScene s(false);
        s.edit("x", 3.0);
        const CurveDiff edit = *s.done.back().diff;
        const auto refuses = [&](const CurveDiff& diff, bool forward, const QString& curve = "x") {
            const auto before = s.states();
            s.takeTold();
            return !s.editor.apply("a", curve, diff, forward) && s.states() == before && s.told.isEmpty();
        };
        QVERIFY(refuses(edit, true) && refuses(edit, false, "y") && refuses(edit, false, "nobody"));
        for (std::int32_t* const behaviour : {&s.x.firstType, &s.x.lastType}) {
            const auto kept = std::exchange(*behaviour, SplineBase::Zero);
            QVERIFY(refuses(edit, false));
            *behaviour = kept;
        }
        QVERIFY(s.editor.apply("a", "x", CurveDiff(), false) && s.told.isEmpty());
        s.press(8.0, -1.0).move(9.0, -2.0);
        QVERIFY(s.editor.apply("a", "x", edit, false) && s.takeTold() == "xE xU " && s.x[1]->pos == 1.0);
        s.release(9.0, -2.0).enter("2 T");
        const CurveDiff formula = *s.done.back().diff;
        QVERIFY(refuses(edit, true)); // beneath a formula
        s.enter("3 T");
        QVERIFY(refuses(formula, false) && s.isSound());
    }

    void slopesFollowAndTimesAreWholeFrames()
    {
        HostScene s;
        const auto before = s.states();
        const auto mend = [&s](SplineBase& spline) {
            for (unsigned i = 0; i < spline.getControlPointsNumber(); ++i) {
                SplineBase::PointInfo& point = *spline.modify(i);
                point.time = std::round(point.time * s.editor.getFps()) / s.editor.getFps();
                point.type = SplineBase::Bezier;
                point.tanLeft = point.tanRight =
                    CurveFit::smoothSlope(i > 0 ? spline[i - 1] : nullptr, point, spline[i + 1]);
            }
        };
        for (const QString curve : {"x", "y", "nobody"})
            s.editor.setConstraint("a", curve, mend);
        s.click(5.0, 1.0);
        QVERIFY(s.states() == before && s.entries() == 0);
        const QPoint nearby = s.pixel(6.0, 2.0) + QPoint(2, 0); // off the frame
        s.press(5.0, 1.0).mouse(QEvent::MouseMove, nearby);
        QVERIFY(s.x[1]->time == 6.0 && s.x[0]->tanRight > 0.2 && s.x[2]->tanLeft < -1.0);
        const QPointF touched = s.intervals.last();
        QVERIFY(touched.x() == -infinity && touched.y() == infinity && s.showsWhatIsDrawnFromScratch());
        s.key(Qt::Key_Escape);
        QVERIFY(s.states() == before && s.isSound());
        s.key(Qt::Key_A, shift).key(Qt::Key_A, ctrl).press(5.0, 1.0).mouse(QEvent::MouseMove, nearby);
        s.release(6.0, 2.0);
        QVERIFY(s.x[1]->time == 6.0 && s.curves["a.y"].spline[1]->tanLeft < 0.0 && s.entries() == 1);
        const auto rise = [&s] {
            return (s.x[1]->pos - s.x[0]->pos) / (s.x[1]->time - s.x[0]->time);
        };
        QVERIFY(s.edit("x", 3.0) && s.x[1]->tanLeft == 0.0 && s.x[0]->tanRight == rise() && s.isSound());
        s.editor.setConstraint("a", "x", nullptr);
        QVERIFY(s.edit("x", 4.0) && s.x[0]->tanRight < rise());
        s.undoAll();
        QVERIFY(s.states() == before);
    }

    void pushedPointsComeBack()
    {
        HostScene s;
        s.editor.setConstraint("a", "x", [](SplineBase& spline) {
            for (unsigned i = 1; i < spline.getControlPointsNumber(); ++i)
                spline.modify(i)->time = std::max(spline[i]->time, spline[i - 1]->time + 2.0);
        });
        const auto before = s.states();
        s.press(5.0, 1.0).move(7.0, 1.0);
        QCOMPARE(s.x[2]->time, s.x[1]->time + 2.0);
        s.x.modify(0u)->pos = 0.25; // the host's
        s.move(5.0, 1.0).release(5.0, 1.0);
        QVERIFY(s.x[2]->time == 8.0 && s.x[0]->pos == 0.25);
        s.undo().clickPoint();
        for (const QString frame : {"70", "55"})
            s.type(s.editor.posX, frame);
        s.focusCanvas();
        QVERIFY(s.x[1]->time == 5.5 && s.x[2]->time == 8.0 && s.isSound());
        QVERIFY(s.undo().states() == before);
    }

    void whatTheHostsCodeMustNotDoDoesNoHarm_data()
    {
        const Rows<HostDeed> row;
        row("throws", [](HostScene& s) {
            s.x.reset();
            throw 1;
        });
        row("writes nonsense", [](HostScene& s) { s.x.modify(0u)->time = notANumber, s.x.firstType = 99; });
        row("removes", [](HostScene& s) { s.remove("x"); });
        row("locks", [](HostScene& s) { s.lock("x"); });
        row("ends itself", [](HostScene& s) { s.editor.setConstraint("a", "x", {}); });
        row("edits", [](HostScene& s) {
            QVERIFY(!s.edit("y", 3.0) && !s.editor.apply("a", "x", {}, true));
            s.undo(), s.redo(), s.editor.resetAllCheckedF(), s.drag(8.0, -1.0, 7.0, 1.0);
        });
    }
    void whatTheHostsCodeMustNotDoDoesNoHarm()
    {
        const auto [deed] = Rows<HostDeed>::present();
        const HostDeed hands[] = {
            [](HostScene& s) { s.drag(5.0, 1.0, 6.0, 2.0); },
            [](HostScene& s) { s.key(Qt::Key_A, shift).key(Qt::Key_A, ctrl).drag(5.0, 1.0, 6.0, 2.0); },
            [](HostScene& s) { s.clickPoint().type(s.editor.posY, "3"), s.focusCanvas(); },
            [](HostScene& s) { s.clickPoint().key(Qt::Key_Delete); },
            [](HostScene& s) { s.edit("x", 3.0); },
            [deed = deed](HostScene& s) {
                s.editor.setConstraint("a", "x", {});
                const bool throws = QTest::currentDataTag() == QByteArray("throws");
                try {
                    QVERIFY(s.edit("x", [&](SplineBase&) { deed(s); }) && !throws);
                } catch (int) {
                    QVERIFY(throws && s.entries() == 0);
                }
                QVERIFY(!s.editor.searchAllNodeList("a.x") || s.edit("x", 3.0));
            },
        };
        for (const HostDeed& hand : hands) {
            HostScene s;
            const auto before = s.states();
            s.editor.setConstraint("a", "x", [&, deed = deed](SplineBase&) { deed(s); });
            hand(s);
            s.editor.setConstraint("a", "x", {});
            QCOMPARE(Invariants::fault(s.editor), QString());
            QVERIFY(s.showsWhatIsDrawnFromScratch());
            if (!s.editor.searchAllNodeList("a.x"))
                continue;
            QVERIFY(s.isSound() && s.entries() > 0 && s.x.state().isWhole());
            s.undoAll();
            QVERIFY(s.states() == before);
        }
    }

    void commandOfTheHostEditsNothing()
    {
        struct Command : QUndoCommand
        {
            explicit Command(std::function<void()> deed) : work(std::move(deed)) {}
            void undo() override { work(); }
            void redo() override { work(); }
            const std::function<void()> work;
        };
        QUndoStack stack;
        HostScene s;
        s.editor.setUndoStack(&stack);
        std::vector<bool> edited;
        stack.push(new Command([] {}));
        stack.push(new Command([&] {
            edited.push_back(s.edit("x", 3.0));
            edited.size() % 2 ? s.editor.setLastNodeZero() : s.editor.setLastNodeLoop();
        }));
        QVERIFY(edited == std::vector{true} && stack.count() == 4);
        s.undo(), s.redo();
        QVERIFY(edited == std::vector({true, false, false}) && stack.count() == 4);
        connect(&stack, &QUndoStack::indexChanged, &s.editor,
                [&] { stack.index() == 3 && s.edit("y", 3.0); });
        s.undo(); // who hears of it may edit
        QVERIFY(s.entries() == 4 && stack.undoText() == "Record" && s.isSound());
    }

    void historyOfTheHostBeginsWithWhatTheUserIsAt()
    {
        const HostDeed begin[] = {[](HostScene& s) { s.editor.setKeepsHistory(false); },
                                  [](HostScene& s) { s.editor.setUndoStack(nullptr); },
                                  [](HostScene& s) {
                                      s.editor.setUndoStack(new QUndoStack(&s.editor));
                                  }};
        for (const HostDeed& deed : begin) {
            HostScene s;
            s.press(5.0, 1.0).move(6.0, 2.0).forgetChanges();
            deed(s);
            QVERIFY(s.takeTold() == "xE " && s.changes == QStringList{"a/x"});
            HostScene other;
            connect(&other.editor, &CurveEditor::curveHasChanged, [&other] { delete other.owned; });
            other.press(5.0, 1.0).move(6.0, 2.0);
            deed(other);
            QVERIFY(!other.owned);
        }
    }

    void gridIsThatOfTheHost()
    {
        Scene s;
        const QImage before = s.shown();
        int calls = 0;
        s.editor.setTimeGrid([&calls](double first, double last) { return ++calls, bars(first, last); });
        QVERIFY(s.shown() != before && calls == 1);
        QList<int> expected;
        for (const double time : {0.0, 2.0, 4.0, 6.0, 8.25})
            expected.append(s.pixel(time, 0.0).x());
        QCOMPARE(columns(s), expected);
        QCOMPARE(s.canvas.canvas.grid().zeroIndexX, 0);
        s.canvas.canvas.hands().guide.isSnapping = true;
        s.press(5.0, 1.0).mouse(QEvent::MouseMove, s.pixel(8.25, 2.0) - QPoint(1, 0)).release(8.25, 2.0);
        QVERIFY(s.x[2]->time == 8.25 && s.shown() != before && calls == 1);
        s.undo().editor.setTimeRange(5.0, 9.0);
        QVERIFY(s.showsWhatIsDrawnFromScratch() && columns(s).size() == 2);
        s.editor.setTimeRange(-1.0, 10.0);
        s.editor.setTimeGrid({});
        s.canvas.canvas.hands().guide.isSnapping = false;
        s.click(7.0, 2.5);
        QVERIFY(s.shown() == before);
    }

    void badGridDoesNoHarm_data()
    {
        const Rows<Times, int> row; // and the most lines; one that throws for no times
        Times million(1'000'000);
        for (std::size_t i = 0; i < million.size(); ++i)
            million[i] = 10.0 - double(i) / 1e5;
        row("throws", {}, 0);
        row("unsorted", {9.0, notANumber, 2.0, infinity, 2.0, -infinity, -5.0, 11.0, 1e300, 4.0}, 3);
        row("a million", million, 250);
    }
    void badGridDoesNoHarm()
    {
        const auto [times, most] = Rows<Times, int>::present();
        Scene s;
        s.editor.setTimeGrid([times = times](double, double) { return times.empty() ? throw 1 : times; });
        s.shown();
        const QList<int> found = columns(s);
        QVERIFY(found.size() <= most && found.size() >= most / 2);
        for (qsizetype i = 1; i < found.size(); ++i)
            QVERIFY(found[i] - found[i - 1] >= 4);
    }
};

QTEST_MAIN(tst_HostEdits)
#include "tst_HostEdits.moc"
