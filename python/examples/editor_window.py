# SPDX-License-Identifier: MIT
"""A window of PyQt6 with the editor in a dock, beside a label that follows each step of a drag."""
import sys

import curveeditor
from curveeditor import qt
from PyQt6.QtCore import Qt
from PyQt6.QtWidgets import QApplication, QDockWidget, QLabel, QMainWindow

application = QApplication(sys.argv)
window = QMainWindow()
label = QLabel("Double click on the canvas", alignment=Qt.AlignmentFlag.AlignCenter)
window.setCentralWidget(label)

zoom = curveeditor.Spline()
zoom.add(5.0, 2.0)
editor = qt.CurveEditor()
editor.set_theme(qt.Theme.dark())
editor.set_time_range(0.0, 10.0)
editor.add_curve("Camera", "zoom", zoom, color="gold", minimum=-3.0, maximum=3.0)
editor.open_curve("Camera", "zoom")
editor.curve_edited.connect(lambda change: label.setText(f"{change.curve} is {zoom(5.0):.2f} at 5"))

dock = QDockWidget("Curves")
dock.setWidget(editor.widget)
window.addDockWidget(Qt.DockWidgetArea.BottomDockWidgetArea, dock)
window.show()
sys.exit(application.exec())
