# SPDX-License-Identifier: MIT
import pickle

import curveeditor
import numpy as np
import pytest
from curveeditor import Behaviour, Keys, KeyShape, PointType, Spline

TIMES = np.linspace(0.0, 3.0, 301)


def test_there_and_back():
    spline = Spline()
    spline.add(1.0, 2.0, PointType.BEZIER)
    spline.add(2.0, -1.0, PointType.HOLD)
    spline.add(3.0, 4.0, PointType.LINEAR)
    spline[0].tan_right, spline.last_type = 3.0, Behaviour.LOOP
    keys = Keys.of(spline, tolerance=0.0)
    assert (len(keys), keys.deviation, keys.last_type) == (4, 0.0, Behaviour.LOOP)
    assert list(keys.records["shape"]) [:3] == [KeyShape.BEZIER, KeyShape.HOLD, KeyShape.LINEAR]
    assert keys.records.leaving_slope[0] == 3.0 and keys.records.dtype.fields == curveeditor.key_fields.fields
    back = keys.to_spline(tolerance=0.0)
    assert np.array_equal(back(TIMES), spline(TIMES)) and back.last_type == Behaviour.LOOP
    twin = pickle.loads(pickle.dumps(keys))
    assert np.array_equal(twin.records, keys.records) and (twin.last_type, twin.deviation) == (keys.last_type, keys.deviation)
    again = Keys(keys.records, keys.first_type, keys.last_type, keys.default_value)
    assert np.array_equal(again.to_spline(tolerance=0.0)(TIMES), spline(TIMES))


def test_reach_and_ease():
    keys = Keys(np.array([(0.0, 0.0), (1.0, 1.0)], [("time", float), ("value", float)]))
    keys.set_ease(0, 0.42, 0.0, 0.58, 1.0)
    assert keys.records.leaving_reach[0] == pytest.approx(0.42)
    curve = keys.to_spline(tolerance=1e-5)
    assert curve(0.25) == pytest.approx(0.12916, abs=1e-4) and 0.0 < curve.deviation <= 1e-5
    assert len(keys.to_spline(tolerance=0.1)) < len(curve)


@pytest.mark.parametrize("time, reach", [([1.0, 0.0], 0.3), ([0.0, np.nan], 0.3), ([0.0, 1.0], 1.5), ([], 0.3)])
def test_faults(time, reach):
    records = np.zeros(len(time), curveeditor.key_fields)
    records["time"], records["leaving_reach"] = time, reach
    with pytest.raises(ValueError):
        Keys(records)
    with pytest.raises(ValueError, match="finite"):
        Keys(curveeditor.Keys.of(Spline(), tolerance=0.0).records, default_value=np.nan)
    keys = Keys(np.array([(0.0,), (1.0,)], [("time", float)]))
    for call in (lambda: keys.set_ease(0, -0.1, 0.0, 0.5, 1.0), lambda: keys.to_spline(tolerance=-1.0), lambda: Keys.of(Spline(), tolerance=np.nan)):
        with pytest.raises(ValueError, match="0 to 1|tolerance"):
            call()
    with pytest.raises(IndexError):
        keys.set_ease(1, 0.0, 0.0, 1.0, 1.0)
