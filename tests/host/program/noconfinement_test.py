"""A system that cannot confine an extension: what asks for it is refused, and the rest works."""

import os
import unittest

from brvhost import Case, HIDDEN_NOTE, HIDE, LEGER_LINES, SANITIZED, run, brvhost, score

REFUSED = "this system cannot confine an extension: Invalid argument"


@unittest.skipIf(SANITIZED, "the sanitizer has to be loaded first")
class NoConfinement(Case):
    def setUp(self):
        super().setUp()
        os.environ["LD_PRELOAD"] = os.environ["BRV_NO_CONFINEMENT"]
        self.addCleanup(os.environ.pop, "LD_PRELOAD")
        self.score = self.write("score.musicxml", score())

    def test_is_refused_with_nothing_loaded_or_written(self):
        process = run(HIDE, "--all", "--in-place", "--confine", self.score)
        self.assertEqual((process.returncode, process.stdout, process.stderr), (1, "", f"brvhost: {REFUSED}\n"))
        self.assertEqual(self.score.read_text(), score())

    def test_is_not_needed_without_the_option(self):
        self.succeeds(run(HIDE, "--all", "--in-place", self.score))
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE))

    def test_leaves_a_way_to_check(self):
        process = brvhost("check", LEGER_LINES)
        self.assertEqual((process.returncode, process.stdout, process.stderr),
                         (1, "", f"brvhost: {REFUSED}; --no-confine checks it all the same\n"))
        self.succeeds(brvhost("check", "--no-confine", LEGER_LINES))


if __name__ == "__main__":
    unittest.main()
