// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/edit/PointText.h>
#include <curveeditor/model/PointTypes.h>
#include <curveeditor/shell/BakeDialog.h>

class tst_PointTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// A row of the table is all that a new type needs to be offered, named, written and read.
    void rowOfTheTableIsKnownEverywhere()
    {
        const auto builtIn = PointTypes::all();
        std::vector<PointType> types(builtIn.begin(), builtIn.end());
        types.push_back({100, "Extra", "Extra", "Extra node", "Extra point", "Selection to Extra",
                         int(types.size()), 100});
        PointTypes::use(types);
        Scene s;
        const CurveState before = s.states()["a.x"];
        s.selectTwo().choose(100);
        QCOMPARE(s.x[1]->type, 100);
        QCOMPARE(s.changes, QStringList{"a/x"});
        QCOMPARE(s.texts(ControlSplineNode::menu()).mid(1, 5),
                 QStringList({"Selection to Linear", "Selection to Bezier", "Selection to Tcb",
                              "Selection to Hold", "Selection to Extra"}));
        const QList<QAction*> entries = ControlSplineNode::menu()->actions();
        QVERIFY(entries[5]->isEnabled() && entries[5]->isVisible() && !entries[4]->isVisible());
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

        for (const auto& [signal, type] : {std::pair{&ControlMenu::setSelectedBezier, SplineBase::Bezier},
                                           {&ControlMenu::setSelectedTcb, SplineBase::Tcb},
                                           {&ControlMenu::setSelectedLinear, SplineBase::Linear}}) {
            QSignalSpy named(ControlSplineNode::menu(), signal);
            s.selectTwo().choose(1 + type);
            QVERIFY(named.count() == 1 && s.x[1]->type == type);
        }
        s.clickPoint();
        QTest::keyClick(s.editor.nodeTypeCombo, Qt::Key_End);
        QCOMPARE(s.x[1]->type, 100);
        QVERIFY(const_cast<QAbstractItemModel&>(table).setData(table.index(0, 2), "Extra"));
        QCOMPARE(s.x[0]->type, 100);
        BakeDialog bake(&s.editor, s.canvas.canvas);
        bake.findChild<QComboBox*>("kind")->setCurrentText("Extra");
        bake.accept();
        QCOMPARE(s.x.getLast()->type, 100);
        PointTypes::use(builtIn);
    }

    void holdIsAStep()
    {
        Scene s;
        s.x.modify(1)->type = SplineBase::Hold; // at (5, 1), behind (0, 0)
        s.x.modify(2)->type = SplineBase::Hold;
        SplineEdits::setType(s.x, {SplineEdits::addPoint(s.x, 9.0, -2.0)}, SplineBase::Linear);
        s.turnTo("a.y").editor.updateCurves();
        const QImage picture = s.canvas.grab().toImage();
        const QPoint middle = s.pixel(5.0, 0.5);
        const auto colorAt = [&](int columns) {
            return picture.pixel(middle + QPoint(columns, 0));
        };
        QVERIFY(colorAt(0) != colorAt(3) && colorAt(3) == colorAt(-3));
        for (const auto& [time, value, isNear] : {std::tuple{5.0, 0.5, true},
                                                  {5.0, 0.9, true},
                                                  {8.0, 0.5, true},
                                                  {3.0, 0.0, true},
                                                  {6.5, 1.0, true},
                                                  {5.0, 1.5, false},
                                                  {9.0, -1.5, false},
                                                  {6.5, 0.5, false}}) {
            s.turnTo("a.y").click(time, value);
            QVERIFY2((s.current() == "a.x") == isNear, qPrintable(QString("%1 %2").arg(time).arg(value)));
        }
        s.turnTo("a.x").clickPoint();
        QCOMPARE(s.editor.nodeTypeCombo->currentText(), "Hold node"); // though it is not offered
        s.drag(5.0, 1.0, 4.0, 2.0);
        QVERIFY(s.x[1]->type == SplineBase::Hold && s.x(3.9) == 0.0 && s.x(7.9) == s.x[1]->pos);
        const double value = s.x(2.0);
        QCOMPARE(s.canvas.canvas.currentControl()->curve()->state().spline.points.size(), 4U);
        QTest::mouseMove(&s.canvas, s.pixel(2.0, 1.0));
        s.key(Qt::Key_I);
        QVERIFY(s.x.getControlPointsNumber() == 5 && s.x[1]->type == SplineBase::Hold && s.x(2.0) == value);
        const auto [time, jump] = std::pair(s.x[3]->time, s.x[3]->pos - s.x[2]->pos);
        BakeDialog(&s.editor, s.canvas.canvas).accept();
        QVERIFY(std::abs(s.x(time + 1e-6) - s.x(time - 1e-6) - jump) < 1e-3);
    }
};

QTEST_MAIN(tst_PointTypes)
#include "tst_PointTypes.moc"
