# SPDX-License-Identifier: MIT
"""The editor itself, as a widget of PyQt6.

    application = QApplication([])
    spline = curveeditor.Spline()
    editor = curveeditor.qt.CurveEditor()
    editor.add_curve("Camera", "zoom", spline)
    editor.open_curve("Camera", "zoom")
    editor.curve_edited.connect(lambda change: print(change.curve, spline(5.0)))
    editor.widget.show()
    application.exec()
"""
from __future__ import annotations

import atexit
import sys
import weakref
from collections.abc import Callable, Sequence
from typing import Any, Optional, TypeVar

from PyQt6 import QtCore, QtGui, QtWidgets
from PyQt6 import sip as _sip

from . import _qt
from ._model import Spline
from ._qt import CurveChange, CurveOptions, EditCause, EditorPart, EditPhase, PlaneMapping, Theme

__all__ = [
    "CurveChange",
    "CurveEditor",
    "CurveOptions",
    "EditCause",
    "EditPhase",
    "EditorPart",
    "PlaneMapping",
    "Signal",
    "Theme",
    "install_translation",
]

sip: Any = _sip  # whose own stubs know of no wrapped classes
_Wrapped = TypeVar("_Wrapped")
_Function = Callable[..., Any]
_Write = Callable[[float], str]
_Read = Callable[[str], Optional[float]]
_Painter = Callable[[QtGui.QPainter, PlaneMapping], object]


def _require_same_qt(built_with: str, runs_with: str, theirs: str) -> None:
    if runs_with != theirs or built_with.split(".")[:2] != theirs.split(".")[:2]:
        raise ImportError(f"curveeditor.qt is linked with Qt {built_with}, but PyQt6 runs with Qt {theirs}")


_require_same_qt(_qt.built_with, _qt.runs_with, QtCore.qVersion() or "")


def install_translation(locale: Optional[QtCore.QLocale] = None) -> bool:
    """Shows all editors in the language of `locale`, without one in that of the application.

    They are German, Spanish, French, Japanese and English, which all else gives. False where that is not asked for.
    """
    _require_gui_thread()
    return _qt._install_translation(0 if locale is None else sip.unwrapinstance(locale))


def _require_gui_thread() -> None:
    application = QtCore.QCoreApplication.instance()
    if not isinstance(application, QtWidgets.QApplication):
        raise RuntimeError("make a QApplication first")
    if QtCore.QThread.currentThread() != application.thread():
        raise RuntimeError("editors belong to the thread of the QApplication")


class Signal:
    """Calls what is connected to it, in the order of connecting."""

    def __init__(self) -> None:
        self._slots: list[Callable[..., object]] = []

    def connect(self, slot: Callable[..., object]) -> Callable[..., object]:
        """Lets `slot` be called from now on. What it raises goes to `sys.excepthook`, and `sys.exit` ends the loop of events."""
        self._slots.append(slot)
        return slot

    def disconnect(self, slot: Callable[..., object]) -> None:
        """Raises ValueError for a slot that is not connected."""
        self._slots.remove(slot)

    def emit(self, *told: object) -> None:
        """Calls all slots."""
        for slot in list(self._slots):
            try:
                slot(*told)
            except SystemExit as end:
                QtCore.QCoreApplication.exit(end.code if isinstance(end.code, int) else end.code is not None)
            except BaseException:  # the editor goes on
                sys.excepthook(*sys.exc_info())


def _painting(paint: _Painter) -> Callable[[int, PlaneMapping], None]:
    def call(address: int, mapping: PlaneMapping) -> None:
        painter = sip.wrapinstance(address, QtGui.QPainter)
        try:
            paint(painter, mapping)
        finally:
            sip.setdeleted(painter)  # it ends with the call

    return call


def _reading(read: Optional[_Read]) -> Optional[_Read]:
    def call(text: str) -> Optional[float]:
        try:
            return read(text) if read else None
        except ValueError:
            return None

    return call if read else None


def _forget(handed: weakref.WeakSet[Any]) -> None:
    for wrapper in list(handed):
        if not sip.isdeleted(wrapper):
            sip.setdeleted(wrapper)


def _no_stack() -> None:
    return None


class CurveEditor(_qt.Editor):
    """An editor of curves. Its `widget` goes with it, so keep it as long as the widget is to be there.

    When the widget goes first, with its parent, everything here raises ReferenceError. The splines that it edits are kept
    alive, and belong to its thread until they are removed: other threads take snapshots.
    """

    #: The dialog got a close event.
    closed: Signal
    #: With group and curve: the user has edited a curve, or selected points of it.
    curve_has_changed: Signal
    #: With a `CurveChange`: at each step of a drag, and when an edit is done, taken back or done again.
    curve_edited: Signal
    #: The user asks for a step back, and the editor keeps no history.
    undo_requested: Signal
    #: The same for a step forth.
    redo_requested: Signal
    #: With group and curve: it came onto the canvas.
    curve_opened: Signal
    #: With group and curve: it left the canvas.
    curve_closed: Signal
    #: With group and curve, both empty if there is none.
    current_curve_changed: Signal
    #: With group, curve and QColor.
    curve_color_changed: Signal
    #: `view` gives another rectangle.
    view_changed: Signal
    #: Other points are selected.
    point_selection_changed: Signal
    #: With the time to which the user has moved the time line.
    time_line_dragged: Signal

    def __init__(self, parent: Optional[QtWidgets.QWidget] = None) -> None:
        _require_gui_thread()
        for name, kind in CurveEditor.__annotations__.items():
            if kind == "Signal":
                setattr(self, name, Signal())
        handed: weakref.WeakSet[Any] = weakref.WeakSet()
        myself = weakref.ref(self)

        def report(name: str, *told: object) -> None:
            editor = myself()
            if editor is not None:
                getattr(editor, name).emit(*told)

        self._handed = handed
        self._given_stack: Callable[[], Optional[QtGui.QUndoStack]] = _no_stack
        self._functions: weakref.WeakKeyDictionary[_Function, _Function] = weakref.WeakKeyDictionary()
        address = 0 if parent is None else sip.unwrapinstance(parent)
        super().__init__(address, report, lambda: _forget(handed))
        _living.add(self)

    def _wrapped(self, address: int, kind: type[_Wrapped]) -> _Wrapped:
        wrapper: _Wrapped = sip.wrapinstance(address, kind)
        self._handed.add(wrapper)
        return wrapper

    def _kept(self, function: Optional[_Function]) -> Optional[_Function]:
        """What calls `function` for the editor, which so does not keep alive what that knows, itself mostly."""
        if function is None:
            return None
        myself = weakref.ref(self)

        def call(*arguments: Any) -> Any:
            editor = myself()
            return None if editor is None else editor._functions[call](*arguments)

        self._functions[call] = function
        return call

    @property
    def widget(self) -> QtWidgets.QDialog:
        """The editor as a window of its own, or to be put into a layout or a dock."""
        return self._wrapped(self._widget(), QtWidgets.QDialog)

    def undo_stack(self) -> QtGui.QUndoStack:
        """Where the edits of the user are kept."""
        address, given = self._undo_stack(), self._given_stack()
        if given is not None and not sip.isdeleted(given) and sip.unwrapinstance(given) == address:
            return given
        return self._wrapped(address, QtGui.QUndoStack)

    def set_undo_stack(self, stack: Optional[QtGui.QUndoStack]) -> None:
        """Puts the edits from now on on a stack of the application; None brings back the editor's own."""
        self._set_undo_stack(0 if stack is None else sip.unwrapinstance(stack))
        self._given_stack = _no_stack
        if stack is not None:
            self._given_stack = weakref.ref(stack)

    def action(self, name: str) -> Optional[QtGui.QAction]:
        """The action of the editor with that object name."""
        address = self._action(name)
        return self._wrapped(address, QtGui.QAction) if address else None

    def add_point_action(self, action: QtGui.QAction) -> None:
        """Puts an action at the end of the menu over points. It stays yours, so keep it."""
        self._add_point_action(sip.unwrapinstance(action))

    def add_edit_action(self, action: QtGui.QAction) -> None:
        """Puts an action at the end of the menu "Edit"."""
        self._add_edit_action(sip.unwrapinstance(action))

    def add_list_action(self, action: QtGui.QAction) -> None:
        """Puts an action at the end of the menu of the list."""
        self._add_list_action(sip.unwrapinstance(action))

    def set_underlay(self, paint: Optional[_Painter]) -> None:
        """Lets `paint` draw below the grid and the curves; see `update_underlay`."""
        self._set_underlay(None if paint is None else self._kept(_painting(paint)))

    def set_overlay(self, paint: Optional[_Painter]) -> None:
        """Lets `paint` draw on top of all else, in each frame."""
        self._set_overlay(None if paint is None else self._kept(_painting(paint)))

    def set_constraint(self, group: str, curve: str, mend: Optional[Callable[[Spline], object]]) -> None:
        """Lets `mend` have the last word on each step of an edit of that curve. One that raises has written nothing."""
        self._set_constraint(group, curve, self._kept(mend))

    def set_time_grid(self, lines: Optional[Callable[[float, float], Sequence[float]]]) -> None:
        """Lets `lines` give the times of the grid's vertical lines between two times."""
        self._set_time_grid(self._kept(lines))

    def set_time_text(self, write: Optional[_Write], read: Optional[_Read] = None) -> None:
        """Writes and reads times for the user; what `read` raises as ValueError counts as no time."""
        self._set_time_text(self._kept(write), self._kept(_reading(read)))

    def set_value_text(self, write: Optional[_Write], read: Optional[_Read] = None) -> None:
        """The same for values."""
        self._set_value_text(self._kept(write), self._kept(_reading(read)))

    def set_font(self, font: QtGui.QFont) -> None:
        """Gives the dialog, all in it and its menus a font."""
        self._set_font(font.toString())


_living: weakref.WeakSet[CurveEditor] = weakref.WeakSet()


@atexit.register
def _close_all() -> None:
    """Before PyQt6 takes the application down."""
    for editor in list(_living):
        editor._close()
