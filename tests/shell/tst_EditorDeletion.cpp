// SPDX-License-Identifier: MIT
#include "EditorScene.h"

/// What a user does, and the classes of the windows that open one after the other by it. In all but the last the
/// user goes on, by what `next` says.
struct Way
{
    QList<QByteArray> windows;
    Deed begin;
    std::function<void(QWidget&)> next;
};

/// Goes the way, and calls `arrived` from a timer while the last window is open.
void go(Scene& scene, const Way& way, const std::function<void(QWidget&)>& arrived)
{
    QTimer walker;
    QElapsedTimer sinceStart;
    sinceStart.start();
    qsizetype seen = 0;
    QObject::connect(&walker, &QTimer::timeout, &walker, [&] {
        QWidget* const open = openWindow();
        if (sinceStart.elapsed() > 60000)
            qFatal("the window that was expected did not open");
        if (seen == way.windows.size() || !open || !open->inherits(way.windows[seen]))
            return;
        if (++seen < way.windows.size())
            way.next(*open);
        else
            arrived(*open);
    });
    walker.start(0);
    way.begin(scene);
    while (seen < way.windows.size())
        QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

/// The widget may go at the press.
void click(QWidget* widget, const QPoint& place = {})
{
    const QPointer<QWidget> guard(widget);
    QTest::mousePress(widget, Qt::LeftButton, {}, place);
    if (guard)
        QTest::mouseRelease(widget, Qt::LeftButton, {}, place);
}

Deed press(const QString& button)
{
    return [button](Scene& s) {
        click(s.button(button));
    };
}

std::function<void(QWidget&)> choose(const QString& text)
{
    return [text](QWidget& window) {
        auto& menu = dynamic_cast<QMenu&>(window);
        click(&menu, menu.actionGeometry(entryOf(menu, text)).center());
    };
}

void menuKey(QWidget& widget)
{
    openContextMenu(widget, widget.rect().center(), QContextMenuEvent::Keyboard);
}

QMainWindow* dock(Scene& s)
{
    auto* const window = new QMainWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setCentralWidget(&s.editor);
    s.editor.setWindowFlags(Qt::Widget);
    window->resize(900, 700);
    window->show();
    window->activateWindow();
    s.focusCanvas();
    QTest::qWait(0);
    return window;
}

void listMenu(Scene& s)
{
    openContextMenu(*s.list.viewport(), s.list.visualItemRect(s.list.topLevelItem(0)).center());
}

/// Where a menu is left open over what can't be pasted.
Deed pressEditWith(const QString& clip)
{
    return [clip](Scene& s) {
        QGuiApplication::clipboard()->setText(clip);
        click(s.button("Edit"));
    };
}

class tst_EditorDeletion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QDir::setCurrent(folder.path()); }

    void editorGoesWhileAWindowOfItIsOpen_data() { addWays(); }
    void editorGoesWhileAWindowOfItIsOpen()
    {
        const auto [way] = Rows<Way>::present();
        enum How { Deleted, DeletedLater, ClosedWithItsWindow };
        for (const How how : {Deleted, DeletedLater, ClosedWithItsWindow}) {
            Scene s;
            QPointer<QMainWindow> window;
            if (how == ClosedWithItsWindow)
                window = dock(s);
            go(s, way, [&](QWidget&) {
                if (window)
                    window->close();
                else
                    how == DeletedLater ? s.owned->deleteLater() : delete s.owned;
            });
            QTRY_VERIFY(!s.owned);
            QVERIFY(!openWindow());
        }
    }

    void curvesGoWhileAWindowIsOpen_data() { addWays(); }
    void curvesGoWhileAWindowIsOpen()
    {
        const auto [way] = Rows<Way>::present();
        for (const bool closes : {false, true}) {
            Scene s;
            go(s, way, [&](QWidget& open) {
                const QPointer<QWidget> guard(&open);
                s.editor.removeNode("a");
                if (closes)
                    s.editor.close();
                if (auto* const dialog = qobject_cast<QDialog*>(guard))
                    dialog->accept();
                if (guard)
                    guard->close();
            });
            closeBox(); // a file of a curve that is gone can't be saved
            QVERIFY(s.owned && !openWindow() && s.current() == "None" && s.entries() == 0);
        }
    }

    void titlesAndLabelsAreNotCutOff_data() { addWays(); }
    void titlesAndLabelsAreNotCutOff()
    {
        const auto [way] = Rows<Way>::present();
        const QFont usual = QApplication::font();
        QApplication::setFont(QFont("Arial", 20));
        QApplication::setFont(QFont("Arial", 40), "QTitleBar");
        Scene s;
        QStringList cut;
        go(s, way, [&cut](QWidget& open) {
            auto* const dialog = qobject_cast<QDialog*>(&open);
            if (!dialog)
                return void(open.close());
            QFont font = QApplication::font("QTitleBar");
            font.setBold(true);
            if (dialog->width() < QFontMetrics(font).horizontalAdvance(dialog->windowTitle()) + 80)
                cut.append(dialog->windowTitle());
            for (const QLabel* const label : dialog->findChildren<QLabel*>()) {
                (font = label->font()).setKerning(false); // as texts with a mnemonic are drawn
                if (label->buddy() && label->isVisible() &&
                    QFontMetrics(font).size(Qt::TextShowMnemonic, label->text()).width() > label->width())
                    cut.append(label->text());
            }
            dialog->reject();
        });
        QApplication::setFont(usual);
        QCOMPARE(cut, QStringList());
    }

    void deletionWaitsForASlotThatRunsALoop_data()
    {
        const Rows<Deed> row;
        row("drag", [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0); });
        row("drag taken back", [](Scene& s) { s.press(5.0, 1.0).move(6.0, 2.0).key(Qt::Key_Escape); });
        row("Delete", [](Scene& s) { s.selectTwo().key(Qt::Key_Delete); });
        row("undo and redo",
            [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0).key(Qt::Key_Z, ctrl).key(Qt::Key_Y, ctrl); });
        row("next curve", [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0), click(&s.canvas, s.pixel(0.0, -2.0)); });
        row("formula", [](Scene& s) { s.enter("2 T"); });
        row("function", [](Scene& s) {
            s.editor.commandLine->setText("t");
            s.menu("Unary functions")->actions()[0]->trigger();
        });
        row("Scale", [](Scene& s) {
            s.selectTwo();
            QTimer::singleShot(0, qApp, [] {
                if (auto* const dialog = qobject_cast<ScaleDialog*>(openWindow()))
                    dialog->scaleY->setText("2"), dialog->accept();
            });
            s.editor.setScaleSelection();
        });
        row("menu", [](Scene& s) {
            s.clickPoint();
            QTimer::singleShot(0, qApp, [] {
                if (auto* const menu = qobject_cast<ControlMenu*>(openWindow()))
                    menu->handleMenu(ControlMenu::DeleteKey), menu->close();
            });
            s.mouse(QEvent::MouseButtonPress, s.pixel(6.0, 2.0), Qt::RightButton);
        });
        row("number", [](Scene& s) { s.clickPoint().type(s.editor.posY, "2\r"); });
        row("type", [](Scene& s) { s.clickPoint(), QTest::keyClick(s.editor.nodeTypeCombo, Qt::Key_Down); });
        row("behaviour", [](Scene& s) { QTest::keyClick(s.editor.nodeLast, Qt::Key_Down); });
        row("reset", [](Scene& s) { s.editor.resetAllCheckedF(); });
        row("row taken away", [](Scene& s) { QTest::keyClick(&s.list, Qt::Key_Delete); });
        row("curve removed", [](Scene& s) {
            s.drag(5.0, 1.0, 6.0, 2.0).press(6.0, 2.0).move(7.0, 2.0).editor.removeNode("a");
        });
        row("time line", [](Scene& s) { s.editor.setTimeLineDraggable(true), s.key(Qt::Key_Period); });
        row("close", [](Scene& s) { s.editor.close(); });
        row("Bake", [](Scene& s) {
            s.key(Qt::Key_B, Qt::ShiftModifier);
            dynamic_cast<QDialog&>(*openWindow()).accept();
        });
    }
    void deletionWaitsForASlotThatRunsALoop()
    {
        const auto [deed] = Rows<Deed>::present();
        for (int last = 1, calls = 1; calls == last; ++last) { // the deletion comes in the last of these
            Scene s;
            calls = 0;
            const auto hear = [&] {
                if (++calls != last)
                    return;
                QEventLoop loop;
                QTimer::singleShot(0, &loop, [&] {
                    s.owned->deleteLater();
                    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                });
                QTimer::singleShot(1, &loop, &QEventLoop::quit);
                loop.exec();
            };
            const auto listen = [&](auto... news) {
                (connect(&s.editor, news, this, hear), ...);
            };
            listen(&CurveEditor::curveHasChanged, &CurveEditor::curveEdited, &CurveEditor::curveClosed);
            listen(&CurveEditor::currentCurveChanged, &CurveEditor::timeLineDragged, &CurveEditor::closed);
            connect(s.editor.undoStack(), &QUndoStack::indexChanged, this, hear);
            deed(s);
            const bool isDeleted = calls >= last;
            calls = std::min(calls, last);
            QVERIFY(isDeleted || last > 1);
            if (isDeleted)
                QTRY_VERIFY(!s.owned);
        }
    }

    void oneOfTwoEditorsGoesInAStepOfTheOther()
    {
        for (const bool first : {true, false}) {
            QUndoStack stack;
            EditorFixture one({"cam.lens"}), two({"cam.zoom"});
            for (EditorFixture* const fixture : {&one, &two}) {
                fixture->editor.setUndoStack(&stack);
                fixture->clickPoint();
                fixture->key(Qt::Key_Delete);
            }
            QPointer<CurveEditor>& going = first ? one.owned : two.owned;
            connect(first ? two.owned : one.owned, &CurveEditor::curveEdited, [&going] { delete going; });
            stack.undo();
            stack.undo();
            QVERIFY(!going);
            stack.redo();
            stack.undo();
            QCOMPARE((first ? two : one).curves.begin()->second.spline.getControlPointsNumber(), 2u);
            QCOMPARE(stack.count(), 1);
        }
    }

private:
    void addWays()
    {
        const Rows<Way> rows;
        const auto row = [&rows](const char* name, const QList<QByteArray>& windows, const Deed& begin,
                                 const std::function<void(QWidget&)>& next = {}) {
            rows(name, Way{windows, begin, next});
        };
        for (const char* const button : {"File", "Curves", "Options", "Edit", "Unary functions", "D vars"})
            row(button, {"QMenu"}, press(button));
        row("menu in a menu", {"QMenu", "QMenu"}, press("Edit"), choose("Move points"));
        row("menu over points", {"ControlMenu"}, [](Scene& s) {
            QTest::mousePress(&s.selectTwo().canvas, Qt::RightButton, {}, s.pixel(6.0, 2.0));
        });
        row("menu over points by key", {"ControlMenu"}, [](Scene& s) { menuKey(s.canvas); });
        row("menu over the list", {"ControlMenu2"}, listMenu);
        row("menu of a number", {"QMenu"}, [](Scene& s) { s.clickPoint(), menuKey(*s.editor.posX); });
        row("menu of the formula", {"QMenu"}, [](Scene& s) {
            s.page(1);
            menuKey(*s.editor.commandLine);
        });
        row("list of types", {"QComboBoxPrivateContainer"},
            [](Scene& s) { s.clickPoint(), QTest::mousePress(s.editor.nodeTypeCombo, Qt::LeftButton); });

        row("faulty formula", {"QMessageBox"}, [](Scene& s) { s.enter("2*"); });
        row("cycle", {"QMessageBox"}, [](Scene& s) { s.enter("a.z"); });
        row("faulty formula by a menu", {"QMenu", "QMessageBox"}, press("Binary functions"), choose("+"));
        row("paste of no table", {"QMessageBox"}, [](Scene& s) { s.paste("1 2\nword 3"); });
        row("paste of no table by a menu", {"QMenu", "QMessageBox"}, pressEditWith("1 2\nword 3"),
            choose("Paste points at the time line"));
        row("paste in two ways by a menu", {"QMenu", "QMessageBox"}, pressEditWith("7\t0\n9\t1,234\n"),
            choose("Paste points at the time line"));
        row("lost formula", {"QMessageBox"}, [](Scene& s) {
            for (int i = 0; i < 20; ++i) // more than the editor keeps as they were
                s.turnTo("a.z").enter(i % 2 == 0 ? "t" : "2*t");
            s.variables.remove("a.x");
            for (int i = 0; i < 20; ++i)
                s.undo();
        });
        row("file that is no curve", {"QMenu", "QFileDialog", "QMessageBox"}, press("File"),
            [this](QWidget& open) {
                open.inherits("QMenu") ? choose("Load curve")(open)
                                       : typePath(open, written(folder.filePath("no.crv"), "old"));
            });
        row("file to load", {"QMenu", "QFileDialog"}, press("File"), choose("Load curve"));
        row("file to load by its keys", {"QFileDialog"}, [](Scene& s) { s.key(Qt::Key_L, ctrl); });
        row("file to save", {"QFileDialog"}, [](Scene& s) { s.key(Qt::Key_S, ctrl); });
        row(
            "file to replace", {"QFileDialog", "QMessageBox"}, [](Scene& s) { s.editor.saveFile(); },
            [this](QWidget& open) {
                written(folder.filePath("take.crv"), "old"), typePath(open, folder.filePath("Take"));
            });
        row(
            "file that can't be saved", {"QFileDialog", "QMessageBox"}, [](Scene& s) { s.editor.saveFile(); },
            [this](QWidget& open) { typePath(open, folder.filePath("none/here.crv")); });
        row("picture", {"QFileDialog"}, [](Scene& s) { s.key(Qt::Key_I, alt); });
        row("colour by the list", {"ControlMenu2", "QColorDialog"}, listMenu, choose("Change color"));
        row("colour by a list of the host", {"QColorDialog"}, [](Scene& s) {
            QTreeWidgetItem group;
            s.editor.rightButtonPressedItem(new QTreeWidgetItem(&group), {}, 0);
        });
        row("Scale", {"ScaleDialog"}, [](Scene& s) { click(s.selectTwo().button("Scale")); });
        row(
            "Scale by a menu", {"QMenu", "ScaleDialog"},
            [](Scene& s) { click(s.selectTwo().button("Options")); }, choose("Scale selection"));
        row("Pan", {"PanDialog"}, [](Scene& s) { click(s.selectTwo().button("Pan")); });
        row("Set Range", {"ViewportSettings"}, [](Scene& s) { s.key(Qt::Key_S, alt); });
        row("Simplify", {"curveeditor::SimplifyDialog"}, [](Scene& s) { s.key(Qt::Key_S, shift); });
        row("Bake", {"curveeditor::BakeDialog"}, [](Scene& s) { s.key(Qt::Key_B, shift); });
        row("Retime", {"curveeditor::RetimeDialog"}, [](Scene& s) { s.selectTwo().key(Qt::Key_R, shift); });
        row("Ease", {"curveeditor::EaseDialog"}, [](Scene& s) { s.selectTwo().key(Qt::Key_E, shift); });
    }
    QTemporaryDir folder;
};

QTEST_MAIN(tst_EditorDeletion)
#include "tst_EditorDeletion.moc"
