// SPDX-License-Identifier: MIT
#include "EditorScene.h"
#include "Invariants.h"

#include <curveeditor/canvas/PointCommands.h>
#include <curveeditor/model/CurveFit.h>

/// Selects these points of "a.x", too.
Scene& select(Scene& s, const QList<unsigned>& points)
{
    for (const unsigned point : points)
        s.control().toggleSelected(s.x.modify(point));
    return s;
}

/// The times and values of the points of "a.x", in parentheses if selected, in brackets if that is the current point;
/// the current curve if it is another one.
QString pointsOf(const Scene& s)
{
    QStringList words;
    const ControlSplineNode& control = s.canvas.canvas.findCurve("a.x")->control();
    for (const auto* point : s.x.getControlPoints()) {
        const QString selected = control.isSelected(point) ? "(%1,%2)" : "%1,%2";
        words << (point == control.getCurrent() ? QString("[%1,%2]") : selected)
                     .arg(std::round(10.0 * point->time) / 10.0)
                     .arg(std::round(10.0 * point->pos) / 10.0);
    }
    if (s.current() != "a.x")
        words << s.current();
    return words.join(' ');
}

class tst_EditorUndo : public QObject
{
    Q_OBJECT

    using Gestures = Rows<int, QStringList, Deed>; // entries of the stack, and reports
    using Results = Rows<QString, Deed>;

private Q_SLOTS:
    void gestureIsReportedAndTakenBack_data()
    {
        const Gestures row;
        const QStringList x = {"a/x"};
        row("drag two", 1, x, [](Scene& s) { s.selectTwo().drag(6.0, 2.0, 7.0, 1.0); });
        row("drag a handle and align", 2, x + x + x, [](Scene& s) {
            s.dragHandle();
            QVERIFY(s.x[1]->tanRight > 1.5 && s.x[1]->tanLeft != s.x[1]->tanRight);
            s.trigger("alignTangentsAction");
            QVERIFY(s.x[1]->tanRight > 0.5 && s.x[1]->tanLeft == s.x[1]->tanRight);
        });
        row("menu opened by a key beside the view", 0, x, [](Scene& s) {
            s.clickPoint().canvas.showView({6.0, 9.0, -3.0, 3.0, s.canvas.pixelWidth, s.canvas.pixelHeight});
            whenOpen<ControlMenu>([&](ControlMenu& menu) {
                menu.close();
                QVERIFY(s.canvas.rect().contains(s.canvas.mapFromGlobal(menu.pos())));
            });
            openContextMenu(s.canvas, {}, QContextMenuEvent::Keyboard);
        });
        row("paste into another curve", 1, {"a/x", "a/y"}, [](Scene& s) {
            s.clickPoint().key(Qt::Key_C, ctrl).turnTo("a.y").key(Qt::Key_V, ctrl | shift);
            SplineBase::PointInfo pasted = *s.curves["a.y"].spline[2];
            pasted.serial = s.x[1]->serial;
            QVERIFY(isSamePoint(pasted, *s.x[1]));
        });
        row("typing that has ended until Escape", 2, x + x + x, [](Scene& s) {
            s.clickPoint().type(s.editor.posY, "7").canvas.canvas.door().commit();
            QTest::keyClick(s.editor.posY, Qt::Key_Escape);
            QCOMPARE(s.x[1]->pos, 1.0);
        });
        row("reset all", 1, {"a/z", "a/y", "a/x"}, [](Scene& s) { s.editor.resetAllCheckedF(); });
        row("formula in another variable of the host", 1, x, [](Scene& s) {
            s.reopen({}).editor.searchAllNodeList("a.x")->function = &s.curves["a.y"].expression;
            s.reopen({"a.z", "a.y", "a.x"}).enter("2 T");
            QVERIFY(s.curves["a.y"].expression && !s.curves["a.x"].expression);
        });
    }
    void gestureIsReportedAndTakenBack()
    {
        const auto [entries, reports, gesture] = Gestures::present();
        Scene s;
        const auto before = s.states();
        gesture(s);
        const auto after = s.states();
        QCOMPARE(s.changes, reports);
        QCOMPARE(s.entries(), entries);
        QVERIFY(s.showsWhatIsDrawnFromScratch());
        QCOMPARE(Invariants::fault(s.editor), QString());
        QVERIFY(entries == 0 || !s.commits.isEmpty());
        for (int round = 0; round < 2; ++round) {
            s.forgetChanges();
            for (int i = 0; i < entries; ++i)
                s.key(Qt::Key_Z, ctrl);
            QVERIFY(s.states() == before && s.showsWhatIsDrawnFromScratch());
            QCOMPARE(s.changes.isEmpty(), entries == 0);
            for (int i = 0; i < entries; ++i)
                s.key(Qt::Key_Z, ctrl | shift);
            QVERIFY(s.states() == after && s.showsWhatIsDrawnFromScratch());
        }
    }

    void commandOfTheCanvasLeavesThesePoints_data()
    {
        const Results row;
        row("scale and pan", "0,0 (3.5,4) (5,0)", [](Scene& s) {
            s.selectTwo().canvas.canvas.scaleSelection(0.5, 2.0);
            s.canvas.canvas.scaleSelection(std::nan(""), std::nan(""));
            s.canvas.canvas.panSelection(1.0, 2.0);
        });
        row("scale one of a list", "0,0 [2.5,1] 8,-1", [](Scene& s) {
            Selection& selection = s.control().selection();
            selection.selectAll({s.x[1]->serial});
            s.canvas.canvas.scaleSelection(0.25, 1.0);
            QVERIFY(selection.listed().empty());
            selection.selectAll({s.x[1]->serial});
            s.canvas.canvas.panSelection(1.25, 0.0);
            QVERIFY(selection.listed().empty());
        });
        row("scale one listed alone", "0,0 (5,1) 8,-1", [](Scene& s) {
            select(s, {0, 1, 0}).canvas.canvas.scaleSelection(0.5, 2.0);
            s.canvas.canvas.panSelection(0.5, 2.0);
        });
        row("load a faulty expression", "[0,0] 5,1 8,-1", [](Scene& s) {
            std::istringstream file("255 0 0 1 sin(");
            QVERIFY(!select(s, {0}).canvas.canvas.loadCurve(file) && !s.canvas.canvas.isCurrentExpression());
        });
    }
    void commandOfTheCanvasLeavesThesePoints()
    {
        const auto [points, command] = Results::present();
        Scene s;
        command(s);
        QCOMPARE(pointsOf(s), points);
        QVERIFY(s.changes.isEmpty());
    }

    void whoHearsMayDoAnything_data()
    {
        const Rows<Deed> row;
        row("drag", [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0); });
        row("formula", [](Scene& s) { s.enter("2*t"); });
        row("typing", [](Scene& s) { s.clickPoint().type(s.editor.posY, "1.5"); });
        row("undo", [](Scene& s) { s.undo(); });
        row("curve removed", [](Scene& s) { s.remove("x"); });
        row("group removed", [](Scene& s) { s.editor.removeNode("a"); });
        row("editor gone", [](Scene& s) { delete s.owned; });
    }
    void whoHearsMayDoAnything()
    {
        const auto [deed] = Rows<Deed>::present();
        const Deed replies[] = {
            [](Scene& s) { s.remove("x"); },
            [](Scene& s) { s.turnTo("a.y"); },
            [](Scene& s) { s.editor.deleteExpression("a", "x", &s.curves["a.x"].expression); },
            [](Scene& s) { s.editor.removeNode("a"); },
            [](Scene& s) { s.open("a.y"); },
            [](Scene& s) { s.editor.removeNode("a"), s.open("a.x"), s.drag(5.0, 1.0, 6.0, 2.0); },
            [](Scene& s) { s.undo(), s.undo(); },
            [](Scene& s) { s.editor.renameCurve("a", "z", "Z"), s.editor.cleanSelecteds(); },
            [](Scene& s) { s.editor.renameNode("a", "b"), s.editor.resetAllCheckedF(); },
        };
        bool isHosts = false;
        for (const auto& reply : replies) {
            isHosts = !isHosts;
            for (const bool hearsTheStack : {true, false}) {
                QUndoStack stack;
                Scene s;
                s.editor.setUndoStack(isHosts ? &stack : nullptr);
                s.enter("t").editor.deleteCurveClicked();
                s.drag(5.0, 1.0, 6.0, 2.0).drag(6.0, 2.0, 5.0, 1.0);
                bool isFirst = true;
                const auto hear = [&] {
                    if (std::exchange(isFirst, false))
                        reply(s);
                };
                hearsTheStack ? connect(s.editor.undoStack(), &QUndoStack::indexChanged, &s.editor, hear)
                              : connect(&s.editor, &CurveEditor::curveHasChanged, &s.editor, hear);
                deed(s);
                QVERIFY(!isFirst || !hearsTheStack);
                if (s.owned)
                    QCOMPARE(Invariants::fault(s.editor), QString());
                else
                    QCOMPARE(stack.count(), 0);
            }
        }
    }

    void menuFollowsAStackThatIsSharedAndMayGoFirst()
    {
        auto stack = std::make_unique<QUndoStack>();
        Scene first, second;
        const QMenu& menu = *second.menu("Edit");
        first.editor.setUndoStack(stack.get());
        second.editor.setUndoStack(stack.get());
        first.drag(5.0, 1.0, 6.0, 2.0);
        QCOMPARE(menu.actions()[0]->text(), "Undo " + stack->undoText());
        second.editor.undo();
        QVERIFY(first.commits.size() == 2 && menu.actions()[1]->isEnabled());
        stack.reset();
        QVERIFY(!menu.actions()[1]->isEnabled());
        second.drag(5.0, 1.0, 6.0, 2.0);
        QCOMPARE(second.entries(), 1);
    }

    void entriesFollowTheCurveThatLeavesTheCanvas()
    {
        Scene s;
        QStringList told;
        connect(&s.editor, &CurveEditor::curveOpened,
                [&](const QString& g, const QString& c) { told << "+" + g + c; });
        connect(&s.editor, &CurveEditor::curveClosed,
                [&](const QString& g, const QString& c) { told << "-" + g + c; });
        connect(&s.editor, &CurveEditor::currentCurveChanged,
                [&](const QString& g, const QString& c) { told << g + c; });
        const CurveState before = s.states()["a.x"];
        s.drag(5.0, 1.0, 6.0, 2.0).editor.renameCurve("a", "x", "w");
        QCOMPARE(s.menu("Edit")->actions()[0]->text(), "Undo Move a point of a.w");
        s.editor.cleanSelecteds();
        s.editor.renameNode("a", "b");
        QCOMPARE(s.editor.undoStack()->undoText(), "Move a point of b.w");
        s.forgetChanges().undo();
        QVERIFY(s.x.state() == before.spline);
        QCOMPARE(s.changes, QStringList{"b/w"});
        s.redo();
        for (const char* const name : {"b.w", "b.y", "b.y"})
            s.editor.setEditingNode(name);
        s.shown();
        s.undo();
        QVERIFY(s.current() == "b.w" && s.showsWhatIsDrawnFromScratch() && s.x.state() == before.spline);
        s.editor.removeCurve("b", "w");
        QVERIFY(!s.editor.undoStack()->canRedo());
        QCOMPARE(told,
                 (QStringList{"-aw", "az", "-ay", "-az", "", "+bw", "bw", "+by", "by", "bw", "-bw", "by"}));
    }

    void expressionsOfTheHostGoAtOnce()
    {
        const Deed places[] = {
            [](Scene&) {},
            [](Scene& s) { s.editor.cleanSelecteds(); },
            [](Scene& s) { s.editor.hide(); },
        };
        for (const auto& place : places) {
            Scene s;
            s.editor.cleanSelecteds();
            int living = 0;
            for (const QString name : {"a.y", "a.x"}) {
                s.curves[name].expression = new CountedNode(living);
                s.editor.setEditingNode(name);
                s.editor.deleteCurveClicked();
            }
            place(s);
            s.editor.deleteExpression("a", "x", &s.curves["a.x"].expression);
            QVERIFY(!s.curves["a.x"].expression && living == 1 && s.entries() == 1);
        }
    }

    void whatIsCutIsOnTheClipboard()
    {
        Scene s;
        for (const QString name : {"a.y", "a.x"}) {
            s.turnTo(name).control().selectOnly(s.curves[name].spline[1]);
        }
        s.press(5.0, 1.0).move(6.0, 1.0);
        connect(&s.editor, &CurveEditor::curveEdited, [&s](const CurveChange& change) {
            if (change.phase == CurveChange::Phase::Commit)
                s.editor.setEditingNode("a.y");
        });
        PointCommands(s.canvas.canvas).cut();
        QCOMPARE(s.curves["a.y"].spline.getControlPointsNumber(), 1u);
        QVERIFY(QGuiApplication::clipboard()->text().contains("\n5\t-2\t"));
    }

    void keysStepInEveryFocus()
    {
        Scene s;
        s.drag(5.0, 1.0, 6.0, 2.0);
        const CurveState after = s.states()["a.x"];
        s.editor.commandLine->setText("t");
        for (QWidget* focus : std::initializer_list<QWidget*>{
                 &s.canvas, &s.list, s.editor.posY, s.editor.nodeFirst, s.editor.commandLine, &s.editor}) {
            QTest::keyClick(focus, Qt::Key_Z, ctrl);
            QVERIFY2(s.states()["a.x"] != after, focus->metaObject()->className());
            QTest::keyClick(focus, Qt::Key_Y, ctrl);
            QVERIFY2(s.states()["a.x"] == after, focus->metaObject()->className());
        }
        s.click(6.0, 2.0).type(s.editor.posY, "1.5");
        QTest::keyClick(s.editor.posY, Qt::Key_Z, ctrl);
        QVERIFY(s.editor.posY->hasFocus() && s.states()["a.x"] == after);
        QCOMPARE(s.editor.posY->text(), s.editor.posY->textFor(after.spline.points[1].pos));
        QTest::keyClicks(s.editor.commandLine, "+1");
        QTest::keyClick(s.editor.commandLine, Qt::Key_Z, ctrl);
        QVERIFY(s.states()["a.x"] == after && s.editor.commandLine->text() != "t+1");
        QTest::keyClick(s.editor.commandLine, Qt::Key_Y, ctrl);
        QCOMPARE(s.editor.commandLine->text(), "t+1");
    }
};

QTEST_MAIN(tst_EditorUndo)
#include "tst_EditorUndo.moc"
