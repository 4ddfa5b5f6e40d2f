"""The files of the tree, without what is built."""

import os
import re
from pathlib import Path


def paths(root, names, folders=("",)):
    """The files whose names match a pattern, in some folders of the tree or in all of them, by their paths from the root.
    Hidden folders are left out, and those that something is built in or packed into."""
    for top in folders:
        for folder, inner, found in os.walk(Path(root, top)):
            inner[:] = sorted(name for name in inner if not name.startswith(".") and name != "dist"
                              and not Path(folder, name, "CMakeCache.txt").exists())
            for name in sorted(found):
                if re.fullmatch(names, name):
                    yield Path(folder, name).relative_to(root).as_posix()


def texts(root, names, folders=("",)):
    """The same files with what is in them."""
    return {path: Path(root, path).read_text(encoding="utf-8") for path in paths(root, names, folders)}
