# SPDX-License-Identifier: MIT
"""Whatever goes first, what is left works or raises ReferenceError."""
from itertools import permutations

import curveeditor
import pytest


def family():
    variables = curveeditor.Variables()
    spline = curveeditor.Spline()
    variables.add("a", spline)
    formula = curveeditor.Formula("a + t", variables)
    variables.add("b", formula)
    return {
        "variables": (variables, lambda v: (list(v), v["a"](1.0), "b" in v)),
        "spline": (spline, lambda s: s.add(1.0, s([1.0, 2.0])[0])),
        "formula": (formula, lambda f: (f(1.0), f([1.0] * 2000), f.names, str(f), f.snapshot())),
        "point": (spline.add(1.0, 2.0), lambda p: (p.value, p.index)),
        "snapshot": (formula.snapshot(), lambda s: s([1.0, 2.0])),
        "file": (curveeditor.CurveFile(spline), lambda f: (f.to_text(), f.spline(1.0))),
    }


def test_every_order():
    for order in permutations(family()):
        members = family()
        for name in order:
            del members[name]
            for other, (owned, use) in members.items():
                if other == "formula" and "variables" not in members:
                    with pytest.raises(ReferenceError, match="variables"):
                        owned(1.0)
                else:
                    use(owned)


def test_removed_while_in_use():
    spline = curveeditor.Spline()
    point = spline.add(1.0, 2.0)
    points = iter(spline)
    spline.reset()
    for stale in (point, *points):
        with pytest.raises(ReferenceError):
            stale.time
    assert "gone" in repr(point)


@pytest.mark.parametrize("call", [curveeditor.Spline.copy, curveeditor.Formula.__str__, curveeditor.Variables.__len__])
def test_none_is_no_object(call):
    with pytest.raises(TypeError):
        call(None)
