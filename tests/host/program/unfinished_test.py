"""What is left of a report when a run does not come to its end."""

import json
import os
import pathlib
import signal
import subprocess
import time
import unittest

from brvhost import Case, HIDE, LEGER_LINES, NOTE, PROGRAM, descendants, score
from misbehaviour import MISBEHAVES, misbehaviour

# More than a pipe holds, as lines of JSON or for people.
MANY = 10_000


class Unfinished(Case):
    def setUp(self):
        super().setUp()
        self.scores = [self.write(f"{number}.musicxml", score(NOTE * MANY)) for number in range(2)]
        self.out = self.folder / "out"

    def start(self, bundle, *options, environment=None):
        command = [PROGRAM, "run", bundle, "--item", HIDE, "--all", "--out-dir", self.out, *options, *self.scores]
        return subprocess.Popen(list(map(str, command)), stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                text=True, env={**os.environ, "LANGUAGE": "en", **(environment or {})})

    def wait_for(self, condition):
        end = time.monotonic() + 60
        while not condition():
            self.assertLess(time.monotonic(), end)
            time.sleep(0.01)

    def states(self, output):
        return {line["score"]: (line["status"], line["retry"]) for line in map(json.loads, output.splitlines())}

    def test_a_list_that_breaks_off_ends_its_line(self):
        process = self.start(LEGER_LINES, "--json", "--list")
        # Nobody reads what is printed, so that the list of the first score waits for a reader.
        self.wait_for(lambda: (self.out / "0.musicxml").exists())
        children = pathlib.Path(f"/proc/{process.pid}/task/{process.pid}/children").read_text().split()
        (keeper,) = [child for child in map(int, children) if not descendants(child)]
        os.kill(keeper, signal.SIGKILL)
        output, errors = process.communicate(timeout=60)
        first, second = map(json.loads, output.splitlines())
        self.assertEqual((first["score"], first["status"], first["retry"]), (str(self.scores[0]), "failed", True))
        self.assertLess(len(first["changes"]), MANY)
        self.assertIn("brvhost's own process crashed", first["error"])
        self.assertEqual((second["status"], len(second["changes"])), ("written", MANY))
        self.assertEqual((process.returncode, f"brvhost: {first['error']}" in errors), (1, True), errors)

    def test_an_interrupt_before_the_first_score_leaves_all_to_be_run(self):
        process = self.start(MISBEHAVES, "--json", "--verbose", environment=misbehaviour("BrevixExtensionInit", "hang"))
        self.wait_for(lambda: len(descendants(process.pid)) >= 3)
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=60)
        self.assertEqual(process.returncode, 130)
        self.assertEqual(self.states(output), {str(path): ("notRun", True) for path in self.scores})
        self.assertEqual(errors, "".join(f"{path}: not run\n" for path in self.scores) +
                         "2 scores: 0 changed, 0 unchanged, 0 failed, 2 not run\n")


if __name__ == "__main__":
    unittest.main()
