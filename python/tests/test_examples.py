# SPDX-License-Identifier: MIT
import os
import subprocess
import sys
from pathlib import Path

import curveeditor
import numpy as np
import pytest

REPOSITORY = Path(__file__).resolve().parents[2]
EXAMPLES = REPOSITORY / "python" / "examples"


def test_editor_window(tmp_path):
    pytest.importorskip("PyQt6.QtWidgets")
    pytest.importorskip("curveeditor._qt")
    quit = "from PyQt6.QtCore import QTimer; QTimer.singleShot(100, application.quit)"
    program = (EXAMPLES / "editor_window.py").read_text(encoding="utf-8").replace("window.show()", "window.show(); " + quit)
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    subprocess.run([sys.executable, "-c", program], cwd=tmp_path, env=environment, check=True)


def run(example, folder, *words):
    program = [sys.executable, str(EXAMPLES / example), *map(str, words)]
    return subprocess.run(program, cwd=folder, check=True, capture_output=True, text=True).stdout


def test_first_curve(tmp_path):
    assert run("first_curve.py", tmp_path).splitlines()[-2:] == [
        "camera.zoom+0.1*sin(40*t) is 3.913 at 5",
        "and 1.913 when the edit is taken back",
    ]
    assert len(curveeditor.CurveFile.read(tmp_path / "zoom.crv").spline) == 3


def test_first_curve_stands_in_the_documents():
    listing = (EXAMPLES / "first_curve.py").read_text(encoding="utf-8").split('"""\n', 1)[1]
    assert f"```python\n{listing}```" in (REPOSITORY / "README.md").read_text(encoding="utf-8")


def test_captured_table(tmp_path):
    pandas = pytest.importorskip("pandas")
    times = np.linspace(0.0, 10.0, 1000)
    frame = pandas.DataFrame({"time": times, "pan": np.sin(times), "tilt": np.where(times < 5.0, times, np.nan)})
    frame.to_csv(tmp_path / "table.csv", index=False)
    assert "pan: 1000 samples become" in run("captured_table.py", tmp_path, tmp_path / "table.csv", 0.01)
    pan = curveeditor.CurveFile.read(tmp_path / "pan.crv").spline
    assert len(pan) < 20 and np.abs(pan(times) - np.sin(times)).max() < 0.021
    assert curveeditor.CurveFile.read(tmp_path / "tilt.crv").spline[-1].time < 5.0
