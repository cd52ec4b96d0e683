# SPDX-License-Identifier: MIT
"""A program as a user types it, which mypy checks and nobody runs."""
from typing import Optional

import curveeditor
import numpy as np
import numpy.typing as npt
from curveeditor import Behaviour, Formula, Point, PointType, Spline, Variables


def values_of(curve: Spline, times: npt.NDArray[np.float64]) -> npt.NDArray[np.float64]:
    out = np.empty_like(times)
    curve(times, out=out)
    first: float = curve(1.0)
    several: npt.NDArray[np.float64] = curve([1, 2.5])
    return curve(several, out=out) if first else out


def edit(curve: Spline) -> Optional[Point]:
    point = curve.add(1.0, 2.0, PointType.BEZIER)
    point.type = PointType.TCB
    curve.first_type, curve.last_type = Behaviour.ZERO, Behaviour.LOOP
    curve.last_type = 2
    kept: Behaviour = curve.last_type
    before = curve.state
    curve.points = curve.points[:2]
    curve.points = np.array([(0.0, 1.0), (2.0, 3.0 + kept)], [("time", float), ("value", float)])
    diff = curveeditor.CurveDiff.between(before, curve.state)
    diff.revert(curve)
    touched = diff.touched
    if touched:
        first: float = touched[0]
        curve.remove(curve[int(first)])
    return max((p for p in curve), key=lambda p: p.value)


def not_made_by_hand() -> None:
    curveeditor.FittedSpline()  # type: ignore[call-arg]
    curveeditor.Snapshot()  # type: ignore[call-arg]
    curveeditor.Table()  # type: ignore[call-arg]
    curveeditor.CurveDiff()  # type: ignore[call-arg]
    Point()  # type: ignore[call-arg]


def read(path: str, variables: Variables) -> float:
    file = curveeditor.CurveFile.read(path)
    if file.formula is not None:
        formula = Formula(file.formula, variables, fps=25.0)
        variables.add("a.b", formula)
        return formula(1.0) + curveeditor.bake(formula, 0.0, 1.0, 0.1, tolerance=0.1).deviation
    assert file.spline is not None
    snapshot = file.spline.snapshot()
    return snapshot(1.0) + len(curveeditor.simplify(file.spline, tolerance=0.1))
