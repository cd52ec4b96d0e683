// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <curveeditor/panel/EditingListPanel.h>

struct TreeScene : EditorFixture
{
    TreeScene() : EditorFixture(QStringList())
    {
        for (const char* name : {"a.x", "ba.x", "a.b.y", "a.long name"})
            add(name);
    }
};

class tst_CurveEditorEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture = std::make_unique<EditorFixture>(QStringList{"cam.lens", "cam.focus"}); }
    void cleanup() { fixture.reset(); }

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

    void listIsAsWideAsItsNamesAndMarksFormulas()
    {
        EditorFixture& s = *fixture;
        s.editor.resize(1230, 700);
        s.editor.show();
        const QString name = "a." + QString(16, u'm');
        for (const QString& each : {name, name + QString(300, u'm')}) {
            s.add(each);
            s.open(each);
            QTRY_COMPARE_WITH_TIMEOUT(s.list.width() > 390, each != name, 500);
        }
        QVERIFY(s.list.width() <= 410);
        Q_EMIT s.editor.splitter11->splitterMoved(200, 1);
        s.editor.splitter11->setSizes({200, 1000});
        s.open(name);
        QCOMPARE(s.list.width(), 200);
        const auto told = [&s] {
            return s.list.currentItem()->data(0, Qt::AccessibleTextRole).toString();
        };
        const QImage plain = s.list.grab().toImage();
        s.editor.commandLine->setText("t");
        QTest::keyClick(s.editor.commandLine, Qt::Key_Return);
        QVERIFY(told().endsWith(", formula") && s.list.grab().toImage() != plain);
        s.editor.undo();
        QVERIFY(told().isEmpty() && s.list.grab().toImage() == plain);
    }

    void plusOpensCurvesAsADropDoes()
    {
        EditorFixture& s = *fixture;
        for (const QString name : {"b.y", "a.z", "b.hidden", "b.X"})
            s.add(name);
        CurveOptions hidden;
        hidden.hidden = true;
        s.editor.setCurveOptions("b", "hidden", hidden);
        QStringList told;
        const auto log = [&told](const char* what) {
            return [&told, what](const QString& group, const QString& curve) {
                told += QStringList{what, group, curve}.join(' ');
            };
        };
        QObject::connect(&s.editor, &CurveEditor::curveOpened, log("opened"));
        QObject::connect(&s.editor, &CurveEditor::currentCurveChanged, log("current"));
        dropOn(*s.list.viewport(), "b.X");
        const QStringList byDrop = std::exchange(told, {});
        s.editor.slotRemoveFromEditing(s.list.selectedItem());
        told.clear();

        auto& field = *s.editor.findChild<QFrame*>("curveChooser");
        auto& line = *field.findChild<QLineEdit*>();
        auto& names = *field.findChild<QListView*>();
        const auto offered = [&] {
            QStringList texts;
            for (int row = 0; row < names.model()->rowCount(); ++row)
                texts += names.model()->index(row, 0).data(Qt::ToolTipRole).toString();
            return texts.join(' ');
        };
        s.list.setFocus();
        QVERIFY(s.takes(s.list, Qt::Key_Insert));
        QTest::keyClick(&s.list, Qt::Key_Insert);
        QVERIFY(field.isVisible() && line.hasFocus());
        QCOMPARE(offered(), "a.z b.X b.y");
        QTest::keyClicks(&line, "x");
        QCOMPARE(offered(), "b.X");
        QTest::keyClick(&line, Qt::Key_Return);
        QVERIFY(!field.isVisible() && told == byDrop);

        QTest::keyClick(&s.list, Qt::Key_Insert);
        QCOMPARE(offered(), "a.z b.y");
        QTest::keyClick(&line, Qt::Key_Escape);
        QVERIFY(!field.isVisible() && s.editor.isVisible() && told == byDrop);
        s.editor.action("openCurvesAction")->setVisible(false);
        QTest::keyClick(&s.list, Qt::Key_Insert);
        QVERIFY(!field.isVisible() && !s.button("openButton")->isVisible());
        s.editor.action("openCurvesAction")->setVisible(true);
        QTest::mouseClick(s.button("openButton"), Qt::LeftButton);
        QTest::keyClick(&line, Qt::Key_PageDown);
        for (const bool isInLine : {false, true}) {
            QTest::keyClick(&names, Qt::Key_Up);
            QCOMPARE(line.hasFocus(), isInLine);
        }
        QTest::keyClick(&line, Qt::Key_Down, Qt::ShiftModifier); // into the names, two of them
        QTest::keyClick(&names, Qt::Key_Z);
        QCOMPARE(line.text(), "z");
        QTest::keyClick(&line, Qt::Key_Backspace);
        for (const int row : {1, 0}) // from below
            QTest::mouseClick(names.viewport(), Qt::LeftButton,
                              row == 0 ? Qt::ControlModifier : Qt::NoModifier,
                              names.visualRect(names.model()->index(row, 0)).center());
        QTest::keyClick(&names, Qt::Key_Return);
        QVERIFY(s.list.topLevelItemCount() == 5 && s.current() == "b.y");
        QTest::keyClick(&s.list, Qt::Key_Insert);
        QTest::keyClick(&line, Qt::Key_Return); // nothing is left
        QVERIFY(!field.isVisible() && s.list.topLevelItemCount() == 5);
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
            QVERIFY(fixture->showsWhatIsDrawnFromScratch());
            const CurveNodeBase* const curve = fixture->canvas.canvas.findCurve("cam.lens");
            QCOMPARE(curve ? curve->getColor() : QColor(), choice == Removed ? QColor() : QColor(Qt::red));
            if (curve)
                QCOMPARE(colorOfSquare("cam.lens"), QColor(Qt::red));
        }
        QCOMPARE(fixture->changes.size(), 3);
    }

    void namesThatAreKnownOrUnknownChangeNothing()
    {
        TreeScene s;
        CurveEditor& editor = s.editor;
        HostCurve other;
        editor.addCurve("a", "x", Qt::red, 1, &other.spline, &other.expression, 0, 1);
        editor.addCurve("a", "n", Qt::red, 1, nullptr, &other.expression, 0, 1);
        for (const QString& name : {QString(), QString("b"), QString("A"), QString(70000, '.')}) {
            editor.removeNode(name);
            editor.removeCurve(name, "x");
            editor.renameNode(name, "c");
            editor.renameCurve("a", name, "z");
            editor.setEditingNode(name);
        }
        QCOMPARE(editor.searchAllNodeList("a.x")->spline, &s.curves["a.x"].spline);
        QCOMPARE(editor.searchAllNodeListCurveName("a.long_name"), editor.searchAllNodeList("a.long name"));
        QCOMPARE(s.texts(s.menu("D vars")), QStringList({"a", "ba", "a.b"}));
        QCOMPARE(s.texts(s.submenu("D vars", 0)), QStringList({"a.x", "a.long_name"}));
    }

    void rowsOfAHostsOwnListStandForCurves()
    {
        TreeScene s;
        CurveEditor& editor = s.editor;
        QTreeWidget list;
        auto* const group = new QTreeWidgetItem(&list, {"a"});
        auto* const row = new QTreeWidgetItem(group, {"a.x"});
        editor.searchMainNode("a")->item = group;
        editor.searchAllNodeList("a.x")->checkItem = row;
        for (QTreeWidgetItem* const item : {static_cast<QTreeWidgetItem*>(nullptr), group, row}) {
            QCOMPARE(s.current(), "None");
            editor.doubleClickedItem(item, {}, 0);
            if (item == row)
                whenOpen<QColorDialog>([](QColorDialog& dialog) {
                    QCOMPARE(dialog.currentColor(), QColor(Qt::green));
                    dialog.setCurrentColor(Qt::red);
                    dialog.accept();
                });
            editor.rightButtonPressedItem(item, {}, 0);
        }
        QCOMPARE(s.canvas.canvas.findCurve("a.x")->getColor(), QColor(Qt::red));
        QPixmap picture(8, 8);
        picture.fill(Qt::blue);
        for (const char* const name : {"none", "a", "ba"})
            editor.setMainNodePixmap(name, picture);
        QVERIFY(!group->icon(0).isNull());
    }

    void manyCurvesScroll()
    {
        TreeScene s;
        for (int i = 0; i < 200; ++i)
            s.open(QStringLiteral("a.curve %1").arg(i));
        QApplication::processEvents();
        QVERIFY(s.list.viewport()->rect().contains(s.list.visualItemRect(s.list.selectedItem()).center()));
        for (QMenu* const menu : {s.menu("Curves"), s.submenu("D vars", 0)}) {
            menu->popup({});
            QCOMPARE(menu->actionGeometry(menu->actions().last()).left(),
                     menu->actionGeometry(menu->actions().first()).left());
            QVERIFY(menu->height() <= menu->screen()->geometry().height());
            menu->close();
        }
    }

    void renamesReachEveryPlace()
    {
        TreeScene s;
        CurveEditor& editor = s.editor;
        editor.setEditingNode("a.x");
        int told = 0;
        connect(&editor, &CurveEditor::currentCurveChanged, [&told] { ++told; });
        const auto check = [&s](QString fullName) {
            QCOMPARE(s.current(), fullName);
            QCOMPARE(s.list.selectedItem()->text(0), fullName);
            QCOMPARE(s.list.selectedItem()->toolTip(0), fullName);
            QCOMPARE(s.texts(s.menu("Curves")), QStringList{fullName});
            QCOMPARE(s.texts(s.menu("D vars")).value(0), fullName.section('.', 0, 0));
            QCOMPARE(s.texts(s.submenu("D vars", 0)).value(0), fullName.replace(' ', '_'));
        };
        editor.renameCurve("a", "x", "long name"); // taken
        editor.renameNode("a", "ba");              // taken
        check("a.x");
        editor.renameCurve("a", "x", "Ünd kürve");
        check("a.Ünd kürve");
        editor.renameNode("a", "new group");
        check("new group.Ünd kürve");
        editor.setEditingNode("new group.Ünd kürve");
        QCOMPARE(told, 0); // it is the same curve still
    }

private:
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

    std::unique_ptr<EditorFixture> fixture;
};

QTEST_MAIN(tst_CurveEditorEditing)
#include "tst_CurveEditorEditing.moc"
