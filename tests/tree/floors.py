"""The lists of floors in docs/architecture.md: indented lines, the topmost folder first.

The section "Floors" lists the folders of the tree and, in a list of its own, the headers that host/ may include of the
product. The section "How brvhost works" lists the folders of host/. Several folders on one line are on one floor.
"""

import re

DOCUMENT = "docs/architecture.md"
HOST = "host/"
_TREE_SECTION, _HOST_SECTION = "Floors", "How brvhost works"

_FOLDERS = re.compile(r" {4}(\S+/(?: +\S+/)*)(?: .*)?")
_HEADERS = re.compile(r" {4}(\S+\.(?:h|inc)(?: +\S+\.(?:h|inc))*) *")


class Floors:
    """The floors in a folder ("" is the whole tree). Files that stand in no folder of it are on a floor above all."""

    def __init__(self, inside, rows):
        self.inside = inside
        self.heights = {inside + folder: len(rows) - number for number, row in enumerate(rows) for folder in row}
        self.listed = list(self.heights)
        self.heights[inside] = len(rows) + 1

    def folder_of(self, file):
        """The folder of the list that a file stands in; without one, the folder around them; None outside of that."""
        return max(filter(file.startswith, self.heights), key=len, default=None)


class Document:
    def __init__(self, text):
        parts = re.split(r"^## +(.*?) *$", text, flags=re.MULTILINE)
        self._sections = dict(zip(parts[1::2], parts[2::2]))
        self.floors = [Floors("", self._lists(_TREE_SECTION, _FOLDERS)), Floors(HOST, self._lists(_HOST_SECTION, _FOLDERS))]
        self.interface = {name for names in self._lists(_TREE_SECTION, _HEADERS) for name in names}

    def _lists(self, heading, pattern):
        """The names in each line of a section's lists."""
        lines = self._sections.get(heading, "").splitlines()
        rows = [match[1].split() for match in map(pattern.fullmatch, lines) if match]
        if not rows:
            raise ValueError(f"{DOCUMENT}: nothing is listed in a section {heading}")
        return rows
