// SPDX-License-Identifier: MIT
#include "EditorScene.h"
#include "Invariants.h"

#include <curveeditor/model/CurveFit.h>

namespace {

/// An editor whose host keeps copies of the curves, which follow the edits by their differences alone.
struct HostScene : Scene
{
    HostScene()
    {
        copies = states();
        QObject::connect(&editor, &CurveEditor::curveEdited, &canvas, [this](const CurveChange& change) {
            const bool isCommit = change.phase == CurveChange::Phase::Commit;
            follows = follows && isCommit == bool(change.diff) &&
                      (!isCommit || change.diff->apply(copies[change.group + '.' + change.curve]));
            if (isCommit)
                told += change.curve + "EURCH"[int(change.cause)] + ' ';
        });
    }
    bool edit(const QString& curve, double value, int merge = 0)
    {
        return editor.edit(
            "a", curve, "Record", [value](SplineBase& spline) { spline.modify(1)->pos = value; }, merge);
    }
    QString takeTold() { return std::exchange(told, QString()); }
    bool isSound() { return follows && copies == states() && Invariants::fault(editor).isEmpty(); }

    std::map<QString, CurveState> copies;
    bool follows = true, edited = false;
    QString told;
};

/// A host with commands of its own.
struct CommandScene : HostScene
{
    struct Command
    {
        QString group, curve;
        std::shared_ptr<const CurveDiff> diff;
    };
    CommandScene()
    {
        editor.setKeepsHistory(false);
        QObject::connect(&editor, &CurveEditor::curveEdited, &canvas, [this](const CurveChange& change) {
            const bool isNew =
                change.cause == CurveChange::Cause::Edit || change.cause == CurveChange::Cause::Host;
            if (isNew && change.diff)
                done.push_back({change.group, change.curve, change.diff}), undone.clear();
        });
        QObject::connect(&editor, &CurveEditor::undoRequested, [this] { step(done, undone, false); });
        QObject::connect(&editor, &CurveEditor::redoRequested, [this] { step(undone, done, true); });
    }
    void step(std::vector<Command>& from, std::vector<Command>& to, bool forward)
    {
        const Command command = from.back();
        QVERIFY(editor.apply(command.group, command.curve, *command.diff, forward));
        to.push_back(command), from.pop_back();
    }

    std::vector<Command> done, undone;
};

using Times = std::vector<double>;

/// The bars of a tempo map: 4/4 at 120 beats a minute, from 6.0 on 3/4 at 80.
Times bars(double first, double last)
{
    Times times;
    for (double bar = 0.0; bar <= last; bar += bar < 6.0 ? 2.0 : 2.25) {
        if (bar >= first)
            times.push_back(bar);
    }
    return times;
}

using HostDeed = std::function<void(HostScene&)>;

void lock(HostScene& s, const QString& curve)
{
    CurveOptions options;
    options.locked = true;
    s.editor.setCurveOptions("a", curve, options);
}

void change(HostScene& s, void (*change)(CurveOptions&))
{
    CurveOptions options;
    change(options);
    s.editor.setCurveOptions("a", "x", options);
}

/// Where the upright lines of the grid are.
std::vector<QPoint> columns(Scene& s)
{
    const CanvasGrid& grid = s.canvas.canvas.grid();
    std::vector<QPoint> found;
    for (int i = 0; i < grid.countX; ++i)
        found.emplace_back(grid.lines[2 * i].x(), s.pixel(0, 0).y());
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
        row("locked", [](HostScene& s) { lock(s, "x"); });
        row("hidden", [](HostScene& s) { change(s, [](CurveOptions& options) { options.hidden = true; }); });
        row("beneath a formula", [](HostScene& s) { s.enter("2 T"); });
    }
    void editIsOneStep()
    {
        const auto [prepare] = Rows<HostDeed>::present();
        HostScene s;
        prepare(s);
        const auto before = s.states();
        const int entries = s.entries();
        s.changes.clear(), s.takeTold();
        QVERIFY(s.edit("x", 1.0) && s.takeTold().isEmpty() && s.changes.isEmpty());
        QVERIFY(s.edit("x", 2.0));
        QVERIFY(s.takeTold() == "xH " && s.changes == QStringList{"a/x"} && s.entries() == entries + 1);
        QVERIFY(s.editor.undoStack()->undoText() == "Record" && s.x[1]->pos == 2.0 && s.isSound());
        QVERIFY(s.showsWhatIsDrawnFromScratch());
        const auto after = s.states();
        s.editor.undo();
        QVERIFY(s.states() == before && s.isSound());
        s.editor.redo();
        QVERIFY(s.states() == after && s.isSound() && s.takeTold() == "xU xR ");
    }

    void curveOffTheCanvasIsEdited()
    {
        HostScene s;
        s.editor.cleanSelecteds();
        QVERIFY(s.edit("x", 2.0) && s.x[1]->pos == 2.0 && s.changes == QStringList{"a/x"});
        s.editor.undo();
        QVERIFY(s.x[1]->pos == 1.0 && s.takeTold() == "xH xU ");
    }

    void handsAtTheCurveEndFirstAndOthersGoOn()
    {
        for (const bool typed : {false, true}) {
            HostScene s;
            const auto before = s.states();
            if (typed)
                s.clickPoint().type(s.editor.posY, "3");
            else
                s.press(5.0, 1.0).move(6.0, 2.0);
            QVERIFY(s.edit("y", 2.0) && s.takeTold() == "yH " && s.canvas.canvas.door().isOpen());
            if (typed)
                QTest::keyClicks(s.editor.posY, "1");
            else
                s.move(6.0, 3.0);
            QVERIFY(s.x[1]->pos > 2.9 && s.edit("x", -1.0) && !s.canvas.canvas.door().isOpen());
            s.release(6.0, 3.0);
            QVERIFY(s.takeTold() == (typed ? "xE xE xH " : "xE xH ") && s.x[1]->pos == -1.0 && s.isSound());
            while (s.editor.undoStack()->canUndo())
                s.editor.undo();
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
        s.editor.undo();
        QVERIFY(s.states() == before);
        s.editor.redo();
        QVERIFY(s.states() == after && s.isSound());
        s.edit("x", 4.0, 8);
        s.edit("x", 5.0, 7);
        QCOMPARE(s.entries(), 3);
        s.editor.undoStack()->setClean();
        s.edit("x", 6.0, 7);
        QVERIFY(s.entries() == 4 && !s.editor.undoStack()->isClean());
        s.edit("x", 5.0, 7); // which is where the entry began
        QCOMPARE(s.entries(), 3);
        s.x.modify(1)->pos = 9.0;
        s.edit("x", 10.0, 7);
        QCOMPARE(s.entries(), 4);
        s.edit("x", 11.0), s.edit("x", 12.0);
        QCOMPARE(s.entries(), 6);
    }

    void hostKeepsTheHistory()
    {
        CommandScene s;
        const auto before = s.states();
        s.drag(5.0, 1.0, 6.0, 2.0).press(6.0, 2.0).move(6.0, 3.0).key(Qt::Key_Z, ctrl).release(6.0, 3.0);
        s.edit("y", 3.0, 7), s.edit("y", 4.0, 7);
        s.key(Qt::Key_A, ctrl).key(Qt::Key_Delete);
        s.enter("2 T").turnTo("a.y").editor.setLastNodeLoop();
        const QAction* const undo = entryOf(*s.menu("Edit"), "Undo");
        QVERIFY(s.entries() == 0 && s.done.size() == 6 && undo->text() == "Undo" && undo->isEnabled());
        s.clickPoint().press(5.0, 4.0).release(5.0, 4.0).type(s.editor.posY, "3");
        s.key(Qt::Key_Z, ctrl); // what was typed is a step
        QVERIFY(s.done.size() == 6 && s.undone.size() == 1);
        const auto after = s.states();
        lock(s, "x");
        while (!s.done.empty())
            s.editor.undo();
        QVERIFY(s.states() == before && s.isSound());
        s.key(Qt::Key_Y, ctrl);
        QVERIFY(s.changes.last() == "a/x" && s.control().hasSelection() &&
                s.lastCause == CurveChange::Cause::Redo);
        while (s.undone.size() > 1)
            s.editor.redo();
        QVERIFY(s.states() == after && s.isSound() && s.showsWhatIsDrawnFromScratch());
    }

    void differenceOfAnotherStateIsRefused()
    {
        CommandScene s;
        s.edit("x", 3.0);
        const CurveDiff edit = *s.done.back().diff;
        const auto refuses = [&](const CurveDiff& diff, bool forward, const QString& curve = "x") {
            const auto before = s.states();
            s.takeTold();
            return !s.editor.apply("a", curve, diff, forward) && s.states() == before &&
                   s.takeTold().isEmpty();
        };
        QVERIFY(refuses(edit, true) && refuses(edit, false, "y") && refuses(edit, false, "nobody"));
        s.editor.edit("a", "x", {}, [&](SplineBase&) { QVERIFY(!s.editor.apply("a", "x", edit, false)); });
        QVERIFY(s.editor.apply("a", "x", CurveDiff(), false) && s.takeTold().isEmpty());
        s.press(8.0, -1.0).move(9.0, -2.0);
        QVERIFY(s.editor.apply("a", "x", edit, false) && s.takeTold() == "xE xU " && s.x[1]->pos == 1.0);
        s.release(9.0, -2.0).enter("2 T");
        const CurveDiff formula = *s.done.back().diff;
        QVERIFY(refuses(edit, true)); // beneath a formula
        s.enter("3 T");
        QVERIFY(refuses(formula, false));
        s.editor.setKeepsHistory(true);
        s.edit("y", 5.0);
        QVERIFY(s.entries() == 1 && s.isSound());
        s.editor.setKeepsHistory(false);
        s.editor.undo();
        QVERIFY(s.entries() == 0 && s.takeTold().endsWith("yU "));
    }

    void slopesFollowAndTimesAreWholeFrames()
    {
        HostScene s;
        const auto before = s.states();
        const auto mend = [&s](SplineBase& spline) {
            const double fps = s.editor.getFps();
            const auto& points = spline.getControlPoints();
            for (std::size_t i = 0; i < points.size(); ++i) {
                SplineBase::PointInfo& point = *spline.modify(i);
                point.time = std::round(point.time * fps) / fps;
                point.type = SplineBase::Bezier;
                point.tanLeft = point.tanRight =
                    CurveFit::smoothSlope(i > 0 ? points[i - 1] : nullptr, point, spline[unsigned(i + 1)]);
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
        s.press(5.0, 1.0).mouse(QEvent::MouseMove, nearby).release(6.0, 2.0);
        QVERIFY(s.x[2]->tanLeft < -1.0 && s.entries() == 1 && s.isSound());
        s.editor.undo();
        QVERIFY(s.states() == before);
        s.key(Qt::Key_A, shift).key(Qt::Key_A, ctrl).press(5.0, 1.0).mouse(QEvent::MouseMove, nearby);
        s.release(6.0, 2.0);
        QVERIFY(s.x[1]->time == 6.0 && s.curves["a.y"].spline[1]->tanLeft < 0.0 && s.entries() == 1 &&
                s.isSound());
        const auto rise = [&s] {
            return (s.x[1]->pos - s.x[0]->pos) / (s.x[1]->time - s.x[0]->time);
        };
        QVERIFY(s.edit("x", 3.0) && s.x[1]->tanLeft == 0.0 && s.x[0]->tanRight == rise());
        s.editor.setConstraint("a", "x", nullptr);
        QVERIFY(s.edit("x", 4.0) && s.x[0]->tanRight < rise());
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
        s.editor.undo();
        s.clickPoint().type(s.editor.posX, "70");
        s.type(s.editor.posX, "55");
        s.canvas.setFocus();
        QVERIFY(s.x[1]->time == 5.5 && s.x[2]->time == 8.0 && s.isSound());
        s.editor.undo();
        QVERIFY(s.states() == before);
    }

    void whatAConstraintMustNotDoDoesNoHarm_data()
    {
        const Rows<HostDeed> row;
        row("throws", [](HostScene& s) {
            s.x.reset();
            throw 1;
        });
        row("removes", [](HostScene& s) { s.editor.removeCurve("a", "x"); });
        row("ends itself", [](HostScene& s) { s.editor.setConstraint("a", "x", {}); });
        row("edits",
            [](HostScene& s) {
                s.edited = s.edit("y", 3.0), s.editor.undo(), s.editor.resetAllCheckedF();
            });
    }
    void whatAConstraintMustNotDoDoesNoHarm()
    {
        const auto [deed] = Rows<HostDeed>::present();
        const Deed hands[] = {
            [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0); },
            [](Scene& s) { s.key(Qt::Key_A, shift).key(Qt::Key_A, ctrl).drag(5.0, 1.0, 6.0, 2.0); },
            [](Scene& s) { s.clickPoint().type(s.editor.posY, "3"), s.canvas.setFocus(); },
            [](Scene& s) { s.clickPoint().key(Qt::Key_Delete); },
            [](Scene& s) {
                static_cast<HostScene&>(s).edit("x", 3.0);
            }};
        for (const Deed& hand : hands) {
            HostScene s;
            const auto before = s.states();
            s.editor.setConstraint("a", "x", [&, deed = deed](SplineBase&) { deed(s); });
            hand(s);
            s.editor.setConstraint("a", "x", {});
            QVERIFY(!s.edited && Invariants::fault(s.editor).isEmpty() && s.showsWhatIsDrawnFromScratch());
            if (!s.editor.searchAllNodeList("a.x"))
                continue;
            QVERIFY(s.isSound() && s.entries() > 0);
            while (s.editor.undoStack()->canUndo())
                s.editor.undo();
            QVERIFY(s.states() == before);
        }
    }

    void gridIsThatOfTheHost()
    {
        Scene s;
        const QImage before = s.shown();
        int calls = 0;
        s.editor.setTimeGrid([&calls](double first, double last) { return ++calls, bars(first, last); });
        QVERIFY(s.shown() != before && calls == 1);
        QCOMPARE(columns(s),
                 (std::vector{s.pixel(0, 0), s.pixel(2, 0), s.pixel(4, 0), s.pixel(6, 0), s.pixel(8.25, 0)}));
        s.canvas.canvas.hands().guide.isSnapping = true;
        s.press(5.0, 1.0).mouse(QEvent::MouseMove, s.pixel(8.25, 2.0) - QPoint(1, 0)).release(8.25, 2.0);
        QVERIFY(s.x[2]->time == 8.25 && s.shown() != before && calls == 1);
        s.editor.undo();
        s.editor.setTimeRange(5.0, 9.0);
        QVERIFY(s.showsWhatIsDrawnFromScratch() && columns(s).size() == 2);
        s.editor.setTimeRange(-1.0, 10.0);
        s.editor.setTimeGrid({});
        s.click(7.0, 2.5);
        QVERIFY(s.shown() == before);
    }

    void badGridDoesNoHarm_data()
    {
        const Rows<std::function<Times(double, double)>, std::size_t> row; // and the most lines
        row(
            "throws", [](double, double) -> Times { throw 1; }, 0);
        row(
            "none", [](double, double) { return Times(); }, 0);
        row(
            "unsorted",
            [](double, double) {
                return Times{9.0, notANumber, 2.0, infinity, 2.0, -infinity, -5.0, 11.0, 1e300, 4.0};
            },
            3);
        row(
            "a million",
            [](double first, double last) {
                Times times(1'000'000);
                for (std::size_t i = 0; i < times.size(); ++i)
                    times[i] = last - (last - first) * double(i) / 1e6;
                return times;
            },
            250);
    }
    void badGridDoesNoHarm()
    {
        const auto [lines, most] = Rows<std::function<Times(double, double)>, std::size_t>::present();
        Scene s;
        s.editor.setTimeGrid(lines);
        s.shown();
        const auto found = columns(s);
        QVERIFY(found.size() <= most && (found.size() > most / 2 || most == 0));
        QVERIFY(std::adjacent_find(found.begin(), found.end(), [](const QPoint& left, const QPoint& right) {
                    return right.x() - left.x() < 4;
                }) == found.end());
    }

    void gridMayAskTheEditor()
    {
        Scene s;
        s.editor.setTimeGrid([&s](double, double) {
            s.editor.grab();
            s.editor.setTimeGrid(&bars);
            return Times{1.0};
        });
        QCOMPARE(columns(s).size(), 1U);
        s.shown();
        QCOMPARE(columns(s).size(), 5U);
    }

    void optionsHold()
    {
        HostScene s;
        change(s, [](CurveOptions& options) {
            options.step = 0.5, options.highest = 3.0, options.types = {SplineBase::Linear};
        });
        QVERIFY(s.edit("x", 1.3) && s.x[1]->pos == 1.5 && s.x[1]->type == SplineBase::Linear);
        QVERIFY(s.edit("x", infinity) && s.x[1]->pos == 0.0 && s.isSound()); // mended, before
    }

    void whatWorkMustNotDoIsRefused_data()
    {
        using Work = std::function<void(HostScene&, SplineBase&)>;
        const Rows<Work, bool, bool> row; // whether the edit is kept, and whether it is told
        row(
            "nested", [](HostScene& s, SplineBase&) { QVERIFY(!s.edit("y", 5.0)); }, true, true);
        row(
            "commands",
            [](HostScene& s, SplineBase&) {
                s.editor.undo(), s.editor.redo(), s.editor.resetSelectedF(), s.drag(8.0, -1.0, 7.0, 1.0);
            },
            true, true);
        row(
            "options", [](HostScene& s, SplineBase&) { lock(s, "x"); }, true, true);
        row(
            "takes points",
            [](HostScene&, SplineBase& spline) {
                spline.modify(1)->time = notANumber, spline.remove(spline.modify(2)), spline.firstType = 99;
            },
            true, true);
        row(
            "throws",
            [](HostScene&, SplineBase& spline) {
                spline.reset();
                throw 1;
            },
            false, false);
        row(
            "removes", [](HostScene& s, SplineBase&) { s.editor.removeCurve("a", "x"); }, true, false);
        row(
            "deletes", [](HostScene& s, SplineBase&) { delete s.owned; }, true, false);
        row(
            "deletes and throws",
            [](HostScene& s, SplineBase&) {
                delete s.owned;
                throw 1;
            },
            true, false);
    }
    void whatWorkMustNotDoIsRefused()
    {
        using Work = std::function<void(HostScene&, SplineBase&)>;
        const auto [work, isKept, isTold] = Rows<Work, bool, bool>::present();
        HostScene s;
        s.edit("x", 3.0);
        s.takeTold();
        const SplineState before = s.x.state();
        QVERIFY(!s.editor.edit("a", "nobody", {}, [](SplineBase&) { qFatal("called"); }));
        QVERIFY(!s.editor.edit("a", "x", {}, nullptr));
        bool isDone = false;
        try {
            isDone = s.editor.edit("a", "x", "Try", [&](SplineBase& spline) {
                spline.modify(1)->pos = 2.0;
                work(s, spline);
            });
        } catch (int) {
            QVERIFY(!isTold);
        }
        QCOMPARE(s.x.state() != before, isKept);
        QCOMPARE(s.takeTold(), QString(isTold ? "xH " : ""));
        if (s.owned && s.editor.searchAllNodeList("a.x")) {
            QVERIFY(isDone == isTold && s.isSound() && s.x.state().isWhole());
            QVERIFY(s.edit("x", 4.0) && s.takeTold() == "xH "); // the door is open again
            s.editor.undo();
        }
    }
};

QTEST_MAIN(tst_HostEdits)
#include "tst_HostEdits.moc"
