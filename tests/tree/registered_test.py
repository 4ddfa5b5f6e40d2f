"""Holds that each file of tests is named in the build, without which it would never be run.

    registered_test.py ROOT
"""

import re
import sys
from pathlib import Path

from sources import paths


def names(root, file):
    """Whether a CMakeLists.txt in its folder or above has the file's name. Loops over Python tests have what is before _test."""
    path = Path(file)
    stem = path.stem.removesuffix("_test") if path.suffix == ".py" else path.stem
    name = re.compile(rf"\b({re.escape(path.name)}|{re.escape(stem)})(?![\w.])")
    lists = (root / folder / "CMakeLists.txt" for folder in path.parents if folder.name)
    return any(name.search(each.read_text()) for each in lists if each.exists())


def main(root):
    files = sorted(paths(root, r".*_test\.(cpp|py)", ("tests",)))
    slips = [f"{file}: is named in no CMakeLists.txt, and never run" for file in files if not names(root, file)]
    if len(files) < 100:
        slips.append("hardly any tests were found")
    print("\n".join(slips) or f"{len(files)} files of tests")
    return 1 if slips else 0


sys.exit(main(Path(sys.argv[1])))
