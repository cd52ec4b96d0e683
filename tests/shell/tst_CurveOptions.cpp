// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/panel/CurveRowDelegate.h>
#include <curveeditor/shell/FitDialog.h>

namespace {

CurveOptions steps(double lowest, double highest, double step)
{
    CurveOptions options;
    options.lowest = lowest, options.highest = highest, options.step = step;
    return options;
}

/// Of the row, in the list.
QPoint placeOf(Scene& s, CurveMark mark, int row = 0)
{
    const QRect place = s.list.visualItemRect(s.list.topLevelItem(row));
    QPoint at = place.center();
    while (CurveRowDelegate::markAt(at, place, s.list.iconSize().height()) != mark && at.x() < place.right())
        ++at.rx();
    return at + QPoint(2, 0);
}

void clickMark(Scene& s, CurveMark mark, int row = 0)
{
    QTest::mouseClick(s.list.viewport(), Qt::LeftButton, {}, placeOf(s, mark, row));
}

QString tipOf(Scene& s, CurveMark mark)
{
    QHelpEvent event(QEvent::ToolTip, placeOf(s, mark), s.list.viewport()->mapToGlobal(placeOf(s, mark)));
    QApplication::sendEvent(s.list.viewport(), &event);
    return QToolTip::text();
}

/// Chooses OK in the dialog of that key; returns what it said, and leaves one that stays open.
QString fit(Scene& s, Qt::Key key, const QString& tolerance)
{
    s.key(key, shift);
    auto* const dialog = s.editor.findChild<FitDialog*>();
    dialog->findChild<QLineEdit*>("tolerance")->setText(tolerance);
    dialog->accept();
    const QString outcome = s.outcome(*dialog);
    dialog->reject();
    return outcome;
}

} // namespace

class tst_CurveOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valuesAreBoundedAndUnsoundOptionsChangeNothing()
    {
        constexpr double most = std::numeric_limits<double>::max(), least = 5e-324;
        const double rows[][5] = {{-most, most, 0.0, 0.3, 0.3}, {-most, most, 1.0, 1e300, 1e300},
                                  {-1.0, 1.5, 1.0, 1e300, 1.0}, {-1.5, 1.5, 1.0, -9.0, -1.0},
                                  {0.0, 0.3, 0.1, 0.34, 0.3},   {-most, most, least, most, most},
                                  {1.0, 1.0, 0.0, -9.0, 1.0},   {-9.0, 9.0, 2.0, -0.5, 0.0}};
        for (const auto& [lowest, highest, step, value, bounded] : rows) {
            const double found = PointLimits::bounded(steps(lowest, highest, step), value);
            QCOMPARE(found, bounded);
            QCOMPARE(std::signbit(found), std::signbit(bounded)); // no -0.0
        }
        Scene s;
        s.editor.setCurveOptions("a", "x", steps(1.0, 2.0, 0.5));
        std::vector unsound{steps(2.0, 1.0, 0.0), steps(0.0, 9.0, -1.0), steps(0.2, 0.8, 1.0)};
        for (const double bad : {qInf(), -qInf(), qQNaN()})
            unsound.insert(unsound.end(), {steps(bad, 9.0, 0.0), steps(0.0, bad, 0.0), steps(0.0, 9.0, bad)});
        for (const CurveOptions& options : unsound)
            s.editor.setCurveOptions("a", "x", options);
        const CurveOptions options = s.editor.curveOptions("a", "x");
        QVERIFY(options.lowest == 1.0 && options.highest == 2.0 && options.step == 0.5);
    }

    void typesAreOfferedWhereTheyAreAllowed()
    {
        Scene s;
        const auto allow = [&s](const std::vector<SplineBase::NodeType>& types) {
            s.set("x", &CurveOptions::types, types);
        };
        const auto offered = [](QComboBox* combo) {
            QStringList texts;
            for (int i = 0; i < combo->count(); ++i) {
                if (!qobject_cast<QListView*>(combo->view())->isRowHidden(i) &&
                    combo->model()->flags(combo->model()->index(i, 0)).testFlag(Qt::ItemIsEnabled))
                    texts.append(combo->itemText(i));
            }
            return texts.join(QLatin1Char(' '));
        };
        const auto kinds = [&](QString& outcome) {
            outcome = fit(s, Qt::Key_S, "9");
            s.undo();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            s.key(Qt::Key_B, shift);
            auto* const dialog = s.editor.findChild<FitDialog*>();
            auto* const kind = dialog->findChild<QComboBox*>("kind");
            const QString found = offered(kind);
            kind->setCurrentIndex(kind->count() - 1);
            outcome += ' ' + s.outcome(*dialog);
            dialog->reject();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return found;
        };
        QString outcome, menu;
        for (const bool isOffered : {true, false}) {
            s.editor.setHoldOffered(isOffered);
            QCOMPARE(kinds(outcome).contains("Hold"), isOffered);
            s.clickPoint();
            QCOMPARE(offered(s.editor.nodeTypeCombo).endsWith("Hold node"), isOffered);
        }
        allow({SplineBase::Hold, SplineBase::Linear});
        QCOMPARE(offered(s.editor.nodeTypeCombo), "Linear node Hold node");
        allow({});
        allow({SplineBase::NodeType(7)});
        QVERIFY(s.editor.curveOptions("a", "x").types.empty());
        allow({SplineBase::Tcb, SplineBase::Bezier});
        s.press(7.0, 2.5, ctrl).release(7.0, 2.5);
        QCOMPARE(s.x.getPrev(8.0)->type, SplineBase::Tcb); // in a segment of Bezier
        s.undo();
        allow({SplineBase::Linear});
        s.selectTwo().key(Qt::Key_E);
        QCOMPARE(s.canvas.canvas.toldText(), "Ease: a.x may have no Bezier points");
        QCOMPARE(kinds(outcome), "Linear As few as the tolerance allows");
        QCOMPARE(outcome,
                 "3 points become 2, at most 1.77 away. 81 values become 39 points, at most 0.00198 away.");
        allow({SplineBase::Tcb});
        QCOMPARE(kinds(outcome), "Tcb");
        QCOMPARE(outcome,
                 "This makes Bezier or Linear points, which the curve may not have. Number of points: 81");
        allow({SplineBase::Linear, SplineBase::Bezier});
        s.clickPoint();
        QCOMPARE(offered(s.editor.nodeTypeCombo), "Bezier node Linear node");
        QCOMPARE(kinds(outcome), "Linear Bezier As few as the tolerance allows");
        whenOpen<ControlMenu>([&menu](ControlMenu& opened) {
            for (const QAction* const action : opened.actions())
                menu += action->isVisible() ? action->text().section(' ', -1) : QString();
            opened.close();
        });
        s.mouse(QEvent::MouseButtonPress, s.pixel(6.0, 2.0), Qt::RightButton);
        QCOMPARE(menu, "LinearBezierkeykey");
        s.page(2);
        auto* const table = s.editor.findChild<QTableView*>("pointTable");
        table->edit(table->model()->index(1, 2));
        QCOMPARE(offered(table->viewport()->findChild<QComboBox*>()), "Linear Bezier");
    }

    void colourIsToldWhoeverGivesIt()
    {
        Scene s;
        QStringList told;
        connect(&s.editor, &CurveEditor::curveColorChanged, &s.canvas,
                [&](const QString& group, const QString& curve, const QColor& color) {
                    if (color == Qt::green)
                        s.editor.renameCurve(group, curve, "w"), s.editor.removeCurve(group, "w");
                });
        connect(&s.editor, &CurveEditor::curveColorChanged, &s.canvas,
                [&](const QString& group, const QString& curve, const QColor& color) {
                    told.append(group + curve + color.name());
                });
        const QImage before = s.shown();
        for (const QColor& color : {QColor(Qt::red), QColor(Qt::red), QColor()})
            s.editor.setCurveColor("a", "x", color);
        s.editor.setCurveColor("a", "nobody", Qt::blue);
        QCOMPARE(told, QStringList{"ax#ff0000"});
        QVERIFY(s.shown() != before && s.showsWhatIsDrawnFromScratch());
        QTreeWidgetItem group;
        auto* const row = new QTreeWidgetItem(&group);
        s.editor.searchAllNodeList("a.x")->checkItem = row;
        whenOpen<QColorDialog>(
            [](QColorDialog& dialog) { dialog.setCurrentColor(Qt::blue), dialog.accept(); });
        s.editor.rightButtonPressedItem(row, {}, 0);
        s.editor.setCurveColor("a", "x", Qt::green);
        QCOMPARE(told.mid(1), QStringList({"ax#0000ff", "ax#00ff00"}));
    }

    void lockedCurveLooksSo()
    {
        Scene s;
        s.page(2);
        const QRect marks(placeOf(s, CurveMark::Lock) - QPoint(0, 9), QSize(12, 60)); // of all rows
        const auto pictures = [&s, marks] {
            return QList{s.shown(), s.list.viewport()->grab(marks).toImage(),
                         s.editor.findChild<QTableView*>("pointTable")->viewport()->grab().toImage()};
        };
        const QList<QImage> before = pictures();
        for (const QString curve : {"x", "y"}) {
            s.lock(curve);
            const QList<QImage> locked = pictures();
            QVERIFY(locked[0] != before[0] && locked[1] != before[1]);
            QCOMPARE(locked[2] != before[2], curve == "x"); // which is current
            QVERIFY(s.showsWhatIsDrawnFromScratch());
            s.lock(curve, false);
            QVERIFY(pictures() == before);
        }
    }

    void soloIsTakenBackAndTheHostsMarksStay()
    {
        Scene s;
        const auto seen = [&s] {
            QString names;
            for (const CurveNodeBase* const curve : s.canvas.canvas.curves().shown())
                names += curve->getName().back();
            return names;
        };
        s.turnTo("a.y").key(Qt::Key_H).turnTo("a.x").key(Qt::Key_H, shift);
        QCOMPARE(seen(), "x");
        clickMark(s, CurveMark::Solo, 1);
        QCOMPARE(seen(), "yx");
        s.open("a.w");
        QCOMPARE(seen(), "yxw");
        for (const QString name : {"a.x", "a.y", "a.w"})
            s.editor.slotRemoveFromEditing(s.editor.searchAllNodeList(name)->editingItem);
        QCOMPARE(seen(), "z");
        for (const QString name : {"a.y", "a.x"})
            s.editor.setEditingNode(name);
        QCOMPARE(seen(), "zyx");

        s.focusCanvas().key(Qt::Key_H, shift).hide("x").lock("x");
        QCOMPARE(seen(), "zy");
        for (const CurveMark mark : allCurveMarks) {
            clickMark(s, mark);
            QCOMPARE(tipOf(s, mark).startsWith("The application"), mark != CurveMark::Solo);
            QVERIFY(s.canvas.canvas.toldText().startsWith("The application"));
        }
        s.focusCanvas().key(Qt::Key_L).key(Qt::Key_H).key(Qt::Key_H, shift);
        s.editor.setCurveOptions("a", "x", {});
        QCOMPARE(seen(), "x");
        s.clickPoint().key(Qt::Key_Right, alt);
        QCOMPARE(s.entries(), 1);
    }

    void othersAreEditedWithoutIt()
    {
        Scene s;
        s.lock("y");
        const CurveState y = s.states()["a.y"];
        s.key(Qt::Key_A, shift).drag(4.0, 2.5, 6.0, -2.5); // a band
        s.forgetChanges().drag(5.0, 1.0, 6.0, 2.0);
        QCOMPARE(s.editor.undoStack()->undoText(), "Move a point of a.x");
        s.key(Qt::Key_Delete);
        QCOMPARE(s.editor.undoStack()->undoText(), "Delete a point of a.x");
        s.editor.resetAllCheckedF();
        QVERIFY(s.states()["a.y"] == y && s.entries() == 3 && closeBox().isEmpty());
        QVERIFY(!s.changes.contains("a/y") && !s.commits.contains("a/y"));
        s.turnTo("a.y").key(Qt::Key_A, ctrl).key(Qt::Key_C, ctrl);
        QCOMPARE(QGuiApplication::clipboard()->text().count("-2"), 1);
    }

    void lockEndsWhatIsOpenAndLetsStepsPass()
    {
        for (const bool isTyped : {false, true}) {
            Scene s;
            const auto before = s.states();
            isTyped ? s.clickPoint().type(s.editor.posY, "3") : s.press(5.0, 1.0).move(6.0, 2.0);
            const auto after = s.states();
            s.lock("y");
            QVERIFY(s.canvas.canvas.door().isOpen() && s.commits.isEmpty());
            s.forgetChanges().lock("x");
            QVERIFY(s.commits == QStringList{"a/x"} && s.changes == s.commits);
            QVERIFY(after != before && !s.editor.posY->isEnabled());
            s.editor.posY->newValueSet(4.0, s.editor.posY);
            s.move(7.0, 1.0).release(7.0, 1.0);
            QVERIFY(s.states() == after && s.entries() == 1);
            QVERIFY(s.undo().states() == before && s.redo().states() == after);
            s.lock("x", false);
            QVERIFY(s.editor.posY->isEnabled());
        }
    }
};

QTEST_MAIN(tst_CurveOptions)
#include "tst_CurveOptions.moc"
