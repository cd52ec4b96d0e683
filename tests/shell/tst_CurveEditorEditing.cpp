// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <curveeditor/panel/EditingListPanel.h>

using namespace curveeditor;

class tst_CurveEditorEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture = std::make_unique<EditorFixture>(QStringList{"cam.lens", "cam.focus"}); }
    void cleanup() { fixture.reset(); }

    void listAndCanvasFollowEachOther()
    {
        QCOMPARE(fixture->current(), "cam.focus");
        clickRow("cam.lens");
        QCOMPARE(fixture->current(), "cam.lens");
        QTest::keyClick(&fixture->list, Qt::Key_Up);
        QCOMPARE(fixture->current(), "cam.focus");
        QCOMPARE(fixture->texts(fixture->menu("Curves")), QStringList({"cam.lens", "cam.focus"})); // as added
        fixture->menu("Curves")->actions()[0]->trigger();
        QCOMPARE(fixture->list.selectedItem()->text(0), "cam.lens");
        for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, Qt::ControlModifier}) {
            clickRow("cam.focus", keys);
            QCOMPARE(fixture->current(), "cam.focus");
            QVERIFY(fixture->list.selectedItem());
        }
        QVERIFY(fixture->changes.isEmpty());
    }

    void deleteInTheListTakesTheCurveAndNoPoint()
    {
        clickRow("cam.lens");
        fixture->clickPoint();
        clickRow("cam.focus");
        fixture->changes.clear();
        for (const char* nowCurrent : {"cam.lens", "None", "None"}) {
            QTest::keyClick(&fixture->list, Qt::Key_Delete);
            QCOMPARE(fixture->current(), nowCurrent);
        }
        QCOMPARE(fixture->list.topLevelItemCount(), 0);
        QCOMPARE(fixture->curves["cam.lens"].spline.getControlPointsNumber(), 2U);
        QVERIFY(fixture->changes.isEmpty());
    }

    void droppedNameOpensItsCurveOrIsToldToBeUnknown()
    {
        fixture->add("cam.pan");
        for (const QString& name : {QString("cam.pan"), QString(), QString("cam.?"), QString("cam.pam")}) {
            const bool isName = name.contains("pa");
            QCOMPARE(dropOn(*fixture->list.viewport(), name), isName ? Qt::CopyAction : Qt::IgnoreAction);
            QCOMPARE(fixture->current(), "cam.pan");
        }
        QVERIFY(closeBox().contains("cam.pam"));
    }

    void menuOfTheListWorksOnTheRowUnderTheMouse()
    {
        enum Choice { Accepted, Cancelled, Removed };
        for (const Choice choice : {Accepted, Cancelled, Removed}) {
            whenOpen<QMenu>([choice](QMenu& menu) {
                if (choice != Removed) {
                    whenOpen<QColorDialog>([choice](QColorDialog& dialog) {
                        dialog.setCurrentColor(choice == Accepted ? Qt::red : Qt::blue);
                        choice == Accepted ? dialog.accept() : dialog.reject();
                    });
                }
                QAction* const entry = menu.actions()[choice == Removed ? 0 : 1];
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(entry).center());
            });
            openContextMenu(*fixture->list.viewport(), rowCenter("cam.lens"));
            const QImage shown = fixture->canvas.grab().toImage();
            fixture->editor.updateCurves();
            QVERIFY(fixture->canvas.grab().toImage() == shown);
            const CurveNodeBase* const curve = fixture->canvas.canvas.findCurve("cam.lens");
            QCOMPARE(curve ? curve->getColor() : QColor(), choice == Removed ? QColor() : QColor(Qt::red));
            if (curve)
                QCOMPARE(colorOfSquare("cam.lens"), QColor(Qt::red));
        }
        QCOMPARE(fixture->changes.size(), 3);
    }

    void filterHidesRowsAndLeavesTheCanvasAlone()
    {
        QLineEdit& line = *fixture->editor.listPanel->filterLine();
        for (int i = 0; i < 11; ++i) {
            QVERIFY(!line.isVisible());
            fixture->open(QStringLiteral("light.%1").arg(i));
        }
        line.setFocus();
        QTest::keyClicks(&line, "CAM");
        QCOMPARE(rowsInSight(), QStringList({"cam.focus", "cam.lens", "light.10"}));
        fixture->editor.renameCurve("light", "3", "sky Cam");
        fixture->editor.setEditingNode("light.7");
        QCOMPARE(rowsInSight(),
                 QStringList({"cam.focus", "cam.lens", "light.10", "light.7", "light.sky Cam"}));
        clickRow("cam.lens");
        QCOMPARE(fixture->current(), "cam.lens");
        QTest::keyClick(&line, Qt::Key_Escape);
        QVERIFY(fixture->editor.isVisible());
        QCOMPARE(rowsInSight().size(), 13);
        line.setText("no such name");
        QTest::keyClick(&fixture->list, Qt::Key_Delete);
        QVERIFY(!line.isVisible());
        QCOMPARE(rowsInSight().size(), 12);
    }

    void dialogsComeAndGoIndependently()
    {
        fixture->clickPoint();
        auto second = std::make_unique<EditorFixture>(QStringList{"cam.lens", "cam.focus"});
        second->clickPoint();
        QTest::keyClick(&second->canvas, Qt::Key_Delete);
        QCOMPARE(fixture->changes.size(), 1);
        QVERIFY(fixture->canvas.canvas.currentControl()->getCurrent());
        fixture = std::make_unique<EditorFixture>(QStringList{"cam.zoom", "cam.lens"});
        second.reset();
        QVERIFY(fixture->menu("Curves")->actions()[1]->isChecked());
        fixture->editor.setDefaultSelected("cam", "lens");
        fixture->clickPoint();
        QCOMPARE(fixture->changes, QStringList({"cam/lens", "cam/lens"})); // opened twice, heard twice
    }

private:
    QStringList rowsInSight() const
    {
        QStringList names;
        for (int i = 0; i < fixture->list.topLevelItemCount(); ++i) {
            if (!fixture->list.topLevelItem(i)->isHidden())
                names.append(fixture->list.topLevelItem(i)->text(0));
        }
        return names;
    }
    QColor colorOfSquare(const QString& name) const
    {
        const int inside = fixture->list.iconSize().width() / 2;
        return fixture->list.viewport()->grab().toImage().pixelColor(inside, rowCenter(name).y());
    }
    QPoint rowCenter(const QString& name) const
    {
        return fixture->list.visualItemRect(fixture->list.findItems(name, Qt::MatchExactly).value(0))
            .center();
    }
    void clickRow(const QString& name, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(fixture->list.viewport(), Qt::LeftButton, keys, rowCenter(name));
    }

    std::unique_ptr<EditorFixture> fixture;
};

QTEST_MAIN(tst_CurveEditorEditing)
#include "tst_CurveEditorEditing.moc"
