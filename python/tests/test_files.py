# SPDX-License-Identifier: MIT
import pickle

import curveeditor
import numpy as np
import pytest
from curveeditor import CurveFile, Formula, Spline


def test_curve_files(tmp_path):
    spline = Spline()
    spline.add(1.0, 2.0)
    path = tmp_path / "ä.crv"
    CurveFile(spline, color=(1, 2, 3)).write(path)
    read = CurveFile.read(str(path))
    assert (read.spline(1.0), read.formula, read.color) == (2.0, None, (1, 2, 3))
    CurveFile(Formula("2 t")).write(path)
    read = CurveFile.read(path)
    assert (read.spline, read.formula, read.color) == (None, "2*t", (255, 255, 255))
    CurveFile(read.formula).write(path)
    assert CurveFile.from_text(path.read_bytes()).formula == "2*t"
    for file in (read, CurveFile(spline, color=(1, 2, 3))):
        twin = pickle.loads(pickle.dumps(file))
        assert (twin.to_text(), twin.color) == (file.to_text(), file.color)
    assert list(tmp_path.iterdir()) == [path]


def test_faults(tmp_path):
    path = tmp_path / "a.crv"
    path.write_text("255\n0\n")
    with pytest.raises(ValueError, match="no curve file"):
        CurveFile.read(path)
    with pytest.raises(FileNotFoundError):
        CurveFile.read(tmp_path / "none")
    with pytest.raises(FileNotFoundError) as fault:
        curveeditor.replace_file(tmp_path / "none" / "a", b"")
    assert fault.value.filename
    with pytest.raises(OSError):
        CurveFile("t").write(tmp_path)
    for text in ("2 t", "", "t\0"):
        with pytest.raises(ValueError, match="one word"):
            CurveFile(text)
    for curve, color in ((None, (0, 0, 0)), (Spline(), (0, 0))):
        with pytest.raises(TypeError):
            CurveFile(curve, color)
    with pytest.raises(ValueError, match="0 to 255"):
        CurveFile("t", (0, 0, 256))
    curveeditor.replace_file(path, b"\xff")
    assert path.read_bytes() == b"\xff"


def test_tables():
    table = curveeditor.read_table("time;pan\n1;2,5\n0;1,5\n")
    assert (table.names, table.lines) == (["time", "pan"], [3, 2])
    assert np.array_equal(table.times, [0.0, 1.0]) and np.array_equal(table.columns, [[1.5, 2.5]])
    with pytest.raises(ValueError, match="line 1: .*two ways"):
        curveeditor.read_table("1\t1,234\n")
    assert curveeditor.read_table("1\t1,234\n", decimal=".").columns[0][0] == 1234.0
    with pytest.raises(ValueError, match="decimal"):
        curveeditor.read_table("1 2", decimal="comma")
    sensor = curveeditor.sensor_table_head(1, 2) + "".join(curveeditor.sensor_table_row(t, [0.5 * t]) for t in (1, 2))
    assert np.array_equal(curveeditor.read_table(sensor).columns, [[0.5, 1.0]])
