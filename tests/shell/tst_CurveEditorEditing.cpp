// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <QColorDialog>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>

#include <memory>

class tst_CurveEditorEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture = std::make_unique<EditorFixture>(QStringList{"cam.lens", "cam.focus"}); }
    void cleanup() { fixture.reset(); }

    void listAndCanvasFollowEachOther()
    {
        QCOMPARE(fixture->current(), "cam.focus");
        QCOMPARE(fixture->selectedRow(), "cam.focus");
        clickRow("cam.lens");
        QCOMPARE(fixture->current(), "cam.lens");
        QTest::keyClick(&fixture->list, Qt::Key_Up);
        QCOMPARE(fixture->current(), "cam.focus");
        fixture->menu("Curves")->actions()[0]->trigger();
        QCOMPARE(fixture->current(), "cam.lens");
        QCOMPARE(fixture->selectedRow(), "cam.lens");
        clickRow("cam.focus");
        QCOMPARE(fixture->current(), "cam.focus");
        QVERIFY(fixture->changes.isEmpty());
    }

    void droppedNameOpensItsCurve()
    {
        fixture->add("light.key");
        QMimeData data;
        data.setText("light.key");
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(fixture->list.viewport(), &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(fixture->list.viewport(), &drop);
        QCOMPARE(fixture->current(), "light.key");
    }

    void curveOpenedTwiceIsHeardTwiceUntilItLeaves()
    {
        fixture->drag(5.0, 1.0, 6.0, 1.0);
        QCOMPARE(fixture->changes, QStringList{"cam/focus"});
        fixture->editor.setDefaultSelected("cam", "focus");
        fixture->changes.clear();
        QTest::keyClick(&fixture->canvas, Qt::Key_Delete);
        QCOMPARE(fixture->changes, QStringList({"cam/focus", "cam/focus"}));
        fixture->editor.cleanSelecteds();
        QVERIFY(fixture->canvas.canvas.noCurrentCurve());
        fixture->editor.setDefaultSelected("cam", "focus");
        fixture->changes.clear();
        QTest::keyClick(&fixture->canvas, Qt::Key_Delete);
        QCOMPARE(fixture->changes.size(), 1);
    }

    void namesWithDotsReportTheirOuterParts()
    {
        fixture->open("a.b.c d");
        QTest::keyClick(&fixture->canvas, Qt::Key_Delete);
        QCOMPARE(fixture->changes, QStringList{"a/c d"});
    }

    void deleteInTheListTakesTheCurveAndNoPoint()
    {
        clickRow("cam.lens");
        fixture->click(5.0, 1.0);
        clickRow("cam.focus");
        fixture->list.setFocus();
        fixture->changes.clear();
        QTest::keyClick(&fixture->list, Qt::Key_Delete);
        QCOMPARE(fixture->list.topLevelItemCount(), 1);
        QCOMPARE(fixture->current(), "cam.lens");
        QCOMPARE(fixture->curves["cam.lens"].spline.getControlPointsNumber(), 2U);
        QVERIFY(fixture->changes.isEmpty());
        QTest::keyClick(&fixture->list, Qt::Key_Delete);
        QTest::keyClick(&fixture->list, Qt::Key_Delete);
        QVERIFY(fixture->canvas.canvas.noCurrentCurve());
    }

    void deleteIsNeverAShortcut()
    {
        for (int key : {Qt::Key_Delete, Qt::Key_Escape}) {
            QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
            event.ignore();
            QApplication::sendEvent(&fixture->editor, &event);
            QCOMPARE(event.isAccepted(), key == Qt::Key_Delete);
        }
    }

    void menuOfTheListRemovesTheRowUnderTheMouse()
    {
        whenOpen<QMenu>([](QMenu& menu) { chooseEntry(menu, 0); });
        openListMenu("cam.lens");
        QCOMPARE(fixture->list.topLevelItemCount(), 1);
        QVERIFY(!fixture->canvas.canvas.findCurve("cam.lens"));
        QCOMPARE(fixture->changes, QStringList{"cam/focus"});
    }

    void freeSpaceOfTheListOpensNoMenu()
    {
        pressRightAt(fixture->list.viewport()->rect().bottomRight());
        QVERIFY(!QApplication::activePopupWidget());
    }

    void colourDialogChangesTheCurveUnlessCancelled_data()
    {
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QColor>("expected");
        QTest::newRow("accepted") << true << QColor(Qt::red);
        QTest::newRow("cancelled") << false << QColor(Qt::green);
    }
    void colourDialogChangesTheCurveUnlessCancelled()
    {
        QFETCH(bool, accepted);
        QFETCH(QColor, expected);
        whenOpen<QMenu>([accepted](QMenu& menu) {
            whenOpen<QColorDialog>([accepted](QColorDialog& dialog) {
                QCOMPARE(dialog.currentColor(), QColor(Qt::green));
                dialog.setCurrentColor(Qt::red);
                accepted ? dialog.accept() : dialog.reject();
            });
            chooseEntry(menu, 1);
        });
        openListMenu("cam.lens");
        QCOMPARE(fixture->canvas.canvas.findCurve("cam.lens")->getColor(), expected);
        QCOMPARE(fixture->editor.searchAllNodeList("cam.lens")->color, expected);
    }

    void hostMayRemovePointsAtAnyTime_data()
    {
        QTest::addColumn<bool>("visible");
        QTest::newRow("visible") << true;
        QTest::newRow("hidden") << false;
    }
    void hostMayRemovePointsAtAnyTime()
    {
        QFETCH(bool, visible);
        fixture->click(5.0, 1.0);
        QVERIFY(fixture->canvas.nodeForm.isActive());
        fixture->editor.setVisible(visible);
        fixture->curves["cam.focus"].spline.remove(fixture->selectedPoint());
        fixture->editor.updateCurves();
        QVERIFY(!fixture->canvas.nodeForm.isActive());
        QVERIFY(!fixture->selectedPoint());
        fixture->editor.show();
        fixture->drag(5.0, 1.0, 6.0, 0.0);
    }

    void hostMayTakeCurvesAwayWhileItHears_data()
    {
        QTest::addColumn<bool>("all");
        QTest::newRow("the curve itself") << false;
        QTest::newRow("all curves") << true;
    }
    void hostMayTakeCurvesAwayWhileItHears()
    {
        QFETCH(bool, all);
        connect(&fixture->editor, &CurveEditor::curveHasChanged, this, [&](QString& group, QString& curve) {
            if (all)
                fixture->editor.removeNode(group);
            else
                fixture->editor.removeCurve(group, curve);
        });
        fixture->drag(5.0, 1.0, 6.0, 1.0);
        QCOMPARE(fixture->list.topLevelItemCount(), all ? 0 : 1);
        QVERIFY(!fixture->canvas.nodeForm.isActive());
        fixture->click(5.0, 1.0);
        fixture->editor.tension->setFocus();
        QTest::keyClicks(fixture->editor.tension, "1");
        QVERIFY(fixture->changes.size() <= 3);
    }

    void dialogMayBeDeletedFromItsOwnSignal()
    {
        std::map<QString, HostCurve> curves;
        auto* const editor = new CurveEditor;
        const QPointer<CurveEditor> alive = editor;
        editor->addCurve("a", "x", Qt::green, 0, &curves["x"].spline, &curves["x"].expression, -9, 9);
        editor->setDefaultSelected("a", "x");
        editor->show();
        QVERIFY(QTest::qWaitForWindowActive(editor));
        connect(editor, &CurveEditor::curveHasChanged, editor, &QObject::deleteLater);
        auto* const canvas = editor->findChild<FunctionEditor*>();
        QTest::mouseClick(canvas, Qt::LeftButton, {}, {canvas->timeToPixel(5.0), canvas->valueToPixel(1.0)});
        QTRY_VERIFY(!alive);
        QCOMPARE(curves["x"].spline.getControlPointsNumber(), 2U);
    }

    void dialogsComeAndGoIndependently()
    {
        fixture->click(5.0, 1.0);
        auto second = std::make_unique<EditorFixture>(QStringList{"cam.lens", "cam.focus"});
        second->click(5.0, 1.0);
        QTest::keyClick(&second->canvas, Qt::Key_Delete);
        QCOMPARE(second->changes.size(), 2);
        QCOMPARE(fixture->changes.size(), 1);
        QCOMPARE(fixture->curves["cam.focus"].spline.getControlPointsNumber(), 2U);
        fixture = std::make_unique<EditorFixture>(QStringList{"cam.zoom", "cam.lens"});
        second.reset();
        QCOMPARE(fixture->menu("Curves")->actions().size(), 2);
        QVERIFY(fixture->menu("Curves")->actions()[1]->isChecked());
        fixture->drag(5.0, 1.0, 6.0, 0.0);
        QCOMPARE(fixture->changes, QStringList{"cam/lens"});
    }

private:
    static void chooseEntry(QMenu& menu, int index)
    {
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions()[index]).center());
    }
    QPoint rowCenter(const QString& name) const
    {
        QTreeWidgetItem* const row = fixture->list.findItems(name, Qt::MatchExactly).value(0);
        return fixture->list.visualItemRect(row).center();
    }
    void clickRow(const QString& name)
    {
        QTest::mouseClick(fixture->list.viewport(), Qt::LeftButton, {}, rowCenter(name));
    }
    void pressRightAt(const QPoint& position) const
    {
        QWidget* const target = fixture->list.viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, target->mapToGlobal(position));
        QApplication::sendEvent(target, &event);
    }
    void openListMenu(const QString& name) { pressRightAt(rowCenter(name)); }

    std::unique_ptr<EditorFixture> fixture;
};

QTEST_MAIN(tst_CurveEditorEditing)
#include "tst_CurveEditorEditing.moc"
