// SPDX-License-Identifier: MIT
#include <MainWindow.h>
#include <support/Test.h>

/// The host that docks the editor, driven as a user does.
class tst_DockedHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stageFollowsADragAndTheClock()
    {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto* const stage = dynamic_cast<Stage*>(window.centralWidget());
        auto* const canvas = window.findChild<QWidget*>("functionEdit");
        const QList<QAction*> edit = window.menuBar()->actions().at(1)->menu()->actions();
        const QImage before = stage->grab().toImage();
        const QPoint point(canvas->width() / 4, canvas->height() / 10); // of the curve y, at 2.5 and 0.8
        QTest::mousePress(canvas, Qt::LeftButton, {}, point);
        const QPointF place = point + QPoint(40, 60);
        QMouseEvent move(QEvent::MouseMove, place, canvas->mapToGlobal(place), {}, Qt::LeftButton, {});
        QApplication::sendEvent(canvas, &move);
        QVERIFY(stage->grab().toImage() != before);
        QTest::mouseRelease(canvas, Qt::LeftButton, {}, place.toPoint());
        edit.back()->trigger();
        for (const char* text : {"Undo Change the colour of the ball", "Undo Move a point of Ball.y"}) {
            QCOMPARE(edit.front()->text(), text);
            edit.front()->trigger();
        }
        QVERIFY(stage->grab().toImage() == before);

        window.findChild<QToolBar*>()->actions().front()->setChecked(true);
        QTRY_VERIFY(stage->grab().toImage() != before);
    }

    void focusDecidesWhoSaves()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("ball.txt");
        for (const bool isOutside : {true, false}) {
            MainWindow window;
            window.show();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            auto* const focus =
                isOutside ? window.centralWidget() : window.findChild<QWidget*>("functionEdit");
            QTest::mouseClick(focus, Qt::LeftButton, {}, {5, 5});
            QVERIFY(focus->hasFocus());
            QString title;
            QTimer look;
            connect(&look, &QTimer::timeout, [&] {
                auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                if (!dialog)
                    return;
                look.stop();
                title = dialog->windowTitle();
                dialog->selectFile(path);
                isOutside ? static_cast<QDialog*>(dialog)->accept() : dialog->reject();
            });
            look.start(1);
            QTest::keyClick(focus, Qt::Key_S, Qt::ControlModifier);
            QTRY_VERIFY(!title.isEmpty());
            QCOMPARE(title == "Save the path of the ball", isOutside);
        }
        QFile saved(path);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().startsWith("0 "));
    }
};

QTEST_MAIN(tst_DockedHost)
#include "tst_DockedHost.moc"
