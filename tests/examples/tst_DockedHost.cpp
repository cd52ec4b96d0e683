// SPDX-License-Identifier: MIT
#include <AxisTexts.h>
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

    void axisTexts_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("text");
        const auto add = [](const char* kind, double number, const char* text) {
            QTest::addRow("%s %s", kind, text) << kind << number << text;
        };
        add("film", 62.5, "00:01:02:12");
        add("film", -3600.0, "-01:00:00:00");
        add("drop", 1799 * 1.001 / 30.0, "00:00:59;29");
        add("drop", 1800 * 1.001 / 30.0, "00:01:00;02"); // 0 and 1 are left out
        add("drop", 17981 * 1.001 / 30.0, "00:09:59;29");
        add("drop", 17982 * 1.001 / 30.0, "00:10:00;00"); // but not in each tenth minute
        add("drop", 107892 * 1.001 / 30.0, "01:00:00;00");
        add("bars", 0.0, "1.1.000");
        add("bars", 4.75, "4.1.480"); // 120 beats a minute, 3 in a bar
        add("bars", -0.5, "0.3.000");
        add("unit", 72.5, "72.5 %");
    }
    void axisTexts()
    {
        using namespace AxisTexts;
        QFETCH(const QString, kind);
        QFETCH(const double, number);
        QFETCH(const QString, text);
        const bool isDrop = kind == "drop";
        const FrameRate& rate = isDrop ? dropFrame : film;
        const QString written = kind == "bars"   ? bars(number, 120.0, 3)
                                : kind == "unit" ? withUnit(number, "%")
                                                 : timecode(number, rate);
        QCOMPARE(written, text);
        const auto read = [&](const QString& typed) {
            return kind == "bars"   ? timeOfBars(typed, 120.0, 3)
                   : kind == "unit" ? valueWithUnit(typed, "%")
                                    : timeOfTimecode(typed, rate);
        };
        QVERIFY(read(text) && qAbs(*read(text) - number) < 1e-9);
        for (const char* const fault :
             {"", "1", "00:60:00:00", "00:01:00;01", "00:00:00:30", "1.4.000", "1.1.960", "x %"})
            QVERIFY2(!read(fault) || (!isDrop && QString(fault) == "00:01:00;01"), fault);
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
