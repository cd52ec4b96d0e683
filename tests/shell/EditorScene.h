// SPDX-License-Identifier: MIT
#pragma once

#include "EditorFixture.h"

#include <curveeditor/canvas/ControlMenu.h>

inline constexpr auto ctrl = Qt::ControlModifier, shift = Qt::ShiftModifier, alt = Qt::AltModifier;

/// An editor with three curves: the spline "a.x", which is current, with points at (0, 0), (5, 1) and (8, -1), the
/// spline "a.y", and "a.z", a formula that reads "a.x". The operations are what a user does.
struct Scene : EditorFixture
{
    Scene() : EditorFixture({})
    {
        for (const QString name : {"a.x", "a.y", "a.z"})
            add(name);
        for (auto& [name, curve] : curves)
            variables.add(name.toStdString(), &curve.spline, &curve.expression);
        curves["a.x"].spline.modify(1)->type = SplineBase::Bezier;
        curves["a.x"].spline.addPoint(8.0, -1.0);
        curves["a.y"].spline.setPos(curves["a.y"].spline.modify(1), -2.0);
        curves["a.z"].expression = parsed("a.x+1").release();
        for (const QString name : {"a.z", "a.y", "a.x"})
            editor.setEditingNode(name);
        editor.resize(900, 700);
        QTest::qWait(0);
        editor.updateCurves();
        QObject::connect(&editor, &CurveEditor::curveEdited, [this](const CurveChange& change) {
            if (change.phase == CurveChange::Phase::Commit)
                commits.append(change.group + QLatin1Char('/') + change.curve);
            intervals.append({change.timeFirst, change.timeLast});
            lastCause = change.cause;
        });
        changes.clear();
    }
    std::map<QString, CurveState> states()
    {
        std::map<QString, CurveState> found;
        for (const QString name : {"a.x", "a.y", "a.z"})
            found[name] = canvas.canvas.findCurve(name)->curve()->state();
        return found;
    }
    Scene& mouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers keys = {})
    {
        sendMouse(canvas, type, at, button, keys);
        return *this;
    }
    Scene& pressAt(const QPoint& at) { return mouse(QEvent::MouseButtonPress, at); }
    Scene& press(double t, double v, Qt::KeyboardModifiers keys = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        return mouse(QEvent::MouseButtonPress, pixel(t, v), button, keys);
    }
    Scene& move(double t, double v, Qt::KeyboardModifiers keys = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        return mouse(QEvent::MouseMove, pixel(t, v), button, keys);
    }
    Scene& release(double t, double v, Qt::MouseButton button = Qt::LeftButton)
    {
        return mouse(QEvent::MouseButtonRelease, pixel(t, v), button);
    }
    Scene& click(double t, double v) { return press(t, v).release(t, v); }
    Scene& doubleClick(double t, double v) { return mouse(QEvent::MouseButtonDblClick, pixel(t, v)); }
    Scene& drag(double t, double v, double toTime, double toValue, Qt::KeyboardModifiers keys = {},
                Qt::MouseButton button = Qt::LeftButton)
    {
        press(t, v, {}, button).move((t + toTime) / 2.0, v, keys, button);
        return move(toTime, toValue, keys, button).release(toTime, toValue, button);
    }
    Scene& key(Qt::Key key, Qt::KeyboardModifiers keys = {}) { return EditorFixture::key(key, keys), *this; }
    Scene& clickPoint() { return EditorFixture::clickPoint(), *this; }
    Scene& selectTwo()
    {
        clickPoint().press(8.0, -1.0, Qt::ShiftModifier);
        changes.clear();
        return *this;
    }
    /// Makes the curve the current one.
    Scene& turnTo(const QString& curve) { return canvas.canvas.setCurrentCurve(curve), *this; }
    /// Changes one of the options of that curve of "a".
    template <typename Value>
    Scene& set(const QString& curve, Value CurveOptions::*option, const std::type_identity_t<Value>& value)
    {
        CurveOptions options = editor.curveOptions("a", curve);
        options.*option = value;
        return editor.setCurveOptions("a", curve, options), *this;
    }
    Scene& lock(const QString& curve, bool on = true) { return set(curve, &CurveOptions::locked, on); }
    Scene& hide(const QString& curve, bool on = true) { return set(curve, &CurveOptions::hidden, on); }
    static void whenMenuOpens(int id)
    {
        whenOpen<ControlMenu>([id](ControlMenu& menu) {
            menu.handleMenu(id);
            menu.close();
        });
    }
    Scene& choose(int id)
    {
        whenMenuOpens(id);
        return press(6.0, 2.0, {}, Qt::RightButton);
    }
    Scene& type(CustomEditLine* field, const QString& text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        return *this;
    }
    Scene& paste(const QString& text, Qt::KeyboardModifiers keys = ctrl)
    {
        QGuiApplication::clipboard()->setText(text);
        return key(Qt::Key_V, keys);
    }
    Scene& undo() { return editor.undo(), *this; }
    Scene& redo() { return editor.redo(), *this; }
    Scene& updateCurves() { return editor.updateCurves(), *this; }
    Scene& page(int index) { return editor.tabWidget2->setCurrentIndex(index), *this; }
    Scene& focusCanvas() { return canvas.setFocus(), *this; }
    Scene& remove(const QString& curve) { return editor.removeCurve("a", curve), *this; }
    Scene& forgetChanges() { return changes.clear(), *this; }
    Scene& trigger(const char* action) { return editor.action(action)->trigger(), *this; }
    Scene& timeLineAt(double time) { return editor.setTimeLine(time), *this; }
    Scene& allCurves(bool on = true) { return canvas.canvas.setEditsAllCurves(on), *this; }
    Scene& snapTo(unsigned kinds)
    {
        canvas.canvas.hands().guide.isSnapping = true;
        canvas.canvas.hands().guide.snap.kinds = kinds;
        return *this;
    }
    /// Takes all off the canvas and puts these there again, the last of which is current.
    Scene& reopen(const QStringList& names)
    {
        editor.cleanSelecteds();
        for (const QString& name : names)
            editor.setEditingNode(name);
        return *this;
    }
    /// Drags the right handle of the second point up to (6, 3).
    Scene& dragHandle()
    {
        const QPoint handle =
            clickPoint().canvas.canvas.currentSpline()->rightHandle(pixel(5.0, 1.0), 1, false);
        return pressAt(handle).move(6.0, 3.0).release(6.0, 3.0);
    }
    Scene& enter(const QString& text) { return EditorFixture::enter(text), *this; }
    /// What a dialog says of its work.
    static QString outcome(const QWidget& dialog) { return dialog.findChild<QLabel*>("outcome")->text(); }
    int entries() const { return editor.undoStack()->count(); }
    ControlSplineNode& control() const { return *canvas.canvas.currentControl(); }

    SplineBase& x = curves["a.x"].spline;
    ReadCurves variables;
    QStringList commits;
    QList<QPointF> intervals;
    CurveChange::Cause lastCause = CurveChange::Cause::Edit;
};

/// What a user or a host does there.
using Deed = std::function<void(Scene&)>;
