// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

class tst_CurveEditorExpression : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        variables.emplace();
        fixture = std::make_unique<EditorFixture>(QStringList());
        for (const QString& name : names)
            add(name);
        QVERIFY(!splineToolsEnabled());
        fixture->editor.setEditingNode("A.x");
    }
    void cleanup() { fixture.reset(); }

    void goodExpressionTurnsTheCurveUntilItIsDeleted()
    {
        fixture->clickPoint();
        QVERIFY(splineToolsEnabled());
        QCOMPARE(line().palette().color(QPalette::Text), QColor(Qt::white));
        fixture->changes.clear();
        enter("2 T");
        QCOMPARE(line().text(), "2*t");
        QVERIFY(!fixture->canvas.nodeForm.isActive());
        fixture->editor.setTcb();
        QVERIFY(splineToolsEnabled() && fixture->editor.undoStack()->undoText() == "Show the spline of A.x");
        fixture->editor.setExpression();
        QVERIFY(!splineToolsEnabled() &&
                fixture->editor.undoStack()->undoText() == "Show the formula of A.x");
        fixture->editor.setEditingNode("b.y");
        QVERIFY(line().text().isEmpty() && splineToolsEnabled());
        fixture->canvas.canvas.setCurrentCurve("A.x");
        QCOMPARE(line().text(), "2*t");
        QTest::keyClick(fixture->editor.posX, Qt::Key_Return);
        QVERIFY(fixture->curves["A.x"].expression);
        QTest::mouseClick(fixture->editor.deleteCurve, Qt::LeftButton);
        QVERIFY(!fixture->curves["A.x"].expression && splineToolsEnabled());
        QCOMPARE(fixture->changes, QStringList({"A/x", "A/x"}));
        enter("log(t)");
        QTest::mouseMove(&fixture->canvas, fixture->pixel(-0.5, 0.0));
        QCOMPARE(fixture->editor.findChild<QLineEdit*>("funcValueEdit")->text(), "0.000 [Value]");
        fixture->editor.cleanSelecteds();
        enter("t");
        QVERIFY(line().text().isEmpty() && !splineToolsEnabled());
    }

    void formulaLongerThanTheLineOutlivesIt()
    {
        setExpression("c.z", QString("t+").repeated(8192) + "t");
        FunctionFloatBase* const kept = fixture->curves["c.z"].expression;
        fixture->editor.setEditingNode("c.z");
        QVERIFY(line().text().size() == 16384 && line().text().endsWith(u'\u2026'));
        const QString shown = line().text();
        QVERIFY(line().cursorPosition() == 0);
        QTest::keyClicks(&line(), "7\r");
        QVERIFY(line().toolTip().contains("too long"));
        const auto isRefused = [this](const QString& button) {
            fixture->menu(button)->actions().first()->trigger();
            return closeBox().contains("16384");
        };
        QVERIFY(isRefused("Unary functions") && isRefused("I vars"));
        dropOn(line(), "b.y");
        QCOMPARE(line().text(), shown);
        QCOMPARE(fixture->curves["c.z"].expression, kept);
        fixture->editor.setEditingNode("A.x");
        const QString full(16383, '1'); // a menu must not cut it
        line().setText(full);
        QVERIFY(isRefused("Binary functions") && isRefused("I vars"));
        QVERIFY(line().text() == full && !line().toolTip().contains("too long"));
        line().setSelection(0, 2); // gives just the room
        QVERIFY(!isRefused("I vars") && line().text().startsWith(" t 1"));
        enter("t");
        QVERIFY(fixture->curves["A.x"].expression);
    }

    void expressionThatTheHostDeletesLeavesNoLine()
    {
        for (const bool isHidden : {false, true}) {
            enter("t");
            fixture->canvas.grab();
            fixture->editor.setVisible(!isHidden);
            fixture->editor.deleteExpression("A", "x", &fixture->curves["A.x"].expression);
            fixture->editor.show();
            QVERIFY(fixture->showsWhatIsDrawnFromScratch());
        }
        const QImage shown = fixture->canvas.grab().toImage();
        fixture->editor.cleanSelecteds();
        QVERIFY(fixture->canvas.grab().toImage() == shown);
    }

    void placeholderIsReplacedByTheNextChoice()
    {
        fixture->editor.tabWidget2->setCurrentIndex(1);
        line().setText("t");
        line().setFocus();
        chooseFrom(fixture->button("Binary functions"), [](QMenu& menu) { return menu.actions().last(); });
        QCOMPARE(closeBox(), "Variable X not found");
        QCOMPARE(line().selectedText(), "X");
        QCOMPARE(fixture->editor.focusWidget(), &line());
        chooseFrom(fixture->button("I vars"), [](QMenu& menu) { return menu.actions().last(); });
        QCOMPARE(line().text(), "t<f");
        QCOMPARE(fixture->editor.focusWidget(), &line());
        for (const auto insert :
             {&CurveEditor::insertUnaryFunc, &CurveEditor::insertBinaryFunc, &CurveEditor::insertTernaryFunc,
              &CurveEditor::insertIVarFunc, &CurveEditor::insertDVarFunc})
            line().setText("t<"), (fixture->editor.*insert)(-1);
        QVERIFY(line().text() == "t<" && closeBox().isEmpty());
        line().selectAll();
        fixture->editor.errorClosed();
        QCOMPARE(line().text(), "t<_");
    }

    void cycleIsToldAndMendedByAnotherVariable()
    {
        add("\u00c4rger.X y");
        setExpression("\u00c4rger.X y", "a.x");
        line().setText("2*");
        fixture->submenu("D vars", 4)->actions()[0]->trigger();
        QCOMPARE(closeBox(), "Cyclical dependency has been found for d-var \u00c4rger.X y ");
        QCOMPARE(line().selectedText(), "\u00c4rger.x_y");
        QVERIFY(fixture->changes.isEmpty() && splineToolsEnabled());
        QVERIFY(!fixture->curves["A.x"].expression && !fixture->editor.undoStack()->canUndo());
        fixture->submenu("D vars", 2)->actions()[0]->trigger();
        QCOMPARE(line().text(), "2*c.z");
        QCOMPARE(fixture->changes, QStringList{"A/x"});
    }

    void unfinishedTextWaitsForItsCurveUntilItEnds()
    {
        CurveEditor& editor = fixture->editor;
        const auto type = [&](const QString& text) {
            line().selectAll();
            QTest::keyClicks(&line(), text);
        };
        enter("t");
        const auto waits = [&](const QString& formula, const std::function<void()>& end) {
            type("2 T");
            QVERIFY(!line().font().italic());
            editor.cleanSelecteds(); // no curve is current
            editor.setEditingNode("b.y");
            QVERIFY(line().text().isEmpty() && !line().font().italic());
            editor.renameCurve("A", "x", "w");
            editor.setEditingNode("A.w");
            QVERIFY(line().text() == "2 T" && line().font().italic());
            editor.renameCurve("A", "w", "x");
            end();
            editor.setEditingNode("b.y");
            editor.setEditingNode("A.x");
            QCOMPARE(line().text(), formula);
            QVERIFY(!line().font().italic());
        };
        waits("2*t", [&] { QTest::keyClick(&line(), Qt::Key_Return); });
        waits("2*t", [&] { QTest::keyClick(&line(), Qt::Key_Escape); });
        waits("2*t", [&] { editor.setEditingNode("b.y"), editor.undo(), editor.redo(); });
        waits("", [&] {
            editor.setEditingNode("b.y"),
                editor.deleteExpression("A", "x", &fixture->curves["A.x"].expression);
        });
        QVERIFY(!QTest::currentTestFailed() && !EditorFixture::takes(line(), Qt::Key_Escape));
        type("lost?");
        QVERIFY(EditorFixture::takes(line(), Qt::Key_Escape));
        QTest::keyClick(&line(), Qt::Key_Escape);
        QTest::keyClick(&line(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(line().text(), "lost?");
        editor.setEditingNode("b.y");
        editor.removeCurve("A", "x");
        fixture->open("A.x");
        QVERIFY(line().text().isEmpty());
    }

    void chosenEntryMayBeRemovedByItsReceiver()
    {
        CurveEditor& editor = fixture->editor;
        const QPointer<QAction> entry = fixture->submenu("D vars", 2)->actions()[0];
        const auto removal = QObject::connect(&editor, &CurveEditor::curveHasChanged,
                                              [&] { editor.removeNode("c"); }); // the entry and its menu
        entry->trigger();
        QVERIFY(QObject::disconnect(removal));
        QCOMPARE(line().text(), "c.z");
        QCOMPARE(fixture->menu("D vars")->actions().size(), 3);

        editor.setEditingNode("b.y");
        QObject::connect(&editor, &CurveEditor::currentCurveChanged, [&] { editor.removeCurve("A", "x"); });
        fixture->menu("Curves")->actions()[0]->trigger();
        QCOMPARE(fixture->menu("Curves")->actions().size(), 1);
        QTRY_VERIFY(!entry);
    }

    void dependencyWalk()
    {
        // The curve that is to be read, the expressions of A.x, b.y, c.z and d.w, and with which there is a cycle.
        const std::tuple<const char*, QString, QStringList, QString> cases[] = {
            {"itself", "a.x", {"t+a.x", "", "", ""}, "A.x"},
            {"chain", "a.x", {"b.y", "c.z", "d.w", "t"}, ""},
            {"round of three", "a.x", {"b.y", "c.z", "d.w+a.x", ""}, "b.y"},
            {"behind a dead end", "a.x", {"d.w+c.z", "", "a.x", "b.y"}, "c.z"},
            {"others' cycle", "a.x", {"b.y", "c.z", "b.y", ""}, ""},
            {"from another curve", "b.y", {"", "c.z", "a.x", ""}, "b.y"},
            {"unknown curve", "z.z", {"a.x", "", "", ""}, ""}};
        for (const auto& [name, current, expressions, with] : cases) {
            for (qsizetype i = 0; i < names.size(); ++i)
                setExpression(names[i], expressions[i]);
            QString found;
            const bool isCycle = fixture->editor.checkDependencies("a.x", current, found);
            QVERIFY2(isCycle == !with.isEmpty() && found == with, name);
        }
    }

    void documentsKeepTheirVariables()
    {
        EditorFixture other({"b.y", "A.x"});
        FunctionFloatBase*& formula = other.curves["A.x"].expression;
        SplineBase& read = other.curves["b.y"].spline;
        read.setPos(read.modify(1), 3.0); // 1.0 in the first document
        auto theirs = std::make_unique<CurveVariables>();
        theirs->add("b.y", &read, nullptr);
        formula = parsed("2*b.y").release();
        other.editor.setVariables(theirs.get());
        const auto value = [&formula] {
            double result = 5.0;
            formula->evaluateBlock(&result, 10.0, &result, 1);
            return result;
        };
        other.enter("b.y");
        QCOMPARE(value(), 3.0);
        other.enter("b.y+1");
        enter("b.y");
        QCOMPARE(value(), 4.0);
        other.editor.undo();
        QCOMPARE(value(), 3.0);
        other.editor.undo();
        QCOMPARE(value(), 2.0); // the host parsed it with the variables of the first
        other.editor.redo();
        QCOMPARE(value(), 3.0);
        theirs.reset();
        QCOMPARE(value(), 0.0);
        other.enter("b.y*5");
        QCOMPARE(value(), 5.0);
        other.editor.undo();
        QCOMPARE(value(), 0.0);
    }

    void denseGraphOfThousandCurvesEnds()
    {
        // A walk that visits a curve once for each path to it would not end before the test's limit.
        const auto name = [](int i) {
            return QStringLiteral("n.%1").arg(i, 4, 10, QLatin1Char('0'));
        };
        for (int i = 0; i < 1000; ++i)
            add(name(i));
        for (int i = 0; i < 997; ++i)
            setExpression(name(i), name(i + 1) + "+" + name(i + 2) + "+" + name(i + 3));
        QString with;
        QVERIFY(!fixture->editor.checkDependencies(name(0), name(0), with));
        setExpression(name(999), name(0));
        QVERIFY(fixture->editor.checkDependencies(name(0), name(0), with));
    }

private:
    void add(const QString& name)
    {
        fixture->add(name);
        HostCurve& curve = fixture->curves[name];
        variables->add(name.toStdString(), &curve.spline, &curve.expression);
    }
    void setExpression(const QString& name, const QString& text)
    {
        FunctionFloatBase*& holder = fixture->curves[name].expression;
        delete std::exchange(holder, parsed(text.toStdString()).release());
    }
    ExpressionEditLine& line() const { return *fixture->editor.commandLine; }
    void enter(const QString& text) { fixture->enter(text); }
    bool splineToolsEnabled() const { return fixture->menu("Options")->actions()[9]->isEnabled(); }

    const QStringList names = {"A.x", "b.y", "c.z", "d.w"};
    std::optional<ReadCurves> variables;
    std::unique_ptr<EditorFixture> fixture;
};

QTEST_MAIN(tst_CurveEditorExpression)
#include "tst_CurveEditorExpression.moc"
