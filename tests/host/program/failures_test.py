"""What is left when an extension or the system fails, or the user interrupts."""

import signal
import subprocess
import time
import unittest

from brvhost import (Case, HIDE, LEGER_LINES, NOTE, PROGRAM, SANITIZED, faulty, run, score)


class Failures(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())

    def test_of_the_extension_leave_the_score_whole(self):
        process = run(0, "--all", "--in-place", self.score, bundle=faulty("crashes_when_invoked"))
        self.fails(process, 1, "score.musicxml: the extension crashes_when_invoked crashed", "Aborted")
        self.assertEqual(self.score.read_text(), score())

    def test_of_the_extension_cost_one_score_each(self):
        other = self.write("other.musicxml", score())
        process = run(0, "--all", "--in-place", self.score, other, bundle=faulty("crashes_when_invoked"))
        self.fails(process, 1, "score.musicxml: the extension", "other.musicxml: the extension")
        self.assertIn("2 scores: 0 changed, 0 unchanged, 2 failed", process.stdout)

    def test_to_write_leave_the_old_file_whole(self):
        target = self.folder / "locked"
        target.mkdir()
        old = target / "out.musicxml"
        old.write_text("old")
        process = run(HIDE, "--all", self.score, "-o", self.folder / "none" / "out.musicxml")
        self.fails(process, 1, f"none/out.musicxml: cannot write to the folder {self.folder}/none: No such file or directory\n")
        self.fails(run(HIDE, "--all", self.score, "-o", target), 1, f"{target}: is a folder, not a file; --out-dir writes into a folder\n")
        self.fails(run(HIDE, "--all", self.score, "-o", "/dev/full"), 1,
                   "/dev/full: is not a regular file; --output - writes to the standard output\n")
        self.assertEqual(old.read_text(), "old")

    def test_of_space_leave_the_old_file_whole(self):
        big = self.write("big.musicxml", score(NOTE * 5000))
        before = big.read_bytes()
        limit = "ulimit -f 64; "
        process = subprocess.run(["bash", "-c", limit + 'exec "$@"', "bash", PROGRAM, "run", LEGER_LINES, "--item", "0",
                                  "--all", "--in-place", str(big)], capture_output=True, text=True, timeout=60)
        self.fails(process, 1, "big.musicxml: cannot write: File too large")
        self.assertEqual(big.read_bytes(), before)
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["big.musicxml", "score.musicxml"])


    @unittest.skipIf(SANITIZED, "the sanitizer wants all addresses")
    def test_of_memory_within_a_call_return_failure_and_write_nothing(self):
        limit = "ulimit -v 1000000; "
        process = subprocess.run(["bash", "-c", limit + 'exec "$@"', "bash", PROGRAM, "run",
                                  faulty("saves_beyond_memory"), "--item", "0", "--all", "--in-place", str(self.score)],
                                 capture_output=True, text=True, timeout=60)
        self.fails(process, 1, "score.musicxml: the extension saves_beyond_memory failed: there is not enough memory for this score; "
                   "nothing was written")
        self.assertEqual(process.stdout, "the host returned 0\n")
        self.assertEqual(self.score.read_text(), score())


class Interrupts(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())

    def start(self, bundle, *scores):
        """The process, when the extension is at work on the first score."""
        command = [PROGRAM, "run", faulty(bundle), "--item", "0", "--all", "--in-place", *map(str, scores)]
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.assertIn("working", process.stdout.readline())
        return process

    def test_end_the_extension_and_write_nothing(self):
        process = self.start("works_until_cancelled", self.score)
        self.assertIsNone(process.poll(), "it waits for the interrupt")
        process.send_signal(signal.SIGINT)
        out, errors = process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130, out + errors)
        self.assertEqual(self.score.read_text(), score())

    def test_start_no_further_score(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(5)]
        process = self.start("works_until_cancelled", *others)
        process.send_signal(signal.SIGINT)
        out, _ = process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130)
        self.assertIn("5 scores: 0 changed, 0 unchanged, 0 failed, 1 interrupted, 4 not run", out)

    def test_by_a_request_to_end_do_not_wait_for_the_extension(self):
        for number in (signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                process = self.start("ignores_cancel", self.score)
                process.send_signal(number)
                process.communicate(timeout=30)
                self.assertEqual(process.returncode, 130)
                self.assertEqual(self.score.read_text(), score())

    def test_that_are_ignored_stay_so(self):
        command = [PROGRAM, "run", faulty("works_until_cancelled"), "--item", "0", "--all", "--in-place", str(self.score)]
        process = subprocess.Popen(["nohup", *command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True)
        self.assertIn("working", process.stdout.readline())
        process.send_signal(signal.SIGHUP)
        time.sleep(0.3)
        self.assertIsNone(process.poll())
        process.send_signal(signal.SIGINT)
        process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130)

    def test_a_second_time_do_not_wait_for_the_extension(self):
        process = self.start("ignores_cancel", self.score)
        sent = 0
        while process.poll() is None and sent < 300:
            process.send_signal(signal.SIGINT)
            sent += 1
            time.sleep(0.1)  # since two at once count as one
        process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130)
        self.assertGreater(sent, 1, "the extension ended at the first")
        self.assertEqual([path.name for path in self.folder.iterdir()], ["score.musicxml"])
        self.assertEqual(self.score.read_text(), score())


if __name__ == "__main__":
    unittest.main()
