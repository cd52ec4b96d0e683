# SPDX-License-Identifier: MIT
"""Scalar curves of time: splines, formulas, fits and curve files, with NumPy arrays in and out.

    import curveeditor

    spline = curveeditor.Spline()
    spline.add(1.0, 5.0)
    spline(0.5), spline(numpy.linspace(0.0, 1.0, 100))

`curveeditor.qt` has the editor itself, for PyQt6.
"""

from ._model import (
    Behaviour,
    CurveDiff,
    CurveFile,
    CurveState,
    FittedSpline,
    Formula,
    FormulaError,
    Keys,
    KeyShape,
    Point,
    PointType,
    Snapshot,
    Spline,
    SplineState,
    Table,
    Variables,
    bake,
    fit,
    jumps,
    key_fields,
    point_fields,
    read_table,
    replace_file,
    sensor_table_head,
    sensor_table_row,
    simplify,
    smooth_slope,
)

__version__ = "0.2.0"

__all__ = [
    "Behaviour",
    "CurveDiff",
    "CurveFile",
    "CurveState",
    "FittedSpline",
    "Formula",
    "FormulaError",
    "Keys",
    "KeyShape",
    "Point",
    "PointType",
    "Snapshot",
    "Spline",
    "SplineState",
    "Table",
    "Variables",
    "bake",
    "fit",
    "jumps",
    "key_fields",
    "point_fields",
    "read_table",
    "replace_file",
    "sensor_table_head",
    "sensor_table_row",
    "simplify",
    "smooth_slope",
]
