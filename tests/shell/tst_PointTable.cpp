// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <curveeditor/edit/PointText.h>

/// An editor with the page "Points" in front.
struct Scene : EditorFixture
{
    Scene() : EditorFixture({"a.y", "a.x"})
    {
        x.addPoint(7.0, 0.1);
        x.addPoint(9.0, 1.0 / 3.0);
        editor.setShowTime();
        editor.tabWidget2->setCurrentIndex(2);
    }
    QModelIndex cell(int row, int column) const { return table.model()->index(row, column); }
    QString text(int row, int column) const { return cell(row, column).data(Qt::EditRole).toString(); }
    /// The columns of times, of values, and so on, from top to bottom.
    QString column(int column) const
    {
        QStringList texts;
        for (int row = 0; row < table.model()->rowCount(); ++row)
            texts += text(row, column);
        return texts.join(' ');
    }
    QString selectedRows() const
    {
        QStringList rows;
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            if (table.selectionModel()->isRowSelected(row))
                rows += QString::number(row);
        }
        return rows.join(' ');
    }
    void select(int first, int last)
    {
        table.selectRow(first);
        table.selectionModel()->select({cell(first, 0), cell(last, 9)}, QItemSelectionModel::Select);
    }
    void goTo(int row, int column)
    {
        table.selectionModel()->setCurrentIndex(cell(row, column), QItemSelectionModel::NoUpdate);
    }
    void clickRow(int row, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, keys, table.visualRect(cell(row, 0)).center());
    }
    QLineEdit* openCell(int row, int column)
    {
        table.setFocus();
        goTo(row, column);
        table.edit(cell(row, column));
        return table.findChild<QLineEdit*>();
    }
    void type(int row, int column, const QString& typed)
    {
        QLineEdit* const line = openCell(row, column);
        QTest::keyClicks(line, typed);
        pressReturn(line);
    }
    /// What is typed is written as soon as the line has seen the key.
    static void pressReturn(QLineEdit* line)
    {
        QTest::keyClick(line, Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    const Selection& selection() const { return canvas.canvas.currentControl()->selection(); }

    SplineBase& x = curves["a.x"].spline;
    QTableView& table = *editor.findChild<QTableView*>(QStringLiteral("pointTable"));
};

enum { Time, Value, Type, Incoming, Outgoing, Tension, Continuity, Bias, EaseTo, EaseFrom };

class tst_PointTable : public QObject
{
    Q_OBJECT

    using Work = std::function<void(Scene&)>;

private Q_SLOTS:
    void numbersShowSixDigitsAndAreEditedInFullPrecision()
    {
        Scene s;
        QCOMPARE(s.editor.tabWidget2->tabText(2), "Points");
        QCOMPARE(s.column(Time), "0 5 7 9");
        QCOMPARE(s.column(Value), "0 1 0.1 0.3333333333333333");
        s.x.modify(1)->pos = 1e300;
        s.x.modify(2)->type = 77;
        s.editor.setFps(25.0);
        const QSignalSpy headers(s.table.model(), &QAbstractItemModel::headerDataChanged);
        s.editor.setShowFrames();
        QCOMPARE(s.column(Time), "0 125 175 225");
        QCOMPARE(s.table.model()->headerData(0, Qt::Horizontal), "Frame");
        for (int column = Time; column <= Type; ++column)
            QCOMPARE(s.table.model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole),
                     s.cell(0, column).data(Qt::TextAlignmentRole));
        s.editor.setShowTime();
        QCOMPARE(headers.size(), 2);
        QCOMPARE(s.column(Value), "0 1e+300 0.1 0.3333333333333333");
        QCOMPARE(s.column(Type), "Tcb Tcb Linear Tcb");
        QCOMPARE(s.cell(3, Value).data().toString(), "0.333333");
        s.editor.setLocale(QLocale(QLocale::German));
        QCOMPARE(s.cell(3, Value).data().toString(), "0,333333");
        s.type(3, Value, s.text(3, Value).replace(',', '.'));
        QCOMPARE(s.editor.undoStack()->count(), 0);
        s.type(3, Value, "1.234");
        QCOMPARE(s.text(3, Value), "1,234");
    }

    void cellThatCannotBeReadSaysWhy()
    {
        Scene s;
        for (const QString typed : {"3", "x", "1e999"}) {
            s.type(1, Value, typed);
            QTRY_COMPARE(QToolTip::text().contains("number"), typed != "3");
            QToolTip::hideText();
            QTRY_VERIFY(!QToolTip::isVisible());
        }
        QCOMPARE(s.text(1, Value), "3");
    }

    void frameIsTypedAsItShows()
    {
        Scene s;
        s.editor.setFps(3.0);
        s.editor.setShowFrames();
        s.type(3, Time, "30");
        QCOMPARE(s.x[3]->time, 10.0);
        QCOMPARE(s.editor.undoStack()->count(), 1);
        s.editor.setFps(0.0);
        s.type(3, Time, "1");
        s.editor.setFps(29.97);
        s.x.setTime(s.x.modify(3), 7.5); // not what its frame gives back
        s.type(3, Time, s.text(3, Time));
        QCOMPARE(s.editor.undoStack()->count(), 1);
        s.changes.clear(); // an edit is one of the current curve where two share a spline
        s.editor.addCurve("a", "z", Qt::red, 0.5F, &s.x, &s.curves["a.z"].expression, -100.0F, 100.0F);
        s.editor.setEditingNode("a.z");
        s.type(1, Value, "3");
        QCOMPARE(s.changes, QStringList("a/z"));
    }

    void selectionIsThatOfTheCanvas()
    {
        Scene s;
        const QSignalSpy picks(s.editor.tabWidget2->widget(2), SIGNAL(selectionPicked()));
        s.clickPoint();
        QCOMPARE(s.selectedRows(), "1");
        QCOMPARE(s.table.currentIndex().row(), 1);
        s.key(Qt::Key_Right);
        QCOMPARE(s.selectedRows(), "2");
        QVERIFY(picks.isEmpty());
        s.select(2, 3);
        s.clickRow(3, Qt::ControlModifier);
        QCOMPARE(s.selection().edited(), std::vector{s.x[2]->serial});
        s.clickRow(0);
        QVERIFY(s.selection().hasSingle() && s.editor.posX->isEnabled());
        s.select(1, 2);
        QTest::keyClick(&s.table, Qt::Key_Delete);
        QCOMPARE(s.column(Time), "0 9");
        s.editor.undo();
        QCOMPARE(s.selectedRows(), "1 2");
        QVERIFY(s.takes(s.table, Qt::Key_A, Qt::ControlModifier) &&
                s.takes(s.table, Qt::Key_V, Qt::ControlModifier));
        s.editor.setEditingNode("a.y");
        s.canvas.canvas.setCurrentCurve("a.y");
        QCOMPARE(s.column(Time), "0 5");
        QCOMPARE(s.selectedRows(), "");
    }

    void arrowsAndReturnStayInTheTable()
    {
        Scene s;
        const auto place = [&s] {
            const QModelIndex at = s.table.currentIndex();
            return QStringLiteral("%1,%2: %3").arg(at.row()).arg(at.column()).arg(s.selectedRows());
        };
        s.table.setFocus();
        s.canvas.canvas.currentControl()->selection().selectAll({s.x[0]->serial, s.x[2]->serial});
        s.canvas.showSelection(false);
        for (const QString step : {"Left 0,0: 0 2", "Right 0,1: 0 2", "Shift+Right 0,2: 0 2",
                                   "Shift+Left 0,1: 0 2", "Shift+Down 1,1: 0 1 2", "Return 2,1: 0 1 2",
                                   "Num+Enter 3,1: 3", "Return 3,1: 3", "Up 2,1: 2"}) {
            QTest::keySequence(&s.table, QKeySequence(step.section(' ', 0, 0)));
            QCOMPARE(place(), step.section(' ', 1));
        }
        s.type(2, Value, "4");
        QCOMPARE(place(), "3,1: 3");
        s.select(1, 3);
        s.goTo(2, EaseFrom);
        QTest::keyClick(&s.table, Qt::Key_Right);
        QCOMPARE(place(), "2,9: 1 2 3");
        const auto corner = [&s] {
            return s.table.viewport()->grab().toImage().pixelColor(
                s.table.visualRect(s.table.currentIndex()).topLeft() + QPoint(1, 1));
        };
        QCOMPARE(corner(), s.table.palette().color(QPalette::HighlightedText));
        s.canvas.setFocus();
        QVERIFY(corner() != s.table.palette().color(QPalette::HighlightedText));
    }

    void hiddenPageComputesNothing()
    {
        Scene s;
        s.editor.tabWidget2->setCurrentIndex(0);
        const QAbstractItemModelTester tester(s.table.model());
        QSignalSpy resets(s.table.model(), &QAbstractItemModel::modelReset);
        QSignalSpy changes(s.table.model(), &QAbstractItemModel::dataChanged);
        s.x.addPoint(20.0, 2.0);
        s.editor.updateCurves();
        s.clickPoint();
        QVERIFY(resets.isEmpty() && changes.isEmpty());
        s.editor.tabWidget2->setCurrentIndex(2);
        QCOMPARE(s.column(Time), "0 5 7 9 20");
        resets.clear();
        s.x.modify(4)->pos = 3.0;
        s.editor.updateCurves();
        QVERIFY(resets.isEmpty() && !changes.isEmpty());
        QCOMPARE(s.selectedRows(), "1");
        s.goTo(3, Value);
        s.x.addPoint(-1.0, 0.0);
        s.editor.updateCurves();
        QCOMPARE(s.selectedRows(), "2");
        QCOMPARE(s.table.currentIndex(), s.cell(4, Value));
    }

    /// The host does something while a cell is open; then Return is pressed in the cell, if it still is.
    void hostChangesTheCurveDuringTyping_data()
    {
        const Rows<QString, Work> row;
        row("value", "0 42 0.1 0.5", [](Scene& s) { s.x.modify(3)->pos = 0.5, s.editor.updateCurves(); });
        row("point gone", "0 0.1 0.3333333333333333", [](Scene& s) { s.x.remove(s.x[1]); });
        row("point gone and told", "0 0.1 0.3333333333333333",
            [](Scene& s) { s.x.remove(s.x[1]), s.editor.updateCurves(); });
        row("all gone", "0", [](Scene& s) { s.x.reset(); });
        row("curve closed", "0 1", [](Scene& s) { s.canvas.setCurveEditableOff("a.x"); });
        row("curve removed", "0 1", [](Scene& s) { s.editor.removeCurve("a", "x"); });
        row("formula", "", [](Scene& s) { s.canvas.setCurrentToExpression(); });
        const Work removesInTheReport = [](Scene& s) {
            connect(&s.editor, &CurveEditor::curveEdited, &s.editor,
                    [&s] { s.editor.removeCurve("a", "x"); });
        };
        row("curve removed in the report", "0 1", removesInTheReport);
        row("curve removed by the edit before", "0 1", [=](Scene& s) {
            s.canvas.canvas.door().begin({}, {s.canvas.canvas.currentControl()->curve()});
            s.x.modify(1)->pos = 3.0;
            removesInTheReport(s);
        });
    }
    void hostChangesTheCurveDuringTyping()
    {
        const auto [values, work] = Rows<QString, Work>::present();
        Scene s;
        const QAbstractItemModelTester tester(s.table.model());
        const QPointer<QLineEdit> line(s.openCell(1, Value));
        QTest::keyClicks(line, "42");
        work(s);
        QVERIFY((line->text() == "42" && line->hasFocus()) || line->isHidden());
        s.pressReturn(line);
        QVERIFY(!line);
        s.editor.updateCurves();
        QCOMPARE(s.column(Value), values);
    }

    void hostMayFreeTheEditorOfACell()
    {
        const Work leaves[] = {
            [](Scene& s) { s.pressReturn(s.table.findChild<QLineEdit*>()); },
            [](Scene& s) { s.canvas.setFocus(); },
            [](Scene& s) { s.table.setCurrentIndex(s.cell(2, Value)); },
        };
        for (const Work& leave : leaves) {
            Scene s;
            const QPointer<QLineEdit> line(s.openCell(1, Value));
            QTest::keyClicks(line, "42");
            QObject::connect(&s.editor, &CurveEditor::curveEdited, &s.editor, [&s, &line] {
                s.x.remove(s.x[3]);
                s.editor.updateCurves();
                QCoreApplication::sendPostedEvents(line, QEvent::DeferredDelete);
                QVERIFY(!line);
            });
            leave(s);
            QCOMPARE(s.column(Value), "0 42 0.1");
            QCOMPARE(s.editor.undoStack()->count(), 1);
        }
    }

    void longCurveIsEditedAsAWhole()
    {
        Scene s;
        SplineState state = s.x.state();
        state.points.resize(100'000);
        for (std::size_t index = 0; index < state.points.size(); ++index)
            state.points[index] = {.time = double(index)};
        QVERIFY(s.x.assign(state));
        s.x.mend();
        s.editor.tabWidget2->setCurrentIndex(0);
        s.editor.updateCurves();
        s.editor.tabWidget2->setCurrentIndex(2);
        s.table.viewport()->repaint();
        s.table.scrollToBottom();
        s.table.viewport()->repaint();
        s.table.selectAll();
        s.table.viewport()->repaint();
        s.type(99'999, Value, "3");
        QCOMPARE(s.x[50'000]->pos, 3.0);
    }
};

QTEST_MAIN(tst_PointTable)
#include "tst_PointTable.moc"
