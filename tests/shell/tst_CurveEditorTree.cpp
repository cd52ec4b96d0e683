// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <QPointer>

#include <optional>

class tst_CurveEditorTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        fixture.emplace();
        for (const char* name : {"a.x", "ba.x", "a.b.y", "a.long name"})
            fixture->add(name);
    }
    void cleanup() { fixture.reset(); }

    void addCurveMakesGroupsAndEntries()
    {
        QCOMPARE(groups(), QStringList({"a", "ba", "a.b"}));
        QCOMPARE(entries(0), QStringList({"a.x", "a.long_name"}));
        QCOMPARE(fixture->list.topLevelItemCount(), 0);
        QVERIFY(!fixture->editor.searchAllNodeList("a.X"));
        QCOMPARE(fixture->editor.searchAllNodeListCurveName("a.long_name")->name, "a.long name");
    }

    void secondAddChangesNothing()
    {
        HostCurve other;
        fixture->editor.addCurve("a", "x", Qt::red, 1, &other.spline, &other.expression, 0, 1);
        fixture->editor.addCurve("a", "new", Qt::red, 1, nullptr, &other.expression, 0, 1);
        fixture->editor.addCurve("a", "new", Qt::red, 1, &other.spline, nullptr, 0, 1);
        QCOMPARE(fixture->editor.searchAllNodeList("a.x")->spline, &fixture->curves["a.x"].spline);
        QCOMPARE(fixture->editor.searchAllNodeList("a.x")->color, QColor(Qt::green));
        QCOMPARE(entries(0).size(), 2);
    }

    void removingTheLastCurveLeavesItsGroup()
    {
        const QPointer<QAction> entry = fixture->editor.searchAllNodeList("ba.x")->action;
        fixture->editor.removeCurve("ba", "x");
        QCOMPARE(groups(), QStringList({"a", "ba", "a.b"}));
        QCOMPARE(entries(1), QStringList());
        QVERIFY(!entry);
    }

    void removedCurveLeavesTheCanvasAndComesBack()
    {
        fixture->open("ba.x");
        fixture->open("a.x");
        fixture->click(5.0, 1.0);
        fixture->editor.removeCurve("a", "x");
        QCOMPARE(fixture->current(), "ba.x");
        QCOMPARE(fixture->selectedRow(), "ba.x");
        QVERIFY(!fixture->canvas.nodeForm.isActive());
        QCOMPARE(fixture->curves["a.x"].spline.getControlPointsNumber(), 2U);
        fixture->open("a.x");
        QCOMPARE(fixture->current(), "a.x");
    }

    void removeNodeTakesWhatBeginsWithItsName()
    {
        fixture->open("a.b.y");
        fixture->open("ba.x");
        fixture->editor.removeNode("a");
        QCOMPARE(groups(), QStringList({"ba", "a.b"}));
        QVERIFY(!fixture->editor.searchAllNodeList("a.b.y"));
        QCOMPARE(fixture->list.topLevelItemCount(), 1);
        QCOMPARE(fixture->current(), "ba.x");
    }

    void renamesReachEveryPlace_data()
    {
        QTest::addColumn<bool>("wholeGroup");
        QTest::addColumn<QString>("fullName");
        QTest::addColumn<QString>("variable");
        QTest::newRow("curve") << false << "a.Ünd kürve"
                               << "a.Ünd_kürve";
        QTest::newRow("group") << true << "new group.x"
                               << "new_group.x";
    }
    void renamesReachEveryPlace()
    {
        QFETCH(bool, wholeGroup);
        QFETCH(QString, fullName);
        fixture->open("a.x");
        if (wholeGroup)
            fixture->editor.renameNode("a", "new group");
        else
            fixture->editor.renameCurve("a", "x", "Ünd kürve");
        QCOMPARE(fixture->current(), fullName);
        QCOMPARE(fixture->selectedRow(), fullName);
        QCOMPARE(fixture->menu("Curves")->actions().value(0)->text(), fullName);
        QTEST(entries(0).value(0), "variable");
        QCOMPARE(groups().value(0), wholeGroup ? "new group" : "a");
        QVERIFY(fixture->editor.searchAllNodeList("ba.x"));
    }

    void unknownNamesChangeNothing()
    {
        CurveEditor& editor = fixture->editor;
        for (const QString& name : {QString(), QString("none"), QString("b"), QString("A")}) {
            editor.removeNode(name);
            editor.renameNode(name, "c");
            editor.removeCurve(name, "x");
            editor.renameCurve(name, "x", "z");
            editor.removeCurve("a", name);
            editor.renameCurve("a", name, "z");
            editor.setMainNodePixmap(name, QPixmap());
            editor.setDefaultSelected("a", name);
        }
        for (const QString& text :
             {QString(), QString("."), QString("a."), QString("a.x "), QString(70000, '.')})
            editor.setEditingNode(text);
        QCOMPARE(groups(), QStringList({"a", "ba", "a.b"}));
        QCOMPARE(entries(0), QStringList({"a.x", "a.long_name"}));
        QVERIFY(fixture->canvas.canvas.noCurrentCurve());
    }

    void hostsOwnListOpensCurves()
    {
        QTreeWidgetItem group(QStringList("a.x"));
        auto* const row = new QTreeWidgetItem(&group, QStringList("a.x"));
        for (QTreeWidgetItem* const passedOver : {static_cast<QTreeWidgetItem*>(nullptr), &group}) {
            fixture->editor.doubleClickedItem(passedOver, QPoint(), 0);
            fixture->editor.rightButtonPressedItem(passedOver, QPoint(), 0);
            fixture->editor.pressedItem(passedOver);
        }
        QVERIFY(fixture->canvas.canvas.noCurrentCurve());
        fixture->editor.doubleClickedItem(row, QPoint(), 0);
        QCOMPARE(fixture->current(), "a.x");
    }

    void entriesOfLaterCurvesInsertTheirOwnName()
    {
        fixture->open("ba.x");
        fixture->editor.removeCurve("a", "x");
        fixture->add("a.z");
        QString warning;
        closeBox(warning);
        fixture->menu("D vars")->actions()[0]->menu()->actions().last()->trigger();
        QCOMPARE(warning, "Variable a.z not found");
    }

private:
    QStringList texts(const QMenu& menu) const
    {
        QStringList all;
        for (const QAction* const entry : menu.actions())
            all.append(entry->text());
        return all;
    }
    QStringList groups() const { return texts(*fixture->menu("D vars")); }
    QStringList entries(int group) const { return texts(*fixture->menu("D vars")->actions()[group]->menu()); }

    std::optional<EditorFixture> fixture;
};

QTEST_MAIN(tst_CurveEditorTree)
#include "tst_CurveEditorTree.moc"
