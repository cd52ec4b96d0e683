# SPDX-License-Identifier: MIT
"""The editor in PyQt6: what it tells, what it is told, and what goes first."""
import gc
import os
import subprocess
import sys
import threading
from itertools import permutations

os.environ["QT_QPA_PLATFORM"] = "offscreen"
import curveeditor
import pytest

pytest.importorskip("PyQt6.QtWidgets")
pytest.importorskip("curveeditor._qt")
from curveeditor import Formula, PointType, Spline, qt
from PyQt6 import QtCore, QtGui, QtTest, QtWidgets, sip

application = QtWidgets.QApplication([])
SIGNALS = [name for name, kind in qt.CurveEditor.__annotations__.items() if kind == "Signal"]


class Host:
    def __init__(self):
        self.spline, self.editor, self.told = Spline(), qt.CurveEditor(), []
        for name in SIGNALS:
            getattr(self.editor, name).connect(lambda *told, name=name: self.told.append((name, *told)))
        self.editor.set_time_range(0.0, 10.0)
        self.editor.add_curve("Camera", "zoom", self.spline, color=QtGui.QColor("red"), default=1.0, maximum=50.0)
        self.editor.open_curve("Camera", "zoom")

    def names(self):
        told, self.told = [name for name, *_ in self.told], []
        return told


@pytest.fixture
def host():
    return Host()


def press(widget, key, *modifiers):
    QtTest.QTest.keyClick(widget, key, *modifiers)


def test_hands_and_signals(host):
    editor = host.editor
    assert host.names() == ["view_changed", "curve_opened", "current_curve_changed"] and editor.current_curve() == ("Camera", "zoom")
    editor.widget.show()
    canvas = editor.widget.findChild(QtWidgets.QWidget, "functionEdit")
    place = editor.to_canvas(QtCore.QPointF(5.0, 1.0)).toPoint()
    host.names()
    QtTest.QTest.mouseDClick(canvas, QtCore.Qt.MouseButton.LeftButton, pos=place)
    assert len(host.spline) == 2 and host.spline[1].time == pytest.approx(5.0, abs=0.1)
    change = next(told for name, *told in host.told if name == "curve_edited")[0]
    assert (change.group, change.curve, change.phase, change.cause) == ("Camera", "zoom", qt.EditPhase.COMMIT, qt.EditCause.EDIT)
    assert change.text and change.time_first <= 5.0 <= change.time_last
    change.diff.revert(before := host.spline.copy())
    assert len(before) == 1
    editor.select_points("Camera", "zoom", [1])
    assert editor.selected_points("Camera", "zoom") == [1]
    host.names()
    press(canvas, QtCore.Qt.Key.Key_Delete)
    assert len(host.spline) == 1 and {"curve_edited", "curve_has_changed", "point_selection_changed"} <= set(host.names())
    editor.set_keeps_history(False)
    press(canvas, QtCore.Qt.Key.Key_Z, QtCore.Qt.KeyboardModifier.ControlModifier)
    editor.redo()
    editor.set_view(QtCore.QRectF(1.0, -1.0, 2.0, 2.0))
    editor.set_curve_color("Camera", "zoom", "blue")
    editor.set_time_line(2.0)
    editor.set_time_line_draggable(True)
    editor.action("timeLineLaterAction").trigger()
    editor.close_curves()
    editor.widget.close()
    expected = {"undo_requested", "redo_requested", "view_changed", "curve_color_changed", "time_line_dragged", "curve_closed"}
    assert expected | {"closed"} <= set(host.names())


def test_slots(host, monkeypatch):
    faults, calls = [], []
    monkeypatch.setattr(sys, "excepthook", lambda *fault: faults.append(fault[0]))
    host.editor.view_changed.connect(lambda: 1 / 0)
    last = host.editor.view_changed.connect(lambda: calls.append(1))
    host.editor.set_view(QtCore.QRectF(1.0, -1.0, 2.0, 2.0))
    host.editor.view_changed.disconnect(last)
    host.editor.set_view(QtCore.QRectF(1.0, -1.0, 3.0, 2.0))
    assert faults == [ZeroDivisionError] * 2 and calls == [1]

    def raises(fault):
        raise fault

    host.editor.current_curve_changed.connect(lambda *name: raises(KeyboardInterrupt))
    host.editor.current_curve_changed.connect(lambda *name: raises(SystemExit(3)))
    host.editor.current_curve_changed.connect(lambda *name: calls.append(2))
    QtCore.QTimer.singleShot(0, host.editor.close_curves)
    QtCore.QTimer.singleShot(5000, application.quit)
    assert application.exec() == 3 and faults[2:] == [KeyboardInterrupt] and calls == [1, 2]


def test_edits(host, monkeypatch):
    faults = []
    editor, spline = host.editor, host.spline
    editor.edit("Camera", "zoom", "Add", lambda given: [given.add(1.0, 2.0), given is spline or 1 / 0])
    diff = next(told[0].diff for name, *told in host.told if name == "curve_edited")
    assert (editor.undo_stack().undoText(), len(spline)) == ("Add", 2)
    with pytest.raises(ZeroDivisionError):
        editor.edit("Camera", "zoom", "Fail", lambda given: [given.add(3.0, 2.0), 1 / 0])
    assert len(spline) == 2 and editor.undo_stack().count() == 1
    editor.undo_stack().undo()
    assert len(spline) == 1
    editor.apply("Camera", "zoom", diff, True)
    assert len(spline) == 2
    with pytest.raises(ValueError, match="as the difference left it"):
        editor.apply("Camera", "zoom", diff, True)
    with pytest.raises(RuntimeError, match="another edit"):
        editor.edit("Camera", "zoom", "", lambda given: editor.edit("Camera", "zoom", "", lambda inner: None))
    with pytest.raises(RuntimeError, match="another edit"):
        editor.edit("Camera", "zoom", "", lambda given: editor.apply("Camera", "zoom", diff, False))
    stack = QtGui.QUndoStack()
    editor.set_undo_stack(stack)
    editor.set_constraint("Camera", "zoom", lambda mended: setattr(mended[-1], "value", 7.0))
    editor.edit("Camera", "zoom", "Move", lambda given: setattr(given[1], "time", 4.0))
    assert (spline(4.0), stack.count(), editor.undo_stack() is stack) == (7.0, 1, True)
    monkeypatch.setattr(sys, "unraisablehook", lambda fault: faults.append(fault.exc_type))
    editor.set_constraint("Camera", "zoom", lambda mended: [setattr(mended[-1], "value", 6.0), 1 / 0])
    editor.edit("Camera", "zoom", "Move", lambda given: setattr(given[1], "time", 5.0))
    assert spline(5.0) == 7.0 and faults and set(faults) == {ZeroDivisionError}
    editor.set_constraint("Camera", "zoom", None)
    editor.set_curve_options("Camera", "zoom", qt.CurveOptions(highest=5.0, step=0.5, types=[PointType.LINEAR], locked=True))
    editor.edit("Camera", "zoom", "Bound", lambda given: given.add(6.0, 9.3))
    assert repr(editor.curve_options("Camera", "zoom").types) == "[<PointType.LINEAR: 0>]"
    with pytest.raises(ValueError, match="9"):
        qt.CurveOptions(types=[9])
    assert (spline(6.0), spline[2].type, editor.curve_options("Camera", "zoom").locked) == (5.0, PointType.LINEAR, True)
    host.editor = editor = None
    assert not sip.isdeleted(stack) and stack.count() == 0


def test_curves_and_formulas(host):
    editor = host.editor
    host.spline.add(4.0, 8.0)
    editor.add_curve("Camera", "double", Spline(), "2camera.zoom")
    assert (editor.formula("Camera", "double"), editor.values("Camera", "double", 4.0)) == ("2*camera.zoom", 16.0)
    assert editor.values("Camera", "double", [0, 4]).tolist() == [0.0, 16.0]
    for group, name in (("Camera", "double"), ("Camera", "zoom"), ("camera", "Zoom")):
        with pytest.raises(ValueError, match="another curve"):
            editor.add_curve(group, name, Spline())
    editor.add_curve("Lamp", "Zoom x", Spline())
    editor.add_curve("camera", "zoom_X", other := Spline())
    for rename in (lambda: editor.rename_curve("Camera", "double", "ZOOM"), lambda: editor.rename_group("camera", "LAMP")):
        with pytest.raises(ValueError, match="another curve"):
            rename()
    other.add(4.0, 3.0)
    assert (editor.values("Camera", "zoom", 4.0), editor.values("camera", "zoom_X", 4.0)) == (8.0, 3.0)
    editor.remove_group("camera")
    assert editor.values("Camera", "double", 4.0) == 16.0
    editor.remove_group("Lamp")
    with pytest.raises(curveeditor.FormulaError, match="'nobody'"):
        editor.add_curve("Camera", "x", Spline(), "nobody")
    editor.delete_formula("Camera", "double")
    assert editor.formula("Camera", "double") is None
    editor.rename_curve("Camera", "zoom", "tilt")
    with pytest.raises(ValueError):
        editor.rename_curve("Camera", "tilt", "double")
    editor.rename_group("Camera", "Lamp")
    editor.rename_group("Lamp", "lamp")
    editor.rename_group("lamp", "Lamp")
    assert editor.values("Lamp", "tilt", 4.0) == 8.0 and editor.open_curves() == [("Lamp", "tilt")]
    with pytest.raises(KeyError):
        editor.values("Camera", "zoom", 4.0)
    editor.remove_curve("Lamp", "tilt")
    editor.remove_group("Lamp")
    with pytest.raises(KeyError):
        editor.remove_curve("Lamp", "double")
    variables = curveeditor.Variables()
    variables.add("other", host.spline)
    editor.set_variables(variables)
    editor.add_curve("a", "b", Spline(), "other + 1")
    assert editor.values("a", "b", 4.0) == 9.0
    del variables
    editor.set_variables(None)
    assert editor.values("a", "b", 4.0) == 1.0


def test_look_and_axes(host):
    editor, seen = host.editor, []
    theme = qt.Theme.dark()
    theme.canvas, theme.point_size = "navy", 9
    editor.set_theme(theme)
    assert (editor.theme().canvas.name(), editor.theme().point_size, editor.theme().smooth) == ("#000080", 9, True)
    assert not qt.Theme().control_point_outline.isValid()
    editor.set_part_shown(qt.EditorPart.PAGES, False)
    assert not editor.is_part_shown(qt.EditorPart.PAGES) and editor.is_part_shown(qt.EditorPart.LIST)
    editor.set_time_grid(lambda first, last: [1.0, 2.0, seen.append((first, last)) or 3.0])
    editor.set_time_text(lambda time: f"bar {time:g}", lambda text: float(text[4:]))
    editor.set_value_text(lambda value: f"{value:.1f} lm")
    editor.set_overlay(lambda painter, mapping: [painter.drawLine(0, 0, 9, 9), seen.append((painter, mapping.column(10.0)))])
    editor.widget.show()
    editor.widget.grab()
    assert (0.0, 10.0) in seen and seen[-1][1] == pytest.approx(editor.to_canvas(QtCore.QPointF(10.0, 0.0)).x())
    with pytest.raises(RuntimeError, match="deleted"):
        seen[-1][0].drawLine(0, 0, 1, 1)
    state = editor.save_state()
    editor.restore_state(state)
    with pytest.raises(ValueError, match="no state"):
        editor.restore_state(b"no")
    editor.set_fps(25.0)
    editor.show_time()
    assert (editor.fps(), editor.shows_frames()) == (25.0, False)
    editor.add_edit_action(action := QtGui.QAction("Mine"))
    assert editor.action("saveCurve").text() and editor.action("Mine") is None and action.text()
    with pytest.raises(TypeError):
        editor.set_view("everywhere")
    for call in (lambda: editor.set_curve_color("Camera", "zoom", QtGui.QColor()), lambda: editor.add_curve("a", "b", Spline(), color=QtGui.QColor())):
        with pytest.raises(ValueError, match="colour"):
            call()


def test_languages(host):
    english = host.editor.action("saveCurve").text()
    try:
        assert qt.install_translation(QtCore.QLocale("de"))
        application.processEvents()
        assert host.editor.action("saveCurve").text() == "Kurve speichern"
    finally:
        qt.install_translation(QtCore.QLocale("en"))
        application.processEvents()
    assert host.editor.action("saveCurve").text() == english


def test_variables_go_with_the_dialog(host):
    window, variables = QtWidgets.QMainWindow(), curveeditor.Variables()
    variables.add("a", host.spline)
    formula = Formula("a + 1", variables)
    host.editor.set_variables(variables)
    host.editor.widget.setParent(window)
    del variables
    assert formula(1.0) == 1.0
    sip.delete(window)
    with pytest.raises(ReferenceError, match="variables"):
        formula(1.0)


def test_unknown_curves(host):
    editor = host.editor
    for call in (editor.open_curve, editor.curve_options, editor.selected_points, lambda *name: editor.select_points(*name, [0]),
                 lambda *name: editor.set_curve_options(*name, qt.CurveOptions())):
        with pytest.raises(KeyError, match="Camera.no"):
            call("Camera", "no")
    for call in (editor.remove_group, lambda group: editor.rename_group(group, "yes")):
        with pytest.raises(KeyError, match="no"):
            call("no")
    for options in (qt.CurveOptions(lowest=2.0, highest=1.0), qt.CurveOptions(step=float("nan"))):
        with pytest.raises(ValueError, match="no value keeps"):
            editor.set_curve_options("Camera", "zoom", options)


def test_threads(host):
    faults = []

    other, variables, formula = Spline(), curveeditor.Variables(), Formula("t")
    variables.add("other", other)
    variables.add("more", other)
    variables.remove("more")
    host.editor.set_variables(variables)

    def work():
        for call in (lambda: host.spline(1.0), lambda: host.spline([1.0]), host.spline.snapshot, lambda: host.spline.add(1, 2),
                     host.editor.view, lambda: Formula("t"), lambda: str(formula), lambda: formula.names, lambda: other.add(1, 2)):
            with pytest.raises(RuntimeError, match="snapshot|thread"):
                call()
            faults.append(call)

    snapshot = host.spline.snapshot()
    thread = threading.Thread(target=work)
    thread.start()
    thread.join()
    assert len(faults) == 9 and snapshot(1.0) == 0.0
    host.editor.remove_curve("Camera", "zoom")
    host.editor.set_variables(None)
    del variables
    thread = threading.Thread(target=lambda: faults.append((host.spline(1.0), other(1.0))))
    thread.start()
    thread.join()
    assert faults[-1] == (0.0, 0.0)


def family():
    window, editor, spline = QtWidgets.QMainWindow(), qt.CurveEditor(), Spline()
    editor.add_curve("a", "b", spline, "t")
    editor.open_curve("a", "b")
    editor.set_overlay(lambda painter, mapping: spline(1.0))
    dock = QtWidgets.QDockWidget()
    window.addDockWidget(QtCore.Qt.DockWidgetArea.LeftDockWidgetArea, dock)
    dock.setWidget(editor.widget)
    return {
        "window": (window, lambda w: w.grab()),
        "editor": (editor, lambda e: (e.view(), e.values("a", "b", 2.0), e.widget.width())),
        "spline": (spline, lambda s: s.add(1.0, 2.0)),
        "widget": (editor.widget, lambda w: w.windowTitle()),
        "parts": ([editor.undo_stack(), editor.action("saveCurve")], lambda p: [p[0].count(), p[1].text()]),
    }


def test_every_order():
    for order in permutations(family()):
        members = family()
        for name in order:
            gone = members.pop(name)[0]
            if name == "window":
                sip.delete(gone)
            del gone
            for other, (owned, use) in members.items():
                if other in ("spline", "window") or {"window", "editor"} <= set(members):
                    use(owned)
                else:
                    with pytest.raises(ReferenceError if other == "editor" else RuntimeError):
                        use(owned)
            owned = None


def test_deleted_by_its_own_report(host):
    editor = host.editor
    editor.view_changed.connect(lambda: setattr(host, "editor", None))
    widget, view = editor.widget, QtCore.QRectF(1.0, -1.0, 2.0, 2.0)
    editor.view_changed.connect(editor._close)
    editor.set_view(view)
    with pytest.raises(ReferenceError):
        editor.view()
    QtCore.QCoreApplication.sendPostedEvents(None, QtCore.QEvent.Type.DeferredDelete)
    assert sip.isdeleted(widget)


@pytest.mark.parametrize("kind", ["action", "stack"])
def test_deleted_by_a_slot_of_pyqt(host, kind):
    widget, loop, action, seen = host.editor.widget, QtCore.QEventLoop(), QtGui.QAction("Mine"), []

    def drop():
        host.editor = None
        seen.append(sip.isdeleted(widget))

    host.editor.add_edit_action(action)
    (action.triggered if kind == "action" else host.editor.undo_stack().indexChanged).connect(drop)
    canvas = widget.findChild(QtWidgets.QWidget, "functionEdit")
    place = host.editor.to_canvas(QtCore.QPointF(5.0, 1.0)).toPoint()
    insert = lambda: QtTest.QTest.mouseDClick(canvas, QtCore.Qt.MouseButton.LeftButton, pos=place)
    QtCore.QTimer.singleShot(0, action.trigger if kind == "action" else insert)
    QtCore.QTimer.singleShot(50, loop.quit)
    loop.exec()
    assert seen[0] is False and sip.isdeleted(widget)


@pytest.mark.parametrize("end", ["", "del application", "sip.delete(application)", "editor = None"])
def test_end_of_the_process(end):
    program = f"""if True:
        from PyQt6 import QtWidgets, sip
        import curveeditor.qt
        application = QtWidgets.QApplication([])
        editor, spline = curveeditor.qt.CurveEditor(), curveeditor.Spline()
        editor.add_curve("a", "b", spline)
        editor.closed.connect(lambda: editor.view())
        editor.widget.show()
        {end}"""
    done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True)
    assert done.returncode == 0 and "Traceback" not in done.stderr, done.stderr


def test_no_other_qt():
    qt._require_same_qt("6.4.2", "6.4.3", "6.4.3")
    for ours in (("6.4.2", "6.4.2", "6.4.3"), ("6.4.2", "6.5.0", "6.5.0")):
        with pytest.raises(ImportError, match="linked with Qt 6.4.2"):
            qt._require_same_qt(*ours)


def test_cycles_are_collected(host):
    editor = host.editor
    editor.mine = editor
    editor.set_overlay(lambda painter, mapping: editor.view())
    editor.set_constraint("Camera", "zoom", editor._kept)
    editor.view_changed.connect(editor.view)
    widget = editor.widget
    host.editor = editor = None
    gc.collect()
    assert sip.isdeleted(widget)
