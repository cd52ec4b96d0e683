// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QTabWidget>
#include <QTableView>
#include <QWheelEvent>

namespace {

using Part = std::function<QWidget*(Scene&)>;

/// Chooses the entry that begins with `text` as a user does, or leaves the menu for an empty one.
void choose(QToolButton* button, const QString& text)
{
    whenOpen<QMenu>([text](QMenu& menu) {
        const QList<QAction*> entries = menu.actions();
        const auto entry = std::find_if(entries.begin(), entries.end(), [&text](const QAction* action) {
            return action->text().startsWith(text);
        });
        menu.setActiveAction(entry == entries.end() ? nullptr : *entry);
        QTest::keyClick(&menu, text.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    });
    QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace

class tst_EditorKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysBelongToWhatHasTheFocus()
    {
        QMainWindow host;
        QLineEdit text;
        host.setCentralWidget(&text);
        QMenu* const stage = host.menuBar()->addMenu("&Stage");
        Scene s;
        s.clickPoint();
        s.editor.setParent(&text, Qt::Widget);
        s.editor.show();
        host.show();
        host.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&host));
        QString told;
        connect(stage, &QMenu::aboutToShow, [&] { told += "stage"; });
        for (const char* const name :
             {"saveCurve", "loadCurve", "loadImageAction", "setCompleteAction", "setCompleteHAction",
              "setCompleteVAction", "showTimeAction", "showFramesAction", "setWaveRangeAction"}) {
            auto* const own = s.editor.findChild<QAction*>(name);
            own->disconnect(&s.editor);
            connect(own, &QAction::triggered, [&] { told += "editor"; });
            const QKeySequence key = own->shortcut();
            const bool isMnemonic = key == QKeySequence::mnemonic("&Stage");
            QAction hosts;
            connect(&hosts, &QAction::triggered, [&] { told += "host"; });
            if (!isMnemonic)
                hosts.setShortcut(key);
            host.addAction(&hosts);
            for (QWidget* const focus : {static_cast<QWidget*>(&text), static_cast<QWidget*>(&s.canvas),
                                         static_cast<QWidget*>(&s.list), static_cast<QWidget*>(s.editor.posY),
                                         static_cast<QWidget*>(s.editor.nodeTypeCombo)}) {
                focus->setFocus();
                told.clear();
                const QString before = s.editor.posY->text();
                QTest::keyClick(focus, key[0].key(), key[0].keyboardModifiers());
                stage->close();
                QVERIFY2(told == (focus != &text ? "editor" : isMnemonic ? "stage" : "host"), name);
                QCOMPARE(s.editor.posY->text(), before);
            }
        }
        s.editor.setParent(nullptr);
    }

    void keysOfTheCanvasActWhereNothingIsTyped_data()
    {
        QTest::addColumn<Part>("part");
        QTest::addColumn<bool>("act");
        const auto row = [](const char* name, bool act, const Part& part) {
            QTest::newRow(name) << part << act;
        };
        row("canvas", true, [](Scene& s) { return &s.canvas; });
        row("dialog", true, [](Scene& s) { return &s.editor; });
        row("list", true, [](Scene& s) { return &s.list; });
        row("button", true, [](Scene& s) { return s.button("File"); });
        row("tab bar", true, [](Scene& s) { return s.editor.tabWidget2->tabBar(); });
        row("field", false, [](Scene& s) { return s.editor.posY; });
        row("box", false, [](Scene& s) { return s.editor.nodeLast; });
        row("formula line", false, [](Scene& s) {
            s.editor.tabWidget2->setCurrentIndex(1);
            return s.editor.commandLine;
        });
        row("table", false, [](Scene& s) {
            s.editor.tabWidget2->setCurrentIndex(2);
            return s.editor.findChild<QTableView*>("pointTable");
        });
    }
    void keysOfTheCanvasActWhereNothingIsTyped()
    {
        QFETCH(Part, part);
        QFETCH(bool, act);
        Scene s;
        s.clickPoint();
        QWidget* const focus = part(s);
        focus->setFocus();
        QVERIFY(focus->hasFocus());
        QTest::keyClick(focus, Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(s.control().selection().edited().size(), std::size_t(act ? 2 : 1));
        QTest::keyClick(focus, Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(s.entries(), act ? 1 : 0);
        QCOMPARE(s.takes(*focus, Qt::Key_T), act || qobject_cast<QLineEdit*>(focus));
        for (const Qt::Key key : {Qt::Key_B, Qt::Key_X}) {
            QTest::keyPress(focus, key);
            QCOMPARE(s.canvas.gesture.keys.band || s.canvas.gesture.keys.axis != Gesture::Axis::Both, act);
            if (key == Qt::Key_B)
                QTest::keyRelease(focus, key);
            else
                s.editor.commandLine->setFocus(); // hears of no release
            QVERIFY(!s.canvas.gesture.keys.band && s.canvas.gesture.keys.axis == Gesture::Axis::Both);
        }
        QCOMPARE(s.list.selectedItem()->text(0), "a.x");
        focus->setFocus();
        const QList<double> before = s.sides();
        QTest::keyClick(focus, Qt::Key_Home);
        QCOMPARE(s.sides() != before, focus == &s.canvas);
    }

    void canvasGetsTheFocusBackAndShowsIt()
    {
        Scene s;
        s.clickPoint();
        const std::pair<const char*, Deed> deeds[] = {
            {"Fit",
             [](Scene& scene) {
                 QTest::mouseClick(scene.button("Fit"), Qt::LeftButton);
             }},
            {"menu",
             [](Scene& scene) {
                 choose(scene.button("Edit"), "Select all");
             }},
            {"menu that is left",
             [](Scene& scene) {
                 choose(scene.button("Edit"), {});
             }},
            {"dialog",
             [](Scene& scene) {
                 QTest::keyClick(&scene.list, Qt::Key_S, Qt::AltModifier); // opens it by the loop
                 whenOpen<QDialog>([](QDialog& dialog) { dialog.reject(); });
                 QCoreApplication::processEvents();
             }},
            {"Simplify", [](Scene& scene) {
                 QTest::keyClick(&scene.list, Qt::Key_S, Qt::ShiftModifier);
                 scene.editor.findChild<QDialog*>()->reject();
             }}};
        s.editor.setTheme(CurveEditorTheme::light());
        const auto isFramed = [&s] {
            const QPoint edge(s.canvas.width() - 1, s.canvas.height() / 3);
            return s.canvas.grab().toImage().pixelColor(edge) == s.editor.theme().mark;
        };
        for (QWidget* const focus : {static_cast<QWidget*>(&s.list), static_cast<QWidget*>(&s.canvas)}) {
            focus->setFocus();
            QCOMPARE(isFramed(), focus == &s.canvas);
        }
        for (const auto& [name, deed] : deeds) {
            Scene fresh;
            fresh.clickPoint();
            fresh.list.setFocus();
            deed(fresh);
            QVERIFY2((fresh.editor.focusWidget() == &fresh.canvas) == (name != QString("menu that is left")),
                     name);
        }
    }

    void tabGoesAllTheWayRound()
    {
        for (const bool hasPoint : {false, true}) {
            for (const int page : {0, 1, 2}) {
                Scene s;
                if (hasPoint)
                    s.clickPoint();
                else
                    s.editor.cleanSelecteds();
                s.editor.tabWidget2->setCurrentIndex(page);
                QSet<QWidget*> stops{&s.canvas};
                for (QWidget* const widget : s.editor.findChildren<QWidget*>()) {
                    if ((widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() && widget->isEnabled())
                        stops.insert(widget);
                }
                for (QWidget* const stop : std::initializer_list<QWidget*>{&s.list, s.button("File"),
                                                                           s.editor.tabWidget2->tabBar()})
                    QVERIFY(stops.contains(stop));
                QList<QWidget*> forth;
                QList<QWidget*> back;
                for (const auto& [way, key] : {std::pair{&forth, Qt::Key_Tab}, {&back, Qt::Key_Backtab}}) {
                    s.canvas.setFocus();
                    do {
                        QTest::keyClick(QApplication::focusWidget(), key);
                        way->append(QApplication::focusWidget());
                    } while (!s.canvas.hasFocus() && way->size() <= stops.size());
                }
                QCOMPARE(QSet<QWidget*>(forth.begin(), forth.end()), stops);
                QCOMPARE(forth.size(), stops.size());
                std::reverse(back.begin(), back.end() - 1);
                QCOMPARE(back, forth);
            }
        }
    }

    void escapeMeansTheSmallestThing()
    {
        for (const bool isDocked : {false, true}) {
            QWidget host;
            Scene s;
            if (isDocked) {
                s.editor.setParent(&host);
                s.editor.show();
                host.show();
                host.activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(&host));
            }
            QLineEdit& filter = *s.editor.findChild<QLineEdit*>("filterLine");
            s.clickPoint();
            filter.setText("x");
            s.type(s.editor.posY, "7");
            const auto escape = [&s] {
                const bool isTaken = s.takes(*QApplication::focusWidget(), Qt::Key_Escape);
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
                return isTaken;
            };
            QVERIFY(escape() && s.editor.posY->hasFocus() && s.x[1]->pos == 1.0);
            QVERIFY(escape() && s.canvas.hasFocus() && filter.text() == "x");
            s.press(5.0, 1.0);
            s.move(6.0, 2.0);
            QVERIFY(escape() && s.x[1]->time == 5.0 && filter.text() == "x");
            s.release(6.0, 2.0);
            QVERIFY(escape() && filter.text().isEmpty() && s.control().hasSelection());
            s.editor.commandLine->setFocus();
            s.editor.tabWidget2->setCurrentIndex(1);
            s.editor.commandLine->setFocus();
            QVERIFY(escape() && s.canvas.hasFocus() && s.control().hasSelection());
            QVERIFY(escape() && !s.control().hasSelection() && s.editor.isVisible());
            QVERIFY(!escape());
            QCOMPARE(s.editor.isVisible(), isDocked);
            s.editor.setParent(nullptr);
        }
    }

    void wheelChangesNoBoxWithoutFocus()
    {
        Scene s;
        s.clickPoint();
        for (QComboBox* const box : {s.editor.nodeFirst, s.editor.nodeLast, s.editor.nodeTypeCombo}) {
            QCOMPARE(box->focusPolicy(), Qt::StrongFocus); // not by the wheel
            for (const bool hasFocus : {false, true}) {
                (hasFocus ? static_cast<QWidget*>(box) : &s.canvas)->setFocus();
                const int before = box->currentIndex();
                const int delta = before == 0 ? -120 : 120;
                QWheelEvent event({5, 5}, box->mapToGlobal(QPointF(5, 5)), {}, {0, delta}, Qt::NoButton, {},
                                  Qt::NoScrollPhase, false);
                QApplication::sendEvent(box, &event);
                QCOMPARE(box->currentIndex() != before, hasFocus);
            }
        }
        QCOMPARE(s.entries(), 3);
    }
};

QTEST_MAIN(tst_EditorKeys)
#include "tst_EditorKeys.moc"
