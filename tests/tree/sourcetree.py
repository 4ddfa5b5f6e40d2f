"""The source files of a tree, and which of them include which."""

import collections
import os
import pathlib
import re

from sources import paths

_INCLUDE = re.compile(r'\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
# Where <BrvEDK/...> and the names of the system's frameworks lead.
_KIT, _PLATFORM = ("BrvEDK/Source/", "LIB/", "util/", "testhost/"), ("platform/include/",)

# An include in a file of ours; target is the file that is included, or None where that is not ours.
Include = collections.namedtuple("Include", "file line name target")


def without_template(file):
    """What a file is included as: the build makes name.h from name.h.in."""
    return file.removesuffix(".in")


class SourceTree:
    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.files = sorted(paths(self.root, r".*\.(h|cpp|inc)(\.in)?"))
        self._by_path = {without_template(file): file for file in self.files}
        self._by_name = collections.defaultdict(list)
        for path in self._by_path:
            self._by_name[path.rsplit("/", 1)[-1]].append(path)
        self.problems = []
        self.includes = {file: list(self._read(file)) for file in self.files}

    def _read(self, file):
        for number, line in enumerate((self.root / file).read_text().splitlines(), 1):
            if match := _INCLUDE.match(line):
                quoted, angled = match.groups()
                found = self._quoted(file, quoted) if quoted else self._angled(angled)
                if len(found) != 1 and (quoted or angled.startswith("BrvEDK/")):
                    self.problems.append(f"{file}:{number}: {quoted or angled} names {len(found)} files of this tree")
                yield Include(file, number, quoted or angled, found[0] if len(found) == 1 else None)

    def _quoted(self, file, name):
        beside = os.path.normpath(os.path.join(os.path.dirname(file), name))
        return [self._by_path[beside]] if beside in self._by_path else self._ending_with(name)

    def _angled(self, name):
        return self._ending_with(name.removeprefix("BrvEDK/"), _KIT if name.startswith("BrvEDK/") else _PLATFORM)

    def _ending_with(self, name, folders=("",)):
        """The files with a name, or with the last folders of its path and a name."""
        return [self._by_path[path] for path in self._by_name[name.rsplit("/", 1)[-1]]
                if f"/{path}".endswith(f"/{name}") and path.startswith(folders)]
