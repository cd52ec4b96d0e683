// SPDX-License-Identifier: MIT
#include "EditorScene.h"
#include "Invariants.h"

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
    bool follows = true;
    QString told;
};

using HostDeed = std::function<void(HostScene&)>;

void change(HostScene& s, void (*change)(CurveOptions&))
{
    CurveOptions options;
    change(options);
    s.editor.setCurveOptions("a", "x", options);
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
        row("locked", [](HostScene& s) { change(s, [](CurveOptions& options) { options.locked = true; }); });
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
            "options",
            [](HostScene& s, SplineBase&) {
                change(s, [](CurveOptions& options) { options.locked = true; });
            },
            true, true);
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
