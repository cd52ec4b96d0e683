// SPDX-License-Identifier: MIT
#include "EditorScene.h"
#include "Invariants.h"

#include <curveeditor/canvas/PointCommands.h>
#include <curveeditor/shell/FitDialog.h>
#include <curveeditor/shell/PanDialog.h>
#include <curveeditor/shell/ScaleDialog.h>

using namespace curveeditor;

namespace {

void lock(Scene& s, const QString& curve, bool on = true)
{
    s.editor.setCurveOptions("a", curve, CurveOptions{on});
}

/// Chooses OK in the dialog of that key; returns what it said, and leaves one that stays open.
QString fit(Scene& s, Qt::Key key, const QString& tolerance, const std::function<void()>& meanwhile = {})
{
    s.key(key, shift);
    auto* const dialog = s.editor.findChild<FitDialog*>();
    dialog->findChild<QLineEdit*>("tolerance")->setText(tolerance);
    if (meanwhile)
        meanwhile();
    dialog->accept();
    const QString outcome = dialog->findChild<QLabel*>("outcome")->text();
    dialog->reject();
    return outcome;
}

} // namespace

class tst_CurveOptions : public QObject
{
    Q_OBJECT

    using Edits = Rows<QString, Deed>; // the text of the box that a lock makes open, without the name

private Q_SLOTS:
    void lockedCurveIsNotEdited_data()
    {
        const Edits row;
        const QString told = " is locked.";
        const auto command = [](auto work) {
            return [work](Scene& s) {
                s.selectTwo(), (PointCommands(s.canvas.canvas).*work)();
            };
        };
        row("drag", {}, [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0); });
        row("drag of two", {}, [](Scene& s) { s.selectTwo().drag(6.0, 2.0, 7.0, 1.0); });
        row("drag at all curves", {},
            [](Scene& s) { s.key(Qt::Key_A, shift).key(Qt::Key_A, ctrl).drag(6.0, 2.0, 7.0, 1.0); });
        row("handle", {}, [](Scene& s) {
            s.clickPoint();
            const QPoint handle = s.canvas.canvas.currentSpline()->rightHandle(s.pixel(5.0, 1.0), 1, false);
            s.mouse(QEvent::MouseButtonPress, handle).move(6.0, 3.0).release(6.0, 3.0);
        });
        row("double click", told, [](Scene& s) {
            s.press(6.0, 2.5).release(6.0, 2.5).mouse(QEvent::MouseButtonDblClick, s.pixel(6.0, 2.5));
        });
        row("Ctrl", told, [](Scene& s) { s.press(6.0, 2.5, ctrl).release(6.0, 2.5); });
        row("Delete", told, [](Scene& s) { s.selectTwo().key(Qt::Key_Delete); });
        row("nudge", told, [](Scene& s) { s.clickPoint().key(Qt::Key_Right, alt); });
        row("cut", told, [](Scene& s) { s.clickPoint().key(Qt::Key_X, ctrl); });
        row("paste", told, [](Scene& s) { s.paste("7\t0\n9\t1\n"); });
        row("duplicate", told, command(&PointCommands::duplicate));
        row("insert", told, [](Scene& s) { s.editor.setTimeLine(2.0), s.key(Qt::Key_I, shift); });
        row("flatten", told, command(&PointCommands::flattenTangents));
        row("menu: type", told, [](Scene& s) { s.selectTwo().choose(1); });
        row("menu: create", told, [](Scene& s) { s.choose(ControlMenu::CreateKey); });
        row("menu: delete", told, [](Scene& s) { s.selectTwo().choose(ControlMenu::DeleteKey); });
        row("number", {}, [](Scene& s) { s.clickPoint().type(s.editor.posY, "3"); });
        row("drag on a field", {}, [](Scene& s) {
            s.clickPoint().sendMouse(*s.editor.posY, QEvent::MouseButtonPress, {});
            s.sendMouse(*s.editor.posY, QEvent::MouseMove, {0, -90});
            s.sendMouse(*s.editor.posY, QEvent::MouseButtonRelease, {0, -90});
        });
        row("type", {}, [](Scene& s) {
            s.clickPoint();
            s.editor.nodeTypeCombo->activated(0);
        });
        row("table", {}, [](Scene& s) {
            s.editor.tabWidget2->setCurrentIndex(2);
            auto* const model = s.editor.findChild<QTableView*>("pointTable")->model();
            const QModelIndex cell = model->index(1, 1);
            QCOMPARE(model->setData(cell, "7"), cell.flags().testFlag(Qt::ItemIsEditable));
        });
        row("first behaviour", told, [](Scene& s) { s.editor.setFirstNodeZero(); });
        row("last behaviour", told, [](Scene& s) { s.editor.nodeLast->activated(2); });
        row("scale", told, [](Scene& s) {
            s.selectTwo();
            whenOpen<ScaleDialog>([](ScaleDialog& dialog) { dialog.scaleY->setText("2"), dialog.accept(); });
            s.editor.setScaleSelection();
        });
        row("pan", told, [](Scene& s) {
            s.selectTwo();
            whenOpen<PanDialog>([](PanDialog& dialog) { dialog.panX->setText("1"), dialog.accept(); });
            s.editor.setPanSelection();
        });
        row("reset", told, [](Scene& s) { s.editor.resetSelectedF(); });
        row("reset all", told, [](Scene& s) { s.editor.resetAllCheckedF(); });
        row("formula", told, [](Scene& s) {
            s.enter("2 T");
            QVERIFY(s.entries() > 0 || s.editor.commandLine->text() == "2 T");
            QCOMPARE(s.editor.commandLine->isUnfinished(), s.entries() == 0);
        });
        row("formula deleted", told, [](Scene& s) { s.turnTo("a.z").editor.deleteCurveClicked(); });
        row("spline shown", told, [](Scene& s) { s.turnTo("a.z").editor.setTcb(); });
        row("load", told, [](Scene& s) {
            std::stringstream file;
            QVERIFY(s.canvas.canvas.saveCurve(file) && s.turnTo("a.y").canvas.canvas.loadCurve(file));
        });
        row("accessibility", told, [](Scene& s) {
            QAccessibleActionInterface* const point =
                QAccessible::queryAccessibleInterface(&s.canvas)->child(1)->actionInterface();
            point->doAction(point->actionNames()[1]);
        });
        for (const auto& [name, key] : {std::pair("simplify", Qt::Key_S), {"bake", Qt::Key_B}}) {
            row(name, {}, [key = key](Scene& s) {
                const QString outcome = fit(s, key, "9");
                QCOMPARE(outcome == "The curve is locked.", s.entries() == 0);
            });
        }
        row("simplify, locked meanwhile", {}, [](Scene& s) {
            const bool locks = s.editor.curveOptions("a", "x").locked;
            lock(s, "x", false);
            const QString outcome = fit(s, Qt::Key_S, "9", [&] { lock(s, "x", locks); });
            QCOMPARE(outcome == "The curve is locked.", locks);
            s.commits.clear(); // of the trial, which is taken back
        });
    }
    void lockedCurveIsNotEdited()
    {
        const auto [told, edit] = Edits::present();
        for (const bool isLocked : {false, true}) {
            Scene s;
            for (const QString curve : {"x", "y", "z"})
                lock(s, curve, isLocked);
            s.x.modify(1)->tanRight = 2.0; // to be flattened
            s.editor.updateCurves();
            const auto before = s.states();
            edit(s);
            QCOMPARE(s.states() == before, isLocked);
            QCOMPARE(s.entries() == 0, isLocked);
            const QString box = closeBox();
            QCOMPARE(box.mid(3), isLocked ? told : QString());
            QVERIFY(!isLocked || (s.changes.isEmpty() && s.commits.isEmpty()));
            QCOMPARE(Invariants::fault(s.editor), QString());
            QVERIFY(s.showsWhatIsDrawnFromScratch());
        }
    }

    void othersAreEditedWithoutIt()
    {
        Scene s;
        lock(s, "y");
        const CurveState y = s.states()["a.y"];
        s.key(Qt::Key_A, shift).drag(4.0, 2.5, 6.0, -2.5); // a band
        s.changes.clear();
        s.drag(5.0, 1.0, 6.0, 2.0);
        QCOMPARE(s.editor.undoStack()->undoText(), "Move a point of a.x");
        s.key(Qt::Key_Delete);
        QCOMPARE(s.editor.undoStack()->undoText(), "Delete a point of a.x");
        s.editor.resetAllCheckedF();
        QVERIFY(s.states()["a.y"] == y && s.entries() == 3 && closeBox().isEmpty());
        QVERIFY(!s.changes.contains("a/y") && !s.commits.contains("a/y"));
        s.turnTo("a.y").key(Qt::Key_A, ctrl).key(Qt::Key_C, ctrl);
        QCOMPARE(QGuiApplication::clipboard()->text().count("-2"), 1);
    }

    void lockEndsWhatIsOpenAndLetsStepsPass()
    {
        const Deed begin[] = {[](Scene& s) { s.press(5.0, 1.0).move(6.0, 2.0); },
                              [](Scene& s) {
                                  s.clickPoint().type(s.editor.posY, "3");
                              }};
        const Deed goOn[] = {[](Scene& s) { s.move(7.0, 1.0).release(7.0, 1.0); },
                             [](Scene& s) {
                                 s.editor.posY->newValueSet(4.0, s.editor.posY);
                             }};
        for (int i = 0; i < 2; ++i) {
            Scene s;
            const auto before = s.states();
            begin[i](s);
            const auto after = s.states();
            lock(s, "y");
            QVERIFY(s.canvas.canvas.door().isOpen() && s.commits.isEmpty());
            lock(s, "x");
            QCOMPARE(s.commits, QStringList{"a/x"});
            QVERIFY(after != before && !s.editor.posY->isEnabled());
            goOn[i](s);
            QVERIFY(s.states() == after && s.entries() == 1);
            s.editor.undo();
            QVERIFY(s.states() == before);
            s.editor.redo();
            QVERIFY(s.states() == after);
            lock(s, "x", false);
            QVERIFY(s.editor.posY->isEnabled());
        }
    }

    void lockHoldsUntilTheCurveIsRemoved()
    {
        Scene s;
        const auto isLocked = [&s](const QString& curve) {
            return s.editor.curveOptions("a", curve).locked;
        };
        lock(s, "nobody");
        s.editor.cleanSelecteds();
        lock(s, "x");
        QVERIFY(isLocked("x") && !isLocked("y") && !isLocked("nobody"));
        s.editor.renameCurve("a", "x", "w");
        s.editor.setEditingNode("a.w");
        s.editor.resetSelectedF();
        QCOMPARE(closeBox(), "a.w is locked.");
        s.editor.removeCurve("a", "w");
        s.add("a.x");
        QVERIFY(!isLocked("w") && !isLocked("x"));
    }
};

QTEST_MAIN(tst_CurveOptions)
#include "tst_CurveOptions.moc"
