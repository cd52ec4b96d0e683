# SPDX-License-Identifier: MIT
"""The stubs say what is there."""
import importlib.util
import os
import subprocess
import sys
from pathlib import Path

import curveeditor
import pytest

PACKAGE = Path(curveeditor.__file__).parent
HERE = Path(__file__).parent


@pytest.fixture(scope="module")
def cache(tmp_path_factory):
    pytest.importorskip("mypy")
    return tmp_path_factory.mktemp("mypy")


def run(cache, module, *words):
    environment = {**os.environ, "MYPYPATH": str(PACKAGE.parent)}
    words = [sys.executable, "-m", module, *words]
    return subprocess.run(words, cwd=cache, env=environment, capture_output=True, text=True)


def test_a_program_in_strict_types(cache):
    programs = [HERE / "typed_use.py", HERE.parent / "examples" / "first_curve.py"]
    if (PACKAGE / "qt.py").exists() and importlib.util.find_spec("PyQt6"):
        programs += [HERE / "typed_editor.py", PACKAGE / "qt.py"]
    done = run(cache, "mypy", "--strict", *map(str, programs))
    assert done.returncode == 0, done.stdout + done.stderr


def test_stubs_are_complete(cache):
    # How the classes of the modules are made, and so their metaclass, is not for stubs to say.
    lines = run(cache, "mypy.stubtest", "--concise", "curveeditor").stdout.splitlines()
    assert any("metaclass differs" in line for line in lines), lines
    assert [line for line in lines if "not present" in line] == []
