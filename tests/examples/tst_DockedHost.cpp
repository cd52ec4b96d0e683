// SPDX-License-Identifier: MIT
#include <MainWindow.h>

#include <QAction>
#include <QFileDialog>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>

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
        QMouseEvent move(QEvent::MouseMove, place, canvas->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                         {});
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
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const QTemporaryDir folder;
        const QString path = folder.filePath("ball.txt");
        for (QWidget* const focus : {window.centralWidget(), window.findChild<QWidget*>("functionEdit")}) {
            QTest::mouseClick(focus, Qt::LeftButton, {}, {5, 5});
            bool isHosts = false;
            QTimer::singleShot(0, &window, [&isHosts, &path] {
                auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                isHosts = dialog->windowTitle() == "Save the path of the ball";
                dialog->selectFile(path);
                isHosts ? static_cast<QDialog*>(dialog)->accept() : dialog->reject();
            });
            QTest::keyClick(focus, Qt::Key_S, Qt::ControlModifier);
            QCOMPARE(isHosts, focus == window.centralWidget());
        }
        QFile saved(path);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().startsWith("0 "));
    }
};

QTEST_MAIN(tst_DockedHost)
#include "tst_DockedHost.moc"
