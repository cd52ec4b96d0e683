// SPDX-License-Identifier: MIT
#include "EditorScene.h"

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

using Part = std::function<QWidget*(Scene&)>;

class tst_EditorHands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strokeOfManyJitteringColumnsIsFewPoints()
    {
        Scene s;
        s.editor.resize(1400, 700);
        QTest::qWait(0);
        std::vector<PointSerial> points{s.x[1]->serial, s.x[2]->serial};
        for (const double time : {-3.0, -2.0, -1.0, 9.0, 9.5})
            points.push_back(SplineEdits::addPoint(s.x, time, std::sin(time)));
        SplineEdits::setType(s.x, points, SplineBase::Tcb);
        SplineBase before;
        before.assign(s.x.state());
        const int first = s.pixel(0.5, 0.0).x(), last = first + 800;
        const auto at = [first](int column) {
            return QPoint(column, int(200.0 + 120.0 * std::sin((column - first) / 90.0) + (column % 2)));
        };
        QTest::keyPress(&s.canvas, Qt::Key_D);
        s.mouse(QEvent::MouseButtonPress, at(first));
        for (int column = first + 1; column <= last; ++column)
            s.mouse(QEvent::MouseMove, at(column));
        s.mouse(QEvent::MouseButtonRelease, at(last));
        const double from = s.canvas.pixelToTime(first), to = s.canvas.pixelToTime(last);
        QVERIFY(SplineEdits::pointsWithin(s.x, from, to).size() <= 20);
        for (int column = first; column <= last; ++column) {
            const double value = s.x(s.canvas.pixelToTime(column));
            QVERIFY(qAbs(s.canvas.mapping().row(value) - at(column).y()) < 2.01);
        }
        for (double time = -3.0; time < 9.5; time += 0.01)
            QVERIFY((time > 0.0 && time < 8.0) || qAbs(s.x(time) - before(time)) < 1e-12);
        QVERIFY(s.entries() == 1 && s.changes == QStringList{"a/x"} && s.commits == s.changes);
        s.undo();
        QVERIFY(s.x.state() == before.state() && s.intervals.size() > 800);
    }

    void keysOfTheCanvasComeBeforeThoseOfTheHost()
    {
        Scene s;
        s.editor.setTimeLineDraggable(true);
        for (const Qt::Key key :
             {Qt::Key_Space, Qt::Key_B, Qt::Key_D, Qt::Key_X, Qt::Key_Y, Qt::Key_Left, Qt::Key_Home})
            QVERIFY(s.takes(s.canvas, key));
        QVERIFY(!s.takes(s.canvas, Qt::Key_Q) && !s.takes(s.canvas, Qt::Key_Escape));
        QVERIFY(s.takes(s.editor, Qt::Key_Delete) && !s.takes(s.editor, Qt::Key_Q));
        for (const QPoint& place :
             {s.pixel(5.0, 1.0), QPoint(s.pixel(0.0, 0.0).x(), s.canvas.pixelHeight - 4)}) {
            s.mouse(QEvent::MouseButtonPress, place);
            QVERIFY(s.takes(s.canvas, Qt::Key_Escape) && s.takes(s.canvas, Qt::Key_X, ctrl));
            s.mouse(QEvent::MouseButtonRelease, place);
        }
        s.editor.setViewGestures(false);
        QVERIFY(!s.takes(s.canvas, Qt::Key_Space));
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
        QGuiApplication::clipboard()->clear();
        s.drag(8.5, 0.0, 9.0, 2.0);
        QCOMPARE(count(), 0);
        s.editor.commandLine->setFocus();
        QTest::keyClick(s.editor.commandLine, Qt::Key_A, ctrl);
        QCOMPARE(count(), 0);
    }

    void keysBelongToWhatHasTheFocus()
    {
        QMainWindow host;
        QLineEdit text;
        host.setCentralWidget(&text);
        QMenu* const stage = host.menuBar()->addMenu("&Stage");
        Scene s;
        s.clickPoint().editor.setParent(&text, Qt::Widget);
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
            for (QWidget* const focus : std::initializer_list<QWidget*>{
                     &text, &s.canvas, &s.list, s.editor.posY, s.editor.nodeTypeCombo}) {
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
        const Rows<bool, Part> row;
        row("canvas", true, [](Scene& s) { return &s.canvas; });
        row("dialog", true, [](Scene& s) { return &s.editor; });
        row("list", true, [](Scene& s) { return &s.list; });
        row("button", true, [](Scene& s) { return s.button("File"); });
        row("tab bar", true, [](Scene& s) { return s.editor.tabWidget2->tabBar(); });
        row("field", false, [](Scene& s) { return s.editor.posY; });
        row("box", false, [](Scene& s) { return s.editor.nodeLast; });
        row("formula line", false, [](Scene& s) {
            s.page(1);
            return s.editor.commandLine;
        });
        row("table", false, [](Scene& s) {
            s.page(2);
            return s.editor.findChild<QTableView*>("pointTable");
        });
    }
    void keysOfTheCanvasActWhereNothingIsTyped()
    {
        const auto [act, part] = Rows<bool, Part>::present();
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
            if (key == Qt::Key_B) {
                QTest::keyRelease(focus, key);
            } else {
                QTest::keyPress(focus, Qt::Key_B);
                s.editor.commandLine->setFocus(); // hears of no release
            }
            QVERIFY(!s.canvas.gesture.keys.band && s.canvas.gesture.keys.axis == Gesture::Axis::Both);
        }
        QCOMPARE(s.list.selectedItem()->text(0), "a.x");
        focus->setFocus();
        const QList<double> before = s.sides();
        QTest::keyClick(focus, Qt::Key_Home);
        QCOMPARE(s.sides() != before, focus == &s.canvas);
    }

    void canvasShowsThatItHasTheFocus()
    {
        Scene s;
        s.editor.setTheme(CurveEditorTheme::light());
        for (QWidget* const focus : std::initializer_list<QWidget*>{&s.list, &s.canvas}) {
            focus->setFocus();
            const QPoint edge(s.canvas.width() - 1, s.canvas.height() / 3);
            const bool isFramed = s.canvas.grab().toImage().pixelColor(edge) == s.editor.theme().mark;
            QCOMPARE(isFramed, focus == &s.canvas);
        }
    }

    void canvasGetsTheFocusBack_data()
    {
        const Rows<bool, Deed> row;
        row("Fit", true, [](Scene& s) { QTest::mouseClick(s.button("Fit"), Qt::LeftButton); });
        row("menu", true, [](Scene& s) {
            chooseFrom(s.button("Edit"), [](QMenu& menu) { return entryOf(menu, "Select all"); });
        });
        row("menu that is left", false,
            [](Scene& s) { chooseFrom(s.button("Edit"), [](QMenu&) { return nullptr; }); });
        row("dialog", true, [](Scene& s) {
            QTest::keyClick(&s.list, Qt::Key_S, alt); // opens it by the loop
            whenOpen<QDialog>([](QDialog& dialog) { dialog.reject(); });
            QCoreApplication::processEvents();
        });
        row("Simplify", true, [](Scene& s) {
            QTest::keyClick(&s.list, Qt::Key_S, shift);
            s.editor.findChild<QDialog*>()->reject();
        });
    }
    void canvasGetsTheFocusBack()
    {
        const auto [getsItBack, deed] = Rows<bool, Deed>::present();
        Scene s;
        s.clickPoint().list.setFocus();
        deed(s);
        QCOMPARE(s.editor.focusWidget() == &s.canvas, getsItBack);
    }

    void tabGoesAllTheWayRoundInReadingOrder()
    {
        constexpr int none = -1;
        for (const auto& [page, type] : {std::pair(0, none),
                                         {1, none},
                                         {0, int(SplineBase::Tcb)},
                                         {0, int(SplineBase::Bezier)},
                                         {1, int(SplineBase::Bezier)},
                                         {2, int(SplineBase::Tcb)}}) {
            Scene s;
            CurveEditor& editor = s.editor;
            s.x.modify(1u)->type = type;
            type == none ? editor.cleanSelecteds() : void(s.clickPoint());
            editor.tabWidget2->setCurrentIndex(page);
            QSet<QWidget*> stops{&s.canvas};
            for (QWidget* const widget : editor.findChildren<QWidget*>()) {
                if ((widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() && widget->isEnabled())
                    stops.insert(widget);
            }
            QList<QWidget*> forth, back;
            for (const auto& [way, key] : {std::pair{&forth, Qt::Key_Tab}, {&back, Qt::Key_Backtab}}) {
                s.focusCanvas();
                do {
                    QTest::keyClick(QApplication::focusWidget(), key);
                    way->append(QApplication::focusWidget());
                } while (!s.canvas.hasFocus() && way->size() <= stops.size());
            }
            QCOMPARE(QSet<QWidget*>(forth.begin(), forth.end()), stops);
            QCOMPARE(forth.size(), stops.size());
            std::reverse(back.begin(), back.end() - 1);
            QCOMPARE(back, forth);
            if (type == none)
                continue;
            QList<QWidget*> first{editor.node,     editor.posX,          editor.posY,   editor.nodeFirst,
                                  editor.nodeLast, editor.nodeTypeCombo, editor.easeTo, editor.easeFrom};
            if (page == 0 && type == SplineBase::Tcb)
                first += {editor.tension, editor.continuity, editor.bias};
            else if (page == 0)
                first += {editor.incoming, editor.outgoing};
            else
                first = {
                    s.button("Unary functions"), s.button("Binary functions"), s.button("Ternary functions"),
                    s.button("I vars"),          s.button("D vars"),           editor.commandLine};
            if (page < 2)
                QCOMPARE(forth.mid(0, first.size()), first);
            const QList<QWidget*> last{
                s.button("Edit"), s.button("Scale"),           s.button("Pan"), s.button("openButton"),
                &s.list,          editor.tabWidget2->tabBar(), &s.canvas};
            QCOMPARE(forth.mid(forth.size() - last.size()), last);
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
            s.press(5.0, 1.0).move(6.0, 2.0);
            QVERIFY(escape() && s.x[1]->time == 5.0 && filter.text() == "x");
            s.release(6.0, 2.0);
            QVERIFY(escape() && filter.text().isEmpty() && s.control().hasSelection());
            s.editor.commandLine->setFocus();
            s.page(1).editor.commandLine->setFocus();
            QVERIFY(escape() && s.canvas.hasFocus() && s.control().hasSelection());
            QVERIFY(escape() && !s.control().hasSelection() && s.editor.isVisible() && !escape());
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
                turnWheel(*box, {5, 5}, {0, delta});
                QCOMPARE(box->currentIndex() != before, hasFocus);
            }
        }
        QCOMPARE(s.entries(), 3);
    }
};

QTEST_MAIN(tst_EditorHands)
#include "tst_EditorHands.moc"
