// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/panel/ExpressionEditLine.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <QPushButton>

#include <memory>

class tst_CurveEditorExpression : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        variables = std::make_unique<CurveVariables>();
        FunctionParserBase::instance()->setVarMapper(variables.get());
        fixture = std::make_unique<EditorFixture>();
        for (const char* name : {"A.x", "b.y", "c.z", "d.w"})
            add(name);
        fixture->open("A.x");
    }
    void cleanup()
    {
        fixture.reset();
        variables.reset();
    }

    void goodExpressionTurnsTheCurve()
    {
        fixture->click(5.0, 1.0);
        QVERIFY(splineToolsEnabled());
        enter("2 T");
        QCOMPARE(fixture->changes.last(), "A/x");
        QVERIFY(fixture->curves["A.x"].expression);
        QCOMPARE(fixture->canvas.canvas.isCurrentExpression(), 1);
        QCOMPARE(line().text(), "2*t");
        QVERIFY(fixture->editor.deleteCurve->isEnabled());
        QVERIFY(!splineToolsEnabled());
        QVERIFY(!fixture->canvas.nodeForm.isActive());
    }

    void returnPressesNoButton()
    {
        fixture->editor.tabWidget2->setCurrentWidget(fixture->editor.tab_2);
        enter("t");
        QTest::keyClick(&line(), Qt::Key_Return);
        QTest::keyClick(fixture->editor.posX, Qt::Key_Return);
        QVERIFY(fixture->curves["A.x"].expression);
        QVERIFY(fixture->editor.isVisible());
    }

    void deleteExpressionGivesTheSplineBack()
    {
        enter("t");
        fixture->changes.clear();
        QTest::mouseClick(fixture->editor.deleteCurve, Qt::LeftButton);
        QVERIFY(!fixture->curves["A.x"].expression);
        QCOMPARE(fixture->curves["A.x"].spline.getControlPointsNumber(), 2U);
        QCOMPARE(fixture->changes, QStringList{"A/x"});
        QVERIFY(splineToolsEnabled());
        QVERIFY(line().text().isEmpty());
    }

    void pageFollowsTheCurrentCurve()
    {
        enter("t+1");
        fixture->editor.setTcb();
        QVERIFY(splineToolsEnabled());
        QVERIFY(fixture->curves["A.x"].expression);
        fixture->editor.setExpression();
        fixture->curves["b.y"].spline.lastType = SplineBase::LoopOffset;
        fixture->open("b.y");
        QVERIFY(line().text().isEmpty());
        QCOMPARE(fixture->editor.nodeLast->currentIndex(), 3);
        QVERIFY(fixture->action("lastNodeLoopOffsetAction")->isChecked());
        fixture->editor.setEditingNode("A.x");
        QCOMPARE(line().text(), "t+1");
        fixture->editor.cleanSelecteds();
        QVERIFY(!splineToolsEnabled());
    }

    void menuEntriesBuildTheText_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("entry");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("warning");
        const QString missing = "Variable X not found";
        QTest::newRow("cos") << "Unary functions" << 0 << "cos(t)"
                             << "";
        QTest::newRow("j1") << "Unary functions" << 18 << "j1(t)"
                            << "";
        QTest::newRow("plus") << "Binary functions" << 0 << " t+X " << missing;
        QTest::newRow("if") << "Ternary functions" << 0 << " if( X, t, X) " << missing;
        QTest::newRow("frame") << "I vars" << 1 << "t*f"
                               << "";
    }
    void menuEntriesBuildTheText()
    {
        QFETCH(QString, warning);
        QFETCH(QString, button);
        QFETCH(int, entry);
        QString shown;
        line().setText("t");
        if (!warning.isEmpty())
            closeBox(shown);
        fixture->menu(button)->actions()[entry]->trigger();
        QCOMPARE(shown, warning);
        QTEST(line().text(), "text");
        QCOMPARE(line().selectedText(), warning.isEmpty() ? "" : "X");
    }

    void variableReplacesThePlaceholderOnce()
    {
        QString warning;
        closeBox(warning);
        line().setText("t");
        fixture->menu("Binary functions")->actions()[0]->trigger();
        fixture->changes.clear();
        fixture->menu("D vars")->actions()[1]->menu()->actions()[0]->trigger();
        QCOMPARE(line().text(), "t+b.y");
        QCOMPARE(fixture->changes, QStringList{"A/x"});
    }

    void returnWithoutCurveEmptiesTheLine()
    {
        fixture->editor.cleanSelecteds();
        enter("t");
        QVERIFY(line().text().isEmpty());
        QVERIFY(fixture->changes.isEmpty());
    }

    void cycleIsToldAndNotReported()
    {
        fixture->setExpression("b.y", "a.x");
        QString warning;
        closeBox(warning);
        enter("2*B.y+b.y");
        QCOMPARE(warning, "Cyclical dependency has been found for d-var b.y ");
        QCOMPARE(line().selectedText(), "b.y");
        QVERIFY(fixture->changes.isEmpty());
        QCOMPARE(fixture->canvas.canvas.isCurrentExpression(), 0);
        fixture->canvas.canvas.paint();
    }

    void dependencyWalk_data()
    {
        QTest::addColumn<QStringList>("expressions"); // of A.x, b.y, c.z, d.w
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("with");
        QTest::newRow("no variables") << QStringList{"1", "", "", ""} << "a.x"
                                      << "";
        QTest::newRow("itself") << QStringList{"t+a.x", "", "", ""} << "a.x"
                                << "A.x";
        QTest::newRow("chain") << QStringList{"b.y", "c.z", "d.w", "t"} << "a.x"
                               << "";
        QTest::newRow("round of three") << QStringList{"b.y", "c.z", "d.w+a.x", ""} << "a.x"
                                        << "b.y";
        QTest::newRow("behind a dead end") << QStringList{"d.w+c.z", "", "a.x", "b.y"} << "a.x"
                                           << "c.z";
        QTest::newRow("others' cycle") << QStringList{"b.y", "c.z", "b.y", ""} << "a.x"
                                       << "";
        QTest::newRow("from another curve") << QStringList{"", "c.z", "a.x", ""} << "b.y"
                                            << "b.y";
        QTest::newRow("unknown curve") << QStringList{"a.x", "", "", ""} << "z.z"
                                       << "";
    }
    void dependencyWalk()
    {
        QFETCH(QStringList, expressions);
        QFETCH(QString, current);
        QFETCH(QString, with);
        const QStringList names = {"A.x", "b.y", "c.z", "d.w"};
        for (qsizetype i = 0; i < names.size(); ++i)
            if (!expressions[i].isEmpty())
                fixture->setExpression(names[i], expressions[i].toStdString());
        QString found;
        QCOMPARE(fixture->editor.checkDependencies("a.x", current, found), !with.isEmpty());
        QCOMPARE(found, with);
    }

    void longChainAndDenseGraphEnd()
    {
        const int count = 1000;
        for (int i = 0; i < count; ++i)
            add(QStringLiteral("n.%1").arg(i, 4, 10, QLatin1Char('0')));
        for (int i = 0; i + 1 < count; ++i) {
            std::string text = "0";
            for (int next = i + 1; next < std::min(i + 4, count); ++next)
                text += QStringLiteral("+n.%1").arg(next, 4, 10, QLatin1Char('0')).toStdString();
            fixture->setExpression(QStringLiteral("n.%1").arg(i, 4, 10, QLatin1Char('0')), text);
        }
        QString with;
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!fixture->editor.checkDependencies("n.0000", "n.0000", with));
        fixture->setExpression("n.0999", "n.0000");
        QVERIFY(fixture->editor.checkDependencies("n.0000", "n.0000", with));
        QVERIFY(timer.elapsed() < 2000);
    }

    void hostDropsAnExpression_data()
    {
        QTest::addColumn<bool>("visible");
        QTest::addColumn<QString>("curve");
        QTest::addColumn<bool>("dropped");
        QTest::newRow("visible, on the canvas") << true << "A.x" << true;
        QTest::newRow("visible, not on the canvas") << true << "b.y" << false;
        QTest::newRow("hidden, on the canvas") << false << "A.x" << true;
        QTest::newRow("hidden, not on the canvas") << false << "b.y" << true;
    }
    void hostDropsAnExpression()
    {
        QFETCH(bool, visible);
        QFETCH(QString, curve);
        enter("t");
        fixture->setExpression("b.y", "t");
        fixture->editor.setVisible(visible);
        FunctionFloatBase*& holder = fixture->curves[curve].expression;
        fixture->editor.deleteExpression(curve.section('.', 0, 0), curve.section('.', 1), &holder);
        fixture->editor.deleteExpression("no", "curve", nullptr);
        QTEST(holder == nullptr, "dropped");
        fixture->editor.show();
        fixture->click(1.0, 1.0);
    }

    void resetsLeaveOnePointAtTheDefault()
    {
        fixture->open("b.y");
        enter("t");
        fixture->changes.clear();
        fixture->editor.resetSelectedF();
        QCOMPARE(fixture->changes, QStringList{"b/y"});
        QVERIFY(!fixture->curves["b.y"].expression);
        QCOMPARE(fixture->curves["b.y"].spline(3.0), 0.5);
        fixture->editor.resetAllCheckedF();
        QCOMPARE(fixture->changes, QStringList({"b/y", "A/x", "b/y"}));
        QCOMPARE(fixture->curves["A.x"].spline.getControlPointsNumber(), 1U);
    }

private:
    void add(const QString& name)
    {
        fixture->add(name);
        HostCurve& curve = fixture->curves[name];
        variables->add(name.toLower().toStdString(), &curve.spline, &curve.expression);
    }
    ExpressionEditLine& line() const { return *fixture->editor.commandLine; }
    void enter(const QString& text)
    {
        line().setText(text);
        QTest::keyClick(&line(), Qt::Key_Return);
    }
    bool splineToolsEnabled() const
    {
        const CurveEditor& editor = fixture->editor;
        const QList<bool> states = {editor.nodeFirst->isEnabled(), editor.nodeLast->isEnabled(),
                                    editor.findChild<QToolButton*>("Fit H")->isEnabled(),
                                    fixture->action("openPanSelection")->isEnabled(),
                                    fixture->menu("Options")->actions()[9]->isEnabled()};
        if (states.count(states[0]) != states.size())
            QTest::qFail("the spline tools differ", __FILE__, __LINE__);
        return states[0];
    }

    std::unique_ptr<CurveVariables> variables;
    std::unique_ptr<EditorFixture> fixture;
};

QTEST_MAIN(tst_CurveEditorExpression)
#include "tst_CurveEditorExpression.moc"
