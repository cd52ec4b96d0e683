// SPDX-License-Identifier: MIT
#include "EditorScene.h"
#include "Invariants.h"

#include <curveeditor/canvas/PointCommands.h>
#include <curveeditor/model/SplineState.h>
#include <curveeditor/shell/PanDialog.h>
#include <curveeditor/shell/ScaleDialog.h>
#include <curveeditor/shell/ViewportSettings.h>

#include <QAction>
#include <QClipboard>
#include <QTemporaryDir>

#include <sstream>

class tst_EditorUndo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gestureIsReportedAndTakenBack_data()
    {
        QTest::addColumn<Deed>("gesture");
        QTest::addColumn<int>("entries");
        QTest::addColumn<QStringList>("reports");
        const QStringList x = {"a/x"};
        const auto row = [](const char* name, int entries, const QStringList& reports, const Deed& gesture) {
            QTest::newRow(name) << gesture << entries << reports;
        };
        row("press without a move", 0, x, [](Scene& s) { s.clickPoint(); });
        row("drag", 1, x, [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0); });
        row("drag across", 1, x, [](Scene& s) { s.drag(5.0, 1.0, 9.0, 2.0); });
        row("drag two", 1, x, [](Scene& s) { s.selectTwo(), s.drag(6.0, 2.0, 7.0, 1.0); });
        row("scale two", 1, x,
            [](Scene& s) { s.selectTwo(), s.drag(6.0, 2.0, 6.5, 2.5, Qt::ShiftModifier); });
        row("drag a handle", 1, x + x, [](Scene& s) {
            s.clickPoint();
            const QPoint handle = s.canvas.canvas.currentSpline()->rightHandle(s.pixel(5.0, 1.0), 1, false);
            s.mouse(QEvent::MouseButtonPress, handle);
            s.move(6.0, 3.0);
            s.release(6.0, 3.0);
            QVERIFY(s.x[1]->tanRight > 1.5);
        });
        row("band", 0, x, [](Scene& s) { s.drag(3.0, 2.5, 9.0, -2.0); });
        row("time line", 0, {}, [](Scene& s) { s.editor.setTimeLine(3.0); });
        row("another curve during a drag", 1, {}, [](Scene& s) {
            s.press(5.0, 1.0);
            s.move(6.0, 2.0);
            s.canvas.canvas.setCurrentCurve("a.y");
            QCOMPARE(s.commits, QStringList{"a/x"}); // the drag ends with it
            s.control().selectOnly(s.curves["a.y"].spline[1]);
            s.move(7.0, 2.0);
            s.control().selectOnly(nullptr);
            s.release(7.0, 2.0);
        });
        row("Escape during a drag", 0, {}, [](Scene& s) {
            s.press(5.0, 1.0);
            s.move(6.0, 2.0);
            s.key(Qt::Key_Escape);
            s.move(7.0, 2.0);
            s.release(7.0, 2.0);
            QVERIFY(s.editor.isVisible() && s.lastCause == CurveChange::Cause::Cancel);
            s.commits.clear();
        });
        row("Ctrl adds", 1, x, [](Scene& s) {
            s.press(6.0, 2.5, Qt::ControlModifier);
            s.control().selectOnly(nullptr);
            s.release(6.0, 2.5);
        });
        row("double click adds", 1, x,
            [](Scene& s) { s.mouse(QEvent::MouseButtonDblClick, s.pixel(6.0, 2.5)); });
        row("press soon after a click elsewhere", 1, x + x, [](Scene& s) {
            s.clickPoint();
            s.mouse(QEvent::MouseButtonDblClick, s.pixel(8.0, -1.0));
            s.move(8.5, -1.0);
            s.release(8.5, -1.0);
            QVERIFY(s.x[2]->time > 8.4);
        });
        row("double click in a hurry", 1, x, [](Scene& s) {
            s.press(6.0, 2.5);
            s.release(6.0, 2.5);
            s.mouse(QEvent::MouseButtonDblClick, s.pixel(6.0, 2.5) + QPoint(4, 3));
            s.release(6.0, 2.5);
        });
        row("menu adds", 1, x + x, [](Scene& s) { s.choose(ControlMenu::CreateKey); });
        row("menu opened by a key", 1, x + x, [](Scene& s) {
            whenOpen<ControlMenu>([](ControlMenu& menu) {
                menu.handleMenu(ControlMenu::CreateKey);
                menu.close();
            });
            QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
            QApplication::sendEvent(&s.canvas, &event);
            QCOMPARE(s.x.getControlPointsNumber(), 4u);
        });
        row("menu changes types", 1, x, [](Scene& s) { s.selectTwo(), s.choose(1); });
        row("menu deletes", 1, x, [](Scene& s) { s.selectTwo(), s.choose(ControlMenu::DeleteKey); });
        row("Delete", 1, x, [](Scene& s) { s.selectTwo(), s.key(Qt::Key_Delete); });
        row("Delete without a selection", 0, x, [](Scene& s) { s.key(Qt::Key_Delete); });
        row("arrows", 0, {}, [](Scene& s) { s.key(Qt::Key_Right); });
        row("nudges", 2, x + x + x, [](Scene& s) {
            s.clickPoint();
            s.key(Qt::Key_Right, Qt::AltModifier);
            QCOMPARE(s.x[1]->time, 5.0 + 1.0 / s.canvas.fps);
            const double value = s.x[1]->pos;
            s.key(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
            QCOMPARE(s.x[1]->pos, value - s.canvas.canvas.grid().stepY);
        });
        row("cut and paste", 2, x + x, [](Scene& s) {
            s.selectTwo();
            s.key(Qt::Key_X, Qt::ControlModifier);
            QCOMPARE(s.x.getControlPointsNumber(), 1u);
            s.editor.setTimeLine(2.0);
            s.key(Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(QPointF(s.x[1]->time, s.x[2]->time), QPointF(2.0, 5.0));
            QCOMPARE(s.control().selection().edited().size(), 2u);
        });
        row("paste into another curve", 1, {"a/x", "a/y"}, [](Scene& s) {
            s.clickPoint();
            s.key(Qt::Key_C, Qt::ControlModifier);
            s.canvas.canvas.setCurrentCurve("a.y");
            s.key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
            SplineBase::PointInfo pasted = *s.curves["a.y"].spline[2];
            pasted.serial = s.x[1]->serial;
            QVERIFY(isSamePoint(pasted, *s.x[1]));
        });
        row("paste what is no table", 0, {}, [](Scene& s) {
            QApplication::clipboard()->setText("1 2\nword 3");
            s.key(Qt::Key_V, Qt::ControlModifier);
            QVERIFY(closeBox().contains('2'));
        });
        row("paste what can be read in two ways", 2, x + x + x, [](Scene& s) {
            s.clickPoint();
            QApplication::clipboard()->setText("7\t0\n9\t1,234\n");
            for (const QString answer : {"Cancel", "Decimal comma", "Decimal point"}) {
                QApplication::setActiveWindow(&s.editor);
                s.key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
                whenOpen<QMessageBox>([&answer](QMessageBox& box) {
                    QVERIFY(box.text().contains("2") && box.text().contains("    9     1.234\n"));
                    QVERIFY(box.text().endsWith("    9     1234"));
                    for (QAbstractButton* const button : box.buttons()) {
                        if (button->text().remove('&') == answer)
                            button->click();
                    }
                });
                QCoreApplication::processEvents();
                QCOMPARE(s.control().selection().edited().size(), answer == "Cancel" ? 1u : 2u);
            }
            QCOMPARE(QPointF(s.x[5]->pos, s.x[6]->pos), QPointF(1.234, 1234.0));
        });
        row("paste beyond all times", 0, x, [](Scene& s) {
            s.clickPoint();
            QApplication::clipboard()->setText("-1e308 2\n1e308 3");
            s.canvas.timeLine = 1e308;
            s.key(Qt::Key_V, Qt::ControlModifier);
            QVERIFY(closeBox().contains("beyond"));
            QVERIFY(s.control().selection().edited().size() == 1 && s.x.getControlPointsNumber() == 3);
        });
        row("duplicate", 1, x, [](Scene& s) {
            s.selectTwo();
            s.editor.setFps(1.0);
            s.key(Qt::Key_D, Qt::ControlModifier);
            QCOMPARE(s.x.getControlPointsNumber(), 5u);
            const std::vector copies = {s.x[2]->serial, s.x[4]->serial};
            QVERIFY(s.x[1]->serial != copies[0] && s.x[3]->serial != copies[1]);
            QVERIFY(s.control().selection().edited() == copies);
        });
        row("insert and smooth", 2, x + x, [](Scene& s) {
            const double value = s.x(2.0);
            s.editor.setTimeLine(2.0);
            s.key(Qt::Key_I, Qt::ShiftModifier);
            QCOMPARE(QPointF(s.x[1]->time, s.x[1]->pos), QPointF(2.0, value));
            QVERIFY(s.control().isSelected(s.x[1]));
            PointCommands(s.canvas.canvas).selectAll();
            PointCommands(s.canvas.canvas).flattenTangents();
            QCOMPARE(s.x[1]->tanRight, 0.0);
        });
        row("insert at the mouse, or else at the time line", 2, x + x, [](Scene& s) {
            s.editor.setTimeLine(2.0);
            s.key(Qt::Key_I);
            s.mouse(QEvent::MouseMove, s.pixel(3.0, 0.0), Qt::NoButton);
            QCursor::setPos(s.canvas.mapToGlobal(s.pixel(7.0, 0.0))); // over the menu
            for (QAction* const entry : s.menu("Edit")->actions()) {
                if (entry->text().endsWith("at the mouse"))
                    entry->trigger();
            }
            QVERIFY(s.x[1]->time == 2.0 && qAbs(s.x[2]->time - 3.0) < 0.05);
        });
        row("drag that snaps", 1, x, [](Scene& s) {
            s.key(Qt::Key_S);
            s.canvas.canvas.hands().guide.snap.kinds = Snap::Frames | Snap::Points;
            s.press(5.0, 1.0);
            s.move(6.03, -1.98);
            const SplineBase::PointInfo& point = *s.x[1];
            QCOMPARE(QPointF(point.time, point.pos), QPointF(6.0, -2.0));
            s.move(6.53, -1.9, Qt::ControlModifier);
            QVERIFY(point.time != 6.5);
            s.release(6.5, -1.9);
        });
        row("drag of two that snaps", 1, x, [](Scene& s) {
            s.selectTwo();
            s.canvas.canvas.hands().guide.snap.kinds = Snap::Frames;
            s.press(5.3, 1.0);
            s.move(6.32, 1.5, Qt::ControlModifier);
            QCOMPARE(s.x[1]->time, 6.0);
            s.release(6.32, 1.5);
        });
        row("drag that begins with Ctrl", 1, x, [](Scene& s) {
            s.canvas.canvas.hands().guide.snap.kinds = Snap::Frames;
            s.editor.setFps(1.0);
            s.press(5.0, 1.0, Qt::ControlModifier);
            const std::pair<Qt::KeyboardModifiers, bool> steps[] = {
                {Qt::ControlModifier, false}, {Qt::NoModifier, false}, {Qt::ControlModifier, true}};
            for (const auto& [keys, snaps] : steps) {
                s.move(6.03, 2.0, keys);
                QCOMPARE(s.x[1]->time == 6.0, snaps);
            }
            s.release(6.03, 2.0);
        });
        row("redo during a drag", 1, x, [](Scene& s) {
            s.drag(5.0, 1.0, 6.0, 2.0);
            s.editor.undo();
            s.changes.clear();
            s.press(5.0, 1.0);
            s.move(6.5, 2.0);
            s.editor.redo();
            s.move(7.0, 2.0);
            s.release(7.0, 2.0);
            QVERIFY(s.x[1]->time > 6.5);
        });
        row("arrows during a drag", 1, x, [](Scene& s) {
            s.press(5.0, 1.0);
            s.move(6.0, 2.0);
            for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, Qt::ShiftModifier, Qt::AltModifier}) {
                s.key(Qt::Key_Right, keys);
                QVERIFY(s.canvas.gesture.isAtPoints());
            }
            QVERIFY(s.control().hasSingleSelection() && s.control().isSelected(s.x[1]));
            s.release(6.0, 2.0);
        });
        row("drag along an axis", 1, x, [](Scene& s) {
            s.press(5.0, 1.0);
            QTest::keyPress(&s.canvas, Qt::Key_X);
            s.move(6.0, 2.0);
            const SplineBase::PointInfo& point = *s.x[1];
            QCOMPARE(point.pos, 1.0);
            QTest::keyRelease(&s.canvas, Qt::Key_X);
            for (const Qt::KeyboardModifiers toggle : {Qt::NoModifier, Qt::ControlModifier}) {
                QTest::keyPress(&s.canvas, Qt::Key_X, toggle); // no cut
                QTest::keyPress(&s.canvas, Qt::Key_Y, toggle);
                s.move(7.0, 2.0);
                QCOMPARE(s.x[1]->time, 5.0);
                QTest::keyRelease(&s.canvas, Qt::Key_Y, toggle);
            }
            s.release(7.0, 2.0);
        });
        row("drag at all curves", 1, {"a/x", "a/y"}, [](Scene& s) {
            s.key(Qt::Key_A); // alone no key of that mode
            s.key(Qt::Key_A, Qt::ShiftModifier);
            s.key(Qt::Key_A, Qt::ControlModifier);
            s.drag(6.0, 2.0, 7.0, 1.0);
            QVERIFY(qAbs(s.curves["a.y"].spline[1]->time - 6.0) < 0.05);
            s.key(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(s.current(), "a.x");
            s.key(Qt::Key_Y, Qt::ControlModifier);
            s.changes = s.changes.mid(0, 2);
        });
        row("drag of a point of another curve", 1, {"a/y"}, [](Scene& s) {
            s.clickPoint();
            s.changes.clear();
            s.editor.cleanSelecteds();
            s.canvas.canvas.setEditsAllCurves(true);
            for (const QString name : {"a.z", "a.y", "a.x"})
                s.editor.setEditingNode(name);
            QVERIFY(s.canvas.canvas.findCurve("a.y")->getCanvasSpline()->showsPoints);
            s.drag(5.0, -2.0, 6.0, 2.0);
            QCOMPARE(s.current(), "a.y");
            QCOMPARE(s.x[1]->time, 5.0);
        });
        row("click where points of several curves lie", 0, {"a/x", "a/y", "a/x"}, [](Scene& s) {
            s.canvas.canvas.setEditsAllCurves(true);
            for (const QString name : {"a.x", "a.y", "a.z"}) {
                s.canvas.canvas.setCurrentCurve(name);
                s.press(0.0, 0.0);
                s.release(0.0, 0.0);
                QCOMPARE(s.current(), name == "a.z" ? "a.x" : name); // which lies in front
            }
        });
        row("commands at all curves", 2, {"a/z", "a/z", "a/y", "a/x", "a/z", "a/y", "a/x"}, [](Scene& s) {
            s.canvas.canvas.setCurrentCurve("a.z");
            s.key(Qt::Key_A, Qt::ShiftModifier);
            s.press(6.0, 2.4, Qt::ControlModifier); // adds nothing to the spline behind the formula
            s.release(6.0, 2.4);
            s.drag(4.0, 2.5, 9.0, -2.5);
            s.key(Qt::Key_Up, Qt::AltModifier);
            s.key(Qt::Key_Delete);
            QCOMPARE(s.curves["a.y"].spline.getControlPointsNumber(), 1u);
            s.key(Qt::Key_A, Qt::ControlModifier);
            s.key(Qt::Key_A, Qt::ShiftModifier);
            QVERIFY(!s.canvas.canvas.findCurve("a.y")->control().hasSelection());
        });
        row("stepping", 0, x + x, [](Scene& s) {
            s.clickPoint();
            QTest::mouseClick(s.editor.nextNode, Qt::LeftButton);
        });
        row("typing", 1, x + x + x + x, [](Scene& s) {
            s.clickPoint();
            s.type(s.editor.posY, "1.5");
            s.editor.posX->setFocus();
        });
        row("typing in two fields", 2, x + x + x, [](Scene& s) {
            s.clickPoint();
            s.type(s.editor.posY, "3");
            s.type(s.editor.tension, "1");
            QTest::qWait(0);
            s.editor.bias->setFocus();
        });
        row("typing until Escape", 0, x + x + x, [](Scene& s) {
            s.clickPoint();
            s.type(s.editor.posY, "7");
            QTest::keyClick(s.editor.posY, Qt::Key_Escape);
            QCOMPARE(s.editor.posY->text(), QString::asprintf("%.3f", s.x[1]->pos));
            s.commits.clear();
        });
        row("drag on a field", 1, x + x + x, [](Scene& s) {
            s.clickPoint();
            QTest::mousePress(s.editor.posY, Qt::LeftButton);
            for (const int y : {40, 90})
                s.sendMouse(*s.editor.posY, QEvent::MouseMove, {0, -y});
            QTest::mouseRelease(s.editor.posY, Qt::LeftButton);
        });
        row("type in the combo box", 1, x + x,
            [](Scene& s) { s.clickPoint(), QTest::keyClick(s.editor.nodeTypeCombo, Qt::Key_Down); });
        row("behaviours", 2, {},
            [](Scene& s) { s.editor.setFirstNodeZero(), s.editor.changeNodeLastType(2); });
        row("scale dialog", 1, {}, [](Scene& s) {
            s.selectTwo();
            whenOpen<ScaleDialog>([](ScaleDialog& dialog) { dialog.scaleY->setText("2"), dialog.accept(); });
            s.editor.setScaleSelection();
        });
        row("pan dialog", 1, {}, [](Scene& s) {
            s.selectTwo();
            whenOpen<PanDialog>([](PanDialog& dialog) { dialog.panX->setText("1"), dialog.accept(); });
            s.editor.setPanSelection();
        });
        row("reset", 1, x, [](Scene& s) { s.clickPoint(), s.changes.clear(), s.editor.resetSelectedF(); });
        row("reset twice", 1, x + x, [](Scene& s) { s.editor.resetSelectedF(), s.editor.resetSelectedF(); });
        row("reset all", 1, {"a/z", "a/y", "a/x"}, [](Scene& s) { s.editor.resetAllCheckedF(); });
        row("formula", 1, x, [](Scene& s) { s.enter("2 T"); });
        row("the same formula again", 1, x + x, [](Scene& s) { s.enter("2 T"), s.enter("2 T"); });
        row("drag of what is read by way of another", 2, {"a/y", "a/x"}, [](Scene& s) {
            s.canvas.canvas.setCurrentCurve("a.y");
            s.enter("a.z");
            s.canvas.canvas.setCurrentCurve("a.x");
            s.drag(5.0, 1.0, 6.0, 2.0);
        });
        row("faulty formula", 0, {}, [](Scene& s) {
            s.enter("2*");
            QCOMPARE(closeBox(), "Unknown");
            QCOMPARE(s.editor.commandLine->text(), "2*");
        });
        row("formula that closes a cycle", 0, {}, [](Scene& s) {
            s.enter("a.z");
            QVERIFY(closeBox().contains("a.z"));
        });
        row("load", 1, x, [](Scene& s) {
            std::stringstream file;
            QVERIFY(s.canvas.canvas.saveCurve(file));
            s.drag(5.0, 1.0, 6.0, 2.0);
            s.editor.undoStack()->undo();
            s.changes.clear();
            QVERIFY(s.canvas.canvas.loadCurve(file));
            s.editor.refreshCommandLine();
        });
        row("a key in the time field after Set Range", 0, x + x, [](Scene& s) {
            s.clickPoint();
            whenOpen<ViewportSettings>([](ViewportSettings& dialog) { dialog.accept(); });
            s.editor.setRange();
            QTest::keyClick(s.editor.posX, Qt::Key_Right);
        });
        row("formula deleted", 1, {"a/z"}, [](Scene& s) {
            s.canvas.canvas.setCurrentCurve("a.z");
            s.editor.deleteCurveClicked();
        });
    }
    void gestureIsReportedAndTakenBack()
    {
        QFETCH(const Deed, gesture);
        QFETCH(const int, entries);
        Scene s;
        const auto before = s.states();
        gesture(s);
        const auto after = s.states();
        QTEST(s.changes, "reports");
        QCOMPARE(s.entries(), entries);
        QVERIFY(s.showsWhatIsDrawnFromScratch());
        QCOMPARE(Invariants::fault(s.editor), QString());
        QVERIFY(entries == 0 || !s.commits.isEmpty());
        for (int round = 0; round < 2; ++round) {
            s.changes.clear();
            for (int i = 0; i < entries; ++i)
                s.key(Qt::Key_Z, Qt::ControlModifier);
            QVERIFY(s.states() == before);
            QVERIFY(s.showsWhatIsDrawnFromScratch());
            QCOMPARE(s.changes.isEmpty(), entries == 0);
            for (int i = 0; i < entries; ++i)
                s.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            QVERIFY(s.states() == after);
            QVERIFY(s.showsWhatIsDrawnFromScratch());
        }
    }

    void imageComesAndGoes()
    {
        const QTemporaryDir folder;
        QImage image(10, 10, QImage::Format_RGB32);
        image.fill(Qt::blue);
        QVERIFY(image.save(folder.filePath("image.png")));
        Scene s;
        s.editor.setMinValue(-3.0);
        s.editor.setMaxValue(3.0);
        const QImage without = s.shown();
        s.canvas.canvas.loadImage(folder.filePath("image.png"));
        s.canvas.canvas.paint();
        QVERIFY(s.shown() != without);
        s.editor.clearImage();
        QVERIFY(s.shown() == without);
    }

    void receiverMayDoAnythingInsideReturn()
    {
        const Deed replies[] = {
            [](Scene& s) { s.editor.removeCurve("a", "x"); },
            [](Scene& s) { s.canvas.canvas.setCurrentCurve("a.y"); },
            [](Scene& s) { s.editor.deleteExpression("a", "x", &s.curves["a.x"].expression); },
            [](Scene& s) { s.editor.undo(); },
            [](Scene& s) { s.editor.renameCurve("a", "x", "w"), s.editor.resetAllCheckedF(); },
            [](Scene& s) { s.editor.cleanSelecteds(), s.editor.setEditingNode("a.y"); },
        };
        for (const auto& reply : replies) {
            Scene s;
            const CurveState innocent = s.states()["a.y"];
            s.editor.renameCurve("a", "z", "Z"); // still reads "a.x"
            bool isFirst = true;
            connect(&s.editor, &CurveEditor::curveHasChanged, [&] {
                if (std::exchange(isFirst, false))
                    reply(s);
            });
            s.enter("2*t");
            QVERIFY(s.canvas.canvas.findCurve("a.y")->isSpline());
            if (s.changes.size() == 1)
                QVERIFY(s.canvas.canvas.findCurve("a.y")->curve()->state() == innocent);
            QCOMPARE(s.canvas.canvas.isCurrentExpression(), s.editor.deleteCurve->isEnabled());
            QVERIFY(s.showsWhatIsDrawnFromScratch());
        }
    }

    void whoHearsOfTheStackMayDoAnything_data()
    {
        QTest::addColumn<Deed>("deed");
        const auto row = [](const char* name, const Deed& deed) {
            QTest::newRow(name) << deed;
        };
        row("drag", [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0); });
        row("typing", [](Scene& s) { s.clickPoint(), s.type(s.editor.posY, "1.5"); });
        row("undo", [](Scene& s) { s.editor.undo(); });
        row("curve removed", [](Scene& s) { s.editor.removeCurve("a", "x"); });
        row("group removed", [](Scene& s) { s.editor.removeNode("a"); });
        row("editor gone", [](Scene& s) { delete s.owned; });
    }
    void whoHearsOfTheStackMayDoAnything()
    {
        QFETCH(const Deed, deed);
        const Deed replies[] = {
            [](Scene& s) { s.editor.removeCurve("a", "x"); },
            [](Scene& s) { s.editor.removeNode("a"); },
            [](Scene& s) { s.editor.removeNode("a"), s.open("a.x"), s.drag(5.0, 1.0, 6.0, 2.0); },
            [](Scene& s) { s.editor.undo(), s.editor.undo(); },
            [](Scene& s) { s.editor.renameNode("a", "b"), s.editor.resetAllCheckedF(); },
        };
        bool isHosts = false;
        for (const auto& reply : replies) {
            isHosts = !isHosts;
            QUndoStack stack;
            Scene s;
            s.editor.setUndoStack(isHosts ? &stack : nullptr);
            s.enter("t");
            s.editor.deleteCurveClicked();
            s.drag(5.0, 1.0, 6.0, 2.0);
            s.drag(6.0, 2.0, 5.0, 1.0);
            bool isFirst = true;
            connect(s.editor.undoStack(), &QUndoStack::indexChanged, &s.editor, [&] {
                if (std::exchange(isFirst, false))
                    reply(s);
            });
            deed(s);
            QVERIFY(!isFirst);
            if (s.owned)
                QCOMPARE(Invariants::fault(s.editor), QString());
            else
                QCOMPARE(stack.count(), 0);
        }
    }

    void groupThatComesBackWhileItGoesIsWhole()
    {
        Scene s;
        s.drag(5.0, 1.0, 6.0, 2.0);
        const auto back =
            connect(s.editor.undoStack(), &QUndoStack::indexChanged, &s.editor, [&] { s.open("a.y"); });
        s.editor.removeNode("a");
        disconnect(back);
        QVERIFY(s.current() == "a.y" && !s.editor.searchAllNodeList("a.x"));
        s.drag(5.0, -2.0, 6.0, 2.0);
        QCOMPARE(s.entries(), 1);
        s.editor.removeNode("a");
        QVERIFY(!s.editor.searchAllNodeList("a.y") && s.canvas.canvas.noCurrentCurve());
    }

    void hostMayTakePointsAwayBetweenTwoPaints()
    {
        Scene s;
        s.selectTwo();
        s.x.remove(s.x[2]);
        s.x.remove(s.x[1]);
        s.editor.setTimeLine(3.0);
        s.shown();
        s.x.addPoint(5.0, 1.0);
        s.key(Qt::Key_Delete);
        QCOMPARE(s.x.getControlPointsNumber(), 2u);
        QCOMPARE(s.entries(), 0);
    }

    void pageShowsNoPointThatIsNotCurrent()
    {
        const Deed changes[] = {
            [](Scene& s) { s.canvas.canvas.setCurrentCurve("a.y"); },
            [](Scene& s) { s.canvas.canvas.setCurrentCurve("a.z"); },
            [](Scene& s) { s.editor.resetSelectedF(); },
            [](Scene& s) { s.editor.removeCurve("a", "x"); },
            [](Scene& s) { s.x.reset(), s.editor.updateCurves(); },
            [](Scene& s) { s.editor.hide(), s.x.reset(), s.editor.updateCurves(); },
        };
        for (const auto& change : changes) {
            Scene s;
            s.clickPoint();
            QCOMPARE(s.editor.node->text(), "1");
            change(s);
            QVERIFY(!s.canvas.nodeForm.isActive() && !s.canvas.canvas.hasSinglePoint());
            QVERIFY(s.editor.node->text().isEmpty() && s.editor.tension->text().isEmpty());
            s.key(Qt::Key_T);
            QVERIFY(!s.canvas.nodeForm.isActive());
        }
    }

    void menuLeavesNoPageBehindInAnotherEditor()
    {
        Scene other, s;
        other.clickPoint();
        s.clickPoint();
        QCOMPARE(other.editor.nodeTypeCombo->currentIndex(), 1);
        s.choose(1);
        QCOMPARE(other.editor.nodeTypeCombo->currentIndex(), 2);
        QCOMPARE(other.entries(), 1);
        s.clickPoint();
        s.choose(ControlMenu::DeleteKey);
        QVERIFY(!other.canvas.nodeForm.isActive() && other.editor.node->text().isEmpty());
        other.editor.undo();
        QCOMPARE(other.editor.node->text(), "1");
    }

    void stackIsSharedAndMayGoFirst()
    {
        auto stack = std::make_unique<QUndoStack>();
        auto first = std::make_unique<Scene>();
        Scene second;
        first->editor.setUndoStack(stack.get());
        second.editor.setUndoStack(stack.get());
        first->drag(5.0, 1.0, 6.0, 2.0);
        stack->push(new QUndoCommand("host"));
        second.drag(5.0, 1.0, 6.0, 2.0);
        QCOMPARE(first->menu("Edit")->actions()[0]->text(), "Undo " + stack->undoText());
        first->editor.undo();
        QCOMPARE(second.commits.size(), 2);
        QCOMPARE(stack->undoText(), "host");
        first.reset();
        stack->undo();
        stack->undo();
        QCOMPARE(stack->index(), 0);
        stack->redo();
        second.editor.undo();
        QVERIFY(second.menu("Edit")->actions()[1]->isEnabled());
        stack.reset();
        QVERIFY(!second.menu("Edit")->actions()[1]->isEnabled());
        second.drag(6.0, 2.0, 5.0, 1.0);
        second.drag(5.0, 1.0, 6.0, 2.0);
        QVERIFY(second.editor.undoStack()->count() >= 1);
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
        s.drag(5.0, 1.0, 6.0, 2.0);
        s.editor.cleanSelecteds();
        s.editor.renameCurve("a", "x", "w");
        s.changes.clear();
        s.editor.undo();
        QVERIFY(s.x.state() == before.spline);
        QCOMPARE(s.changes, QStringList{"a/w"});
        s.editor.redo();
        for (const char* const name : {"a.w", "a.y", "a.y"})
            s.editor.setEditingNode(name);
        s.shown();
        s.editor.undo();
        QVERIFY(s.current() == "a.w" && s.showsWhatIsDrawnFromScratch());
        QVERIFY(s.x.state() == before.spline);
        s.editor.removeCurve("a", "w");
        QVERIFY(!s.editor.undoStack()->canRedo());
        QCOMPARE(told,
                 (QStringList{"-ax", "az", "-ay", "-az", "", "+aw", "aw", "+ay", "ay", "aw", "-aw", "ay"}));
    }

    void entriesOfAnOpenCurveFollowItsName()
    {
        Scene s;
        s.drag(5.0, 1.0, 6.0, 2.0);
        s.editor.renameCurve("a", "x", "w");
        QCOMPARE(s.menu("Edit")->actions()[0]->text(), "Undo Move a point of a.w");
        s.editor.renameNode("a", "b");
        QCOMPARE(s.editor.undoStack()->undoText(), "Move a point of b.w");
        s.editor.cleanSelecteds();
        s.editor.renameNode("b", "c");
        QCOMPARE(s.editor.undoStack()->undoText(), "Move a point of c.w");
    }

    void expressionsOfTheHostGoAtOnce()
    {
        struct OwnNode : FunctionFloatBase
        {
            explicit OwnNode(int& count) : living(++count) {}
            ~OwnNode() override { --living; }
            double evaluate() override { return 7.0; }
            std::string getString() override { return "no formula"; }
            int& living;
        };
        const Deed places[] = {
            [](Scene&) {},
            [](Scene& s) { s.editor.cleanSelecteds(); },
            [](Scene& s) { s.editor.hide(); },
        };
        for (const auto& place : places) {
            Scene s;
            s.editor.cleanSelecteds();
            int living = 0;
            FunctionFloatBase*& expression = s.curves["a.x"].expression;
            expression = new OwnNode(living);
            s.editor.setEditingNode("a.x");
            s.editor.deleteCurveClicked();
            place(s);
            s.editor.deleteExpression("a", "x", &expression);
            QVERIFY(!expression && living == 0);
        }
    }

    void whatIsCutIsOnTheClipboard()
    {
        Scene s;
        for (const QString name : {"a.y", "a.x"}) {
            s.canvas.canvas.setCurrentCurve(name);
            s.control().selectOnly(s.curves[name].spline[1]);
        }
        s.press(5.0, 1.0);
        s.move(6.0, 1.0);
        QObject::connect(&s.editor, &CurveEditor::curveEdited, [&s](const CurveChange& change) {
            if (change.phase == CurveChange::Phase::Commit)
                s.editor.setEditingNode("a.y");
        });
        PointCommands(s.canvas.canvas).cut();
        QCOMPARE(s.curves["a.y"].spline.getControlPointsNumber(), 1u);
        QVERIFY(QGuiApplication::clipboard()->text().contains("\n5\t-2\t"));
    }

    void dragTellsWhenTheCurveChanged()
    {
        Scene s;
        for (const double time : {-0.5, 9.0, 9.5})
            s.x.addPoint(time, 0.0);
        for (auto* point : s.x.getControlPoints())
            point->type = SplineBase::Linear;
        s.editor.updateCurves();
        s.drag(5.0, 1.0, 6.0, 2.0);
        QCOMPARE(s.intervals, QList<QPointF>(3, QPointF(0.0, 8.0)));
        s.drag(6.0, 2.0, 8.5, 2.0); // past a neighbour
        QCOMPARE(s.intervals.mid(3), QList<QPointF>({{0.0, 8.0}, {0.0, 9.0}, {0.0, 9.0}}));
        s.editor.setFirstNodeZero();
        QVERIFY(s.intervals.last().x() == -HUGE_VAL && s.intervals.last().y() == -0.5);
    }

    void keysStepInEveryFocus()
    {
        Scene s;
        s.drag(5.0, 1.0, 6.0, 2.0);
        const CurveState after = s.states()["a.x"];
        s.editor.commandLine->setText("t");
        for (QWidget* focus : std::initializer_list<QWidget*>{
                 &s.canvas, &s.list, s.editor.posY, s.editor.nodeFirst, s.editor.commandLine, &s.editor}) {
            QTest::keyClick(focus, Qt::Key_Z, Qt::ControlModifier);
            QVERIFY2(s.states()["a.x"] != after, focus->metaObject()->className());
            QTest::keyClick(focus, Qt::Key_Y, Qt::ControlModifier);
            QVERIFY2(s.states()["a.x"] == after, focus->metaObject()->className());
        }
        s.press(6.0, 2.0);
        s.release(6.0, 2.0);
        s.type(s.editor.posY, "1.5");
        QTest::keyClick(s.editor.posY, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(s.editor.posY->hasFocus() && s.states()["a.x"] == after);
        QCOMPARE(s.editor.posY->text(), s.editor.posY->textFor(after.spline.points[1].pos));
        QTest::keyClicks(s.editor.commandLine, "+1");
        QTest::keyClick(s.editor.commandLine, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(s.states()["a.x"] == after && s.editor.commandLine->text() != "t+1");
    }
};

QTEST_MAIN(tst_EditorUndo)
#include "tst_EditorUndo.moc"
