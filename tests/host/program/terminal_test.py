"""brvhost on a terminal: questions, bars, Ctrl-C."""

import os
import pty
import re
import select
import signal
import time
import unittest
import unittest.mock

from brvhost import (Case, HIDDEN_NOTE, HIDE, LEGER_LINES, NOTE, PROGRAM, descendants, faulty, run, score)
from misbehaviour import MISBEHAVES, misbehaviour


class Terminal(Case):
    def setUp(self):
        super().setUp()
        try:
            for end in pty.openpty():
                os.close(end)
        except OSError as error:
            self.skipTest(f"there are no pseudo-terminals here: {error}")
        self.score = self.write("score.musicxml", score())

    def on_terminal(self, arguments, answer_to=b"", answer=b"", before=lambda process: None):
        """Output and exit status. When the screen shows `answer_to`, calls `before` and types `answer`."""
        process, screen = pty.fork()
        if process == 0:
            os.environ["LANGUAGE"] = "en"
            signal.signal(signal.SIGPIPE, signal.SIG_DFL)  # as in a shell; Python ignores it
            os.execv(PROGRAM, [PROGRAM, *map(str, arguments)])
        shown = b""
        answered = False
        while True:
            ready, _, _ = select.select([screen], [], [], 60)
            self.assertTrue(ready, f"nothing happens after {shown!r}")
            try:
                piece = os.read(screen, 4096)
            except OSError:
                piece = b""
            if not piece:
                break
            shown += piece
            if answer and not answered and answer_to in shown:
                before(process)
                os.write(screen, answer)
                answered = True
        _, status = os.waitpid(process, 0)
        os.close(screen)
        return shown.decode(), os.waitstatus_to_exitcode(status)

    def ask(self, answer, **options):
        command = ["run", LEGER_LINES, "--item", HIDE, "--in-place", self.score]
        return self.on_terminal(command, b"[y/N]", answer, **options)

    def test_asks_and_takes_yes(self):
        shown, status = self.ask(b"y\n")
        self.assertEqual(status, 0)
        self.assertIn("Nothing is selected. Apply the command to the whole score? [y/N]", shown)
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE))

    def test_asks_and_takes_all_else_for_no(self):
        for answer in (b"n\n", b"\n", b"\x04"):
            _, status = self.ask(answer)
            self.assertEqual(status, 0)
            self.assertEqual(self.score.read_text(), score())

    def test_asks_nothing_when_layers_are_selected(self):
        command = ["run", LEGER_LINES, "--item", HIDE, "--in-place", "--layers", 1, self.score]
        shown, status = self.on_terminal(command)
        self.assertEqual(status, 0)
        self.assertNotIn("[y/N]", shown)
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE))

    def test_takes_ctrl_c_for_the_end_of_all_questions(self):
        shown, status = self.ask(b"\x03")
        self.assertEqual(status, 130, shown)
        self.assertEqual(self.score.read_text(), score())

    def test_reports_that_nobody_is_there_for_the_answer(self):
        def kill_who_asks(process):
            os.kill(descendants(process)[-1], signal.SIGKILL)

        shown, status = self.ask(b"y\n", before=kill_who_asks)
        self.assertEqual(status, 1, shown)
        self.assertIn("Killed", shown)
        self.assertEqual(self.score.read_text(), score())

    def test_shows_the_progress_of_the_extension_until_ctrl_c(self):
        command = ["run", faulty("works_until_cancelled"), "--item", 0, "--all", "--in-place", self.score]
        shown, status = self.on_terminal(command, b"] 20/1000", b"\x03")
        self.assertEqual(status, 130)
        self.assertRegex(shown, r"\[#* *\] 20/1000")
        self.assertEqual(self.score.read_text(), score())

    def test_starts_no_other_block_of_the_region_after_ctrl_c(self):
        self.score.write_text(score(NOTE * 2).replace('</measure>', '</measure><measure/><measure/>'))
        before = self.score.read_text()
        command = ["run", faulty("works_until_cancelled"), "--item", 0, "--measures", "1,3", "--in-place", self.score]
        shown, status = self.on_terminal(command, b"] 20/1000", b"\x03")
        self.assertEqual((status, shown.count("working")), (130, 1), shown)
        self.assertEqual(self.score.read_text(), before)

    def test_shows_how_many_scores_are_done(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(3)]
        shown, status = self.on_terminal(["run", LEGER_LINES, "--item", HIDE, "--all", "--in-place", *others])
        self.assertEqual(status, 0)
        self.assertIn("] 3/3", shown)
        self.assertTrue(re.search(r"3 scores: 3 changed", shown))

    def test_shows_how_many_scores_have_failed(self):
        others = [self.write(f"{number}.musicxml", "<x/>" if number else score()) for number in range(3)]
        shown, status = self.on_terminal(["run", LEGER_LINES, "--item", HIDE, "--all", "--in-place", *others])
        self.assertEqual(status, 2)
        self.assertIn("] 2/3, 1 failed", shown)
        self.assertIn("] 3/3, 2 failed", shown)

    def test_shows_how_much_time_is_left(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(9)]
        command = ["run", MISBEHAVES, "--item", 0, "--all", "--in-place", "--timeout", 1, *others]
        with unittest.mock.patch.dict(os.environ, misbehaviour("BrevixExtensionInvoke", "hang")):
            shown, status = self.on_terminal(command)
        self.assertEqual(status, 1)
        self.assertRegex(shown, r"\] 4/9, 4 failed\s*\r")
        self.assertRegex(shown, r"\] 8/9, 8 failed, 10 s left")
        self.assertRegex(shown, r"\] 9/9, 9 failed\s*\r")

    def test_shows_no_bar_where_it_is_to_be_quiet(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(3)]
        shown, status = self.on_terminal(["run", LEGER_LINES, "--item", HIDE, "--all", "--in-place", "--quiet", *others])
        self.assertEqual((shown, status), ("", 0))

    def test_shows_no_bar_elsewhere(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(3)]
        process = run(HIDE, "--all", "--in-place", *others)
        self.assertEqual(process.stderr, "")
        self.assertNotIn("[", process.stdout)


if __name__ == "__main__":
    unittest.main()
