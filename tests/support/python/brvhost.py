"""Runs brvhost for tests. The environment names the program, the extension, and the folders of faulty bundles and samples."""

import os
import pathlib
import re
import subprocess
import tempfile
import time
import unittest
import zipfile

PROGRAM = os.environ["BRVHOST"]
LEGER_LINES = os.environ["BRV_BUNDLE"]
EXECUTABLE_FOLDER = os.environ["BRV_EXECUTABLE_FOLDER"]
BUNDLES = pathlib.Path(os.environ["BRV_FAULTY_BUNDLES"])
SANITIZED = os.environ["BRV_SANITIZED"] == "ON"
COUNTED = os.environ["BRV_COUNTED"] == "ON"
EMULATED = os.environ["BRV_EMULATED"] == "ON"
# Tests, by their class or by class and name, that cannot be run where these are.
NOT_RUN = os.environ.get("BRV_NOT_RUN", "").split()
SAMPLES = pathlib.Path(os.environ["BRV_SAMPLES"])

HIDE, SHOW = 0, 1

# What the emulator prints besides when a program crashes.
_EMULATORS_LINE = re.compile(r"^.*qemu: uncaught target signal .*\n", re.MULTILINE)


def faulty(name):
    return str(BUNDLES / f"{name}.bundle")


def brvhost(*arguments, environment=None, **options):
    """The finished process, its output as text; it has no terminal."""
    options.setdefault("stdin", subprocess.DEVNULL)
    process = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, timeout=300,
                             env={**os.environ, "LANGUAGE": "en", **(environment or {})}, **options)
    if EMULATED:
        process.stderr = _EMULATORS_LINE.sub("", process.stderr)
    return process


COMMANDS = ["list", "items", "info", "run", "check", "fuzz", "calls", "new", "help"]


def options_in_help(command):
    """All long options that the help of a command mentions at the start of a line."""
    text = brvhost(command, "--help").stdout
    return set(re.findall(r"^ +(?:-\w, ?)?(--[\w-]+)", text, re.MULTILINE))


def run(item, *arguments, bundle=LEGER_LINES, environment=None):
    return brvhost("run", bundle, "--item", item, *arguments, environment=environment)


def hiding(*arguments):
    """The arguments of a run that hides the ledger lines of whole scores."""
    return "run", LEGER_LINES, "--item", HIDE, "--all", *arguments


def descendants(process):
    """The numbers of all processes that hang from one, those that are further from it later."""
    found = []
    left = [process]
    while left:
        number = left.pop(0)
        try:
            children = pathlib.Path(f"/proc/{number}/task/{number}/children").read_text().split()
        except OSError:
            continue  # it has ended meanwhile
        found += map(int, children)
        left += map(int, children)
    return found


def state_of(process):
    """The letter that the system has for what a process does: "T" where it is stopped. "X" where it is gone."""
    try:
        status = pathlib.Path(f"/proc/{process}/stat").read_text()
    except OSError:
        return "X"
    return status.rpartition(")")[2].split()[0]


def is_running(process):
    """Whether a process is at work: one that has ended keeps its number until somebody takes its status."""
    return state_of(process) not in "ZX"


def wait_until(holds, seconds=20):
    """Whether something holds by then."""
    end = time.monotonic() + seconds
    while not holds() and time.monotonic() < end:
        time.sleep(0.01)
    return holds()


class Case(unittest.TestCase):
    """A test with a folder of its own."""

    def setUp(self):
        name = self.id().removeprefix("__main__.")
        if name in NOT_RUN or name.partition(".")[0] in NOT_RUN:
            self.skipTest("it cannot be run here")
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, content):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def compressed(self, name, content, root="x.xml", member="x.xml"):
        """A compressed score: its container names the member `root`, and `member` is the one that it has."""
        path = self.folder / name
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
            archive.writestr("META-INF/container.xml",
                             f'<container><rootfiles><rootfile full-path="{root}"/></rootfiles></container>')
            archive.writestr(member, content)
        return path

    def compressed_score(self):
        return self.compressed("score.mxl", score())

    def succeeds(self, process):
        self.assertEqual(process.returncode, 0, process.stdout + process.stderr)
        return process

    def fails(self, process, status, *messages):
        self.assertEqual(process.returncode, status, process.stdout + process.stderr)
        for message in messages:
            self.assertIn(message, process.stderr)
        return process


NOTE = "<note><duration>1</duration></note>"
HIDDEN_NOTE = NOTE.replace("<note", '<note print-leger="no"')


def score(measure_content=NOTE):
    return ('<score-partwise version="4.0"><part-list><score-part id="P1"/></part-list><part id="P1">'
            f'<measure number="1">{measure_content}</measure></part></score-partwise>')
