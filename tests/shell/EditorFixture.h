// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <map>

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
    explicit EditorFixture(const QStringList& openCurves = {})
    {
        QObject::connect(&editor, &CurveEditor::curveHasChanged, [this](QString& group, QString& curve) {
            changes.append(group + QLatin1Char('/') + curve);
        });
        editor.resize(1000, 700);
        for (const QString& name : openCurves)
            open(name);
        editor.show();
        editor.activateWindow();
        if (!QTest::qWaitForWindowActive(&editor))
            qFatal("the editor does not show");
        canvas.setFocus();
    }

    void add(const QString& fullName)
    {
        const qsizetype dot = fullName.lastIndexOf(QLatin1Char('.'));
        HostCurve& curve = curves[fullName];
        editor.addCurve(fullName.left(dot), fullName.mid(dot + 1), Qt::green, 0.5F, &curve.spline,
                        &curve.expression, -100.0F, 100.0F);
    }

    void open(const QString& fullName)
    {
        add(fullName);
        editor.setEditingNode(fullName);
    }

    void setExpression(const QString& fullName, const std::string& text)
    {
        ParseMessage message;
        FunctionFloatBase*& holder = curves[fullName].expression;
        delete holder;
        holder = FunctionParserBase::instance()->parseString(text, message);
    }

    QPoint pixel(double time, double value) const
    {
        return {canvas.timeToPixel(time), canvas.valueToPixel(value)};
    }
    void click(double time, double value)
    {
        QTest::mouseClick(&canvas, Qt::LeftButton, {}, pixel(time, value));
    }

    void move(double time, double value, Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = {})
    {
        const QPointF at = pixel(time, value);
        QMouseEvent event(QEvent::MouseMove, at, canvas.mapToGlobal(at), Qt::NoButton, buttons, modifiers);
        QApplication::sendEvent(&canvas, &event);
    }
    void drag(double fromTime, double fromValue, double toTime, double toValue)
    {
        QTest::mousePress(&canvas, Qt::LeftButton, {}, pixel(fromTime, fromValue));
        move(toTime, toValue, Qt::LeftButton);
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, pixel(toTime, toValue));
    }

    QString current() const { return canvas.canvas.getCurrentCurveName(); }
    QString selectedRow() const
    {
        const QTreeWidgetItem* const row = list.selectedItem();
        return row ? row->text(0) : QString();
    }
    QAction* action(const char* name) const { return editor.findChild<QAction*>(QLatin1String(name)); }
    QMenu* menu(const QString& button) const { return editor.findChild<QToolButton*>(button)->menu(); }
    const SplineBase::PointInfo* selectedPoint() const
    {
        return canvas.canvas.currentSpline()->control.getCurrent();
    }

    std::map<QString, HostCurve> curves;
    QStringList changes;
    CurveEditor editor;
    FunctionEditor& canvas = *editor.findChild<FunctionEditor*>(QStringLiteral("functionEdit"));
    EditingList& list = *editor.checkListsEditing;
};

/// Runs `work` on the dialog or menu of that class that opens its own loop next; if another one opens, or none, the
/// test fails.
template <typename Widget, typename Work> void whenOpen(Work work)
{
    QTimer::singleShot(0, qApp, [work] {
        QWidget* const popup = QApplication::activePopupWidget();
        QWidget* const open = popup ? popup : QApplication::activeModalWidget();
        auto* const expected = qobject_cast<Widget*>(open);
        if (expected)
            return work(*expected);
        if (open)
            open->close();
        QFAIL("the widget that was expected is not open");
    });
}

/// Closes the message box that opens next, and puts its text into `text`.
inline void closeBox(QString& text)
{
    whenOpen<QMessageBox>([&text](QMessageBox& box) {
        text = box.text();
        box.accept();
    });
}
