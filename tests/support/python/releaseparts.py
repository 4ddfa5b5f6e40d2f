"""The parts of a release, made by the scripts that make them."""

import os
import pathlib
import subprocess
import unittest


def make_part(tree, part, folder, **variables):
    """The path of what scripts/package/<part>.sh makes. Skips the tests of what this machine cannot make."""
    script = subprocess.run([tree / f"scripts/package/{part}.sh", folder], capture_output=True, text=True, timeout=500,
                            env={**os.environ, **variables})
    if script.returncode == 77:
        raise unittest.SkipTest(script.stderr.strip())
    assert script.returncode == 0, script.stderr
    return pathlib.Path(script.stdout.strip())
