// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/shell/BakeDialog.h>

/// The scene, in which "a.x" has 101 points at the times 0 to 10, and what a user does at the dialogs.
struct FitScene : Scene
{
    FitScene()
    {
        SplineState state = x.state();
        state.points.clear();
        for (int i = 0; i <= 100; ++i)
            state.points.push_back({.time = 0.1 * i, .pos = std::sin(0.1 * i), .type = SplineBase::Linear});
        x.assign(state);
        editor.updateCurves();
    }
    FitDialog* open(Qt::Key key)
    {
        QTest::keyClick(&canvas, key, Qt::ShiftModifier);
        auto* const dialog = editor.findChild<FitDialog*>();
        if (dialog && !QTest::qWaitForWindowActive(dialog))
            qFatal("the dialog does not open");
        return dialog;
    }
    void type(const FitDialog& dialog, const char* field, const QString& text)
    {
        auto* const line = dialog.findChild<QLineEdit*>(field);
        line->clear();
        QTest::keyClicks(line, text);
        auto* const pause = dialog.findChild<QTimer*>(); // in typing, which long work waits for
        pause->setInterval(0);
        QTRY_VERIFY(!pause->isActive());
    }
    unsigned count() const { return x.getControlPointsNumber(); }
};

/// A formula of a host that takes its time once it is told to.
struct SlowFormula : FunctionFloatBase
{
    double evaluate() override
    {
        QThread::usleep(isSlow ? 2000 : 0);
        return 1.0;
    }
    bool isSlow = false;
};

class tst_FitDialogs : public QObject
{
    Q_OBJECT

    using Tolerances = Rows<QString, int>;  // and the most points, 101 where the curve stays as it is
    using Meanwhile = Rows<int, int, Deed>; // points after Cancel, and the most after OK
    using Baked = Rows<QString, QStringList, int, QString>; // from, to and every; empty where it is refused

private Q_SLOTS:
    void curveFollowsTheTolerance_data()
    {
        const Tolerances row;
        row("usual", {}, 40);
        row("coarse", "0,5", 20);
        row("huge", "1e300", 2);
        row("none", "0", 101);
        for (const char* const bad : {"x", " ", "-1", "nan", "inf", "1e999", "1 2"})
            row(bad, bad, 101);
    }
    void curveFollowsTheTolerance()
    {
        const auto [tolerance, mostPoints] = Tolerances::present();
        const bool isDone = mostPoints < 101;
        for (const Qt::Key end : {Qt::Key_Escape, Qt::Key_Return}) {
            FitScene s;
            const auto before = s.states();
            FitDialog* const dialog = s.open(Qt::Key_S);
            QVERIFY(int(s.count()) <= 40); // at once
            QVERIFY(dialog->y() > s.canvas.mapToGlobal(s.canvas.rect().bottomLeft()).y());
            if (!tolerance.isEmpty())
                s.type(*dialog, "tolerance", tolerance);
            QVERIFY2(int(s.count()) <= mostPoints, qPrintable(s.outcome(*dialog)));
            QCOMPARE(s.states() == before, !isDone);
            QCOMPARE(s.outcome(*dialog).startsWith(QString("101 points become %1,").arg(s.count())), isDone);
            QVERIFY(s.showsWhatIsDrawnFromScratch() && s.changes.isEmpty() && s.commits.isEmpty());
            QTest::keyClick(dialog->focusWidget(), end);
            const bool isKept = isDone && end == Qt::Key_Return;
            QCOMPARE(dialog->isVisible(), !isDone && end == Qt::Key_Return);
            QCOMPARE(s.entries(), isKept ? 1 : 0);
            QCOMPARE(s.changes, isKept ? QStringList{"a/x"} : QStringList());
            QCOMPARE(s.commits.size(), isDone ? 1 : 0);
            QVERIFY(s.undo().states() == before && s.showsWhatIsDrawnFromScratch());
        }
    }

    void enterTakesTheToleranceThatWaitsForAPauseInTyping()
    {
        FitScene s;
        connect(&s.canvas.canvas, &CanvasFunctionBase::selectionChanged, this, [] { QThread::msleep(60); });
        const FitDialog* const dialog = s.open(Qt::Key_S);
        QTest::keyClicks(dialog->focusWidget(), "1e300"); // in place of the usual one
        QVERIFY(s.count() > 2);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        QVERIFY(!dialog->isVisible() && s.count() == 2 && s.entries() == 1);
    }

    void partBetweenSelectedPointsIsSimplified()
    {
        FitScene s;
        s.control().selectPoints({s.x[20]->serial, s.x[40]->serial, s.x[60]->serial});
        QVERIFY(s.outcome(*s.open(Qt::Key_S)).startsWith("41 points of the selected part become "));
        QCOMPARE(s.x[19]->time, 0.1 * 19);
        QCOMPARE(s.x[s.count() - 41]->time, 0.1 * 60);
        QVERIFY(s.count() < 80);
    }

    void pageShowsTheSelectedPointWhileItIsThere()
    {
        FitScene s;
        s.control().selectOnly(s.x[50]);
        s.canvas.showSelection(true);
        FitDialog* const dialog = s.open(Qt::Key_S);
        for (const char* const tolerance : {"0.5", "0", "0.6"}) {
            s.type(*dialog, "tolerance", tolerance);
            QCOMPARE(s.editor.posX->text(), s.count() == 101 ? "50.000" : "");
            QCOMPARE(s.canvas.nodeForm.isActive(), s.count() == 101);
        }
        dialog->reject();
        QVERIFY(s.editor.posX->text() == "50.000" && s.canvas.nodeForm.isActive());
    }

    void simplifyNeedsASplineOfThreePoints()
    {
        FitScene s;
        s.turnTo("a.z").curves["a.z"].spline.addPoint(8.0, 1.0);
        for (const bool editsAll : {false, true}) {
            s.allCurves(editsAll);
            QVERIFY(!s.open(Qt::Key_S));
        }
        s.turnTo("a.y");
        QVERIFY(!s.open(Qt::Key_S));
        SplineBase& spline = s.curves["a.y"].spline;
        for (const double value : {3.0, 4.0, 5.0}) // a step: all at one time
            spline.addPoint(5.0, value);
        spline.setTime(spline.modify(0), 5.0);
        QVERIFY(s.open(Qt::Key_S));
        QCOMPARE(QPointF(spline.getFirst()->pos, spline.getLast()->pos), QPointF(-2.0, 0.0));
        QCOMPARE(spline.getControlPointsNumber(), 2u);
    }

    void hostMayDoAnythingMeanwhile_data()
    {
        const Meanwhile row;
        row("nothing", 101, 20, [](Scene&) {});
        row("change", 1, 1, [](Scene& s) { s.x.reset(), s.updateCurves(); });
        row("another curve", 101, 20, [](Scene& s) { s.editor.setDefaultSelected("a", "y"); });
        row("take off", 101, 101, [](Scene& s) { s.editor.cleanSelecteds(); });
        row("remove", 101, 101, [](Scene& s) { s.remove("x"); });
        row("undo", 101, 20, [](Scene& s) { s.undo(); });
        row("hide", 101, 101, [](Scene& s) { s.editor.hide(); });
        row("close", 101, 101, [](Scene& s) { s.editor.close(); });
        row("new stack", 101, 20, [](Scene& s) { s.editor.setUndoStack(new QUndoStack(&s.editor)); });
    }
    void hostMayDoAnythingMeanwhile()
    {
        const auto [pointsAfterCancel, mostAfterOk, deed] = Meanwhile::present();
        for (const bool accepts : {false, true}) {
            for (const Qt::Key key : {Qt::Key_S, Qt::Key_B}) {
                FitScene s;
                const QPointer<FitDialog> dialog = s.open(key);
                deed(s);
                QCoreApplication::processEvents();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                if (dialog && accepts) {
                    dialog->accept();
                } else if (dialog) {
                    s.type(*dialog, "tolerance", "0.2");
                    dialog->reject();
                }
                if (!accepts)
                    QCOMPARE(int(s.count()), pointsAfterCancel);
                else if (key == Qt::Key_B && pointsAfterCancel == 1)
                    QCOMPARE(s.x[0]->pos, s.x.getLast()->pos);
                else if (key == Qt::Key_S)
                    QVERIFY(int(s.count()) <= mostAfterOk && (s.count() == 101) == (mostAfterOk == 101));
                QVERIFY(!s.editor.isVisible() || s.showsWhatIsDrawnFromScratch());
            }
        }
    }

    void stepShowsSixDigitsAndIsEditedInFull()
    {
        FitScene s;
        s.editor.setFps(3.0);
        s.editor.setShowTime();
        FitDialog* const dialog = s.open(Qt::Key_B);
        s.editor.setLocale(QLocale(QLocale::German));
        dialog->activateWindow();
        QTRY_VERIFY(dialog->isActiveWindow());
        auto* const every = dialog->findChild<NumberLine*>("every");
        for (const char* const text : {"0,333333", "0,3333333333333333", "0,333333"}) {
            QCOMPARE(every->text(), text);
            QCOMPARE(every->number(), std::optional(1.0 / 3.0));
            every->hasFocus() ? every->clearFocus() : every->setFocus();
        }
        const QPalette usual = every->palette();
        every->setText("1/0");
        QVERIFY(every->palette() != usual);
        every->setText("0");
        QCOMPARE(s.outcome(*dialog), "The step must be greater than 0.");
        QVERIFY(every->palette() == usual);
        every->setText("0.25");
        s.editor.setLocale(QLocale::c()); // typing goes on
        QCOMPARE(every->text(), "0.25");
        s.editor.setLocale(QLocale(QLocale::German));
        QCOMPARE(every->text(), "0.25");
    }

    void slowFormulaDoesNotHoldTheEditorUp()
    {
        FitScene s;
        auto* const formula = new SlowFormula;
        s.curves["a.y"].expression = formula;
        s.editor.cleanSelecteds();
        s.editor.setDefaultSelected("a", "y");
        FitDialog* const dialog = s.open(Qt::Key_B);
        formula->isSlow = true;
        s.type(*dialog, "every", "0.001");
        QVERIFY(s.outcome(*dialog).startsWith("This takes too long"));
        formula->isSlow = false;
        s.type(*dialog, "every", "10");
        QVERIFY(s.outcome(*dialog).startsWith("Number"));
    }

    void formulaBecomesPoints_data()
    {
        const Baked row;
        row("each frame", "f+10", {"0", "20", "1"}, 0, "Number of points: 21");
        row("beyond the limits of the curve", "1e4t", {"0", "10", "2.5"}, 1, "Number of points: 5");
        row("Tcb", "t*t", {"-5", "5", "3"}, 2, "Number of points: 5");
        row("few", "t*t", {"0", "100", "0.1"}, 3, "1001 values become 2 points, at most ");
        row("gaps", "log(t)", {"-10", "10", "1"}, 0, "Number of points: 10");
        row("spline", {}, {"0", "100", "1"}, 1, "Number of points: 101");
        row("no step", "t", {"0", "1", "0"}, 0, {});
        row("step back", "t", {"0", "1", "-1"}, 0, {});
        row("order", "t", {"1", "0", "1"}, 0, {});
        row("word", "t", {"a", "1", "1"}, 0, {});
        row("empty", "t", {"0", "", "1"}, 0, {});
        row("too many", "t", {"0", "1e9", "1"}, 3, {});
        row("too far", "t", {"-1e308", "1e308", "1"}, 0, {});
        row("no value", "log(-1)", {"0", "9", "1"}, 1, {});
    }
    void formulaBecomesPoints()
    {
        const auto [formula, typed, kind, outcome] = Baked::present();
        FitScene s;
        if (!formula.isEmpty())
            s.enter(formula);
        s.focusCanvas().forgetChanges();
        const auto before = s.states();
        const int entries = s.entries();
        FitDialog* const dialog = s.open(Qt::Key_B);
        dialog->findChild<QComboBox*>("kind")->setCurrentIndex(kind);
        for (int i = 0; i < 3; ++i)
            s.type(*dialog, QList<const char*>{"from", "to", "every"}[i], typed[i]);
        QVERIFY(s.states() == before);
        std::map<double, double> values;
        for (const double time : {0.0, 0.7, 1.0})
            s.canvas.canvas.getCurrentValue(time, values[time]);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        const bool isDone = !outcome.isEmpty();
        QVERIFY2(isDone ? s.outcome(*dialog).startsWith(outcome) : dialog->isVisible(),
                 qPrintable(s.outcome(*dialog)));
        QCOMPARE(s.entries(), entries + (isDone ? 1 : 0));
        QCOMPARE(s.changes, isDone ? QStringList{"a/x"} : QStringList());
        if (!isDone)
            return;
        QVERIFY(!s.curves["a.x"].expression && !s.canvas.canvas.isCurrentExpression());
        QVERIFY(s.editor.commandLine->text().isEmpty() && s.showsWhatIsDrawnFromScratch());
        if (formula != "log(t)" && typed[2] == "1") {
            for (const auto& [time, value] : values)
                QVERIFY(std::abs(s.x(time) - value) < 1e-2);
        }
        if (kind < 3)
            QCOMPARE(s.x.getLast()->type, kind);
        if (formula == "1e4t")
            QCOMPARE(QPointF(s.x(0.1), s.x(1.0)), QPointF(1000.0, 10000.0));
        QVERIFY(s.undo().states() == before);
    }
};

QTEST_MAIN(tst_FitDialogs)
#include "tst_FitDialogs.moc"
