# SPDX-License-Identifier: MIT
"""An application as a user types it, which mypy checks and nobody runs."""
import sys

import curveeditor
from curveeditor import PointType, qt
from PyQt6 import QtCore, QtGui, QtWidgets


class Window(QtWidgets.QMainWindow):
    def __init__(self) -> None:
        super().__init__()
        self.zoom = curveeditor.Spline()
        self.editor = qt.CurveEditor()
        self.editor.add_curve("Camera", "zoom", self.zoom, color="yellow", minimum=0.0)
        self.editor.open_curve("Camera", "zoom")
        self.editor.set_curve_options("Camera", "zoom", qt.CurveOptions(types=[PointType.BEZIER], step=0.5))
        self.editor.curve_edited.connect(self.tell)
        theme = qt.Theme.dark()
        theme.canvas = QtGui.QColor("navy")
        theme.labels = "white"
        assert theme.labels.isValid() and qt.install_translation(QtCore.QLocale("de"))
        self.editor.set_theme(theme)
        self.editor.set_overlay(self.paint)
        self.editor.set_time_text(lambda time: f"{time:.2f} s", float)
        dock = QtWidgets.QDockWidget("Curves", self)
        dock.setWidget(self.editor.widget)
        self.addDockWidget(QtCore.Qt.DockWidgetArea.BottomDockWidgetArea, dock)

    def tell(self, change: qt.CurveChange) -> None:
        if change.phase == qt.EditPhase.COMMIT and change.diff is not None:
            print(change.text, self.zoom(change.time_first), self.editor.undo_stack().count())

    def paint(self, painter: QtGui.QPainter, mapping: qt.PlaneMapping) -> None:
        painter.drawText(QtCore.QPointF(mapping.column(1.0), mapping.row(0.0)), "here")


def main() -> int:
    application = QtWidgets.QApplication(sys.argv)
    window = Window()
    window.show()
    return application.exec()
