"""The commands of docs/many-scores.md, as they are printed there: a run that is killed and goes on, and an array job."""

import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import time
import unittest

from brvhost import Case, LEGER_LINES, PROGRAM, SAMPLES, hiding, brvhost

PAGE = pathlib.Path(os.environ["BRV_SOURCE"]) / "docs" / "many-scores.md"
SCORES = 100  # of which the first and the last cannot be used
TASKS = 4


def is_gnu_parallel():
    return shutil.which("parallel") is not None and b"GNU" in subprocess.run(["parallel", "--version"],
                                                                              capture_output=True).stdout


@unittest.skipUnless(is_gnu_parallel() and shutil.which("jq"), "there is no GNU parallel, or no jq")
class ManyScores(Case):
    def setUp(self):
        super().setUp()
        self.scores = self.folder / "scores"
        self.scores.mkdir()
        self.good = []
        for number in range(SCORES):
            path = self.scores / f"score {number:03}.musicxml"  # a blank in each name
            if number in (0, SCORES - 1):
                path.write_text("<html/>")
                continue
            shutil.copy(SAMPLES / "piano.musicxml", path)
            self.good.append(path)
        self.succeeds(brvhost(*hiding(self.good[0], "-o", self.folder / "expected.musicxml")))
        self.expected = (self.folder / "expected.musicxml").read_bytes()
        blocks = re.findall(r"^```sh\n(.*?)^```$", PAGE.read_text(), re.MULTILINE | re.DOTALL)
        (self.listing, self.parallel, self.script, self.tasks, self.summary, self.errors, self.again, self.in_place) = blocks
        self.succeeds(self.sh(self.listing))

    def environment(self):
        # What parallel keeps of its users is kept here; with more commands at a time, all would end together.
        return {**os.environ, "LANGUAGE": "en", "HOME": str(self.folder), "PARALLEL": "--jobs 2", "BUNDLE": LEGER_LINES,
                "SCORES": str(self.scores), "PATH": f"{pathlib.Path(PROGRAM).parent}:{os.environ['PATH']}"}

    def start(self, commands):
        return subprocess.Popen(["sh", "-c", commands], cwd=self.folder, env=self.environment(), stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, start_new_session=True)

    def sh(self, commands):
        process = self.start(commands)
        output, errors = process.communicate(timeout=300)
        return subprocess.CompletedProcess(commands, process.returncode, output, errors)

    def log(self):
        """The numbers of the commands that have ended, with their statuses."""
        path = self.folder / "run.log"
        lines = path.read_text().splitlines()[1:] if path.exists() else []
        return {int(fields[0]): int(fields[6]) for fields in (line.split("\t") for line in lines)}

    def all_are_done(self):
        results = self.folder / "results"
        self.assertEqual({path.name for path in results.iterdir()}, {path.name for path in self.good})
        for path in results.iterdir():
            self.assertEqual(path.read_bytes(), self.expected)

    def what_came_of_it(self):
        statuses, changed = self.succeeds(self.sh(self.summary)).stdout.splitlines()
        self.assertEqual(json.loads(statuses), {"written": SCORES - 2, "badInput": 2})
        self.assertEqual(int(changed), (SCORES - 2) * 34, "the sample has 34 entries")
        errors = self.succeeds(self.sh(self.errors)).stdout.splitlines()
        self.assertEqual([pathlib.Path(line.split(":")[0]).name for line in errors],
                         ["score 000.musicxml", f"score {SCORES - 1:03}.musicxml"])
        self.succeeds(self.sh(self.again))
        self.assertEqual((self.folder / "again.txt").read_text(), "", "a repetition helps none of them")

    def kill_after(self, ended, process):
        """Kills a run, and all that it has started, once so many of its commands have ended."""
        while len(self.log()) < ended and process.poll() is None:
            time.sleep(0.01)
        os.killpg(process.pid, signal.SIGKILL)
        process.communicate()

    def is_anything_running(self):
        """Whether a process is there that was started with one of the scores."""
        for path in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
            try:
                if os.fsencode(self.scores) in path.read_bytes():
                    return True
            except OSError:
                pass  # it has ended meanwhile
        return False

    def test_parallel_goes_on_where_it_was_killed(self):
        self.kill_after(1, self.start(self.parallel))
        before = self.log()
        self.assertGreater(len(before), 0)
        self.assertLess(len(before), 5, "it was killed in the middle")
        modified = {number: (self.folder / "lines" / f"{number}.json").stat().st_mtime_ns for number in before}
        # What was killed may take a moment to be gone, and has its targets locked until then.
        while self.is_anything_running():
            time.sleep(0.01)
        self.assertEqual(self.sh(self.parallel).returncode, 2 - sum(status != 0 for status in before.values()))
        self.assertEqual(self.log(), {1: 2, 2: 0, 3: 0, 4: 0, 5: 2})
        for number, time_before in modified.items():
            self.assertEqual((self.folder / "lines" / f"{number}.json").stat().st_mtime_ns, time_before, "it was done before")
        self.all_are_done()
        self.what_came_of_it()

    def test_parallel_does_nothing_again(self):
        self.assertEqual(self.sh(self.parallel).returncode, 2)
        lines = {path: path.stat().st_mtime_ns for path in (self.folder / "lines").iterdir()}
        self.succeeds(self.sh(self.parallel))
        self.assertEqual({path: path.stat().st_mtime_ns for path in (self.folder / "lines").iterdir()}, lines)

    def test_tasks_of_an_array_job_share_the_scores(self):
        self.succeeds(self.sh(self.script))
        process = self.succeeds(self.sh(self.tasks))
        tasks = [line for line in process.stderr.splitlines() if not line.startswith("brvhost: ")]
        self.assertEqual([line for line in tasks if line.startswith("task")],
                         ["task 1 had scores without a result", "task 4 had scores without a result"])
        for task in range(1, TASKS + 1):
            names = {json.loads(line)["score"] for line in (self.folder / "lines" / f"{task}.json").open()}
            share = range(task - 1, SCORES, TASKS)
            self.assertEqual(names, {str(self.scores / f"score {number:03}.musicxml") for number in share})
        self.all_are_done()
        self.what_came_of_it()

    def test_nothing_changes_in_place_the_second_time(self):
        process = self.succeeds(self.sh(self.in_place))
        self.assertEqual([json.loads(line) for line in process.stdout.splitlines()],
                         [{"badInput": 2, "written": SCORES - 2}, {"badInput": 2, "unchanged": SCORES - 2}])
        for path in self.good:
            self.assertEqual((self.folder / "inplace" / path.name).read_bytes(), self.expected)


if __name__ == "__main__":
    unittest.main()
