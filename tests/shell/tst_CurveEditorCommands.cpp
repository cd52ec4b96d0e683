// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <curveeditor/shell/PanDialog.h>
#include <curveeditor/shell/ScaleDialog.h>
#include <curveeditor/shell/ViewportSettings.h>

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextStream>

#include <limits>
#include <memory>

class tst_CurveEditorCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture = std::make_unique<EditorFixture>(QStringList{"cam.lens"}); }
    void cleanup() { fixture.reset(); }

    void menusHoldTheirCommands()
    {
        const QStringList options = {
            "Set Range",     "Reset View",           "Load image",          "Clear image",
            "Fit View",      "Fit Horizontal View",  "Fit Vertical View",   "Scale selection",
            "Pan selection", "Start Node Behaviour", "Last Node Behaviour", "Horizontal axis"};
        QCOMPARE(texts(*fixture->menu("File")),
                 QStringList({"Reset All Checked Curves", "Reset curve", "Load curve", "Save curve"}));
        QCOMPARE(texts(*fixture->menu("Options")), options);
        QCOMPARE(texts(*submenu(10)),
                 QStringList({"Zero", "Constant", "Loop", "Loop offset", "Follow tangent"}));
        QCOMPARE(texts(*submenu(11)), QStringList({"Show time", "Show frames"}));
        QVERIFY(fixture->action("showFramesAction")->isChecked());
        QCOMPARE(fixture->action("loadCurve")->whatsThis(), "Open previously saved curve");
    }

    void shortcutsWorkBeforeAnyMenuWasOpened_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifier>("modifier");
        QTest::addColumn<QByteArray>("dialog");
        QTest::newRow("load") << Qt::Key_L << Qt::ControlModifier << QByteArray("QFileDialog");
        QTest::newRow("save") << Qt::Key_S << Qt::ControlModifier << QByteArray("QFileDialog");
        QTest::newRow("range") << Qt::Key_S << Qt::AltModifier << QByteArray("ViewportSettings");
        QTest::newRow("image") << Qt::Key_I << Qt::AltModifier << QByteArray("QFileDialog");
        QTest::newRow("fit") << Qt::Key_C << Qt::AltModifier << QByteArray();
        QTest::newRow("time") << Qt::Key_T << Qt::AltModifier << QByteArray();
    }
    void shortcutsWorkBeforeAnyMenuWasOpened()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifier, modifier);
        QFETCH(QByteArray, dialog);
        QByteArray opened;
        if (!dialog.isEmpty())
            whenOpen<QDialog>([&opened](QDialog& open) {
                opened = open.metaObject()->className();
                open.reject();
            });
        QTest::keyClick(&fixture->editor, key, modifier);
        QCOMPARE(opened, dialog);
        QCOMPARE(fixture->editor.isModeTime(), key == Qt::Key_T);
        QCOMPARE(fixture->canvas.timeMax, key == Qt::Key_C ? 5.0 : 10.0);
    }

    void behaviourShowsInMenuAndComboBox_data()
    {
        QTest::addColumn<bool>("byMenu");
        QTest::newRow("menu") << true;
        QTest::newRow("combo box") << false;
    }
    void behaviourShowsInMenuAndComboBox()
    {
        QFETCH(bool, byMenu);
        SplineBase& spline = fixture->curves["cam.lens"].spline;
        for (const bool first : {true, false}) {
            QComboBox& combo = first ? *fixture->editor.nodeFirst : *fixture->editor.nodeLast;
            const QList<QAction*> actions = submenu(first ? 9 : 10)->actions();
            QCOMPARE(actions.size(), combo.count());
            for (int type = 0; type < combo.count(); ++type) {
                if (byMenu)
                    actions[type]->trigger();
                else
                    Q_EMIT combo.activated(type);
                QCOMPARE(first ? spline.firstType : spline.lastType, type);
                QCOMPARE(combo.currentIndex(), type);
                QVERIFY(actions[type]->isChecked());
            }
        }
        fixture->editor.changeNodeLastType(5);
        fixture->editor.changeNodeFirstType(-1);
        QCOMPARE(spline.lastType, 4);
        QVERIFY(fixture->changes.isEmpty());
    }

    void unusableRangeIsMendedByResetView_data()
    {
        QTest::addColumn<QStringList>("typed"); // time minimum, value minimum, time maximum, value maximum
        QTest::addColumn<QList<double>>("restored");
        QTest::newRow("usable") << QStringList{"1", "-2", "4", "2"} << QList<double>{1, -2, 4, 2};
        QTest::newRow("reversed") << QStringList{"4", "2", "1", "-2"} << QList<double>{1, -2, 4, 2};
        QTest::newRow("no numbers") << QStringList{"", "x", "", "nan"} << QList<double>{-1, -3, 10, 3};
        QTest::newRow("infinite") << QStringList{"-inf", "0", "1", "inf"} << QList<double>{-1, -3, 10, 3};
        QTest::newRow("wider than any number")
            << QStringList{"-1e308", "0", "1.7e308", "1"} << QList<double>{-1, 0, 10, 1};
    }
    void unusableRangeIsMendedByResetView()
    {
        QFETCH(QStringList, typed);
        whenOpen<ViewportSettings>([typed](ViewportSettings& dialog) {
            QCOMPARE(dialog.maxX->text(), "10");
            dialog.minX->setText(typed[0]);
            dialog.minY->setText(typed[1]);
            dialog.maxX->setText(typed[2]);
            dialog.maxY->setText(typed[3]);
            dialog.allDone->click();
        });
        fixture->editor.setRange();
        fixture->click(3.0, 0.0);
        fixture->editor.completeViewport();
        fixture->editor.resetViewport();
        QVERIFY(fixture->canvas.canShow());
        const QList<double> view = {fixture->canvas.timeMin, fixture->canvas.valueMin,
                                    fixture->canvas.timeMax, fixture->canvas.valueMax};
        QTEST(view, "restored");
    }

    void rangeDialogNeverCutsAnExponent()
    {
        fixture->editor.setTimeRange(-1.23456e-05, 1.23456e-05);
        whenOpen<ViewportSettings>([](ViewportSettings& dialog) { dialog.allDone->click(); });
        fixture->editor.setRange();
        QVERIFY(qAbs(fixture->canvas.timeMin + 1.23456e-05) < 1e-7);
        whenOpen<ViewportSettings>([](ViewportSettings& dialog) {
            dialog.minX->setText("5");
            dialog.cancel->click();
        });
        fixture->editor.setRange();
        QVERIFY(fixture->canvas.timeMin < 0.0);
    }

    void selectionIsScaledAndPannedSilently()
    {
        fixture->click(5.0, 1.0);
        fixture->changes.clear();
        whenOpen<ScaleDialog>([](ScaleDialog& dialog) {
            QCOMPARE(dialog.scaleX->text(), "1.0");
            dialog.scaleY->setText("2");
            dialog.allDoneScale->click();
        });
        fixture->action("openScaleSelection")->trigger();
        QCOMPARE(fixture->selectedPoint()->pos, 2.0);
        whenOpen<PanDialog>([](PanDialog& dialog) {
            dialog.panX->setText("-1.5");
            dialog.panY->setText("1e999");
            dialog.allDonePan->click();
        });
        fixture->action("openPanSelection")->trigger();
        QVERIFY(qIsFinite(fixture->selectedPoint()->pos));
        QVERIFY(fixture->changes.isEmpty());
    }

    void timeAndFramesConvertTheField_data()
    {
        QTest::addColumn<double>("fps");
        QTest::addColumn<QString>("frames");
        QTest::addColumn<QString>("time");
        QTest::newRow("24") << 24.0 << "120.000"
                            << "5.000";
        QTest::newRow("not a number is not taken") << qQNaN() << "50.000"
                                                   << "5.000";
        QTest::newRow("zero") << 0.0 << "0.000"
                              << "0.000";
        QTest::newRow("negative") << -10.0 << "-50.000"
                                  << "5.000";
    }
    void timeAndFramesConvertTheField()
    {
        QFETCH(double, fps);
        CurveEditor& editor = fixture->editor;
        editor.setFps(fps);
        fixture->click(5.0, 1.0);
        QTEST(editor.posX->text(), "frames");
        QCOMPARE(editor.textLabel1->text(), "Frame:");
        editor.setShowTime();
        QTEST(editor.posX->text(), "time");
        QCOMPARE(editor.textLabel1->text(), "Time:");
        editor.setShowFrames();
        editor.setTimeLine(25);
        QCOMPARE(fixture->canvas.timeLine, fps == 0.0 ? 0.0 : 25.0 / editor.getFps());
        QTest::keyClicks(editor.posX, "1");
        fixture->drag(5.0, 1.0, 6.0, 0.0);
    }

    void boundsOfTheTimeFieldFollowTheRangeInFrames()
    {
        fixture->editor.setTimeRange(0.0, 20.0);
        QCOMPARE(fixture->editor.posX->clampToBounds(1e6), 200.0);
        fixture->editor.setShowTime();
        QCOMPARE(fixture->editor.posX->clampToBounds(1e6), 20.0);
        fixture->editor.setTimeRange(0.0, 30.0);
        QCOMPARE(fixture->editor.posX->clampToBounds(1e6), 20.0);
    }

    void numbersThatAreNotFiniteAreNotTaken()
    {
        CurveEditor& editor = fixture->editor;
        for (const double number : {qQNaN(), qInf(), -qInf()}) {
            editor.setTimeRange(number, number);
            editor.setMinValue(number);
            editor.setMaxValue(number);
            editor.setTimeLine(number);
            editor.setFps(number);
        }
        QCOMPARE(editor.getFps(), 10.0);
        QCOMPARE(fixture->canvas.timeLine, 0.0);
        QVERIFY(fixture->canvas.canShow());
    }

    void savedCurveComesBack()
    {
        QTemporaryDir folder;
        chooseFile(folder.filePath("Take One"));
        fixture->editor.saveFile();
        QVERIFY(QFile::exists(folder.filePath("take one.crv")));
        SplineBase& spline = fixture->curves["cam.lens"].spline;
        fixture->click(5.0, 1.0);
        spline.setPos(spline.modify(1U), 2.0);
        fixture->changes.clear();
        chooseFile(folder.filePath("take one.crv"));
        fixture->editor.loadFile();
        QCOMPARE(spline(5.0), 1.0);
        QCOMPARE(fixture->changes, QStringList{"cam/lens"});
        QVERIFY(!fixture->canvas.nodeForm.isActive());
    }

    void fileThatIsNoCurveIsRefused()
    {
        QTemporaryDir folder;
        const QString path = write(folder.filePath("a.crv"), "255\n0\n0\n0\n3 points");
        QString warning;
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            choose(dialog, path);
            closeBox(warning);
        });
        fixture->editor.loadFile();
        QVERIFY(warning.contains(path));
        QCOMPARE(fixture->curves["cam.lens"].spline.getControlPointsNumber(), 2U);
        QVERIFY(fixture->changes.isEmpty());
    }

    void otherFileIsReplacedOnlyIfConfirmed_data()
    {
        QTest::addColumn<bool>("confirmed");
        QTest::newRow("yes") << true;
        QTest::newRow("no") << false;
    }
    void otherFileIsReplacedOnlyIfConfirmed()
    {
        QFETCH(bool, confirmed);
        QTemporaryDir folder;
        const QString path = write(folder.filePath("take.crv"), "old");
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            choose(dialog, folder.filePath("Take"));
            whenOpen<QMessageBox>([confirmed](QMessageBox& box) {
                box.button(confirmed ? QMessageBox::Yes : QMessageBox::No)->click();
            });
        });
        fixture->editor.saveFile();
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll() == "old", !confirmed);
    }

    void failedSaveSaysSo()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir("take.crv"));
        QString warning;
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            choose(dialog, folder.filePath("Take"));
            whenOpen<QMessageBox>([&warning](QMessageBox& question) {
                closeBox(warning);
                question.button(QMessageBox::Yes)->click();
            });
        });
        fixture->editor.saveFile();
        QVERIFY(warning.contains("take.crv"));
    }

    void filesNeedACurrentCurve()
    {
        fixture->editor.cleanSelecteds();
        fixture->editor.saveFile();
        fixture->editor.loadFile();
        QVERIFY(!QApplication::activeModalWidget());
    }

    void imageShowsUntilCleared()
    {
        QTemporaryDir folder;
        QImage red(8, 8, QImage::Format_RGB32);
        red.fill(Qt::red);
        QVERIFY(red.save(folder.filePath("a.png")));
        fixture->editor.setMinValue(-3.0);
        fixture->editor.setMaxValue(3.0);
        const QPoint corner(3, 3);
        chooseFile(folder.filePath("a.png"));
        fixture->editor.loadImage();
        QCOMPARE(fixture->canvas.grab().toImage().pixelColor(corner), QColor(Qt::red));
        whenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        fixture->editor.loadImage();
        QCOMPARE(fixture->canvas.grab().toImage().pixelColor(corner), QColor(Qt::red));
        fixture->editor.clearImage();
        QCOMPARE(fixture->canvas.grab().toImage().pixelColor(corner), QColor(Qt::black));
    }

    void onlyACloseEventIsReported()
    {
        int closed = 0;
        connect(&fixture->editor, &CurveEditor::closed, this, [&closed] { ++closed; });
        fixture->list.setFocus();
        QTest::keyClick(&fixture->list, Qt::Key_Escape);
        QVERIFY(!fixture->editor.isVisible());
        QCOMPARE(closed, 0);
        fixture->editor.show();
        fixture->editor.close();
        QCOMPARE(closed, 1);
    }

    void languageChangeSetsTheTextsAgain()
    {
        fixture->action("saveCurve")->setText("?");
        submenu(9)->setTitle("?");
        QEvent event(QEvent::LanguageChange);
        QApplication::sendEvent(&fixture->editor, &event);
        QCOMPARE(fixture->action("saveCurve")->text(), "Save curve");
        QCOMPARE(submenu(9)->title(), "Start Node Behaviour");
    }

    void fontReachesMenusAndLabels()
    {
        fixture->editor.setFont(QFont("Arial", 17));
        QCOMPARE(fixture->menu("Options")->font().pointSize(), 17);
        QCOMPARE(fixture->menu("D vars")->font().pointSize(), 17);
        QCOMPARE(fixture->editor.textTension->font().pointSize(), 17);
    }

    void tableHoldsARowForEachWholeTime()
    {
        QString table;
        QTextStream out(&table);
        QVERIFY(fixture->editor.exportSensorData(out));
        out.flush();
        QCOMPARE(table.count('\n'), 8 + 12);
        fixture->editor.setTimeRange(-1e300, 1e300);
        QVERIFY(!fixture->editor.exportSensorData(out));
    }

private:
    static QStringList texts(const QMenu& menu)
    {
        QStringList all;
        for (const QAction* const entry : menu.actions())
            all.append(entry->text());
        return all;
    }
    QMenu* submenu(int index) const { return fixture->menu("Options")->actions()[index]->menu(); }

    static QString write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("no room for test files");
        return path;
    }
    static void choose(QFileDialog& dialog, const QString& path)
    {
        auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    }
    static void chooseFile(const QString& path)
    {
        whenOpen<QFileDialog>([path](QFileDialog& dialog) { choose(dialog, path); });
    }

    std::unique_ptr<EditorFixture> fixture;
};

QTEST_MAIN(tst_CurveEditorCommands)
#include "tst_CurveEditorCommands.moc"
