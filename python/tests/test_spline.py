# SPDX-License-Identifier: MIT
import copy
import pickle
import sys
import threading
import time

import curveeditor
import numpy as np
import pytest
from curveeditor import Behaviour, CurveDiff, CurveState, PointType, Spline, SplineState


@pytest.fixture
def spline():
    result = Spline()
    result.add(1.0, 5.0, PointType.BEZIER)
    result.add(3.0, -1.0, PointType.LINEAR)
    result[1].tan_left, result[1].tan_right = 2.0, 0.5
    result.last_type = Behaviour.LOOP_OFFSET
    return result


def test_values(spline):
    times = np.linspace(-1.0, 8.0, 1001)
    alone = [spline(t) for t in times]
    assert spline(2) == 2.0 and isinstance(spline(np.float32(2.0)), float)
    assert np.array_equal(spline(times), alone)
    assert np.array_equal(spline(times[::-1]), alone[::-1])
    assert spline(times.reshape(7, 11, 13)).shape == (7, 11, 13)
    assert np.array_equal(spline([0, 1, 3]), [0.0, 5.0, -1.0]) and spline([]).size == 0
    out = np.empty_like(times)
    assert spline(times, out) is out and np.array_equal(out, alone)
    overlapping = np.concatenate([times, [0.0]])
    spline(overlapping[:-1], out=overlapping[1:])
    assert np.array_equal(overlapping[1:], alone)
    spline(times, out=times)
    assert np.array_equal(times, alone)
    assert spline.slope(2.0) == -3.0
    assert spline.tangent_left(1) == (2.0, 0.667) and spline.tangent_right(2)[0] == -3.0
    assert spline.influence(0) == (-np.inf, np.inf)


@pytest.mark.parametrize(
    "out, error",
    [
        (np.empty(4), ValueError),
        (np.empty((3, 1)), ValueError),
        (np.empty(3, np.float32), TypeError),
        (np.empty(6)[::2], TypeError),
        ([0.0] * 3, TypeError),
        (np.frombuffer(bytes(24)), ValueError),
    ],
)
def test_output_that_does_not_fit(spline, out, error):
    with pytest.raises(error):
        spline(np.zeros(3), out)


def test_times_that_are_none(spline):
    for times, error in ((None, TypeError), ("1.0", TypeError), ([1, None], TypeError), (b"1", TypeError), (1j, TypeError), (10**400, OverflowError)):
        with pytest.raises(error):
            spline(times)


def test_points(spline):
    first, middle, last = spline
    assert (len(spline), spline[-1], spline[1].index) == (3, last, 1)
    assert (spline.next(1.0), spline.previous(1.0), spline.next(3.0)) == (last, first, None)
    assert spline.find(middle.serial) == middle and spline.find(99) is None
    middle.time = 4.0
    assert (middle.index, middle.value, list(spline)[-1]) == (2, 5.0, middle)
    assert spline.add(4.0, 7.0).index == 3
    spline.remove(middle)
    with pytest.raises(ReferenceError, match="no longer"):
        middle.value
    with pytest.raises(ReferenceError):
        middle.value = 1.0
    del spline[0], spline[-1]
    with pytest.raises(ValueError, match="last point"):
        del spline[0]
    with pytest.raises(ValueError, match="another spline"):
        spline.remove(Spline()[0])
    spline.reset()
    assert spline.points.tolist()[0][:2] == (0.0, 0.0)


@pytest.mark.parametrize("field", "time value tan_left tan_right tension continuity bias ease_to ease_from".split())
def test_fields(spline, field):
    point = spline[1]
    setattr(point, field, 0.25)
    assert getattr(point, field) == 0.25 == spline.points[field][1] == getattr(spline.points, field)[1]
    for number in (np.nan, np.inf):
        with pytest.raises(ValueError, match="default_value"):
            SplineState(spline.points, default_value=number)
        with pytest.raises(ValueError, match=field):
            setattr(point, field, number)
        with pytest.raises(ValueError, match="point 1 .* finite"):
            records = spline.points
            records[field][1] = number
            spline.points = records
    assert getattr(point, field) == 0.25


def test_records(spline):
    serials = spline.points.serial.copy()
    records = spline.points
    records["value"] += 1.0
    spline.points = records
    assert spline(3.0) == 0.0 and np.array_equal(spline.points.serial, serials)
    few = np.array([(0.0, 2.0), (1.0, 3.0)], [("time", "f4"), ("value", "i8")])
    assert Spline(few)(1.0) == 3.0 and Spline(few)[1].type == PointType.TCB
    assert records.dtype == curveeditor.point_fields or records.dtype.fields == curveeditor.point_fields.fields
    for faulty, why in [
        (few[::-1], "earlier"),
        (few[:0], "at least one"),
        (few["value"], "field \"time\""),
        (few.reshape(1, 2), "row"),
        (np.zeros(1, [("time", "f8"), ("colour", "f8")]), "colour"),
        (np.array([(0.0, 9)], [("time", "f8"), ("type", "i4")]), "type"),
    ]:
        with pytest.raises(ValueError, match=why):
            spline.points = faulty
        with pytest.raises(ValueError, match=why):
            Spline(faulty)
    assert spline(3.0) == 0.0
    with pytest.raises(ValueError):
        spline[0].type = 4
    with pytest.raises(ValueError):
        spline.add(0.0, np.inf)
    with pytest.raises(ValueError):
        spline.first_type = 5


@pytest.mark.parametrize("twin_of", [copy.copy, copy.deepcopy, Spline.copy, lambda s: pickle.loads(pickle.dumps(s))])
def test_copies(spline, twin_of):
    spline.default_value = 4.0
    twin = twin_of(spline)
    assert twin.state == spline.state and hash(twin.state) == hash(spline.state)
    assert (twin.last_type, twin.default_value) == (Behaviour.LOOP_OFFSET, 4.0)
    twin[0].value = -0.0
    assert twin.state != spline.state
    assert Spline.from_text(spline.to_text())(2.0) == spline(2.0)
    with pytest.raises(ValueError, match="no whole spline"):
        Spline.from_text(spline.to_text()[:-9])


def test_states_and_differences(spline):
    before = spline.state
    assert pickle.loads(pickle.dumps(before)) == before == SplineState(before.points, 1, Behaviour.LOOP_OFFSET)
    point = spline.add(2.0, 2.0)
    after = spline.state
    diff = CurveDiff.between(before, after)
    assert diff and diff.points_after == [point.serial] and not diff.points_before
    assert str(diff) == "+ 2: 2 2 Linear\n" and diff.touched == (-np.inf, np.inf) or diff.touched
    diff.revert(spline)
    assert spline.state == before
    diff.apply(spline)
    assert spline.state == after
    point = spline.find(point.serial)
    point.value = 3.0
    with pytest.raises(ValueError, match="not as the difference left it"):
        diff.revert(spline)
    assert point.value == 3.0
    formula = CurveDiff.between(CurveState(before), CurveState(before, "t"))
    for twin, original in ((pickle.loads(pickle.dumps(one)), one) for one in (diff, formula, CurveDiff.between(before, SplineState(before.points, 0, 1, 2.0)))):
        assert (str(twin), twin.touched, twin.points_after) == (str(original), original.touched, original.points_after)
    assert pickle.loads(pickle.dumps(CurveState(before, "t"))) == CurveState(before, "t") != CurveState(before)
    again = Spline()
    again.assign(before)
    pickle.loads(pickle.dumps(diff)).apply(again)
    assert again.state == after
    assert formula.apply(CurveState(before)).formula == "t"
    assert formula.inverse().apply(CurveState(before, "t")) == CurveState(before)
    assert CurveDiff.between(before, before).is_empty
    spline.assign(before)
    assert spline.state == before


def test_snapshots(spline):
    snapshot = spline.snapshot()
    assert spline.snapshot(snapshot) is snapshot
    times, values = np.linspace(0.0, 9.0, 100), spline(np.linspace(0.0, 9.0, 100))
    spline[1].value = 50.0
    assert np.array_equal(snapshot(times), values) and snapshot(1.0) == 5.0
    assert spline.snapshot(snapshot)(1.0) == 50.0


def test_evaluation_lets_other_threads_run(spline):
    steps, done, interval = 0, False, sys.getswitchinterval()

    def count():
        nonlocal steps
        while not done:
            steps += 1
            time.sleep(0.0001)

    counter = threading.Thread(target=count)
    times = np.linspace(0.0, 9.0, 2_000_000)
    sys.setswitchinterval(60.0)  # nobody but the evaluation gives the interpreter away
    try:
        counter.start()
        before = steps
        spline(times)
        assert steps > before
    finally:
        done = True
        sys.setswitchinterval(interval)
        counter.join()


def test_edits_while_others_evaluate(spline):
    times, faults = np.linspace(-5.0, 50.0, 20_000), []

    def evaluate():
        for _ in range(40):
            if not np.isfinite(spline(times)).all():
                faults.append("not finite")

    readers = [threading.Thread(target=evaluate) for _ in range(3)]
    for reader in readers:
        reader.start()
    while any(reader.is_alive() for reader in readers):
        for i in range(50):
            spline.add(i, i)
        spline.reset()
    assert not faults
