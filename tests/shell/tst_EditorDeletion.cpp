// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/shell/ScaleDialog.h>

#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMainWindow>
#include <QTabWidget>
#include <QTemporaryDir>

#include <utility>

namespace {

using Deed = std::function<void(Scene&)>;

/// What a user does, and the classes of the windows that open one after the other by it. In all but the last the
/// user goes on, by what `next` says.
struct Way
{
    QList<QByteArray> windows;
    Deed begin;
    std::function<void(QWidget&)> next;
};

QWidget* openWindow()
{
    QWidget* const popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}

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
        for (QAction* const entry : menu.actions()) {
            if (entry->text() == text) {
                click(&menu, menu.actionGeometry(entry).center());
                return;
            }
        }
        qFatal("no such entry");
    };
}

void menuKey(QWidget& widget, QContextMenuEvent::Reason reason = QContextMenuEvent::Keyboard)
{
    QContextMenuEvent event(reason, widget.rect().center(), widget.mapToGlobal(widget.rect().center()));
    QApplication::sendEvent(&widget, &event);
}

Deed onTwo(const Deed& deed)
{
    return [deed](Scene& s) {
        s.selectTwo(), deed(s);
    };
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
    s.canvas.setFocus();
    QTest::qWait(0);
    return window;
}

void listMenu(Scene& s)
{
    const QPoint place = s.list.visualItemRect(s.list.topLevelItem(0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, s.list.viewport()->mapToGlobal(place));
    QApplication::sendEvent(s.list.viewport(), &event);
}

} // namespace

Q_DECLARE_METATYPE(Way)
Q_DECLARE_METATYPE(Deed)

class tst_EditorDeletion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QDir::setCurrent(folder.path()); }

    void editorGoesWhileAWindowOfItIsOpen_data() { addWays(); }
    void editorGoesWhileAWindowOfItIsOpen()
    {
        QFETCH(const Way, way);
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
        QFETCH(const Way, way);
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
            QVERIFY(s.owned && !openWindow());
            QVERIFY(s.current() == "None" && s.entries() == 0);
        }
    }

    void deletionWaitsForASlotThatRunsALoop_data()
    {
        QTest::addColumn<Deed>("deed");
        const auto row = [](const char* name, const Deed& deed) {
            QTest::newRow(name) << deed;
        };
        row("drag", [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0); });
        row("drag taken back", [](Scene& s) { s.press(5.0, 1.0), s.move(6.0, 2.0), s.key(Qt::Key_Escape); });
        row("Delete", [](Scene& s) { s.selectTwo(), s.key(Qt::Key_Delete); });
        row("undo and redo", [](Scene& s) {
            s.drag(5.0, 1.0, 6.0, 2.0);
            s.key(Qt::Key_Z, Qt::ControlModifier), s.key(Qt::Key_Y, Qt::ControlModifier);
        });
        row("another curve",
            [](Scene& s) { s.drag(5.0, 1.0, 6.0, 2.0), click(&s.canvas, s.pixel(0.0, -2.0)); });
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
        row("number", [](Scene& s) { s.clickPoint(), s.type(s.editor.posY, "2\r"); });
        row("type", [](Scene& s) { s.clickPoint(), QTest::keyClick(s.editor.nodeTypeCombo, Qt::Key_Down); });
        row("behaviour", [](Scene& s) { QTest::keyClick(s.editor.nodeLast, Qt::Key_Down); });
        row("reset", [](Scene& s) { s.editor.resetAllCheckedF(); });
        row("row taken away", [](Scene& s) { QTest::keyClick(&s.list, Qt::Key_Delete); });
        row("curve removed", [](Scene& s) {
            s.drag(5.0, 1.0, 6.0, 2.0), s.press(6.0, 2.0), s.move(7.0, 2.0);
            s.editor.removeNode("a");
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
        QFETCH(const Deed, deed);
        for (int last = 1, calls = 1; calls == last;
             ++last) { // the deletion comes in the last of these calls
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
            connect(&s.editor, &CurveEditor::curveHasChanged, this, hear);
            connect(&s.editor, &CurveEditor::curveEdited, this, hear);
            connect(&s.editor, &CurveEditor::curveClosed, this, hear);
            connect(&s.editor, &CurveEditor::currentCurveChanged, this, hear);
            connect(&s.editor, &CurveEditor::timeLineDragged, this, hear);
            connect(&s.editor, &CurveEditor::closed, this, hear);
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
            connect(first ? two.owned : one.owned, &CurveEditor::curveEdited, this,
                    [&going] { delete going; });
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
        QTest::addColumn<Way>("way");
        const auto row = [](const char* name, const QList<QByteArray>& windows, const Deed& begin,
                            const std::function<void(QWidget&)>& next = {}) {
            QTest::newRow(name) << Way{windows, begin, next};
        };
        for (const char* const button : {"File", "Curves", "Options", "Edit", "Unary functions", "D vars"})
            row(button, {"QMenu"}, press(button));
        row("menu in a menu", {"QMenu", "QMenu"}, press("Edit"), choose("Move points"));
        row("menu over points", {"ControlMenu"},
            onTwo([](Scene& s) { QTest::mousePress(&s.canvas, Qt::RightButton, {}, s.pixel(6.0, 2.0)); }));
        row("menu over points by key", {"ControlMenu"}, [](Scene& s) { menuKey(s.canvas); });
        row("menu over the list", {"ControlMenu2"}, listMenu);
        row("menu of a number", {"QMenu"}, [](Scene& s) { s.clickPoint(), menuKey(*s.editor.posX); });
        row("menu of the formula", {"QMenu"}, [](Scene& s) {
            s.editor.tabWidget2->setCurrentIndex(1);
            menuKey(*s.editor.commandLine);
        });
        row("list of types", {"QComboBoxPrivateContainer"},
            [](Scene& s) { s.clickPoint(), QTest::mousePress(s.editor.nodeTypeCombo, Qt::LeftButton); });

        row("faulty formula", {"QMessageBox"}, [](Scene& s) { s.enter("2*"); });
        row("cycle", {"QMessageBox"}, [](Scene& s) { s.enter("a.z"); });
        row("faulty formula by a menu", {"QMenu", "QMessageBox"}, press("Binary functions"), choose("+"));
        row("paste of no table", {"QMessageBox"}, [](Scene& s) {
            QApplication::clipboard()->setText("1 2\nword 3");
            s.key(Qt::Key_V, Qt::ControlModifier);
        });
        row(
            "paste of no table by a menu", {"QMenu", "QMessageBox"},
            [](Scene& s) {
                QApplication::clipboard()->setText("1 2\nword 3");
                click(s.button("Edit"));
            },
            choose("Paste points at the time line"));
        row(
            "paste in two ways by a menu", {"QMenu", "QMessageBox"},
            [](Scene& s) {
                QApplication::clipboard()->setText("7\t0\n9\t1,234\n");
                click(s.button("Edit"));
            },
            choose("Paste points at the time line"));
        row("lost formula", {"QMessageBox"}, [](Scene& s) {
            s.canvas.canvas.setCurrentCurve("a.z");
            for (int i = 0; i < 20; ++i) // more than the editor keeps as they were
                s.enter(i % 2 == 0 ? "t" : "2*t");
            s.variables.remove("a.x");
            for (int i = 0; i < 20; ++i)
                s.editor.undo();
        });
        row("file that is no curve", {"QMenu", "QFileDialog", "QMessageBox"}, press("File"),
            [this](QWidget& open) {
                open.inherits("QMenu") ? choose("Load curve")(open) : type(open, write("no.crv"));
            });
        row("file to load", {"QMenu", "QFileDialog"}, press("File"), choose("Load curve"));
        row("file to save", {"QFileDialog"},
            [](Scene& s) { QTest::keySequence(&s.editor, QKeySequence("Ctrl+S")); });
        row(
            "file to replace", {"QFileDialog", "QMessageBox"}, [](Scene& s) { s.editor.saveFile(); },
            [this](QWidget& open) { write("take.crv"), type(open, folder.filePath("Take")); });
        row(
            "file that can't be saved", {"QFileDialog", "QMessageBox"}, [](Scene& s) { s.editor.saveFile(); },
            [this](QWidget& open) { type(open, folder.filePath("none/here.crv")); });
        row("picture", {"QFileDialog"}, [](Scene& s) { s.editor.loadImage(); });
        row("colour by the list", {"ControlMenu2", "QColorDialog"}, listMenu, choose("Change color"));
        row("colour by a list of the host", {"QColorDialog"}, [](Scene& s) {
            QTreeWidgetItem group;
            s.editor.rightButtonPressedItem(new QTreeWidgetItem(&group), {}, 0);
        });
        row("Scale", {"ScaleDialog"}, onTwo(press("Scale")));
        row("Scale by a menu", {"QMenu", "ScaleDialog"}, onTwo(press("Options")), choose("Scale selection"));
        row("Pan", {"PanDialog"}, onTwo(press("Pan")));
        row("Set Range", {"ViewportSettings"},
            [](Scene& s) { QTest::keySequence(&s.editor, QKeySequence("Alt+S")); });
        row("Simplify", {"SimplifyDialog"}, [](Scene& s) { s.key(Qt::Key_S, Qt::ShiftModifier); });
        row("Bake", {"BakeDialog"}, [](Scene& s) { s.key(Qt::Key_B, Qt::ShiftModifier); });
    }
    static void type(QWidget& dialog, const QString& path)
    {
        auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    }
    QString write(const QString& name) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write("old") != 3)
            qFatal("no room for test files");
        return file.fileName();
    }

    QTemporaryDir folder;
};

QTEST_MAIN(tst_EditorDeletion)
#include "tst_EditorDeletion.moc"
