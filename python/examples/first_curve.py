# SPDX-License-Identifier: MIT
"""Draws a curve of points, reads it as an array, and lets a formula follow it."""
import curveeditor
import numpy as np
from curveeditor import Behaviour, PointType

zoom = curveeditor.Spline()  # a new one has a point at time 0, value 0
zoom.add(5.0, 2.0)
zoom.add(10.0, -1.0, PointType.LINEAR)
zoom.last_type = Behaviour.LOOP
zoom[1].ease_to = 0.5

times = np.linspace(0.0, 20.0, 1_000_001)
values = zoom(times)  # other threads go on meanwhile
print(f"a million values from {values.min():.2f} to {values.max():.2f}")

points = zoom.points  # a record array; assign it to change all points at once
points.value *= 2.0
before = zoom.state
zoom.points = points
undo = curveeditor.CurveDiff.between(before, zoom.state)
print(undo, end="")

variables = curveeditor.Variables()
variables.add("Camera.zoom", zoom)
shake = curveeditor.Formula("camera.zoom + 0.1 sin(40 t)", variables)
print(f"{shake} is {shake(5.0):.3f} at 5")

undo.revert(zoom)
print(f"and {shake(5.0):.3f} when the edit is taken back")
curveeditor.CurveFile(zoom, color=(255, 255, 0)).write("zoom.crv")
