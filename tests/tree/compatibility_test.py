"""Holds docs/compatibility.md against the tree: each mark in the code has an entry that names its file, and each entry
its mark and tests that exist.

    compatibility_test.py ROOT
"""

import re
import sys
from collections import Counter
from pathlib import Path

from sources import texts

CODE = ["BrvEDK", "LIB", "util", "extension", "platform", "host"]
MARK = re.compile(r"^ *// Compatibility: \S", re.M)
ENTRY = re.compile(r"^- (?:.+\n?(?:  .*\n?)*)", re.M)
LINK = re.compile(r"\]\(\.\./([^)]+)\)")
TESTS = re.compile(r"\bTests?:\s+(.*)\.", re.S)
DEFINITION = re.compile(r"^(?:TEST(?:_F|_P)?|RC_GTEST_(?:FIXTURE_)?PROP)\(\s*(\w+),\s*(\w+)", re.M)


def marks(code):
    """How many marks each file has, and what looks like a mark but is none."""
    count = Counter({path: len(MARK.findall(text)) for path, text in code.items()})
    slips = [f"{path}: a mark begins with '// Compatibility: '" for path, text in code.items()
             if len(re.findall("compatibility:", text, re.I)) != count[path]]
    return +count, slips


def entries(text):
    """How many entries each file has, the tests that they name, and what is wrong with them."""
    count, named, slips = Counter(), [], []
    for entry in ENTRY.findall(text):
        links, tests = LINK.findall(entry), TESTS.search(entry)
        names = re.findall(r"`(\w+\.\w+)`", tests.group(1)) if tests else []
        if len(links) != 1 or not names:
            slips.append(f"an entry names one file and a test: {entry.splitlines()[0]}")
        count.update(links)
        named += names
    return count, named, slips


def main(root):
    marked, slips = marks(texts(root, r".*\.(h|cpp|inc)", CODE))
    listed, named, more = entries((Path(root) / "docs/compatibility.md").read_text(encoding="utf-8"))
    slips += more
    slips += [f"{path}: {marked[path]} marks, {listed[path]} entries" for path in sorted(marked | listed)
              if marked[path] != listed[path]]
    tests = {".".join(test) for text in texts(root, r".*\.cpp", ["tests"]).values() for test in DEFINITION.findall(text)}
    slips += [f"there is no test {name}" for name in named if name not in tests]
    if not marked or not tests:
        slips.append("no marks or no tests were found")
    print("\n".join(slips) or f"{sum(marked.values())} marks, {len(named)} tests")
    return 1 if slips else 0


sys.exit(main(sys.argv[1]))
