// SPDX-License-Identifier: MIT
#include "EditorScene.h"

namespace {

constexpr QRectF part(-0.5, -2.0, 9.5, 4.0);

/// Holds Space and moves the canvas by so many steps.
Scene& pan(Scene& s, int steps)
{
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, {});
    QApplication::sendEvent(&s.canvas, &space);
    s.press(2.0, 1.5);
    for (int step = 1; step <= steps; ++step)
        s.mouse(QEvent::MouseMove, s.pixel(2.0, 1.5) + QPoint(5 * step, 5 * step));
    return s;
}

} // namespace

class tst_HostView : public QObject
{
    Q_OBJECT

    using Tellings = Rows<int, int, Deed>; // how often of the view and of the selection
    using Views = Rows<QRectF, QRectF>;    // wanted and shown; limits: 0 to 100, -10 to 10
    using Frames = Rows<int, Deed>;        // how often the underlay is painted in the next
    using Works = Rows<std::function<void(Scene&)>>;
    using Picks = Rows<QString, std::vector<int>, std::vector<int>, QString>; // and the current curve

private Q_SLOTS:
    void tellsEachChangeOnce_data() { addTellings(); }
    void tellsEachChangeOnce()
    {
        const auto [views, selections, deed] = Tellings::present();
        Scene s;
        s.editor.setView(part);
        std::vector<QRectF> seen{part};
        std::vector<std::vector<int>> selected{{}};
        connect(&s.editor, &CurveEditor::viewChanged, this, [&] { seen.push_back(s.editor.view()); });
        connect(&s.editor, &CurveEditor::pointSelectionChanged, this,
                [&] { selected.push_back(s.editor.selectedPoints("a", "x")); });
        deed(s);
        QVERIFY(int(seen.size()) == views + 1 && seen.back() == s.editor.view());
        QVERIFY(int(selected.size()) == selections + 1 &&
                selected.back() == s.editor.selectedPoints("a", "x"));
        QVERIFY(std::adjacent_find(seen.begin(), seen.end()) == seen.end());
        QVERIFY(std::adjacent_find(selected.begin(), selected.end()) == selected.end());
    }

    void slotMayDoAnything_data() { addTellings(); }
    void slotMayDoAnything()
    {
        const auto [views, selections, deed] = Tellings::present();
        const Deed reactions[] = {[](Scene& s) { s.remove("x"); },
                                  [](Scene& s) { s.owned->deleteLater(), QTest::qWait(0); },
                                  [](Scene& s) {
                                      s.editor.setView({1.0, -1.0, 4.0, 2.0});
                                      s.editor.selectPoints("a", "y", {0});
                                  }};
        for (const Deed& reaction : reactions) {
            Scene s;
            s.editor.setView(part);
            for (const auto signal : {&CurveEditor::viewChanged, &CurveEditor::pointSelectionChanged})
                connect(&s.editor, signal, this, [&] { reaction(s); });
            deed(s);
            QTest::qWait(0);
            QVERIFY(!s.owned || views + selections == 0 || s.current() != "a.x" ||
                    s.editor.view() == QRectF(1.0, -1.0, 4.0, 2.0));
        }
    }

    void goesAsFarAsTheLimitsLetIt_data()
    {
        const Views row;
        const QRectF before(10.0, -2.0, 20.0, 4.0);
        row("too far", {90.0, -20.0, 20.0, 4.0}, {80.0, -10.0, 20.0, 4.0});
        row("too long", {-50.0, -11.0, 500.0, 22.0}, {0.0, -10.0, 100.0, 20.0});
        row("too short", {50.0, 1.0, 1e-12, 1e-12}, {49.995, 0.9999, 0.01, 0.0002});
        row("infinite", {5.0, 1.0, infinity, 2.0}, before);
        row("no number", {5.0, notANumber, 2.0, 2.0}, before);
    }
    void goesAsFarAsTheLimitsLetIt()
    {
        const auto [wanted, shown] = Views::present();
        CurveEditor editor; // not shown yet
        editor.setTimeRange(0.0, 100.0);
        editor.setMinValue(-10.0);
        editor.setMaxValue(10.0);
        editor.setView({10.0, -2.0, 20.0, 4.0});
        editor.setView(wanted);
        QCOMPARE(editor.view(), shown);
        editor.show();
        const QWidget& canvas = *editor.findChild<QWidget*>("functionEdit");
        const QPointF corner = editor.toCanvas(shown.bottomRight());
        QVERIFY(std::abs(corner.x() - canvas.width()) < 1e-3 && std::abs(corner.y()) < 1e-3);
        QCOMPARE(editor.fromCanvas(QPointF(canvas.width() / 2.0, canvas.height() / 2.0)), shown.center());
    }

    void arrangementComesBack()
    {
        Scene s;
        s.snapTo(Snap::Points).key(Qt::Key_A, shift);
        s.canvas.canvas.hands().alignsHandles = true, s.canvas.canvas.setShowsSpeed(true);
        s.editor.setShowTime(), s.editor.setView(part);
        s.page(2).editor.splitter11->setSizes({200, 700}), s.editor.splitter10->setSizes({300, 300});
        const QByteArray state = s.editor.saveState();

        Scene other;
        const QByteArray old = other.editor.saveState();
        for (qsizetype at = 0; at < state.size(); ++at) {
            QByteArray spoilt = state;
            spoilt[at] = char(spoilt[at] ^ 1);
            QVERIFY(!other.editor.restoreState(spoilt) && !other.editor.restoreState(state.left(at)));
        }
        QVERIFY(!other.editor.restoreState(state + '\0') &&
                !other.editor.restoreState(QSplitter().saveState()));
        QCOMPARE(other.editor.saveState(), old);
        QDataStream written(state);
        quint32 mark = 0;
        quint16 version = 0, sum = 0;
        QByteArray content, first; // of the first version, which ends before what came later
        written >> mark >> version >> sum >> content;
        content.chop(3);
        QDataStream(&first, QIODevice::WriteOnly) << mark << quint16(1) << qChecksum(content) << content;
        QVERIFY(other.editor.restoreState(first) && other.editor.view() == part);
        QVERIFY(other.editor.restoreState(state) && other.editor.saveState() == state);
        QCOMPARE(other.editor.view(), part);
        QCOMPARE(other.editor.checkListsEditing->width(), s.editor.checkListsEditing->width());
        QVERIFY(other.editor.isModeTime() && entryOf(*other.menu("Options"), "Show time")->isChecked());
        other.key(Qt::Key_S).key(Qt::Key_A, shift); // they know that they are on
        QVERIFY(!other.canvas.canvas.hands().guide.isSnapping && !other.canvas.canvas.editsAllCurves());
        QVERIFY(other.canvas.canvas.hands().alignsHandles && other.canvas.canvas.showsSpeed());
        other.editor.renameCurve("a", "x", QString(60, u'm'));
        other.editor.setEditingNode("a." + QString(60, u'm'));
        QCOMPARE(other.editor.checkListsEditing->width(), s.editor.checkListsEditing->width());

        Scene fresh;
        fresh.editor.resize(2400, 700);
        fresh.editor.renameCurve("a", "x", QString(30, u'm'));
        fresh.editor.setEditingNode("a." + QString(30, u'm'));
        const EditingList& list = *fresh.editor.checkListsEditing; // the marks do not hide the name
        const int nameWidth = list.fontMetrics().horizontalAdvance(QString(30, u'm'));
        QVERIFY(list.viewport()->width() >= nameWidth + 6 * list.iconSize().height());
        fresh.editor.resize(900, 700);
        QTRY_VERIFY(list.width() <= 300);
    }

    void hostSelectsPoints_data()
    {
        const Picks row;
        row("some", "x", {2, 0, 2}, {0, 2}, "x");
        row("of another curve", "y", {1}, {1}, "y");
        row("one that is missing", "x", {0, 3}, {1}, "x");
        row("negative", "x", {-1, 0}, {1}, "x");
        row("of a formula", "z", {0}, {}, "x");
        row("of a hidden curve", "hidden", {0}, {}, "x");
        row("of a curve off the canvas", "off", {0}, {}, "x");
    }
    void hostSelectsPoints()
    {
        const auto [curve, indices, selected, current] = Picks::present();
        for (const bool all : {false, true}) {
            Scene s;
            s.add("a.off"), s.open("a.hidden"), s.turnTo("a.x");
            s.hide("hidden");
            const QList<CurveName> open = {{"a", "z"}, {"a", "y"}, {"a", "x"}, {"a", "hidden"}};
            QCOMPARE(s.editor.openCurves(), open);
            s.clickPoint().canvas.canvas.setEditsAllCurves(all);
            s.forgetChanges(), s.commits.clear();
            s.editor.selectPoints("a", curve, indices);
            QCOMPARE(s.editor.selectedPoints("a", curve), selected);
            QCOMPARE(s.editor.currentCurve(), CurveName("a", all ? "x" : current));
            const auto [group, shown] = s.editor.currentCurve();
            QCOMPARE(s.editor.posX->isEnabled(), s.editor.selectedPoints(group, shown).size() == 1);
            QVERIFY(s.changes.isEmpty() && s.commits.isEmpty());
        }
    }

    void underlayIsPaintedWhenItMust_data()
    {
        const Frames row;
        row("band", 0, [](Scene& s) { s.press(2.0, 1.5).move(4.0, 0.5); });
        row("selection", 0, [](Scene& s) { s.selectTwo(); });
        row("time line", 0, [](Scene& s) { s.timeLineAt(3.0); });
        row("curves", 0, [](Scene& s) { s.updateCurves(); });
        row("asked", 1, [](Scene& s) { s.editor.updateUnderlay(); });
        row("view", 1, [](Scene& s) { s.editor.setView(part); });
        row("size", 1, [](Scene& s) { s.editor.resize(1000, 800); });
        row("theme", 1, [](Scene& s) { s.editor.setTheme(CurveEditorTheme::dark()); });
        row("picture", 1, [](Scene& s) { s.editor.clearImage(); });
        row("gone", 0, [](Scene& s) { s.editor.setUnderlay({}), s.editor.setView(part); });
        row("nothing to see", 0, [](Scene& s) { s.editor.setTimeRange(1.0, 1.0); });
    }
    void underlayIsPaintedWhenItMust()
    {
        const auto [expected, deed] = Frames::present();
        Scene s;
        int count = 0;
        s.editor.setUnderlay([&](QPainter&, const PlaneMapping&) { ++count; });
        s.shown();
        QCOMPARE(std::exchange(count, 0), 1);
        deed(s);
        s.shown();
        QCOMPARE(count, expected);
    }

    void hostPaintsAboveAndBelow()
    {
        Scene s;
        QTemporaryDir folder;
        QImage blue(9, 9, QImage::Format_RGB32);
        blue.fill(Qt::blue);
        QVERIFY(blue.save(folder.filePath("blue.png")) &&
                s.canvas.canvas.loadImage(folder.filePath("blue.png")));
        s.editor.setMinValue(-3.0), s.editor.setMaxValue(3.0); // which the picture covers
        const QImage plain = s.shown();
        const QRectF place(2.0, -1.5, 5.0, 3.0);
        const auto fill = [&](Qt::GlobalColor color) {
            return [=](QPainter& painter, const PlaneMapping& plane) {
                painter.fillRect(QRectF(QPointF(plane.column(place.left()), plane.row(place.bottom())),
                                        QPointF(plane.column(place.right()), plane.row(place.top()))),
                                 color);
                painter.save(); // and what else a host may forget
                painter.translate(50, 50);
                painter.setClipRect(0, 0, 1, 1);
                painter.setOpacity(0.1);
            };
        };
        QImage expected = plain;
        const QRect filled =
            QRectF(s.editor.toCanvas(place.bottomLeft()), s.editor.toCanvas(place.topRight())).toRect();
        const auto recolour = [&](auto colorOf) {
            for (int x = filled.left(); x <= filled.right(); ++x)
                for (int y = filled.top(); y <= filled.bottom(); ++y)
                    expected.setPixelColor(x, y, colorOf(plain.pixelColor(x, y)));
        };
        recolour([](const QColor& old) { return old == Qt::blue ? QColor(Qt::red) : old; });
        s.editor.setUnderlay(fill(Qt::red));
        QCOMPARE(s.shown(), expected);
        QVERIFY(expected != plain);
        s.key(Qt::Key_A, ctrl); // the colour of the selection does not hide it
        QCOMPARE(s.shown().pixelColor(filled.center()), expected.pixelColor(filled.center()));
        s.key(Qt::Key_A, ctrl | shift);
        recolour([](const QColor&) { return QColor(Qt::green); });
        s.editor.setOverlay(fill(Qt::green));
        QCOMPARE(s.shown(), expected);
        s.editor.setUnderlay({}), s.editor.setOverlay({});
        QCOMPARE(s.shown(), plain);
    }

    void painterMayDoAnything_data()
    {
        const Works row;
        row("throw", [](Scene&) { throw 1; });
        row("replace and throw", [](Scene& s) {
            s.editor.setUnderlay([&s](QPainter&, const PlaneMapping&) { s.changes.append("below"); });
            s.editor.setOverlay([&s](QPainter&, const PlaneMapping&) { s.changes.append("above"); });
            throw 1;
        });
        row("view", [](Scene& s) { s.editor.setView(part); });
        row("close", [](Scene& s) { s.remove("x"), s.editor.cleanSelecteds(); });
        row("open", [](Scene& s) { s.open("a.new"); });
        row("take away", [](Scene& s) { s.editor.setUnderlay({}), s.editor.setOverlay({}); });
        row("grab", [](Scene& s) { s.editor.updateUnderlay(), s.editor.grab(); });
        row("resize", [](Scene& s) { s.canvas.resize(s.canvas.size() / 2); });
        row("delete", [](Scene& s) { s.owned->deleteLater(); });
    }
    void painterMayDoAnything()
    {
        const auto [work] = Works::present();
        for (const auto setter : {&CurveEditor::setUnderlay, &CurveEditor::setOverlay}) {
            Scene s;
            int count = 0;
            const std::vector<char> owned(100); // by the function, which may be taken away while it runs
            (s.editor.*setter)([&, work = work, owned](QPainter&, const PlaneMapping&) {
                ++count;
                work(s);
                count += int(owned.size()) - 100;
            });
            QCoreApplication::processEvents();
            if (s.owned)
                s.editor.setView({1.0, -1.0, 4.0, 2.0});
            QCoreApplication::processEvents();
            const std::string_view tag = QTest::currentDataTag();
            QVERIFY(count == 1 || !tag.ends_with("throw"));
            QVERIFY(tag != "replace and throw" ||
                    (s.changes.contains("below") && s.changes.contains("above")));
            QVERIFY(count > 0);
            QTest::qWait(0);
            if (s.owned)
                s.editor.setUnderlay({}), s.editor.setOverlay({});
            QVERIFY(!s.owned || s.showsWhatIsDrawnFromScratch());
        }
    }

private:
    /// What is done to the view `part` while no point is selected.
    static void addTellings()
    {
        const Tellings row;
        row("wheel", 1, 0, [](Scene& s) { turnWheel(s.canvas, {300, 200}, {0, 120}); });
        row("wheel where no more fits", 1, 0, [](Scene& s) {
            s.editor.setView({-1.0, -2.0, 11.0, 4.0});
            turnWheel(s.canvas, {300, 200}, {0, -120}, ctrl);
        });
        row("Space", 3, 0, [](Scene& s) { pan(s, 3); });
        row("Space, taken back", 3, 0, [](Scene& s) { pan(s, 2).key(Qt::Key_Z, ctrl); });
        row("zoom by Alt", 1, 0,
            [](Scene& s) { s.press(3.0, 1.5, alt, Qt::RightButton).move(2.5, 1.3, alt, Qt::RightButton); });
        row("key", 1, 0, [](Scene& s) { s.key(Qt::Key_Home); });
        row("host, the same", 9, 0, [](Scene& s) {
            for (int i = 0; i < 9; ++i) { // the sum of an edge and a span need not be the other edge
                turnWheel(s.canvas, {300, 200}, {0, 120});
                s.editor.setView(s.editor.view());
            }
        });
        row("state", 1, 0, [](Scene& s) { s.editor.restoreState(CurveEditor().saveState()); });
        row("size", 0, 0, [](Scene& s) { s.editor.resize(1000, 800), QTest::qWait(0); });
        row("drag", 0, 1, [](Scene& s) { s.drag(5.0, 1.0, 5.5, 0.5); });
        row("band", 0, 1, [](Scene& s) { s.drag(4.0, 1.5, 9.0, -1.5); });
        row("key for points", 0, 2, [](Scene& s) { s.key(Qt::Key_A, ctrl).key(Qt::Key_I, ctrl); });
        row("menu of a point", 0, 2, [](Scene& s) {
            QTimer::singleShot(0, qApp, [] {
                auto* const menu = qobject_cast<ControlMenu*>(openWindow());
                if (menu) // of a curve that is still there
                    menu->handleMenu(ControlMenu::DeleteKey), menu->close();
            });
            s.press(5.0, 1.0, {}, Qt::RightButton);
        });
        row("next", 0, 2, [](Scene& s) { s.clickPoint().editor.nextNode->click(); });
        row("table", 0, 1, [](Scene& s) {
            s.page(2).editor.findChild<QTableView*>("pointTable")->selectRow(2);
            QCoreApplication::processEvents();
        });
        row("redo", 0, 3, [](Scene& s) {
            s.drag(5.0, 1.0, 5.5, 0.5).undo().editor.selectPoints("a", "x", {});
            connect(&s.editor, &CurveEditor::pointSelectionChanged,
                    [&s] { QCOMPARE(s.lastCause, CurveChange::Cause::Redo); });
            s.redo();
        });
        row("host selects the same", 0, 2, [](Scene& s) {
            s.selectTwo().editor.selectPoints("a", "x", {2, 1});
        });
        row("lost", 0, 2, [](Scene& s) {
            s.clickPoint().x.remove(s.x[1]);
            s.updateCurves();
        });
        row("closed", 0, 2, [](Scene& s) { s.clickPoint().editor.removeCurve("a", "x"); });
    }
};

QTEST_MAIN(tst_HostView)
#include "tst_HostView.moc"
