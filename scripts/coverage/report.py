"""Sums up what the tests reached, folder by folder, and holds it against the marks.

    report.py BUILD MARKS UNCOVERED    reads what the programs of a build have counted, and the marks; prints a table, and
                                       writes each line and branch that was not reached to the file UNCOVERED; exit
                                       status 1: a folder is below its marks, or has none
"""

import sys
from collections import namedtuple
from pathlib import Path, PurePosixPath

import counts

FOLDERS = {"extension", "util", "LIB", "BrvEDK", "host", "platform"}
# An optimised copy of a source has other branches than the source.
OPTIMISED = {f"bridge-calls-{level}.dir" for level in ("O1", "O2", "O3", "Os")}
Share = namedtuple("Share", "reached total")


def percent(share):
    """Rounded down, so that 100.0 means all."""
    return f"{share.reached * 1000 // share.total / 10:.1f}" if share.total else "-"


def below(share, mark):
    return share.reached * 1000 < round(float(mark) * 10) * share.total


def rows_of(file):
    """The rows that a file counts in: its top folder and, in host/, the folder there."""
    folders = PurePosixPath(file).parts[:-1]
    return [folders[0]] + (["/".join(folders[:2])] if folders[0] == "host" and len(folders) > 1 else [])


def shares(files):
    """The lines and the branches of each row."""
    sums = {}
    for file, lines in files.items():
        taken = [count > 0 for line in lines.values() for count in line.branches]
        found = (sum(line.count > 0 for line in lines.values()), len(lines), sum(taken), len(taken))
        for row in rows_of(file):
            sums[row] = [one + other for one, other in zip(sums.get(row, (0, 0, 0, 0)), found)]
    return {row: (Share(*found[:2]), Share(*found[2:])) for row, found in sums.items()}


def uncovered(files):
    for file, lines in sorted(files.items()):
        for number, line in sorted(lines.items()):
            missed = line.branches.count(0)
            if line.count == 0:
                yield f"{file}:{number}: not reached"
            elif missed:
                yield f"{file}:{number}: {missed} of {len(line.branches)} branches not taken"


def read_marks(text):
    rows = [line.split() for line in text.splitlines() if line and not line.startswith("#")]
    return {folder: (lines, branches) for folder, lines, branches in rows}


def faults(found, marks):
    for row in sorted(found.keys() | marks.keys()):
        if row not in marks:
            yield f"{row}: has no marks"
        elif row not in found:
            yield f"{row}: has marks, and no code"
        else:
            for what, share, mark in zip(("lines", "branches"), found[row], marks[row]):
                if below(share, mark):
                    yield f"{row}: {percent(share)} % of its {what} are covered, and {mark} % were before"


def table(found):
    yield f"{'folder':<20}{'lines':>18}{'branches':>18}"
    for row in sorted(found):
        yield f"{row:<20}" + "".join(f"{percent(share):>7} % of {share.total:>5}" for share in found[row])


def main(build, marks, list_name):
    files = counts.read(Path.cwd(), build, FOLDERS, OPTIMISED)
    found = shares(files)
    print("\n".join(table(found)))
    Path(list_name).write_text("".join(f"{place}\n" for place in uncovered(files)))
    wrong = list(faults(found, read_marks(Path(marks).read_text())))
    for fault in wrong:
        print(f"coverage: {fault}", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
