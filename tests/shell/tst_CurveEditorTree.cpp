// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

class tst_CurveEditorTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        fixture = std::make_unique<EditorFixture>(QStringList());
        for (const char* name : {"a.x", "ba.x", "a.b.y", "a.long name"})
            fixture->add(name);
    }
    void cleanup() { fixture.reset(); }

    void namesThatAreKnownOrUnknownChangeNothing()
    {
        CurveEditor& editor = fixture->editor;
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
        QCOMPARE(editor.searchAllNodeList("a.x")->spline, &fixture->curves["a.x"].spline);
        QCOMPARE(fixture->texts(fixture->menu("D vars")), QStringList({"a", "ba", "a.b"}));
        QCOMPARE(fixture->texts(fixture->submenu("D vars", 0)), QStringList({"a.x", "a.long_name"}));
    }

    void removedCurvesLeaveTheCanvasAndComeBack()
    {
        for (const char* name : {"ba.x", "a.b.y", "a.x"})
            fixture->editor.setEditingNode(name);
        fixture->clickPoint();
        fixture->editor.removeNode("a");
        QCOMPARE(fixture->texts(fixture->menu("D vars")), QStringList({"ba", "a.b"}));
        QCOMPARE(fixture->list.topLevelItemCount(), 1);
        QCOMPARE(fixture->list.selectedItem()->text(0), "ba.x");
        QVERIFY(!fixture->canvas.nodeForm.isActive());
        fixture->open("a.x");
        QCOMPARE(fixture->current(), "a.x");
    }

    void rowsOfAHostsOwnListStandForCurves()
    {
        CurveEditor& editor = fixture->editor;
        QTreeWidget list;
        auto* const group = new QTreeWidgetItem(&list, {"a"});
        auto* const row = new QTreeWidgetItem(group, {"a.x"});
        editor.searchMainNode("a")->item = group;
        editor.searchAllNodeList("a.x")->checkItem = row;
        for (QTreeWidgetItem* const item : {static_cast<QTreeWidgetItem*>(nullptr), group, row}) {
            QCOMPARE(fixture->current(), "None");
            editor.doubleClickedItem(item, {}, 0);
            if (item == row)
                whenOpen<QColorDialog>([](QColorDialog& dialog) {
                    QCOMPARE(dialog.currentColor(), QColor(Qt::green));
                    dialog.setCurrentColor(Qt::red);
                    dialog.accept();
                });
            editor.rightButtonPressedItem(item, {}, 0);
        }
        QCOMPARE(fixture->canvas.canvas.findCurve("a.x")->getColor(), QColor(Qt::red));
        QPixmap picture(8, 8);
        picture.fill(Qt::blue);
        for (const char* const name : {"none", "a", "ba"})
            editor.setMainNodePixmap(name, picture);
        QVERIFY(!group->icon(0).isNull());
    }

    void longMenusScrollInOneColumn()
    {
        for (int i = 0; i < 200; ++i)
            fixture->open(QStringLiteral("a.curve %1").arg(i));
        for (QMenu* const menu : {fixture->menu("Curves"), fixture->submenu("D vars", 0)}) {
            menu->popup({});
            QCOMPARE(menu->actionGeometry(menu->actions().last()).left(),
                     menu->actionGeometry(menu->actions().first()).left());
            QVERIFY(menu->height() <= menu->screen()->geometry().height());
            menu->close();
        }
    }

    void renamesReachEveryPlace()
    {
        CurveEditor& editor = fixture->editor;
        editor.setEditingNode("a.x");
        int told = 0;
        connect(&editor, &CurveEditor::currentCurveChanged, [&told] { ++told; });
        const auto check = [this](QString fullName) {
            QCOMPARE(fixture->current(), fullName);
            QCOMPARE(fixture->list.selectedItem()->text(0), fullName);
            QCOMPARE(fixture->list.selectedItem()->toolTip(0), fullName);
            QCOMPARE(fixture->texts(fixture->menu("Curves")), QStringList{fullName});
            QCOMPARE(fixture->texts(fixture->menu("D vars")).value(0), fullName.section('.', 0, 0));
            QCOMPARE(fixture->texts(fixture->submenu("D vars", 0)).value(0), fullName.replace(' ', '_'));
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
    std::unique_ptr<EditorFixture> fixture;
};

QTEST_MAIN(tst_CurveEditorTree)
#include "tst_CurveEditorTree.moc"
