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

/// Makes "a.z" the formula and "a.x" the current curve.
Scene& formulaBehind(Scene& s, const QString& text)
{
    s.turnTo("a.z").enter(text).turnTo("a.x").forgetChanges().shown();
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
    using Results = Rows<QString, int, Deed>;      // points, and how many reports

private Q_SLOTS:
    void gestureIsReportedAndTakenBack_data()
    {
        const Gestures row;
        const QStringList x = {"a/x"};
        row("drag across", 1, x, [](Scene& s) { s.drag(5.0, 1.0, 9.0, 2.0); });
        row("drag two", 1, x, [](Scene& s) { s.selectTwo().drag(6.0, 2.0, 7.0, 1.0); });
        row("drag until the editor is hidden", 1, x,
            [](Scene& s) { s.press(5.0, 1.0).move(6.0, 2.0).editor.hide(); });
        row("drag a handle and align", 2, x + x + x, [](Scene& s) {
            s.dragHandle();
            QVERIFY(s.x[1]->tanRight > 1.5 && s.x[1]->tanLeft != s.x[1]->tanRight);
            s.trigger("alignTangentsAction");
            QVERIFY(s.x[1]->tanRight > 0.5 && s.x[1]->tanLeft == s.x[1]->tanRight);
        });
        row("smooth", 1, x, [](Scene& s) {
            s.selectTwo().trigger("smoothTangentsAction");
            QCOMPARE(s.x[1]->tanLeft, CurveFit::smoothSlope(s.x[0], *s.x[1], s.x[2]));
        });
        row("drag a handle with both in line", 1, x + x, [](Scene& s) {
            s.key(Qt::Key_K).dragHandle();
            QVERIFY(s.x[1]->tanRight > 1.5 && s.x[1]->tanLeft == s.x[1]->tanRight);
        });
        row("eases", 3, x + x + x + x + x, [](Scene& s) {
            const CanvasFunctionBase& canvas = s.canvas.canvas;
            s.selectTwo().key(Qt::Key_E);
            QCOMPARE(canvas.toldText(), "Ease: exact");
            QVERIFY(s.x[2]->type == SplineBase::Bezier && s.x[1]->tanRight == 0.0);
            s.trigger("easeInOutSineAction");
            QCOMPARE(canvas.toldText(), "Ease: deviates by at most 1.1 % of the step");
            s.trigger("easeInOutBackAction");
            QVERIFY(s.x.getControlPointsNumber() == 4 && s.x[2]->pos == 0.0 &&
                    s.control().isSelected(s.x[2]));
            s.key(Qt::Key_E); // in its place
            QVERIFY(s.x.getControlPointsNumber() == 3 && canvas.toldText() == "Ease: exact");
            s.trigger("easeInOutBackAction");
            s.control().selectPoints({s.x[1]->serial, s.x[3]->serial});
            const QString why = "Ease: select both ends of a segment that is not vertical";
            s.key(Qt::Key_E, shift); // the point between is not selected any more
            auto* const dialog = s.editor.findChild<QDialog*>();
            QVERIFY(!dialog->findChild<QPushButton*>()->isEnabled());
            QCOMPARE(dialog->findChild<QLabel*>("outcome")->text(), why);
            dialog->reject();
            s.key(Qt::Key_E);
            QCOMPARE(canvas.toldText(), why);
            s.turnTo("a.y");
            QVERIFY(canvas.toldText().isEmpty());
        });
        row("ease once more, taken back, of moved points, and of others", 5, x + x + x + x + x + x + x + x,
            [](Scene& s) {
                s.key(Qt::Key_A, ctrl).trigger("easeInSineAction").undo();
                QVERIFY(s.control().selection().edited().size() == 3);
                for (int i = 0; i < 2; ++i)
                    s.trigger("easeInOutBackAction");
                s.key(Qt::Key_Up, alt).key(Qt::Key_E);
                QCOMPARE(s.x.getControlPointsNumber(), 5u);
                s.trigger("easeInOutBackAction");
                s.control().selectPoints({s.x[1]->serial, s.x[2]->serial});
                s.key(Qt::Key_E);
                QCOMPARE(s.x.getControlPointsNumber(), 9u);
            });
        row("eases at all curves", 1, {"a/x", "a/y"}, [](Scene& s) {
            s.key(Qt::Key_A, shift).key(Qt::Key_A, ctrl).key(Qt::Key_E, ctrl);
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return); // the first one, smoothstep
            QCOMPARE(s.curves["a.y"].spline[1]->type, int(SplineBase::Bezier));
            s.key(Qt::Key_L).key(Qt::Key_E, shift);
            auto* const dialog = s.editor.findChild<QDialog*>();
            QVERIFY(dialog->findChild<QPushButton*>()->isEnabled()); // for the other curve
            dialog->reject();
        });
        row("eases by numbers", 2, x + x, [](Scene& s) {
            s.selectTwo();
            for (const QString text : {"0,5", "0.75"}) {
                s.editor.action("easeCssAction")->trigger(); // wherever the focus is by now
                auto* const dialog = s.editor.findChild<QDialog*>();
                auto* const line = dialog->findChild<QLineEdit*>("x1");
                QCOMPARE(line->text(), text == "0,5" ? "0.25" : "0.5");
                for (const QString& typed : {QString("1.5"), QString(), text}) {
                    line->setText(typed);
                    QTRY_COMPARE(dialog->findChild<QPushButton*>()->isEnabled(), typed == text);
                }
                dialog->accept();
                QVERIFY(s.canvas.canvas.toldText().startsWith("Ease: deviates by at most 0."));
                QCoreApplication::sendPostedEvents(dialog, QEvent::DeferredDelete);
            }
        });
        row("paste that replaces", 1, x, [](Scene& s) {
            s.timeLineAt(5.0).paste("2\t3\n5\t2\n", ctrl | alt);
            QCOMPARE(pointsOf(s), "0,0 (5,3) [8,2]");
        });
        row("band", 0, x, [](Scene& s) { s.drag(3.0, 2.5, 9.0, -2.0); });
        row("time line", 0, {}, [](Scene& s) { s.timeLineAt(3.0); });
        row("another curve during a drag", 1, {}, [](Scene& s) {
            s.press(5.0, 1.0).move(6.0, 2.0).turnTo("a.y");
            QCOMPARE(s.commits, QStringList{"a/x"}); // the drag ends with it
            s.control().selectOnly(s.curves["a.y"].spline[1]);
            s.move(7.0, 2.0).control().selectOnly(nullptr);
            s.release(7.0, 2.0);
        });
        row("Escape during a drag", 0, {}, [](Scene& s) {
            for (QWidget* const focus : std::initializer_list<QWidget*>{&s.canvas, s.button("File")}) {
                s.press(5.0, 1.0).move(6.0, 2.0);
                QTest::keyClick(focus, Qt::Key_Escape);
                s.move(7.0, 2.0).release(7.0, 2.0);
                QVERIFY(s.editor.isVisible() && s.lastCause == CurveChange::Cause::Cancel);
            }
            s.commits.clear();
        });
        row("Ctrl adds", 1, x, [](Scene& s) {
            s.press(6.0, 2.5, ctrl).control().selectOnly(nullptr);
            s.release(6.0, 2.5);
        });
        row("press soon after a click elsewhere", 1, x + x, [](Scene& s) {
            s.clickPoint().doubleClick(8.0, -1.0).move(8.5, -1.0).release(8.5, -1.0);
            QVERIFY(s.x[2]->time > 8.4);
        });
        row("double click in a hurry", 1, x, [](Scene& s) {
            const QPoint nearby = s.pixel(6.0, 2.5) + QPoint(4, 3);
            s.click(6.0, 2.5).mouse(QEvent::MouseButtonDblClick, nearby).release(6.0, 2.5);
        });
        row("menu opened by a key", 1, x + x, [](Scene& s) {
            s.whenMenuOpens(ControlMenu::CreateKey);
            openContextMenu(s.canvas, {}, QContextMenuEvent::Keyboard);
            QCOMPARE(s.x.getControlPointsNumber(), 4u);
        });
        row("menu opened by a key beside the view", 0, x, [](Scene& s) {
            s.clickPoint().canvas.showView({6.0, 9.0, -3.0, 3.0, s.canvas.pixelWidth, s.canvas.pixelHeight});
            whenOpen<ControlMenu>([&](ControlMenu& menu) {
                menu.close();
                QVERIFY(s.canvas.rect().contains(s.canvas.mapFromGlobal(menu.pos())));
            });
            openContextMenu(s.canvas, {}, QContextMenuEvent::Keyboard);
        });
        row("menu changes types", 1, x, [](Scene& s) { s.selectTwo().choose(1); });
        row("menu deletes", 1, x, [](Scene& s) { s.selectTwo().choose(ControlMenu::DeleteKey); });
        row("Delete without a selection", 0, x, [](Scene& s) { s.key(Qt::Key_Delete); });
        row("nudges", 2, x + x + x, [](Scene& s) {
            s.clickPoint().key(Qt::Key_A, shift).key(Qt::Key_Right, alt);
            QCOMPARE(s.x[1]->time, 5.0 + 1.0 / s.canvas.fps);
            const double value = s.x[1]->pos;
            s.key(Qt::Key_Down, alt | shift);
            QCOMPARE(s.x[1]->pos, value - s.canvas.canvas.grid().stepY);
        });
        row("cut and paste", 2, x + x, [](Scene& s) {
            s.selectTwo().key(Qt::Key_X, ctrl);
            QCOMPARE(s.x.getControlPointsNumber(), 1u);
            s.timeLineAt(2.0).key(Qt::Key_V, ctrl);
            QCOMPARE(QPointF(s.x[1]->time, s.x[2]->time), QPointF(2.0, 5.0));
            QCOMPARE(s.control().selection().edited().size(), 2u);
        });
        row("paste into another curve", 1, {"a/x", "a/y"}, [](Scene& s) {
            s.clickPoint().key(Qt::Key_C, ctrl).turnTo("a.y").key(Qt::Key_V, ctrl | shift);
            SplineBase::PointInfo pasted = *s.curves["a.y"].spline[2];
            pasted.serial = s.x[1]->serial;
            QVERIFY(isSamePoint(pasted, *s.x[1]));
        });
        row("paste what can be read in two ways", 2, x + x + x, [](Scene& s) {
            s.clickPoint();
            for (const QString answer : {"Cancel", "Decimal comma", "Decimal point"}) {
                QApplication::setActiveWindow(&s.editor);
                s.paste("7\t0\n9\t1,234\n", ctrl | shift);
                whenOpen<QMessageBox>([&answer](QMessageBox& box) {
                    QVERIFY(box.text().contains("2") && box.text().contains(":\n    9     1.234\n"));
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
            s.canvas.timeLine = 1e308;
            s.paste("-1e308 2\n1e308 3");
            QVERIFY(closeBox().contains("beyond"));
            QVERIFY(s.control().selection().edited().size() == 1 && s.x.getControlPointsNumber() == 3);
        });
        row("duplicate", 1, x, [](Scene& s) {
            s.editor.setFps(1.0);
            s.selectTwo().key(Qt::Key_D, ctrl);
            QCOMPARE(s.x.getControlPointsNumber(), 5u);
            const std::vector copies = {s.x[2]->serial, s.x[4]->serial};
            QVERIFY(s.x[1]->serial != copies[0] && s.x[3]->serial != copies[1]);
            QVERIFY(s.control().selection().edited() == copies);
        });
        row("insert and smooth", 2, x + x, [](Scene& s) {
            const double value = s.x(2.0);
            s.timeLineAt(2.0).key(Qt::Key_I, shift);
            QCOMPARE(QPointF(s.x[1]->time, s.x[1]->pos), QPointF(2.0, value));
            QVERIFY(s.control().isSelected(s.x[1]));
            PointCommands(s.canvas.canvas).selectAll();
            PointCommands(s.canvas.canvas).flattenTangents();
            QCOMPARE(s.x[1]->tanRight, 0.0);
        });
        row("insert at the mouse, or else at the time line", 2, x + x, [](Scene& s) {
            s.timeLineAt(2.0).key(Qt::Key_I).mouse(QEvent::MouseMove, s.pixel(3.0, 0.0), Qt::NoButton);
            QCursor::setPos(s.canvas.mapToGlobal(s.pixel(7.0, 0.0))); // over the menu
            entryOf(*s.menu("Edit"), "Insert a point on the curve at the mouse")->trigger();
            QVERIFY(s.x[1]->time == 2.0 && qAbs(s.x[2]->time - 3.0) < 0.05);
        });
        row("drag that snaps", 1, x, [](Scene& s) {
            s.snapTo(Snap::Frames | Snap::Points).press(5.0, 1.0).move(6.03, -1.98);
            QCOMPARE(QPointF(s.x[1]->time, s.x[1]->pos), QPointF(6.0, -2.0));
            s.move(6.53, -1.9, ctrl);
            QVERIFY(s.x[1]->time != 6.5);
            s.release(6.5, -1.9);
        });
        row("drag that snaps to what was dragged before", 2, x + x, [](Scene& s) {
            s.snapTo(Snap::Points).drag(5.0, 1.0, 6.0, 0.5).press(0.0, 0.0).move(1.0, 0.55);
            QCOMPARE(s.x[0]->pos, s.x[1]->pos);
            const QImage marked = s.shown(); // which shows what it snaps to
            QVERIFY(s.release(1.0, 0.55).shown() != marked);
        });
        row("drag of two that snaps", 1, x, [](Scene& s) {
            s.canvas.canvas.hands().guide.snap.kinds = Snap::Frames;
            s.editor.setFps(0.8);
            s.selectTwo().press(6.6, 1.0).move(7.87, 1.5, ctrl);
            QCOMPARE(s.x[1]->time, 6.25); // the nearer one
            s.release(7.87, 1.5);
        });
        row("drag that begins with Ctrl", 1, x, [](Scene& s) {
            s.canvas.canvas.hands().guide.snap.kinds = Snap::Frames;
            s.editor.setFps(1.0);
            s.press(5.0, 1.0, ctrl);
            for (const auto& [keys, snaps] : {std::pair(ctrl, false), {{}, false}, {ctrl, true}}) {
                s.move(6.03, 2.0, keys);
                QCOMPARE(s.x[1]->time == 6.0, snaps);
            }
            s.release(6.03, 2.0);
        });
        row("redo during a drag", 1, x, [](Scene& s) {
            s.drag(5.0, 1.0, 6.0, 2.0).undo().forgetChanges().press(5.0, 1.0).move(6.5, 2.0).redo();
            s.move(7.0, 2.0).release(7.0, 2.0);
            QVERIFY(s.x[1]->time > 6.5);
        });
        row("arrows during a drag", 1, x, [](Scene& s) {
            s.press(5.0, 1.0).move(6.0, 2.0);
            for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, shift, alt}) {
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
            QCOMPARE(s.x[1]->pos, 1.0);
            QTest::keyRelease(&s.canvas, Qt::Key_X);
            for (const Qt::KeyboardModifiers toggle : {Qt::NoModifier, ctrl}) {
                QTest::keyPress(&s.canvas, Qt::Key_X, toggle); // no cut
                QTest::keyPress(&s.canvas, Qt::Key_Y, toggle);
                s.move(7.0, 2.0);
                QCOMPARE(s.x[1]->time, 5.0);
                QTest::keyRelease(&s.canvas, Qt::Key_Y, toggle);
            }
            s.release(7.0, 2.0);
        });
        row("drag at all curves", 1, {"a/x", "a/y"}, [](Scene& s) {
            s.key(Qt::Key_A).key(Qt::Key_A, shift).key(Qt::Key_A, ctrl); // alone no key of that mode
            s.drag(6.0, 2.0, 7.0, 1.0);
            QVERIFY(qAbs(s.curves["a.y"].spline[1]->time - 6.0) < 0.05);
            s.key(Qt::Key_Z, ctrl);
            QCOMPARE(s.current(), "a.x");
            s.key(Qt::Key_Y, ctrl);
            s.changes = s.changes.mid(0, 2);
        });
        row("drag of a point of another curve", 1, {"a/y"}, [](Scene& s) {
            s.clickPoint().forgetChanges().allCurves().reopen({"a.z", "a.y", "a.x"});
            QVERIFY(s.canvas.canvas.findCurve("a.y")->getCanvasSpline()->showsPoints);
            s.drag(5.0, -2.0, 6.0, 2.0);
            QVERIFY(s.current() == "a.y" && s.x[1]->time == 5.0);
        });
        row("click where points of several curves lie", 0, {"a/x", "a/y", "a/x"}, [](Scene& s) {
            for (const QString name : {"a.x", "a.y", "a.z"}) {
                s.allCurves().turnTo(name).click(0.0, 0.0);
                QCOMPARE(s.current(), name == "a.z" ? "a.x" : name); // which lies in front
            }
        });
        row("commands at all curves", 2, {"a/z", "a/z", "a/y", "a/x", "a/z", "a/y", "a/x"}, [](Scene& s) {
            s.turnTo("a.z").key(Qt::Key_A, shift);
            s.press(6.0, 2.4, ctrl).release(6.0, 2.4); // adds nothing to the spline behind the formula
            s.drag(4.0, 2.5, 9.0, -2.5).key(Qt::Key_Up, alt).key(Qt::Key_Delete);
            QCOMPARE(s.curves["a.y"].spline.getControlPointsNumber(), 1u);
            s.key(Qt::Key_A, ctrl).key(Qt::Key_A, shift);
            QVERIFY(!s.canvas.canvas.findCurve("a.y")->control().hasSelection());
        });
        row("stepping", 0, x + x, [](Scene& s) {
            s.clickPoint();
            QTest::mouseClick(s.editor.nextNode, Qt::LeftButton);
        });
        row("typing in two fields", 2, x + x + x, [](Scene& s) {
            s.clickPoint().type(s.editor.posY, "3").type(s.editor.tension, "1");
            QTest::qWait(0);
            s.editor.bias->setFocus();
        });
        row("typing until Escape", 0, x + x + x, [](Scene& s) {
            s.clickPoint().type(s.editor.posY, "7");
            QTest::keyClick(s.editor.posY, Qt::Key_Escape);
            QCOMPARE(s.editor.posY->text(), QString::asprintf("%.3f", s.x[1]->pos));
            s.commits.clear();
        });
        row("typing that has ended until Escape", 2, x + x + x, [](Scene& s) {
            s.clickPoint().type(s.editor.posY, "7").canvas.canvas.door().commit();
            QTest::keyClick(s.editor.posY, Qt::Key_Escape);
            QCOMPARE(s.x[1]->pos, 1.0);
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
        row("outside", 2, {}, [](Scene& s) { s.editor.setFirstNodeZero(), s.editor.changeNodeLastType(2); });
        row("scale and pan dialogs", 2, {}, [](Scene& s) {
            s.selectTwo();
            whenOpen<ScaleDialog>([](ScaleDialog& dialog) { dialog.scaleY->setText("2"), dialog.accept(); });
            s.editor.setScaleSelection();
            whenOpen<PanDialog>([](PanDialog& dialog) { dialog.panX->setText("1"), dialog.accept(); });
            s.editor.setPanSelection();
        });
        row("reset", 1, x, [](Scene& s) { s.clickPoint(), s.forgetChanges(), s.editor.resetSelectedF(); });
        row("reset twice", 1, x + x, [](Scene& s) { s.editor.resetSelectedF(), s.editor.resetSelectedF(); });
        row("reset all", 1, {"a/z", "a/y", "a/x"}, [](Scene& s) { s.editor.resetAllCheckedF(); });
        row("formula", 1, x, [](Scene& s) { s.enter("2 T"); });
        row("formula in another variable of the host", 1, x, [](Scene& s) {
            s.reopen({}).editor.searchAllNodeList("a.x")->function = &s.curves["a.y"].expression;
            s.reopen({"a.z", "a.y", "a.x"}).enter("2 T");
            QVERIFY(s.curves["a.y"].expression && !s.curves["a.x"].expression);
        });
        row("the same formula again", 1, x + x, [](Scene& s) { s.enter("2 T").enter("2 T"); });
        row("drag of what is read by way of another", 2, {"a/y", "a/x"},
            [](Scene& s) { s.turnTo("a.y").enter("a.z").turnTo("a.x").drag(5.0, 1.0, 6.0, 2.0); });
        row("load", 1, x, [](Scene& s) {
            std::stringstream file;
            QVERIFY(s.canvas.canvas.saveCurve(file));
            s.drag(5.0, 1.0, 6.0, 2.0).undo().forgetChanges();
            QVERIFY(s.canvas.canvas.loadCurve(file));
            s.editor.refreshCommandLine();
        });
        row("load a formula", 1, {"a/y"}, [](Scene& s) {
            std::stringstream file;
            QVERIFY(s.turnTo("a.z").canvas.canvas.saveCurve(file));
            QVERIFY(s.turnTo("a.y").canvas.canvas.loadCurve(file) && s.curves["a.y"].expression);
        });
        row("a key in the time field after Set Range", 0, x + x, [](Scene& s) {
            s.clickPoint();
            whenOpen<ViewportSettings>([](ViewportSettings& dialog) { dialog.accept(); });
            s.editor.setRange();
            QTest::keyClick(s.editor.posX, Qt::Key_Right);
        });
        row("formula deleted", 1, {"a/z"}, [](Scene& s) { s.turnTo("a.z").editor.deleteCurveClicked(); });
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

    void gestureLeavesThesePointsToAHostThatMayTakeTheCurveAway_data()
    {
        const Results row;
        const QString same = "0,0 5,1 8,-1";
        row("three pixels off a formula", "0,0 5,1 8,-1 a.z", 0,
            [](Scene& s) { s.pressAt(s.pixel(9.0, 0.0) - QPoint(0, 3)); });
        row("four pixels off", same, 0, [](Scene& s) { s.pressAt(s.pixel(9.0, 0.0) - QPoint(0, 4)); });
        row("beside its begin", "0,0 5,1 8,-1 a.z", 0,
            [](Scene& s) { formulaBehind(s, "2+0*sqrt(t-1.01)").pressAt(s.pixel(1.0, 2.0)); });
        row("beside its end", "0,0 5,1 8,-1 a.z", 0,
            [](Scene& s) { formulaBehind(s, "2+0*sqrt(1-t)").pressAt(s.pixel(1.0, 2.0) + QPoint(1, 0)); });
        row("where it is not a number", same, 0, [](Scene& s) {
            formulaBehind(s, "2+0*sqrt(t-1)").pressAt({s.pixel(0.5, 0.0).x(), 1});
        });
        row("drag", "0,0 8,-1 [9,2]", 1, [](Scene& s) { s.drag(5.0, 1.0, 9.0, 2.0); });
        row("drag two", "0,0 (6,0) [9,-2]", 1, [](Scene& s) { s.selectTwo().drag(6.0, 2.0, 7.0, 1.0); });
        row("scale", "0,0 (5.4,1.1) [8.6,-1.1]", 1,
            [](Scene& s) { s.selectTwo().drag(6.0, 2.0, 6.5, 2.5, shift); });
        row("middle button", "0,0 (5.4,1.1) [8.6,-1.1]", 1,
            [](Scene& s) { s.selectTwo().drag(6.0, 2.0, 6.5, 2.5, {}, Qt::MiddleButton); });
        for (const auto& [edge, point] : {std::pair{"left edge of two", 1}, {"right edge of two", 2}})
            row(edge, same, 0, [point = point](Scene& s) {
                const QPoint at = s.selectTwo().pixel(s.x[point]->time, 2.5);
                s.x.modify(unsigned(point))->time = s.canvas.pixelToTime(at.x());
                s.pressAt(at);
            });
        row("Shift beside", "0,0 (5,1) (8,-1)", 0, [](Scene& s) { s.selectTwo().press(3.0, 2.0, shift); });
        row("Shift beside one", same, 0, [](Scene& s) { select(s, {0}).press(3.0, 2.0, shift); });
        row("Shift on a point", "0,0 [5,1] 8,-1", 1, [](Scene& s) { s.press(5.0, 1.0, shift); });
        row("Ctrl", "0,0 3,2 5,1 8,-1", 1, [](Scene& s) { s.press(3.0, 2.0, ctrl); });
        row("Alt", same, 0, [](Scene& s) { s.press(5.0, 1.0, alt); });
        row("band", "0,0 (5,1) [8,-1]", 1, [](Scene& s) { s.drag(3.0, 2.5, 9.0, -2.0); });
        row("band around nothing", same, 0, [](Scene& s) { s.drag(2.0, 2.5, 3.0, 2.0); });
        row("double click", "0,0 3,2.5 5,1 8,-1", 1, [](Scene& s) { s.doubleClick(3.0, 2.5); });
        row("double click with Shift", same, 0,
            [](Scene& s) { s.mouse(QEvent::MouseButtonDblClick, s.pixel(3.0, 2.5), Qt::LeftButton, shift); });
        row("double click on a point", "0,0 [5,1] 8,-1", 0, [](Scene& s) { s.doubleClick(5.0, 1.0); });
        row("double click picks a formula", "0,0 5,1 8,-1 a.z", 0,
            [](Scene& s) { formulaBehind(s, "a.x+0.02").click(9.0, -1.0).doubleClick(9.0, -1.0); });
        row("double click picks a spline", same, 0, [](Scene& s) {
            formulaBehind(s, "a.x+0.02").turnTo("a.z").click(9.0, -1.0).doubleClick(9.0, -1.0);
        });
        row("double click behind a formula", same, 0,
            [](Scene& s) { s.turnTo("a.z").doubleClick(9.0, -1.0); });
        row("and adds nothing", same, 0, [](Scene& s) {
            formulaBehind(s, "a.x+0.02").turnTo("a.z").click(9.0, -1.0);
            s.mouse(QEvent::MouseButtonDblClick, s.pixel(9.0, -1.0) + QPoint(0, 4));
        });
        row("click between two", same, 1, [](Scene& s) { s.selectTwo().click(6.0, 2.0); });
        row("click on one of 3", "0,0 [5,1] 8,-1", 1, [](Scene& s) { select(s, {0, 1, 2}).click(5.0, 1.0); });
        row("click on another", "0,0 [5,1] 8,-1", 1, [](Scene& s) { select(s, {0, 2}).click(5.0, 1.0); });
        row("Ctrl and click between two", "0,0 (5,1) [8,-1]", 1, [](Scene& s) {
            s.selectTwo().control().selection().setCurrent(s.x[2]->serial);
            s.press(6.0, 2.0, ctrl).release(6.0, 2.0);
        });
        row("middle click between two", "0,0 (5,1) (8,-1)", 1, [](Scene& s) {
            s.selectTwo().press(6.0, 2.0, {}, Qt::MiddleButton).release(6.0, 2.0, Qt::MiddleButton);
        });
        row("Escape before the release", "0,0 (5,1) (8,-1)", 0,
            [](Scene& s) { s.selectTwo().press(6.0, 2.0).key(Qt::Key_Escape).release(6.0, 2.0); });
        row("arrows", "0,0 [5,1] 8,-1", 0,
            [](Scene& s) { select(s, {0}).key(Qt::Key_Right).key(Qt::Key_Right).key(Qt::Key_Left); });
        row("right arrow begins", "[0,0] 5,1 8,-1", 0, [](Scene& s) { s.key(Qt::Key_Right); });
        row("left arrow begins", "0,0 5,1 [8,-1]", 0, [](Scene& s) { s.key(Qt::Key_Left); });
        row("arrow, two selected", "0,0 (5,1) (8,-1)", 0, [](Scene& s) { s.selectTwo().key(Qt::Key_Right); });
        row("Delete", "0,0", 2, [](Scene& s) { s.selectTwo().key(Qt::Key_Delete).key(Qt::Key_Delete); });
        row("Backspace, all", "8,-1", 1, [](Scene& s) { s.key(Qt::Key_A, ctrl).key(Qt::Key_Backspace); });
        row("menu", "0,0 3,2 5,1 8,-1", 2, [](Scene& s) {
            whenOpen<ControlMenu>([](ControlMenu& menu) {
                menu.setActiveAction(entryOf(menu, "Create key"));
                QTest::keyClick(&menu, Qt::Key_Return);
            });
            s.press(3.0, 2.0, {}, Qt::RightButton);
        });
        row("change under the open menu", same, 1, [](Scene& s) {
            whenOpen<ControlMenu>([&s](ControlMenu& menu) {
                s.canvas.canvas.findCurve("a.x")->emitCurveChanged();
                menu.close();
            });
            s.press(3.0, 2.0, {}, Qt::RightButton);
        });
        row("change under an open box", same, 1, [](Scene& s) {
            s.enter("sin(").canvas.canvas.findCurve("a.x")->emitCurveChanged();
            closeBox();
        });
        row("move after a drag", "[1,0] 5,1 8,-1", 1, [](Scene& s) {
            s.drag(0.0, 0.0, 1.0, 0.0).mouse(QEvent::MouseMove, s.pixel(4.0, 2.0), Qt::NoButton, shift);
        });
        row("lost points", "0,0", 0, [](Scene& s) {
            s.selectTwo().press(6.0, 2.0).x.reset();
            s.move(7.0, 2.0);
        });
        row("scale and pan", "0,0 (3.5,4) (5,0)", 0, [](Scene& s) {
            s.selectTwo().canvas.canvas.scaleSelection(0.5, 2.0);
            s.canvas.canvas.scaleSelection(std::nan(""), std::nan(""));
            s.canvas.canvas.panSelection(1.0, 2.0);
        });
        row("scale one of a list", "0,0 [2.5,1] 8,-1", 0, [](Scene& s) {
            Selection& selection = s.control().selection();
            selection.selectAll({s.x[1]->serial});
            s.canvas.canvas.scaleSelection(0.25, 1.0);
            QVERIFY(selection.listed().empty());
            selection.selectAll({s.x[1]->serial});
            s.canvas.canvas.panSelection(1.25, 0.0);
            QVERIFY(selection.listed().empty());
        });
        row("scale one listed alone", "0,0 (5,1) 8,-1", 0, [](Scene& s) {
            select(s, {0, 1, 0}).canvas.canvas.scaleSelection(0.5, 2.0);
            s.canvas.canvas.panSelection(0.5, 2.0);
        });
        row("reset", "0,0.5", 1, [](Scene& s) { s.selectTwo().editor.resetSelectedF(); });
        row("load a faulty expression", "[0,0] 5,1 8,-1", 0, [](Scene& s) {
            std::istringstream file("255 0 0 1 sin(");
            QVERIFY(!select(s, {0}).canvas.canvas.loadCurve(file) && !s.canvas.canvas.isCurrentExpression());
        });
        row("drag in a view that can't be shown", same, 0, [](Scene& s) {
            s.editor.setTimeRange(3.0, 3.0);
            s.mouse(QEvent::MouseButtonPress, {70, 80}).mouse(QEvent::MouseMove, {90, 20});
        });
    }
    void gestureLeavesThesePointsToAHostThatMayTakeTheCurveAway()
    {
        const auto [points, reports, gesture] = Results::present();
        Scene s;
        gesture(s);
        QCOMPARE(pointsOf(s), points);
        QCOMPARE(s.changes.size(), reports);
        if (reports == 0)
            return;
        Scene taken; // by a host that removes the curve as soon as it hears of it
        QObject::connect(&taken.editor, &CurveEditor::curveHasChanged, &taken.editor,
                         [&taken] { taken.editor.removeCurve("a", "x"); });
        gesture(taken);
        QVERIFY(!taken.canvas.canvas.findCurve("a.x"));
        QCOMPARE(Invariants::fault(taken.editor), QString());
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
