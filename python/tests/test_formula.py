# SPDX-License-Identifier: MIT
import pickle

import numpy as np
import pytest
from curveeditor import Formula, FormulaError, Spline, Variables


@pytest.fixture
def spline():
    result = Spline()
    result.add(2.0, 4.0, 0)
    return result


def test_values():
    formula = Formula("2 t + f", fps=25.0)
    assert (str(formula), formula.fps, formula.names, formula(2.0)) == ("2*t+f", 25.0, ["t", "f"], 54.0)
    assert np.array_equal(formula([[0, 1]]), [[0.0, 27.0]])
    times = np.linspace(0.0, 5.0, 3000)
    alone = [formula(time) for time in times]
    assert np.array_equal(formula(times, out=times), alone)
    twin = pickle.loads(pickle.dumps(formula))
    assert twin(2.0) == 54.0


@pytest.mark.parametrize(
    "text, why, spans",
    [
        ("1 + äcam*2", "'äcam'.* not known", [(4, 8)]),
        ("(t", "no partner", [(0, 1)]),
        ("t +", "can't be read", None),
        ("", "can't be read", None),
        ("x+y", "'x'", [(0, 1), (2, 3)]),
    ],
)
def test_faults(text, why, spans):
    with pytest.raises(FormulaError, match=why) as fault:
        Formula(text)
    assert fault.value.text == text and isinstance(fault.value, ValueError)
    assert spans is None or fault.value.spans == spans
    with pytest.raises(ValueError):
        Formula("t", fps=np.nan)


def test_variables(spline):
    variables = Variables()
    variables.add("Cam.Pan x", spline)
    double = Formula("2cam.pan_x", variables)
    variables.add("cam.double", double)
    chain = Formula("cam.double + 1", variables)
    assert (chain(1.0), chain.names, variables["CAM.double"] is double) == (5.0, ["cam.double"], True)
    snapshot = chain.snapshot()
    spline[1].value = 8.0
    assert np.array_equal(chain([1.0, 2.0]), [9.0, 17.0]) and snapshot(1.0) == 5.0
    variables.add("cam.own", circle := Formula("t", variables))
    variables.remove("cam.own")
    variables.add("cam.own", circle)
    assert list(variables) == ["cam.double", "cam.own", "cam.pan_x"] and len(variables) == 3
    variables.rename("cam.pan_x", "cam.tilt")
    assert "cam.tilt" in variables and "cam.pan_x" not in variables and chain(1.0) == 1.0
    for name in ("cam.tilt", ""):
        with pytest.raises(ValueError, match="empty, or another"):
            variables.add(name, spline)
    for call in (variables.remove, variables.__getitem__, lambda name: variables.rename(name, "a")):
        with pytest.raises(KeyError):
            call("no")
    with pytest.raises(TypeError, match="can't be pickled"):
        pickle.dumps(chain)


def test_circles(spline):
    variables = Variables()
    variables.add("a", spline)
    first = Formula("a + 1", variables)
    variables.remove("a")
    variables.add("a", first)
    assert first(1.0) == 1.0 and first.snapshot()(1.0) == 1.0
