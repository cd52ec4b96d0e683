// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/edit/PointText.h>
#include <curveeditor/model/CurveDiff.h>
#include <curveeditor/model/PointTypes.h>
#include <curveeditor/shell/BakeDialog.h>

class tst_PointTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// A row of the table is all that a new type needs to be offered, named, written and read.
    void rowOfTheTableIsKnownEverywhere()
    {
        std::vector<PointType> types(PointTypes::all().begin(), PointTypes::all().end());
        types.push_back({100, "Extra", "Extra", "Extra node", "Extra point", "Selection to Extra",
                         int(types.size()), 100});
        PointTypes::use(types);
        Scene s;
        const CurveState before = s.states()["a.x"];
        s.selectTwo().choose(100);
        QCOMPARE(s.x[1]->type, 100);
        QCOMPARE(s.changes, QStringList{"a/x"});
        QCOMPARE(s.texts(ControlSplineNode::menu()).mid(1, 4),
                 QStringList({"Selection to Linear", "Selection to Bezier", "Selection to Tcb",
                              "Selection to Extra"}));
        QVERIFY(ControlSplineNode::menu()->actions()[4]->isEnabled());
        QCOMPARE(CurveDiff::between(before, s.states()["a.x"]).toString(),
                 "- 1: 5 1 Bezier\n- 2: 8 -1 Bezier\n+ 1: 5 1 Extra\n+ 2: 8 -1 Extra\n");
        s.clickPoint();
        QCOMPARE(s.editor.nodeTypeCombo->currentText(), "Extra node");
        const auto& table = *s.editor.findChild<QTableView*>()->model();
        s.editor.findChild<QTabWidget*>()->setCurrentIndex(2);
        QCOMPARE(table.index(1, 2).data().toString(), "Extra");
        QCOMPARE(QAccessible::queryAccessibleInterface(&s.canvas)->child(1)->text(QAccessible::Description),
                 "Extra point");
        const QString text = PointText::write({*s.x[1]});
        QVERIFY(text.contains("\tExtra\t") && PointText::read(text).points[0].type == 100);
        std::stringstream file;
        SplineBase read;
        SplineBase::save(s.x, file);
        SplineBase::load(&read, file);
        QCOMPARE(read.getLast()->type, 100);

        QSignalSpy named(ControlSplineNode::menu(), &ControlMenu::setSelectedLinear);
        s.selectTwo().choose(1);
        QVERIFY(named.count() == 1 && s.x[1]->type == SplineBase::Linear);
        s.clickPoint();
        QTest::keyClick(s.editor.nodeTypeCombo, Qt::Key_End);
        QCOMPARE(s.x[1]->type, 100);
        QVERIFY(const_cast<QAbstractItemModel&>(table).setData(table.index(0, 2), "Extra"));
        QCOMPARE(s.x[0]->type, 100);
        BakeDialog bake(&s.editor, s.canvas.canvas);
        bake.findChild<QComboBox*>("kind")->setCurrentText("Extra");
        bake.accept();
        QCOMPARE(s.x.getLast()->type, 100);
    }
};

QTEST_MAIN(tst_PointTypes)
#include "tst_PointTypes.moc"
