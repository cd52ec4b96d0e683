# SPDX-License-Identifier: MIT
"""Makes a curve file of few points of each column of a captured table.

usage: captured_table.py TABLE.csv [TOLERANCE]
"""
import sys
from pathlib import Path

import curveeditor
import pandas

table = pandas.read_csv(sys.argv[1], index_col=0).sort_index()
tolerance = float(sys.argv[2]) if len(sys.argv) > 2 else 0.01

for name, values in table.items():
    samples = values.dropna()
    curve = curveeditor.fit(samples.index, samples, tolerance=tolerance * (samples.max() - samples.min()))
    curveeditor.CurveFile(curve).write(Path(sys.argv[1]).with_name(f"{name}.crv"))
    print(f"{name}: {len(samples)} samples become {len(curve)} points, at most {curve.deviation:.3g} away")
