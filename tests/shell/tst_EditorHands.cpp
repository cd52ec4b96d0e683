// SPDX-License-Identifier: MIT
#include "EditorScene.h"

namespace {

const QPoint mouse(200, 150);

Deed wheel(const QPoint& delta, Qt::KeyboardModifiers keys = {}, Qt::ScrollPhase phase = Qt::NoScrollPhase)
{
    return [=](Scene& s) {
        turnWheel(s.canvas, mouse, delta, keys, phase);
    };
}

Deed press(Qt::Key key, Qt::KeyboardModifiers keys = {})
{
    return [=](Scene& s) {
        s.key(key, keys);
    };
}

void drag(Scene& s, Qt::MouseButton button)
{
    s.mouse(QEvent::MouseButtonPress, {200, 200}, button).mouse(QEvent::MouseMove, {230, 180}, button);
    s.mouse(QEvent::MouseButtonRelease, {230, 180}, button);
}

/// Notes whether anybody has looked at it.
struct WatchedClip : QMimeData
{
    explicit WatchedClip(bool& wasRead) : isRead(wasRead) {}
    bool hasFormat(const QString& format) const override
    {
        isRead = true;
        return QMimeData::hasFormat(format);
    }
    bool& isRead;
};

} // namespace

class tst_EditorHands : public QObject
{
    Q_OBJECT

    /// Whether the times and the values in sight change, and whether the place under the mouse stays there.
    using ViewGestures = Rows<bool, bool, bool, Deed>;

private Q_SLOTS:
    void viewFollowsTheHand_data()
    {
        const ViewGestures row;
        row("wheel", true, true, true, wheel({0, 120}));
        row("wheel with Ctrl", true, false, true, wheel({0, 30}, ctrl));
        row("wheel with Shift", false, true, true, wheel({0, -15}, shift));
        row("huge wheel", true, true, true, wheel({0, 1 << 30}));
        row("wheel with Alt", false, false, true, wheel({0, 120}, alt));
        row("wheel at rest", false, false, true, wheel({}));
        row("two fingers", true, false, false, wheel({-60, 0}, {}, Qt::ScrollUpdate));
        row("pinch", true, true, true, [](Scene& s) {
            QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                                      mouse, mouse, s.canvas.mapToGlobal(mouse), 0.5, {});
            QApplication::sendEvent(&s.canvas, &event);
        });
        row("middle", true, true, false, [](Scene& s) { drag(s, Qt::MiddleButton); });
        row("middle on a point, then with a selection", false, false, true, [](Scene& s) {
            QTest::mouseClick(&s.canvas, Qt::MiddleButton, {}, s.pixel(5.0, 1.0));
            drag(s, Qt::MiddleButton);
        });
        row("Space", true, true, false, [](Scene& s) {
            QTest::keyPress(&s.canvas, Qt::Key_Space);
            drag(s, Qt::LeftButton);
            QTest::keyRelease(&s.canvas, Qt::Key_Space);
            QVERIFY(!s.canvas.bandActive);
        });
        row("Space that went elsewhere", false, false, true, [](Scene& s) {
            QTest::keyPress(&s.canvas, Qt::Key_Space);
            s.editor.commandLine->setFocus();
            drag(s, Qt::LeftButton);
        });
        row("Escape", false, false, true, [](Scene& s) {
            s.mouse(QEvent::MouseButtonPress, {200, 200}, Qt::MiddleButton);
            s.mouse(QEvent::MouseMove, {230, 180}, Qt::MiddleButton).key(Qt::Key_Escape);
            s.mouse(QEvent::MouseMove, {240, 180}, Qt::MiddleButton);
            s.mouse(QEvent::MouseButtonRelease, {240, 180}, Qt::MiddleButton);
            QVERIFY(s.editor.isVisible());
        });
        row("off", false, false, true, [](Scene& s) { s.editor.setViewGestures(false), wheel({0, 120})(s); });
        row("Home", true, true, false, press(Qt::Key_Home));
        row("Home of the keypad", true, true, false, press(Qt::Key_Home, Qt::KeypadModifier));
        row("minus", true, true, false, press(Qt::Key_Minus));
        row("plus", true, true, false, press(Qt::Key_Plus, shift));
        row("F", true, true, false, [](Scene& s) { s.clickPoint().key(Qt::Key_F); });
        row("F at a formula", true, true, false, [](Scene& s) { s.turnTo("a.z").key(Qt::Key_F); });
    }
    void viewFollowsTheHand()
    {
        const auto [movesTimes, movesValues, staysUnderMouse, gesture] = ViewGestures::present();
        Scene s;
        s.editor.setMinValue(-20.0);
        s.editor.setMaxValue(20.0);
        s.canvas.showView({0.0, 9.0, -5.0, 5.0, s.canvas.pixelWidth, s.canvas.pixelHeight});
        s.canvas.canvas.paint();
        const QList<double> before = s.sides();
        const PlaneMapping view = s.canvas.mapping();
        gesture(s);
        QCOMPARE(s.sides().mid(0, 2) != before.mid(0, 2), movesTimes);
        QCOMPARE(s.sides().mid(2) != before.mid(2), movesValues);
        const PlaneMapping now = s.canvas.mapping();
        const bool isUnderMouse = qAbs(now.timeAt(mouse.x()) - view.timeAt(mouse.x())) < 1e-9 &&
                                  qAbs(now.valueAt(mouse.y()) - view.valueAt(mouse.y())) < 1e-9;
        QCOMPARE(isUnderMouse, staysUnderMouse);
        QVERIFY(s.showsWhatIsDrawnFromScratch() && s.entries() == 0);
    }

    void viewChangeDuringAScalingDragLeavesThePointsWhereTheyAre()
    {
        for (const Deed& change :
             {wheel({0, 360}), wheel({-90, 50}, {}, Qt::ScrollUpdate), press(Qt::Key_Home)}) {
            Scene s;
            s.selectTwo().press(6.0, 2.0).move(6.5, 2.5, shift);
            const QPointF before(s.x[2]->time, s.x[2]->pos);
            const QPoint mouse = s.pixel(6.5, 2.5);
            const QList<double> sides = s.sides();
            change(s);
            QVERIFY(s.sides() != sides);
            s.mouse(QEvent::MouseMove, mouse, Qt::LeftButton, shift);
            const QPointF after(s.x[2]->time, s.x[2]->pos);
            QVERIFY(before != QPointF(8.0, -1.0) && (after - before).manhattanLength() < 1e-9);
            s.mouse(QEvent::MouseMove, mouse + QPoint(20, 0), Qt::LeftButton, shift);
            QVERIFY(s.x[2]->time > before.x() + 0.01);
        }
    }

    void releaseThatGoesAstrayHoldsNothing()
    {
        Scene s;
        s.mouse(QEvent::MouseButtonPress, {200, 200},
                Qt::MiddleButton); // whose release a box of the host gets
        s.mouse(QEvent::MouseMove, {230, 180}, Qt::MiddleButton);
        s.mouse(QEvent::MouseMove, {240, 180}, Qt::NoButton);
        QTest::keyPress(&s.canvas, Qt::Key_X);
        s.editor.setViewGestures(false);
        QTest::keyRelease(&s.canvas, Qt::Key_X);
        s.drag(5.0, 1.0, 5.5, 2.0);
        QVERIFY(qAbs(s.x[1]->pos - 2.0) < 0.05);
        QCOMPARE(s.entries(), 1);
    }

    void timeLineFollowsTheHandWhereTheHostAllowsIt()
    {
        Scene s;
        QList<double> told;
        connect(&s.editor, &CurveEditor::timeLineDragged, [&told](double time) { told.append(time); });
        const int foot = s.canvas.pixelHeight - 4;
        const auto dragFoot = [&s, foot](double time, bool cancels) {
            s.mouse(QEvent::MouseButtonPress, {s.canvas.timeToPixel(s.canvas.timeLine) + 3, foot});
            s.mouse(QEvent::MouseMove, {s.canvas.timeToPixel(time), 30});
            if (cancels)
                s.key(Qt::Key_Escape);
            s.mouse(QEvent::MouseButtonRelease, {s.canvas.timeToPixel(time), 30});
        };
        s.editor.setTimeLine(2.0);
        dragFoot(4.0, false);
        s.key(Qt::Key_Period);
        QCOMPARE(told.size(), 0);
        s.editor.setTimeLineDraggable(true);
        dragFoot(4.0, false);
        QVERIFY(told.size() == 1 && qAbs(s.canvas.timeLine - 4.0) < 0.05);
        dragFoot(100.0, true);
        QCOMPARE(told.mid(1), (QList<double>{s.canvas.limitTimeMax, told[0]}));
        s.canvas.canvas.hands().guide.isSnapping = true;
        dragFoot(6.02, false);
        QCOMPARE(s.canvas.timeLine, 6.0);
        s.key(Qt::Key_Comma);
        QCOMPARE(told.last(), 6.0 - 1.0 / s.canvas.fps);
        s.canvas.canvas.hands().guide.snap.kinds = Snap::TimeLine;
        dragFoot(6.0, false);
        QVERIFY(s.canvas.timeLine > told[told.size() - 2]); // not held by where it stood
        s.mouse(QEvent::MouseButtonPress, {s.canvas.timeToPixel(s.canvas.timeLine), foot});
        const qsizetype count = told.size();
        s.mouse(QEvent::MouseMove, {s.canvas.timeToPixel(1.0), 30}, Qt::NoButton); // the release went astray
        QCOMPARE(told.size(), count);
        s.editor.setTimeLine(s.canvas.limitTimeMin);
        s.key(Qt::Key_Comma);
        QCOMPARE(s.canvas.timeLine, s.canvas.limitTimeMin);
        QVERIFY(s.showsWhatIsDrawnFromScratch() && s.entries() == 0);
        s.press(5.0, 1.0); // the line can't be taken above its foot
        QCOMPARE(s.control().currentIndex(), 1);
    }

    void keysOfTheCanvasComeBeforeThoseOfTheHost()
    {
        Scene s;
        s.editor.setTimeLineDraggable(true);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_B, Qt::Key_X, Qt::Key_Y, Qt::Key_Left, Qt::Key_Home})
            QVERIFY(s.takes(s.canvas, key));
        QVERIFY(!s.takes(s.canvas, Qt::Key_Q));
        QVERIFY(!s.takes(s.canvas, Qt::Key_Escape));
        for (const QPoint& place :
             {s.pixel(5.0, 1.0), QPoint(s.pixel(0.0, 0.0).x(), s.canvas.pixelHeight - 4)}) {
            s.mouse(QEvent::MouseButtonPress, place);
            QVERIFY(s.takes(s.canvas, Qt::Key_Escape));
            s.mouse(QEvent::MouseButtonRelease, place);
        }
        s.editor.setViewGestures(false);
        QVERIFY(!s.takes(s.canvas, Qt::Key_Space));
    }

    void menuOffersWhatIsPossible()
    {
        Scene s;
        QMenu* const menu = s.menu("Edit");
        const auto offered = [&](const QStringList& texts) {
            menu->popup({});
            menu->close();
            QList<bool> are;
            for (const QString& text : texts)
                are.append(entryOf(*menu, text)->isEnabled());
            return are;
        };
        const QStringList texts{"Copy", "Select all", "Flatten", "Simplify", "Bake", "Time line"};
        QCOMPARE(offered(texts), (QList<bool>{false, true, false, true, true, false}));
        s.clickPoint().editor.setTimeLineDraggable(true);
        s.canvas.canvas.setEditsAllCurves(true);
        QVERIFY(!entryOf(*menu, "Edit all")->isChecked());
        QCOMPARE(offered(texts), QList<bool>(6, true));
        QVERIFY(entryOf(*menu, "Edit all")->isChecked());
        s.canvas.canvas.setEditsAllCurves(false);
        s.turnTo("a.z");
        QCOMPARE(offered(texts), (QList<bool>{false, false, false, false, true, true}));
        unsigned& kinds = s.canvas.canvas.hands().guide.snap.kinds;
        kinds = Snap::GridLines;
        offered({});
        entryOf(*menu, "To grid lines")->trigger();
        entryOf(*menu, "To frames")->trigger();
        QCOMPARE(kinds, unsigned(Snap::Frames));
    }

    void selectionFollowsTheKeys()
    {
        Scene s;
        const auto count = [&s] {
            return int(s.control().selection().edited().size());
        };
        // Keys, and how many points are selected then; from the first "Shift+A" on all curves are edited at once.
        for (const QString step :
             {"Ctrl+A 3", "Ctrl+I 0", "Shift+Left 1", "Shift+Left 2", "Ctrl+I 1", "Shift+Right 2",
              "Shift+Right 3", "Shift+Right 3", "Shift+A 3", "Ctrl+A 3", "Shift+A 3", "Ctrl+Shift+A 0"}) {
            QTest::keySequence(&s.canvas, QKeySequence(step.section(' ', 0, 0)));
            QCOMPARE(count(), step.section(' ', 1).toInt());
            QVERIFY(s.showsWhatIsDrawnFromScratch());
        }
        s.key(Qt::Key_A).clickPoint().key(Qt::Key_Right, shift); // goes on only where something is selected
        QVERIFY(count() == 2 && !s.canvas.canvas.findCurve("a.y")->control().hasSelection());
        s.key(Qt::Key_A).clickPoint();
        QTest::keyPress(&s.canvas, Qt::Key_B);
        s.drag(7.0, 0.0, 9.0, -2.0);
        QTest::keyRelease(&s.canvas, Qt::Key_B);
        QCOMPARE(count(), 2);
        bool isClipRead = false;
        QGuiApplication::clipboard()->setMimeData(new WatchedClip(isClipRead));
        isClipRead = false;
        s.key(Qt::Key_B); // another application may be slow to answer
        QVERIFY(!isClipRead);
        s.drag(8.5, 0.0, 9.0, 2.0);
        QCOMPARE(count(), 0);
        s.editor.commandLine->setFocus();
        QTest::keyClick(s.editor.commandLine, Qt::Key_A, ctrl);
        QCOMPARE(count(), 0);
    }
};

QTEST_MAIN(tst_EditorHands)
#include "tst_EditorHands.moc"
