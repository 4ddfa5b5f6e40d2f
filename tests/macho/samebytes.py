"""Hides and shows the ledger lines of every sample with either image: both must write the same bytes.

    samebytes.py BRVHOST BUNDLE OTHER_BRVHOST OTHER_BUNDLE SOURCES

The samples are those of the sources, and the shared scores ($BRV_SHARED_DIR, else beside the sources) where there are any.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import zipfile

KINDS = {".musicxml", ".xml", ".mxl"}


def content(path):
    """The bytes; of an archive those of its members, since it also has the time of writing."""
    if not zipfile.is_zipfile(path):
        return path.read_bytes()
    with zipfile.ZipFile(path) as archive:
        return [(name, archive.read(name)) for name in archive.namelist()]


def result(program, bundle, item, score, folder):
    """The exit status, and what was written."""
    output = folder / f"result{score.suffix}"
    output.unlink(missing_ok=True)
    status = subprocess.run([program, "run", bundle, "--item", str(item), "--all", score, "-o", output],
                            capture_output=True, timeout=120).returncode
    return status, content(output) if output.exists() else None


def samples(sources):
    shared = pathlib.Path(os.environ.get("BRV_SHARED_DIR", sources.parent / "shared"))
    folders = (sources / "samples", shared / "scores")
    return sorted(path for folder in folders for path in folder.rglob("*") if path.suffix in KINDS)


def main(program, bundle, other_program, other_bundle, sources):
    scores = samples(pathlib.Path(sources))
    written = different = 0
    with tempfile.TemporaryDirectory() as name:
        for score in scores:
            for item in (0, 1):
                first, second = (result(*runner, item, score, pathlib.Path(name))
                                 for runner in ((program, bundle), (other_program, other_bundle)))
                written += first[1] is not None
                if first != second:
                    different += 1
                    print(f"{score}, item {item}: exit status {first[0]} and {second[0]}, or other bytes")
    print(f"{len(scores)} scores, {written} results, {different} of them different")
    return 0 if written > 0 and different == 0 else 1


sys.exit(main(*sys.argv[1:]))
