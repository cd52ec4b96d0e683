// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/shell/RetimeDialog.h>

/// The scene, in which all points of "a.x" are selected: at (0, 0), (5, 1) and (8, -1).
struct BoxScene : Scene
{
    BoxScene()
    {
        editor.setTimeRange(-40.0, 60.0);
        editor.setView({-20.0, -6.0, 60.0, 12.0});
        selectAll();
    }
    BoxScene& selectAll() { return key(Qt::Key_A, ctrl), *this; }
    BoxScene& showBox() { return key(Qt::Key_T, ctrl), *this; }
    BoxScene& allCurves() { return canvas.canvas.setEditsAllCurves(true), selectAll(); }
    bool isShown() const { return canvas.transformBox.isShown(); }
    QString told() const { return canvas.canvas.toldText(); }
    QList<QPointF> places(const QString& curve = "a.x")
    {
        QList<QPointF> found;
        for (const SplineBase::PointInfo& point : curves[curve].spline.state().points)
            found.append({std::round(100.0 * point.time) / 100.0, std::round(100.0 * point.pos) / 100.0});
        return found;
    }
    /// From a place of the frame by a distance.
    BoxScene& pull(double t, double v, double time, double value, Qt::KeyboardModifiers keys = {})
    {
        return drag(t, v, t + time, v + value, keys), *this;
    }
    RetimeDialog* retime()
    {
        key(Qt::Key_R, shift);
        return editor.findChild<RetimeDialog*>();
    }
    BoxScene& type(const QDialog& dialog, const char* field, const QString& text)
    {
        return dialog.findChild<QLineEdit*>(field)->setText(text), *this;
    }
};

using Places = QList<QPointF>;
const Places atFirst = {{0.0, 0.0}, {5.0, 1.0}, {8.0, -1.0}};

class tst_TransformBox : public QObject
{
    Q_OBJECT

    using BoxDeed = std::function<void(BoxScene&)>;
    using Pulls =
        Rows<Qt::CursorShape, QPointF, QPointF, Qt::KeyboardModifiers, double, double, double, double>;
    using Ends = Rows<bool, BoxDeed>; // whether it shows then
    using Factors = Rows<QString, QString, int, Places>;
    using Meanwhile = Rows<bool, BoxDeed>; // whether the curves are as at first after Cancel

private Q_SLOTS:
    void gripsScaleAndInsideMoves_data()
    {
        const Pulls row; // cursor, pressed at, by, keys, factor and pivot in time, the same in value
        row("right edge", Qt::SizeHorCursor, {8.0, 0.5}, {8.0, 0.0}, {}, 2.0, 0.0, 1.0, 0.0);
        row("left edge about the middle", Qt::SizeHorCursor, {0.0, 0.5}, {2.0, 0.0}, shift, 0.5, 4.0, 1.0,
            0.0);
        row("lower edge", Qt::SizeVerCursor, {4.0, -1.0}, {1.0, 1.0}, {}, 1.0, 0.0, 0.5, 1.0);
        row("other corner", Qt::SizeFDiagCursor, {0.0, 1.0}, {0.0, 2.0}, {}, 1.0, 0.0, 2.0, -1.0);
        row("corner", Qt::SizeBDiagCursor, {8.0, 1.0}, {4.0, 2.0}, {}, 1.5, 0.0, 2.0, -1.0);
        row("across", Qt::SizeHorCursor, {8.0, 0.5}, {-16.0, 0.0}, {}, -1.0, 0.0, 1.0, 0.0);
    }
    void gripsScaleAndInsideMoves()
    {
        const auto [cursor, at, by, keys, a, pivotTime, b, pivotValue] = Pulls::present();
        BoxScene s;
        s.showBox().forgetChanges();
        Places due;
        for (const QPointF& place : atFirst)
            due.append({pivotTime + a * (place.x() - pivotTime), pivotValue + b * (place.y() - pivotValue)});
        if (a < 0.0)
            std::reverse(due.begin(), due.end());
        for (const auto& [place, shape] : {std::pair(QPointF(4.0, 0.5), Qt::SizeAllCursor),
                                           {at, cursor},
                                           {QPointF(20.0, 4.0), Qt::ArrowCursor}}) {
            s.move(place.x(), place.y(), {}, Qt::NoButton);
            QCOMPARE(s.canvas.cursor().shape(), shape);
        }
        s.pull(at.x(), at.y(), by.x(), by.y(), keys);
        for (qsizetype i = 0; i < due.size(); ++i) {
            const QPointF miss = s.places()[i] - due[i];
            QVERIFY2(std::hypot(miss.x(), miss.y()) < 0.2, qPrintable(QTest::toString(s.places()[i])));
        }
        QCOMPARE(s.entries(), 1);
        QCOMPARE(s.changes, QStringList{"a/x"});
        QVERIFY(s.isShown() && s.intervals.size() >= 2 && s.commits.size() == 1);
        s.undo();
        QCOMPARE(s.places(), atFirst);
    }

    void dragThereAndBackOrTakenBackChangesNothing()
    {
        BoxScene s;
        const auto before = s.states();
        s.showBox().press(8.0, 0.5).move(-5.0, 0.5).move(0.0, 0.5);
        QVERIFY(s.told() == TransformBox::refusalText() || s.places() != atFirst);
        s.move(8.0, 0.5).release(8.0, 0.5);
        QVERIFY(s.states() == before && s.entries() == 0);
        s.press(4.0, 0.5).move(6.0, 2.0);
        QVERIFY(s.states() != before);
        s.key(Qt::Key_Return).key(Qt::Key_Escape);
        QVERIFY(s.states() == before && s.isShown());
        s.move(7.0, 2.0).release(7.0, 2.0);
        QVERIFY(s.states() == before && s.entries() == 0 && s.isShown());
        s.press(4.0, 0.5).move(6.0, 0.5).move(9.0, 0.5, {}, Qt::NoButton); // the release goes astray
        s.move(9.0, 0.5);
        QVERIFY(std::abs(s.x[0]->time - 2.0) < 0.2 && s.entries() == 1);
        s.pull(s.x[2]->time, 0.5, 3.0, 0.0); // the frame has followed
        QVERIFY(s.x[2]->time > 12.5 && s.isShown());
        s.key(Qt::Key_Escape);
        QVERIFY(!s.isShown() && s.editor.isVisible() && s.showsWhatIsDrawnFromScratch());
    }

    void pulledEdgeSnaps()
    {
        BoxScene s;
        s.canvas.canvas.hands().guide.isSnapping = true;
        s.editor.setFps(1.0);
        s.showBox().pull(8.0, 0.5, 1.93, 0.0);
        QCOMPARE(s.x.getLast()->time, 10.0);
        QCOMPARE(s.x[1]->time, 6.25);
    }

    void endsWithWhatItIsAbout_data()
    {
        const Ends row;
        row("nothing", true, [](BoxScene& s) { s.canvas.viewGestures.zoomByNotches(1); });
        row("Return", false, [](BoxScene& s) { s.key(Qt::Key_Return); });
        row("its key", false, [](BoxScene& s) { s.showBox(); });
        row("press outside", false, [](BoxScene& s) { s.click(4.0, 3.0); });
        row("press inside", true, [](BoxScene& s) { s.click(4.0, 0.5).doubleClick(4.0, 0.5); });
        row("another selection", false, [](BoxScene& s) { s.key(Qt::Key_I, ctrl); });
        row("another curve", false, [](BoxScene& s) { s.turnTo("a.y"); });
        row("lock", false, [](BoxScene& s) { s.lock("x"); });
        row("hide", false, [](BoxScene& s) { s.hide("x"); });
        row("removal", false, [](BoxScene& s) { s.remove("x"); });
        row("all undone", true, [](BoxScene& s) { s.pull(4.0, 0.5, 2.0, 0.0).undo(); });
    }
    void endsWithWhatItIsAbout()
    {
        const auto [isShown, deed] = Ends::present();
        BoxScene s;
        const QImage bare = s.shown();
        s.showBox();
        QVERIFY(s.isShown() && s.shown() != bare && !s.told().isEmpty());
        deed(s);
        QCOMPARE(s.isShown(), isShown);
        QVERIFY(s.showsWhatIsDrawnFromScratch());
    }

    void whatHasNoExtentIsRefused()
    {
        BoxScene s;
        s.clickPoint().key(Qt::Key_T, ctrl);
        QVERIFY(!s.isShown() && s.told().startsWith("A transform box takes"));
        QVERIFY(s.outcome(*s.retime()).startsWith("A single point keeps its place"));
        s.editor.findChild<RetimeDialog*>()->reject();
        for (unsigned i = 0; i < 3; ++i)
            s.x.setPos(s.x.modify(i), 1.0);
        s.updateCurves();
        for (const int below : {-FrameGrips::margin, FrameGrips::margin}) { // no edge there
            const QPoint edge = s.pixel(4.0, 1.0) + QPoint(0, below);
            s.selectAll().showBox().pressAt(edge);
            s.mouse(QEvent::MouseMove, edge + QPoint(0, 50));
            QVERIFY(s.x[1]->pos < 0.5);
            s.key(Qt::Key_Escape).key(Qt::Key_Escape);
        }
        s.selectAll().showBox().pull(4.0, 1.0, 1.0, 2.0);
        QVERIFY(s.x[1]->pos > 2.9 && s.x[2]->pos == s.x[0]->pos && s.x[2]->time - s.x[0]->time == 8.0);
    }

    void constraintAndBoundsHold()
    {
        BoxScene s;
        s.set("x", &CurveOptions::highest, 1.5);
        s.editor.setConstraint("a", "x", [](SplineBase& spline) {
            for (unsigned i = 0; i < spline.getControlPointsNumber(); ++i)
                spline.modify(i)->time = std::round(spline.modify(i)->time);
        });
        s.showBox().pull(8.0, 1.0, 3.0, 4.0);
        QCOMPARE(s.places()[1], QPointF(std::round(5.0 * 11.0 / 8.0), 1.5));
        QCOMPARE(s.x[0]->pos, 1.5);
    }

    void boxTakesAllCurvesButLockedOnes()
    {
        BoxScene s;
        s.allCurves().showBox().forgetChanges();
        s.pull(8.0, -0.5, 8.0, 0.0);
        QVERIFY(std::abs(s.curves["a.y"].spline[1]->time - 10.0) < 0.2);
        QCOMPARE(s.entries(), 1);
        QCOMPARE(s.changes, (QStringList{"a/y", "a/x"}));
        s.undo().lock("y");
        s.selectAll().showBox().pull(8.0, 0.5, 8.0, 0.0);
        QCOMPARE(s.curves["a.y"].spline[1]->time, 5.0);
        QVERIFY(s.x[1]->time > 9.0);
    }

    void eachCurveIsScaledWhereItIsSeen()
    {
        BoxScene s;
        s.allCurves().canvas.canvas.setOwnScale(true);
        s.showBox();
        const auto heights = [&s] {
            QList<double> seen;
            for (const QString name : {"a.x", "a.y"}) {
                for (const QPointF& place : s.places(name))
                    seen.append(s.canvas.canvas.findCurve(name)->heightOf(place.y()));
            }
            return seen;
        };
        const QList<double> before = heights();
        const auto [low, high] = std::minmax_element(before.begin(), before.end());
        s.press(4.0, *high).move(4.0, (*low + *high) / 2.0);
        for (qsizetype i = 0; i < before.size(); ++i)
            QVERIFY(std::abs(heights()[i] - (*low + before[i]) / 2.0) < 0.05 * (*high - *low));
        s.release(4.0, 0.0);
    }

    void tcbThatMayBendIsTold()
    {
        for (const double ease : {0.0, 0.5}) { // in a curve without Bezier points, too
            BoxScene s;
            s.x.addPoint(6.0, 1.0);
            s.x.modify(3)->type = SplineBase::Tcb;
            s.x.modify(3)->easeTo = ease;
            if (ease == 0.0)
                s.set("x", &CurveOptions::types, {SplineBase::Tcb});
            s.control().selectPoints({s.x[2]->serial, s.x[3]->serial});
            s.showBox().press(8.0, 0.0).move(9.0, 0.0);
            QCOMPARE(s.told(), TransformBox::bendText());
            s.release(9.0, 0.0);
            QCOMPARE(s.x[3]->type, std::int32_t(SplineBase::Tcb));
            QVERIFY(s.outcome(*s.retime()).startsWith("Number of points: 2"));
        }
    }

    void retimeFollowsTheFactors_data()
    {
        const Factors row; // factors of time and value, and the pivot
        row("twice as long", "2", "1", 0, {{0.0, 0.0}, {10.0, 1.0}, {16.0, -1.0}});
        row("mirrored about the middle", "-1", "1", 2, {{0.0, -1.0}, {3.0, 1.0}, {8.0, 0.0}});
        row("values about the middle", "1", "3", 2, {{0.0, 0.0}, {5.0, 3.0}, {8.0, -3.0}});
        row("about the time line", "0,5", "-1", 1, {{2.5, 2.0}, {5.0, 1.0}, {6.5, 3.0}});
        for (const char* const bad : {"0", "1e-20", "x", "", "1e308", "nan", "inf"})
            row(bad, bad, "1", 0, {});
        row("values without end", "1", "1e308", 2, atFirst); // the middle of all is 0
        row("no value", "1", "nan", 0, {});
    }
    void retimeFollowsTheFactors()
    {
        const auto [time, value, pivot, places] = Factors::present();
        for (const Qt::Key end : {Qt::Key_Escape, Qt::Key_Return}) {
            BoxScene s;
            s.canvas.setTimeLine(5.0);
            QDialog* const dialog = s.retime();
            QVERIFY(dialog && dialog->focusWidget()->objectName() == "timeFactor");
            dialog->findChild<QComboBox*>("pivot")->setCurrentIndex(pivot);
            s.type(*dialog, "timeFactor", time).type(*dialog, "valueFactor", value);
            const bool isDone = !places.isEmpty() && places != atFirst;
            if (value != "1e308")
                QCOMPARE(s.places(), isDone ? places : atFirst);
            QVERIFY(s.changes.isEmpty() && s.commits.isEmpty() && s.showsWhatIsDrawnFromScratch());
            QTest::keyClick(dialog->focusWidget(), end);
            const bool isKept = end == Qt::Key_Return && isDone;
            if (value != "1e308")
                QCOMPARE(s.entries(), isKept ? 1 : 0);
            if (isKept)
                QCOMPARE(s.changes, QStringList{"a/x"});
            s.undo();
            QCOMPARE(s.places(), atFirst);
        }
    }

    void hostMayDoAnythingWhileSeveralCurvesAreRetimed_data()
    {
        const Meanwhile row;
        row("nothing", true, [](BoxScene&) {});
        row("undo", true, [](BoxScene& s) { s.undo(); });
        row("another curve", true, [](BoxScene& s) { s.turnTo("a.z"); });
        row("change of one", false, [](BoxScene& s) { s.curves["a.y"].spline.reset(), s.updateCurves(); });
        row("lock of one", true, [](BoxScene& s) { s.lock("y"); });
        row("removal of one", true, [](BoxScene& s) { s.remove("y"); });
        row("removal of the current", true, [](BoxScene& s) { s.remove("x"); });
        row("hide", true, [](BoxScene& s) { s.editor.hide(); });
    }
    void hostMayDoAnythingWhileSeveralCurvesAreRetimed()
    {
        const auto [isAsAtFirst, deed] = Meanwhile::present();
        for (const bool accepts : {false, true}) {
            BoxScene s;
            const Places ofY = s.places("a.y");
            const QPointer<RetimeDialog> dialog = s.allCurves().retime();
            s.type(*dialog, "timeFactor", "2");
            QVERIFY(s.places()[2].x() == 16.0 && s.places("a.y")[1].x() == 10.0);
            deed(s);
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            if (dialog && accepts)
                dialog->accept();
            if (dialog)
                dialog->reject();
            if (accepts)
                continue;
            QCOMPARE(s.places(), atFirst);
            QCOMPARE(s.places("a.y"), isAsAtFirst ? ofY : Places{QPointF(0.0, 0.0)});
        }
    }

    void severalRetimedCurvesAreOneStep()
    {
        BoxScene s;
        s.x.setTime(s.x.modify(0), 1.0);
        QDialog* const dialog = s.allCurves().retime();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        QTest::keyClicks(dialog->focusWidget(), "3"); // in place of 1
        QCOMPARE(s.x[0]->time, 3.0);                  // about the first point of both
        s.forgetChanges();
        dialog->accept();
        QCOMPARE(s.entries(), 1);
        QCOMPARE(s.changes, (QStringList{"a/y", "a/x"}));
        QCOMPARE(s.editor.undoStack()->undoText(), "Retime 5 points of 2 curves");
    }
};

QTEST_MAIN(tst_TransformBox)
#include "tst_TransformBox.moc"
