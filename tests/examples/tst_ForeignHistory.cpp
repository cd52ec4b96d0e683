// SPDX-License-Identifier: MIT
#include <MainWindow.h>
#include <support/Test.h>

/// The host with nodes, commands and an engine of its own, driven as a user does.
class tst_ForeignHistory : public QObject
{
    Q_OBJECT

    struct Scene
    {
        Scene()
        {
            window.resize(1000, 700);
            window.show();
            QVERIFY(QTest::qWaitForWindowActive(&window));
        }
        QPointF place(double time, double value) const
        {
            return {time / 10.0 * canvas->width(), (1.0 - value) * canvas->height()};
        }
        void mouse(QEvent::Type type, double time, double value) const
        {
            const QPointF at = place(time, value);
            const bool isMove = type == QEvent::MouseMove, isHeld = type != QEvent::MouseButtonRelease;
            QMouseEvent event(type, at, canvas->mapToGlobal(at), isMove ? Qt::NoButton : Qt::LeftButton,
                              isHeld ? Qt::LeftButton : Qt::NoButton, {});
            QApplication::sendEvent(canvas, &event);
        }
        void drag(double time, double value, double toTime, double toValue) const
        {
            mouse(QEvent::MouseButtonPress, time, value);
            mouse(QEvent::MouseMove, toTime, toValue);
            mouse(QEvent::MouseButtonRelease, toTime, toValue);
        }
        /// Nodes are apart, and the same curve comes of them.
        bool isTidy() const
        {
            const std::vector<Node>& nodes = window.nodes();
            for (std::size_t i = 1; i < nodes.size(); ++i) {
                if (nodes[i].frame - nodes[i - 1].frame < leastDistance)
                    return false;
            }
            SplineState state;
            state.points = pointsOf(nodes);
            SplineBase spline;
            return spline.assign(state) && nodesOf(spline) == nodes &&
                   (*window.engine().published())(8.3) == spline(8.3) &&
                   (*window.engine().published())(1.9) == spline(1.9);
        }

        MainWindow window;
        QWidget* canvas = window.findChild<QWidget*>("functionEdit");
        QSpinBox* gain = window.findChild<QSpinBox*>();
    };

private Q_SLOTS:
    void editsStandAmongTheCommandsOfTheHost()
    {
        Scene s;
        const std::vector<Node> before = s.window.nodes();
        s.drag(5.0, 0.4, 5.501, 0.95);
        QVERIFY(s.isTidy() && s.window.nodes()[2].value > 0.9 && s.window.nodes()[1] == before[1]);
        QTRY_VERIFY(s.window.engine().peak() > 0.93 && s.gain->isVisible() && s.gain->value() == 100);
        s.gain->setValue(50);
        QTRY_VERIFY(s.window.engine().peak() < 0.5);
        const std::vector<Node> after = s.window.nodes();
        s.drag(2.0, 0.8, 3.0, -0.7);
        QVERIFY(s.isTidy() && s.window.nodes()[0].shape == Node::Shape::Hold &&
                s.window.nodes()[1].value == 0);
        for (const char* name :
             {"Move a point of Track.Gain", "Change the level", "Move a point of Track.Gain", ""}) {
            QCOMPARE(s.window.history().next(), name);
            QTest::keyClick(s.canvas, Qt::Key_Z, Qt::ControlModifier);
        }
        QVERIFY(s.window.nodes() == before && s.isTidy() && s.gain->value() == 100);
        QTest::keyClick(s.canvas, Qt::Key_Y, Qt::ControlModifier);
        QTest::keyClick(s.canvas, Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(s.window.nodes() == after && s.gain->value() == 50);
    }

    void buttonsStepFromWhatIsTyped()
    {
        Scene s;
        s.drag(5.0, 0.4, 5.5, 1.3);
        const std::vector<Node> before = s.window.nodes();
        auto* const value = s.window.editor().findChild<QLineEdit*>("posY");
        value->setFocus();
        value->selectAll();
        QTest::keyClicks(value, "0.85");
        QVERIFY(s.window.nodes() == before && before[2].value == 1.0);
        QVERIFY(std::abs((*s.window.engine().published())(6.25) - 0.8802) < 3e-4); // by way of the slopes
        for (QAction* const action : s.window.findChild<QToolBar*>()->actions().mid(0, 2)) {
            action->trigger(); // Undo, Redo
            QCOMPARE(s.window.nodes() == before, action->text() == "Undo");
        }
        QVERIFY(s.isTidy() && s.window.nodes()[2].value == 0.85);
    }

    void nodesAreHeldAndPushedApart()
    {
        Scene s;
        s.window.toggleHold(); // at 1.0, where it is held already
        QVERIFY(s.window.nodes()[0].shape == Node::Shape::Linear && s.isTidy());
        s.drag(1.0, 0.0, 6.0, 0.0), s.window.toggleHold(); // where the time line is now
        QVERIFY(s.window.nodes()[2].shape == Node::Shape::Hold && s.isTidy());
        QCOMPARE(s.window.history().next(), "Hold");
        const std::vector<Node> before = s.window.nodes();
        SplineState state;
        state.points = pointsOf(before);
        SplineBase spline;
        spline.assign(state);
        toggleHold(spline, spline[1]->time); // what ends there stays
        std::vector<Node> due = before;
        due[1].shape = Node::Shape::Hold;
        QVERIFY(nodesOf(spline) == due);
        s.drag(5.0, 0.4, 7.0, 0.4); // onto the next one
        QVERIFY(s.isTidy() && s.window.nodes().size() == 5 && s.window.nodes() != before);
        s.mouse(QEvent::MouseButtonPress, 2.0, 0.8);
        for (const double time : {6.9, 9.9, 0.01, 2.0})
            s.mouse(QEvent::MouseMove, time, 0.8);
        s.mouse(QEvent::MouseButtonRelease, 2.0, 0.8);
        QVERIFY(s.isTidy() && s.window.nodes()[0] == before[0]);
        QTest::keyClick(s.canvas, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(s.canvas, Qt::Key_Delete);
        QVERIFY(s.isTidy() && s.window.nodes().size() == 1);
    }
};

QTEST_MAIN(tst_ForeignHistory)
#include "tst_ForeignHistory.moc"
