"""What the programs of a build have counted, read from what gcov prints: for each line of code how often it was run, and for
each branch how often it was taken.

Left out are branches that only exceptions take, also from one handler to the next; those of conditions that were never
evaluated in a line that was run (the branch that would lead there counts; in what cleans up after an exception none does);
those of the guard that the compiler puts around the initialisation of a static; and lines of brackets alone, where it puts
the ends of lives.
"""

import os
import re
import subprocess
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

_SOURCE = re.compile(r" +-: +0:Source:(.*)")
_FUNCTION = re.compile(r"function (\S+) called ")
_LINE = re.compile(r" *([0-9]+\*?|#####\*?|=====\*?): *([1-9][0-9]*):(.*)")
_BRANCH = re.compile(r"branch +([0-9]+) (?:taken ([0-9]+)|never executed)( \(throw\))?")
# A local static, the choice between handlers of exceptions, and the function of a lookup in the call table, whose only
# statement is a static.
_GUARDED = re.compile(r"\s*(static\s|\} catch \()")
_LOOKUP = re.compile(r"Lookup7AddressEv$")
_BRACKETS = re.compile(r"[\s{}();]*")


class Line:
    def __init__(self):
        self.count = 0
        self._branches = {}

    def add(self, number, taken):
        """Takes a branch that was taken so often, or None if its condition was never evaluated."""
        known = self._branches.get(number)
        self._branches[number] = taken if known is None else known + (taken or 0)

    @property
    def branches(self):
        """How often each branch was taken."""
        return [taken or 0 for taken in self._branches.values() if taken is not None or self.count == 0]


def _decisions(branches):
    """Those of a line without calls that throw or return, each of which is a branch that throws and the one before it."""
    throwing = {number for number, _, throws in branches if throws}
    return [(number, taken) for number, taken, _ in branches if not {number, number + 1} & throwing]


def add_report(files, report, wanted):
    """Adds what gcov printed about one object to what is known: a Line by number, by file. wanted gives a source the name
    that its file has there, or None."""
    lines, function, line, branches, guarded = None, "", None, [], False

    def finish():
        if line is not None and not guarded:
            for number, taken in _decisions(branches):
                line.add(number, taken)
        branches.clear()

    for text in report.splitlines():
        if match := _BRANCH.match(text):
            branches.append((int(match[1]), None if match[2] is None else int(match[2]), bool(match[3])))
        elif match := _LINE.match(text):
            finish()
            line = None
            if lines is not None and not _BRACKETS.fullmatch(match[3]):
                line = lines.setdefault(int(match[2]), Line())
                line.count += int(match[1].rstrip("*")) if match[1][0].isdigit() else 0
                guarded = bool(_GUARDED.match(match[3]) or _LOOKUP.search(function))
        elif match := _FUNCTION.match(text):
            finish()
            line, function = None, match[1]
        elif match := _SOURCE.match(text):
            finish()
            name = wanted(match[1])
            lines, line, function = None if name is None else files.setdefault(name, {}), None, ""
    finish()


def _report_of(data):
    command = ["gcov", "--branch-probabilities", "--branch-counts", "--stdout", data]
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout.decode(errors="replace")


def read(root, build, folders, excluded):
    """The counts of the sources in those folders, from all data of a build but what is in folders of the excluded names."""
    build = Path(build).resolve()

    def wanted(source):
        path = Path(os.path.normpath(Path(root, source)))
        inside = path.is_relative_to(root) and not path.is_relative_to(build)
        return str(path.relative_to(root)) if inside and path.relative_to(root).parts[0] in folders else None

    data = [path for path in sorted(build.rglob("*.gcda")) if not excluded & set(path.parts)]
    files = {}
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for report in pool.map(_report_of, data):
            add_report(files, report, wanted)
    return files
