// SPDX-License-Identifier: MIT
#include <AxisTexts.h>
#include <MainWindow.h>
#include <SoundTrack.h>
#include <curveeditor/edit/PlaneMapping.h>
#include <curveeditor/shell/CurveEditor.h>
#include <support/Test.h>

/// A window of the host, driven as a user does.
struct Console
{
    Console()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        canvas.setFocus();
        QTRY_COMPARE(stage.image().size(), stage.size());
    }
    QPoint pixel(double time, double level) const { return editor.toCanvas({time, level}).toPoint(); }
    void drag(const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(&canvas, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, canvas.mapToGlobal(QPointF(to)), {}, Qt::LeftButton, {});
        QApplication::sendEvent(&canvas, &move);
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, to);
    }
    void trigger(const char* text)
    {
        for (QAction* const action : window.findChildren<QAction*>()) {
            if (action->text() == text)
                return action->trigger();
        }
        QFAIL(text);
    }
    void enter(const QString& formula)
    {
        auto* const line = editor.findChild<QLineEdit*>("commandLine");
        line->setText(formula);
        QTest::keyClick(line, Qt::Key_Return);
    }
    const SplineBase& front() const { return window.data().find("Front", "01")->spline; }
    QString undoText() const { return editor.undoStack()->undoText(); }

    MainWindow window;
    CurveEditor& editor = *window.findChild<CurveEditor*>();
    QWidget& canvas = *window.findChild<QWidget*>("functionEdit");
    Stage& stage = *window.findChild<Stage*>();
};

/// Answers the file dialog that opens next, and returns its title.
static QString answerFileDialog(QWidget& focus, Qt::Key key, const QString& path)
{
    QString title;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        look.stop();
        title = dialog->windowTitle();
        dialog->selectFile(path);
        path.isEmpty() ? dialog->reject() : static_cast<QDialog*>(dialog)->accept();
    });
    look.start(1);
    QTest::mouseClick(&focus, Qt::LeftButton, {}, {5, 5});
    QTest::keyClick(&focus, key, Qt::ControlModifier);
    [&] {
        QTRY_VERIFY(!title.isEmpty());
    }();
    return title;
}

class tst_DockedHost : public QObject
{
    Q_OBJECT

    using Texts = Rows<QString, double, QString>; // a kind of text, and a number as it writes it

private Q_SLOTS:
    void lampsFollowADragAndTheClock()
    {
        Console c;
        const QImage before = c.stage.image();
        const SplineState state = c.front().state();
        c.drag(c.pixel(12.0, state.points[1].pos), c.pixel(17.03, 90.4));
        const SplineBase::PointInfo moved = *c.front()[1]; // on whole frames and percent
        QVERIFY(moved.time > 16.5 && moved.time == qRound(moved.time * 24.0) / 24.0);
        QVERIFY(moved.pos > 80.0 && moved.pos == qRound(moved.pos));
        QTRY_VERIFY(c.stage.image() != before);
        const QImage white = c.stage.image();
        c.trigger("Change the gel");
        QTRY_VERIFY(c.stage.image() != white);
        for (const char* const text : {"Change the gel", "Move a point of Front.01"}) {
            QCOMPARE(c.undoText(), text);
            QTest::keyClick(&c.canvas, Qt::Key_Z, Qt::ControlModifier);
        }
        QVERIFY(c.front().state() == state);
        QTRY_VERIFY(c.stage.image() == before);
        c.trigger("Play");
        QTRY_VERIFY(c.stage.image() != before);
    }

    void commandsOfTheHostStandInTheEditor()
    {
        Console c;
        QTest::mouseClick(&c.canvas, Qt::LeftButton, {}, c.pixel(31.0, c.front()[2]->pos));
        QTest::keyClick(&c.canvas, Qt::Key_F9);
        QCOMPARE(c.front()[2]->pos, 100.0);
        QCOMPARE(c.undoText(), "Set points of Front.01 to full");
        QTest::keyClick(&c.canvas, Qt::Key_F10);
        QVERIFY(c.front()(18.0) == 0.0 && c.undoText() == "Fade out Front.01");
        const int entries = c.editor.undoStack()->count();
        c.trigger("Record");
        for (const int level : {10, 60, 80})
            c.window.findChild<QSlider*>()->setValue(level);
        QVERIFY(c.front()(16.0) == 80.0 && c.editor.undoStack()->count() == entries + 1);
        c.trigger("Record");
        c.trigger("Record");
        c.window.findChild<QSlider*>()->setValue(20);
        QCOMPARE(c.editor.undoStack()->count(), entries + 2);

        c.trigger("Lock the channel");
        const SplineState locked = c.front().state();
        c.drag(c.pixel(31.0, 100.0), c.pixel(35.0, 50.0));
        c.window.findChild<QSlider*>()->setValue(30); // still recorded
        for (const Qt::Key key : {Qt::Key_F9, Qt::Key_F10})
            QTest::keyClick(&c.canvas, key);
        QVERIFY(c.front().state() == locked);
        c.trigger("Lock the channel");
        c.drag(c.pixel(31.0, 100.0), c.pixel(35.0, 50.0));
        QVERIFY(c.front().state() != locked);
    }

    void formulasReadTheirOwnShow()
    {
        Console c, other;
        const auto level = [](const Console& console) {
            return (*console.window.data().snapshots().front())(20.0); // of Front.01
        };
        for (Console* const console : {&c, &other})
            console->enter("back.01");
        const double before = level(c);
        QVERIFY(other.editor.edit("Back", "01", "Level", [](SplineBase& spline) {
            spline.reset();
            spline.setPos(spline.modify(0u), 77.0);
        }));
        QVERIFY(level(other) == 77.0 && level(c) == before && before != 77.0);
    }

    void showComesBackWithItsView()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("evening.show");
        Console c;
        c.trigger("Take the colour of the gel");
        c.editor.setView({10.0, 20.0, 30.0, 60.0});
        c.editor.setDefaultSelected("Side", "03");
        c.drag(c.pixel(31.0, c.window.data().find("Side", "03")->spline[2]->pos), c.pixel(30.0, 40.0));
        QCOMPARE(c.undoText(), "Move a point of Side.03");
        c.enter("back.01");
        QCOMPARE(answerFileDialog(c.stage, Qt::Key_S, path), "Save the show");
        Console other;
        QCOMPARE(answerFileDialog(other.stage, Qt::Key_O, path), "Open a show");
        const QJsonObject show = c.window.data().write();
        QCOMPARE(other.window.data().write(), show);
        QJsonObject spoilt = show;
        for (const QString& key : show.keys())
            spoilt[key] = show[key].toString().replace("back.01", "back.(");
        Show read;
        read.read(show);
        read.read(spoilt); // leaves that channel as it is
        QVERIFY(spoilt != show && read.write() == show);
        QCOMPARE(other.editor.openCurves(), c.editor.openCurves());
        QCOMPARE(other.editor.view(), c.editor.view());
    }

    void consoleAndEditorFollowEachOther()
    {
        Console c;
        const auto status = [&c] {
            return c.window.statusBar()->currentMessage();
        };
        c.editor.setView({10.0, 0.0, 20.0, 100.0});
        QCOMPARE(status(), "Selected points: 0. In sight: 00:00:10:00 – 00:00:30:00");
        const QImage music = c.canvas.grab().toImage();
        for (const bool isLeft : {true, false}) {
            c.trigger("Waveform");
            QCOMPARE(c.canvas.grab().toImage() != music, isLeft);
        }
        QTest::keyClick(&c.canvas, Qt::Key_A, Qt::ControlModifier);
        QVERIFY(status().startsWith("Selected points: 4."));
        QCursor::setPos(c.canvas.mapToGlobal(c.pixel(20.0, 50.0)));
        for (const Qt::Key key : {Qt::Key_F8, Qt::Key_F10})
            QTest::keyClick(&c.canvas, key);
        QVERIFY(qAbs(c.front()[2]->time - 20.0) < 0.1 && c.front().getControlPointsNumber() == 6);

        QCursor::setPos(c.canvas.mapToGlobal(c.pixel(500.0, 50.0)));
        QTest::keyClick(&c.canvas, Qt::Key_F8); // no further than the end
        c.trigger("Record");
        c.window.findChild<QSlider*>()->setValue(44);
        QCOMPARE(c.front().getLast()->time, Show::duration);
        c.trigger("Play"); // from the beginning then, and records on
        QTRY_VERIFY(c.front()[1]->time < 2.0 && c.front()[1]->pos == 44.0);
        for (const char* const text : {"Play", "Record"})
            c.trigger(text);

        c.editor.setView({0.0, 0.0, 60.0, 100.0});
        const QImage shown = c.canvas.grab().toImage();
        const auto isMarked = [&](double time) {
            const QPoint at(c.pixel(time, 50.0).x(), 2);
            QSet<QRgb> colors;
            for (int side = -1; side <= 1; ++side)
                colors.insert(shown.pixel(at + QPoint(side, 0)));
            return colors.contains(c.window.palette().color(QPalette::Text).rgb());
        };
        QVERIFY(isMarked(12.0) && isMarked(31.0) && isMarked(52.0) && !isMarked(13.0));
        const auto isLocked = [&c] {
            for (const QAction* const action : c.window.findChildren<QAction*>()) {
                if (action->text() == "Lock the channel")
                    return action->isChecked();
            }
            return false;
        };
        QVERIFY(!isLocked() && c.editor.openCurves().size() == 3);
        c.editor.setDefaultSelected("House", "02");
        QVERIFY(isLocked() && c.editor.curveOptions("House", "02").toolTip.startsWith("Lights"));
        c.editor.setDefaultSelected("Front", "01");
        QVERIFY(!isLocked());

        c.trigger("Change the gel");
        c.trigger("Take the colour of the gel");
        QCOMPARE(c.window.data().find("Front", "01")->color.value(), 255);
        QCOMPARE(c.window.data().find("Front", "01")->color, c.editor.searchAllNodeList("Front.01")->color);
        const int width = c.canvas.width();
        c.trigger("List of channels");
        QTRY_VERIFY(c.canvas.width() > width && !c.editor.isPartShown(EditorPart::List));
    }

    void timesAreWrittenAsTheUserWants()
    {
        Console c;
        const auto* const time = c.editor.findChild<QLineEdit*>("posX");
        QTest::mouseClick(&c.canvas, Qt::LeftButton, {}, c.pixel(31.0, c.front()[2]->pos));
        QCOMPARE(time->text(), "00:00:31:00");
        const QImage timecode = c.canvas.grab().toImage();
        c.trigger("Beats");
        QCOMPARE(time->text(), "16.3.000");
        QVERIFY(c.canvas.grab().toImage() != timecode);
        c.trigger("Beats");
        QVERIFY(c.canvas.grab().toImage() == timecode);
    }

    void axisTexts_data()
    {
        const Texts row;
        const auto add = [&row](const QString& kind, double number, const QString& text) {
            row(qPrintable(kind + ' ' + text), kind, number, text);
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
        const auto [kind, number, text] = Texts::present();
        const bool isDrop = kind == "drop";
        const FrameRate& rate = isDrop ? dropFrame : film;
        const QString written = kind == "bars"   ? bars(number, 120.0, 3)
                                : kind == "unit" ? withUnit(number, "%")
                                                 : timecode(number, rate);
        QCOMPARE(written, text);
        const auto read = [&, kind = kind](const QString& typed) {
            return kind == "bars"   ? timeOfBars(typed, 120.0, 3)
                   : kind == "unit" ? valueWithUnit(typed, "%")
                                    : timeOfTimecode(typed, rate);
        };
        QVERIFY(timecode(-0.001, film) == "00:00:00:00" && !timeOfTimecode("00:00:00:24", film));
        QVERIFY(timecode(1e9, film) == "1e+09" && bars(-1e9, 120.0, 3) == "-1e+09");
        QVERIFY(timeOfBars("1.3.959", 120.0, 3) == (2.0 + 959.0 / 960.0) / 2.0 &&
                timeOfTimecode("00:59:59:23", film));
        QVERIFY(read(text) && qAbs(*read(text) - number) < 1e-9);
        for (const char* const fault : {"", "1", "00:60:00:00", "00:00:60:00", "00:01:00;01", "00:00:00:30",
                                        "1.4.000", "1.0.000", "1.1.960", "x %"})
            QVERIFY2(!read(fault) || (!isDrop && QString(fault) == "00:01:00;01"), fault);
    }

    void soundSwingsAboutTheMiddle()
    {
        QImage silence(200, 100, QImage::Format_RGB32), sound = silence;
        silence.fill(Qt::black);
        sound.fill(Qt::black);
        QPainter painter(&sound);
        SoundTrack(10.0).paint(painter, {0.0, 20.0, 0.0, 1.0, 200, 100});
        for (const QRect& half : {QRect(0, 0, 100, 49), QRect(0, 51, 100, 49)})
            QVERIFY(sound.copy(half) != silence.copy(half));
        const QRect behind(100, 0, 100, 100);
        QCOMPARE(sound.copy(behind), silence.copy(behind));
    }

    void focusDecidesWhoSaves()
    {
        for (const bool hasFiles :
             {false, true}) { // the console has none of single curves, and not their Ctrl+S
            Console c;
            c.editor.setPartShown(EditorPart::Files, hasFiles);
            QCOMPARE(answerFileDialog(c.canvas, Qt::Key_S, {}) == "Save the show", !hasFiles);
        }
        QCOMPARE(answerFileDialog(Console().stage, Qt::Key_S, {}), "Save the show");
    }
};

QTEST_MAIN(tst_DockedHost)
#include "tst_DockedHost.moc"
