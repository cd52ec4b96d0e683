// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <curveeditor/canvas/ControlMenu.h>
#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/shell/PanDialog.h>
#include <curveeditor/shell/ScaleDialog.h>

#include <QAction>
#include <QBackingStore>
#include <QScreen>
#include <QTemporaryDir>
#include <QUndoStack>

#include <functional>

namespace {

/// An editor with three curves: the spline "a.x", which is current, with points at (0, 0), (5, 1) and (8, -1), the
/// spline "a.y", and "a.z", a formula that reads "a.x". The operations are what a user does.
struct Scene : EditorFixture
{
    Scene() : EditorFixture({})
    {
        FunctionParserBase::instance()->setVarMapper(&variables);
        for (const QString name : {"a.x", "a.y", "a.z"})
            add(name);
        for (auto& [name, curve] : curves)
            variables.add(name.toStdString(), &curve.spline, &curve.expression);
        curves["a.x"].spline.modify(1)->type = SplineBase::Bezier;
        curves["a.x"].spline.addPoint(8.0, -1.0);
        curves["a.y"].spline.setPos(curves["a.y"].spline.modify(1), -2.0);
        ParseMessage message;
        curves["a.z"].expression = FunctionParserBase::instance()->parseString("a.x+1", message);
        for (const QString name : {"a.z", "a.y", "a.x"})
            editor.setEditingNode(name);
        editor.resize(900, 700);
        QTest::qWait(0);
        editor.updateCurves();
        QObject::connect(&editor, &CurveEditor::curveEdited, [this](const CurveChange& change) {
            if (change.phase == CurveChange::Phase::Commit)
                commits.append(change.group + QLatin1Char('/') + change.curve);
            intervals.append({change.timeFirst, change.timeLast});
        });
        changes.clear();
    }
    std::map<QString, CurveState> states()
    {
        std::map<QString, CurveState> found;
        for (const QString name : {"a.x", "a.y", "a.z"})
            found[name] = canvas.canvas.findCurve(name)->curve()->state();
        return found;
    }
    /// What the user sees of the canvas, without a paint that nobody asked for.
    QImage shown()
    {
        QCoreApplication::processEvents();
        const auto& window = static_cast<const QImage&>(*editor.backingStore()->paintDevice());
        return window.copy(QRect(canvas.mapTo(&editor, QPoint()), canvas.size()));
    }
    bool showsWhatIsDrawnFromScratch()
    {
        const QImage present = shown();
        editor.updateCurves();
        return present == shown();
    }
    void mouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = {})
    {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, at, canvas.mapToGlobal(at), isMove ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, keys);
        QApplication::sendEvent(&canvas, &event);
    }
    void press(double t, double v, Qt::KeyboardModifiers keys = {})
    {
        mouse(QEvent::MouseButtonPress, pixel(t, v), Qt::LeftButton, keys);
    }
    void move(double t, double v, Qt::KeyboardModifiers keys = {})
    {
        mouse(QEvent::MouseMove, pixel(t, v), Qt::LeftButton, keys);
    }
    void release(double t, double v) { mouse(QEvent::MouseButtonRelease, pixel(t, v)); }
    void drag(double t, double v, double toTime, double toValue, Qt::KeyboardModifiers keys = {})
    {
        press(t, v);
        move((t + toTime) / 2.0, v, keys);
        move(toTime, toValue, keys);
        release(toTime, toValue);
    }
    void selectTwo()
    {
        clickPoint();
        press(8.0, -1.0, Qt::ShiftModifier);
        changes.clear();
    }
    void choose(int id)
    {
        whenOpen<ControlMenu>([id](ControlMenu& menu) {
            menu.handleMenu(id);
            menu.close();
        });
        mouse(QEvent::MouseButtonPress, pixel(6.0, 2.0), Qt::RightButton);
    }
    void type(CustomEditLine* field, const QString& text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
    }
    void enter(const QString& text)
    {
        editor.commandLine->setText(text);
        QTest::keyClick(editor.commandLine, Qt::Key_Return);
    }
    int entries() const { return editor.undoStack()->count(); }

    CurveVariables variables;
    QStringList commits;
    QList<QPointF> intervals;
};

} // namespace

class tst_EditorUndo : public QObject
{
    Q_OBJECT

    using Gesture = std::function<void(Scene&)>;

private Q_SLOTS:
    void gestureIsReportedAndTakenBack_data()
    {
        QTest::addColumn<Gesture>("gesture");
        QTest::addColumn<int>("entries");
        QTest::addColumn<QStringList>("reports");
        const QStringList x = {"a/x"};
        const auto row = [](const char* name, int entries, const QStringList& reports,
                            const Gesture& gesture) {
            QTest::newRow(name) << gesture << entries << reports;
        };
        row("press without a move", 0, x, [](Scene& s) { s.clickPoint(); });
        row("drag", 1, x, [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0); });
        row("drag across", 1, x, [](Scene& s) { s.drag(5.0, 1.0, 9.0, 2.0); });
        row("drag two", 1, x, [](Scene& s) { s.selectTwo(), s.drag(6.0, 2.0, 7.0, 1.0); });
        row("scale two", 1, x,
            [](Scene& s) { s.selectTwo(), s.drag(6.0, 2.0, 6.5, 2.5, Qt::ShiftModifier); });
        row("drag a handle", 1, x + x, [](Scene& s) {
            s.clickPoint();
            const QPoint handle = s.canvas.canvas.currentSpline()->rightHandle(s.pixel(5.0, 1.0), 1, false);
            s.mouse(QEvent::MouseButtonPress, handle);
            s.move(6.0, 3.0);
            s.release(6.0, 3.0);
            QVERIFY(s.curves["a.x"].spline[1]->tanRight > 1.5);
        });
        row("Escape during a drag", 0, {}, [](Scene& s) {
            s.press(5.0, 1.0);
            s.move(6.0, 2.0);
            QTest::keyClick(&s.canvas, Qt::Key_Escape);
            s.move(7.0, 2.0);
            s.release(7.0, 2.0);
            QVERIFY(s.editor.isVisible());
            s.commits.clear();
        });
        row("Ctrl adds", 1, x, [](Scene& s) {
            s.press(6.0, 2.5, Qt::ControlModifier);
            s.canvas.canvas.currentControl()->selectOnly(nullptr);
            s.release(6.0, 2.5);
        });
        row("double click adds", 1, x,
            [](Scene& s) { s.mouse(QEvent::MouseButtonDblClick, s.pixel(6.0, 2.5)); });
        row("menu adds", 1, x + x, [](Scene& s) { s.choose(ControlMenu::CreateKey); });
        row("menu changes types", 1, x,
            [](Scene& s) { s.selectTwo(), s.choose(ControlMenu::SelectionToLinear); });
        row("menu deletes", 1, x, [](Scene& s) { s.selectTwo(), s.choose(ControlMenu::DeleteKey); });
        row("Delete", 1, x, [](Scene& s) { s.selectTwo(), QTest::keyClick(&s.canvas, Qt::Key_Delete); });
        row("Delete without a selection", 0, x, [](Scene& s) { QTest::keyClick(&s.canvas, Qt::Key_Delete); });
        row("arrows", 0, {}, [](Scene& s) { QTest::keyClick(&s.canvas, Qt::Key_Right); });
        row("stepping", 0, x + x, [](Scene& s) {
            s.clickPoint();
            QTest::mouseClick(s.editor.nextNode, Qt::LeftButton);
        });
        row("typing", 1, x + x + x + x, [](Scene& s) {
            s.clickPoint();
            s.type(s.editor.posY, "1.5");
            s.editor.posX->setFocus();
        });
        row("typing in two fields", 2, x + x + x, [](Scene& s) {
            s.clickPoint();
            s.type(s.editor.posY, "3");
            s.type(s.editor.tension, "1");
            QTest::qWait(0);
            s.editor.bias->setFocus();
        });
        row("typing until Escape", 0, x + x + x, [](Scene& s) {
            s.clickPoint();
            s.type(s.editor.posY, "7");
            QTest::keyClick(s.editor.posY, Qt::Key_Escape);
            QCOMPARE(s.editor.posY->text(), QString::asprintf("%.3f", s.curves["a.x"].spline[1]->pos));
            s.commits.clear();
        });
        row("drag on a field", 1, x + x + x, [](Scene& s) {
            s.clickPoint();
            QTest::mousePress(s.editor.posY, Qt::LeftButton);
            for (const int y : {40, 90}) {
                QMouseEvent event(QEvent::MouseMove, QPointF(0, -y),
                                  s.editor.posY->mapToGlobal(QPointF(0, -y)), Qt::NoButton, Qt::LeftButton,
                                  {});
                QApplication::sendEvent(s.editor.posY, &event);
            }
            QTest::mouseRelease(s.editor.posY, Qt::LeftButton);
        });
        row("type in the combo box", 1, x + x,
            [](Scene& s) { s.clickPoint(), QTest::keyClick(s.editor.nodeTypeCombo, Qt::Key_Down); });
        row("behaviours", 2, {},
            [](Scene& s) { s.editor.setFirstNodeZero(), s.editor.changeNodeLastType(2); });
        row("scale dialog", 1, {}, [](Scene& s) {
            s.selectTwo();
            whenOpen<ScaleDialog>([](ScaleDialog& dialog) { dialog.scaleY->setText("2"), dialog.accept(); });
            s.editor.setScaleSelection();
        });
        row("pan dialog", 1, {}, [](Scene& s) {
            s.selectTwo();
            whenOpen<PanDialog>([](PanDialog& dialog) { dialog.panX->setText("1"), dialog.accept(); });
            s.editor.setPanSelection();
        });
        row("reset", 1, x, [](Scene& s) { s.clickPoint(), s.changes.clear(), s.editor.resetSelectedF(); });
        row("reset all", 1, {"a/z", "a/y", "a/x"}, [](Scene& s) { s.editor.resetAllCheckedF(); });
        row("formula", 1, x, [](Scene& s) { s.enter("2 T"); });
        row("the same formula again", 1, x + x, [](Scene& s) { s.enter("2 T"), s.enter("2 T"); });
        row("faulty formula", 0, {}, [](Scene& s) {
            QString warning;
            closeBox(warning);
            s.enter("2*");
            QCOMPARE(s.editor.commandLine->text(), "2*");
        });
        row("formula that closes a cycle", 1, {}, [](Scene& s) {
            QString warning;
            closeBox(warning);
            s.enter("a.z");
        });
        row("formula deleted", 1, {"a/z"}, [](Scene& s) {
            s.canvas.canvas.setCurrentCurve("a.z");
            s.editor.deleteCurveClicked();
        });
    }
    void gestureIsReportedAndTakenBack()
    {
        QFETCH(const Gesture, gesture);
        QFETCH(const int, entries);
        Scene s;
        const auto before = s.states();
        gesture(s);
        const auto after = s.states();
        QTEST(s.changes, "reports");
        QCOMPARE(s.entries(), entries);
        QVERIFY(s.showsWhatIsDrawnFromScratch());
        QStringList steps;
        if (entries > 0)
            QCOMPARE(QSet<QString>(s.commits.begin(), s.commits.end()).isEmpty(), false);
        for (int round = 0; round < 2; ++round) {
            s.changes.clear();
            for (int i = 0; i < entries; ++i)
                QTest::keyClick(&s.canvas, Qt::Key_Z, Qt::ControlModifier);
            QVERIFY(s.states() == before);
            QVERIFY(s.showsWhatIsDrawnFromScratch());
            QCOMPARE(s.changes.isEmpty(), entries == 0);
            for (int i = 0; i < entries; ++i)
                QTest::keyClick(&s.canvas, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            QVERIFY(s.states() == after);
            QVERIFY(s.showsWhatIsDrawnFromScratch());
        }
    }
};

QTEST_MAIN(tst_EditorUndo)
#include "tst_EditorUndo.moc"
