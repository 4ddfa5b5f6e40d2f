"""What is left of a run, and what it reports, when one of its allocations fails, or all from one on."""

import os
import re
import shutil
import struct
import subprocess
import unittest

from brvhost import COUNTED, Case, HIDDEN_NOTE, LEGER_LINES, NOTE, PROGRAM, SANITIZED, hiding, score

ALLOCATIONS = os.environ["BRV_FAILING_ALLOCATIONS"]
# Each allocation of all processes takes minutes; otherwise some of those are left out of which there are many.
ALL = os.environ.get("BRV_ALL_FAULTS") == "1"

FOREVER = 1 << 60
SUPERVISOR, KEEPER, GUARD, LOADER, WORKER = "0", "0t", "0.1", "0.1.1", "0.1.1.1"
KEEPER_PROCESS = "0.2"  # of several scores

# Of two facts: the processes of all take their time, and are alike.
CHECK = "check", "--include", "^(works-without-functions|terminates)$", LEGER_LINES

NO_MEMORY = r"brvhost: (.*: )?(there is not enough memory|needs more than 1 GB of memory; --max-memory allows more)"
# The library that opens archives takes some lacks of memory for a broken archive.
BROKEN_ARCHIVE = r"|brvhost: .*mxl: not a readable \.mxl archive: it has no directory at its end; the file may be cut off"
REPORTS = {
    SUPERVISOR: NO_MEMORY + r"|brvhost: (thread: Resource temporarily unavailable|.*: Cannot allocate memory)" +
                BROKEN_ARCHIVE,
    KEEPER: NO_MEMORY + "(; the score is as it was, or done)?" + BROKEN_ARCHIVE,
    KEEPER_PROCESS: NO_MEMORY + "(; the score is as it was, or done)?",
    GUARD: "brvhost: .*: while it was loaded, its code lost its guard, and was killed",
    # The library that reads property lists, and the extension itself, end the process.
    LOADER: NO_MEMORY + r" to load it|brvhost: the process that loaded the extension LegerLines had not enough memory"
            r"|brvhost: .*: (while it was loaded, its code crashed|its code does not load|.* is gone; nothing was written)"
            r".*|LegerLines: .*",
    WORKER: r"brvhost: .*: the extension LegerLines failed: " + NO_MEMORY.removeprefix("brvhost: ") + "; nothing was written",
}


@unittest.skipIf(COUNTED, "what counts what is run takes memory of its own")
@unittest.skipIf(SANITIZED, "the sanitizer has its own memory, and ends the program when it runs out")
class Allocations(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())
        self.hidden = score(HIDDEN_NOTE).encode()
        counter = self.write("counter", bytes(8))
        self.counter = open(counter, "rb", buffering=0)
        self.addCleanup(self.counter.close)
        counter.unlink()
        self.environment = {**os.environ, "LANGUAGE": "en", "LD_PRELOAD": ALLOCATIONS,
                            "COUNTED_IN": f"/proc/{os.getpid()}/fd/{self.counter.fileno()}"}

    def run_failing(self, command, thread, first, last):
        """The finished process, and how many allocations that thread asked for."""
        variables = {"FAILING_THREAD": thread, "FAILING_FROM": str(first), "FAILING_TO": str(last)}
        process = subprocess.run([PROGRAM, *map(str, command)], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                 timeout=60, cwd=self.folder, env={**self.environment, **variables})
        return process, struct.unpack("q", os.pread(self.counter.fileno(), 8, 0))[0]

    def files(self):
        return {path.name: path.read_bytes() for path in self.folder.rglob("*") if path.is_file()}

    def restore(self, files):
        for path in self.folder.rglob("*"):
            if path.is_file() and path.name not in files:
                path.unlink()
        for name, content in files.items():
            if (self.folder / name).read_bytes() != content:
                (self.folder / name).write_bytes(content)

    def survives(self, thread, *command, stride=1):
        """Lets allocations of the thread fail, alone and with all that follow."""
        before = self.files()
        good, count = self.run_failing(command, thread, 0, 0)
        self.succeeds(good)
        after = self.files()
        self.assertGreater(count, 0, "there is no such thread")
        for first in range(1, count + 1, 1 if ALL else stride):
            for last in (first, FOREVER):
                self.restore(before)
                with self.subTest(thread=thread, first=first, last=last, command=command):
                    process, _ = self.run_failing(command, thread, first, last)
                    if process.returncode == 0:
                        self.assertEqual((process.stdout, process.stderr), (good.stdout, good.stderr))
                        self.assertEqual(self.files(), after)
                    else:
                        self.fails_well(process, thread)
                        self.are_whole(self.files(), before, after)
        self.restore(before)

    def fails_well(self, process, thread):
        self.assertIn(process.returncode, (1, 2, 3))
        lines = process.stderr.splitlines()
        for line in lines:
            self.assertIsNotNone(re.fullmatch(REPORTS[thread], line), line)
        self.assertIn(len(lines), (1, 2) if thread == LOADER else (1,), process.stderr)

    def are_whole(self, files, before, after):
        self.assertLessEqual(set(files), set(after))
        for name, content in files.items():
            self.assertIn(content, (before.get(name), after[name]), name)

    def test_of_each_process_leave_a_new_result_whole(self):
        command = hiding(self.score, "-o", self.folder / "out.musicxml")
        for thread, stride in ((SUPERVISOR, 31), (KEEPER, 1), (GUARD, 1), (LOADER, 5), (WORKER, 1)):
            self.survives(thread, *command, stride=stride)

    def test_of_each_process_leave_the_result_of_a_region_by_names_whole(self):
        names = '<score-part id="P1"><part-name>Violin</part-name></score-part><score-part id="P2"><part-name>Viola</part-name></score-part>'
        measures = "".join(f'<measure number="{number}">{NOTE}</measure>' for number in (0, 1, 2, 1))
        self.score.write_text(f'<score-partwise><part-list>{names}</part-list><part id="P1">{measures}</part><part id="P2">'
                              f"{measures}</part></score-partwise>")
        command = ("run", LEGER_LINES, "--item", "ausblenden", "--parts", "VIOLA,P1", "--voices", "1", "--measures", "m0,m1/2", self.score,
                   "-o", self.folder / "out.musicxml")
        for thread, stride in ((SUPERVISOR, 61), (KEEPER, 2), (LOADER, 31), (WORKER, 2)):
            self.survives(thread, *command, stride=stride)

    def test_leave_the_result_that_was_there_whole(self):
        out = self.write("out.musicxml", "old")
        self.survives(KEEPER, *hiding(self.score, "-o", out))

    def test_leave_the_standard_output_whole_or_empty(self):
        command = hiding(self.score, "-o", "-")
        good, count = self.run_failing(command, KEEPER, 0, 0)
        self.assertEqual(good.stdout.encode(), self.hidden)
        for first in range(1, count + 1):
            process, _ = self.run_failing(command, KEEPER, first, FOREVER)
            self.assertIn((process.returncode, process.stdout.encode()), ((0, self.hidden), (1, b""), (1, self.hidden)))

    def test_while_folders_are_searched_leave_scores_whole(self):
        self.write("other.xml", score())
        self.survives(SUPERVISOR, *hiding("-r", self.folder, "--in-place"), stride=41)

    def test_leave_the_score_itself_whole(self):
        self.survives(KEEPER, *hiding("--in-place", self.score))

    def test_leave_a_result_whole_that_is_reported_in_json(self):
        command = hiding("--json", "--list", "--quiet", self.score, "-o", self.folder / "out.musicxml")
        for thread, stride in ((SUPERVISOR, 31), (KEEPER, 1)):
            self.survives(thread, *command, stride=stride)

    def test_leave_an_archive_whole(self):
        self.survives(KEEPER, *hiding("--in-place", self.compressed_score()))

    def test_leave_no_temporary_folder_of_a_check(self):
        self.environment["TMPDIR"] = str(self.folder)
        before = sorted(self.folder.iterdir())
        _, count = self.run_failing(CHECK, SUPERVISOR, 0, 0)
        for first in range(max(1, count - 700), count + 1, 1 if ALL else 31):
            with self.subTest(first=first):
                self.run_failing(CHECK, SUPERVISOR, first, FOREVER)
                self.assertEqual(sorted(self.folder.iterdir()), before)

    def test_leave_each_of_several_results_whole(self):
        other = self.write("other.musicxml", score())
        command = hiding("--jobs", 1, self.score, other, "--out-dir", self.folder / "out")
        self.survives(KEEPER_PROCESS, *command, stride=3)

    def test_of_other_commands_are_reported(self):
        for command, stride in ((("info", self.score), 37), (("info", self.compressed_score()), 37), (("items", LEGER_LINES), 97),
                                (("info", "--json", self.score), 37), (("items", "--json", LEGER_LINES), 97),
                                (("list", "--json"), 7)):
            self.survives(SUPERVISOR, *command, stride=stride)

    def test_leave_a_new_extension_whole_or_none_of_it(self):
        made, command = self.folder / "Mine", ("new", "Mine", "--languages", "de,pt")
        good, count = self.run_failing(command, SUPERVISOR, 0, 0)
        self.succeeds(good)
        files = self.files()
        for first in range(1, count + 1, 1 if ALL else 17):
            for last in (first, FOREVER):
                with self.subTest(first=first, last=last):
                    shutil.rmtree(made, ignore_errors=True)
                    process, _ = self.run_failing(command, SUPERVISOR, first, last)
                    if process.returncode == 0:
                        self.assertEqual(self.files(), files)
                    else:
                        self.fails_well(process, SUPERVISOR)
                        self.assertFalse(made.exists())

    def test_of_a_check_are_reported(self):
        self.survives(SUPERVISOR, *CHECK, stride=199)

    def test_of_random_rounds_are_reported(self):
        self.survives(SUPERVISOR, "fuzz", "--seed", 1, "--rounds", 5, LEGER_LINES, stride=7)


if __name__ == "__main__":
    unittest.main()
