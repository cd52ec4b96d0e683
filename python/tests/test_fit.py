# SPDX-License-Identifier: MIT
import pickle

import curveeditor
import numpy as np
import pytest
from curveeditor import Formula, PointType, Spline

TIMES = np.linspace(0.0, 10.0, 500)


def test_fit():
    fitted = curveeditor.fit(TIMES, np.sin(TIMES), tolerance=0.01)
    distance = np.abs(fitted(TIMES) - np.sin(TIMES)).max()
    assert len(fitted) < 20 and distance == pytest.approx(fitted.deviation) and 0.0 < distance <= 0.01
    assert fitted.samples == 500 and pickle.loads(pickle.dumps(fitted)).deviation == fitted.deviation
    simpler = curveeditor.simplify(fitted, tolerance=0.2)
    assert len(simpler) < len(fitted) and simpler.deviation <= 0.2
    part = curveeditor.simplify(fitted, tolerance=0.5, first=0, last=4)
    assert part[-1].serial == fitted[-1].serial and len(part) < len(fitted)
    lines = curveeditor.fit(TIMES, np.sin(TIMES), tolerance=0.1, type=PointType.LINEAR)
    assert set(lines.points.type) == {PointType.LINEAR}
    steps = curveeditor.fit([0, 1, 2, 3], [0, 2, 1, 3], tolerance=2.0, monotone=True)
    assert len(steps) >= 2


@pytest.mark.parametrize(
    "values, options, why",
    [
        ([1.0], {}, "as many values"),
        ([np.nan, np.nan], {}, "no samples"),
        ([1.0, 2.0], {"tolerance": -1.0}, "tolerance"),
        ([1.0, 2.0], {"type": PointType.TCB}, "Bezier or Linear"),
        ([1.0, 2.0], {"type": 9}, "9"),
        ([[1.0, 2.0]], {}, "dimension"),
    ],
)
def test_what_can_not_be_fitted(values, options, why):
    with pytest.raises(ValueError, match=why):
        curveeditor.fit([0.0, 1.0], values, **options)


def test_bake():
    assert len(curveeditor.bake(np.sin, 0.0, 3.0, 0.5)) == 7
    formula = curveeditor.bake(Formula("t^2"), 0.0, 2.0, 0.01, tolerance=0.001)
    assert formula(1.5) == pytest.approx(2.25, abs=0.001) and len(formula) < 5
    step = Spline()
    step.add(1.0, 3.0, PointType.HOLD)
    assert curveeditor.jumps(step) == [(1.0, 0.0, 3.0)]
    baked = curveeditor.bake(step, 0.0, 2.0, 0.3)
    assert baked(1.0 - 1e-9) == pytest.approx(0.0, abs=1e-6) and baked(1.0) == 3.0
    assert curveeditor.smooth_slope(step[0], step[1], None) == 3.0
    with pytest.raises(ZeroDivisionError):
        curveeditor.bake(lambda t: 1.0 / (t - 1.0), 0.0, 2.0, 0.5)
    with pytest.raises(ValueError, match="million"):
        curveeditor.bake(np.sin, 0.0, 1.0, 1e-9)
    with pytest.raises(ValueError, match="step"):
        curveeditor.bake(np.sin, 0.0, 1.0, 0.0)
