"""The installed kit, and the example built with it, as an author would."""

import os
import pathlib
import subprocess

SOURCE = pathlib.Path(os.environ["BRV_SOURCE"])
BUILD = pathlib.Path(os.environ["BRV_BUILD"])


def run(*command):
    process = subprocess.run(list(map(str, command)), capture_output=True, text=True)
    assert process.returncode == 0, process.stdout + process.stderr


def install(prefix):
    run("cmake", "--install", BUILD, "--prefix", prefix)


def build_example(folder, *options):
    """ScoreReport's bundle, built in the caller's folder."""
    install(folder / "prefix")
    run("cmake", "-S", SOURCE / "examples" / "ScoreReport", "-B", folder / "build", f"-DCMAKE_PREFIX_PATH={folder / 'prefix'}",
        *options)
    run("cmake", "--build", folder / "build")
    return folder / "build" / "ScoreReport.bundle"
