// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/PanDialog.h>
#include <curveeditor/shell/ScaleDialog.h>
#include <curveeditor/shell/ViewportSettings.h>

#include <support/Drop.h>
#include <support/Files.h>
#include <support/Formulas.h>
#include <support/Test.h>

/// A curve of a host: a spline of the points (0, 0) and (5, 1), and an empty expression variable.
struct HostCurve
{
    HostCurve() { spline.addPoint(5.0, 1.0); }
    ~HostCurve() { delete expression; }

    SplineBase spline;
    FunctionFloatBase* expression = nullptr;
};

/// A visible editor and its host, which writes down every change it hears of.
struct EditorFixture
{
    explicit EditorFixture(const QStringList& openCurves)
    {
        QObject::connect(&editor, &CurveEditor::curveHasChanged, [this](QString& group, QString& curve) {
            changes.append(group + QLatin1Char('/') + curve);
        });
        for (const QString& name : openCurves)
            open(name);
        editor.show();
        editor.activateWindow();
        canvas.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&editor));
    }
    ~EditorFixture() { delete owned; }

    void add(const QString& name)
    {
        HostCurve& curve = curves[name];
        const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
        editor.addCurve(name.left(dot), name.mid(dot + 1), Qt::green, 0.5F, &curve.spline, &curve.expression,
                        -100.0F, 100.0F);
    }
    void open(const QString& name)
    {
        add(name);
        editor.setEditingNode(name);
    }
    /// Presses and releases the left button on the second point of the current curve.
    void clickPoint() { QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixel(5.0, 1.0)); }
    void key(Qt::Key key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(&canvas, key, keys); }
    void enter(const QString& formula)
    {
        editor.commandLine->setText(formula);
        QTest::keyClick(editor.commandLine, Qt::Key_Return);
    }
    /// What the user sees of the canvas, without a paint that nobody asked for.
    QImage shown() const
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents(); // the focus that came back from a dialog
        const auto& window = static_cast<const QImage&>(*editor.backingStore()->paintDevice());
        return window.copy(QRect(canvas.mapTo(&editor, QPoint()), canvas.size()));
    }
    bool showsWhatIsDrawnFromScratch() const
    {
        const QImage present = shown();
        editor.updateCurves();
        return present == shown();
    }
    /// Moves report no button of their own, only the one that is held.
    static void sendMouse(QWidget& receiver, QEvent::Type type, const QPoint& at,
                          Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {})
    {
        QMouseEvent event(type, at, receiver.mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, keys);
        QApplication::sendEvent(&receiver, &event);
    }
    /// Whether the widget wants the key though a shortcut of the host may be waiting for it.
    static bool takes(QWidget& receiver, Qt::Key key, Qt::KeyboardModifiers keys = {})
    {
        QKeyEvent event(QEvent::ShortcutOverride, key, keys);
        event.ignore();
        QApplication::sendEvent(&receiver, &event);
        return event.isAccepted();
    }
    QPoint pixel(double t, double v) const { return {canvas.timeToPixel(t), canvas.valueToPixel(v)}; }
    /// The least and the greatest time in sight, and the least and the greatest value.
    QList<double> sides() const { return {canvas.timeMin, canvas.timeMax, canvas.valueMin, canvas.valueMax}; }
    QString current() const { return canvas.canvas.getCurrentCurveName(); }
    QToolButton* button(const QString& name) const { return editor.findChild<QToolButton*>(name); }
    static QStringList texts(const QMenu* menu)
    {
        QStringList all;
        for (const QAction* const entry : menu->actions())
            all.append(entry->text());
        return all;
    }
    QMenu* menu(const QString& name) const { return button(name)->menu(); }
    QMenu* submenu(const QString& name, int index) const { return menu(name)->actions()[index]->menu(); }

    std::map<QString, HostCurve> curves;
    QStringList changes;
    QPointer<CurveEditor> owned = new CurveEditor; // it may go before its host
    CurveEditor& editor = *owned;
    FunctionEditor& canvas = *editor.findChild<FunctionEditor*>(QStringLiteral("functionEdit"));
    EditingList& list = *editor.checkListsEditing;
};

/// The menu or the dialog in front of all others.
inline QWidget* openWindow()
{
    QWidget* const popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}

/// Runs `work` on the dialog or menu of that class that opens its own loop next; if another one opens, or
/// none, the test program ends.
template <typename Widget, typename Work> void whenOpen(Work work)
{
    QTimer::singleShot(0, qApp, [work] {
        auto* const expected = qobject_cast<Widget*>(openWindow());
        if (!expected)
            qFatal("the widget that was expected is not open");
        work(*expected);
    });
}

/// Chooses the entry of the menu in front as a user does, or leaves the menu without one.
inline void chooseFrom(QToolButton* button, const std::function<QAction*(QMenu&)>& entry)
{
    whenOpen<QMenu>([entry](QMenu& menu) {
        QAction* const chosen = entry(menu);
        menu.setActiveAction(chosen);
        QTest::keyClick(&menu, chosen ? Qt::Key_Return : Qt::Key_Escape);
    });
    QTest::mouseClick(button, Qt::LeftButton);
}

/// The entry whose text begins so, also of a menu in the menu.
inline QAction* entryOf(const QMenu& menu, const QString& text)
{
    for (QAction* const entry : menu.actions()) {
        if (entry->text().startsWith(text))
            return entry;
        if (QAction* const inner = entry->menu() ? entryOf(*entry->menu(), text) : nullptr)
            return inner;
    }
    return nullptr;
}

inline void openContextMenu(QWidget& widget, const QPoint& at,
                            QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse)
{
    QContextMenuEvent event(reason, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &event);
}

inline void turnWheel(QWidget& widget, const QPoint& at, const QPoint& delta, Qt::KeyboardModifiers keys = {})
{
    QWheelEvent event(at, widget.mapToGlobal(at), {}, delta, Qt::NoButton, keys, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

/// Types a path into a file dialog, and Return.
inline void typePath(QWidget& dialog, const QString& path)
{
    auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    name->setText(path);
    QTest::keyClick(name, Qt::Key_Return);
}

/// Whether Qt has put it there, and names and translates it: a button of a box, of tabs or of a line.
inline bool isQts(const QWidget& widget)
{
    const QObject* const parent = widget.parent();
    return qobject_cast<const QDialogButtonBox*>(parent) || qobject_cast<const QTabBar*>(parent) ||
           qobject_cast<const QLineEdit*>(parent) || widget.objectName().startsWith("qt_");
}

/// Closes the warning that is open and returns its text; empty if none is open.
inline QString closeBox()
{
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box)
        return QString();
    box->accept();
    return box->text();
}
