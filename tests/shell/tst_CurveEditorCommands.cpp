// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <cerrno>

#include <sys/stat.h>

static bool diskIsFaulty = false;

// Stands before that of the C library.
extern "C" int fsync(int file)
{
    struct stat status = {};
    if (!diskIsFaulty || fstat(file, &status) != 0 || !S_ISDIR(status.st_mode))
        return 0;
    errno = EIO;
    return -1;
}

class tst_CurveEditorCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture = std::make_unique<EditorFixture>(QStringList{"cam.lens"}); }
    void cleanup() { fixture.reset(); }

    void pannedPointShowsInTheField()
    {
        fixture->clickPoint();
        fixture->changes.clear();
        fixture->editor.setTheme(CurveEditorTheme::light());
        whenOpen<PanDialog>([](PanDialog& dialog) {
            const auto end = qScopeGuard([&dialog] { dialog.isVisible() ? dialog.reject() : void(); });
            const QPalette usual = dialog.panY->palette();
            for (const char* const bad : {"x", "", "--", "1e400", "1/0", "0/0", "t"}) {
                dialog.panY->setText(bad);
                QTest::keyClick(dialog.panX, Qt::Key_Return);
                QVERIFY2(dialog.isVisible() && dialog.focusWidget() == dialog.panY, bad);
                QVERIFY2(dialog.panY->palette() != usual && dialog.panX->palette() == usual, bad);
            }
            dialog.panX->setText("0,5+1/2");
            dialog.panY->setText("0");
            QCOMPARE(dialog.panY->palette(), usual);
            QCOMPARE(dialog.panX->font().family(), QApplication::font().family());
            dialog.accept();
        });
        fixture->editor.setPanSelection();
        QCOMPARE(fixture->editor.posX->text(), "60.000");
        const SplineBase::PointInfo* const panned = fixture->curves["cam.lens"].spline.getLast();
        QCOMPARE(panned->pos, 1.0);
        const double time = panned->time;
        whenOpen<ScaleDialog>([time](ScaleDialog& dialog) {
            QCOMPARE(dialog.pivotX->text() + dialog.pivotY->text(), "0.00.0");
            dialog.scaleX->setText("3");
            dialog.pivotX->setText(QString::number(time - 0.25));
            dialog.scaleY->setText("2");
            dialog.pivotY->setText("-1");
            dialog.accept();
        });
        fixture->editor.setScaleSelection();
        QCOMPARE(fixture->curves["cam.lens"].spline.getLast()->time, time + 0.5);
        QCOMPARE(fixture->curves["cam.lens"].spline.getLast()->pos, 3.0);
        QVERIFY(fixture->changes.isEmpty());
    }

    void behaviourShowsInMenuAndComboBox()
    {
        SplineBase& spline = fixture->curves["cam.lens"].spline;
        const auto check = [this](int submenu, QComboBox* combo, const auto& kept) {
            const QList<QAction*> actions = fixture->submenu("Options", submenu)->actions();
            QCOMPARE(actions.size(), combo->count());
            for (int type = combo->count() - 1, other = 0; type >= 0; --type, ++other) {
                actions[type]->trigger();
                QCOMPARE(int(kept), type);
                QCOMPARE(combo->currentIndex(), type);
                Q_EMIT combo->activated(other);
                QVERIFY(int(kept) == other && actions[other]->isChecked());
            }
            Q_EMIT combo->activated(77);
            QCOMPARE(int(kept), combo->count() - 1);
        };
        check(9, fixture->editor.nodeFirst, spline.firstType);
        check(10, fixture->editor.nodeLast, spline.lastType);
        QVERIFY(fixture->changes.isEmpty());
    }

    void unusableRangeIsMendedByResetView()
    {
        const std::pair<QStringList, QList<double>> cases[] = {
            {{"4", "1", "2", "-2"}, {1, 4, -2, 2}},
            {{"0", "0", "0", "0"}, {-1, 10, -3, 3}},
            {{"-1e308", "1.7e308", "0", "1"}, {-1, 10, 0, 1}},
        };
        for (const auto& [typed, restored] : cases) {
            init();
            fixture->editor.setTimeRange(-1.23456e-05, 10.1235);
            whenOpen<ViewportSettings>([&typed = typed](ViewportSettings& dialog) {
                const double low = dialog.minX->text().toDouble();
                const QString high = dialog.maxX->text();
                dialog.minX->setText("1e400");
                dialog.maxY->setText("");
                dialog.allDone->click();
                const bool isRefused = dialog.isVisible() && dialog.focusWidget() == dialog.minX &&
                                       dialog.minX->selectedText() == "1e400";
                dialog.minX->setText(typed[0]);
                dialog.maxX->setText(typed[1]);
                dialog.minY->setText(typed[2]);
                dialog.maxY->setText(typed[3]);
                dialog.allDone->click();
                QVERIFY(isRefused && qAbs(low + 1.23456e-05) < 1e-7 && high == "10.1235");
            });
            fixture->editor.setRange();
            const double last = qMax(fixture->canvas.timeMin, fixture->canvas.timeMax);
            QCOMPARE(fixture->editor.posX->clampToBounds(1e6), qMin(1e6, fixture->canvas.shownTime(last)));
            fixture->clickPoint();
            fixture->editor.completeViewport();
            fixture->editor.resetViewport();
            QVERIFY2(fixture->sides() == restored, qPrintable(typed.join(' ')));
        }
    }

    void timeAndFramesConvertTheField()
    {
        for (const double given : {24.0, -10.0, 0.0, 1e-4, qQNaN()}) {
            init();
            CurveEditor& editor = fixture->editor;
            editor.setFps(given);
            const double fps = qIsNaN(given) ? 10.0 : given;
            fixture->clickPoint();
            QCOMPARE(editor.posX->text(), QString::number(5.0 * fps, 'f', 3));
            editor.setShowTime();
            QCOMPARE(editor.posX->text(), "5.000");
            editor.setTimeRange(0.0, 20.0);
            QCOMPARE(editor.posX->clampToBounds(1e6), 10.0);
            editor.setShowFrames();
            QCOMPARE(editor.posX->clampToBounds(1e6), qMax(0.0, 20.0 * fps));
            editor.setTimeLine(25);
            for (const double none : {qQNaN(), qInf()}) {
                editor.setTimeLine(none);
                editor.setTimeRange(2.0, none), editor.setTimeRange(none, 2.0);
                editor.setMinValue(none);
                editor.setMaxValue(none);
            }
            QCOMPARE(fixture->canvas.timeLine, fps == 0.0 ? 0.0 : 25.0 / fps);
            QCOMPARE(fixture->sides(), (QList<double>{0.0, 20.0, -3.0, 3.0}));
            editor.setShowTime();
            editor.setShowTime();
            QCOMPARE(editor.posX->text(), "5.000");
            editor.resetViewport();
            QVERIFY(editor.isModeFrames() && editor.textLabel1->text() == "Frame:");
            QCOMPARE(editor.posX->text(), QString::number(5.0 * fps, 'f', 3));
        }
    }

    void hostWritesTheAxes()
    {
        CurveEditor& editor = fixture->editor;
        const SplineBase::PointInfo& point = *fixture->curves["cam.lens"].spline.modify(1);
        auto* const model = editor.findChild<QTableView*>("pointTable")->model();
        const auto* const readOut = editor.findChild<CustomEditLine*>("funcTimeEdit");
        const auto cell = [&](int column, int role = Qt::DisplayRole) {
            return model->index(1, column).data(role).toString();
        };
        const auto spoken = [&] {
            return QAccessible::queryAccessibleInterface(&fixture->canvas)->child(1)->text(QAccessible::Name);
        };
        const auto typed = [](CustomEditLine* field, const QString& text) {
            field->clear();
            QTest::keyClicks(field, text);
            QTest::keyClick(field, Qt::Key_Return);
        };
        editor.resize(1200, 700);
        const int length = editor.posX->maxLength();
        editor.setTimeText({});
        QVERIFY(editor.posX->text().isEmpty());
        fixture->clickPoint();
        const QImage plain = fixture->canvas.grab().toImage();
        editor.setTimeText([](double time) { return QStringLiteral("@%1").arg(time, 0, 'f', 2); },
                           [](const QString& text) -> std::optional<double> {
                               if (text.startsWith('!'))
                                   throw 1;
                               return text == "nan" || text == "6.5" ? std::optional(qQNaN())
                                      : text.startsWith('@')         ? std::optional(text.mid(1).toDouble())
                                                                     : std::nullopt;
                           });
        editor.setValueText([](double value) { return QStringLiteral("lx %1").arg(value, 0, 'f', 1); });
        QVERIFY(fixture->canvas.grab().toImage() != plain);
        QCOMPARE(editor.textLabel1->text(), "Time:");
        QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), "Time");
        QVERIFY2(spoken().contains("time @5.00, value lx 1.0"), qPrintable(spoken()));
        editor.tabWidget2->setCurrentIndex(1);
        QTest::mouseMove(&fixture->canvas, fixture->pixel(2.5, 0.0));
        editor.tabWidget2->setCurrentIndex(0);
        QVERIFY2(readOut->text().startsWith("@2.5") && readOut->text().endsWith(" [Time]"),
                 qPrintable(readOut->text()));
        for (const auto& [text, time] : {std::pair{"@6.123", 6.123},
                                         {"7.25", 7.25},
                                         {"nan", 7.25},
                                         {"6.5", 6.5},
                                         {"!", 6.5},
                                         {"@1e9", 10.0},
                                         {"@5", 5.0}}) {
            typed(editor.posX, text);
            QCOMPARE(point.time, time);
            QCOMPARE(editor.posX->text(), QStringLiteral("@%1").arg(time, 0, 'f', 2));
        }
        for (const auto& [text, value] : {std::pair{"2 lx", 2.0}, {"1.2345", 1.2345}}) {
            typed(editor.posY, text); // the host reads no values
            QCOMPARE(point.pos, value);
            QCOMPARE(editor.posY->text(), QStringLiteral("lx %1").arg(value, 0, 'f', 1));
            QCOMPARE(editor.posY->palette(), editor.posX->palette()); // which shows no fault
        }
        typed(editor.posX, "@5.128");
        editor.tabWidget2->setCurrentIndex(2);
        QCOMPARE(cell(1) + cell(1, Qt::EditRole), "lx 1.21.2345");
        QCOMPARE(cell(0) + cell(0, Qt::EditRole), "@5.13@5.13");
        const auto setCell = [&](const QString& text) {
            return model->setData(model->index(1, 0), text);
        };
        QVERIFY(!setCell("@5.13") && point.time == 5.128 && setCell("@5.5") && point.time == 5.5);
        editor.tabWidget2->setCurrentIndex(0);

        editor.setTimeText([](double) -> QString { throw 1; });
        QCOMPARE(editor.posX->text(), "5.5");
        editor.setTimeText([&editor](double) { // it goes while it runs
            editor.setTimeText({});
            return QStringLiteral("gone");
        });
        editor.setValueText({});
        QCOMPARE(editor.posX->text(), "55.000"); // frames again
        QCOMPARE(editor.posX->maxLength(), length);
        QCOMPARE(editor.textLabel1->text(), "Frame:");
        typed(editor.posX, "50");
        typed(editor.posY, "1");
        fixture->canvas.setFocus();
        QVERIFY(fixture->canvas.grab().toImage() == plain);
    }

    void savedCurveComesBack()
    {
        choose(folder.filePath("Take One"), &CurveEditor::saveFile);
        fixture->curves["cam.lens"].spline.reset();
        choose(folder.filePath("take one.crv"), &CurveEditor::loadFile);
        QCOMPARE(fixture->curves["cam.lens"].spline(5.0), 1.0);
        QCOMPARE(fixture->changes, QStringList{"cam/lens"});
        choose(folder.filePath("take one.crv"),
               &CurveEditor::loadFile, // not into what became current meanwhile
               [this] { fixture->open("cam.focus"); });
        QCOMPARE(fixture->changes, QStringList{"cam/lens"});
        choose(written(folder.filePath("formula.crv"), "0\n0\n0\n1\nt*2\n"), &CurveEditor::loadFile);
        QCOMPARE(fixture->editor.commandLine->text(), "t*2");
    }

    void fileThatIsNoCurveIsRefused()
    {
        for (const char* const text : {"255\n0\n0\n0\n3 points", "", "1\n2\n3\n", "1\n2\n3\n1\n"}) {
            const QString path = written(folder.filePath("broken.crv"), text);
            choose(path, &CurveEditor::loadFile);
            QVERIFY(closeBox().contains(path) && fixture->changes.isEmpty());
        }
        QCOMPARE(fixture->curves["cam.lens"].spline.getControlPointsNumber(), 2U);
        fixture->editor.cleanSelecteds();
        fixture->editor.saveFile();
    }

    void unreadablePictureLeavesTheOneThatIsThere()
    {
        fixture->editor.setMinValue(-3.0);
        fixture->editor.setMaxValue(3.0);
        choose(written(folder.filePath("a.ppm"), "P6 1 1 255 \x10\x20\x30"), &CurveEditor::loadImage);
        const QImage shown = fixture->canvas.grab().toImage();
        QCOMPARE(shown.pixelColor(20, 20), QColor(0x10, 0x20, 0x30));
        const QString path = written(folder.filePath("broken.jpg"), "no picture");
        choose(path, &CurveEditor::loadImage);
        QVERIFY(closeBox().contains(path));
        QCOMPARE(fixture->canvas.grab().toImage(), shown);
        QAction* const pale = fixture->editor.action("paleImageAction");
        pale->trigger();
        const QColor whole = shown.pixelColor(50, 50),
                     mixed = fixture->canvas.grab().toImage().pixelColor(50, 50);
        QVERIFY(mixed.blue() > 0 && mixed.blue() < whole.blue() / 2);
        fixture->editor.setImageStrength(0.0);
        QCOMPARE(fixture->canvas.grab().toImage().pixelColor(50, 50), QColor(Qt::black));
        pale->trigger();
        QCOMPARE(fixture->canvas.grab().toImage(), shown);
        fixture->editor.clearImage();
        QVERIFY(fixture->canvas.grab().toImage() != shown);
    }

    void failedSaveIsReportedAndAnotherFileIsReplacedOnlyIfConfirmed()
    {
        QVERIFY(QDir(folder.path()).mkdir("scene.crv"));
        choose(folder.filePath("Scene"), &CurveEditor::saveFile, [] {
            whenOpen<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        });
        QCOMPARE(closeBox(), "The curve could not be saved to " + folder.filePath("scene.crv") + ".");
        diskIsFaulty = true;
        choose(folder.filePath("safe"), &CurveEditor::saveFile);
        diskIsFaulty = false;
        QCOMPARE(closeBox(), "The curve was saved to " + folder.filePath("safe.crv") +
                                 ", but is perhaps not yet on the disk.");
        for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
            const QString path = written(folder.filePath("take.crv"), "old");
            choose(folder.filePath("Take"), &CurveEditor::saveFile, [answer] {
                whenOpen<QMessageBox>([answer](QMessageBox& box) { box.button(answer)->click(); });
            });
            QCOMPARE(contentOf(path) == "old", answer == QMessageBox::No);
        }
    }

private:
    /// Types the path into the file dialog that the command opens; `follow` prepares for what follows.
    void choose(const QString& path, void (CurveEditor::*command)(), const std::function<void()>& follow = {})
    {
        whenOpen<QFileDialog>([path, follow](QFileDialog& dialog) {
            if (follow)
                follow();
            typePath(dialog, path);
        });
        (fixture->editor.*command)();
    }

    QTemporaryDir folder;
    std::unique_ptr<EditorFixture> fixture;
};

QTEST_MAIN(tst_CurveEditorCommands)
#include "tst_CurveEditorCommands.moc"
